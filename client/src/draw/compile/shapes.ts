/** The shapes of an element's rows: one for each row, for each class or place of a statistic, or for each box. */
import { withGroups } from '../../data/format.js';
import { binOf, boundsOf } from '../../statistics/bins.js';
import type { Values } from '../../data/columns.js';
import { densityOf } from '../../statistics/density.js';
import { confidenceInterval, meanOf, type Summary } from '../../statistics/summary.js';
import { boxOf } from '../../statistics/tukey.js';
import type { BoxShape, Shape } from './layers.js';
import type { Panel } from './panels.js';
import type { Plan, Scope } from './plan.js';
import type { Varied } from './ranges.js';
import { counted } from '../notes/counts.js';

/** Reads the places of rows in one panel. */
export class Places {
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

/**
 * What the ranges show of rows: their values, or means of those that are there. Null where a range has none, which is
 * counted.
 */
function variedOf(places: Places, rows: number[]): Pick<Shape, 'varied' | 'shown'> | null {
  const { plan } = places;
  if (plan.ranges.length === 0) return {};
  const varied: Varied = {};
  const shown: number[] = [];
  for (const range of plan.ranges) {
    const { numbers, variable } = range.values;
    const kept = rows.filter((row) => !Number.isNaN(numbers[row]!));
    const weights = plan.weights ? kept.map((row) => places.weight(row)) : null;
    const value = meanOf({ values: kept.map((row) => numbers[row]!), weights });
    if (value === null) {
      const label = variable.label || variable.id;
      plan.withoutLook.set(label, (plan.withoutLook.get(label) ?? 0) + 1);
      return null;
    }
    Object.assign(varied, range.lookOf(value));
    shown.push(value);
  }
  return { varied, shown };
}

function labelOf(plan: Plan, row: number, scope: Scope): string | undefined {
  const labeling = plan.element.labeling[0];
  if (!labeling || labeling.variable === '' || labeling.style.visible === false) return undefined;
  const values = scope.data.values(labeling.variable);
  if (!values) return undefined;
  const value = values.numbers[row] ?? NaN;
  const format = labeling.format ?? values.variable.format;
  // What the axis shows is written as there; other numbers may be names.
  const measured = values.kind === 'number' && plan.element.y.includes(labeling.variable);
  return values.textOf(value, measured ? withGroups(format, [value]) : format);
}

/** More marks of one element make a picture that no reader and no browser can take in. */
const mostMarks = 50_000;

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
  const connected = plan.kind === 'line' || plan.kind === 'area' || plan.rows <= mostMarks;
  if (connected || plan.summary || plan.element.density || plan.kind === 'boxes') return rows;
  scope.notes.push(`Of ${counted(plan.rows)} rows a random sample of about ${counted(mostMarks)} is drawn.`);
  return sampled(rows, mostMarks / plan.rows);
}

/** A line of that many corners is drawn by the first, lowest, highest and last of each of its stretches. */
const mostCorners = 20_000;
const stretches = 2_000;

function thinnedLine(shapes: Shape[], scope: Scope): Shape[] {
  if (shapes.length <= mostCorners) return shapes;
  scope.notes.push(
    `A line of ${counted(shapes.length)} places is drawn by the first, lowest, highest and last place of each of ${counted(stretches)} stretches.`,
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
    if (Number.isNaN(shape.x2) || (Number.isNaN(shape.y2) && !breaks)) continue;
    const varied = variedOf(places, [row]);
    if (!varied) continue;
    Object.assign(shape, varied);
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
    if (y === null || Number.isNaN(y)) continue;
    const varied = variedOf(places, kept.length > 0 ? kept : members);
    if (!varied) continue;
    const [x1, x2] = bins ? boundsOf(bins, place) : [place, place];
    const shape: Shape = { x: (x1 + x2) / 2, y, ...varied, cases: kept.length };
    if (bins) Object.assign(shape, { x1, x2 });
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

/** The shapes of one group in one panel, before they have their widths and stacks. */
export function shapesOf(places: Places, rows: ArrayLike<number>, scope: Scope): Shape[] {
  const { plan } = places;
  if (plan.kind === 'boxes') return boxShapes(places, rows, scope);
  if (plan.element.density) return densityShapes(places, rows);
  if (plan.summary) return summaryShapes(places, rows, plan.summary);
  return rawShapes(places, rows, scope);
}
