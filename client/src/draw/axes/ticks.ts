/** Ticks of axes, and how far their labels reach. */
import { pixels } from '../../chart/markup.js';
import type { Ticks } from '../../chart/model.js';
import type { DrawnScale } from '../compile/scales.js';
import { lineHeight, widest, type TextLook } from '../svg/text.js';

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

/** The length of a tick in pixels. */
export function tickLength(settings: Ticks | null): number {
  return settings?.length ? Math.max(0, pixels(settings.length, 10)) : 5;
}
