/** What a chart shows as rows of a table. */
import type { Data } from '../data/columns.js';
import { numberText } from '../data/format.js';
import { summaries } from '../statistics/summary.js';
import type { CompiledGraph } from './graph.js';
import type { Direction } from './directions.js';
import type { Layer, Shape } from './layers.js';
import type { Panel } from './panels.js';

export interface DataTable {
  header: string[];
  rows: (string | number | null)[][];
}

const mostRows = 10_000;

type Cells = Map<string, string | number | null>;

function placeText(
  direction: Direction,
  value: number,
  values: Direction['values'][number] | undefined,
): string {
  if (direction.kind === 'category') return direction.texts[Math.round(value)] ?? '';
  return values ? values.textOf(value) : numberText(value, null, '');
}

/** Null of a blend, which has no values of its own. */
const single = (id: string, data: Data) => (data.terms(id).length === 1 ? data.values(id) : null);

const labelOf = (direction: Direction, ids: string[], data: Data, otherwise: string) =>
  (ids[0] && single(ids[0], data)?.variable.label) || direction.values[0]?.variable.label || otherwise;

function describe(shape: Shape, layer: Layer, compiled: CompiledGraph, data: Data): Cells {
  const cells: Cells = new Map();
  const { x, y } = compiled;
  const { element } = layer;
  const own = (ids: string[], direction: Direction) =>
    (ids[0] ? single(ids[0], data) : null) ?? direction.values[0];
  const number = (value: number) => numberText(value, null, '');
  if (element.x.length > 0) {
    const name = labelOf(x, element.x, data, 'x');
    if (layer.binned) cells.set(name, `${number(shape.x1!)} to ${number(shape.x2!)}`);
    else cells.set(name, placeText(x, shape.x, own(element.x, x)));
  }
  if (shape.box) {
    const { box } = shape.box;
    cells.set('Lowest', number(box.lowest)).set('Lower hinge', number(box.lowerHinge));
    cells.set('Median', number(box.median)).set('Upper hinge', number(box.upperHinge));
    cells
      .set('Highest', number(box.highest))
      .set('Outliers', shape.box.outliers.map((o) => number(o.value)).join(', '));
    return cells;
  }
  if (layer.kind === 'dots') return cells;
  const words = summaries.get(element.summary ?? (layer.binned ? 10 : -1))?.words;
  const name = element.y.length > 0 ? labelOf(y, element.y, data, 'y') : '';
  const column = [words, name].filter((part) => part).join(' of ') || 'Value';
  const values = own(element.y, y);
  cells.set(
    column,
    element.density ? number(shape.y) : values && !words ? placeText(y, shape.y, values) : number(shape.y),
  );
  if (shape.y1 !== undefined && element.y.length > 1) {
    cells.set(`${column} to`, placeText(y, shape.y2!, values));
  }
  if (shape.low !== undefined) cells.set('95% from', number(shape.low)).set('95% to', number(shape.high!));
  return cells;
}

function groupCells(layer: Layer, panel: Panel, compiled: CompiledGraph, data: Data): Cells {
  const cells: Cells = new Map();
  for (const { level, values } of [...compiled.grid.columns.variables, ...compiled.grid.rows.variables]) {
    cells.set(values.variable.label, panel.facets.get(level)?.text ?? null);
  }
  for (const id of panel.terms.values()) cells.set('Measure', compiled.chart.variables.get(id)?.label ?? id);
  const shown = layer.element.aesthetics.map((aesthetic) => data.values(aesthetic.variable));
  for (const category of layer.group.categories) {
    const values = shown.find((each) => each?.textOf(category.code) === category.text);
    cells.set(values?.variable.label || 'Group', category.text);
  }
  return cells;
}

/** At most 10,000 rows. */
export function dataTable(graphs: CompiledGraph[], data: Data): DataTable {
  const header: string[] = [];
  const rows: Cells[] = [];
  const several = graphs.flatMap((compiled) => compiled.graph.elements).length > 1;
  for (const compiled of graphs) {
    compiled.panels.forEach((layers, at) => {
      for (const layer of layers) {
        const shared = groupCells(layer, compiled.grid.panels[at]!, compiled, data);
        for (const shape of layer.shapes) {
          if (rows.length >= mostRows) return;
          const start: Cells = several
            ? new Map([['Element', layer.element.name || layer.element.kind]])
            : new Map();
          const cells = new Map([...start, ...shared, ...describe(shape, layer, compiled, data)]);
          for (const name of cells.keys()) if (!header.includes(name)) header.push(name);
          rows.push(cells);
        }
      }
    });
  }
  return { header, rows: rows.map((cells) => header.map((name) => cells.get(name) ?? null)) };
}
