/** What of an element is the same in every panel: how it is drawn, its groups, ranges, classes and statistic. */
import type { Chart, ChartElement, Graph } from '../../chart/model.js';
import type { Data } from '../../data/columns.js';
import { binsOf, type Bins } from '../../statistics/bins.js';
import { summaries, vaguePercentages, type Summary } from '../../statistics/summary.js';
import { binNotes } from '../notes/classes.js';
import { alikeNotes } from '../notes/alike.js';
import type { Direction } from './directions.js';
import { groupingOf, type Grouping } from './grouping.js';
import type { LayerKind } from './layers.js';
import type { Look, LookKind } from './looks.js';
import { elementLook } from './owncolors.js';
import type { PanelGrid } from './panels.js';
import { rangesOf, type Range } from './ranges.js';
import { elementName } from '../notes/names.js';
import { aestheticNotes } from '../notes/unhonoured.js';

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

export interface Plan {
  element: ChartElement;
  kind: LayerKind;
  lookKind: LookKind;
  own: Look;
  grouping: Grouping;
  ranges: Range[];
  summary: Summary | null;
  bins: Bins | null;
  weights: Float64Array | null;
  /** How many marks lack all values of a range, by its variable. */
  withoutLook: Map<string, number>;
  source: string;
  rows: number;
}

const dotModifiers = new Set([7, 8]);
const knownModifiers = new Set([1, 3, 7, 8]);

export function kindOf(element: ChartElement, polar: boolean): LayerKind {
  switch (element.kind) {
    case 'point':
      return dotModifiers.has(element.modifier ?? 0) ? 'dots' : 'points';
    case 'line':
    case 'path':
      return 'line';
    case 'interval':
      if (polar) return 'slices';
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

/** Null where an element shows nothing that is known. */
export function planOf(element: ChartElement, scope: Scope): Plan | null {
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
    notes.push(`Nothing is drawn of ${elementName(element)}: there is no variable to show.`);
    return null;
  }
  const kind = kindOf(element, scope.polar);
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
  const binned = element.bins !== null && !element.bins.dots && scope.x.kind !== 'category';
  const bins = binned ? binsOf(present(first.numbers), element.bins!, scope.x.kind === 'date') : null;
  notes.push(...binNotes(bins, scope.x.kind === 'date'));
  return {
    element,
    kind,
    lookKind,
    own: elementLook(element, scope.graph, chart, lookKind),
    grouping,
    ranges,
    summary: summaryOf(element, scope),
    bins,
    weights,
    withoutLook: new Map(),
    source: first.source,
    rows: first.numbers.length,
  };
}

function present(numbers: Float64Array): Float64Array {
  return numbers.filter((value) => !Number.isNaN(value));
}
