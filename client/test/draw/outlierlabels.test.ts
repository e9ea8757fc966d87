import { describe, expect, test } from 'vitest';
import { ownTexts } from '../../src/draw/compile/looks.js';
import type { Layer } from '../../src/draw/compile/layers.js';
import type { LabelLook } from '../../src/draw/marks/datalabels.js';
import type { Canvas } from '../../src/draw/marks/canvas.js';
import { placeOutliers } from '../../src/draw/marks/outlierlabels.js';
import { TakenRooms } from '../../src/draw/marks/takenrooms.js';

const look: LabelLook = { ...ownTexts.dataLabel, size: 10, gap: 6, shift: 10 };

/** Of 200 by 200 pixels, each of them one unit. */
function canvasOf(transposed = false): Canvas {
  const scale = { unit: (value: number) => value / 200, value: (unit: number) => unit * 200 };
  return { x: scale, y: scale, transposed, width: 200, height: 200 } as unknown as Canvas;
}

interface Wanted {
  x: number;
  /** Half of the box's width. */
  half?: number;
  whiskers?: [number, number];
  hinges?: [number, number];
  /** Labels by their values. */
  outliers?: [number, string][];
}

function boxes(all: Wanted[]): Layer {
  const shapes = all.map(({ x, half = 10, whiskers = [10, 30], hinges = [15, 25], outliers = [] }) => ({
    x,
    y: 20,
    x1: x - half,
    x2: x + half,
    box: {
      box: { lowest: whiskers[0], highest: whiskers[1], lowerHinge: hinges[0], upperHinge: hinges[1] },
      outliers: outliers.map(([value, label]) => ({ value, label, extreme: false })),
    },
  }));
  return { kind: 'boxes', parts: { outlier: { size: 8 } }, shapes } as unknown as Layer;
}

function placed(all: Wanted[], transposed = false) {
  const layer = boxes(all);
  const notes: string[] = [];
  const canvas = canvasOf(transposed);
  const labels = placeOutliers(canvas, layer, [layer], look, new TakenRooms(canvas), notes);
  return { notes, sides: labels.map(({ text, side }) => `${text} ${side}`) };
}

describe('the label of an outlier goes to the left', () => {
  // It is some 22 pixels wide, and begins 6 at the right of its symbol.
  const beside = (at: number, next: Partial<Wanted>) =>
    placed([
      { x: 100, outliers: [[at, '1000']] },
      { x: 120, half: 4, ...next },
    ]).sides;

  test('from the box of the next one, from its whisker, and from both ends of that', () => {
    expect(beside(150, {})).toEqual(['1000 right']);
    // This whisker is further away than the label reaches.
    const inside = { x: 140, half: 15, whiskers: [30, 190] as [number, number] };
    expect(beside(150, { ...inside, hinges: [140, 160] })).toEqual(['1000 left']);
    expect(beside(150, { ...inside, hinges: [160, 180] })).toEqual(['1000 right']);
    expect(beside(150, { whiskers: [10, 190] })).toEqual(['1000 left']);
    // The ends of a whisker are half as wide as the box.
    const wide = { x: 140, half: 40 };
    expect(beside(150, { ...wide, whiskers: [10, 190] })).toEqual(['1000 right']);
    expect(beside(150, { ...wide, whiskers: [10, 150] })).toEqual(['1000 left']);
    expect(beside(150, { ...wide, whiskers: [150, 199], hinges: [180, 190] })).toEqual(['1000 left']);
  });
});

describe('labels of outliers', () => {
  test('have their places from the lowest one upwards', () => {
    const outliers: [number, string][] = [
      [151, '1003'],
      [150, '1001'],
      [150.5, '1002'],
    ];
    expect(placed([{ x: 100, outliers }]).sides).toEqual(['1001 right', '1002 left', '1003 right']);
  });

  const three: [number, string][] = [
    [150, '1001'],
    [150.1, '1002'],
    [150.2, '1003'],
  ];

  test('go no further than half the way to the next box', () => {
    const apart = (distance: number) =>
      placed([
        { x: 100, outliers: three },
        { x: 100 + distance },
        // A box at the same place has no way to it.
        { x: 100.5 },
      ]);
    // The second column ends at 54 pixels, and begins at 32.
    const near = apart(80);
    expect(near.sides).toEqual(['1001 right', '1002 left']);
    expect(near.notes).toEqual(['1 label of outliers has no room.']);
    expect(apart(-99).sides).toEqual(['1001 right', '1002 left']);
    expect(placed([{ x: 100, outliers: three }]).sides).toHaveLength(3);
  });

  test('go no further up and down than half the way to the next horizontal box', () => {
    const apart = (distance: number) =>
      placed([{ x: 100, outliers: three }, { x: 100 + distance }], true).sides;
    expect(apart(90)).toEqual(['1001 above', '1002 below', '1003 above']);
    // The second row ends at 29 pixels, and begins at 16.
    expect(apart(40)).toEqual(['1001 above', '1002 below']);
  });

  test('of a horizontal box do not leave the panel', () => {
    expect(placed([{ x: 190, outliers: three.slice(0, 1) }], true).sides).toEqual(['1001 below']);
    expect(placed([{ x: 10, outliers: three.slice(0, 2) }], true).sides).toEqual([
      '1001 above',
      '1002 above',
    ]);
  });

  test('of those that lie outside of the panel are not drawn, however far away they are', () => {
    const far: [number, string][] = [
      [150, '1001'],
      [205, '1002'],
      [1e9, '1003'],
      [1e18, '1004'],
      [Infinity, '1005'],
    ];
    const all = [{ x: 100, hinges: [0, 1e12] as [number, number], outliers: far }, { x: 140 }];
    for (const transposed of [false, true]) {
      const { sides, notes } = placed(all, transposed);
      expect(sides).toEqual([]);
      expect(notes).toEqual(['5 labels of outliers have no room.']);
    }
    expect(placed([{ x: 100, outliers: far }]).sides).toEqual(['1001 right']);
  });
});
