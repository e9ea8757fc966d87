/** How many ticks an axis has: as many as have room with their labels. */
import type { Ticks } from '../../chart/model.js';
import { labelsBeside, type Neighbours } from './neighbours.js';
import type { DrawnScale } from '../compile/scales.js';
import { lineHeight, widest, type TextLook } from '../svg/text.js';
import { askedLabels } from './thinning.js';
import { layoutAcross, layoutUpright } from './ticklabels.js';
import type { Tick } from './ticks.js';
import { ticksOf, type TickWish } from './ticktexts.js';

/** The room along an axis. */
export interface TickRoom {
  /** Of one panel, in pixels. */
  length: number;
  upright: boolean;
  look: TextLook;
  neighbours: Neighbours;
}

const mostUpright = 9;
const mostAcross = 10;
/** Between labels of numbers, in pixels; between those of panels and of dates, which are long, it is less. */
const usualSpare = 40;
const littleSpare = 20;

/** How many labels have room along an axis of numbers or dates. */
function wantedTicks(
  scale: DrawnScale,
  settings: Ticks | null,
  room: TickRoom,
  wish: Omit<TickWish, 'wanted'>,
): number {
  const { length, upright, look, neighbours } = room;
  if (upright) return Math.max(2, Math.min(mostUpright, Math.round(length / (lineHeight(look) * 2.6))));
  const sample = ticksOf(scale, settings, { ...wish, wanted: 5 }).map((tick) => tick.text);
  const little = scale.direction.kind === 'date' || neighbours.count > 1;
  const each = widest(sample, look) + (little ? littleSpare : usualSpare);
  return Math.max(2, Math.min(mostAcross, Math.floor(length / each)));
}

/** How many of the labels have room on the axis of one panel, and how many of these beside the next panels. */
function labelled(ticks: Tick[], scale: DrawnScale, settings: Ticks | null, room: TickRoom) {
  const { length, upright, look, neighbours } = room;
  const layoutOf = upright ? layoutUpright : layoutAcross;
  const layout = layoutOf({ ticks, scale, length, settings, look, mostDepth: length });
  const count = (lines: string[][]) => lines.filter((each) => each.length > 0).length;
  const labels = labelsBeside(layout, scale, length, upright, look, neighbours);
  // The label at an edge that two panels share stands at one of them.
  const beside = Math.max(...[0, 1].map((index) => count(labels(index).lines)));
  return { alone: count(layout.lines), beside };
}

interface Made {
  ticks: Tick[];
  labels: number;
  /** Whether they are not too many, and all of the labels have room. */
  fits: boolean;
}

/** Whether all labels of the ticks have room. */
export function hasRoom(ticks: Tick[], scale: DrawnScale, settings: Ticks | null, room: TickRoom): boolean {
  return labelled(ticks, scale, settings, room).alone >= askedLabels(ticks, settings);
}

/** So many are wanted at least: fewer tell little of a scale. */
const fewLabels = 3;

/** As many ticks as have room with their labels: fewer ticks are better than ticks of which some have no label. */
export function fittingTicks(
  scale: DrawnScale,
  settings: Ticks | null,
  room: TickRoom,
  wish: Omit<TickWish, 'wanted'>,
): Tick[] {
  const most = room.upright ? mostUpright : mostAcross;
  const make = (count: number): Made => {
    const ticks = ticksOf(scale, settings, { ...wish, wanted: count });
    const { alone, beside } = labelled(ticks, scale, settings, room);
    return { ticks, labels: beside, fits: ticks.length <= most && alone >= askedLabels(ticks, settings) };
  };
  let wanted = wantedTicks(scale, settings, room, wish);
  let made = make(wanted);
  if (scale.direction.kind === 'category' || settings?.delta) return made.ticks;
  while (wanted > 2 && !made.fits) made = make((wanted -= 1));
  if (made.labels >= fewLabels) return made.ticks;
  const finer = Array.from({ length: Math.max(0, mostAcross - wanted) }, (_, at) => make(wanted + 1 + at));
  const fitting = [made, ...finer].filter(({ fits }) => fits);
  const largest = (some: Made[]) =>
    some.reduce((best, each) => (each.labels > best.labels ? each : best), made);
  const best = fitting.find(({ labels }) => labels >= fewLabels) ?? largest(fitting);
  // One label tells nothing of a scale: rather ticks of which some have none.
  const thinned = best.labels >= 2 ? best : finer.find(({ labels }) => labels >= 2);
  return (thinned ?? best).ticks;
}
