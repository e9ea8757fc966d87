import { beforeEach, describe, expect, test, vi } from 'vitest';
import * as summary from '../../src/statistics/summary.js';
import { picture } from './chart.js';

vi.mock('../../src/statistics/summary.js', async (original) => {
  const actual = await original<typeof summary>();
  return { ...actual, describe: vi.fn(actual.describe) };
});

const figure = (target: string, number: number) =>
  `<descriptionGroup target="${target}"><description name="${number}"/></descriptionGroup>`;

const histogram =
  '<interval id="e"><x variable="a"/><binStatistic/><summaryStatistic method="10"/></interval>';

/** A chart with texts that tell figures. */
function told(...texts: string[]) {
  const frames = texts
    .map((text, at) => `<labelFrame id="f${at}"><label>${text}</label></labelFrame>`)
    .join('');
  return picture({ a: [1, 2, 6, null] }, histogram, { rest: frames });
}

describe('the figures of an element', () => {
  beforeEach(() => {
    vi.mocked(summary.describe).mockClear();
  });

  test('are computed once, however many texts tell them', () => {
    const drawn = told(figure('e', 5) + figure('e', 6), figure('e', 7));
    expect(drawn.texts().join(' ')).toContain('3');
    expect(summary.describe).toHaveBeenCalledTimes(1);
  });

  test('are computed anew for each drawing, and not where no text tells them', () => {
    told(figure('e', 5));
    told(figure('e', 5));
    expect(summary.describe).toHaveBeenCalledTimes(2);
    told('<text>none</text>');
    expect(summary.describe).toHaveBeenCalledTimes(2);
  });
});
