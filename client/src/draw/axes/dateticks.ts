/** Ticks at dates: where they stand, and as much of the date as tells them apart. */
import {
  utcDay,
  utcFriday,
  utcMonday,
  utcMonth,
  utcSaturday,
  utcSunday,
  utcThursday,
  utcTicks,
  utcTuesday,
  utcWednesday,
  utcYear,
} from 'd3';
import { dateText } from '../../data/format.js';
import type { Tick } from './ticks.js';

const day = 86_400;

/** From one date to another, in seconds since 1970. */
export interface DateRange {
  low: number;
  high: number;
  /** 0 for Sunday. */
  weekBegins: number;
}

const inSeconds = (dates: Date[]) => dates.map((date) => date.getTime() / 1000);

/** By the day on which they begin. */
const weeks = [utcSunday, utcMonday, utcTuesday, utcWednesday, utcThursday, utcFriday, utcSaturday];

function roundDates({ low, high, weekBegins }: DateRange, wanted: number): number[] {
  const [first, last] = [new Date(low * 1000), new Date(high * 1000)];
  const starts = (unit: Pick<typeof utcDay, 'range' | 'ceil'>) =>
    inSeconds(unit.range(unit.ceil(first), new Date(+last + 1)));
  const months = (high - low) / Math.max(1, wanted) / (30.4 * day);
  // Between quarters and years are halves.
  if (months > 4.2 && months < 8.5) return starts(utcMonth.every(6)!);
  const values = inSeconds(utcTicks(first, last, wanted));
  const weekly = values.length > 1 && values.every((value, at) => value - values[0]! === at * 7 * day);
  return weekly ? starts(weeks[weekBegins] ?? utcMonday) : values;
}

const leastBetween = (values: number[]) =>
  values.reduce(
    (least, value, at) => (at === 0 ? least : Math.min(least, value - values[at - 1]!)),
    Infinity,
  );

/** Shows as much of a date as ticks of that distance need. */
function ownPattern(values: number[]): string {
  const least = leastBetween(values);
  if (least >= 360 * day) return 'yyyy';
  if (least >= 27 * day) return 'MMM yyyy';
  if (least >= day) return 'd MMM yyyy';
  return least >= 60 ? 'd MMM HH:mm' : 'HH:mm:ss';
}

/** The ticks at which the text of a date begins to be true, each text once. */
function trueTicks(values: number[], textOf: (value: number) => string): Tick[] {
  const texts = new Set<string>();
  return values.flatMap((value) => {
    const text = textOf(value);
    if (texts.has(text) || text === textOf(value - 1e-3)) return [];
    texts.add(text);
    return [{ value, text }];
  });
}

/** No finer than the texts tell them apart; empty where fewer than two are left. */
function toldApart(range: DateRange, wanted: number, textOf: (value: number) => string): Tick[] {
  const { low, high } = range;
  for (let fewer = Math.max(2, wanted); fewer > 0; fewer -= 1) {
    const values = roundDates(range, fewer);
    const ticks = trueTicks(values, textOf);
    if (ticks.length > 1 && ticks.length === values.length) return ticks;
  }
  for (const unit of [utcDay, utcMonth, utcYear]) {
    if ((high - low) / day > 1000 && unit !== utcYear) continue;
    const starts = inSeconds(unit.range(unit.ceil(new Date(low * 1000)), new Date(high * 1000 + 1)));
    const ticks = trueTicks(starts, textOf);
    if (ticks.length > 1 && ticks.length <= Math.max(2, wanted)) return ticks;
  }
  return [];
}

/** The pattern of the chart, with the time of the day where it tells days apart and ticks are closer than these. */
function finerPattern(pattern: string, values: number[], language: string): string {
  const [first = 0] = values;
  const least = leastBetween(values);
  const textOf = (value: number) => dateText(value, pattern, language);
  const days = least < day && [1, 40, 400].every((count) => textOf(first) !== textOf(first + count * day));
  if (!days || /[Hhms]/.test(pattern)) return ownPattern(values);
  return `${pattern} ${least < 60 ? 'HH:mm:ss' : 'HH:mm'}`;
}

/** About `wanted` of them. A pattern that is too coarse for two of them gives way. */
export function dateTicks(
  range: DateRange,
  wanted: number,
  pattern: string | null,
  language: string,
): Tick[] {
  const textBy = (text: string) => (value: number) => dateText(value, text, language);
  if (pattern !== null) {
    const ticks = toldApart(range, wanted, textBy(pattern));
    if (ticks.length > 1) return ticks;
  }
  const values = roundDates(range, Math.max(2, wanted));
  const finer = pattern === null ? ownPattern(values) : finerPattern(pattern, values, language);
  return values.map((value) => ({ value, text: textBy(finer)(value) }));
}

/** At the dates that the chart asks for, as far as their texts differ. */
export function dateTicksAt(values: number[], pattern: string | null, language: string): Tick[] {
  const texts = new Set<string>();
  return values.flatMap((value) => {
    const text = dateText(value, pattern ?? ownPattern(values), language);
    if (texts.has(text)) return [];
    texts.add(text);
    return [{ value, text }];
  });
}
