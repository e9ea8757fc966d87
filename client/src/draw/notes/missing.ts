/** Rows that are not drawn because a value is missing. */
import type { ChartElement } from '../../chart/model.js';
import type { Data, Values } from '../../data/columns.js';
import type { Grouping } from '../compile/grouping.js';
import type { LayerKind } from '../compile/layers.js';
import type { PanelGrid } from '../compile/panels.js';
import type { Range } from '../compile/ranges.js';

interface Shown {
  element: ChartElement;
  kind: LayerKind;
  grouping: Grouping;
  ranges: Range[];
  summary: unknown;
  source: string;
  rows: number;
}

/** A row is drawn where it has a value of one of these; measures of a blend stand for each other. */
type Needed = Values[];

function neededBy(shown: Shown, grid: PanelGrid, data: Data): Needed[] {
  const { element, kind } = shown;
  // Where a raw line or area has no value, the gap shows it.
  const gaps = (kind === 'line' || kind === 'area') && !shown.summary;
  const places = [...element.x, ...(gaps ? [] : element.y)].map((id) =>
    data.terms(id).flatMap((term) => data.values(term.variable) ?? []),
  );
  const looks = [...shown.grouping.variables, ...shown.ranges].map(({ values }) => [values]);
  const panels = [...grid.columns.variables, ...grid.rows.variables].map(({ values }) => [values]);
  return [...places, ...looks, ...panels].filter(
    (needed) => needed.length > 0 && needed.every((values) => values.source === shown.source),
  );
}

const lacks = (needed: Needed, row: number) => needed.every((values) => Number.isNaN(values.numbers[row]!));

/** How many rows of each source lack a value, and of what. */
export function missingNotes(all: Shown[], grid: PanelGrid, data: Data): string[] {
  return [...new Set(all.map(({ source }) => source))].flatMap((source) => {
    const own = all.filter((shown) => shown.source === source);
    const needed = own.flatMap((shown) => neededBy(shown, grid, data));
    const reasons = new Set<string>();
    let count = 0;
    for (let row = 0; row < Math.max(...own.map(({ rows }) => rows)); row += 1) {
      const lacking = needed.filter((each) => lacks(each, row));
      if (lacking.length === 0) continue;
      count += 1;
      for (const [values] of lacking) reasons.add(values!.variable.label || values!.variable.id);
    }
    if (count === 0) return [];
    const rows = count === 1 ? '1 row with a missing value is' : `${count} rows with missing values are`;
    return [`${rows} not drawn (${[...reasons].join(', ')}).`];
  });
}
