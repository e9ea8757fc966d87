/** Figures that are computed to be beyond all numbers, such as sums of very large ones. */
import type { Layer, Shape } from '../compile/layers.js';
import { counted } from './counts.js';

/** Larger than single values may be, so that stacks of these have room. */
const farthest = 1e306;

const isBeyond = ({ x, y, x1, x2, y1, y2, low, high }: Shape) =>
  [x, y, x1, x2, y1, y2, low, high].some((value) => value !== undefined && Math.abs(value) > farthest);

/** Takes marks away that no scale can show. */
export function leaveOutBeyond(panels: Layer[][]): string[] {
  let count = 0;
  for (const layer of panels.flat()) {
    const kept = layer.shapes.filter((shape) => !isBeyond(shape));
    count += layer.shapes.length - kept.length;
    if (kept.length < layer.shapes.length) layer.shapes = kept;
  }
  if (count === 0) return [];
  if (count === 1) return ['1 mark is not drawn: its value is beyond all numbers.'];
  return [`${counted(count)} marks are not drawn: their values are beyond all numbers.`];
}
