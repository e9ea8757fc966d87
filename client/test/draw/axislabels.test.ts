import { describe, expect, test } from 'vitest';
import { ownTexts } from '../../src/draw/compile/looks.js';
import { textWidth } from '../../src/draw/svg/text.js';
import { number, picture, type Picture } from './chart.js';

const pageWidth = 625;
const counted = '<interval><x variable="k"/><summaryStatistic method="10"/></interval>';

/** Bars of categories with these names. */
const bars = (names: string[], ticks = '', transform = '') =>
  picture({ k: names.map((_, at) => at + 1) }, counted, {
    categorical: { k: names },
    coordinates: `<dimension><axis><majorTicks ${ticks}/></axis></dimension><dimension/>${transform}`,
  });

/** Points along numbers, whose variable has that format. */
const points = (a: number[], ticks: string, format = '', rest = '') =>
  picture({ a, b: a }, '<point><x variable="v"/><y variable="b"/></point>', {
    coordinates: `<dimension domain="d"><axis><majorTicks ${ticks}/></axis></dimension><dimension/>`,
    rest: `<sourceVariable id="v" source="s" sourceName="a"><format ${format}</format></sourceVariable>${rest}`,
  });

const exact = (low: number, high: number) =>
  `<intervalDomain id="d"><range min="${low}" max="${high}" exact="true"/></intervalDomain>`;

const labels = (drawn: Picture) => Array.from(drawn.svg.querySelectorAll('g[aria-label="x axis"] text'));

const shiftOf = (element: Element) =>
  Number(/translate\(([\d.-]+)/.exec(element.getAttribute('transform') ?? '')?.[1] ?? 0);

/** Where something stands from the left of the page. */
function leftOf(element: Element): number {
  let place = 0;
  for (let node = element; node.nodeType === 1 && node.localName !== 'svg'; node = node.parentNode as Element)
    place += shiftOf(node);
  return place;
}

const panel = (drawn: Picture) => drawn.svg.querySelector('g[aria-label="Data"] rect')!;
const numbered = (count: number, name: string) => Array.from({ length: count }, (_, at) => `${name} ${at}`);

describe('names below an axis', () => {
  test('stand whole in one line where there is room', () => {
    const long = ['A name of some forty letters, in one line', 'Another of some forty letters, in one line'];
    const drawn = bars(long);
    expect(drawn.textsOf('x axis')).toEqual(long);
    expect(drawn.svg.querySelectorAll('g[aria-label="x axis"] tspan')).toHaveLength(0);
    expect(drawn.notes).toEqual([]);
  });

  test('do not reach into the next ones, however short these are', () => {
    const drawn = bars(['AnUnbreakableNameOfManyLettersThatIsWide', 'B', 'C', 'D', 'E', 'F']);
    for (const label of labels(drawn)) expect(label.getAttribute('transform')).toContain('rotate');
  });

  test('stand in lines before they are turned', () => {
    const name = 'Letters standing upright';
    const three = bars(Array.from({ length: 8 }, (_, at) => `${name} ${at}`));
    for (const label of labels(three)) {
      expect(label.getAttribute('transform')).toBeNull();
      expect(label.querySelectorAll('tspan')).toHaveLength(3);
    }
    const more = bars(Array.from({ length: 8 }, (_, at) => `Rather upright letters stand ${at}`));
    for (const label of labels(more)) expect(label.getAttribute('transform')).toContain('rotate');
  });

  test('stand in two rows where the chart wants that, and take the room of both', () => {
    const names = numbered(12, 'Number');
    const [plain, staggered] = [bars(['a', 'b']), bars(names, 'stagger="true"')];
    expect(staggered.textsOf('x axis')).toEqual(names);
    const heights = [...new Set(labels(staggered).map((label) => number(label, 'y')))];
    expect(heights).toHaveLength(2);
    expect(heights[1]! - heights[0]!).toBeCloseTo(15, 1);
    expect(number(panel(plain), 'height') - number(panel(staggered), 'height')).toBeCloseTo(15, 1);
  });

  test('that the chart turns run against the clock', () => {
    for (const label of labels(bars(['one', 'two'], 'labelAngle="45"')))
      expect(label.getAttribute('transform')).toContain('rotate(-45)');
  });

  test('that are turned by a half circle stand upright', () => {
    for (const label of labels(bars(['one', 'two'], 'labelAngle="180"')))
      expect(label.getAttribute('transform')).toBeNull();
  });

  test('are of those alone that the chart asks for where there is room for fewer', () => {
    const names = numbered(90, 'Name');
    const shown = bars(names, 'labelFrequency="4" labelAngle="90"').textsOf('x axis');
    expect(shown.length).toBeGreaterThan(5);
    for (const text of shown) expect(names.indexOf(text) % 4).toBe(0);
    const fewer = bars(names, 'labelFrequency="2" labelAngle="30"').textsOf('x axis');
    expect(fewer.length).toBeLessThan(45);
    for (const text of fewer) expect(names.indexOf(text) % 2).toBe(0);
  });

  test('take room beside the panel at the end where they begin alone', () => {
    const drawn = bars(numbered(4, 'A name of some length that is turned'), 'labelAngle="45"');
    expect(pageWidth - leftOf(panel(drawn)) - number(panel(drawn), 'width')).toBeLessThan(20);
    expect(leftOf(panel(drawn))).toBeGreaterThan(60);
  });

  test('beside an axis have three lines where only some of them are shown', () => {
    const names = numbered(30, 'A name with so many words that it needs three lines, and not one less');
    const drawn = bars(names, 'labelFrequency="5"', '<transposeTransform/>');
    expect(labels(drawn)).toHaveLength(6);
    for (const label of labels(drawn)) expect(label.querySelectorAll('tspan').length).toBeGreaterThan(1);
  });
});

describe('numbers below an axis', () => {
  test('are whole on the page, also at its right', () => {
    const drawn = points([0, 1], 'delta="1"', 'suffix=" of a unit with a long name">', exact(0, 1));
    const [, last] = labels(drawn);
    expect(last!.textContent).toBe('1 of a unit with a long name');
    // Some 150 pixels wide.
    expect(leftOf(last!) + number(last!, 'x') + 70).toBeLessThan(pageWidth);
  });

  test('have the texts that their variable has for them', () => {
    expect(points([1, 2, 3], 'delta="1"', '><relabel from="2" to="two"/>').textsOf('x axis')).toEqual([
      '1',
      'two',
      '3',
    ]);
  });

  test('at a base of many decimals have three of them', () => {
    expect(points([0, 3], 'delta="1" base="0.123456"', '>', exact(0, 3)).textsOf('x axis')).toEqual([
      '0.123',
      '1.123',
      '2.123',
    ]);
  });

  test('are never nearer to each other than 8 pixels', () => {
    for (let digits = 1; digits < 60; digits += 1) {
      const suffix = 'i'.repeat(digits);
      const shown = labels(points([0, 10], 'delta="1"', `suffix="${suffix}">`, exact(0, 10)));
      const ends = shown.map((label) => {
        const half = textWidth(label.textContent!, ownTexts.tickLabel) / 2;
        return { from: number(label, 'x') - half, to: number(label, 'x') + half };
      });
      ends.slice(1).forEach(({ from }, at) => expect(from - ends[at]!.to).toBeGreaterThanOrEqual(7.9));
    }
  });

  test('have no marks where the chart gives these a length below 0', () => {
    const marks = (length: string) =>
      points([0, 3], `length="${length}"`, '>').svg.querySelectorAll('g[aria-label="x axis"] path[d*=" v"]');
    expect(marks('3px')).toHaveLength(1);
    expect(marks('-3px')).toHaveLength(0);
  });

  test('that their variable gives one text stand at the first of them', () => {
    const low = '><relabel from="1" to="low"/><relabel from="2" to="low"/>';
    expect(points([1, 2, 3], 'delta="1"', low).textsOf('x axis')).toEqual(['low', '3']);
  });

  test('go by a base that is a share of the axis, wherever that begins', () => {
    const texts = points([10, 14], 'delta="3" base="50%"', '>', exact(10, 14)).textsOf('x axis');
    expect(texts).toEqual(['12']);
  });

  test('are the usual ones where the chart wants more of them than there are pixels', () => {
    const usual = points([0, 4], '', '>').textsOf('x axis');
    const fine = points([0, 4], 'delta="0.0001"', '>');
    expect(fine.textsOf('x axis')).toEqual(usual);
    expect(fine.notes).toEqual(['Ticks along x do not have the distance that the chart wants.']);
  });

  test('stand at both ends of a range of whole steps', () => {
    const texts = points([1.1, 2.3], 'delta="0.1"', '>', exact(1.1, 2.3)).textsOf('x axis');
    expect(texts[0]).toBe('1.1');
    const upTo = points([0.1, 0.3], 'delta="0.1"', '>', exact(0.1, 0.3)).textsOf('x axis');
    expect(upTo).toEqual(['0.1', '0.2', '0.3']);
  });
});

describe('numbers of a logarithmic axis', () => {
  const upwards = (b: number[], format = '') =>
    picture({ a: b, b }, '<point><x variable="a"/><y variable="v"/></point>', {
      coordinates: '<dimension/><dimension><scale method="2"/><axis><majorTicks/></axis></dimension>',
      rest: `<sourceVariable id="v" source="s" sourceName="b">${format}</sourceVariable>`,
    }).textsOf('y axis');

  test('stand between the powers where there are only two of these', () => {
    expect(upwards([1, 50])).toEqual(['1', '2', '5', '10', '20', '50']);
  });

  test('have the texts that their variable has for them, and then no powers', () => {
    const texts = upwards([1, 1e6], '<format><relabel from="1" to="one"/></format>');
    expect(texts[0]).toBe('one');
    expect(texts).toContain('1,000,000');
  });
});

test('an upright axis has a label for two lines and a half of its length', () => {
  const drawn = picture({ a: [0, 10], b: [0, 10] }, '<point><x variable="a"/><y variable="b"/></point>', {
    rest: '<location part="5" method="0" value="160px"/>',
  });
  const count = drawn.textsOf('y axis').length;
  expect(number(panel(drawn), 'height') / count).toBeGreaterThan(2.5 * 15 - 10);
  expect(count).toBeGreaterThanOrEqual(3);
});

describe('titles of axes', () => {
  const titled = (inner: string, title = 'The title') =>
    picture(
      { a: [1, 2], b: [1, 2] },
      '<point><x variable="a"/><y variable="b"/></point><facetLayout cellAspect="0.3"/>',
      {
        coordinates: `<dimension><axis><label><text>${title}</text></label>${inner}</axis></dimension><dimension/>`,
      },
    );
  const bottom = (drawn: Picture) => {
    const group = panel(drawn).parentNode as Element;
    return (
      Number(/,([\d.]+)\)/.exec((group.parentNode!.parentNode as Element).getAttribute('transform')!)![1]) +
      number(panel(drawn), 'height')
    );
  };

  test('that are longer than their panel stay on the page', () => {
    const long = 'A title that is a good deal longer than the narrow panel is wide';
    const drawn = titled('<majorTicks/>', long);
    const title = Array.from(drawn.svg.querySelectorAll('text')).find((text) => text.textContent === long)!;
    const half = textWidth(long, ownTexts.axisLabel) / 2;
    const middle = leftOf(title) + number(title, 'x');
    expect(middle - half).toBeGreaterThan(0);
    expect(middle + half).toBeLessThan(pageWidth);
  });

  test('stand near their axis where that has no labels', () => {
    expect(bottom(titled(''))).toBeGreaterThan(bottom(titled('<majorTicks/>')) + 15);
  });
});
