import { describe, expect, test } from 'vitest';
import { contrast, readableShade } from '../../src/draw/svg/colors.js';
import { textWidth, wrap } from '../../src/draw/svg/text.js';
import { sansSerif } from '../../src/draw/svg/text.js';
import { chartText, Picture, picture, plainAxes, number, tableOf, variables } from './chart.js';

const points = '<point id="p"><x variable="a"/><y variable="b"/></point>';
const kinds = { k: ['one', 'two', 'three'] };

describe('scales and ticks', () => {
  const along = (dimension: string, a = [1, 10], b = [1, 2], rest = '') =>
    picture({ a, b }, points, { coordinates: `${dimension}<dimension/>`, rest });

  test('have the bounds that are exact', () => {
    const drawn = along(
      '<dimension domain="d"><axis><majorTicks delta="5"/></axis></dimension>',
      [1, 10],
      [1, 2],
      '<intervalDomain id="d"><range min="-5" max="15" exact="true"/></intervalDomain>',
    );
    expect(drawn.textsOf('x axis')).toEqual(['\u22125', '0', '5', '10', '15']);
  });

  test('count the values beyond bounds, and draw symbols within them whole', () => {
    const drawn = along(
      '<dimension domain="d"><axis><majorTicks/></axis></dimension>',
      [0, 5, 10, 20],
      [1, 2, 3, 4],
      '<intervalDomain id="d"><range min="0" max="10" exact="true"/></intervalDomain>',
    );
    expect(drawn.notes).toEqual(['1 of 4 values lies outside the x axis.']);
    expect(drawn.marks('dot')).toHaveLength(3);
    expect(drawn.svg.querySelectorAll('[clip-path]')).toHaveLength(0);
  });

  test('do not count where bars begin, but the bars that are cut', () => {
    const drawn = picture(
      { k: [1, 2], b: [60, 200] },
      '<interval><x variable="k"/><y variable="b"/></interval>',
      {
        categorical: kinds,
        coordinates: '<dimension/><dimension domain="d"/>',
        rest: '<intervalDomain id="d"><range min="50" max="100" exact="true"/></intervalDomain>',
      },
    );
    expect(drawn.notes).toEqual(['1 of 2 values lies outside the y axis.', 'Bars begin at 50, not at 0.']);
    expect(drawn.svg.querySelectorAll('[clip-path]').length).toBeGreaterThan(0);
  });

  test('of categories have what the axis puts before and behind their names', () => {
    const drawn = picture({ k: [1, 2], b: [1, 2] }, '<point><x variable="k"/><y variable="b"/></point>', {
      categorical: kinds,
      coordinates:
        '<dimension><axis><majorTicks><format prefix="#" suffix="!"><relabel from="two" to="2"/></format></majorTicks></axis></dimension><dimension/>',
    });
    expect(drawn.textsOf('x axis')).toEqual(['#one!', '#2!']);
    expect(drawn.notes).toEqual([]);
  });

  test('by a logarithm show powers of their base', () => {
    const drawn = along(
      '<dimension><scale method="2" base="2"/><axis><majorTicks/></axis></dimension>',
      [1, 64],
    );
    expect(drawn.textsOf('x axis')).toEqual(['1', '2', '4', '8', '16', '32', '64']);
    expect(drawn.notes).toEqual([]);
  });

  test('by a logarithm say what has no place', () => {
    expect(along('<dimension><scale method="2"/></dimension>', [-1, 64]).notes.join()).toContain(
      'not above 0',
    );
  });

  test('by a logarithm let bars begin at 1 or the origin, and say which of them have no place', () => {
    const bars = (b: number[], attributes = '') =>
      picture({ k: [1, 2, 3], b }, '<interval><x variable="k"/><y variable="b"/></interval>', {
        categorical: kinds,
        coordinates: `<dimension/><dimension><scale method="2" ${attributes}/><axis><majorTicks/></axis></dimension>`,
      });
    const heights = (drawn: Picture) => drawn.marks('rect').map((mark) => number(mark, 'height'));
    const drawn = bars([10, 100, 1000]);
    const [first, second, third] = heights(drawn);
    expect(second! / first!).toBeCloseTo(2, 2);
    expect(third! / first!).toBeCloseTo(3, 2);
    expect(drawn.notes).toEqual([]);
    const [low, high] = heights(bars([100, 1000, 1000], 'origin="10"'));
    expect(high! / low!).toBeCloseTo(2, 2);
    const negative = bars([10, -5, 1000]);
    expect(heights(negative)).toHaveLength(2);
    expect(negative.notes.join()).toContain('not above 0');
  });

  test('say where bars and areas begin if that is not their base line', () => {
    const standing = (element: string, range: string, b = [3, 4, 12]) =>
      picture({ a: [1, 2, 3], b }, `<${element}><x variable="a"/><y variable="b"/></${element}>`, {
        coordinates: '<dimension/><dimension domain="d"/>',
        rest: `<intervalDomain id="d">${range}</intervalDomain>`,
      }).notes;
    expect(standing('interval', '<range min="3"/>')).toEqual(['Bars begin at 3, not at 0.']);
    expect(standing('area', '<range min="2.5"/>')).toEqual(['Areas begin at 2.5, not at 0.']);
    expect(standing('interval', '<range max="-3"/>', [-9, -5, -4])).toEqual([
      'Bars begin at \u22123, not at 0.',
    ]);
    expect(standing('interval', '<range min="-3"/>')).toEqual([]);
    expect(standing('point', '<range min="3"/>')).toEqual([]);
  });

  test('by a logarithm say which bars are not to be seen', () => {
    const notes = (b: number[]) =>
      picture({ k: [1, 2, 3], b }, '<interval><x variable="k"/><y variable="b"/></interval>', {
        categorical: kinds,
        coordinates: '<dimension/><dimension><scale method="2"/></dimension>',
      }).notes;
    const why = 'not to be seen: the value is 1, where bars begin on a logarithmic scale.';
    expect(notes([1, 10, 100])).toEqual([`1 bar is ${why}`]);
    expect(notes([1, 1, 100])).toEqual([`2 bars are ${why}`]);
  });

  test('by a logarithm show a stack as high as its sum', () => {
    const drawn = picture(
      { k: [1, 1], g: [1, 2], b: [10, 90] },
      '<interval positionModifier="3"><x variable="k"/><y variable="b"/><color variable="g"/></interval>',
      {
        categorical: { k: ['one'], g: ['low', 'high'] },
        coordinates: '<dimension/><dimension><scale method="2"/><axis><majorTicks/></axis></dimension>',
      },
    );
    const [low, high] = drawn.marks('rect').map((mark) => number(mark, 'height'));
    expect(high! / low!).toBeCloseTo(1, 2);
  });

  test('may run the other way', () => {
    const left = (invert: string) => {
      const drawn = along(`<dimension><scale invert="${invert}"/></dimension>`);
      return drawn.marks('dot').map((mark) => number(mark, 'cx'));
    };
    const [forward, backward] = [left('false'), left('true')];
    expect(forward[0]).toBeLessThan(forward[1]!);
    expect(backward[0]).toBeGreaterThan(backward[1]!);
  });

  test('show prefix, suffix, decimals and grouping of the ticks', () => {
    const drawn = along(
      '<dimension><axis><majorTicks delta="1000"><format prefix="$" minimumFractionDigits="1" useGrouping="true"/></majorTicks></axis></dimension>',
      [1000, 2000],
    );
    expect(drawn.textsOf('x axis')).toEqual(['$1,000.0', '$2,000.0']);
  });

  test('of dates stand at dates and follow the pattern', () => {
    const drawn = picture(
      { a: [1325376000, 1356912000], b: [1, 2] },
      '<line><x variable="day"/><y variable="b"/></line>',
      {
        coordinates: '<dimension><axis><majorTicks/></axis></dimension><dimension/>',
        rest: '<sourceVariable id="day" source="s" sourceName="a" inputDateFormatPattern="yyyy-MM-dd"><format pattern="MMM yy"/></sourceVariable>',
      },
    );
    expect(drawn.textsOf('x axis')).toContain('Jul 12');
  });

  test('derived show shares of what the bars show', () => {
    const drawn = picture(
      { k: [1, 2], b: [50, 150] },
      '<interval><x variable="k"/><y variable="b"/></interval>',
      {
        categorical: kinds,
        coordinates:
          '<dimension/><dimension domain="d"><axis opposite="true" transform="1"><majorTicks delta="20"><format suffix="%"/></majorTicks></axis></dimension>',
        rest: '<intervalDomain id="d"><range min="-40" max="160" exact="true"/></intervalDomain>',
      },
    );
    expect(drawn.textsOf('y axis')).toEqual(['\u221220%', '0%', '20%', '40%', '60%', '80%']);
  });

  test('long names of categories are wrapped or turned, never on each other', () => {
    const texts = Array.from({ length: 24 }, (_, at) => `Category number ${at + 1}`);
    const drawn = picture(
      { k: texts.map((_, at) => at + 1) },
      '<interval><x variable="k"/><summaryStatistic method="10"/></interval>',
      { categorical: { k: texts } },
    );
    const labels = Array.from(drawn.svg.querySelectorAll('g[aria-label="x axis"] text'));
    expect(labels.length).toBeGreaterThan(10);
    expect(labels.every((label) => /rotate/.test(label.getAttribute('transform') ?? ''))).toBe(true);
  });

  test('gridlines are drawn where the chart has them', () => {
    const grid = (ticks: string) =>
      along(
        `<dimension><axis><majorTicks delta="3">${ticks}</majorTicks></axis></dimension>`,
      ).svg.querySelectorAll('g[data-kind="x-grid"] line').length;
    expect(grid('<gridline/>')).toBe(3);
    expect(grid('')).toBe(0);
  });
});

describe('equal units', () => {
  test('make a unit as long on both axes', () => {
    const drawn = picture({ a: [0, 10, 20], b: [0, 1, 2] }, points, {
      coordinates: `${plainAxes}<sameRatioTransform center="true"/>`,
    });
    const [first, second] = drawn
      .marks('dot')
      .map((mark) => [number(mark, 'cx'), number(mark, 'cy')] as const);
    expect((second![0] - first![0]) / 10).toBeCloseTo(first![1] - second![1], 1);
  });

  test('leave at most a third of a panel without data, which is smaller then', () => {
    for (const layout of ['', '<facetLayout cellAspect="1"/>']) {
      const drawn = picture({ a: [40, 50, 60], b: [13, 15, 17] }, `${points}${layout}`, {
        coordinates: `${plainAxes}<sameRatioTransform center="true"/>`,
      });
      const panel = drawn.svg.querySelector('g[aria-label="Data"] rect')!;
      const places = drawn.marks('dot').map((mark) => number(mark, 'cy'));
      const used = Math.max(...places) - Math.min(...places);
      expect(used / number(panel, 'height')).toBeGreaterThan(0.6);
      expect(number(panel, 'width')).toBeGreaterThan(450);
    }
  });

  test('have one distance of ticks', () => {
    const steps = (b: number[]) => {
      const drawn = picture({ a: [40, 50, 60], b }, points, {
        coordinates: `${plainAxes}<sameRatioTransform center="true"/>`,
      });
      return ['x axis', 'y axis'].map((name) => {
        const [first, second] = drawn.textsOf(name).map(Number);
        return second! - first!;
      });
    };
    expect(steps([13, 15, 17])).toEqual([2, 2]);
    expect(steps([20, 60, 80])).toEqual([10, 10]);
  });
});

describe('panels', () => {
  const columns = { a: [1, 2, 3, 4], b: [1, 2, 3, 4], k: [1, 1, 2, 2], g: [1, 2, 1, 1] };
  const categorical = { k: ['one', 'two'], g: ['low', 'high'] };
  const panelled = (faceting: string, element = points) =>
    picture(columns, `${element}${faceting}`, { categorical });
  const names = (drawn: Picture) => drawn.names().filter((name) => name.startsWith('Panel'));

  test('cross: one for each pair', () => {
    const drawn = panelled(
      '<faceting method="cross"><cross><variableReference ref="k"/><variableReference ref="g"/></cross></faceting>',
    );
    expect(names(drawn)).toEqual([
      'Panel: one, low',
      'Panel: two, low',
      'Panel: one, high',
      'Panel: two, high',
    ]);
    expect(drawn.marks('dot')).toHaveLength(4);
    expect(drawn.textsOf('Columns of panels')).toEqual(['one', 'two']);
    expect(drawn.textsOf('Rows of panels')).toEqual(['low', 'high']);
  });

  test('nest: only pairs that occur', () => {
    const drawn = panelled(
      '<faceting method="nest"><cross><nest><variableReference ref="k"/><variableReference ref="g"/></nest><unity/></cross></faceting>',
    );
    expect(names(drawn)).toEqual(['Panel: one, low', 'Panel: one, high', 'Panel: two, low']);
  });

  test('blend: one for each measure, with its name', () => {
    const drawn = picture(
      { a: [1, 2], b: [3, 4], c: [5, 6] },
      '<line><x variable="a"/><y variable="e"/></line>',
      {
        rest:
          '<expressionVariable id="e" expression="b/lb + c/lc"/>' +
          '<derivedVariable id="lb" categorical="true" value="constant(B)"><format><relabel from="B" to="Bee"/></format></derivedVariable>' +
          '<derivedVariable id="lc" categorical="true" value="constant(C)"/>',
      },
    );
    expect(drawn.textsOf('Columns of panels')).toEqual(['Bee', 'C']);
    expect(drawn.marks('line')).toHaveLength(2);
    expect(drawn.notes).toEqual([]);
  });

  test('hide what a condition hides', () => {
    const hidden = points.replace(
      '</point>',
      '<conditionalStyle when="facet1 != &quot;2&quot;" style="h"/></point>',
    );
    const drawn = picture(
      columns,
      `${hidden}<lineGuide y="2"><conditionalStyle when="facet1 == &quot;1&quot;" style="h"/></lineGuide><faceting><cross><variableReference ref="k"/></cross></faceting>`,
      { categorical, rest: '<style id="h" visible="false"/>' },
    );
    expect(drawn.marks('dot')).toHaveLength(2);
    expect(drawn.names().filter((name) => name === 'Guide')).toHaveLength(1);
  });

  test('mirror every second panel', () => {
    const drawn = picture(
      { a: [1, 1, 5, 1, 1, 5], k: [1, 1, 1, 2, 2, 2] },
      '<interval><x variable="a"/><binStatistic binWidth="1;1;1"/></interval><faceting><cross><cross><variableReference ref="k"/></cross></cross></faceting><facetLayout><facetLevel level="1" gap="0%"/></facetLayout>',
      {
        categorical,
        coordinates: `${plainAxes}<transposeTransform/><reflectionTransform dimension="0" alternating="true"/>`,
      },
    );
    const [left, , right] = drawn
      .marks('rect')
      .map((mark) => ({ from: number(mark, 'x'), width: number(mark, 'width') }));
    expect(right!.from).toBeCloseTo(0, 1);
    // The left half ends where its panel ends, and is as wide as its twin.
    expect(left!.width).toBeCloseTo(right!.width, 1);
    expect(left!.from).toBeGreaterThan(0);
  });
});

describe('legends', () => {
  const legend = (targets: string[], extra = '') =>
    `<legend id="l">${targets.map((id) => `<legendTarget target="${id}"/>`).join('')}<label><text>Kinds</text></label>${extra}</legend>`;
  const grouped =
    '<point id="p"><x variable="a"/><y variable="b"/><color id="c" variable="k"/><shape id="h" variable="k"/></point>';

  test('list the categories once, with the title', () => {
    const drawn = picture({ a: [1, 2], b: [1, 2], k: [1, 2] }, grouped, {
      categorical: kinds,
      rest: legend(['c', 'h']),
    });
    expect(drawn.textsOf('Legend: Kinds')).toEqual(['Kinds', 'one', 'two']);
  });

  test('show the same looks as the marks', () => {
    const drawn = picture({ a: [1, 2], b: [1, 2], k: [1, 2] }, grouped, {
      categorical: kinds,
      rest: legend(['c']),
    });
    const swatches = Array.from(drawn.svg.querySelectorAll('g[aria-label="Legend: Kinds"] path'));
    expect(swatches.map((each) => each.getAttribute('fill'))).toEqual(
      drawn.marks('dot').map((mark) => drawn.look(mark, 'fill')),
    );
  });

  test('stand beside the data and do not cover it', () => {
    const drawn = picture({ a: [1, 2], b: [1, 2], k: [1, 2] }, grouped, {
      categorical: kinds,
      rest: legend(['c']),
    });
    const moved = /translate\(([\d.]+),/.exec(
      drawn.svg.querySelector('g[aria-label="Legend: Kinds"]')!.getAttribute('transform')!,
    )!;
    const right = Math.max(...drawn.marks('dot').map((mark) => number(mark, 'cx')));
    expect(Number(moved[1])).toBeGreaterThan(right + 50);
  });

  test('list parts of a stack as they stand', () => {
    const drawn = picture(
      { k: [1, 1], g: [1, 2] },
      '<interval positionModifier="3"><x variable="k"/><summaryStatistic method="10"/><color id="c" variable="g"/></interval>',
      { categorical: { k: ['all'], g: ['low', 'high'] }, rest: legend(['c']) },
    );
    expect(drawn.textsOf('Legend: Kinds')).toEqual(['Kinds', 'high', 'low']);
  });

  test('show a range of colours with its ticks', () => {
    const drawn = picture(
      { a: [1, 2], b: [1, 2], w: [0, 100] },
      '<point><x variable="a"/><y variable="b"/><color id="c" variable="w"/></point>',
      { rest: legend(['c']) },
    );
    expect(drawn.svg.querySelectorAll('linearGradient stop')).toHaveLength(11);
    expect(drawn.textsOf('Legend: Kinds')).toEqual(['Kinds', '0', '20', '40', '60', '80', '100']);
  });

  test('say what they explain that is not there', () => {
    const drawn = picture({ a: [1], b: [1] }, points, { rest: legend(['ghost']) });
    expect(drawn.notes.join()).toContain('ghost');
  });
});

describe('the page', () => {
  const body = (frames: string) =>
    `<graph>${points}<coordinates>${plainAxes}</coordinates></graph>${variables({ a: 1, b: 1 })}${frames}`;
  const drawn = (frames: string, attributes = '') =>
    new Picture(chartText(body(frames), attributes), tableOf({ a: [1, 2, 9], b: [1, 2, 3] }));

  test('is 625 by 500, unless the chart says another size', () => {
    expect([drawn('').drawn.width, drawn('').drawn.height]).toEqual([625, 500]);
    const other = drawn(
      '<location part="4" method="0" value="300px"/><location part="5" method="0" value="3in"/>',
    );
    expect([other.drawn.width, other.drawn.height]).toEqual([300, 288]);
  });

  test('cuts texts that would hide the data, and says so', () => {
    const label = (text: string, purpose: string) =>
      `<labelFrame id="f${purpose}"><label purpose="${purpose}"><text>${text}</text></label></labelFrame>`;
    const long = drawn(label('A title without end '.repeat(200), '1') + label('x'.repeat(500_000), '4'));
    const panel = long.svg.querySelector('g[role="group"] > rect')!;
    expect(number(panel, 'height')).toBeGreaterThan(80);
    expect(long.texts().filter((text) => text.endsWith('\u2026')).length).toBeGreaterThan(0);
    expect(long.notes.join()).toContain('is cut: A title without end');
  }, 2_000);

  test('wraps a title that is too long, and moves the data down', () => {
    const title = (text: string) =>
      drawn(
        `<labelFrame id="t"><label purpose="1"><text>${text}</text></label><location part="2" value="0px"/><location part="5" value="28px"/></labelFrame>`,
      );
    const top = (made: Picture) =>
      Number(
        /,(\d+)\)/.exec(
          Array.from(made.svg.querySelectorAll('g[transform]'))[0]!.getAttribute('transform')!,
        )![1],
      );
    const [short, long] = [title('Short'), title('A title that does not end '.repeat(8))];
    expect(long.svg.querySelectorAll('tspan').length).toBeGreaterThan(2);
    expect(top(long)).toBeGreaterThan(top(short) + 20);
    expect(short.drawn.title).toBe('Short');
  });

  test('describes the rows that the element draws in its panels', () => {
    const frame =
      '<labelFrame id="f"><label><descriptionGroup target="p"><text>M=</text><description name="5"/><text>;N=</text><description name="6"><format maximumFractionDigits="0"/></description></descriptionGroup></label></labelFrame>';
    const summary = (graph: string) =>
      picture({ a: [1, 3, 100, 50], k: [1, 2, null, 1], g: [1, 1, 1, null] }, graph, {
        categorical: { k: ['one', 'two'], g: ['low'] },
        rest: frame,
      }).texts();
    const counted = '<x variable="a"/><binStatistic/><summaryStatistic method="10"/>';
    const panelled = '<faceting method="cross"><cross><variableReference ref="k"/></cross></faceting>';
    const bars = (inner: string) => `<interval id="p">${inner}</interval>`;
    expect(summary(bars(counted)).join()).toContain(';N=4');
    expect(summary(bars(counted) + panelled).join()).toContain('M=18.00;N=3');
    expect(summary(bars(`${counted}<color variable="g"/>`) + panelled).join()).toContain('M=2.00;N=2');
  });

  test('computes the figures of a summary', () => {
    const made = drawn(
      '<labelFrame id="f"><label><descriptionGroup target="p"><text>M=</text><description name="5"/><text>;SD=</text><description name="7"><format maximumFractionDigits="2"/></description><text>;N=</text><description name="6"><format maximumFractionDigits="0"/></description></descriptionGroup></label></labelFrame>',
    );
    // Of b, which is along y: 1, 2, 3.
    expect(made.texts()).toContain('M=2.00;SD=1.00;N=3');
  });

  test('has a role, a name, and the description', () => {
    const made = drawn('', 'description="Points of b by a"');
    expect(made.svg.getAttribute('role')).toBe('graphics-document');
    expect(made.svg.querySelector('desc')!.textContent).toBe('Points of b by a');
    expect(made.names()).toEqual(expect.arrayContaining(['Data', '3 points', 'x axis', 'y axis']));
    // What the drawing library calls its marks is no name for a reader.
    expect(made.marks('dot')).toHaveLength(3);
    expect(made.names()).not.toContain('dot');
  });

  test('has nothing that a strict policy forbids', () => {
    const made = drawn('<style id="c" color="url(http://example.com)"/>');
    const all = Array.from(made.svg.querySelectorAll('*'));
    expect(all.filter((each) => each.localName === 'style' || each.hasAttribute('style'))).toEqual([]);
    expect(all.some((each) => Array.from(each.attributes).some((a) => /example\.com/.test(a.value)))).toBe(
      false,
    );
  });

  test('says why there is no chart', () => {
    expect(new Picture(null).texts()).toContain('There is no chart text to draw.');
    expect(new Picture('<visualization').notes.join()).toContain('cannot be drawn');
    expect(new Picture('<svg xmlns="x"/>').notes.join()).toContain('not a visualization');
  });

  test('shows the names of guides, and lines that no legend explains', () => {
    const made = picture(
      { a: [1, 2], b: [1, 2] },
      '<line id="n" name="Growth"><x variable="a"/><y variable="b"/></line><lineGuide y="1.5" name="Middle"/><functionGuide value="x" name="Even"/>',
    );
    expect(made.texts()).toEqual(expect.arrayContaining(['Growth', 'Middle', 'Even']));
    expect(made.names()).toEqual(expect.arrayContaining(['Guide: Middle', 'Guide: Even']));
  });

  test('is drawn the same again', () => {
    const texts = [0, 1].map(() => drawn('').svg.outerHTML);
    expect(texts[0]).toBe(texts[1]);
  });
});

describe('texts', () => {
  const look = {
    family: sansSerif,
    size: 10,
    weight: 'normal',
    slant: 'normal',
    color: '#000',
    align: 'start' as const,
  };

  test('are as wide as the table of the font says', () => {
    expect(textWidth('il', look)).toBeCloseTo(4.44, 6);
    expect(textWidth('Wä', look)).toBeCloseTo(9.44 + 5.56, 6);
  });

  test('break at blanks, and within words that are too long', () => {
    expect(wrap('one two three', 40, look)).toEqual(['one two', 'three']);
    expect(wrap('abcdefghij', 20, look).join('')).toBe('abcdefghij');
    expect(wrap('abcdefghij', 20, look).length).toBeGreaterThan(2);
  });

  test('keep their colour as far as it can be read', () => {
    expect(readableShade('#ffffff', '#0072b2')).toBe('#0072b2');
    const darker = readableShade('#ffffff', '#d55e00');
    expect(contrast(darker, '#ffffff')).toBeGreaterThanOrEqual(4.5);
    expect(darker).toMatch(/^#[9-c][0-9a-f][3-5][0-9a-f]00$/);
    expect(contrast(readableShade('#222222', '#0072b2'), '#222222')).toBeGreaterThanOrEqual(4.5);
  });

  test('contrast goes from 1 to 21', () => {
    expect(contrast('#000000', '#ffffff')).toBeCloseTo(21, 6);
    expect(contrast('#777777', '#777777')).toBe(1);
  });
});

test('a text that is cut is whole in its title', () => {
  const text = 'A title of many words. '.repeat(200).trim();
  const frame = (words: string) =>
    `<labelFrame id="f"><label purpose="1"><text>${words}</text></label></labelFrame>`;
  const drawn = new Picture(chartText(frame(text)));
  const titles = Array.from(drawn.svg.querySelectorAll('g > title')).map((title) => title.textContent);
  expect(titles).toEqual([text]);
  expect(drawn.notes.join()).toContain('too long for the page');
  expect(new Picture(chartText(frame('Short'))).svg.querySelectorAll('g > title')).toHaveLength(0);
});
