/** Where titles, footnotes and other frames stand, and what they leave of the page. */
import type { Chart } from '../chart/model.js';
import type { Figures } from './compile/figures.js';
import { frameTexts, layFrame, type FrameText, type LaidFrame } from './frames.js';
import { rectangle, type Places, type Rectangle } from './page.js';

const isTitle = (role: string) => /^(title|subtitle)/.test(role);
const isFootnote = (role: string) => /^(footnote|statisticsSummary)/.test(role);

/** Texts above the graphs take no more of the page, and texts below them neither. */
const mostOfPage = 1 / 3;

/** A frame that is higher than that part of the page lies behind graphs; only its text pushes them aside. */
const mostOfFrame = 1 / 2;

type Zone = 'above' | 'below' | 'free';

interface Zoned extends FrameText {
  zone: Zone;
  box: Rectangle;
  /** It says how far up it stands. */
  placed: boolean;
}

/**
 * Texts with a part in the chart stand above or below the graphs, by the place of their first lines, or by their part
 * where they say nothing about that.
 */
function zoned(text: FrameText, places: Places, page: Rectangle): Zoned {
  const edges = places.edges(text.frame.id);
  const box = rectangle(edges, page);
  const placed = edges.top !== undefined || edges.bottom !== undefined;
  const byRole: Zone = isTitle(text.role) ? 'above' : isFootnote(text.role) ? 'below' : 'free';
  if (byRole === 'free' || !placed) return { ...text, box, placed, zone: byRole };
  const middle = box.top + Math.min(box.height, page.height * mostOfFrame) / 2;
  return { ...text, box, placed, zone: middle > page.height / 2 ? 'below' : 'above' };
}

interface Placed {
  laid: LaidFrame;
  zone: Zone;
  placed: boolean;
}

/** What a frame keeps to itself. */
const kept = ({ laid: { box, needed } }: Placed, page: Rectangle) =>
  box.height > page.height * mostOfFrame ? needed : Math.max(box.height, needed);

/** Texts from the top on; those that need more than their place has push down what is below. */
function layAbove(frames: Placed[], page: Rectangle): number {
  let pushed = 0;
  let top = 0;
  for (const frame of frames.sort((a, b) => a.laid.box.top - b.laid.box.top)) {
    const { laid, placed } = frame;
    if (placed) laid.box = { ...laid.box, top: laid.box.top + pushed };
    else laid.box = { ...laid.box, top, height: laid.needed };
    const missing = Math.max(0, laid.needed - laid.box.height);
    if (placed) pushed += missing;
    laid.box.height += missing;
    top = laid.box.top + kept(frame, page);
  }
  return top;
}

/** Texts from the bottom on; those that need more than their place has push up what is above. */
function layBelow(frames: Placed[], page: Rectangle): number {
  let pushed = 0;
  let bottom = page.height;
  for (const frame of frames.sort((a, b) => b.laid.box.top - a.laid.box.top)) {
    const { laid, placed } = frame;
    if (placed) laid.box = { ...laid.box, top: laid.box.top - pushed };
    else laid.box = { ...laid.box, top: bottom - laid.needed, height: laid.needed };
    const missing = Math.max(0, laid.needed - laid.box.height);
    if (placed) pushed += missing;
    laid.box = { ...laid.box, top: laid.box.top - missing, height: laid.box.height + missing };
    bottom = laid.box.top + laid.box.height - kept(frame, page);
  }
  return bottom;
}

export interface Frames {
  laid: LaidFrame[];
  /** Where those above the graphs end, and where those below begin. */
  top: number;
  bottom: number;
}

/** Frames with a place of their own; texts share a third of the `wished` height above the graphs, and one below. */
export function layFrames(
  chart: Chart,
  figures: Figures,
  places: Places,
  page: Rectangle,
  wished: number,
  notes: string[],
): Frames {
  const texts = frameTexts(chart, figures, notes)
    .filter(({ text, frame }) => text !== '' || frame.locations.length > 0)
    .map((text) => zoned(text, places, page));
  const share = (zone: Zone) =>
    mostOfPage /
    Math.max(1, texts.filter((text) => text.text !== '' && (zone === 'free' || text.zone === zone)).length);
  const frames = texts.map((text): Placed => {
    const laid = layFrame(text, text.box, wished * share(text.zone), notes);
    return { laid, zone: text.zone, placed: text.placed };
  });
  const of = (zone: Zone) => frames.filter((frame) => frame.zone === zone);
  return {
    laid: frames.map(({ laid }) => laid),
    top: layAbove(of('above'), page),
    bottom: layBelow(of('below'), page),
  };
}
