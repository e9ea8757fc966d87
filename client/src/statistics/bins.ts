/** Classes of values for histograms. */
import { extent, thresholdScott, tickStep } from 'd3';
import type { BinStatistic } from '../chart/model.js';
import type { Numbers } from './summary.js';

/** Classes of equal width, each with its lower bound and without its upper one but for the last. */
export interface Bins {
  start: number;
  width: number;
  count: number;
}

/** More would be no picture. */
const mostBins = 2_000;

function upTo(start: number, width: number, highest: number): Bins {
  // A value on the upper bound of the last class belongs to it only if the class is the only one.
  const classes = Math.floor((highest - start) / width + 1e-9) + 1;
  return { start, width, count: Math.min(mostBins, Math.max(1, classes)) };
}

/** Round bounds, as many classes as Scott's rule wants. */
function chosen(values: Numbers, low: number, high: number): Bins {
  const wanted = thresholdScott(values, low, high);
  const width = tickStep(low, high, Math.max(1, Math.min(200, wanted)));
  if (!(width > 0)) return { start: low - 0.5, width: 1, count: 1 };
  return upTo(Math.floor(low / width) * width, width, high);
}

/** The classes that the chart asks for; what it leaves open has round bounds. Null without values. */
export function binsOf(values: Numbers, wanted: BinStatistic): Bins | null {
  const [low, high] = extent(values);
  if (low === undefined || high === undefined) return null;
  if (wanted.width !== null && wanted.width > 0) {
    const start = wanted.start ?? Math.floor(low / wanted.width) * wanted.width;
    // A start above the lowest value moves down by whole classes, so that no value is left out.
    const below = Math.max(0, Math.ceil((start - low) / wanted.width));
    return upTo(start - below * wanted.width, wanted.width, high);
  }
  const automatic = chosen(values, low, high);
  if (wanted.count !== null && wanted.count >= 1) {
    const count = Math.min(mostBins, Math.round(wanted.count));
    const start = Math.min(wanted.start ?? low, low);
    return { start, width: high > start ? (high - start) / count : 1, count };
  }
  if (wanted.start !== null) return upTo(Math.min(wanted.start, low), automatic.width, high);
  return automatic;
}

/** The number of the class of a value, from 0. */
export function binOf(bins: Bins, value: number): number {
  const at = Math.floor((value - bins.start) / bins.width + 1e-9);
  return Math.max(0, Math.min(bins.count - 1, at));
}
