import { describe, expect, test } from 'vitest';
import { chartText, number, Picture, picture, plainAxes, tableOf } from './chart.js';

const kinds = { k: ['one', 'two', 'three'] };
const xy = '<x variable="a"/><y variable="b"/>';

/** The centre of a symbol, which stands in its transform or in cx and cy. */
function centre(mark: Element): [number, number] {
  const moved = /translate\(([-\d.]+),([-\d.]+)\)/.exec(mark.getAttribute('transform') ?? '');
  if (moved) return [Number(moved[1]), Number(moved[2])];
  return [number(mark, 'cx'), number(mark, 'cy')];
}

describe('points', () => {
  test('are one for each row that has both values, in proportion', () => {
    const drawn = picture({ a: [0, 10, 5, null], b: [0, 20, 5, 3] }, `<point id="p">${xy}</point>`);
    const [first, last, middle] = drawn.marks('dot').map(centre);
    expect(drawn.marks('dot')).toHaveLength(3);
    expect(middle![0] - first![0]).toBeCloseTo((last![0] - first![0]) / 2, 1);
    expect(first![1] - middle![1]).toBeCloseTo((first![1] - last![1]) / 4, 1);
  });

  test('take colours from the cycle by category, over again, and symbols from mappings', () => {
    const drawn = picture(
      { a: [1, 2, 3], b: [1, 2, 3], k: [1, 2, 3] },
      `<point>${xy}<color variable="k" cycle="c"/><shape variable="k"><symbolMapping from="2" to="square"/></shape></point>`,
      {
        categorical: kinds,
        rest: '<styleCycle id="c"><cycle><style color="#ff0000"/><style color="#00ff00"/></cycle></styleCycle>',
      },
    );
    expect(drawn.marks('dot').map((mark) => drawn.look(mark, 'fill'))).toEqual([
      '#ff0000',
      '#00ff00',
      '#ff0000',
    ]);
    expect(drawn.names()).toContain('two: 1 point');
  });

  test('take the style of their element', () => {
    const drawn = picture({ a: [1], b: [1] }, `<point style="s1">${xy}</point>`, {
      rest: '<style id="s1" color="#123456" color2="#654321" opacity="0.5" size="6pt"/>',
    });
    const [mark] = drawn.marks('dot');
    expect(['fill', 'stroke', 'fill-opacity'].map((name) => drawn.look(mark!, name))).toEqual([
      '#123456',
      '#654321',
      '0.5',
    ]);
    expect(number(mark!, 'r')).toBe(4);
  });

  test('show numbers by their size and transparency', () => {
    const drawn = picture(
      { a: [1, 2], b: [1, 2], w: [0, 100] },
      `<point>${xy}<size variable="w" low="2px" high="10px"/><transparency variable="w" low="0" high="0.75"/></point>`,
    );
    // Large ones are drawn first, so that small ones are not covered.
    expect(drawn.marks('dot').map((mark) => number(mark, 'r'))).toEqual([5, 1]);
    expect(drawn.marks('dot').map((mark) => number(mark, 'fill-opacity'))).toEqual([0.25, 1]);
  });

  test('beyond 50,000 are a sample, and the note says so', () => {
    const many = Array.from({ length: 60_000 }, (_, at) => at);
    const drawn = picture({ a: many, b: many }, `<point>${xy}</point>`);
    expect(drawn.marks('dot').length).toBeGreaterThan(48_000);
    expect(drawn.marks('dot').length).toBeLessThan(52_000);
    expect(drawn.notes.join()).toContain('Of 60,000 rows a random sample');
  });

  test('pile up in stacks that do not cover each other', () => {
    const drawn = picture(
      { a: [1, 1, 1, 2] },
      '<point positionModifier="7"><x variable="a"/><binStatistic gridType="1"/></point>',
    );
    const places = drawn.marks('dot').map(centre);
    const heights = places.slice(0, 3).map(([, y]) => y);
    const radius = number(drawn.marks('dot')[0]!, 'r');
    expect(new Set(places.slice(0, 3).map(([x]) => x)).size).toBe(1);
    expect(heights[0]! - heights[1]!).toBeGreaterThanOrEqual(2 * radius);
    expect(heights[1]! - heights[2]!).toBeGreaterThanOrEqual(2 * radius);
  });
});

describe('bars', () => {
  const counted = '<interval><x variable="k"/><summaryStatistic method="10"/></interval>';

  test('count rows, and are as high as their counts', () => {
    const drawn = picture({ k: [1, 1, 1, 2, null] }, counted, { categorical: kinds });
    const heights = drawn.marks('rect').map((mark) => number(mark, 'height'));
    expect(heights[0]! / heights[1]!).toBeCloseTo(3, 2);
    expect(drawn.drawn.dataTable.rows).toEqual([
      ['one', '3'],
      ['two', '1'],
    ]);
  });

  test('begin at 0, also where all values are far from it', () => {
    const drawn = picture(
      { k: [1, 2], b: [100, 104] },
      '<interval><x variable="k"/><y variable="b"/></interval>',
      {
        categorical: kinds,
      },
    );
    const heights = drawn.marks('rect').map((mark) => number(mark, 'height'));
    expect(heights[1]! / heights[0]!).toBeCloseTo(1.04, 3);
    expect(drawn.textsOf('y axis')[0]).toBe('0');
  });

  test('of small values are to be seen: without an outline, and at least a pixel high', () => {
    const low = (transform: string, side: string) => {
      const drawn = picture(
        { k: [1, 2, 3], b: [10_000, 60, -1] },
        '<interval><x variable="k"/><y variable="b"/></interval>',
        { categorical: kinds, coordinates: plainAxes + transform },
      );
      const marks = drawn.marks('rect');
      expect(marks.map((mark) => drawn.look(mark, 'stroke'))).toEqual(['#ffffff', 'none', 'none']);
      return marks.map((mark) => number(mark, side));
    };
    for (const sizes of [low('', 'height'), low('<transposeTransform/>', 'width')]) {
      expect(sizes[1]).toBeGreaterThan(1);
      expect(sizes[2]).toBeCloseTo(1, 3);
    }
  });

  test('of 0 have no height', () => {
    const drawn = picture(
      { k: [1, 2], b: [10, 0] },
      '<interval><x variable="k"/><y variable="b"/></interval>',
      { categorical: kinds },
    );
    expect(number(drawn.marks('rect')[1]!, 'height')).toBe(0);
  });

  test('stand on each other', () => {
    const drawn = picture(
      { k: [1, 1], g: [1, 2], b: [3, 5] },
      '<interval positionModifier="3"><x variable="k"/><y variable="b"/><color variable="g"/></interval>',
      { categorical: { k: ['one'], g: ['low', 'high'] } },
    );
    const [low, high] = drawn.marks('rect');
    expect(number(high!, 'y') + number(high!, 'height')).toBeCloseTo(number(low!, 'y'), 1);
    expect(number(high!, 'x')).toBe(number(low!, 'x'));
    expect(number(high!, 'height') / number(low!, 'height')).toBeCloseTo(5 / 3, 2);
  });

  test('stand beside each other, an absent one keeps its place', () => {
    const drawn = picture(
      { k: [1, 1, 2], g: [1, 2, 2], b: [3, 5, 4] },
      '<interval><x variable="k"/><y variable="b"/><color variable="g"/></interval>',
      {
        categorical: { k: ['one', 'two'], g: ['first', 'second'] },
        coordinates:
          '<dimension clusterVariable="g" clusterGap="10%"><axis><majorTicks/></axis></dimension><dimension/>',
      },
    );
    // Layers are drawn group by group: first of one; second of one and of two.
    const [first, second, alone] = drawn.marks('rect').map((mark) => ({
      left: number(mark, 'x'),
      width: number(mark, 'width'),
    }));
    expect(first!.left + first!.width).toBeCloseTo(second!.left, 1);
    expect(alone!.width).toBeCloseTo(second!.width, 1);
    const step = alone!.left - second!.left;
    expect(second!.width / step).toBeCloseTo(0.4, 2);
  });

  test('over classes touch, with the bounds that are wanted', () => {
    const drawn = picture(
      { a: [0, 5, 9, 12, 19] },
      '<interval><x variable="a"/><binStatistic binStart="0;0;0" binWidth="10d;10d;10d"/><summaryStatistic method="10"/></interval>',
    );
    const [low, high] = drawn.marks('rect');
    expect(drawn.marks('rect')).toHaveLength(2);
    expect(number(low!, 'x') + number(low!, 'width')).toBeCloseTo(number(high!, 'x'), 1);
    expect(drawn.drawn.dataTable.rows).toEqual([
      ['0 to 10', '3'],
      ['10 to 20', '2'],
    ]);
  });

  test('show shares, and shares that sum up', () => {
    const rows = { k: [1, 1, 2, 3] };
    const table = (method: number) =>
      picture(rows, `<interval><x variable="k"/><summaryStatistic method="${method}"/></interval>`, {
        categorical: kinds,
      }).drawn.dataTable.rows.map((row) => row[1]);
    expect(table(3)).toEqual(['50', '25', '25']);
    expect(table(12)).toEqual(['50', '75', '100']);
    expect(table(11)).toEqual(['2', '3', '4']);
  });

  test('are filled with patterns that are defined', () => {
    const drawn = picture(
      { k: [1, 2] },
      '<interval><x variable="k"/><summaryStatistic method="10"/><pattern variable="k"/></interval>',
      { categorical: kinds },
    );
    const fills = drawn.marks('rect').map((mark) => drawn.look(mark, 'fill')!);
    expect(fills[0]).toMatch(/^#/);
    const id = /^url\(#(.*)\)$/.exec(fills[1]!)![1];
    expect(drawn.svg.querySelector(`pattern[id="${id}"]`)).not.toBeNull();
  });

  test('lie where the chart is transposed', () => {
    const drawn = picture({ k: [1, 2, 2, 2] }, counted, {
      categorical: kinds,
      coordinates: `${plainAxes}<transposeTransform/>`,
    });
    const widths = drawn.marks('rect').map((mark) => number(mark, 'width'));
    expect(widths[1]! / widths[0]!).toBeCloseTo(3, 2);
    // The first category stands below the second.
    expect(number(drawn.marks('rect')[0]!, 'y')).toBeGreaterThan(number(drawn.marks('rect')[1]!, 'y'));
  });
});

describe('lines and areas', () => {
  test('go in the order of x and break where a value is missing', () => {
    const drawn = picture({ a: [3, 1, 2, 4, 5], b: [1, 1, 1, null, 2] }, `<line>${xy}</line>`);
    const d = drawn.marks('line')[0]!.getAttribute('d')!;
    expect(d.match(/M/g)).toHaveLength(2);
    const places = d
      .split('M')[1]!
      .split('L')
      .map((place) => Number(place.split(',')[0]));
    expect([...places].sort((a, b) => a - b)).toEqual(places);
  });

  test('paths go in the order of the rows', () => {
    const drawn = picture({ a: [3, 1, 2], b: [1, 2, 3] }, `<path>${xy}</path>`);
    const places = drawn
      .marks('line')[0]!
      .getAttribute('d')!
      .slice(1)
      .split('L')
      .map((place) => Number(place.split(',')[0]));
    expect(places[0]).toBeGreaterThan(places[2]!);
    expect(places[2]).toBeGreaterThan(places[1]!);
  });

  test('have their dashes and widths', () => {
    const drawn = picture({ a: [1, 2], b: [1, 2] }, `<line style="s1">${xy}</line>`, {
      rest: '<style id="s1" color="#0072B2" stroke_dasharray="6px,3px" stroke_width="3px"/>',
    });
    const [line] = drawn.marks('line');
    expect(['stroke', 'stroke-dasharray', 'stroke-width'].map((name) => drawn.look(line!, name))).toEqual([
      '#0072b2',
      '6 3',
      '3',
    ]);
  });

  test('of very many places keep their extremes', () => {
    const a = Array.from({ length: 30_000 }, (_, at) => at);
    const b = a.map((at) => (at === 12_347 ? 1000 : Math.sin(at)));
    const drawn = picture({ a, b }, `<line>${xy}</line>`);
    const corners = drawn.marks('line')[0]!.getAttribute('d')!.split('L');
    expect(corners.length).toBeLessThan(8_100);
    expect(drawn.drawn.dataTable.rows.some((row) => Number(row[1]) === 1000)).toBe(true);
    expect(drawn.notes.join()).toContain('A line of 30,000 places');
  });

  test('of many places have all of them', () => {
    const a = Array.from({ length: 15_000 }, (_, at) => at);
    const drawn = picture({ a, b: a.map((at) => Math.sin(at)) }, `<line>${xy}</line>`);
    expect(drawn.marks('line')[0]!.getAttribute('d')!.split('L')).toHaveLength(15_000);
    expect(drawn.notes).toEqual([]);
  });

  test('areas reach from one variable to the other', () => {
    const drawn = picture({ a: [1, 2], b: [1, 2], c: [3, 5] }, `<area>${xy}<y variable="c"/></area>`);
    expect(drawn.marks('area')).toHaveLength(1);
    expect(drawn.textsOf('y axis')).not.toContain('0.0');
  });
});

describe('boxes and error bars', () => {
  const values = [1, 2, 3, 4, 5, 2, 4, 3, 3, 2, 4, 3, 3, 8, 11];

  test('boxes show outliers and extremes with their labels', () => {
    const drawn = picture(
      { b: values, k: values.map(() => 1), n: values.map((_, at) => at + 1) },
      '<schema><tukeyStatistic/><labeling variable="n"/><x variable="k"/><y variable="b"/></schema>',
      { categorical: { k: ['all'] } },
    );
    expect(drawn.marks('rect')).toHaveLength(1);
    expect(drawn.marks('dot')).toHaveLength(2);
    expect(drawn.textsOf('Labels of data').sort()).toEqual(['14', '15']);
  });

  test('labels of outliers with one value stand in one text, their halos below the whiskers', () => {
    const equal = [...values, 11];
    const drawn = picture(
      { b: equal, k: equal.map(() => 1), n: equal.map((_, at) => at + 1) },
      '<schema><tukeyStatistic/><labeling variable="n"/><x variable="k"/><y variable="b"/></schema>',
      { categorical: { k: ['all'] } },
    );
    expect(drawn.textsOf('Labels of data').sort()).toEqual(['14', '15, 16']);
    const texts = Array.from(drawn.svg.querySelectorAll('text')).filter((text) =>
      ['14', '15, 16'].includes(text.textContent ?? ''),
    );
    const order = Array.from(drawn.svg.querySelectorAll('text, g[data-kind="link"]'));
    const firstLink = order.findIndex((element) => element.localName === 'g');
    const halos = texts.filter((text) => (drawn.look(text, 'stroke') ?? 'none') !== 'none');
    expect(halos).toHaveLength(2);
    for (const text of texts) expect(order.indexOf(text) < firstLink).toBe(halos.includes(text));
  });

  test('boxes of weighted cases are drawn as those of the cases that they stand for', () => {
    const box = '<schema><tukeyStatistic/><x variable="k"/><y variable="b"/></schema>';
    const boxed = (b: number[], rest: string, w = b.map(() => 1)) => {
      const drawn = picture({ k: b.map(() => 1), b, w }, box, { categorical: { k: ['all'] }, rest });
      return { notes: drawn.drawn.notes, shapes: drawn.marks('rect').concat(drawn.marks('link')) };
    };
    const outlines = ({ shapes }: ReturnType<typeof boxed>) => shapes.map((shape) => shape.outerHTML);
    const weight = '<sourceVariable id="weight" source="s" sourceName="w" weight="true"/>';
    // The last row counts nothing, so that it is no outlier either.
    const weighted = boxed([1, 4, 5, 9, 90], weight, [3, 1, 2, 4, 0]);
    const repeated = boxed([1, 1, 1, 4, 5, 5, 9, 9, 9, 9], '');
    expect(outlines(weighted)).toEqual(outlines(repeated));
    expect(outlines(repeated)).not.toEqual(outlines(boxed([1, 4, 5, 9], '')));
    expect(weighted.notes).toEqual([]);
  });

  test('error bars reach as far as the confidence interval, and say so', () => {
    const drawn = picture(
      { k: [1, 1, 1, 1, 1], b: [1, 2, 3, 4, 5] },
      '<interval><summaryStatistic method="7"/><x variable="k"/><y variable="b"/></interval>',
      { categorical: kinds },
    );
    const row = drawn.drawn.dataTable.rows[0]!;
    expect(row[1]).toBe('3');
    expect(Number(row[2])).toBeCloseTo(3 - 2.776445 * Math.SQRT1_2, 4);
    expect(drawn.textsOf('What is shown')).toEqual([
      'Error bars show the 95% confidence interval of the mean.',
    ]);
    expect(drawn.textsOf('Notes')).toEqual([]);
    expect(drawn.notes).toEqual([]);
  });

  test('a mean of one case is a dot without an interval', () => {
    const drawn = picture(
      { k: [1, 1, 1, 2], b: [1, 2, 3, 4] },
      '<interval><summaryStatistic method="7"/><x variable="k"/><y variable="b"/></interval>',
      { categorical: kinds },
    );
    expect(drawn.marks('dot')).toHaveLength(2);
    expect(drawn.marks('link')).toHaveLength(3);
    expect(drawn.drawn.dataTable.rows[1]!.slice(2)).toEqual([null, null]);
    expect(drawn.notes).toEqual(['1 group has too few cases for an error bar.']);
  });
});

describe('notes', () => {
  test.each([
    ['statistic 14', '<point><x variable="a"/><y variable="b"/><summaryStatistic method="14"/></point>'],
    ['position modifier 5', '<point positionModifier="5"><x variable="a"/><y variable="b"/></point>'],
    [
      'percentages of the statistic 22',
      '<interval><x variable="a"/><summaryStatistic method="22"/></interval>',
    ],
    ['three dimensions', '<point><x variable="a"/><y variable="b"/><z variable="b"/></point>'],
    ['no variable nowhere', '<point><x variable="nowhere"/><y variable="b"/></point>'],
  ])('name the %s', (words, element) => {
    const drawn = picture({ a: [1, 2], b: [1, 2] }, element);
    expect(drawn.notes.join('\n')).toContain(words);
    expect(drawn.textsOf('Notes').join(' ').replace(/\s+/g, ' ')).toContain(words.split(' ')[0]!);
  });

  test('name conditions and guides that cannot be read', () => {
    const drawn = picture(
      { a: [1, 2], b: [1, 2] },
      `<point>${xy}<conditionalStyle when="a &gt; 3" style="h"/></point><functionGuide value="eval(x)" name="f"/>`,
      { rest: '<style id="h" visible="false"/>' },
    );
    expect(drawn.marks('dot')).toHaveLength(2);
    expect(drawn.notes.join('\n')).toMatch(/condition a > 3[^]*guide f[^]*eval/);
  });
});

describe('labels', () => {
  const labelled = (attribute: string) =>
    picture(
      { a: [1, 1.15, 9], b: [5, 5, 5], n: [7, 8, 9] },
      `<point ${attribute}><x variable="a"/><y variable="b"/><labeling variable="n"/></point>`,
    ).textsOf('Labels of data');

  test('that would cover a point stand on its other side, else are left out', () => {
    // The second point stands where the label of the first would be.
    expect(labelled('')).toEqual(['7', '8', '9']);
    const crowd = picture(
      { a: [1, 1.15, 1.3, 9], b: [5, 5, 5, 5], n: [6, 7, 8, 9] },
      '<point id="p"><x variable="a"/><y variable="b"/><labeling variable="n"/></point>',
    );
    expect(crowd.textsOf('Labels of data')).toEqual(['6', '8', '9']);
    expect(crowd.notes).toEqual(['Labels of the points that would cover others are left out.']);
  });

  test('of several groups cover neither each other nor symbols of any of them', () => {
    const groups = (g: number[], a: number[]) =>
      picture(
        { a: [...a, 9], b: [5, 5, 5], g: [...g, 1], n: [7, 8, 9] },
        '<point id="p"><x variable="a"/><y variable="b"/><color variable="g"/><labeling variable="n"/></point>',
        { categorical: { g: ['one', 'two'] } },
      );
    // Both stand in one place: the labels go to both sides of it.
    expect(groups([1, 2], [1, 1]).textsOf('Labels of data').sort()).toEqual(['7', '8', '9']);
    const sides = Array.from(groups([1, 2], [1, 1.15]).svg.querySelectorAll('[text-anchor="end"]'));
    expect(sides.map((each) => each.textContent)).toContain('7');
    const third = picture(
      { a: [1, 1, 1, 9], b: [5, 5, 5, 5], g: [1, 2, 3, 1], n: [6, 7, 8, 9] },
      '<point id="p"><x variable="a"/><y variable="b"/><color variable="g"/><labeling variable="n"/></point>',
      { categorical: { g: ['one', 'two', 'three'] } },
    );
    expect(third.textsOf('Labels of data').sort()).toEqual(['6', '7', '9']);
    expect(third.notes).toEqual(['Labels of the points that would cover others are left out.']);
  });

  describe('at the right edge', () => {
    const labels = (kind: string, text: string, attribute = '') =>
      picture(
        { a: [1, 9], b: [5, 8], k: [1, 2] },
        `<${kind} id="p" ${attribute}><x variable="a"/><y variable="b"/><labeling variable="k"/></${kind}>`,
        { categorical: { k: ['here', text] } },
      );
    const anchors = (drawn: Picture) =>
      Array.from(drawn.svg.querySelectorAll('g[aria-label="Labels of data"] text')).map((text) => {
        const group = text.parentNode as Element;
        return [text.textContent, text.getAttribute('text-anchor') ?? group.getAttribute('text-anchor')];
      });

    test.each(['point', 'line'])('stand at the left: those of a %s', (kind) => {
      const drawn = labels(kind, 'a long label');
      expect(anchors(drawn)).toEqual([
        ['here', 'start'],
        ['a long label', 'end'],
      ]);
      expect(drawn.notes).toEqual([]);
    });

    test('are left out with a note where they are longer than the panel', () => {
      const drawn = labels('point', 'far too long '.repeat(12));
      expect(drawn.textsOf('Labels of data')).toEqual(['here']);
      expect(drawn.notes).toEqual(['Labels of the points that have no room in their panel are left out.']);
    });

    test('stay within the panel where the chart wants all of them', () => {
      expect(anchors(labels('point', 'a long label', 'showCollidingLabels="true"'))[1]![1]).toBe('end');
    });
  });

  test('of points beyond the bounds are not drawn', () => {
    const drawn = picture(
      { a: [1, 5, 20], b: [1, 2, 3], n: [7, 8, 9] },
      '<point><x variable="a"/><y variable="b"/><labeling variable="n"/></point>',
      {
        coordinates: '<dimension domain="d"/><dimension/>',
        rest: '<intervalDomain id="d"><range min="0" max="10" exact="true"/></intervalDomain>',
      },
    );
    expect(drawn.textsOf('Labels of data')).toEqual(['7', '8']);
  });

  test('beyond the first 2,000 are left out with a note', () => {
    const many = Array.from({ length: 2_001 }, (_, at) => at);
    const drawn = picture(
      { a: many, b: many, n: many },
      '<point><x variable="a"/><y variable="b"/><labeling variable="n"/></point>',
    );
    expect(drawn.notes).toContain('Of 2,001 labels the first 2,000 are drawn.');
  });

  test('stay where the chart wants all of them', () => {
    expect(labelled('showCollidingLabels="true"')).toEqual(['7', '8', '9']);
  });
});

describe('densities', () => {
  test('have an axis with parts of one', () => {
    const drawn = picture(
      { a: [1, 2, 2, 3, 3, 3, 4] },
      '<area><x variable="a"/><distributionStatistic/></area>',
    );
    expect(drawn.textsOf('Density axis').length).toBeGreaterThan(3);
    expect(drawn.marks('area')).toHaveLength(1);
  });
});

describe('multiple response sets', () => {
  test('have a bar for each member, by its text', () => {
    const member = (name: string, text: string) =>
      `<sourceVariable id="${name}" source="s" sourceName="${name}" label="${text}" categorical="true"><format><relabel from="1" to="${text}"/></format></sourceVariable>`;
    const bar = (name: string) =>
      `<interval positionModifier="3"><x variable="${name}"/><summaryStatistic method="10"/></interval>`;
    const drawn = new Picture(
      chartText(
        `<graph>${bar('m')}${bar('n')}<coordinates><dimension domain="d"><axis><majorTicks/></axis></dimension><dimension/></coordinates></graph>` +
          `<userSource id="s"/>${member('m', 'Bicycle')}${member('n', 'Train')}` +
          '<categoricalDomain id="d"><variableReference ref="m"/><variableReference ref="n"/><categories>1</categories></categoricalDomain>',
      ),
      tableOf({ m: [1, 0, 1], n: [1, 1, 1] }),
    );
    expect(drawn.textsOf('x axis')).toEqual(['Bicycle', 'Train']);
    const heights = drawn.marks('rect').map((mark) => number(mark, 'height'));
    expect(heights[1]! / heights[0]!).toBeCloseTo(1.5, 2);
  });
});

describe('weights', () => {
  test('count as often as they say', () => {
    const drawn = picture(
      { k: [1, 2] },
      '<interval><x variable="k"/><summaryStatistic method="10"/></interval>',
      {
        categorical: kinds,
        rest: '<sourceVariable id="w" source="s" sourceName="k" weight="true"/>',
      },
    );
    // The weights are 1 and 2.
    expect(drawn.drawn.dataTable.rows.map((row) => row[1])).toEqual(['1', '2']);
  });
});

describe('pies', () => {
  test('tell of values below 0, which have no slice', () => {
    const drawn = picture(
      { k: [1, 2, 3], b: [3, -1, 2] },
      '<interval positionModifier="3"><y variable="b"/><color variable="k"/></interval>',
      {
        categorical: { k: ['one', 'two', 'three'] },
        coordinates: '<dimension/><dimension/><transposeTransform/><polarTransform/>',
      },
    );
    expect(drawn.notes).toEqual([
      'Values below 0 are not in the pie: two. Its shares are those of the rest.',
    ]);
  });

  test('have a slice for each category, with its share', () => {
    const drawn = picture(
      { k: [1, 1, 1, 2] },
      '<interval positionModifier="3"><summaryStatistic method="3"/><color variable="k"/></interval>',
      { categorical: kinds, coordinates: '<dimension/><dimension/><transposeTransform/><polarTransform/>' },
    );
    expect(drawn.marks('slice')).toHaveLength(2);
    expect(drawn.textsOf('Shares')).toEqual(['75.0%', '25.0%']);
  });
});

describe('range bars', () => {
  test('reach from one variable to the other', () => {
    const drawn = picture(
      { k: [1, 2], b: [10, 10], c: [20, 40] },
      '<interval><x variable="k"/><y variable="b"/><y variable="c"/></interval>',
      { categorical: kinds },
    );
    const heights = drawn.marks('rect').map((mark) => number(mark, 'height'));
    expect(heights[1]! / heights[0]!).toBeCloseTo(3, 2);
  });
});

test('names of lines across stand where no line runs', () => {
  const rows = Array.from({ length: 21 }, (_, at) => at);
  // Up and down around the guide, but not in the middle.
  const b = rows.map((at) => (at > 8 && at < 12 ? 10 : at % 2 === 0 ? 3 : -3));
  const drawn = picture(
    { a: rows, b },
    '<line><x variable="a"/><y variable="b"/></line><lineGuide y="0" name="Here"/>',
    { coordinates: '<dimension/><dimension/>' },
  );
  const name = Array.from(drawn.svg.querySelectorAll('text')).find((text) => text.textContent === 'Here')!;
  const across = Number(/translate\(([\d.]+)/.exec(name.getAttribute('transform')!)![1]);
  expect(across).toBeGreaterThan(0.4 * 600);
  expect(across).toBeLessThan(0.7 * 600);
});

describe('stacked areas', () => {
  const areas = (a: number[], b: (number | null)[], g: number[]) =>
    picture(
      { a, b, g },
      '<area positionModifier="3"><x variable="a"/><y variable="b"/><color variable="g"/></area>',
      {
        categorical: { g: ['low', 'high'] },
        coordinates: `<dimension/><dimension domain="d"/>`,
        rest: '<intervalDomain id="d"><range min="0" max="10" exact="true"/></intervalDomain>',
      },
    );
  /** Of each area: how many corners it has. */
  const corners = (drawn: Picture) =>
    drawn.marks('area').map((mark) => (mark.getAttribute('d')!.match(/[ML]/g) ?? []).length);
  const highest = (mark: Element) =>
    Math.min(
      ...Array.from(mark.getAttribute('d')!.matchAll(/[ML][\d.]+,([\d.]+)/g), (found) => Number(found[1])),
    );

  test('stand on each other where they have no place in common', () => {
    const drawn = areas([0, 2, 4, 1, 3], [2, 2, 2, 4, 4], [1, 1, 1, 2, 2]);
    // Five places and three, upwards and back.
    expect(corners(drawn).sort()).toEqual([10, 6].sort());
    const tops = drawn.marks('area').map(highest);
    const height = Number(drawn.svg.querySelector('g[aria-label="Data"] rect')!.getAttribute('height'));
    expect(tops.map((top) => Math.round((1 - top / height) * 10)).sort()).toEqual([2, 6]);
    expect(drawn.names()).toContain('low: 3 places on an area');
    expect(drawn.names()).toContain('high: 2 places on an area');
  });

  test('stay broken at missing values', () => {
    const drawn = areas([0, 2, 4, 1, 3], [2, null, 2, 4, 4], [1, 1, 1, 2, 2]);
    const tops = drawn.marks('area').map(highest);
    const height = Number(drawn.svg.querySelector('g[aria-label="Data"] rect')!.getAttribute('height'));
    expect(tops.map((top) => Math.round((1 - top / height) * 10)).sort()).toEqual([2, 4]);
  });
});

test('bars over classes of dates have the bounds of a calendar', () => {
  const day = 86_400;
  const first = Date.UTC(2021, 0, 1) / 1000;
  const days = Array.from({ length: 365 }, (_, at) => first + at * day);
  const drawn = picture({ a: days }, '<interval><x variable="t"/><binStatistic/></interval>', {
    rest: '<sourceVariable id="t" source="s" sourceName="a"><format pattern="yyyy-MM-dd"/></sourceVariable>',
    coordinates: '<dimension lowerMargin="0%" upperMargin="0%"/><dimension/>',
  });
  const bars = drawn.marks('rect').sort((a, b) => number(a, 'x') - number(b, 'x'));
  expect(bars).toHaveLength(6);
  const wide = (at: number) => number(bars[at]!, 'width');
  // January and February have 59 days, March and April 61.
  expect(wide(1) / wide(0)).toBeCloseTo(61 / 59, 2);
});
