import { describe, expect, test } from 'vitest';
import { ownTexts } from '../../src/draw/compile/looks.js';
import { Surroundings, type NamePlace } from '../../src/draw/marks/linenames.js';
import type { Canvas } from '../../src/draw/marks/canvas.js';
import { textWidth } from '../../src/draw/svg/text.js';
import { picture } from './chart.js';

const look = { ...ownTexts.dataLabel, size: 10 };
const canvas = { width: 200, height: 200 } as Canvas;
const place = (x: number, y: number): NamePlace => ({ spot: [x, y], anchor: 'start', above: true });

describe('the name of a line', () => {
  const [first, second] = [place(20, 50), place(120, 50)];

  test('may lie on its own line, but not on others', () => {
    const line: [number, number][] = [
      [20, 52],
      [30, 54],
    ];
    const freest = (own: [number, number][] | null) =>
      new Surroundings(canvas, [], [line]).freest([first, second], ['name'], look, own);
    expect(freest(line)).toBe(first);
    expect(freest(null)).toBe(second);
  });

  test('never covers another name', () => {
    const around = new Surroundings(canvas, [], []);
    expect(around.freest([first, second], ['name'], look, null)).toBe(first);
    expect(around.freest([first, second], ['name'], look, null)).toBe(second);
    expect(around.freest([first, second], ['name'], look, null)).toBeNull();
  });

  test('is within the panel', () => {
    // Beside the text are 9 pixels, and 1 may be beyond the panel.
    const widest = 200 + 1 - 9 - textWidth('name', look);
    const shown = (x: number, y: number) =>
      new Surroundings(canvas, [], []).freest([place(x, y)], ['name'], look, null) !== null;
    expect([shown(widest - 0.1, 50), shown(widest + 0.1, 50)]).toEqual([true, false]);
    expect([shown(-1, 50), shown(-1.1, 50)]).toEqual([true, false]);
    expect([shown(50, -1.9), shown(50, -2.1)]).toEqual([true, false]);
    expect([shown(50, 180), shown(50, 190)]).toEqual([true, false]);
  });

  test('stands at what of the line is within the panel, however little that is', () => {
    const rows = Array.from({ length: 100 }, (_, at) => at);
    const drawn = picture(
      { a: rows, b: rows },
      '<line id="l" name="The line"><x variable="a"/><y variable="b"/></line>',
      {
        coordinates: '<dimension/><dimension domain="d"/><transposeTransform/>',
        rest: '<intervalDomain id="d"><range min="43" max="47" exact="true"/></intervalDomain>',
      },
    );
    expect(drawn.texts()).toContain('The line');
    expect(drawn.notes.filter((note) => note.includes('The line'))).toEqual([]);
  });
});
