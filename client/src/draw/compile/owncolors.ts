/** The looks of elements by themselves, in colours that tell those of one graph apart. */
import type { Chart, ChartElement, Graph } from '../../chart/model.js';
import { groupColors, safeColor } from '../svg/colors.js';
import { aestheticOf, cycleOf } from './grouping.js';
import { ownLook, styled, type Look, type LookKind } from './looks.js';

const colored = new Set<ChartElement['kind']>(['point', 'line', 'path', 'interval', 'area', 'polygon']);

/** Where all the client's colours are those of groups. */
const ink = '#333333';

export function lookKindOf(element: ChartElement): LookKind {
  return element.kind === 'interval' && element.summary === 7 ? 'error' : element.kind;
}

const ofColor = (element: ChartElement, chart: Chart) =>
  element.aesthetics.filter((each) => aestheticOf(each, chart) === 'color');

/** Whether an element has the client's colour. */
const isPlain = (element: ChartElement, chart: Chart) =>
  colored.has(element.kind) &&
  lookKindOf(element) !== 'error' &&
  safeColor(element.style.color) === undefined &&
  ofColor(element, chart).length === 0;

/** The colours that the chart gives to elements and groups. */
function saidColors(graph: Graph, chart: Chart): string[] {
  const cycled = graph.elements.flatMap((element) =>
    ofColor(element, chart).flatMap((each) => cycleOf(each, chart)),
  );
  const styles = [...graph.elements.map(({ style }) => style), ...cycled];
  return styles.flatMap(({ color }) => safeColor(color)?.toLowerCase() ?? []);
}

const dotted = new Set<ChartElement['kind']>(['point', 'line', 'path']);

/** Points on a line of their own places belong to it. */
function shownBy({ kind, x, y, summary, bins }: ChartElement, at: number): string {
  return dotted.has(kind) ? JSON.stringify([x, y, summary, bins]) : String(at);
}

/** The client's colours of the elements of a graph that have none of their own. */
function ownColors(graph: Graph, chart: Chart): Map<ChartElement, string> {
  const said = new Set(saidColors(graph, chart));
  const free = [...groupColors, ink].filter((color) => !said.has(color.toLowerCase()));
  const byShown = new Map<string, string>();
  const colors = new Map<ChartElement, string>();
  graph.elements.forEach((element, at) => {
    if (!isPlain(element, chart)) return;
    const shown = shownBy(element, at);
    const color = byShown.get(shown) ?? free[byShown.size % Math.max(1, free.length)] ?? ink;
    byShown.set(shown, color);
    colors.set(element, color);
  });
  return colors;
}

const known = new WeakMap<Graph, Map<ChartElement, string>>();

/** The look of an element where nothing varies it. */
export function elementLook(element: ChartElement, graph: Graph, chart: Chart, kind: LookKind): Look {
  let colors = known.get(graph);
  if (!colors) known.set(graph, (colors = ownColors(graph, chart)));
  const color = colors.get(element);
  const own = ownLook(kind);
  const apart = color === undefined || color === groupColors[0] ? own : styled(own, { color }, kind);
  return styled(apart, element.style, kind);
}
