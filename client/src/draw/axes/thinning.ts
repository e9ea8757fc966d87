/** Which labels of ticks stand where not all of them have room. */
import type { Ticks } from '../../chart/model.js';
import type { DrawnScale } from '../compile/scales.js';
import type { TextLook } from '../svg/text.js';
import type { Tick } from './ticks.js';

/** What the labels of an axis are, and how much room they have. */
export interface LabelRoom {
  ticks: Tick[];
  scale: DrawnScale;
  /** Of the axis, in pixels. */
  length: number;
  settings: Ticks | null;
  look: TextLook;
  /** No name takes more across the axis. */
  mostDepth: number;
  /** No name has more lines; three where it is left out. */
  mostLines?: number | undefined;
}

export const gapBetweenLabels = 8;

/** The chart wants every n-th label. */
export const frequencyOf = (settings: Ticks | null) => Math.max(1, Math.round(settings?.frequency ?? 1));

/** How many labels are there by the frequency that the chart asks for, of those that it has. */
export function askedLabels(ticks: Tick[], settings: Ticks | null): number {
  return Math.ceil(ticks.length / frequencyOf(settings));
}

/** Every n-th label from one of them on. */
interface Thinning {
  every: number;
  first: number;
}

/** Such steps between labels are easy to read on. */
const roundDigits = [1, 2, 3, 4, 5, 6];

const isRound = (step: number) => {
  const digit = step / 10 ** Math.floor(Math.log10(step) + 1e-9);
  return roundDigits.some((round) => Math.abs(digit - round) < 1e-6);
};

const isMultiple = (value: number, of: number) => Math.abs(value / of - Math.round(value / of)) < 1e-6;

/** Labels at multiples of a round step, where at least two of them are left; null of other axes. */
function roundThinning({ ticks, scale }: LabelRoom, needed: number): Thinning | null {
  const [first, second] = ticks;
  if (needed < 2 || scale.direction.kind !== 'number' || scale.method !== 'linear' || !second) return null;
  const step = second.value - first!.value;
  if (!ticks.every(({ value }) => isMultiple(value, step))) return null;
  for (let every = needed; every < ticks.length; every += 1) {
    const at = ticks.findIndex(({ value }) => isMultiple(value, every * step));
    if (isRound(every * step) && at >= 0 && at + every < ticks.length) return { every, first: at };
  }
  return null;
}

/** Every n-th label, so that those that stay have room; of those alone that the chart asks for. */
export function thinned(room: LabelRoom, lines: string[][], needed: number): string[][] {
  const frequency = frequencyOf(room.settings);
  const { every, first } = (frequency === 1 ? roundThinning(room, needed) : null) ?? {
    every: Math.ceil(needed / frequency) * frequency,
    first: 0,
  };
  return lines.map((each, at) => (at % every === first % every ? each : []));
}

/** The least n for which every n-th label has room beside the next. */
export function everyFor(
  { ticks, scale, length }: LabelRoom,
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
