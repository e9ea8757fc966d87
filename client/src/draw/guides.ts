/** Reference lines and function lines, and their names beside them. */
import * as Plot from '@observablehq/plot';
import { leastIndex } from 'd3';
import type { Guide } from '../chart/model.js';
import { parseExpression, type Expression } from '../data/expression.js';
import { none, readable } from './colors.js';
import { holds } from './conditions.js';
import { placeOf, type Direction } from './directions.js';
import { ownLook, ownTexts, styled, type Look } from './looks.js';
import type { Layer, Shape } from './layers.js';
import type { Canvas } from './marks.js';
import type { Panel } from './panels.js';
import { textWidth } from './text.js';

/** A guide as it is drawn: at a place along a direction, or along a function of x. */
export interface DrawnGuide {
  guide: Guide;
  look: Look;
  at: { direction: 'x' | 'y'; place: number } | null;
  expression: Expression | null;
}

/** The guides that can be drawn; what cannot is noted. */
export function guidesOf(guides: Guide[], x: Direction, y: Direction, notes: string[]): DrawnGuide[] {
  return guides.flatMap((guide): DrawnGuide[] => {
    if (guide.kind !== 'line' && guide.kind !== 'function') return [];
    const kind = guide.kind === 'function' ? { ...ownLook('guide'), dashes: [] } : ownLook('guide');
    const look = styled(kind, guide.style, 'guide');
    for (const direction of [x, y]) {
      const text = guide[direction.name];
      const place = text ? placeOf(direction, text) : null;
      if (place !== null)
        return [{ guide, look, at: { direction: direction.name, place }, expression: null }];
    }
    const text = guide.value ?? guide.y ?? '';
    try {
      const expression = parseExpression(text);
      const unknown = expression.names.find((name) => name !== 'x');
      if (unknown) throw new Error(`${unknown} is not known`);
      return [{ guide, look, at: null, expression }];
    } catch (error) {
      const reason = error instanceof Error ? error.message : String(error);
      notes.push(`The guide ${guide.name || guide.id} at "${text}" is not drawn: ${reason}.`);
      return [];
    }
  });
}

const samples = 400;

/** The places of a function that are within the panel. */
function curve(expression: Expression, canvas: Canvas): { x: number; y: number }[] {
  const [low, high] = canvas.y.domain;
  return Array.from({ length: samples + 1 }, (_, at) => {
    const x = canvas.x.value(at / samples);
    const y = expression.evaluate(() => x);
    return { x, y: y >= low && y <= high ? y : NaN };
  });
}

interface NamePlace {
  /** Shares of the width, and of the height from below. */
  across: number;
  up: number;
  anchor: 'start' | 'end';
  above: boolean;
}

/** The place of a shape in pixels, from the left and from below. */
function pixelsOf(shape: Shape, canvas: Canvas): [number, number] {
  const [x, y] = [canvas.x.unit(shape.x), canvas.y.unit(shape.y)];
  return canvas.transposed ? [y * canvas.width, x * canvas.height] : [x * canvas.width, y * canvas.height];
}

/** Pieces of a line that are looked at by themselves are that long, in pixels. */
const pieceOfLine = 6;

/** Places between two corners of a line, where it runs on. */
function between([x1, y1]: [number, number], [x2, y2]: [number, number]): [number, number][] {
  const pieces = Math.ceil(Math.hypot(x2 - x1, y2 - y1) / pieceOfLine);
  if (!Number.isFinite(pieces) || pieces > 1_000) return [];
  return Array.from({ length: Math.max(0, pieces - 1) }, (_, at) => {
    const share = (at + 1) / pieces;
    return [x1 + share * (x2 - x1), y1 + share * (y2 - y1)];
  });
}

/** All places that marks cover, as far as names have to keep away from them. */
function coveredPlaces(canvas: Canvas, layers: Layer[]): [number, number][] {
  return layers.flatMap((layer) => {
    const places = layer.shapes.map((shape) => pixelsOf(shape, canvas));
    if (layer.kind !== 'line') return places;
    return places.flatMap((place, at) => (at === 0 ? [place] : [...between(places[at - 1]!, place), place]));
  });
}

/** How many marks a name there would cover. */
function covered(place: NamePlace, name: string, canvas: Canvas, marks: [number, number][]): number {
  const width = textWidth(name, ownTexts.guideLabel) + 8;
  const height = ownTexts.guideLabel.size + 6;
  const left = place.across * canvas.width - (place.anchor === 'end' ? width : 0);
  const bottom = place.up * canvas.height - (place.above ? 0 : height);
  if (left < -1 || left + width > canvas.width + 1) return Infinity;
  const hides = ([across, up]: [number, number]) =>
    across >= left && across <= left + width && up >= bottom && up <= bottom + height;
  return marks.filter(hides).length;
}

/** The first of the places where a name covers the fewest shapes. */
function freest(places: NamePlace[], name: string, canvas: Canvas, layers: Layer[]): NamePlace {
  const marks = coveredPlaces(canvas, layers);
  return places[leastIndex(places, (place) => covered(place, name, canvas, marks)) ?? 0]!;
}

function nameMark(name: string, place: NamePlace, canvas: Canvas, line: Look): Plot.Markish {
  const look = ownTexts.guideLabel;
  const [across, upright] = canvas.transposed ? [canvas.y, canvas.x] : [canvas.x, canvas.y];
  return Plot.text([{ x: across.value(place.across), y: upright.value(place.up) }], {
    x: 'x',
    y: 'y',
    text: () => name,
    textAnchor: place.anchor,
    lineAnchor: place.above ? 'bottom' : 'top',
    dx: place.anchor === 'end' ? -5 : 5,
    dy: place.above ? -4 : 4,
    fontFamily: look.family,
    fontSize: look.size,
    fill: readable(canvas.paper, look.color, line.stroke),
    stroke: canvas.paper === none ? '#ffffff' : canvas.paper,
    strokeWidth: 3,
  });
}

const stroke = (look: Look) => ({
  stroke: look.stroke,
  strokeWidth: look.strokeWidth,
  strokeOpacity: look.opacity,
  ...(look.lineCap === 'butt' ? {} : { strokeLinecap: look.lineCap }),
  ...(look.dashes.length > 0 ? { strokeDasharray: look.dashes.join(' ') } : {}),
});

interface GuideMarks {
  line: Plot.Markish;
  name: Plot.Markish | null;
}

function lineMarks(drawn: DrawnGuide, canvas: Canvas, layers: Layer[]): GuideMarks {
  const { direction, place } = drawn.at!;
  const upright = (direction === 'x') === !canvas.transposed;
  const at = (direction === 'x' ? canvas.x : canvas.y).unit(place);
  const line = upright ? Plot.ruleX([place], stroke(drawn.look)) : Plot.ruleY([place], stroke(drawn.look));
  const { name } = drawn.guide;
  if (!name || at < 0 || at > 1) return { line, name: null };
  const beside = (up: number): NamePlace[] => [
    { across: at, up, anchor: at > 0.75 ? 'end' : 'start', above: up === 0 },
    { across: at, up, anchor: at > 0.75 ? 'start' : 'end', above: up === 0 },
  ];
  // At an end of the line, above or below it, before places that are not at an end.
  const sides = [true, false];
  const ends = sides.flatMap((above): NamePlace[] => [
    { across: 1, up: at, anchor: 'end', above },
    { across: 0, up: at, anchor: 'start', above },
  ]);
  const inner = [0.9, 0.8, 0.7, 0.6, 0.5, 0.4, 0.3].flatMap((across) =>
    sides.map((above): NamePlace => ({ across, up: at, anchor: 'end', above })),
  );
  const places = upright ? [...beside(1), ...beside(0)] : [...ends, ...inner];
  return { line, name: nameMark(name, freest(places, name, canvas, layers), canvas, drawn.look) };
}

function functionMarks(drawn: DrawnGuide, canvas: Canvas, layers: Layer[]): GuideMarks {
  const places = curve(drawn.expression!, canvas);
  const shown = places.filter(({ y }) => !Number.isNaN(y));
  const turned = canvas.transposed ? places.map(({ x, y }) => ({ x: y, y: x })) : places;
  const line = Plot.line(turned, { x: 'x', y: 'y', ...stroke(drawn.look) });
  const { name } = drawn.guide;
  if (!name || shown.length === 0) return { line, name: null };
  const ends = [shown[shown.length - 1]!, shown[0]!].map(({ x, y }, at): NamePlace => {
    const [across, up] = canvas.transposed
      ? [canvas.y.unit(y), canvas.x.unit(x)]
      : [canvas.x.unit(x), canvas.y.unit(y)];
    return { across, up, anchor: at === 0 ? 'end' : 'start', above: up < 0.95 };
  });
  return { line, name: nameMark(name, freest(ends, name, canvas, layers), canvas, drawn.look) };
}

/** The marks of a guide in a panel; null where a condition hides it there. */
export function guideMarks(
  drawn: DrawnGuide,
  panel: Panel,
  canvas: Canvas,
  layers: Layer[],
  notes: string[],
): GuideMarks | null {
  let { look } = drawn;
  for (const condition of drawn.guide.conditions) {
    if (holds(condition.when, panel, notes)) look = styled(look, condition.style, 'guide');
  }
  if (!look.visible) return null;
  const here = { ...drawn, look };
  return drawn.at ? lineMarks(here, canvas, layers) : functionMarks(here, canvas, layers);
}
