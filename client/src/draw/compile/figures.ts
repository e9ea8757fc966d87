/** Figures that texts tell of elements, such as the mean of what one shows. */
import type { Chart, ChartElement, Graph } from '../../chart/model.js';
import type { Data } from '../../data/columns.js';
import { describe } from '../../statistics/summary.js';
import { directionOf } from './directions.js';
import { groupingOf } from './grouping.js';
import { panelGrid, rowsOf } from './panels.js';

export type Described = ReturnType<typeof describe>;

/** The figures of a description by their numbers. */
export const figureOf: Record<number, (sample: Described) => number> = {
  5: (sample) => sample.mean,
  6: (sample) => sample.count,
  7: (sample) => sample.deviation,
};

/** The rows of an element's source that have a panel, a group and a place. */
function shownRows(
  element: ChartElement,
  graph: Graph,
  source: string,
  chart: Chart,
  data: Data,
): Uint32Array {
  const directions = (['x', 'y'] as const).map((name) => directionOf(name, graph, chart, data, []));
  const cluster = directions.find((direction) => direction.cluster)?.cluster ?? null;
  const grouping = groupingOf(element, chart, data, cluster);
  const grid = panelGrid(graph, chart, data);
  const places = directions.flatMap((direction) =>
    element[direction.name].map((id) => {
      const terms = data.terms(id).flatMap((term) => data.values(term.variable) ?? []);
      return (row: number) =>
        terms.some((values) => !Number.isNaN(direction.place(values, values.numbers[row]!)));
    }),
  );
  const count = data.values((element.y[0] ?? element.x[0]) as string)?.numbers.length ?? 0;
  const shown = new Uint8Array(count);
  for (const panel of grid.panels) for (const row of rowsOf(panel, grid, source, count)) shown[row] = 1;
  const rows = new Uint32Array(count);
  let kept = 0;
  for (let row = 0; row < count; row += 1) {
    const fits = shown[row] === 1 && grouping.keyOf(row) >= 0 && places.every((hasPlace) => hasPlace(row));
    if (fits) rows[kept++] = row;
  }
  return rows.subarray(0, kept);
}

/** The description of what an element shows. */
function describedOf(target: string, chart: Chart, data: Data): Described | null {
  const graph = chart.graphs.find(({ elements }) => elements.some(({ id }) => id === target));
  const element = graph?.elements.find(({ id }) => id === target);
  const values = element && data.values((element.y[0] ?? element.x[0]) as string);
  if (!graph || !values) return null;
  const weights = data.weights(values.source);
  const rows = shownRows(element, graph, values.source, chart, data);
  return describe({
    values: Float64Array.from(rows, (row) => values.numbers[row]!),
    weights: weights ? Float64Array.from(rows, (row) => weights[row]!) : null,
  });
}

/** The descriptions of a chart's elements, each of them made once and only where a text wants it. */
export class Figures {
  private readonly known = new Map<string, Described | null>();

  constructor(
    private readonly chart: Chart,
    private readonly data: Data,
  ) {}

  /** Null where there is no such element, or it shows no values. */
  of(target: string): Described | null {
    let described = this.known.get(target);
    if (described === undefined)
      this.known.set(target, (described = describedOf(target, this.chart, this.data)));
    return described;
  }
}
