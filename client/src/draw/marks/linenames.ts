/** Names of lines within a panel: where they cover least of what is drawn. */
import * as Plot from '@observablehq/plot';
import { leastIndex } from 'd3';
import { none } from '../svg/colors.js';
import type { Layer } from '../compile/layers.js';
import type { Canvas } from './canvas.js';
import { spotOf, visibleSpots, type Spot } from './visibleline.js';
import { atMost, lineHeight, widest, wrap, type TextLook } from '../svg/text.js';

interface Room {
  left: number;
  right: number;
  bottom: number;
  top: number;
}

export interface NamePlace {
  spot: Spot;
  anchor: 'start' | 'end';
  above: boolean;
}

/** Pieces of a line that are looked at by themselves are that long, in pixels. */
const pieceOfLine = 6;

/** Places between two corners of a line, where it runs on. */
function between([x1, y1]: Spot, [x2, y2]: Spot): Spot[] {
  const pieces = Math.ceil(Math.hypot(x2 - x1, y2 - y1) / pieceOfLine);
  if (!Number.isFinite(pieces) || pieces > 1_000) return [];
  return Array.from({ length: Math.max(0, pieces - 1) }, (_, at) => {
    const share = (at + 1) / pieces;
    return [x1 + share * (x2 - x1), y1 + share * (y2 - y1)];
  });
}

/** A line as the places that it runs through. */
export function alongLine(corners: Spot[]): Spot[] {
  return corners.flatMap((spot, at) => (at === 0 ? [spot] : [...between(corners[at - 1]!, spot), spot]));
}

/** What names have to keep away from in one panel. */
export class Surroundings {
  private readonly names: Room[] = [];
  private marks: Spot[] | null = null;

  constructor(
    readonly canvas: Canvas,
    private readonly layers: Layer[],
    /** Of guides, the places that they run through. */
    private readonly lines: Spot[][],
  ) {}

  /** All places that marks cover. */
  private covered(): Spot[] {
    this.marks ??= this.layers.flatMap((layer) => {
      const spots = layer.shapes.map((shape) => spotOf(shape, this.canvas));
      return layer.kind === 'line' ? alongLine(spots) : spots;
    });
    return this.marks;
  }

  /** The first of the places where a name covers least; `own` is a line that it may lie beside anyway. */
  freest(places: NamePlace[], lines: string[], look: TextLook, own: Spot[] | null): NamePlace | null {
    const marks = [...this.covered(), ...this.lines.filter((line) => line !== own).flat()];
    const costs = places.map((place) => this.cost(roomAt(place, lines, look), marks));
    const best = leastIndex(costs);
    if (best === undefined || best < 0 || costs[best]! >= unreadable) return null;
    this.names.push(roomAt(places[best]!, lines, look));
    return places[best]!;
  }

  private cost(room: Room, marks: Spot[]): number {
    const { width, height } = this.canvas;
    if (room.left < -1 || room.right > width + 1 || room.bottom < -1 || room.top > height + 1)
      return unreadable;
    const isTaken = (other: Room) =>
      other.left < room.right &&
      room.left < other.right &&
      other.bottom < room.top &&
      room.bottom < other.top;
    if (this.names.some(isTaken)) return unreadable;
    const hides = ([across, up]: Spot) =>
      across >= room.left - symbol && across <= room.right + symbol && up >= room.bottom && up <= room.top;
    return marks.filter(hides).length;
  }
}

const unreadable = Infinity;
/** What symbols have around their places, in pixels. */
const symbol = 2;

/** How far from its line a name stands, across and upwards, in sizes of its text. */
const distances = { across: 0.45, up: 0.36 };

function roomAt({ spot: [x, y], anchor, above }: NamePlace, lines: string[], look: TextLook): Room {
  const width = widest(lines, look) + 2 * distances.across * look.size;
  const height = lines.length * lineHeight(look) + distances.up * look.size;
  const left = anchor === 'end' ? x - width : x;
  // The line that is named may touch the name's room.
  const bottom = above ? y + 1 : y - height;
  return { left, right: left + width, bottom, top: above ? y + height : y - 1 };
}

const mostLines = 3;

/** A name in as many lines as it needs where there is so much room beside its line. */
export function linesOfName(name: string, room: number, look: TextLook): string[] {
  return atMost(
    wrap(name, Math.max(2 * look.size, room - 2 * distances.across * look.size), look),
    mostLines,
  );
}

export function nameMark(
  lines: string[],
  { spot, anchor, above }: NamePlace,
  canvas: Canvas,
  look: TextLook,
): Plot.Markish {
  const [across, upright] = canvas.transposed ? [canvas.y, canvas.x] : [canvas.x, canvas.y];
  const place = { x: across.value(spot[0] / canvas.width), y: upright.value(spot[1] / canvas.height) };
  return Plot.text([place], {
    x: 'x',
    y: 'y',
    text: () => lines.join('\n'),
    textAnchor: anchor,
    lineAnchor: above ? 'bottom' : 'top',
    lineHeight: 1.25,
    dx: (anchor === 'end' ? -1 : 1) * distances.across * look.size,
    dy: (above ? -1 : 1) * distances.up * look.size,
    fontFamily: look.family,
    fontSize: look.size,
    ...(look.weight === 'normal' ? {} : { fontWeight: look.weight }),
    fill: look.color,
    stroke: canvas.paper === none ? '#ffffff' : canvas.paper,
    strokeWidth: 3,
  });
}

const sides = [true, false];

/** At the end of a line, at its beginning, then along it; above it and below it. */
export function placesAlong(spots: Spot[]): NamePlace[] {
  if (spots.length === 0) return [];
  const at = (share: number) => spots[Math.round(share * (spots.length - 1))]!;
  const ends: NamePlace[] = [
    ...sides.map((above): NamePlace => ({ spot: at(1), anchor: 'end', above })),
    ...sides.map((above): NamePlace => ({ spot: at(0), anchor: 'start', above })),
  ];
  const inner = [0.9, 0.8, 0.7, 0.6, 0.5, 0.4, 0.3, 0.2, 0.1].flatMap((share) =>
    (['end', 'start'] as const).flatMap((anchor) =>
      sides.map((above): NamePlace => ({ spot: at(share), anchor, above })),
    ),
  );
  return [...ends, ...inner];
}

/**
 * The name of a line of the data in a panel, from the right end of the line on; null where there is no room for it, and
 * none where the line is not seen.
 */
export function layerNameMark(layer: Layer, around: Surroundings, look: TextLook): Plot.Markish[] | null {
  const { canvas } = around;
  const spots = visibleSpots(layer, canvas);
  if (spots.length === 0) return [];
  if (spots[0]![0] > spots[spots.length - 1]![0]) spots.reverse();
  const lines = linesOfName(layer.element.name, canvas.width, look);
  const place = around.freest(placesAlong(spots), lines, look, null);
  return place && [nameMark(lines, place, canvas, look)];
}

export const noRoomFor = (name: string) => `The name of the line "${name}" has no room.`;
