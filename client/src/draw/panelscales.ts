/** The scales of one panel, some of them mirrored. */
import type { CompiledGraph } from './compilegraph.js';
import { isReflected, type Orientation } from './compile/orientation.js';
import type { Panel } from './compile/panels.js';
import { withFunctions, type DrawnScale } from './compile/scales.js';

/** A scale as it runs across (0) or upwards (1) in the column or row of that number. */
export function reflected(
  scale: DrawnScale,
  orientation: Orientation,
  screen: 0 | 1,
  place: number,
): DrawnScale {
  if (!isReflected(orientation, screen, place)) return scale;
  return withFunctions({ ...scale, inverted: !scale.inverted });
}

export function panelScales(
  { orientation }: CompiledGraph,
  scales: { x: DrawnScale; y: DrawnScale },
  panel: Panel,
): { x: DrawnScale; y: DrawnScale } {
  const turn = (scale: DrawnScale, screen: 0 | 1) =>
    reflected(scale, orientation, screen, screen === 0 ? panel.column : panel.row);
  return {
    x: turn(scales.x, orientation.transposed ? 1 : 0),
    y: turn(scales.y, orientation.transposed ? 0 : 1),
  };
}
