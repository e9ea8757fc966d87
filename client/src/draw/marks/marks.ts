/** Layers as marks of Observable Plot. */
import * as Plot from '@observablehq/plot';
import { none } from '../svg/colors.js';
import { edged } from './edges.js';
import type { Layer, Shape } from '../compile/layers.js';
import type { Look } from '../compile/looks.js';
import {
  type Canvas,
  channels,
  strokeOf,
  lookKindOf,
  edgeOptions,
  fillOf,
  rectangle,
  withCasing,
  links,
} from './canvas.js';
import { symbolMarks } from './pointmarks.js';
import { grounded, outlined, isCrowded, barMarks } from './barmarks.js';
import { errorMarks, boxMarks } from './boxmarks.js';

function areaMarks(canvas: Canvas, layer: Layer): Plot.Markish[] {
  const shapes = grounded(canvas, layer);
  const look = outlined(layer, Infinity);
  const paint = { ...fillOf(canvas, look, shapes), ...edgeOptions(canvas, look, lookKindOf(layer), shapes) };
  const own = channels(canvas, { x: (s) => s.x, y1: (s) => s.y1, y2: (s) => s.y2 });
  const all = { ...own, ...paint, z: null } as unknown as Plot.AreaYOptions & Plot.AreaXOptions;
  return [canvas.transposed ? Plot.areaX(shapes, all) : Plot.areaY(shapes, all)];
}

/** With more places than that to a pixel a line is thinner, unless the chart says how wide it is. */
const densePlaces = 2;

/** The radius of a place of a line that has no neighbours. */
const leastDot = 2.5;

function lineMarks(canvas: Canvas, layer: Layer): Plot.Markish[] {
  const own = channels(canvas, { x: (s) => s.x, y: (s) => s.y });
  const dense = layer.shapes.length > densePlaces * canvas.width && !layer.element.style.strokeWidth;
  const look = dense ? { ...layer.look, strokeWidth: 1 } : layer.look;
  const line = (paint: Record<string, unknown>) =>
    Plot.line(layer.shapes, { ...own, ...paint, z: null } as Plot.LineOptions);
  const lines = withCasing(canvas, look, line);
  const alone = layer.shapes.filter((shape, at, all) => isAlone(shape, all[at - 1], all[at + 1]));
  if (alone.length === 0) return lines;
  const dot = { ...look, fill: look.stroke, stroke: none, dashes: [] };
  const paint = { fill: dot.fill, ...strokeOf(edged(dot, layer.element.kind, canvas.paper)) };
  const r = Math.max(leastDot, layer.look.strokeWidth);
  return [...lines, Plot.dot(alone, { ...own, ...paint, r } as Plot.DotOptions)];
}

/** A place between two missing ones makes no line. */
function isAlone(shape: Shape, before: Shape | undefined, after: Shape | undefined): boolean {
  const missing = (other: Shape | undefined) => !other || Number.isNaN(other.y);
  return !Number.isNaN(shape.y) && missing(before) && missing(after);
}

function polygonMarks(canvas: Canvas, layer: Layer): Plot.Markish[] {
  const own = channels(canvas, { x: (s) => s.x, y: (s) => s.y });
  const { look } = layer;
  const paint = { ...fillOf(canvas, look, []), ...edgeOptions(canvas, look, lookKindOf(layer), []) };
  return [Plot.line(layer.shapes, { ...own, ...paint, z: null, curve: 'linear-closed' } as Plot.LineOptions)];
}

/** The marks of one layer; `dots` are the layers that share its stacks of dots. */
export function marksOf(canvas: Canvas, layer: Layer, dots: Map<Layer, Shape[]>): Plot.Markish[] {
  switch (layer.kind) {
    case 'points':
      return symbolMarks(canvas, layer, layer.shapes);
    case 'dots':
      return symbolMarks(canvas, { ...layer, look: dotLook(layer, dots) }, dots.get(layer) ?? []);
    case 'bars':
      return barMarks(canvas, layer, isCrowded(layer) ? false : undefined);
    case 'area':
      return areaMarks(canvas, layer);
    case 'line':
      return lineMarks(canvas, layer);
    case 'polygon':
      return polygonMarks(canvas, layer);
    case 'edges':
      return links(canvas, layer.shapes, rectangle, layer.look);
    case 'errors':
      return errorMarks(canvas, layer);
    case 'boxes':
      return boxMarks(canvas, layer);
    case 'slices':
      return [];
  }
}

/** What of a layer lies above all others: the low bars of stacks, which outlines of others would cover. */
export function marksAbove(canvas: Canvas, layer: Layer): Plot.Markish[] {
  return layer.kind === 'bars' && isCrowded(layer) ? barMarks(canvas, layer, true) : [];
}

function dotLook(layer: Layer, dots: Map<Layer, Shape[]>): Look {
  const size = dots.get(layer)?.[0]?.varied?.size;
  return size === undefined ? layer.look : { ...layer.look, size };
}
