/** Label frames: titles, footnotes, summaries of statistics, and boxes around the page. */
import { pixels } from '../chart/markup.js';
import type { Chart, Format, Label, LabelFrame, Style } from '../chart/model.js';
import { decimalsOf, mergeFormats, numberText, readNumber } from '../data/format.js';
import { none, safeColor } from './svg/colors.js';
import { figureOf, type Described, type Figures } from './compile/figures.js';
import { ownTexts } from './compile/looks.js';
import type { Rectangle } from './page.js';
import type { Maker } from './svg/svg.js';
import { atMost, lineHeight, textLook, wrap, type TextLook } from './svg/text.js';

export interface FrameText {
  frame: LabelFrame;
  role: string;
  look: TextLook;
  text: string;
}

const purposes = ['', 'title1', 'title2', 'subtitle', 'footnote1', 'footnote2', 'footnote3'];

/** What part of the chart a frame is: title1, subtitle, footnote1 and so on; empty where it is none of them. */
function roleOf(frame: LabelFrame, chart: Chart): string {
  for (const [role, id] of chart.parts) if (id === frame.id && id !== '') return role;
  return purposes[frame.label?.purpose ?? 0] ?? '';
}

function ownLookOf(role: string): TextLook {
  if (role === 'title1') return ownTexts.title;
  if (role === 'title2') return ownTexts.title2;
  if (role === 'subtitle') return ownTexts.subtitle;
  if (role.startsWith('footnote')) return ownTexts.footnote;
  return role.startsWith('statisticsSummary') ? ownTexts.summary : ownTexts.otherLabel;
}

type Figure = Extract<Label['pieces'][number], { target: string }>;

function figureText(label: Label, at: number, chart: Chart, figures: Figures, notes: string[]): string {
  const piece = label.pieces[at]!;
  if (piece.kind === 'text') return piece.text;
  const shown = figures.of(piece.target);
  const figure = figureOf[piece.figure];
  if (!shown || !figure) {
    notes.push(
      figure
        ? `There is no ${piece.target} for a figure of a label.`
        : `The figure ${piece.figure} of a label is not known.`,
    );
    return '\u2013';
  }
  const value = figure(shown);
  const format = piece.figure === countFigure ? piece.format : alike(piece, label, shown);
  if (Number.isNaN(value)) return format?.errorCharacter ?? '\u2013';
  return numberText(value, mergeFormats(format, null), chart.language, usualDecimals);
}

const countFigure = 6;

/** The format of a figure, with as many decimals as others of the same values show where they may have fewer. */
function alike(piece: Figure, label: Label, shown: Described): Format | null {
  const others = label.pieces.flatMap((each) =>
    each.kind !== 'text' && each.target === piece.target && each.figure !== countFigure ? [each] : [],
  );
  const decimals = others.map(({ figure, format }) => {
    const value = figureOf[figure]?.(shown) ?? NaN;
    if (Number.isNaN(value)) return 0;
    if (format?.minimumFractionDigits == null)
      return Math.min(usualDecimals, format?.maximumFractionDigits ?? usualDecimals);
    return decimalsOf(readNumber(value, mergeFormats(format, null), usualDecimals, false), mostDecimals);
  });
  const { format } = piece;
  const most = format?.maximumFractionDigits;
  const least = format?.minimumFractionDigits;
  if (!format || format.pattern || most == null || least == null) return format;
  return {
    ...format,
    minimumFractionDigits: Math.min(most, Math.max(least, ...decimals)),
  };
}

const usualDecimals = 2;
const mostDecimals = 12;

/** The frames with their texts; figures are computed here. */
export function frameTexts(chart: Chart, figures: Figures, notes: string[]): FrameText[] {
  return chart.frames.map((frame) => {
    const role = roleOf(frame, chart);
    const label = frame.label;
    const text = label?.pieces.map((_, at) => figureText(label, at, chart, figures, notes)).join('') ?? '';
    const own = ownLookOf(role);
    return { frame, role, look: textLook(label?.style ?? {}, own), text: text.replace(/\r/g, '').trim() };
  });
}

export const usualPadding = 4;

export function paddingOf(style: Style): { top: number; right: number; bottom: number; left: number } {
  const all = style.padding ? pixels(style.padding, 100) : usualPadding;
  const side = (length: Style['padding']) => (length ? pixels(length, 100) : all);
  return {
    top: side(style.paddingTop),
    right: side(style.paddingRight),
    bottom: side(style.paddingBottom),
    left: side(style.paddingLeft),
  };
}

/** Whether a box has a background or an outline. */
export function hasBox(style: Style): boolean {
  const seen = (color: string | undefined) => (safeColor(color) ?? none) !== none;
  return style.visible !== false && (seen(style.color) || seen(style.color2));
}

/** The background and the outline of a box. */
export function drawBox(style: Style, box: Rectangle, maker: Maker): SVGElement[] {
  const fill = safeColor(style.color) ?? none;
  const stroke = safeColor(style.color2) ?? none;
  if (!hasBox(style)) return [];
  return [
    maker.make('rect', {
      x: box.left,
      y: box.top,
      width: box.width,
      height: box.height,
      fill,
      'fill-opacity': fill === none ? null : (style.opacity ?? null),
      stroke,
      'stroke-opacity': stroke === none ? null : (style.opacity ?? null),
      'stroke-width': stroke === none ? null : style.strokeWidth ? pixels(style.strokeWidth, 1) : 1,
      'stroke-dasharray': style.dashes?.length ? style.dashes.map((dash) => pixels(dash, 1)).join(' ') : null,
      'aria-hidden': 'true',
    }),
  ];
}

export interface LaidFrame extends FrameText {
  box: Rectangle;
  lines: string[];
  /** Whether there were more lines. */
  cut: boolean;
  /** The height that the text needs. */
  needed: number;
}

/** Of a text at most so much is shown that it takes `mostHeight` pixels. */
export function layFrame(text: FrameText, box: Rectangle, mostHeight: number, notes: string[]): LaidFrame {
  const padding = paddingOf(text.frame.style);
  const whole =
    text.text === ''
      ? []
      : wrap(text.text, Math.max(20, box.width - padding.left - padding.right), text.look);
  const lines = atMost(whole, mostHeight / lineHeight(text.look));
  const cut = lines.length < whole.length;
  if (cut) {
    notes.push(`A text is too long for the page and is cut: ${text.text.slice(0, 40).trimEnd()}\u2026`);
  }
  const needed =
    lines.length === 0 ? 0 : lines.length * lineHeight(text.look) + padding.top + Math.min(padding.bottom, 4);
  return { ...text, box, lines, cut, needed };
}

export function drawFrame(laid: LaidFrame, maker: Maker): SVGElement {
  const { box, look, lines, frame } = laid;
  const group = maker.make('g', {});
  group.append(...drawBox(frame.style, box, maker));
  if (lines.length === 0 || frame.label?.style.visible === false || frame.style.visible === false)
    return group;
  const padding = paddingOf(frame.style);
  const x = {
    start: box.left + padding.left,
    middle: box.left + box.width / 2,
    end: box.left + box.width - padding.right,
  };
  const shown = maker.text(lines, x[look.align], box.top + padding.top + look.size * 0.9, look);
  group.append(laid.cut ? maker.withWhole(shown, laid.text) : shown);
  return group;
}
