/** Puts the parts of a page together: titles, graphs, legends, footnotes, and what has to be said below. */
import { drawBelow, leftOf } from './below.js';
import { layPage } from './pagelayout.js';
import type { CompiledGraph } from './compilegraph.js';
import type { Chart } from '../chart/model.js';
import type { Data } from '../data/columns.js';
import { none, readable, safeColor } from './svg/colors.js';
import type { Figures } from './compile/figures.js';
import { drawBox, drawFrame } from './frames.js';
import { drawGraph, type LineNames } from './graph.js';
import { drawLegend } from './legends/legends.js';
import { ownTexts } from './compile/looks.js';
import { Patterns } from './svg/patterns.js';
import { smallText } from './smalltexts.js';
import type { Maker } from './svg/svg.js';

/** Lines that a legend does not explain are named at their ends, or within panels that have no room there. */
function nameLines(compiled: CompiledGraph, chart: Chart): LineNames {
  const explained = new Set(chart.legends.flatMap((legend) => legend.targets));
  const look = { ...smallText([compiled.graph], ownTexts.guideLabel), weight: 'bold' };
  const named = compiled.panels.flat().filter(({ kind, element, group, look, shapes }) => {
    const isNamed = kind === 'line' && element.name !== '' && !explained.has(element.id) && look.visible;
    return isNamed && group.categories.length === 0 && shapes.some((shape) => !Number.isNaN(shape.y));
  });
  if (compiled.grid.panels.length !== 1 || compiled.orientation.transposed) {
    const within = named.map((layer) => [layer, { ...look, color: layer.look.stroke }] as const);
    return { beside: [], within: new Map(within), look };
  }
  const beside = named.map((layer) => {
    const shown = layer.shapes.filter((shape) => !Number.isNaN(shape.y));
    return { text: layer.element.name, color: layer.look.stroke, y: shown[shown.length - 1]!.y };
  });
  return { beside, within: new Map(), look };
}

/** The page itself: its color, and its outline. */
function drawPage({ pageStyle }: Chart, color: string, width: number, height: number, maker: Maker) {
  const page = maker.make('rect', { width, height, fill: color, 'aria-hidden': 'true' });
  return [page, ...drawBox({ ...pageStyle, color: none }, { left: 0, top: 0, width, height }, maker)];
}

export interface Composed {
  parts: SVGElement[];
  width: number;
  height: number;
}

export function compose(
  chart: Chart,
  data: Data,
  figures: Figures,
  graphs: CompiledGraph[],
  notes: string[],
  maker: Maker,
): Composed {
  const layout = layPage(chart, data, figures, graphs, notes);
  const { width } = layout;
  const paper = safeColor(chart.pageStyle.color) ?? '#ffffff';
  const patterns = new Patterns(maker, paper === none ? '#ffffff' : paper);
  const drawn = graphs.map((compiled, at) => {
    const clipPrefix = `${maker.prefix}-clip-${at}`;
    const scope = { patterns, maker, paper, clipPrefix, lineNames: nameLines(compiled, chart) };
    return drawGraph(compiled, layout.graphs[at]!, scope);
  });
  const legends = layout.legends.map(({ laid, box }) =>
    drawLegend(laid, box.left, box.top, { patterns, paper, maker }),
  );
  const frames = layout.frames.map((frame) => drawFrame(frame, maker));
  const own = smallText(chart.graphs, ownTexts.note);
  const place = { width, left: leftOf(layout.frames), look: { ...own, color: readable(paper, own.color) } };
  const below = drawBelow(graphs, notes, layout.height, place, maker);
  const height = Math.ceil(layout.height + below.height);
  const definitions = patterns.definitions();
  const parts = [
    ...drawPage(chart, paper, width, height, maker),
    ...(definitions.length > 0 ? [maker.make('defs', {}, definitions)] : []),
    ...frames,
    ...drawn,
    ...legends,
    ...below.groups,
  ];
  return { parts, width, height };
}
