/** How elements look: the client's own looks, over them the style of the element and those of its groups. */
import type { Length } from '../../chart/markup.js';
import { pixels } from '../../chart/markup.js';
import type { ChartElement, Style } from '../../chart/model.js';
import { groupColors, none, safeColor } from '../svg/colors.js';
import { sansSerif, type TextLook } from '../svg/text.js';

/** What a mark needs to be drawn. */
export interface Look {
  visible: boolean;
  fill: string;
  stroke: string;
  strokeWidth: number;
  /** Of the outline; 1 where it is left out. */
  strokeOpacity?: number;
  /** In pixels; empty is a solid line. */
  dashes: number[];
  lineCap: string;
  symbol: string;
  /** The diameter of symbols in pixels. */
  size: number;
  opacity: number;
  /** The number of a pattern; 1 is solid. */
  pattern: number;
  /** The width of bars and boxes by the place that they have. */
  width: Length | null;
}

const base: Look = {
  visible: true,
  fill: groupColors[0]!,
  stroke: none,
  strokeWidth: 1,
  dashes: [],
  lineCap: 'butt',
  symbol: 'circle',
  size: 6.5,
  opacity: 1,
  pattern: 1,
  width: null,
};

const ink = '#333333';

/** Kinds whose colour is that of a line. */
const lineKinds = new Set(['line', 'path', 'edge', 'error', 'guide']);

export type LookKind = ChartElement['kind'] | 'error' | 'guide';

/** The client's own looks. */
const ownLooks: Record<LookKind, Look> = {
  point: { ...base, opacity: 0.8 },
  line: { ...base, fill: none, stroke: groupColors[0]!, strokeWidth: 1.75, lineCap: 'round' },
  path: { ...base, fill: none, stroke: groupColors[0]!, strokeWidth: 1.75, lineCap: 'round' },
  interval: { ...base, stroke: '#ffffff', strokeWidth: 0.75 },
  area: { ...base, opacity: 0.85 },
  schema: { ...base, fill: '#A9CCE6', stroke: ink, strokeWidth: 1, size: 5.5 },
  edge: { ...base, fill: none, stroke: '#595959', strokeWidth: 1.25 },
  polygon: { ...base, opacity: 0.7, stroke: '#ffffff' },
  error: { ...base, fill: ink, stroke: ink, strokeWidth: 1.5, size: 6.5 },
  guide: { ...base, fill: none, stroke: '#595959', strokeWidth: 1, dashes: [5, 3] },
};

export function ownLook(kind: LookKind): Look {
  return { ...ownLooks[kind] };
}

/** A style over a look. Of a line the colour is that of its stroke, of all else that of its inside. */
export function styled(look: Look, style: Style, kind: LookKind): Look {
  const result = { ...look };
  const color = safeColor(style.color);
  const outline = safeColor(style.color2);
  if (color !== undefined) {
    if (lineKinds.has(kind)) result.stroke = color;
    if (!lineKinds.has(kind) || kind === 'error') result.fill = color;
  }
  if (outline !== undefined && !lineKinds.has(kind)) result.stroke = outline;
  if (style.visible !== undefined) result.visible = style.visible;
  if (style.strokeWidth) result.strokeWidth = Math.max(0, pixels(style.strokeWidth, 1));
  if (style.dashes) result.dashes = style.dashes.map((length) => Math.max(0, pixels(length, 1)));
  if (style.lineCap) result.lineCap = style.lineCap;
  if (style.symbol) result.symbol = style.symbol;
  if (style.size) result.size = Math.max(0.5, pixels(style.size, result.size));
  if (style.opacity !== undefined) result.opacity = Math.min(1, Math.max(0, style.opacity));
  if (style.pattern !== undefined) result.pattern = style.pattern;
  if (style.width) result.width = style.width;
  return result;
}

const text: TextLook = {
  family: sansSerif,
  size: 12,
  weight: 'normal',
  slant: 'normal',
  color: ink,
  align: 'start',
};

/** The client's own looks of texts, sizes in pixels. */
export const ownTexts = {
  title: { ...text, size: 17.5, weight: 'bold', color: '#1a1a1a' },
  title2: { ...text, size: 15, weight: 'bold', color: '#1a1a1a' },
  subtitle: { ...text, size: 13.5, color: '#404040' },
  footnote: { ...text, size: 11.5, color: '#595959' },
  summary: { ...text, size: 12 },
  otherLabel: text,
  axisLabel: { ...text, size: 13, align: 'middle' as const },
  tickLabel: { ...text, size: 12, align: 'middle' as const },
  panelTitle: { ...text, size: 12, weight: 'bold', align: 'middle' as const },
  panelLabel: { ...text, size: 12, align: 'middle' as const },
  legendTitle: { ...text, weight: 'bold' },
  legendLabel: text,
  dataLabel: { ...text, size: 10.5 },
  guideLabel: { ...text, size: 11, color: '#4d4d4d' },
  note: { ...text, size: 11, slant: 'italic', color: '#6b6b6b' },
} satisfies Record<string, TextLook>;
