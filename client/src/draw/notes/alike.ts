/** Groups that look alike, because a cycle has fewer looks than there are groups. */
import type { Aesthetic, AestheticKind, Chart, ChartElement } from '../../chart/model.js';
import type { Category } from '../../data/categories.js';
import { aestheticOf, cycleOf, mappingOf, type Grouping, type GroupVariable } from '../compile/grouping.js';
import type { LayerKind } from '../compile/layers.js';
import type { PanelGrid } from '../compile/panels.js';
import { unseenGroups } from './unhonoured.js';
import { counted } from './counts.js';

/** Those of a variable's aesthetics that marks of that kind show. */
function seenOf(variable: GroupVariable, kind: LayerKind, chart: Chart): Aesthetic[] {
  const unseen = unseenGroups[kind] ?? [];
  return variable.aesthetics.filter((each) => !unseen.includes(aestheticOf(each, chart) as AestheticKind));
}

/** How many looks that can be told apart the groups have. */
function looksOf(categories: Category[], seen: Aesthetic[], chart: Chart): number {
  const cycles = seen.map((aesthetic) => ({ aesthetic, cycle: cycleOf(aesthetic, chart) }));
  const look = (category: Category, at: number) =>
    cycles.map(({ aesthetic, cycle }) => mappingOf(aesthetic, category) ?? cycle[at % cycle.length]);
  return new Set(categories.map((category, at) => JSON.stringify(look(category, at)))).size;
}

/** Names the variables of which groups look alike; where an axis or panels tell the groups, nothing is lost. */
export function alikeNotes(
  element: ChartElement,
  kind: LayerKind,
  grouping: Grouping,
  grid: PanelGrid,
  chart: Chart,
): string[] {
  const told = [...grid.columns.variables, ...grid.rows.variables].map(({ values }) => values.variable.id);
  return grouping.variables.flatMap((variable) => {
    const { label, id } = variable.values.variable;
    const seen = seenOf(variable, kind, chart);
    if (seen.length === 0 || [...told, ...element.x, ...element.y].includes(id)) return [];
    const [groups, looks] = [variable.categories.length, looksOf(variable.categories, seen, chart)];
    if (looks >= groups) return [];
    const are = looks === 1 ? 'is 1 look' : `are ${counted(looks)} looks`;
    return [`${label || id} has ${counted(groups)} groups, but there ${are}: some groups look alike.`];
  });
}
