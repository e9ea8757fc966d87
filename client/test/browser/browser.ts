import { execFileSync, spawnSync } from 'node:child_process';
import { existsSync, mkdirSync } from 'node:fs';
import { join } from 'node:path';
import { pathToFileURL } from 'node:url';
import { chromium, type Browser, type Page } from 'playwright-core';

/** The built command line, and where what the tests make is kept for whoever wants to see it. */
export const kestrel = process.env['KESTREL_CLI'] ?? '../build/dev/tools/kestrel/kestrel';
export const artifacts = process.env['KESTREL_ARTIFACTS'] ?? '../build/dev/client/browser';

const browsers = [
  process.env['KESTREL_BROWSER'] ?? '',
  '/usr/bin/chromium',
  '/usr/bin/google-chrome',
  '/Applications/Google Chrome.app/Contents/MacOS/Google Chrome',
  '/Applications/Chromium.app/Contents/MacOS/Chromium',
];

export async function launch(): Promise<Browser> {
  const executablePath = browsers.find((path) => path !== '' && existsSync(path));
  if (executablePath === undefined) throw new Error('no Chromium is there; name one in KESTREL_BROWSER');
  return chromium.launch({
    executablePath,
    // Its sandbox does not start for root.
    chromiumSandbox: process.getuid?.() !== 0,
    args: [
      '--disable-gpu',
      '--disable-quic',
      '--no-first-run',
      '--disable-background-networking',
      '--disable-component-update',
      '--disable-sync',
      '--force-color-profile=srgb',
      '--font-render-hinting=none',
      '--disable-lcd-text',
    ],
  });
}

export function run(...args: string[]): string {
  return execFileSync(kestrel, args, { encoding: 'utf8', stdio: ['ignore', 'pipe', 'pipe'] });
}

/** A command that does its work and says by exit code 2 that something is wrong with the capture. */
export function runOnDamage(...args: string[]): void {
  const { status } = spawnSync(kestrel, args, { stdio: 'ignore' });
  if (status !== 2) throw new Error(`kestrel ${args.join(' ')} ends with ${status}, not 2`);
}

export function folder(...names: string[]): string {
  const path = join(artifacts, ...names);
  mkdirSync(path, { recursive: true });
  return path;
}

/** A page that was opened with the network off, and all that it complained about or asked for. */
export interface Opened {
  page: Page;
  complaints: string[];
}

export async function open(browser: Browser, address: string): Promise<Opened> {
  const context = await browser.newContext({ viewport: { width: 1000, height: 900 }, deviceScaleFactor: 1 });
  const isFile = !address.startsWith('http:');
  await context.setOffline(isFile);
  const page = await context.newPage();
  const complaints: string[] = [];
  const url = isFile ? pathToFileURL(address).href : address;
  page.on('console', (message) => {
    if (['error', 'warning'].includes(message.type()))
      complaints.push(`${message.type()}: ${message.text()}`);
  });
  page.on('pageerror', (error) => complaints.push(`uncaught: ${error.message}`));
  page.on('request', (request) => {
    const asked = request.url();
    const isOurs = isFile ? asked === url : asked.startsWith(url);
    if (!isOurs && !asked.startsWith('data:')) complaints.push(`request: ${asked}`);
  });
  await page.addInitScript(() => {
    document.addEventListener('securitypolicyviolation', (event) => {
      console.error(`policy: ${event.violatedDirective} ${event.blockedURI} ${event.sample}`);
    });
  });
  await page.goto(url);
  return { page, complaints };
}
