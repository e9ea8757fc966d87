// What kestrel serve shows as programs send charts.

import { spawn, type ChildProcess } from 'node:child_process';
import { writeFileSync } from 'node:fs';
import { join } from 'node:path';
import type { Browser, Page } from 'playwright-core';
import { afterAll, afterEach, beforeAll, beforeEach, describe, expect, test } from 'vitest';
import { folder, kestrel, launch, open, run } from './browser.js';

const work = folder('live');
const socket = join(work, 's');
let browser: Browser;
let server: Served;

interface Served {
  process: ChildProcess;
  address: string;
}

async function serve(port: string, ...more: string[]): Promise<Served> {
  const process = spawn(kestrel, ['serve', '--port', port, `unix:${socket}`, ...more], {
    stdio: ['ignore', 'pipe', 'inherit'],
  });
  const address = await new Promise<string>((resolve) => {
    let said = '';
    process.stdout.on('data', (bytes: Buffer) => {
      said += bytes.toString();
      const [found] = /http:\/\/\S+/.exec(said) ?? [];
      if (found !== undefined) resolve(found);
    });
  });
  return { process, address };
}

async function stop(): Promise<void> {
  if (server.process.exitCode !== null) return;
  server.process.kill('SIGTERM');
  await new Promise((resolve) => server.process.on('exit', resolve));
}

/** Sends a chart that is called by its description. */
function send(description: string, rows = 2): void {
  const lines = Array.from({ length: rows }, (_, row) => `${row},${(row * 7) % 13}\n`);
  writeFileSync(join(work, 'live.csv'), `a,b\n${lines.join('')}`);
  const options = ['--element', 'point', '--x', 'a', '--y', 'b', '--description', description];
  run('chart', join(work, 'live.csv'), ...options, '--send', `unix:${socket}`);
}

const descriptions = (page: Page) => page.locator('figcaption').allTextContents();
const state = (page: Page) => page.getByRole('status').textContent();

/** Makes the page believe that it is hidden, or to be seen again. */
async function setHidden(page: Page, isHidden: boolean): Promise<void> {
  await page.evaluate((hidden) => {
    Object.defineProperty(document, 'visibilityState', {
      configurable: true,
      get: () => (hidden ? 'hidden' : 'visible'),
    });
    document.dispatchEvent(new Event('visibilitychange'));
  }, isHidden);
}

beforeAll(async () => {
  browser = await launch();
});
afterAll(async () => {
  await browser.close();
});
beforeEach(async () => {
  server = await serve('0', '--keep', '3');
});
afterEach(stop);

describe('live charts', () => {
  test('come without loading anew, the newest first', async () => {
    const { page, complaints } = await open(browser, server.address);
    await expect.poll(() => state(page)).toBe('No chart has come yet.');
    for (const [number, name] of ['Chart a', 'Chart b'].entries()) {
      send(name);
      await expect.poll(() => page.locator('figure svg').count()).toBe(number + 1);
    }
    expect(await descriptions(page)).toEqual(['Chart b', 'Chart a']);
    expect(await state(page)).toBe('2 charts, newest first.');
    expect(complaints).toEqual([]);
    await page.context().close();
  });

  test('go when they are no longer kept', async () => {
    const { page } = await open(browser, server.address);
    for (const name of ['a', 'b', 'c', 'd']) send(name);
    await expect.poll(() => descriptions(page)).toEqual(['d', 'c', 'b']);
    await page.context().close();
  });

  test('of a server that is started anew take the place of those before', async () => {
    const { page } = await open(browser, server.address);
    send('before');
    await expect.poll(() => descriptions(page)).toEqual(['before']);
    const port = new URL(server.address).port;
    await stop();
    await expect.poll(() => state(page), { timeout: 10_000 }).toContain('Does kestrel serve still run?');
    server = await serve(port);
    send('behind');
    await expect.poll(() => descriptions(page), { timeout: 10_000 }).toEqual(['behind']);
    expect(await state(page)).toBe('1 chart, newest first.');
    await page.context().close();
  });

  test('that came or went while the page was hidden are noticed when it is seen again', async () => {
    const { page } = await open(browser, server.address);
    send('a');
    await expect.poll(() => descriptions(page)).toEqual(['a']);
    await setHidden(page, true);
    for (const name of ['b', 'c', 'd']) send(name);
    await new Promise((resolve) => setTimeout(resolve, 500));
    expect(await descriptions(page)).toEqual(['a']);
    await setHidden(page, false);
    await expect.poll(() => descriptions(page)).toEqual(['d', 'c', 'b']);
    await page.context().close();
  });

  test('that did not come whole are asked for again', async () => {
    const { page } = await open(browser, server.address);
    let failures = 0;
    await page.route('**/charts/*.kcap', async (route) => {
      if (failures++ === 0) await route.abort();
      else await route.continue();
    });
    send('a');
    await expect.poll(() => page.locator('.empty').textContent()).toContain('did not come whole');
    await setHidden(page, true);
    await setHidden(page, false);
    await expect.poll(() => descriptions(page)).toEqual(['a']);
    await page.context().close();
  });

  test('are asked for again where the server has refused', async () => {
    const context = await browser.newContext();
    const page = await context.newPage();
    let asked = 0;
    await page.route('**/events', async (route) => {
      if (asked++ === 0) await route.fulfill({ status: 503, body: 'Too many pages are open already.' });
      else await route.continue();
    });
    send('a');
    await page.goto(server.address);
    await expect.poll(() => descriptions(page), { timeout: 15_000 }).toEqual(['a']);
    expect(asked).toBe(2);
    await context.close();
  });
});
