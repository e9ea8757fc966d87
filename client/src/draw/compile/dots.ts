/** Dot plots: points of one place moved apart along y. */
import type { Layer, Shape } from './layers.js';
import type { DrawnScale } from './scales.js';

const stackedDots = 7;

/** The distance of neighbouring columns of dots: a whole number of the steps that the values have. */
function columnWidth(places: number[], dotWidth: number): number {
  const sorted = Float64Array.from(new Set(places)).sort();
  let step = Infinity;
  for (let at = 1; at < sorted.length; at += 1) step = Math.min(step, sorted[at]! - sorted[at - 1]!);
  if (!Number.isFinite(step) || step < dotWidth / 20) return dotWidth;
  return Math.max(1, Math.round(dotWidth / step)) * step;
}

/**
 * The dots of each layer, with y as the share of the height. All layers share the columns, so that no dot covers
 * another one; where a column is higher than the panel its dots move closer.
 */
export function stackDots(
  layers: Layer[],
  x: DrawnScale,
  width: number,
  height: number,
): Map<Layer, Shape[]> {
  const dotted = layers.filter((layer) => layer.kind === 'dots');
  const result = new Map<Layer, Shape[]>();
  if (dotted.length === 0) return result;
  const unitWidth = (x.domain[1] - x.domain[0]) / width;
  const size = Math.max(...dotted.map((layer) => layer.look.size));
  const column = columnWidth(
    dotted.flatMap((layer) => layer.shapes.map((shape) => shape.x)),
    size * unitWidth,
  );
  const columnOf = (shape: Shape) => Math.round(shape.x / column);
  const heights = new Map<number, number>();
  for (const layer of dotted) {
    for (const shape of layer.shapes) heights.set(columnOf(shape), (heights.get(columnOf(shape)) ?? 0) + 1);
  }
  const diameter = Math.min(column / unitWidth, size * 1.4);
  const step = Math.min(diameter, height / (Math.max(...heights.values()) + 0.5)) / height;
  const stacked = dotted.some((layer) => layer.element.modifier === stackedDots);
  const filled = new Map<number, number>();
  for (const layer of dotted) {
    const shapes = layer.shapes.map((shape): Shape => {
      const at = columnOf(shape);
      const place = filled.get(at) ?? 0;
      filled.set(at, place + 1);
      const centered = stacked ? 0 : 0.5 - (heights.get(at)! * step) / 2;
      return {
        ...shape,
        x: at * column,
        y: centered + (place + 0.5) * step,
        varied: { ...shape.varied, size: diameter * 0.96 },
      };
    });
    result.set(layer, shapes);
  }
  return result;
}
