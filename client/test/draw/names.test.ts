import { describe, expect, test } from 'vitest';
import { picture, plainAxes } from './chart.js';

const columns = { a: [1, 2, 3, 4], b: [2, 1, 4, 3], k: [1, 2, 1, 2] };
const categorical = { k: ['one', 'two'] };
const xy = '<x variable="a"/><y variable="b"/>';

describe('an element without a name', () => {
  const drawnBy = (attributes: string) =>
    picture(columns, `<interval ${attributes}>${xy}<shape variable="k"/></interval>`, {
      categorical,
      rest: '<legend><legendTarget target="element_1"/></legend>',
    });

  test('is called in notes by what it draws', () => {
    expect(drawnBy('id="element_1"').notes).toEqual([
      'The shape of the bars by the k is not to be seen: this client draws no such bars.',
    ]);
    expect(drawnBy('id="element_1" name="Sums"').notes.join()).toContain('The shape of Sums by the k');
  });

  test('is called so in legends and tables', () => {
    expect(drawnBy('id="element_1"').textsOf('Legend')).toEqual(['Bars']);
    expect(drawnBy('id="element_1" name="Sums"').textsOf('Legend')).toEqual(['Sums']);
    const both = picture(columns, `<line>${xy}</line><schema><x variable="k"/><y variable="b"/></schema>`);
    const { header, rows } = both.drawn.dataTable;
    const elements = new Set(rows.map((row) => row[header.indexOf('Element')]));
    expect([...elements]).toEqual(['Lines', 'Boxes']);
  });
});

describe('a guide without a place', () => {
  const notesOf = (guide: string, x = 'a') =>
    picture(columns, `<point><x variable="${x}"/><y variable="b"/></point>${guide}`, { categorical }).notes;

  test('is named with the text that is none', () => {
    expect(notesOf('<lineGuide id="g1" x="abc" name="New"/>')).toEqual([
      'The guide New at "abc" is not drawn: there is no such number along x.',
    ]);
    expect(notesOf('<lineGuide id="g1" x="abc"/>', 'k')).toEqual([
      'The guide at "abc" is not drawn: there is no such category along x.',
    ]);
    expect(notesOf('<lineGuide id="g1" y="abc"/>')).toEqual([
      'The guide at "abc" is not drawn: abc is not known.',
    ]);
    expect(notesOf('<lineGuide id="g1" name="New"/>')).toEqual([
      'The guide New is not drawn: it has no place.',
    ]);
  });
});

describe('the y axis of stacked dots', () => {
  const dots = (ticks: string) =>
    picture(columns, '<point positionModifier="7"><x variable="a"/></point>', {
      coordinates: `${plainAxes.slice(0, plainAxes.length / 2)}<dimension><axis><label><text>Dots</text></label>${ticks}</axis></dimension>`,
    });
  const note = 'Ticks along y are not drawn: the heights of stacked dots go by the room that there is.';

  test('has no ticks, which would be true of nothing, and a note says so', () => {
    const drawn = dots('<majorTicks/>');
    expect(drawn.notes).toEqual([note]);
    expect(drawn.texts()).toContain('Dots');
    expect(drawn.texts().filter((text) => /^0\.\d/.test(text))).toEqual([]);
  });

  test('has no note where it shows none anyway', () => {
    expect(dots('').notes).toEqual([]);
    const hidden = picture(columns, '<point positionModifier="7"><x variable="a"/></point>', {
      coordinates: `${plainAxes.slice(0, plainAxes.length / 2)}<dimension><axis><majorTicks style="h"/></axis></dimension>`,
      rest: '<style id="h" visible="false"/>',
    });
    expect(hidden.notes).toEqual([]);
  });
});
