/** Scales with so much room at their ends that neither symbols nor labels stick out of the panel. */
import type { Domain } from '../../chart/model.js';
import type { Direction } from '../compile/directions.js';
import type { Layer, Shape } from '../compile/layers.js';
import { withFunctions, type DrawnScale } from '../compile/scales.js';

/** Where the symbols of a chart stand along x and y, and how far they reach around that, in pixels. */
export interface SymbolReach {
  x: [number, number];
  y: [number, number];
  radius: number;
}

/** What stands at values along one direction and reaches so many pixels before the lowest and behind the highest. */
export interface EndReach {
  low: number;
  high: number;
  before: number;
  after: number;
  /** The most that it takes at each end, as a share of the panel. */
  most: number;
}

const outline = 0.5;
/** Symbols never take more of a panel than that at each end. */
const mostOfPanel = 0.2;

interface Placed {
  x: number;
  y: number;
  size: number;
}

function symbolsOf(layer: Layer): Placed[] {
  const own = ({ x, y, varied }: Shape): Placed => ({ x, y, size: varied?.size ?? layer.look.size });
  if (layer.kind === 'points' || layer.kind === 'dots' || layer.kind === 'errors')
    return layer.shapes.map(own);
  return layer.shapes.flatMap(({ x, box }) =>
    (box?.outliers ?? []).map(({ value, extreme }) => {
      const { size } = extreme ? layer.parts!.extreme : layer.parts!.outlier;
      return { x, y: value, size };
    }),
  );
}

/** The reach of the symbols of each layer that has some. */
export function symbolReaches(panels: Layer[][]): SymbolReach[] {
  return panels.flat().flatMap((layer) => {
    const reach: SymbolReach = { x: [Infinity, -Infinity], y: [Infinity, -Infinity], radius: 0 };
    for (const { x, y, size } of symbolsOf(layer)) {
      reach.x = [Math.min(reach.x[0], x), Math.max(reach.x[1], x)];
      // Dots that pile up have places of their own along y.
      if (layer.kind !== 'dots') reach.y = [Math.min(reach.y[0], y), Math.max(reach.y[1], y)];
      reach.radius = Math.max(reach.radius, size / 2 + outline);
    }
    return reach.radius > 0 ? [reach] : [];
  });
}

/** How far symbols reach along one direction. */
export function symbolEnds(reaches: SymbolReach[], along: 'x' | 'y'): EndReach[] {
  return reaches.map(({ [along]: [low, high], radius }) => ({
    low,
    high,
    before: radius,
    after: radius,
    most: mostOfPanel,
  }));
}

/** What is missing at both ends, as shares of the axis, so that everything is within it. */
function missingRoom(scale: DrawnScale, reaches: EndReach[], length: number): [number, number] {
  const places = reaches.map((reach) => ({
    least: scale.unit(reach.low),
    most: scale.unit(reach.high),
    before: Math.min(reach.most, reach.before / length),
    after: Math.min(reach.most, reach.after / length),
  }));
  let [low, high] = [0, 0];
  // What is added at one end makes the room at the other one smaller.
  for (let pass = 0; pass < 4; pass += 1) {
    const whole = 1 + low + high;
    for (const { least, most, before, after } of places) {
      if (Number.isFinite(least)) low = Math.max(low, before * whole - least);
      if (Number.isFinite(most)) high = Math.max(high, after * whole - (1 - most));
    }
  }
  return [low, high];
}

/** Ends that the chart gives, or at which bars stand, stay where they are. */
function isFixed(
  direction: Direction,
  domain: Domain | undefined,
  end: 'low' | 'high',
  standing: boolean,
): boolean {
  const { dimension } = direction;
  if (end === 'low')
    return standing || !!domain?.minimum || !!dimension?.lowerMargin || !!dimension?.niceLower;
  return !!domain?.maximum || !!dimension?.upperMargin || !!dimension?.niceUpper;
}

/** The scale, wider where symbols or labels would stick out of an axis that is `length` pixels long. */
export function withRoom(
  scale: DrawnScale,
  reaches: EndReach[],
  domain: Domain | undefined,
  length: number,
  baseline: number | null,
): DrawnScale {
  const { direction } = scale;
  if (direction.kind === 'category' || reaches.length === 0) return scale;
  const upright = withFunctions({ ...scale, inverted: false });
  const standing = baseline !== null && scale.domain[0] === baseline;
  const [low, high] = missingRoom(upright, reaches, length);
  const bounds: [number, number] = [
    low > 0 && !isFixed(direction, domain, 'low', standing) ? upright.value(-low) : scale.domain[0],
    high > 0 && !isFixed(direction, domain, 'high', standing) ? upright.value(1 + high) : scale.domain[1],
  ];
  const isBound = (bound: number) => Number.isFinite(bound) && (scale.method !== 'log' || bound > 0);
  if (bounds.every((bound, at) => bound === scale.domain[at]) || !bounds.every(isBound)) return scale;
  return withFunctions({ ...scale, domain: bounds });
}
