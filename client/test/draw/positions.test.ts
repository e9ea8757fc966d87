import { describe, expect, test } from 'vitest';
import { number, picture, type Picture } from './chart.js';

const kinds = { k: ['one', 'two', 'three'], g: ['first', 'second', 'third'] };

/** The sides of a rectangle on the page. */
const sidesOf = (mark: Element) => {
  const [left, top] = [number(mark, 'x'), number(mark, 'y')];
  return { left, top, right: left + number(mark, 'width'), bottom: top + number(mark, 'height') };
};
const bars = (drawn: Picture) => drawn.marks('rect').map(sidesOf);

describe('stacks', () => {
  test('have values below the base line below it, on each other', () => {
    const drawn = picture(
      { k: [1, 1, 1, 1], g: [1, 2, 1, 2], h: [1, 1, 2, 2], b: [3, -2, 4, -1] },
      '<interval positionModifier="3"><x variable="k"/><y variable="b"/><color variable="g"/><pattern variable="h"/></interval>',
      { categorical: { ...kinds, h: ['a', 'b'] } },
    );
    const [up, higher, down, lower] = bars(drawn);
    expect(down!.top).toBeCloseTo(up!.bottom, 1);
    expect(higher!.bottom).toBeCloseTo(up!.top, 1);
    expect(lower!.top).toBeCloseTo(down!.bottom, 1);
  });

  test('are not made of areas that reach from one variable to the other', () => {
    const drawn = picture(
      { a: [0, 2, 4, 1, 3], b: [2, 2, 2, 4, 4], c: [3, 3, 3, 5, 5], g: [1, 1, 1, 2, 2] },
      '<area positionModifier="3"><x variable="a"/><y variable="b"/><y variable="c"/><color variable="g"/></area>',
      { categorical: kinds },
    );
    const corners = drawn.marks('area').map((mark) => (mark.getAttribute('d')!.match(/[ML]/g) ?? []).length);
    expect(corners).toEqual([6, 4]);
  });

  test('of areas below the base line are whole where another area has no value', () => {
    const drawn = picture(
      { a: [0, 2, 4, 0, 2, 4], b: [1, null, 1, -2, -2, -2], g: [1, 1, 1, 2, 2, 2] },
      '<area positionModifier="3"><x variable="a"/><y variable="b"/><color variable="g"/></area>',
      { categorical: kinds },
    );
    const pieces = drawn.marks('area').map((mark) => (mark.getAttribute('d')!.match(/[ML]/g) ?? []).length);
    expect(pieces[1]).toBe(6);
  });

  test('of categories are as they are, whichever of them a group has', () => {
    const drawn = picture(
      { k: [1, 3, 2], g: [1, 1, 2], b: [1, 1, 1] },
      '<area positionModifier="3"><x variable="k"/><y variable="b"/><color variable="g"/></area>',
      { categorical: kinds },
    );
    const [first] = drawn.marks('area');
    expect(first!.getAttribute('d')!.match(/[ML]/g)).toHaveLength(4);
  });
});

test('the data of stacked areas are told without the places between them', () => {
  const drawn = picture(
    { a: [0, 2, 4, 1, 3], b: [2, 2, 2, 4, 4], g: [1, 1, 1, 2, 2] },
    '<area positionModifier="3"><x variable="a"/><y variable="b"/><color variable="g"/></area>',
    { categorical: kinds },
  );
  expect(drawn.drawn.dataTable.rows.map((row) => row.slice(1))).toEqual([
    ['0', '2'],
    ['2', '2'],
    ['4', '2'],
    ['1', '4'],
    ['3', '4'],
  ]);
});

test('bars from one variable to another are those that have both', () => {
  const drawn = picture(
    { k: [1, 2], b: [1, 1], c: [2, null] },
    '<interval><x variable="k"/><y variable="b"/><y variable="c"/></interval>',
    { categorical: kinds },
  );
  expect(drawn.names()).toContain('1 bar');
});

test('classes of categories are the categories', () => {
  const drawn = picture(
    { k: [1, 1, 3] },
    '<interval><x variable="k"/><binStatistic binCount="2"/></interval>',
    {
      categorical: kinds,
    },
  );
  expect(drawn.drawn.dataTable.rows).toEqual([
    ['one', '2'],
    ['three', '1'],
  ]);
});

test('stacked dots are told by their values, not by classes', () => {
  const drawn = picture(
    { a: [1, 1, 2] },
    '<point positionModifier="7"><x variable="a"/><binStatistic gridType="1"/></point>',
  );
  expect(drawn.drawn.dataTable.rows).toEqual([['1'], ['1'], ['2']]);
});

test('a bar of several rows has the colour of the mean of their numbers', () => {
  const drawn = picture(
    { k: [1, 1, 2, 3], w: [0, 10, 5, 10] },
    '<interval><x variable="k"/><summaryStatistic method="10"/><color variable="w"/></interval>',
    { categorical: kinds },
  );
  const [mixed, middle, high] = drawn.marks('rect').map((mark) => drawn.look(mark, 'fill'));
  expect(mixed).toBe(middle);
  expect(high).not.toBe(middle);
});

test('several variables of one element make a group for each of their combinations', () => {
  const drawn = picture(
    { a: [1, 2, 3, 4], b: [1, 2, 3, 4], g: [1, 1, 2, 2], k: [1, 2, 1, 2] },
    '<point><x variable="a"/><y variable="b"/><color variable="g"/><shape variable="k"/></point>',
    { categorical: kinds },
  );
  expect(drawn.names().filter((name) => name.endsWith(': 1 point'))).toEqual([
    'first, one: 1 point',
    'first, two: 1 point',
    'second, one: 1 point',
    'second, two: 1 point',
  ]);
});

test('variables along one axis share the categories of one text', () => {
  const member = (name: string) =>
    `<sourceVariable id="${name}" source="s" sourceName="${name}" categorical="true"><format><relabel from="1" to="Yes"/><relabel from="2" to="${name}"/></format></sourceVariable>`;
  const bar = (name: string) => `<interval><x variable="${name}"/><summaryStatistic method="10"/></interval>`;
  const drawn = picture({ p: [1, 2], q: [1, 2] }, bar('m') + bar('n'), {
    rest:
      member('m').replace('sourceName="m"', 'sourceName="p"') +
      member('n').replace('sourceName="n"', 'sourceName="q"'),
  });
  expect(drawn.textsOf('x axis')).toEqual(['Yes', 'm', 'n']);
});

test('outliers of a colour have it along their outline, where they have no inside', () => {
  const drawn = picture(
    { k: Array.from({ length: 12 }, () => 1), b: [1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 30] },
    '<schema outlierStyle="o" extremeStyle="o"><tukeyStatistic/><x variable="k"/><y variable="b"/></schema>',
    { categorical: kinds, rest: '<style id="o" color="#ff0000"/>' },
  );
  const [outlier] = drawn.marks('dot');
  expect(drawn.look(outlier!, 'stroke')).toBe('#ff0000');
});

describe('groups beside each other', () => {
  const clustered = (element: string, coordinates: string) =>
    picture({ k: [1, 1, 2, 2], g: [1, 2, 1, 2], b: [3, 5, 4, 2] }, element, {
      categorical: kinds,
      coordinates,
    });
  const element = '<interval><x variable="k"/><y variable="b"/></interval>';

  test('are those of the second dimension where that has the clusters', () => {
    const drawn = clustered(element, '<dimension/><dimension clusterVariable="g"/>');
    const sides = bars(drawn).sort((a, b) => a.left - b.left);
    expect(sides).toHaveLength(4);
    expect(sides[0]!.right).toBeCloseTo(sides[1]!.left, 1);
    expect(sides[2]!.left).toBeGreaterThan(sides[1]!.right + 5);
  });

  test('that are one alone take what bars alone take', () => {
    const alone = (attributes: string, color: string) => {
      const drawn = picture(
        { k: [1, 2], b: [1, 2], g: [1, 1] },
        `<interval ${attributes}><x variable="k"/><y variable="b"/>${color}</interval>`,
        { categorical: kinds },
      );
      const [bar] = bars(drawn);
      return bar!.right - bar!.left;
    };
    expect(alone('positionModifier="1"', '<color variable="g"/>')).toBeCloseTo(alone('', ''), 2);
  });

  test('have boxes that take more of their places than boxes alone', () => {
    const rows = { k: [1, 1, 1, 1, 2, 2, 2, 2], g: [1, 1, 2, 2, 1, 1, 2, 2], b: [1, 2, 3, 4, 5, 6, 7, 8] };
    const boxes = (color: string, cluster: string) =>
      bars(
        picture(rows, `<schema><tukeyStatistic/><x variable="k"/><y variable="b"/>${color}</schema>`, {
          categorical: kinds,
          coordinates: `<dimension ${cluster}/><dimension/>`,
        }),
      ).sort((a, b) => a.left - b.left);
    /** Of the way from the middle of one to that of the next. */
    const share = ([one, two]: ReturnType<typeof boxes>) =>
      (one!.right - one!.left) / ((two!.left + two!.right - one!.left - one!.right) / 2);
    expect(share(boxes('', ''))).toBeCloseTo(0.5, 2);
    expect(share(boxes('<color variable="g"/>', 'clusterVariable="g"'))).toBeCloseTo(0.8, 2);
  });
});

test('shares of sums are those of the values', () => {
  const drawn = picture(
    { k: [1, 2], b: [1, 3] },
    '<interval><x variable="k"/><y variable="b"/><summaryStatistic method="3"/></interval>',
    { categorical: kinds },
  );
  expect(drawn.drawn.dataTable.rows.map((row) => row[1])).toEqual(['25', '75']);
});

test('a density counts cases as often as their weights say', () => {
  const top = (rest: string) => {
    const drawn = picture(
      { a: [1, 2, 9], w: [1, 1, 20] },
      '<area><x variable="a"/><distributionStatistic/></area>',
      { rest },
    );
    const rows = drawn.drawn.dataTable.rows.map((row) => row.map(Number));
    return rows.reduce((best, row) => (row[1]! > best[1]! ? row : best))[0]!;
  };
  expect(top('')).toBeLessThan(3);
  expect(top('<sourceVariable id="v" source="s" sourceName="w" weight="true"/>')).toBeGreaterThan(8);
});

test('low bars below the base line go down', () => {
  const drawn = picture(
    { k: [1, 2], b: [10_000, -1] },
    '<interval><x variable="k"/><y variable="b"/></interval>',
    {
      categorical: kinds,
    },
  );
  const [high, low] = bars(drawn);
  expect(low!.top).toBeCloseTo(high!.bottom, 1);
  expect(low!.bottom).toBeCloseTo(high!.bottom + 1, 1);
});

test('the base line of bars is drawn where it is on the axis', () => {
  const rules = (range: string) =>
    picture({ k: [1, 2], b: [60, 80] }, '<interval><x variable="k"/><y variable="b"/></interval>', {
      categorical: kinds,
      coordinates: '<dimension/><dimension domain="d"/>',
      rest: `<intervalDomain id="d"><range ${range} exact="true"/></intervalDomain>`,
    }).marks('rule');
  expect(rules('min="0" max="100"')).toHaveLength(1);
  expect(rules('min="50" max="100"')).toHaveLength(0);
});

test('lines of very many places keep what is lowest, too', () => {
  const a = Array.from({ length: 30_000 }, (_, at) => at);
  const b = a.map((at) => (at === 12_347 ? -1000 : Math.sin(at)));
  const { rows } = picture({ a, b }, '<line><x variable="a"/><y variable="b"/></line>').drawn.dataTable;
  expect(rows.some((row) => Number(row[1]!.replace('\u2212', '-')) === -1000)).toBe(true);
});

describe('symbols', () => {
  const height = (drawn: Picture) => number(drawn.svg.querySelector('g[aria-label="Data"] rect')!, 'height');
  const width = (drawn: Picture) => number(drawn.svg.querySelector('g[aria-label="Data"] rect')!, 'width');

  test('take a fifth of a panel at each end at most', () => {
    const drawn = picture(
      { a: [0, 10], b: [0, 10] },
      '<point style="s"><x variable="a"/><y variable="b"/></point>',
      {
        rest: '<style id="s" size="600px"/>',
      },
    );
    const [first, last] = drawn.marks('dot').map((mark) => number(mark, 'cx'));
    expect((last! - first!) / width(drawn)).toBeGreaterThan(0.55);
  });

  test('leave ends where bars stand, and where the chart gives a margin', () => {
    const standing = picture(
      { k: [1, 2], b: [0, 10] },
      '<interval><x variable="k"/><y variable="b"/></interval><point><x variable="k"/><y variable="b"/></point>',
      { categorical: kinds },
    );
    expect(bars(standing)[1]!.bottom).toBeCloseTo(height(standing), 1);
    const points = picture({ a: [0, 10], b: [0, 10] }, '<point><x variable="a"/><y variable="b"/></point>', {
      coordinates: '<dimension upperMargin="0%"/><dimension/>',
    });
    expect(number(points.marks('dot')[1]!, 'cx')).toBeCloseTo(width(points), 1);
  });

  test('of extremes have room for their own size', () => {
    const drawn = picture(
      { k: Array.from({ length: 12 }, () => 1), b: [1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 30] },
      '<schema extremeStyle="e"><tukeyStatistic/><x variable="k"/><y variable="b"/></schema>',
      { categorical: kinds, rest: '<style id="e" symbol="circle" size="80px"/>' },
    );
    const [extreme] = drawn.marks('dot');
    expect(number(extreme!, 'cy')).toBeGreaterThanOrEqual(39);
  });
});
