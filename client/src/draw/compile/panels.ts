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
  strips: Strip[];
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

/** Every combination of the categories, or of nested variables those that occur. */
function stripsOf(variables: PanelVariable[], nested: boolean): Strip[] {
  if (variables.length === 0) return [{ categories: [] }];
  const all = variables.reduce<Strip[]>(
    (strips, variable) =>
      cross(strips, variable.categories, (strip, category) => ({
        categories: [...strip.categories, category],
      })),
    [{ categories: [] }],
  );
  return nested ? all.filter((strip) => occurs(variables, strip)) : all;
}

function occurs(variables: PanelVariable[], strip: Strip): boolean {
  const rows = Math.max(...variables.map((variable) => variable.values.numbers.length));
  for (let row = 0; row < rows; row += 1) {
    if (variables.every((variable, at) => variable.values.numbers[row] === strip.categories[at]?.code))
      return true;
  }
  return false;
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
    strips: stripsOf(variables, nested),
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

export function panelGrid(graph: Graph, chart: Chart, data: Data, notes: string[]): PanelGrid {
  const { columns, rows } = sidesOf(graph, chart, data);
  const blends = blendsOf(graph, data);
  const columnTerms = blends.columns?.terms ?? [null];
  const rowTerms = blends.rows?.terms ?? [null];
  const panels: Panel[] = [];
  cross(rows.strips, rowTerms).forEach(([rowStrip, rowTerm], row) =>
    cross(columns.strips, columnTerms).forEach(([columnStrip, columnTerm], column) => {
      const terms = new Map<string, string>();
      if (blends.columns && columnTerm) terms.set(blends.columns.id, columnTerm.variable);
      if (blends.rows && rowTerm) terms.set(blends.rows.id, rowTerm.variable);
      const facets = new Map<number, Category>();
      columnStrip.categories.forEach((category, at) => facets.set(columns.variables[at]!.level, category));
      rowStrip.categories.forEach((category, at) => facets.set(rows.variables[at]!.level, category));
      panels.push({ column, row, facets, terms });
    }),
  );
  if (panels.length > mostPanels) {
    notes.push(`Of ${panels.length} panels the first ${mostPanels} are drawn.`);
    panels.length = mostPanels;
  }
  const texts = (blend: Blend | null) => blend?.terms.map((term) => term.text) ?? [];
  return { columns, rows, panels, blended: { columns: texts(blends.columns), rows: texts(blends.rows) } };
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
