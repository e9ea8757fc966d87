/** Ticks of axes: where they stand, what they say, and how their labels find room. */
import { tickIncrement, ticks as roundValues, utcTicks } from 'd3';
import { pixels } from '../chart/markup.js';
import type { Format, Ticks } from '../chart/model.js';
import {
  dateText,
  decimalsOf,
  mergeFormats,
  mostDecimals,
  numberText,
  readNumber,
  withGroups,
  withoutDecimals,
} from '../data/format.js';
import { placeOf } from './directions.js';
import type { DrawnScale } from './scales.js';
import { lineHeight, shorten, textWidth, widest, wrap, type TextLook } from './text.js';

export interface Tick {
  value: number;
  text: string;
}

/** More would be no picture. */
export const mostTicks = 1_000;

function steppedTicks(low: number, high: number, step: number, base: number): number[] {
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
function basedTicks(values: number[], low: number, high: number, base: number): number[] {
  const step = values.length > 1 ? values[1]! - values[0]! : 0;
  const off = step > 0 ? base / step - Math.round(base / step) : 0;
  return Math.abs(off) < 1e-6 ? values : steppedTicks(low, high, step, base);
}

/** No finer than the decimals that numbers may have, as far as there is such a value at all. */
function shownTicks(low: number, high: number, wanted: number, format: Format | null): number[] {
  const values = linearTicks(low, high, wanted);
  const most = mostDecimals(format);
  if (most === null || values.length < 2) return values;
  const finest = 10 ** -most;
  if (values[1]! - values[0]! >= finest * (1 - 1e-6)) return values;
  const coarser = steppedTicks(low / finest, high / finest, 1, 0).map((value) => value / 10 ** most);
  return isScale(coarser, low, high) ? coarser : values;
}

/** A value alone tells nothing of a scale, unless it is in the middle, as the only one of a column is. */
function isScale(values: number[], low: number, high: number): boolean {
  const [first] = values;
  const middle = (low + high) / 2;
  return values.length > 1 || (first !== undefined && Math.abs(first - middle) <= (high - low) * 1e-6);
}

/** Powers of the base; numbers between them where the powers are few. */
function logTicks(low: number, high: number, base: number, wanted: number): number[] {
  const power = (exponent: number) => (exponent < 0 ? 1 / base ** -exponent : base ** exponent);
  const first = Math.ceil(Math.log(low) / Math.log(base) - 1e-9);
  const last = Math.floor(Math.log(high) / Math.log(base) + 1e-9);
  const every = Math.max(1, Math.ceil((last - first + 1) / Math.max(2, wanted)));
  const powers: number[] = [];
  for (let exponent = first; exponent <= last; exponent += every) powers.push(power(exponent));
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

function dateTicks(low: number, high: number, wanted: number): number[] {
  const dates = utcTicks(new Date(low * 1000), new Date(high * 1000), Math.max(2, wanted));
  return dates.map((date) => date.getTime() / 1000);
}

/** Shows as much of a date as ticks of that distance need. */
function datePattern(values: number[]): string {
  const least = values.reduce(
    (step, value, at) => (at === 0 ? step : Math.min(step, value - values[at - 1]!)),
    Infinity,
  );
  const day = 86_400;
  if (least >= 360 * day) return 'yyyy';
  if (least >= 27 * day) return 'MMM yyyy';
  if (least >= day) return 'd MMM yyyy';
  return least >= 60 ? 'd MMM HH:mm' : 'HH:mm:ss';
}

/** What an axis says of the texts at its ticks, over what its variables say. */
export function tickFormat(ticks: Ticks | null, scale: DrawnScale): Format | null {
  return mergeFormats(ticks?.format, scale.direction.format);
}

function categoryTicks(scale: DrawnScale): Tick[] {
  return scale.direction.texts.map((text, value) => ({ value, text }));
}

function decimalsBetween(values: number[]): number {
  const step = values.length > 1 ? Math.abs(values[1]! - values[0]!) : 0;
  const even = values.every(
    (value, at) => at === 0 || Math.abs(value - values[at - 1]! - step) < step * 1e-6,
  );
  if (even && step > 0) {
    const ofStep = decimalsOf(step, 15);
    // A base may be finer than the step; three digits tell its ticks apart from the values beside them.
    return Math.max(ofStep, decimalsOf(values[0]!, Math.min(15, ofStep + 3)));
  }
  return Math.max(0, ...values.map((value) => decimalsOf(value, 15)));
}

/** The ticks whose texts are those of their values, each text once. */
function trueTicks(values: number[], format: Format | null, language: string): Tick[] {
  const decimals = decimalsBetween(values);
  const texts = new Set<string>();
  return values.flatMap((value, at) => {
    const relabelled = format?.relabels.get(String(value));
    const text = relabelled ?? numberText(value, format, language, decimals);
    const near = values[at === 0 ? 1 : at - 1];
    const tolerance = near === undefined ? Math.abs(value) * 1e-9 : Math.abs(value - near) * 1e-3;
    const read = Math.abs(readNumber(value, format, decimals) - value) <= tolerance;
    if (texts.has(text) || !(relabelled !== undefined || read)) return [];
    texts.add(text);
    return [{ value, text }];
  });
}

/** From here on digits stand in groups: four of them are read as they are. */
const leastGrouped = 10_000;

/** A format whose decimals are too few for any of the values gives way. */
function numberTicks(
  values: number[],
  own: Format | null,
  language: string,
  [low, high]: [number, number],
): Tick[] {
  const format = values.some((value) => Math.abs(value) >= leastGrouped) ? withGroups(own) : own;
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
  format: Format | null,
  language: string,
): Tick[] {
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

/** All ticks for `wanted` labels at most; the text of a date is by the chart's pattern. */
export function ticksOf(scale: DrawnScale, settings: Ticks | null, wanted: number, language: string): Tick[] {
  const format = tickFormat(settings, scale);
  const [low, high] = scale.domain;
  if (scale.direction.kind === 'category') return categoryTicks(scale);
  const base = baseOf(settings, scale);
  const delta = settings?.delta;
  if (scale.direction.kind === 'date') {
    const values =
      delta && delta > 0 ? steppedTicks(low, high, delta, base ?? low) : dateTicks(low, high, wanted);
    const pattern = format?.pattern ?? datePattern(values);
    return values.map((value) => ({ value, text: dateText(value, pattern, language) }));
  }
  const stepped = delta && delta > 0 && (high - low) / delta <= mostTicks;
  const values = stepped
    ? steppedTicks(low, high, delta, base ?? 0)
    : scale.method === 'log'
      ? logTicks(low, high, scale.base, wanted)
      : basedTicks(shownTicks(low, high, Math.max(2, wanted), format), low, high, base ?? 0);
  return numberTicks(values, format, language, [low, high]);
}

/** Counts are whole: no ticks between them. */
export function wholeOnly(ticks: Tick[]): Tick[] {
  return ticks.filter(({ value }) => Number.isInteger(value));
}

/** How labels stand below an axis. */
export interface TickLayout {
  ticks: Tick[];
  /** Lines of each label; an empty list shows the tick alone. */
  lines: string[][];
  /** In degrees, clockwise is positive. */
  angle: number;
  /** Every second label stands a line lower. */
  stagger: boolean;
  /** The room across the axis that the labels take, in pixels. */
  depth: number;
}

const gapBetweenLabels = 8;

function depthOf(lines: string[][], angle: number, look: TextLook, stagger: boolean): number {
  const height = Math.max(1, ...lines.map((each) => each.length)) * lineHeight(look);
  const width = widest(lines.flat(), look);
  const radians = (Math.abs(angle) * Math.PI) / 180;
  const across = Math.sin(radians) * width + Math.cos(radians) * height;
  return across + (stagger ? height : 0);
}

/** Every n-th label, so that those that stay have room; of those alone that the chart asks for. */
function thinned(lines: string[][], needed: number, frequency: number): string[][] {
  const every = Math.ceil(needed / frequency) * frequency;
  return lines.map((each, at) => (at % every === 0 ? each : []));
}

/** The least n for which every n-th label has room beside the next. */
function everyFor(
  ticks: Tick[],
  scale: DrawnScale,
  length: number,
  need: (text: string, at: number) => number,
): number {
  const places = ticks.map((tick) => scale.unit(tick.value) * length);
  const fits = (every: number) => {
    let previous = -Infinity;
    for (let at = 0; at < ticks.length; at += every) {
      const half = need(ticks[at]!.text, at) / 2;
      const before = Math.max(0, at - every);
      const distance = Math.abs(places[at]! - previous);
      const wanted = half + need(ticks[before]!.text, before) / 2 + gapBetweenLabels;
      if (Number.isFinite(previous) && distance < wanted) return false;
      previous = places[at]!;
    }
    return true;
  };
  let every = 1;
  while (every < ticks.length && !fits(every)) every += 1;
  return every;
}

/** Whether all labels have room side by side. */
function fitsAcross(ticks: Tick[], scale: DrawnScale, length: number, look: TextLook): boolean {
  return everyFor(ticks, scale, length, (text) => textWidth(text, look)) <= 1;
}

/** How far a label reaches to the left and right of its tick, below or above its axis. */
function reachOf(lines: string[], angle: number, below: boolean, look: TextLook) {
  const width = widest(lines, look);
  if (width === 0) return { left: 0, right: 0 };
  if (angle === 0) return { left: width / 2, right: width / 2 };
  const radians = (Math.abs(angle) * Math.PI) / 180;
  const along = Math.cos(radians) * width;
  const across = (Math.sin(radians) * lineHeight(look)) / 2;
  // Turned labels end at their ticks, or begin there.
  const ends = angle < 0 === below;
  const [left, right] = ends ? [along, -along] : [-along, along];
  return { left: Math.max(0, left) + across, right: Math.max(0, right) + across };
}

/** How far labels reach beyond both ends of their axis. */
export function reachBeyond(
  layout: TickLayout,
  scale: DrawnScale,
  length: number,
  below: boolean,
  look: TextLook,
): { left: number; right: number } {
  const most = { left: 0, right: 0 };
  layout.lines.forEach((lines, at) => {
    if (lines.length === 0) return;
    const place = scale.unit(layout.ticks[at]!.value) * length;
    const { left, right } = reachOf(lines, layout.angle, below, look);
    most.left = Math.max(most.left, left - place);
    most.right = Math.max(most.right, place + right - length);
  });
  return most;
}

/** Labels along the bottom or top: side by side, in lines, turned, or fewer of them, whichever comes first. */
export function layoutAcross(
  ticks: Tick[],
  scale: DrawnScale,
  length: number,
  settings: Ticks | null,
  look: TextLook,
  mostWidth: number,
): TickLayout {
  const frequency = Math.max(1, Math.round(settings?.frequency ?? 1));
  const whole = ticks.map((tick) => [tick.text]);
  const single = (needed: number) => thinned(whole, needed, frequency);
  const done = (texts: string[][], angle: number, stagger: boolean): TickLayout => {
    // Turned names leave most of the page to the data.
    const shortened = angle !== 0 && scale.direction.kind === 'category';
    const lines = shortened ? texts.map((each) => each.map((text) => shorten(text, mostWidth, look))) : texts;
    return { ticks, lines, angle, stagger, depth: depthOf(lines, angle, look, stagger) };
  };
  const stagger = settings?.stagger ?? false;
  const height = lineHeight(look);
  const asked = settings?.angle ?? 0;
  if (asked % 180 !== 0) {
    const radians = (Math.abs(asked) * Math.PI) / 180;
    const [sine, cosine] = [Math.abs(Math.sin(radians)), Math.abs(Math.cos(radians))];
    // Lines of a text beside each other, or short texts one behind the other.
    const every = everyFor(ticks, scale, length, (text) =>
      Math.min(height / sine, cosine * textWidth(text, look) + sine * height),
    );
    return done(single(every), asked, stagger);
  }
  const needed = everyFor(ticks, scale, length * (stagger ? 2 : 1), (text) => textWidth(text, look));
  if (needed <= frequency || scale.direction.kind !== 'category') return done(single(needed), 0, stagger);
  const [first = 0, second = first + 1] = ticks.map((tick) => scale.unit(tick.value) * length);
  const room = Math.abs(second - first) - gapBetweenLabels;
  const wrapped = ticks.map((tick) => wrap(tick.text, Math.max(room, 1), look));
  const fits = ticks.every((tick) => tick.text.split(/\s+/).every((word) => textWidth(word, look) <= room));
  if (fits && wrapped.every((lines) => lines.length <= 3)) return done(wrapped, 0, false);
  const angle = room + gapBetweenLabels >= height * 1.5 ? -45 : -90;
  const every = everyFor(ticks, scale, length, () =>
    angle === -90 ? height - gapBetweenLabels : height * 1.2 - gapBetweenLabels,
  );
  return done(single(every), angle, false);
}

const mostLines = 3;

/** Names may be shortened, numbers never. */
function inLines(text: string, most: number, width: number, look: TextLook): string[] {
  const lines = wrap(text, width, look);
  if (lines.length <= most) return lines;
  const rest = lines.slice(most - 1).join(' ');
  return [...lines.slice(0, most - 1), shorten(rest, width, look)];
}

/** Labels beside an upright axis. */
export function layoutUpright(
  ticks: Tick[],
  scale: DrawnScale,
  length: number,
  settings: Ticks | null,
  look: TextLook,
  mostWidth: number,
): TickLayout {
  const frequency = Math.max(1, Math.round(settings?.frequency ?? 1));
  const height = lineHeight(look);
  const named = scale.direction.kind === 'category';
  const arranged = (most: number) => {
    const lines = ticks.map(({ text }) => (named ? inLines(text, most, mostWidth, look) : [text]));
    const need = (_: string, at: number) => lines[at]!.length * height - gapBetweenLabels + 2;
    return { lines, every: everyFor(ticks, scale, length, need) };
  };
  let most = named ? mostLines : 1;
  let { lines, every } = arranged(most);
  // A shortened name tells more than one that is not there.
  while (every > frequency && most > 1) ({ lines, every } = arranged((most -= 1)));
  const tallest = Math.max(1, ...lines.map((each) => each.length)) * height;
  const angle = settings?.angle ?? 0;
  const radians = (Math.abs(angle) * Math.PI) / 180;
  const depth =
    Math.abs(Math.cos(radians)) * widest(lines.flat(), look) + Math.abs(Math.sin(radians)) * tallest;
  return { ticks, lines: thinned(lines, every, frequency), angle, stagger: false, depth };
}

/** How many labels have room along an axis of numbers or dates. */
function wantedTicks(
  scale: DrawnScale,
  settings: Ticks | null,
  length: number,
  upright: boolean,
  look: TextLook,
  language: string,
): number {
  if (upright) return Math.max(2, Math.min(9, Math.round(length / (lineHeight(look) * 2.6))));
  const sample = ticksOf(scale, settings, 5, language).map((tick) => tick.text);
  const least = scale.direction.kind === 'date' ? 20 : 40;
  return Math.max(2, Math.min(10, Math.floor(length / (widest(sample, look) + least))));
}

/** So many are wanted at least: fewer tell little of a scale. */
const fewTicks = 3;
/** More are no easier to read. */
const manyTicks = 12;

/** As many ticks as have room with their labels: fewer ticks are better than ticks of which some have no label. */
export function fittingTicks(
  scale: DrawnScale,
  settings: Ticks | null,
  length: number,
  upright: boolean,
  look: TextLook,
  language: string,
): Tick[] {
  const make = (wanted: number) => ticksOf(scale, settings, wanted, language);
  let wanted = wantedTicks(scale, settings, length, upright, look, language);
  let ticks = make(wanted);
  if (scale.direction.kind === 'category' || settings?.delta) return ticks;
  const fits = (some: Tick[]) => upright || fitsAcross(some, scale, length, look);
  while (wanted > 2 && (ticks.length > manyTicks || !fits(ticks))) ticks = make((wanted -= 1));
  for (let more = wanted + 1; ticks.length < fewTicks && more <= wanted + fewTicks; more += 1) {
    const finer = make(more);
    if (finer.length > ticks.length && fits(finer)) ticks = finer;
  }
  return ticks;
}

/** How many labels are there by the frequency that the chart asks for, of those that it has. */
export function askedLabels(ticks: Tick[], settings: Ticks | null): number {
  return Math.ceil(ticks.length / Math.max(1, Math.round(settings?.frequency ?? 1)));
}

/** The length of a tick in pixels. */
export function tickLength(settings: Ticks | null): number {
  return settings?.length ? Math.max(0, pixels(settings.length, 10)) : 5;
}
