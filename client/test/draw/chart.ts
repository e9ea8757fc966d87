/** Makes charts out of a few lines of markup and rows, and looks into what was drawn. */
import { makeDocument, parseXml } from '../../src/node/document.js';
import { draw, type Drawn } from '../../src/draw/draw.js';
import type { Received, Table } from '../../src/received.js';

export function tableOf(columns: Record<string, (number | null)[]>, source = 's'): Table {
  const entries = Object.entries(columns);
  return {
    source,
    rows: entries[0]?.[1].length ?? 0,
    columns: new Map(
      entries.map(([id, cells]) => [
        id,
        { id, kind: 'number' as const, numbers: Float64Array.from(cells, (cell) => cell ?? NaN) },
      ]),
    ),
  };
}

export function chartText(body: string, attributes = ''): string {
  return `<visualization xmlns="http://xml.vexa.example/visualization" version="2.8" ${attributes}>${body}</visualization>`;
}

export function receivedOf(text: string | null, ...tables: Table[]): Received {
  return {
    description: '',
    englishDescription: '',
    chartText: text,
    tables: new Map(tables.map((table) => [table.source, table])),
    contents: [],
    messages: [],
    done: null,
    problems: [],
  };
}

/** Variables a, b, c and so on of the columns; those named in `categorical` are categories. */
export function variables(
  columns: Record<string, unknown>,
  categorical: Record<string, string[]> = {},
): string {
  const source = '<userSource id="s"/>';
  const made = Object.keys(columns).map((name) => {
    const texts = categorical[name];
    const relabels = texts?.map((text, at) => `<relabel from="${at + 1}" to="${text}"/>`).join('') ?? '';
    const format = texts ? `<format>${relabels}</format>` : '';
    return `<sourceVariable id="${name}" source="s" sourceName="${name}" label="the ${name}" categorical="${!!texts}">${format}</sourceVariable>`;
  });
  return source + made.join('');
}

export const plainAxes =
  '<dimension><axis><majorTicks/></axis></dimension><dimension><axis><majorTicks/></axis></dimension>';

export class Picture {
  readonly drawn: Drawn;
  readonly svg: Element;

  constructor(text: string | null, ...tables: Table[]) {
    this.drawn = draw(receivedOf(text, ...tables), { document: makeDocument(), parseXml });
    this.svg = this.drawn.svg;
  }

  /** The shapes of a kind of mark: dot, rect, line, area, link. */
  marks(kind: string): Element[] {
    return Array.from(this.svg.querySelectorAll(`g[data-kind="${kind}"], g[aria-label="${kind}"]`)).flatMap(
      (group) => Array.from(group.children) as Element[],
    );
  }

  /** An attribute of a shape, or of the group that it is in. */
  look(mark: Element, name: string): string | null {
    return mark.getAttribute(name) ?? (mark.parentNode as Element).getAttribute(name);
  }

  texts(): string[] {
    return Array.from(this.svg.querySelectorAll('text')).map((text) => text.textContent ?? '');
  }

  /** The texts within the first group of that name. */
  textsOf(name: string): string[] {
    const group = this.svg.querySelector(`g[aria-label="${name}"]`);
    return Array.from(group?.querySelectorAll('text') ?? []).map((text) => text.textContent ?? '');
  }

  names(): string[] {
    return Array.from(this.svg.querySelectorAll('g[aria-label]')).map(
      (group) => group.getAttribute('aria-label') ?? '',
    );
  }

  get notes(): string[] {
    return this.drawn.notes;
  }
}

export const number = (element: Element, name: string) => Number(element.getAttribute(name));

/** A picture of one element over columns. */
export function picture(
  columns: Record<string, (number | null)[]>,
  graph: string,
  options: {
    categorical?: Record<string, string[]>;
    rest?: string;
    coordinates?: string;
    attributes?: string;
  } = {},
): Picture {
  const coordinates = `<coordinates>${options.coordinates ?? plainAxes}</coordinates>`;
  const body = `<graph>${graph}${coordinates}</graph>${variables(columns, options.categorical)}${options.rest ?? ''}`;
  return new Picture(chartText(body, options.attributes), tableOf(columns));
}
