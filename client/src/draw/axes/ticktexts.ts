/** Ticks of axes and ranges: where they stand, and what they say. */
import type { Format, Ticks } from '../../chart/model.js';
import {
  decimalsOf,
  mergeFormats,
  needExponents,
  numberText,
  powerText,
  readNumber,
  withGroups,
  withoutDecimals,
} from '../../data/format.js';
import { dateTicks, dateTicksAt } from './dateticks.js';
import { placeOf } from '../compile/directions.js';
import type { DrawnScale } from '../compile/scales.js';
import type { Tick } from './ticks.js';
import { basedTicks, isScale, logTicks, mostTicks, shownTicks, steppedTicks } from './tickvalues.js';

/** The least number of decimals that a variable has is that of its values, not of the ticks beside them. */
const withoutLeast = (format: Format | null): Format | null =>
  format && { ...format, minimumFractionDigits: null };

/** What an axis says of the texts at its ticks, over what its variables say. */
function tickFormat(ticks: Ticks | null, scale: DrawnScale): Format | null {
  return mergeFormats(ticks?.format, withoutLeast(scale.direction.format));
}

/** Names of categories, with what the axis itself puts before and behind its texts. */
function categoryTicks(scale: DrawnScale, format: Format | null | undefined): Tick[] {
  const named = (text: string) => format?.relabels.get(text) ?? text;
  const [before, behind] = [format?.prefix ?? '', format?.suffix ?? ''];
  return scale.direction.texts.map((text, value) => ({ value, text: before + named(text) + behind }));
}

/** Powers with more digits, or as many decimals, are written as such. */
const leastExponent = 5;

/** How far numbers are off by how they are stored, as are those between them. */
const roundOff = (values: number[]) =>
  values.reduce((most, value) => Math.max(most, Math.abs(value)), 0) * 1e-15;

/** How many decimals tell values apart that follow each other by one step; null of others. */
function decimalsOfStep(values: number[]): number | null {
  const step = values.length > 1 ? Math.abs(values[1]! - values[0]!) : 0;
  const slack = roundOff(values);
  const even = values.every(
    (value, at) => at === 0 || Math.abs(value - values[at - 1]! - step) < step * 1e-6 + slack,
  );
  if (!even || step === 0) return null;
  const ofStep = decimalsOf(step, 15, slack);
  // A base may be finer than the step; three digits tell its ticks apart from the values beside them.
  return Math.max(ofStep, decimalsOf(values[0]!, Math.min(15, ofStep + 3)));
}

const decimalsBetween = (values: number[]) =>
  decimalsOfStep(values) ?? Math.max(0, ...values.map((value) => decimalsOf(value, 15)));

/** The ticks whose texts are those of their values, each text once. */
function trueTicks(values: number[], format: Format | null, language: string): Tick[] {
  const common = decimalsOfStep(values);
  const exponents = needExponents(values, format);
  const texts = new Set<string>();
  return values.flatMap((value, at) => {
    const relabelled = format?.relabels.get(String(value));
    // Those of a logarithmic scale have their own, for 100.00 would promise more than is there.
    const decimals = common ?? decimalsOf(value, 15);
    const text =
      relabelled ??
      (exponents && value === 0 ? '0' : numberText(value, format, language, decimals, exponents));
    const near = values[at === 0 ? 1 : at - 1];
    const tolerance = near === undefined ? Math.abs(value) * 1e-9 : Math.abs(value - near) * 1e-3;
    const read = Math.abs(readNumber(value, format, decimals, exponents) - value) <= tolerance;
    if (texts.has(text) || !(relabelled !== undefined || read)) return [];
    texts.add(text);
    return [{ value, text }];
  });
}

/** The exponents of powers of a whole base, where any of them has too many digits; null of other numbers. */
function powersOf(values: number[], base: number, format: Format | null): number[] | null {
  if (!Number.isInteger(base)) return null;
  if (format?.pattern || format?.grouping === true || (format?.relabels.size ?? 0) > 0) return null;
  const exponents = values.map((value) => Math.round(Math.log(value) / Math.log(base)));
  const exact = values.every((value, at) => Math.abs(value / base ** exponents[at]! - 1) < 1e-9);
  const many = values.some((value) => value >= 10 ** leastExponent || decimalsOf(value, 15) >= leastExponent);
  return exact && many ? exponents : null;
}

/** A format whose decimals are too few for any of the values gives way. */
function numberTicks(
  values: number[],
  own: Format | null,
  language: string,
  [low, high]: [number, number],
): Tick[] {
  const format = withGroups(own, values);
  const ticks = trueTicks(values, format, language);
  const shown = ticks.map(({ value }) => value);
  if (ticks.length === values.length || !format || isScale(shown, low, high)) return ticks;
  return trueTicks(values, withoutDecimals(format, decimalsBetween(values)), language);
}

/** Numbers with true texts between two bounds. */
export function ticksBetween(
  low: number,
  high: number,
  wanted: number,
  valueFormat: Format | null,
  language: string,
): Tick[] {
  const format = withoutLeast(valueFormat);
  return numberTicks(shownTicks(low, high, wanted, format), format, language, [low, high]);
}

/** The value at which there is a tick: one of the data, or a share of the axis. Null where the chart names none. */
export function baseOf(
  settings: Ticks | null,
  { direction, domain: [low, high] }: DrawnScale,
): number | null {
  const text = settings?.base?.trim() ?? '';
  const [, number = text, unit = ''] = /^(.*?)\s*(%|px|pt|mm|cm|in)$/.exec(text) ?? [];
  const share = Number(number) / 100;
  if (unit === '%') return Number.isNaN(share) ? null : low + share * (high - low);
  return placeOf(direction, number);
}

/** What ticks are wanted. */
export interface TickWish {
  /** So many labels at most. */
  wanted: number;
  /** Of counts, which have nothing between them. */
  whole: boolean;
  language: string;
}

function numberValues(scale: DrawnScale, settings: Ticks | null, wish: TickWish): number[] {
  const [low, high] = scale.domain;
  const format = tickFormat(settings, scale);
  const base = baseOf(settings, scale) ?? 0;
  const delta = settings?.delta;
  if (delta && delta > 0 && (high - low) / delta <= mostTicks) return steppedTicks(low, high, delta, base);
  if (scale.method === 'log') return logTicks(low, high, scale.base, wish.wanted);
  const values = shownTicks(low, high, wish.wanted, format);
  return wish.whole ? values : basedTicks(values, low, high, base);
}

/** All ticks for `wanted` labels at most; the text of a date is by the chart's pattern. */
export function ticksOf(scale: DrawnScale, settings: Ticks | null, wish: TickWish): Tick[] {
  const format = tickFormat(settings, scale);
  const { direction, domain } = scale;
  if (direction.kind === 'category') return categoryTicks(scale, settings?.format);
  if (direction.kind === 'date') {
    const delta = settings?.delta;
    const base = baseOf(settings, scale);
    const pattern = format?.pattern ?? null;
    const [low, high] = domain;
    const range = { low, high, weekBegins: direction.weekBegins };
    return delta && delta > 0 && (high - low) / delta <= mostTicks
      ? dateTicksAt(steppedTicks(...domain, delta, base ?? domain[0]), pattern, wish.language)
      : dateTicks(range, wish.wanted, pattern, wish.language);
  }
  const values = numberValues(scale, settings, wish);
  const shown = wish.whole ? values.filter(Number.isInteger) : values;
  const { method, base } = scale;
  const powers = method === 'log' ? powersOf(shown, base, format) : null;
  if (powers) return shown.map((value, at) => ({ value, text: powerText(base, powers[at]!, format) }));
  return numberTicks(shown, format, wish.language, domain);
}
