/** Puts the entries of legends into columns and rows, as many of them as there is room for. */
import type { Look, LookKind } from '../compile/looks.js';
import { atMost, lineHeight, shorten, textWidth, widest, wrap, type TextLook } from '../svg/text.js';
import { counted } from '../notes/counts.js';

/** A sample of a look with what it stands for. */
export interface Entry {
  /** Null where there is a text alone. */
  look: Look | null;
  kind: LookKind;
  text: string;
}

export interface PlacedEntry {
  entry: Entry;
  lines: string[];
  /** Whether the lines tell less than the text. */
  shortened: boolean;
  /** The left edge of the sample and the middle of the lines, from the corner of the block. */
  x: number;
  middle: number;
  sampleWidth: number;
}

export interface Block {
  entries: PlacedEntry[];
  width: number;
  height: number;
  /** How many entries have no room. */
  hidden: number;
}

export interface Room {
  width: number;
  height: number;
}

export const swatchWidth = 22;
export const swatchHeight = 13;
export const gapToText = 7;
const usualSize = 12;
const scaleOf = ({ size }: TextLook) => Math.max(1, size / usualSize);
/** The most that a text of the usual size takes; larger ones take more. */
export const widestText = (look: TextLook) => usualFits[0]!.width * scaleOf(look);
export const gapOfBlocks = 11;
const gapOfColumns = 12;
/** Sums of sizes are not exact. */
const slack = 0.5;
/** Neither readers nor pages have room for more. */
const mostEntries = 2_000;

/** How much of the texts is shown, and the distance of the entries; the first one that fits is taken. */
interface Fit {
  width: number;
  lines: number;
  gap: number;
}

const usualFits: Fit[] = [
  { width: 170, lines: 3, gap: 5 },
  { width: 110, lines: 2, gap: 4 },
  { width: 170, lines: 1, gap: 2 },
  { width: 110, lines: 1, gap: 2 },
  { width: 60, lines: 1, gap: 2 },
];

/** Large texts take more, as far as the room has it for all of them. */
function fitsOf(look: TextLook, room: Room): Fit[] {
  const scale = scaleOf(look);
  if (scale === 1) return usualFits;
  const most = Math.max(60, room.width - swatchWidth - gapToText);
  const large = usualFits.map((fit) => ({ ...fit, width: Math.min(most, fit.width * scale) }));
  return [...large, ...usualFits.slice(-1)];
}

/** An entry with its lines, before it has a place. */
interface Sized {
  entry: Entry;
  lines: string[];
  shortened: boolean;
  width: number;
  /** With the gap below it. */
  height: number;
  gap: number;
  sampleWidth: number;
}

/** Texts that begin alike are told apart by their ends. */
function shortenMiddle(text: string, width: number, look: TextLook): string {
  const letters = [...text];
  const end = letters.slice(-Math.max(3, Math.floor(letters.length * (width / textWidth(text, look)) * 0.4)));
  const rest = letters.slice(0, -end.length).join('');
  return shorten(`${rest}\u2026`, width - textWidth(end.join(''), look), look) + end.join('');
}

function linesOf(text: string, fit: Fit, look: TextLook): string[] {
  return fit.lines === 1 ? [shorten(text, fit.width, look)] : atMost(wrap(text, fit.width, look), fit.lines);
}

function sizedOf(entries: Entry[], fit: Fit, look: TextLook): Sized[] {
  const whole = (lines: string[], text: string) =>
    lines.join('').replace(/\s/g, '') === text.replace(/\s/g, '');
  const all = entries.map((entry) => ({ entry, lines: linesOf(entry.text, fit, look) }));
  const seen = new Map<string, number>();
  for (const { lines } of all) seen.set(lines.join(), (seen.get(lines.join()) ?? 0) + 1);
  const samples = entries.map((entry) => (entry.kind === 'point' && entry.look ? entry.look.size + 2 : 0));
  const sampleWidth = Math.max(swatchWidth, ...samples);
  return all.map(({ entry, lines }, at): Sized => {
    const shortened = !whole(lines, entry.text);
    const shown =
      shortened && seen.get(lines.join())! > 1 ? [shortenMiddle(entry.text, fit.width, look)] : lines;
    return {
      entry,
      lines: shown,
      shortened,
      sampleWidth,
      gap: fit.gap,
      width: sampleWidth + gapToText + widest(shown, look),
      height: Math.max(shown.length * lineHeight(look), swatchHeight, samples[at]!) + fit.gap,
    };
  });
}

/** In columns one beside the other, each from the top; or row by row. */
function place(entries: Sized[], wanted: number, across: boolean): Block {
  const rows = Math.ceil(entries.length / wanted);
  const columns = across ? wanted : Math.ceil(entries.length / rows);
  const cellOf = (at: number) =>
    across ? [at % columns, Math.floor(at / columns)] : [Math.floor(at / rows), at % rows];
  const widths = Array.from({ length: columns }, () => 0);
  const heights = Array.from({ length: rows }, () => 0);
  entries.forEach((entry, at) => {
    const [column, row] = cellOf(at) as [number, number];
    widths[column] = Math.max(widths[column]!, entry.width);
    heights[row] = Math.max(heights[row]!, entry.height);
  });
  const lefts = starts(widths, gapOfColumns);
  const tops = starts(heights, 0);
  const placed = entries.map(({ entry, lines, shortened, sampleWidth, gap }, at): PlacedEntry => {
    const [column, row] = cellOf(at) as [number, number];
    const middle = tops[row]! + (heights[row]! - gap) / 2;
    return { entry, lines, shortened, sampleWidth, x: lefts[column]!, middle };
  });
  return {
    entries: placed,
    width: sum(widths) + gapOfColumns * (columns - 1),
    height: sum(heights) - Math.min(...entries.map((entry) => entry.gap)),
    hidden: 0,
  };
}

const sum = (values: number[]) => values.reduce((total, value) => total + value, 0);

function starts(extents: number[], gap: number): number[] {
  let at = 0;
  return extents.map((extent) => {
    const start = at;
    at += extent + gap;
    return start;
  });
}

/** Those that want less than their part get what they want, the others share the rest. */
export function shares(wanted: number[], whole: number): number[] {
  const granted = wanted.map(() => 0);
  let [left, open] = [whole, wanted.length];
  const order = wanted.map((_, at) => at).sort((a, b) => wanted[a]! - wanted[b]!);
  for (const at of order) {
    granted[at] = Math.min(wanted[at]!, left / open);
    left -= granted[at]!;
    open -= 1;
  }
  return granted;
}

/** The most columns that the room has for the entries. */
function mostColumns(entries: Sized[], width: number, across: boolean): number {
  const narrowest = Math.min(...entries.map((entry) => entry.width));
  const most = Math.floor((width + gapOfColumns) / (narrowest + gapOfColumns));
  let columns = Math.max(1, Math.min(entries.length, most));
  while (columns > 1 && place(entries, columns, across).width > width) columns -= 1;
  return columns;
}

function heightOf(blocks: Block[]): number {
  return sum(blocks.map((block) => block.height)) + gapOfBlocks * Math.max(0, blocks.length - 1);
}

/** Entries beside the data take as few columns as they need, those above and below it as few rows. */
function placeAll(sections: Sized[][], room: Room, across: boolean): Block[] | null {
  const most = sections.map((entries) => mostColumns(entries, room.width, across));
  const fit = (columns: number) =>
    sections.map((entries, at) => place(entries, Math.min(columns, most[at]!), across));
  for (let columns = across ? Math.max(...most) : 1; columns <= Math.max(...most); columns += 1) {
    const blocks = fit(columns);
    const isWithin = heightOf(blocks) <= room.height + slack;
    if (isWithin && blocks.every((block) => block.width <= room.width + slack)) return blocks;
  }
  return null;
}

function moreEntry(hidden: number, fit: Fit, look: TextLook): Sized {
  const entry: Entry = { look: null, kind: 'point', text: `\u2026 and ${counted(hidden)} more` };
  const width = swatchWidth + gapToText + textWidth(entry.text, look);
  const height = Math.max(lineHeight(look), swatchHeight) + fit.gap;
  return {
    entry,
    lines: [entry.text],
    shortened: false,
    width,
    height,
    gap: fit.gap,
    sampleWidth: swatchWidth,
  };
}

/** As many of the entries as there is room for, and how many there are beside them. */
function cut(entries: Sized[], all: number, fit: Fit, look: TextLook, room: Room, across: boolean): Block {
  const shown = (count: number): Block => {
    const some = count === all ? entries : [...entries.slice(0, count), moreEntry(all - count, fit, look)];
    return { ...place(some, mostColumns(some, room.width, across), across), hidden: all - count };
  };
  if (all === entries.length && shown(all).height <= room.height) return shown(all);
  let [low, high] = [0, Math.min(entries.length, all - 1)];
  while (low < high) {
    const middle = Math.ceil((low + high) / 2);
    if (shown(middle).height <= room.height) low = middle;
    else high = middle - 1;
  }
  return shown(low);
}

/** Lays sections of entries out in a room, one section below the other. */
export function layEntries(sections: Entry[][], room: Room, look: TextLook, across: boolean): Block[] {
  if (sections.length === 0) return [];
  if (sections.every((entries) => entries.length <= mostEntries)) {
    for (const fit of fitsOf(look, room)) {
      const blocks = placeAll(
        sections.map((entries) => sizedOf(entries, fit, look)),
        room,
        across,
      );
      if (blocks) return blocks;
    }
  }
  const fit = usualFits[usualFits.length - 1]!;
  const sized = sections.map((entries) => sizedOf(entries.slice(0, mostEntries), fit, look));
  const gaps = gapOfBlocks * (sections.length - 1);
  const wanted = sized.map(
    (entries) => place(entries, mostColumns(entries, room.width, across), across).height,
  );
  const heights = shares(wanted, Math.max(0, room.height - gaps));
  return sized.map((entries, at) =>
    cut(entries, sections[at]!.length, fit, look, { width: room.width, height: heights[at]! }, across),
  );
}
