/** Where shapes that take up room stand: widths of bars, places beside each other, stacks. */
import { pixels, type Length } from '../../chart/markup.js';
import { unitOfDate, type Direction } from './directions.js';
import type { Layer, Shape } from './layers.js';

/** Of the place that they have, where a style does not say. */
const barShare = 0.75;
const boxShare = 0.5;
const clusteredBoxShare = 0.8;
const defaultClusterGap = 0.1;
export const stackModifier = 3;

/** The place that the only value has. */
const onlyStep = (value: number | undefined, { kind }: Direction) =>
  kind === 'date' && value !== undefined ? unitOfDate(value) : 1;

/** The least distance of two places: 1 of categories. */
function stepOf(layers: Layer[], direction: Direction): number {
  if (direction.kind === 'category') return 1;
  const places = new Set<number>();
  for (const layer of layers) for (const shape of layer.shapes) places.add(shape.x);
  const sorted = Float64Array.from(places).sort();
  let least = Infinity;
  for (let at = 1; at < sorted.length; at += 1) least = Math.min(least, sorted[at]! - sorted[at - 1]!);
  return Number.isFinite(least) ? least : onlyStep(sorted[0], direction);
}

const shareOf = (width: Length | null, otherwise: number) =>
  width
    ? Math.min(1, Math.max(0.01, width.unit === '%' ? width.value / 100 : pixels(width, 1) / 100))
    : otherwise;

/** The middle and the width of a group's place beside others, around the middle of all. */
function slotOf(layer: Layer, direction: Direction, step: number): { offset: number; width: number } {
  if (!layer.slot) return { offset: 0, width: step };
  const gap = shareOf(direction.cluster?.gap ?? null, defaultClusterGap);
  const width = (step * Math.max(0.1, 1 - 2 * gap)) / layer.slot.of;
  return { offset: (layer.slot.at - (layer.slot.of - 1) / 2) * width, width };
}

/** What of its place a bar or box takes. */
function shareOfLayer(layer: Layer): number {
  const beside = layer.slot !== null;
  if (layer.kind === 'boxes') return shareOf(layer.look.width, beside ? clusteredBoxShare : boxShare);
  return shareOf(layer.look.width, beside ? 1 : barShare);
}

function placeAlongX(layer: Layer, direction: Direction, step: number): void {
  const { offset, width } = slotOf(layer, direction, step);
  const wide = layer.kind === 'bars' || layer.kind === 'boxes' || layer.kind === 'errors';
  const half = (width * shareOfLayer(layer)) / 2;
  for (const shape of layer.shapes) {
    if (layer.binned) {
      if (layer.slot) narrowBin(shape, layer.slot);
      continue;
    }
    if (offset !== 0) shape.place = shape.x;
    shape.x += offset;
    if (wide) [shape.x1, shape.x2] = [shape.x - half, shape.x + half];
  }
}

/** Groups of a class stand beside each other within it. */
function narrowBin(shape: Shape, slot: { at: number; of: number }): void {
  const width = (shape.x2! - shape.x1!) / slot.of;
  shape.x1 = shape.x1! + slot.at * width;
  shape.x2 = shape.x1 + width;
  shape.x = (shape.x1 + shape.x2) / 2;
}

/** Bars and areas from the base line to their value, or on each other; values below the base line go down. */
function stackAlongY(layers: Layer[], baseline: number): void {
  const tops = new Map<number | string, number>();
  const bottoms = new Map<number | string, number>();
  const placeOf = ({ x, side }: Shape) => (side ? `${side} ${x}` : x);
  for (const layer of layers) {
    if (layer.kind !== 'bars' && layer.kind !== 'area' && layer.kind !== 'slices') continue;
    const stacked = layer.element.modifier === stackModifier || layer.kind === 'slices';
    for (const shape of layer.shapes) {
      if (shape.y1 !== undefined) continue;
      // A missing value ends no stack: others stand there as if it were not.
      const reach = stacked && !Number.isNaN(shape.y) ? (shape.y >= 0 ? tops : bottoms) : null;
      const sum = reach?.get(placeOf(shape));
      shape.y1 = sum ?? baseline;
      shape.y2 = (sum ?? 0) + shape.y;
      reach?.set(placeOf(shape), shape.y2);
    }
  }
}

/** Between two places of an area, which is straight there. Null beside a missing value. */
function betweenShapes(before: Shape, after: Shape, x: number): Shape | null {
  const share = (x - before.x) / (after.x - before.x);
  const y = before.y + share * (after.y - before.y);
  return Number.isNaN(y) ? null : { x, y, between: true };
}

/** The shapes of an area with one at each of the places that lie within it. */
function withPlaces(shapes: Shape[], places: Float64Array): Shape[] {
  const result: Shape[] = [];
  let next = 0;
  for (const [at, shape] of shapes.entries()) {
    const before = shapes[at - 1];
    while (next < places.length && places[next]! < shape.x) {
      const between = before && betweenShapes(before, shape, places[next]!);
      if (between) result.push(between);
      next += 1;
    }
    if (places[next] === shape.x) next += 1;
    result.push(shape);
  }
  return result;
}

/** Areas stand on each other at all places of any of them, from their own first place to their last. */
function alignAreas(layers: Layer[]): void {
  const stacked = layers.filter(
    ({ kind, element }) => kind === 'area' && element.modifier === stackModifier && element.y.length < 2,
  );
  if (stacked.length < 2) return;
  const all = new Set(stacked.flatMap(({ shapes }) => shapes.map(({ x }) => x)));
  const places = Float64Array.from(all).sort();
  for (const layer of stacked) layer.shapes = withPlaces(layer.shapes, places);
  const ends = endsOf(stacked);
  for (const layer of stacked) layer.shapes = withSteps(layer.shapes, ends);
}

const isPlace = (shape: Shape | undefined): shape is Shape => shape !== undefined && !Number.isNaN(shape.y);

/** Where areas begin and where they end, at their ends and beside gaps. */
function endsOf(layers: Layer[]): { begins: Set<number>; ends: Set<number> } {
  const [begins, ends] = [new Set<number>(), new Set<number>()];
  for (const { shapes } of layers) {
    for (const [at, shape] of shapes.entries()) {
      if (!isPlace(shape)) continue;
      if (!isPlace(shapes[at - 1])) begins.add(shape.x);
      if (!isPlace(shapes[at + 1])) ends.add(shape.x);
    }
  }
  return { begins, ends };
}

/** Those that go on where another begins or ends have two heights there: with it, and without. */
function withSteps(shapes: Shape[], { begins, ends }: ReturnType<typeof endsOf>): Shape[] {
  return shapes.flatMap((shape, at): Shape[] => {
    if (!isPlace(shape)) return [shape];
    const { x, y } = shape;
    const before = begins.has(x) && isPlace(shapes[at - 1]);
    const after = ends.has(x) && isPlace(shapes[at + 1]);
    return [
      ...(before ? [{ x, y, between: true, side: 'before' } as const] : []),
      shape,
      ...(after ? [{ x, y, between: true, side: 'after' } as const] : []),
    ];
  });
}

/** Not what begins or ends above them, but only what does so below them makes a step. */
function withoutFlatSteps(shapes: Shape[]): Shape[] {
  const same = (one: Shape, other: Shape | undefined) =>
    one.x === other?.x && one.y1 === other.y1 && one.y2 === other.y2;
  return shapes.filter((shape, at) => {
    if (!shape.side) return true;
    return !same(shape, shape.side === 'before' ? shapes[at + 1] : shapes[at - 1]);
  });
}

/** Gives the shapes of each panel their room. */
export function position(panels: Layer[][], x: Direction, baseline: number): void {
  // One step for all, so that bars of all panels are equally wide.
  const step = stepOf(panels.flat(), x);
  for (const layers of panels) {
    for (const layer of layers) {
      placeAlongX(layer, x, step);
      layer.baseline = baseline;
    }
    if (x.kind !== 'category') alignAreas(layers);
    stackAlongY(layers, baseline);
    for (const layer of layers) if (layer.kind === 'area') layer.shapes = withoutFlatSteps(layer.shapes);
  }
}
