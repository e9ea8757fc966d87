/** Texts that the client adds by itself, in the look that the chart gives to the labels of its axes. */
import type { Graph } from '../chart/model.js';
import { ownTexts } from './compile/looks.js';
import { textLook, type TextLook } from './svg/text.js';

/** They are that much smaller than labels of axes. */
const share = 0.92;

/** `own` with the font of the first axis that has labels, and a size by that of its labels. */
export function smallText(graphs: Graph[], own: TextLook): TextLook {
  const axes = graphs.flatMap(({ coordinates }) =>
    coordinates.flatMap(({ dimensions }) => dimensions.flatMap((dimension) => dimension.axes)),
  );
  const ticks = axes.find((axis) => axis.ticks && axis.ticks.style.visible !== false)?.ticks;
  const { family, size } = textLook(ticks?.style ?? {}, ownTexts.tickLabel);
  return { ...own, family, size: Math.round(2 * share * size) / 2 };
}
