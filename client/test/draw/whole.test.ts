import { describe, expect, test } from 'vitest';
import { number, Picture, picture, plainAxes } from './chart.js';

const names = (texts: string) => texts.split('');

/** Whether a mark is cut off at the bounds of its panel. */
function isClipped(mark: Element): boolean {
  for (let each: Element | null = mark; each; each = each.parentNode as Element | null)
    if (each.getAttribute?.('clip-path')) return true;
  return false;
}

const bounded = (low: number, high: number) => ({
  coordinates:
    '<dimension><axis><majorTicks/></axis></dimension><dimension domain="d"><axis><majorTicks/></axis></dimension>',
  rest: `<intervalDomain id="d"><range min="${low}" max="${high}" exact="true"/></intervalDomain>`,
});

describe('symbols', () => {
  const outliers = [10, 11, 12, 11, 12, 13, 11, 12, 20, 30];
  const box = (high: number) =>
    picture(
      { k: outliers.map(() => 1), b: outliers },
      '<schema><x variable="k"/><y variable="b"/><tukeyStatistic/></schema>',
      { categorical: { k: ['one'] }, ...bounded(9, high) },
    );

  test('of outliers are whole within the axis, also where others are outside of it', () => {
    const drawn = box(20);
    const dots = drawn.marks('dot');
    expect(dots.map(isClipped)).toEqual([false]);
    expect(drawn.notes).toContain('1 of 4 values lies outside the y axis.');
  });

  test('of outliers are whole at the bound, but whiskers are cut there', () => {
    const drawn = box(12.5);
    expect(drawn.marks('dot')).toHaveLength(0);
    const links = drawn.marks('link').map(isClipped);
    expect(links.length).toBeGreaterThan(0);
    expect(links).not.toContain(false);
  });

  test('of error bars are whole or left out, and a note counts those', () => {
    const b = [1, 2, 3, 9, 10, 11];
    const drawn = picture(
      { k: [1, 1, 1, 2, 2, 2], b },
      '<interval><summaryStatistic method="7"/><x variable="k"/><y variable="b"/></interval>',
      { categorical: { k: names('ab') }, ...bounded(2, 8) },
    );
    expect(drawn.marks('dot').map(isClipped)).toEqual([false]);
    const links = drawn.marks('link').map(isClipped);
    expect(links.length).toBeGreaterThan(0);
    expect(links).not.toContain(false);
    expect(drawn.notes).toEqual(['3 of 6 values lie outside the y axis.']);
  });

  /** How far the outermost symbols reach beyond the panel, in pixels. */
  function beyond(drawn: Picture): number {
    const panel = drawn.svg.querySelector('g[aria-label="Data"] > rect, g[aria-label^="Panel"] > rect')!;
    const reaches = drawn.marks('dot').flatMap((mark) => {
      const [x, y, r] = [number(mark, 'cx'), number(mark, 'cy'), number(mark, 'r')];
      return [r - x, r - y, x + r - number(panel, 'width'), y + r - number(panel, 'height')];
    });
    return Math.max(...reaches);
  }

  const a = [1, 2, 3, 4, 5, 6, 7, 8];
  const large = '<point style="s1"><x variable="a"/><y variable="a"/></point>';
  const style = '<style id="s1" size="40px"/>';
  const panels =
    '<faceting method="cross"><cross><variableReference ref="k"/><variableReference ref="k"/></cross></faceting>';

  test.each([
    ['', plainAxes],
    [
      'on logarithmic scales',
      `<dimension><scale method="2"/></dimension>${plainAxes.slice(0, plainAxes.length / 2)}`,
    ],
    ['on inverted scales', '<dimension><scale invert="true"/></dimension><dimension/>'],
    ['of transposed charts', `${plainAxes}<transposeTransform/>`],
  ])('do not stick out of panels, however large they are %s', (_, coordinates) => {
    const drawn = picture({ a, k: a.map((each) => (each % 2) + 1) }, large + panels, {
      categorical: { k: names('ab') },
      coordinates,
      rest: style,
    });
    expect(drawn.marks('dot').length).toBeGreaterThan(0);
    expect(beyond(drawn)).toBeLessThanOrEqual(0);
  });

  test('leave bounds that the chart gives where they are', () => {
    const drawn = picture({ a }, large, {
      ...bounded(1, 8),
      rest: style + bounded(1, 8).rest,
    });
    expect(beyond(drawn)).toBeCloseTo(20, 0);
  });
});

describe('low bars of a stack', () => {
  const stack = (g: number[], b: number[], coordinates = plainAxes) =>
    picture(
      { k: g.map(() => 1), g, b },
      '<interval positionModifier="3"><x variable="k"/><y variable="b"/><color variable="g"/></interval>',
      { categorical: { k: ['one'], g: names('uvw') }, coordinates },
    );

  test.each([
    ['height', plainAxes],
    ['width', `${plainAxes}<transposeTransform/>`],
  ])('lie above the outlines of the others (%s)', (side, coordinates) => {
    const drawn = stack([1, 2, 3], [1000, 1, 1000], coordinates);
    const marks = Array.from(drawn.svg.querySelectorAll('g[data-kind="rect"] > *'));
    expect(marks).toHaveLength(3);
    expect(number(marks[2]!, side)).toBeLessThan(2);
    expect(drawn.look(marks[2]!, 'stroke')).toBe('none');
    expect(drawn.look(marks[0]!, 'stroke')).toBe('#ffffff');
    expect(drawn.names()).toContain('v: 1 bar');
  });
});

describe('the legend of error bars', () => {
  test('shows a line with a dot', () => {
    const drawn = picture(
      { k: [1, 1, 1], b: [1, 2, 3] },
      '<interval id="e" name="Means"><summaryStatistic method="7"/><x variable="k"/><y variable="b"/></interval>',
      { categorical: { k: ['one'] }, rest: '<legend><legendTarget target="e"/></legend>' },
    );
    const paths = Array.from(drawn.svg.querySelectorAll('g[aria-label="Legend"] path'));
    expect(paths.map((path) => path.getAttribute('fill'))).toEqual(['none', '#333333']);
  });
});

describe('the box of a legend', () => {
  test('has the same room above and below, and begins where panels do', () => {
    const drawn = picture(
      { a: [1, 2], k: [1, 2] },
      '<point><x variable="a"/><y variable="a"/><color id="c" variable="k"/></point>',
      {
        categorical: { k: names('ab') },
        rest: '<style id="f" color="#ffffff" color2="#000000" padding="4px"/><legend id="l" style="f"><legendTarget target="c"/></legend>',
      },
    );
    const legend = drawn.svg.querySelector('g[aria-label^="Legend"]')!;
    const box = legend.querySelector('rect')!;
    const texts = Array.from(legend.querySelectorAll('text')).map((text) => number(text, 'y'));
    const size = number(legend.querySelector('text')!, 'font-size');
    // Without a title the first entry begins at the padding; texts are about 0.72 of their size high.
    const above = 4 + texts[0]! - size * 0.72;
    const below = number(box, 'height') - (4 + texts[texts.length - 1]!);
    expect(Math.abs(above - below)).toBeLessThan(1.5);
    const top = Number(/,(\d+)/.exec(legend.getAttribute('transform')!)![1]);
    const panel = drawn.svg.querySelector('g[aria-label="Data"]')!;
    const moved = Number(
      /,(\d+)/.exec((panel.parentNode!.parentNode as Element).getAttribute('transform')!)![1],
    );
    expect(top).toBe(moved);
  });
});

describe('the figures of a pie', () => {
  const pie = (labeling: string, rest: string) =>
    picture(
      { k: [1, 1, 2] },
      `<interval positionModifier="3"><summaryStatistic method="3"/><color id="c" variable="k"/>${labeling}</interval>`,
      {
        categorical: { k: names('ab') },
        coordinates: '<dimension/><dimension/><transposeTransform/><polarTransform/>',
        rest: `${rest}<legend tickTextStyle="t"><legendTarget target="c"/></legend><style id="t" font_size="30px" font_family="serif"/>`,
      },
    );
  const figure = (drawn: Picture) => drawn.svg.querySelector('g[aria-label="Shares"] text')!;

  test('look like labels of data, else like the texts of the legend', () => {
    const alike = figure(pie('', ''));
    expect(alike.getAttribute('font-size')).toBe('30');
    expect(alike.getAttribute('font-family')).toContain('Times');
    const own = figure(pie('<labeling variable="k" style="u"/>', '<style id="u" font_size="20px"/>'));
    expect(own.getAttribute('font-size')).toBe('20');
  });

  test('leave the pie as much room as they do not need', () => {
    const radius = (drawn: Picture) =>
      Number(/A([\d.]+)/.exec(drawn.marks('slice')[0]!.getAttribute('d')!)![1]);
    const small = pie('<labeling variable="k" style="u"/>', '<style id="u" font_size="10px"/>');
    expect(radius(pie('', ''))).toBeLessThan(radius(small) - 15);
  });
});
