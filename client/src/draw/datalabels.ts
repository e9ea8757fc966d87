/** Labels beside what is drawn: where they stand, and which of them have room. */
import { mergeFormats, numberText } from '../data/format.js';
import type { BoxShape, Layer, Shape } from './layers.js';
import { ownTexts } from './looks.js';
import type { Canvas } from './marks.js';
import { lineHeight, textLook, textWidth, type TextLook } from './text.js';

export interface PlacedLabel {
  /** In units of the scales that run across and upwards. */
  x: number;
  y: number;
  text: string;
  side: 'left' | 'right' | 'above' | 'below';
}

interface Candidate extends PlacedLabel {
  /** The place in pixels. */
  across: number;
  down: number;
}

/** The labels of a box's outliers from the lowest one; those of equal values stand in one text. */
function joinedLabels({ outliers }: BoxShape): { value: number; text: string }[] {
  const texts = new Map<number, string[]>();
  for (const { value, label } of [...outliers].sort((a, b) => a.value - b.value)) {
    if (label) texts.set(value, [...(texts.get(value) ?? []), label]);
  }
  return [...texts].map(([value, labels]) => ({ value, text: labels.join(', ') }));
}

/** The value along the dimension that labels without a variable show. */
function labelAlong(layer: Layer, shape: Shape, canvas: Canvas): string {
  const labeling = layer.element.labeling[0];
  if (!labeling || labeling.variable !== '' || labeling.dimension > 1) return '';
  const { direction } = labeling.dimension === 0 ? canvas.x : canvas.y;
  const value = labeling.dimension === 0 ? (shape.place ?? shape.x) : shape.y;
  if (Number.isNaN(value)) return '';
  if (direction.kind === 'category') return direction.texts[Math.round(value)] ?? '';
  const format = mergeFormats(labeling.format, direction.format);
  const [values] = direction.values;
  return values ? values.textOf(value, format) : numberText(value, format, '');
}

function candidatesOf(layer: Layer, canvas: Canvas): Candidate[] {
  const upright = layer.kind === 'bars' ? (canvas.transposed ? 'right' : 'above') : 'right';
  const candidates: Candidate[] = [];
  const add = (x: number, y: number, text: string, side: PlacedLabel['side']) => {
    const [ux, uy] = [canvas.x.unit(x), canvas.y.unit(y)];
    const [across, up] = canvas.transposed ? [uy, ux] : [ux, uy];
    const place = canvas.transposed ? { x: y, y: x } : { x, y };
    candidates.push({ ...place, text, side, across: across * canvas.width, down: (1 - up) * canvas.height });
  };
  for (const shape of layer.shapes) {
    if (shape.box) {
      // Neighbours stand on both sides, so that those of almost one place can be read.
      const sides = canvas.transposed ? (['above', 'below'] as const) : (['right', 'left'] as const);
      joinedLabels(shape.box).forEach(({ value, text }, at) => add(shape.x, value, text, sides[at % 2]!));
    } else {
      const text = shape.label ?? labelAlong(layer, shape, canvas);
      if (text !== '') add(shape.x, shape.y2 ?? shape.y, text, upright);
    }
  }
  return candidates;
}

interface Room {
  left: number;
  right: number;
  top: number;
  bottom: number;
}

function roomOf(label: Candidate, look: TextLook): Room {
  const width = textWidth(label.text, look);
  const height = lineHeight(look);
  const left = { right: label.across + 6, left: label.across - 6 - width, above: 0, below: 0 }[label.side];
  const from = label.side === 'above' || label.side === 'below' ? label.across - width / 2 : left;
  const middle = label.down + { right: 0, left: 0, above: -8, below: 8 }[label.side];
  return { left: from, right: from + width, top: middle - height / 2, bottom: middle + height / 2 };
}

const overlap = (a: Room, b: Room) =>
  a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;

/** More cannot be read. */
const mostLabels = 2_000;

/** What symbols cover, so that no label hides one. Of very many there is no room for labels anyway. */
function symbolRooms(layer: Layer, canvas: Canvas): Room[] {
  if (layer.kind !== 'points' || layer.shapes.length > mostLabels) return [];
  const half = layer.look.size / 2 - 1;
  return layer.shapes.map((shape) => {
    const [ux, uy] = [canvas.x.unit(shape.x), canvas.y.unit(shape.y)];
    const [across, up] = canvas.transposed ? [uy, ux] : [ux, uy];
    const [x, y] = [across * canvas.width, (1 - up) * canvas.height];
    return { left: x - half, right: x + half, top: y - half, bottom: y + half };
  });
}

/** Unless the chart wants all of them, a label that would cover an earlier one is left out. */
export function placeLabels(canvas: Canvas, layer: Layer, notes: string[]): PlacedLabel[] {
  const look = textLook(layer.element.labeling[0]?.style ?? {}, ownTexts.dataLabel);
  const all = candidatesOf(layer, canvas);
  if (all.length > mostLabels) notes.push(`Of ${all.length} labels the first ${mostLabels} are drawn.`);
  const candidates = all.slice(0, mostLabels);
  if (layer.element.showCollidingLabels) return candidates;
  const taken: Room[] = symbolRooms(layer, canvas);
  const placed = candidates.filter((label) => {
    const room = roomOf(label, look);
    if (taken.some((other) => overlap(room, other))) return false;
    taken.push(room);
    return true;
  });
  const name = layer.element.name || layer.element.id || layer.element.kind;
  if (placed.length < candidates.length)
    notes.push(`Labels of ${name} that would cover others are left out.`);
  return placed;
}
