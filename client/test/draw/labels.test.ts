import { describe, expect, test } from 'vitest';
import { Picture, picture, plainAxes } from './chart.js';

/** Where a text stands, and the side of that place on which it is. */
function placeOf(drawn: Picture, text: string): { x: number; y: number; anchor: string } {
  const found = Array.from(drawn.svg.querySelectorAll('g[aria-label="Labels of data"] text')).find(
    (each) => each.textContent === text,
  )!;
  const [, x, y] = /translate\(([-\d.]+),([-\d.]+)\)/.exec(found.getAttribute('transform') ?? '')!;
  const group = found.parentNode as Element;
  const [, dx, dy] = /translate\(([-\d.]+),([-\d.]+)\)/.exec(group.getAttribute('transform') ?? '') ?? [];
  return {
    x: Number(x) + Math.trunc(Number(dx ?? 0)),
    y: Number(y) + Math.trunc(Number(dy ?? 0)),
    anchor: drawn.look(found, 'text-anchor') ?? 'start',
  };
}

const kinds = { k: ['one', 'two', 'three'] };
const bars = (coordinates = plainAxes) =>
  picture(
    { k: [1, 2], b: [30, -20] },
    '<interval><x variable="k"/><y variable="b"/><labeling variable="b"/></interval>',
    { categorical: kinds, coordinates },
  );

const numberOf = (element: Element, name: string) => Number(element.getAttribute(name));

describe('labels of bars', () => {
  test('stand over the middle of their bars', () => {
    const drawn = bars();
    const [bar] = drawn.marks('rect');
    const label = placeOf(drawn, '30');
    expect(label.anchor).toBe('middle');
    expect(label.x).toBeCloseTo(numberOf(bar!, 'x') + numberOf(bar!, 'width') / 2, 0);
    expect(label.y).toBeLessThan(numberOf(bar!, 'y'));
  });
});
