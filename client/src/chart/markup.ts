/**
 * The elements of a chart's markup as they are read. What nobody reads is remembered, so that it can be named
 * instead of being left out in silence.
 */

/** A number and its unit, as the chart has it. */
export interface Length {
  value: number;
  unit: 'px' | 'pt' | 'mm' | 'cm' | 'in' | '%';
}

/** Attributes that say nothing about what is drawn. */
const silentAttributes = new Set(['id', 'creator', 'date', 'version', 'type', 'xmlns', 'name']);

/** Elements that hold free texts for others. */
const silentElements = new Set(['extension', 'swingController']);

const elementNode = 1;

/** What of a chart's text was read so far. */
export class Reading {
  /** What was read, but cannot be done; a sentence for each. */
  readonly notes: string[] = [];
  private readonly elements = new Set<Element>();
  private readonly attributes = new Map<Element, Set<string>>();

  touch(element: Element): void {
    this.elements.add(element);
  }

  touchAttribute(element: Element, name: string): void {
    let names = this.attributes.get(element);
    if (!names) this.attributes.set(element, (names = new Set()));
    names.add(name);
  }

  /** A sentence for each kind of element or attribute below `root` that nobody has read. */
  leftovers(root: Element): string[] {
    const counts = new Map<string, number>();
    this.collect(root, counts);
    return [...counts].map(([what, count]) => (count === 1 ? `${what}.` : `${what} (${count} times).`));
  }

  private collect(element: Element, counts: Map<string, number>): void {
    const add = (what: string) => counts.set(what, (counts.get(what) ?? 0) + 1);
    if (silentElements.has(element.localName)) return;
    if (!this.elements.has(element)) {
      const parent = (element.parentNode as Element | null)?.localName;
      add(`Not drawn: the element ${element.localName}${parent ? ` of ${parent}` : ''}`);
      return;
    }
    const read = this.attributes.get(element);
    for (const attribute of Array.from(element.attributes)) {
      if (attribute.namespaceURI && attribute.name.includes(':')) continue;
      const name = attribute.name;
      if (silentAttributes.has(name) || name.startsWith('xmlns') || read?.has(name)) continue;
      add(`Not honoured: the attribute ${name} of ${element.localName}`);
    }
    for (const child of elementsOf(element)) this.collect(child, counts);
  }
}

function elementsOf(element: Element): Element[] {
  return Array.from(element.childNodes).filter((node) => node.nodeType === elementNode) as Element[];
}

/** One element of the markup. */
export class Markup {
  constructor(
    readonly element: Element,
    readonly reading: Reading,
  ) {
    reading.touch(element);
  }

  get name(): string {
    return this.element.localName;
  }

  get id(): string {
    return this.element.getAttribute('id') ?? '';
  }

  /** Null where the attribute is absent. */
  text(name: string): string | null {
    this.reading.touchAttribute(this.element, name);
    return this.element.hasAttribute(name) ? this.element.getAttribute(name) : null;
  }

  /** The attribute as it stands, and an absent one as the empty text. */
  reference(name: string): string {
    return this.text(name) ?? '';
  }

  /** `true` and `1`, `false` and `0`; anything else is as if it were absent, with a note. */
  flag(name: string): boolean | null {
    const text = this.text(name);
    if (text === 'true' || text === '1') return true;
    return text === 'false' || text === '0' ? false : this.notUnderstood(name, text);
  }

  /** A text that is no number is as if it were absent, with a note. */
  number(name: string): number | null {
    const text = this.text(name);
    return numberOf(text) ?? this.notUnderstood(name, text);
  }

  length(name: string): Length | null {
    const text = this.text(name);
    return lengthOf(text) ?? this.notUnderstood(name, text);
  }

  /** An empty text is a value that was given up. */
  private notUnderstood(name: string, text: string | null): null {
    if (text !== null && text.trim() !== '')
      this.note(`The ${name} "${text.slice(0, 40)}" of ${this.name} is not understood.`);
    return null;
  }

  /** The children of these names, in document order. */
  children(...names: string[]): Markup[] {
    return elementsOf(this.element)
      .filter((child) => names.includes(child.localName))
      .map((child) => new Markup(child, this.reading));
  }

  /** The first child of this name; further ones are not read. */
  child(name: string): Markup | null {
    const found = elementsOf(this.element).find((child) => child.localName === name);
    return found ? new Markup(found, this.reading) : null;
  }

  /** What of this element is read, but cannot be done. */
  note(sentence: string): void {
    this.reading.notes.push(sentence);
  }

  /** The text within the element. */
  content(): string {
    return this.element.textContent ?? '';
  }
}

/** Null for what is no number. */
export function numberOf(text: string | null): number | null {
  if (text === null || text.trim() === '') return null;
  if (text === 'INF') return Infinity;
  if (text === '-INF') return -Infinity;
  const value = Number(text);
  return Number.isNaN(value) ? null : value;
}

const lengthPattern = /^\s*(-?[0-9.]+(?:[eE][-+]?\d+)?)\s*(px|pt|mm|cm|in|%)?\s*$/;

/** What is longer is no length of a page. */
const longest = 1e6;

/** A number without a unit is one of pixels. */
export function lengthOf(text: string | null): Length | null {
  const found = text === null ? null : lengthPattern.exec(text);
  if (!found) return null;
  const value = Number(found[1]);
  return Math.abs(value) <= longest
    ? { value, unit: (found[2] as Length['unit'] | undefined) ?? 'px' }
    : null;
}

const pixelsOfUnit = { px: 1, pt: 4 / 3, mm: 96 / 25.4, cm: 960 / 25.4, in: 96 };

/** In CSS pixels; `whole` is what a percentage is of. */
export function pixels(length: Length, whole: number): number {
  return length.unit === '%' ? (length.value / 100) * whole : length.value * pixelsOfUnit[length.unit];
}
