/** How the labels of ticks find room. */
import { lineHeight, shorten, textWidth, widest, wrap, type TextLook } from '../svg/text.js';
import { everyFor, frequencyOf, gapBetweenLabels, thinned, type LabelRoom } from './thinning.js';
import type { TickLayout } from './ticks.js';

function depthOf(lines: string[][], angle: number, look: TextLook, stagger: boolean): number {
  const height = Math.max(1, ...lines.map((each) => each.length)) * lineHeight(look);
  const width = widest(lines.flat(), look);
  const radians = (Math.abs(angle) * Math.PI) / 180;
  const across = Math.sin(radians) * width + Math.cos(radians) * height;
  return across + (stagger ? height : 0);
}

function arrangedAcross(room: LabelRoom, lines: string[][], angle: number, stagger: boolean): TickLayout {
  return { ticks: room.ticks, lines, angle, stagger, depth: depthOf(lines, angle, room.look, stagger) };
}

const inOneLine = ({ ticks }: LabelRoom) => ticks.map((tick) => [tick.text]);

function turned(room: LabelRoom, angle: number, stagger: boolean, every: number): TickLayout {
  const { scale, look, mostDepth } = room;
  // Turned names leave most of the page to the data.
  const cut = (text: string) => (scale.direction.kind === 'category' ? shorten(text, mostDepth, look) : text);
  const lines = thinned(room, inOneLine(room), every);
  return arrangedAcross(
    room,
    lines.map((each) => each.map(cut)),
    angle,
    stagger,
  );
}

/** Turned as the chart wants it. */
function turnedAsAsked(room: LabelRoom, angle: number, stagger: boolean): TickLayout {
  const { look } = room;
  const height = lineHeight(look);
  const radians = (Math.abs(angle) * Math.PI) / 180;
  const [sine, cosine] = [Math.abs(Math.sin(radians)), Math.abs(Math.cos(radians))];
  // Lines of a text beside each other, or short texts one behind the other.
  const need = (text: string) => Math.min(height / sine, cosine * textWidth(text, look) + sine * height);
  return turned(room, angle, stagger, everyFor(room, need));
}

/** Turned since there is no room side by side, or in lines. */
function turnedByNeed(room: LabelRoom, distance: number): TickLayout {
  const height = lineHeight(room.look);
  const angle = distance >= height * 1.5 ? -45 : -90;
  const need = angle === -90 ? tightHeight(room.look) : height * 1.2;
  return turned(
    room,
    angle,
    false,
    everyFor(room, () => need - gapBetweenLabels),
  );
}

const usualLines = 3;

/** Every label in so many lines, or null where a word has no room. */
function wrapped({ ticks, look, mostLines = usualLines }: LabelRoom, width: number): string[][] | null {
  const words = ticks.flatMap(({ text }) => text.split(/\s+/));
  if (words.some((word) => textWidth(word, look) > width)) return null;
  const lines = ticks.map(({ text }) => wrap(text, Math.max(width, 1), look));
  return lines.every((each) => each.length <= mostLines) ? lines : null;
}

/** Labels along the bottom or top: side by side, in lines, turned, or fewer of them, whichever comes first. */
export function layoutAcross(room: LabelRoom): TickLayout {
  const { ticks, scale, length, settings, look } = room;
  const angle = settings?.angle ?? 0;
  const stagger = settings?.stagger ?? false;
  if (angle % 180 !== 0) return turnedAsAsked(room, angle, stagger);
  const frequency = frequencyOf(settings);
  const along = { ...room, length: length * (stagger ? 2 : 1) };
  const every = everyFor(along, (text) => textWidth(text, look));
  if (every <= frequency || scale.direction.kind !== 'category')
    return arrangedAcross(room, thinned(room, inOneLine(room), every), 0, stagger);
  const [first = 0, second = first + 1] = ticks.map((tick) => scale.unit(tick.value) * length);
  const distance = Math.abs(second - first);
  const lines = wrapped(room, distance - gapBetweenLabels);
  return lines ? arrangedAcross(room, lines, 0, false) : turnedByNeed(room, distance);
}

/** Smaller labels are hard to read, in pixels. */
export const leastLabelSize = 9;

/** What a line of labels beside each other takes; of the smallest ones not more than its letters. */
const tightHeight = (look: TextLook) => (look.size <= leastLabelSize ? look.size : lineHeight(look));

/** Names may be shortened, numbers never. */
function inLines(text: string, most: number, width: number, look: TextLook): string[] {
  const lines = wrap(text, width, look);
  if (lines.length <= most) return lines;
  const rest = lines.slice(most - 1).join(' ');
  return [...lines.slice(0, most - 1), shorten(rest, width, look)];
}

/** Labels beside an upright axis. */
export function layoutUpright(room: LabelRoom): TickLayout {
  const { ticks, scale, settings, look, mostDepth, mostLines = usualLines } = room;
  const frequency = frequencyOf(settings);
  const height = lineHeight(look);
  const named = scale.direction.kind === 'category';
  const spare = look.size <= leastLabelSize ? 0 : 2;
  const arranged = (most: number) => {
    const lines = ticks.map(({ text }) => (named ? inLines(text, most, mostDepth, look) : [text]));
    const need = (_: string, at: number) => lines[at]!.length * tightHeight(look) - gapBetweenLabels + spare;
    return { lines, every: everyFor(room, need) };
  };
  let most = named ? mostLines : 1;
  let { lines, every } = arranged(most);
  // A shortened name tells more than one that is not there.
  while (every > frequency && most > 1) ({ lines, every } = arranged((most -= 1)));
  const tallest = Math.max(1, ...lines.map((each) => each.length)) * height;
  const angle = settings?.angle ?? 0;
  const radians = (Math.abs(angle) * Math.PI) / 180;
  const depth =
    Math.abs(Math.cos(radians)) * widest(lines.flat(), look) + Math.abs(Math.sin(radians)) * tallest;
  return { ticks, lines: thinned(room, lines, every), angle, stagger: false, depth };
}
