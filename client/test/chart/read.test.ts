import { describe, expect, test } from 'vitest';
import { lengthOf, numberOf, pixels } from '../../src/chart/markup.js';
import { readChart } from '../../src/chart/read.js';
import { parseXml } from '../../src/node/document.js';
import { chartText } from '../draw/chart.js';

const read = (body: string, attributes = '') => readChart(chartText(body, attributes), parseXml);

describe('a chart text', () => {
  test('is a model of what is drawn', () => {
    const { chart, notes } = read(
      `<graph id="g"><interval id="e" positionModifier="3" style="st">
        <x variable="a"/><binStatistic binStart="5;5;5" binWidth="2d;2d;2d"/><summaryStatistic method="10"/></interval>
        <coordinates><dimension lowerMargin="5%" domain="d"><scale method="2" base="2" invert="true"/>
        <axis opposite="true" transform="1"><majorTicks delta="3" labelAngle="45"><gridline/></majorTicks></axis></dimension>
        <transposeTransform/><reflectionTransform dimension="1" alternating="1"/></coordinates></graph>
      <style id="container"><style id="st" color="#FF0080" size="5pt" stroke_dasharray="4pt,2pt"/></style>
      <intervalDomain id="d"><range min="1" max="8" exact="true"/></intervalDomain>`,
    );
    const [graph] = chart.graphs;
    const [element] = graph!.elements;
    expect(notes).toEqual([]);
    expect(element).toMatchObject({ kind: 'interval', modifier: 3, summary: 10, x: ['a'] });
    expect(element!.bins).toEqual({ count: null, start: 5, width: 2, dots: false });
    expect(element!.style).toEqual({
      color: '#FF0080',
      size: { value: 5, unit: 'pt' },
      dashes: [
        { value: 4, unit: 'pt' },
        { value: 2, unit: 'pt' },
      ],
    });
    const [dimension] = graph!.coordinates[0]!.dimensions;
    expect(dimension!.scale).toEqual({ method: 'log', base: 2, invert: true, origin: null });
    expect(dimension!.axes[0]).toMatchObject({ opposite: true, derived: true });
    expect(dimension!.axes[0]!.ticks).toMatchObject({ delta: 3, angle: 45, gridline: {} });
    expect(graph!.coordinates[0]!.transforms).toEqual([
      { kind: 'transpose' },
      { kind: 'reflect', dimension: 1, alternating: true },
    ]);
    expect(chart.domains.get('d')).toMatchObject({ minimum: '1', maximum: '8', exact: true });
  });

  test('names the elements that are not understood', () => {
    const { notes } = read('<graph><sparkle/><coordinates/></graph><sparkle/>');
    expect(notes).toEqual([
      'Not drawn: the element sparkle of graph.',
      'Not drawn: the element sparkle of visualization.',
    ]);
  });

  test('names the attributes that are not honoured, each once', () => {
    const { notes } = read('<style id="a" shadow_dx="2px"/><style id="b" shadow_dx="1px" bevel_size="3px"/>');
    expect(notes).toEqual([
      'Not honoured: the attribute shadow_dx of style (2 times).',
      'Not honoured: the attribute bevel_size of style.',
    ]);
  });

  test('names all but the first of elements that count once', () => {
    const { notes } = read(
      '<graph><coordinates><dimension><scale/><scale/><axis><majorTicks/><majorTicks/></axis></dimension></coordinates></graph>',
    );
    expect(notes).toEqual([
      'Not drawn: the element scale of dimension.',
      'Not drawn: the element majorTicks of axis.',
    ]);
  });

  test('names places that cannot be had', () => {
    const place = (attributes: string) => read(`<location ${attributes}/>`).notes;
    expect(place('part="4" value="300px"')).toEqual([]);
    expect(place('part="0" method="1"')).toEqual([]);
    expect(place('part="9" value="3px"')).toEqual(['The part 9 of a place is not known.']);
    expect(place('value="3px"')).toEqual(['A place says of no part.']);
    expect(place('part="0" method="7"')).toEqual([
      'The method 7 of a place is not known; this client finds one.',
    ]);
    expect(place('part="0"')).toEqual(['A place of the left has no value.']);
  });

  test('names a scale, a transform of an axis and a layout that are not known', () => {
    const { notes } = read(
      '<graph><coordinates><dimension><scale method="9"/><axis transform="7"/></dimension></coordinates><facetLayout method="4"/></graph>',
    );
    expect(notes).toHaveLength(3);
    expect(notes.join()).toMatch(/transform 7.*scale method 9.*method 4/);
  });

  test('names sources whose data is elsewhere', () => {
    expect(read('<databaseSource id="db"/>').notes.join()).toContain('databaseSource db');
  });

  test('keeps free texts and ids without a word', () => {
    expect(
      read('<extension anything="x"/><graph id="g" name="n"><coordinates id="c"/></graph>').notes,
    ).toEqual([]);
  });

  test('of another kind is refused', () => {
    expect(() => readChart('<svg/>', parseXml)).toThrow(/svg/);
    expect(() => readChart('<visualization', parseXml)).toThrow();
  });
});

test('lengths are as long on the page as on paper, and bounds may have no end', () => {
  const inPixels = (text: string) => pixels(lengthOf(text)!, 200);
  expect(inPixels('25.4mm')).toBeCloseTo(96, 6);
  expect(inPixels('2.54cm')).toBeCloseTo(96, 6);
  expect(inPixels('1in')).toBe(96);
  expect(inPixels('72pt')).toBe(96);
  expect(inPixels('50%')).toBe(100);
  expect([numberOf('INF'), numberOf('-INF'), numberOf('endless')]).toEqual([Infinity, -Infinity, null]);
});
