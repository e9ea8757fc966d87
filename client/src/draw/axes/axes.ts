/** Axes as they are drawn beside panels: line, ticks, labels, and title. */
import { pixels } from '../../chart/markup.js';
import type { Axis, Style } from '../../chart/model.js';
import { plainText } from '../../chart/labels.js';
import { none, safeColor } from '../svg/colors.js';
import { ownTexts } from '../compile/looks.js';
import { minorTicks } from './minorticks.js';
import type { DrawnScale } from '../compile/scales.js';
import type { Maker } from '../svg/svg.js';
import { labelsBeside, type Neighbours, type PanelLabels } from './neighbours.js';
import { atMost, lineHeight, textLook, widest, wrap, type TextLook } from '../svg/text.js';
import { askedLabels, layoutAcross, layoutUpright, leastLabelSize } from './ticklabels.js';
import { tickLength, type Tick, type TickLayout } from './ticks.js';

export type AxisPlace = 'bottom' | 'top' | 'left' | 'right';

export interface DrawnAxis {
  axis: Axis;
  scale: DrawnScale;
  place: AxisPlace;
  ticks: Tick[];
  layout: TickLayout;
  labelLook: TextLook;
  titleLook: TextLook;
  title: string[];
  /** What the axis takes beside the panels, in pixels. */
  room: number;
  /** What other axes take between it and the panels, in pixels. */
  offset: number;
  /** The labels beside the panel of that number in its row, from the low end. */
  labels: (index: number) => PanelLabels;
}

const gapToLabels = 4;
const gapToTitle = 7;
const gapBetweenAxes = 8;

export const isUpright = (place: AxisPlace) => place === 'left' || place === 'right';

export function labelLookOf(axis: Axis): TextLook {
  return textLook(axis.ticks?.style ?? {}, ownTexts.tickLabel);
}

/** What an axis is called in names and notes. */
const axisName = ({ axis, scale }: Pick<DrawnAxis, 'axis' | 'scale'>) =>
  plainText(axis.label) || scale.direction.name;

const mostTitleLines = 3;

function titleOf(axis: Axis, length: number, look: TextLook): string[] {
  const text = axis.label?.style.visible === false ? '' : plainText(axis.label);
  return text === '' ? [] : atMost(wrap(text, length, look), mostTitleLines);
}

const isShortened = (lines: string[], text: string) =>
  (lines[lines.length - 1] ?? '').endsWith('\u2026') && !text.endsWith('\u2026');

/** The room that an axis has, in pixels. */
export interface AxisRoom {
  /** Of one panel, and of all of them with what their title may have more. */
  length: number;
  titleLength: number;
  /** The most that names of categories take. */
  labels: number;
  neighbours: Neighbours;
}

/** Names of categories are smaller where all of them have room then. */
function roomyLook(look: TextLook, asked: number, arranged: (look: TextLook) => TickLayout): TextLook {
  const fits = (some: TextLook) => arranged(some).lines.filter((each) => each.length > 0).length >= asked;
  if (fits(look)) return look;
  for (let size = Math.ceil(look.size) - 1; size >= leastLabelSize; size -= 1)
    if (fits({ ...look, size })) return { ...look, size };
  return look;
}

/** Finds room for an axis beside a panel, its title beside all panels. */
export function layoutAxis(
  axis: Axis,
  scale: DrawnScale,
  place: AxisPlace,
  ticks: Tick[],
  { length, titleLength, labels: mostDepth, neighbours }: AxisRoom,
): DrawnAxis {
  const titleLook = { ...textLook(axis.label?.style ?? {}, ownTexts.axisLabel), align: 'middle' as const };
  const upright = isUpright(place);
  // Angles of charts run against the clock, those of SVG with it.
  const settings = axis.ticks && axis.ticks.angle ? { ...axis.ticks, angle: -axis.ticks.angle } : axis.ticks;
  const layoutBy = upright ? layoutUpright : layoutAcross;
  const arranged = (look: TextLook) => layoutBy({ ticks, scale, length, settings, look, mostDepth });
  const asked = askedLabels(ticks, settings);
  const named = scale.direction.kind === 'category' && asked * leastLabelSize <= length;
  const labelLook = named ? roomyLook(labelLookOf(axis), asked, arranged) : labelLookOf(axis);
  const layout = arranged(labelLook);
  const title = titleOf(axis, titleLength, titleLook);
  const labels = axis.ticks?.style.visible === false ? 0 : layout.depth + gapToLabels;
  const room =
    tickLength(axis.ticks) +
    labels +
    (title.length > 0 ? gapToTitle + title.length * lineHeight(titleLook) : 2);
  return {
    axis,
    scale,
    place,
    ticks,
    layout,
    labelLook,
    titleLook,
    title,
    room: axis.ticks ? room : room - labels,
    offset: 0,
    labels: labelsBeside(layout, scale, length, upright, labelLook, neighbours),
  };
}

/** Axes on one side stand one behind the other. */
export function behindEachOther(axes: DrawnAxis[]): DrawnAxis[] {
  const taken: Partial<Record<AxisPlace, number>> = {};
  return axes.map((drawn) => {
    const before = taken[drawn.place];
    const offset = before === undefined ? 0 : before + gapBetweenAxes;
    taken[drawn.place] = offset + drawn.room;
    return { ...drawn, offset };
  });
}

/** Says what of titles and of names of categories is not to be read. */
export function axisNotes(axes: DrawnAxis[]): string[] {
  return axes.flatMap((drawn) => {
    const { axis, layout, ticks, title, scale } = drawn;
    const name = axisName(drawn);
    const notes = isShortened(title, plainText(axis.label))
      ? [`The title of the ${scale.direction.name} axis is shortened.`]
      : [];
    if (axis.ticks?.stagger && !layout.stagger) notes.push(`Labels of the axis ${name} are not staggered.`);
    if (scale.direction.kind !== 'category' || !axis.ticks || axis.ticks.style.visible === false)
      return notes;
    const cut = layout.lines.filter((lines, at) => isShortened(lines, ticks[at]!.text)).length;
    const shown = layout.lines.filter((lines) => lines.length > 0).length - drawn.labels(0).lost;
    const out = askedLabels(ticks, axis.ticks) - shown;
    const labels = (count: number) => `${count} ${count === 1 ? 'label' : 'labels'} of the axis ${name}`;
    if (cut > 0) notes.push(`${labels(cut)} ${cut === 1 ? 'is' : 'are'} shortened.`);
    if (out > 0) notes.push(`${labels(out)} ${out === 1 ? 'has' : 'have'} no room.`);
    return notes;
  });
}

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

/** Where an axis runs beside a panel, and which way is away from it. */
function edgeOf({ place, offset }: DrawnAxis, width: number, height: number) {
  const outward = place === 'bottom' || place === 'right' ? 1 : -1;
  const near = place === 'bottom' ? height : place === 'right' ? width : 0;
  return { outward, edge: near + outward * offset };
}

/** The axis beside one panel whose corner is at 0, 0, and which is at `index` of its row from the low end. */
export function drawTicks(
  drawn: DrawnAxis,
  index: number,
  width: number,
  height: number,
  maker: Maker,
  framed: boolean,
): SVGElement {
  const { axis, place, scale, ticks, layout, labelLook } = drawn;
  const group = maker.group(`${axisName(drawn)} axis`, 'group');
  const upright = isUpright(place);
  const length = upright ? height : width;
  const at = (value: number) => (upright ? (1 - scale.unit(value)) * length : scale.unit(value) * length);
  const { edge, outward } = edgeOf(drawn, width, height);
  const labels = drawn.labels(index);
  // A frame around the panel stands for the line, unless the chart has given that a look.
  if (axis.style.visible !== false && (!framed || axis.style.color)) {
    const d = upright ? `M${edge},0 V${height}` : `M0,${edge} H${width}`;
    group.append(
      maker.make('path', { d, ...strokeAttributes(axis.style, lineColor), 'aria-hidden': 'true' }),
    );
  }
  const size = tickLength(axis.ticks);
  const marks =
    axis.ticks?.markStyle.visible === false || !axis.ticks ? [] : distinctMarks(drawn, labels.lines, length);
  if (marks.length > 0 && size > 0) {
    const mark = (value: number, reach: number) => {
      const place = Math.round(at(value) * 100) / 100;
      return upright ? `M${edge},${place} h${outward * reach}` : `M${place},${edge} v${outward * reach}`;
    };
    const minor = minorTicks(scale, ticks, axis.ticks, length);
    const d = [
      ...marks.map(({ value }) => mark(value, size)),
      ...minor.map((value) => mark(value, size / 2)),
    ];
    group.append(
      maker.make('path', {
        d: d.join(' '),
        ...strokeAttributes(axis.ticks!.markStyle, framed ? frameColor : lineColor),
        'aria-hidden': 'true',
      }),
    );
  }
  if (!axis.ticks || axis.ticks.style.visible === false) return group;
  const from = edge + outward * (size + gapToLabels);
  labels.lines.forEach((lines, which) => {
    if (lines.every((line) => line === '')) return;
    const { value, text } = ticks[which]!;
    const label = upright
      ? uprightLabel(lines, from, at(value), outward, layout.angle, labelLook, maker)
      : acrossLabel(lines, at(value), from, outward, layout, which, labelLook, maker);
    group.append(isShortened(lines, text) ? maker.withWhole(label, text) : label);
  });
  return group;
}

function uprightLabel(
  lines: string[],
  x: number,
  y: number,
  outward: number,
  angle: number,
  look: TextLook,
  maker: Maker,
): SVGElement {
  const align = outward > 0 ? ('start' as const) : ('end' as const);
  const first = y + look.size * 0.35 - ((lines.length - 1) * look.size * 1.25) / 2;
  const turned = angle === 0 ? {} : { transform: `rotate(${angle},${Math.round(x)},${Math.round(y)})` };
  return maker.text(lines, x, first, { ...look, align }, turned);
}

function acrossLabel(
  lines: string[],
  x: number,
  y: number,
  outward: number,
  layout: TickLayout,
  index: number,
  look: TextLook,
  maker: Maker,
): SVGElement {
  const { angle } = layout;
  if (angle !== 0) {
    const align = angle < 0 === outward > 0 ? ('end' as const) : ('start' as const);
    const drop = Math.abs(angle) > 80 ? look.size * 0.35 : look.size * 0.6;
    const place = { x: Math.round(x * 100) / 100, y: y + outward * 2 };
    const turned = { transform: `translate(${place.x},${place.y}) rotate(${angle})` };
    return maker.text(lines, 0, drop, { ...look, align }, turned);
  }
  const lower = layout.stagger && index % 2 === 1 ? lineHeight(look) : 0;
  const first =
    outward > 0
      ? y + look.size * 0.8 + lower
      : y - look.size * 0.15 - (lines.length - 1) * look.size * 1.25 - lower;
  return maker.text(lines, x, first, { ...look, align: 'middle' });
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
  const within = (at: number, low: number, high: number) => Math.max(low, Math.min(at, high));
  return isUpright(place)
    ? within(height / 2, half - rooms.top + edge, height + edge - half)
    : within(width / 2, half - rooms.left + edge, width + rooms.right - edge - half);
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
