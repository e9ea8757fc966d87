import { describe, expect, test } from 'vitest';
import { textWidth } from '../../src/draw/svg/text.js';
import { sizeOfAspect } from '../../src/draw/axes/sameratio.js';
import { ownTexts } from '../../src/draw/compile/looks.js';
import { chartText, number, Picture, picture, plainAxes, tableOf, variables } from './chart.js';

const [pageWidth, pageHeight] = [625, 500];
const points = '<point id="p"><x variable="a"/><y variable="b"/><color id="c" variable="k"/></point>';
const columns = { a: [1, 2], b: [1, 2], k: [1, 2] };
const categorical = { k: ['one', 'two'], g: ['low', 'high'] };
const placed = (part: number, value: string) => `<location part="${part}" method="0" value="${value}"/>`;
const [left, top, bottom, height] = [0, 2, 3, 5];

/** Where something stands from the corner of the page. */
function placeOf(element: Element): [number, number] {
  let [x, y] = [0, 0];
  for (
    let node = element;
    node.nodeType === 1 && node.localName !== 'svg';
    node = node.parentNode as Element
  ) {
    const moved = /translate\(([-\d.]+),([-\d.]+)\)/.exec(node.getAttribute('transform') ?? '');
    x += Number(moved?.[1] ?? 0);
    y += Number(moved?.[2] ?? 0);
  }
  return [x, y];
}

const panel = (drawn: Picture) => {
  const rectangle = drawn.svg.querySelector('g[aria-label^="Panel:"] rect, g[aria-label="Data"] rect')!;
  const [x, y] = placeOf(rectangle);
  const [width, height] = [number(rectangle, 'width'), number(rectangle, 'height')];
  return { left: x, top: y, right: x + width, bottom: y + height, width, height };
};

const textOf = (drawn: Picture, text: string) =>
  Array.from(drawn.svg.querySelectorAll('text')).find((each) => each.textContent === text)!;

/** From its base line upwards or downwards. */
const downOf = (drawn: Picture, text: string) => {
  const found = textOf(drawn, text);
  return placeOf(found)[1] + number(found, 'y');
};

describe('legends', () => {
  const legend = (id: string, locations: string, style = '', target = 'c') =>
    `<legend id="${id}" ${style}><legendTarget target="${target}"/><label><text>${id}</text></label>${locations}</legend>`;
  const withLegends = (rest: string, more = '') =>
    picture({ ...columns, g: [1, 2] }, points.replace('</point>', `${more}</point>`), { categorical, rest });
  const corner = (drawn: Picture, name: string) =>
    placeOf(drawn.svg.querySelector(`g[aria-label="Legend: ${name}"]`)!);

  test('stand at the left where the chart places them there', () => {
    const drawn = withLegends(legend('L', placed(left, '0%')));
    expect(corner(drawn, 'L')[0]).toBeLessThan(panel(drawn).left);
    const usual = withLegends(legend('L', ''));
    expect(corner(usual, 'L')[0]).toBeGreaterThan(panel(usual).right);
  });

  test('stand below the data where they only end at the bottom of the page', () => {
    const below = withLegends(legend('L', placed(bottom, '100%')));
    expect(corner(below, 'L')[1]).toBeGreaterThan(panel(below).bottom);
    const beside = withLegends(legend('L', placed(bottom, '100%') + placed(top, '10%')));
    expect(corner(beside, 'L')[0]).toBeGreaterThan(panel(beside).right);
  });

  test('below the data stand below each other, and the data above all of them', () => {
    const at = placed(bottom, '100%');
    const drawn = withLegends(legend('L', at) + legend('M', at, '', 'h'), '<shape id="h" variable="g"/>');
    const [first, second] = [corner(drawn, 'L')[1], corner(drawn, 'M')[1]];
    expect(Math.abs(first - second)).toBeGreaterThan(30);
    expect(Math.min(first, second)).toBeGreaterThan(panel(drawn).bottom + 20);
  });

  test('beside each other share the height of the page', () => {
    const many = Array.from({ length: 200 }, (_, at) => at + 1);
    const drawn = picture(
      { a: many, b: many, k: many, g: many },
      points.replace('</point>', '<shape id="h" variable="g"/></point>'),
      {
        categorical: { k: many.map((at) => `kind ${at}`), g: many.map((at) => `group ${at}`) },
        rest: legend('L', '') + legend('M', '', '', 'h'),
      },
    );
    const second = drawn.svg.querySelector('g[aria-label="Legend: M"]')!;
    const lowest = Math.max(
      ...Array.from(second.querySelectorAll('text')).map((text) => placeOf(text)[1] + number(text, 'y')),
    );
    expect(lowest).toBeLessThan(pageHeight - 6);
  });

  test('without a box begin where the graph does, those with one where panels do', () => {
    const plain = withLegends(legend('L', ''));
    const boxed = withLegends(
      legend('L', '', 'style="x"') + '<style id="x" color="#ffffff" color2="#000000"/>',
    );
    expect(corner(boxed, 'L')[1] - corner(plain, 'L')[1]).toBe(10);
    expect(corner(boxed, 'L')[1]).toBe(panel(boxed).top);
  });
});

describe('names of lines', () => {
  const line = '<line id="l" name="The line"><x variable="a"/><y variable="b"/></line>';
  const count = (drawn: Picture) => drawn.texts().filter((text) => text === 'The line').length;

  test('are those that no legend explains, of lines without groups', () => {
    const rest = '<legend id="L"><legendTarget target="l"/></legend>';
    expect(count(picture(columns, line, { categorical, rest }))).toBe(1);
    const grouped = line.replace('</line>', '<color variable="k"/></line>');
    expect(count(picture(columns, grouped, { categorical }))).toBe(0);
  });

  test('stand beside the panel, whole on the page, unless the chart lies', () => {
    const long = 'A name of a line that is rather long';
    const drawn = picture(columns, line.replace('The line', long));
    const text = textOf(drawn, long);
    const end =
      placeOf(text)[0] + number(text, 'x') + textWidth(long, { ...ownTexts.guideLabel, weight: 'bold' });
    expect(end).toBeLessThan(pageWidth);
    expect(drawn.names()).toContain('Names of lines');
    const turned = picture(columns, line, { coordinates: `${plainAxes}<transposeTransform/>` });
    expect(turned.names()).not.toContain('Names of lines');
  });

  test('that end in one place stand below each other', () => {
    const drawn = picture(
      { a: [1, 2], b: [1, 2], c: [3, 2] },
      `${line}<line id="m" name="The other"><x variable="a"/><y variable="c"/></line>`,
    );
    expect(Math.abs(downOf(drawn, 'The line') - downOf(drawn, 'The other'))).toBeGreaterThan(10);
  });
});

describe('titles and footnotes', () => {
  const frame = (id: string, purpose: number, text: string, locations: string) =>
    `<labelFrame id="${id}">${locations}<label purpose="${purpose}"><text>${text}</text></label></labelFrame>`;
  const long = 'A title of so many words that it takes several lines of the page '.repeat(4).trim();
  const first = (drawn: Picture, start: string) =>
    Array.from(drawn.svg.querySelectorAll('text')).find((each) => each.textContent!.startsWith(start))!;

  test('that need more room push those below them', () => {
    const drawn = picture(columns, points, {
      categorical,
      rest:
        frame('t', 1, long, placed(top, '0px') + placed(height, '20px')) +
        frame('u', 2, 'The second', placed(top, '22px') + placed(height, '20px')),
    });
    const lines = Array.from(first(drawn, 'A title').querySelectorAll('tspan'));
    expect(lines.length).toBeGreaterThan(2);
    expect(number(first(drawn, 'The second'), 'y')).toBeGreaterThan(number(lines.at(-1)!, 'y') + 10);
  });

  test('at the bottom push those above them', () => {
    const drawn = picture(columns, points, {
      categorical,
      rest:
        frame('t', 5, long, placed(top, '480px') + placed(height, '20px')) +
        frame('u', 4, 'The upper', placed(top, '455px') + placed(height, '20px')),
    });
    const [highest] = Array.from(first(drawn, 'A title').querySelectorAll('tspan'));
    expect(number(first(drawn, 'The upper'), 'y')).toBeLessThan(number(highest!, 'y') - 10);
  });
});

test('graphs without places share the page, one below the other', () => {
  const graph = `<graph><point><x variable="a"/><y variable="b"/></point><coordinates>${plainAxes}</coordinates></graph>`;
  const drawn = new Picture(
    chartText(graph + graph + variables({ a: 1, b: 1 })),
    tableOf({ a: [1, 2], b: [1, 2] }),
  );
  const [upper, lower] = Array.from(drawn.svg.querySelectorAll('g[aria-label="Data"] rect:first-child'));
  expect(placeOf(lower!)[1]).toBeGreaterThan(placeOf(upper!)[1] + number(upper!, 'height'));
});

describe('notes below the picture', () => {
  const unknown = (number: number) =>
    `<point><x variable="a"/><y variable="b"/><summaryStatistic method="${number}"/></point>`;
  const noted = (methods: number[]) =>
    picture(columns, methods.map(unknown).join('')).textsOf('Notes').join(' ');

  test('are six at most, and how many more there are', () => {
    expect(noted([41, 42, 43, 44, 45, 46])).toContain('statistic 46');
    const seven = noted([41, 42, 43, 44, 45, 46, 47]);
    expect(seven).not.toContain('statistic 47');
    expect(seven).toContain('And 1 more notes.');
  });

  test('stand there once', () => {
    expect(noted([41, 41]).match(/statistic 41/g)).toHaveLength(1);
  });

  test('begin at the edge where footnotes are in the middle', () => {
    const drawn = picture(columns, unknown(41), {
      rest: `<labelFrame id="f">${placed(left, '100px')}<label purpose="4" style="m"><text>A footnote</text></label></labelFrame><style id="m" textAlignment="center"/>`,
    });
    expect(number(drawn.svg.querySelector('g[aria-label="Notes"] text')!, 'x')).toBe(4);
  });
});

describe('panels', () => {
  const faceted = (layout: string, faceting = '<variableReference ref="k"/>', extra = plainAxes) =>
    picture(
      { ...columns, g: [1, 1] },
      `<point><x variable="a"/><y variable="b"/></point><faceting><cross>${faceting}</cross></faceting>${layout}`,
      { categorical, coordinates: extra },
    );

  test('have the aspect that the chart wants, and stand in the middle', () => {
    expect(sizeOfAspect({ width: 400, height: 300 }, 1)).toEqual({ width: 300, height: 300 });
    expect(sizeOfAspect({ width: 400, height: 300 }, 2)).toEqual({ width: 400, height: 200 });
    const drawn = picture(
      columns,
      '<point><x variable="a"/><y variable="b"/></point><facetLayout cellAspect="0.5"/>',
    );
    const { width, height, left: from, right } = panel(drawn);
    expect(width / height).toBeCloseTo(0.5, 2);
    expect(from).toBeGreaterThan(100);
    expect(pageWidth - right).toBeGreaterThan(100);
  });

  test('of rows stand from the top down, or upwards where the chart wants that', () => {
    const tops = (layout: string) =>
      Array.from(
        faceted(layout, '<unity/><variableReference ref="k"/>').svg.querySelectorAll(
          'g[aria-label^="Panel:"]',
        ),
      ).map((each) => placeOf(each)[1]);
    const [one, two] = tops('');
    expect(one).toBeLessThan(two!);
    const [below, above] = tops('<facetLayout topDown="false"/>');
    expect(below).toBeGreaterThan(above!);
  });

  const headers = (drawn: Picture, name: string) =>
    drawn.svg.querySelector(`g[aria-label="${name} of panels"]`)!;

  test('have a text for each of their columns within an outer one, and a line below that', () => {
    const nested = faceted('', '<nest><variableReference ref="k"/><variableReference ref="g"/></nest>');
    expect(nested.textsOf('Columns of panels')).toEqual(['one', 'two', 'low', 'low']);
    expect(headers(nested, 'Columns').querySelectorAll('path')).toHaveLength(2);
    expect(headers(faceted(''), 'Columns').querySelectorAll('path')).toHaveLength(0);
  });

  const near =
    '<facetLayout><facetLevel level="1"><axis opposite="false"><majorTicks/></axis></facetLevel></facetLayout>';

  test('have texts below the labels of the axis where these are not opposite', () => {
    const drawn = faceted(near);
    const label = drawn.svg.querySelector('g[aria-label="x axis"] text')!;
    const text = headers(drawn, 'Columns').querySelector('text')!;
    expect(placeOf(text)[1] + number(text, 'y')).toBeGreaterThan(placeOf(label)[1] + number(label, 'y') + 10);
  });

  test('have texts that are read upwards at their left, and downwards at their right', () => {
    const rows = '<unity/><variableReference ref="k"/>';
    const turn = (drawn: Picture) => headers(drawn, 'Rows').querySelector('text')!.getAttribute('transform');
    expect(turn(faceted(near, rows))).toContain('rotate(-90)');
    expect(turn(faceted('', rows))).toContain('rotate(90)');
  });

  const named = (names: string[]) =>
    picture(
      { a: names.map(() => 1), b: names.map(() => 1), k: names.map((_, at) => at + 1) },
      '<point><x variable="a"/><y variable="b"/></point><faceting><cross><variableReference ref="k"/></cross></faceting>',
      { categorical: { k: names } },
    );
  const numbered = (count: number, name: string) => Array.from({ length: count }, (_, at) => `${name}${at}`);

  test('that are narrow have turned texts, which take a quarter of the graph at most', () => {
    // Some 180 pixels long in their own size.
    const drawn = named(numbered(8, 'An-unbreakable-name-of-panel-'));
    expect(panel(drawn).height).toBeGreaterThan(0.75 * pageHeight - 50);
    const narrow = named(numbered(20, 'Unbreakable'.repeat(12)));
    expect(headers(narrow, 'Columns').querySelector('text')!.getAttribute('transform')).toContain(
      'rotate(-90)',
    );
    expect(panel(narrow).height).toBeGreaterThan((1 - 0.25 * 1.25) * pageHeight - 60);
  });

  test('that are no wider than a letter have no turned texts, which would cover each other', () => {
    for (const text of Array.from(headers(named(numbered(60, 'Name')), 'Columns').querySelectorAll('text')))
      expect(text.getAttribute('transform')).toBeNull();
  });
});

describe('labels of an axis on top', () => {
  const names = ['one', 'two', 'three', 'A name of some thirty letters'];
  const turned = (opposite: string) =>
    picture({ k: [1, 2, 3, 4] }, '<interval><x variable="k"/><summaryStatistic method="10"/></interval>', {
      categorical: { k: names },
      coordinates: `<dimension><axis opposite="${opposite}"><majorTicks labelAngle="45"/></axis></dimension><dimension/>`,
    });

  test('have room at the right where they run to it', () => {
    const room = (drawn: Picture) => pageWidth - panel(drawn).right;
    expect(room(turned('false'))).toBeLessThan(20);
    expect(room(turned('true'))).toBeGreaterThan(40);
  });
});
