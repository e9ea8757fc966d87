/** Statistics of the values at one place, and what their numbers in the markup mean. */
import { max, mean, median, min, sum } from 'd3';
import { studentQuantile } from './student.js';

/** Numbers in a row: an array of either kind. */
export type Numbers = ArrayLike<number> & Iterable<number>;

/** Values and how often each counts. */
export interface Weighted {
  values: Numbers;
  /** Null where each value counts once. */
  weights: Numbers | null;
}

export interface Summary {
  /** For labels and notes. */
  words: string;
  /** Whether it is of the values of y; else it counts rows. */
  ofValues: boolean;
  /** Null of nothing. */
  compute(sample: Weighted): number | null;
  /** What it is where there are no cases; null where that cannot be told. */
  ofNothing: number | null;
  /** The share of the total in percent, of what `compute` gives. */
  share: boolean;
  /** Summed up along x. */
  cumulative: boolean;
  /** With the interval in which the mean is expected. */
  errorBar: boolean;
}

const weightAt = (sample: Weighted, at: number) => sample.weights?.[at] ?? 1;

function each(sample: Weighted, visit: (value: number, weight: number) => void): void {
  for (let at = 0; at < sample.values.length; at += 1) {
    const value = sample.values[at]!;
    const weight = weightAt(sample, at);
    if (!Number.isNaN(value) && weight > 0) visit(value, weight);
  }
}

/** The number of cases. */
function countOf(sample: Weighted): number {
  if (sample.weights === null) return sample.values.length;
  let total = 0;
  for (let at = 0; at < sample.values.length; at += 1) {
    const weight = weightAt(sample, at);
    if (weight > 0) total += weight;
  }
  return total;
}

function sumOf(sample: Weighted): number {
  if (sample.weights === null) return sum(sample.values);
  let total = 0;
  each(sample, (value, weight) => (total += value * weight));
  return total;
}

export function meanOf(sample: Weighted): number | null {
  if (sample.weights === null) return mean(sample.values) ?? null;
  let weights = 0;
  each(sample, (_, weight) => (weights += weight));
  return weights > 0 ? sumOf(sample) / weights : null;
}

/**
 * The value below which that share of the cases lies, or the middle of the two that it lies between. Null of
 * nothing.
 */
export function weightedQuantile(sample: Weighted, share: number): number | null {
  const pairs: [number, number][] = [];
  each(sample, (value, weight) => pairs.push([value, weight]));
  pairs.sort((a, b) => a[0] - b[0]);
  const reach = sum(pairs, ([, weight]) => weight) * share;
  let before = 0;
  for (let at = 0; at < pairs.length; at += 1) {
    before += pairs[at]![1];
    if (before > reach) return pairs[at]![0];
    if (before === reach) return (pairs[at]![0] + (pairs[at + 1]?.[0] ?? pairs[at]![0])) / 2;
  }
  return null;
}

function medianOf(sample: Weighted): number | null {
  return sample.weights === null ? (median(sample.values) ?? null) : weightedQuantile(sample, 0.5);
}

/** Squares of values that are larger would be beyond all numbers: these are counted by the largest. */
const largestSquared = 1e140;

function unitOf({ values }: Weighted): number {
  let largest = 0;
  for (let at = 0; at < values.length; at += 1) largest = Math.max(largest, Math.abs(values[at]!) || 0);
  return largest > largestSquared ? largest : 1;
}

/** Mean, standard deviation with n - 1, and number of the values that are there. */
export function describe(sample: Weighted): { mean: number; deviation: number; count: number } {
  let count = 0;
  let center = 0;
  let squares = 0;
  const unit = unitOf(sample);
  each(sample, (value, weight) => {
    count += weight;
    const step = value / unit - center;
    center += (weight / count) * step;
    squares += weight * step * (value / unit - center);
  });
  return {
    mean: count > 0 ? center * unit : NaN,
    deviation: count > 1 ? Math.sqrt(squares / (count - 1)) * unit : NaN,
    count,
  };
}

/** The bounds within which the mean is expected with 95 % confidence; null of fewer than two values. */
export function confidenceInterval(sample: Weighted): { low: number; high: number } | null {
  const { mean: center, deviation, count } = describe(sample);
  if (!(count > 1)) return null;
  const reach = studentQuantile(0.975, count - 1) * (deviation / Math.sqrt(count));
  return { low: center - reach, high: center + reach };
}

const plain = { ofNothing: null, share: false, cumulative: false, errorBar: false };
const counted = { ...plain, ofNothing: 0, ofValues: false, compute: countOf };

/** By the number in the markup. Other numbers are of clients that this one does not know. */
export const summaries: ReadonlyMap<number, Summary> = new Map<number, Summary>([
  [1, { ...plain, ofNothing: 0, words: 'sum', ofValues: true, compute: sumOf }],
  [2, { ...plain, words: 'mean', ofValues: true, compute: meanOf }],
  [3, { ...counted, words: 'percent', share: true }],
  [4, { ...plain, words: 'median', ofValues: true, compute: medianOf }],
  [5, { ...plain, words: 'minimum', ofValues: true, compute: (s) => min(s.values) ?? null }],
  [6, { ...plain, words: 'maximum', ofValues: true, compute: (s) => max(s.values) ?? null }],
  [7, { ...plain, words: 'mean', ofValues: true, compute: meanOf, errorBar: true }],
  [10, { ...counted, words: 'count' }],
  [11, { ...counted, words: 'cumulative count', cumulative: true }],
  [12, { ...counted, words: 'cumulative percent', share: true, cumulative: true }],
  [22, { ...counted, words: 'percent', share: true }],
  [23, { ...counted, words: 'percent', share: true }],
]);

/** Percentages of which the markup does not say what they are of. */
export const vaguePercentages: ReadonlySet<number> = new Set([22, 23]);
