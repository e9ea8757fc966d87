/** Bars as marks of Observable Plot. */
import * as Plot from '@observablehq/plot';
import { none } from '../svg/colors.js';
import { edged } from './edges.js';
import type { Layer, Shape } from '../compile/layers.js';
import type { Look, LookKind } from '../compile/looks.js';
import { isSolid } from '../svg/patterns.js';
import {
  type Canvas,
  channels,
  asIs,
  lookKindOf,
  edgeOptions,
  fillOf,
  rectangle,
  placedAlongX,
} from './canvas.js';

/** On a scale that has no 0 what has no place ends at its bound; bars that show a value without a place are none. */
export function grounded(canvas: Canvas, layer: Layer): Shape[] {
  const { shapes } = layer;
  if (canvas.y.method !== 'log') return shapes;
  const [low] = canvas.y.domain;
  // What is missing breaks an area.
  const above = (value: number | undefined) => (value === undefined || value <= 0 ? low : value);
  const single = layer.kind === 'bars' && layer.element.y.length < 2;
  const shown = single ? shapes.filter((shape) => !(shape.y2! <= 0)) : shapes;
  return shown.map((shape) => ({ ...shape, y1: above(shape.y1), y2: above(shape.y2) }));
}

/** Bars with less room than that in pixels have no outline, which would hide them. */
const leastOutlined = 4;

/** Patterns need a line around them; thin bars need at least a pixel. */
export function outlined(layer: Layer, width: number): Look {
  const { look } = layer;
  if (width < 1) return { ...look, stroke: look.fill, strokeWidth: 1 - width };
  if (width < leastOutlined) return { ...look, stroke: none };
  const own = layer.element.style.color2 !== undefined;
  return !isSolid(look.pattern) && !own && look.stroke === '#ffffff' ? { ...look, stroke: look.fill } : look;
}

/** How high a bar is in pixels, from its value to where it begins. */
function barHeight(canvas: Canvas, shape: Shape): number {
  const extent = canvas.transposed ? canvas.width : canvas.height;
  return (canvas.y.unit(shape.y2!) - canvas.y.unit(shape.y1!)) * extent;
}

/** Every value that is not 0 is to be seen: the lowest bars are a pixel high. */
function raised(canvas: Canvas, shape: Shape): Shape {
  const height = barHeight(canvas, shape);
  if (shape.y1 === shape.y2 || !(Math.abs(height) < 1)) return shape;
  const upwards = (height === 0 ? shape.y2! - shape.y1! : height) > 0;
  const pixel = 1 / (canvas.transposed ? canvas.width : canvas.height);
  return { ...shape, y2: canvas.y.value(canvas.y.unit(shape.y1!) + (upwards ? pixel : -pixel)) };
}

/** Outlines in a colour of their own are left away where a bar is too low for them, and stands out without. */
function barStroke(canvas: Canvas, look: Look, kind: LookKind, shapes: Shape[]): Record<string, unknown> {
  const stroke = edgeOptions(canvas, look, kind, shapes);
  const own = stroke.stroke === look.stroke && look.stroke !== none && look.stroke !== look.fill;
  const bare = edged({ ...look, stroke: none }, kind, canvas.paper).stroke === none;
  if (!own || !bare || !shapes.some((shape) => isLow(canvas, shape))) return stroke;
  return { ...stroke, stroke: asIs((shape) => (isLow(canvas, shape) ? none : look.stroke)) };
}

/** An outline that stands out, and is not in their look, makes bars no larger. */
function insetOf(edge: Record<string, unknown>, look: Look): Record<string, unknown> {
  const added = typeof edge.stroke === 'string' && edge.stroke !== none && edge.stroke !== look.stroke;
  return added ? { inset: (edge.strokeWidth as number) / 2 } : {};
}

const isLow = (canvas: Canvas, shape: Shape) => Math.abs(barHeight(canvas, shape)) < leastOutlined;

/** Whether the outlines of its neighbours would cover a low bar of that layer. */
export const isCrowded = (layer: Layer) => layer.element.modifier === 3 && layer.group.categories.length > 0;

/** Bars; of a stack the low ones, or the others, where `low` says so. */
export function barMarks(canvas: Canvas, layer: Layer, low?: boolean): Plot.Markish[] {
  const all = placedAlongX(canvas, grounded(canvas, layer)).map((shape) => raised(canvas, shape));
  const shapes = low === undefined ? all : all.filter((shape) => isLow(canvas, shape) === low);
  if (shapes.length === 0) return [];
  const extent = canvas.transposed ? canvas.height : canvas.width;
  const widths = shapes.map((s) => Math.abs(canvas.x.unit(s.x2!) - canvas.x.unit(s.x1!)) * extent);
  const narrowest = Math.min(Infinity, ...widths.slice(0, 10_000));
  const look = outlined(layer, narrowest);
  const edge = barStroke(canvas, look, lookKindOf(layer), shapes);
  const roomy = narrowest >= leastOutlined && !shapes.some((shape) => isLow(canvas, shape));
  const paint = { ...fillOf(canvas, look, shapes), ...edge, ...(roomy ? insetOf(edge, look) : {}) };
  return [Plot.rect(shapes, { ...channels(canvas, rectangle), ...paint } as Plot.RectOptions)];
}
