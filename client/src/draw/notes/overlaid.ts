/** Bars, areas and boxes in one place, where the chart neither stacks them nor sets them apart. */
import { none } from '../svg/colors.js';
import type { Layer } from '../compile/layers.js';
import { coverings, type Covering } from './coverings.js';

/** So that three on each other can still be told apart. */
const seeThrough = 0.5;
const leastOutline = 1;

const words = {
  bars: { what: 'Bars', not: 'stacked' },
  area: { what: 'Areas', not: 'stacked' },
  boxes: { what: 'Boxes', not: 'set apart' },
};

const isArea = (layer: Layer) => layer.kind === 'area' && layer.element.modifier !== 3;

function reach({ shapes }: Layer): [number, number] {
  return shapes.reduce<[number, number]>(
    ([low, high], { x }) => [Math.min(low, x), Math.max(high, x)],
    [Infinity, -Infinity],
  );
}

/** Areas reach over all between their ends; those from one value to another are meant to lie on others. */
function areaCoverings(layers: Layer[]): Covering[] {
  const areas = layers.filter(isArea).map((layer) => ({ layer, reach: reach(layer) }));
  return areas.flatMap((one, at) =>
    areas.slice(at + 1).flatMap((other): Covering[] => {
      const same = one.layer.element === other.layer.element;
      const standing = [one, other].every(({ layer }) => layer.element.y.length < 2);
      const shared = one.reach[0] < other.reach[1] && other.reach[0] < one.reach[1];
      if (!shared || !(same || standing)) return [];
      return [{ layers: [one.layer, other.layer], of: same ? 'groups' : 'elements' }];
    }),
  );
}

function makeSeeThrough(layer: Layer): void {
  if (layer.element.style.opacity !== undefined) return;
  const { look } = layer;
  const stroke = look.fill === none ? look.stroke : look.fill;
  const strokeWidth = Math.max(look.strokeWidth, leastOutline);
  layer.look = { ...look, opacity: Math.min(look.opacity, seeThrough), stroke, strokeWidth };
}

/**
 * Makes bars and areas that cover others see-through, with an outline in their own colour; the notes say so, for such
 * a picture is easily taken for a stack. What the chart says of their opacity stands.
 */
export function showOverlaid(panels: Layer[][]): string[] {
  const found = new Set<string>();
  const covered = new Set<Layer>();
  for (const layers of panels) {
    for (const { layers: both, of } of [...coverings(layers), ...areaCoverings(layers)]) {
      const { what, not } = words[both[0].kind as keyof typeof words];
      found.add(`${what} of several ${of} cover each other: they are not ${not}.`);
      if (of !== 'rows' && both[0].kind !== 'boxes') for (const layer of both) covered.add(layer);
    }
  }
  covered.forEach(makeSeeThrough);
  return [...found];
}
