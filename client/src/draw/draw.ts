import { readChart } from '../chart/read.js';
import type { Chart } from '../chart/model.js';
import { Data } from '../data/columns.js';
import type { Received } from '../received.js';
import { compose } from './compose.js';
import { Figures } from './compile/figures.js';
import { frameTexts } from './frames.js';
import { compileGraph, type CompiledGraph } from './compilegraph.js';
import { ownTexts } from './compile/looks.js';
import { hashOf, Maker } from './svg/svg.js';
import { dataTable, type DataTable } from './table.js';
import { wrap } from './svg/text.js';
import { chartNotes, contentNotes } from './notes/unhonoured.js';

/** A chart as a picture, and what a reader gets beside it. */
export interface Drawn {
  svg: SVGSVGElement;
  /** In CSS pixels. */
  width: number;
  height: number;
  /** The chart's title, or the description where it has none. */
  title: string;
  /** What of the chart could not be drawn; shown beside it. */
  notes: string[];
  /** What the chart shows as rows: labels, relabelled and formatted values; at most 10,000 rows. */
  dataTable: DataTable;
}

export interface DrawOptions {
  /** Where elements are made. Under Node it is not a browser's: only what a drawing needs may be relied upon. */
  document: Document;
  /**
   * Parses XML with namespaces, and throws an Error where the text is not well-formed. Of the result only
   * `documentElement`, `childNodes`, `nodeType`, `localName`, `namespaceURI`, `getAttribute`, `getAttributeNS`,
   * `hasAttribute`, `attributes`, `parentNode` and `textContent` may be relied upon.
   */
  parseXml: (text: string) => Document;
}

function titleOf(chart: Chart, figures: Figures, received: Received): string {
  const titles = frameTexts(chart, figures, []).filter(({ role }) => role === 'title1' || role === 'title2');
  const title = titles.map(({ text }) => text.replace(/\s+/g, ' ')).join(' ');
  return title || received.description || chart.description || chart.name || 'Chart';
}

function rootOf(
  maker: Maker,
  width: number,
  height: number,
  title: string,
  description: string,
): SVGSVGElement {
  const titled = maker.make('title', {}, [title]);
  const described = description === '' ? [] : [maker.make('desc', {}, [description])];
  return maker.make(
    'svg',
    {
      xmlns: 'http://www.w3.org/2000/svg',
      width,
      height,
      viewBox: `0 0 ${width} ${height}`,
      role: 'graphics-document',
      'aria-roledescription': 'chart',
      'aria-label': title,
    },
    [titled, ...described],
  ) as unknown as SVGSVGElement;
}

const reasonOf = (error: unknown) =>
  (error instanceof Error ? error.message : String(error)).replace(/\.$/, '');

/** A page that says why there is no chart. */
function drawFailure(reason: string, received: Received, maker: Maker): Drawn {
  const [width, height] = [625, 200];
  const title = received.description || 'Chart';
  const svg = rootOf(maker, width, height, title, reason);
  svg.append(
    maker.make('rect', { width, height, fill: '#ffffff' }),
    maker.text(wrap(title, width - 24, ownTexts.title), 12, 30, ownTexts.title),
    maker.text(
      [reason, ...contentNotes(received)].flatMap((text) => wrap(text, width - 24, ownTexts.subtitle)),
      12,
      80,
      ownTexts.subtitle,
    ),
  );
  const table: DataTable = { header: [], numeric: [], rows: [] };
  return { svg, width, height, title, notes: [reason, ...contentNotes(received)], dataTable: table };
}

/** Graphs that cannot be compiled leave the others as they are. */
function compileAll(chart: Chart, data: Data, notes: string[]): CompiledGraph[] {
  return chart.graphs.flatMap((graph) => {
    try {
      return [compileGraph(graph, chart, data, notes)];
    } catch (error) {
      notes.push(`A graph cannot be drawn: ${reasonOf(error)}.`);
      return [];
    }
  });
}

/** Draws the chart of a send. Never throws for what came over the wire: what it cannot draw is in `notes`. */
export function draw(received: Received, options: DrawOptions): Drawn {
  const text = received.chartText;
  const maker = new Maker(options.document, `k${hashOf(text ?? '')}`);
  if (text === null) return drawFailure('There is no chart text to draw.', received, maker);
  try {
    const { chart, notes } = readChart(text, options.parseXml);
    notes.push(...chartNotes(chart, received));
    const data = new Data(chart, received, notes);
    const figures = new Figures(chart, data);
    const graphs = compileAll(chart, data, notes);
    if (graphs.every((compiled) => compiled.panels.every((layers) => layers.length === 0))) {
      notes.push('There is nothing to draw.');
    }
    const title = titleOf(chart, figures, received);
    const table = dataTable(graphs, data);
    const { parts, width, height } = compose(chart, data, figures, graphs, notes, maker);
    const svg = rootOf(maker, width, height, title, received.description || chart.description);
    svg.append(...parts);
    return { svg, width, height, title, notes: [...new Set(notes)], dataTable: table };
  } catch (error) {
    return drawFailure(`The chart cannot be drawn: ${reasonOf(error)}.`, received, maker);
  }
}
