/** A smooth curve of where values are. */
import { describe, type Numbers, type Weighted } from './summary.js';
import { quantileSorted } from 'd3';

export interface Curve {
  at: number;
  density: number;
}

/** Silverman's rule. */
export function bandwidthOf(values: Numbers): number {
  const sorted = Float64Array.from(values).sort();
  const { deviation, count } = describe({ values: sorted, weights: null });
  const quartiles =
    (quantileSorted(Array.from(sorted), 0.75) ?? 0) - (quantileSorted(Array.from(sorted), 0.25) ?? 0);
  const spread = Math.min(deviation || Infinity, quartiles > 0 ? quartiles / 1.349 : Infinity);
  return Number.isFinite(spread) && spread > 0 ? 0.9 * spread * count ** -0.2 : 0;
}

/** The densities of a kernel of normal distributions at `steps` places; the area below the curve is 1. */
export function densityOf(sample: Weighted, steps = 200): Curve[] {
  const bandwidth = bandwidthOf(sample.values);
  if (!(bandwidth > 0)) return [];
  let low = Infinity;
  let high = -Infinity;
  for (let at = 0; at < sample.values.length; at += 1) {
    low = Math.min(low, sample.values[at]!);
    high = Math.max(high, sample.values[at]!);
  }
  low -= 3 * bandwidth;
  high += 3 * bandwidth;
  const width = (high - low) / (steps - 1);
  return smooth(gathered(sample, low, width, steps), low, width, bandwidth);
}

/** Values gathered at the places first, so that many of them cost no more than few. */
function gathered(sample: Weighted, low: number, width: number, steps: number): Float64Array {
  const shares = new Float64Array(steps);
  let total = 0;
  for (let at = 0; at < sample.values.length; at += 1) {
    const weight = sample.weights?.[at] ?? 1;
    const place = (sample.values[at]! - low) / width;
    const before = Math.min(steps - 2, Math.floor(place));
    shares[before]! += weight * (before + 1 - place);
    shares[before + 1]! += weight * (place - before);
    total += weight;
  }
  return shares.map((share) => share / total);
}

function smooth(shares: Float64Array, low: number, width: number, bandwidth: number): Curve[] {
  const kernel = (distance: number) =>
    Math.exp(-0.5 * (distance / bandwidth) ** 2) / (bandwidth * Math.sqrt(2 * Math.PI));
  return Array.from(shares, (_, at) => {
    let density = 0;
    shares.forEach((share, other) => (density += share * kernel((at - other) * width)));
    return { at: low + at * width, density };
  });
}
