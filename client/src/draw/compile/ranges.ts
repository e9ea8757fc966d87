/** Looks that show numbers: ranges of colours, sizes and transparencies. */
import { extent } from 'd3';
import { lengthOf, numberOf, pixels } from '../../chart/markup.js';
import type { Aesthetic, Chart, ChartElement } from '../../chart/model.js';
import type { Data, Values } from '../../data/columns.js';
import { secondsOf } from '../../data/format.js';
import { colorRange, safeColor } from '../svg/colors.js';
import { cycleOf, isGrouping } from './grouping.js';

/** What one value gives to the look of a mark. */
export interface Varied {
  fill?: string;
  /** The diameter or width in pixels. */
  size?: number;
  opacity?: number;
}

export interface Range {
  aesthetic: Aesthetic;
  values: Values;
  low: number;
  high: number;
  lookOf(value: number): Varied;
}

const smallest = 3;
const largest = 14;

function colorsOf(aesthetic: Aesthetic, chart: Chart): string[] {
  if (!chart.cycles.has(aesthetic.cycle)) return [];
  return cycleOf(aesthetic, chart).flatMap((style) => safeColor(style.color) ?? []);
}

function lookFor(aesthetic: Aesthetic, chart: Chart): (share: number) => Varied {
  if (aesthetic.kind === 'color') {
    const color = colorRange(colorsOf(aesthetic, chart));
    return (share) => ({ fill: color(share) });
  }
  if (aesthetic.kind === 'size') {
    const bound = (text: string | null, otherwise: number) => {
      const length = lengthOf(text);
      return length ? pixels(length, largest) : otherwise;
    };
    const [low, high] = [bound(aesthetic.low, smallest), bound(aesthetic.high, largest)];
    // Readers compare areas, so that the area is what shows the value.
    return (share) => ({ size: Math.sqrt(low * low + share * (high * high - low * low)) });
  }
  const bound = (text: string | null, otherwise: number) => {
    const value = numberOf(text);
    return value !== null && value >= 0 && value <= 1 ? value : otherwise;
  };
  const low = bound(aesthetic.low, 0);
  const high = bound(aesthetic.high, 0.8);
  return (share) => ({ opacity: 1 - (low + share * (high - low)) });
}

/** The ranges of an element. */
export function rangesOf(element: ChartElement, chart: Chart, data: Data): Range[] {
  return element.aesthetics.flatMap((aesthetic): Range[] => {
    const values = data.values(aesthetic.variable);
    if (!values || isGrouping(aesthetic, values, chart)) return [];
    const domain = chart.domains.get(aesthetic.domain || values.variable.domain);
    const [least, most] = extent(values.numbers);
    const low = (domain?.minimum ? secondsOf(domain.minimum) : null) ?? least ?? 0;
    const high = (domain?.maximum ? secondsOf(domain.maximum) : null) ?? most ?? 1;
    const look = lookFor(aesthetic, chart);
    const share = (value: number) =>
      high > low ? Math.min(1, Math.max(0, (value - low) / (high - low))) : 0.5;
    return [{ aesthetic, values, low, high, lookOf: (value) => look(share(value)) }];
  });
}
