/** Legends: what groups, ranges and named elements look like. */
import { ticks as roundValues } from 'd3';
import { plainText } from '../../chart/labels.js';
import type { Aesthetic, Chart, ChartElement, Graph, Legend } from '../../chart/model.js';
import type { Data } from '../../data/columns.js';
import { none, safeColor } from '../svg/colors.js';
import { weekBegins, type Direction } from '../compile/directions.js';
import { drawBox, paddingOf } from '../frames.js';
import {
  aestheticOf,
  cycleOf,
  groupingOf,
  isGrouping,
  lookOf,
  type GroupVariable,
} from '../compile/grouping.js';
import { isPie } from '../compile/orientation.js';
import { kindOf } from '../compile/plan.js';
import { capitalized, marksName } from '../notes/names.js';
import { isUnseen } from '../notes/unhonoured.js';
import {
  gapOfBlocks,
  gapToText,
  layEntries,
  widestText,
  type Block,
  type Entry,
  type PlacedEntry,
  type Room,
} from './legendlayout.js';
import { ownTexts, styled, type Look } from '../compile/looks.js';
import { elementLook, lookKindOf } from '../compile/owncolors.js';
import type { Patterns } from '../svg/patterns.js';
import { rangesOf, type Range } from '../compile/ranges.js';
import type { Maker } from '../svg/svg.js';
import { drawRamp, drawSwatch, rampSize, type Ramp } from './swatches.js';
import { lineHeight, textLook, widest, wrap, type TextLook } from '../svg/text.js';
import type { Tick } from '../axes/ticks.js';
import { dateTicks } from '../axes/dateticks.js';
import { ticksBetween } from '../axes/ticktexts.js';

/** Entries, or a range of colours with the texts at its ticks. */
interface Section {
  entries: Entry[];
  ramp: Ramp | null;
}

/** A section with its size and the places of its entries. */
interface LaidSection extends Block {
  ramp: Ramp | null;
}

export interface LaidLegend {
  legend: Legend;
  title: string[];
  titleLook: TextLook;
  look: TextLook;
  sections: LaidSection[];
  width: number;
  height: number;
  across: boolean;
}

const neutral = '#737373';
const gapBelowTitle = 4;

export interface LegendScope {
  chart: Chart;
  data: Data;
  cluster: Direction['cluster'];
  notes: string[];
}

interface Target {
  graph: Graph;
  element: ChartElement;
  aesthetic: Aesthetic | null;
}

function targetOf(id: string, chart: Chart): Target | null {
  if (id === '') return null;
  for (const graph of chart.graphs) {
    for (const element of graph.elements) {
      if (element.id === id) return { graph, element, aesthetic: null };
      const aesthetic = element.aesthetics.find((each) => each.id === id);
      if (aesthetic) return { graph, element, aesthetic };
    }
  }
  return null;
}

const ownLookOf = ({ element, graph }: Target, chart: Chart) =>
  elementLook(element, graph, chart, lookKindOf(element));

/** The element's look; in a colour that stands for nothing where its colours show something else than `variable`. */
function lookBeside(target: Target, variable: string | null, chart: Chart): Look {
  const { element } = target;
  const own = ownLookOf(target, chart);
  const colored = element.aesthetics.some(
    (each) => each.variable !== variable && aestheticOf(each, chart) === 'color',
  );
  return colored ? styled(own, { color: neutral }, lookKindOf(element)) : own;
}

/** Whether the entries stand the other way round: parts are listed as they stand. */
function isReversed({ graph, element }: Target, variable: GroupVariable, scope: LegendScope): boolean {
  const wide = element.kind === 'interval' || element.kind === 'schema' || element.kind === 'area';
  if (!wide || element.x.length === 0) return false;
  const lying = graph.coordinates[0]?.transforms.some(({ kind }) => kind === 'transpose') ?? false;
  // Slices follow each other as the entries do; what clusters stands side by side, whatever is stacked there.
  const clusters = scope.cluster?.values === variable.values;
  const stacked = element.modifier === 3 && !clusters && !isPie(graph, scope.chart, scope.data);
  const beside = !stacked && (scope.cluster !== null || element.modifier === 1);
  // Upwards where they stand on each other, or beside each other in lying bars.
  return lying ? beside : stacked;
}

function groupEntries(target: Target, variable: GroupVariable, scope: LegendScope): Entry[] {
  const { element } = target;
  const kind = lookKindOf(element);
  const base = lookBeside(target, variable.values.variable.id, scope.chart);
  const entries = variable.categories.map((category): Entry => {
    const own = lookOf(base, kind, [variable], [category], scope.chart);
    return { look: own, kind, text: category.text };
  });
  return isReversed(target, variable, scope) ? entries.reverse() : entries;
}

/** Round values within a range; numbers and dates with texts that are true of them. */
function rangeTicks(range: Range, language: string): Tick[] {
  const { low, high, values } = range;
  const wanted = range.aesthetic.kind === 'color' ? 5 : 3;
  const { format } = values.variable;
  if (values.kind === 'number') return ticksBetween(low, high, wanted, format, language);
  if (values.kind === 'date' && low < high)
    return dateTicks(
      { low, high, weekBegins: weekBegins([values]) },
      wanted,
      format?.pattern ?? null,
      language,
    );
  return roundValues(low, high, wanted).map((value) => ({ value, text: values.textOf(value) }));
}

function rangeSection(target: Target, range: Range, scope: LegendScope): Section {
  const shown = rangeTicks(range, scope.chart.language).filter(
    ({ value }) => value >= range.low && value <= range.high,
  );
  if (range.aesthetic.kind === 'color') {
    const share = (value: number) =>
      range.high > range.low ? (value - range.low) / (range.high - range.low) : 0.5;
    return {
      entries: [],
      ramp: { range, ticks: shown.map(({ value, text }) => ({ share: share(value), text })) },
    };
  }
  const kind = lookKindOf(target.element);
  const own = lookBeside(target, null, scope.chart);
  const entries = shown.map(({ value, text }): Entry => {
    const varied = range.lookOf(value);
    const size = varied.size ?? own.size;
    return { look: { ...own, size, opacity: varied.opacity ?? own.opacity }, kind, text };
  });
  return { entries, ramp: null };
}

/** What a legend explains of one element: a variable by all the looks that show it, or one range. */
interface Explained {
  target: Target;
  /** Null of a range. */
  variable: GroupVariable | null;
  range: Range | null;
  /** The same for what looks the same. */
  looks: Set<string>;
}

/** The variable of a target's groups, with the aesthetics that its marks show. */
function explainedGroups(target: Target, seen: (each: Aesthetic) => boolean, scope: LegendScope) {
  const { chart } = scope;
  const { variables } = groupingOf(target.element, chart, scope.data, scope.cluster);
  const found = variables.find((each) => each.aesthetics.includes(target.aesthetic!));
  if (!found) return null;
  const variable = { ...found, aesthetics: found.aesthetics.filter(seen) };
  const looks = variable.aesthetics.map((each) => {
    const texts = variable.categories.map(({ text }) => text);
    const cycle = cycleOf(each, chart);
    const parts = [found.values.variable.id, aestheticOf(each, chart), texts, cycle, [...each.mappings]];
    return JSON.stringify(parts);
  });
  return { target, variable, range: null, looks: new Set(looks) };
}

/** Null where there are no values, or the marks do not show them by that look. */
function explainedBy(target: Target, scope: LegendScope): Explained | null {
  const { chart, data } = scope;
  const aesthetic = target.aesthetic!;
  const values = data.values(aesthetic.variable);
  if (!values) return null;
  const kind = kindOf(target.element, isPie(target.graph, chart, data));
  const grouped = isGrouping(aesthetic, values, chart);
  if (isUnseen(aesthetic, kind, !grouped, chart)) return null;
  if (grouped) return explainedGroups(target, (each) => !isUnseen(each, kind, false, chart), scope);
  const range = rangesOf(target.element, chart, data).find((each) => each.aesthetic === aesthetic);
  if (!range) return null;
  return { target, variable: null, range, looks: new Set([`${aesthetic.kind} ${aesthetic.variable}`]) };
}

const isWithin = (one: Explained, other: Explained) => [...one.looks].every((each) => other.looks.has(each));

/** Each variable by each of its looks once: the first of those that tell the same. */
function toldOnce(all: Explained[]): Explained[] {
  return all.filter((one, at) =>
    all.every((other, place) => {
      if (place === at || !isWithin(one, other)) return true;
      return place > at && isWithin(other, one);
    }),
  );
}

/** What the targets explain; elements with names come last. */
function sectionsOf(legend: Legend, scope: LegendScope): Section[] {
  const explained: Explained[] = [];
  const named: Entry[] = [];
  for (const id of legend.targets) {
    const target = targetOf(id, scope.chart);
    if (!target) {
      scope.notes.push(`A legend explains ${id}, which is not there.`);
    } else if (target.aesthetic) {
      const found = explainedBy(target, scope);
      if (found) explained.push(found);
    } else {
      const { element } = target;
      named.push({
        look: ownLookOf(target, scope.chart),
        kind: lookKindOf(element),
        text: element.name || capitalized(marksName(element)),
      });
    }
  }
  const sections = toldOnce(explained).map(({ target, variable, range }): Section => {
    if (range) return rangeSection(target, range, scope);
    return { entries: variable ? groupEntries(target, variable, scope) : [], ramp: null };
  });
  return named.length > 0 ? [...sections, { entries: named, ramp: null }] : sections;
}

/** What a legend needs to be laid out: its parts before they have places. */
export interface OpenLegend {
  legend: Legend;
  title: string;
  titleLook: TextLook;
  look: TextLook;
  sections: Section[];
}

/** What a legend explains; null where that is nothing, or it is not to be seen. */
export function openLegend(legend: Legend, scope: LegendScope): OpenLegend | null {
  const look = textLook(legend.textStyle, ownTexts.legendLabel);
  const titleLook = textLook(legend.label?.style ?? {}, ownTexts.legendTitle);
  const sections = sectionsOf(legend, scope).filter((section) => section.ramp || section.entries.length > 0);
  if (legend.style.visible === false || sections.length === 0) return null;
  const title = legend.label?.style.visible === false ? '' : plainText(legend.label);
  return { legend, title, titleLook, look, sections };
}

const titleHeight = ({ title, titleLook }: Pick<LaidLegend, 'title' | 'titleLook'>) =>
  title.length > 0 ? title.length * lineHeight(titleLook) + gapBelowTitle : 0;

/** Ramps keep their size; the entries share the room that is left. */
function laySections(open: OpenLegend, room: Room, across: boolean): LaidSection[] {
  const { sections, look } = open;
  const ramps = sections.flatMap(({ ramp }) => (ramp ? [rampSize(ramp, look, across)] : []));
  const taken = ramps.reduce((total, ramp) => total + ramp.height + gapOfBlocks, 0);
  const listed = sections.filter(({ ramp }) => !ramp).map(({ entries }) => entries);
  const blocks = layEntries(listed, { ...room, height: room.height - taken }, look, across);
  return sections.map(({ ramp }): LaidSection => {
    if (!ramp) return { ...blocks.shift()!, ramp: null };
    return { entries: [], hidden: 0, ramp, ...rampSize(ramp, look, across) };
  });
}

/** Lays a legend out in a room; `across` where it stands above or below the data. */
export function layLegend(open: OpenLegend, room: Room, across: boolean): LaidLegend {
  const padding = paddingOf(open.legend.style);
  const [beside, above] = [padding.left + padding.right, padding.top + padding.bottom];
  const width = room.width - beside;
  const lines =
    open.title === '' ? [] : wrap(open.title, Math.min(widestText(open.titleLook), width), open.titleLook);
  const title = titleHeight({ title: lines, titleLook: open.titleLook });
  const inside = { width, height: room.height - above - title };
  const sections = laySections(open, inside, across);
  const height = sections.reduce((total, section) => total + section.height, 0);
  return {
    ...open,
    title: lines,
    sections,
    across,
    width: Math.max(widest(lines, open.titleLook), ...sections.map(({ width }) => width)) + beside,
    height: title + height + gapOfBlocks * (sections.length - 1) + above,
  };
}

/** How many entries of a legend have no room. */
export function legendNotes({ legend, title, sections }: LaidLegend): string[] {
  const name = title.join(' ') || legend.id;
  return sections.flatMap(({ entries, hidden }) =>
    hidden > 0
      ? [
          `The legend ${name} has room for ${entries.length - 1} of its ${entries.length - 1 + hidden} entries.`,
        ]
      : [],
  );
}

interface DrawScope {
  patterns: Patterns;
  /** What lies behind. */
  paper: string;
  maker: Maker;
}

function drawEntry(
  { entry, lines, shortened, x, middle, sampleWidth }: PlacedEntry,
  look: TextLook,
  scope: DrawScope,
): SVGElement[] {
  const { patterns, paper, maker } = scope;
  const first = middle + look.size * 0.35 - ((lines.length - 1) * lineHeight(look)) / 2;
  const text = maker.text(lines, x + sampleWidth + gapToText, first, { ...look, align: 'start' });
  if (shortened) text.append(maker.make('title', {}, [entry.text]));
  if (!entry.look) return [text];
  const at = `translate(${x + sampleWidth / 2},${Math.round(middle * 100) / 100})`;
  const sample = drawSwatch({ look: entry.look, kind: entry.kind }, patterns, paper, maker);
  return [maker.make('g', { transform: at }, sample), text];
}

/** A legend with its corner at left, top. */
export function drawLegend(laid: LaidLegend, left: number, top: number, scope: DrawScope): SVGElement {
  const { maker } = scope;
  const own = safeColor(laid.legend.style.color) ?? none;
  const paper = own === none ? scope.paper : own;
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
    y += titleHeight(laid);
  }
  for (const section of sections) {
    const part = maker.make('g', { transform: `translate(${padding.left},${Math.round(y * 100) / 100})` });
    if (section.ramp) part.append(drawRamp(section.ramp, look, across, maker));
    for (const entry of section.entries) part.append(...drawEntry(entry, look, { ...scope, paper }));
    group.append(part);
    y += section.height + gapOfBlocks;
  }
  return group;
}
