/** Sentences below the chart: what it shows, and what of it is not drawn as it says. */
import { pageMargin } from './pagelayout.js';
import type { CompiledGraph } from './compilegraph.js';
import { paddingOf, usualPadding, type LaidFrame } from './frames.js';
import { summaryCaptions } from './notes/statisticnames.js';
import type { Maker } from './svg/svg.js';
import { lineHeight, wrap, type TextLook } from './svg/text.js';

/** What the chart shows is told below it, where a reader could not know it. */
function captionsOf(graphs: CompiledGraph[]): string[] {
  const elements = graphs.flatMap((compiled) => compiled.panels.flat());
  const captions: string[] = [];
  if (elements.some((layer) => layer.kind === 'errors')) {
    captions.push('Error bars show the 95% confidence interval of the mean.');
  }
  captions.push(...graphs.flatMap(({ panels, y }) => summaryCaptions(panels.flat(), y)));
  return captions;
}

const mostNotes = 6;

/** Where texts begin that stand at the left of a page of that width. */
export function leftOf(frames: LaidFrame[], width: number): number {
  const shown = frames.filter(({ lines, look }) => lines.length > 0 && look.align === 'start');
  const lefts = shown
    .map(({ box, frame }) => box.left + paddingOf(frame.style).left)
    .filter((left) => left >= 0 && left < width / 2);
  return Math.min(...(lefts.length > 0 ? lefts : [usualPadding]));
}

/** The room for sentences, and how they look. */
export interface Below {
  width: number;
  /** Where texts begin that stand at the left. */
  left: number;
  look: TextLook;
}

/** Sentences from so far down; none is no group. */
function drawSentences(
  texts: string[],
  group: SVGElement,
  top: number,
  { width, left, look }: Below,
  maker: Maker,
): { groups: SVGElement[]; height: number } {
  if (texts.length === 0) return { groups: [], height: 0 };
  const lines = texts.flatMap((text) => wrap(text, width - left - pageMargin, look));
  group.append(maker.text(lines, left, top + look.size, look));
  return { groups: [group], height: lines.length * lineHeight(look) };
}

/** What the graphs show, and then what of them is not drawn as they say, the first sentences of it. */
export function drawBelow(
  graphs: CompiledGraph[],
  notes: string[],
  top: number,
  below: Below,
  maker: Maker,
): { groups: SVGElement[]; height: number } {
  const distinct = [...new Set(notes)];
  const rest = distinct.length - mostNotes;
  const shown = rest > 0 ? [...distinct.slice(0, mostNotes), `And ${rest} more notes.`] : distinct;
  const captions = captionsOf(graphs);
  const told = drawSentences(captions, maker.group('What is shown', 'group'), top, below, maker);
  const noted = drawSentences(shown, maker.group('Notes', 'note'), top + told.height, below, maker);
  const height = told.height + noted.height;
  return { groups: [...told.groups, ...noted.groups], height: height > 0 ? height + 8 : 0 };
}
