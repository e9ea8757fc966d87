import { describe, expect, test } from 'vitest';
import { secondsOf } from '../../src/data/format.js';
import { minorTicks } from '../../src/draw/axes/minorticks.js';
import { withFunctions, type DrawnScale } from '../../src/draw/compile/scales.js';
import { picture } from './chart.js';

/** Of the marks at an axis along the bottom: how many are long, and how many short. */
function marksOf(columns: Record<string, number[]>, dimension: string, rest = '', x = 'a') {
  const drawn = picture(columns, `<point><x variable="${x}"/><y variable="b"/></point>`, {
    coordinates: `<dimension>${dimension}</dimension><dimension/>`,
    rest,
  });
  const d = drawn.svg.querySelector('g[aria-label$="axis"] path[d*=" v"]')!.getAttribute('d')!;
  const lengths = Array.from(d.matchAll(/ v([\d.]+)/g), (found) => Number(found[1]));
  return {
    long: lengths.filter((length) => length === 5).length,
    short: lengths.filter((length) => length === 2.5).length,
    labels: drawn.textsOf('x axis').length,
  };
}

describe('short ticks without labels', () => {
  const log = '<scale method="2"/><axis><majorTicks/></axis>';

  test('stand at the digits between powers of ten', () => {
    expect(marksOf({ a: [1, 1000], b: [1, 2] }, log).long).toBe(4);
    expect(marksOf({ a: [1, 1000], b: [1, 2] }, log).short).toBeGreaterThanOrEqual(24);
  });

  test('stand at 2 and 5 where powers are closer, and at powers where these have no labels', () => {
    const { long, short } = marksOf({ a: [1, 1e8], b: [1, 2] }, log);
    expect([long, short]).toEqual([9, 18]);
    const wide = marksOf({ a: [1, 1e20], b: [1, 2] }, log);
    expect(wide.long + wide.short).toBe(21);
  });

  test('stand between few dates', () => {
    const dates = ['2012-01-01', '2016-01-01'].map((text) => secondsOf(text)!);
    const variable =
      '<sourceVariable id="t" source="s" sourceName="a"><format pattern="\'the day\' dd \'of the month\' MM \'of the year\' yyyy"/></sourceVariable>';
    const { long, short, labels } = marksOf(
      { a: dates, b: [1, 2] },
      '<axis><majorTicks/></axis>',
      `${variable}<intervalDomain id="d" type="date"/>`,
      't',
    );
    expect(labels).toBeLessThan(5);
    expect(long).toBeLessThan(5);
    expect(short).toBeGreaterThan(0);
  });

  const dates = (from: string, to: string, settings = '') =>
    marksOf(
      { a: [from, to].map((text) => secondsOf(text)!), b: [1, 2] },
      `<axis><majorTicks ${settings}/></axis>`,
      `<sourceVariable id="t" source="s" sourceName="a"><format pattern="'the day' dd 'of the month' MM 'of the year' yyyy"/></sourceVariable>`,
      't',
    );

  test('between years are those of quarters, not of more months than six to a label', () => {
    const { long, short } = dates('2012-01-01', '2014-01-01');
    expect([long, short]).toEqual([3, 6]);
  });

  test('stand between dates only where these are among them', () => {
    // No weeks begin with all of the months.
    expect(dates('2021-01-01', '2021-03-01').short).toBe(0);
  });

  test('keep 8 pixels from each other between dates', () => {
    const [low, high] = ['2012-01-01', '2014-01-01'].map((text) => secondsOf(text)!) as [number, number];
    const scale = withFunctions({
      direction: { kind: 'date' } as DrawnScale['direction'],
      domain: [low, high],
      method: 'linear',
      base: 1,
      inverted: false,
    });
    const ticks = [low, secondsOf('2013-01-01')!, high].map((value) => ({ value, text: '' }));
    expect(minorTicks(scale, ticks, null, 8 * 9)).toHaveLength(6);
    expect(minorTicks(scale, ticks, null, 8 * 7)).toEqual([]);
  });

  test('are not there between labels that are no powers', () => {
    expect(marksOf({ a: [1, 50], b: [1, 2] }, log).short).toBe(0);
  });

  test('are not there between numbers, nor where the chart says where ticks are', () => {
    expect(marksOf({ a: [1, 1000], b: [1, 2] }, '<axis><majorTicks/></axis>').short).toBe(0);
    expect(
      marksOf({ a: [1, 100], b: [1, 2] }, log.replace('majorTicks', 'majorTicks delta="10"')).short,
    ).toBe(0);
    expect(dates('2012-01-01', '2014-01-01', 'delta="31622400"').short).toBe(0);
  });
});
