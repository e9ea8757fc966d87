import { describe, expect, test } from 'vitest';
import { number, picture } from './chart.js';

/** The labels beside four rows of panels that touch, from the top of the page. */
function labels(layout: string): string[] {
  const drawn = picture(
    { a: [1, 2, 1, 2, 1, 2, 1, 2], b: [0, 60, 0, 60, 0, 60, 0, 60], k: [1, 1, 2, 2, 3, 3, 4, 4] },
    '<point><x variable="a"/><y variable="b"/></point>' +
      '<faceting><cross><unity/><variableReference ref="k"/></cross></faceting>' +
      `<facetLayout ${layout}><facetLevel level="1" gap="0%"/></facetLayout>`,
    {
      categorical: { k: ['one', 'two', 'three', 'four'] },
      coordinates: `<dimension/><dimension domain="d"><axis><majorTicks delta="30"/></axis></dimension><reflectionTransform dimension="1" alternating="true"/>`,
      rest: '<intervalDomain id="d"><range min="0" max="60" exact="true"/></intervalDomain>',
    },
  );
  const shown = Array.from(drawn.svg.querySelectorAll('g[aria-label="y axis"]')).flatMap((axis) => {
    const row = axis.parentNode as Element;
    const top = Number(/,([-\d.]+)/.exec(row.getAttribute('transform')!)![1]);
    return Array.from(axis.querySelectorAll('text')).map((text) => ({
      text: text.textContent!,
      y: top + number(text, 'y'),
    }));
  });
  return shown.sort((one, other) => one.y - other.y).map(({ text }) => text);
}
describe('labels of four rows, every second of which runs downwards, stand once where two rows meet', () => {
  test('from the top down', () => {
    expect(labels('')).toEqual(['0', '30', '60', '30', '0', '30', '60', '30', '0']);
  });

  test('from the bottom up', () => {
    expect(labels('topDown="false"')).toEqual(['60', '30', '0', '30', '60', '30', '0', '30', '60']);
  });
});
