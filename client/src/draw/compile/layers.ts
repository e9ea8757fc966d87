/**
 * What elements become in one panel: shapes with places in the units of the data, one layer for each group.
 * Statistics are computed here; widths, stacks and clusters are found by positions.ts.
 */
import type { ChartElement } from '../../chart/model.js';
import type { Box } from '../../statistics/tukey.js';
import type { Group } from './grouping.js';
import type { Look } from './looks.js';
import type { Range, Varied } from './ranges.js';

export type LayerKind =
  | 'points'
  | 'dots'
  | 'line'
  | 'bars'
  | 'errors'
  | 'area'
  | 'boxes'
  | 'edges'
  | 'polygon'
  | 'slices';

/** One place. Bars, areas and edges reach from x1, y1 to x2, y2. */
export interface Shape {
  x: number;
  y: number;
  /** Its value along x, where it stands beside that. */
  place?: number;
  x1?: number;
  x2?: number;
  y1?: number;
  y2?: number;
  /** The bounds of an error bar. */
  low?: number;
  high?: number;
  box?: BoxShape;
  varied?: Varied;
  /** The values that vary it, one for each range of its layer. */
  shown?: number[];
  /** What is written beside it. */
  label?: string;
  /** The row of the source, where it shows one. */
  row?: number;
  /** It has no case of its own: it is 0, or lies on the line between its neighbours. */
  between?: true;
  /** Of two heights at one place: that of the areas which go on where another one begins or ends. */
  side?: 'before' | 'after';
  /** How many cases it stands for, where they were counted. */
  cases?: number;
}

export interface BoxShape {
  box: Box;
  outliers: { value: number; label: string; extreme: boolean }[];
}

export interface Layer {
  kind: LayerKind;
  element: ChartElement;
  group: Group;
  shapes: Shape[];
  ranges: Range[];
  look: Look;
  /** The category of the cluster variable that the group belongs to; null where there is none. */
  slot: { at: number; of: number } | null;
  /** Where its bars begin. */
  baseline: number;
  /** Whether its bars stand over classes and touch. */
  binned: boolean;
  /** The styles of a box plot's parts, resolved. */
  parts: { median: Look; fence: Look; hinge: Look; outlier: Look; extreme: Look } | null;
}
