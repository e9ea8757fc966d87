/** Where frames, legends and graphs stand on the page. */
import type { CompiledGraph } from './compilegraph.js';
import type { Chart, Legend, Location } from '../chart/model.js';
import type { Data } from '../data/columns.js';
import type { Figures } from './compile/figures.js';
import { layFrames } from './framelayout.js';
import { hasBox, type LaidFrame } from './frames.js';
import {
  layLegend,
  legendNotes,
  openLegend,
  type LaidLegend,
  type LegendScope,
  type OpenLegend,
} from './legends/legends.js';
import { shares } from './legends/legendlayout.js';
import { pageSize, Places, rectangle, type Rectangle } from './page.js';

type Side = 'left' | 'right' | 'top' | 'bottom' | 'free';

interface PlacedLegend {
  laid: LaidLegend;
  side: Side;
  box: Rectangle;
}

/** What goes on the page beside the graphs, and the room that is left for them. */
export interface PageLayout {
  width: number;
  height: number;
  frames: LaidFrame[];
  legends: PlacedLegend[];
  /** Of each graph. */
  graphs: Rectangle[];
}

const gapBesideLegend = 14;

function sideOf(legend: Legend, chart: Chart): Side {
  const find = (part: Location['part']) => legend.locations.find((location) => location.part === part);
  const isGraph = (id: string) => chart.graphs.some((graph) => graph.id === id);
  const atPercent = (location: Location | undefined, percent: number) =>
    location?.method === 'value' && location.value?.unit === '%' && location.value.value === percent;
  if (find('bottom')?.method === 'target' && isGraph(find('bottom')!.target)) return 'top';
  if (find('top')?.method === 'target' && isGraph(find('top')!.target)) return 'bottom';
  if (find('left')?.method === 'value' && find('top')?.method === 'value' && !atPercent(find('left'), 0))
    return 'free';
  if (atPercent(find('left'), 0)) return 'left';
  if (atPercent(find('bottom'), 100) && !find('top')) return 'bottom';
  return atPercent(find('top'), 0) ? 'top' : 'right';
}

/** Of the room for a graph and its legends, legends beside it take at most this part, and those above or below it. */
const mostBeside = 0.5;
const mostAcross = 1 / 3;
const gapBetweenLegends = 8;
/** Between the data and what stands across, above or below it. */
const gapBelowLegend = 6;
/** So much lower than the room that they share panels begin; boxes of legends beside them do as well. */
const topOfPanels = 10;

const isAcross = (side: Side) => side === 'top' || side === 'bottom';

/** Lays out the legends of one side, which share its height. */
function layOneSide(legends: OpenLegend[], side: Side, graph: Rectangle, places: Places): LaidLegend[] {
  if (side === 'free') {
    return legends.map((legend) => {
      const { left, top } = rectangle(places.edges(legend.legend.id), graph);
      const [right, bottom] = [graph.left + graph.width, graph.top + graph.height];
      return layLegend(legend, { width: right - left, height: bottom - top }, false);
    });
  }
  const across = isAcross(side);
  const width = across ? graph.width : graph.width * mostBeside;
  const height = across ? graph.height * mostAcross : graph.height - topOfPanels;
  const wanted = legends.map((legend) => layLegend(legend, { width, height: Infinity }, across).height);
  const heights = shares(wanted, height - gapBetweenLegends * (legends.length - 1));
  return legends.map((legend, at) => layLegend(legend, { width, height: heights[at]! }, across));
}

function layLegends(chart: Chart, scope: LegendScope, graph: Rectangle, places: Places) {
  const open = chart.legends.flatMap((legend) => {
    const made = openLegend(legend, scope);
    return made ? [{ made, side: sideOf(legend, chart) }] : [];
  });
  return (['right', 'left', 'top', 'bottom', 'free'] as const).flatMap((side) => {
    const own = open.filter((each) => each.side === side).map(({ made }) => made);
    const laid = layOneSide(own, side, graph, places);
    scope.notes.push(...laid.flatMap(legendNotes));
    return laid.map((each) => ({ laid: each, side }));
  });
}

/** What legends that stand one below the other take. */
const stackedHeight = (heights: number[]) =>
  heights.reduce((sum, height) => sum + height, 0) + gapBetweenLegends * Math.max(0, heights.length - 1);

function placeLegends(
  legends: { laid: LaidLegend; side: Side }[],
  graph: Rectangle,
  places: Places,
): PlacedLegend[] {
  const boxed = ({ laid, side }: { laid: LaidLegend; side: Side }) =>
    (side === 'left' || side === 'right') && hasBox(laid.legend.style);
  const next: Partial<Record<Side, number>> = Object.fromEntries(
    legends.filter(boxed).map(({ side }) => [side, topOfPanels]),
  );
  const beside = legends.filter(({ side }) => side === 'right').map(({ laid }) => laid.width);
  const right = graph.left + graph.width - Math.max(0, ...beside);
  const below = stackedHeight(legends.filter(({ side }) => side === 'bottom').map(({ laid }) => laid.height));
  return legends.map(({ laid, side }) => {
    const used = next[side] ?? 0;
    const { width, height } = laid;
    const middle = graph.left + (graph.width - width) / 2;
    const box: Record<Side, Rectangle> = {
      right: { left: right, top: graph.top + used, width, height },
      left: { left: graph.left, top: graph.top + used, width, height },
      top: { left: middle, top: graph.top + used, width, height },
      bottom: { left: middle, top: graph.top + graph.height - below + used, width, height },
      free: { ...rectangle(places.edges(laid.legend.id), graph), width, height },
    };
    next[side] = used + height + gapBetweenLegends;
    return { laid, side, box: box[side] };
  });
}

/** The room of the graph without that of the legends beside it. */
function without(graph: Rectangle, legends: PlacedLegend[]): Rectangle {
  const reach = (side: Side, extent: 'width' | 'height') => {
    const own = legends.filter((legend) => legend.side === side);
    if (own.length === 0) return 0;
    const sizes = own.map((legend) => legend.box[extent]);
    return isAcross(side) ? stackedHeight(sizes) + gapBelowLegend : Math.max(...sizes) + gapBesideLegend;
  };
  const [left, right] = [reach('left', 'width'), reach('right', 'width')];
  const [top, bottom] = [reach('top', 'height'), reach('bottom', 'height')];
  return {
    left: graph.left + left,
    top: graph.top + top,
    width: Math.max(60, graph.width - left - right),
    height: graph.height - top - bottom,
  };
}

/** Graphs without places of their own share the page, one below the other. */
function graphRooms(chart: Chart, places: Places, free: Rectangle): Rectangle[] {
  const count = Math.max(1, chart.graphs.length);
  const overlapping = chart.graphs.filter((graph) => {
    const edges = places.edges(graph.id);
    return edges.left === undefined && edges.right === undefined;
  });
  return chart.graphs.map((graph, at) => {
    const edges = places.edges(graph.id);
    if (count > 1 && overlapping.length === count) {
      return { ...free, top: free.top + (at * free.height) / count, height: free.height / count };
    }
    const given = rectangle(edges, free);
    const top = Math.max(given.top, free.top);
    const bottom = Math.min(given.top + given.height, free.top + free.height);
    return { ...given, top, height: bottom - top };
  });
}

export const pageMargin = 6;

/** What has to be laid out. */
interface Parts {
  chart: Chart;
  data: Data;
  figures: Figures;
  graphs: CompiledGraph[];
}

/** Lays out frames, legends and graphs on a page of that height; texts are as long as the `wished` height lets them. */
function layAll(
  { chart, data, figures, graphs }: Parts,
  page: Rectangle,
  wished: number,
): PageLayout & { missing: number; notes: string[] } {
  const notes: string[] = [];
  const { width, height } = page;
  const located = [...chart.frames, ...chart.graphs, ...chart.legends].filter((part) => part.id !== '');
  const places = new Places(new Map(located.map((part) => [part.id, part.locations])), page);
  const { laid: frames, top, bottom } = layFrames(chart, figures, places, page, wished, notes);
  const free = { left: 0, top: top + (top > 0 ? 6 : pageMargin), width, height: 0 };
  free.height = bottom - free.top - (bottom < height ? 2 : pageMargin);
  const rooms = graphRooms(chart, places, free);
  const scope = { chart, data, cluster: graphs[0]?.x.cluster ?? null, notes };
  const [first] = rooms;
  const margins = first && { ...first, left: first.left + pageMargin, width: first.width - 2 * pageMargin };
  const legends = margins ? placeLegends(layLegends(chart, scope, margins, places), margins, places) : [];
  if (first) rooms[0] = without(first, legends);
  const missing = missingHeight(chart, places, rooms);
  const roomy = rooms.map((room) => ({ ...room, height: Math.max(leastHeight, room.height) }));
  return { width, height, frames, legends, graphs: roomy, missing, notes };
}

/** So high a graph is at least, unless the chart wants it smaller. */
const leastHeight = 100;

/** How much higher the page has to be so that all graphs have the height that they need. */
function missingHeight(chart: Chart, places: Places, rooms: Rectangle[]): number {
  const missing = rooms.map((room, at) => {
    const { top, bottom } = places.edges(chart.graphs[at]!.id);
    const own = top !== undefined && bottom !== undefined ? bottom - top : leastHeight;
    return Math.max(0, Math.min(own, leastHeight) - room.height);
  });
  return missing.reduce((sum, each) => sum + each, 0);
}

const mostPasses = 6;

/** A page that has too little room for its graphs beside the texts is made higher, with a note. */
export function layPage(
  chart: Chart,
  data: Data,
  figures: Figures,
  graphs: CompiledGraph[],
  notes: string[],
): PageLayout {
  const { width, height: wished } = pageSize(chart);
  const lay = (height: number) =>
    layAll({ chart, data, figures, graphs }, { left: 0, top: 0, width, height }, wished);
  const first = lay(wished);
  let layout = first;
  for (let pass = 0; pass < mostPasses && layout.missing > 0; pass += 1)
    layout = lay(Math.ceil(layout.height + layout.missing));
  if (layout.missing > 0) {
    layout = first;
    notes.push('The page has no room for the graph beside its texts: they cover each other.');
  } else if (layout !== first) {
    const more = layout.height - wished;
    notes.push(`The page is ${more} pixels higher than the chart says, so that the graph has room.`);
  }
  notes.push(...layout.notes);
  return layout;
}
