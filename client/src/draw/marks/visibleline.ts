/** What of a line is to be seen in its panel. */
import type { Layer, Shape } from '../compile/layers.js';
import type { Canvas } from './canvas.js';

/** In pixels, from the left and from below. */
export type Spot = [number, number];

/** A panel as far as places in it depend on it. */
export type Extent = Pick<Canvas, 'x' | 'y' | 'transposed' | 'width' | 'height'>;

export function spotOf({ x, y }: Pick<Shape, 'x' | 'y'>, canvas: Extent): Spot {
  const [ux, uy] = [canvas.x.unit(x), canvas.y.unit(y)];
  return canvas.transposed
    ? [uy * canvas.width, ux * canvas.height]
    : [ux * canvas.width, uy * canvas.height];
}

/** The part of a straight piece of a line that is within the panel. */
function within([x1, y1]: Spot, [x2, y2]: Spot, { width, height }: Extent): Spot[] {
  let [from, to] = [0, 1];
  const bounds = [
    [x1 - x2, x1],
    [x2 - x1, width - x1],
    [y1 - y2, y1],
    [y2 - y1, height - y1],
  ] as const;
  for (const [step, room] of bounds) {
    if (step === 0 && room < 0) return [];
    if (step < 0) from = Math.max(from, room / step);
    if (step > 0) to = Math.min(to, room / step);
  }
  const at = (share: number): Spot => [x1 + share * (x2 - x1), y1 + share * (y2 - y1)];
  return from > to ? [] : [at(from), at(to)];
}

/** The places that a line runs through, with those where it enters and leaves its panel; none where it is not seen. */
export function visibleSpots(layer: Layer, panel: Extent): Spot[] {
  const spots = layer.shapes.map((shape) => spotOf(shape, panel));
  const seen: Spot[] = [];
  spots.forEach((spot, at) => {
    if (!spot.every(Number.isFinite)) return;
    const before = spots[at - 1]?.every(Number.isFinite) ? spots[at - 1]! : null;
    const [from, to] = within(before ?? spot, spot, panel);
    const last = seen[seen.length - 1];
    if (from && !(before && last?.[0] === from[0] && last[1] === from[1])) seen.push(from);
    if (to && before) seen.push(to);
  });
  return seen;
}
