/** Labels beside what is drawn: where they stand, and which of them have room. */
import { elementName } from '../notes/names.js';
import { mergeFormats, numberText, withGroups } from '../../data/format.js';
import type { Direction } from '../compile/directions.js';
import type { Layer, Shape } from '../compile/layers.js';
import { ownTexts } from '../compile/looks.js';
import type { Canvas } from './canvas.js';
import type { TakenRooms } from './takenrooms.js';
import { lineHeight, textLook, textWidth, type TextLook } from '../svg/text.js';
import { counted } from '../notes/counts.js';

export interface PlacedLabel {
  /** In units of the scales that run across and upwards. */
  x: number;
  y: number;
  text: string;
  side: 'left' | 'right' | 'above' | 'below' | 'within';
}

export interface Candidate extends PlacedLabel {
  /** The place in pixels. */
  across: number;
  down: number;
  /** What the part that it stands in has along y, in pixels. */
  extent?: number;
}

/** A text that keeps away from what it names, in pixels. */
export interface LabelLook extends TextLook {
  /** From the place to the text at its side. */
  gap: number;
  /** From the place to the middle of the text over or below it. */
  shift: number;
}

const leastGap = 6;
const leastShift = 8;
const gapToSymbol = 2;

/** How far the symbols that have labels reach around their places. */
function radiusOf({ kind, look, parts, shapes }: Layer): number {
  if (kind === 'points') return look.size / 2;
  if (kind !== 'boxes' || !parts) return 0;
  const extreme = shapes.some(({ box }) => box?.outliers.some((outlier) => outlier.extreme));
  return Math.max(parts.outlier.size, extreme ? parts.extreme.size : 0) / 2;
}

/** The look of the labels of a layer; null where it shows none. */
export function labelLook(layer: Layer): LabelLook | null {
  const [labeling] = layer.element.labeling;
  if (!labeling || labeling.style.visible === false) return null;
  const look = textLook(labeling.style, ownTexts.dataLabel);
  const beyond = radiusOf(layer) + gapToSymbol;
  const shift = Math.max(leastShift, lineHeight(look) / 2 + 1, beyond + look.size * 0.36);
  return { ...look, gap: Math.max(leastGap, Math.ceil(beyond)), shift: Math.round(shift) };
}

/** What stands beside a shape: its label, or the value along the dimension that labels without a variable show. */
export function labelText(layer: Layer, shape: Shape, x: Direction, y: Direction): string {
  if (shape.label !== undefined) return shape.label;
  const labeling = layer.element.labeling[0];
  if (!labeling || labeling.variable !== '' || labeling.dimension > 1) return '';
  const direction = labeling.dimension === 0 ? x : y;
  const value = labeling.dimension === 0 ? (shape.place ?? shape.x) : shape.y;
  if (Number.isNaN(value)) return '';
  if (direction.kind === 'category') return direction.texts[Math.round(value)] ?? '';
  const own = mergeFormats(labeling.format, direction.format);
  const format = direction.kind === 'number' ? withGroups(own, [value]) : own;
  const [values] = direction.values;
  return values ? values.textOf(value, format) : numberText(value, format, '');
}

/** Parts that stand on each other: what lies beyond the end of one is the next. */
export const isPart = ({ kind, element, group }: Layer) =>
  kind === 'bars' && element.modifier === 3 && group.categories.length > 0;

/** Bars have their labels beyond their ends, which lie below, or at the left, where they go down. */
function sideOf(layer: Layer, shape: Shape, canvas: Canvas): PlacedLabel['side'] {
  if (isPart(layer)) return 'within';
  if (layer.kind !== 'bars') return 'right';
  const down = canvas.y.unit(shape.y2 ?? shape.y) < canvas.y.unit(shape.y1 ?? layer.baseline);
  if (canvas.transposed) return down ? 'left' : 'right';
  return down ? 'below' : 'above';
}

/** In the middle of a part, else at the end. */
function candidatesOf(layer: Layer, canvas: Canvas): Candidate[] {
  return layer.shapes.flatMap((shape): Candidate[] => {
    const text = labelText(layer, shape, canvas.x.direction, canvas.y.direction);
    if (text === '') return [];
    const side = sideOf(layer, shape, canvas);
    const end = shape.y2 ?? shape.y;
    const units = [shape.y1 ?? end, end].map((value) => canvas.y.unit(value)) as [number, number];
    const y = side === 'within' ? canvas.y.value((units[0] + units[1]) / 2) : end;
    const { across, down } = pixelsOf(canvas, shape.x, y);
    if (!isShown(canvas, across, down)) return [];
    const place = canvas.transposed ? { x: y, y: shape.x } : { x: shape.x, y };
    const extent = Math.abs(units[1] - units[0]) * (canvas.transposed ? canvas.width : canvas.height);
    return [{ ...place, text, side, across, down, ...(side === 'within' ? { extent } : {}) }];
  });
}

/** A place from the left and from the top of the panel. */
export function pixelsOf(canvas: Canvas, x: number, y: number): { across: number; down: number } {
  const [ux, uy] = [canvas.x.unit(x), canvas.y.unit(y)];
  const [across, up] = canvas.transposed ? [uy, ux] : [ux, uy];
  return { across: across * canvas.width, down: (1 - up) * canvas.height };
}

export interface Room {
  left: number;
  right: number;
  top: number;
  bottom: number;
}

export function roomOf(label: Candidate, look: LabelLook): Room {
  const width = textWidth(label.text, look);
  const height = lineHeight(look);
  const { gap, shift } = look;
  const centred = -width / 2;
  const beside = { right: gap, left: -gap - width, above: centred, below: centred, within: centred };
  const from = label.across + beside[label.side];
  const middle = label.down + { right: 0, left: 0, above: -shift, below: shift, within: 0 }[label.side];
  return { left: from, right: from + width, top: middle - height / 2, bottom: middle + height / 2 };
}

export const overlap = (a: Room, b: Room) =>
  a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;

/** More cannot be read. */
export const mostLabels = 2_000;

/** What the symbols of a layer cover, so that no label hides one. Of very many there is no room for labels anyway. */
export function symbolRooms(layer: Layer, canvas: Canvas): Room[] {
  if (layer.kind !== 'points' || layer.shapes.length > mostLabels) return [];
  const half = layer.look.size / 2 - 1;
  return layer.shapes.flatMap((shape) => {
    const { across: x, down: y } = pixelsOf(canvas, shape.x, shape.y);
    if (!isShown(canvas, x, y)) return [];
    return [{ left: x - half, right: x + half, top: y - half, bottom: y + half }];
  });
}

/** Whether a place is within the panel; what is not is not drawn. */
export const isShown = ({ width, height }: Canvas, across: number, down: number) =>
  across >= -1 && across <= width + 1 && down >= -1 && down <= height + 1;

/** The label on the sides where it stays in its panel; that of a bar is always beyond its end. */
function sidesOf(label: Candidate, layer: Layer, look: LabelLook, { width }: Canvas): Candidate[] {
  if (layer.kind === 'bars') return [label];
  const sides = (['right', 'left'] as const).map((side) => ({ ...label, side }));
  return sides.filter((each) => {
    const { left, right } = roomOf(each, look);
    return each.side === 'right' ? right <= width : left >= 0;
  });
}

/** Whether a part is as long as the label within it. */
function fitsPart(label: Candidate, look: LabelLook, { transposed }: Canvas): boolean {
  const { left, right } = roomOf(label, look);
  return label.extent === undefined || label.extent >= (transposed ? right - left : look.size);
}

/** The labels of a layer; `taken` is what symbols and labels of all layers cover. */
export function placeLabels(
  canvas: Canvas,
  layer: Layer,
  look: LabelLook,
  taken: TakenRooms,
  notes: string[],
): PlacedLabel[] {
  const all = candidatesOf(layer, canvas);
  if (all.length > mostLabels)
    notes.push(`Of ${counted(all.length)} labels the first ${counted(mostLabels)} are drawn.`);
  const collide = layer.element.showCollidingLabels;
  const lost = new Set<string>();
  const placed = all.slice(0, mostLabels).flatMap((label) => {
    const sides = sidesOf(label, layer, look, canvas);
    const isFree = (each: Candidate) => fitsPart(each, look, canvas) && taken.isFree(roomOf(each, look));
    const free = collide ? (sides[0] ?? label) : sides.find(isFree);
    if (free) taken.add(roomOf(free, look));
    else lost.add(sides.length > 0 ? 'would cover others' : 'have no room in their panel');
    return free ?? [];
  });
  const name = elementName(layer.element);
  notes.push(...[...lost].map((why) => `Labels of ${name} that ${why} are left out.`));
  return placed;
}
