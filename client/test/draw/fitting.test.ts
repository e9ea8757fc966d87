import { describe, expect, test } from 'vitest';
import { secondsOf } from '../../src/data/format.js';
import { fittingTicks, type TickRoom } from '../../src/draw/axes/fitting.js';
import type { Neighbours } from '../../src/draw/axes/neighbours.js';
import type { Direction } from '../../src/draw/compile/directions.js';
import { ownTexts } from '../../src/draw/compile/looks.js';
import { withFunctions } from '../../src/draw/compile/scales.js';
import { textLook } from '../../src/draw/svg/text.js';

const alone: Neighbours = { count: 1, gap: 0, mirrored: false, turned: false };
const look = textLook({}, ownTexts.tickLabel);

/** The labels of the ticks that an axis along the bottom has in so much room. */
function along(
  domain: [number, number],
  length: number,
  neighbours = alone,
  kind: 'number' | 'date' = 'number',
): string[] {
  const direction = { kind, format: null, weekBegins: 1 } as unknown as Direction;
  const scale = withFunctions({ direction, domain, method: 'linear', base: 1, inverted: false });
  const room: TickRoom = { length, upright: false, look, neighbours };
  return fittingTicks(scale, null, room, { whole: false, language: '' }).map(({ text }) => text);
}
const years = [2000, 2010] as [number, number];
const dates = years.map((year) => secondsOf(`${year}-01-01`)!) as [number, number];
const everySecond = ['2000', '2002', '2004', '2006', '2008', '2010'];
const everyFifth = ['2000', '2005', '2010'];

describe('labels of numbers along the bottom', () => {
  test('stand further apart than those of dates, and than those of several panels', () => {
    expect(along(years, 200)).toEqual(everyFifth);
    expect(along(years, 300)).toEqual(everySecond);
    expect(along(dates, 200, alone, 'date')).toEqual(everySecond);
    expect(along(years, 200, { ...alone, count: 3, gap: 60 })).toEqual(everySecond);
  });

  test('are three where two would leave the scale untold, not as many as there is room for', () => {
    expect(along([9, 23.5], 157)).toEqual(['10', '15', '20']);
  });

  test('are enough where the last of two panels alone has three, with that at the edge of both', () => {
    expect(along([0, 20], 100, { ...alone, count: 2 })).toEqual(['0', '10', '20']);
  });
});
