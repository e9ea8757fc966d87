/** Which categories are shown, and in which order. */
import type { Chart, Domain } from '../chart/model.js';
import type { Values } from './columns.js';
import { mergeFormats } from './format.js';

export interface Category {
  /** The values of the data that it stands for. */
  code: number;
  text: string;
}

/** Codes as charts list them are numbers in their shortest form; texts of a column are met by their names too. */
function named(values: Values, code: number, name: string): boolean {
  return String(code) === name || values.textOf(code) === name;
}

function rank(values: Values, code: number, order: string[]): number {
  const at = order.findIndex((name) => named(values, code, name));
  return at < 0 ? order.length : at;
}

/** The domains that speak of a variable: its own, and that of the dimension or aesthetic that shows it. */
function domainsOf(chart: Chart, values: Values, domain: string): Domain[] {
  const ids = [domain, values.variable.domain].filter((id) => id !== '');
  return ids.flatMap((id) => chart.domains.get(id) ?? []).filter((each) => each.categorical);
}

function presentCodes(values: Values): number[] {
  const codes = new Set<number>();
  for (const number of values.numbers) if (!Number.isNaN(number)) codes.add(number);
  return [...codes];
}

/**
 * The categories of a variable: those in the data, by their values unless the chart orders them, without those
 * that it leaves out. Where it lists some, exactly these.
 */
export function categoriesOf(chart: Chart, values: Values, domain = ''): Category[] {
  const domains = domainsOf(chart, values, domain);
  const only = domains.find((each) => each.only)?.only ?? null;
  const removed = domains.flatMap((each) => each.removed);
  const sort = domains.find((each) => each.sort)?.sort ?? null;
  let codes = presentCodes(values).filter((code) => !removed.some((name) => named(values, code, name)));
  if (only) codes = codes.filter((code) => only.some((name) => named(values, code, name)));
  codes.sort((a, b) => a - b);
  if (sort?.descending) codes.reverse();
  const order = sort?.order.length ? sort.order : (only ?? []);
  codes.sort((a, b) => rank(values, a, order) - rank(values, b, order));
  const format = mergeFormats(...domains.map((each) => each.format), values.variable.format);
  return codes.map((code) => ({ code, text: values.textOf(code, format) }));
}
