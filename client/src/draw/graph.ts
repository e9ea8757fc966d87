/** Draws a graph: its panels with their axes and headers, in a rectangle of the page. */
import type { Axis, Graph } from '../chart/model.js';
import { pixels } from '../chart/markup.js';
import {
  axisNotes,
  behindEachOther,
  drawAxisTitle,
  drawTicks,
  frameColor,
  isUpright,
  labelLookOf,
  layoutAxis,
  type AxisPlace,
  type DrawnAxis,
} from './axes.js';
import { none, readableShade, safeColor } from './colors.js';
import { compile } from './compile.js';
import { directionOf, type Direction } from './directions.js';
import { fittingTicks, type TickRoom } from './fitting.js';
import { guidesOf, type DrawnGuide } from './guides.js';
import {
  drawColumnHeaders,
  drawRowHeaders,
  fitHeaders,
  headerNotes,
  headersOf,
  type Headers,
} from './headers.js';
import type { Layer } from './layers.js';
import type { Neighbours } from './neighbours.js';
import { isReflected, orientationOf, type Orientation } from './orientation.js';
import { showOverlaid } from './overlaid.js';
import type { Rectangle } from './page.js';
import { panelGrid, type Panel, type PanelGrid } from './panels.js';
import type { Patterns } from './patterns.js';
import type { Scope } from './plan.js';
import { drawPanel, type GridLines, type PanelFrame } from './plot.js';
import { position } from './positions.js';
import { commonTicks, equalUnits, hasSameRatio, sizeOfAspect, sizeOfSameRatio } from './sameratio.js';
import { baselineOf, scaleOf, withFunctions, type DrawnScale } from './scales.js';
import { namedByStatistic } from './statisticnames.js';
import type { Maker } from './svg.js';
import { symbolReaches, withSymbolRoom, type SymbolReach } from './symbolroom.js';
import { lineHeight, type TextLook } from './text.js';
import { reachBeyond, type Tick } from './ticks.js';
import { flatNotes, panelNotes, scaleNotes } from './unhonoured.js';
import type { Data } from '../data/columns.js';
import type { Chart } from '../chart/model.js';

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
  /** Along y there are numbers of cases. */
  counts: boolean;
  notes: string[];
}

const countMethods = new Set([10, 11]);

/** Everything of a graph that does not depend on its size. */
export function compileGraph(graph: Graph, chart: Chart, data: Data, notes: string[]): CompiledGraph {
  const orientation = orientationOf(graph.coordinates[0], notes);
  const grid = panelGrid(graph, chart, data, notes);
  const x = directionOf('x', graph, chart, data, notes);
  const y = directionOf('y', graph, chart, data, notes);
  if (graph.coordinates.length > 1) notes.push('Elements are drawn in the first coordinates of their graph.');
  if (orientation.view || graph.elements.some((element) => element.z.length > 0)) {
    notes.push('The chart is one in three dimensions: it is drawn flat, by x and y alone.');
  } else {
    notes.push(...flatNotes(graph));
  }
  notes.push(...panelNotes(graph, grid));
  const scope: Scope = { chart, graph, data, grid, x, y, polar: orientation.polar, notes };
  const panels = compile(scope);
  if (orientation.polar && panels.flat().some((layer) => layer.kind !== 'slices')) {
    notes.push('Of polar coordinates only pies are drawn; the rest stands in straight ones.');
  }
  position(panels, x, baselineOf(y, panels));
  notes.push(...showOverlaid(panels));
  const guides = guidesOf(graph, x, y, notes);
  const places = (name: 'x' | 'y') => guides.flatMap(({ at }) => (at?.direction === name ? [at.place] : []));
  const scales = {
    x: scaleOf(x, panels, places('x'), notes),
    y: dotted(panels, y) ?? scaleOf(y, panels, places('y'), notes),
  };
  notes.push(...scaleNotes(scales, orientation));
  const isCount = (each: Graph['elements'][number]) =>
    !each.density && (each.summary === null ? each.bins !== null : countMethods.has(each.summary));
  const counts = y.values.length === 0 && graph.elements.every(isCount);
  const symbols = symbolReaches(panels);
  return { graph, chart, grid, x, y, orientation, panels, scales, guides, symbols, counts, notes };
}

/** Dots that pile up have their own scale, from the bottom to the top. */
function dotted(panels: Layer[][], y: Direction): DrawnScale | null {
  if (y.values.length > 0 || !panels.flat().some((layer) => layer.kind === 'dots')) return null;
  return withFunctions({ direction: y, domain: [0, 1], method: 'linear', base: 1, inverted: false });
}

interface Layout {
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

function placeOfAxis(axis: Axis, name: 'x' | 'y', transposed: boolean): AxisPlace {
  const upright = (name === 'y') !== transposed;
  if (upright) return axis.opposite ? 'right' : 'left';
  return axis.opposite ? 'top' : 'bottom';
}

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
  const wished = (['x', 'y'] as const).flatMap((name) =>
    (compiled[name].dimension?.axes ?? []).map((own) => {
      const axis = namedByStatistic(own, compiled[name], compiled.panels.flat());
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

function countsOf(grid: PanelGrid): { columns: number; rows: number } {
  return {
    columns: grid.columns.strips.length * Math.max(1, grid.blended.columns.length),
    rows: grid.rows.strips.length * Math.max(1, grid.blended.rows.length),
  };
}

/** One panel less its gap; a chart with an aspect keeps it. */
function panelSize(compiled: CompiledGraph, whole: Rectangle, rooms: Layout['rooms']): PanelSize {
  const counts = countsOf(compiled.grid);
  const across = Math.max(30, whole.width - rooms.left - rooms.right);
  const upright = Math.max(30, whole.height - rooms.top - rooms.bottom);
  const gapX = counts.columns > 1 ? gapsOf(compiled, 'columns', across / counts.columns) : 0;
  const gapY = counts.rows > 1 ? gapsOf(compiled, 'rows', upright / counts.rows) : 0;
  const room = {
    width: Math.max(8, (across - gapX * (counts.columns - 1)) / counts.columns),
    height: Math.max(8, (upright - gapY * (counts.rows - 1)) / counts.rows),
  };
  const { scales, orientation } = compiled;
  const shaped = sizeOfAspect(room, compiled.graph.layout?.aspect ?? null);
  const size = hasSameRatio(scales, orientation)
    ? sizeOfSameRatio(scales, room, shaped, orientation.transposed)
    : shaped;
  return { ...size, gapX, gapY };
}

function axisRoom(axes: DrawnAxis[], place: AxisPlace): number {
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

/** The share of a graph's height, or width, that the texts over its panels, or beside them, take. */
const mostHeaders = 0.25;

function layoutOf(compiled: CompiledGraph, whole: Rectangle, named: number): Layout {
  const { grid, graph } = compiled;
  const wanted: Layout['headers'] = {
    top: headersOf(grid, 'columns', graph, false),
    bottom: headersOf(grid, 'columns', graph, true),
    left: headersOf(grid, 'rows', graph, true),
    right: headersOf(grid, 'rows', graph, false),
  };
  let headers = wanted;
  let rooms: Layout['rooms'] = { left: 60, right: 15, top: 10 + headers.top.room, bottom: 50 };
  let { scales } = compiled;
  let axes: DrawnAxis[] = [];
  // Labels need to know how long axes are, which need to know how much room labels take.
  for (let pass = 0; pass < 3; pass += 1) {
    const size = panelSize(compiled, whole, rooms);
    scales = scalesFor(compiled, size);
    axes = axesOf(compiled, scales, size, rooms, whole);
    const across = (each: Headers) => fitHeaders(each, size.width, size.gapX, whole.height * mostHeaders);
    const upright = (each: Headers) => fitHeaders(each, size.height, size.gapY, whole.width * mostHeaders);
    const { top, bottom, left, right } = wanted;
    headers = { top: across(top), bottom: across(bottom), left: upright(left), right: upright(right) };
    rooms = roomsOf(axes, headers, named, size.width, countsOf(grid).columns);
  }
  compiled.notes.push(...headerNotes(Object.values(headers)), ...axisNotes(axes));
  const { width, height, gapX, gapY } = panelSize(compiled, whole, rooms);
  const counts = countsOf(compiled.grid);
  const taken = (size: number, gap: number, count: number) => size * count + gap * (count - 1);
  const spareX = whole.width - rooms.left - rooms.right - taken(width, gapX, counts.columns);
  rooms.left += Math.max(0, spareX / 2);
  const topDown = compiled.graph.layout?.topDown ?? true;
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
    rowStarts: topDown ? rowStarts : rowStarts.reverse(),
    scales: scalesFor(compiled, { width, height }),
  };
}

/** The scales of panels of that size: with room for symbols, and equal units where the chart wants them. */
function scalesFor(compiled: CompiledGraph, size: { width: number; height: number }): Layout['scales'] {
  const { orientation, symbols, chart } = compiled;
  const { width, height } = size;
  const lengths = orientation.transposed ? { x: height, y: width } : { x: width, y: height };
  const standing = compiled.panels.flat().find((layer) => layer.kind === 'bars' || layer.kind === 'area');
  const roomy = (name: 'x' | 'y') => {
    const domain = chart.domains.get(compiled[name].dimension?.domain ?? '');
    const baseline = name === 'y' && standing ? standing.baseline : null;
    return withSymbolRoom(compiled.scales[name], symbols, domain, lengths[name], baseline);
  };
  const scales = { x: roomy('x'), y: roomy('y') };
  return hasSameRatio(scales, orientation) ? equalUnits(scales, size, orientation.transposed) : scales;
}

function gridLines(layout: Layout, across: boolean): GridLines | null {
  const axis = layout.axes.find(
    (each) => isUpright(each.place) === across && each.axis.ticks?.gridline && !each.axis.derived,
  );
  const style = axis?.axis.ticks?.gridline;
  if (!axis || !style || style.visible === false) return null;
  return {
    values: axis.ticks.map((tick) => tick.value),
    stroke: safeColor(style.color) ?? '#e3e3e3',
    width: style.strokeWidth ? pixels(style.strokeWidth, 1) : 0.75,
    dashes: style.dashes?.map((dash) => pixels(dash, 1)) ?? [],
    opacity: style.opacity ?? 1,
    cap: style.lineCap ?? 'butt',
  };
}

function reflected(scale: DrawnScale, orientation: Orientation, screen: 0 | 1, place: number): DrawnScale {
  if (!isReflected(orientation, screen, place)) return scale;
  return withFunctions({ ...scale, inverted: !scale.inverted });
}

/** The scales of one panel, some of them mirrored. */
function panelScales(compiled: CompiledGraph, layout: Layout, panel: Panel): Layout['scales'] {
  const { orientation } = compiled;
  const turn = (scale: DrawnScale, screen: 0 | 1) =>
    reflected(scale, orientation, screen, screen === 0 ? panel.column : panel.row);
  return {
    x: turn(layout.scales.x, orientation.transposed ? 1 : 0),
    y: turn(layout.scales.y, orientation.transposed ? 0 : 1),
  };
}

function panelName(panel: Panel, compiled: CompiledGraph): string {
  const facets = [...panel.facets.values()].map((category) => category.text);
  const terms = [...panel.terms.values()].map((id) => compiled.chart.variables.get(id)?.label ?? id);
  const texts = [...facets, ...terms];
  return texts.length > 0 ? `Panel: ${texts.join(', ')}` : 'Data';
}

/** Axes stand at the outer panels alone. */
function isOuter(place: AxisPlace, panel: Panel, compiled: CompiledGraph): boolean {
  const { columns, rows } = countsOf(compiled.grid);
  const topDown = compiled.graph.layout?.topDown ?? true;
  const bottom = topDown ? rows - 1 : 0;
  if (place === 'left') return panel.column === 0;
  if (place === 'right') return panel.column === columns - 1;
  return place === 'bottom' ? panel.row === bottom : panel.row === rows - 1 - bottom;
}

export interface GraphScope {
  patterns: Patterns;
  maker: Maker;
  paper: string;
  clipPrefix: string;
  lineNames: LineNames;
}

/** What lines are called that no legend explains. */
export interface LineNames {
  /** Beside the ends of lines, at a place along y. */
  beside: { text: string; color: string; y: number }[];
  /** Within panels. */
  within: Map<Layer, TextLook>;
  look: TextLook;
}

/** Names at the heights of their lines, moved apart where they would cover each other. */
function drawLineNames(layout: Layout, scope: GraphScope): SVGElement {
  const { maker } = scope;
  const group = maker.group('Names of lines', 'group');
  const { beside, look } = scope.lineNames;
  const wanted = beside
    .map((name) => ({ ...name, at: (1 - layout.scales.y.unit(name.y)) * layout.height }))
    .sort((a, b) => a.at - b.at);
  let last = -Infinity;
  for (const name of wanted) {
    last = Math.max(name.at, last + lineHeight(look));
    const color = readableShade(scope.paper, name.color);
    const x = layout.width + look.size / 2;
    group.append(maker.text([name.text], x, last + look.size * 0.35, { ...look, color }));
  }
  return group;
}

/** What all panels have, and what this one has of its own. */
function panelFrame(compiled: CompiledGraph, at: number, patterns: Patterns): PanelFrame {
  const { graph, grid, orientation } = compiled;
  const style = { ...graph.cellStyle, ...graph.layout?.cellStyles[at] };
  if (style.visible === false) return { style, paper: none, fill: none, stroke: none };
  const paper = safeColor(style.color) ?? none;
  const outlined = grid.panels.length > 1 && !orientation.polar;
  return {
    style,
    paper,
    fill: patterns.fill(paper, style.pattern ?? 1),
    stroke: safeColor(style.color2) ?? (outlined ? frameColor : none),
  };
}

function drawOne(
  compiled: CompiledGraph,
  layout: Layout,
  panel: Panel,
  at: number,
  scope: GraphScope,
): SVGElement {
  const { maker } = scope;
  const scales = panelScales(compiled, layout, panel);
  const group = maker.make('g', {
    transform: `translate(${layout.columnStarts[panel.column]!.toFixed(2)},${layout.rowStarts[panel.row]!.toFixed(2)})`,
  });
  const several = compiled.grid.panels.length > 1;
  const frame = panelFrame(compiled, at, scope.patterns);
  const { width, height } = layout;
  const { transposed } = compiled.orientation;
  const content = {
    panel,
    name: panelName(panel, compiled),
    layers: compiled.panels[at]!,
    guides: compiled.guides,
    lineNames: scope.lineNames.within,
    canvas: {
      ...scales,
      transposed,
      width,
      height,
      patterns: scope.patterns,
      paper: frame.paper === none ? scope.paper : frame.paper,
    },
    gridlines: { across: gridLines(layout, true), upright: gridLines(layout, false) },
    frame,
    legendText: compiled.chart.legends[0]?.textStyle ?? {},
    notes: compiled.notes,
    clipId: `${scope.clipPrefix}-${at}`,
  };
  group.append(drawPanel(content, maker));
  for (const axis of layout.axes) {
    if (!isOuter(axis.place, panel, compiled)) continue;
    const upright = isUpright(axis.place);
    const screen = upright ? 1 : 0;
    const scale = reflected(axis.scale, compiled.orientation, screen, upright ? panel.row : panel.column);
    const index = upright
      ? layout.rowStarts.filter((start) => start > layout.rowStarts[panel.row]!).length
      : panel.column;
    group.append(drawTicks({ ...axis, scale }, index, width, height, maker, several));
  }
  return group;
}

/** Around all panels, which reach from 0, 0 to width, height, outside of their axes. */
function drawHeaders(layout: Layout, width: number, height: number, maker: Maker): SVGElement[] {
  const { headers, axes, columnStarts, rowStarts } = layout;
  const edges: Record<AxisPlace, number> = {
    top: -axisRoom(axes, 'top'),
    bottom: height + axisRoom(axes, 'bottom'),
    left: -axisRoom(axes, 'left'),
    right: width + axisRoom(axes, 'right'),
  };
  return (['top', 'right', 'bottom', 'left'] as const)
    .filter((place) => headers[place].lines.length > 0)
    .map((place) =>
      isUpright(place)
        ? drawRowHeaders(headers[place], rowStarts, layout.height, edges[place], place === 'left', maker)
        : drawColumnHeaders(
            headers[place],
            columnStarts,
            layout.width,
            edges[place],
            place === 'bottom',
            maker,
          ),
    );
}

/** Room beside the panels that names of lines need is `named`. */
export function drawGraph(
  compiled: CompiledGraph,
  whole: Rectangle,
  named: number,
  scope: GraphScope,
): SVGElement {
  const { maker } = scope;
  const layout = layoutOf(compiled, whole, named);
  const left = whole.left + layout.rooms.left;
  const top = whole.top + layout.rooms.top;
  const group = maker.make('g', { transform: `translate(${Math.round(left)},${Math.round(top)})` });
  compiled.grid.panels.forEach((panel, at) => group.append(drawOne(compiled, layout, panel, at, scope)));
  const allWidth = Math.max(...layout.columnStarts) + layout.width;
  const allHeight = Math.max(...layout.rowStarts) + layout.height;
  group.append(...drawHeaders(layout, allWidth, allHeight, maker));
  if (scope.lineNames.beside.length > 0) group.append(drawLineNames(layout, scope));
  for (const axis of layout.axes) {
    const title = drawAxisTitle(axis, allWidth, allHeight, layout.rooms, maker);
    if (title) group.append(title);
  }
  return group;
}
