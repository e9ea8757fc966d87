/** The figures of a box plot. */
import { median } from 'd3';
import type { Numbers } from './summary.js';

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

/** Null without values. Missing ones must be out of the sample. */
export function boxOf(values: Numbers): Box | null {
  if (values.length === 0) return null;
  const sorted = Float64Array.from(values).sort();
  const [lowerHinge, upperHinge] = hinges(sorted);
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
  return { lowerHinge, median: median(sorted) ?? NaN, upperHinge, lowest, highest, outliers, extremes };
}
