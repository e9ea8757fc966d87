/** Bars and areas of several groups in one place, where the chart neither stacks them nor sets them apart. */
import { none } from '../svg/colors.js';
import type { Layer } from '../compile/layers.js';

/** So that three on each other can still be told apart. */
const seeThrough = 0.5;
const leastOutline = 1;

const words = { bars: 'Bars', area: 'Areas' } as const;
type Wide = keyof typeof words;

const isWide = (layer: Layer): layer is Layer & { kind: Wide } =>
  (layer.kind === 'bars' || layer.kind === 'area') && layer.element.modifier !== 3;

/** Bars have places, areas reach over all between their ends. */
function share(one: Layer, other: Layer): boolean {
  if (one.kind === 'bars') {
    const places = new Set(one.shapes.map(({ x }) => x));
    return other.shapes.some(({ x }) => places.has(x));
  }
  const [low, high] = reach(one);
  const [otherLow, otherHigh] = reach(other);
  return low < otherHigh && otherLow < high;
}

function reach({ shapes }: Layer): [number, number] {
  return shapes.reduce<[number, number]>(
    ([low, high], { x }) => [Math.min(low, x), Math.max(high, x)],
    [Infinity, -Infinity],
  );
}

/**
 * Makes what covers others see-through, with an outline in its own colour; the notes say so, for such a picture is
 * easily taken for a stack. What the chart says of their opacity stands.
 */
export function showOverlaid(panels: Layer[][]): string[] {
  const found = new Set<Wide>();
  for (const layers of panels) {
    const wide = layers.filter(isWide);
    const covered = wide.filter((layer) =>
      wide.some((other) => other !== layer && other.element === layer.element && share(layer, other)),
    );
    for (const layer of covered) {
      found.add(layer.kind);
      if (layer.element.style.opacity !== undefined) continue;
      const { look } = layer;
      const stroke = look.fill === none ? look.stroke : look.fill;
      const strokeWidth = Math.max(look.strokeWidth, leastOutline);
      layer.look = { ...look, opacity: Math.min(look.opacity, seeThrough), stroke, strokeWidth };
    }
  }
  return [...found].map((kind) => `${words[kind]} of several groups cover each other: they are not stacked.`);
}
