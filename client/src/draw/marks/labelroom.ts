/** The room that labels need beyond the ends of their bars. */
import type { EndReach } from '../axes/symbolroom.js';
import type { Direction } from '../compile/directions.js';
import type { Layer } from '../compile/layers.js';
import { lineHeight, textWidth } from '../svg/text.js';
import { isPart, labelLook, labelText, mostLabels, type LabelLook } from './datalabels.js';

/** Labels never take more of a panel than that at each end. */
const mostOfPanel = 0.35;
const gapToEdge = 4;

/** How far the labels of a layer's bars reach beyond their ends along y. */
function reachesOf(
  layer: Layer,
  look: LabelLook,
  x: Direction,
  y: Direction,
  transposed: boolean,
): EndReach[] {
  return layer.shapes.slice(0, mostLabels).flatMap((shape): EndReach[] => {
    const text = labelText(layer, shape, x, y);
    const value = shape.y2 ?? shape.y;
    if (text === '' || Number.isNaN(value)) return [];
    const extent = transposed ? look.gap + textWidth(text, look) : look.shift + lineHeight(look) / 2;
    const beyond = extent + gapToEdge;
    const down = value < (shape.y1 ?? layer.baseline);
    const [before, after] = down ? [beyond, 0] : [0, beyond];
    return [{ low: value, high: value, before, after, most: mostOfPanel }];
  });
}

/** How far the labels of all bars reach beyond their ends along y. */
export function labelReaches(panels: Layer[][], x: Direction, y: Direction, transposed: boolean): EndReach[] {
  return panels.flat().flatMap((layer) => {
    const look = layer.kind === 'bars' && !isPart(layer) ? labelLook(layer) : null;
    return look ? reachesOf(layer, look, x, y, transposed) : [];
  });
}
