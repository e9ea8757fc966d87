/** Scales: from the values that are shown to the bounds and the form of a dimension. */
import { scaleLinear, scaleLog, scalePow, scaleSymlog, tickIncrement } from 'd3';
import type { Domain, Scale } from '../../chart/model.js';
import { pixels, type Length } from '../../chart/markup.js';
import { decimalsOf, mostDecimals, numberText } from '../../data/format.js';
import { placeOf, unitOfDate, type Direction } from './directions.js';
import type { Layer, Shape } from './layers.js';
import { counted } from '../notes/counts.js';

export interface DrawnScale {
  direction: Direction;
  domain: [number, number];
  method: Scale['method'];
  /** The base of a logarithm or the exponent of a power. */
  base: number;
  inverted: boolean;
  /** From 0 at the lower bound to 1 at the upper one. */
  unit(value: number): number;
  /** The other way round. */
  value(unit: number): number;
}

/** What is shown along a direction, and whether it begins at a base line. */
interface Reach {
  low: number;
  high: number;
  lowestPositive: number;
  /** Of the data alone, without the base line. */
  lowestValue: number;
  highestValue: number;
  baseline: boolean;
  binned: boolean;
  lines: boolean;
}

const roomAround = 0.04;
const roomOfLines = 0.015;

const usualBase: Record<Scale['method'], number> = {
  linear: 1,
  log: 10,
  'symmetric log': 10,
  power: 0.5,
  'symmetric power': 0.5,
};

function alongX(shape: Shape): (number | undefined)[] {
  return [shape.x1, shape.x2, shape.x];
}

function alongY(shape: Shape): (number | undefined)[] {
  const { box } = shape;
  if (box) return [box.box.lowest, box.box.highest, ...box.outliers.map((outlier) => outlier.value)];
  if (shape.y1 !== undefined) return [shape.y1, shape.y2];
  return shape.low !== undefined ? [shape.low, shape.high, shape.y] : [shape.y];
}

const isStanding = (layer: Layer) =>
  (layer.kind === 'bars' || layer.kind === 'area') && layer.element.y.length < 2;

/** What of a shape are values, not its width or the base line on which it stands. */
function valuesAlong(direction: Direction, layer: Layer, shape: Shape): (number | undefined)[] {
  if (direction.name === 'y') return isStanding(layer) ? [shape.y2 ?? shape.y] : alongY(shape);
  const wide = layer.kind === 'bars' || layer.kind === 'boxes' || layer.kind === 'errors';
  return wide || shape.x1 === undefined ? [shape.x] : [shape.x1, shape.x2];
}

function reachOf(panels: Layer[][], direction: Direction, guides: number[]): Reach {
  const reach: Reach = {
    low: Infinity,
    high: -Infinity,
    lowestPositive: Infinity,
    lowestValue: Infinity,
    highestValue: -Infinity,
    baseline: false,
    binned: false,
    lines: true,
  };
  const add = (value: number | undefined) => {
    if (value === undefined || Number.isNaN(value)) return;
    reach.low = Math.min(reach.low, value);
    reach.high = Math.max(reach.high, value);
    if (value > 0) reach.lowestPositive = Math.min(reach.lowestPositive, value);
  };
  const addValue = (value: number | undefined) => {
    if (value === undefined || Number.isNaN(value)) return;
    reach.lowestValue = Math.min(reach.lowestValue, value);
    reach.highestValue = Math.max(reach.highestValue, value);
  };
  const along = direction.name === 'x' ? alongX : alongY;
  for (const layer of panels.flat()) {
    for (const shape of layer.shapes) {
      along(shape).forEach(add);
      for (const value of valuesAlong(direction, layer, shape)) addValue(value);
    }
    if (direction.name === 'y' && isStanding(layer)) reach.baseline = true;
    if (direction.name === 'y' && layer.element.density) reach.baseline = true;
    if (direction.name === 'x' && layer.binned) reach.binned = true;
    if (layer.kind !== 'line' && layer.kind !== 'area') reach.lines = false;
  }
  guides.forEach(add);
  guides.forEach(addValue);
  return reach;
}

function margin(length: Length | null, otherwise: number): number {
  return length ? Math.max(0, length.unit === '%' ? length.value / 100 : pixels(length, 1) / 400) : otherwise;
}

function categoryDomain(direction: Direction): [number, number] {
  const count = Math.max(1, direction.texts.length);
  const { dimension } = direction;
  return [
    -0.5 - margin(dimension?.lowerMargin ?? null, 0) * count,
    count - 0.5 + margin(dimension?.upperMargin ?? null, 0) * count,
  ];
}

/** Bounds at whole steps of ticks. */
function nice([low, high]: [number, number], atLow: boolean, atHigh: boolean): [number, number] {
  const increment = tickIncrement(low, high, 8);
  const step = increment < 0 ? -1 / increment : increment;
  if (!Number.isFinite(step) || step === 0) return [low, high];
  const floor = Math.floor(low / step + 1e-9) * step;
  const ceiling = Math.ceil(high / step - 1e-9) * step;
  return [atLow ? floor : low, atHigh ? ceiling : high];
}

function bound(domain: Domain | null, direction: Direction, which: 'minimum' | 'maximum'): number | null {
  const text = domain?.[which];
  return text ? placeOf(direction, text) : null;
}

/** The bounds where there is only one value: far enough from it for ticks of its own digits. */
function around(value: number, direction: Direction, baseline: boolean): [number, number] {
  if (value === 0 && baseline) return [0, 1];
  const most = mostDecimals(direction.format) ?? 15;
  const unit = 10 ** -decimalsOf(value, Math.min(most, 15));
  const room = direction.kind === 'date' ? unitOfDate(value) : Math.max(unit, Math.abs(value) * 0.05);
  return [value - room, value + room];
}

/** Beside the only bar of a date there is room for ticks, too. */
function aroundOnly(direction: Direction, reach: Reach, bounds: [number, number]): [number, number] {
  const { lowestValue: only, highestValue, binned } = reach;
  const bars = direction.name === 'x' && direction.kind === 'date' && !binned;
  if (!bars || only !== highestValue || direction.domain?.minimum || direction.domain?.maximum) return bounds;
  const [low, high] = around(only, direction, false);
  return [Math.min(low, bounds[0]), Math.max(high, bounds[1])];
}

function linearDomain(direction: Direction, reach: Reach, domain: Domain | null): [number, number] {
  const minimum = bound(domain, direction, 'minimum');
  const maximum = bound(domain, direction, 'maximum');
  let low = minimum ?? reach.low;
  let high = maximum ?? reach.high;
  if (!(Number.isFinite(low) && Number.isFinite(high)))
    [low, high] = [minimum ?? 0, maximum ?? (minimum ?? 0) + 1];
  if (low === high) [low, high] = around(low, direction, reach.baseline);
  [low, high] = aroundOnly(direction, reach, [low, high]);
  const { dimension } = direction;
  const usual = reach.lines && direction.name === 'x' ? roomOfLines : roomAround;
  const span = high - low;
  const standsAt = (value: number) => reach.baseline && value === 0;
  const room = (length: Length | null, at: number) => margin(length, standsAt(at) ? 0 : usual) * span;
  const bounds: [number, number] = [
    minimum ?? low - room(dimension?.lowerMargin ?? null, low),
    maximum ?? high + room(dimension?.upperMargin ?? null, high),
  ];
  const niceLow =
    minimum === null ? (dimension?.niceLower ?? false) : dimension?.niceLower === true && !domain?.exact;
  const niceHigh =
    maximum === null ? (dimension?.niceUpper ?? false) : dimension?.niceUpper === true && !domain?.exact;
  return direction.kind === 'date' ? bounds : nice(bounds, niceLow, niceHigh);
}

function logDomain(
  direction: Direction,
  reach: Reach,
  domain: Domain | null,
  foot: number,
): [number, number] {
  const minimum = bound(domain, direction, 'minimum');
  const maximum = bound(domain, direction, 'maximum');
  const low = minimum !== null && minimum > 0 ? minimum : reach.lowestPositive;
  const high = maximum !== null && maximum > 0 ? maximum : reach.high;
  if (!(Number.isFinite(low) && high > 0)) return [1, 10];
  const given = [minimum !== null && minimum > 0, maximum !== null && maximum > 0];
  // By logarithms, since the highest may be beyond all numbers times the lowest.
  const reached = Math.max(Math.abs(Math.log(high) - Math.log(low)), Math.log(1.1));
  const room = Math.exp(reached * roomAround);
  return [
    (given[0] && low !== high) || (reach.baseline && low === foot)
      ? low
      : Math.max(low / room, Number.MIN_VALUE),
    given[1] && low !== high ? high : Math.min(high * room, Number.MAX_VALUE),
  ];
}

/** How many values lie beyond bounds that the chart gives. */
function boundNotes(direction: Direction, panels: Layer[][], [low, high]: [number, number]): string[] {
  let all = 0;
  let outside = 0;
  for (const layer of panels.flat()) {
    if (layer.kind === 'slices') continue;
    const own = layer.shapes.filter((shape) => !shape.between);
    for (const value of own.flatMap((shape) => valuesAlong(direction, layer, shape))) {
      if (value === undefined || Number.isNaN(value)) continue;
      all += 1;
      if (value < low || value > high) outside += 1;
    }
  }
  if (outside === 0) return [];
  return [
    `${counted(outside)} of ${counted(all)} values ${outside === 1 ? 'lies' : 'lie'} outside the ${direction.name} axis.`,
  ];
}

const plainNumber = (value: number) => numberText(value, null, 'en-US');

/** Says what of bars and areas is not to be seen because of where their scale begins. */
function footNotes(
  direction: Direction,
  panels: Layer[][],
  [low, high]: [number, number],
  method: Scale['method'],
): string[] {
  if (direction.name !== 'y' || direction.kind !== 'number') return [];
  const standing = panels.flat().filter((layer) => isStanding(layer) && layer.shapes.length > 0);
  const foot = baselineOf(direction, panels);
  const at = foot < low ? low : foot > high ? high : foot;
  const notes = (['bars', 'area'] as const)
    .filter((kind) => at !== foot && standing.some((layer) => layer.kind === kind))
    .map(
      (kind) =>
        `${kind === 'bars' ? 'Bars' : 'Areas'} begin at ${plainNumber(at)}, not at ${plainNumber(foot)}.`,
    );
  if (method !== 'log') return notes;
  const bars = standing.filter(({ kind }) => kind === 'bars').flatMap(({ shapes }) => shapes);
  const flat = bars.filter(({ y1, y2 }) => y1 === foot && y2 === foot).length;
  if (flat === 0) return notes;
  const [count, are] = flat === 1 ? ['1 bar', 'is'] : [`${counted(flat)} bars`, 'are'];
  const where = `where bars begin on a logarithmic scale`;
  return [...notes, `${count} ${are} not to be seen: the value is ${plainNumber(foot)}, ${where}.`];
}

/** Says which classes begin where a logarithmic scale has no place. */
function cutNotes(direction: Direction, panels: Layer[][], method: Scale['method']): string[] {
  if (direction.name !== 'x' || method !== 'log') return [];
  const shapes = panels
    .flat()
    .flatMap((layer) => (layer.binned && layer.kind === 'bars' ? layer.shapes : []));
  const starts = new Set(shapes.flatMap(({ x1, x2 }) => (x1! <= 0 && x2! > 0 ? [x1!] : [])));
  return [...starts].map(
    (start) =>
      `The class from ${plainNumber(start)} on begins with the axis: a logarithmic scale has no ${plainNumber(start)}.`,
  );
}

/** Makes the two functions of a scale. */
export function withFunctions(scale: Omit<DrawnScale, 'unit' | 'value'>): DrawnScale {
  const made =
    scale.method === 'log'
      ? scaleLog().base(scale.base)
      : scale.method === 'symmetric log'
        ? scaleSymlog()
        : scale.method === 'linear'
          ? scaleLinear()
          : scalePow().exponent(scale.base);
  const [low, high] = scale.domain;
  made.domain(scale.inverted ? [high, low] : [low, high]);
  return { ...scale, unit: (value) => made(value) as number, value: (unit) => made.invert(unit) as number };
}

/** Bounds from the lower to the upper one. */
const ordered = ([first, second]: [number, number]): [number, number] =>
  first <= second ? [first, second] : [second, first];

/** Without a value that it could show a logarithmic scale would be empty. */
function methodOf(direction: Direction, reach: Reach, notes: string[]): Scale['method'] {
  const wanted = direction.kind === 'number' ? (direction.dimension?.scale?.method ?? 'linear') : 'linear';
  if (wanted !== 'log' || !(reach.low <= 0)) return wanted;
  const { name } = direction;
  if (!Number.isFinite(reach.lowestPositive)) {
    notes.push(`No value along ${name} is above 0: its scale is linear, not logarithmic.`);
    return 'linear';
  }
  if (reach.lowestValue <= 0)
    notes.push(`Values along ${name} that are not above 0 have no place on its logarithmic scale.`);
  return 'log';
}

/** Linear where powers of the values are beyond all numbers. */
function computable(scale: DrawnScale, notes: string[]): DrawnScale {
  const { domain, method, direction } = scale;
  const middle = scale.value(0.5);
  if ([middle, ...[...domain, middle].map(scale.unit)].every(Number.isFinite)) return scale;
  notes.push(`Values along ${direction.name} are beyond its ${method} scale: it is linear.`);
  return withFunctions({ ...scale, method: 'linear' });
}

export function scaleOf(
  direction: Direction,
  panels: Layer[][],
  guides: number[],
  notes: string[],
): DrawnScale {
  const settings = direction.dimension?.scale;
  const { domain } = direction;
  const reach = reachOf(panels, direction, guides);
  const method = methodOf(direction, reach, notes);
  const own = settings?.base ?? 0;
  const base = own > 0 && own !== 1 && Number.isFinite(own) ? own : usualBase[method];
  const bounds = ordered(
    direction.kind === 'category'
      ? categoryDomain(direction)
      : method === 'log'
        ? logDomain(direction, reach, domain, baselineOf(direction, panels))
        : linearDomain(direction, reach, domain),
  );
  if (direction.kind !== 'category' && (domain?.minimum || domain?.maximum))
    notes.push(...boundNotes(direction, panels, bounds));
  notes.push(...footNotes(direction, panels, bounds, method), ...cutNotes(direction, panels, method));
  const inverted = settings?.invert ?? false;
  return computable(withFunctions({ direction, domain: bounds, method, base, inverted }), notes);
}

/** The base line of bars and areas: the origin, or 0; on a scale without a 0 it is 1. */
export function baselineOf(direction: Direction, panels: Layer[][]): number {
  const scale = direction.dimension?.scale;
  const origin = scale?.origin ? placeOf(direction, scale.origin) : null;
  const hasPlace = (layer: Layer) => layer.shapes.some((shape) => shape.y > 0);
  const byLogarithm = scale?.method === 'log' && direction.kind === 'number' && panels.flat().some(hasPlace);
  if (!byLogarithm) return origin ?? 0;
  return origin !== null && origin > 0 ? origin : 1;
}
