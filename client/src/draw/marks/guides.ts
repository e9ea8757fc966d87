/** Reference lines and function lines, and their names beside them. */
import * as Plot from '@observablehq/plot';
import type { Graph, Guide } from '../../chart/model.js';
import { parseExpression, type Expression } from '../../data/expression.js';
import { readable } from '../svg/colors.js';
import { holds } from '../compile/conditions.js';
import { placeOf, type Direction } from '../compile/directions.js';
import { ownLook, ownTexts, styled, type Look } from '../compile/looks.js';
import type { Layer } from '../compile/layers.js';
import { alongLine, linesOfName, nameMark, placesAlong, Surroundings, type NamePlace } from './linenames.js';
import type { Canvas } from './canvas.js';
import { spotOf, type Spot } from './visibleline.js';
import type { Panel } from '../compile/panels.js';
import { smallText } from '../smalltexts.js';
import type { TextLook } from '../svg/text.js';

/** A guide as it is drawn: at a place along a direction, or along a function of x. */
export interface DrawnGuide {
  guide: Guide;
  look: Look;
  /** The look of its name. */
  text: TextLook;
  at: { direction: 'x' | 'y'; place: number } | null;
  expression: Expression | null;
}

const nouns = { number: 'number', date: 'date', category: 'category' };

/** The function along which a guide runs that has no place along a direction; null, with a note, where it has none. */
function functionOf(guide: Guide, x: Direction, notes: string[]): Expression | null {
  const name = guide.name ? `guide ${guide.name}` : 'guide';
  const formula = guide.value ?? guide.y ?? '';
  if (formula === '') {
    notes.push(
      guide.x
        ? `The ${name} at "${guide.x}" is not drawn: there is no such ${nouns[x.kind]} along x.`
        : `The ${name} is not drawn: it has no place.`,
    );
    return null;
  }
  try {
    const expression = parseExpression(formula);
    const unknown = expression.names.find((each) => each !== 'x');
    if (unknown) throw new Error(`${unknown} is not known`);
    return expression;
  } catch (error) {
    const reason = error instanceof Error ? error.message : String(error);
    notes.push(`The ${name} at "${formula}" is not drawn: ${reason}.`);
    return null;
  }
}

/** The guides that can be drawn; what cannot is noted. */
export function guidesOf(graph: Graph, x: Direction, y: Direction, notes: string[]): DrawnGuide[] {
  const text = smallText([graph], ownTexts.guideLabel);
  return graph.guides.flatMap((guide): DrawnGuide[] => {
    if (guide.kind !== 'line' && guide.kind !== 'function') return [];
    const kind = guide.kind === 'function' ? { ...ownLook('guide'), dashes: [] } : ownLook('guide');
    const look = styled(kind, guide.style, 'guide');
    for (const direction of [x, y]) {
      const wanted = guide[direction.name];
      const place = wanted ? placeOf(direction, wanted) : null;
      if (place !== null)
        return [{ guide, look, text, at: { direction: direction.name, place }, expression: null }];
    }
    const expression = functionOf(guide, x, notes);
    return expression ? [{ guide, look, text, at: null, expression }] : [];
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

const stroke = (look: Look) => ({
  stroke: look.stroke,
  strokeWidth: look.strokeWidth,
  strokeOpacity: look.opacity,
  ...(look.lineCap === 'butt' ? {} : { strokeLinecap: look.lineCap }),
  ...(look.dashes.length > 0 ? { strokeDasharray: look.dashes.join(' ') } : {}),
});

interface GuideMarks {
  title: string;
  line: Plot.Markish;
  name: Plot.Markish | null;
}

/** Whether a straight line runs from below to the top of the page. */
const isUpright = ({ at }: DrawnGuide, canvas: Canvas) => (at!.direction === 'x') === !canvas.transposed;

/** Where a straight line is between 0 and 1 of what it crosses. */
const shareOf = ({ at }: DrawnGuide, canvas: Canvas) =>
  (at!.direction === 'x' ? canvas.x : canvas.y).unit(at!.place);

/** The places that a guide runs through. */
function runOf(drawn: DrawnGuide, canvas: Canvas): Spot[] {
  const { width, height } = canvas;
  if (!drawn.at) {
    const shown = curve(drawn.expression!, canvas).filter(({ y }) => !Number.isNaN(y));
    return shown.map((place) => spotOf(place, canvas));
  }
  const at = shareOf(drawn, canvas);
  if (!(at >= 0 && at <= 1)) return [];
  return alongLine(
    isUpright(drawn, canvas)
      ? [
          [at * width, 0],
          [at * width, height],
        ]
      : [
          [0, at * height],
          [width, at * height],
        ],
  );
}

/** Shares of an upright line at which its name may stand, from the top. */
const heights = [1, 0, 0.9, 0.8, 0.7, 0.6, 0.5, 0.4, 0.3, 0.2, 0.1];

/** Beside an upright line, first at its ends. */
function placesBeside(at: number, { width, height }: Canvas): NamePlace[] {
  const anchors = at > 0.75 ? (['end', 'start'] as const) : (['start', 'end'] as const);
  return heights.flatMap((up) =>
    anchors.map((anchor): NamePlace => ({ spot: [at * width, up * height], anchor, above: up === 0 })),
  );
}

function lineOf(drawn: DrawnGuide, canvas: Canvas): Plot.Markish {
  if (drawn.at) {
    const { place } = drawn.at;
    const upright = isUpright(drawn, canvas);
    return upright ? Plot.ruleX([place], stroke(drawn.look)) : Plot.ruleY([place], stroke(drawn.look));
  }
  const places = curve(drawn.expression!, canvas);
  const turned = canvas.transposed ? places.map(({ x, y }) => ({ x: y, y: x })) : places;
  return Plot.line(turned, { x: 'x', y: 'y', ...stroke(drawn.look) });
}

function nameOf(drawn: DrawnGuide, run: Spot[], around: Surroundings, notes: string[]): Plot.Markish | null {
  const { canvas } = around;
  const { name } = drawn.guide;
  if (!name || run.length === 0) return null;
  const color = readable(canvas.paper, drawn.text.color, drawn.look.stroke);
  const look = { ...drawn.text, color };
  const upright = drawn.at !== null && isUpright(drawn, canvas);
  const share = upright ? shareOf(drawn, canvas) : 0;
  const lines = linesOfName(name, Math.max(share, 1 - share) * canvas.width, look);
  const places = upright ? placesBeside(share, canvas) : placesAlong(run);
  const place = around.freest(places, lines, look, drawn.at ? run : null);
  if (!place) notes.push(`The name of the line "${name}" has no room.`);
  return place && nameMark(lines, place, canvas, look);
}

/** A guide in a panel, as its conditions there want it; null where they hide it. */
function guideIn(drawn: DrawnGuide, panel: Panel, notes: string[]): DrawnGuide | null {
  let { look } = drawn;
  for (const condition of drawn.guide.conditions) {
    if (holds(condition.when, panel, notes)) look = styled(look, condition.style, 'guide');
  }
  return look.visible ? { ...drawn, look } : null;
}

/** The guides of a panel with their names, and what further names have to keep away from. */
export function guideMarks(
  guides: DrawnGuide[],
  panel: Panel,
  canvas: Canvas,
  layers: Layer[],
  notes: string[],
): { guides: GuideMarks[]; around: Surroundings } {
  const shown = guides.flatMap((drawn) => guideIn(drawn, panel, notes) ?? []);
  const runs = shown.map((drawn) => runOf(drawn, canvas));
  const around = new Surroundings(canvas, layers, runs);
  const made = shown.map((drawn, at) => ({
    title: drawn.guide.name,
    line: lineOf(drawn, canvas),
    name: nameOf(drawn, runs[at]!, around, notes),
  }));
  return { guides: made, around };
}
