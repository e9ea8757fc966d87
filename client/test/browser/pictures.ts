import { existsSync, mkdirSync, readFileSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import type { Page } from 'playwright-core';
import { folder } from './browser.js';

const stored = 'test/browser/pictures';

/** So much of a picture may differ: a few cells of the twenty thousand, so that no layer can go unseen. */
const tolerance = 0.0002;

/**
 * What is drawn of the chart but its texts, for letters are others on each machine; the places of everything else
 * do not depend on them.
 */
export async function pictureWithoutTexts(page: Page): Promise<Buffer> {
  await page.evaluate(() => {
    for (const text of document.querySelectorAll('figure svg text'))
      text.setAttribute('visibility', 'hidden');
  });
  return page.locator('figure svg').first().screenshot();
}

/** Stores the picture anew where KESTREL_PICTURES_REWRITE is set. */
export function storeWhereWanted(name: string, picture: Buffer): void {
  if (!process.env['KESTREL_PICTURES_REWRITE']) return;
  mkdirSync(stored, { recursive: true });
  writeFileSync(join(stored, `${name}.png`), picture);
}

/** Null where the picture is the stored one. */
export async function differenceFromStored(
  page: Page,
  name: string,
  picture: Buffer,
): Promise<string | null> {
  const path = join(stored, `${name}.png`);
  if (!existsSync(path)) return `there is no stored picture ${path}`;
  const share = await page.evaluate(differingShare, [
    readFileSync(path).toString('base64'),
    picture.toString('base64'),
  ] as const);
  if (share <= tolerance) return null;
  const seen = join(folder('differing'), `${name}.png`);
  writeFileSync(seen, picture);
  return `${(share * 100).toFixed(3)} % of ${name} differ from ${path}: see ${seen}`;
}

/** Runs in the page: the share of cells of four by four pixels whose mean colours are plainly different. */
async function differingShare([one, other]: readonly [string, string]): Promise<number> {
  const cell = 4;
  const plain = 32;
  const pixels = async (base64: string): Promise<ImageData> => {
    const image = new Image();
    image.src = `data:image/png;base64,${base64}`;
    await image.decode();
    const canvas = document.createElement('canvas');
    canvas.width = Math.ceil(image.naturalWidth / cell);
    canvas.height = Math.ceil(image.naturalHeight / cell);
    const context = canvas.getContext('2d') as CanvasRenderingContext2D;
    context.imageSmoothingQuality = 'high';
    context.drawImage(image, 0, 0, canvas.width, canvas.height);
    return context.getImageData(0, 0, canvas.width, canvas.height);
  };
  const [left, right] = [await pixels(one), await pixels(other)];
  if (left.width !== right.width || left.height !== right.height) return 1;
  let differing = 0;
  for (let at = 0; at < left.data.length; at += 4) {
    const far = [0, 1, 2].some((part) => Math.abs(left.data[at + part]! - right.data[at + part]!) > plain);
    if (far) ++differing;
  }
  return differing / (left.data.length / 4);
}
