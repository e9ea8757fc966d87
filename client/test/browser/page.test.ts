import { readFileSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import { afterAll, beforeAll, describe, expect, test } from 'vitest';
import type { Browser, Page } from 'playwright-core';
import { deflateSync } from 'node:zlib';
import { CaptureBuilder } from '../wire/captureBuilder.js';
import { folder, launch, open, run, runOnDamage } from './browser.js';

let browser: Browser;
let work: string;

beforeAll(async () => {
  browser = await launch();
  work = folder('page');
});
afterAll(async () => browser?.close());

/** The page of a capture. */
function view(name: string, capture: Uint8Array, start: (...args: string[]) => void = run): string {
  const file = join(work, `${name}.kcap`);
  writeFileSync(file, capture);
  start('view', file, '-o', join(work, `${name}.html`));
  return join(work, `${name}.html`);
}

function galleryChart(name: string): string {
  run('gallery', name, '-o', work);
  return view(name, readFileSync(join(work, `${name}.kcap`)));
}

async function opened(address: string): Promise<Page> {
  const { page, complaints } = await open(browser, address);
  await page.waitForSelector('html[data-drawn]');
  expect(complaints).toEqual([]);
  return page;
}

/** What a screen reader gets of the only element with a role. */
async function accessible(page: Page, role: string): Promise<{ name: unknown; description: unknown }> {
  const session = await page.context().newCDPSession(page);
  const { nodes } = await session.send('Accessibility.getFullAXTree');
  const found = nodes.filter((node) => !node.ignored && node.role?.value === role);
  expect(found).toHaveLength(1);
  return { name: found[0]?.name?.value, description: found[0]?.description?.value };
}

/** The names of all groups that a screen reader meets. */
async function accessibleNames(page: Page): Promise<unknown[]> {
  const session = await page.context().newCDPSession(page);
  const { nodes } = await session.send('Accessibility.getFullAXTree');
  const roles = ['group', 'graphics-object', 'graphics-symbol'];
  return nodes
    .filter((node) => !node.ignored && roles.includes(String(node.role?.value)))
    .map((node) => node.name?.value);
}

/** The texts of all that a screen reader meets, in the order in which it does. */
async function accessibleTexts(page: Page): Promise<string[]> {
  const session = await page.context().newCDPSession(page);
  const { nodes } = await session.send('Accessibility.getFullAXTree');
  return nodes
    .filter((node) => !node.ignored && node.role?.value === 'StaticText')
    .map((node) => String(node.name?.value));
}

test('The texts of a chart are spoken in its language', async () => {
  const capture = (lang: string) =>
    new CaptureBuilder().content(0, 'Balken').chartText(`<visualization ${lang}/>`).done().bytes();
  for (const [lang, spoken] of [
    ['lang="de_DE"', 'de-DE'],
    ['lang="de&quot; x"', null],
    ['', null],
  ] as const) {
    const page = await opened(view('language', capture(lang)));
    for (const part of ['h2', 'figure svg', '.description'])
      expect(await page.locator(part).getAttribute('lang')).toBe(spoken);
    await page.context().close();
  }
});

describe('what a picture leaves out', () => {
  const note = '2 rows with missing values are not drawn (Flipper length (mm), Body mass (g)).';

  test('is told once to those who do not see it', async () => {
    const page = await opened(galleryChart('scatter-with-reference-line'));
    expect(await page.locator('section.notes li').allTextContents()).toEqual([note]);
    expect((await accessibleTexts(page)).filter((text) => text.includes('missing values'))).toEqual([note]);
    await page.context().close();
  });

  test('is shown once, in the picture', async () => {
    const page = await opened(galleryChart('scatter-with-reference-line'));
    const box = await page.locator('section.notes').boundingBox();
    expect(box?.height).toBeLessThan(2);
    expect(await page.locator('figure svg [role="note"]').isVisible()).toBe(true);
    await page.context().close();
  });

  test('is shown below it where the picture has no room for all', async () => {
    const strange = Array.from({ length: 9 }, (_, index) => `<strange${index}/>`).join('');
    const graph = `<graph id="g"><coordinates id="c"/>${strange}</graph>`;
    const chart = `<visualization xmlns="http://xml.vexa.example/visualization">${graph}</visualization>`;
    const page = await opened(
      view('strange', new CaptureBuilder().content(0, 'A').chartText(chart).done().bytes()),
    );
    expect(await page.locator('section.notes li').count()).toBeGreaterThan(6);
    expect((await page.locator('section.notes').boundingBox())?.height).toBeGreaterThan(100);
    await page.context().close();
  });

  test('does not hide what else stands below the picture', async () => {
    const page = await opened(galleryChart('error-bars'));
    expect((await accessibleTexts(page)).join(' ')).toContain('95% confidence interval of the mean');
    await page.context().close();
  });
});

describe('a page', () => {
  let page: Page;
  beforeAll(async () => {
    page = await opened(galleryChart('clustered-bars'));
  });
  afterAll(async () => page?.context().close());

  test('is smaller than 600 kB without its data', () => {
    const size = readFileSync(join(work, 'clustered-bars.html')).length;
    const data = readFileSync(join(work, 'clustered-bars.kcap')).length;
    expect(size - (data * 4) / 3).toBeLessThan(600_000);
  });

  test('names the chart for those who do not see it', async () => {
    const chart = await accessible(page, 'graphics-document');
    expect(chart.name).toBe('Bars of the number of penguins by island, a bar for each species.');
    expect(chart.description).toBe('T shows the data table, X shows the chart text, M shows the messages.');
  });

  test('names the groups of marks, the axes and the legend', async () => {
    const names = await accessibleNames(page);
    for (const name of [
      'Adelie: 3 bars',
      'Chinstrap: 1 bar',
      'Gentoo: 1 bar',
      'Island axis',
      'Number of penguins axis',
      'Legend: Species',
    ]) {
      expect(names).toContain(name);
    }
  });

  test('shows the data table by its key, and only while the chart has the focus', async () => {
    const table = page.locator('#chart-1-table');
    await page.keyboard.press('t');
    expect(await table.isVisible()).toBe(false);
    await page.keyboard.press('Tab');
    expect(await page.evaluate(() => document.activeElement?.localName)).toBe('svg');
    await page.keyboard.press('t');
    expect(await table.isVisible()).toBe(true);
    expect(await page.getByRole('button', { name: 'Data table' }).getAttribute('aria-expanded')).toBe('true');
    const focused = () => page.evaluate(() => document.activeElement?.getAttribute('aria-label'));
    expect(await focused()).toMatch(/^The data of the chart, /);
    await page.keyboard.press('t');
    expect(await table.isVisible()).toBe(false);
    expect(await page.evaluate(() => document.activeElement?.localName)).toBe('svg');
    await page.keyboard.press('t');
    await page.keyboard.press('Escape');
    expect(await table.isVisible()).toBe(false);
    expect(await page.evaluate(() => document.activeElement?.localName)).toBe('svg');
  });

  test('shows the focus within the picture, and lets it scroll on narrow screens', async () => {
    await page.locator('figure svg').focus();
    await page.keyboard.press('Shift');
    const offset = () => page.locator('figure svg').evaluate((svg) => getComputedStyle(svg).outlineOffset);
    expect(await offset()).toBe('-3px');
    await page.setViewportSize({ width: 360, height: 800 });
    const widths = await page.evaluate(() => {
      const picture = document.querySelector('.picture') as HTMLElement;
      return [picture.scrollWidth, picture.clientWidth];
    });
    expect(widths[0]).toBe(480);
    expect(widths[1]).toBeLessThan(360);
    await page.setViewportSize({ width: 1000, height: 900 });
  });

  test('shows the chart text and the messages by buttons that the keyboard reaches', async () => {
    for (const [name, text] of [
      ['Chart text', '<visualization'],
      ['Messages', 'compressed size'],
    ] as const) {
      await page.getByRole('button', { name }).focus();
      await page.keyboard.press('Enter');
      expect(await page.locator('.panel:visible').textContent()).toContain(text);
      await page.keyboard.press('Enter');
      expect(await page.locator('.panel:visible').count()).toBe(0);
    }
  });

  test('gives its tables captions and heads', async () => {
    await page.getByRole('button', { name: 'Messages' }).click();
    const table = page.getByRole('table', { name: '8 messages' });
    expect(await table.getByRole('columnheader').count()).toBe(8);
    expect(await table.getByRole('row').count()).toBe(9);
    await page.getByRole('button', { name: 'Messages' }).click();
  });

  test('prints without what only a screen has', async () => {
    await page.emulateMedia({ media: 'print' });
    expect(await page.getByRole('button', { name: 'Messages' }).isVisible()).toBe(false);
    expect(await page.locator('figure svg').isVisible()).toBe(true);
    await page.emulateMedia({ media: 'screen' });
  });
});

describe('what came over the wire', () => {
  test('is shown as text and never as markup', async () => {
    const evil = '<img src=x onerror="document.title=1"></script><script>document.title=2</script>';
    const capture = new CaptureBuilder()
      .content(0, evil)
      .chartText(`<visualization id="&lt;b>"/>`)
      .done()
      .bytes();
    const page = await opened(view('evil', capture));
    expect(await page.locator('.description').textContent()).toBe(evil);
    expect(await page.locator('main img, main script').count()).toBe(0);
    await page.context().close();
  });

  test('is shown with what is wrong with it', async () => {
    const whole = new CaptureBuilder().content(0, 'A chart').chartText('<visualization/>').done().bytes();
    const page = await opened(view('cut', whole.subarray(0, whole.length - 4), runOnDamage));
    const problems = page.locator('section.problems li');
    expect(await problems.allTextContents()).toEqual([
      `The capture is cut at byte ${whole.length - 4}: message 5 has 16 of its 20 bytes.`,
    ]);
    await page.context().close();
  });

  test('may be no chart', async () => {
    const picture = Buffer.from(
      'iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9QDwADhgGAWjR9awAAAABJRU5ErkJggg==',
      'base64',
    );
    const capture = new CaptureBuilder()
      .content(0, 'A dot')
      .content(7, deflateSync(picture), 3)
      .done()
      .bytes();
    const page = await opened(view('image', capture));
    const image = page.getByRole('img', { name: 'A dot' });
    expect(await image.evaluate((element) => (element as HTMLImageElement).naturalWidth)).toBe(1);
    await page.context().close();
  });

  test('may be interactive content, whose texts are shown', async () => {
    const capture = new CaptureBuilder()
      .interactiveContent(0, 'A page')
      .interactiveContent(16, deflateSync('{"rows":[1,2]}'))
      .interactiveContent(19, 'wide')
      .done(0, 3)
      .bytes();
    const page = await opened(view('interactive', capture));
    await page.getByRole('button', { name: 'Other contents' }).click();
    expect(await page.locator('.panel:visible pre').allTextContents()).toEqual(['{"rows":[1,2]}', 'wide']);
    await page.context().close();
  });

  test('may be a chart text that is no XML', async () => {
    const capture = new CaptureBuilder().content(0, 'A chart').chartText('<visualization>').done().bytes();
    const { page, complaints } = await open(browser, view('broken', capture));
    await page.waitForSelector('html[data-drawn]', { state: 'attached' });
    // Chromium's parser paints its report of what is wrong in the document that it gives, and the policy forbids it.
    expect(complaints.filter((text) => !text.includes('style'))).toEqual([]);
    expect(await page.locator('section.problems, section.notes').textContent()).toContain(
      'the chart text is no XML',
    );
    await page.context().close();
  });

  test('may be several charts', async () => {
    const capture = new CaptureBuilder()
      .content(0, 'One')
      .chartText('<visualization/>')
      .done()
      .content(0, 'Two')
      .chartText('<visualization/>')
      .done()
      .bytes();
    const page = await opened(view('several', capture));
    expect(await page.getByRole('article').count()).toBe(2);
    await page.context().close();
  });
});
