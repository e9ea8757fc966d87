import { describe, expect, test } from 'vitest';
import { picture } from './chart.js';

const count = (many: number) => Array.from({ length: many }, (_, at) => at + 1);

/** The notes of a chart of that many groups. */
function notes(many: number, looks: string, rest = '', element = 'point', x = 'a'): string[] {
  const at = count(many);
  const drawn = picture(
    { a: at, b: at, k: at },
    `<${element}><x variable="${x}"/><y variable="b"/>${looks}</${element}>`,
    { categorical: { k: at.map((each) => `g${each}`) }, rest },
  );
  return drawn.notes;
}

const color = '<color variable="k"/>';
const shape = '<shape variable="k"/>';

describe('groups that look alike', () => {
  test('are named with the numbers of groups and looks', () => {
    expect(notes(9, color)).toEqual(['the k has 9 groups, but there are 8 looks: some groups look alike.']);
    expect(notes(8, color)).toEqual([]);
  });

  test('are those of which all aesthetics are the same', () => {
    expect(notes(9, color + shape)).toEqual([]);
    // 8 colours and 7 symbols.
    expect(notes(57, color + shape)).toEqual([
      'the k has 57 groups, but there are 56 looks: some groups look alike.',
    ]);
  });

  test('are counted by what can be seen', () => {
    expect(notes(9, `${color}<pattern variable="k"/>`).join()).toContain('9 groups, but there are 8 looks');
  });

  test('go by the cycle of the chart and by mappings', () => {
    const rest =
      '<styleCycle id="c"><cycle><style color="#ff0000"/><style color="#00ff00"/></cycle></styleCycle>';
    expect(notes(3, '<color variable="k" cycle="c"/>', rest)).toEqual([
      'the k has 3 groups, but there are 2 looks: some groups look alike.',
    ]);
    const mapped = '<color variable="k" cycle="c"><colorMapping from="3" to="#0000ff"/></color>';
    expect(notes(3, mapped, rest)).toEqual([]);
  });

  test('are told by an axis where it shows them', () => {
    expect(notes(9, color, '', 'interval', 'k')).toEqual([]);
    const at = count(9);
    const upright = picture({ a: at, k: at }, `<point><x variable="a"/><y variable="k"/>${color}</point>`, {
      categorical: { k: at.map(String) },
    });
    expect(upright.notes).toEqual([]);
  });

  test('are told by panels where each group has its own', () => {
    const at = count(9);
    const drawn = picture(
      { a: at, b: at, k: at },
      `<point><x variable="a"/><y variable="b"/>${color}</point><faceting><cross><variableReference ref="k"/></cross></faceting>`,
      { categorical: { k: at.map(String) } },
    );
    expect(drawn.notes).toEqual([]);
  });
});
