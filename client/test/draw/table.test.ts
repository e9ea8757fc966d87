import { describe, expect, test } from 'vitest';
import { picture } from './chart.js';

const points = '<point><x variable="a"/><y variable="b"/></point>';
const columnOf = (drawn: ReturnType<typeof picture>, name: string) => {
  const { header, rows } = drawn.drawn.dataTable;
  return rows.map((row) => row[header.indexOf(name)]);
};
const formatted = (format: string) =>
  `<sourceVariable id="f" source="s" sourceName="b" label="the f"><format ${format}/></sourceVariable>`;
const along = (b: (number | null)[], format: string) =>
  columnOf(
    picture({ a: b.map((_, at) => at), b }, points.replace('"b"', '"f"'), { rest: formatted(format) }),
    'the f',
  );

describe('numbers of a column', () => {
  test('have as many decimals as one of them needs', () => {
    const drawn = picture({ a: [1, 2, 3], b: [1.5, 20, -0.25] }, points);
    expect(columnOf(drawn, 'the b')).toEqual(['1.50', '20.00', '\u22120.25']);
    expect(columnOf(drawn, 'the a')).toEqual(['1', '2', '3']);
    expect(drawn.drawn.dataTable.numeric).toEqual([true, true]);
  });

  test('have no more than six, and an exponent where they would vanish', () => {
    const drawn = picture({ a: [1 / 3, 2, 3], b: [1e-9, 0.5, 0] }, points);
    expect(columnOf(drawn, 'the a')).toEqual(['0.333333', '2.000000', '3.000000']);
    expect(columnOf(drawn, 'the b')).toEqual(
      ['1e-9', '0.5', '0.0'].map((text) => expect.stringContaining(text)),
    );
  });

  test('have those that their format gives them', () => {
    expect(along([1.25, 2, 3.123], 'maximumFractionDigits="1"')).toEqual(['1.3', '2.0', '3.1']);
    expect(along([1, 2], 'minimumFractionDigits="2" suffix=" kg"')).toEqual(['1.00 kg', '2.00 kg']);
    expect(along([0.125, 0.5], 'pattern="0.##%"')).toEqual(['12.5%', '50.0%']);
    expect(along([1234, 5.5], 'pattern="$#,##0.00"')).toEqual(['$1,234.00', '$5.50']);
  });

  test('are relabelled where their format says so', () => {
    const drawn = picture({ a: [1, 2], b: [9, 1.5] }, points.replace('"b"', '"f"'), {
      rest: formatted('').replace('<format />', '<format><relabel from="9" to="many"/></format>'),
    });
    expect(columnOf(drawn, 'the f')).toEqual(['many', '1.5']);
    expect(drawn.drawn.dataTable.numeric).toEqual([true, false]);
  });

  test('that are computed have six digits, and two decimals at least', () => {
    const means = (b: number[]) =>
      columnOf(
        picture(
          { a: [1, 1, 1, 2, 2], b },
          '<interval><x variable="a"/><y variable="b"/><summaryStatistic method="2"/></interval>',
        ),
        'mean of the b',
      );
    expect(means([1, 1, 2, 3, 4])).toEqual(['1.33333', '3.50000']);
    expect(means([1e6, 1e6, 1e6 + 1, 7, 8])).toEqual(['1000000.33', '7.50']);
    expect(means([1, 2, 3, 3, 5])).toEqual(['2', '4']);
  });

  test('are those of the data where bars stand beside each other', () => {
    const drawn = picture(
      { a: [10, 10, 20, 20], b: [1, 2, 3, 4], k: [1, 2, 1, 2] },
      '<interval><x variable="a"/><y variable="b"/><color variable="k"/></interval>',
      {
        categorical: { k: ['one', 'two'] },
        coordinates: '<dimension clusterVariable="k"/><dimension/>',
      },
    );
    expect(columnOf(drawn, 'the a')).toEqual(['10', '20', '10', '20']);
  });

  test('that are missing are null', () => {
    const drawn = picture({ a: [1, 2, 3], b: [1, null, 3] }, points.replaceAll('point', 'line'));
    expect(columnOf(drawn, 'the b')).toEqual(['1', null, '3']);
  });

  test('stand beside texts in columns of their own', () => {
    const drawn = picture(
      { k: [1, 2], b: [1.5, 2] },
      '<interval><x variable="k"/><y variable="b"/></interval>',
      { categorical: { k: ['one', 'two'] } },
    );
    expect(drawn.drawn.dataTable).toEqual({
      header: ['the k', 'the b'],
      numeric: [false, true],
      rows: [
        ['one', '1.5'],
        ['two', '2.0'],
      ],
    });
  });
});

describe('the rows of the data table', () => {
  const yesNo = { k: ['yes', 'no'], g: ['yes', 'no'] };

  test('of classes of dates are dates, whole ones where their pattern does not tell them apart', () => {
    const day = 86_400;
    const drawn = (pattern: string) =>
      picture(
        { a: [0, 1, 2, 9].map((at) => at * day) },
        '<interval><x variable="d"/><binStatistic gridType="0" binWidth="604800" binStart="0"/></interval>',
        {
          rest: `<sourceVariable id="d" source="s" sourceName="a" label="the d" date="true"><format pattern="${pattern}"/></sourceVariable>`,
        },
      );
    const days = drawn('d MMM yyyy');
    expect(columnOf(days, 'the d')).toEqual(['1 Jan 1970 to 8 Jan 1970', '8 Jan 1970 to 15 Jan 1970']);
    expect(columnOf(days, 'count')).toEqual(['3', '1']);
    expect(columnOf(drawn('yyyy'), 'the d')).toEqual([
      '1970-01-01 to 1970-01-08',
      '1970-01-08 to 1970-01-15',
    ]);
  });

  test('of stacked areas are their own places, not those that they take from others', () => {
    const areas = (rest = '') =>
      picture(
        { a: [0, 1, 2, 3, 4, 5], b: [1, 2, 3, 2, 1, 2], k: [1, 2, 1, 2, 1, 2] },
        '<area positionModifier="3"><x variable="a"/><y variable="b"/><color variable="k"/></area>',
        {
          categorical: yesNo,
          rest,
          coordinates: '<dimension domain="d"><axis/></dimension><dimension><axis/></dimension>',
        },
      );
    expect(columnOf(areas(), 'the a')).toEqual(['0', '2', '4', '1', '3', '5']);
    const bounded = areas('<intervalDomain id="d"><range min="0" max="3" exact="true"/></intervalDomain>');
    expect(bounded.notes).toContain('2 of 6 values lie outside the x axis.');
  });

  test('tell groups of several variables that have the same texts', () => {
    const drawn = picture(
      { a: [0, 1, 2, 3], b: [1, 2, 3, 2], k: [1, 2, 1, 2], g: [1, 1, 2, 2] },
      '<point><x variable="a"/><y variable="b"/><color variable="k"/><shape variable="g"/></point>',
      { categorical: yesNo },
    );
    expect(drawn.drawn.dataTable.header).toEqual(['the k', 'the g', 'the a', 'the b']);
    expect(columnOf(drawn, 'the k')).toEqual(['yes', 'yes', 'no', 'no']);
    expect(columnOf(drawn, 'the g')).toEqual(['yes', 'no', 'yes', 'no']);
  });

  test('name a variable that only clusters', () => {
    const drawn = picture(
      { k: [1, 1, 2], g: [1, 2, 1] },
      '<interval><summaryStatistic method="10"/><x variable="k"/></interval>',
      { categorical: yesNo, coordinates: '<dimension clusterVariable="g"/><dimension/>' },
    );
    expect(columnOf(drawn, 'the g')).toEqual(['yes', 'yes', 'no']);
  });

  test.each(['<size variable="n"/>', '<transparency variable="n"/>', '<color variable="n"/>'])(
    'tell the values behind %s',
    (aesthetic) => {
      const drawn = picture(
        { a: [1, 2], b: [3, 4], n: [10.5, 20] },
        points.replace('</point>', `${aesthetic}</point>`),
      );
      expect(drawn.drawn.dataTable.header).toEqual(['the a', 'the b', 'the n']);
      expect(columnOf(drawn, 'the n')).toEqual(['10.5', '20.0']);
    },
  );

  test('tell the mean that the colour of a bar shows', () => {
    const drawn = picture(
      { k: [1, 1, 2], n: [10, 11, 20] },
      '<interval><x variable="k"/><summaryStatistic method="10"/><color variable="n"/></interval>',
      { categorical: yesNo },
    );
    expect(columnOf(drawn, 'mean of the n')).toEqual(['10.5', '20.0']);
  });

  test('have one column of a variable that is shown twice', () => {
    const drawn = picture(
      { a: [1, 2], b: [3, 4] },
      points.replace('</point>', '<size variable="a"/><color variable="b"/><labeling variable="a"/></point>'),
    );
    expect(drawn.drawn.dataTable.header).toEqual(['the a', 'the b']);
  });

  test('tell the labels of points and of outliers', () => {
    const labelled = points.replace('</point>', '<labeling variable="n"/></point>');
    const drawn = picture({ a: [1, 2], b: [3, 4], n: [7, null] }, labelled);
    expect(columnOf(drawn, 'the n')).toEqual(['7', null]);
    const b = [10, 11, 12, 11, 12, 13, 11, 12, 20, 30];
    const boxes = picture(
      { k: b.map(() => 1), b, n: b.map((_, at) => at + 1) },
      '<schema><x variable="k"/><y variable="b"/><tukeyStatistic/><labeling variable="n"/></schema>',
      { categorical: yesNo },
    );
    expect(columnOf(boxes, 'Outliers')).toEqual(['20, 30']);
    expect(columnOf(boxes, 'the n')).toEqual(['9, 10']);
  });
});
