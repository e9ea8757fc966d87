/** Layers as marks of Observable Plot. */
import * as Plot from '@observablehq/plot';
import { none } from '../svg/colors.js';
import { casingOf, edged, opaque } from './edges.js';
import type { Layer, Shape } from '../compile/layers.js';
import type { Look, LookKind } from '../compile/looks.js';
import { isSolid, type Patterns } from '../svg/patterns.js';
import type { DrawnScale } from '../compile/scales.js';
import { isStroked, symbolType } from './symbols.js';

/** Where a panel's shapes are drawn. */
export interface Canvas {
  /** Scales of the data's x and y; of a transposed chart x runs upwards. */
  x: DrawnScale;
  y: DrawnScale;
  transposed: boolean;
  width: number;
  height: number;
  patterns: Patterns;
  /** What lies behind the marks. */
  paper: string;
}

type Channels = Record<string, (shape: Shape) => number | undefined>;

/** Names of channels change places where the chart is transposed. */
const swapped: Record<string, string> = { x: 'y', y: 'x', x1: 'y1', y1: 'x1', x2: 'y2', y2: 'x2' };

function channels(canvas: Canvas, own: Channels): Channels {
  if (!canvas.transposed) return own;
  return Object.fromEntries(Object.entries(own).map(([name, read]) => [swapped[name] ?? name, read]));
}

/** A value that is drawn as it is, without a scale. */
const asIs = (read: (shape: Shape) => unknown) => ({ value: read, scale: null });
type Drawn = ReturnType<typeof asIs>;

const dashOf = (look: Look) => (look.dashes.length > 0 ? look.dashes.join(' ') : undefined);

/** Only what is there: Plot takes an undefined option for a wrong one. */
function options(all: Record<string, unknown>): Record<string, unknown> {
  return Object.fromEntries(Object.entries(all).filter(([, value]) => value !== undefined));
}

function strokeOf(look: Look): Record<string, unknown> {
  const stroke = look.stroke === none || look.strokeWidth === 0 ? none : look.stroke;
  return options({
    stroke,
    strokeWidth: stroke === none ? undefined : look.strokeWidth,
    strokeOpacity: stroke === none ? undefined : look.strokeOpacity,
    strokeDasharray: dashOf(look),
  });
}

const lookKindOf = (layer: Layer): LookKind => (layer.kind === 'errors' ? 'error' : layer.element.kind);

/** The outlines of shapes, which may vary with their insides. */
function edgeOptions(canvas: Canvas, look: Look, kind: LookKind, shapes: Shape[]): Record<string, unknown> {
  const first = shapes[0]?.varied;
  const base = first?.opacity === undefined ? look : { ...look, opacity: 1 };
  const known = new Map<string, Look>();
  const ofShape = (shape: Shape): Look => {
    const fill = shape.varied?.fill ?? look.fill;
    let found = known.get(fill);
    if (!found) known.set(fill, (found = edged({ ...base, fill }, kind, canvas.paper)));
    return found;
  };
  const varying = first?.fill !== undefined;
  const made = varying
    ? shapes.map(ofShape).find((own) => own.stroke !== look.stroke)
    : edged(base, kind, canvas.paper);
  if (!made || made.stroke === look.stroke) return strokeOf(look);
  return {
    ...strokeOf(made),
    ...(varying ? { stroke: asIs((shape) => ofShape(shape).stroke) } : {}),
    ...(first?.opacity === undefined ? {} : { strokeOpacity: asIs((shape) => shape.varied?.opacity) }),
  };
}

function lineOptions(look: Look): Record<string, unknown> {
  return {
    ...strokeOf(look),
    strokeOpacity: look.opacity,
    strokeLinecap: look.lineCap,
    strokeLinejoin: 'round',
    fill: none,
  };
}

/** The inside of a shape, by its value where that varies. */
function fillOf(canvas: Canvas, look: Look, shapes: Shape[]): Record<string, unknown> {
  const first = shapes[0]?.varied;
  const fill = first?.fill
    ? asIs((shape) => canvas.patterns.fill(shape.varied?.fill ?? look.fill, look.pattern))
    : canvas.patterns.fill(look.fill, look.pattern);
  const opacity =
    first?.opacity === undefined ? look.opacity : asIs((shape) => shape.varied?.opacity ?? look.opacity);
  return { fill, fillOpacity: opacity };
}

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

/** What lies below other marks so that they stand out; it is no mark of the data. */
const casingName = 'casing';

/** Plot names the group of a mark by its kind. */
function asCasing(mark: Plot.Markish): Plot.Markish {
  return Object.assign(mark as object, { ariaLabel: casingName }) as unknown as Plot.Markish;
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

/** Symbols are drawn whole or not at all. */
function isWithin(canvas: Canvas, shape: Shape): boolean {
  const between = (value: number, [low, high]: [number, number]) => value >= low && value <= high;
  return between(shape.x, canvas.x.domain) && between(shape.y, canvas.y.domain);
}

const wholeMarks = new WeakSet<object>();

/** Whether a mark must not be cut off at the bounds of the panel. */
export function isWhole(mark: Plot.Markish): boolean {
  return wholeMarks.has(mark as object);
}

/** The symbols of a layer that are within the panel. */
function symbolMarks(canvas: Canvas, layer: Layer, shapes: Shape[]): Plot.Markish[] {
  const marks = pointMarks(
    canvas,
    layer,
    shapes.filter((shape) => isWithin(canvas, shape)),
  );
  for (const mark of marks) wholeMarks.add(mark as object);
  return marks;
}

const rectangle: Channels = { x1: (s) => s.x1, x2: (s) => s.x2, y1: (s) => s.y1, y2: (s) => s.y2 };

/** On a scale that has no 0 what has no place ends at its bound; bars that show a value without a place are none. */
function grounded(canvas: Canvas, layer: Layer): Shape[] {
  const { shapes } = layer;
  if (canvas.y.method !== 'log') return shapes;
  const [low] = canvas.y.domain;
  // What is missing breaks an area.
  const above = (value: number | undefined) => (value === undefined || value <= 0 ? low : value);
  const single = layer.kind === 'bars' && layer.element.y.length < 2;
  const shown = single ? shapes.filter((shape) => !(shape.y2! <= 0)) : shapes;
  return shown.map((shape) => ({ ...shape, y1: above(shape.y1), y2: above(shape.y2) }));
}

/** Along a scale that has no 0 what begins below it begins at the bound; what ends below it has no place. */
function placedAlongX(canvas: Canvas, shapes: Shape[]): Shape[] {
  if (canvas.x.method !== 'log') return shapes;
  const [low] = canvas.x.domain;
  return shapes
    .filter((shape) => !(shape.x2! <= 0))
    .map((shape) => (shape.x1! <= 0 ? { ...shape, x1: low } : shape));
}

/** Bars with less room than that in pixels have no outline, which would hide them. */
const leastOutlined = 4;

/** Patterns need a line around them; thin bars need at least a pixel. */
function outlined(layer: Layer, width: number): Look {
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
const isCrowded = (layer: Layer) => layer.element.modifier === 3 && layer.group.categories.length > 0;

/** Bars; of a stack the low ones, or the others, where `low` says so. */
function barMarks(canvas: Canvas, layer: Layer, low?: boolean): Plot.Markish[] {
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

/** A line, and what lies below it where its colour does not stand out. */
function withCasing(
  canvas: Canvas,
  look: Look,
  make: (paint: Record<string, unknown>) => Plot.Markish,
): Plot.Markish[] {
  const casing = casingOf(look.stroke, look.strokeWidth, canvas.paper);
  const line = make(lineOptions(look));
  if (!casing) return [line];
  const below = { ...look, stroke: casing.stroke, strokeWidth: casing.width };
  return [asCasing(make(lineOptions(below))), line];
}

/** Casings lie below all that belongs together. */
function casingsFirst(marks: Plot.Markish[]): Plot.Markish[] {
  const isCasing = (mark: Plot.Markish) => (mark as { ariaLabel?: string }).ariaLabel === casingName;
  return [...marks.filter(isCasing), ...marks.filter((mark) => !isCasing(mark))];
}

function links(canvas: Canvas, shapes: Shape[], own: Channels, look: Look): Plot.Markish[] {
  return withCasing(canvas, look, (paint) =>
    Plot.link(shapes, { ...channels(canvas, own), ...paint } as Plot.LinkOptions),
  );
}

function errorMarks(canvas: Canvas, layer: Layer): Plot.Markish[] {
  const { look } = layer;
  const shapes = placedAlongX(canvas, layer.shapes).filter((shape) => shape.low !== undefined);
  const cap = (bound: 'low' | 'high') =>
    links(
      canvas,
      shapes,
      { x1: (s) => s.x1, x2: (s) => s.x2, y1: (s) => s[bound], y2: (s) => s[bound] },
      look,
    );
  const stem = links(
    canvas,
    shapes,
    { x1: (s) => s.x, x2: (s) => s.x, y1: (s) => s.low, y2: (s) => s.high },
    look,
  );
  const dot = { ...look, symbol: 'circle', fill: look.fill, stroke: none };
  const lines = casingsFirst([...stem, ...cap('low'), ...cap('high')]);
  return [...lines, ...symbolMarks(canvas, { ...layer, look: dot }, layer.shapes)];
}

/** The lines of a whisker's ends are half as wide as the box. */
export const capShare = 0.5;

function boxMarks(canvas: Canvas, layer: Layer): Plot.Markish[] {
  const { look } = layer;
  const shapes = placedAlongX(canvas, layer.shapes);
  const parts = layer.parts!;
  const box = (shape: Shape) => shape.box!.box;
  const whisker = (from: (s: Shape) => number, to: (s: Shape) => number) =>
    links(canvas, shapes, { x1: (s) => s.x, x2: (s) => s.x, y1: from, y2: to }, parts.fence);
  const cap = (at: (s: Shape) => number) => {
    const side = (s: Shape, sign: number) => s.x + (sign * capShare * (s.x2! - s.x1!)) / 2;
    return links(
      canvas,
      shapes,
      { x1: (s) => side(s, -1), x2: (s) => side(s, 1), y1: at, y2: at },
      parts.fence,
    );
  };
  const body: Channels = {
    x1: (s) => s.x1,
    x2: (s) => s.x2,
    y1: (s) => box(s).lowerHinge,
    y2: (s) => box(s).upperHinge,
  };
  const hinge = { ...parts.hinge, fill: look.fill };
  const paint = { ...fillOf(canvas, hinge, []), ...edgeOptions(canvas, hinge, 'schema', []) };
  const middle: Channels = {
    x1: (s) => s.x1,
    x2: (s) => s.x2,
    y1: (s) => box(s).median,
    y2: (s) => box(s).median,
  };
  const whiskers = [
    ...whisker(
      (s) => box(s).upperHinge,
      (s) => box(s).highest,
    ),
    ...whisker(
      (s) => box(s).lowerHinge,
      (s) => box(s).lowest,
    ),
    ...cap((s) => box(s).highest),
    ...cap((s) => box(s).lowest),
  ];
  return [
    ...casingsFirst(whiskers),
    Plot.rect(shapes, { ...channels(canvas, body), ...paint } as Plot.RectOptions),
    ...links({ ...canvas, paper: look.fill }, shapes, middle, parts.median),
    ...outlierMarks(canvas, layer),
  ];
}

function outlierMarks(canvas: Canvas, layer: Layer): Plot.Markish[] {
  const places = (extreme: boolean) =>
    layer.shapes.flatMap((shape) =>
      shape
        .box!.outliers.filter((outlier) => outlier.extreme === extreme)
        .map((outlier): Shape => ({ x: shape.x, y: outlier.value })),
    );
  return [false, true].flatMap((extreme) => {
    const shapes = places(extreme);
    const look = extreme ? layer.parts!.extreme : layer.parts!.outlier;
    return shapes.length > 0 && look.visible ? symbolMarks(canvas, { ...layer, look }, shapes) : [];
  });
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
