import { describe, expect, test } from 'vitest';
import { picture, plainAxes, type Picture } from './chart.js';

const categorical = { k: ['one', 'two'], g: ['low', 'high'] };
const columns = {
  k: [1, 1, 1, 2, 2, 2],
  g: [1, 2, 1, 2, 1, 2],
  a: [3, 4, 5, 4, 5, 6],
  b: [5, 6, 7, 2, 3, 4],
};
const drawnBy = (graph: string, coordinates = plainAxes, rest = '') =>
  picture(columns, graph, { categorical, coordinates, rest });
const note = (what: string, not = 'stacked') => `${what} cover each other: they are not ${not}.`;
const opacities = (drawn: Picture) => drawn.marks('rect').map((mark) => drawn.look(mark, 'fill-opacity'));

const mean = '<summaryStatistic method="2"/>';
const bars = (y: string, more = '', attributes = '') =>
  `<interval ${attributes}><x variable="k"/><y variable="${y}"/>${mean}${more}</interval>`;
const colour = '<color variable="g"/>';
const clusters = '<dimension clusterVariable="g"><axis/></dimension><dimension><axis/></dimension>';

describe('bars of several elements in one place', () => {
  test('are see-through, with a note and colours that tell them apart', () => {
    const drawn = drawnBy(bars('a') + bars('b'));
    expect(opacities(drawn)).toEqual(['0.5', '0.5', '0.5', '0.5']);
    expect(new Set(drawn.marks('rect').map((mark) => drawn.look(mark, 'fill'))).size).toBe(2);
    expect(drawn.notes).toEqual([note('Bars of several elements')]);
  });

  test('stay as they are where those in front are narrower', () => {
    const narrow = '<style id="n" width="20%"/>';
    expect(drawnBy(bars('b') + bars('a', '', 'style="n"'), plainAxes, narrow).notes).toEqual([]);
    expect(drawnBy(bars('b', '', 'style="n"') + bars('a'), plainAxes, narrow).notes).toHaveLength(1);
  });

  test('stay as they are on both sides of the base line', () => {
    const range = '<interval><x variable="k"/><y variable="a"/><y variable="b"/></interval>';
    const up = picture({ k: [1, 2], a: [3, 4], b: [-1, -2] }, bars('a') + bars('b'), { categorical });
    expect(up.notes).toEqual([]);
    expect(picture({ k: [1, 2], a: [3, 4], b: [5, 6] }, range, { categorical }).notes).toEqual([]);
  });
});

describe('a note tells where', () => {
  const boxes = `<schema><x variable="k"/><y variable="a"/>${colour}</schema>`;
  const raw = (more = '') => `<interval ${more}><x variable="k"/><y variable="a"/></interval>`;

  test('boxes of several groups stand in one place', () => {
    expect(drawnBy(boxes).notes).toEqual([note('Boxes of several groups', 'set apart')]);
    expect(drawnBy(boxes, clusters).notes).toEqual([]);
  });

  test('bars of several rows do', () => {
    expect(drawnBy(raw()).notes).toEqual([note('Bars of several rows')]);
    expect(drawnBy(raw('positionModifier="3"')).notes).toEqual([]);
  });

  test('areas of several elements do', () => {
    const area = (y: string) => `<area><x variable="k"/><y variable="${y}"/>${mean}</area>`;
    expect(drawnBy(area('a') + area('b')).notes).toEqual([note('Areas of several elements')]);
  });

  test('bars of a further group do within clusters', () => {
    const both = bars('a', `${colour}<pattern variable="k"/>`).replace('<x variable="k"/>', '');
    expect(drawnBy(both, clusters).notes).toEqual([note('Bars of several groups')]);
    expect(drawnBy(bars('a', colour), clusters).notes).toEqual([]);
  });

  test('no bars of classes that touch, nor parts of stacks', () => {
    const classes = '<interval><x variable="a"/><binStatistic binWidth="0.1"/></interval>';
    expect(drawnBy(classes).notes).toEqual([]);
    expect(drawnBy(bars('a', colour, 'positionModifier="3"')).notes).toEqual([]);
  });
});

describe('elements without a colour of their own', () => {
  const xy = '<x variable="a"/><y variable="b"/>';
  const strokes = (drawn: Picture, kind: string, what: string) =>
    drawn.marks(kind).map((mark) => drawn.look(mark, what)!.toUpperCase())[0];
  const blue = '#0072B2';

  test('have several ones', () => {
    const drawn = drawnBy(`<interval><x variable="a"/><y variable="b"/>${mean}</interval><line>${xy}</line>`);
    expect(strokes(drawn, 'rect', 'fill')).toBe(blue);
    expect(strokes(drawn, 'line', 'stroke')).toBe('#D55E00');
  });

  test('have others than those that the chart gives, which hold', () => {
    const style = `<style id="s" color="${blue}"/>`;
    const drawn = drawnBy(`<line>${xy}</line><point style="s">${xy}</point>`, plainAxes, style);
    expect(strokes(drawn, 'dot', 'fill')).toBe(blue);
    expect(strokes(drawn, 'line', 'stroke')).toBe('#D55E00');
    const grouped = drawnBy(`<line>${xy}</line><point>${xy}${colour}</point>`);
    expect(strokes(grouped, 'line', 'stroke')).toBe('#333333');
  });

  test('have one where points mark the places of a line', () => {
    const drawn = drawnBy(`<line>${xy}</line><point>${xy}</point>`);
    expect(strokes(drawn, 'dot', 'fill')).toBe(strokes(drawn, 'line', 'stroke'));
  });

  test('look so in the legend, too', () => {
    const rest = '<legend><legendTarget target="p"/><legendTarget target="l"/></legend>';
    const means = `<line id="l" name="Means"><x variable="a"/><y variable="b"/>${mean}</line>`;
    const drawn = drawnBy(`<point id="p" name="Cases">${xy}</point>${means}`, plainAxes, rest);
    const samples = Array.from(drawn.svg.querySelectorAll('g[aria-label="Legend"] path'));
    const colors = samples.map((each) => each.getAttribute('stroke') + (each.getAttribute('fill') ?? ''));
    expect(colors.join().toUpperCase()).toContain(blue);
    expect(colors.join().toUpperCase()).toContain('#D55E00');
  });
});
