/** Places without cases: counts and sums are 0 there, and lines and areas must not run past them. */
import { binOf, boundsOf, type Bins } from '../../statistics/bins.js';
import type { Layer, Shape } from './layers.js';
import type { Plan } from './plan.js';
import { stackModifier } from './positions.js';

/** All classes between two of them. */
function classesBetween(bins: Bins, found: number[]): number[] {
  const classes = found.map((x) => binOf(bins, x));
  const first = classes.reduce((least, each) => Math.min(least, each), Infinity);
  const last = classes.reduce((most, each) => Math.max(most, each), -Infinity);
  return Array.from({ length: Math.max(0, last - first + 1) }, (_, at) => first + at);
}

function emptyClass(bins: Bins, at: number): Shape {
  const [x1, x2] = boundsOf(bins, at);
  return { x: (x1 + x2) / 2, y: 0, x1, x2 };
}

/** The shapes that a group has at places of its own, and those of 0 at the others. */
function filled(layer: Layer, wanted: Shape[]): Shape[] {
  const known = new Set(layer.shapes.map(({ x }) => x));
  const varied = layer.shapes[0]?.varied;
  const empty = wanted
    .filter(({ x }) => !known.has(x))
    .map((shape): Shape => ({ ...shape, between: true, cases: 0, ...(varied ? { varied } : {}) }));
  return [...layer.shapes, ...empty].sort((a, b) => a.x - b.x);
}

/** In stacks the places of all groups, else those between the first and the last of its own. */
export function fillEmptyPlaces(layers: Layer[], { kind, element, bins, summary }: Plan): void {
  if (summary?.ofNothing !== 0 || (kind !== 'area' && kind !== 'line')) return;
  const stacked = kind === 'area' && element.modifier === stackModifier;
  const placesOf = (all: Layer[]): Shape[] => {
    const found = [...new Set(all.flatMap(({ shapes }) => shapes.map(({ x }) => x)))];
    if (bins) return classesBetween(bins, found).map((at) => emptyClass(bins, at));
    return stacked ? found.map((x) => ({ x, y: 0 })) : [];
  };
  const common = stacked ? placesOf(layers) : null;
  for (const layer of layers) {
    if (layer.shapes.length > 0) layer.shapes = filled(layer, common ?? placesOf([layer]));
  }
}
