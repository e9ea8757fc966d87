/** Points as marks of Observable Plot. */
import * as Plot from '@observablehq/plot';
import { none } from '../svg/colors.js';
import { casingOf, opaque } from './edges.js';
import type { Layer, Shape } from '../compile/layers.js';
import type { Look } from '../compile/looks.js';
import { isStroked, symbolType } from './symbols.js';
import {
  type Canvas,
  channels,
  asIs,
  type Drawn,
  lookKindOf,
  edgeOptions,
  fillOf,
  asCasing,
  isWithin,
} from './canvas.js';

function pointMarks(canvas: Canvas, layer: Layer, shapes: Shape[]): Plot.Markish[] {
  const { look } = layer;
  const place = {
    ...channels(canvas, { x: (shape) => shape.x, y: (shape) => shape.y }),
    symbol: symbolType(look.symbol),
  };
  if (isStroked(look.symbol))
    return strokedPoints(canvas, look, shapes, { ...place, r: radii(look, shapes) });
  const solid = { ...look, pattern: 1 };
  const edge = edgeOptions(canvas, solid, lookKindOf(layer), shapes);
  const paint = { ...fillOf(canvas, solid, shapes), ...edge, r: radii(look, shapes, edge) };
  // Plot would draw large ones first wherever the radius is not the same for all.
  const sort = shapes[0]?.varied?.size === undefined ? { sort: null } : {};
  return [Plot.dot(shapes, { ...place, ...paint, ...sort } as Plot.DotOptions)];
}

/** The radius of symbols; an outline that is not in their look makes them no larger. */
function radii(look: Look, shapes: Shape[], edge: Record<string, unknown> = { stroke: none }): unknown {
  const first = shapes[0]?.varied;
  const added = look.stroke === none ? ((edge.strokeWidth as number | undefined) ?? 0) / 2 : 0;
  const { stroke } = edge;
  const ring = (shape: Shape) =>
    added > 0 && (typeof stroke === 'string' ? stroke : (stroke as Drawn).value(shape)) !== none ? added : 0;
  const radius = (shape: Shape) => Math.max(0.5, (shape.varied?.size ?? look.size) / 2 - ring(shape));
  const same = first?.size === undefined && (added === 0 || typeof stroke === 'string');
  return same && shapes[0] ? radius(shapes[0]) : asIs(radius);
}

/** Symbols without an inside. */
function strokedPoints(
  canvas: Canvas,
  look: Look,
  shapes: Shape[],
  place: Record<string, unknown>,
): Plot.Markish[] {
  const first = shapes[0]?.varied;
  const color = (shape: Shape) => shape.varied?.fill ?? look.fill;
  const width = Math.max(1.4, look.size / 5);
  const paint = { strokeWidth: width, strokeOpacity: strokedOpacity(canvas, look, shapes), fill: none };
  const stroke = first?.fill ? asIs(color) : look.fill;
  const symbols = Plot.dot(shapes, { ...place, ...paint, stroke } as Plot.DotOptions);
  const casings = shapes.map((shape) => casingOf(color(shape), width, canvas.paper));
  const cased = casings.find((casing) => casing !== null);
  if (!cased) return [symbols];
  const below = {
    ...place,
    ...paint,
    stroke: asIs((shape) => casingOf(color(shape), width, canvas.paper)!.stroke),
    strokeWidth: cased.width,
  };
  const faint = shapes.filter((_, at) => casings[at]);
  return [asCasing(Plot.dot(faint, below as Plot.DotOptions)), symbols];
}

/** Strokes show through only where they stand out even so. */
function strokedOpacity(canvas: Canvas, look: Look, shapes: Shape[]): unknown {
  const first = shapes[0]?.varied;
  if (first?.opacity !== undefined) return asIs((shape) => shape.varied?.opacity ?? look.opacity);
  const known = new Map<string, number>();
  const opacityOf = (fill: string): number => {
    let found = known.get(fill);
    if (found === undefined) known.set(fill, (found = opaque({ ...look, fill }, 'point', canvas.paper)));
    return found;
  };
  return first?.fill ? asIs((shape) => opacityOf(shape.varied?.fill ?? look.fill)) : opacityOf(look.fill);
}

const wholeMarks = new WeakSet<object>();

/** Whether a mark must not be cut off at the bounds of the panel. */
export function isWhole(mark: Plot.Markish): boolean {
  return wholeMarks.has(mark as object);
}

/** The symbols of a layer that are within the panel. */
export function symbolMarks(canvas: Canvas, layer: Layer, shapes: Shape[]): Plot.Markish[] {
  const marks = pointMarks(
    canvas,
    layer,
    shapes.filter((shape) => isWithin(canvas, shape)),
  );
  for (const mark of marks) wholeMarks.add(mark as object);
  return marks;
}
