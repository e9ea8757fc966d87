import { expect, test } from 'vitest';
import { TakenRooms } from '../../src/draw/marks/takenrooms.js';

test('rooms of any size are found by what covers them in the panel', () => {
  const taken = new TakenRooms({ width: 400, height: 300 });
  taken.add({ left: 100, right: 110, top: -1e300, bottom: 1e15 });
  taken.add({ left: 1e18, right: 1e18 + 10, top: 0, bottom: 10 });
  expect(taken.isFree({ left: 90, right: 105, top: 200, bottom: 210 })).toBe(false);
  expect(taken.covered({ left: 0, right: 400, top: 200, bottom: 210 })).toHaveLength(1);
  expect(taken.isFree({ left: 112, right: 400, top: 0, bottom: 300 })).toBe(true);
});
