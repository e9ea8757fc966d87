/** Axes beside panels: what of their labels and titles has room, and how much they take. */
import type { Axis } from '../../chart/model.js';
import { plainText } from '../../chart/labels.js';
import { ownTexts } from '../compile/looks.js';
import { isShortened, lookOfNames } from './names.js';
import type { DrawnScale } from '../compile/scales.js';
import { labelsBeside, type Neighbours, type PanelLabels } from './neighbours.js';
import { atMost, lineHeight, textLook, wrap, type TextLook } from '../svg/text.js';
import { askedLabels } from './thinning.js';
import { layoutAcross, layoutUpright, leastLabelSize } from './ticklabels.js';
import { tickLength, type Tick, type TickLayout } from './ticks.js';
import { counted } from '../notes/counts.js';

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

export const gapToLabels = 4;
const gapToTitle = 7;
const gapBetweenAxes = 8;

export const isUpright = (place: AxisPlace) => place === 'left' || place === 'right';

export function placeOfAxis(axis: Axis, name: 'x' | 'y', transposed: boolean): AxisPlace {
  const upright = (name === 'y') !== transposed;
  if (upright) return axis.opposite ? 'right' : 'left';
  return axis.opposite ? 'top' : 'bottom';
}

export function labelLookOf(axis: Axis): TextLook {
  return textLook(axis.ticks?.style ?? {}, ownTexts.tickLabel);
}

/** What an axis is called in names and notes. */
export const axisName = ({ axis, scale }: Pick<DrawnAxis, 'axis' | 'scale'>) =>
  plainText(axis.label) || scale.direction.name;

const mostTitleLines = 3;

function titleOf(axis: Axis, length: number, look: TextLook): string[] {
  const text = axis.label?.style.visible === false ? '' : plainText(axis.label);
  return text === '' ? [] : atMost(wrap(text, length, look), mostTitleLines);
}

/** The room that an axis has, in pixels. */
export interface AxisRoom {
  /** Of one panel, and of all of them with what their title may have more. */
  length: number;
  titleLength: number;
  /** The most that names of categories take. */
  labels: number;
  neighbours: Neighbours;
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
  const room = { ticks, scale, length, settings, mostDepth };
  const arranged = (look: TextLook, lines?: number) => layoutBy({ ...room, look, mostLines: lines });
  const asked = askedLabels(ticks, settings);
  const named = scale.direction.kind === 'category' && asked * leastLabelSize <= length;
  const ownLook = labelLookOf(axis);
  const { look: labelLook, lines } = named ? lookOfNames(ownLook, asked, arranged) : { look: ownLook };
  const layout = arranged(labelLook, lines);
  const title = titleOf(axis, titleLength, titleLook);
  const labels = axis.ticks?.style.visible === false ? 0 : layout.depth + gapToLabels;
  const taken =
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
    room: axis.ticks ? taken : taken - labels,
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
    const labels = (count: number) =>
      `${counted(count)} ${count === 1 ? 'label' : 'labels'} of the axis ${name}`;
    if (cut > 0) notes.push(`${labels(cut)} ${cut === 1 ? 'is' : 'are'} shortened.`);
    if (out > 0) notes.push(`${labels(out)} ${out === 1 ? 'has' : 'have'} no room.`);
    return notes;
  });
}
