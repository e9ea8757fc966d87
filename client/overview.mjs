// Lays pictures out in a grid: node overview.mjs OVERVIEW.svg PICTURE.png...
// The pictures are named in the overview, so they have to lie in its folder or below.
import { readFileSync, writeFileSync } from 'node:fs';
import { basename, dirname, join } from 'node:path';

const [overview = '', ...pictures] = process.argv.slice(2);
const columns = 4;
const cell = { width: 420, height: 340 };
const gap = 24;
const label = 26;

/** Width and height stand in the head of a PNG. */
function sizeOf(file) {
  const bytes = readFileSync(file);
  return { width: bytes.readUInt32BE(16), height: bytes.readUInt32BE(20) };
}

function placed(picture, index) {
  const size = sizeOf(join(dirname(overview), picture));
  const scale = Math.min(cell.width / size.width, (cell.height - label) / size.height);
  const width = size.width * scale;
  const left = gap + (index % columns) * (cell.width + gap);
  const top = gap + Math.floor(index / columns) * (cell.height + gap);
  const name = basename(picture, '.png').replace(/[-_]/g, ' ');
  return `<text x="${left}" y="${top + 16}">${name}</text>
<image x="${left + (cell.width - width) / 2}" y="${top + label}" width="${width}" height="${size.height * scale}" href="${picture}"/>`;
}

const width = gap + columns * (cell.width + gap);
const height = gap + Math.ceil(pictures.length / columns) * (cell.height + gap);
writeFileSync(
  overview,
  `<svg xmlns="http://www.w3.org/2000/svg" width="${width}" height="${height}" font-family="Helvetica, Arial, Liberation Sans, sans-serif" font-size="14" fill="#444">
<rect width="100%" height="100%" fill="white"/>
${pictures.map(placed).join('\n')}
</svg>
`,
);
