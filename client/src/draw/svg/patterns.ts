/** Fills with patterns, told apart by their number. */
import { hashOf, type Maker } from './svg.js';
import { none } from './colors.js';

/** What is drawn in a tile of 8 pixels: strokes as a path, or dots by their places and radius. */
interface Tile {
  strokes?: string;
  dots?: [number, number, number][];
}

const slash = 'M-2,2 l4,-4 M0,8 l8,-8 M6,10 l4,-4';
const backslash = 'M-2,6 l4,4 M0,0 l8,8 M6,-2 l4,4';
const level = 'M0,2 h8 M0,6 h8';
const upright = 'M2,0 v8 M6,0 v8';

/** 1 is solid; numbers beyond the table begin again with 2. */
const tiles: Tile[] = [
  { strokes: slash },
  {
    dots: [
      [2, 2, 1.2],
      [6, 6, 1.2],
    ],
  },
  { strokes: `${slash} ${backslash}` },
  { strokes: level },
  { strokes: upright },
  { strokes: backslash },
  { strokes: 'M0,4 h8 M4,0 v8' },
  {
    dots: [
      [2, 2, 2],
      [6, 6, 2],
    ],
  },
];

export function isSolid(pattern: number): boolean {
  return pattern <= 1 || !Number.isFinite(pattern);
}

/** Collects the definitions of the patterns that a chart uses. */
export class Patterns {
  private readonly made = new Map<string, SVGElement>();

  constructor(
    private readonly maker: Maker,
    private readonly paper: string,
  ) {}

  /** What to fill with. */
  fill(color: string, pattern: number): string {
    if (isSolid(pattern) || color === none) return color;
    const id = `${this.maker.prefix}-pattern-${Math.round(pattern)}-${hashOf(color)}`;
    if (!this.made.has(id)) this.made.set(id, this.define(id, color, Math.round(pattern)));
    return `url(#${id})`;
  }

  definitions(): SVGElement[] {
    return [...this.made.values()];
  }

  private define(id: string, color: string, pattern: number): SVGElement {
    const tile = tiles[(pattern - 2) % tiles.length]!;
    const children = [this.maker.make('rect', { width: 8, height: 8, fill: this.paper })];
    if (tile.strokes) {
      children.push(
        this.maker.make('path', { d: tile.strokes, fill: none, stroke: color, 'stroke-width': 1.6 }),
      );
    }
    for (const [cx, cy, r] of tile.dots ?? [])
      children.push(this.maker.make('circle', { cx, cy, r, fill: color }));
    return this.maker.make('pattern', { id, width: 8, height: 8, patternUnits: 'userSpaceOnUse' }, children);
  }
}
