// How long a chart takes from its capture to the screen: node figures.mjs KESTREL FOLDER
import { execFileSync } from 'node:child_process';
import { existsSync, mkdirSync, readFileSync, statSync, writeFileSync } from 'node:fs';
import { join, resolve } from 'node:path';
import { pathToFileURL } from 'node:url';
import { chromium } from 'playwright-core';

const [kestrel = 'kestrel', folder = 'figures'] = process.argv.slice(2);
const rounds = 3;

/** Points on a cloud, always the same ones. */
function table(rows) {
  const lines = ['x,y'];
  for (let i = 0; i < rows; ++i) {
    const angle = i * 2.399963;
    const radius = Math.sqrt(i / rows) * (1 + 0.3 * Math.sin(i));
    lines.push(`${(radius * Math.cos(angle)).toFixed(4)},${(radius * Math.sin(angle)).toFixed(4)}`);
  }
  return lines.join('\n') + '\n';
}

function seconds(since) {
  return (performance.now() - since) / 1000;
}

function capture(rows, kind) {
  const data = join(folder, `${rows}.csv`);
  if (!existsSync(data)) writeFileSync(data, table(rows));
  const y = kind === 'point' ? ['--y', 'y'] : [];
  const out = join(folder, `${kind}-${rows}`);
  execFileSync(kestrel, ['chart', data, '--element', kind, '--x', 'x', ...y, '-o', out], { stdio: 'ignore' });
  return join(out, 'capture.kcap');
}

async function measure(browser, file) {
  const page = `${file}.html`;
  const begin = performance.now();
  execFileSync(kestrel, ['view', file, '-o', page], { stdio: 'ignore' });
  const viewed = seconds(begin);
  const tab = await browser.newPage();
  await tab.goto(pathToFileURL(resolve(page)).href);
  await tab.waitForSelector('html[data-drawn]', { timeout: 300_000, state: 'attached' });
  await tab.evaluate(() => new Promise((done) => requestAnimationFrame(() => setTimeout(done, 0))));
  const drawn = seconds(begin);
  await tab.close();
  const svg = `${file}.svg`;
  const rendering = performance.now();
  execFileSync(kestrel, ['render', file, '-o', svg], { stdio: 'ignore' });
  return { viewed, drawn, rendered: seconds(rendering), page: statSync(page).size, svg: statSync(svg).size };
}

const megabytes = (bytes) => `${(bytes / 1e6).toFixed(1)} MB`;

mkdirSync(folder, { recursive: true });
const executablePath = process.env.KESTREL_BROWSER ?? '/usr/bin/chromium';
const browser = await chromium.launch({ executablePath, chromiumSandbox: process.getuid?.() !== 0 });
console.log('kind       rows       view      on the screen   render     page       SVG');
for (const kind of ['point', 'histogram']) {
  for (const rows of [1_000, 100_000, 1_000_000]) {
    const file = capture(rows, kind);
    const results = [];
    for (let i = 0; i < rounds; ++i) results.push(await measure(browser, file));
    const [best] = results.sort((left, right) => left.drawn - right.drawn);
    const cells = [
      kind.padEnd(9),
      String(rows).padEnd(9),
      `${best.viewed.toFixed(2)} s`,
      `${best.drawn.toFixed(2)} s`.padStart(12),
      `${best.rendered.toFixed(2)} s`.padStart(12),
      megabytes(best.page).padStart(10),
      megabytes(best.svg).padStart(9),
    ];
    console.log(cells.join('  '));
  }
}
await browser.close();
const empty = readFileSync(join(folder, 'point-1000', 'capture.kcap.html')).length;
const data = readFileSync(join(folder, 'point-1000', 'capture.kcap')).length;
console.log(`a page without its data: ${Math.round(empty - (data * 4) / 3).toLocaleString('en')} bytes`);
