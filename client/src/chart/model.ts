/** What the client draws of a chart: its markup as typed values, references still by id. */
import type { Length } from './markup.js';

/** One set of visual properties; what is absent is left to whoever draws. */
export interface Style {
  color?: string;
  color2?: string;
  visible?: boolean;
  opacity?: number;
  pattern?: number;
  symbol?: string;
  size?: Length;
  width?: Length;
  strokeWidth?: Length;
  /** Lengths of dashes and gaps; empty is a solid line. */
  dashes?: Length[];
  lineCap?: string;
  fontFamily?: string;
  fontSize?: Length;
  fontStyle?: string;
  fontWeight?: string;
  textAlignment?: string;
  padding?: Length;
  paddingTop?: Length;
  paddingRight?: Length;
  paddingBottom?: Length;
  paddingLeft?: Length;
}

export interface Chart {
  description: string;
  /** The language of the texts, such as en-US. */
  language: string;
  name: string;
  pageStyle: Style;
  locations: Location[];
  graphs: Graph[];
  frames: LabelFrame[];
  legends: Legend[];
  variables: Map<string, Variable>;
  domains: Map<string, Domain>;
  styles: Map<string, Style>;
  cycles: Map<string, StyleCycle>;
  embedded: EmbeddedSource[];
  /** The special parts by their names: title1, subtitle, footnote1, legend1 and so on. */
  parts: Map<string, string>;
  /** Functions of clients that parts of the chart ask for. */
  controllers: { name: string; target: string }[];
}

export type Part = 'left' | 'right' | 'top' | 'bottom' | 'width' | 'height';

/** Ties one side or extent of a part of the page to a place. */
export interface Location {
  part: Part;
  /** `value`: the length; `target`: the near side of the part with that id; `client`: as the client has it. */
  method: 'value' | 'target' | 'client';
  value: Length | null;
  target: string;
}

export type VariableKind = 'source' | 'derived' | 'expression';

export interface Variable {
  id: string;
  kind: VariableKind;
  /** What it is called on axes and in legends. */
  label: string;
  categorical: boolean;
  weight: boolean;
  /** Of a source variable: the source and the column in it. */
  source: string;
  column: string;
  /** The expression of a derived variable or the algebra of an expression variable. */
  expression: string;
  domain: string;
  date: boolean;
  /** Its values are the middles of groups of values. */
  groupedMidpoints: boolean;
  format: Format | null;
}

export interface Format {
  errorCharacter: string | null;
  maximumFractionDigits: number | null;
  minimumFractionDigits: number | null;
  pattern: string | null;
  prefix: string;
  suffix: string;
  grouping: boolean | null;
  relabels: Map<string, string>;
}

export interface Domain {
  id: string;
  categorical: boolean;
  date: boolean;
  variables: string[];
  format: Format | null;
  minimum: string | null;
  maximum: string | null;
  exact: boolean;
  sort: { method: number | null; descending: boolean; order: string[] } | null;
  /** The categories that are shown, or null for all. */
  only: string[] | null;
  removed: string[];
}

export interface StyleCycle {
  id: string;
  aesthetic: string;
  /** The values of each cycle in it. */
  cycles: { id: string; styles: Style[] }[];
}

export interface EmbeddedSource {
  id: string;
  columns: string[];
  rows: string[];
}

export interface Graph {
  id: string;
  locations: Location[];
  cellStyle: Style;
  coordinates: Coordinates[];
  elements: ChartElement[];
  guides: Guide[];
  panels: Panels | null;
  layout: PanelLayout | null;
}

export interface Coordinates {
  id: string;
  /** x, y and z. */
  dimensions: Dimension[];
  /** What is laid over the dimensions, in document order. */
  transforms: Transform[];
}

export type Transform =
  | { kind: 'transpose' | 'polar' }
  | { kind: 'reflect'; dimension: number; alternating: boolean }
  | { kind: 'sameRatio'; center: boolean }
  | { kind: 'view' };

export interface Dimension {
  axes: Axis[];
  scale: Scale | null;
  domain: string;
  clusterVariable: string;
  clusterGap: Length | null;
  lowerMargin: Length | null;
  upperMargin: Length | null;
  unionDomain: boolean | null;
  niceLower: boolean | null;
  niceUpper: boolean | null;
}

export type ScaleMethod = 'linear' | 'log' | 'power' | 'symmetric log' | 'symmetric power';

export interface Scale {
  method: ScaleMethod;
  base: number | null;
  invert: boolean;
  origin: string | null;
}

export interface Axis {
  style: Style;
  label: Label | null;
  ticks: Ticks | null;
  /** Null where the chart does not say. */
  opposite: boolean | null;
  derived: boolean;
  /** At which panels it stands; 0 is the outer ones. */
  repeat: number | null;
  /** Whether all panels have one label. */
  combineLabels: boolean | null;
}

export interface Ticks {
  style: Style;
  markStyle: Style;
  frameStyle: Style;
  /** A value at which there is a tick: a number, a date, or a share of the axis such as 50%. */
  base: string | null;
  delta: number | null;
  angle: number | null;
  frequency: number | null;
  length: Length | null;
  stagger: boolean;
  format: Format | null;
  /** Null where there are no gridlines. */
  gridline: Style | null;
}

export type ElementKind = 'point' | 'line' | 'path' | 'interval' | 'area' | 'schema' | 'edge' | 'polygon';

export interface ChartElement {
  kind: ElementKind;
  id: string;
  name: string;
  style: Style;
  /** The styles of the parts of a box plot. */
  parts: { extreme: Style; fence: Style; hinge: Style; median: Style; outlier: Style };
  coordinates: string;
  /** Ids of variables; two where the element reaches from one to the other. */
  x: string[];
  y: string[];
  z: string[];
  aesthetics: Aesthetic[];
  labeling: Labeling[];
  conditions: ConditionalStyle[];
  modifier: number | null;
  bins: BinStatistic | null;
  summary: number | null;
  density: boolean;
  tukey: boolean;
  showCollidingLabels: boolean;
  /** What happens to labels that would cover each other, by a number of clients. */
  collisions: number | null;
  /** Whether it is to be drawn as dots. */
  dot: boolean;
}

export type AestheticKind = 'color' | 'shape' | 'pattern' | 'dash' | 'size' | 'transparency' | 'styleBy';

export interface Aesthetic {
  kind: AestheticKind;
  id: string;
  variable: string;
  domain: string;
  cycle: string;
  /** Looks of single values. */
  mappings: Map<string, string>;
  low: string | null;
  high: string | null;
}

export interface Labeling {
  /** The variable whose values are shown; without one those along the dimension at that position are. */
  variable: string;
  dimension: number;
  style: Style;
  frameStyle: Style;
  connectingLines: boolean;
  format: Format | null;
}

export interface ConditionalStyle {
  when: string;
  style: Style;
}

export interface BinStatistic {
  count: number | null;
  start: number | null;
  width: number | null;
  dots: boolean;
}

export interface Guide {
  kind: 'line' | 'function' | 'plane' | 'frame';
  id: string;
  name: string;
  style: Style;
  conditions: ConditionalStyle[];
  /** Of lines and functions: what they are at or of. */
  x: string | null;
  y: string | null;
  value: string | null;
}

export interface Panels {
  method: string;
  root: PanelNode;
}

/** The tree of panel variables. */
export type PanelNode =
  | { kind: 'variable'; variable: string }
  | { kind: 'unity' }
  | { kind: 'cross' | 'nest'; children: PanelNode[] };

export interface PanelLayout {
  aspect: number | null;
  topDown: boolean;
  levels: PanelLevel[];
  /** The looks of single panels, in the order of the markup. */
  cellStyles: Style[];
}

export interface PanelLevel {
  level: number;
  gap: Length | null;
  axis: Axis | null;
}

export interface LabelFrame {
  id: string;
  style: Style;
  label: Label | null;
  locations: Location[];
}

export interface Label {
  id: string;
  style: Style;
  frameStyle: Style;
  purpose: number;
  /** Texts, and groups of texts and figures, one after the other. */
  pieces: LabelPiece[];
}

export type LabelPiece =
  | { kind: 'text'; text: string }
  | { kind: 'figure'; target: string; figure: number; format: Format | null };

export interface Legend {
  id: string;
  style: Style;
  textStyle: Style;
  label: Label | null;
  targets: string[];
  locations: Location[];
}
