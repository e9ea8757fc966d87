/** Tick labels of panels that stand beside each other: they keep apart, and never leave their ticks. */
import type { DrawnScale } from '../compile/scales.js';
import { lineHeight, widest, type TextLook } from '../svg/text.js';
import type { TickLayout } from './ticks.js';

/** How the panels follow each other along an axis. */
export interface Neighbours {
  count: number;
  /** Between two of them, in pixels. */
  gap: number;
  /** Every second one runs the other way, the first one among them. */
  mirrored: boolean;
  /** The other way round: all of them run so, or of mirrored ones the second. */
  turned: boolean;
}

/** The least distance of the labels of two panels. */
const gapBetweenLabels = 8;

/** Panels that close together share their edge. */
const touching = 2;

/** Labels of one panel in its row. */
export interface PanelLabels {
  /** Of each tick; an empty list shows the tick alone. */
  lines: string[][];
  /** How many labels of the layout are in no panel at all. */
  lost: number;
}

interface Reach {
  at: number;
  /** Beyond the low and the high end of the panel. */
  low: number;
  high: number;
  /** A 0, without which bars would have no value at which they begin. */
  zero: boolean;
}

/** Half of what a label takes along its axis. Turned ones stand side by side as lines of a text do. */
function halfOf(lines: string[], angle: number, upright: boolean, look: TextLook): number {
  if (upright) return ((lines.length - 1) * lineHeight(look)) / 2 + look.size * 0.36;
  const width = widest(lines, look);
  if (angle === 0) return width / 2;
  const radians = (Math.abs(angle) * Math.PI) / 180;
  const [across, along] = [Math.abs(Math.sin(radians)), Math.abs(Math.cos(radians))];
  return Math.min(look.size / across / 2, along * width + across * look.size);
}

function reachesOf(
  layout: TickLayout,
  scale: DrawnScale,
  length: number,
  upright: boolean,
  look: TextLook,
  turned: boolean,
): Reach[] {
  return layout.lines.flatMap((lines, at) => {
    if (lines.length === 0) return [];
    const { value } = layout.ticks[at]!;
    const place = scale.unit(value) * length;
    const half = halfOf(lines, layout.angle, upright, look);
    const [low, high] = [half - place, place + half - length];
    const zero = value === 0 && scale.direction.kind === 'number';
    return [turned ? { at, low: high, high: low, zero } : { at, low, high, zero }];
  });
}

const most = (reaches: Reach[], end: 'low' | 'high') =>
  reaches.reduce((farthest, each) => (each[end] > farthest[end] ? each : farthest));

/** The labels that stand in every panel; a 0 among them, unless it would be alone then. */
function roomy(reaches: Reach[], neighbours: Neighbours): Reach[] {
  const shown = remaining(reaches, neighbours, ({ zero }) => zero);
  return shown.length > 1 ? shown : remaining(reaches, neighbours, () => false);
}

/** Those that reach farthest are left out until the rest has room. */
function remaining(
  reaches: Reach[],
  { gap, mirrored, count }: Neighbours,
  isKept: (reach: Reach) => boolean,
): Reach[] {
  let shown = reaches;
  while (shown.length > 1) {
    const low = most(shown, 'low');
    const high = most(shown, 'high');
    const room = gap - gapBetweenLabels;
    if (!mirrored) {
      if (low.low + high.high <= room) break;
      const out = !isKept(low) && (isKept(high) || low.low > high.high + 1e-6) ? low : high;
      shown = shown.filter((each) => each !== out);
      continue;
    }
    // The same ends of two panels meet; a label at an edge that they share is written once.
    const meets = (reach: number) => 2 * reach > room;
    const out = [low, ...(count > 2 ? [high] : [])].find((each, at) =>
      meets(at === 0 ? each.low : each.high),
    );
    if (!out) break;
    shown = shown.filter((each) => each !== out);
  }
  return shown;
}

/** The labels of the panel at `index`, counted from the low end of their row. */
export function labelsBeside(
  layout: TickLayout,
  scale: DrawnScale,
  length: number,
  upright: boolean,
  look: TextLook,
  neighbours: Neighbours,
): (index: number) => PanelLabels {
  const { count, gap, mirrored } = neighbours;
  const all = reachesOf(layout, scale, length, upright, look, neighbours.turned);
  const shared = mirrored && gap <= touching;
  const standsAt = (reach: Reach, end: 'low' | 'high') =>
    Math.abs(reach[end] - halfOf(layout.lines[reach.at]!, layout.angle, upright, look)) < 1;
  const atEdge = (reach: Reach) => standsAt(reach, 'low') || (count > 2 && standsAt(reach, 'high'));
  const common = count < 2 ? all : roomy(shared ? all.filter((each) => !atEdge(each)) : all, neighbours);
  const onEdge = shared && count > 1 ? all.filter(atEdge) : [];
  const dropped = all.filter((each) => !common.includes(each) && !onEdge.includes(each));
  const restored = !mirrored && gap <= touching && count > 1 ? dropped : [];
  const first = restored.filter((each) => each.low > each.high);
  const last = restored.filter((each) => each.low <= each.high);
  // Where not even one label has room beside that of the next panel, panels are left out.
  const [only] = common.length === 1 ? common : [];
  const width = only ? only.low + only.high + length + gapBetweenLabels : 0;
  const every = count > 1 ? Math.max(1, Math.ceil(width / (length + gap))) : 1;
  return (index) => {
    const own = [
      ...(index % every === 0 ? common : []),
      ...(index === 0 ? first : []),
      ...(index === count - 1 ? last : []),
      ...(index % 2 === 0 ? onEdge : onEdge.filter((each) => index === count - 1 && standsAt(each, 'high'))),
    ];
    const kept = new Set(own.map(({ at }) => at));
    return {
      lines: layout.lines.map((lines, at) => (kept.has(at) ? lines : [])),
      lost: dropped.length - restored.length,
    };
  };
}
