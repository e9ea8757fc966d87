import { describe, expect, test } from 'vitest';
import { mostPanels } from '../../src/draw/compile/panels.js';
import { picture, type Picture } from './chart.js';

const points = '<point id="p"><x variable="a"/><y variable="b"/></point>';
const across = '<faceting><cross><variableReference ref="k"/><unity/></cross></faceting>';
const upright = '<faceting><cross><unity/><variableReference ref="k"/></cross></faceting>';
const names = (count: number) => Array.from({ length: count }, (_, at) => `K${at + 1}`);
const numbers = (count: number) => names(count).map((_, at) => at + 1);

const panelled = (count: number, faceting: string) =>
  picture({ a: numbers(count), b: numbers(count), k: numbers(count) }, points + faceting, {
    categorical: { k: names(count) },
  });

const panels = ({ svg }: Picture) => Array.from(svg.querySelectorAll('g[aria-label^="Panel: "]'));

/** Where the panels begin and end on the page, across (1) or downwards (2). */
function reach(drawn: Picture, part: 1 | 2): [number, number] {
  const moved = (element: Element) =>
    Number(/translate\((-?[\d.]+),(-?[\d.]+)\)/.exec(element.getAttribute('transform') ?? '')![part]);
  const ends = panels(drawn).map((panel) => {
    const own = panel.parentNode as Element;
    const from = moved(own) + moved(own.parentNode as Element);
    const size = panel.querySelector('rect')!.getAttribute(part === 1 ? 'width' : 'height');
    return [from, from + Number(size)] as const;
  });
  return [Math.min(...ends.map(([from]) => from)), Math.max(...ends.map(([, to]) => to))];
}

describe('of more panels than have room the first are drawn', () => {
  test.each([
    ['columns', across, 1, 625],
    ['rows', upright, 2, 500],
  ] as const)('in %s, which stay on the page, and a note counts them', (side, faceting, part, size) => {
    const drawn = panelled(90, faceting);
    const count = panels(drawn).length;
    expect(count).toBeGreaterThan(30);
    expect(count).toBeLessThan(60);
    expect(drawn.notes).toContain(`Of 90 ${side} of panels the first ${count} are drawn.`);
    const [from, to] = reach(drawn, part);
    expect(from).toBeGreaterThan(0);
    expect(to).toBeLessThan(size);
    expect((to - from) / count).toBeGreaterThan(10);
    expect(drawn.textsOf('x axis').length).toBeGreaterThan(0);
  });

  test('those that fit have no note', () => {
    const drawn = panelled(30, across);
    expect(panels(drawn)).toHaveLength(30);
    expect(drawn.notes.join()).not.toContain('panels the first');
  });

  test('in columns and rows, of whole rows', () => {
    const cells = numbers(25).flatMap((a) => numbers(25).map((b) => [a, b] as const));
    const columns = { a: cells.map(([a]) => a), b: cells.map(([, b]) => b) };
    const drawn = picture(
      { ...columns, k: columns.a, g: columns.b },
      `${points}<faceting><cross><variableReference ref="k"/><variableReference ref="g"/></cross></faceting>`,
      { categorical: { k: names(25), g: names(25) } },
    );
    expect(mostPanels).toBe(400);
    expect(panels(drawn)).toHaveLength(400);
    expect(drawn.notes).toContain('Of 25 rows of panels the first 16 are drawn.');
    expect(drawn.textsOf('x axis').length).toBeGreaterThan(0);
  });
});

describe('panels by a variable without any category', () => {
  const drawn = picture({ a: [1, 2], b: [1, 2], k: [null, null] }, points + across, {
    categorical: { k: [] },
  });

  test('are named in a note, and the page is drawn', () => {
    expect(drawn.notes).toContain(
      'A graph cannot be drawn: it has no panels, for there is no category of the k.',
    );
    expect(drawn.notes.join()).not.toContain('undefined');
    expect(drawn.drawn.width).toBe(625);
  });
});

test('texts of panels take a quarter of the graph at most', () => {
  const long = names(12).map((name) => `${name}-${'unbreakable-'.repeat(4)}`);
  const drawn = picture({ a: numbers(12), b: numbers(12), k: numbers(12) }, points + across, {
    categorical: { k: long },
  });
  const [top] = reach(drawn, 2);
  expect(top).toBeLessThan(500 * 0.25 + 20);
});

test('of many notes the first six are shown, and the rest is counted', () => {
  const lines = numbers(9).map((at) => `<functionGuide id="g${at}" name="G${at}" value="no${at}(x)"/>`);
  const drawn = picture({ a: [1, 2], b: [1, 2] }, points + lines.join(''));
  expect(drawn.notes).toHaveLength(9);
  const shown = Array.from(drawn.svg.querySelectorAll('g[role="note"] text')).map((each) => each.textContent);
  expect(shown.join(' ')).toContain('And 3 more notes.');
  expect(shown.join(' ')).toContain('G6');
  expect(shown.join(' ')).not.toContain('G7');
});
