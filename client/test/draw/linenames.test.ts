import { describe, expect, test } from 'vitest';
import { picture, plainAxes, type Picture } from './chart.js';

const line = '<line id="e" name="Name"><x variable="a"/><y variable="b"/></line>';
const bounds = (id: string, min: number, max: number) =>
  `<intervalDomain id="${id}"><range min="${min}" max="${max}" exact="true"/></intervalDomain>`;
const axis = '<axis><majorTicks/></axis>';
const bounded = (x: string, y: string) =>
  `<dimension ${x && `domain="${x}"`}>${axis}</dimension><dimension ${y && `domain="${y}"`}>${axis}</dimension>`;

/** The share of the panel's height, from below, at which a name beside it stands. */
function heights(drawn: Picture): number[] {
  const panel = drawn.svg.querySelector('g[aria-label="Data"] > rect')!;
  const height = Number(panel.getAttribute('height'));
  const group = drawn.svg.querySelector('g[aria-label="Names of lines"]');
  return Array.from(group?.querySelectorAll('text') ?? []).map((text) => {
    const middle = Number(text.getAttribute('y')) - Number(text.getAttribute('font-size')) * 0.35;
    return Math.round((1 - middle / height) * 100) / 100;
  });
}

const places = bounds('dy', 0, 100);
const data = { a: [0, 10, 20], b: [10, 40, 80] };
const named = (coordinates: string, rest = places, columns = data) =>
  picture(columns, line, { coordinates, rest });

/** The text of a name within a panel. */
const within = (drawn: Picture) => drawn.textsOf('Data').includes('Name');

describe('names beside lines', () => {
  test('are at the last place, not the first', () => {
    expect(heights(named(bounded('', 'dy')))).toEqual([0.8]);
  });

  test('are where the line leaves the panel at its right edge', () => {
    const drawn = named(bounded('dx', 'dy'), places + bounds('dx', 0, 15));
    expect(heights(drawn)).toEqual([0.6]);
  });

  test('are at the beginning of a line that runs to the left', () => {
    const inverted = bounded('', 'dy').replace('</dimension>', '<scale invert="true"/></dimension>');
    expect(heights(named(inverted))).toEqual([0.1]);
    expect(heights(named(`${bounded('', 'dy')}<reflectionTransform dimension="0"/>`))).toEqual([0.1]);
  });

  test('are mirrored with y', () => {
    expect(heights(named(`${bounded('', 'dy')}<reflectionTransform dimension="1"/>`))).toEqual([0.2]);
  });

  test('stand at the right of the panel, moved apart, and not below it', () => {
    const lines = ['One', 'Two', 'Three']
      .map((name, at) => `<line id="e${at}" name="${name}"><x variable="a"/><y variable="b"/></line>`)
      .join('');
    const drawn = picture({ a: [0, 1], b: [100, 0] }, lines, {
      coordinates: bounded('', 'dy'),
      rest: places,
    });
    expect(drawn.textsOf('Names of lines')).toEqual(['One', 'Two', 'Three']);
    const [first, second, third] = heights(drawn);
    expect(third).toBe(0);
    expect(first! - second!).toBeCloseTo(second! - third!, 1);
    const panel = drawn.svg.querySelector('g[aria-label="Data"] > rect')!;
    const text = drawn.svg.querySelector('g[aria-label="Names of lines"] text')!;
    expect(Number(text.getAttribute('x'))).toBeGreaterThan(Number(panel.getAttribute('width')));
  });

  test('are there where the line ends in the middle of the last category', () => {
    const drawn = picture({ a: [1, 2, 3], b: [10, 40, 80] }, line, {
      categorical: { a: ['one', 'two', 'three'] },
      coordinates: bounded('', 'dy'),
      rest: places,
    });
    expect(heights(drawn)).toEqual([0.8]);
  });

  test('of more lines than have room are noted', () => {
    const many = Array.from({ length: 60 }, (_, at) => `Line ${at + 1}`);
    const lines = many
      .map((name, at) => `<line id="e${at}" name="${name}"><x variable="a"/><y variable="b"/></line>`)
      .join('');
    const drawn = picture({ a: [0, 1], b: [1, 2] }, lines);
    const shown = heights(drawn);
    expect(shown.length).toBeGreaterThan(20);
    expect(Math.min(...shown)).toBe(0);
    expect(drawn.notes).toContain('The name of the line "Line 60" has no room.');
    expect(drawn.notes.filter((note) => note.includes('name of the line'))).toHaveLength(60 - shown.length);
  });
});

describe('names of lines are within the panel', () => {
  test('where a second axis stands at the right', () => {
    const second = `${plainAxes.slice(0, -'</dimension>'.length)}<axis opposite="true"><majorTicks/></axis></dimension>`;
    const drawn = named(second, '');
    expect(drawn.textsOf('Names of lines')).toEqual([]);
    expect(within(drawn)).toBe(true);
  });

  test('where the line leaves it at the top, far from its right edge', () => {
    const drawn = named(bounded('', 'dy'), bounds('dy', 0, 40));
    expect(drawn.textsOf('Names of lines')).toEqual([]);
    expect(within(drawn)).toBe(true);
  });

  test('where they would take more than a third of the width', () => {
    const long = 'A name that is far too long to stand beside the panel';
    const drawn = picture(data, line.replace('Name', long));
    expect(drawn.textsOf('Names of lines')).toEqual([]);
    expect(drawn.textsOf('Data').join(' ')).toContain('A name');
  });
});

test('lines that are not to be seen have no name, without a note about it', () => {
  const drawn = named(bounded('', 'dy'), bounds('dy', 200, 300));
  expect(drawn.texts()).not.toContain('Name');
  expect(drawn.notes.join()).not.toContain('name');
});

test('lines that have no corner within the panel are named all the same', () => {
  const drawn = named(bounded('dx', 'dy'), places + bounds('dx', 2, 8));
  expect(heights(drawn)).toEqual([0.34]);
});
