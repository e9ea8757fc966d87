import { describe, expect, test } from 'vitest';
import { Picture, picture } from './chart.js';

const count = (many: number) => Array.from({ length: many }, (_, at) => at + 1);

const group = (drawn: Picture) => drawn.svg.querySelector('g[aria-label^="Legend"]')!;

/** The places of texts in a legend, from its corner. */
function places(drawn: Picture): { text: string; x: number; y: number }[] {
  return Array.from(group(drawn).querySelectorAll('text')).map((text) => {
    const moved = /translate\(([-\d.]+),([-\d.]+)\)/.exec(
      (text.parentNode as Element).getAttribute('transform') ?? '',
    );
    const shown = Array.from(text.childNodes).filter((node) => (node as Element).localName !== 'title');
    return {
      text: shown.map((node) => node.textContent).join(''),
      x: Number(text.getAttribute('x')) + Number(moved?.[1] ?? 0),
      y: Number(text.getAttribute('y')) + Number(moved?.[2] ?? 0),
    };
  });
}

interface Wanted {
  texts: string[];
  legend?: string;
  page?: string;
  element?: string;
}

/** Points of that many groups, with a legend. */
function grouped({
  texts,
  legend = '',
  page = '',
  element = '<color id="c" variable="k"/>',
}: Wanted): Picture {
  const at = count(texts.length);
  return picture(
    { a: at, b: at, k: at },
    `<point id="p"><x variable="a"/><y variable="b"/>${element}</point>`,
    {
      categorical: { k: texts },
      rest: `<legend id="l"><legendTarget target="c"/>${legend}</legend>${page}`,
    },
  );
}

const short = (many: number) => count(many).map((at) => `g${at}`);
const height = (drawn: Picture) => Number(drawn.svg.getAttribute('height'));

/** Where the corner of the legend stands. */
function corner(drawn: Picture): [number, number] {
  const moved = /translate\(([-\d.]+),([-\d.]+)\)/.exec(group(drawn).getAttribute('transform')!)!;
  return [Number(moved[1]), Number(moved[2])];
}

describe('legends', () => {
  const two = (options: { element: string; targets: string[]; titles: string[]; coordinates?: string }) => {
    const legends = options.targets.map(
      (target, at) =>
        `<legend id="l${at}"><legendTarget target="${target}"/><label><text>${options.titles[at]}</text></label></legend>`,
    );
    const { coordinates } = options;
    return picture({ a: [1, 2], b: [1, 2], k: [1, 2], g: [1, 2] }, options.element, {
      categorical: { k: ['one', 'two'], g: ['a very long name of a group', 'b'] },
      rest: legends.join(''),
      ...(coordinates === undefined ? {} : { coordinates }),
    });
  };
  const samples = (drawn: Picture, name: string) =>
    Array.from(drawn.svg.querySelectorAll(`g[aria-label="Legend: ${name}"] path`)).map((sample) =>
      sample.getAttribute('fill'),
    );

  test('of shapes have no colour where colours show something else', () => {
    const element = (shape: string) =>
      `<point><x variable="a"/><y variable="b"/><color id="c" variable="k"/><shape id="h" variable="${shape}"/></point>`;
    const options = { targets: ['c', 'h'], titles: ['Colours', 'Shapes'] };
    const apart = two({ ...options, element: element('g') });
    expect(samples(apart, 'Shapes')).toEqual(['#737373', '#737373']);
    expect(new Set(samples(apart, 'Colours')).size).toBe(2);
    const together = two({ ...options, element: element('k') });
    expect(samples(together, 'Shapes')).toEqual(samples(together, 'Colours'));
  });

  test('at the right have one left edge', () => {
    const drawn = two({
      element:
        '<point><x variable="a"/><y variable="b"/><color id="c" variable="k"/><shape id="h" variable="g"/></point>',
      targets: ['c', 'h'],
      titles: ['Colours', 'Shapes'],
    });
    const lefts = Array.from(drawn.svg.querySelectorAll('g[aria-label^="Legend"]')).map((each) =>
      /translate\(([-\d.]+),/.exec(each.getAttribute('transform')!)!.at(1),
    );
    expect(lefts).toHaveLength(2);
    expect(lefts[0]).toBe(lefts[1]);
  });

  test('of a pie list the slices by the clock', () => {
    const drawn = two({
      element:
        '<interval positionModifier="3"><x variable="k"/><summaryStatistic method="3"/><color id="c" variable="k"/></interval>',
      targets: ['c'],
      titles: ['Kinds'],
      coordinates: '<dimension/><dimension/><transposeTransform/><polarTransform/>',
    });
    expect(drawn.textsOf('Legend: Kinds')).toEqual(['Kinds', 'one', 'two']);
  });

  test('have one column where there is room', () => {
    const drawn = grouped({ texts: short(20) });
    expect(new Set(places(drawn).map(({ x }) => x)).size).toBe(1);
    expect(places(drawn).map(({ text }) => text)).toEqual(short(20));
  });

  test('have one column with any sizes of texts', () => {
    for (const size of ['18pt', '17.3px', '10.1pt', '0.37in']) {
      const styles = `<style id="t" font_size="${size}"/><style id="u" font_size="20pt"/><style id="f" padding="8pt"/>`;
      const drawn = picture(
        { a: count(3), b: count(3), k: count(3) },
        '<point><x variable="a"/><y variable="b"/><color id="c" variable="k"/></point>',
        {
          categorical: { k: short(3) },
          rest: `${styles}<legend style="f" tickTextStyle="t"><legendTarget target="c"/><label style="u"><text>Title</text></label></legend>`,
        },
      );
      const entries = places(drawn).slice(1);
      expect(new Set(entries.map(({ x }) => x)).size).toBe(1);
    }
  });

  test('that are too long for that have several, in the order of the groups from the top', () => {
    const drawn = grouped({ texts: short(60) });
    const shown = places(drawn);
    expect(shown.map(({ text }) => text)).toEqual(short(60));
    expect(new Set(shown.map(({ x }) => x)).size).toBe(3);
    expect(shown[1]!.y).toBeGreaterThan(shown[0]!.y);
    expect(Math.max(...shown.map(({ y }) => y)) + corner(drawn)[1]).toBeLessThan(500);
    expect(drawn.notes.join()).not.toContain('room');
  });

  test('leave half of the width to the data, and say what has no room in an entry and a note', () => {
    const drawn = grouped({ texts: short(300) });
    const shown = places(drawn);
    const most = shown.length - 1;
    expect(most).toBeGreaterThan(60);
    expect(shown[most]!.text).toBe(`\u2026 and ${300 - most} more`);
    expect(drawn.notes).toContain(`The legend l has room for ${most} of its 300 entries.`);
    expect(corner(drawn)[0]).toBeGreaterThan(300);
    expect(Math.max(...shown.map(({ y }) => y)) + corner(drawn)[1]).toBeLessThan(500);
  });

  test('tell apart by their ends the long texts that they shorten, and tell them whole in titles', () => {
    const texts = count(40).map((at) => `The district of the upper and of the lower valley, number ${at}`);
    const drawn = grouped({ texts });
    const shown = places(drawn);
    expect(shown.map(({ text }) => text).every((text) => /^The.*\u2026.*\d+$/.test(text))).toBe(true);
    expect(new Set(shown.map(({ text }) => text)).size).toBe(40);
    const titles = Array.from(group(drawn).querySelectorAll('text > title')).map(
      (title) => title.textContent,
    );
    expect(titles).toEqual(texts);
  });

  test('wrap a long text, and end in an ellipsis after three lines', () => {
    const long =
      'a text that is so long that it does not fit in three lines of a legend, however one breaks it there at all';
    const drawn = grouped({ texts: ['short', long] });
    const [, entry] = Array.from(group(drawn).querySelectorAll('text'));
    const lines = Array.from(entry!.querySelectorAll('tspan')).map((line) => line.textContent!);
    expect(lines).toHaveLength(3);
    expect(lines[2]).toMatch(/\u2026$/);
    expect(entry!.querySelector('title')!.textContent).toBe(long);
  });

  test('of large texts take more of the width before they shorten these', () => {
    const drawn = picture(
      { a: [1, 2, 3, 4, 5, 6, 7], b: [1, 2, 3, 4, 5, 6, 7], k: [1, 2, 3, 4, 5, 6, 7] },
      '<point id="p"><x variable="a"/><y variable="b"/><color id="c" variable="k"/></point>',
      {
        categorical: { k: count(7).map((at) => `${at} of those who agree with the statement in full`) },
        rest: '<style id="t" font_size="24px"/><legend id="l" tickTextStyle="t"><legendTarget target="c"/></legend>',
      },
    );
    const shown = places(drawn).map(({ text }) => text);
    expect(shown).toHaveLength(7);
    for (const text of shown) expect(text.length).toBeGreaterThan(15);
    expect(corner(drawn)[0]).toBeGreaterThan(300);
  });

  test('of many long names have one line for each before they are cut down to a word', () => {
    const texts = count(40).map((at) => `${at} of them who agree in full with all`);
    const shown = places(grouped({ texts })).map(({ text }) => text);
    for (const text of shown) expect(text.length).toBeGreaterThan(13);
  });

  const above = '<location part="2" method="0" value="0%"/>';
  const atBottom = '<location part="3" method="0" value="100%"/>';

  test.each([
    ['above', above],
    ['below', atBottom],
  ])('%s the data go across, in as many rows as they need', (_, location) => {
    const few = grouped({ texts: short(4), legend: location });
    expect(new Set(places(few).map(({ y }) => y)).size).toBe(1);
    const many = places(grouped({ texts: short(30), legend: location }));
    const rows = new Set(many.map(({ y }) => y));
    expect(rows.size).toBeGreaterThan(1);
    expect(rows.size).toBeLessThan(5);
    expect(many[1]!.y).toBe(many[0]!.y);
    expect(many.map(({ text }) => text)).toEqual(short(30));
    expect(Math.max(...many.map(({ x }) => x))).toBeLessThan(600);
  });

  test('below the data take a third of the height at most', () => {
    const drawn = grouped({ texts: short(900), legend: atBottom });
    expect(corner(drawn)[1]).toBeGreaterThan(500 * 0.6);
    expect(drawn.notes.join()).toMatch(/The legend l has room for \d+ of its 900 entries/);
    expect(height(drawn)).toBeGreaterThan(500);
  });

  test('of narrow pages have a title in lines that are short', () => {
    const drawn = grouped({
      texts: short(3),
      legend: '<label><text>A title of many words that is long</text></label>',
      page: '<location part="4" method="0" value="200px"/>',
    });
    expect(corner(drawn)[0]).toBeGreaterThan(90);
    expect(group(drawn).querySelectorAll('text')[0]!.querySelectorAll('tspan').length).toBeGreaterThan(2);
  });

  test('of one side share its height', () => {
    const at = count(40);
    const drawn = picture(
      { a: at, b: at, k: at, h: at },
      '<point><x variable="a"/><y variable="b"/><color id="c" variable="k"/><shape id="s" variable="h"/></point>',
      {
        categorical: { k: short(40), h: count(40).map((each) => `h${each}`) },
        rest: '<legend id="l"><legendTarget target="c"/></legend><legend id="m"><legendTarget target="s"/></legend>',
      },
    );
    const texts = drawn.texts();
    expect(texts.filter((text) => /^[gh]\d+$/.test(text))).toHaveLength(80);
    const moved = Array.from(drawn.svg.querySelectorAll('g[aria-label^="Legend"]')).map(
      (each) => each.getAttribute('transform')!,
    );
    expect(moved).toHaveLength(2);
    expect(Number(/,([\d.]+)/.exec(moved[1]!)![1])).toBeLessThan(300);
  });

  test('above or below the data stand in their order from the top', () => {
    const names = ['First', 'Second', 'Third'];
    for (const location of [above, atBottom]) {
      const legends = names.map(
        (name, at) =>
          `<legend id="l${at}"><legendTarget target="c${at}"/><label><text>${name}</text></label>${location}</legend>`,
      );
      const drawn = picture(
        { a: [1, 2], b: [1, 2], k: [1, 2], g: [1, 2], w: [3, 4] },
        '<point><x variable="a"/><y variable="b"/><color id="c0" variable="k"/><shape id="c1" variable="g"/><size id="c2" variable="w"/></point>',
        { categorical: { k: ['one', 'two'], g: ['low', 'high'] }, rest: legends.join('') },
      );
      const tops = names.map((name) => {
        const box = drawn.svg.querySelector(`g[aria-label="Legend: ${name}"]`)!.getAttribute('transform')!;
        return Number(/,([-\d.]+)\)/.exec(box)![1]);
      });
      expect(tops).toEqual([...tops].sort((one, other) => one - other));
    }
  });

  test('above the data show a range of colours lying, with texts that do not cover each other', () => {
    const drawn = picture(
      { a: [1, 2], b: [1, 2], w: [0, 12_000_000] },
      '<point><x variable="a"/><y variable="b"/><color id="c" variable="w"/></point>',
      { rest: `<legend id="l"><legendTarget target="c"/>${above}</legend>` },
    );
    const gradient = drawn.svg.querySelector('[x2]')!;
    expect(['x2', 'y2'].map((name) => gradient.getAttribute(name))).toEqual(['1', '0']);
    const shown = places(drawn);
    expect(new Set(shown.map(({ y }) => y)).size).toBe(1);
    shown.slice(1).forEach(({ x, text }, at) => {
      const letters = (text.length + shown[at]!.text.length) / 2;
      expect(x - shown[at]!.x).toBeGreaterThan(letters * 6);
    });
  });
});
