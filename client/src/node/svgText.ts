const svgNamespace = 'http://www.w3.org/2000/svg';
const elementNode = 1;
const textNodes = new Set([3, 4]);

/**
 * A drawing as the text of an SVG file, well-formed whatever texts it has: what XML cannot hold is left out. Style
 * elements are left out too: they are for pages, and few programs that draw SVG read them.
 */
export function svgText(svg: SVGSVGElement): string {
  const parts: string[] = ['<?xml version="1.0" encoding="UTF-8"?>\n'];
  write(svg, parts, true);
  parts.push('\n');
  return parts.join('');
}

function write(node: Node, parts: string[], isRoot: boolean): void {
  if (textNodes.has(node.nodeType)) {
    parts.push(escaped(node.nodeValue ?? ''));
  } else if (node.nodeType === elementNode) {
    const element = node as Element;
    const name = element.localName;
    if (name === 'style') return;
    parts.push('<', name);
    if (isRoot) parts.push(` xmlns="${svgNamespace}" xmlns:xlink="http://www.w3.org/1999/xlink"`);
    for (const attribute of Array.from(element.attributes)) {
      if (!attribute.name.startsWith('xmlns'))
        parts.push(' ', attribute.name, '="', escaped(attribute.value), '"');
    }
    parts.push('>');
    for (const child of Array.from(element.childNodes)) write(child, parts, false);
    parts.push('</', name, '>');
  }
}

const entities: { [character: string]: string } = { '&': '&amp;', '<': '&lt;', '>': '&gt;', '"': '&quot;' };

function escaped(text: string): string {
  return text
    .replace(/[\u0000-\u0008\u000b\u000c\u000e-\u001f\ufffe\uffff]|\p{Surrogate}/gu, '')
    .replace(/[&<>"]/g, (character) => entities[character] as string);
}
