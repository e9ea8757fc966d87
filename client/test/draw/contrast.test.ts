import { readdirSync, readFileSync } from 'node:fs';
import { describe, expect, test } from 'vitest';
import { color } from 'd3';
import { contrast, groupColors, groupSymbols } from '../../src/draw/svg/colors.js';
import { number, picture, plainAxes, Picture } from './chart.js';

const least = 3;

/** What is seen of a colour that covers a share of what is behind it. */
function seen(front: string, opacity: number, back: string): string {
  const [above, below] = [color(front)!.rgb(), color(back)!.rgb()];
  const mix = (name: 'r' | 'g' | 'b') => Math.round(above[name] * opacity + below[name] * (1 - opacity));
  return `rgb(${mix('r')},${mix('g')},${mix('b')})`;
}

const isColor = (text: string | null): text is string => text !== null && /^(#|rgb)/.test(text);

/** The contrast of a paint with the paper; 1 of what shows nothing, such as none or a pattern. */
function paintContrast(drawn: Picture, mark: Element, name: 'fill' | 'stroke', paper: string): number {
  const paint = drawn.look(mark, name);
  if (!isColor(paint)) return 1;
  const opacity = Number(drawn.look(mark, `${name}-opacity`) ?? 1);
  const width = name === 'stroke' ? Number(drawn.look(mark, 'stroke-width') ?? 1) : 1;
  return width < 0.5 ? 1 : contrast(seen(paint, opacity, paper), paper);
}

const kinds = ['dot', 'rect', 'area', 'line', 'link', 'slice'];

/** The marks of which neither the inside, nor the outline, nor what lies below them stands out. */
function faint(drawn: Picture, paper: string): string[] {
  const marks = kinds.flatMap((kind) => drawn.marks(kind).map((mark) => ({ kind, mark })));
  expect(marks.length).toBeGreaterThan(0);
  return marks.flatMap(({ kind, mark }) => {
    const group = mark.parentNode as Element;
    const below = Array.from((group.parentNode as Element).querySelectorAll('g[data-kind="casing"] > *'));
    const ways = [
      paintContrast(drawn, mark, 'fill', paper),
      paintContrast(drawn, mark, 'stroke', paper),
      ...below.map((casing) => paintContrast(drawn, casing, 'stroke', paper)),
    ];
    return Math.max(...ways) >= least
      ? []
      : [`${kind} ${drawn.look(mark, 'fill')} ${drawn.look(mark, 'stroke')}`];
  });
}

/** Of each way to draw a mark: the element, and how the columns are shown. */
const elements: Record<string, string> = {
  points: '<point STYLE><x variable="a"/><y variable="b"/></point>',
  bars: '<interval STYLE><x variable="k"/><y variable="b"/></interval>',
  'thin bars': '<interval STYLE><x variable="k"/><y variable="t"/></interval>',
  histogram: '<interval STYLE><x variable="a"/><binStatistic/><summaryStatistic method="10"/></interval>',
  'error bars': '<interval STYLE><summaryStatistic method="7"/><x variable="g"/><y variable="b"/></interval>',
  areas: '<area STYLE><x variable="a"/><y variable="b"/></area>',
  lines: '<line STYLE><x variable="a"/><y variable="b"/></line>',
  'lines with gaps': '<line STYLE><x variable="a"/><y variable="m"/></line>',
  paths: '<path STYLE><x variable="a"/><y variable="b"/></path>',
  edges: '<edge STYLE><x variable="a"/><y variable="b"/><x variable="b"/><y variable="a"/></edge>',
  polygons: '<polygon STYLE><x variable="a"/><y variable="b"/></polygon>',
  boxes: '<schema STYLE><x variable="g"/><y variable="o"/><tukeyStatistic/></schema>',
  dots: '<point STYLE positionModifier="7"><x variable="a"/></point>',
};

const columns = {
  a: [1, 2, 3, 5, 8, 9],
  b: [4, 1, 6, 2, 5, 3],
  k: [1, 2, 3, 4, 5, 6],
  g: [1, 1, 1, 2, 2, 2],
  t: [4000, 1, 2, 0, 5, 3],
  m: [4, null, 6, null, 5, 3],
  o: [1, 1.1, 1.2, 1.3, 1.1, 9],
};
const names = (texts: string) => texts.split('');
const categorical = { k: names('abcdef'), g: names('uv') };

interface Look {
  paper: string;
  style: string;
}

function drawnWith(element: string, { paper, style }: Look): Picture {
  return picture(columns, element.replace('STYLE', 'style="s1"'), {
    categorical,
    rest: `<style id="page" color="${paper}"/><style id="s1" ${style}/>`,
    attributes: 'style="page"',
  });
}

/** The colours that a template has for marks, with their outlines, and what they are shown on. */
function looksOf(text: string): Look[] {
  const paper = /<setLook part="graph"><style color="(#\w+)"/.exec(text)?.[1] ?? '#FFFFFF';
  const marks = text.replace(/<set(Look|Font|Axis)[^]*?(\/>|<\/set\1>)/g, '');
  return Array.from(marks.matchAll(/<style ([^>]*\bcolor="#[^>]*?)\/>/g))
    .filter((found) => !found[1]!.includes('visible="false"'))
    .map((found) => ({ paper, style: found[1]!.replace(/(symbol|id)="\w+"/g, '') }));
}

const folder = '../share/templates';
const visual = '../share/template';
const shipped: [string, Look[]][] = [
  ...readdirSync(folder).map((name): [string, Look[]] => [
    name,
    looksOf(readFileSync(`${folder}/${name}`, 'utf8')),
  ]),
  ...readdirSync(visual).map((name): [string, Look[]] => [
    name,
    looksOf(readFileSync(`${visual}/${name}`, 'utf8')),
  ]),
  [
    'the client itself',
    [
      { paper: '#FFFFFF', style: '' },
      ...groupColors.map((each) => ({ paper: '#FFFFFF', style: `color="${each}"` })),
    ],
  ],
];

describe('marks stand out from their panel with the looks of', () => {
  test.each(shipped)('%s', (_, looks) => {
    for (const look of looks) {
      for (const [name, element] of Object.entries(elements)) {
        expect(faint(drawnWith(element, look), look.paper), `${name} ${look.style}`).toEqual([]);
      }
      const symbols = groupSymbols.map((symbol) => ({ ...look, style: `${look.style} symbol="${symbol}"` }));
      for (const symbol of symbols) {
        expect(faint(drawnWith(elements.points!, symbol), look.paper), symbol.style).toEqual([]);
      }
      const patterned = { ...look, style: `${look.style.replace(/pattern="\d+"/, '')} pattern="4"` };
      expect(faint(drawnWith(elements.bars!, patterned), look.paper), patterned.style).toEqual([]);
    }
  });

  test('all templates that have colours', () => {
    const counts = Object.fromEntries(shipped.map(([name, looks]) => [name, looks.length]));
    expect(counts['default_look.xml']).toBeGreaterThan(15);
    expect(counts['dark.xml']).toBeGreaterThan(12);
    expect(counts['print_grey.xml']).toBeGreaterThan(10);
    expect(counts['colors_only.xml']).toBeGreaterThan(7);
    expect(counts['large_type.xml']).toBe(0);
    expect(counts['grouped_scatter.lumotemplate']).toBeGreaterThan(7);
    const dark = shipped.find(([name]) => name === 'dark.xml')![1];
    expect(dark[0]!.paper).toBe('#262626');
  });
});

describe('a colour that is too like the paper', () => {
  const yellow = { paper: '#FFFFFF', style: 'color="#F0E442"' };

  test('stays as the chart says, with an outline of a darker shade', () => {
    for (const [kind, element] of [
      ['dot', elements.points!],
      ['rect', elements.bars!],
      ['area', elements.areas!],
    ] as const) {
      const drawn = drawnWith(element, yellow);
      const [mark] = drawn.marks(kind);
      expect(drawn.look(mark!, 'fill')).toBe('#f0e442');
      expect(contrast(drawn.look(mark!, 'stroke')!, '#ffffff')).toBeGreaterThanOrEqual(least);
    }
  });

  test('makes symbols and bars no larger by its outline', () => {
    const dots = (style: string) => {
      const drawn = drawnWith(elements.points!, { ...yellow, style });
      const [mark] = drawn.marks('dot');
      return number(mark!, 'r') + (drawn.look(mark!, 'stroke') ? 0.5 : 0);
    };
    expect(dots('color="#F0E442" size="9px"')).toBe(dots('color="#000080" size="9px"'));
    const bars = (style: string) => {
      const drawn = drawnWith(elements.bars!, { ...yellow, style });
      return drawn.marks('rect').map((mark) => number(mark, 'width'))[0]!;
    };
    expect(bars('color="#F0E442"') + 1).toBeCloseTo(bars('color="#000080"'), 2);
  });

  test('of low bars does not make them vanish', () => {
    const drawn = drawnWith(elements['thin bars']!, yellow);
    const heights = drawn.marks('rect').map((mark) => number(mark, 'height'));
    // One of them is 0.
    expect(heights.filter((height) => height >= 0.99)).toHaveLength(5);
  });

  test('of a line stays, on a wider line of a darker shade', () => {
    const drawn = drawnWith(elements.lines!, { ...yellow, style: `${yellow.style} stroke_width="2px"` });
    expect(drawn.marks('line').map((line) => drawn.look(line, 'stroke'))).toEqual(['#f0e442']);
    const [casing] = drawn.marks('casing');
    expect(drawn.look(casing!, 'stroke-width')).toBe('3');
    expect(contrast(drawn.look(casing!, 'stroke')!, '#ffffff')).toBeGreaterThanOrEqual(least);
  });

  test('has a lighter outline on dark paper', () => {
    const drawn = drawnWith(elements.points!, { paper: '#202020', style: 'color="#000080"' });
    const stroke = drawn.look(drawn.marks('dot')[0]!, 'stroke')!;
    expect(stroke).toMatch(/^#/);
    expect(contrast(stroke, '#202020')).toBeGreaterThanOrEqual(least);
    expect(contrast(stroke, '#000000')).toBeGreaterThan(contrast('#000080', '#000000'));
  });

  test('keeps an outline of the chart that stands out', () => {
    const drawn = drawnWith(elements.bars!, { ...yellow, style: `${yellow.style} color2="#654321"` });
    expect(drawn.look(drawn.marks('rect')[0]!, 'stroke')).toBe('#654321');
  });

  test('varies with numbers, and so do the outlines of those that need one', () => {
    const drawn = picture(
      { a: [1, 2, 3], b: [1, 2, 3], w: [0, 50, 100] },
      '<point><x variable="a"/><y variable="b"/><color variable="w" cycle="c"/></point>',
      {
        rest: '<styleCycle id="c"><cycle><style color="#ffffcc"/><style color="#000080"/></cycle></styleCycle>',
      },
    );
    expect(faint(drawn, '#ffffff')).toEqual([]);
    expect(drawn.marks('dot').map((mark) => drawn.look(mark, 'stroke'))[2]).toBe('none');
  });

  test('is not made darker by the transparency that the chart wants', () => {
    const drawn = drawnWith(elements.points!, { paper: '#FFFFFF', style: 'color="#0072B2" opacity="0.1"' });
    expect(paintContrast(drawn, drawn.marks('dot')[0]!, 'stroke', '#ffffff')).toBe(1);
  });

  test('is as much of a slice of a pie', () => {
    const drawn = picture(
      { k: [1, 1, 2] },
      '<interval positionModifier="3"><summaryStatistic method="3"/><color variable="k" cycle="c"/></interval>',
      {
        categorical: { k: names('ab') },
        coordinates: '<dimension/><dimension/><transposeTransform/><polarTransform/>',
        rest: '<styleCycle id="c"><cycle><style color="#F0E442"/><style color="#000080"/></cycle></styleCycle>',
      },
    );
    expect(faint(drawn, '#ffffff')).toEqual([]);
  });

  test('has the same outline in the legend', () => {
    const drawn = picture(
      { a: [1, 2], b: [1, 2], k: [1, 2] },
      '<point><x variable="a"/><y variable="b"/><color id="c" variable="k" cycle="y"/></point>',
      {
        categorical: { k: names('ab') },
        coordinates: plainAxes,
        rest: '<styleCycle id="y"><cycle><style color="#F0E442"/><style color="#000080"/></cycle></styleCycle><legend id="l"><legendTarget target="c"/></legend>',
      },
    );
    const sample = drawn.svg.querySelector('g[aria-label^="Legend"] path')!;
    const mark = drawn.marks('dot').find((each) => drawn.look(each, 'fill') === '#f0e442')!;
    expect(sample.getAttribute('stroke')).toBe(drawn.look(mark, 'stroke'));
    expect(contrast(sample.getAttribute('stroke')!, '#ffffff')).toBeGreaterThanOrEqual(least);
  });
});
