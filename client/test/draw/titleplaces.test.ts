import { describe, expect, test } from 'vitest';
import { textWidth } from '../../src/draw/svg/text.js';
import { picture, type Picture } from './chart.js';

const page = { width: 625, height: 500 };
const names = ['A rather long name of one bar', 'A rather long name of another'];

/** Bars of long names along x, with a title along y; `opposite` of the axis with the names. */
function bars(opposite: boolean, transform: string, title: string): Picture {
  return picture({ k: [1, 2], b: [3, 4] }, '<interval><x variable="k"/><y variable="b"/></interval>', {
    categorical: { k: names },
    coordinates:
      `<dimension><axis opposite="${opposite}"><majorTicks ${transform ? '' : 'labelAngle="90"'}/></axis></dimension>` +
      `<dimension><axis><label><text>${title}</text></label><majorTicks/></axis></dimension>${transform}`,
  });
}

/** From where to where a title reaches, along its axis, on the page. */
function reach(drawn: Picture, title: string): [number, number] {
  const text = Array.from(drawn.svg.querySelectorAll('text')).find((each) => each.textContent === title)!;
  const own = text.getAttribute('transform');
  let [left, top] = [Number(text.getAttribute('x')), 0];
  for (
    let node = text as Element;
    node.nodeType === 1 && node.localName !== 'svg';
    node = node.parentNode as Element
  ) {
    const [, x = 0, y = 0] =
      /translate\(([-\d.]+),([-\d.]+)/.exec(node.getAttribute('transform') ?? '') ?? [];
    left += Number(x);
    top += Number(y);
  }
  const look = {
    family: text.getAttribute('font-family')!,
    weight: text.getAttribute('font-weight') ?? 'normal',
    size: Number(text.getAttribute('font-size')),
  };
  const half = textWidth(title, look) / 2;
  const middle = own ? top : left;
  return [middle - half, middle + half];
}

/** Long titles go beside the middle of the panels, so that they are whole on the page. */
describe('a title that is longer than its panels', () => {
  const most = 'The number of those who agree with it, or who do not, of all who had been asked';
  const lying = '<transposeTransform/>';

  test('stays on the page where these are at its left, or at its right', () => {
    const title = `${most} at all in the year`;
    for (const opposite of [true, false]) {
      const [left, right] = reach(bars(opposite, lying, title), title);
      expect(left).toBeGreaterThanOrEqual(0);
      expect(right).toBeLessThanOrEqual(page.width);
    }
  });

  test('stays on the page where these are at its bottom', () => {
    const [top, bottom] = reach(bars(true, '', most), most);
    expect(top).toBeGreaterThanOrEqual(0);
    expect(bottom).toBeLessThanOrEqual(page.height);
  });
});
