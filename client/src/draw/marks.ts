/** Layers as marks of Observable Plot. */
import * as Plot from '@observablehq/plot';
import { none } from './colors.js';
import { placeLabels, type PlacedLabel } from './datalabels.js';
import { stackDots } from './dots.js';
import type { Layer, Shape } from './layers.js';
import type { Look } from './looks.js';
import { ownTexts } from './looks.js';
import { isSolid, type Patterns } from './patterns.js';
import type { DrawnScale } from './scales.js';
import { isStroked, symbolType } from './symbols.js';
import { textLook, type TextLook } from './text.js';

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
    strokeDasharray: dashOf(look),
  });
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
  const stroked = isStroked(look.symbol);
  const size = shapes[0]?.varied?.size;
  const color = shapes[0]?.varied?.fill ? asIs((shape) => shape.varied?.fill ?? look.fill) : look.fill;
  const opacity =
    shapes[0]?.varied?.opacity === undefined
      ? look.opacity
      : asIs((shape) => shape.varied?.opacity ?? look.opacity);
  const paint = stroked
    ? { stroke: color, strokeWidth: Math.max(1.4, look.size / 5), strokeOpacity: opacity, fill: none }
    : { ...fillOf(canvas, { ...look, pattern: 1 }, shapes), ...strokeOf(look) };
  return [
    Plot.dot(shapes, {
      ...channels(canvas, { x: (shape) => shape.x, y: (shape) => shape.y }),
      ...paint,
      symbol: symbolType(look.symbol),
      r: size === undefined ? look.size / 2 : asIs((shape) => (shape.varied?.size ?? look.size) / 2),
    } as Plot.DotOptions),
  ];
}

/** Symbols are drawn whole or not at all. */
function isWithin(canvas: Canvas, shape: Shape): boolean {
  const between = (value: number, [low, high]: [number, number]) => value >= low && value <= high;
  return between(shape.x, canvas.x.domain) && between(shape.y, canvas.y.domain);
}

const rectangle: Channels = { x1: (s) => s.x1, x2: (s) => s.x2, y1: (s) => s.y1, y2: (s) => s.y2 };

/** On a scale that has no 0 what has no place ends at its bound; bars that show a value without a place are none. */
function grounded(canvas: Canvas, layer: Layer): Shape[] {
  const { shapes } = layer;
  if (canvas.y.method !== 'log') return shapes;
  const [low] = canvas.y.domain;
  const above = (value: number | undefined) => (value !== undefined && value > 0 ? value : low);
  const single = layer.kind === 'bars' && layer.element.y.length < 2;
  const shown = single ? shapes.filter((shape) => !(shape.y2! <= 0)) : shapes;
  return shown.map((shape) => ({ ...shape, y1: above(shape.y1), y2: above(shape.y2) }));
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

/** Outlines in a colour of their own are left away where a bar is too low for them. */
function barStroke(canvas: Canvas, look: Look, shapes: Shape[]): Record<string, unknown> {
  const stroke = strokeOf(look);
  const isLow = (shape: Shape) => Math.abs(barHeight(canvas, shape)) < leastOutlined;
  if (stroke.stroke === none || look.stroke === look.fill || !shapes.some(isLow)) return stroke;
  return { ...stroke, stroke: asIs((shape) => (isLow(shape) ? none : look.stroke)) };
}

function barMarks(canvas: Canvas, layer: Layer): Plot.Markish[] {
  const shapes = grounded(canvas, layer).map((shape) => raised(canvas, shape));
  const extent = canvas.transposed ? canvas.height : canvas.width;
  const widths = shapes.map((s) => Math.abs(canvas.x.unit(s.x2!) - canvas.x.unit(s.x1!)) * extent);
  const look = outlined(layer, Math.min(Infinity, ...widths.slice(0, 10_000)));
  const paint = { ...fillOf(canvas, look, shapes), ...barStroke(canvas, look, shapes) };
  return [Plot.rect(shapes, { ...channels(canvas, rectangle), ...paint } as Plot.RectOptions)];
}

function areaMarks(canvas: Canvas, layer: Layer): Plot.Markish[] {
  const shapes = grounded(canvas, layer);
  const look = outlined(layer, Infinity);
  const paint = { ...fillOf(canvas, look, shapes), ...strokeOf(look) };
  const own = channels(canvas, { x: (s) => s.x, y1: (s) => s.y1, y2: (s) => s.y2 });
  const all = { ...own, ...paint, z: null } as unknown as Plot.AreaYOptions & Plot.AreaXOptions;
  return [canvas.transposed ? Plot.areaX(shapes, all) : Plot.areaY(shapes, all)];
}

/** With more places than that to a pixel a line is thinner, unless the chart says how wide it is. */
const densePlaces = 2;

function lineMarks(canvas: Canvas, layer: Layer): Plot.Markish[] {
  const own = channels(canvas, { x: (s) => s.x, y: (s) => s.y });
  const dense = layer.shapes.length > densePlaces * canvas.width && !layer.element.style.strokeWidth;
  const look = dense ? { ...layer.look, strokeWidth: 1 } : layer.look;
  const line = Plot.line(layer.shapes, { ...own, ...lineOptions(look), z: null } as Plot.LineOptions);
  const alone = layer.shapes.filter((shape, at, all) => isAlone(shape, all[at - 1], all[at + 1]));
  if (alone.length === 0) return [line];
  const fill = layer.look.stroke;
  return [line, Plot.dot(alone, { ...own, fill, r: layer.look.strokeWidth } as Plot.DotOptions)];
}

/** A place between two missing ones makes no line. */
function isAlone(shape: Shape, before: Shape | undefined, after: Shape | undefined): boolean {
  const missing = (other: Shape | undefined) => !other || Number.isNaN(other.y);
  return !Number.isNaN(shape.y) && missing(before) && missing(after);
}

function polygonMarks(canvas: Canvas, layer: Layer): Plot.Markish[] {
  const own = channels(canvas, { x: (s) => s.x, y: (s) => s.y });
  const paint = { ...fillOf(canvas, layer.look, []), ...strokeOf(layer.look) };
  return [Plot.line(layer.shapes, { ...own, ...paint, z: null, curve: 'linear-closed' } as Plot.LineOptions)];
}

function links(canvas: Canvas, shapes: Shape[], own: Channels, look: Look): Plot.Markish {
  return Plot.link(shapes, { ...channels(canvas, own), ...lineOptions(look) } as Plot.LinkOptions);
}

function errorMarks(canvas: Canvas, layer: Layer): Plot.Markish[] {
  const { look } = layer;
  const shapes = layer.shapes.filter((shape) => shape.low !== undefined);
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
  return [stem, cap('low'), cap('high'), ...pointMarks(canvas, { ...layer, look: dot }, layer.shapes)];
}

/** The lines of a whisker's ends are half as wide as the box. */
const capShare = 0.5;

function boxMarks(canvas: Canvas, layer: Layer): Plot.Markish[] {
  const { shapes, look } = layer;
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
  const paint = { ...fillOf(canvas, { ...parts.hinge, fill: look.fill }, []), ...strokeOf(parts.hinge) };
  const middle: Channels = {
    x1: (s) => s.x1,
    x2: (s) => s.x2,
    y1: (s) => box(s).median,
    y2: (s) => box(s).median,
  };
  return [
    whisker(
      (s) => box(s).upperHinge,
      (s) => box(s).highest,
    ),
    whisker(
      (s) => box(s).lowerHinge,
      (s) => box(s).lowest,
    ),
    cap((s) => box(s).highest),
    cap((s) => box(s).lowest),
    Plot.rect(shapes, { ...channels(canvas, body), ...paint } as Plot.RectOptions),
    links(canvas, shapes, middle, parts.median),
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
    return shapes.length > 0 && look.visible ? pointMarks(canvas, { ...layer, look }, shapes) : [];
  });
}

/** Texts beside what they name; `paint` is how their letters are filled and outlined. */
function labelMarks(labels: PlacedLabel[], look: TextLook, paint: Plot.TextOptions): Plot.Markish[] {
  const sides = [...new Set(labels.map((label) => label.side))];
  return sides.map((side) => {
    const anchor = { right: 'start', left: 'end', above: 'middle', below: 'middle' }[side];
    const shift = { right: [6, 0], left: [-6, 0], above: [0, -8], below: [0, 8] }[side] as [number, number];
    return Plot.text(
      labels.filter((label) => label.side === side),
      {
        x: (label: PlacedLabel) => label.x,
        y: (label: PlacedLabel) => label.y,
        text: (label: PlacedLabel) => label.text,
        textAnchor: anchor as 'start',
        dx: shift[0],
        dy: shift[1],
        fontFamily: look.family,
        fontSize: look.size,
        ...(look.weight === 'normal' ? {} : { fontWeight: look.weight }),
        ...(look.slant === 'normal' ? {} : { fontStyle: look.slant }),
        ...paint,
      },
    );
  });
}

/** The marks of one layer; `dots` are the layers that share its stacks of dots. */
export function marksOf(canvas: Canvas, layer: Layer, dots: Map<Layer, Shape[]>): Plot.Markish[] {
  switch (layer.kind) {
    case 'points':
      return pointMarks(
        canvas,
        layer,
        layer.shapes.filter((shape) => isWithin(canvas, shape)),
      );
    case 'dots':
      return pointMarks(canvas, { ...layer, look: dotLook(layer, dots) }, dots.get(layer) ?? []);
    case 'bars':
      return barMarks(canvas, layer);
    case 'area':
      return areaMarks(canvas, layer);
    case 'line':
      return lineMarks(canvas, layer);
    case 'polygon':
      return polygonMarks(canvas, layer);
    case 'edges':
      return [links(canvas, layer.shapes, rectangle, layer.look)];
    case 'errors':
      return errorMarks(canvas, layer);
    case 'boxes':
      return boxMarks(canvas, layer);
    case 'slices':
      return [];
  }
}

function dotLook(layer: Layer, dots: Map<Layer, Shape[]>): Look {
  const size = dots.get(layer)?.[0]?.varied?.size;
  return size === undefined ? layer.look : { ...layer.look, size };
}

/** Labels of data, and what has to lie below the marks so that it cuts none of them. */
export interface LabelMarks {
  below: Plot.Markish[];
  above: Plot.Markish[];
}

/** The labels of all layers, which must not cover each other. */
export function labelsOf(canvas: Canvas, layers: Layer[], notes: string[]): LabelMarks {
  const marks: LabelMarks = { below: [], above: [] };
  const paper = canvas.paper === none ? '#ffffff' : canvas.paper;
  const halo = { stroke: paper, strokeWidth: 2.5 };
  for (const layer of layers) {
    const labeling = layer.element.labeling[0];
    if (!labeling || labeling.style.visible === false) continue;
    const labels = placeLabels(canvas, layer, notes);
    const look = textLook(labeling.style, ownTexts.dataLabel);
    // Beside a box are its own whiskers, which a halo on top would cut.
    const apart = layer.kind === 'boxes';
    if (apart) marks.below.push(...labelMarks(labels, look, { ...halo, fill: paper, ariaHidden: 'true' }));
    marks.above.push(...labelMarks(labels, look, { fill: look.color, ...(apart ? {} : halo) }));
  }
  return marks;
}

export { stackDots };
