/** Draws a graph: its panels with their axes and headers, in a rectangle of the page. */
import { pixels } from '../chart/markup.js';
import { isUpright, type AxisPlace } from './axes/axes.js';
import { drawAxisTitle, drawTicks, frameColor } from './axes/drawaxes.js';
import { none, safeColor } from './svg/colors.js';
import type { CompiledGraph } from './compilegraph.js';
import { drawLineNames, roomForNames, type LineNames } from './endnames.js';
import { axisRoom, layoutOf, withFittingPanels, type Layout } from './graphlayout.js';
import { drawColumnHeaders, drawRowHeaders } from './axes/headers.js';
import type { Rectangle } from './page.js';
import { panelScales, reflected } from './panelscales.js';
import { countsOf, type Panel } from './compile/panels.js';
import type { Patterns } from './svg/patterns.js';
import { drawPanel, type GridLines, type PanelFrame } from './marks/plot.js';
import type { Maker } from './svg/svg.js';

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

/** A panel, and where it is among the others. */
interface Place {
  panel: Panel;
  at: number;
}

function drawContent(compiled: CompiledGraph, layout: Layout, { panel, at }: Place, scope: GraphScope) {
  const frame = panelFrame(compiled, at, scope.patterns);
  const { width, height } = layout;
  const content = {
    panel,
    name: panelName(panel, compiled),
    layers: compiled.panels[at]!,
    guides: compiled.guides,
    lineNames: scope.lineNames.within,
    canvas: {
      ...panelScales(compiled, layout.scales, panel),
      transposed: compiled.orientation.transposed,
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
  return drawPanel(content, scope.maker);
}

function drawAxes(compiled: CompiledGraph, layout: Layout, panel: Panel, maker: Maker): SVGElement[] {
  const { width, height, rowStarts } = layout;
  const framed = compiled.grid.panels.length > 1;
  return layout.axes
    .filter((axis) => isOuter(axis.place, panel, compiled))
    .map((axis) => {
      const upright = isUpright(axis.place);
      const place = upright ? panel.row : panel.column;
      const scale = reflected(axis.scale, compiled.orientation, upright ? 1 : 0, place);
      const below = rowStarts.filter((start) => start > rowStarts[panel.row]!).length;
      const index = upright ? below : panel.column;
      return drawTicks({ ...axis, scale }, { index, width, height, framed }, maker);
    });
}

function drawOne(compiled: CompiledGraph, layout: Layout, place: Place, scope: GraphScope): SVGElement {
  const { panel } = place;
  const [left, top] = [layout.columnStarts[panel.column]!, layout.rowStarts[panel.row]!];
  const group = scope.maker.make('g', { transform: `translate(${left.toFixed(2)},${top.toFixed(2)})` });
  group.append(drawContent(compiled, layout, place, scope));
  group.append(...drawAxes(compiled, layout, panel, scope.maker));
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

/** Names of lines at the right of the only panel. */
function drawNames(compiled: CompiledGraph, layout: Layout, scope: GraphScope): SVGElement {
  const scales = panelScales(compiled, layout.scales, compiled.grid.panels[0]!);
  const panel = { ...scales, transposed: false, width: layout.width, height: layout.height };
  return drawLineNames(scope.lineNames, panel, scope.paper, compiled.notes, scope.maker);
}

export function drawGraph(graph: CompiledGraph, whole: Rectangle, scope: GraphScope): SVGElement {
  const { maker } = scope;
  const named = roomForNames(scope.lineNames);
  const compiled = withFittingPanels(graph, whole, named);
  const layout = layoutOf(compiled, whole, named);
  const left = whole.left + layout.rooms.left;
  const top = whole.top + layout.rooms.top;
  const group = maker.make('g', { transform: `translate(${Math.round(left)},${Math.round(top)})` });
  compiled.grid.panels.forEach((panel, at) => group.append(drawOne(compiled, layout, { panel, at }, scope)));
  const allWidth = Math.max(...layout.columnStarts) + layout.width;
  const allHeight = Math.max(...layout.rowStarts) + layout.height;
  group.append(...drawHeaders(layout, allWidth, allHeight, maker));
  if (scope.lineNames.beside.length > 0) group.append(drawNames(compiled, layout, scope));
  for (const axis of layout.axes) {
    const title = drawAxisTitle(axis, allWidth, allHeight, layout.rooms, maker);
    if (title) group.append(title);
  }
  return group;
}
