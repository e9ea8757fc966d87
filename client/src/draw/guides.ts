/** Reference lines and function lines, and their names beside them. */
import * as Plot from '@observablehq/plot';
import type { Guide } from '../chart/model.js';
import { parseExpression, type Expression } from '../data/expression.js';
import { none } from './colors.js';
import { holds } from './conditions.js';
import { placeOf, type Direction } from './directions.js';
import { ownLook, ownTexts, styled, type Look } from './looks.js';
import type { Canvas } from './marks.js';
import type { Panel } from './panels.js';

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
      if (place !== null) return [{ guide, look, at: { direction: direction.name, place }, expression: null }];
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

function nameMark(name: string, x: number, y: number, canvas: Canvas, beside: boolean, atEnd: boolean): Plot.Markish {
  const look = ownTexts.guideLabel;
  return Plot.text([{ x, y }], {
    x: 'x',
    y: 'y',
    text: () => name,
    textAnchor: beside ? (atEnd ? 'end' : 'start') : 'end',
    lineAnchor: beside ? 'top' : 'bottom',
    dx: beside ? (atEnd ? -5 : 5) : -4,
    dy: beside ? 4 : -4,
    fontFamily: look.family,
    fontSize: look.size,
    fill: look.color,
    stroke: canvas.paper === none ? '#ffffff' : canvas.paper,
    strokeWidth: 3,
  });
}

const stroke = (look: Look) => ({
  stroke: look.stroke,
  strokeWidth: look.strokeWidth,
  strokeOpacity: look.opacity,
  ...(look.dashes.length > 0 ? { strokeDasharray: look.dashes.join(' ') } : {}),
});

/** The value at a share of what runs across or upwards on the screen. */
function screenValue(canvas: Canvas, direction: 'x' | 'y', share: number): number {
  const scale = (direction === 'x') === !canvas.transposed ? canvas.x : canvas.y;
  return scale.value(share);
}

function lineMarks(drawn: DrawnGuide, canvas: Canvas, named: boolean): { line: Plot.Markish; name: Plot.Markish | null } {
  const { direction, place } = drawn.at!;
  const upright = (direction === 'x') === !canvas.transposed;
  const scale = direction === 'x' ? canvas.x : canvas.y;
  const line = upright ? Plot.ruleX([place], stroke(drawn.look)) : Plot.ruleY([place], stroke(drawn.look));
  const { name } = drawn.guide;
  if (!named || !name) return { line, name: null };
  const far = scale.unit(place) > 0.75;
  const mark = upright
    ? nameMark(name, place, screenValue(canvas, 'y', 1), canvas, true, far)
    : nameMark(name, screenValue(canvas, 'x', 1), place, canvas, false, true);
  return { line, name: mark };
}

function functionMarks(drawn: DrawnGuide, canvas: Canvas, named: boolean): { line: Plot.Markish; name: Plot.Markish | null } {
  const places = curve(drawn.expression!, canvas).map((place) =>
    canvas.transposed ? { x: place.y, y: place.x } : place,
  );
  const line = Plot.line(places, { x: 'x', y: 'y', ...stroke(drawn.look) });
  const shown = places.filter(({ x, y }) => !Number.isNaN(x) && !Number.isNaN(y));
  const last = shown[shown.length - 1];
  const { name } = drawn.guide;
  return { line, name: named && name && last ? nameMark(name, last.x, last.y, canvas, false, true) : null };
}

/** The marks of a guide in a panel; null where a condition hides it there. */
export function guideMarks(
  drawn: DrawnGuide,
  panel: Panel,
  canvas: Canvas,
  named: boolean,
  notes: string[],
): { line: Plot.Markish; name: Plot.Markish | null } | null {
  let { look } = drawn;
  for (const condition of drawn.guide.conditions) {
    if (holds(condition.when, panel, notes)) look = styled(look, condition.style, 'guide');
  }
  if (!look.visible) return null;
  const here = { ...drawn, look };
  return drawn.at ? lineMarks(here, canvas, named) : functionMarks(here, canvas, named);
}
