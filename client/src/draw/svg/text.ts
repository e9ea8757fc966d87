/**
 * Texts without a browser: how wide they are by a table of the widths of a common sans serif and serif font, and
 * where their lines break.
 */
import type { Style } from '../../chart/model.js';
import { pixels } from '../../chart/markup.js';
import { safeColor } from './colors.js';

/** How a text looks; the size in pixels. */
export interface TextLook {
  family: string;
  size: number;
  weight: string;
  slant: string;
  color: string;
  align: 'start' | 'middle' | 'end';
  opacity?: number;
}

export const sansSerif = 'Helvetica, Arial, "Liberation Sans", sans-serif';
const serif = '"Times New Roman", Times, "Liberation Serif", serif';
const monospace = '"Courier New", Courier, "Liberation Mono", monospace';

/** What the generic names of fonts stand for here, so that widths are known. */
const families: Record<string, string> = {
  'sans-serif': sansSerif,
  SansSerif: sansSerif,
  serif,
  Serif: serif,
  monospace,
  Monospaced: monospace,
};

const lineHeights = 1.25;

/** Thousandths of the size, from the blank to the tilde. */
const sansWidths = widthsOf(
  '278 278 355 556 556 889 667 191 333 333 389 584 278 333 278 278 556 556 556 556 556 556 556 556 556 556 278 278 ' +
    '584 584 584 556 1015 667 667 722 722 667 611 778 722 278 500 667 556 833 722 778 667 778 722 667 611 722 667 944 ' +
    '667 667 611 278 278 278 469 556 333 556 556 500 556 556 278 556 556 222 222 500 222 833 556 556 556 556 333 500 ' +
    '278 556 500 722 500 500 500 334 260 334 584',
);
const boldWidths = widthsOf(
  '278 333 474 556 556 889 722 238 333 333 389 584 278 333 278 278 556 556 556 556 556 556 556 556 556 556 333 333 ' +
    '584 584 584 611 975 722 722 722 722 667 611 778 722 278 556 722 611 833 722 778 667 778 722 667 611 722 667 944 ' +
    '667 667 611 333 278 333 584 556 333 556 611 556 611 556 333 611 611 278 278 556 278 889 611 611 611 611 389 556 ' +
    '333 611 556 778 556 556 500 389 280 389 584',
);
const serifWidths = widthsOf(
  '250 333 408 500 500 833 778 180 333 333 500 564 250 333 250 278 500 500 500 500 500 500 500 500 500 500 278 278 ' +
    '564 564 564 444 921 722 667 667 722 611 556 722 722 333 389 722 611 889 722 722 556 722 667 556 611 722 722 944 ' +
    '722 722 611 333 278 333 469 500 333 444 500 444 500 444 333 500 500 278 278 500 278 778 500 500 500 500 333 389 ' +
    '278 500 500 722 500 500 444 480 200 480 541',
);

function widthsOf(text: string): number[] {
  return text.split(' ').map(Number);
}

const firstInTable = 32;
const ideographs =
  /[\u1100-\u115f\u2e80-\ua4cf\uac00-\ud7a3\uf900-\ufaff\ufe30-\ufe4f\uff00-\uff60\u{1f300}-\u{1faff}]/u;

function characterWidth(character: string, table: number[]): number {
  const width = table[(character.codePointAt(0) ?? 0) - firstInTable];
  if (width !== undefined) return width;
  if (character === '\u2212') return 584;
  if (ideographs.test(character)) return 1000;
  // An accented letter is as wide as the letter.
  const base = character.normalize('NFD').codePointAt(0) ?? 0;
  return table[base - firstInTable] ?? 600;
}

function tableOf(look: Pick<TextLook, 'family' | 'weight'>): number[] {
  if (/^(bold|bolder|[6-9]00)$/.test(look.weight)) return boldWidths;
  return look.family === serif || /times|serif$/i.test(look.family.replace(/sans-serif/g, ''))
    ? serifWidths
    : sansWidths;
}

/** In pixels. */
export function textWidth(text: string, look: Pick<TextLook, 'family' | 'weight' | 'size'>): number {
  const table = tableOf(look);
  let width = 0;
  for (const character of text) width += characterWidth(character, table);
  return (width / 1000) * look.size * (look.family === monospace ? 1.15 : 1);
}

export function widest(texts: string[], look: TextLook): number {
  return Math.max(0, ...texts.map((text) => textWidth(text, look)));
}

export const lineHeight = (look: Pick<TextLook, 'size'>) => look.size * lineHeights;

/** No text on a page has room for more letters; measuring them would only take time. */
const mostLetters = 4_000;

/** Breaks at blanks, and within words that are wider than a line; what is too long ends in an ellipsis. */
export function wrap(text: string, width: number, look: TextLook): string[] {
  const shown = text.length > mostLetters ? `${text.slice(0, mostLetters)}\u2026` : text;
  return shown.split('\n').flatMap((line) => wrapLine(line.trim(), width, look));
}

/** At most so many lines, at least one; the last one of them ends in an ellipsis where there were more. */
export function atMost(lines: string[], most: number): string[] {
  const count = Math.max(1, Math.floor(most));
  if (lines.length <= count) return lines;
  return [...lines.slice(0, count - 1), `${lines[count - 1]!.replace(/.?$/u, '')}\u2026`];
}

function wrapLine(line: string, width: number, look: TextLook): string[] {
  const lines: string[] = [];
  let current = '';
  for (const word of line.split(/\s+/)) {
    const longer = current === '' ? word : `${current} ${word}`;
    if (textWidth(longer, look) <= width) {
      current = longer;
      continue;
    }
    if (current !== '') lines.push(current);
    current = word;
    while (textWidth(current, look) > width && [...current].length > 1) {
      const part = fitting(current, width, look);
      lines.push(part);
      current = current.slice(part.length);
    }
  }
  lines.push(current);
  return lines;
}

function fitting(text: string, width: number, look: TextLook): string {
  let part = '';
  let taken = 0;
  for (const character of text) {
    taken += textWidth(character, look);
    if (part !== '' && taken > width) break;
    part += character;
  }
  return part;
}

/** Cut with an ellipsis where it is wider than that. */
export function shorten(text: string, width: number, look: TextLook): string {
  if (textWidth(text, look) <= width) return text;
  return `${fitting(text, width - textWidth('\u2026', look), look).trimEnd()}\u2026`;
}

const alignments: Record<string, TextLook['align']> = {
  left: 'start',
  start: 'start',
  center: 'middle',
  middle: 'middle',
  right: 'end',
  end: 'end',
};

/** What a style says of a text, and the rest from `otherwise`. */
export function textLook(style: Style, otherwise: TextLook): TextLook {
  return {
    family: style.fontFamily ? (families[style.fontFamily.trim()] ?? style.fontFamily) : otherwise.family,
    size: style.fontSize ? Math.max(1, pixels(style.fontSize, otherwise.size)) : otherwise.size,
    weight: style.fontWeight ?? otherwise.weight,
    slant: style.fontStyle ?? otherwise.slant,
    color: safeColor(style.color) ?? otherwise.color,
    align: alignments[style.textAlignment ?? ''] ?? otherwise.align,
    ...(style.opacity === undefined ? {} : { opacity: Math.min(1, Math.max(0, style.opacity)) }),
  };
}
