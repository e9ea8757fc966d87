/** What elements are called in notes: by their name, else by what they draw. */
import type { ChartElement } from '../../chart/model.js';

const plurals: Record<ChartElement['kind'], string> = {
  point: 'points',
  line: 'lines',
  path: 'lines',
  interval: 'bars',
  area: 'areas',
  schema: 'boxes',
  edge: 'edges',
  polygon: 'polygons',
};

/** What the marks of an element are. */
export function marksName({ kind, summary }: ChartElement): string {
  return kind === 'interval' && summary === 7 ? 'error bars' : plurals[kind];
}

export function elementName(element: ChartElement): string {
  return element.name || `the ${marksName(element)}`;
}

export const capitalized = (text: string) => text.slice(0, 1).toUpperCase() + text.slice(1);
