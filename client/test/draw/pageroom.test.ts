import { describe, expect, test } from 'vitest';
import { picture, type Picture } from './chart.js';

const points = '<point id="p"><x variable="a"/><y variable="b"/></point>';
const frame = (purpose: number, text: string, place = '') =>
  `<labelFrame id="f${purpose}">${place}<label purpose="${purpose}"><text>${text}</text></label></labelFrame>`;
const at = (part: number, value: string) => `<location part="${part}" value="${value}"/>`;
const [top, bottom, height] = [2, 3, 5];

const drawn = (rest: string, attributes = '') =>
  picture({ a: [1, 2, 3], b: [1, 2, 3] }, points, { rest: `${attributes}${rest}` });

/** The middle of the first panel, from the top of the page, and its height. */
function panelOf({ svg }: Picture): { from: number; to: number } {
  const graph = Array.from(svg.children).find((each) => each.querySelector('g[aria-label="Data"]'))!;
  const from = Number(/,(-?[\d.]+)\)/.exec(graph.getAttribute('transform')!)![1]);
  const panel = svg.querySelector('g[aria-label="Data"] > rect')!;
  return { from, to: from + Number(panel.getAttribute('height')) };
}

const lineOf = ({ svg }: Picture, text: string) =>
  Number(
    Array.from(svg.querySelectorAll('text'))
      .find((each) => each.textContent?.startsWith(text))!
      .getAttribute('y'),
  );

describe('texts go by their place, not by their part in the chart:', () => {
  test.each([
    ['its upper edge', at(top, '94%') + at(height, '30px')],
    ['its lower edge', at(bottom, '100%') + at(height, '30px')],
  ])('a title at the bottom leaves the room above it to the graph, by %s', (_, place) => {
    const page = drawn(frame(1, 'Below', place));
    const panel = panelOf(page);
    expect(panel.from).toBeLessThan(20);
    expect(panel.to).toBeGreaterThan(380);
    expect(panel.to).toBeLessThan(lineOf(page, 'Below') - 40);
    expect(page.notes).toEqual([]);
  });

  test('a footnote on top leaves the room below it to the graph', () => {
    const page = drawn(frame(4, 'Above', at(top, '0px') + at(height, '20px')));
    expect(panelOf(page).from).toBeGreaterThan(lineOf(page, 'Above'));
    expect(panelOf(page).to).toBeGreaterThan(400);
  });

  test('a frame as high as the page pushes the graph aside by its text alone', () => {
    const page = drawn(frame(1, 'All', at(top, '0%') + at(bottom, '100%')));
    expect(panelOf(page).from).toBeGreaterThan(lineOf(page, 'All'));
    expect(panelOf(page).from).toBeLessThan(60);
  });
});

describe('a page that has too little room', () => {
  const small = '<location part="4" value="300px"/><location part="5" value="150px"/>';
  const texts = frame(1, 'A title') + frame(3, 'A subtitle') + frame(4, 'A footnote') + frame(5, 'Another');

  test('is higher, with a note, so that texts and graph cover nothing', () => {
    const page = drawn(texts, small);
    const note = page.notes.find((each) => each.startsWith('The page is'))!;
    expect(note).toMatch(/^The page is \d+ pixels higher than the chart says, so that the graph has room\.$/);
    expect(panelOf(page).from).toBeGreaterThan(lineOf(page, 'A subtitle'));
    expect(lineOf(page, 'A footnote') - panelOf(page).to).toBeGreaterThan(30);
    expect(panelOf(page).to - panelOf(page).from).toBeGreaterThan(25);
    expect(page.drawn.height).toBeGreaterThan(150 + Number(/\d+/.exec(note)![0]));
  });

  test('is as the chart says where all has room', () => {
    expect(drawn(texts).notes).toEqual([]);
  });

  test('for a graph since its frames leave none of whatever height says so', () => {
    const half = frame(1, 'Upper', at(top, '0%') + at(bottom, '50%'));
    const page = drawn(half + frame(4, 'Lower', at(top, '50%') + at(bottom, '100%')));
    expect(page.notes).toEqual([
      'The page has no room for the graph beside its texts: they cover each other.',
    ]);
    expect(page.drawn.height).toBeLessThan(540);
  });
});

test('notes begin within the page where a text stands beyond it', () => {
  const page = drawn(frame(1, 'Off the page', at(0, '900px') + at(top, '5px')));
  const note = Array.from(page.svg.querySelectorAll('g[role="note"] text'))[0]!;
  expect(Number(note.getAttribute('x'))).toBeLessThan(20);
});
