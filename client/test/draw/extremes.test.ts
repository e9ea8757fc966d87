import { describe, expect, test } from 'vitest';
import { svgText } from '../../src/node/svgText.js';
import { picture, type Picture } from './chart.js';

const points = '<point><x variable="a"/><y variable="b"/></point>';
const axis = '<axis><majorTicks/></axis>';
const upwards = (scale: string) => `<dimension>${axis}</dimension><dimension>${scale}${axis}</dimension>`;
const log = '<scale method="2"/>';

const isSound = (drawn: Picture) => !/NaN|Infinity/.test(svgText(drawn.drawn.svg));

describe('a histogram on a logarithmic scale', () => {
  const a = [0.5, 1, 3, 7, 12, 13];
  const bars =
    '<interval><x variable="a"/><binStatistic gridType="0" binWidth="5" binStart="START"/></interval>';
  const drawnFrom = (start: number, values: number[]) =>
    picture({ a: values }, bars.replace('START', String(start)), {
      coordinates: `<dimension>${log}${axis}</dimension><dimension>${axis}</dimension>`,
    });

  test('draws the class from 0 on from the lower bound of the axis', () => {
    const drawn = drawnFrom(0, a);
    const bounds = drawn.marks('rect').map((mark) => Number(mark.getAttribute('x')));
    expect(bounds).toHaveLength(3);
    expect(bounds[0]).toBeLessThan(1);
    expect(drawn.notes).toEqual(['The class from 0 on begins with the axis: a logarithmic scale has no 0.']);
  });

  test('says that a class below 0 has no place', () => {
    const drawn = drawnFrom(-5, [-3, 2, 7]);
    expect(drawn.marks('rect')).toHaveLength(2);
    expect(drawn.notes.join()).toContain('Values along x that are not above 0 have no place');
  });
});

describe('a logarithmic scale', () => {
  test('of negative values alone is linear, and the note says that', () => {
    const drawn = picture({ a: [1, 2, 3], b: [-1, -10, -5] }, points, { coordinates: upwards(log) });
    expect(drawn.marks('dot')).toHaveLength(3);
    expect(drawn.notes).toEqual(['No value along y is above 0: its scale is linear, not logarithmic.']);
  });

  test('of bars of 0 alone is linear, too', () => {
    const bars = '<interval><x variable="a"/><y variable="b"/></interval>';
    const drawn = picture({ a: [1, 2], b: [0, 0] }, bars, { coordinates: upwards(log) });
    expect(drawn.notes).toEqual(['No value along y is above 0: its scale is linear, not logarithmic.']);
  });
});

describe('values at the end of all numbers', () => {
  test.each([log, '<scale method="2" base="2"/>'])('have powers at their ticks: %s', (scale) => {
    for (const b of [
      [1e-10, 1e300, 10],
      [5e-324, 1e300, 10],
      [5e-324, 1, 2],
    ]) {
      const drawn = picture({ a: [1, 2, 3], b }, points, { coordinates: upwards(scale) });
      expect(drawn.marks('dot')).toHaveLength(3);
      expect(drawn.textsOf('y axis').length).toBeGreaterThan(2);
      expect(isSound(drawn)).toBe(true);
      expect(drawn.notes).toEqual([]);
    }
  });

  test('that are infinite or too large are missing, and counted', () => {
    for (const scale of ['', log, '<scale method="3"/>', '<scale method="4"/>']) {
      const drawn = picture({ a: [1, 2, 3, 4], b: [1, Infinity, -1e308, 3] }, points, {
        coordinates: upwards(scale),
      });
      expect(drawn.marks('dot')).toHaveLength(2);
      expect(isSound(drawn)).toBe(true);
      expect(drawn.notes).toEqual([
        '2 values of the b are too large or infinite, as if missing.',
        '2 rows with missing values are not drawn (the b).',
      ]);
    }
  });

  test('whose sums are beyond all numbers are not drawn, with a note', () => {
    const sums = '<interval><x variable="k"/><y variable="b"/><summaryStatistic method="1"/></interval>';
    const k = [...Array.from({ length: 20 }, () => 1), 2];
    const b = k.map((code) => (code === 1 ? 1e300 : 5));
    const drawn = picture({ k, b, w: k.map(() => 1e5) }, sums, {
      categorical: { k: ['one', 'two'] },
      rest: '<sourceVariable id="v" source="s" sourceName="w" weight="true"/>',
    });
    expect(drawn.marks('rect')).toHaveLength(1);
    expect(isSound(drawn)).toBe(true);
    expect(drawn.notes.join()).toContain('1 mark is not drawn: its value is beyond all numbers.');
  });

  test('whose powers are beyond all numbers stand on a linear scale', () => {
    const drawn = picture({ a: [1, 2], b: [1e200, 2e200] }, points, {
      coordinates: upwards('<scale method="3" base="2"/>'),
    });
    expect(drawn.marks('dot')).toHaveLength(2);
    expect(drawn.notes).toEqual(['Values along y are beyond its power scale: it is linear.']);
  });

  test.each(['line', 'interval', 'area', 'polygon'])('make no %s of what is no number', (kind) => {
    const far = `<${kind}><x variable="a"/><y variable="b"/></${kind}>`;
    for (const [min, max] of [
      ['0', '0.001'],
      ['5', '1'],
    ]) {
      const drawn = picture({ a: [1, 2, 3], b: [0, 1, 1e305] }, far, {
        coordinates: `<dimension>${axis}</dimension><dimension domain="d">${axis}</dimension>`,
        rest: `<intervalDomain id="d"><range min="${min}" max="${max}" exact="true"/></intervalDomain>`,
      });
      expect(isSound(drawn)).toBe(true);
    }
  });
});
