/** Draws the marks of one panel by Observable Plot. */
import * as Plot from '@observablehq/plot';
import { group as groupBy } from 'd3';
import { pixels } from '../../chart/markup.js';
import type { Style } from '../../chart/model.js';
import { lineColor } from '../axes/drawaxes.js';
import { none, readableShade } from '../svg/colors.js';
import { guideMarks, type DrawnGuide } from './guides.js';
import type { Layer, Shape } from '../compile/layers.js';
import { stackDots } from '../compile/dots.js';
import { labelsOf } from './labelmarks.js';
import { layerNameMark, noRoomFor, type Surroundings } from './linenames.js';
import { isWhole } from './pointmarks.js';
import { marksAbove, marksOf } from './marks.js';
import type { Canvas } from './canvas.js';
import type { Panel } from '../compile/panels.js';
import { drawSlices } from './pie.js';
import type { DrawnScale } from '../compile/scales.js';
import type { Maker } from '../svg/svg.js';
import type { TextLook } from '../svg/text.js';

const types: Record<DrawnScale['method'], Plot.ScaleType> = {
  linear: 'linear',
  log: 'log',
  power: 'pow',
  'symmetric log': 'symlog',
  'symmetric power': 'pow',
};

/** So many lengths of an axis away from it places are no longer numbers that a picture can have. */
const mostLengths = 1e30;

/** Values as far as a linear scale can show them; null and what is no number stay as they are. */
function reachable({ domain: [low, high] }: DrawnScale): (value: unknown) => unknown {
  const most = mostLengths * (high - low);
  const within = (value: number) => Math.max(low - most, Math.min(high + most, value));
  return (value) => (typeof value === 'number' ? within(value) : value);
}

function scaleOptions(scale: DrawnScale): Plot.ScaleOptions {
  const options: Plot.ScaleOptions = {
    type: types[scale.method],
    domain: scale.domain,
    reverse: scale.inverted,
    axis: null,
    label: null,
  };
  if (scale.method === 'log') options.base = scale.base;
  if (options.type === 'linear') options.transform = reachable(scale);
  if (options.type === 'pow') options.exponent = scale.base;
  return options;
}

/** Marks that belong together, under one name. */
interface Named {
  name: string;
  marks: Plot.Markish[];
  clipped: boolean;
}

const nouns: Record<Layer['kind'], [string, string]> = {
  points: ['point', 'points'],
  dots: ['point', 'points'],
  line: ['place on a line', 'places on a line'],
  bars: ['bar', 'bars'],
  errors: ['error bar', 'error bars'],
  area: ['place on an area', 'places on an area'],
  boxes: ['box', 'boxes'],
  edges: ['edge', 'edges'],
  polygon: ['corner of a polygon', 'corners of a polygon'],
  slices: ['slice', 'slices'],
};

/** What a group of marks shows, and how many there are. */
function layerName(layer: Layer): string {
  const count = layer.shapes.filter((shape) => !shape.between).length;
  const noun = nouns[layer.kind][count === 1 ? 0 : 1];
  return layer.group.name ? `${layer.group.name}: ${count} ${noun}` : `${count} ${noun}`;
}

/** The background and the outline of a panel; the paper is what colours on it have to be told from. */
export interface PanelFrame {
  style: Style;
  paper: string;
  fill: string;
  stroke: string;
}

export interface PanelContent {
  panel: Panel;
  name: string;
  layers: Layer[];
  guides: DrawnGuide[];
  /** Lines that have their names within the panel. */
  lineNames: Map<Layer, TextLook>;
  canvas: Canvas;
  gridlines: { across: GridLines | null; upright: GridLines | null };
  frame: PanelFrame;
  /** How the texts of the legend look. */
  legendText: Style;
  notes: string[];
  /** Ends in the number of the panel. */
  clipId: string;
}

export interface GridLines {
  values: number[];
  stroke: string;
  width: number;
  dashes: number[];
  opacity: number;
  cap: string;
}

function gridMark(lines: GridLines, across: boolean): Plot.Markish {
  const options = {
    stroke: lines.stroke,
    strokeOpacity: lines.opacity,
    strokeLinecap: lines.cap,
    strokeWidth: lines.width,
    ...(lines.dashes.length > 0 ? { strokeDasharray: lines.dashes.join(' ') } : {}),
  };
  return across ? Plot.gridY(lines.values, options) : Plot.gridX(lines.values, options);
}

function contentOf(content: PanelContent): Named[] {
  const { canvas, layers } = content;
  const named: Named[] = [];
  for (const [lines, across] of [
    [content.gridlines.across, true],
    [content.gridlines.upright, false],
  ] as const) {
    if (lines) named.push({ name: '', marks: [gridMark(lines, across)], clipped: false });
  }
  const dots = stackDots(
    layers,
    canvas.x,
    canvas.transposed ? canvas.height : canvas.width,
    canvas.transposed ? canvas.width : canvas.height,
  );
  const labels = labelsOf(canvas, layers, content.notes);
  if (labels.below.length > 0) named.push({ name: '', marks: labels.below, clipped: false });
  const above: Named[] = [];
  for (const layer of layers) {
    if (layer.kind === 'slices') continue;
    const [marks, late] = [marksOf(canvas, layer, dots), marksAbove(canvas, layer)];
    const name = layerName(layer);
    if (marks.length > 0) named.push({ name, marks, clipped: true });
    if (late.length > 0) above.push({ name: marks.length > 0 ? '' : name, marks: late, clipped: true });
  }
  named.push(...above);
  const { guides, around } = guideMarks(content.guides, content.panel, canvas, layers, content.notes);
  for (const { line, title } of guides) {
    named.push({ name: title ? `Guide: ${title}` : 'Guide', marks: [line], clipped: true });
  }
  for (const { name } of guides) if (name) named.push({ name: '', marks: [name], clipped: false });
  named.push(...namesOf(content, around));
  named.push(...baselineOf(content));
  if (labels.above.length > 0) named.push({ name: 'Labels of data', marks: labels.above, clipped: false });
  return named;
}

/** The names of lines that nothing else explains. */
function namesOf({ layers, lineNames, canvas, notes }: PanelContent, around: Surroundings): Named[] {
  return layers.flatMap((layer) => {
    const look = lineNames.get(layer);
    if (!look) return [];
    const marks = layerNameMark(layer, around, { ...look, color: readableShade(canvas.paper, look.color) });
    if (!marks) notes.push(noRoomFor(layer.element.name));
    return marks?.length ? [{ name: '', marks, clipped: false }] : [];
  });
}

/** The line on which bars stand. */
function baselineOf({ canvas, layers }: PanelContent): Named[] {
  const standing = layers.some((layer) => layer.kind === 'bars' && layer.element.y.length < 2);
  const place = layers.find((layer) => layer.kind === 'bars')?.baseline ?? 0;
  const [low, high] = canvas.y.domain;
  if (!standing || place < low || place > high) return [];
  const options = { stroke: lineColor, strokeWidth: 1, ariaHidden: 'true' };
  return [
    {
      name: '',
      marks: [canvas.transposed ? Plot.ruleX([place], options) : Plot.ruleY([place], options)],
      clipped: false,
    },
  ];
}

/** What a box reaches without its outliers. */
const boxReach = ({ box }: Shape) => (box ? [box.box.lowest, box.box.highest] : []);

/** Whether something reaches beyond the bounds of the scales, so that it has to be cut off there. */
function reachesOut(content: PanelContent): boolean {
  const { x, y } = content.canvas;
  const outside = (value: number | undefined, [low, high]: [number, number]) =>
    value !== undefined && (value < low || value > high);
  return content.layers.some((layer) =>
    layer.shapes.some(
      (shape) =>
        [shape.x, shape.x1, shape.x2].some((value) => outside(value, x.domain)) ||
        [shape.y, shape.y1, shape.y2, shape.low, shape.high, ...boxReach(shape)].some((value) =>
          outside(value, y.domain),
        ),
    ),
  );
}

function plotted(content: PanelContent, named: Named[], maker: Maker): Element {
  const { canvas } = content;
  const [across, upright] = canvas.transposed ? [canvas.y, canvas.x] : [canvas.x, canvas.y];
  return Plot.plot({
    document: maker.document,
    width: canvas.width,
    height: canvas.height,
    margin: 0,
    x: scaleOptions(across),
    y: scaleOptions(upright),
    marks: named.flatMap(({ marks }, at) =>
      marks.map((mark) => tagged(mark, isWhole(mark) ? `k${at} whole` : `k${at}`)),
    ),
  }) as unknown as Element;
}

/** Tells afterwards which group of SVG a mark has become. */
function tagged(mark: Plot.Markish, tag: string): Plot.Markish {
  const made = mark as Plot.Mark & { render: (...all: unknown[]) => SVGElement | null };
  const own = made.render.bind(made);
  made.render = (...all: unknown[]) => {
    const element = own(...all);
    element?.setAttribute('data-layer', tag);
    return element;
  };
  return made;
}

/** Plot names groups by the kinds of its marks, which tells a reader nothing: the names stay as data only. */
function hideKinds(element: Element): void {
  for (const each of [element, ...Array.from(element.querySelectorAll('[aria-label]'))]) {
    const kind = each.getAttribute('aria-label');
    if (kind === null) continue;
    each.removeAttribute('aria-label');
    each.setAttribute('data-kind', kind);
  }
}

/** Plot writes the usual anchor of texts on its root alone, from which `collect` takes them away. */
function anchorTexts(element: Element): void {
  for (const text of [element, ...Array.from(element.querySelectorAll('[data-kind="text"]'))]) {
    if (text.getAttribute('data-kind') === 'text' && !text.hasAttribute('text-anchor'))
      text.setAttribute('text-anchor', 'middle');
  }
}

/** Moves what Plot has drawn into groups with names. */
function collect(
  svg: Element,
  named: Named[],
  content: PanelContent,
  maker: Maker,
  clip: boolean,
): SVGElement[] {
  const children = Array.from(svg.childNodes).filter((node) => node.nodeType === 1) as Element[];
  const tagged = groupBy(children, (child) => child.getAttribute('data-layer')?.split(' ')[0]);
  return named.flatMap(({ name, clipped }, at) => {
    const own = tagged.get(`k${at}`);
    if (!own) return [];
    for (const element of own) {
      const whole = element.getAttribute('data-layer')!.endsWith(' whole');
      element.removeAttribute('data-layer');
      hideKinds(element);
      anchorTexts(element);
      if (clip && clipped && !whole) element.setAttribute('clip-path', `url(#${content.clipId})`);
    }
    const group = name === '' ? maker.make('g', {}) : maker.group(name, 'graphics-object');
    group.append(...own);
    return [group];
  });
}

/** What lies behind all marks. */
function drawGround({ canvas: { width, height }, frame }: PanelContent, maker: Maker): SVGElement {
  return maker.make('rect', {
    width,
    height,
    fill: frame.fill,
    'fill-opacity': frame.style.opacity ?? null,
    stroke: none,
    'aria-hidden': 'true',
  });
}

function drawOutline({ canvas: { width, height }, frame }: PanelContent, maker: Maker): SVGElement[] {
  const { style, stroke } = frame;
  if (stroke === none) return [];
  const dashes = style.dashes?.length ? style.dashes.map((dash) => pixels(dash, 1)).join(' ') : null;
  const look = {
    fill: none,
    stroke,
    'stroke-width': style.strokeWidth ? pixels(style.strokeWidth, 1) : 0.75,
    'stroke-dasharray': dashes,
    'aria-hidden': 'true',
  };
  return [maker.make('rect', { width, height, ...look })];
}

/** A panel with its corner at 0, 0. */
export function drawPanel(content: PanelContent, maker: Maker): SVGElement {
  const { width, height } = content.canvas;
  const group = maker.group(content.name, 'group');
  group.append(drawGround(content, maker));
  const named = contentOf(content);
  const clip = reachesOut(content);
  if (clip) {
    const area = maker.make('clipPath', { id: content.clipId }, [maker.make('rect', { width, height })]);
    group.append(area);
  }
  if (named.length > 0) group.append(...collect(plotted(content, named, maker), named, content, maker, clip));
  const slices = content.layers.filter((layer) => layer.kind === 'slices');
  if (slices.length > 0) {
    group.append(drawSlices(slices, content.canvas, content.legendText, content.notes, maker));
  }
  group.append(...drawOutline(content, maker));
  return group;
}
