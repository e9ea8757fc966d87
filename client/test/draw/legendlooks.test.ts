import { describe, expect, test } from 'vitest';
import { picture, plainAxes, type Picture } from './chart.js';

const categorical = { k: ['one', 'two'], g: ['left', 'right'] };
const columns = { a: [1, 2, 3, 4], b: [2, 3, 4, 5], k: [1, 2, 1, 2], g: [1, 1, 2, 2] };
const xy = '<x variable="a"/><y variable="b"/>';
const legend = (...targets: string[]) =>
  `<legend>${targets.map((target) => `<legendTarget target="${target}"/>`).join('')}</legend>`;
const drawnBy = (graph: string, targets: string[], coordinates = plainAxes) =>
  picture(columns, graph, { categorical, coordinates, rest: legend(...targets) });
const texts = (drawn: Picture) => drawn.textsOf('Legend');

describe('a variable that several elements show', () => {
  const points = `<point>${xy}<color id="c" variable="k"/></point>`;

  test('is explained by each of its looks', () => {
    const areas = `<area positionModifier="3">${xy}<pattern id="p" variable="k"/></area>`;
    const drawn = drawnBy(points + areas, ['c', 'p']);
    expect(texts(drawn)).toEqual(['one', 'two', 'two', 'one']);
    expect(drawn.svg.querySelectorAll('g[aria-label="Legend"] rect')).toHaveLength(2);
  });

  test('is explained once where they look alike', () => {
    const lines = `<line>${xy}<color id="d" variable="k"/></line>`;
    expect(texts(drawnBy(points + lines, ['c', 'd']))).toEqual(['one', 'two']);
  });

  test('is explained once by the element that has all of its looks', () => {
    const symbols = `<point>${xy}<color id="d" variable="k"/><shape id="s" variable="k"/></point>`;
    const drawn = drawnBy(points + symbols, ['c', 'd', 's']);
    expect(texts(drawn)).toEqual(['one', 'two']);
    const shapes = Array.from(drawn.svg.querySelectorAll('g[aria-label="Legend"] path'));
    expect(new Set(shapes.map((shape) => shape.getAttribute('d'))).size).toBe(2);
  });
});

describe('a legend leaves out looks that a note calls unseen', () => {
  test.each([
    ['shapes of lines', `<line>${xy}<shape id="s" variable="k"/></line>`],
    ['sizes of bars', `<interval>${xy}<size id="s" variable="a"/></interval>`],
    ['colours of lines over numbers', `<line>${xy}<color id="s" variable="a"/></line>`],
  ])('such as %s', (_, element) => {
    const drawn = drawnBy(element, ['s']);
    expect(drawn.notes.join()).toContain('is not to be seen');
    expect(drawn.names().filter((name) => name.startsWith('Legend'))).toEqual([]);
  });
});

describe('a legend of bars that stand beside and on each other', () => {
  const bars =
    '<interval positionModifier="3"><x variable="a"/><summaryStatistic method="10"/><color id="c" variable="k"/><pattern id="p" variable="g"/></interval>';
  const coordinates = '<dimension clusterVariable="k"><axis/></dimension><dimension><axis/></dimension>';

  test('lists what clusters from left to right, and parts of stacks upwards', () => {
    expect(texts(drawnBy(bars, ['c'], coordinates))).toEqual(['one', 'two']);
    expect(texts(drawnBy(bars, ['p'], coordinates))).toEqual(['right', 'left']);
    expect(texts(drawnBy(bars, ['c']))).toEqual(['two', 'one']);
  });
});

describe('a legend of dates', () => {
  const day = 86_400;
  const dated = (aesthetic: string) =>
    picture(
      { a: [1, 2, 3], n: [15340 * day, 15700 * day, 16800 * day] },
      `<point><x variable="a"/><y variable="a"/>${aesthetic}</point>`,
      {
        rest: `<sourceVariable id="d" source="s" sourceName="n" label="the d" date="true"><format pattern="yyyy-MM-dd"/></sourceVariable>${legend('l')}`,
      },
    );

  test('has ticks at round dates', () => {
    const years = ['2012-01-01', '2013-01-01', '2014-01-01', '2015-01-01'];
    expect(texts(dated('<color id="l" variable="d"/>'))).toEqual(years);
    const sizes = texts(dated('<size id="l" variable="d"/>'));
    expect(sizes.length).toBeGreaterThan(1);
    for (const text of sizes) expect(text).toMatch(/-01-01$/);
  });
});
