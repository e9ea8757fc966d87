import { describe, expect, test } from 'vitest';
import { orientationOf } from '../../src/draw/compile/orientation.js';
import { picture } from './chart.js';

describe('reflections', () => {
  const reflections = (...transforms: ({ kind: 'transpose' } | { kind: 'reflect'; dimension: number })[]) =>
    orientationOf(
      {
        id: '',
        dimensions: [],
        transforms: transforms.map((each) => ({ alternating: false, ...each })),
      },
      [],
    ).reflections.map(({ screen }) => screen);

  test('mean a dimension by its place before what turns it', () => {
    expect(reflections({ kind: 'reflect', dimension: 0 })).toEqual([0]);
    expect(reflections({ kind: 'reflect', dimension: 0 }, { kind: 'transpose' })).toEqual([1]);
    expect(reflections({ kind: 'transpose' }, { kind: 'reflect', dimension: 0 })).toEqual([0]);
  });
});

test('conditions hold in the panels of each of their alternatives', () => {
  const drawn = picture(
    { a: [1, 2, 3], b: [1, 2, 3], k: [1, 2, 3] },
    '<point><x variable="a"/><y variable="b"/><conditionalStyle when="facet1 == &quot;1&quot; || facet1 == &quot;3&quot;" style="h"/></point><faceting><cross><variableReference ref="k"/></cross></faceting>',
    { categorical: { k: ['one', 'two', 'three'] }, rest: '<style id="h" visible="false"/>' },
  );
  expect(drawn.marks('dot')).toHaveLength(1);
});

describe('styles and angles that show what they say', () => {
  const notes = (element: string, rest: string, layout = '') =>
    picture({ a: [1, 2, 3], b: [1, 2, 3], k: [1, 2, 3] }, element + layout, {
      categorical: { k: ['one', 'two', 'three'] },
      rest,
    }).notes;

  test('are not noted where a colour is transparent anyway, but where classes have no other width', () => {
    const line = '<line id="l" style="s"><x variable="a"/><y variable="b"/></line>';
    expect(notes(line, '<style id="s" color2="transparent"/>')).toEqual([]);
    expect(notes(line, '<style id="s" color2="#ff0000"/>')).toEqual([
      'The color2 of the lines is not honoured.',
    ]);
    const classes = '<interval id="h" style="s"><x variable="a"/><binStatistic/></interval>';
    expect(notes(classes, '<style id="s" width="50%"/>')).toEqual(['The width of the bars is not honoured.']);
  });

  test('are noted where texts of panels run another way', () => {
    const angled = (side: string, angle: number) =>
      notes(
        '<point><x variable="a"/><y variable="b"/></point>',
        '',
        `<faceting><cross>${side}<variableReference ref="k"/></cross></faceting>` +
          `<facetLayout><facetLevel level="1"><axis><majorTicks labelAngle="${angle}"/></axis></facetLevel></facetLayout>`,
      );
    expect(angled('', 0)).toEqual([]);
    expect(angled('', 90)).toEqual(['The angle of the labels of panels at level 1 is not honoured.']);
    expect(angled('<unity/>', 90)).toEqual([]);
    expect(angled('<unity/>', 0)).toEqual(['The angle of the labels of panels at level 1 is not honoured.']);
  });
});

test('axes of panels have a line where the chart gives that a colour', () => {
  const lines = (style: string) => {
    const drawn = picture(
      { a: [1, 2], b: [1, 2], k: [1, 2] },
      '<point><x variable="a"/><y variable="b"/></point><faceting><cross><variableReference ref="k"/></cross></faceting>',
      {
        categorical: { k: ['one', 'two'] },
        coordinates: `<dimension><axis ${style}><majorTicks/></axis></dimension><dimension/>`,
        rest: '<style id="s" color="#ff0000"/>',
      },
    );
    return drawn.svg.querySelectorAll('g[aria-label="x axis"] path[stroke="#ff0000"]').length;
  };
  expect(lines('style="s"')).toBe(2);
  expect(lines('')).toBe(0);
});

test('a derived axis of many bars has parts of percents', () => {
  const many = Array.from({ length: 200 }, (_, at) => at + 1);
  const drawn = picture(
    { k: many },
    '<interval><x variable="k"/><summaryStatistic method="10"/></interval>',
    {
      categorical: { k: many.map(String) },
      coordinates:
        '<dimension/><dimension><axis><majorTicks/></axis><axis transform="1" opposite="true"><majorTicks/></axis></dimension>',
    },
  );
  const axes = Array.from(drawn.svg.querySelectorAll('g[aria-label="y axis"]')).map((axis) =>
    Array.from(axis.querySelectorAll('text')).map((text) => text.textContent),
  );
  expect(axes.flat()).toContain('0.3');
});

test('labels at the right end of the last of several panels stay on the page', () => {
  const drawn = picture(
    { a: [0, 60, 0, 60], b: [1, 2, 3, 4], k: [1, 1, 2, 2] },
    '<point><x variable="a"/><y variable="b"/></point><faceting><cross><variableReference ref="k"/></cross></faceting><facetLayout><facetLevel level="1" gap="0%"/></facetLayout>',
    {
      categorical: { k: ['one', 'two'] },
      coordinates:
        '<dimension domain="d"><axis><majorTicks delta="60"><format suffix=" miles an hour"/></majorTicks></axis></dimension><dimension/>',
      rest: '<intervalDomain id="d"><range min="0" max="60" exact="true"/></intervalDomain>',
    },
  );
  const [, last] = Array.from(drawn.svg.querySelectorAll('g[aria-label^="Panel:"]'));
  const width = Number(last!.querySelector('rect')!.getAttribute('width'));
  const shifts: number[] = [];
  for (let node = last!; node.nodeType === 1 && node.localName !== 'svg'; node = node.parentNode as Element)
    shifts.push(Number(/translate\(([\d.-]+)/.exec(node.getAttribute('transform') ?? '')?.[1] ?? 0));
  const end = shifts.reduce((sum, shift) => sum + shift, width);
  // Half of "60 miles an hour" is some 43 pixels.
  expect(drawn.texts()).toContain('60 miles an hour');
  expect(625 - end).toBeGreaterThan(43);
});
