/** Which bars, and which boxes, of a panel cover each other. */
import type { Layer, Shape } from '../compile/layers.js';

export interface Covering {
  layers: [Layer, Layer];
  /** What the two show: rows of one group, groups of one element, or several elements. */
  of: 'rows' | 'groups' | 'elements';
}

/** A place that marks of a layer take, from one value to another along both directions. */
interface Taken {
  layer: Layer;
  x: [number, number];
  y: [number, number];
}

/** Sums are not exact: what shares less than that share of its extent does not cover. */
const slack = 1e-6;

function overlap(one: [number, number], other: [number, number]): boolean {
  const least = slack * Math.min(one[1] - one[0], other[1] - other[0]);
  return one[0] < other[1] - least && other[0] < one[1] - least;
}

function takenBy(layer: Layer, shape: Shape): Taken | null {
  const { x1, x2, box } = shape;
  const [y1, y2] = box ? [box.box.lowest, box.box.highest] : [shape.y1, shape.y2];
  if (x1 === undefined || x2 === undefined || y1 === undefined || y2 === undefined) return null;
  if (y1 === y2 && !box) return null;
  const sorted = (a: number, b: number): [number, number] => [Math.min(a, b), Math.max(a, b)];
  return { layer, x: sorted(x1, x2), y: sorted(y1, y2) };
}

/** What a layer takes, places that overlap as one; `several` where there are such. */
function merged(layer: Layer): { taken: Taken[]; several: boolean } {
  const all = layer.shapes.flatMap((shape) => takenBy(layer, shape) ?? []);
  all.sort((a, b) => a.x[0] - b.x[0] || a.y[0] - b.y[0]);
  const taken: Taken[] = [];
  for (const each of all) {
    const last = taken[taken.length - 1];
    const same = last && last.x[0] === each.x[0] && overlap(last.y, each.y);
    if (same) last.y = [last.y[0], Math.max(last.y[1], each.y[1])];
    else taken.push(each);
  }
  return { taken, several: taken.length < all.length };
}

/** The narrower of two elements in front of the other hides nothing: what is behind shows on both sides. */
function isInside(front: Taken, back: Taken): boolean {
  const least = slack * (back.x[1] - back.x[0]);
  return front.x[0] > back.x[0] + least && front.x[1] < back.x[1] - least;
}

function coveringOf(front: Taken, back: Taken): Covering | null {
  const [one, other] = [back.layer, front.layer];
  if (one === other || one.kind !== other.kind) return null;
  if (!overlap(front.x, back.x) || !overlap(front.y, back.y)) return null;
  if (one.element === other.element) return { layers: [one, other], of: 'groups' };
  return isInside(front, back) ? null : { layers: [one, other], of: 'elements' };
}

/** Each pair of layers once. */
export function coverings(layers: Layer[]): Covering[] {
  const wide = layers.filter(({ kind }) => kind === 'bars' || kind === 'boxes');
  const own = wide.map((layer) => ({ layer, ...merged(layer) }));
  const found = own
    .filter(({ layer, several }) => several && layer.kind === 'bars')
    .map(({ layer }): Covering => ({ layers: [layer, layer], of: 'rows' }));
  const order = new Map(wide.map((layer, at) => [layer, at]));
  const all = own.flatMap(({ taken }) => taken).sort((a, b) => a.x[0] - b.x[0]);
  const known = new Set<number>();
  let open: Taken[] = [];
  for (const each of all) {
    open = open.filter(({ x }) => x[1] > each.x[0]);
    for (const other of open) {
      const [a, b] = [order.get(each.layer)!, order.get(other.layer)!];
      const pair = Math.min(a, b) * wide.length + Math.max(a, b);
      if (known.has(pair)) continue;
      const covering = a > b ? coveringOf(each, other) : coveringOf(other, each);
      if (!covering) continue;
      known.add(pair);
      found.push(covering);
    }
    open.push(each);
  }
  return found;
}
