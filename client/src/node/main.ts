import { readFileSync, writeFileSync } from 'node:fs';
import { receive } from '../wire/receive.js';
import { chartsOf, render } from './render.js';

/** How `kestrel render` runs us: CAPTURE, OUT.svg, and which chart of the capture, from 1. */
function run([capturePath = '', svgPath = '', which = '1']: string[]): void {
  const capture = readFileSync(capturePath);
  const charts = chartsOf(capture);
  const chart = charts[Number(which) - 1];
  if (chart === undefined) {
    for (const problem of receive(capture).flatMap((received) => received.problems)) tell(problem);
    throw new Error(`there is no chart ${which} in it: it has ${charts.length}`);
  }
  const { svg, notes, problems } = render(chart);
  writeFileSync(svgPath, svg);
  for (const line of [...problems, ...notes]) tell(line);
}

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
  process.exitCode = 1;
}
