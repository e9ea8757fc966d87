import { describe, expect, test } from 'vitest';
import { colorRange, luminance, readableShade } from '../../src/draw/svg/colors.js';
import { Patterns } from '../../src/draw/svg/patterns.js';
import { Maker } from '../../src/draw/svg/svg.js';
import { atMost, textLook, textWidth } from '../../src/draw/svg/text.js';
import { ownLook, ownTexts } from '../../src/draw/compile/looks.js';
import { casingOf, edged } from '../../src/draw/marks/edges.js';
import { Places } from '../../src/draw/page.js';
import { makeDocument } from '../../src/node/document.js';

const maker = new Maker(makeDocument(), 'p');
const look = ownTexts.otherLabel;

describe('texts', () => {
  test('of other fonts and scripts have their own widths', () => {
    const typed = textLook({ fontFamily: 'monospace' }, look);
    expect(textWidth('width', typed)).toBeGreaterThan(textWidth('width', look));
    expect(textWidth('\u6f22\u5b57', look)).toBe(2 * look.size);
  });

  test('have one line at least', () => {
    expect(atMost(['one', 'two'], 0.5)).toEqual(['on\u2026']);
  });

  test('of several lines have these below each other', () => {
    const lines = Array.from(maker.text(['one', 'two', 'three'], 5, 10, look).querySelectorAll('tspan'));
    expect(lines.map((line) => line.getAttribute('y'))).toEqual(['10', '25', '40']);
    expect(lines.map((line) => line.getAttribute('x'))).toEqual(['5', '5', '5']);
  });
});

describe('colours', () => {
  test('become lighter on dark paper, and darker on light one', () => {
    const own = luminance('#0072b2');
    expect(luminance(readableShade('#101010', '#0072b2'))).toBeGreaterThanOrEqual(own);
    expect(luminance(readableShade('#101010', '#004466'))).toBeGreaterThan(luminance('#004466'));
    expect(readableShade('#101010', '#004466')).not.toBe('#ffffff');
    expect(luminance(readableShade('#ffffff', '#56b4e9'))).toBeLessThan(luminance('#56b4e9'));
  });

  test('of a range with one stop go from a light grey to it', () => {
    const color = colorRange(['#123456']);
    expect([color(0), color(1)]).toEqual(['rgb(242, 242, 242)', 'rgb(18, 52, 86)']);
  });
});

test('patterns count from 2, which are strokes; 3 are dots', () => {
  const patterns = new Patterns(maker, '#ffffff');
  expect(patterns.fill('#ff0000', 1)).toBe('#ff0000');
  patterns.fill('#ff0000', 2);
  patterns.fill('#ff0000', 3);
  const [strokes, dots] = patterns.definitions();
  expect(strokes!.querySelectorAll('path')).toHaveLength(1);
  expect(dots!.querySelectorAll('circle')).toHaveLength(2);
});

test('a part with a right edge and a width has its left edge there', () => {
  const value = (part: 'right' | 'width', pixels: number) => ({
    part,
    method: 'value' as const,
    value: { value: pixels, unit: 'px' as const },
    target: '',
  });
  const places = new Places(new Map([['a', [value('right', 300), value('width', 120)]]]), {
    width: 625,
    height: 500,
  });
  expect(places.edges('a')).toEqual({ right: 300, left: 180 });
});

describe('outlines', () => {
  const faint = { ...ownLook('point'), fill: '#ffffcc', strokeWidth: 0.2 };

  test('are not given to what the chart wants to be seen through', () => {
    const look = { ...ownLook('point'), opacity: 0.1 };
    expect(edged(look, 'point', '#ffffff')).toEqual(look);
  });

  test('are a pixel wide at least, and as see-through as the chart wants marks', () => {
    expect(edged(faint, 'point', '#ffffff')).toMatchObject({ strokeWidth: 1, strokeOpacity: 1 });
    expect(edged({ ...faint, opacity: 0.3 }, 'point', '#ffffff').strokeOpacity).toBe(0.3);
  });

  test('are not there below lines of no width', () => {
    expect(casingOf('#ffffcc', 2, '#ffffff')).not.toBeNull();
    expect(casingOf('#ffffcc', 0, '#ffffff')).toBeNull();
  });
});
