/** Labels of data as marks of Observable Plot. */
import * as Plot from '@observablehq/plot';
import { none } from '../svg/colors.js';
import { labelLook, placeLabels, symbolRooms, type LabelLook, type PlacedLabel } from './datalabels.js';
import type { Layer } from '../compile/layers.js';
import type { Canvas } from './canvas.js';
import { placeOutliers } from './outlierlabels.js';
import { TakenRooms } from './takenrooms.js';

/** Texts beside what they name; `paint` is how their letters are filled and outlined. */
function labelMarks(labels: PlacedLabel[], look: LabelLook, paint: Plot.TextOptions): Plot.Markish[] {
  const sides = [...new Set(labels.map((label) => label.side))];
  return sides.map((side) => {
    const anchor = { right: 'start', left: 'end', above: 'middle', below: 'middle', within: 'middle' }[side];
    const shift = {
      right: [look.gap, 0] as const,
      left: [-look.gap, 0] as const,
      above: [0, -look.shift] as const,
      below: [0, look.shift] as const,
      within: [0, 0] as const,
    }[side];
    return Plot.text(
      labels.filter((label) => label.side === side),
      {
        x: (label: PlacedLabel) => label.x,
        y: (label: PlacedLabel) => label.y,
        text: (label: PlacedLabel) => label.text,
        textAnchor: anchor as 'start',
        dx: shift[0],
        dy: shift[1],
        fontFamily: look.family,
        fontSize: look.size,
        ...(look.weight === 'normal' ? {} : { fontWeight: look.weight }),
        ...(look.slant === 'normal' ? {} : { fontStyle: look.slant }),
        ...paint,
      },
    );
  });
}

/** Labels of data, and what has to lie below the marks so that it cuts none of them. */
export interface LabelMarks {
  below: Plot.Markish[];
  above: Plot.Markish[];
}

/** The labels of all layers, which must not cover each other. */
export function labelsOf(canvas: Canvas, layers: Layer[], notes: string[]): LabelMarks {
  const marks: LabelMarks = { below: [], above: [] };
  const paper = canvas.paper === none ? '#ffffff' : canvas.paper;
  const halo = { stroke: paper, strokeWidth: 2.5 };
  const taken = new TakenRooms(canvas);
  for (const layer of layers) for (const room of symbolRooms(layer, canvas)) taken.add(room);
  for (const layer of layers) {
    const look = labelLook(layer);
    if (!look) continue;
    const labels =
      layer.kind === 'boxes'
        ? placeOutliers(canvas, layer, layers, look, taken, notes)
        : placeLabels(canvas, layer, look, taken, notes);
    // Beside a box are its own whiskers, which a halo on top would cut.
    const apart = layer.kind === 'boxes';
    if (apart) marks.below.push(...labelMarks(labels, look, { ...halo, fill: paper, ariaHidden: 'true' }));
    marks.above.push(...labelMarks(labels, look, { fill: look.color, ...(apart ? {} : halo) }));
  }
  return marks;
}
