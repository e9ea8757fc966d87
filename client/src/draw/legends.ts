/** Legends: what groups, ranges and named elements look like. */
import { path, ticks as roundValues } from 'd3';
import { plainText } from '../chart/labels.js';
import type { Aesthetic, Chart, ChartElement, Legend } from '../chart/model.js';
import type { Data } from '../data/columns.js';
import { none } from './colors.js';
import type { Direction } from './directions.js';
import { drawBox, paddingOf } from './frames.js';
import { groupingOf, isGrouping, lookOf } from './grouping.js';
import { ownLook, ownTexts, styled, type Look, type LookKind } from './looks.js';
import type { Patterns } from './patterns.js';
import { rangesOf, type Range } from './ranges.js';
import type { Maker } from './svg.js';
import { isStroked, symbolPath } from './symbols.js';
import { lineHeight, textLook, widest, wrap, type TextLook } from './text.js';
import { ticksBetween, type Tick } from './ticks.js';

interface Entry {
  look: Look;
  kind: LookKind;
  lines: string[];
}

/** Entries one below the other, or a range of colours with the texts at its ticks. */
interface Section {
  entries: Entry[];
  ramp: { range: Range; ticks: { share: number; text: string }[] } | null;
}

export interface LaidLegend {
  legend: Legend;
  title: string[];
  titleLook: TextLook;
  look: TextLook;
  sections: Section[];
  width: number;
  height: number;
  across: boolean;
}

const neutral = '#737373';
const swatchWidth = 22;
const swatchHeight = 13;
const gapToText = 7;
const gapOfEntries = 5;
const gapOfColumns = 18;
const rampLength = 120;
const rampWidth = 14;
const widestText = 170;

export interface LegendScope {
  chart: Chart;
  data: Data;
  cluster: Direction['cluster'];
  notes: string[];
}

interface Target {
  element: ChartElement;
  aesthetic: Aesthetic | null;
}

function targetOf(id: string, chart: Chart): Target | null {
  for (const element of chart.graphs.flatMap((graph) => graph.elements)) {
    if (element.id === id && id !== '') return { element, aesthetic: null };
    const aesthetic = element.aesthetics.find((each) => each.id === id && id !== '');
    if (aesthetic) return { element, aesthetic };
  }
  return null;
}

function lookKind(element: ChartElement): LookKind {
  return element.kind === 'interval' && element.summary === 7 ? 'error' : element.kind;
}

const ownLookOf = (element: ChartElement) =>
  styled(ownLook(lookKind(element)), element.style, lookKind(element));

function groupEntries(target: Target, scope: LegendScope, look: TextLook): Entry[] {
  const { element } = target;
  const grouping = groupingOf(element, scope.chart, scope.data, scope.cluster);
  const variable = grouping.variables.find((each) => each.aesthetics.includes(target.aesthetic!));
  if (!variable) return [];
  const kind = lookKind(element);
  const entries = variable.categories.map((category): Entry => {
    const own = lookOf(ownLookOf(element), kind, [variable], [category], scope.chart);
    return { look: own, kind, lines: wrap(category.text, widestText, look) };
  });
  const lying = scope.chart.graphs.some((graph) =>
    graph.coordinates[0]?.transforms.some((transform) => transform.kind === 'transpose'),
  );
  const wide = element.kind === 'interval' || element.kind === 'schema' || element.kind === 'area';
  const stacked = element.modifier === 3 && element.x.length > 0;
  const beside = !stacked && (scope.cluster !== null || element.modifier === 1);
  // Parts are listed as they stand: upwards where they stand on each other, or beside each other in lying bars.
  return wide && element.x.length > 0 && (lying ? beside : stacked) ? entries.reverse() : entries;
}

/** Round values within a range; numbers with texts that are true of them. */
function rangeTicks(range: Range, language: string): Tick[] {
  const { low, high, values } = range;
  const wanted = range.aesthetic.kind === 'color' ? 5 : 3;
  if (values.kind === 'number') return ticksBetween(low, high, wanted, values.variable.format, language);
  return roundValues(low, high, wanted).map((value) => ({ value, text: values.textOf(value) }));
}

function rangeSection(target: Target, range: Range, look: TextLook, language: string): Section {
  const shown = rangeTicks(range, language).filter(({ value }) => value >= range.low && value <= range.high);
  if (range.aesthetic.kind === 'color') {
    const share = (value: number) =>
      range.high > range.low ? (value - range.low) / (range.high - range.low) : 0.5;
    return {
      entries: [],
      ramp: { range, ticks: shown.map(({ value, text }) => ({ share: share(value), text })) },
    };
  }
  const kind = lookKind(target.element);
  // Where colours show something else, sizes are explained without one.
  const colored = target.element.aesthetics.some((each) => each.kind === 'color' || each.kind === 'styleBy');
  const own = { ...ownLookOf(target.element), ...(colored ? { fill: neutral } : {}) };
  const entries = shown.map(({ value, text }): Entry => {
    const varied = range.lookOf(value);
    const size = varied.size ?? own.size;
    return {
      look: { ...own, size, opacity: varied.opacity ?? own.opacity },
      kind,
      lines: wrap(text, widestText, look),
    };
  });
  return { entries, ramp: null };
}

/** Targets over one variable are one section. */
function sectionsOf(legend: Legend, scope: LegendScope, look: TextLook): Section[] {
  const sections: Section[] = [];
  const named: Entry[] = [];
  const done = new Set<string>();
  for (const id of legend.targets) {
    const target = targetOf(id, scope.chart);
    if (!target) {
      scope.notes.push(`A legend explains ${id}, which is not there.`);
      continue;
    }
    const { element, aesthetic } = target;
    if (!aesthetic) {
      const lines = wrap(element.name || element.id, widestText, look);
      named.push({ look: ownLookOf(element), kind: lookKind(element), lines });
      continue;
    }
    const values = scope.data.values(aesthetic.variable);
    if (!values) continue;
    const grouped = isGrouping(aesthetic, values, scope.chart);
    const key = grouped ? aesthetic.variable : `${aesthetic.kind} ${aesthetic.variable}`;
    if (done.has(key)) continue;
    done.add(key);
    const range = grouped
      ? null
      : rangesOf(element, scope.chart, scope.data).find((each) => each.aesthetic === aesthetic);
    if (range) sections.push(rangeSection(target, range, look, scope.chart.language));
    else sections.push({ entries: groupEntries(target, scope, look), ramp: null });
  }
  return named.length > 0 ? [...sections, { entries: named, ramp: null }] : sections;
}

function entryHeight(entry: Entry, look: TextLook): number {
  const symbol = entry.kind === 'point' ? entry.look.size + 2 : 0;
  return Math.max(entry.lines.length * lineHeight(look), swatchHeight, symbol) + gapOfEntries;
}

function sectionSize(section: Section, look: TextLook, across: boolean): { width: number; height: number } {
  if (section.ramp) {
    const texts = section.ramp.ticks.map((tick) => tick.text);
    return { width: rampWidth + gapToText + 4 + widest(texts, look), height: rampLength + lineHeight(look) };
  }
  const widths = section.entries.map((entry) => swatchWidth + gapToText + widest(entry.lines, look));
  const heights = section.entries.map((entry) => entryHeight(entry, look));
  const total = (values: number[]) => values.reduce((sum, value) => sum + value, 0);
  return across
    ? {
        width: total(widths) + gapOfColumns * Math.max(0, widths.length - 1),
        height: Math.max(0, ...heights),
      }
    : { width: Math.max(0, ...widths), height: total(heights) };
}

export function layLegend(legend: Legend, scope: LegendScope, across: boolean): LaidLegend | null {
  const look = textLook(legend.textStyle, ownTexts.legendLabel);
  const titleLook = textLook(legend.label?.style ?? {}, ownTexts.legendTitle);
  const sections = sectionsOf(legend, scope, look).filter(
    (section) => section.ramp || section.entries.length > 0,
  );
  if (legend.style.visible === false || sections.length === 0) return null;
  const text = legend.label?.style.visible === false ? '' : plainText(legend.label);
  const title = text === '' ? [] : wrap(text, widestText, titleLook);
  const sizes = sections.map((section) => sectionSize(section, look, across));
  const padding = paddingOf(legend.style);
  const titleHeight = title.length * lineHeight(titleLook) + (title.length > 0 ? 4 : 0);
  return {
    legend,
    title,
    titleLook,
    look,
    sections,
    across,
    width:
      Math.max(widest(title, titleLook), ...sizes.map((size) => size.width)) + padding.left + padding.right,
    height:
      titleHeight + sizes.reduce((sum, size) => sum + size.height + 6, 0) + padding.top + padding.bottom,
  };
}

/** A sample of a look around 0, 0. */
function swatch(entry: Entry, patterns: Patterns, maker: Maker): SVGElement {
  const { look, kind } = entry;
  const fill = patterns.fill(look.fill, look.pattern);
  const opacity = look.opacity < 1 ? look.opacity : null;
  if (kind === 'line' || kind === 'path' || kind === 'edge' || kind === 'error') {
    return maker.make('path', {
      d: `M${-swatchWidth / 2},0 H${swatchWidth / 2}`,
      fill: none,
      stroke: look.stroke,
      'stroke-width': look.strokeWidth,
      'stroke-dasharray': look.dashes.length > 0 ? look.dashes.join(' ') : null,
      'stroke-opacity': opacity,
    });
  }
  if (kind === 'point') {
    const stroked = isStroked(look.symbol);
    return maker.make('path', {
      d: symbolPath(look.symbol, Math.max(look.size, 4), path),
      fill: stroked ? none : look.fill,
      stroke: stroked ? look.fill : look.stroke,
      'stroke-width': stroked ? Math.max(1.4, look.size / 5) : look.strokeWidth,
      [stroked ? 'stroke-opacity' : 'fill-opacity']: opacity,
    });
  }
  const outline =
    look.stroke === none || look.stroke === '#ffffff' ? (look.pattern > 1 ? look.fill : none) : look.stroke;
  return maker.make('rect', {
    x: -swatchWidth / 2 + 2,
    y: -swatchHeight / 2,
    width: swatchWidth - 4,
    height: swatchHeight,
    fill,
    'fill-opacity': opacity,
    stroke: outline,
    'stroke-width': outline === none ? null : 0.75,
  });
}

function drawRamp(section: Section, look: TextLook, x: number, y: number, maker: Maker): SVGElement {
  const { range, ticks: shown } = section.ramp!;
  const group = maker.make('g', { transform: `translate(${x},${y + lineHeight(look) / 2})` });
  const id = `${maker.prefix}-ramp-${range.aesthetic.id.replace(/\W/g, '_')}`;
  const stops = Array.from({ length: 11 }, (_, at) => {
    const value = range.high - (at / 10) * (range.high - range.low);
    return maker.make('stop', { offset: `${at * 10}%`, 'stop-color': range.lookOf(value).fill ?? none });
  });
  group.append(
    maker.make('linearGradient', { id, x1: 0, y1: 0, x2: 0, y2: 1 }, stops),
    maker.make('rect', { width: rampWidth, height: rampLength, fill: `url(#${id})` }),
  );
  for (const { share, text } of shown) {
    const at = (1 - share) * rampLength;
    group.append(
      maker.make('path', { d: `M${rampWidth},${at} h4`, stroke: '#4d4d4d', fill: none }),
      maker.text([text], rampWidth + gapToText, at + look.size * 0.35, look),
    );
  }
  return group;
}

/** A legend with its corner at left, top. */
export function drawLegend(
  laid: LaidLegend,
  left: number,
  top: number,
  patterns: Patterns,
  maker: Maker,
): SVGElement {
  const { legend, title, titleLook, look, sections, across } = laid;
  const name = `Legend${title.length > 0 ? `: ${title.join(' ')}` : ''}`;
  const group = maker.group(name, 'group', {
    transform: `translate(${Math.round(left)},${Math.round(top)})`,
  });
  group.append(...drawBox(legend.style, { left: 0, top: 0, width: laid.width, height: laid.height }, maker));
  const padding = paddingOf(legend.style);
  let y = padding.top;
  if (title.length > 0) {
    group.append(maker.text(title, padding.left, y + titleLook.size * 0.9, { ...titleLook, align: 'start' }));
    y += title.length * lineHeight(titleLook) + 4;
  }
  for (const section of sections) {
    let x = padding.left;
    if (section.ramp) group.append(drawRamp(section, look, x, y, maker));
    const tallest = Math.max(0, ...section.entries.map((entry) => entryHeight(entry, look)));
    for (const entry of section.entries) {
      const height = across ? tallest : entryHeight(entry, look);
      const middle = y + (height - gapOfEntries) / 2;
      const first = middle + look.size * 0.35 - ((entry.lines.length - 1) * lineHeight(look)) / 2;
      const at = `translate(${x + swatchWidth / 2},${Math.round(middle * 100) / 100})`;
      group.append(
        maker.make('g', { transform: at }, [swatch(entry, patterns, maker)]),
        maker.text(entry.lines, x + swatchWidth + gapToText, first, { ...look, align: 'start' }),
      );
      if (across) x += swatchWidth + gapToText + widest(entry.lines, look) + gapOfColumns;
      else y += height;
    }
    if (across) y += tallest;
    y += section.ramp ? rampLength + lineHeight(look) + 6 : 6;
  }
  return group;
}
