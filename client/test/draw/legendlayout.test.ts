import { describe, expect, test } from 'vitest';
import { ownTexts } from '../../src/draw/compile/looks.js';
import {
  gapOfBlocks,
  layEntries,
  type Block,
  type Entry,
  type Room,
} from '../../src/draw/legends/legendlayout.js';
import { lineHeight, textWidth } from '../../src/draw/svg/text.js';

const look = { ...ownTexts.dataLabel, size: 12 };

const entriesOf = (texts: string[]): Entry[] => texts.map((text) => ({ look: null, kind: 'interval', text }));
const numbered = (count: number) => Array.from({ length: count }, (_, at) => `g${at}`);

const lay = (texts: string[], room: Room, across = false, own = look): Block =>
  layEntries([entriesOf(texts)], room, own, across)[0]!;

const columnsOf = (block: Block) => [...new Set(block.entries.map(({ x }) => x))];
const textsOf = (block: Block) => block.entries.map(({ lines }) => lines);

describe('entries of a legend', () => {
  test('have two narrow lines where there is no room for three wide ones', () => {
    const names = ['Those who agree with it in full', 'Those who agree with some of it'];
    const block = lay(names, { width: 150, height: 400 });
    expect(textsOf(block).map((lines) => lines.length)).toEqual([2, 2]);
    expect(block.entries.map(({ shortened }) => shortened)).toEqual([false, false]);
    expect(block.width).toBeLessThanOrEqual(150);
  });

  test('leave no column empty', () => {
    // The second section needs four columns of four; then the first has three of two.
    const sections = [numbered(5), numbered(16)].map(entriesOf);
    const [block] = layEntries(sections, { width: 4 * 60, height: 6 * 20 + gapOfBlocks }, look, false);
    expect(columnsOf(block!)).toHaveLength(3);
    const right = Math.max(...block!.entries.map(({ x, lines }) => x + 22 + 7 + textWidth(lines[0]!, look)));
    expect(block!.width).toBeCloseTo(right, 5);
  });

  test('have no gap below the last one', () => {
    expect(lay(['one'], { width: 400, height: 400 }).height).toBe(lineHeight(look));
  });

  test('have a gap between their columns', () => {
    const [first, second] = columnsOf(lay(numbered(4), { width: 400, height: 40 }));
    expect(second! - first!).toBeGreaterThan(22 + 7 + textWidth('g0', look) + 10);
  });

  test('of which there are too many are as many as the room has height for', () => {
    const size = { width: 50, height: 200 };
    const shown = lay(numbered(100), size);
    expect(shown.height).toBeLessThanOrEqual(200);
    // One more entry would not be within it.
    const oneMore = lay(numbered(100), { ...size, height: shown.height - 1 });
    expect(oneMore.hidden).toBe(shown.hidden + 1);
    expect(2 * shown.height - oneMore.height).toBeGreaterThan(200);
    expect(textsOf(shown).at(-1)).toEqual([`\u2026 and ${shown.hidden} more`]);
    expect(shown.entries.length - 1 + shown.hidden).toBe(100);
  });
});

test('sections of a legend that are cut leave the gaps between them', () => {
  const height = 200;
  const sections = [numbered(60), numbered(60), numbered(60)].map(entriesOf);
  const blocks = layEntries(sections, { width: 50, height }, look, false);
  const taken = blocks.reduce((sum, block) => sum + block.height, 0);
  expect(blocks.every(({ hidden }) => hidden > 0)).toBe(true);
  expect(taken + 2 * gapOfBlocks).toBeLessThanOrEqual(height);
});

test('a section of a legend that has room is whole where another one is cut', () => {
  const sections = [numbered(3), numbered(300)].map(entriesOf);
  const blocks = layEntries(sections, { width: 50, height: 200 }, look, false);
  expect(textsOf(blocks[0]!)).toEqual([['g0'], ['g1'], ['g2']]);
  expect(blocks[1]!.hidden).toBeGreaterThan(0);
});

test('sections of a legend are whole only where there is room for the gaps between them, too', () => {
  const sections = [numbered(5), numbered(5)].map(entriesOf);
  const alone = layEntries(sections, { width: 50, height: 1_000 }, look, false);
  const whole = alone.reduce((sum, block) => sum + block.height, gapOfBlocks);
  const gapsOf = (height: number) => {
    const [first] = layEntries(sections, { width: 50, height }, look, false);
    return first!.entries[1]!.middle - first!.entries[0]!.middle;
  };
  expect(gapsOf(whole)).toBe(gapsOf(1_000));
  expect(gapsOf(whole - 1)).toBeLessThan(gapsOf(1_000));
});

test('large texts of a legend are never wider than its room', () => {
  const large = { ...look, size: 36 };
  const block = lay(
    ['Those who agree with it', 'Those who do not agree'],
    { width: 200, height: 900 },
    false,
    large,
  );
  expect(block.width).toBeLessThanOrEqual(200.5);
  expect(textsOf(block).every((lines) => lines.length > 1)).toBe(true);
});

test('large texts of a legend that have to be short take no more columns than they need', () => {
  const large = { ...look, size: 24 };
  const texts = numbered(6).map((text) => `${text} of those who agree`);
  const room = { width: 300, height: 3 * 32 };
  expect(columnsOf(lay(texts, room, false, large))).toHaveLength(2);
});
