import { describe as suite, expect, test } from 'vitest';
import { binOf, binsOf, boundsOf } from '../../src/statistics/bins.js';
import { bandwidthOf, densityOf } from '../../src/statistics/density.js';
import { studentProbability, studentQuantile } from '../../src/statistics/student.js';
import { confidenceInterval, describe, summaries } from '../../src/statistics/summary.js';
import { boxOf, hinges } from '../../src/statistics/tukey.js';

const bins = (values: number[], wanted: { count?: number; start?: number; width?: number }) =>
  binsOf(values, { count: null, start: null, width: null, dots: false, ...wanted });

suite('Student t', () => {
  test('is as likely below its middle as above it', () => {
    expect(studentProbability(-2, 5)).toBeCloseTo(1 - studentProbability(2, 5), 12);
    expect(studentProbability(-2, 5)).toBeLessThan(0.5);
  });

  // From printed tables.
  test.each([
    [0.975, 1, 12.7062],
    [0.975, 2, 4.3027],
    [0.975, 10, 2.2281],
    [0.975, 30, 2.0423],
    [0.995, 5, 4.0321],
    [0.975, 1000, 1.9623],
  ])('quantile %d of %d degrees', (probability, freedom, expected) => {
    expect(studentQuantile(probability, freedom)).toBeCloseTo(expected, 3);
  });

  test('the probability of 0 is a half', () => {
    expect(studentProbability(0, 7)).toBeCloseTo(0.5, 12);
  });
});

suite('summaries', () => {
  const sample = { values: [2, 4, 9], weights: null };
  const weighted = { values: [2, 4, 9], weights: [1, 2, 1] };

  test.each([
    [1, 15, 19],
    [2, 5, 4.75],
    [4, 4, 4],
    [5, 2, 2],
    [6, 9, 9],
    [10, 3, 4],
  ])('method %d', (method, expected, withWeights) => {
    expect(summaries.get(method)!.compute(sample)).toBe(expected);
    expect(summaries.get(method)!.compute(weighted)).toBe(withWeights);
  });

  test('mean, deviation with n - 1, and count leave missing values out', () => {
    const { mean, deviation, count } = describe({ values: [2, NaN, 4, 4, 4, 5, 5, 7, 9], weights: null });
    expect([mean, count]).toEqual([5, 8]);
    expect(deviation).toBeCloseTo(Math.sqrt(32 / 7), 12);
  });

  test('deviations of values whose squares are beyond all numbers', () => {
    const { mean, deviation } = describe({ values: [1e200, 3e200], weights: null });
    expect(mean / 1e200).toBeCloseTo(2, 9);
    expect(deviation / 1e200).toBeCloseTo(Math.SQRT2, 9);
  });

  test('the confidence interval of a mean', () => {
    // Mean 3, deviation sqrt(2.5), t of 4 degrees 2.776445.
    const interval = confidenceInterval({ values: [1, 2, 3, 4, 5], weights: null })!;
    expect(interval.low).toBeCloseTo(3 - 2.776445 * Math.sqrt(2.5 / 5), 4);
    expect(interval.high).toBeCloseTo(3 + 2.776445 * Math.sqrt(2.5 / 5), 4);
    expect(confidenceInterval({ values: [1], weights: null })).toBeNull();
  });

  test('a number that is not known has no meaning', () => {
    expect(summaries.get(14)).toBeUndefined();
  });
});

suite('weighted cases', () => {
  const computed = (method: number, values: number[], weights: number[]) =>
    summaries.get(method)!.compute({ values, weights });

  test('have a median between two of them where half of all lies below each', () => {
    expect(computed(4, [4, 1, 3, 2], [1, 1, 1, 1])).toBe(2.5);
    expect(computed(4, [1, 2, 3], [1, 1, 2])).toBe(2.5);
    expect(computed(4, [1, 2, 3], [1, 3, 1])).toBe(2);
  });

  test('do not count where their weight is not above 0', () => {
    expect(computed(10, [1, 1, 1], [1, -1, 2])).toBe(3);
    expect(computed(2, [1, 50, 4], [1, -1, 2])).toBe(3);
  });
});

suite('bins of dates', () => {
  const at = (text: string) => Date.parse(`${text}Z`) / 1000;
  /** So many values, evenly from one date to another. */
  const made = (from: string, to: string, count = 200) => {
    const [low, high] = [at(from), at(to)];
    const values = Array.from({ length: count }, (_, index) => low + ((high - low) * index) / (count - 1));
    return binsOf(values, { count: null, start: null, width: null, dots: false }, true)!;
  };
  const textOf = (seconds: number) => new Date(seconds * 1000).toISOString().slice(0, 16);

  test('are those of a calendar, from midnight on', () => {
    const months = made('2021-01-09T05:00', '2022-11-29T05:00');
    expect([0, 1, 2].map((bin) => textOf(boundsOf(months, bin)[0]))).toEqual([
      '2021-01-01T00:00',
      '2021-04-01T00:00',
      '2021-07-01T00:00',
    ]);
    expect(textOf(boundsOf(months, months.count - 1)[1])).toBe('2023-01-01T00:00');
    const weeks = made('2024-01-03T05:00', '2024-03-01T05:00');
    expect(weeks.width).toBe(7 * 86_400);
    expect(textOf(weeks.start)).toBe('2024-01-01T00:00');
    const hours = made('2024-01-03T05:00', '2024-01-05T05:00');
    expect(hours.width).toBe(6 * 3_600);
    expect(textOf(hours.start)).toBe('2024-01-03T00:00');
  });

  test('have each date in one of them', () => {
    const years = made('1950-05-05T00:00', '2020-05-05T00:00');
    expect(textOf(boundsOf(years, 0)[0])).toBe('1950-01-01T00:00');
    for (const text of ['1950-05-05T00:00', '1960-01-01T00:00', '1989-12-31T23:59', '2020-05-05T00:00']) {
      const [low, high] = boundsOf(years, binOf(years, at(text)));
      expect(low).toBeLessThanOrEqual(at(text));
      expect(high).toBeGreaterThan(at(text));
    }
  });

  test('go on behind a date on the bound of the last month', () => {
    const months = made('2021-01-01T00:00', '2021-07-01T00:00');
    const last = binOf(months, at('2021-07-01T00:00'));
    expect(textOf(boundsOf(months, last)[0])).toBe('2021-07-01T00:00');
  });

  test('of one date are its day', () => {
    const one = made('2024-01-03T05:00', '2024-01-03T05:00', 2);
    expect([textOf(one.start), one.width, one.count]).toEqual(['2024-01-03T00:00', 86_400, 1]);
  });
});

suite('bins', () => {
  test('have the width and the start that are wanted', () => {
    expect(bins([2700, 6300], { start: 2500, width: 250 })).toEqual({ start: 2500, width: 250, count: 16 });
  });

  test('begin lower by whole classes where a value is below the start', () => {
    expect(bins([10, 50], { start: 25, width: 10 })).toEqual({ start: 5, width: 10, count: 5 });
  });

  test('are as many as are wanted, from the lowest to the highest value', () => {
    expect(bins([0, 24], { count: 12 })).toEqual({ start: 0, width: 2, count: 12 });
    expect(bins([0, 24], { count: 12, start: -12 })).toEqual({ start: -12, width: 3, count: 12 });
    expect(bins([0, 24], { count: 12, start: 10 })).toEqual({ start: 0, width: 2, count: 12 });
  });

  test('are 2,000 at most', () => {
    expect(bins([0, 1e6], { width: 1 })!.count).toBe(1_997);
    expect(bins([0, 24], { count: 1e6 })!.count).toBe(2_000);
  });

  test('have their bounds where readers see them, however numbers are stored', () => {
    const tenths = bins([0, 0.3], { width: 0.1 })!;
    expect(tenths.count).toBe(4);
    expect(binOf(tenths, 0.3)).toBe(3);
  });

  test('begin at the first class with a value, also where the width is left open', () => {
    const values = Array.from({ length: 100 }, (_, at) => 2700 + at * 36);
    const made = bins(values, { start: 3001 })!;
    expect(made.start).toBeLessThanOrEqual(2700);
    expect(made.start + made.width).toBeGreaterThan(2700);
    expect((3001 - made.start) % made.width).toBe(0);
    expect(bins([2700, 6300], { start: 0, width: 500 })).toEqual({ start: 2500, width: 500, count: 8 });
  });

  test('that are counted have a bound at their start', () => {
    expect(bins([2700, 6300], { start: 3000, count: 12 })).toEqual({ start: 2700, width: 300, count: 12 });
    expect(bins([10, 50], { start: 25, count: 8 })).toEqual({ start: 10, width: 5, count: 8 });
    expect(bins([10, 49], { start: 25, count: 8 })!.start).toBeCloseTo(25 - 4 * 6, 9);
    expect(bins([10, 50], { start: 0, count: 5 })).toEqual({ start: 0, width: 10, count: 5 });
    expect(bins([10, 50], { start: 60, count: 4 })).toEqual({ start: 10, width: 10, count: 4 });
  });

  test('beyond 2,000 are wider by a whole number, and count no value falsely', () => {
    expect(bins([0, 1999.5], { width: 1 })).toEqual({ start: 0, width: 1, count: 2000 });
    const made = bins([2700, 6300], { width: 1 })!;
    expect(made).toEqual({ start: 2700, width: 2, count: 1801, tooNarrow: 1 });
    expect(boundsOf(made, binOf(made, 4701))).toEqual([4700, 4702]);
    expect(boundsOf(made, binOf(made, 6300))).toEqual([6300, 6302]);
    expect(bins([0, 10], { count: 5000 })).toEqual({ start: 0, width: 0.005, count: 2000, tooMany: 5000 });
    expect(bins([0, 1e300], { width: 1e-300 })!.count).toBeLessThanOrEqual(2000);
  });

  test('have round bounds where the chart leaves them open', () => {
    const made = bins(
      Array.from({ length: 100 }, (_, at) => at * 0.97),
      {},
    )!;
    expect([1, 2, 5, 10, 20, 50]).toContain(made.width);
    expect(made.start % made.width).toBe(0);
  });

  test('take a value on a bound into the upper class, and the highest into the last', () => {
    const made = { start: 0, width: 2, count: 3 };
    expect([0, 1.99, 2, 6].map((value) => binOf(made, value))).toEqual([0, 0, 1, 2]);
  });

  test('of one value are one', () => {
    expect(bins([7, 7], {})!.count).toBe(1);
    expect(bins([], {})).toBeNull();
  });
});

suite('boxes', () => {
  test('have hinges that share the middle value', () => {
    expect(hinges([1, 2, 3, 4, 5])).toEqual([2, 4]);
    expect(hinges([1, 2, 3, 4])).toEqual([1.5, 3.5]);
  });

  test('tell outliers from extremes', () => {
    // Hinges 2.5 and 4: inner fences at 0.25 and 6.25, outer ones at -2 and 8.5.
    const box = boxOf({ values: [1, 2, 3, 4, 5, 7, 2, 4, 11, 3, 3, 2, 4, 3, 3], weights: null })!;
    expect([box.lowerHinge, box.median, box.upperHinge]).toEqual([2.5, 3, 4]);
    expect(box.outliers).toEqual([5]);
    expect(box.extremes).toEqual([8]);
    expect([box.lowest, box.highest]).toEqual([1, 5]);
  });

  test('have fences at one and a half and at three times the distance of the hinges', () => {
    // Hinges 0 and 1: inner fences at -1.5 and 2.5, outer ones at -3 and 4.
    const halves = [...Array<number>(11).fill(0), ...Array<number>(11).fill(1)];
    const values = [...halves, 2.5, 2.51, 4, 4.01, -1.5, -1.51, -3, -3.01];
    const box = boxOf({ values, weights: null })!;
    expect([box.lowest, box.highest]).toEqual([-1.5, 2.5]);
    expect(box.outliers.map((at) => values[at])).toEqual([2.51, 4, -1.51, -3]);
    expect(box.extremes.map((at) => values[at])).toEqual([4.01, -3.01]);
  });

  const figures = (values: number[], weights: number[] | null) => {
    const box = boxOf({ values, weights })!;
    return [box.lowest, box.lowerHinge, box.median, box.upperHinge, box.highest];
  };

  test('of weighted cases are those of the cases that they stand for', () => {
    for (let size = 1; size <= 40; size += 1) {
      const values = Array.from({ length: size }, (_, at) => (at * 7919) % 31);
      const weights = values.map((_, at) => 1 + ((at * 13) % 4));
      const repeated = values.flatMap((value, at) => Array<number>(weights[at]!).fill(value));
      expect(figures(values, weights)).toEqual(figures(repeated, null));
    }
  });

  test('of weights that are no whole numbers stand at the quartiles, whatever the unit of the weights', () => {
    const values = [4, 1, 3, 2, 5];
    const weights = [0.5, 1.5, 2, 0.25, 1];
    expect(figures(values, weights)).toEqual([1, 1, 3, 4, 5]);
    const tenths = weights.map((weight) => weight / 10);
    expect(figures(values, tenths)).toEqual(figures(values, weights));
  });

  test('name an outlier once whatever it counts', () => {
    const box = boxOf({ values: [1, 2, 3, 4, 40], weights: [5, 5, 5, 5, 3] })!;
    expect([box.outliers, box.extremes]).toEqual([[], [4]]);
  });
});

suite('densities', () => {
  const values = [1, 2, 2, 3, 3, 3, 4, 4, 5];

  test('have an area of 1 and their top in the middle', () => {
    const curve = densityOf({ values, weights: null }, 301);
    const width = curve[1]!.at - curve[0]!.at;
    expect(curve.reduce((sum, { density }) => sum + density * width, 0)).toBeCloseTo(1, 3);
    const top = curve.reduce((a, b) => (b.density > a.density ? b : a));
    expect(top.at).toBeCloseTo(3, 1);
  });

  test('go by the rule for their width', () => {
    // Quartiles 2 and 4 give 1.4826, the deviation 1.2247 is less.
    expect(bandwidthOf(values)).toBeCloseTo(0.9 * Math.sqrt(12 / 8) * 9 ** -0.2, 6);
    // A value far away makes the deviation larger than the quartiles, which are 2 and 4 now.
    expect(bandwidthOf([1, 2, 2, 3, 3, 3, 4, 4, 100])).toBeCloseTo(((0.9 * 2) / 1.349) * 9 ** -0.2, 6);
  });

  test('are none of values that are all the same', () => {
    expect(densityOf({ values: [2, 2, 2], weights: null })).toEqual([]);
  });
});
