import { describe, expect, test } from 'vitest';
import { labelsBeside, type Neighbours, type PanelLabels } from '../../src/draw/axes/neighbours.js';
import type { Direction } from '../../src/draw/compile/directions.js';
import { ownTexts } from '../../src/draw/compile/looks.js';
import { withFunctions } from '../../src/draw/compile/scales.js';
import { textLook } from '../../src/draw/svg/text.js';

const look = textLook({}, ownTexts.tickLabel);

/** The labels 10, 20 and 30 of panels that are 200 pixels long, from 10 to 30. */
function panels({ count, ...how }: Partial<Neighbours> & { count: number }): PanelLabels[] {
  const direction = { kind: 'number' } as Direction;
  const domain: [number, number] = [10, 30];
  const scale = withFunctions({ direction, domain, method: 'linear', base: 1, inverted: false });
  const ticks = [10, 20, 30].map((value) => ({ value, text: `${value}` }));
  const layout = { ticks, lines: ticks.map(({ text }) => [text]), angle: 0, stagger: false, depth: 15 };
  const neighbours = { count, gap: 0, mirrored: false, turned: false, ...how };
  const labels = labelsBeside(layout, scale, 200, false, look, neighbours);
  return Array.from({ length: count }, (_, index) => labels(index));
}

const textsOf = (all: PanelLabels[]) => all.map(({ lines }) => lines.flat().join(' '));

describe('labels at the ends of panels', () => {
  test('that run against each other keep 8 pixels apart, where the panels do', () => {
    // Each of the two numbers that meet reaches 6.7 pixels into the gap.
    expect(textsOf(panels({ count: 2, gap: 22, mirrored: true }))).toEqual(['10 20 30', '10 20 30']);
    expect(textsOf(panels({ count: 2, gap: 21, mirrored: true }))).toEqual(['20 30', '20 30']);
    expect(textsOf(panels({ count: 3, gap: 21, mirrored: true }))).toEqual(['20', '20', '20']);
  });

  test('that run one way keep as far apart', () => {
    expect(textsOf(panels({ count: 2, gap: 22 }))).toEqual(['10 20 30', '10 20 30']);
    expect(textsOf(panels({ count: 2, gap: 21 }))).toEqual(['10 20', '10 20']);
  });

  test('are lost where they stand in none of them', () => {
    const lost = (how: Partial<Neighbours> & { count: number }) => panels(how).map((each) => each.lost);
    expect(lost({ count: 2, gap: 22 })).toEqual([0, 0]);
    expect(lost({ count: 2, gap: 21 })).toEqual([1, 1]);
    expect(lost({ count: 3, gap: 21, mirrored: true })).toEqual([2, 2, 2]);
    // The last panel has what the others have not.
    expect(lost({ count: 2, gap: 0 })).toEqual([0, 0]);
    expect(textsOf(panels({ count: 2, gap: 0 }))).toEqual(['10 20', '10 20 30']);
  });
});
