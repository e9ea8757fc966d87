import type { Page } from 'playwright-core';

export interface Contrast {
  text: string;
  ratio: number;
}

/** The contrast of each text of the chart with what lies behind its middle, as WCAG 2 counts it. */
export async function contrasts(page: Page): Promise<Contrast[]> {
  return page.evaluate(() => {
    type Color = [number, number, number, number];
    const parse = (color: string): Color | null => {
      const parts = color.match(/[\d.]+/g)?.map(Number);
      return parts === undefined ? null : [parts[0]!, parts[1]!, parts[2]!, parts[3] ?? 1];
    };
    const luminance = ([r, g, b]: Color): number => {
      const linear = [r, g, b].map((part) => {
        const share = part / 255;
        return share <= 0.04045 ? share / 12.92 : ((share + 0.055) / 1.055) ** 2.4;
      });
      return 0.2126 * linear[0]! + 0.7152 * linear[1]! + 0.0722 * linear[2]!;
    };
    const over = (front: Color, back: Color): Color => {
      const mix = (i: 0 | 1 | 2): number => front[i] * front[3] + back[i] * (1 - front[3]);
      return [mix(0), mix(1), mix(2), 1];
    };
    const white: Color = [255, 255, 255, 1];
    const opacity = (style: CSSStyleDeclaration): number => Number(style.fillOpacity) * Number(style.opacity);
    const svg = document.querySelector('figure svg') as SVGSVGElement;
    const shapes = [...svg.querySelectorAll('rect, circle, path, polygon, text')].filter(
      (shape) => shape.closest('defs, clipPath, pattern') === null,
    );
    /** What was painted before the text and covers its middle. */
    const behind = (text: Element): Color => {
      const box = text.getBoundingClientRect();
      const [x, y] = [box.left + box.width / 2, box.top + box.height / 2];
      let color = white;
      for (const shape of shapes.slice(0, shapes.indexOf(text))) {
        const style = getComputedStyle(shape);
        const fill = style.visibility === 'hidden' ? null : parse(style.fill);
        if (shape.localName === 'text' || fill === null || style.fill.startsWith('url')) continue;
        const place = (shape as SVGGraphicsElement).getScreenCTM()?.inverse();
        if (!place || !(shape as SVGGeometryElement).isPointInFill(new DOMPoint(x, y).matrixTransform(place)))
          continue;
        color = over([fill[0], fill[1], fill[2], fill[3] * opacity(style)], color);
      }
      return color;
    };
    return shapes
      .filter((shape) => shape.localName === 'text' && (shape.textContent ?? '').trim() !== '')
      .map((text) => {
        const style = getComputedStyle(text);
        const own = parse(style.fill) ?? white;
        const back = behind(text);
        const front = over([own[0], own[1], own[2], own[3] * opacity(style)], back);
        const [light, dark] = [luminance(front), luminance(back)].sort((a, b) => b - a) as [number, number];
        return { text: text.textContent ?? '', ratio: (light + 0.05) / (dark + 0.05) };
      });
  });
}
