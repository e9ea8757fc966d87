/** Puts the parts of a page together: titles, graphs, legends, footnotes, and what has to be said below. */
import { drawBelow, leftOf } from './below.js';
import { layPage } from './pagelayout.js';
import type { CompiledGraph } from './compilegraph.js';
import type { Chart } from '../chart/model.js';
import type { Data } from '../data/columns.js';
import { none, readable, safeColor } from './svg/colors.js';
import type { Figures } from './compile/figures.js';
import { drawBox, drawFrame } from './frames.js';
import { nameLines } from './endnames.js';
import { drawGraph } from './graph.js';
import { drawLegend } from './legends/legends.js';
import { ownTexts } from './compile/looks.js';
import { Patterns } from './svg/patterns.js';
import { smallText } from './smalltexts.js';
import type { Maker } from './svg/svg.js';

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
  const drawn = graphs.map((compiled) => {
    const at = chart.graphs.indexOf(compiled.graph);
    const clipPrefix = `${maker.prefix}-clip-${at}`;
    const room = layout.graphs[at]!;
    const lineNames = nameLines(compiled, chart, room.width);
    return drawGraph(compiled, room, { patterns, maker, paper, clipPrefix, lineNames });
  });
  const legends = layout.legends.map(({ laid, box }) =>
    drawLegend(laid, box.left, box.top, { patterns, paper, maker }),
  );
  const frames = layout.frames.map((frame) => drawFrame(frame, maker));
  const own = smallText(chart.graphs, ownTexts.note);
  const place = {
    width,
    left: leftOf(layout.frames, width),
    look: { ...own, color: readable(paper, own.color) },
  };
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
