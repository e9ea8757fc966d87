import { describe, expect, test } from 'vitest';
import type { Format } from '../../src/chart/model.js';
import { readChart } from '../../src/chart/read.js';
import { categoriesOf } from '../../src/data/categories.js';
import { Data } from '../../src/data/columns.js';
import { parseBlend, parseExpression } from '../../src/data/expression.js';
import { dateText, mergeFormats, noFormat, numberText, secondsOf } from '../../src/data/format.js';
import { parseXml } from '../../src/node/document.js';
import { chartText, tableOf } from '../draw/chart.js';

const format = (settings: Partial<Format>): Format => ({ ...noFormat, ...settings });

describe('expressions', () => {
  test.each([
    ['1 + 2 * 3', 7],
    ['(1 + 2) * 3', 9],
    ['2 ^ 3 ^ 2', 512],
    ['-2 ^ 2', -4],
    ['2 ^ -1', 0.5],
    ['-+3', -3],
    ['1 --3', 4],
    ['10 - 4 - 3', 3],
    ['max(1, x, 2)', 5],
    ['sqrt(x + 11) / log10(100)', 2],
    ['1e2 + .5', 100.5],
  ])('%s', (text, expected) => {
    expect(parseExpression(text).evaluate((name) => (name === 'x' ? 5 : NaN))).toBeCloseTo(expected, 12);
  });

  test.each(['1 +', '(1', 'system(1)', 'constructor(1)', '1 2', 'x;y', ''])('"%s" is none', (text) => {
    expect(() => parseExpression(text)).toThrow();
  });

  test('say which names they need', () => {
    expect(parseExpression('a / (b + a)').names).toEqual(['a', 'b']);
  });

  test('blends are measures within categories', () => {
    expect(parseBlend('v1/l1 + v2/l2')).toEqual([
      { variable: 'v1', category: 'l1' },
      { variable: 'v2', category: 'l2' },
    ]);
    expect(parseBlend('a*b')).toBeNull();
  });
});

describe('formats', () => {
  test.each([
    [1234.5, {}, '1234.5'],
    [1234.5, { grouping: true }, '1,234.5'],
    [-3, { prefix: '$', suffix: ' m' }, '$\u22123 m'],
    [2.5, { minimumFractionDigits: 2 }, '2.50'],
    [2.567, { maximumFractionDigits: 1 }, '2.6'],
    [0.25, { pattern: '0.0%' }, '25.0%'],
    [12345.6, { pattern: '#,##0.00' }, '12,345.60'],
    [NaN, { errorCharacter: '-' }, '-'],
    [-0.001, { maximumFractionDigits: 1 }, '0'],
  ])('%d', (value, settings, expected) => {
    expect(numberText(value, format(settings), 'en-US')).toBe(expected);
  });

  test('go by the language of the chart', () => {
    expect(numberText(1234.5, format({ grouping: true }), 'de-DE')).toBe('1.234,5');
  });

  // 2012-02-29T13:05:09Z
  const leapDay = 1330520709;
  test.each([
    ['yyyy-MM-dd', '2012-02-29'],
    ['dd.MM.yy', '29.02.12'],
    ['MMM yyyy', 'Feb 2012'],
    ['EEE, d MMMM', 'Wed, 29 February'],
    ["yyyy-MM-dd'T'HH:mm:ss", '2012-02-29T13:05:09'],
    ["h 'o''clock' a", "1 o'clock PM"],
  ])('dates by %s', (pattern, expected) => {
    expect(dateText(leapDay, pattern, 'en-US')).toBe(expected);
  });

  test('dates at midnight have 12 hours, and weeks by the year that has most of them', () => {
    const dated = (text: string, pattern: string) => dateText(secondsOf(text)!, pattern, 'en-US');
    expect(dated('2012-02-29T00:05:00', 'hh:mm a')).toBe('12:05 AM');
    expect(dated('2012-02-29T12:05:00', 'h a')).toBe('12 PM');
    expect(dated('2021-01-03', 'w')).toBe('53');
    expect(dated('2021-01-04', 'w')).toBe('1');
  });

  test('the first format that says anything counts', () => {
    const merged = mergeFormats(
      format({ prefix: 'a' }),
      format({ prefix: 'b', suffix: 'b' }),
      format({ suffix: 'c' }),
    );
    expect([merged!.prefix, merged!.suffix]).toEqual(['a', 'b']);
  });

  test('dates of bounds', () => {
    expect(secondsOf('2012-02-29T13:05:09')).toBe(leapDay);
    expect(secondsOf('2012-02-29')).toBe(1330473600);
    expect(secondsOf('soon')).toBeNull();
  });
});

function data(variables: string, rest = '') {
  const { chart, notes } = readChart(chartText(`<userSource id="s"/>${variables}${rest}`), parseXml);
  const table = tableOf({ kind: [3, 1, 2, null, 1], mass: [4, 2, null, 8, 16] });
  return { chart, notes, data: new Data(chart, { tables: new Map([['s', table]]) }, notes) };
}

describe('variables', () => {
  test('are columns of their source', () => {
    const made = data('<sourceVariable id="v" source="s" sourceName="mass"/>');
    expect([...made.data.values('v')!.numbers]).toEqual([4, 2, NaN, 8, 16]);
  });

  test('are computed, and missing where what they need is', () => {
    const made = data(
      '<sourceVariable id="m" source="s" sourceName="mass"/><derivedVariable id="d" value="sqrt(m) - 2"/>',
    );
    expect([...made.data.values('d')!.numbers].map((value) => Math.round(value * 100) / 100)).toEqual([
      0,
      -0.59,
      NaN,
      0.83,
      2,
    ]);
  });

  test('that have no number are missing', () => {
    const made = data(
      '<sourceVariable id="m" source="s" sourceName="mass"/><derivedVariable id="d" value="1 / (m - 2)"/>',
    );
    expect([...made.data.values('d')!.numbers]).toEqual([0.5, NaN, NaN, 1 / 6, 1 / 14]);
  });

  test('of weights count for their own source', () => {
    const made = data(
      '<userSource id="t"/><sourceVariable id="w" source="s" sourceName="mass" weight="true"/>',
    );
    expect(made.data.weights('s')).not.toBeNull();
    expect(made.data.weights('t')).toBeNull();
  });

  test('have their short labels where they have no other', () => {
    const labels = data(
      '<sourceVariable id="v" source="s" sourceName="mass" shortLabel="M"/><sourceVariable id="u" source="s" sourceName="mass" shortLabel="M" label="Mass"/>',
    ).chart.variables;
    expect([labels.get('v')!.label, labels.get('u')!.label]).toEqual(['M', 'Mass']);
  });

  test('that are not there are named', () => {
    const made = data('<sourceVariable id="v" source="s" sourceName="speed" label="Speed"/>');
    expect(made.data.values('v')).toBeNull();
    expect(made.notes.join()).toContain('column speed');
  });

  test('that are computed of themselves are named', () => {
    const made = data('<derivedVariable id="d" value="d + 1"/>');
    expect(made.data.values('d')).toBeNull();
    expect(made.notes.join()).toContain('computed of itself');
  });

  test('of row numbers count from 1', () => {
    const made = data('<sourceVariable id="n" source="s" sourceName="$CASENUM"/>');
    expect([...made.data.values('n')!.numbers]).toEqual([1, 2, 3, 4, 5]);
  });

  test('may have their rows in the chart', () => {
    const embedded =
      '<embeddedSource id="e"><column name="a"/><column name="b"/><data>1;2\n;4\n</data></embeddedSource>';
    const made = data('<sourceVariable id="v" source="e" sourceName="a"/>', embedded);
    expect([...made.data.values('v')!.numbers]).toEqual([1, NaN]);
  });
});

test('the first text of a value counts', () => {
  const made = data(
    '<sourceVariable id="v" source="s" sourceName="kind" categorical="true"><format><relabel from="1" to="first"/><relabel from="1" to="second"/></format></sourceVariable>',
  );
  expect(made.data.values('v')!.textOf(1)).toBe('first');
});

describe('categories', () => {
  const variable = (domain: string) =>
    `<sourceVariable id="k" source="s" sourceName="kind" categorical="true" domain="d"><format><relabel from="1" to="one"/><relabel from="2" to="two"/></format></sourceVariable>${domain}`;
  const texts = (domain: string) => {
    const made = data(variable(`<categoricalDomain id="d">${domain}</categoricalDomain>`));
    return categoriesOf(made.chart, made.data.values('k')!).map(({ text }) => text);
  };

  test.each([
    ['', ['one', 'two', '3']],
    ['<simpleSort method="2" descending="true"/>', ['3', 'two', 'one']],
    ['<simpleSort><categoryOrder>2;3</categoryOrder></simpleSort>', ['two', '3', 'one']],
    ['<categories remove="true">1</categories>', ['two', '3']],
    ['<categories>3;1</categories>', ['3', 'one']],
  ])('%s', (domain, expected) => {
    expect(texts(domain)).toEqual(expected);
  });
});
