import { describe, expect, test } from 'vitest';
import { chartText, Picture, plainAxes, tableOf, variables } from './chart.js';

/** Points of two sources, in panels by a variable of the first one. */
function notesOf(
  first: Record<string, (number | null)[]>,
  second: Record<string, (number | null)[]>,
  faceting = '',
): string[] {
  const ofSecond = Object.keys(second).map(
    (name) => `<sourceVariable id="${name}" source="t" sourceName="${name}" label="the ${name}"/>`,
  );
  const graph =
    '<graph><point><x variable="a"/><y variable="b"/></point><point><x variable="c"/><y variable="d"/></point>' +
    `<coordinates>${plainAxes}</coordinates>${faceting}</graph>`;
  const texts = { k: ['one', 'two'] };
  const body = `${graph}${variables(first, texts)}<userSource id="t"/>${ofSecond.join('')}`;
  return new Picture(chartText(body), tableOf(first), tableOf(second, 't')).notes;
}

describe('missing values of two sources', () => {
  test('are counted in a note for each of them', () => {
    const lacking = { a: [1, null, 3], b: [1, 2, 3] };
    expect(notesOf(lacking, { c: [null, null, 3, 4], d: [1, 2, 3, null] })).toEqual([
      '1 row with a missing value is not drawn (the a).',
      '3 rows with missing values are not drawn (the c, the d).',
    ]);
  });

  test('of panels are those of the source that has them', () => {
    const faceting = '<faceting><cross><variableReference ref="k"/></cross></faceting>';
    const second = { c: [null, 2, 3], d: [1, 2, 3] };
    const notes = notesOf({ a: [1, 2, 3], b: [1, 2, 3], k: [1, 2, null] }, second, faceting);
    expect(notes.filter((note) => note.includes('missing'))).toEqual([
      '1 row with a missing value is not drawn (the k).',
      '1 row with a missing value is not drawn (the c).',
    ]);
  });
});
