import { describe, expect, test } from 'vitest';
import { number, picture } from './chart.js';

const note = (words: string) => `${words} of several groups cover each other: they are not stacked.`;
const categorical = { k: ['one', 'two'], g: ['low', 'high'] };

/** Bars of the number of rows at k in groups of g. */
const bars = (columns: Record<string, number[]>, attributes = '', style = '') =>
  picture(
    columns,
    `<interval ${attributes}><x variable="k"/><summaryStatistic method="10"/><color variable="g"/></interval>`,
    { categorical, rest: style },
  );

describe('bars and areas of several groups in one place', () => {
  const both = { k: [1, 1, 1, 2], g: [1, 1, 2, 2] };

  test('are see-through, with an outline in their colour, and a note says that they are no stack', () => {
    const drawn = bars(both);
    const marks = drawn.marks('rect');
    expect(marks.map((mark) => drawn.look(mark, 'fill-opacity'))).toEqual(['0.5', '0.5', '0.5']);
    for (const mark of marks) expect(drawn.look(mark, 'stroke')).toBe(drawn.look(mark, 'fill'));
    expect(drawn.notes).toEqual([note('Bars')]);
  });

  test('stay as they are where each has a place of its own', () => {
    const drawn = bars({ k: [1, 1, 2], g: [1, 1, 2] });
    expect(drawn.marks('rect').map((mark) => drawn.look(mark, 'fill-opacity'))).toEqual([null, null]);
    expect(drawn.notes).toEqual([]);
  });

  test('stay as they are in a stack', () => {
    expect(bars(both, 'positionModifier="3"').notes).toEqual([]);
  });

  test('have the opacity that the chart says', () => {
    const drawn = bars(both, 'style="e"', '<style id="c"><style id="e" opacity="0.9"/></style>');
    expect(drawn.look(drawn.marks('rect')[0]!, 'fill-opacity')).toBe('0.9');
    expect(drawn.notes).toEqual([note('Bars')]);
  });

  const densities = (a: number[], g: number[]) =>
    picture({ a, g }, '<area><x variable="a"/><distributionStatistic/><color variable="g"/></area>', {
      categorical,
    });

  test('are areas where they reach over each other', () => {
    const drawn = densities([1, 2, 3, 2, 3, 4], [1, 1, 1, 2, 2, 2]);
    expect(drawn.marks('area').map((mark) => drawn.look(mark, 'fill-opacity'))).toEqual(['0.5', '0.5']);
    expect(drawn.notes).toEqual([note('Areas')]);
    expect(densities([1, 2, 3, 1001, 1002, 1003], [1, 1, 1, 2, 2, 2]).notes).toEqual([]);
  });

  test('are no areas that go on where others end', () => {
    const areas = picture(
      { a: [1, 2, 2, 3], b: [1, 1, 1, 1], g: [1, 1, 2, 2] },
      '<area><x variable="a"/><y variable="b"/><color variable="g"/></area>',
      { categorical },
    );
    expect(areas.notes).toEqual([]);
  });

  test('are not bars that stand beside each other, but areas that the chart wants there', () => {
    expect(bars(both, 'positionModifier="1"').notes).toEqual([]);
    const areas = picture(
      { a: [0, 2, 4, 1, 3], b: [2, 2, 2, 4, 4], g: [1, 1, 1, 2, 2] },
      '<area positionModifier="1"><x variable="a"/><y variable="b"/><color variable="g"/></area>',
      { categorical },
    );
    expect(areas.notes).toEqual([note('Areas')]);
  });
});

describe('a place of a line without neighbours', () => {
  test('is a dot that can be seen', () => {
    const drawn = picture(
      { a: [1, 2, 3], b: [1, null, 2] },
      '<line><x variable="a"/><y variable="b"/></line>',
    );
    expect(drawn.marks('dot').map((mark) => number(mark, 'r'))).toEqual([2.5, 2.5]);
  });
});
