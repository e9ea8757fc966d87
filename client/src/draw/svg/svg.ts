/** Makes elements of SVG. */
import type { TextLook } from './text.js';

export const svgNamespace = 'http://www.w3.org/2000/svg';

export type Attributes = Record<string, string | number | null | undefined>;

/** Rounded to hundredths of a pixel: more only makes pictures larger. */
const rounded = (value: number) => String(Math.round(value * 100) / 100);

/** Makes elements in one document, with ids of their own. */
export class Maker {
  constructor(
    readonly document: Document,
    /** Goes before ids, so that charts on one page keep apart. */
    readonly prefix: string,
  ) {}

  make(name: string, attributes: Attributes = {}, children: (Element | string)[] = []): SVGElement {
    const element = this.document.createElementNS(svgNamespace, name) as SVGElement;
    for (const [key, value] of Object.entries(attributes)) {
      if (value === null || value === undefined) continue;
      element.setAttribute(key, typeof value === 'number' ? rounded(value) : value);
    }
    for (const child of children) element.append(child);
    return element;
  }

  /** A group that readers who cannot see the chart meet by its name. */
  group(name: string, role: string, attributes: Attributes = {}): SVGElement {
    return this.make('g', { role: role || null, 'aria-label': name, ...attributes });
  }

  /** A shortened text, with the whole one for who points at it or has it read out. */
  withWhole(shown: SVGElement, text: string): SVGElement {
    return this.make('g', {}, [this.make('title', {}, [text]), shown]);
  }

  /** Lines of text, the first one with its base line at y. */
  text(lines: string[], x: number, y: number, look: TextLook, attributes: Attributes = {}): SVGElement {
    const step = look.size * 1.25;
    const spans = lines.map((line, at) =>
      at === 0 && lines.length === 1 ? line : this.make('tspan', { x, y: y + at * step }, [line]),
    );
    return this.make(
      'text',
      { x, y, ...fontAttributes(look), 'text-anchor': look.align, ...attributes },
      spans,
    );
  }
}

function fontAttributes(look: TextLook): Attributes {
  return {
    'font-family': look.family,
    'font-size': look.size,
    'font-weight': look.weight === 'normal' ? null : look.weight,
    'font-style': look.slant === 'normal' ? null : look.slant,
    fill: look.color,
    'fill-opacity': look.opacity ?? null,
  };
}

/** A short name of a text, always the same one. */
export function hashOf(text: string): string {
  let hash = 0x811c9dc5;
  for (let at = 0; at < text.length; at += 1) {
    hash ^= text.charCodeAt(at);
    hash = Math.imul(hash, 0x01000193) >>> 0;
  }
  return hash.toString(36);
}
