import { join } from 'node:path';
import { afterAll, beforeAll, describe, expect, test } from 'vitest';
import type { Browser, Page } from 'playwright-core';
import { folder, launch, open, run } from './browser.js';
import { gallery, templates, type Expected, type MarkKind } from './charts.js';
import { contrasts } from './contrast.js';
import { differenceFromStored, pictureWithoutTexts, storeWhereWanted } from './pictures.js';

let browser: Browser;
let work: string;

beforeAll(async () => {
  browser = await launch();
  work = folder('gallery');
  run('gallery', '-o', work);
});
afterAll(async () => browser?.close());

/** How the drawing marks the shapes of a kind. */
const selectors: Record<MarkKind, string> = {
  dot: 'g[data-kind="dot"] > *',
  rect: 'g[data-kind="rect"] > *',
  line: 'g[data-kind="line"] > *',
  area: 'g[data-kind="area"] > *',
  link: 'g[data-kind="link"] > *',
  slice: '[aria-label="slice"] path',
};

async function opened(capture: string): Promise<Page> {
  const page = capture.replace(/\.kcap$/, '.html');
  run('view', capture, '-o', page);
  const { page: tab, complaints } = await open(browser, page);
  await tab.waitForSelector('html[data-drawn]', { state: 'attached' });
  expect(complaints).toEqual([]);
  return tab;
}

interface AxisLabels {
  name: string;
  texts: string[];
  /** Along the axis, in pixels. */
  places: number[];
}

/** The labels of each axis beside each panel, as they follow each other. */
async function axisLabels(page: Page): Promise<AxisLabels[]> {
  return page.evaluate(() =>
    [...document.querySelectorAll('figure svg g[aria-label$=" axis"]')].map((axis) => {
      const labels = [...axis.querySelectorAll('text')];
      const boxes = labels.map((label) => label.getBoundingClientRect());
      const middles = boxes.map((box) => [box.left + box.width / 2, box.top + box.height / 2] as const);
      const reach = (at: 0 | 1): number =>
        Math.max(...middles.map((middle) => middle[at])) - Math.min(...middles.map((middle) => middle[at]));
      const along = reach(0) > reach(1) ? 0 : 1;
      return {
        name: axis.getAttribute('aria-label') ?? '',
        texts: labels.map((label) => label.textContent ?? ''),
        places: middles.map((middle) => middle[along]),
      };
    }),
  );
}

/** Labels are told apart, and those that are numbers stand where their values are. */
function checkLabels({ name, texts, places }: AxisLabels): void {
  expect(new Set(texts).size, `${name}: ${texts.join(', ')}`).toBe(texts.length);
  const values = texts.map((text) => Number(text.replace(/[,%]/g, '').replace('\u2212', '-')));
  if (texts.length < 3 || values.some(Number.isNaN)) return;
  const last = texts.length - 1;
  const perValue = (places[last]! - places[0]!) / (values[last]! - values[0]!);
  values.forEach((value, at) => {
    const expected = places[0]! + (value - values[0]!) * perValue;
    expect(Math.abs(expected - places[at]!), `${name}: ${texts[at]}`).toBeLessThan(2);
  });
}

async function check(page: Page, expected: Expected): Promise<void> {
  expect(await page.locator('section.problems li').allTextContents()).toEqual([]);
  const counted: Partial<Record<MarkKind, number>> = {};
  for (const kind of Object.keys(expected.marks) as MarkKind[]) {
    counted[kind] = await page.locator(`figure svg ${selectors[kind]}`).count();
  }
  expect(counted).toEqual(expected.marks);
  const packed = (text: string): string => text.replace(/\s/g, '');
  const shown = new Set((await page.locator('figure svg :is(text, tspan)').allTextContents()).map(packed));
  expect(expected.texts.filter((text) => !shown.has(packed(text)))).toEqual([]);
  const axes = await axisLabels(page);
  for (const axis of axes) checkLabels(axis);
  for (const [name, texts] of Object.entries(expected.axes ?? {})) {
    const own = axes.filter((axis) => axis.name === `${name} axis`).map((axis) => axis.texts);
    expect(own, name).toEqual(Array.isArray(texts[0]) ? texts : own.map(() => texts));
    expect(own.length, name).toBeGreaterThan(0);
  }
  for (const name of ['columns', 'rows'] as const) {
    const group = name === 'columns' ? 'Columns of panels' : 'Rows of panels';
    const texts = await page.locator(`figure svg g[aria-label="${group}"] text`).allTextContents();
    if (expected[name]) expect(texts).toEqual(expected[name]);
  }
  const notes = (await page.locator('section.notes li').allTextContents()).join('\n');
  if (expected.notes === undefined) expect(notes).toBe('');
  for (const words of expected.notes ?? []) expect(notes).toMatch(new RegExp(words));
}

describe('the gallery', () => {
  test('is known here as a whole', () => {
    const names = run('gallery', '--list')
      .trim()
      .split('\n')
      .map((line) => line.split(' ')[0]);
    expect(Object.keys(gallery).sort()).toEqual(names.sort());
  });

  test.each(Object.entries(gallery))('%s', async (name, expected) => {
    const page = await opened(join(work, `${name}.kcap`));
    try {
      await page.screenshot({ path: join(work, `${name}.png`), fullPage: true });
      await check(page, expected);
    } finally {
      await page.context().close();
    }
  });
});

describe('a chart of each visualization template', () => {
  test.each(templates)('$template', async ({ template, data, slots, ...expected }) => {
    const place = folder('templates', template);
    const values = slots.flatMap((slot) => ['--slot', slot]);
    run('template', template, '--data', `../examples/data/${data}.csv`, ...values, '-o', place);
    const page = await opened(join(place, 'capture.kcap'));
    try {
      await page.screenshot({ path: join(place, 'page.png'), fullPage: true });
      await check(page, expected);
    } finally {
      await page.context().close();
    }
  });
});

describe('the shipped templates', () => {
  const shipped = ['', 'colors_only', 'dark', 'default_look', 'large_type', 'print_grey'];
  test.each(shipped)('leave texts readable: %s', async (template) => {
    const place = folder('contrast', template || 'none');
    const options = template === '' ? [] : ['--template', template];
    for (const name of ['scatter-with-reference-line', 'clustered-bars', 'cross-panels']) {
      run('gallery', name, '-o', place, ...options);
      const page = await opened(join(place, `${name}.kcap`));
      const faint = (await contrasts(page)).filter(({ ratio }) => ratio < 4.5);
      expect(faint).toEqual([]);
      await page.context().close();
    }
  });
});

describe('pictures', () => {
  const kinds = [
    'scatter-with-reference-line',
    'dot-plot',
    'clustered-bars',
    'stacked-bars',
    'sorted-bars',
    'histogram-with-summary',
    'box-plot-with-outliers',
    'error-bars',
    'line-over-dates',
    'secondary-y-axis',
    'cross-panels',
    'population-pyramid',
  ];
  test.each(kinds)('are what they were: %s', async (name) => {
    const page = await opened(join(work, `${name}.kcap`));
    const picture = await pictureWithoutTexts(page);
    // The page's own policy forbids other pictures.
    const other = await browser.newPage();
    storeWhereWanted(name, picture);
    expect(await differenceFromStored(other, name, picture)).toBeNull();
    await page.context().close();
    await other.close();
  });

  test.each([
    ['error-bars', 'g[role="graphics-object"] > *', 'all marks'],
    ['error-bars', 'g[role="graphics-object"] > g:nth-child(3)', 'one end of the bars'],
    ['box-plot-with-outliers', 'g[role="graphics-object"] > g:last-child', 'outliers'],
    ['scatter-with-reference-line', 'g[aria-label^="Guide"] > *', 'reference lines'],
    ['line-over-dates', 'g[role="graphics-object"] > *', 'lines'],
  ])('are others without a part: %s, %s, %s', async (name, selector) => {
    const page = await opened(join(work, `${name}.kcap`));
    const removed = await page.evaluate((parts) => {
      const found = document.querySelectorAll(`figure svg ${parts}`);
      for (const part of found) part.remove();
      return found.length;
    }, selector);
    expect(removed).toBeGreaterThan(0);
    const picture = await pictureWithoutTexts(page);
    const other = await browser.newPage();
    expect(await differenceFromStored(other, name, picture)).toMatch(/% of .* differ from/);
    await page.context().close();
    await other.close();
  });
});
