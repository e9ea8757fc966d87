/** Names of categories along an axis: how large they are, and in how many lines, so that all of them can be read. */
import type { TextLook } from '../svg/text.js';
import { leastLabelSize } from './ticklabels.js';
import type { TickLayout } from './ticks.js';

export interface NameLook {
  look: TextLook;
  /** The most that a name has; as many as usual where it is left out. */
  lines?: number | undefined;
}

type Arrange = (look: TextLook, lines?: number) => TickLayout;

export const isShortened = (lines: string[], text: string) =>
  (lines[lines.length - 1] ?? '').endsWith('\u2026') && !text.endsWith('\u2026');

/** Rather than being shortened, names have so many lines, or are so much smaller. */
const mostLines = 5;
const leastShare = 0.6;

function* smaller(look: TextLook, least: number): Generator<TextLook> {
  for (let size = Math.ceil(look.size) - 1; size >= least; size -= 1) yield { ...look, size };
}

/** Names are smaller where all of them have room then, and whole ones before those that are shortened. */
export function lookOfNames(look: TextLook, asked: number, arrange: Arrange): NameLook {
  const allShown = ({ lines }: TickLayout) => lines.filter((each) => each.length > 0).length >= asked;
  const allWhole = ({ lines, ticks }: TickLayout) =>
    lines.every((each, at) => !isShortened(each, ticks[at]!.text));
  const sizes = [look, ...smaller(look, leastLabelSize)];
  const roomy = sizes.find((some) => allShown(arrange(some)));
  if (!roomy || allWhole(arrange(roomy))) return { look: roomy ?? look };
  const whole = [roomy, ...smaller(roomy, Math.max(leastLabelSize, look.size * leastShare))].find((some) => {
    const layout = arrange(some, mostLines);
    return allShown(layout) && allWhole(layout);
  });
  return whole ? { look: whole, lines: mostLines } : { look: roomy };
}
