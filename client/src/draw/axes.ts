/** Axes as they are drawn beside panels: line, ticks, labels, and title. */
import { pixels } from '../chart/markup.js';
import type { Axis } from '../chart/model.js';
import { plainText } from '../chart/labels.js';
import { none, safeColor } from './colors.js';
import { ownTexts } from './looks.js';
import type { DrawnScale } from './scales.js';
import type { Maker } from './svg.js';
import { lineHeight, textLook, wrap, type TextLook } from './text.js';
import { layoutAcross, layoutUpright, tickLength, type Tick, type TickLayout } from './ticks.js';

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
  /** Labels that those of the panel beside it stand for. */
  hidden?: (tick: Tick, scale: DrawnScale) => boolean;
}

const gapToLabels = 4;
const gapToTitle = 7;

export const isUpright = (place: AxisPlace) => place === 'left' || place === 'right';

export function labelLookOf(axis: Axis): TextLook {
  return textLook(axis.ticks?.style ?? {}, ownTexts.tickLabel);
}

/** Finds room for an axis beside a panel that is `length` long, its title beside all panels. */
export function layoutAxis(
  axis: Axis,
  scale: DrawnScale,
  place: AxisPlace,
  ticks: Tick[],
  length: number,
  wholeLength: number,
  mostRoom: number,
  gap = Infinity,
): DrawnAxis {
  const labelLook = labelLookOf(axis);
  const titleLook = { ...textLook(axis.label?.style ?? {}, ownTexts.axisLabel), align: 'middle' as const };
  const upright = isUpright(place);
  // Angles of charts run against the clock, those of SVG with it.
  const settings = axis.ticks && axis.ticks.angle ? { ...axis.ticks, angle: -axis.ticks.angle } : axis.ticks;
  const layout = upright
    ? layoutUpright(ticks, scale, length, settings, labelLook, mostRoom)
    : layoutAcross(ticks, scale, length, settings, labelLook, mostRoom, gap);
  const text = axis.label?.style.visible === false ? '' : plainText(axis.label);
  const title = text === '' ? [] : wrap(text, wholeLength, titleLook);
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
  };
}

function strokeAttributes(
  style: { color?: string; strokeWidth?: import('../chart/markup.js').Length },
  otherwise: string,
) {
  return {
    stroke: safeColor(style.color) ?? otherwise,
    'stroke-width': style.strokeWidth ? pixels(style.strokeWidth, 1) : 1,
    fill: none,
  };
}

export const lineColor = '#4d4d4d';
export const frameColor = '#9a9a9a';

const leastBetweenMarks = 4;

/** Ticks that would merge stand only where a label is. */
function distinctMarks({ ticks, layout, scale }: DrawnAxis, length: number): Tick[] {
  const places = ticks.map(({ value }) => scale.unit(value) * length).sort((a, b) => a - b);
  const close = places.some((place, at) => at > 0 && place - places[at - 1]! < leastBetweenMarks);
  return close ? ticks.filter((_, at) => layout.lines[at]!.length > 0) : ticks;
}

/** Labels of one axis beside one panel whose corner is at 0, 0. */
export function drawTicks(
  drawn: DrawnAxis,
  width: number,
  height: number,
  maker: Maker,
  framed: boolean,
): SVGElement {
  const { axis, place, scale, ticks, layout, labelLook } = drawn;
  const text = plainText(axis.label);
  const group = maker.group(`${text || scale.direction.name} axis`, 'group');
  const upright = isUpright(place);
  const length = upright ? height : width;
  const at = (value: number) => (upright ? (1 - scale.unit(value)) * length : scale.unit(value) * length);
  const edge = place === 'bottom' ? height : place === 'right' ? width : 0;
  const outward = place === 'bottom' || place === 'right' ? 1 : -1;
  // A frame around the panel stands for the line, unless the chart has given that a look.
  if (axis.style.visible !== false && (!framed || axis.style.color)) {
    const d = upright ? `M${edge},0 V${height}` : `M0,${edge} H${width}`;
    group.append(
      maker.make('path', { d, ...strokeAttributes(axis.style, lineColor), 'aria-hidden': 'true' }),
    );
  }
  const size = tickLength(axis.ticks);
  const marks = axis.ticks?.markStyle.visible === false || !axis.ticks ? [] : distinctMarks(drawn, length);
  if (marks.length > 0 && size > 0) {
    const d = marks.map(({ value }) => {
      const place = Math.round(at(value) * 100) / 100;
      return upright ? `M${edge},${place} h${outward * size}` : `M${place},${edge} v${outward * size}`;
    });
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
  layout.lines.forEach((lines, index) => {
    const hidden = drawn.hidden?.(ticks[index]!, scale) ?? false;
    if (hidden || lines.length === 0 || lines.every((line) => line === '')) return;
    const where = at(ticks[index]!.value);
    group.append(
      upright
        ? uprightLabel(lines, from, where, outward, layout.angle, labelLook, maker)
        : acrossLabel(lines, where, from, outward, layout, index, labelLook, maker),
    );
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

/** The title of an axis beside all panels, which reach from 0, 0 to width, height. */
export function drawAxisTitle(
  drawn: DrawnAxis,
  width: number,
  height: number,
  maker: Maker,
): SVGElement | null {
  const { title, titleLook, place, room } = drawn;
  if (title.length === 0) return null;
  const block = title.length * lineHeight(titleLook);
  const ascent = titleLook.size * 0.95;
  if (place === 'bottom') return maker.text(title, width / 2, height + room - block + ascent, titleLook);
  if (place === 'top') return maker.text(title, width / 2, -room + ascent, titleLook);
  const x = place === 'left' ? -room : width + room;
  const turn = place === 'left' ? -90 : 90;
  const transform = `translate(${Math.round(x * 100) / 100},${height / 2}) rotate(${turn})`;
  return maker.text(title, 0, ascent, titleLook, { transform });
}
