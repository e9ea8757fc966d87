import { describe, expect, test } from 'vitest';
import { orientationOf } from '../../src/draw/compile/orientation.js';
import { picture } from './chart.js';

describe('reflections', () => {
  const reflections = (...transforms: ({ kind: 'transpose' } | { kind: 'reflect'; dimension: number })[]) =>
    orientationOf(
      {
        id: '',
        dimensions: [],
        transforms: transforms.map((each) => ({ alternating: false, ...each })),
      },
      [],
    ).reflections.map(({ screen }) => screen);

  test('mean a dimension by its place before what turns it', () => {
    expect(reflections({ kind: 'reflect', dimension: 0 })).toEqual([0]);
    expect(reflections({ kind: 'reflect', dimension: 0 }, { kind: 'transpose' })).toEqual([1]);
    expect(reflections({ kind: 'transpose' }, { kind: 'reflect', dimension: 0 })).toEqual([0]);
  });
});

test('conditions hold in the panels of each of their alternatives', () => {
  const drawn = picture(
    { a: [1, 2, 3], b: [1, 2, 3], k: [1, 2, 3] },
    '<point><x variable="a"/><y variable="b"/><conditionalStyle when="facet1 == &quot;1&quot; || facet1 == &quot;3&quot;" style="h"/></point><faceting><cross><variableReference ref="k"/></cross></faceting>',
    { categorical: { k: ['one', 'two', 'three'] }, rest: '<style id="h" visible="false"/>' },
  );
  expect(drawn.marks('dot')).toHaveLength(1);
});
