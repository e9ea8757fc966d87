/** Compiles the elements of a graph into layers of shapes, panel by panel. */
import { group as groupBy } from 'd3';
import type { Chart, ChartElement, Graph, Style } from '../chart/model.js';
import type { Data, Values } from '../data/columns.js';
import { binOf, binsOf, type Bins } from '../statistics/bins.js';
import { densityOf } from '../statistics/density.js';
import { confidenceInterval, summaries, vaguePercentages, type Summary } from '../statistics/summary.js';
import { boxOf } from '../statistics/tukey.js';
import { alikeNotes } from './alike.js';
import { holds } from './conditions.js';
import type { Direction } from './directions.js';
import { groupingOf, lookOf, type Group, type Grouping } from './grouping.js';
import type { BoxShape, Layer, LayerKind, Shape } from './layers.js';
import { ownLook, styled, type Look, type LookKind } from './looks.js';
import { missingNotes } from './missing.js';
import { rowsOf, type Panel, type PanelGrid } from './panels.js';
import { rangesOf, type Range, type Varied } from './ranges.js';
import { aestheticNotes } from './unhonoured.js';

export interface Scope {
  chart: Chart;
  graph: Graph;
  data: Data;
  grid: PanelGrid;
  x: Direction;
  y: Direction;
  polar: boolean;
  notes: string[];
}

/** What of an element is the same in every panel. */
interface Plan {
  element: ChartElement;
  kind: LayerKind;
  lookKind: LookKind;
  own: Look;
  grouping: Grouping;
  ranges: Range[];
  summary: Summary | null;
  bins: Bins | null;
  weights: Float64Array | null;
  source: string;
  rows: number;
}

/** The rows of one group in one panel. */
interface Part {
  key: number;
  rows: number[] | Uint32Array;
}

const dotModifiers = new Set([7, 8]);
const knownModifiers = new Set([1, 3, 7, 8]);

function kindOf(element: ChartElement, scope: Scope): LayerKind {
  switch (element.kind) {
    case 'point':
      return dotModifiers.has(element.modifier ?? 0) ? 'dots' : 'points';
    case 'line':
    case 'path':
      return 'line';
    case 'interval':
      if (scope.polar) return 'slices';
      return element.summary === 7 ? 'errors' : 'bars';
    case 'area':
      return 'area';
    case 'schema':
      return 'boxes';
    case 'edge':
      return 'edges';
    case 'polygon':
      return 'polygon';
  }
}

function summaryOf(element: ChartElement, scope: Scope): Summary | null {
  if (element.summary === null) return element.bins && !element.bins.dots ? summaries.get(10)! : null;
  const found = summaries.get(element.summary);
  if (!found) {
    scope.notes.push(`The statistic ${element.summary} is not known; the values themselves are drawn.`);
  } else if (vaguePercentages.has(element.summary)) {
    scope.notes.push(
      `What the percentages of the statistic ${element.summary} are of is not known; they are drawn of all cases.`,
    );
  }
  return found ?? null;
}

function planOf(element: ChartElement, scope: Scope): Plan | null {
  const { data, chart, notes } = scope;
  if (element.modifier !== null && !knownModifiers.has(element.modifier)) {
    notes.push(`The position modifier ${element.modifier} is not known; the element is drawn without it.`);
  }
  const ids = [...element.x, ...element.y].flatMap((id) => data.terms(id).map((term) => term.variable));
  const aesthetics = element.aesthetics.map((aesthetic) => aesthetic.variable);
  const shown = ids.map((id) => data.values(id));
  if (shown.some((values) => values === null)) return null;
  const first = shown[0] ?? aesthetics.map((id) => data.values(id)).find((values) => values);
  if (!first) {
    notes.push(`The element ${element.id || element.kind} shows no variable.`);
    return null;
  }
  const kind = kindOf(element, scope);
  const lookKind: LookKind = kind === 'errors' ? 'error' : element.kind;
  const weights = data.weights(first.source);
  if (weights && kind === 'dots') {
    notes.push('Stacked dots show each row once: the weights of the cases do not enter them.');
  }
  const ranges = rangesOf(element, chart, data);
  const ranged = ranges.map((range) => range.aesthetic);
  const grouping = groupingOf(element, chart, data, scope.x.cluster ?? scope.y.cluster);
  notes.push(...aestheticNotes(element, kind, ranged, chart));
  notes.push(...alikeNotes(element, kind, grouping, scope.grid, chart));
  const binned = element.bins !== null && !element.bins.dots;
  return {
    element,
    kind,
    lookKind,
    own: styled(ownLook(lookKind), element.style, lookKind),
    grouping,
    ranges,
    summary: summaryOf(element, scope),
    bins: binned && scope.x.kind !== 'category' ? binsOf(present(first.numbers), element.bins!) : null,
    weights,
    source: first.source,
    rows: first.numbers.length,
  };
}

function present(numbers: Float64Array): Float64Array {
  return numbers.filter((value) => !Number.isNaN(value));
}

function partsOf(plan: Plan, rows: Uint32Array): Part[] {
  if (plan.grouping.variables.length === 0) return [{ key: 0, rows }];
  const parts = new Map<number, number[]>();
  for (const row of rows) {
    const key = plan.grouping.keyOf(row);
    if (key < 0) continue;
    const part = parts.get(key);
    if (part) part.push(row);
    else parts.set(key, [row]);
  }
  return [...parts].sort(([a], [b]) => a - b).map(([key, part]) => ({ key, rows: part }));
}

/** Reads the places of rows in one panel. */
class Places {
  readonly x: Values[];
  readonly y: Values[];

  constructor(
    readonly plan: Plan,
    panel: Panel,
    private readonly scope: Scope,
    term: string | null,
  ) {
    const resolve = (id: string) => scope.data.values(panel.terms.get(id) ?? term ?? id);
    const along = (ids: string[]) => ids.map(resolve).filter((values): values is Values => values !== null);
    this.x = along(plan.element.x);
    this.y = along(plan.element.y);
  }

  xAt(row: number, which = 0): number {
    const values = this.x[which];
    return values ? this.scope.x.place(values, values.numbers[row]!) : 0;
  }

  yAt(row: number, which = 0): number {
    const values = this.y[which];
    return values ? this.scope.y.place(values, values.numbers[row]!) : 0;
  }

  weight(row: number): number {
    return this.plan.weights?.[row] ?? 1;
  }
}

function variedOf(plan: Plan, rows: ArrayLike<number>): Varied | null {
  if (plan.ranges.length === 0) return {};
  const varied: Varied = {};
  for (const range of plan.ranges) {
    let total = 0;
    for (let at = 0; at < rows.length; at += 1) total += range.values.numbers[rows[at]!]!;
    const value = total / rows.length;
    if (Number.isNaN(value)) return null;
    Object.assign(varied, range.lookOf(value));
  }
  return varied;
}

function labelOf(plan: Plan, row: number, scope: Scope): string | undefined {
  const labeling = plan.element.labeling[0];
  if (!labeling || labeling.variable === '' || labeling.style.visible === false) return undefined;
  const values = scope.data.values(labeling.variable);
  return values?.textOf(values.numbers[row] ?? NaN, labeling.format ?? values.variable.format);
}

/** More marks of one element make a picture that no reader and no browser can take in. */
export const mostMarks = 50_000;

/** Random, but the same for the same data: a picture must not change from one drawing to the next. */
function sampled(rows: ArrayLike<number>, share: number): number[] {
  const kept: number[] = [];
  let state = 0x9e3779b9;
  for (let at = 0; at < rows.length; at += 1) {
    state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
    if (state / 0x100000000 < share) kept.push(rows[at]!);
  }
  return kept;
}

/** Of many points a random sample. */
function bounded(plan: Plan, rows: ArrayLike<number>, scope: Scope): ArrayLike<number> {
  const counted = plan.kind === 'line' || plan.kind === 'area' || plan.rows <= mostMarks;
  if (counted || plan.summary || plan.element.density || plan.kind === 'boxes') return rows;
  scope.notes.push(`Of ${plan.rows} rows a random sample of about ${mostMarks} is drawn.`);
  return sampled(rows, mostMarks / plan.rows);
}

/** A line of that many corners is drawn by the first, lowest, highest and last of each of its stretches. */
const mostCorners = 20_000;
const stretches = 2_000;

function thinnedLine(shapes: Shape[], scope: Scope): Shape[] {
  if (shapes.length <= mostCorners) return shapes;
  scope.notes.push(
    `A line of ${shapes.length} places is drawn by the first, lowest, highest and last place of each of ${stretches} stretches.`,
  );
  const size = Math.ceil(shapes.length / stretches);
  const kept: Shape[] = [];
  for (let from = 0; from < shapes.length; from += size) {
    const to = Math.min(shapes.length, from + size) - 1;
    let [low, high] = [from, from];
    for (let at = from; at <= to; at += 1) {
      if (!(shapes[at]!.y >= shapes[low]!.y)) low = at;
      if (!(shapes[at]!.y <= shapes[high]!.y)) high = at;
    }
    for (const at of [...new Set([from, low, high, to])].sort((a, b) => a - b)) kept.push(shapes[at]!);
  }
  return kept;
}

/** Each row is a shape. */
function rawShapes(places: Places, all: ArrayLike<number>, scope: Scope): Shape[] {
  const { plan } = places;
  const rows = bounded(plan, all, scope);
  const shapes: Shape[] = [];
  const breaks = plan.kind === 'line' || plan.kind === 'area';
  for (let at = 0; at < rows.length; at += 1) {
    const row = rows[at]!;
    const shape: Shape = { x: places.xAt(row), y: places.yAt(row), row };
    if (Number.isNaN(shape.x) || (Number.isNaN(shape.y) && !breaks)) continue;
    if (places.x.length > 1) [shape.x1, shape.x2] = [shape.x, places.xAt(row, 1)];
    if (places.y.length > 1) [shape.y1, shape.y2] = [shape.y, places.yAt(row, 1)];
    if (Number.isNaN(shape.x2) || Number.isNaN(shape.y2)) continue;
    const varied = variedOf(plan, [row]);
    if (!varied) continue;
    if (plan.ranges.length > 0) shape.varied = varied;
    const label = labelOf(plan, row, scope);
    if (label) shape.label = label;
    shapes.push(shape);
  }
  if (plan.element.kind === 'line' || plan.kind === 'area') shapes.sort((a, b) => a.x - b.x);
  return plan.element.kind === 'line' ? thinnedLine(shapes, scope) : shapes;
}

/** The place along x of each row: its class, or where it stands. */
function placesOf(places: Places, rows: ArrayLike<number>): Map<number, number[]> {
  const { bins } = places.plan;
  const result = new Map<number, number[]>();
  for (let at = 0; at < rows.length; at += 1) {
    const row = rows[at]!;
    const x = places.xAt(row);
    if (Number.isNaN(x)) continue;
    const place = bins ? binOf(bins, x) : x;
    const known = result.get(place);
    if (known) known.push(row);
    else result.set(place, [row]);
  }
  return result;
}

function sampleOf(places: Places, rows: number[], summary: Summary) {
  const values = places.y[0];
  // Where there are no values of y, cases are counted; where there are, those that have one.
  const kept = values ? rows.filter((row) => !Number.isNaN(values.numbers[row]!)) : rows;
  const weights = places.plan.weights ? kept.map((row) => places.weight(row)) : null;
  const counts = !values || (!summary.ofValues && !summary.share);
  return {
    rows: kept,
    sample: { values: counts ? kept.map(() => 1) : kept.map((row) => values.numbers[row]!), weights },
  };
}

/** One shape for each place along x. */
function summaryShapes(places: Places, rows: ArrayLike<number>, summary: Summary): Shape[] {
  const { bins } = places.plan;
  const shapes: Shape[] = [];
  for (const [place, members] of placesOf(places, rows)) {
    const { rows: kept, sample } = sampleOf(places, members, summary);
    const share = summary.share && places.y.length > 0;
    const y = kept.length === 0 ? null : share ? sampleSum(sample) : summary.compute(sample);
    const varied = variedOf(places.plan, kept.length > 0 ? kept : members);
    if (y === null || Number.isNaN(y) || !varied) continue;
    const shape: Shape = {
      x: bins ? bins.start + (place + 0.5) * bins.width : place,
      y,
      varied,
      cases: kept.length,
    };
    if (bins) [shape.x1, shape.x2] = [bins.start + place * bins.width, bins.start + (place + 1) * bins.width];
    if (summary.errorBar) Object.assign(shape, confidenceInterval(sample));
    shapes.push(shape);
  }
  return shapes.sort((a, b) => a.x - b.x);
}

function sampleSum(sample: { values: number[]; weights: number[] | null }): number {
  return sample.values.reduce((total, value, at) => total + value * (sample.weights?.[at] ?? 1), 0);
}

function boxShapes(places: Places, rows: ArrayLike<number>, scope: Scope): Shape[] {
  const values = places.y[0];
  if (!values) return [];
  const shapes: Shape[] = [];
  for (const [x, members] of placesOf(places, rows)) {
    const kept = members.filter((row) => !Number.isNaN(values.numbers[row]!) && places.weight(row) > 0);
    const weights = places.plan.weights ? kept.map((row) => places.weight(row)) : null;
    const box = boxOf({ values: kept.map((row) => values.numbers[row]!), weights });
    if (!box) continue;
    const outlier = (at: number, extreme: boolean): BoxShape['outliers'][number] => ({
      value: values.numbers[kept[at]!]!,
      label: labelOf(places.plan, kept[at]!, scope) ?? '',
      extreme,
    });
    const outliers = [
      ...box.outliers.map((at) => outlier(at, false)),
      ...box.extremes.map((at) => outlier(at, true)),
    ];
    shapes.push({ x, y: box.median, box: { box, outliers }, cases: kept.length });
  }
  return shapes.sort((a, b) => a.x - b.x);
}

function densityShapes(places: Places, rows: ArrayLike<number>): Shape[] {
  const values: number[] = [];
  const weights: number[] = [];
  for (let at = 0; at < rows.length; at += 1) {
    const x = places.xAt(rows[at]!);
    if (Number.isNaN(x)) continue;
    values.push(x);
    weights.push(places.weight(rows[at]!));
  }
  const curve = densityOf({ values, weights: places.plan.weights ? weights : null });
  return curve.map(({ at, density }) => ({ x: at, y: density }));
}

function shapesOf(places: Places, rows: ArrayLike<number>, scope: Scope): Shape[] {
  const { plan } = places;
  if (plan.kind === 'boxes') return boxShapes(places, rows, scope);
  if (plan.element.density) return densityShapes(places, rows);
  if (plan.summary) return summaryShapes(places, rows, plan.summary);
  return rawShapes(places, rows, scope);
}

/** Shares of the whole panel, and sums along x. */
function finishSummary(layers: Layer[], summary: Summary): void {
  if (summary.share) {
    const total = layers.reduce(
      (sum, layer) => sum + layer.shapes.reduce((part, shape) => part + shape.y, 0),
      0,
    );
    for (const layer of layers)
      for (const shape of layer.shapes) shape.y = total > 0 ? (100 * shape.y) / total : 0;
  }
  if (!summary.cumulative) return;
  for (const layer of layers) {
    let sum = 0;
    for (const shape of layer.shapes) shape.y = sum += shape.y;
  }
}

function groupOf(plan: Plan, key: number, chart: Chart): Group {
  const { variables } = plan.grouping;
  const categories = plan.grouping.categoriesOf(key);
  const look = lookOf(plan.own, plan.lookKind, variables, categories, chart);
  const name = categories.map((category) => category.text).join(', ') || plan.element.name;
  return { categories, look, name };
}

function slotOf(plan: Plan, group: Group, key: number, scope: Scope): Layer['slot'] {
  const cluster = scope.x.cluster ?? scope.y.cluster;
  if (plan.element.modifier === 1 && !cluster) {
    const of = plan.grouping.variables.reduce((product, variable) => product * variable.categories.length, 1);
    return of > 1 ? { at: key, of } : null;
  }
  if (!cluster || plan.kind === 'slices') return null;
  const at = plan.grouping.variables.findIndex((variable) => variable.values === cluster.values);
  const category = group.categories[at];
  const place = category ? cluster.categories.findIndex((each) => each.code === category.code) : -1;
  return place < 0 ? null : { at: place, of: cluster.categories.length };
}

function partLooks(plan: Plan, look: Look): Layer['parts'] {
  if (plan.kind !== 'boxes') return null;
  const { parts } = plan.element;
  const lines = { ...look, fill: look.stroke };
  const over = (base: Look, style: Style, kind: LookKind) => styled(base, style, kind);
  const points = { ...look, fill: 'none', stroke: look.stroke, opacity: 1 };
  const dotted = (style: Style, symbol: string) => {
    const result = over({ ...points, symbol }, style, 'point');
    return style.color ? { ...result, stroke: result.fill } : result;
  };
  return {
    median: over({ ...lines, strokeWidth: look.strokeWidth * 2, stroke: look.stroke }, parts.median, 'line'),
    fence: over(lines, parts.fence, 'line'),
    hinge: over(look, parts.hinge, 'schema'),
    outlier: dotted(parts.outlier, 'circle'),
    extreme: dotted(parts.extreme, 'star'),
  };
}

/** An element shows each plain measure of a blend once; null stands for the element's own variables. */
function plainTerms(element: ChartElement, panel: Panel, scope: Scope): (string | null)[] {
  for (const id of [...element.x, ...element.y]) {
    if (panel.terms.has(id)) continue;
    const terms = scope.data.terms(id);
    if (terms.length > 1) return terms.map((term) => term.variable);
  }
  return [null];
}

/** The styles of conditions that hold in a panel; those that cannot be read are noted once. */
function conditioned(plan: Plan, panel: Panel, scope: Scope): Look {
  let look = plan.own;
  for (const condition of plan.element.conditions) {
    if (holds(condition.when, panel, scope.notes)) look = styled(look, condition.style, plan.lookKind);
  }
  return look;
}

function layersOf(
  plan: Plan,
  panel: Panel,
  scope: Scope,
  rowsIn: (source: string, rows: number) => Uint32Array,
): Layer[] {
  const own = conditioned(plan, panel, scope);
  if (!own.visible) return [];
  const here = { ...plan, own };
  const rows = rowsIn(plan.source, plan.rows);
  const layers = plainTerms(plan.element, panel, scope).flatMap((term) => {
    const places = new Places(here, panel, scope, term);
    return partsOf(here, rows).map(({ key, rows: members }): Layer => {
      const group = groupOf(here, key, scope.chart);
      return {
        kind: plan.kind,
        element: plan.element,
        group,
        shapes: shapesOf(places, members, scope),
        ranges: plan.ranges,
        look: group.look,
        slot: slotOf(here, group, key, scope),
        baseline: 0,
        binned: plan.bins !== null,
        parts: partLooks(here, group.look),
      };
    });
  });
  if (plan.summary) finishSummary(layers, plan.summary);
  return layers.filter((layer) => layer.shapes.length > 0 && layer.look.visible);
}

/** Groups whose mean has no interval: they are drawn as a dot alone. */
function intervalNotes(panels: Layer[][]): string[] {
  const layers = panels.flat().filter((layer) => layer.kind === 'errors');
  const bare = layers.flatMap((layer) => layer.shapes).filter((shape) => shape.low === undefined).length;
  if (bare === 0) return [];
  return [`${bare} ${bare === 1 ? 'group has' : 'groups have'} too few cases for an error bar.`];
}

/** The layers of every panel, in the order in which they are drawn. */
export function compile(scope: Scope): Layer[][] {
  const plans = scope.graph.elements.flatMap((element) => planOf(element, scope) ?? []);
  scope.notes.push(...missingNotes(plans, scope.grid, scope.data));
  const panels = scope.grid.panels.map((panel) => {
    const cache = new Map<string, Uint32Array>();
    const rowsIn = (source: string, rows: number) => {
      let shown = cache.get(source);
      if (!shown) cache.set(source, (shown = rowsOf(panel, scope.grid, source, rows)));
      return shown;
    };
    return plans.flatMap((plan) => layersOf(plan, panel, scope, rowsIn));
  });
  scope.notes.push(...intervalNotes(panels));
  return panels;
}

/** Layers of one element. */
export function byElement(layers: Layer[]): Map<ChartElement, Layer[]> {
  return groupBy(layers, (layer) => layer.element) as Map<ChartElement, Layer[]>;
}
