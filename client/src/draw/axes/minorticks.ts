/** Ticks between the labelled ones, where these are too few to read values off: without labels, and shorter. */
import { utcTicks } from 'd3';
import type { Ticks } from '../../chart/model.js';
import type { DrawnScale } from '../compile/scales.js';
import type { Tick } from './ticks.js';

/** In pixels, of two that stand beside each other. */
const leastApart = 4;
const datesApart = 8;
/** So many labels tell enough of dates. */
const enoughDates = 5;

function apart(values: number[], scale: DrawnScale, length: number): number {
  const places = values.map((value) => scale.unit(value) * length).sort((a, b) => a - b);
  return places.reduce(
    (least, place, at) => (at === 0 ? least : Math.min(least, place - places[at - 1]!)),
    Infinity,
  );
}

/** All numbers of one digit between powers of ten, or 2 and 5, or the powers that have no tick. */
function betweenPowers(scale: DrawnScale, values: number[], length: number): number[] {
  const [low, high] = scale.domain;
  const exponents = values.map((value) => Math.log10(value));
  if (exponents.some((exponent) => Math.abs(exponent - Math.round(exponent)) > 1e-9)) return [];
  const first = Math.floor(Math.log10(low));
  const last = Math.ceil(Math.log10(high));
  const powers = Array.from({ length: last - first + 1 }, (_, at) => 10 ** (first + at));
  const every = values.length > 1 ? Math.round(exponents[1]! - exponents[0]!) : 1;
  const digits =
    every > 1
      ? [[1]]
      : [
          [2, 3, 4, 5, 6, 7, 8, 9],
          [2, 5],
        ];
  const choices = digits.map((factors) => powers.flatMap((power) => factors.map((factor) => factor * power)));
  const has = (value: number) => values.some((other) => Math.abs(value / other - 1) < 1e-9);
  const within = choices.map((some) => some.filter((value) => value >= low && value <= high && !has(value)));
  return within.find((some) => apart([...some, ...values], scale, length) >= leastApart) ?? [];
}

/** Round dates that come again between all of the labelled ones. */
function betweenDates(scale: DrawnScale, values: number[], length: number): number[] {
  const [low, high] = scale.domain.map((bound) => new Date(bound * 1000)) as [Date, Date];
  for (let times = 6; times > 1; times -= 1) {
    const finer = utcTicks(low, high, values.length * times).map((date) => date.getTime() / 1000);
    const regular = values.every((value) => finer.includes(value)) && finer.length > values.length;
    if (regular && finer.length <= values.length * 6 && apart(finer, scale, length) >= datesApart)
      return finer.filter((value) => !values.includes(value));
  }
  return [];
}

/** Ticks of a `delta` are those that the chart wants, and no others. */
export function minorTicks(
  scale: DrawnScale,
  ticks: Tick[],
  settings: Ticks | null,
  length: number,
): number[] {
  const values = ticks.map(({ value }) => value);
  if (values.length === 0 || settings?.delta) return [];
  if (scale.direction.kind === 'date')
    return values.length < enoughDates ? betweenDates(scale, values, length) : [];
  return scale.method === 'log' && scale.base === 10 ? betweenPowers(scale, values, length) : [];
}
