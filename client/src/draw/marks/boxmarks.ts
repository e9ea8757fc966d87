/** Boxes and error bars as marks of Observable Plot. */
import * as Plot from '@observablehq/plot';
import { none } from '../svg/colors.js';
import type { Layer, Shape } from '../compile/layers.js';
import {
  type Canvas,
  type Channels,
  channels,
  edgeOptions,
  fillOf,
  placedAlongX,
  casingsFirst,
  links,
} from './canvas.js';
import { symbolMarks } from './pointmarks.js';

export function errorMarks(canvas: Canvas, layer: Layer): Plot.Markish[] {
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

export function boxMarks(canvas: Canvas, layer: Layer): Plot.Markish[] {
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
