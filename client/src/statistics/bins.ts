/** Classes of values for histograms. */
import { bisectRight, extent, thresholdScott, tickStep, utcMonth, utcYear } from 'd3';
import type { BinStatistic } from '../chart/model.js';
import type { Numbers } from './summary.js';

/** Classes of equal width unless they have edges, each with its lower bound and without its upper one but for the last. */
export interface Bins {
  start: number;
  width: number;
  count: number;
  /** The bounds of all classes where they are not equally wide, as those of months. */
  edges?: number[];
  /** The width that was asked for, where there would be too many classes of it. */
  tooNarrow?: number;
  /** The number of classes that was asked for, where it is too large. */
  tooMany?: number;
}

/** More would be no picture. */
export const mostBins = 2_000;

/** Where there would be too many classes they are wider by a whole number, so that each has whole ones in it. */
function upTo(start: number, width: number, highest: number): Bins {
  // A value on the upper bound of the last class belongs to it only if the class is the only one.
  const classes = Math.max(1, Math.floor((highest - start) / width + 1e-9) + 1);
  if (classes <= mostBins) return { start, width, count: classes };
  const times = Math.ceil(classes / mostBins);
  return { start, width: width * times, count: Math.ceil(classes / times), tooNarrow: width };
}

/** Classes of that width, the first of which holds the lowest value: a start moves by whole classes. */
function fromStart(start: number, width: number, low: number, high: number): Bins {
  return upTo(start + Math.floor((low - start) / width + 1e-9) * width, width, high);
}

/** Round bounds, as many classes as Scott's rule wants. */
function chosen(values: Numbers, low: number, high: number): Bins {
  const wanted = thresholdScott(values, low, high);
  const width = tickStep(low, high, Math.max(1, Math.min(200, wanted)));
  if (!(width > 0)) return { start: low - 0.5, width: 1, count: 1 };
  return upTo(Math.floor(low / width) * width, width, high);
}

const minute = 60;
const hour = 60 * minute;
const day = 24 * hour;
/** The first Monday; days begin at midnight, weeks on Mondays. */
const firstMonday = 4 * day;

const ofTime = [1, 5, 15, 30].flatMap((count) => [count, count * minute]);
const widthsOfDates = [...ofTime, hour, 6 * hour, 12 * hour, day, 2 * day, 7 * day, 14 * day];
const ofMonths = [1, 2, 3, 6].map((count) => ({ unit: utcMonth, count, width: count * 30.44 * day }));
const ofYears = [1, 2, 5, 10, 20, 50, 100].map((count) => ({
  unit: utcYear,
  count,
  width: count * 365.25 * day,
}));

const nearest = <T>(all: T[], width: number, widthOf: (each: T) => number): T =>
  all.reduce((best, each) =>
    Math.abs(Math.log(widthOf(each) / width)) < Math.abs(Math.log(widthOf(best) / width)) ? each : best,
  );

/** Classes as calendars have them, about as wide as Scott's rule wants. */
function chosenDates(values: Numbers, low: number, high: number): Bins {
  if (low === high) return { start: Math.floor(low / day) * day, width: day, count: 1 };
  const wanted = (high - low) / Math.max(1, Math.min(200, thresholdScott(values, low, high)));
  const even = nearest(widthsOfDates, wanted, (width) => width);
  const calendar = nearest([...ofMonths, ...ofYears], wanted, ({ width }) => width);
  if (nearest([even, calendar.width], wanted, (width) => width) === even) {
    const from = even % (7 * day) === 0 ? firstMonday : 0;
    return upTo(Math.floor((low - from) / even) * even + from, even, high);
  }
  const unit = calendar.unit.every(calendar.count)!;
  const dates = [unit.floor(new Date(low * 1000))];
  while (dates[dates.length - 1]!.getTime() <= high * 1000 && dates.length <= mostBins)
    dates.push(unit.ceil(new Date(dates[dates.length - 1]!.getTime() + 1000)));
  const edges = dates.map((date) => date.getTime() / 1000);
  return { start: edges[0]!, width: calendar.width, count: edges.length - 1, edges };
}

/** The classes that the chart asks for; what it leaves open has round bounds. Null without values. */
export function binsOf(values: Numbers, wanted: BinStatistic, ofDates = false): Bins | null {
  const [low, high] = extent(values);
  if (low === undefined || high === undefined) return null;
  const automatic = ofDates ? chosenDates(values, low, high) : chosen(values, low, high);
  if (wanted.width !== null && wanted.width > 0) {
    // A width that is no share of the values at all is as good as none.
    if (!Number.isFinite((high - low) / wanted.width)) return { ...automatic, tooNarrow: wanted.width };
    return fromStart(wanted.start ?? 0, wanted.width, low, high);
  }
  if (wanted.count !== null && wanted.count >= 1) return counted(wanted.count, wanted.start, low, high);
  return wanted.start === null ? automatic : fromStart(wanted.start, automatic.width, low, high);
}

/** So many classes, one of which begins at the start. */
function counted(wanted: number, from: number | null, low: number, high: number): Bins {
  const count = Math.min(mostBins, Math.round(wanted));
  const tooMany = Math.round(wanted) > mostBins ? { tooMany: Math.round(wanted) } : {};
  const start = from ?? low;
  // As many of the classes lie below the start as the values below it take.
  const below = start > low ? Math.ceil(((start - low) / (high - low)) * count - 1e-9) : 0;
  if (!(start < high) || below >= count)
    return { start: low, width: high > low ? (high - low) / count : 1, count, ...tooMany };
  const width = (high - start) / (count - below);
  return { start: start - below * width, width, count, ...tooMany };
}

/** The number of the class of a value, from 0. */
export function binOf(bins: Bins, value: number): number {
  const at = bins.edges
    ? bisectRight(bins.edges, value) - 1
    : Math.floor((value - bins.start) / bins.width + 1e-9);
  return Math.max(0, Math.min(bins.count - 1, at));
}

/** The bounds of a class. */
export function boundsOf({ start, width, edges }: Bins, at: number): [number, number] {
  return edges ? [edges[at]!, edges[at + 1]!] : [start + at * width, start + (at + 1) * width];
}
