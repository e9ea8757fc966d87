/** The values at which ticks stand. */
import { tickIncrement, ticks as roundValues } from 'd3';
import type { Format } from '../../chart/model.js';
import { mostDecimals } from '../../data/format.js';

/** More would be no picture. */
export const mostTicks = 1_000;

export function steppedTicks(low: number, high: number, step: number, base: number): number[] {
  const first = Math.ceil((low - base) / step - 1e-9);
  const last = Math.min(first + mostTicks, Math.floor((high - base) / step + 1e-9));
  return Array.from({ length: Math.max(0, last - first + 1) }, (_, at) => base + (first + at) * step);
}

/** Round values; the bounds alone where they are too close for numbers between them. */
function linearTicks(low: number, high: number, wanted: number): number[] {
  const increment = tickIncrement(low, high, wanted);
  if (low === high || !Number.isFinite(increment) || increment === 0)
    return low === high ? [low] : [low, high];
  return roundValues(low, high, wanted);
}

/** Round steps from a base that is no multiple of them. */
export function basedTicks(values: number[], low: number, high: number, base: number): number[] {
  const step = values.length > 1 ? values[1]! - values[0]! : 0;
  const off = step > 0 ? base / step - Math.round(base / step) : 0;
  return Math.abs(off) < 1e-6 ? values : steppedTicks(low, high, step, base);
}

/** No finer than the decimals that numbers may have, as far as there is such a value at all. */
export function shownTicks(low: number, high: number, wanted: number, format: Format | null): number[] {
  const values = linearTicks(low, high, wanted);
  const most = mostDecimals(format);
  if (most === null || values.length < 2) return values;
  const finest = 10 ** -most;
  if (values[1]! - values[0]! >= finest * (1 - 1e-6)) return values;
  const coarser = steppedTicks(low / finest, high / finest, 1, 0).map((value) => value / 10 ** most);
  return isScale(coarser, low, high) ? coarser : values;
}

/** A value alone tells nothing of a scale, unless it is in the middle, as the only one of a column is. */
export function isScale(values: number[], low: number, high: number): boolean {
  const [first] = values;
  const middle = (low + high) / 2;
  return values.length > 1 || (first !== undefined && Math.abs(first - middle) <= (high - low) * 1e-6);
}

/** Where so many are left, exponents are multiples of the step between them, 0 among these. */
const enoughPowers = 5;

/** Powers of the base; numbers between them where the powers are few. */
export function logTicks(low: number, high: number, base: number, wanted: number): number[] {
  return powersWithin(low, high, base, wanted).filter((value) => value > 0 && Number.isFinite(value));
}

function powersWithin(low: number, high: number, base: number, wanted: number): number[] {
  const power = (exponent: number) => (exponent < 0 ? 1 / base ** -exponent : base ** exponent);
  const first = Math.ceil(Math.log(low) / Math.log(base) - 1e-9);
  const last = Math.floor(Math.log(high) / Math.log(base) + 1e-9);
  const every = Math.max(1, Math.ceil((last - first + 1) / Math.max(2, wanted)));
  const from = (exponent: number) =>
    Array.from({ length: Math.max(0, Math.floor((last - exponent) / every) + 1) }, (_, at) =>
      power(exponent + at * every),
    );
  const round = from(Math.ceil(first / every) * every);
  const powers = round.length >= enoughPowers ? round : from(first);
  if (powers.length >= 3) return powers;
  if (base === 10) {
    const between: number[] = [];
    for (let exponent = first - 1; exponent <= last; exponent += 1) {
      for (const factor of [1, 2, 5]) between.push(factor * power(exponent));
    }
    const shown = between.filter((value) => value >= low * 0.999999 && value <= high * 1.000001);
    if (shown.length >= 3) return shown;
  }
  return linearTicks(low, high, Math.max(3, Math.min(6, wanted)));
}
