import { describe, expect, test } from 'vitest';
import { chartText, picture, plainAxes, Picture, tableOf } from './chart.js';

const names = (texts: string) => texts.split('');

interface Sample {
  text: string;
  shape: Element;
}

/** The samples of a legend with their texts, in their order. */
function samples(drawn: Picture): Sample[] {
  const legend = drawn.svg.querySelector('g[aria-label^="Legend"]')!;
  const parts = Array.from(legend.children).filter((part) => part.localName === 'g');
  const groups = parts.flatMap((part) =>
    Array.from(part.children).filter((each) => each.localName === 'g' && each.nextElementSibling),
  );
  return groups.map((group) => {
    const all = Array.from((group.parentNode as Element).children);
    const text = all[all.indexOf(group) + 1]!;
    return { text: text.textContent!, shape: group.children[group.children.length - 1]! };
  });
}

const texts = (drawn: Picture) => samples(drawn).map(({ text }) => text);
const looks = (drawn: Picture, name: string) =>
  samples(drawn).map(({ shape }) => shape.getAttribute(name)?.toLowerCase() ?? null);

/** The width of a symbol of which the path is known. */
function width(shape: Element): number {
  const values = shape
    .getAttribute('d')!
    .match(/-?\d+(\.\d+)?/g)!
    .map(Number);
  return 2 * Math.max(...values);
}

const at = [1, 2, 3, 4];
const xy = '<x variable="a"/><y variable="a"/>';

function points(aesthetics: string, rest: string, columns: Record<string, number[]> = {}): Picture {
  return picture({ a: at, ...columns }, `<point>${xy}${aesthetics}</point>`, {
    categorical: { k: names('uv'), g: names('xyz') },
    rest,
  });
}

describe('the legend of sizes', () => {
  const drawn = points(
    '<size id="s" variable="w" low="0px" high="40px"/>',
    '<legend id="l"><legendTarget target="s"/><label><text>Weight</text></label></legend>',
    { w: [0, 25, 50, 100] },
  );

  test('shows round values of the data, with symbols as large as theirs', () => {
    expect(texts(drawn)).toEqual(['0', '50', '100']);
    const widths = samples(drawn).map(({ shape }) => width(shape));
    // Areas show values.
    expect(widths[1]).toBeCloseTo(40 * Math.SQRT1_2, 1);
    expect(widths[2]).toBeCloseTo(40, 1);
    const radii = drawn.marks('dot').map((mark) => Number(mark.getAttribute('r')));
    expect(Math.max(...radii)).toBe(20);
    expect(radii.some((radius) => Math.abs(radius - 20 * Math.SQRT1_2) < 0.01)).toBe(true);
  });

  test('is grey where colours show numbers, too', () => {
    const both = points(
      '<color id="c" variable="w"/><size id="s" variable="w"/>',
      '<legend id="l"><legendTarget target="c"/><legendTarget target="s"/></legend>',
      { w: [0, 25, 50, 100] },
    );
    expect(new Set(looks(both, 'fill'))).toEqual(new Set(['#737373']));
  });

  test('has texts that large symbols do not cover', () => {
    const lefts = samples(drawn).map(({ shape }) => shape.parentNode as Element);
    const all = Array.from(lefts[2]!.parentNode!.children as unknown as Element[]);
    const text = all[all.indexOf(lefts[2]!) + 1]!;
    const middle = Number(/translate\(([\d.]+),/.exec(lefts[2]!.getAttribute('transform')!)![1]);
    expect(Number(text.getAttribute('x'))).toBeGreaterThan(middle + 20);
  });
});

describe('the legend of transparencies', () => {
  test('shows round values with the opacity of the marks', () => {
    const drawn = points(
      '<transparency id="t" variable="w" low="0" high="0.5"/>',
      '<legend id="l"><legendTarget target="t"/></legend>',
      { w: [0, 25, 50, 100] },
    );
    expect(texts(drawn)).toEqual(['0', '50', '100']);
    expect(looks(drawn, 'fill-opacity')).toEqual([null, '0.75', '0.5']);
    const marks = drawn.marks('dot').map((mark) => drawn.look(mark, 'fill-opacity'));
    expect(marks.map(Number).sort()).toEqual([0.5, 0.75, 0.875, 1]);
  });

  test('and of sizes of one variable are two parts', () => {
    const drawn = points(
      '<transparency id="t" variable="w"/><size id="s" variable="w"/>',
      '<legend id="l"><legendTarget target="t"/><legendTarget target="s"/></legend>',
      { w: [0, 25, 50, 100] },
    );
    expect(texts(drawn)).toEqual(['0', '50', '100', '0', '50', '100']);
  });
});

describe('the legend of an element with two variables', () => {
  const two = '<legend id="l"><legendTarget target="c"/><legendTarget target="s"/></legend>';
  const columns = { k: [1, 2, 1, 2], g: [1, 2, 3, 1] };

  test('has a part for each, in which nothing else varies', () => {
    const drawn = points('<color id="c" variable="k"/><shape id="s" variable="g"/>', two, columns);
    expect(texts(drawn)).toEqual([...names('uv'), ...names('xyz')]);
    const [fills, paths] = [looks(drawn, 'fill'), looks(drawn, 'd')];
    expect(new Set(fills.slice(0, 2)).size).toBe(2);
    const form = (path: string | null) => path!.replace(/[-\d.]+/g, '');
    expect(new Set(paths.slice(0, 2).map(form)).size).toBe(1);
    expect(new Set(paths.slice(2).map(form)).size).toBe(3);
  });

  test('shows symbols in a colour that stands for no group', () => {
    const drawn = points('<color id="c" variable="k"/><shape id="s" variable="g"/>', two, columns);
    const fills = looks(drawn, 'fill');
    expect(new Set(fills.slice(2)).size).toBe(1);
    expect(fills.slice(0, 2)).not.toContain(fills[2]);
    const own = points(
      '<shape id="s" variable="g"/>',
      two.replace('<legendTarget target="c"/>', ''),
      columns,
    );
    expect(looks(own, 'fill')[0]).toBe(own.look(own.marks('dot')[0]!, 'fill')!.toLowerCase());
  });

  test('shows dashes in a colour that stands for no group', () => {
    const drawn = picture(
      { a: at, ...columns },
      `<line>${xy}<color id="c" variable="k"/><dash id="s" variable="g"/></line>`,
      { categorical: { k: names('uv'), g: names('xyz') }, rest: two },
    );
    const strokes = looks(drawn, 'stroke');
    expect(new Set(looks(drawn, 'stroke-dasharray').slice(2)).size).toBe(3);
    expect(strokes.slice(0, 2)).not.toContain(strokes[2]);
  });

  test('is one part where both aesthetics show one variable', () => {
    const drawn = points('<color id="c" variable="k"/><shape id="s" variable="k"/>', two, columns);
    expect(texts(drawn)).toEqual(names('uv'));
    expect(new Set(looks(drawn, 'fill')).size).toBe(2);
    expect(new Set(looks(drawn, 'd')).size).toBe(2);
  });
});

describe('the legend of a chart with panels', () => {
  const legend = '<legend id="l"><legendTarget target="c"/></legend>';

  test('of nested variables lists each group once, as it looks in all panels', () => {
    const drawn = picture(
      { a: at, k: [1, 1, 2, 2], g: [1, 2, 3, 3] },
      `<point>${xy}<color id="c" variable="g"/></point><faceting method="nest"><cross><nest><variableReference ref="k"/><variableReference ref="g"/></nest><unity/></cross></faceting>`,
      { categorical: { k: names('uv'), g: names('xyz') }, rest: legend },
    );
    expect(drawn.names().filter((name) => name.startsWith('Panel'))).toHaveLength(3);
    expect(texts(drawn)).toEqual(names('xyz'));
    const shown = drawn.marks('dot').map((mark) => drawn.look(mark, 'fill'));
    expect(new Set(shown)).toEqual(new Set(looks(drawn, 'fill')));
  });

  test('of a blend lists each group once, as it looks beside each measure', () => {
    const variable = (name: string, rest = '') =>
      `<sourceVariable id="${name}" source="s" sourceName="${name}" label="${name}" ${rest}`;
    const format = '<format><relabel from="1" to="u"/><relabel from="2" to="v"/></format></sourceVariable>';
    const drawn = new Picture(
      chartText(
        '<graph><point><x variable="a"/><y variable="e"/><color id="c" variable="k"/></point>' +
          `<coordinates>${plainAxes}</coordinates></graph><userSource id="s"/>` +
          `${variable('a', '/>')}${variable('b', '/>')}${variable('k', 'categorical="true">')}${format}` +
          '<derivedVariable id="la" categorical="true" value="constant(1)"><format><relabel from="1" to="first"/></format></derivedVariable>' +
          '<derivedVariable id="lb" categorical="true" value="constant(1)"><format><relabel from="1" to="second"/></format></derivedVariable>' +
          `<expressionVariable id="e" expression="a/la + b/lb"/>${legend}`,
      ),
      tableOf({ a: at, b: [4, 3, 2, 1], k: [1, 2, 1, 2] }),
    );
    expect(drawn.names().filter((name) => name.startsWith('Panel'))).toHaveLength(2);
    expect(drawn.marks('dot')).toHaveLength(8);
    expect(texts(drawn)).toEqual(names('uv'));
    const shown = drawn.marks('dot').map((mark) => drawn.look(mark, 'fill'));
    expect(new Set(shown)).toEqual(new Set(looks(drawn, 'fill')));
  });
});

test('a range of colours over dates has round dates', () => {
  const years = [0, 400, 800, 1200, 1460].map((days) => (15340 + days) * 86_400);
  const drawn = picture(
    { a: [1, 2, 3, 4, 5], b: [1, 2, 3, 4, 5], w: years },
    '<point><x variable="a"/><y variable="b"/><color id="c" variable="t"/></point>',
    {
      rest: '<sourceVariable id="t" source="s" sourceName="w" label="Day"><format pattern="yyyy-MM-dd"/></sourceVariable><legend id="l"><legendTarget target="c"/></legend>',
    },
  );
  // From 2012-01-01 to the end of 2015.
  expect(drawn.textsOf('Legend')).toEqual(['2012-01-01', '2013-01-01', '2014-01-01', '2015-01-01']);
});
