import { describe, expect, test } from 'vitest';
import { secondsOf } from '../../src/data/format.js';
import { number, picture } from './chart.js';

const axis = '<axis><majorTicks/></axis>';
const kinds = { k: ['one', 'two', 'three'] };
const bars = '<interval><x variable="k"/><y variable="b"/></interval>';
const points = '<point><x variable="a"/><y variable="b"/></point>';

/** Bars over a dimension y that begins with `scale`, or has `attributes`. */
const upright = (b: (number | null)[], scale = '', attributes = '', rest = '') =>
  picture({ k: b.map((_, at) => at + 1), b }, bars, {
    categorical: kinds,
    coordinates: `<dimension/><dimension ${attributes}>${scale}${axis}</dimension>`,
    rest,
  });

describe('bounds', () => {
  test('of bars that are all 0 reach from 0 to 1', () => {
    const texts = upright([0, 0]).textsOf('y axis');
    expect([texts[0], texts.at(-1)]).toEqual(['0.0', '1.0']);
  });

  test('of a single time are an hour around it', () => {
    const at = secondsOf('2024-02-29T12:30:00')!;
    const drawn = picture({ a: [at], b: [1] }, points.replace('"a"', '"t"'), {
      coordinates: `<dimension>${axis}</dimension><dimension/>`,
      rest: '<sourceVariable id="t" source="s" sourceName="a"><format pattern="HH:mm"/></sourceVariable>',
    });
    const texts = drawn.textsOf('x axis');
    expect(texts).toContain('12:30');
    for (const text of texts) expect(text).toMatch(/^1[123]:/);
  });

  test('that the chart gives are rounded where it asks for that, but for exact ones', () => {
    const domain = (exact: string) =>
      `<intervalDomain id="d"><range min="3" max="97" exact="${exact}"/></intervalDomain>`;
    const ends = (exact: string) => {
      const texts = upright(
        [50, 60],
        '',
        'domain="d" niceLowerMapping="true" niceUpperMapping="true"',
        domain(exact),
      ).textsOf('y axis');
      return [texts[0], texts.at(-1)];
    };
    expect(ends('false')).toEqual(['0', '100']);
    expect(ends('true')).toEqual(['10', '90']);
  });

  test('that no scale can have are 0 and 1', () => {
    const drawn = picture({ a: [1, 2], b: [-1.7e308, 1.7e308] }, points);
    expect(drawn.textsOf('y axis')[0]).toMatch(/^0/);
    expect(drawn.textsOf('y axis').at(-1)).toMatch(/^1/);
  });
});

describe('logarithmic scales', () => {
  const log = '<scale method="2"/>';

  test('have room around a single value', () => {
    const drawn = picture({ a: [1], b: [100] }, points, {
      coordinates: `<dimension/><dimension>${log}${axis}</dimension>`,
    });
    const [symbol] = drawn.marks('dot');
    const at = Number(
      /,([\d.]+)\)/.exec(symbol!.getAttribute('transform') ?? '')?.[1] ?? symbol!.getAttribute('cy'),
    );
    const height = number(drawn.svg.querySelector('g[aria-label="Data"] rect')!, 'height');
    expect(at / height).toBeCloseTo(0.5, 1);
  });

  test('leave room below bars that do not begin at their lower end', () => {
    const drawn = upright([0.01, 100], log);
    const height = number(drawn.svg.querySelector('g[aria-label="Data"] rect')!, 'height');
    const low = drawn.marks('rect')[0]!;
    // The bar goes down from 1 to a hundredth, and does not touch the axis.
    expect(number(low, 'y') + number(low, 'height')).toBeLessThan(height - 3);
  });

  test('have bars that begin at 1 where the origin has no place on them', () => {
    const bottoms = (origin: string) => {
      const drawn = upright([10, 100], `<scale method="2" origin="${origin}"/>`);
      const [low, high] = drawn.marks('rect').map((mark) => number(mark, 'height'));
      return high! / low!;
    };
    expect(bottoms('-5')).toBeCloseTo(2, 1);
    expect(bottoms('0.1')).toBeCloseTo(1.5, 1);
  });
});
