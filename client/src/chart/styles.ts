/** Styles and their cycles. */
import type { Markup } from './markup.js';
import { lengthOf } from './markup.js';
import type { Length } from './markup.js';
import type { ConditionalStyle, Style, StyleCycle } from './model.js';

function dashesOf(markup: Markup): Length[] | undefined {
  const text = markup.text('stroke_dasharray');
  if (text === null) return undefined;
  const parts = text.split(/[\s,]+/).filter((part) => part !== '' && part !== 'none');
  const lengths = parts.map(lengthOf);
  if (lengths.every((length) => length !== null)) return lengths as Length[];
  markup.note(`The dashes "${text.slice(0, 40)}" of a style are not understood; its lines are solid.`);
  return [];
}

/** All that the client honours of a style. */
function readStyle(markup: Markup): Style {
  const style: Style = {
    ...definedTexts(markup),
    ...definedLengths(markup),
    ...definedNumbers(markup),
  };
  const visible = markup.flag('visible');
  if (visible !== null) style.visible = visible;
  const dashes = dashesOf(markup);
  if (dashes) style.dashes = dashes;
  return style;
}

const texts = {
  color: 'color',
  color2: 'color2',
  symbol: 'symbol',
  lineCap: 'stroke_linecap',
  fontFamily: 'font_family',
  fontStyle: 'font_style',
  fontWeight: 'font_weight',
  textAlignment: 'textAlignment',
} as const;

const lengths = {
  size: 'size',
  width: 'width',
  strokeWidth: 'stroke_width',
  fontSize: 'font_size',
  padding: 'padding',
  paddingTop: 'padding_top',
  paddingRight: 'padding_right',
  paddingBottom: 'padding_bottom',
  paddingLeft: 'padding_left',
} as const;

const numbers = {
  opacity: 'opacity',
  pattern: 'pattern',
} as const;

function defined<Value>(names: Record<string, string>, read: (name: string) => Value | null): object {
  const entries = Object.entries(names).map(([key, name]) => [key, read(name)] as const);
  return Object.fromEntries(entries.filter(([, value]) => value !== null && value !== ''));
}

const definedTexts = (markup: Markup) => defined(texts, (name) => markup.text(name));
const definedLengths = (markup: Markup) => defined(lengths, (name) => markup.length(name));
const definedNumbers = (markup: Markup) => defined(numbers, (name) => markup.number(name));

/** Every style with an id, wherever it stands; the first one of an id counts. */
export function collectStyles(markup: Markup, into: Map<string, Style>): void {
  for (const child of markup.children('style')) {
    const style = readStyle(child);
    if (child.id && !into.has(child.id)) into.set(child.id, style);
    collectStyles(child, into);
  }
}

/** The cycles of the chart by their ids. */
export function readCycle(markup: Markup, styles: Map<string, Style>): StyleCycle {
  const extension = markup.child('extension');
  const cycles = markup.children('cycle').map((cycle) => {
    collectStyles(cycle, styles);
    return { id: cycle.id, styles: cycle.children('style').map(readStyle) };
  });
  return { id: markup.id, aesthetic: extension?.reference('aesthetic') ?? '', cycles };
}

export function readConditions(markup: Markup, styleOf: (id: string) => Style): ConditionalStyle[] {
  return markup.children('conditionalStyle').map((condition) => ({
    when: condition.reference('when'),
    style: styleOf(condition.reference('style')),
  }));
}
