import { describe, expect, test } from 'vitest';
import { number, picture, plainAxes, type Picture } from './chart.js';

const points = '<point><x variable="a"/><y variable="b"/></point>';
const equal = '<sameRatioTransform center="true"/>';

/** Points at these places, on axes with these ticks. */
function along(a: number[], b: number[], ticksOfX = '', ticksOfY = ''): Picture {
  const axis = (ticks: string) => `<dimension><axis><majorTicks ${ticks}</axis></dimension>`;
  const whole = (ticks: string) => (ticks.includes('>') ? ticks : `${ticks}/>`);
  return picture({ a, b }, points, { coordinates: axis(whole(ticksOfX)) + axis(whole(ticksOfY)) + equal });
}

const numbersOf = (drawn: Picture, axis: string) => drawn.textsOf(axis).map((text) => parseFloat(text));

function stepOf(drawn: Picture, axis: string): number {
  const [first, second] = numbersOf(drawn, axis);
  return second! - first!;
}

describe('equal units of a chart that is turned', () => {
  const turned = (a: number[], b: number[]) =>
    picture({ a, b }, points, { coordinates: `${plainAxes}<transposeTransform/>${equal}` });

  test('make a unit of x, which goes upwards, as long as one of y', () => {
    const [first, second] = turned([0, 10, 20], [0, 1, 2])
      .marks('dot')
      .map((mark) => [number(mark, 'cx'), number(mark, 'cy')] as const);
    expect((first![1] - second![1]) / 10).toBeCloseTo(second![0] - first![0], 1);
  });

  test('leave at most a third of the panel without data', () => {
    const drawn = turned([13, 15, 17], [40, 50, 60]);
    const panel = drawn.svg.querySelector('g[aria-label="Data"] rect')!;
    const places = drawn.marks('dot').map((mark) => number(mark, 'cy'));
    expect((Math.max(...places) - Math.min(...places)) / number(panel, 'height')).toBeGreaterThan(0.6);
    expect(number(panel, 'width')).toBeGreaterThan(450);
  });
});

describe('the common distance of ticks of equal units', () => {
  test('is not wanted where the chart has one of its own, or a base', () => {
    const ofX = along([40, 50, 60], [13, 15, 17], 'delta="5"');
    expect([stepOf(ofX, 'x axis'), stepOf(ofX, 'y axis')]).toEqual([5, 1]);
    const based = along([40, 50, 60], [13, 15, 17], '', 'base="13.5"');
    expect(numbersOf(based, 'y axis')).toContain(13.5);
    expect(stepOf(based, 'x axis')).toBe(5);
  });

  test('is not one that would give the longer axis more than twelve', () => {
    const drawn = along([0, 7, 14], [0, 1, 2]);
    expect(numbersOf(drawn, 'x axis').length).toBeLessThanOrEqual(12);
  });

  test('is not one at which labels have no room', () => {
    const long = '><format suffix=" kilometres"/></majorTicks>';
    const drawn = along([0, 5, 10], [0, 1, 2], long);
    expect(stepOf(along([0, 5, 10], [0, 1, 2]), 'x axis')).toBe(1);
    const marks = drawn.svg.querySelector('g[aria-label="x axis"] path[d*=" v5"]')!.getAttribute('d')!;
    // Each of the long marks has its label.
    expect(marks.match(/ v5/g)).toHaveLength(drawn.textsOf('x axis').length);
  });
});
