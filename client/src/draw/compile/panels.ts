/** Panels: what splits a graph, and which rows go where. */
import { cross } from 'd3';
import type { Chart, Graph, PanelNode } from '../../chart/model.js';
import { categoriesOf, type Category } from '../../data/categories.js';
import type { Data, Values } from '../../data/columns.js';

/** A variable that splits the graph. Levels count from 1 in the order of the markup. */
export interface PanelVariable {
  level: number;
  values: Values;
  categories: Category[];
}

/** One column or row of panels: a category for each of the variables of that side. */
export interface Strip {
  categories: Category[];
}

export interface PanelSide {
  variables: PanelVariable[];
  /** No more than there may be panels. */
  strips: Strip[];
  /** How many there would be. */
  count: number;
}

export interface Panel {
  column: number;
  row: number;
  /** What its place stands for, by level. */
  facets: Map<number, Category>;
  /** The measure that stands for a blend, by the id of the blend. */
  terms: Map<string, string>;
}

export interface PanelGrid {
  columns: PanelSide;
  rows: PanelSide;
  panels: Panel[];
  /** Blends take the places of columns and rows; their texts stand over the panels. */
  blended: { columns: string[]; rows: string[] };
  /** How many columns and rows the chart has; there may be no room for all of them. */
  wanted: PanelCounts;
}

export interface PanelCounts {
  columns: number;
  rows: number;
}

interface Turn {
  variables: string[];
  nested: boolean;
}

/** Columns and rows take turns; a cross within the cross goes on with them. */
function turnsOf(node: PanelNode): Turn[] {
  if (node.kind === 'unity') return [{ variables: [], nested: false }];
  if (node.kind === 'variable') return [{ variables: [node.variable], nested: false }];
  if (node.kind === 'nest') return [{ variables: nestedVariables(node), nested: true }];
  return node.children.flatMap(turnsOf);
}

function nestedVariables(node: PanelNode): string[] {
  if (node.kind === 'variable') return [node.variable];
  return node.kind === 'unity' ? [] : node.children.flatMap(nestedVariables);
}

/** Every combination of the categories, as far as there may be panels of them. */
function crossed(variables: PanelVariable[]): Strip[] {
  return variables.reduce<Strip[]>(
    (strips, { categories }) =>
      cross(strips.slice(0, mostPanels), categories.slice(0, mostPanels), (strip, category) => ({
        categories: [...strip.categories, category],
      })).slice(0, mostPanels),
    [{ categories: [] }],
  );
}

/** The combinations of nested variables that occur, in the order of their categories. */
function occurring(variables: PanelVariable[]): Strip[] {
  const places = variables.map(({ categories }) => new Map(categories.map(({ code }, at) => [code, at])));
  const rows = Math.max(...variables.map(({ values }) => values.numbers.length));
  const found = new Map<string, number[]>();
  for (let row = 0; row < rows; row += 1) {
    const place = variables.map(({ values }, at) => places[at]!.get(values.numbers[row]!) ?? -1);
    if (!place.includes(-1)) found.set(place.join(), place);
  }
  const before = (one: number[], other: number[]) => {
    const at = one.findIndex((place, index) => place !== other[index]);
    return at < 0 ? 0 : one[at]! - other[at]!;
  };
  return [...found.values()]
    .sort(before)
    .map((place) => ({ categories: place.map((at, index) => variables[index]!.categories[at]!) }));
}

/** How many strips a side would have, and the first of them. */
function stripsOf(variables: PanelVariable[], nested: boolean): { strips: Strip[]; count: number } {
  if (nested && variables.length > 0) {
    const strips = occurring(variables);
    return { strips: strips.slice(0, mostPanels), count: strips.length };
  }
  const count = variables.reduce((product, { categories }) => product * categories.length, 1);
  return { strips: crossed(variables), count };
}

function sidesOf(graph: Graph, chart: Chart, data: Data): { columns: PanelSide; rows: PanelSide } {
  const turns = graph.panels ? turnsOf(graph.panels.root) : [];
  const newSide = () => ({ variables: [] as PanelVariable[], nested: false });
  const sides: [ReturnType<typeof newSide>, ReturnType<typeof newSide>] = [newSide(), newSide()];
  let level = 0;
  turns.forEach((turn, at) => {
    const side = sides[at % 2 === 0 ? 0 : 1];
    if (turn.nested) side.nested = true;
    for (const id of turn.variables) {
      level += 1;
      const values = data.values(id);
      if (values) side.variables.push({ level, values, categories: categoriesOf(chart, values) });
    }
  });
  const [columns, rows] = sides.map(({ variables, nested }) => ({
    variables,
    ...stripsOf(variables, nested),
  }));
  return { columns: columns!, rows: rows! };
}

interface Blend {
  id: string;
  terms: { variable: string; text: string }[];
}

/** The blend that elements show along a direction, where each of its measures has a panel. */
function blendOf(graph: Graph, data: Data, direction: 'x' | 'y'): Blend | null {
  for (const element of graph.elements) {
    for (const id of element[direction]) {
      const terms = data.terms(id);
      if (terms.length < 2 || terms.every((term) => term.category === '')) continue;
      return {
        id,
        terms: terms.map((term) => ({ variable: term.variable, text: termText(term.category, data) })),
      };
    }
  }
  return null;
}

function termText(category: string, data: Data): string {
  const values = data.values(category);
  return values ? values.textOf(values.numbers[0] ?? 1) : category;
}

/** Measures of y stand side by side, unless those of x do: then x goes by columns and y by rows. */
function blendsOf(graph: Graph, data: Data): { columns: Blend | null; rows: Blend | null } {
  const x = blendOf(graph, data, 'x');
  const y = blendOf(graph, data, 'y');
  return x ? { columns: x, rows: y } : { columns: y, rows: null };
}

/** More would be no picture. */
export const mostPanels = 400;

export function countsOf(grid: Pick<PanelGrid, 'columns' | 'rows' | 'blended'>): PanelCounts {
  return {
    columns: grid.columns.strips.length * Math.max(1, grid.blended.columns.length),
    rows: grid.rows.strips.length * Math.max(1, grid.blended.rows.length),
  };
}

/** The first strips of a side, or the first measures of a blend where that is what gives it several. */
function firstOf(side: PanelSide, blended: string[], count: number): { side: PanelSide; blended: string[] } {
  if (blended.length > 0 && side.strips.length === 1) return { side, blended: blended.slice(0, count) };
  const strips = Math.max(1, Math.floor(count / Math.max(1, blended.length)));
  return { side: { ...side, strips: side.strips.slice(0, strips) }, blended };
}

/** A grid without the columns and rows that are too many; all measures of a blend stay together. */
export function firstPanels(grid: PanelGrid, most: PanelCounts): PanelGrid {
  const columns = firstOf(grid.columns, grid.blended.columns, most.columns);
  const rows = firstOf(grid.rows, grid.blended.rows, most.rows);
  const blended = { columns: columns.blended, rows: rows.blended };
  const counts = countsOf({ columns: columns.side, rows: rows.side, blended });
  const panels = grid.panels.filter(({ column, row }) => column < counts.columns && row < counts.rows);
  return { ...grid, columns: columns.side, rows: rows.side, blended, panels };
}

/** The panels by rows, as far as `most` goes. */
function panelsOf(
  { columns, rows }: Pick<PanelGrid, 'columns' | 'rows'>,
  blends: { columns: Blend | null; rows: Blend | null },
  most: PanelCounts,
): Panel[] {
  const strips = (side: PanelSide, blend: Blend | null, count: number) =>
    cross(side.strips, blend?.terms ?? [null]).slice(0, count);
  return strips(rows, blends.rows, most.rows).flatMap(([rowStrip, rowTerm], row) =>
    strips(columns, blends.columns, most.columns).map(([columnStrip, columnTerm], column): Panel => {
      const terms = new Map<string, string>();
      if (blends.columns && columnTerm) terms.set(blends.columns.id, columnTerm.variable);
      if (blends.rows && rowTerm) terms.set(blends.rows.id, rowTerm.variable);
      const facets = new Map<number, Category>();
      columnStrip.categories.forEach((category, at) => facets.set(columns.variables[at]!.level, category));
      rowStrip.categories.forEach((category, at) => facets.set(rows.variables[at]!.level, category));
      return { column, row, facets, terms };
    }),
  );
}

/** Panels go by categories: where there is none, says so as an error. */
export function requirePanels({ columns, rows }: PanelGrid): void {
  for (const { variables, strips } of [columns, rows]) {
    if (strips.length > 0) continue;
    const empty = variables.filter(({ categories }) => categories.length === 0);
    const named = empty.length > 0 ? empty : variables;
    const names = named.map(({ values }) => values.variable.label || values.variable.id);
    throw new Error(`it has no panels, for there is no category of ${names.join(' with ')}`);
  }
}

export function panelGrid(graph: Graph, chart: Chart, data: Data): PanelGrid {
  const { columns, rows } = sidesOf(graph, chart, data);
  const blends = blendsOf(graph, data);
  const texts = (blend: Blend | null) => blend?.terms.map((term) => term.text) ?? [];
  const blended = { columns: texts(blends.columns), rows: texts(blends.rows) };
  const wanted = {
    columns: columns.count * Math.max(1, blended.columns.length),
    rows: rows.count * Math.max(1, blended.rows.length),
  };
  const across = Math.max(1, Math.min(wanted.columns, mostPanels));
  const most = { columns: across, rows: Math.max(1, Math.floor(mostPanels / across)) };
  const panels = panelsOf({ columns, rows }, blends, most);
  return firstPanels({ columns, rows, panels, blended, wanted }, most);
}

/** The rows of a source that a panel shows. Sources without the variables of the panels are shown in all. */
export function rowsOf(panel: Panel, grid: PanelGrid, source: string, rows: number): Uint32Array {
  const variables = [...grid.columns.variables, ...grid.rows.variables].filter(
    (each) => each.values.source === source,
  );
  const wanted = variables.map((each) => panel.facets.get(each.level)?.code);
  const shown = new Uint32Array(rows);
  let count = 0;
  for (let row = 0; row < rows; row += 1) {
    let fits = true;
    for (let at = 0; at < variables.length && fits; at += 1)
      fits = variables[at]!.values.numbers[row] === wanted[at];
    if (fits) shown[count++] = row;
  }
  return shown.subarray(0, count);
}
