/** Everything of a graph that does not depend on its size: its panels with their shapes, scales and guides. */
import type { Graph, Chart } from '../chart/model.js';
import type { Data } from '../data/columns.js';
import { compile } from './compile/compile.js';
import { directionOf, type Direction } from './compile/directions.js';
import { guidesOf, type DrawnGuide } from './marks/guides.js';
import type { Layer } from './compile/layers.js';
import { isPie, orientationOf, type Orientation } from './compile/orientation.js';
import { leaveOutBeyond } from './notes/beyond.js';
import { showOverlaid } from './notes/overlaid.js';
import { panelGrid, requirePanels, type PanelGrid } from './compile/panels.js';
import type { Scope } from './compile/plan.js';
import { position } from './compile/positions.js';
import { baselineOf, scaleOf, withFunctions, type DrawnScale } from './compile/scales.js';
import { symbolReaches, type EndReach, type SymbolReach } from './axes/symbolroom.js';
import { labelReaches } from './marks/labelroom.js';
import { pieNotes } from './notes/pies.js';
import { flatNotes, panelNotes, scaleNotes } from './notes/unhonoured.js';

export interface CompiledGraph {
  graph: Graph;
  chart: Chart;
  grid: PanelGrid;
  x: Direction;
  y: Direction;
  orientation: Orientation;
  panels: Layer[][];
  scales: { x: DrawnScale; y: DrawnScale };
  guides: DrawnGuide[];
  symbols: SymbolReach[];
  /** Labels beyond the ends of bars, along y. */
  labels: EndReach[];
  /** Along y there are numbers of cases. */
  counts: boolean;
  notes: string[];
}

const countMethods = new Set([10, 11]);

/** Everything of a graph that does not depend on its size. */
export function compileGraph(graph: Graph, chart: Chart, data: Data, notes: string[]): CompiledGraph {
  const orientation = orientationOf(graph.coordinates[0], notes, isPie(graph, chart, data));
  const grid = panelGrid(graph, chart, data);
  requirePanels(grid);
  const x = directionOf('x', graph, chart, data, notes);
  const along = directionOf('y', graph, chart, data, notes);
  if (graph.coordinates.length > 1) notes.push('Elements are drawn in the first coordinates of their graph.');
  if (orientation.view || graph.elements.some((element) => element.z.length > 0)) {
    notes.push('The chart is one in three dimensions: it is drawn flat, by x and y alone.');
  } else {
    notes.push(...flatNotes(graph));
  }
  notes.push(...panelNotes(graph, grid));
  const scope: Scope = { chart, graph, data, grid, x, y: along, polar: orientation.polar, notes };
  const panels = compile(scope);
  const piled = along.values.length === 0 && panels.flat().some((layer) => layer.kind === 'dots');
  const y = piled ? withoutTicks(along, notes) : along;
  position(panels, x, baselineOf(y, panels));
  notes.push(...leaveOutBeyond(panels), ...pieNotes(panels, grid), ...showOverlaid(panels));
  const guides = guidesOf(graph, x, y, notes);
  const places = (name: 'x' | 'y') => guides.flatMap(({ at }) => (at?.direction === name ? [at.place] : []));
  const scales = {
    x: scaleOf(x, panels, places('x'), notes),
    y: piled ? heights(y) : scaleOf(y, panels, places('y'), notes),
  };
  notes.push(...scaleNotes(scales, orientation));
  const isCount = (each: Graph['elements'][number]) =>
    !each.density && (each.summary === null ? each.bins !== null : countMethods.has(each.summary));
  const counts = y.values.length === 0 && graph.elements.every(isCount);
  const symbols = symbolReaches(panels);
  const labels = labelReaches(panels, x, y, orientation.transposed);
  return { graph, chart, grid, x, y, orientation, panels, scales, guides, symbols, labels, counts, notes };
}

/** The heights of dots that pile up go by the room that there is: no number would be true of them. */
function withoutTicks(y: Direction, notes: string[]): Direction {
  const { dimension } = y;
  if (!dimension?.axes.some(({ ticks }) => ticks && ticks.style.visible !== false)) return y;
  notes.push('Ticks along y are not drawn: the heights of stacked dots go by the room that there is.');
  return {
    ...y,
    dimension: { ...dimension, axes: dimension.axes.map((axis) => ({ ...axis, ticks: null })) },
  };
}

/** Dots that pile up have their own scale, from the bottom to the top. */
function heights(y: Direction): DrawnScale {
  return withFunctions({ direction: y, domain: [0, 1], method: 'linear', base: 1, inverted: false });
}
