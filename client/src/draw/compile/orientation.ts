/** How the dimensions lie on the screen: transposed, and reflected in some panels. */
import type { Chart, ChartElement, Coordinates, Graph } from '../../chart/model.js';
import type { Data } from '../../data/columns.js';
import { isGrouping } from './grouping.js';

export interface Orientation {
  transposed: boolean;
  polar: boolean;
  sameRatio: boolean;
  view: boolean;
  /** What runs across (0) or upwards (1) and is mirrored. */
  reflections: { screen: 0 | 1; alternating: boolean }[];
}

/** Stacked bars make slices. Those of several places along x would not be told apart, unless they have looks. */
function isSlices(element: ChartElement, chart: Chart, data: Data): boolean {
  const grouped = element.aesthetics.filter((aesthetic) => {
    const values = data.values(aesthetic.variable);
    return values !== null && isGrouping(aesthetic, values, chart);
  });
  const stacked = element.kind === 'interval' && element.modifier === 3 && element.y.length < 2;
  const told = element.x.every((id) => grouped.some(({ variable }) => variable === id));
  return stacked && told && element.summary !== 7;
}

const wantsPolar = (graph: Graph) =>
  (graph.coordinates[0]?.transforms ?? []).some((each) => each.kind === 'polar');

/** Whether a graph is drawn in polar coordinates. */
export function isPie(graph: Graph, chart: Chart, data: Data): boolean {
  return wantsPolar(graph) && graph.elements.every((element) => isSlices(element, chart, data));
}

/** Transforms act one after the other: a reflection behind a transpose means the dimension by its new position. */
export function orientationOf(
  coordinates: Coordinates | undefined,
  notes: string[],
  polar = false,
): Orientation {
  const transforms = coordinates?.transforms ?? [];
  if (!polar && transforms.some((each) => each.kind === 'polar'))
    notes.push(
      'Of polar coordinates only pies of stacked bars are drawn; this graph stands in straight ones.',
    );
  const transposes = transforms.filter((each) => each.kind === 'transpose').length;
  const reflections: Orientation['reflections'] = [];
  let before = 0;
  for (const transform of transforms) {
    if (transform.kind === 'transpose') before += 1;
    if (transform.kind !== 'reflect') continue;
    if (transform.dimension > 1) {
      notes.push(`The reflection of the dimension ${transform.dimension} is not drawn.`);
      continue;
    }
    const turned = (transposes - before) % 2 === 1;
    const screen = turned ? 1 - transform.dimension : transform.dimension;
    reflections.push({ screen: screen as 0 | 1, alternating: transform.alternating });
  }
  return {
    transposed: !polar && transposes % 2 === 1,
    polar,
    sameRatio: transforms.some((each) => each.kind === 'sameRatio'),
    view: transforms.some((each) => each.kind === 'view'),
    reflections,
  };
}

/** Whether what runs across or upwards is mirrored in a panel. Of every two panels it is the first. */
export function isReflected(orientation: Orientation, screen: 0 | 1, place: number): boolean {
  return orientation.reflections
    .filter((each) => each.screen === screen && (!each.alternating || place % 2 === 0))
    .reduce((reflected) => !reflected, false);
}
