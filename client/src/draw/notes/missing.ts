/** Rows that are not drawn because a value is missing. */
import type { ChartElement } from '../../chart/model.js';
import type { Data, Values } from '../../data/columns.js';
import type { Grouping } from '../compile/grouping.js';
import type { LayerKind } from '../compile/layers.js';
import { counted } from './counts.js';
import type { PanelGrid } from '../compile/panels.js';
import type { Range } from '../compile/ranges.js';

interface Shown {
  element: ChartElement;
  kind: LayerKind;
  grouping: Grouping;
  ranges: Range[];
  summary: unknown;
  withoutLook: Map<string, number>;
  source: string;
  rows: number;
}

/** A row is drawn where it has a value of one of these; measures of a blend stand for each other. */
type Needed = Values[];

function neededBy(shown: Shown, grid: PanelGrid, data: Data): Needed[] {
  const { element } = shown;
  const places = [...element.x, ...element.y].map((id) =>
    data.terms(id).flatMap((term) => data.values(term.variable) ?? []),
  );
  // Marks of several rows have the mean of the values that are there.
  const single = !shown.summary && !element.density && shown.kind !== 'boxes';
  const looks = [...shown.grouping.variables, ...(single ? shown.ranges : [])].map(({ values }) => [values]);
  const panels = [...grid.columns.variables, ...grid.rows.variables].map(({ values }) => [values]);
  return [...places, ...looks, ...panels].filter(
    (needed) => needed.length > 0 && needed.every((values) => values.source === shown.source),
  );
}

const lacks = (needed: Needed, row: number) => needed.every((values) => Number.isNaN(values.numbers[row]!));

/** How many marks of several rows lack all values of a range of colours, sizes or transparencies. */
export function withoutLookNotes(all: Shown[]): string[] {
  return all
    .filter(({ summary }) => summary)
    .flatMap(({ withoutLook }) =>
      [...withoutLook].map(([label, count]) => {
        const marks = count === 1 ? '1 mark' : `${counted(count)} marks`;
        return `${marks} without any value of ${label} ${count === 1 ? 'is' : 'are'} not drawn.`;
      }),
    );
}

/** How many rows of each source lack a value, and of what. */
export function missingNotes(all: Shown[], grid: PanelGrid, data: Data): string[] {
  return [...new Set(all.map(({ source }) => source))].flatMap((source) => {
    const own = all.filter((shown) => shown.source === source);
    const needed = own.flatMap((shown) => neededBy(shown, grid, data));
    const reasons = new Set<string>();
    let count = 0;
    for (let row = 0; row < own[0]!.rows; row += 1) {
      const lacking = needed.filter((each) => lacks(each, row));
      if (lacking.length === 0) continue;
      count += 1;
      for (const [values] of lacking) reasons.add(values!.variable.label || values!.variable.id);
    }
    if (count === 0) return [];
    const rows =
      count === 1 ? '1 row with a missing value is' : `${counted(count)} rows with missing values are`;
    return [`${rows} not drawn (${[...reasons].join(', ')}).`];
  });
}
