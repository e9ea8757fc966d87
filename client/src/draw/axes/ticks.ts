/** Ticks of axes, and how their labels find room. */
import { pixels } from '../../chart/markup.js';
import type { Ticks } from '../../chart/model.js';
import type { DrawnScale } from '../compile/scales.js';
import { lineHeight, shorten, textWidth, widest, wrap, type TextLook } from '../svg/text.js';

export interface Tick {
  value: number;
  text: string;
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
    angle === -90 ? tightHeight(look) - gapBetweenLabels : height * 1.2 - gapBetweenLabels,
  );
  return done(single(every), angle, false);
}

const mostLines = 3;

/** Smaller labels are hard to read, in pixels. */
export const leastLabelSize = 9;

/** What a line of labels beside each other takes; of the smallest ones not more than its letters. */
const tightHeight = (look: TextLook) => (look.size <= leastLabelSize ? look.size : lineHeight(look));

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
    const need = (_: string, at: number) => lines[at]!.length * tightHeight(look) - gapBetweenLabels + 2;
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

/** How many labels are there by the frequency that the chart asks for, of those that it has. */
export function askedLabels(ticks: Tick[], settings: Ticks | null): number {
  return Math.ceil(ticks.length / Math.max(1, Math.round(settings?.frequency ?? 1)));
}

/** The length of a tick in pixels. */
export function tickLength(settings: Ticks | null): number {
  return settings?.length ? Math.max(0, pixels(settings.length, 10)) : 5;
}
