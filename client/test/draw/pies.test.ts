import { describe, expect, test } from 'vitest';
import { picture, plainAxes } from './chart.js';

const categorical = { k: ['a', 'b', 'c'], g: ['left', 'right'] };
const polar = `${plainAxes}<transposeTransform/><polarTransform/>`;
const straight =
  'Of polar coordinates only pies of stacked bars are drawn; this graph stands in straight ones.';

describe('what pies do not show', () => {
  const sums = (b: number[], attributes = 'method="1"', panels = '') =>
    picture(
      { k: [1, 2, 3, 1, 2, 3].slice(0, b.length), b, g: [1, 1, 1, 2, 2, 2].slice(0, b.length) },
      `<interval positionModifier="3"><summaryStatistic ${attributes}/><y variable="b"/><color variable="k"/></interval>${panels}`,
      { categorical, coordinates: polar },
    );
  const faceting = '<faceting><cross><variableReference ref="g"/></cross></faceting>';

  test('is named where it is below 0', () => {
    const drawn = sums([5, -3, 4]);
    expect(drawn.textsOf('Shares')).toEqual(['55.6%', '44.4%']);
    expect(drawn.notes).toEqual(['Values below 0 are not in the pie: b. Its shares are those of the rest.']);
    expect(sums([5, 3, 0]).notes).toEqual([]);
  });

  test('is named with its panel', () => {
    expect(sums([5, -3, 4, 1, 2, -1], 'method="1"', faceting).notes).toEqual([
      'Values below 0 are not in the pie: b (left), c (right). Its shares are those of the rest.',
    ]);
  });

  test('is all of it where nothing is above 0', () => {
    const none = 'nothing that it would show is above 0.';
    expect(sums([0, 0, 0]).notes).toEqual([`There is no pie: ${none}`]);
    expect(sums([-1, -2, 0]).notes).toEqual([`There is no pie: ${none}`]);
    expect(sums([5, 3, 4, 0, 0, 0], 'method="1"', faceting).notes).toEqual([
      `There is no pie of right: ${none}`,
    ]);
  });
});

describe('polar coordinates', () => {
  const bars = (attributes: string, more: string) =>
    picture(
      { k: [1, 1, 1, 2, 3], g: [1, 2, 1, 2, 1] },
      `<interval ${attributes}><x variable="k"/><summaryStatistic method="10"/>${more}</interval>`,
      { categorical, coordinates: `${plainAxes}<polarTransform/>` },
    );

  test.each([
    ['without groups', '', ''],
    ['of groups that are not stacked', '', '<color variable="k"/>'],
    ['stacked at several places', 'positionModifier="3"', '<color variable="g"/>'],
    ['stacked by a range of colours', 'positionModifier="3"', '<size variable="k"/>'],
  ])('do not make a pie of bars %s', (_, attributes, more) => {
    const drawn = bars(attributes, more);
    expect(drawn.marks('slice')).toEqual([]);
    expect(drawn.marks('rect').length).toBeGreaterThan(2);
    expect(drawn.texts()).toEqual(expect.arrayContaining(['a', 'b', 'c']));
    expect(drawn.notes).toContain(straight);
  });

  test('make a pie of stacked bars whose looks tell the places along x', () => {
    const drawn = bars('positionModifier="3"', '<color variable="k"/>');
    expect(drawn.marks('slice')).toHaveLength(3);
    expect(drawn.notes).toEqual([]);
  });
});
