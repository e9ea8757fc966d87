import { describe, expect, test } from 'vitest';
import { picture, type Picture } from './chart.js';

const points = '<point><x variable="a"/><y variable="f"/></point>';

/** A variable of the column with a label that others may have, too. */
const variable = (id: string, column: string, format: string) =>
  `<sourceVariable id="${id}" source="s" sourceName="${column}" label="the f"><format ${format}/></sourceVariable>`;

function columnOf(drawn: Picture, name: string): (string | null | undefined)[] {
  const { header, rows } = drawn.drawn.dataTable;
  return rows.map((row) => row[header.indexOf(name)]);
}

describe('numbers of a table', () => {
  const shown = (b: number[], format: string) =>
    columnOf(picture({ a: b, b }, points, { rest: variable('f', 'b', format) }), 'the f');

  test('that are less than the decimals that their format has have no exponent', () => {
    expect(shown([0.001, 1.5], 'maximumFractionDigits="1"')).toEqual(['0.0', '1.5']);
    expect(shown([0.001, 1.25], 'pattern="0.##"')).toEqual(['0.00', '1.25']);
  });

  test('of two formats in one column each have the decimals of their own', () => {
    const both = picture({ a: [1, 2], b: [10, 20], c: [0.25, 0.5] }, points + points.replace('"f"', '"g"'), {
      rest: variable('f', 'b', 'suffix=" kg"') + variable('g', 'c', 'suffix=" t"'),
    });
    expect(columnOf(both, 'the f')).toEqual(['10 kg', '20 kg', '0.25 t', '0.50 t']);
  });

  test('that are computed and next to nothing have exponents', () => {
    const drawn = picture(
      { a: [1, 1, 1], b: [1e-13, 1e-13, 2e-13] },
      '<interval><x variable="a"/><y variable="b"/><summaryStatistic method="2"/></interval>',
    );
    expect(columnOf(drawn, 'mean of the b').join()).toMatch(/^1\.3\d*e/i);
  });

  test('that are dates are texts', () => {
    const day = 86_400;
    const drawn = picture(
      { a: [0, day], b: [1, 2] },
      points.replace('"a"', '"f"').replace('y variable="f"', 'y variable="b"'),
      {
        rest: variable('f', 'a', 'pattern="dd.MM.yyyy"'),
      },
    );
    expect(drawn.drawn.dataTable.rows).toEqual([
      ['01.01.1970', '1'],
      ['02.01.1970', '2'],
    ]);
    expect(drawn.drawn.dataTable.numeric).toEqual([false, true]);
  });
});

test('a table has 10,000 rows at most', () => {
  const many = Array.from({ length: 10_001 }, (_, at) => at);
  const drawn = picture({ a: many, f: many }, points);
  const { rows } = drawn.drawn.dataTable;
  expect(rows).toHaveLength(10_000);
  expect(rows.at(-1)).toEqual(['9999', '9999']);
});
