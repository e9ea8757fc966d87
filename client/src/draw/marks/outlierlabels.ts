/** Labels of the outliers of boxes: beside their symbols, or further out where they would cover each other. */
import {
  isShown,
  mostLabels,
  pixelsOf,
  roomOf,
  type LabelLook,
  type PlacedLabel,
  type Room,
} from './datalabels.js';
import type { BoxShape, Layer, Shape } from '../compile/layers.js';
import { capShare } from './boxmarks.js';
import type { Canvas } from './canvas.js';
import { lineHeight } from '../svg/text.js';
import { counted } from '../notes/counts.js';
import { TakenRooms } from './takenrooms.js';

/** The labels of a box's outliers from the lowest one; those of equal values stand in one text, or a `short` one. */
function joinedLabels({ outliers }: BoxShape): { value: number; text: string; short: string }[] {
  const texts = new Map<number, string[]>();
  for (const { value, label } of [...outliers].sort((a, b) => a.value - b.value)) {
    if (label) texts.set(value, [...(texts.get(value) ?? []), label]);
  }
  return [...texts].map(([value, labels]) => {
    const others = labels.length > 1 ? ` +${labels.length - 1}` : '';
    return { value, text: labels.join(', '), short: labels[0]! + others };
  });
}

/** From one place of the panel to another, with so much around it. */
function between(
  canvas: Canvas,
  [x1, y1]: [number, number],
  [x2, y2]: [number, number],
  around: number,
): Room {
  const [a, b] = [pixelsOf(canvas, x1, y1), pixelsOf(canvas, x2, y2)];
  return {
    left: Math.min(a.across, b.across) - around,
    right: Math.max(a.across, b.across) + around,
    top: Math.min(a.down, b.down) - around,
    bottom: Math.max(a.down, b.down) + around,
  };
}

/** What a box and its outliers cover. */
function boxRooms(canvas: Canvas, layer: Layer, shape: Shape): Room[] {
  const { box, outliers } = shape.box!;
  const half = layer.parts!.outlier.size / 2;
  const rooms = outliers.map(({ value }) => between(canvas, [shape.x, value], [shape.x, value], half - 1));
  rooms.push(between(canvas, [shape.x1!, box.lowerHinge], [shape.x2!, box.upperHinge], 0));
  const cap = (capShare * (shape.x2! - shape.x1!)) / 2;
  for (const end of [box.lowest, box.highest])
    rooms.push(between(canvas, [shape.x - cap, end], [shape.x + cap, end], 0));
  rooms.push(between(canvas, [shape.x, box.lowest], [shape.x, box.highest], 1));
  return rooms;
}

/** Half of what a box has to itself: from its middle to that of the way to the next one, in pixels. */
function ownPlace(canvas: Canvas, shape: Shape, boxes: Shape[]): number {
  const extent = canvas.transposed ? canvas.height : canvas.width;
  const at = (each: Shape) => canvas.x.unit(each.x) * extent;
  const distances = boxes.map((each) => Math.abs(at(each) - at(shape))).filter((distance) => distance > 1);
  return Math.min(extent, ...distances) / 2;
}

const mostColumns = 3;
const gapBetweenLabels = 4;

/** Moved away from its symbol on its side by so many pixels. */
function moved(label: PlacedLabel, canvas: Canvas, by: number): PlacedLabel {
  const away = label.side === 'right' || label.side === 'above' ? by : -by;
  const [scale, extent] = [canvas.x, canvas.transposed ? canvas.height : canvas.width];
  const shift = (place: number) => scale.value(scale.unit(place) + away / extent);
  return canvas.transposed ? { ...label, y: shift(label.y) } : { ...label, x: shift(label.x) };
}

/** Finds places for labels one after the other. */
class OutlierPlaces {
  /** What the boxes take. */
  readonly boxes: TakenRooms;

  constructor(
    private readonly canvas: Canvas,
    private readonly look: LabelLook,
    private readonly texts: TakenRooms,
  ) {
    this.boxes = new TakenRooms(canvas);
  }

  /** Beside the symbol, else in a column further out, but not beyond `reach`; null where there is no room. */
  find(x: number, y: number, text: string, reach: number): PlacedLabel | null {
    const { canvas } = this;
    const sides = canvas.transposed ? (['above', 'below'] as const) : (['right', 'left'] as const);
    const symbol = pixelsOf(canvas, x, y);
    if (!isShown(canvas, symbol.across, symbol.down)) return null;
    const place = canvas.transposed ? { x: y, y: x } : { x, y };
    const shifts = sides.map(() => 0);
    for (let column = 0; column < mostColumns; column += 1) {
      for (const [at, side] of sides.entries()) {
        const label = moved({ ...place, text, side }, canvas, shifts[at]!);
        const room = this.roomOf(label);
        const [centre, outer] = canvas.transposed
          ? [symbol.down, side === 'above' ? room.top : room.bottom]
          : [symbol.across, side === 'right' ? room.right : room.left];
        if (column > 0 && Math.abs(outer - centre) > reach) continue;
        const beside = [...this.boxes.covered(room), ...this.texts.covered(room)];
        if (beside.length === 0 && this.isWithin(room)) {
          this.texts.add(room);
          return label;
        }
        shifts[at] = shifts[at]! + this.stepOver(room, beside, side);
      }
    }
    return null;
  }

  private roomOf(label: PlacedLabel): Room {
    const { canvas } = this;
    const place = canvas.transposed ? pixelsOf(canvas, label.y, label.x) : pixelsOf(canvas, label.x, label.y);
    return roomOf({ ...label, ...place }, this.look);
  }

  private isWithin(room: Room): boolean {
    const { width, height } = this.canvas;
    const above = this.canvas.transposed ? 0 : -lineHeight(this.look);
    return room.left >= 0 && room.right <= width && room.top >= above && room.bottom <= height - above;
  }

  /** How far beyond what it would cover a label has to go. */
  private stepOver(room: Room, others: Room[], side: PlacedLabel['side']): number {
    if (side === 'right')
      return Math.max(0, ...others.map((other) => other.right - room.left)) + gapBetweenLabels;
    if (side === 'left')
      return Math.max(0, ...others.map((other) => room.right - other.left)) + gapBetweenLabels;
    return lineHeight(this.look);
  }
}

const noteOfLost = /^([\d,]+) labels? of outliers ha(?:s|ve) no room\.$/;

/** One note for all panels and groups. */
function noteLost(count: number, notes: string[]): void {
  if (count === 0) return;
  const at = notes.findIndex((note) => noteOfLost.test(note));
  const all = count + (at < 0 ? 0 : Number(noteOfLost.exec(notes[at]!)![1]!.replace(/,/g, '')));
  const note = `${counted(all)} ${all === 1 ? 'label' : 'labels'} of outliers ${all === 1 ? 'has' : 'have'} no room.`;
  if (at < 0) notes.push(note);
  else notes[at] = note;
}

/**
 * The labels of a layer's outliers that can be read, where no label of any layer has `taken` the room; a chart that wants
 * all of them gets no unreadable ones either.
 */
export function placeOutliers(
  canvas: Canvas,
  layer: Layer,
  layers: Layer[],
  look: LabelLook,
  taken: TakenRooms,
  notes: string[],
): PlacedLabel[] {
  const places = new OutlierPlaces(canvas, look, taken);
  const boxes = layers.filter(({ kind }) => kind === 'boxes');
  for (const each of boxes)
    for (const shape of each.shapes) for (const room of boxRooms(canvas, each, shape)) places.boxes.add(room);
  const wanted = layer.shapes.flatMap((shape) =>
    joinedLabels(shape.box!).map((label) => ({ ...label, shape })),
  );
  if (wanted.length > mostLabels)
    notes.push(`Of ${counted(wanted.length)} labels the first ${counted(mostLabels)} are drawn.`);
  const shapes = boxes.flatMap((each) => each.shapes);
  const shown = wanted.slice(0, mostLabels);
  const placed = shown.flatMap(({ shape, value, text, short }) => {
    const find = (which: string) => places.find(shape.x, value, which, ownPlace(canvas, shape, shapes));
    return find(text) ?? find(short) ?? [];
  });
  noteLost(shown.length - placed.length, notes);
  return placed;
}
