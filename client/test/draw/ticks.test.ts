import { describe, expect, test } from 'vitest';
import { labelsBeside } from '../../src/draw/axes/neighbours.js';
import { layoutUpright } from '../../src/draw/axes/ticklabels.js';
import type { Direction } from '../../src/draw/compile/directions.js';
import { ownTexts } from '../../src/draw/compile/looks.js';
import { withFunctions } from '../../src/draw/compile/scales.js';
import { textLook } from '../../src/draw/svg/text.js';
import { chartText, Picture, picture, tableOf, variables, plainAxes } from './chart.js';

const points = '<point id="p"><x variable="whole"/><y variable="b"/></point>';
const whole = (source: string, id = 'whole') =>
  `<sourceVariable id="${id}" source="s" sourceName="${source}" label="the ${source}"><format maximumFractionDigits="0"/></sourceVariable>`;
const along = (a: number[]) => picture({ a, b: a }, points, { rest: whole('a') }).textsOf('x axis');

describe('numbers at ticks', () => {
  test('are no finer than their decimals', () => {
    expect(along([1, 2, 3, 4])).toEqual(['1', '2', '3', '4']);
    expect(along([7, 7, 7])).toEqual(['6', '7', '8']);
  });

  test('have more decimals where else there would be no scale', () => {
    const texts = along([7.1, 7.2, 7.3]);
    expect(texts.length).toBeGreaterThan(1);
    expect(new Set(texts).size).toBe(texts.length);
    expect(texts.map(Number)).toContain(7.2);
  });

  test('stand only where their texts are true, with ticks that the chart asks for', () => {
    const drawn = picture({ a: [1, 2, 3], b: [1, 2, 3] }, points, {
      rest: whole('a'),
      coordinates: '<dimension><axis><majorTicks delta="0.5"/></axis></dimension><dimension/>',
    });
    expect(drawn.textsOf('x axis')).toEqual(['1', '2', '3']);
  });

  test('are no finer than their decimals in a range of colours', () => {
    const ramp = (w: number[]) =>
      picture(
        { a: w, b: w, w },
        '<point id="p"><x variable="a"/><y variable="b"/><color id="c" variable="whole"/></point>',
        { rest: `${whole('w')}<legend id="l"><legendTarget target="c"/></legend>` },
      ).textsOf('Legend');
    expect(ramp([1, 2, 3])).toEqual(['1', '2', '3']);
    expect(ramp([7, 7, 7])).toEqual(['7']);
  });

  test('too small to be told apart by a step are the two bounds', () => {
    const drawn = picture({ a: [0, 1, 2], b: [0, 4e-320, 9e-320] }, points, { rest: whole('a') });
    expect(drawn.textsOf('y axis')).toHaveLength(2);
    expect(drawn.notes).toEqual([]);
  });

  test('that are huge have exponents, whatever their format says', () => {
    const body = `<graph>${'<point><x variable="a"/><y variable="whole"/></point>'}<coordinates>${plainAxes}</coordinates></graph>${variables({ a: 1, b: 1 })}${whole('b')}`;
    const drawn = new Picture(chartText(body), tableOf({ a: [1, 2], b: [0, 1e300] }));
    const texts = drawn.textsOf('y axis');
    expect(texts).toContain('1e300');
    expect(texts).toContain('2e299');
  });

  test('keep what a pattern has before and behind them where its decimals are too few', () => {
    const ticks = (a: number[], format: string) =>
      picture({ a, b: a }, points, {
        rest: whole('a').replace('maximumFractionDigits="0"', format),
      }).textsOf('x axis');
    expect(ticks([7.1, 7.2, 7.3], 'pattern="$#,##0"')).toContain('$7.20');
    expect(ticks([7.1, 7.2, 7.3], 'pattern="0 kg" prefix="~"')).toContain('~7.20 kg');
    expect(ticks([0.001, 0.002, 0.003], 'pattern="0%"')).toContain('0.20%');
    expect(ticks([1234.1, 1234.2, 1234.3], 'pattern="#,##0"')).toContain('1,234.20');
  });

  test('from ten thousand on stand in groups of digits, unless their format says otherwise', () => {
    const ticks = (a: number[], format = '') =>
      picture({ a, b: a }, points, {
        rest: whole('a').replace('maximumFractionDigits="0"', format),
      }).textsOf('x axis');
    expect(ticks([0, 20_000])).toContain('5,000');
    expect(ticks([-20_000, 0])).toContain('\u221220,000');
    expect(ticks([0, 9_000])).toContain('8000');
    expect(ticks([0, 20_000], 'useGrouping="false"')).toContain('5000');
    expect(ticks([0, 20_000], 'pattern="0"')).toContain('5000');
  });

  test('stand at their base', () => {
    const based = (settings: string, a = [0, 1, 2, 3, 4], extent = '<range min="0" max="4" exact="true"/>') =>
      picture({ a, b: a }, points.replace('whole', 'a'), {
        coordinates: `<dimension domain="d"><axis><majorTicks ${settings}/></axis></dimension><dimension/>`,
        rest: `<intervalDomain id="d">${extent}</intervalDomain>`,
      });
    const texts = (settings: string) => based(settings).textsOf('x axis');
    expect(texts('delta="1" base="0.25"')).toEqual(['0.25', '1.25', '2.25', '3.25']);
    expect(texts('delta="1.5" base="50%"')).toEqual(['0.5', '2.0', '3.5']);
    expect(texts('base="0.2"')).toEqual(['0.2', '0.7', '1.2', '1.7', '2.2', '2.7', '3.2', '3.7']);
    expect(texts('base="0"')).toEqual(based('').textsOf('x axis'));
    const millions = based('delta="1" base="2000000"', [2e6, 2e6 + 4], '');
    expect(millions.textsOf('x axis')).toContain('2,000,000');
    expect(millions.notes).toEqual([]);
    expect(based('base="soon"').notes).toEqual([
      'Ticks along x do not stand at the base that the chart wants.',
    ]);
  });

  test('have the decimals between them, whatever is the least that values have', () => {
    const format = 'maximumFractionDigits="16" minimumFractionDigits="16"';
    const rest = whole('a').replace('maximumFractionDigits="0"', format);
    const texts = picture({ a: [0, 0.1, 0.2], b: [1, 2, 3] }, points, { rest }).textsOf('x axis');
    expect(texts).toContain('0.10');
    expect(texts.every((text) => text.length === 4)).toBe(true);
    const ramp = picture(
      { a: [0, 30], b: [0, 30] },
      '<point id="p"><x variable="a"/><y variable="b"/><color id="c" variable="whole"/></point>',
      { rest: `${rest}<legend id="l"><legendTarget target="c"/></legend>` },
    );
    expect(ramp.textsOf('Legend')).toEqual(['0', '5', '10', '15', '20', '25', '30']);
  });

  const upwards = (b: number[], format = '', scale = '') =>
    picture({ a: b.map((_, at) => at), b }, '<point><x variable="a"/><y variable="v"/></point>', {
      rest: `<sourceVariable id="v" source="s" sourceName="b">${format}</sourceVariable>`,
      coordinates: `<dimension/><dimension>${scale}<axis><majorTicks/></axis></dimension>`,
    }).textsOf('y axis');

  test('have exponents all together, with a plain 0', () => {
    const tiny = upwards([0, 4e-6, 8e-6].map((value) => value / 10));
    expect(tiny[0]).toBe('0');
    expect(tiny.slice(1).every((text) => /^[\d.]+e-7$/.test(text))).toBe(true);
    const limited = upwards([0, 4e-9], '<format maximumFractionDigits="16"/>');
    expect(limited[0]).toBe('0');
    expect(limited[1]).toContain('e-');
    const huge = upwards([0, 3e12], '<format useGrouping="false"/>');
    expect(huge).toEqual(['0', '5e11', '1e12', '1.5e12', '2e12', '2.5e12', '3e12']);
    expect(upwards([0, 3e12], '<format useGrouping="true"/>')).toContain('3,000,000,000,000');
    expect(upwards([0, 3e12], '<format pattern="0"/>')).toContain('3000000000000');
  });

  test('show nothing of how numbers are stored', () => {
    const texts = upwards([100000, 100000.01]);
    expect(texts.every((text) => /^100,000\.\d{3}$/.test(text))).toBe(true);
  });

  test('have their thousands set apart from 10,000 on, unless the format says', () => {
    expect(upwards([0, 20000])).toEqual(expect.arrayContaining(['0', '5,000', '10,000', '20,000']));
    expect(upwards([0, 20000], '<format useGrouping="false"/>')).toContain('15000');
    expect(upwards([0, 20000], '<format pattern="0"/>')).toContain('15000');
    expect(upwards([0, 2000])).toContain('1500');
  });

  test('of a logarithmic scale are powers where any has many digits', () => {
    const log = '<scale method="2"/>';
    expect(upwards([1, 1e6], '', log)).toEqual([
      '10\u2070',
      '10\u00b9',
      '10\u00b2',
      '10\u00b3',
      '10\u2074',
      '10\u2075',
      '10\u2076',
    ]);
    expect(upwards([1e-6, 1], '', log)[0]).toBe('10\u207b\u2076');
    expect(upwards([1, 1e4], '', log)).toContain('10,000');
    expect(upwards([1, 1e6], '<format useGrouping="true"/>', log)).toContain('1,000,000');
    expect(upwards([1, 1e6], '<format suffix=" m"/>', log)).toContain('10\u00b3 m');
    const twos = upwards([2 ** -10, 2 ** 20], '', '<scale method="2" base="2"/>');
    expect(twos).toContain('2\u2070');
    expect(twos.every((text) => /^2[\u207b\u00b9\u00b2\u00b3\u2070-\u2079]+$/.test(text))).toBe(true);
    expect(upwards([0.01, 100], '', log)).toEqual(['0.01', '0.1', '1', '10', '100']);
  });

  test('are nine at most along an upright axis', () => {
    const counts = Array.from({ length: 60 }, (_, at) => upwards([0, 10 + at * 7]).length);
    expect(Math.max(...counts)).toBeLessThanOrEqual(9);
    expect(Math.min(...counts)).toBeGreaterThanOrEqual(4);
  });

  test('are several where there is one value', () => {
    const points = (b: number, format = '<format maximumFractionDigits="0"/>') => upwards([b, b, b], format);
    expect(points(5)).toEqual(['4', '5', '6']);
    expect(points(0)).toEqual(['\u22121', '0', '1']);
    expect(points(1000).length).toBeGreaterThan(2);
    expect(points(1000)).toContain('1000');
    expect(points(0.25, '')).toContain('0.250');
    expect(points(0.001, '<format maximumFractionDigits="3"/>')).toEqual(['0.000', '0.001', '0.002']);
  });

  test('of counts are whole, and have no decimals', () => {
    const counts = (a: number[]) =>
      picture({ a }, '<interval><x variable="a"/><binStatistic width="10"/></interval>')
        .textsOf('Count axis')
        .filter((text) => text !== 'Count');
    expect(counts([1, 2, 12])).toEqual(['0', '1', '2']);
    expect(counts([1])).toEqual(['0', '1']);
    expect(counts(Array.from({ length: 30 }, () => 1))).toEqual(['0', '5', '10', '15', '20', '25', '30']);
  });

  test('are never cut where they stand upright', () => {
    const format = '<format minimumFractionDigits="14" suffix=" of a unit with a long name"/>';
    const drawn = picture({ a: [1, 2], b: [0, 1] }, '<point><x variable="a"/><y variable="b"/></point>', {
      coordinates: `<dimension/><dimension><axis><majorTicks delta="1">${format}</majorTicks></axis></dimension>`,
    });
    expect(drawn.textsOf('y axis')[1]).toBe('1.00000000000000 of a unit with a long name');
    expect(
      drawn.svg.querySelectorAll('g[aria-label="the b axis"] tspan, g[aria-label="y axis"] tspan'),
    ).toHaveLength(0);
  });
});

describe('axes have two labels at least where these have room', () => {
  const panels = (count: number, coordinates = plainAxes, side = '') =>
    picture(
      {
        a: Array.from({ length: 2 * count }, (_, at) => (at % 2 === 0 ? 172 : 233)),
        b: Array.from({ length: 2 * count }, (_, at) => (at % 2 === 0 ? 0.4 : 9.6)),
        k: Array.from({ length: 2 * count }, (_, at) => Math.floor(at / 2) + 1),
      },
      `<point><x variable="a"/><y variable="b"/></point><faceting><cross>${side}<variableReference ref="k"/></cross></faceting>`,
      {
        categorical: { k: Array.from({ length: count }, (_, at) => `${at + 1}`) },
        coordinates,
      },
    );

  test('on each of several panels', () => {
    expect(panels(3).textsOf('x axis')).toEqual(['180', '200', '220']);
    expect(panels(7).textsOf('x axis').length).toBeGreaterThanOrEqual(2);
  });

  test('on upright axes, too', () => {
    for (const rows of [3, 5, 7, 9])
      expect(panels(rows, plainAxes, '<unity/>').textsOf('y axis').length).toBeGreaterThanOrEqual(2);
  });
});

describe('where not all labels of numbers have room', () => {
  const look = textLook({}, ownTexts.tickLabel);
  const upright = (values: number[], domain: [number, number], length: number) => {
    const direction = { name: 'y', kind: 'number' } as Direction;
    const scale = withFunctions({ direction, domain, method: 'linear', base: 1, inverted: false });
    const ticks = values.map((value) => ({ value, text: `${value}` }));
    return { scale, layout: layoutUpright({ ticks, scale, length, settings: null, look, mostDepth: 100 }) };
  };

  test('multiples of the step between them stay', () => {
    const shown = (values: number[]) =>
      upright(values, [values[0]! - 1, values[values.length - 1]! + 1], 55).layout.lines.flat();
    expect(shown([2, 4, 6, 8])).toEqual(['4', '8']);
    expect(shown([-2, -1, 0, 1, 2, 3, 4])).toEqual(['0', '3']);
    expect(shown([60, 70, 80, 90, 100, 110, 120])).toEqual(['60', '80', '100', '120']);
  });

  test('a 0 stays beside those of the next panel', () => {
    const { scale, layout } = upright([0, 20, 40, 60], [0, 60.5], 100);
    const neighbours = { count: 3, gap: 5, mirrored: false, turned: false };
    const labels = labelsBeside(layout, scale, 100, true, look, neighbours);
    expect([0, 1, 2].map((index) => labels(index).lines.flat())).toEqual([
      ['0', '20', '40'],
      ['0', '20', '40'],
      ['0', '20', '40'],
    ]);
  });
});

describe('labels of categories', () => {
  const bars = (texts: string[]) =>
    picture(
      { k: texts.map((_, at) => at + 1) },
      '<interval><x variable="k"/><summaryStatistic method="10"/></interval>',
      {
        categorical: { k: texts },
        coordinates: '<dimension><axis><majorTicks/></axis></dimension><dimension/>',
      },
    );

  test('have room at the left of their axis when they are turned', () => {
    const drawn = bars(Array.from({ length: 20 }, (_, at) => `Category number ${at + 1}`));
    const group = drawn.svg.querySelector('g[aria-label="x axis"]')!;
    const first = group.querySelector('text')!.getAttribute('transform')!;
    expect(first).toContain('rotate(-45)');
    let place = Number(/translate\(([\d.-]+)/.exec(first)![1]);
    for (let node = group.parentNode as Element; node.getAttribute; node = node.parentNode as Element) {
      place += Number(/translate\(([\d.-]+)/.exec(node.getAttribute('transform') ?? '')?.[1] ?? 0);
      if (node.localName === 'svg') break;
    }
    // "Category number 1" is about 90 pixels wide.
    expect(place).toBeGreaterThan(90 * Math.SQRT1_2);
  });

  test('are smaller where all of them have room then', () => {
    const sizes = (count: number) => {
      const drawn = bars(Array.from({ length: count }, (_, at) => `Station number ${at}`));
      const labels = Array.from(drawn.svg.querySelectorAll('g[aria-label="x axis"] text'));
      return { count: labels.length, size: Number(labels[0]!.getAttribute('font-size')), notes: drawn.notes };
    };
    expect(sizes(20)).toEqual({ count: 20, size: 12, notes: [] });
    expect(sizes(60)).toEqual({ count: 60, size: 9, notes: [] });
    const many = sizes(90);
    expect(many.size).toBe(12);
    expect(many.notes).toEqual([`${90 - many.count} labels of the axis x have no room.`]);
  });

  test('are smaller, in up to five lines, rather than shortened', () => {
    const names = [
      'Administrative and support and waste management services',
      'Agriculture, forestry, fishing and hunting',
      'Mining, quarrying, and oil and gas extraction',
      'Professional, scientific and technical services',
      'Educational services',
      'Health care and social assistance',
      'Arts, entertainment and recreation',
      'Real estate and rental and leasing',
    ];
    const drawn = bars(names);
    expect(drawn.notes).toEqual([]);
    const labels = Array.from(drawn.svg.querySelectorAll('g[aria-label="x axis"] text'));
    expect(labels).toHaveLength(8);
    const size = Number(labels[0]!.getAttribute('font-size'));
    expect(size).toBeLessThan(12);
    expect(size).toBeGreaterThanOrEqual(9);
    const lines = labels[0]!.querySelectorAll('tspan').length;
    expect(lines).toBeGreaterThan(3);
    expect(lines).toBeLessThanOrEqual(5);
  });

  test('stand beside each of forty bars that lie', () => {
    const names = Array.from({ length: 40 }, (_, at) => `Station number ${at}`);
    const drawn = picture(
      { k: names.map((_, at) => at + 1) },
      '<interval><x variable="k"/><summaryStatistic method="10"/></interval>',
      { categorical: { k: names }, coordinates: `${plainAxes}<transposeTransform/>` },
    );
    expect(drawn.textsOf('x axis')).toHaveLength(40);
    expect(drawn.notes).toEqual([]);
  });

  test('are thinned with their ticks where these would merge', () => {
    const marks = (count: number) => {
      const drawn = bars(Array.from({ length: count }, (_, at) => `${at}`));
      const d = drawn.svg.querySelector('g[aria-label="x axis"] path[d*=" v"]')!.getAttribute('d')!;
      return { marks: d.split('M').length - 1, labels: drawn.textsOf('x axis').length };
    };
    const many = marks(1000);
    expect(many.labels).toBeGreaterThan(10);
    expect(many.marks).toBe(many.labels);
    expect(marks(40).marks).toBe(40);
  });
});

test('labels of neighbouring panels stand at their ticks, 8 pixels apart', () => {
  const drawn = picture(
    { a: [0, 60, 0, 60, 0, 60, 0, 60], b: [1, 2, 3, 4, 5, 6, 7, 8], k: [1, 1, 2, 2, 3, 3, 4, 4] },
    '<point><x variable="a"/><y variable="b"/></point><faceting><cross><variableReference ref="k"/></cross></faceting><facetLayout><facetLevel level="1" gap="4px"/></facetLayout>',
    {
      categorical: { k: ['one', 'two', 'three', 'four'] },
      coordinates:
        '<dimension domain="d"><axis><majorTicks delta="60"><format suffix=" miles"/></majorTicks></axis></dimension><dimension/>',
      rest: '<intervalDomain id="d"><range min="0" max="60" exact="true"/></intervalDomain>',
    },
  );
  const group = drawn.svg.querySelector('g[aria-label="x axis"]')!;
  const texts = Array.from(group.querySelectorAll('text'));
  const marks = group.querySelector('path[d*=" v"]')!.getAttribute('d')!;
  const places = marks.match(/M([\d.]+)/g)!.map((each) => Number(each.slice(1)));
  expect(texts).toHaveLength(1);
  const x = Number(texts[0]!.getAttribute('x'));
  expect(Math.min(...places.map((place) => Math.abs(place - x)))).toBeLessThan(0.1);
});

describe('labels of panels', () => {
  const panels = (texts: string[]) =>
    picture(
      { a: texts.map(() => 1), b: texts.map(() => 1), k: texts.map((_, at) => at + 1) },
      '<point><x variable="a"/><y variable="b"/></point><faceting><cross><variableReference ref="k"/></cross></faceting>',
      { categorical: { k: texts } },
    );
  const group = (drawn: Picture) => drawn.svg.querySelector('g[aria-label="Columns of panels"]')!;

  test('are wrapped, or turned, before they are shortened', () => {
    const names = Array.from({ length: 8 }, (_, at) => `Group number ${at + 1}`);
    const wrapped = group(panels(names));
    expect(wrapped.querySelectorAll('tspan').length).toBeGreaterThan(8);
    expect(wrapped.textContent).not.toContain('\u2026');
    const turned = panels(names.map((name) => name.replace(/ /g, '_')));
    expect(turned.textsOf('Columns of panels')[0]).toBe('Group_number_1');
    expect(group(turned).querySelector('text')!.getAttribute('transform')).toContain('rotate(-90)');
    expect(turned.notes).toEqual([]);
  });

  test('are turned over narrow panels, however large they are', () => {
    const names = Array.from({ length: 20 }, (_, at) => `Province ${at + 1}`);
    const at = names.map((_, index) => index + 1);
    const drawn = picture(
      { a: at, b: at, k: at },
      '<point><x variable="a"/><y variable="b"/></point><faceting><cross><variableReference ref="k"/></cross></faceting><facetLayout><facetLevel level="1"><axis><majorTicks style="t"/></axis></facetLevel></facetLayout>',
      { categorical: { k: names }, rest: '<style id="t" font_size="24px"/>' },
    );
    expect(drawn.notes).toEqual([]);
    const [first] = Array.from(group(drawn).querySelectorAll('text'));
    expect(first!.getAttribute('transform')).toContain('rotate(-90)');
  });

  test('are smaller, in up to five lines, before they are shortened', () => {
    const long = 'administrative support and management of waste, with all services of the sector';
    const names = [1, 2, 3, 4].map((at) => `${at} ${long}`);
    const drawn = picture(
      { a: [1, 2, 3, 4], b: [1, 2, 3, 4], k: [1, 2, 3, 4] },
      '<point><x variable="a"/><y variable="b"/></point><faceting><cross><variableReference ref="k"/></cross></faceting><facetLayout><facetLevel level="1"><axis><majorTicks style="t"/></axis></facetLevel></facetLayout>',
      { categorical: { k: names }, rest: '<style id="t" font_size="22px"/>' },
    );
    expect(drawn.notes).toEqual([]);
    const [first] = Array.from(group(drawn).querySelectorAll('text'));
    expect(first!.querySelectorAll('tspan').length).toBeGreaterThan(3);
  });

  test('are noted where they are shortened', () => {
    const drawn = panels(Array.from({ length: 8 }, (_, at) => `${at}_${'long'.repeat(30)}`));
    expect(drawn.notes.join()).toContain('shortened');
    const [first] = Array.from(group(drawn).querySelectorAll('title'));
    expect(first!.textContent).toBe(`0_${'long'.repeat(30)}`);
  });
});

/** The room of a text along its axis, and what it says; of texts that are not turned. */
function roomsAlong(group: Element, widthOf: (text: string) => number, startOf: number) {
  return Array.from(group.querySelectorAll('text')).map((text) => {
    const middle = startOf + Number(text.getAttribute('x'));
    const half = widthOf(text.textContent ?? '') / 2;
    return { text: text.textContent ?? '', from: middle - half, to: middle + half };
  });
}

const shiftOf = (element: Element) =>
  Number(/translate\(([\d.-]+)/.exec(element.getAttribute('transform') ?? '')?.[1] ?? 0);

describe('labels of panels that touch', () => {
  const texts = ['one', 'two', 'three', 'four'];
  const panels = (ticks: string, rest: string, x = 'a', extra = '', columns = 4) =>
    picture(
      {
        a: [0, 60, 0, 60, 0, 60, 0, 60],
        b: [1, 2, 3, 4, 5, 6, 7, 8],
        c: [1, 2, 1, 2, 1, 2, 1, 2],
        k: [1, 1, 2, 2, 3, 3, 4, 4].map((code) => ((code - 1) % columns) + 1),
      },
      `<point><x variable="${x}"/><y variable="b"/></point><faceting><cross><variableReference ref="k"/></cross></faceting><facetLayout><facetLevel level="1" gap="0%"/></facetLayout>`,
      {
        categorical: { k: texts, c: ['a rather long name', 'another long name'] },
        coordinates: `<dimension domain="d"><axis><majorTicks ${ticks}</majorTicks></axis></dimension><dimension/>${extra}`,
        rest,
      },
    );
  const range = '<intervalDomain id="d"><range min="0" max="60" exact="true"/></intervalDomain>';
  const wider = range.replace('min="0" max="60"', 'min="-1" max="61"');
  const axes = (drawn: Picture) => Array.from(drawn.svg.querySelectorAll('g[aria-label="x axis"]'));
  const written = (drawn: Picture) =>
    axes(drawn).map((axis) => Array.from(axis.querySelectorAll('text')).map((text) => text.textContent));

  test('stand once at the edge that they share, and all of them at the outer ones', () => {
    const drawn = panels('delta="30">', range);
    expect(written(drawn)).toEqual([
      ['0', '30'],
      ['0', '30'],
      ['0', '30'],
      ['0', '30', '60'],
    ]);
  });

  test('keep 8 pixels from each other', () => {
    const wide = panels('delta="20"><format suffix=" m"/>', wider);
    const rooms = axes(wide).flatMap((axis) =>
      roomsAlong(axis, (text) => text.length * 6, shiftOf(axis.parentNode as Element)),
    );
    rooms.slice(1).forEach((room, at) => expect(room.from - rooms[at]!.to).toBeGreaterThanOrEqual(8));
  });

  test('of mirrored panels stand once where both begin', () => {
    const mirror = '<reflectionTransform dimension="0" alternating="true"/>';
    expect(written(panels('delta="30">', range, 'a', mirror, 2))).toEqual([
      ['0', '30', '60'],
      ['30', '60'],
    ]);
    expect(written(panels('delta="30">', range, 'a', mirror, 3))).toEqual([
      ['0', '30', '60'],
      ['30'],
      ['0', '30', '60'],
    ]);
    expect(written(panels('delta="30">', range, 'a', mirror, 4))[3]).toEqual(['30', '60']);
  });

  test('of panels that run the other way stand once, too', () => {
    const drawn = panels('delta="30">', range, 'a', '<reflectionTransform dimension="0"/>');
    expect(written(drawn)).toEqual([
      ['0', '30', '60'],
      ['0', '30'],
      ['0', '30'],
      ['0', '30'],
    ]);
  });

  test('that reach farther at the low end stand at the first panel', () => {
    const low = range.replace('min="0" max="60"', 'min="-1000" max="0"');
    expect(written(panels('delta="1000">', low))).toEqual([['\u22121000', '0'], ['0'], ['0'], ['0']]);
  });

  test('that are turned keep apart, too', () => {
    // Lines of turned texts are 12 pixels high.
    const drawn = panels('delta="10" labelAngle="90">', wider);
    const places = axes(drawn).flatMap((axis) =>
      Array.from(axis.querySelectorAll('text')).map(
        (text) => shiftOf(axis.parentNode as Element) + shiftOf(text),
      ),
    );
    places.slice(1).forEach((place, at) => expect(place - places[at]!).toBeGreaterThanOrEqual(20 - 0.1));
  });

  test('are missing from every second panel where not even one has room', () => {
    const drawn = panels('delta="30"><format suffix=" thousand miles an hour"/>', range);
    const counts = written(drawn).map((labels) => labels.length);
    expect(counts).toEqual([1, 0, 1, 0]);
  });

  test('of rows keep apart upwards', () => {
    const drawn = picture(
      { a: [1, 2, 1, 2], b: [0, 60, 0, 60], k: [1, 1, 2, 2] },
      '<point><x variable="a"/><y variable="b"/></point><faceting><cross><unity/><variableReference ref="k"/></cross></faceting><facetLayout><facetLevel level="1" gap="0%"/></facetLayout>',
      {
        categorical: { k: texts },
        coordinates: `<dimension/><dimension domain="d"><axis><majorTicks delta="30"/></axis></dimension>`,
        rest: range,
      },
    );
    const labels = Array.from(drawn.svg.querySelectorAll('g[aria-label="y axis"]')).map((axis) =>
      Array.from(axis.querySelectorAll('text')).map((text) => text.textContent),
    );
    // The panel on top comes first.
    expect(labels).toEqual([
      ['0', '30', '60'],
      ['0', '30'],
    ]);
  });
});

test('labels of rows stand beside them in their order, shortened ones with the whole text', () => {
  const long = 'A row with a name that is quite long '.repeat(12).trim();
  const rows = picture(
    { a: [1, 2, 3], b: [1, 2, 3], k: [1, 2, 3] },
    '<point><x variable="a"/><y variable="b"/></point><faceting><cross><unity/><variableReference ref="k"/></cross></faceting><facetLayout><facetLevel level="1"><axis><label><text>Rows</text></label><majorTicks/></axis></facetLevel></facetLayout>',
    { categorical: { k: ['first', 'second', long] } },
  );
  const texts = rows.textsOf('Rows of panels');
  expect(texts.slice(0, 2)).toEqual(['first', 'second']);
  expect(texts[3]).toBe('Rows');
  expect(texts[2]).toMatch(/^A row with .*\u2026$/);
  const group = rows.svg.querySelector('g[aria-label="Rows of panels"]')!;
  expect(Array.from(group.querySelectorAll('title')).map((title) => title.textContent)).toEqual([long]);
  const heights = Array.from(group.querySelectorAll('text'))
    .slice(0, 3)
    .map((text) =>
      Number(/,([\d.]+)\)/.exec(text.getAttribute('transform') ?? '')?.[1] ?? text.getAttribute('y')),
    );
  expect(heights).toEqual([...heights].sort((a, b) => a - b));
});

describe('an axis says in a note', () => {
  const long = 'The quite remarkable length of a name that goes on and on';
  const axis = (inner: string, place = '', rest = '', name = long) =>
    picture({ k: [1, 2, 3], b: [1, 2, 3] }, '<interval><x variable="k"/><y variable="b"/></interval>', {
      categorical: { k: [`${name} 1`, `${name} 2`, 'short'] },
      coordinates: `<dimension><axis>${inner}</axis></dimension><dimension/>${place}`,
      rest,
    });

  test('how many of its names are shortened, and has them whole in a title', () => {
    const longer = `${long}, ${long}, and ${long}`;
    for (const place of ['', '<transposeTransform/>']) {
      const drawn = axis(
        `<label><text>Kind</text></label><majorTicks ${place ? 'style="big"' : 'labelAngle="90"'}/>`,
        place,
        '<style id="big" font_size="40px"/>',
        longer,
      );
      expect(drawn.notes).toEqual(['2 labels of the axis Kind are shortened.']);
      const titles = Array.from(drawn.svg.querySelectorAll('g[aria-label="Kind axis"] title'));
      expect(titles.map((title) => title.textContent)).toEqual([`${longer} 1`, `${longer} 2`]);
    }
    expect(axis('<majorTicks/>').notes).toEqual([]);
  });

  test('that names are shortened rather than left out', () => {
    const names = Array.from({ length: 36 }, (_, at) => `${at} ${long}`);
    const drawn = picture(
      { k: names.map((_, at) => at + 1) },
      '<interval><x variable="k"/><summaryStatistic method="10"/></interval>',
      {
        categorical: { k: names },
        coordinates: '<dimension><axis><majorTicks/></axis></dimension><dimension/><transposeTransform/>',
      },
    );
    expect(drawn.notes).toEqual(['36 labels of the axis x are shortened.']);
    expect(drawn.textsOf('x axis')).toHaveLength(36);
  });

  test('how many of its names have no room', () => {
    const many = Array.from({ length: 100 }, (_, at) => at + 1);
    const bars = (settings: string) =>
      picture({ k: many }, '<interval><x variable="k"/><summaryStatistic method="10"/></interval>', {
        categorical: { k: many.map((each) => `Name ${each}`) },
        coordinates: `<dimension><axis><majorTicks ${settings}/></axis></dimension><dimension/>`,
      });
    const drawn = bars('');
    const shown = drawn.textsOf('x axis').length;
    expect(drawn.notes).toEqual([`${100 - shown} labels of the axis x have no room.`]);
    expect(bars('labelFrequency="10"').notes).toEqual([]);
    expect(bars('labelFrequency="10"').textsOf('x axis')).toHaveLength(10);
  });

  test('that its title is shortened, which has three lines at most', () => {
    const words = Array.from({ length: 120 }, (_, at) => `word${at}`).join(' ');
    const drawn = axis(`<label><text>${words}</text></label><majorTicks/>`);
    expect(drawn.notes).toContain('The title of the x axis is shortened.');
    const title = Array.from(drawn.svg.querySelectorAll('title')).find((each) => each.textContent === words)!;
    const lines = Array.from((title.parentNode as Element).querySelectorAll('tspan'));
    expect(lines).toHaveLength(3);
    expect(lines[2]!.textContent).toMatch(/\u2026$/);
    const labels = drawn.svg.querySelector('g[aria-label$=" axis"]')!.querySelectorAll('tspan, text');
    const lowest = Math.max(...Array.from(labels).map((label) => Number(label.getAttribute('y'))));
    expect(Number(lines[0]!.getAttribute('y'))).toBeGreaterThan(lowest + 10);
    expect(axis('<label><text>A short title</text></label><majorTicks/>').notes).toEqual([]);
  });
});

test('axes on one side stand one behind the other', () => {
  const drawn = picture({ a: [1, 2], b: [1, 2] }, '<point><x variable="a"/><y variable="b"/></point>', {
    coordinates:
      '<dimension/><dimension><axis><label><text>One</text></label><majorTicks/></axis><axis><label><text>Two</text></label><majorTicks/></axis></dimension>',
  });
  const placeOf = (name: string) =>
    Number(drawn.svg.querySelector(`g[aria-label="${name} axis"] text`)!.getAttribute('x'));
  expect(placeOf('Two')).toBeLessThan(placeOf('One') - 30);
});

test('the domain of a variable counts along a dimension that names none', () => {
  const texts = (dimension: string) =>
    picture({ a: [1, 2], b: [1, 2] }, points.replace('whole', 'own'), {
      coordinates: `<dimension ${dimension}><axis><majorTicks delta="10"/></axis></dimension><dimension/>`,
      rest:
        '<sourceVariable id="own" source="s" sourceName="a" domain="wide"/>' +
        '<intervalDomain id="wide"><format suffix=" m"/><range min="0" max="20"/></intervalDomain>' +
        '<intervalDomain id="other"><range min="0" max="10"/></intervalDomain>',
    }).textsOf('x axis');
  expect(texts('')).toEqual(['0 m', '10 m', '20 m']);
  expect(texts('domain="other"')).toEqual(['0', '10']);
});
