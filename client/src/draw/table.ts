/** What a chart shows as rows of a table. */
import type { Format } from '../chart/model.js';
import type { Data, Values } from '../data/columns.js';
import { commonDecimals, mergeFormats, numberText, shownFactor, withDecimals } from '../data/format.js';
import { summaries } from '../statistics/summary.js';
import type { CompiledGraph } from './compilegraph.js';
import type { Direction } from './compile/directions.js';
import type { Layer, Shape } from './compile/layers.js';
import type { Panel } from './compile/panels.js';
import { capitalized, marksName } from './notes/names.js';

export interface DataTable {
  header: string[];
  /** The columns that have numbers. */
  numeric: boolean[];
  /** Texts as they are shown; null is a missing value. */
  rows: (string | null)[][];
}

const mostRows = 10_000;

/** Numbers get their decimals when all of their column are known. */
interface NumberCell {
  numbers: number[];
  /** What stands between several numbers. */
  between: string;
  format: Format | null;
  /** A computed figure has no more digits than can be read; one of the data is shown as it is. */
  computed: boolean;
}

type Cell = string | NumberCell | null;
type Cells = Map<string, Cell>;

const computed = (...numbers: number[]): NumberCell => ({
  numbers,
  between: ' to ',
  format: null,
  computed: true,
});

const knownFormats = new WeakMap<Direction, Map<Values, Format | null>>();

/** Always the same object, by which cells of one format are known. */
function formatOf(direction: Direction, values: Values): Format | null {
  const known = knownFormats.get(direction) ?? new Map<Values, Format | null>();
  knownFormats.set(direction, known);
  if (!known.has(values)) {
    known.set(values, mergeFormats(direction.domain?.format, values.variable.format));
  }
  return known.get(values)!;
}

function placeCell(direction: Direction, value: number, values: Values | undefined): Cell {
  if (direction.kind === 'category') return direction.texts[Math.round(value)] ?? null;
  if (values && (values.kind !== 'number' || values.variable.date)) return values.textOf(value);
  const format = values ? formatOf(direction, values) : null;
  return format?.relabels.get(String(value)) ?? { numbers: [value], between: '', format, computed: false };
}

/** The bounds of a class; whole dates where their pattern does not tell them apart. */
function classCell(from: number, to: number, values: Values | undefined): Cell {
  if (!values?.variable.date) return computed(from, to);
  const [first, last] = [values.textOf(from), values.textOf(to)];
  return first === last
    ? `${values.textOf(from, null)} to ${values.textOf(to, null)}`
    : `${first} to ${last}`;
}

/** Null of a blend, which has no values of its own. */
const single = (id: string, data: Data) => (data.terms(id).length === 1 ? data.values(id) : null);

const labelOf = (direction: Direction, ids: string[], data: Data, otherwise: string) =>
  (ids[0] && single(ids[0], data)?.variable.label) || direction.values[0]?.variable.label || otherwise;

const valuesOf = (direction: Direction, ids: string[], data: Data) =>
  (ids[0] ? single(ids[0], data) : null) ?? direction.values[0];

function boxCells({ box, outliers }: NonNullable<Shape['box']>, format: Format | null): Cells {
  const cell = (...numbers: number[]): NumberCell => ({ numbers, between: ', ', format, computed: false });
  return new Map<string, Cell>([
    ['Lowest', cell(box.lowest)],
    ['Lower hinge', cell(box.lowerHinge)],
    ['Median', cell(box.median)],
    ['Upper hinge', cell(box.upperHinge)],
    ['Highest', cell(box.highest)],
    ['Outliers', outliers.length > 0 ? cell(...outliers.map(({ value }) => value)) : ''],
  ]);
}

/** What stands along y: values as they are, or a figure computed of them or of the rows. */
function valueCells(shape: Shape, layer: Layer, compiled: CompiledGraph, data: Data): Cells {
  const { y } = compiled;
  const { element } = layer;
  const summary = summaries.get(element.summary ?? (layer.binned ? 10 : -1));
  const name = element.y.length > 0 ? labelOf(y, element.y, data, 'y') : '';
  const column = [summary?.words, name].filter((part) => part).join(' of ') || 'Value';
  const values = valuesOf(y, element.y, data);
  const format = values && summary?.ofValues ? formatOf(y, values) : null;
  const figure = (value: number): NumberCell => ({ ...computed(value), format });
  const raw = values && !summary && !element.density;
  const cells: Cells = new Map([[column, raw ? placeCell(y, shape.y, values) : figure(shape.y)]]);
  if (shape.y1 !== undefined && element.y.length > 1) {
    cells.set(`${column} to`, placeCell(y, shape.y2!, values));
  }
  if (shape.low !== undefined) cells.set('95% from', figure(shape.low)).set('95% to', figure(shape.high!));
  return cells;
}

function describe(shape: Shape, layer: Layer, compiled: CompiledGraph, data: Data): Cells {
  const cells: Cells = new Map();
  const { x, y } = compiled;
  const { element } = layer;
  if (element.x.length > 0) {
    const name = labelOf(x, element.x, data, 'x');
    const values = valuesOf(x, element.x, data);
    if (layer.binned) cells.set(name, classCell(shape.x1!, shape.x2!, values));
    else cells.set(name, placeCell(x, shape.place ?? shape.x, values));
  }
  if (shape.box) {
    const values = valuesOf(y, element.y, data);
    return new Map([...cells, ...boxCells(shape.box, values ? formatOf(y, values) : null)]);
  }
  if (layer.kind === 'dots') return cells;
  return new Map([...cells, ...valueCells(shape, layer, compiled, data)]);
}

const nameOf = ({ variable }: Values) => variable.label || variable.id;

function valueCell(values: Values, value: number, format: Format | null): Cell {
  if (Number.isNaN(value)) return null;
  const own = format ?? values.variable.format;
  if (values.kind !== 'number' || own?.relabels.has(String(value))) return values.textOf(value, own);
  return { numbers: [value], between: '', format: own, computed: false };
}

/** What sizes, transparencies and ranges of colours show: values, or the means of several rows. */
function rangeCells(shape: Shape, layer: Layer): Cells {
  const cells: Cells = new Map();
  layer.ranges.forEach(({ values }, at) => {
    const value = shape.shown?.[at];
    if (value === undefined) return;
    const { format } = values.variable;
    if (shape.row !== undefined) cells.set(nameOf(values), valueCell(values, value, format));
    else if (values.kind !== 'number') cells.set(`mean of ${nameOf(values)}`, values.textOf(value));
    else cells.set(`mean of ${nameOf(values)}`, { ...computed(value), format });
  });
  return cells;
}

/** What labels tell of points, or of the outliers of a box. */
function labelCells(shape: Shape, layer: Layer, data: Data): Cells {
  const [labeling] = layer.element.labeling;
  const values = labeling?.variable ? data.values(labeling.variable) : null;
  if (!labeling || !values || labeling.style.visible === false) return new Map();
  if (shape.box) {
    const labels = shape.box.outliers.map(({ label }) => label || '\u2013').join(', ');
    return new Map([[nameOf(values), labels]]);
  }
  if (shape.row === undefined) return new Map();
  return new Map([[nameOf(values), valueCell(values, values.numbers[shape.row] ?? NaN, labeling.format)]]);
}

function groupCells(layer: Layer, panel: Panel, compiled: CompiledGraph): Cells {
  const cells: Cells = new Map();
  for (const { level, values } of [...compiled.grid.columns.variables, ...compiled.grid.rows.variables]) {
    cells.set(nameOf(values), panel.facets.get(level)?.text ?? null);
  }
  for (const id of panel.terms.values()) cells.set('Measure', compiled.chart.variables.get(id)?.label ?? id);
  layer.group.categories.forEach(({ text }, at) => cells.set(nameOf(layer.group.variables[at]!), text));
  return cells;
}

const isNumbers = (cell: Cell | undefined): cell is NumberCell => typeof cell === 'object' && cell !== null;

const mostDecimals = 6;
const digitsOfFigures = 6;
const leastDecimalsOfFigures = 2;

/** Figures have six digits in their largest value, but two decimals at least; data all that they need, up to six. */
function mostFor(cells: NumberCell[], largest: number): number {
  if (cells.some((cell) => !cell.computed)) return mostDecimals;
  const behind = digitsOfFigures - 1 - Math.floor(Math.log10(largest || 1));
  return Math.min(12, Math.max(leastDecimalsOfFigures, behind));
}

/** Formats of numbers that have the decimals that all of the column have. */
function columnFormats(cells: NumberCell[]): Map<Format | null, Format> {
  const formats = new Map<Format | null, Format>();
  for (const format of new Set(cells.map((cell) => cell.format))) {
    const own = cells.filter((cell) => cell.format === format);
    const numbers = own.flatMap((cell) => cell.numbers).filter(Number.isFinite);
    const largest = numbers.reduce((most, value) => Math.max(most, Math.abs(value)), 0) * shownFactor(format);
    formats.set(format, withDecimals(format, commonDecimals(numbers, format, mostFor(own, largest))));
  }
  return formats;
}

function shownNumber(value: number, own: Format | null, column: Format, language: string): string {
  const fixed = column.maximumFractionDigits ?? 0;
  // What would be rounded to nothing has an exponent instead.
  const vanishes = value !== 0 && Math.abs(value * shownFactor(own)) < 0.5 * 10 ** -fixed;
  const bounded = own?.maximumFractionDigits != null || !!own?.pattern;
  return numberText(value, vanishes && !bounded ? own : column, language);
}

function columnTexts(cells: (Cell | undefined)[], language: string): (string | null)[] {
  const formats = columnFormats(cells.filter(isNumbers));
  return cells.map((cell) => {
    if (!isNumbers(cell)) return cell ? cell : null;
    const { numbers, between, format } = cell;
    const texts = numbers.map((value) => shownNumber(value, format, formats.get(format)!, language));
    return texts.join(between) || null;
  });
}

/** At most 10,000 rows. */
function rowsOf(graphs: CompiledGraph[], data: Data): Cells[] {
  const rows: Cells[] = [];
  const several = graphs.flatMap((compiled) => compiled.graph.elements).length > 1;
  for (const compiled of graphs) {
    for (const [at, layers] of compiled.panels.entries()) {
      for (const layer of layers) {
        const shared = groupCells(layer, compiled.grid.panels[at]!, compiled);
        for (const shape of layer.shapes.filter(({ between }) => !between)) {
          if (rows.length >= mostRows) return rows;
          const start: Cells = several
            ? new Map([['Element', layer.element.name || capitalized(marksName(layer.element))]])
            : new Map();
          const own = new Map([...start, ...shared, ...describe(shape, layer, compiled, data)]);
          const further = [...rangeCells(shape, layer), ...labelCells(shape, layer, data)];
          // What stands along an axis or makes groups is told already.
          rows.push(new Map([...own, ...further.filter(([name]) => !own.has(name))]));
        }
      }
    }
  }
  return rows;
}

/** The numbers of a column have equally many decimals. */
export function dataTable(graphs: CompiledGraph[], data: Data): DataTable {
  const rows = rowsOf(graphs, data);
  const header = [...new Set(rows.flatMap((cells) => [...cells.keys()]))];
  const language = graphs[0]?.chart.language ?? '';
  const columns = header.map((name) => rows.map((cells) => cells.get(name)));
  const texts = columns.map((cells) => columnTexts(cells, language));
  return {
    header,
    numeric: columns.map((cells) => cells.some(isNumbers) && cells.every((cell) => !cell || isNumbers(cell))),
    rows: rows.map((_, row) => texts.map((column) => column[row]!)),
  };
}
