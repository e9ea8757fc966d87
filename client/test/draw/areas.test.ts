import { describe, expect, test } from 'vitest';
import { picture, plainAxes, type Picture } from './chart.js';

/** The corners of each piece of an area or line, in whole pixels. */
const pieces = (path: Element) =>
  (path.getAttribute('d') ?? '')
    .split('M')
    .slice(1)
    .map((piece) =>
      piece.match(/-?[\d.]+,-?[\d.]+/g)!.map((spot) => spot.split(',').map(Number) as [number, number]),
    );

/** How high an area reaches in all, in units of the highest of all. */
function tops(drawn: Picture): number[][] {
  const areas = drawn.marks('area').map((path) => pieces(path)[0]!);
  const [low, high] = [
    Math.max(...areas.flat().map(([, y]) => y)),
    Math.min(...areas.flat().map(([, y]) => y)),
  ];
  return areas.map((corners) =>
    corners.slice(0, corners.length / 2).map(([, y]) => Math.round((100 * (low - y)) / (low - high)) / 100),
  );
}

describe('areas', () => {
  test('between two y break where either is missing', () => {
    for (const [b, c] of [
      [
        [1, 1, null, 1, 1],
        [2, 2, 2, 2, 2],
      ],
      [
        [1, 1, 1, 1, 1],
        [2, 2, null, 2, 2],
      ],
    ] as const) {
      const area = '<area><x variable="a"/><y variable="b"/><y variable="c"/></area>';
      for (const scale of ['', '<scale method="2"/>']) {
        const coordinates = `<dimension/><dimension>${scale}<axis><majorTicks/></axis></dimension>`;
        const drawn = picture({ a: [1, 2, 3, 4, 5], b: [...b], c: [...c] }, area, { coordinates });
        expect(pieces(drawn.marks('area')[0]!)).toHaveLength(2);
      }
    }
  });

  const stacked = (statistic: string) =>
    `<area positionModifier="3"><x variable="a"/>${statistic}<color variable="g"/></area>`;
  const g = { g: ['u', 'v'] };

  test('in a stack of counts are 0 where their group has no case', () => {
    const columns = { a: [1, 2, 2, 3, 1, 4], g: [1, 1, 1, 1, 2, 2] };
    const drawn = picture(columns, stacked('<summaryStatistic method="10"/>'), { categorical: g });
    expect(tops(drawn)).toEqual([
      [0.5, 1, 0.5, 0],
      [1, 1, 0.5, 0.5],
    ]);
    expect(drawn.names().join()).toContain('v: 2 places on an area');
  });

  test('in a stack of sums, too, along classes without any case', () => {
    const columns = { a: [0.5, 3.5, 0.5, 1.5], b: [4, 4, 4, 4], g: [1, 1, 2, 2] };
    const bins = '<y variable="b"/><binStatistic gridType="0" binWidth="1"/><summaryStatistic method="1"/>';
    expect(tops(picture(columns, stacked(bins), { categorical: g }))).toEqual([
      [0.5, 0, 0, 0.5],
      [1, 0.5, 0, 0.5],
    ]);
  });

  test('in a stack of means have a line between their own places', () => {
    const columns = { a: [1, 3, 1, 2, 3], b: [2, 2, 2, 2, 2], g: [1, 1, 2, 2, 2] };
    const means = stacked('<y variable="b"/><summaryStatistic method="2"/>');
    expect(tops(picture(columns, means, { categorical: g }))[0]).toEqual([0.5, 0.5, 0.5]);
  });

  test('of values go on upright where a group below begins or ends', () => {
    const columns = { a: [2, 3, 1, 2, 3, 4], b: [2, 2, 2, 2, 2, 2], g: [1, 1, 2, 2, 2, 2] };
    const drawn = picture(columns, stacked('<y variable="b"/>'), { categorical: g });
    // At 2 and 3 the upper area has two heights: without and with the lower one.
    expect(tops(drawn)).toEqual([
      [0.5, 0.5],
      [0.5, 0.5, 1, 1, 0.5, 0.5],
    ]);
    expect(drawn.names().join()).toContain('v: 4 places on an area');
    expect(drawn.drawn.dataTable.rows).toHaveLength(6);
  });

  test('of a group that has a gap leave those above whole', () => {
    const columns = { a: [1, 2, 3, 1, 2, 3], b: [1, null, 1, 1, 1, 1], g: [1, 1, 1, 2, 2, 2] };
    const drawn = picture(columns, stacked('<y variable="b"/>'), { categorical: g });
    expect(drawn.marks('area').map((path) => pieces(path).length)).toEqual([2, 1]);
  });
});

describe('lines of counts', () => {
  test('go down to 0 at classes without cases', () => {
    const line = '<line><x variable="a"/><binStatistic gridType="0" binWidth="1"/></line>';
    const drawn = picture({ a: [0.5, 0.6, 3.5] }, line, { coordinates: plainAxes });
    const corners = pieces(drawn.marks('line')[0]!)[0]!;
    expect(corners).toHaveLength(4);
    expect(corners[1]![1]).toBe(corners[2]![1]);
    expect(corners[1]![1]).toBeGreaterThan(corners[3]![1]);
  });
});

describe('percentages', () => {
  const bars = '<interval><x variable="k"/><y variable="b"/><summaryStatistic method="3"/></interval>';
  test.each([[[-3, 1]], [[0, 0]]])('of a sum of %j cannot be had, and a note says so', (b) => {
    const drawn = picture({ k: [1, 2], b }, bars, { categorical: { k: ['u', 'v'] } });
    expect(drawn.marks('rect')).toHaveLength(0);
    expect(drawn.notes.join()).toContain('Percentages of a sum that is not above 0 cannot be had');
  });
});

describe('statistics of two variables along y', () => {
  test('are told below the chart, each of its own', () => {
    const summary = '<summaryStatistic method="2"/>';
    const drawn = picture(
      { k: [1, 2], b: [1, 2], c: [3, 4] },
      `<interval><x variable="k"/><y variable="b"/>${summary}</interval><line><x variable="k"/><y variable="c"/>${summary}</line>`,
      { categorical: { k: ['u', 'v'] } },
    );
    const texts = drawn.texts().join(' ');
    expect(texts).toContain('Bars show the mean of the b.');
    expect(texts).toContain('Lines show the mean of the c.');
  });
});
