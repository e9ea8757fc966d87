/** Draws axes beside panels: line, ticks, labels, and title. */
import { pixels } from '../../chart/markup.js';
import type { Style } from '../../chart/model.js';
import { plainText } from '../../chart/labels.js';
import { none, safeColor } from '../svg/colors.js';
import type { Maker } from '../svg/svg.js';
import { lineHeight, widest } from '../svg/text.js';
import { axisName, gapToLabels, isUpright, type AxisPlace, type DrawnAxis } from './axes.js';
import { isShortened } from './names.js';
import { minorTicks } from './minorticks.js';
import { tickLength, type Tick } from './ticks.js';

function strokeAttributes(style: Style, otherwise: string) {
  return {
    stroke: safeColor(style.color) ?? otherwise,
    'stroke-width': style.strokeWidth ? pixels(style.strokeWidth, 1) : 1,
    'stroke-dasharray': style.dashes?.length ? style.dashes.map((dash) => pixels(dash, 1)).join(' ') : null,
    'stroke-linecap': style.lineCap ?? null,
    'stroke-opacity': style.opacity ?? null,
    fill: none,
  };
}

export const lineColor = '#4d4d4d';
export const frameColor = '#9a9a9a';

const leastBetweenMarks = 4;

/** Ticks that would merge stand only where a label is. */
function distinctMarks({ ticks, scale }: DrawnAxis, lines: string[][], length: number): Tick[] {
  const places = ticks.map(({ value }) => scale.unit(value) * length).sort((a, b) => a - b);
  const close = places.some((place, at) => at > 0 && place - places[at - 1]! < leastBetweenMarks);
  return close ? ticks.filter((_, at) => lines[at]!.length > 0) : ticks;
}

/** The panel beside which an axis is drawn; its corner is at 0, 0. */
export interface BesidePanel {
  /** The panel's number in its row, from the low end. */
  index: number;
  width: number;
  height: number;
  /** A frame around the panel stands for the line of the axis, unless the chart has given that a look. */
  framed: boolean;
}

/** An axis, where it runs beside a panel, and which way is away from it. */
interface Edge {
  drawn: DrawnAxis;
  upright: boolean;
  length: number;
  edge: number;
  outward: 1 | -1;
  /** The place of a value along the axis, in pixels. */
  at: (value: number) => number;
}

function edgeOf(drawn: DrawnAxis, { width, height }: BesidePanel): Edge {
  const { place, offset, scale } = drawn;
  const upright = isUpright(place);
  const outward = place === 'bottom' || place === 'right' ? 1 : -1;
  const near = place === 'bottom' ? height : place === 'right' ? width : 0;
  const length = upright ? height : width;
  const at = (value: number) => (upright ? 1 - scale.unit(value) : scale.unit(value)) * length;
  return { drawn, upright, length, edge: near + outward * offset, outward, at };
}

function drawLine({ drawn, upright, edge, length }: Edge, maker: Maker): SVGElement {
  const d = upright ? `M${edge},0 V${length}` : `M0,${edge} H${length}`;
  return maker.make('path', { d, ...strokeAttributes(drawn.axis.style, lineColor), 'aria-hidden': 'true' });
}

/** The ticks, with short ones between them where these are few. */
function drawMarks(side: Edge, lines: string[][], color: string, maker: Maker): SVGElement[] {
  const { drawn, upright, edge, outward, length } = side;
  const { ticks: settings } = drawn.axis;
  const size = tickLength(settings);
  if (!settings || settings.markStyle.visible === false || size === 0) return [];
  const marks = distinctMarks(drawn, lines, length);
  if (marks.length === 0) return [];
  const mark = (value: number, reach: number) => {
    const place = Math.round(side.at(value) * 100) / 100;
    return upright ? `M${edge},${place} h${outward * reach}` : `M${place},${edge} v${outward * reach}`;
  };
  const minor = minorTicks(drawn.scale, drawn.ticks, settings, length);
  const d = [...marks.map(({ value }) => mark(value, size)), ...minor.map((value) => mark(value, size / 2))];
  const look = strokeAttributes(settings.markStyle, color);
  return [maker.make('path', { d: d.join(' '), ...look, 'aria-hidden': 'true' })];
}

/** The label of a tick, which stands at `along` and begins at `from`. */
interface Label {
  lines: string[];
  along: number;
  from: number;
  /** Of all ticks of the axis. */
  index: number;
}

function uprightLabel({ lines, along, from }: Label, { drawn, outward }: Edge, maker: Maker): SVGElement {
  const { labelLook: look, layout } = drawn;
  const align = outward > 0 ? ('start' as const) : ('end' as const);
  const first = along + look.size * 0.35 - ((lines.length - 1) * look.size * 1.25) / 2;
  const pivot = `${Math.round(from)},${Math.round(along)}`;
  const turned = layout.angle === 0 ? {} : { transform: `rotate(${layout.angle},${pivot})` };
  return maker.text(lines, from, first, { ...look, align }, turned);
}

function turnedLabel({ lines, along, from }: Label, { drawn, outward }: Edge, maker: Maker): SVGElement {
  const { labelLook: look, layout } = drawn;
  const align = layout.angle < 0 === outward > 0 ? ('end' as const) : ('start' as const);
  const drop = Math.abs(layout.angle) > 80 ? look.size * 0.35 : look.size * 0.6;
  const place = { x: Math.round(along * 100) / 100, y: from + outward * 2 };
  const transform = `translate(${place.x},${place.y}) rotate(${layout.angle})`;
  return maker.text(lines, 0, drop, { ...look, align }, { transform });
}

function acrossLabel(label: Label, side: Edge, maker: Maker): SVGElement {
  const { lines, along, from, index } = label;
  const { labelLook: look, layout } = side.drawn;
  if (layout.angle !== 0) return turnedLabel(label, side, maker);
  const lower = layout.stagger && index % 2 === 1 ? lineHeight(look) : 0;
  const first =
    side.outward > 0
      ? from + look.size * 0.8 + lower
      : from - look.size * 0.15 - (lines.length - 1) * look.size * 1.25 - lower;
  return maker.text(lines, along, first, { ...look, align: 'middle' });
}

function drawLabels(side: Edge, shown: string[][], maker: Maker): SVGElement[] {
  const { drawn, upright, edge, outward } = side;
  if (!drawn.axis.ticks || drawn.axis.ticks.style.visible === false) return [];
  const from = edge + outward * (tickLength(drawn.axis.ticks) + gapToLabels);
  return shown.flatMap((lines, index) => {
    if (lines.every((line) => line === '')) return [];
    const { value, text } = drawn.ticks[index]!;
    const label = (upright ? uprightLabel : acrossLabel)(
      { lines, along: side.at(value), from, index },
      side,
      maker,
    );
    return [isShortened(lines, text) ? maker.withWhole(label, text) : label];
  });
}

/** The axis beside one panel. */
export function drawTicks(drawn: DrawnAxis, panel: BesidePanel, maker: Maker): SVGElement {
  const { axis } = drawn;
  const group = maker.group(`${axisName(drawn)} axis`, 'group');
  const side = edgeOf(drawn, panel);
  const { lines } = drawn.labels(panel.index);
  if (axis.style.visible !== false && (!panel.framed || axis.style.color))
    group.append(drawLine(side, maker));
  group.append(...drawMarks(side, lines, panel.framed ? frameColor : lineColor, maker));
  group.append(...drawLabels(side, lines, maker));
  return group;
}

/** The room around all panels, in pixels. */
type Rooms = Record<AxisPlace, number>;

/** The title of an axis beside all panels, which reach from 0, 0 to width, height. */
export function drawAxisTitle(
  drawn: DrawnAxis,
  width: number,
  height: number,
  rooms: Rooms,
  maker: Maker,
): SVGElement | null {
  const { title, axis } = drawn;
  if (title.length === 0) return null;
  const shown = titleText(drawn, width, height, rooms, maker);
  const text = plainText(axis.label);
  return isShortened(title, text) ? maker.withWhole(shown, text) : shown;
}

const edge = 3;

/** In the middle of the panels, or beside it where a title is longer than these and would leave the page. */
function middleOf(
  { title, titleLook, place }: DrawnAxis,
  width: number,
  height: number,
  rooms: Rooms,
): number {
  const half = widest(title, titleLook) / 2;
  // At the sides no title is longer than the panels and what is over them.
  if (isUpright(place)) return Math.min(height / 2, height + edge - half);
  return Math.max(half - rooms.left + edge, Math.min(width / 2, width + rooms.right - edge - half));
}

function titleText(drawn: DrawnAxis, width: number, height: number, rooms: Rooms, maker: Maker): SVGElement {
  const { title, titleLook, place, offset } = drawn;
  const room = drawn.room + offset;
  const block = title.length * lineHeight(titleLook);
  const ascent = titleLook.size * 0.95;
  const middle = middleOf(drawn, width, height, rooms);
  if (place === 'bottom') return maker.text(title, middle, height + room - block + ascent, titleLook);
  if (place === 'top') return maker.text(title, middle, -room + ascent, titleLook);
  const x = place === 'left' ? -room : width + room;
  const turn = place === 'left' ? -90 : 90;
  const transform = `translate(${Math.round(x * 100) / 100},${middle}) rotate(${turn})`;
  return maker.text(title, 0, ascent, titleLook, { transform });
}
