/** What is measured along x and along y: numbers, dates or categories, and where each value stands. */
import type { Chart, Dimension, Domain, Format, Graph } from '../../chart/model.js';
import { categoriesOf, type Category } from '../../data/categories.js';
import type { Data, ValueKind, Values } from '../../data/columns.js';
import { isWithinReach } from '../../data/reach.js';
import { mergeFormats, secondsOf } from '../../data/format.js';
import type { Length } from '../../chart/markup.js';

export interface Direction {
  name: 'x' | 'y';
  kind: ValueKind;
  dimension: Dimension | null;
  domain: Domain | null;
  /** Of categories: the texts at 0, 1, 2 and so on. */
  texts: string[];
  /** Where a value stands: itself, or the number of its category from 0. NaN where it is not shown. */
  place(values: Values, value: number): number;
  /** How values are shown where an axis does not say. */
  format: Format | null;
  values: Values[];
  /** Of dates: the day on which weeks begin, 0 for Sunday. */
  weekBegins: number;
  /** Reserves places beside each other. */
  cluster: { values: Values; categories: Category[]; gap: Length | null } | null;
}

/** The variables that the elements of a graph show along a direction, measures of blends each by itself. */
function variablesAlong(graph: Graph, data: Data, name: 'x' | 'y', notes: string[]): Values[] {
  const ids = graph.elements.flatMap((element) => element[name]);
  const found = new Set<Values>();
  for (const id of ids) {
    for (const term of data.terms(id)) {
      const values = data.values(term.variable);
      if (values) found.add(values);
    }
  }
  const all = [...found];
  if (new Set(all.map((values) => values.kind)).size > 1) {
    notes.push(
      `Along ${name} different kinds of values are shown: ${all.map((each) => each.variable.label).join(', ')}.`,
    );
  }
  return all;
}

/** Where several variables share a direction, categories of one text are one. */
function mergedCategories(all: Values[], chart: Chart, domain: string) {
  const texts: string[] = [];
  const places = new Map<Values, Map<number, number>>();
  const single = all.length === 1;
  for (const values of all) {
    const own = new Map<number, number>();
    for (const { code, text } of categoriesOf(chart, values, domain)) {
      const known = single ? -1 : texts.indexOf(text);
      own.set(code, known >= 0 ? known : texts.push(text) - 1);
    }
    places.set(values, own);
  }
  return { texts, places };
}

function clusterOf(dimension: Dimension | null, chart: Chart, data: Data): Direction['cluster'] {
  if (!dimension?.clusterVariable) return null;
  const values = data.values(dimension.clusterVariable);
  return values && { values, categories: categoriesOf(chart, values), gap: dimension.clusterGap };
}

/** The domain of a dimension, or of the variable along one that names none. */
function domainOf(chart: Chart, dimension: Dimension | null, all: Values[]): Domain | null {
  const ids = [dimension?.domain ?? '', all[0]?.variable.domain ?? ''].filter((id) => id !== '');
  return (ids[0] && chart.domains.get(ids[0])) || null;
}

const day = 86_400;
const hour = 3_600;
const monday = 1;

/** What dates around one are told apart by, in seconds: days, or hours where it has a time. */
export const unitOfDate = (value: number) => (value % day === 0 ? day : hour);

/** Weeks begin on the day of the week that all dates are on, else on Monday. */
export function weekBegins(all: Values[]): number {
  let common: number | null = null;
  for (const { kind, numbers } of all) {
    if (kind !== 'date') return monday;
    for (const value of numbers) {
      if (Number.isNaN(value)) continue;
      if (value % day !== 0) return monday;
      const weekday = new Date(value * 1000).getUTCDay();
      if (weekday !== (common ?? weekday)) return monday;
      common = weekday;
    }
  }
  return common ?? monday;
}

export function directionOf(
  name: 'x' | 'y',
  graph: Graph,
  chart: Chart,
  data: Data,
  notes: string[],
): Direction {
  const dimension = graph.coordinates[0]?.dimensions[name === 'x' ? 0 : 1] ?? null;
  const all = variablesAlong(graph, data, name, notes);
  const domain = domainOf(chart, dimension, all);
  const categorical =
    all.some((values) => values.kind === 'category') || (all.length > 0 && domain?.categorical);
  const dated = all.some((values) => values.kind === 'date') || (all.length > 0 && domain?.date);
  const kind: ValueKind = categorical ? 'category' : dated ? 'date' : 'number';
  const { texts, places } = categorical
    ? mergedCategories(all, chart, dimension?.domain ?? '')
    : { texts: [], places: new Map<Values, Map<number, number>>() };
  return {
    name,
    kind,
    dimension,
    domain,
    texts,
    place: categorical ? (values, value) => places.get(values)?.get(value) ?? NaN : (_, value) => value,
    format: mergeFormats(domain?.format, all[0]?.variable.format),
    values: all,
    weekBegins: weekBegins(all),
    cluster: clusterOf(dimension, chart, data),
  };
}

/** The place of a bound or guide as the chart has it: a number, a date, or the number of a category. */
export function placeOf(direction: Direction, text: string): number | null {
  const number = direction.kind === 'date' ? secondsOf(text) : Number(text);
  if (number === null || text.trim() === '' || !isWithinReach(number, direction.kind)) return null;
  if (direction.kind !== 'category') return number;
  const [values] = direction.values;
  const place = values ? direction.place(values, number) : NaN;
  return Number.isNaN(place) ? number - 1 : place;
}
