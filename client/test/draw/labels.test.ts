import { describe, expect, test } from 'vitest';
import { figureText } from '../../src/draw/marks/piefigures.js';
import { Picture, picture, plainAxes } from './chart.js';

/** Where a text stands, and the side of that place on which it is. */
function placeOf(drawn: Picture, text: string): { x: number; y: number; anchor: string } {
  const found = Array.from(drawn.svg.querySelectorAll('g[aria-label="Labels of data"] text')).find(
    (each) => each.textContent === text,
  )!;
  const [, x, y] = /translate\(([-\d.]+),([-\d.]+)\)/.exec(found.getAttribute('transform') ?? '')!;
  const group = found.parentNode as Element;
  const [, dx, dy] = /translate\(([-\d.]+),([-\d.]+)\)/.exec(group.getAttribute('transform') ?? '') ?? [];
  return {
    x: Number(x) + Math.trunc(Number(dx ?? 0)),
    y: Number(y) + Math.trunc(Number(dy ?? 0)),
    anchor: drawn.look(found, 'text-anchor') ?? 'start',
  };
}

const kinds = { k: ['one', 'two', 'three'] };
const bars = (coordinates = plainAxes) =>
  picture(
    { k: [1, 2], b: [30, -20] },
    '<interval><x variable="k"/><y variable="b"/><labeling variable="b"/></interval>',
    { categorical: kinds, coordinates },
  );

const numberOf = (element: Element, name: string) => Number(element.getAttribute(name));

describe('labels of bars', () => {
  test('stand over the middle of their bars', () => {
    const drawn = bars();
    const [bar] = drawn.marks('rect');
    const label = placeOf(drawn, '30');
    expect(label.anchor).toBe('middle');
    expect(label.x).toBeCloseTo(numberOf(bar!, 'x') + numberOf(bar!, 'width') / 2, 0);
    expect(label.y).toBeLessThan(numberOf(bar!, 'y'));
  });

  test('stand below bars that go down, and at the left of those that go to the left', () => {
    const down = bars();
    const [, bar] = down.marks('rect');
    expect(placeOf(down, '\u221220').y).toBeGreaterThan(numberOf(bar!, 'y') + numberOf(bar!, 'height'));
    const across = bars(`${plainAxes}<transposeTransform/>`);
    const [, turned] = across.marks('rect');
    expect(placeOf(across, '\u221220').anchor).toBe('end');
    expect(placeOf(across, '\u221220').x).toBeLessThan(numberOf(turned!, 'x'));
  });

  test('have room within the panel', () => {
    const wide = (coordinates: string, look = '') =>
      picture(
        { k: [1, 2], b: [7423847, -7423847] },
        `<interval><x variable="k"/><y variable="b"/><labeling variable="b"${look}/></interval>`,
        { categorical: kinds, coordinates, rest: '<style id="big" font_size="24px"/>' },
      );
    const label = '7,423,847';
    const across = wide(`${plainAxes}<transposeTransform/>`);
    const right = numberOf(across.svg.querySelector('g[aria-label="Data"] rect')!, 'width');
    expect(placeOf(across, label).x + 47).toBeLessThan(right);
    expect(placeOf(across, `\u2212${label}`).x - 53).toBeGreaterThan(0);
    const up = wide(plainAxes, ' style="big"');
    const [bar, other] = up.marks('rect');
    expect(placeOf(up, label).y + 12).toBeLessThan(numberOf(bar!, 'y'));
    expect(placeOf(up, `\u2212${label}`).y - 12).toBeGreaterThan(
      numberOf(other!, 'y') + numberOf(other!, 'height'),
    );
  });

  test('have groups of digits as their axis has, but not where they are names', () => {
    const labelled = (attributes: string) =>
      picture(
        { k: [1], b: [20500], n: [10234] },
        `<interval><x variable="k"/><y variable="b"/><labeling ${attributes}/></interval>`,
        { categorical: kinds },
      ).textsOf('Labels of data');
    expect(labelled('variable="b"')).toEqual(['20,500']);
    expect(labelled('dimension="1"')).toEqual(['20,500']);
    expect(labelled('variable="n"')).toEqual(['10234']);
  });

  test('of an inverted scale stand where the bars end on the page', () => {
    const inverted =
      '<dimension><axis><majorTicks/></axis></dimension><dimension><scale invert="true"/><axis><majorTicks/></axis></dimension>';
    const drawn = bars(inverted);
    const [bar, other] = drawn.marks('rect');
    expect(placeOf(drawn, '30').y).toBeGreaterThan(numberOf(bar!, 'y') + numberOf(bar!, 'height'));
    expect(placeOf(drawn, '\u221220').y).toBeLessThan(numberOf(other!, 'y'));
  });
});

test('labels of parts that stand on each other stand within them, where they have room', () => {
  const drawn = picture(
    { k: [1, 1, 1], b: [10, 0.1, 20], g: [1, 2, 3] },
    '<interval positionModifier="3"><x variable="k"/><y variable="b"/><color variable="g"/><labeling variable="b"/></interval>',
    { categorical: { k: ['one'], g: ['low', 'middle', 'high'] } },
  );
  // The thin part lies above the others.
  const bars = drawn.marks('rect');
  expect(drawn.textsOf('Labels of data')).toEqual(['10', '20']);
  for (const [text, at] of [
    ['10', 0],
    ['20', 1],
  ] as const) {
    const [top, height] = [numberOf(bars[at]!, 'y'), numberOf(bars[at]!, 'height')];
    expect(placeOf(drawn, text).y).toBeCloseTo(top + height / 2, 0);
  }
  expect(drawn.notes.join()).toContain('left out');
});

describe('labels of symbols', () => {
  test('stand at the left where there is no room at the right', () => {
    const drawn = picture(
      { a: [1, 5], b: [1, 2], n: [1, 2] },
      '<point><x variable="a"/><y variable="b"/><labeling variable="n"/></point>',
      { categorical: { n: ['a name that is long', 'another name that is long'] } },
    );
    expect(placeOf(drawn, 'a name that is long').anchor).toBe('start');
    expect(placeOf(drawn, 'another name that is long').anchor).toBe('end');
  });

  test('keep away from large ones', () => {
    const labelled = (size: string) => {
      const drawn = picture(
        { a: [1, 2], b: [1, 2], n: [1001, 1002] },
        '<point style="p"><x variable="a"/><y variable="b"/><labeling variable="n"/></point>',
        { rest: `<style id="p" size="${size}"/>` },
      );
      const [dot] = drawn.marks('dot');
      return placeOf(drawn, '1001').x - numberOf(dot!, 'cx');
    };
    expect(labelled('4px')).toBeCloseTo(6, 0);
    expect(labelled('24px')).toBeGreaterThanOrEqual(14);
  });
});

describe('labels of outliers', () => {
  const calm = Array.from({ length: 40 }, (_, at) => 10 + (at % 5));
  const boxes = (outliers: number[], coordinates = plainAxes) =>
    picture(
      {
        k: [...calm, ...outliers].map(() => 1),
        b: [...calm, ...outliers],
        n: [...calm, ...outliers].map((_, at) => 1000 + at),
      },
      '<schema showCollidingLabels="true"><tukeyStatistic/><labeling variable="n"/><x variable="k"/><y variable="b"/></schema>',
      { categorical: kinds, coordinates },
    );
  const shown = (drawn: Picture) => drawn.textsOf('Labels of data').map((text) => placeOf(drawn, text));

  test('stand at the right where they have room', () => {
    const drawn = boxes([30, 40, 60]);
    expect(shown(drawn).map(({ anchor }) => anchor)).toEqual(['start', 'start', 'start']);
    expect(new Set(shown(drawn).map(({ x }) => x)).size).toBe(1);
  });

  test('stand on the other side or further out where they would cover each other', () => {
    const drawn = boxes([40, 40.01, 40.02, 40.03]);
    const places = shown(drawn);
    expect(places).toHaveLength(4);
    expect(places.map(({ anchor }) => anchor).sort()).toEqual(['end', 'end', 'start', 'start']);
    // A label of four digits has more than 20 pixels.
    for (const side of ['start', 'end']) {
      const [near, far] = places.filter(({ anchor }) => anchor === side).map(({ x }) => x);
      expect(Math.abs(near! - far!)).toBeGreaterThan(20);
    }
    expect(drawn.notes).toEqual([]);
  });

  test('that have no room at all are counted in a note', () => {
    const drawn = boxes(Array.from({ length: 9 }, (_, at) => 40 + at / 100));
    expect(shown(drawn)).toHaveLength(6);
    expect(drawn.notes).toEqual(['3 labels of outliers have no room.']);
  });

  test('of horizontal boxes go upwards and downwards', () => {
    const drawn = boxes([40, 40.01, 40.02], `${plainAxes}<transposeTransform/>`);
    const places = shown(drawn);
    expect(places.map(({ anchor }) => anchor)).toEqual(['middle', 'middle', 'middle']);
    const heights = places.map(({ y }) => y).sort((a, b) => a - b);
    expect(heights[1]! - heights[0]!).toBeGreaterThan(10);
    expect(heights[2]! - heights[1]!).toBeGreaterThan(10);
  });

  test('of one value that have no room together are the first and how many more', () => {
    const many = boxes([...calm, ...calm, ...calm].concat(Array.from({ length: 30 }, () => 40)));
    expect(many.textsOf('Labels of data')).toEqual(['1160 +29']);
  });
});

describe('texts of panels', () => {
  const large = (names: string[]) =>
    picture(
      { a: names.map(() => 1), b: names.map(() => 1), k: names.map((_, at) => at + 1) },
      '<point><x variable="a"/><y variable="b"/></point><faceting><cross><variableReference ref="k"/></cross></faceting>' +
        '<facetLayout><facetLevel level="1"><axis><label style="s"><text>Group</text></label><majorTicks style="s"/></axis></facetLevel></facetLayout>',
      { categorical: { k: names }, rest: '<style id="s" font_size="24pt"/>' },
    );
  const sizes = (drawn: Picture) =>
    Array.from(drawn.svg.querySelectorAll('g[aria-label="Columns of panels"] text')).map((text) =>
      numberOf(text, 'font-size'),
    );
  /** The height of a panel of a page of 500 pixels, whose axis takes less than 50. */
  const panelHeight = (drawn: Picture) =>
    numberOf(drawn.svg.querySelector('g[aria-label^="Panel:"] rect')!, 'height');

  test('become smaller, and are not turned, where they would take more than a quarter of the graph', () => {
    const drawn = large(['Torgersen Island', 'Biscoe Islands', 'Dreamlike Island', 'Another Island']);
    expect(panelHeight(drawn)).toBeGreaterThan(0.75 * 500 - 50);
    for (const size of sizes(drawn)) {
      expect(size).toBeLessThan(32);
      expect(size).toBeGreaterThanOrEqual(0.6 * 32);
    }
    expect(drawn.textsOf('Columns of panels').slice(1)).toEqual([
      'TorgersenIsland',
      'BiscoeIslands',
      'DreamlikeIsland',
      'AnotherIsland',
    ]);
  });

  test('are shortened where that is not enough', () => {
    const drawn = large(Array.from({ length: 5 }, (_, at) => `Unbreakable-name-number-${at}`));
    expect(panelHeight(drawn)).toBeGreaterThan(0.75 * 500 - 50);
    expect(drawn.textsOf('Columns of panels')[1]).toMatch(/^Unbr.*\u2026$/);
    expect(drawn.notes).toContain('Labels of panels that have no room are shortened.');
  });
});

describe('names of lines', () => {
  const series = { a: [0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10], b: [5, 0, 5, 0, 5, 0, 5, 0, 5, 0, 5] };
  const line = '<line id="l" name="The line"><x variable="a"/><y variable="b"/></line>';
  const name = (drawn: Picture, text: string) =>
    Array.from(drawn.svg.querySelectorAll('text')).find((each) => each.textContent === text)!;

  test('and of guides have the font of the labels of axes, a little smaller', () => {
    const axes =
      '<dimension><axis><majorTicks style="s"/></axis></dimension><dimension><axis><majorTicks/></axis></dimension>';
    const drawn = picture(series, `${line}<lineGuide name="The guide" y="2"/><planeGuide name="p"/>`, {
      coordinates: axes,
      rest: '<style id="s" font_size="15pt" font_family="serif"/>',
    });
    const note = drawn.svg.querySelector('g[aria-label="Notes"] text')!;
    for (const text of [name(drawn, 'The line'), name(drawn, 'The guide'), note]) {
      expect(Number(drawn.look(text, 'font-size'))).toBeCloseTo(0.92 * 20, 0);
      expect(drawn.look(text, 'font-family')).toContain('Times');
    }
  });

  test('stand in the panels that have the line, also in transposed charts', () => {
    const panels = '<faceting><cross><variableReference ref="k"/></cross></faceting>';
    const faceted = picture({ ...series, k: series.a.map((at) => (at < 5 ? 1 : 2)) }, line + panels, {
      categorical: kinds,
    });
    expect(faceted.texts().filter((text) => text === 'The line')).toHaveLength(2);
    expect(faceted.notes).toEqual([]);
    const turned = picture(series, line, { coordinates: `${plainAxes}<transposeTransform/>` });
    expect(turned.texts()).toContain('The line');
  });

  test('are not drawn where a program gave the id of a line as its name', () => {
    const named = (name: string) => picture(series, line.replace('The line', name)).texts();
    expect(named('The line')).toContain('The line');
    expect(named('l')).not.toContain('l');
  });

  test('that have no room are told in a note', () => {
    const panels = '<faceting><cross><variableReference ref="k"/></cross></faceting>';
    const long = `<line id="l" name="${'Unbreakable'.repeat(20)}"><x variable="a"/><y variable="b"/></line>`;
    const many = { a: [] as number[], b: [] as number[], k: [] as number[] };
    for (let at = 0; at < 400; at += 1) {
      many.a.push(at % 2);
      many.b.push(at % 3);
      many.k.push(1 + (at % 40));
    }
    const texts = Array.from({ length: 40 }, (_, at) => `c${at}`);
    const drawn = picture(many, long + panels, { categorical: { k: texts } });
    expect(drawn.notes).toContain(`The name of the line "${'Unbreakable'.repeat(20)}" has no room.`);
  });

  /** The rectangle of a name of a guide, from the left and the top of its panel. */
  const rectangleOf = (drawn: Picture, text: string) => {
    const found = name(drawn, text);
    const [across, down] = [found, found.parentNode as Element]
      .map((each) => /translate\(([-\d.]+),([-\d.]+)\)/.exec(each.getAttribute('transform') ?? ''))
      .reduce(([x, y], match) => [x! + Number(match?.[1] ?? 0), y! + Number(match?.[2] ?? 0)], [0, 0]);
    const width = 0.5 * 11 * text.length;
    const left = drawn.look(found, 'text-anchor') === 'end' ? across! - width : across!;
    return { left, right: left + width, down: down! };
  };

  test('of guides that lie close to each other are on both sides of them', () => {
    const drawn = picture(
      { a: [0, 10], b: [0, 10] },
      '<point><x variable="a"/><y variable="b"/></point><lineGuide name="First" y="5"/><lineGuide name="Second" y="5.05"/>',
    );
    const rules = drawn.marks('rule').map((mark) => numberOf(mark, 'y1'));
    const [low, high] = [Math.max(...rules), Math.min(...rules)];
    const downs = ['First', 'Second'].map((text) => rectangleOf(drawn, text).down);
    for (const down of downs) expect(down < high || down > low).toBe(true);
    expect(Math.abs(downs[0]! - downs[1]!)).toBeGreaterThan(5);
  });

  test('of upright guides are wrapped where they would leave the panel', () => {
    const drawn = picture(
      { a: [0, 10], b: [0, 10] },
      `<point><x variable="a"/><y variable="b"/></point><lineGuide name="${'A long name of a line '.repeat(4).trim()}" x="5"/>`,
    );
    const shown = drawn.texts().filter((text) => text.startsWith('A long name'));
    expect(shown).toEqual([
      'A long name of a line A long name of a line A long nameof a line A long name of a line',
    ]);
  });
});

describe('figures of a summary', () => {
  const summary = (values: number[]) =>
    picture({ a: values }, '<interval id="p"><x variable="a"/><binStatistic/></interval>', {
      rest:
        '<labelFrame id="f"><label><descriptionGroup target="p"><text>M=</text>' +
        '<description name="5"><format maximumFractionDigits="2" minimumFractionDigits="0"/></description>' +
        '<text>;SD=</text><description name="7"><format maximumFractionDigits="2" minimumFractionDigits="0"/></description>' +
        '<text>;N=</text><description name="6"><format maximumFractionDigits="0"/></description>' +
        '</descriptionGroup></label></labelFrame>',
    }).texts();

  test('have equally many decimals', () => {
    expect(summary([1, 2, 2.5])).toContain('M=1.83;SD=0.76;N=3');
    expect(summary([1, 2, 4])).toContain('M=2.33;SD=1.53;N=3');
    expect(summary([1, 3])).toContain('M=2.00;SD=1.41;N=2');
    expect(summary([1, 2, 3])).toContain('M=2;SD=1;N=3');
  });

  test('that a single value does not have are a dash', () => {
    expect(summary([3.7])).toContain('M=3.7;SD=\u2013;N=1');
  });
});

describe('notes', () => {
  test('begin where footnotes begin', () => {
    const noted = (padding: string) => {
      const drawn = picture(
        { a: [1], b: [1] },
        '<point><x variable="a"/><y variable="b"/></point><planeGuide name="p"/>',
        {
          rest: `<labelFrame id="f" style="s"><label purpose="4"><text>A footnote</text></label></labelFrame><style id="s" ${padding}/>`,
        },
      );
      const find = (start: string) =>
        Array.from(drawn.svg.querySelectorAll('text')).find((text) => text.textContent!.startsWith(start))!;
      return [numberOf(find('A footnote'), 'x'), numberOf(find('The plane guide'), 'x')];
    };
    for (const padding of ['', 'padding="10px"']) {
      const [footnote, note] = noted(padding);
      expect(note).toBe(footnote);
    }
  });
});

describe('statistics', () => {
  const bars = (method: string, y = '', coordinates = plainAxes) =>
    picture(
      { k: [1, 1, 2], b: [1, 2, 3] },
      `<interval><x variable="k"/>${y}<summaryStatistic method="${method}"/></interval>`,
      { categorical: kinds, coordinates },
    );
  const titled =
    '<dimension><axis><majorTicks/></axis></dimension><dimension><axis><label><text>Mean length</text></label><majorTicks/></axis></dimension>';

  test('give their axis a name where the chart gives it none', () => {
    expect(bars('3').texts()).toContain('Percent');
    expect(bars('10').texts()).toContain('Count');
    expect(bars('12').texts()).toContain('Cumulative percent');
    const density = '<area><x variable="a"/><distributionStatistic/></area>';
    expect(picture({ a: [1, 2, 4] }, density).texts()).toContain('Density');
    const own = bars('3', '', titled).texts();
    expect(own).toContain('Mean length');
    expect(own).not.toContain('Percent');
  });

  test('have the look of the title of the other axis, or of the labels of ticks', () => {
    const look = (drawn: ReturnType<typeof bars>) => {
      const title = Array.from(drawn.svg.querySelectorAll('text')).find(
        (text) => text.textContent === 'Count',
      )!;
      return ['fill', 'font-size'].map((name) => title.getAttribute(name));
    };
    const style = '<style id="t" color="#e0e0e0" font_size="20px"/>';
    const label = '<label style="t"><text>Kinds</text></label>';
    const plain = '<axis><majorTicks/></axis>';
    const styled = (x: string, y: string) =>
      picture({ k: [1, 1, 2] }, '<interval><x variable="k"/><summaryStatistic method="10"/></interval>', {
        categorical: kinds,
        coordinates: `<dimension><axis>${x}<majorTicks/></axis></dimension><dimension>${y}</dimension>`,
        rest: style,
      });
    expect(look(styled(label, plain))).toEqual(['#e0e0e0', '20']);
    expect(look(styled('', '<axis><majorTicks style="t"/></axis>'))).toEqual(['#e0e0e0', '20']);
  });

  test('are told below the chart where no title of an axis does', () => {
    const y = '<y variable="b"/>';
    expect(bars('2', y).textsOf('What is shown')).toEqual(['Bars show the mean of the b.']);
    expect(bars('4', y).textsOf('What is shown')).toEqual(['Bars show the median of the b.']);
    expect(bars('2', y, titled).textsOf('What is shown')).toEqual([]);
    const unknown = bars('2', `${y}<z variable="b"/>`);
    const [told, noted] = ['What is shown', 'Notes'].map((name) =>
      unknown.svg.querySelector(`g[aria-label="${name}"]`),
    );
    expect(told!.textContent).toBe('Bars show the mean of the b.');
    expect(noted!.textContent).toMatch(/three dimensions/);
    expect(numberOf(noted!.querySelector('text')!, 'y')).toBeGreaterThan(
      numberOf(told!.querySelector('text')!, 'y') + 10,
    );
  });
});

describe('statistics of several elements', () => {
  const drawn = (elements: string, coordinates = plainAxes) =>
    picture({ k: [1, 1, 2], b: [1, 2, null], c: [2, 3, 4] }, elements, { categorical: kinds, coordinates });
  const count = '<interval><x variable="k"/><summaryStatistic method="10"/></interval>';
  const mean = (y: string) =>
    `<line><x variable="k"/><y variable="${y}"/><summaryStatistic method="2"/></line>`;

  test('name an axis where they are the same, and no derived one', () => {
    const counts = (drawn: Picture) => drawn.texts().filter((text) => text === 'Count').length;
    expect(counts(drawn(count + count))).toBe(1);
    expect(counts(drawn(count + mean('c')))).toBe(0);
    const twice =
      '<dimension/><dimension><axis><majorTicks/></axis><axis transform="1" opposite="true"><majorTicks/></axis></dimension>';
    expect(counts(drawn(count, twice))).toBe(1);
    const dots = '<point positionModifier="7"><x variable="b"/><binStatistic/></point>';
    expect(counts(drawn(dots))).toBe(0);
  });

  test('are told of each variable, also where the title of the axis is its label', () => {
    const told = (elements: string, title = '') =>
      drawn(elements, `<dimension/><dimension><axis>${title}<majorTicks/></axis></dimension>`).textsOf(
        'What is shown',
      );
    expect(told(mean('c'))).toEqual(['Lines show the mean of the c.']);
    expect(told(mean('c'), '<label><text>the c</text></label>')).toEqual(['Lines show the mean of the c.']);
    const both = told(mean('b') + mean('c')).join();
    expect(both).toContain('Lines show the mean of the b.');
    expect(both).toContain('Lines show the mean of the c.');
  });

  test('of lines leave missing values out, and a note counts them', () => {
    expect(drawn(mean('b')).notes).toEqual(['1 row with a missing value is not drawn (the b).']);
  });
});

describe('shares of slices', () => {
  const pie = (weights: number[]) =>
    picture(
      { k: weights.map((_, at) => at + 1), b: weights },
      '<interval positionModifier="3"><y variable="b"/><color variable="k"/></interval>',
      {
        categorical: { k: weights.map((_, at) => `c${at}`) },
        coordinates: `${plainAxes}<polarTransform/>`,
      },
    );
  const places = (drawn: Picture) =>
    Array.from(drawn.svg.querySelectorAll('g[aria-label="Shares"] text')).map((text) => ({
      x: numberOf(text, 'x'),
      y: numberOf(text, 'y'),
    }));

  test('too small for a figure beside them have one at the end of a line', () => {
    const drawn = pie([50, 40, 1, 1, 1, 1, 0.01, 6]);
    expect(drawn.textsOf('Shares').sort()).toEqual(
      ['50.0%', '40.0%', '1.0%', '1.0%', '1.0%', '1.0%', '<0.1%', '6.0%'].sort(),
    );
    const lines = drawn.svg.querySelectorAll('g[aria-label="Shares"]')[0]!.previousSibling as Element;
    expect(lines.querySelectorAll('path').length).toBeGreaterThanOrEqual(5);
    const all = places(drawn);
    all.forEach((one, at) =>
      all.slice(at + 1).forEach((other) => {
        expect(Math.max(Math.abs(one.y - other.y), Math.abs(one.x - other.x) / 3)).toBeGreaterThan(13);
      }),
    );
  });

  const radius = (drawn: Picture) => {
    const [slice] = drawn.marks('slice').map((mark) => /A([\d.]+),/.exec(mark.getAttribute('d')!));
    return Number(slice![1]);
  };

  test('are those of the slices with the clock, from the top', () => {
    const drawn = pie([1, 3]);
    expect(drawn.textsOf('Shares')).toEqual(['25.0%', '75.0%']);
    const [first, second] = places(drawn);
    expect(first!.x).toBeGreaterThan(0);
    expect(first!.y).toBeLessThan(0);
    expect(second!.x).toBeLessThan(0);
  });

  test('are of what is above 0', () => {
    expect(pie([3, -1, 1, 0]).textsOf('Shares')).toEqual(['75.0%', '25.0%']);
    expect([0, 0.0004, 0.0006].map(figureText)).toEqual(['0.0%', '<0.1%', '0.1%']);
  });

  test('stay within the panel and outside of the pie', () => {
    const few = Array.from({ length: 8 }, () => 0.5);
    for (const weights of [
      [...few, 96],
      [48, ...few, 48],
      [24, ...few, 72],
      [96, ...few],
    ]) {
      const drawn = pie(weights);
      const half = numberOf(drawn.svg.querySelector('g[aria-label="Data"] rect')!, 'height') / 2;
      for (const { x, y } of places(drawn)) {
        expect(Math.abs(y)).toBeLessThan(half);
        expect(Math.hypot(x, y)).toBeGreaterThan(radius(drawn));
      }
      const right = places(drawn)
        .filter(({ x }) => x > 0)
        .map(({ y }) => y)
        .sort((a, b) => a - b);
      right.slice(1).forEach((y, at) => expect(y - right[at]!).toBeGreaterThan(13));
    }
  });

  test('are those of the largest slices where there are too many', () => {
    const drawn = pie(Array.from({ length: 400 }, (_, at) => (at % 8 === 0 ? 50 : 1)));
    expect(drawn.textsOf('Shares').filter((text) => text === '1.8%')).toHaveLength(50);
  });

  test('are not there where their style hides them', () => {
    const hidden = picture(
      { k: [1, 2], b: [1, 3] },
      '<interval positionModifier="3"><y variable="b"/><color variable="k"/><labeling variable="b" style="h"/></interval>',
      {
        categorical: kinds,
        coordinates: `${plainAxes}<polarTransform/>`,
        rest: '<style id="h" visible="false"/>',
      },
    );
    expect(hidden.marks('slice')).toHaveLength(2);
    expect(hidden.names()).not.toContain('Shares');
  });

  test('that have no room at all are counted in a note', () => {
    const drawn = pie(Array.from({ length: 120 }, (_, at) => 100 + at));
    const shown = drawn.textsOf('Shares').length;
    expect(drawn.notes).toContain(`${120 - shown} shares of slices have no room.`);
    expect(shown).toBeGreaterThan(40);
  });
});

describe('labels along a dimension', () => {
  test('have the format that they are given, and the value beside which their mark stands', () => {
    const labelled = (labeling: string) =>
      picture(
        { a: [1, 1, 9], b: [2, 8, 5], g: [1, 2, 1] },
        `<point positionModifier="1"><x variable="a"/><y variable="b"/><color variable="g"/>${labeling}</point>`,
        { categorical: { g: ['x', 'y'] } },
      ).textsOf('Labels of data');
    expect(labelled('<labeling dimension="0"><format suffix=" s"/></labeling>').sort()).toEqual([
      '1 s',
      '1 s',
      '9 s',
    ]);
    expect(labelled('<labeling variable="b"><format suffix=" m"/></labeling>').sort()).toEqual([
      '2 m',
      '5 m',
      '8 m',
    ]);
  });
});

describe('names of guides', () => {
  const guided = (guides: string) =>
    picture({ a: [0, 10], b: [0, 10] }, `<point><x variable="a"/><y variable="b"/></point>${guides}`, {
      coordinates: '<dimension domain="d"/><dimension domain="d"/>',
      rest: '<intervalDomain id="d"><range min="0" max="10" exact="true"/></intervalDomain>',
    });
  const found = (drawn: Picture, name: string) =>
    Array.from(drawn.svg.querySelectorAll('text')).find((text) => text.textContent === name);

  test('at the right end of a panel stand at the left of their line', () => {
    const drawn = guided('<lineGuide x="9" name="Far"/><lineGuide x="2" name="Near"/>');
    expect(drawn.look(found(drawn, 'Far')!, 'text-anchor')).toBe('end');
    expect(drawn.look(found(drawn, 'Near')!, 'text-anchor')).toBe('start');
  });

  test('are not there where their line is not', () => {
    expect(guided('<lineGuide x="20" name="Beyond"/>').texts()).not.toContain('Beyond');
  });

  test('of one place stand beside each other', () => {
    const drawn = guided('<functionGuide value="x" name="First"/><functionGuide value="x" name="Second"/>');
    const places = ['First', 'Second'].map((name) => {
      const text = found(drawn, name)!;
      return `${text.getAttribute('transform')} ${(text.parentNode as Element).getAttribute('transform')}`;
    });
    expect(places[0]).not.toBe(places[1]);
  });

  test('of functions end with their line, which stays in the panel', () => {
    const drawn = guided('<functionGuide value="3 * x" name="Steep"/>');
    const height = numberOf(drawn.svg.querySelector('g[aria-label="Data"] rect')!, 'height');
    const heights = Array.from(
      drawn
        .marks('line')[0]!
        .getAttribute('d')!
        .matchAll(/,([-\d.]+)/g),
      (each) => Number(each[1]),
    );
    for (const y of heights) {
      expect(y).toBeGreaterThan(-1);
      expect(y).toBeLessThan(height + 1);
    }
  });
});
