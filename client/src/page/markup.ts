/**
 * Chart text with each element on a line of its own, indented by depth. Changes nothing but white space between
 * tags, and nothing at all where a tag stands beside text.
 */
export function indented(xml: string): string {
  const lines: string[] = [];
  let depth = 0;
  for (const piece of xml.replace(/>\s*</g, '>\n<').split('\n')) {
    if (piece.startsWith('</')) depth = Math.max(0, depth - 1);
    lines.push('  '.repeat(Math.min(depth, 40)) + piece);
    if (opensElement(piece)) ++depth;
  }
  return lines.join('\n');
}

function opensElement(piece: string): boolean {
  return /^<[^/?!]/.test(piece) && !piece.endsWith('/>') && !piece.includes('</');
}
