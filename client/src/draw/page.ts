/** Where the parts of the page stand: what their locations say, and room for texts that need more. */
import { pixels } from '../chart/markup.js';
import type { Chart, Location, Part } from '../chart/model.js';

export interface Rectangle {
  left: number;
  top: number;
  width: number;
  height: number;
}

const usualWidth = 625;
const usualHeight = 500;
const largestSide = 8_000;

export function pageSize(chart: Chart): { width: number; height: number } {
  const given = (extent: Part, far: Part, usual: number) => {
    const find = (part: Part) => chart.locations.find((each) => each.part === part && each.value)?.value;
    const length = find(extent) ?? find(far);
    return length ? Math.min(largestSide, Math.max(60, pixels(length, usual))) : usual;
  };
  return { width: given('width', 'right', usualWidth), height: given('height', 'bottom', usualHeight) };
}

type Edges = Partial<Record<'left' | 'right' | 'top' | 'bottom', number>>;

const nearSide = { left: 'right', right: 'left', top: 'bottom', bottom: 'top' } as const;

/** Finds the places of parts by their ids; locations may go by the places of others. */
export class Places {
  private readonly known = new Map<string, Edges>();
  private readonly pending = new Set<string>();

  constructor(
    private readonly locations: Map<string, Location[]>,
    private readonly page: { width: number; height: number },
  ) {}

  /** What is known of a part's edges; nothing of one that is not there, or that goes by itself. */
  edges(id: string): Edges {
    const known = this.known.get(id);
    if (known) return known;
    if (this.pending.has(id)) return {};
    this.pending.add(id);
    const edges = this.find(this.locations.get(id) ?? []);
    this.pending.delete(id);
    this.known.set(id, edges);
    return edges;
  }

  private find(locations: Location[]): Edges {
    const edges: Edges = {};
    const extents: { width?: number; height?: number } = {};
    for (const { part, method, value, target } of locations) {
      if (part === 'width' || part === 'height') {
        if (method === 'value' && value) extents[part] = pixels(value, this.page[part]);
        continue;
      }
      const whole = part === 'left' || part === 'right' ? this.page.width : this.page.height;
      if (method === 'value' && value) edges[part] = pixels(value, whole);
      if (method === 'target') {
        const side = this.edges(target)[nearSide[part]];
        if (side !== undefined) edges[part] = side;
      }
    }
    complete(edges, 'left', 'right', extents.width);
    complete(edges, 'top', 'bottom', extents.height);
    return edges;
  }
}

function complete(edges: Edges, near: keyof Edges, far: keyof Edges, extent: number | undefined): void {
  if (extent === undefined) return;
  if (edges[near] !== undefined) edges[far] ??= edges[near] + extent;
  else if (edges[far] !== undefined) edges[near] = edges[far] - extent;
}

/** The edges with what is missing taken from the whole. */
export function rectangle(edges: Edges, whole: Rectangle): Rectangle {
  const left = edges.left ?? whole.left;
  const top = edges.top ?? whole.top;
  const right = edges.right ?? whole.left + whole.width;
  const bottom = edges.bottom ?? whole.top + whole.height;
  return { left, top, width: Math.max(1, right - left), height: Math.max(1, bottom - top) };
}
