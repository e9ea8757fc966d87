/** How large the panels of a graph are, and what stands around them: axes, and texts of panels. */
import { counted } from './notes/counts.js';
import { pixels } from '../chart/markup.js';
import type { Axis } from '../chart/model.js';
import {
  axisNotes,
  behindEachOther,
  isUpright,
  labelLookOf,
  layoutAxis,
  placeOfAxis,
  type AxisPlace,
  type DrawnAxis,
} from './axes/axes.js';
import type { CompiledGraph } from './compilegraph.js';
import { fittingTicks, type TickRoom } from './axes/fitting.js';
import { fitHeaders, headerNotes, headersOf, type Headers } from './axes/headers.js';
import type { Neighbours } from './axes/neighbours.js';
import { isReflected } from './compile/orientation.js';
import type { Rectangle } from './page.js';
import { countsOf, firstPanels, type PanelCounts } from './compile/panels.js';
import { commonTicks, equalUnits, hasSameRatio, sizeOfAspect, sizeOfSameRatio } from './axes/sameratio.js';
import { withFunctions, type DrawnScale } from './compile/scales.js';
import { namedByStatistic } from './notes/statisticnames.js';
import { symbolEnds, withRoom } from './axes/symbolroom.js';
import { reachBeyond, type Tick } from './axes/ticks.js';

export interface Layout {
  axes: DrawnAxis[];
  headers: Record<AxisPlace, Headers>;
  rooms: Record<AxisPlace, number>;
  width: number;
  height: number;
  columnStarts: number[];
  rowStarts: number[];
  scales: { x: DrawnScale; y: DrawnScale };
}

const defaultGap = 0.05;
const edgeRoom = 10;

/** The second axis as shares of all that the bars show, in percent. */
function derivedScale(compiled: CompiledGraph, scale: DrawnScale): DrawnScale {
  const bars = compiled.panels.flat().filter((layer) => layer.kind === 'bars');
  const total = bars.reduce((sum, layer) => sum + layer.shapes.reduce((part, shape) => part + shape.y, 0), 0);
  if (!(total > 0)) {
    compiled.notes.push('A derived axis shows shares of all that bars show; here it repeats the first axis.');
    return scale;
  }
  const [low, high] = scale.domain;
  const direction = { ...scale.direction, format: null };
  return withFunctions({ ...scale, direction, domain: [(100 * low) / total, (100 * high) / total] });
}

function ticksFor(compiled: CompiledGraph, axis: Axis, scale: DrawnScale, room: TickRoom): Tick[] {
  const whole = compiled.counts && scale.direction.name === 'y' && !axis.derived;
  return fittingTicks(scale, axis.ticks, room, { whole, language: compiled.chart.language });
}

/** How the panels follow each other from left to right, or from the lowest one upwards. */
function neighboursOf(compiled: CompiledGraph, { gapX, gapY }: PanelSize, upright: boolean): Neighbours {
  const counts = countsOf(compiled.grid);
  const count = upright ? counts.rows : counts.columns;
  const screen = upright ? 1 : 0;
  const lowest = upright && (compiled.graph.layout?.topDown ?? true) ? count - 1 : 0;
  const [first, second] = [lowest, lowest === 0 ? 1 : lowest - 1].map((place) =>
    isReflected(compiled.orientation, screen, place),
  );
  const mirrored = first !== second;
  return { count, gap: upright ? gapY : gapX, mirrored, turned: mirrored ? !first : first! };
}

function axesOf(
  compiled: CompiledGraph,
  scales: Layout['scales'],
  size: PanelSize,
  rooms: Layout['rooms'],
  whole: Rectangle,
): DrawnAxis[] {
  if (compiled.orientation.polar) return [];
  const { transposed } = compiled.orientation;
  const { rows } = countsOf(compiled.grid);
  // Below the panels are the labels of other axes; on top and at the sides titles may reach beyond them.
  const titleLength = (upright: boolean) =>
    upright ? rooms.top + rows * (size.height + size.gapY) - size.gapY : whole.width - edgeRoom;
  const axesAlong = (name: 'x' | 'y') => compiled[name].dimension?.axes ?? [];
  const all = [...axesAlong('x'), ...axesAlong('y')];
  const wished = (['x', 'y'] as const).flatMap((name) =>
    axesAlong(name).map((own) => {
      const axis = namedByStatistic(own, compiled[name], compiled.panels.flat(), all);
      const place = placeOfAxis(axis, name, transposed);
      const upright = isUpright(place);
      const scale = axis.derived ? derivedScale(compiled, scales[name]) : scales[name];
      const neighbours = neighboursOf(compiled, size, upright);
      const length = upright ? size.height : size.width;
      const room = { length, upright, look: labelLookOf(axis), neighbours };
      const ticks = axis.ticks ? ticksFor(compiled, axis, scale, room) : [];
      return { axis, place, scale, room, ticks };
    }),
  );
  const together = hasSameRatio(compiled.scales, compiled.orientation);
  const wish = { whole: false, language: compiled.chart.language };
  const ticks = together ? commonTicks(wished, wish) : wished.map((each) => each.ticks);
  const axes = wished.map(({ axis, place, scale, room }, at) =>
    layoutAxis(axis, scale, place, ticks[at]!, {
      length: room.length,
      titleLength: titleLength(room.upright),
      labels: whole.width * 0.3,
      neighbours: room.neighbours,
    }),
  );
  return behindEachOther(axes);
}

interface PanelSize {
  width: number;
  height: number;
  gapX: number;
  gapY: number;
}

function gapsOf(compiled: CompiledGraph, side: 'columns' | 'rows', size: number): number {
  const [variable] = compiled.grid[side].variables;
  const level = compiled.graph.layout?.levels.find((each) => each.level === (variable?.level ?? 1));
  return level?.gap ? pixels(level.gap, size) : size * defaultGap;
}

/** The room for so many panels side by side, or one below the other, without the gaps between them. */
function shareOf(compiled: CompiledGraph, side: 'columns' | 'rows', room: number, count: number) {
  const gap = count > 1 ? gapsOf(compiled, side, room / count) : 0;
  return { gap, size: (room - gap * (count - 1)) / count };
}

/** What axes and texts leave to the panels. */
const roomForPanels = (whole: Rectangle, rooms: Layout['rooms']) => ({
  columns: Math.max(30, whole.width - rooms.left - rooms.right),
  rows: Math.max(30, whole.height - rooms.top - rooms.bottom),
});

/** One panel less its gap; a chart with an aspect keeps it. */
function panelSize(compiled: CompiledGraph, whole: Rectangle, rooms: Layout['rooms']): PanelSize {
  const counts = countsOf(compiled.grid);
  const all = roomForPanels(whole, rooms);
  const across = shareOf(compiled, 'columns', all.columns, counts.columns);
  const upright = shareOf(compiled, 'rows', all.rows, counts.rows);
  const room = { width: Math.max(8, across.size), height: Math.max(8, upright.size) };
  const { scales, orientation } = compiled;
  const shaped = sizeOfAspect(room, compiled.graph.layout?.aspect ?? null);
  const size = hasSameRatio(scales, orientation)
    ? sizeOfSameRatio(scales, room, shaped, orientation.transposed)
    : shaped;
  return { ...size, gapX: across.gap, gapY: upright.gap };
}

/** Panels are so wide and so high at least, in pixels; of more than have room the first are drawn. */
const leastPanel = 10;

/** How many columns and rows have room. */
function fittingCounts(compiled: CompiledGraph, whole: Rectangle, rooms: Layout['rooms']): PanelCounts {
  const counts = countsOf(compiled.grid);
  const all = roomForPanels(whole, rooms);
  const fitting = (side: 'columns' | 'rows') => {
    let count = counts[side];
    while (count > 1 && shareOf(compiled, side, all[side], count).size < leastPanel) count -= 1;
    return count;
  };
  return { columns: fitting('columns'), rows: fitting('rows') };
}

/** A graph without the columns and rows of panels that have no room; a note counts them. */
export function withFittingPanels(compiled: CompiledGraph, whole: Rectangle, named: number): CompiledGraph {
  let shown = compiled;
  for (let pass = 0; pass < 3; pass += 1) {
    const { rooms } = arrange(shown, whole, named);
    const grid = firstPanels(shown.grid, fittingCounts(shown, whole, rooms));
    if (grid.panels.length === shown.grid.panels.length) break;
    const kept = new Set(grid.panels);
    const panels = shown.panels.filter((_, at) => kept.has(shown.grid.panels[at]!));
    shown = { ...shown, grid, panels };
  }
  const counts = countsOf(shown.grid);
  for (const side of ['columns', 'rows'] as const) {
    const wanted = shown.grid.wanted[side];
    if (counts[side] < wanted)
      shown.notes.push(`Of ${counted(wanted)} ${side} of panels the first ${counts[side]} are drawn.`);
  }
  return shown;
}

export function axisRoom(axes: DrawnAxis[], place: AxisPlace): number {
  return Math.max(0, ...axes.filter((axis) => axis.place === place).map((axis) => axis.offset + axis.room));
}

function roomsOf(
  axes: DrawnAxis[],
  headers: Layout['headers'],
  named: number,
  width: number,
  columns: number,
): Layout['rooms'] {
  const room = (place: AxisPlace) => axisRoom(axes, place);
  const sideways = axes.filter((axis) => !isUpright(axis.place));
  const beyond = sideways.map(({ layout, labels, scale, place, labelLook }) => {
    const reach = (index: number) =>
      reachBeyond({ ...layout, lines: labels(index).lines }, scale, width, place === 'bottom', labelLook);
    return { left: reach(0).left, right: reach(columns - 1).right };
  });
  const overhang = (side: 'left' | 'right') => Math.max(edgeRoom, ...beyond.map((reach) => reach[side] + 4));
  // Turned texts do not touch the edge of the page.
  const beside = (taken: number) => (taken > 0 ? taken + 4 : 0);
  return {
    left: Math.max(room('left') + headers.left.room, overhang('left')) + 2,
    right: Math.max(room('right') + beside(headers.right.room), overhang('right'), named),
    top: Math.max(room('top') + headers.top.room, edgeRoom),
    bottom: Math.max(room('bottom') + headers.bottom.room, edgeRoom),
  };
}

const mostPasses = 6;

/** After so many of them rooms only grow: a label that stands where there is room for it may take that away. */
const freePasses = 2;

const places = ['left', 'right', 'top', 'bottom'] as const;

function grown(rooms: Layout['rooms'], needed: Layout['rooms']): Layout['rooms'] {
  const most = (place: AxisPlace) => Math.max(rooms[place], needed[place]);
  return { left: most('left'), right: most('right'), top: most('top'), bottom: most('bottom') };
}

/** The share of a graph's height, or width, that the texts over its panels, or beside them, take. */
const mostHeaders = 0.25;

type Arranged = Pick<Layout, 'axes' | 'headers' | 'rooms'>;

/** Axes and texts of panels, and what they take. */
function arrange(compiled: CompiledGraph, whole: Rectangle, named: number): Arranged {
  const { grid, graph } = compiled;
  const wanted: Layout['headers'] = {
    top: headersOf(grid, 'columns', graph, false),
    bottom: headersOf(grid, 'columns', graph, true),
    left: headersOf(grid, 'rows', graph, true),
    right: headersOf(grid, 'rows', graph, false),
  };
  let headers = wanted;
  let rooms: Layout['rooms'] = { left: 60, right: 15, top: 10 + headers.top.room, bottom: 50 };
  let axes: DrawnAxis[] = [];
  // Labels need to know how long axes are, which need to know how much room labels take.
  for (let pass = 0; pass < mostPasses; pass += 1) {
    const size = panelSize(compiled, whole, rooms);
    axes = axesOf(compiled, scalesFor(compiled, size), size, rooms, whole);
    const across = (each: Headers) => fitHeaders(each, size.width, size.gapX, whole.height * mostHeaders);
    const upright = (each: Headers) => fitHeaders(each, size.height, size.gapY, whole.width * mostHeaders);
    const { top, bottom, left, right } = wanted;
    headers = { top: across(top), bottom: across(bottom), left: upright(left), right: upright(right) };
    const needed = roomsOf(axes, headers, named, size.width, countsOf(grid).columns);
    const before = rooms;
    rooms = pass < freePasses ? needed : grown(before, needed);
    if (places.every((place) => Math.abs(rooms[place] - before[place]) < 0.5)) break;
  }
  return { axes, headers, rooms };
}

export function layoutOf(compiled: CompiledGraph, whole: Rectangle, named: number): Layout {
  const { axes, headers, rooms } = arrange(compiled, whole, named);
  compiled.notes.push(...headerNotes(Object.values(headers)), ...axisNotes(axes));
  const { width, height, gapX, gapY } = panelSize(compiled, whole, rooms);
  const counts = countsOf(compiled.grid);
  const taken = width * counts.columns + gapX * (counts.columns - 1);
  rooms.left += Math.max(0, (whole.width - rooms.left - rooms.right - taken) / 2);
  const starts = (size: number, gap: number, count: number) =>
    Array.from({ length: count }, (_, at) => at * (size + gap));
  const rowStarts = starts(height, gapY, counts.rows);
  return {
    axes,
    headers,
    rooms,
    width,
    height,
    columnStarts: starts(width, gapX, counts.columns),
    rowStarts: (compiled.graph.layout?.topDown ?? true) ? rowStarts : rowStarts.reverse(),
    scales: scalesFor(compiled, { width, height }),
  };
}

/** The scales of panels of that size: with room for symbols and labels, and equal units where the chart wants them. */
function scalesFor(compiled: CompiledGraph, size: { width: number; height: number }): Layout['scales'] {
  const { orientation, symbols, labels, chart } = compiled;
  const { width, height } = size;
  const lengths = orientation.transposed ? { x: height, y: width } : { x: width, y: height };
  const standing = compiled.panels.flat().find((layer) => layer.kind === 'bars' || layer.kind === 'area');
  const roomy = (name: 'x' | 'y') => {
    const domain = chart.domains.get(compiled[name].dimension?.domain ?? '');
    const baseline = name === 'y' && standing ? standing.baseline : null;
    const reaches = [...symbolEnds(symbols, name), ...(name === 'y' ? labels : [])];
    return withRoom(compiled.scales[name], reaches, domain, lengths[name], baseline);
  };
  const scales = { x: roomy('x'), y: roomy('y') };
  return hasSameRatio(scales, orientation) ? equalUnits(scales, size, orientation.transposed) : scales;
}
