/** The figures of a box plot. */
import { bisectLeft, median, sum } from 'd3';
import { weightedQuantile, type Numbers, type Weighted } from './summary.js';

export interface Box {
  lowerHinge: number;
  median: number;
  upperHinge: number;
  /** The lowest and the highest value within the inner fences. */
  lowest: number;
  highest: number;
  /** Indexes into the sample: beyond the inner fences, and beyond the outer ones. */
  outliers: number[];
  extremes: number[];
}

/** Fences stand that many times the distance of the hinges beyond them. */
const innerFence = 1.5;
const outerFence = 3;

/** Tukey's hinges: the medians of both halves; of an odd number of values the middle one belongs to both. */
export function hinges(sorted: Numbers): [number, number] {
  const all = Array.from(sorted);
  const half = Math.ceil(all.length / 2);
  return [median(all.slice(0, half)) ?? NaN, median(all.slice(all.length - half)) ?? NaN];
}

/**
 * Hinges and median of cases that each stand for a whole number of cases: those of the sample in which each
 * stands that often. A hinge stands as deep from its end as the median of the half with the middle value in it.
 */
function repeatedFigures(sorted: [number, number][], total: number): [number, number, number] {
  const sums: number[] = [];
  for (const [, weight] of sorted) sums.push((sums.at(-1) ?? 0) + weight);
  const nth = (place: number) => sorted[bisectLeft(sums, place)]![0];
  const between = (place: number) => (nth(Math.floor(place)) + nth(Math.ceil(place))) / 2;
  const middle = (total + 1) / 2;
  const depth = (Math.floor(middle) + 1) / 2;
  return [between(depth), between(middle), between(total + 1 - depth)];
}

/** Lower hinge, median and upper hinge of weighted cases; by quartiles where a weight is no whole number. */
function weightedFigures(sample: Weighted): [number, number, number] {
  const { values, weights } = sample;
  const pairs = Array.from(values, (value, at): [number, number] => [value, weights![at]!]);
  if (pairs.every(([, weight]) => Number.isInteger(weight))) {
    pairs.sort((a, b) => a[0] - b[0]);
    return repeatedFigures(
      pairs,
      sum(pairs, ([, weight]) => weight),
    );
  }
  const quartile = (share: number) => weightedQuantile(sample, share) ?? NaN;
  return [quartile(0.25), quartile(0.5), quartile(0.75)];
}

function plainFigures(values: Numbers): [number, number, number] {
  const sorted = Float64Array.from(values).sort();
  const [lower, upper] = hinges(sorted);
  return [lower, median(sorted) ?? NaN, upper];
}

/**
 * Null without values. Missing ones must be out of the sample, and those that count 0 times or less.
 * Outliers are given by their place in the sample, each once, whatever it counts.
 */
export function boxOf(sample: Weighted): Box | null {
  const { values, weights } = sample;
  if (values.length === 0) return null;
  const [lowerHinge, middle, upperHinge] = weights === null ? plainFigures(values) : weightedFigures(sample);
  const spread = upperHinge - lowerHinge;
  const beyond = (value: number, times: number) =>
    value < lowerHinge - times * spread || value > upperHinge + times * spread;
  const outliers: number[] = [];
  const extremes: number[] = [];
  let lowest = Infinity;
  let highest = -Infinity;
  for (let at = 0; at < values.length; at += 1) {
    const value = values[at]!;
    if (beyond(value, outerFence)) extremes.push(at);
    else if (beyond(value, innerFence)) outliers.push(at);
    else {
      lowest = Math.min(lowest, value);
      highest = Math.max(highest, value);
    }
  }
  return { lowerHinge, median: middle, upperHinge, lowest, highest, outliers, extremes };
}
