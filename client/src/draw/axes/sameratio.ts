/** Charts in which a unit of x is as long as one of y. */
import { hasRoom, type TickRoom } from './fitting.js';
import type { Orientation } from '../compile/orientation.js';
import type { Axis } from '../../chart/model.js';
import { withFunctions, type DrawnScale } from '../compile/scales.js';
import type { Tick } from './ticks.js';
import { ticksOf, type TickWish } from './ticktexts.js';

export interface ScalePair {
  x: DrawnScale;
  y: DrawnScale;
}

interface Size {
  width: number;
  height: number;
}

/** So many times the data a scale may show; beyond that the panel is made smaller. */
const mostWidened = 1.5;

const spanOf = ({ domain: [low, high] }: DrawnScale) => high - low;

export function hasSameRatio({ x, y }: ScalePair, orientation: Orientation): boolean {
  const straight = (scale: DrawnScale) => scale.method === 'linear' && scale.direction.kind === 'number';
  return orientation.sameRatio && straight(x) && straight(y);
}

/** The largest size of that width by height within another one. */
export function sizeOfAspect({ width, height }: Size, aspect: number | null): Size {
  if (aspect === null || !(aspect > 0)) return { width, height };
  return width / height > aspect ? { width: height * aspect, height } : { width, height: width / aspect };
}

function filled({ x, y }: ScalePair, { width, height }: Size, transposed: boolean): Size {
  const [across, upright] = transposed ? [spanOf(y), spanOf(x)] : [spanOf(x), spanOf(y)];
  const perPixel = Math.max(across / width, upright / height);
  return {
    width: Math.min(width, (mostWidened * across) / perPixel),
    height: Math.min(height, (mostWidened * upright) / perPixel),
  };
}

/** The size of a panel in which equal units leave little of it without data: the shape that is wanted, or another. */
export function sizeOfSameRatio(scales: ScalePair, room: Size, wanted: Size, transposed: boolean): Size {
  const kept = filled(scales, wanted, transposed);
  const fits = kept.width === wanted.width && kept.height === wanted.height;
  return fits ? wanted : filled(scales, room, transposed);
}

/** Equal lengths of the units of x and y in a panel of that size: the scale that has room to spare is widened. */
export function equalUnits({ x, y }: ScalePair, { width, height }: Size, transposed: boolean): ScalePair {
  const [ofX, ofY] = transposed ? [height, width] : [width, height];
  const wanted = Math.max(spanOf(x) / ofX, spanOf(y) / ofY);
  const widened = (scale: DrawnScale, size: number) => {
    const middle = (scale.domain[0] + scale.domain[1]) / 2;
    const half = (wanted * size) / 2;
    return withFunctions({ ...scale, domain: [middle - half, middle + half] });
  };
  return { x: widened(x, ofX), y: widened(y, ofY) };
}

/** An axis of one of the directions, with the ticks that it would have by itself. */
export interface RatioAxis {
  axis: Axis;
  scale: DrawnScale;
  room: TickRoom;
  ticks: Tick[];
}

const fewTicks = 3;

const manyTicks = 12;

/** Round steps from the widest to the least of them. */
function stepsBetween(steps: number[]): number[] {
  const [least, widest] = [Math.min(...steps), Math.max(...steps)];
  if (!(least > 0) || !Number.isFinite(widest / least)) return [];
  const exponents = [Math.floor(Math.log10(least)), Math.ceil(Math.log10(widest))] as const;
  const powers = Array.from({ length: exponents[1] - exponents[0] + 1 }, (_, at) => exponents[1] - at);
  const round = powers.flatMap((exponent) =>
    [5, 2, 1].map((digit) => (exponent < 0 ? digit / 10 ** -exponent : digit * 10 ** exponent)),
  );
  return round.filter((step) => step >= least * 0.999 && step <= widest * 1.001);
}

const stepOf = ([first, second]: Tick[]) => (first && second ? Math.abs(second.value - first.value) : null);

/** Ticks of one step on all axes: the widest that leaves each of them some, if there is one. */
export function commonTicks(axes: RatioAxis[], wish: Omit<TickWish, 'wanted'>): Tick[][] {
  const own = axes.map(({ ticks }) => ticks);
  if (axes.some(({ axis }) => !axis.ticks || axis.ticks.delta || axis.ticks.base)) return own;
  const steps = own.map(stepOf).filter((step): step is number => step !== null);
  for (const delta of stepsBetween(steps)) {
    const made = axes.map(({ axis, scale }) =>
      ticksOf(scale, { ...axis.ticks!, delta }, { ...wish, wanted: fewTicks }),
    );
    const fits = axes.every(
      ({ axis, scale, room }, at) =>
        made[at]!.length >= fewTicks &&
        made[at]!.length <= manyTicks &&
        hasRoom(made[at]!, scale, axis.ticks, room),
    );
    if (fits) return made;
  }
  return own;
}
