/** Where marks are drawn, and what they have in common: places, strokes, fills and casings. */
import * as Plot from '@observablehq/plot';
import { none } from '../svg/colors.js';
import { casingOf, edged } from './edges.js';
import type { Layer, Shape } from '../compile/layers.js';
import type { Look, LookKind } from '../compile/looks.js';
import type { Patterns } from '../svg/patterns.js';
import type { DrawnScale } from '../compile/scales.js';

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

export type Channels = Record<string, (shape: Shape) => number | undefined>;

/** Names of channels change places where the chart is transposed. */
const swapped: Record<string, string> = { x: 'y', y: 'x', x1: 'y1', y1: 'x1', x2: 'y2', y2: 'x2' };

export function channels(canvas: Canvas, own: Channels): Channels {
  if (!canvas.transposed) return own;
  return Object.fromEntries(Object.entries(own).map(([name, read]) => [swapped[name] ?? name, read]));
}

/** A value that is drawn as it is, without a scale. */
export const asIs = (read: (shape: Shape) => unknown) => ({ value: read, scale: null });

export type Drawn = ReturnType<typeof asIs>;

const dashOf = (look: Look) => (look.dashes.length > 0 ? look.dashes.join(' ') : undefined);

/** Only what is there: Plot takes an undefined option for a wrong one. */
function options(all: Record<string, unknown>): Record<string, unknown> {
  return Object.fromEntries(Object.entries(all).filter(([, value]) => value !== undefined));
}

export function strokeOf(look: Look): Record<string, unknown> {
  const stroke = look.stroke === none || look.strokeWidth === 0 ? none : look.stroke;
  return options({
    stroke,
    strokeWidth: stroke === none ? undefined : look.strokeWidth,
    strokeOpacity: stroke === none ? undefined : look.strokeOpacity,
    strokeDasharray: dashOf(look),
  });
}

export const lookKindOf = (layer: Layer): LookKind =>
  layer.kind === 'errors' ? 'error' : layer.element.kind;

/** The outlines of shapes, which may vary with their insides. */
export function edgeOptions(
  canvas: Canvas,
  look: Look,
  kind: LookKind,
  shapes: Shape[],
): Record<string, unknown> {
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
export function fillOf(canvas: Canvas, look: Look, shapes: Shape[]): Record<string, unknown> {
  const first = shapes[0]?.varied;
  const fill = first?.fill
    ? asIs((shape) => canvas.patterns.fill(shape.varied?.fill ?? look.fill, look.pattern))
    : canvas.patterns.fill(look.fill, look.pattern);
  const opacity =
    first?.opacity === undefined ? look.opacity : asIs((shape) => shape.varied?.opacity ?? look.opacity);
  return { fill, fillOpacity: opacity };
}

/** What lies below other marks so that they stand out; it is no mark of the data. */
const casingName = 'casing';

/** Plot names the group of a mark by its kind. */
export function asCasing(mark: Plot.Markish): Plot.Markish {
  return Object.assign(mark as object, { ariaLabel: casingName }) as unknown as Plot.Markish;
}

/** Symbols are drawn whole or not at all. */
export function isWithin(canvas: Canvas, shape: Shape): boolean {
  const between = (value: number, [low, high]: [number, number]) => value >= low && value <= high;
  return between(shape.x, canvas.x.domain) && between(shape.y, canvas.y.domain);
}

export const rectangle: Channels = { x1: (s) => s.x1, x2: (s) => s.x2, y1: (s) => s.y1, y2: (s) => s.y2 };

/** Along a scale that has no 0 what begins below it begins at the bound; what ends below it has no place. */
export function placedAlongX(canvas: Canvas, shapes: Shape[]): Shape[] {
  if (canvas.x.method !== 'log') return shapes;
  const [low] = canvas.x.domain;
  return shapes
    .filter((shape) => !(shape.x2! <= 0))
    .map((shape) => (shape.x1! <= 0 ? { ...shape, x1: low } : shape));
}

/** A line, and what lies below it where its colour does not stand out. */
export function withCasing(
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
export function casingsFirst(marks: Plot.Markish[]): Plot.Markish[] {
  const isCasing = (mark: Plot.Markish) => (mark as { ariaLabel?: string }).ariaLabel === casingName;
  return [...marks.filter(isCasing), ...marks.filter((mark) => !isCasing(mark))];
}

export function links(canvas: Canvas, shapes: Shape[], own: Channels, look: Look): Plot.Markish[] {
  return withCasing(canvas, look, (paint) =>
    Plot.link(shapes, { ...channels(canvas, own), ...paint } as Plot.LinkOptions),
  );
}
