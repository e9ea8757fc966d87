/** The texts over columns and beside rows of panels. */
import { plainText } from '../../chart/labels.js';
import { pixels } from '../../chart/markup.js';
import type { Graph, PanelLevel } from '../../chart/model.js';
import { none, safeColor } from '../svg/colors.js';
import { ownTexts } from '../compile/looks.js';
import type { PanelGrid, PanelSide } from '../compile/panels.js';
import type { Maker } from '../svg/svg.js';
import {
  atMost,
  lineHeight,
  shorten,
  textLook,
  textWidth,
  widest,
  wrap,
  type TextLook,
} from '../svg/text.js';

/** A line between texts and what they name. */
interface Rule {
  stroke: string;
  width: number;
}

interface HeaderLine {
  look: TextLook;
  /** A title has a rule over all that it is the title of. */
  rule: Rule | null;
  /** Texts over so many neighbouring strips each. */
  spans: { from: number; to: number; text: string; lines?: string[] }[];
  /** Its texts run across the panels' side, where they have no room along it. */
  turned?: boolean;
  /** What its texts take, in pixels; by default a line of text. */
  depth?: number;
}

export interface Headers {
  lines: HeaderLine[];
  /** What they take beside the panels, in pixels. */
  room: number;
}

const gapToPanels = 5;
const ruleRoom = 5;

const ownRule: Rule = { stroke: '#b3b3b3', width: 0.75 };

/** The line of a level where the chart gives it a colour; else `otherwise`. */
function ruleOf(level: PanelLevel | undefined, otherwise: Rule | null): Rule | null {
  const style = level?.axis?.style ?? {};
  const stroke = style.visible === false ? undefined : safeColor(style.color);
  if (!stroke || stroke === none) return otherwise;
  return { stroke, width: style.strokeWidth ? pixels(style.strokeWidth, 1) : 1 };
}

const depthOf = (line: HeaderLine) => line.depth ?? lineHeight(line.look);
const heightOf = (line: HeaderLine) => depthOf(line) + (line.rule ? ruleRoom : 0);

function titleLine(level: PanelLevel | undefined, count: number): HeaderLine[] {
  const text = plainText(level?.axis?.label ?? null);
  if (text === '' || level?.axis?.label?.style.visible === false) return [];
  const look = {
    ...textLook(level?.axis?.label?.style ?? {}, ownTexts.panelTitle),
    align: 'middle' as const,
  };
  return [{ look, rule: ownRule, spans: [{ from: 0, to: count, text }] }];
}

function labelLook(level: PanelLevel | undefined): TextLook {
  return { ...textLook(level?.axis?.ticks?.style ?? {}, ownTexts.panelLabel), align: 'middle' };
}

/** Neighbours that have the same categories down to this variable share a label. */
function spansOf(side: PanelSide, at: number): HeaderLine['spans'] {
  const spans: HeaderLine['spans'] = [];
  const key = (strip: number) =>
    side.strips[strip]!.categories.slice(0, at + 1)
      .map((each) => each.code)
      .join('|');
  side.strips.forEach((strip, index) => {
    const last = spans[spans.length - 1];
    if (last && key(index) === key(index - 1)) last.to = index + 1;
    else spans.push({ from: index, to: index + 1, text: strip.categories[at]?.text ?? '' });
  });
  return spans;
}

/** The level of panels that stand for measures of a blend: one that no variable has. */
export function blendLevel(grid: PanelGrid, name: 'columns' | 'rows', graph: Graph): PanelLevel | undefined {
  const taken = [...grid.columns.variables, ...grid.rows.variables].map((variable) => variable.level);
  const free = (graph.layout?.levels ?? []).filter((each) => !taken.includes(each.level));
  return free[name === 'rows' && grid.blended.columns.length > 0 ? 1 : 0];
}

/** Over columns and at the right of rows, unless the chart says that a level is not opposite. */
const isNear = (level: PanelLevel | undefined) => level?.axis?.opposite === false;

function visibleLine(level: PanelLevel | undefined, line: HeaderLine): HeaderLine[] {
  return level?.axis?.ticks?.style.visible === false ? [] : [line];
}

/** The headers below columns or at the left of rows where `near`, else those on the other side. */
export function headersOf(grid: PanelGrid, name: 'columns' | 'rows', graph: Graph, near: boolean): Headers {
  const levels = graph.layout?.levels ?? [];
  const side = grid[name];
  const blended = grid.blended[name];
  const lines: HeaderLine[] = side.variables.flatMap((variable, at) => {
    const level = levels.find((each) => each.level === variable.level);
    if (isNear(level) !== near) return [];
    const rule = ruleOf(level, at < side.variables.length - 1 ? ownRule : null);
    return [
      ...titleLine(level, side.strips.length),
      ...visibleLine(level, { look: labelLook(level), rule, spans: spansOf(side, at) }),
    ];
  });
  const level = blendLevel(grid, name, graph);
  if (blended.length > 0 && isNear(level) === near) {
    const spans = blended.map((text, at) => ({ from: at, to: at + 1, text }));
    const look = {
      ...textLook(level?.axis?.ticks?.style ?? {}, ownTexts.panelTitle),
      align: 'middle' as const,
    };
    lines.push(
      ...titleLine(level, blended.length),
      ...visibleLine(level, { look, rule: ruleOf(level, null), spans }),
    );
  }
  return { lines, room: roomOf(lines) };
}

const usualLines = 3;
/** Where they are as small as they may be, texts have so many lines before they are shortened in fewer. */
const linesOfSmallest = [5, 3, 2, 1];
const gapBetweenTexts = 8;
/** So that no letter touches a rule. */
const roomOfTurned = 6;

/** How texts that do not fit in their lines along the panels find room. */
interface HeaderFit {
  lines: number;
  mayTurn: boolean;
  /** What turned ones take at most. */
  mostAcross: number;
}

/** Texts that do not fit along the panels are turned, if they may, else shortened. */
function fitLine(line: HeaderLine, length: number, gap: number, fit: HeaderFit): HeaderLine {
  const { look, spans } = line;
  const spare = spans.length > 1 ? Math.max(0, gapBetweenTexts - gap) : 0;
  const rooms = spans.map(({ from, to }) => (to - from) * (length + gap) - gap - spare);
  const wrapped = spans.map(({ text }, at) => wrap(text, Math.max(1, rooms[at]!), look));
  const whole = spans.map(({ text }, at) =>
    text.split(/\s+/).every((word) => textWidth(word, look) <= rooms[at]!),
  );
  const fits = whole.every(Boolean) && wrapped.every((lines) => lines.length <= fit.lines);
  // Turned ones stand beside each other as lines do, over the gaps of panels, too.
  const upright = spans.every(({ from, to }) => (to - from) * (length + gap) >= look.size * 1.05);
  const turned = fit.mayTurn && !fits && spans.length > 1 && upright;
  const lines = spans.map(({ text }, at) => {
    if (turned) return [shorten(text, fit.mostAcross, look)];
    if (whole[at] && fit.lines > 1) return atMost(wrapped[at]!, fit.lines);
    return [shorten(text, Math.max(1, rooms[at]!), look)];
  });
  const most = Math.max(1, ...lines.map((each) => each.length));
  return {
    ...line,
    turned,
    depth: turned ? widest(lines.flat(), look) + roomOfTurned : most * lineHeight(look),
    spans: spans.map((span, at) => ({ ...span, lines: lines[at]! })),
  };
}

const roomOf = (lines: HeaderLine[]) =>
  lines.length > 0 ? lines.reduce((sum, line) => sum + heightOf(line), 0) + gapToPanels : 0;

/** What their look is multiplied with where texts of panels would take too much of the page. */
const scales = [1, 0.9, 0.8, 0.7, 0.6];

/** In panels that are narrower than so many sizes of their texts a shortened one would say nothing. */
const leastSizes = 4;

/**
 * Texts of panels that long, with gaps between them, wrapped or turned. Where all of them would take more than `most`
 * they are smaller; where that is not enough they are not turned, but shortened.
 */
export function fitHeaders(headers: Headers, length: number, gap: number, most: number): Headers {
  const fitted = (scale: number, fitOf: (look: TextLook) => HeaderFit): Headers => {
    const lines = headers.lines.map((line) => {
      const look = { ...line.look, size: line.look.size * scale };
      return fitLine({ ...line, look }, length, gap, fitOf(look));
    });
    return { lines, room: roomOf(lines) };
  };
  for (const scale of scales) {
    const fit = fitted(scale, () => ({ lines: usualLines, mayTurn: true, mostAcross: most }));
    if (fit.room <= most) return fit;
  }
  const mostAcross = (most / Math.max(1, headers.lines.length)) * 1.25;
  const smallest = linesOfSmallest.map((lines) =>
    fitted(scales[scales.length - 1]!, (look) => ({
      lines,
      mayTurn: length < leastSizes * look.size,
      mostAcross,
    })),
  );
  return smallest.find(({ room }) => room <= most) ?? smallest[smallest.length - 1]!;
}

type Span = HeaderLine['spans'][number];

const isShortened = ({ text, lines = [text] }: Span) =>
  !text.endsWith('\u2026') && (lines[lines.length - 1] ?? '').endsWith('\u2026');

const shownOf = (span: Span, text: SVGElement, maker: Maker) =>
  isShortened(span) ? maker.withWhole(text, span.text) : text;

/** Says that texts are shortened, if they are. */
export function headerNotes(headers: Headers[]): string[] {
  const spans = headers.flatMap(({ lines }) => lines.flatMap((line) => line.spans));
  return spans.some(isShortened) ? ['Labels of panels that have no room are shortened.'] : [];
}

function drawRule({ stroke, width }: Rule, d: string, maker: Maker): SVGElement {
  return maker.make('path', { d, stroke, 'stroke-width': width, fill: none, 'aria-hidden': 'true' });
}

/** Over the columns, whose places are given, or `below` them; `edge` is where their room is next to the panels. */
export function drawColumnHeaders(
  headers: Headers,
  starts: number[],
  width: number,
  edge: number,
  below: boolean,
  maker: Maker,
): SVGElement {
  const group = maker.group('Columns of panels', 'group');
  let y = below ? edge + gapToPanels : edge - headers.room;
  for (const line of below ? [...headers.lines].reverse() : headers.lines) {
    const { look, spans, rule } = line;
    const shift = below && rule ? ruleRoom : 0;
    const first = y + look.size * 0.95 + shift;
    const at = below ? y + 1 : y + depthOf(line) + 1;
    for (const span of spans) {
      const { from, to, text, lines = [text] } = span;
      const left = starts[from]!;
      const right = starts[to - 1]! + width;
      const middle = (left + right) / 2;
      const up = `translate(${Math.round(middle + look.size * 0.35)},${Math.round(y + shift + depthOf(line) / 2)}) rotate(-90)`;
      const shown = line.turned
        ? maker.text(lines, 0, 0, look, { transform: up })
        : maker.text(lines, middle, first, look);
      group.append(shownOf(span, shown, maker));
      if (rule) group.append(drawRule(rule, `M${left.toFixed(2)},${at} H${right.toFixed(2)}`, maker));
    }
    y += heightOf(line);
  }
  return group;
}

/** The text beside some rows, in the middle of these: turned along them, or across. */
function rowText(
  span: Span,
  line: HeaderLine,
  across: number,
  middle: number,
  outward: 1 | -1,
  maker: Maker,
) {
  const { look } = line;
  const { lines = [span.text] } = span;
  if (line.turned) {
    const align = outward < 0 ? ('end' as const) : ('start' as const);
    return maker.text(lines, across, middle + look.size * 0.35, { ...look, align });
  }
  const first = look.size * 0.3 + (lines.length - 1) * lineHeight(look);
  const place = `${Math.round(across + outward * first)},${Math.round(middle)}`;
  return maker.text(lines, 0, 0, look, { transform: `translate(${place}) rotate(${outward * 90})` });
}

/** Beside the rows, turned; `edge` is where their room is next to the panels. */
export function drawRowHeaders(
  headers: Headers,
  starts: number[],
  height: number,
  edge: number,
  left: boolean,
  maker: Maker,
): SVGElement {
  const group = maker.group('Rows of panels', 'group');
  const outward = left ? -1 : 1;
  let across = edge + outward * gapToPanels;
  // The category stands next to its panels, the title outside.
  for (const line of [...headers.lines].reverse()) {
    const at = across + outward;
    if (line.rule) across += outward * ruleRoom;
    for (const span of line.spans) {
      const ends = [starts[span.from]!, starts[span.to - 1]!];
      const [top, bottom] = [Math.min(...ends), Math.max(...ends) + height];
      if (line.rule) group.append(drawRule(line.rule, `M${at.toFixed(2)},${top} V${bottom}`, maker));
      const text = rowText(span, line, across, (top + bottom) / 2, outward, maker);
      group.append(shownOf(span, text, maker));
    }
    across += outward * depthOf(line);
  }
  return group;
}
