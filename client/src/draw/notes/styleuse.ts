/** Which properties of a style show where it is used, and a sentence for each that is given but does not. */
import type { Axis, Chart, ChartElement, Graph, Style } from '../../chart/model.js';
import { safeColor } from '../svg/colors.js';
import { elementName } from './names.js';
import { isKnownSymbol } from '../marks/symbols.js';

type Property = keyof Style;

/** What properties are called in the markup, where that is not their own name. */
const names: Partial<Record<Property, string>> = {
  strokeWidth: 'stroke_width',
  dashes: 'stroke_dasharray',
  lineCap: 'stroke_linecap',
  fontFamily: 'font_family',
  fontSize: 'font_size',
  fontStyle: 'font_style',
  fontWeight: 'font_weight',
  paddingTop: 'padding_top',
  paddingRight: 'padding_right',
  paddingBottom: 'padding_bottom',
  paddingLeft: 'padding_left',
};

const texts: Property[] = [
  'color',
  'visible',
  'opacity',
  'fontFamily',
  'fontSize',
  'fontStyle',
  'fontWeight',
];
const strokes: Property[] = ['color', 'visible', 'opacity', 'strokeWidth', 'dashes', 'lineCap'];
const boxes: Property[] = ['color', 'color2', 'visible', 'opacity', 'strokeWidth', 'dashes'];
const paddings: Property[] = ['padding', 'paddingTop', 'paddingRight', 'paddingBottom', 'paddingLeft'];
const symbols: Property[] = [...boxes, 'symbol', 'size'];

interface Use {
  /** For people: axis titles, the page. */
  what: string;
  styles: Style[];
  honoured: Property[];
  /** What is so anyway. */
  anyway?: Partial<Record<Property, string[]>>;
}

const middle = { textAlignment: ['center', 'middle'] };
const start = { textAlignment: ['left', 'start'] };
/** What clients call bars with a line across each end. */
const errorSymbols = { symbol: ['ibeam'] };

function axisUses(axes: Axis[], what: string, lines: boolean): Use[] {
  const ticks = axes.flatMap((axis) => axis.ticks ?? []);
  const all: Use[] = [
    {
      what: `titles of ${what}`,
      styles: axes.flatMap((axis) => axis.label?.style ?? []),
      honoured: texts,
      anyway: middle,
    },
    {
      what: `labels of ${what}`,
      styles: ticks.map(({ style }) => style),
      honoured: texts,
      anyway: middle,
    },
  ];
  const ruled: Use = {
    what: `lines of ${what}`,
    styles: axes.map(({ style }) => style),
    honoured: ['color', 'visible', 'strokeWidth'],
  };
  if (!lines) return [...all, ruled];
  return [
    ...all,
    { what: `lines of ${what}`, styles: axes.map(({ style }) => style), honoured: strokes },
    { what: `ticks of ${what}`, styles: ticks.map(({ markStyle }) => markStyle), honoured: strokes },
    { what: 'gridlines', styles: ticks.flatMap(({ gridline }) => gridline ?? []), honoured: strokes },
  ];
}

/** What of the style of an element its marks show. */
function ofElement(element: ChartElement, polar: boolean): Property[] {
  switch (element.kind) {
    case 'point':
      return symbols;
    case 'line':
    case 'path':
    case 'edge':
      return strokes;
    case 'schema':
      return [...boxes, 'pattern', 'width', 'size', 'lineCap'];
    case 'interval':
      if (polar && element.modifier === 3) return [...boxes.filter((each) => each !== 'dashes'), 'pattern'];
      if (element.summary === 7) return [...strokes, 'width', 'size'];
      return [...boxes, 'pattern', ...(element.bins ? [] : (['width'] as const))];
    default:
      return [...boxes, 'pattern'];
  }
}

function elementUses(element: ChartElement, polar: boolean): Use[] {
  const what = elementName(element);
  const { parts } = element;
  const own = [element.style, ...element.conditions.map(({ style }) => style)];
  return [
    {
      what,
      styles: own,
      honoured: ofElement(element, polar),
      ...(element.summary === 7 ? { anyway: errorSymbols } : {}),
    },
    { what: `medians and whiskers of ${what}`, styles: [parts.median, parts.fence], honoured: strokes },
    { what: `hinges of ${what}`, styles: [parts.hinge], honoured: [...boxes, 'pattern'] },
    { what: `outliers of ${what}`, styles: [parts.outlier, parts.extreme], honoured: symbols },
    {
      what: `labels of ${what}`,
      styles: element.labeling.map(({ style }) => style),
      honoured: texts,
    },
  ];
}

function graphUses(graph: Graph): Use[] {
  const dimensions = graph.coordinates.flatMap((each) => each.dimensions);
  const axes = dimensions.flatMap((dimension) => dimension.axes);
  const levels = (graph.layout?.levels ?? []).flatMap(({ axis }) => axis ?? []);
  const polar = graph.coordinates.some(({ transforms }) => transforms.some(({ kind }) => kind === 'polar'));
  const cells = [graph.cellStyle, ...(graph.layout?.cellStyles ?? [])];
  return [
    ...axisUses(axes, 'axes', true),
    ...axisUses(levels, 'panels', false),
    ...graph.elements.flatMap((element) => elementUses(element, polar)),
    {
      what: 'guides',
      styles: graph.guides.flatMap(({ style, conditions }) => [
        style,
        ...conditions.map((each) => each.style),
      ]),
      honoured: strokes,
    },
    { what: 'the area of the data', styles: cells, honoured: [...boxes, 'pattern'] },
  ];
}

function usesOf(chart: Chart): Use[] {
  const { frames, legends } = chart;
  return [
    { what: 'the page', styles: [chart.pageStyle], honoured: boxes.filter((each) => each !== 'opacity') },
    { what: 'frames', styles: frames.map(({ style }) => style), honoured: [...boxes, ...paddings] },
    {
      what: 'texts of frames',
      styles: frames.flatMap(({ label }) => label?.style ?? []),
      honoured: [...texts, 'textAlignment'],
    },
    { what: 'legends', styles: legends.map(({ style }) => style), honoured: [...boxes, ...paddings] },
    {
      what: 'titles of legends',
      styles: legends.flatMap(({ label }) => label?.style ?? []),
      honoured: texts,
      anyway: start,
    },
    {
      what: 'labels of legends',
      styles: legends.map(({ textStyle }) => textStyle),
      honoured: texts,
      anyway: start,
    },
    ...chart.graphs.flatMap(graphUses),
  ];
}

/** Whether a property asks for something that is not so anyway. */
function asks(style: Style, property: Property, anyway: string[]): boolean {
  const value = style[property];
  switch (property) {
    case 'visible':
      return value === false;
    case 'opacity':
    case 'pattern':
      return value !== 1;
    case 'dashes':
      return (value as unknown[]).length > 0;
    default:
      return value !== 'transparent' && !anyway.includes(value as string);
  }
}

const lineCaps = new Set(['butt', 'round', 'square']);

/** Names of colours, symbols and ends of lines that nobody knows. */
function valueNotes(style: Style): string[] {
  const { color, color2, symbol, lineCap } = style;
  const notes = [color, color2].flatMap((each) =>
    each !== undefined && safeColor(each) === undefined ? [`The color ${each} is not known.`] : [],
  );
  if (symbol !== undefined && !isKnownSymbol(symbol))
    notes.push(`The symbol ${symbol} is not known; it is drawn as a circle.`);
  if (lineCap !== undefined && !lineCaps.has(lineCap))
    notes.push(`The end ${lineCap} of lines is not known.`);
  return notes;
}

/** Properties that are given where they show nothing. */
export function styleNotes(chart: Chart): string[] {
  const notes = usesOf(chart).flatMap(({ what, styles, honoured, anyway = {} }) =>
    styles.flatMap((style) =>
      (Object.keys(style) as Property[])
        .filter((property) => !honoured.includes(property) && asks(style, property, anyway[property] ?? []))
        .map((property) => `The ${names[property] ?? property} of ${what} is not honoured.`),
    ),
  );
  const cycled = [...chart.cycles.values()].flatMap(({ cycles }) => cycles.flatMap(({ styles }) => styles));
  return [...new Set([...notes, ...[...chart.styles.values(), ...cycled].flatMap(valueNotes)])];
}
