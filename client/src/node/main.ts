import { readFileSync, writeFileSync } from 'node:fs';
import { receive } from '../wire/receive.js';
import { chartsOf, render } from './render.js';

/**
 * How `kestrel render` runs us: CAPTURE, OUT.svg, which chart of the capture, from 1, and "told" where it has told what
 * is wrong with the capture: that is the same as we would tell, in other words.
 */
function run([capturePath = '', svgPath = '', which = '1', faults = '']: string[]): void {
  const capture = readFileSync(capturePath);
  const charts = chartsOf(capture);
  const chart = charts[Number(which) - 1];
  const isTold = faults === 'told';
  if (chart === undefined) {
    const problems = receive(capture).flatMap((received) => received.problems);
    if (!isTold) problems.forEach(tell);
    throw new Error(missing(which, charts.length));
  }
  const { svg, notes, problems } = render(chart);
  writeFileSync(svgPath, svg);
  for (const line of isTold ? notes : [...problems, ...notes]) tell(line);
}

function missing(which: string, count: number): string {
  return count === 0
    ? 'there is no chart in it that can be read'
    : `there is no chart ${which} in it: it has ${count}`;
}

/** How we end where the last line says why the chart cannot be drawn. */
const cannotDraw = 4;

function tell(line: string): void {
  process.stderr.write(`${printable(line)}\n`);
}

/** Texts of a chart must not steer a terminal. */
function printable(text: string): string {
  return text.replace(/\p{Cc}/gu, ' ');
}

try {
  run(process.argv.slice(2));
} catch (error) {
  tell(error instanceof Error ? error.message : String(error));
  process.exitCode = cannotDraw;
}
