import { describe, expect, test } from 'vitest';
import { readChart } from '../../src/chart/read.js';
import { Data } from '../../src/data/columns.js';
import { panelGrid } from '../../src/draw/compile/panels.js';
import { parseXml } from '../../src/node/document.js';
import { chartText, receivedOf, tableOf, variables } from './chart.js';

const many = Array.from({ length: 500 }, (_, at) => at + 1);
const texts = many.map((at) => `n${at}`);

/** The texts of the columns and rows of panels, and how many there would be. */
function gridOf(columns: Record<string, number[]>, faceting: string) {
  const categorical = Object.fromEntries(Object.keys(columns).map((name) => [name, texts]));
  const body = `<graph><faceting>${faceting}</faceting></graph>${variables(columns, categorical)}`;
  const received = receivedOf(chartText(body), tableOf(columns));
  const { chart } = readChart(received.chartText!, parseXml);
  const grid = panelGrid(chart.graphs[0]!, chart, new Data(chart, received, []));
  const named = (side: 'columns' | 'rows') =>
    grid[side].strips.map(({ categories }) => categories.map(({ text }) => text).join('/'));
  return { columns: named('columns'), rows: named('rows'), panels: grid.panels.length, wanted: grid.wanted };
}

const reference = (id: string) => `<variableReference ref="${id}"/>`;

describe('panels', () => {
  test('of nested variables are those that occur, in the order of the categories', () => {
    const nest = `<cross><nest>${reference('k')}${reference('l')}</nest><unity/></cross>`;
    const made = gridOf({ k: [2, 1, 2, 1, NaN], l: [1, 3, 1, 2, 4] }, nest);
    expect(made.columns).toEqual(['n1/n2', 'n1/n3', 'n2/n1']);
    expect(made.wanted).toEqual({ columns: 3, rows: 1 });
  });

  test('of nested variables cost no more than their rows, whatever could occur', () => {
    const nest = `<cross><nest>${reference('k')}${reference('l')}${reference('m')}</nest><unity/></cross>`;
    const made = gridOf({ k: [...many].reverse(), l: many, m: many }, nest);
    expect(made.columns.slice(0, 2)).toEqual(['n1/n500/n500', 'n2/n499/n499']);
    expect(made.panels).toBe(400);
    expect(made.wanted).toEqual({ columns: 500, rows: 1 });
  });

  test('beyond 400 are counted and left out, with the rows that have none', () => {
    const cross = `<cross>${reference('k')}${reference('l')}${reference('m')}</cross>`;
    const made = gridOf({ k: many, l: many, m: many }, cross);
    expect([made.columns.length, made.rows.length, made.panels]).toEqual([400, 1, 400]);
    expect(made.columns.slice(0, 2)).toEqual(['n1/n1', 'n1/n2']);
    expect(made.wanted).toEqual({ columns: 250_000, rows: 500 });
    const few = gridOf(
      { k: many.slice(0, 20), l: many.slice(0, 20) },
      `<cross>${reference('k')}${reference('l')}</cross>`,
    );
    expect([few.columns.length, few.rows.length, few.panels]).toEqual([20, 20, 400]);
    expect(few.wanted).toEqual({ columns: 20, rows: 20 });
  });
});
