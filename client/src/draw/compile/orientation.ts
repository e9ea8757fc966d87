/** How the dimensions lie on the screen: transposed, and reflected in some panels. */
import type { Coordinates } from '../../chart/model.js';

export interface Orientation {
  transposed: boolean;
  polar: boolean;
  sameRatio: boolean;
  view: boolean;
  /** What runs across (0) or upwards (1) and is mirrored. */
  reflections: { screen: 0 | 1; alternating: boolean }[];
}

/** Transforms act one after the other: a reflection behind a transpose means the dimension by its new position. */
export function orientationOf(coordinates: Coordinates | undefined, notes: string[]): Orientation {
  const transforms = coordinates?.transforms ?? [];
  const polar = transforms.some((each) => each.kind === 'polar');
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
