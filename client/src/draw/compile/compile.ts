/** Compiles the elements of a graph into layers of shapes, panel by panel. */
import type { Chart, ChartElement, Style } from '../../chart/model.js';
import type { Summary } from '../../statistics/summary.js';
import { holds } from './conditions.js';
import { fillEmptyPlaces } from './emptyplaces.js';
import { lookOf, type Group } from './grouping.js';
import type { Layer } from './layers.js';
import { styled, type Look, type LookKind } from './looks.js';
import { missingNotes, withoutLookNotes } from '../notes/missing.js';
import { rowsOf, type Panel } from './panels.js';
import { planOf, type Plan, type Scope } from './plan.js';
import { Places, shapesOf } from './shapes.js';
import { counted } from '../notes/counts.js';

/** The rows of one group in one panel. */
interface Part {
  key: number;
  rows: number[] | Uint32Array;
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

/** Shares of the whole panel. Of nothing, or of less, there are none. */
function takeShares(layers: Layer[], scope: Scope): void {
  const total = layers.reduce(
    (sum, layer) => sum + layer.shapes.reduce((part, shape) => part + shape.y, 0),
    0,
  );
  const shown = layers.filter(({ shapes }) => shapes.length > 0);
  if (shown.length > 0 && !(total > 0))
    scope.notes.push('Percentages of a sum that is not above 0 cannot be had: what shows them is not drawn.');
  for (const layer of shown) {
    if (total > 0) for (const shape of layer.shapes) shape.y = (100 * shape.y) / total;
    else layer.shapes = [];
  }
}

/** Shares, and sums along x. */
function finishSummary(layers: Layer[], summary: Summary, scope: Scope): void {
  if (summary.share) takeShares(layers, scope);
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
  return { categories, variables: variables.map(({ values }) => values), look, name };
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
  fillEmptyPlaces(layers, plan);
  if (plan.summary) finishSummary(layers, plan.summary, scope);
  return layers.filter((layer) => layer.shapes.length > 0 && layer.look.visible);
}

/** Groups whose mean has no interval: they are drawn as a dot alone. */
function intervalNotes(panels: Layer[][]): string[] {
  const layers = panels.flat().filter((layer) => layer.kind === 'errors');
  const bare = layers.flatMap((layer) => layer.shapes).filter((shape) => shape.low === undefined).length;
  if (bare === 0) return [];
  return [`${counted(bare)} ${bare === 1 ? 'group has' : 'groups have'} too few cases for an error bar.`];
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
  scope.notes.push(...intervalNotes(panels), ...withoutLookNotes(plans));
  return panels;
}
