/** Samples of looks, and ranges of colours, as legends show them. */
import { path } from 'd3';
import { none } from '../svg/colors.js';
import { casingOf, edged, opaque } from '../marks/edges.js';
import { gapToText, swatchHeight, swatchWidth, type Room } from './legendlayout.js';
import type { Look, LookKind } from '../compile/looks.js';
import { isSolid, type Patterns } from '../svg/patterns.js';
import type { Range } from '../compile/ranges.js';
import type { Maker } from '../svg/svg.js';
import { isStroked, symbolPath } from '../marks/symbols.js';
import { lineHeight, textWidth, widest, type TextLook } from '../svg/text.js';

/** A range of colours with the texts at its ticks. */
export interface Ramp {
  range: Range;
  ticks: { share: number; text: string }[];
}

/** Upright, and lying: there texts stand one beside the other. */
const rampLengths = { upright: 120, lying: 200 };
const gapOfTexts = 6;
const rampWidth = 14;
const tickLength = 4;

function lineSample(look: Look, paper: string, maker: Maker): SVGElement[] {
  const line = (stroke: string, width: number) =>
    maker.make('path', {
      d: `M${-swatchWidth / 2},0 H${swatchWidth / 2}`,
      fill: none,
      stroke,
      'stroke-width': width,
      'stroke-dasharray': look.dashes.length > 0 ? look.dashes.join(' ') : null,
      'stroke-opacity': look.opacity < 1 ? look.opacity : null,
    });
  const casing = casingOf(look.stroke, look.strokeWidth, paper);
  return [...(casing ? [line(casing.stroke, casing.width)] : []), line(look.stroke, look.strokeWidth)];
}

function symbolSample(look: Look, paper: string, maker: Maker): SVGElement[] {
  const size = Math.max(look.size, 4);
  const d = symbolPath(look.symbol, size, path);
  const opacity = look.opacity < 1 ? look.opacity : null;
  if (isStroked(look.symbol)) {
    const strokes = (stroke: string, width: number) =>
      maker.make('path', {
        d,
        fill: none,
        stroke,
        'stroke-width': width,
        'stroke-opacity': opaque(look, 'point', paper),
      });
    const width = Math.max(1.4, look.size / 5);
    const casing = casingOf(look.fill, width, paper);
    return [...(casing ? [strokes(casing.stroke, casing.width)] : []), strokes(look.fill, width)];
  }
  const { stroke, strokeWidth, strokeOpacity } = edged({ ...look, pattern: 1 }, 'point', paper);
  return [
    maker.make('path', {
      d: look.stroke === stroke ? d : symbolPath(look.symbol, size - strokeWidth, path),
      fill: look.fill,
      stroke,
      'stroke-width': strokeWidth,
      'stroke-opacity': strokeOpacity,
      'fill-opacity': opacity,
    }),
  ];
}

function areaSample(entry: Sample, patterns: Patterns, paper: string, maker: Maker): SVGElement {
  const { look } = entry;
  const own =
    look.stroke === none || look.stroke === '#ffffff'
      ? isSolid(look.pattern)
        ? none
        : look.fill
      : look.stroke;
  const { stroke, strokeWidth } = edged({ ...look, stroke: own, strokeWidth: 0.75 }, entry.kind, paper);
  return maker.make('rect', {
    x: -swatchWidth / 2 + 2,
    y: -swatchHeight / 2,
    width: swatchWidth - 4,
    height: swatchHeight,
    fill: patterns.fill(look.fill, look.pattern),
    'fill-opacity': look.opacity < 1 ? look.opacity : null,
    stroke,
    'stroke-width': stroke === none ? null : strokeWidth,
  });
}

interface Sample {
  look: Look;
  kind: LookKind;
}

/** A sample of a look around 0, 0. */
export function drawSwatch(sample: Sample, patterns: Patterns, paper: string, maker: Maker): SVGElement[] {
  const { look, kind } = sample;
  if (kind === 'line' || kind === 'path' || kind === 'edge') return lineSample(look, paper, maker);
  if (kind === 'error') {
    const dot = { ...look, symbol: 'circle', stroke: none };
    return [...lineSample(look, paper, maker), ...symbolSample(dot, paper, maker)];
  }
  return kind === 'point' ? symbolSample(look, paper, maker) : [areaSample(sample, patterns, paper, maker)];
}

/** Half of a text may reach beyond each end of a lying ramp. */
function overhang(ramp: Ramp, look: TextLook): number {
  return (
    widest(
      ramp.ticks.map((tick) => tick.text),
      look,
    ) / 2
  );
}

/** How much room a range of colours takes: upright, or lying where legends go across. */
export function rampSize(ramp: Ramp, look: TextLook, across: boolean): Room {
  const beside = tickLength + gapToText + rampWidth;
  if (across) {
    return {
      width: rampLengths.lying + 2 * overhang(ramp, look),
      height: rampWidth + tickLength + lineHeight(look),
    };
  }
  const texts = ramp.ticks.map((tick) => tick.text);
  return { width: beside + widest(texts, look), height: rampLengths.upright + lineHeight(look) };
}

/** The ticks whose texts have room one beside the other. */
function apart(ticks: Ramp['ticks'], look: TextLook): Ramp['ticks'] {
  let end = -Infinity;
  return ticks.filter(({ share, text }) => {
    const half = textWidth(text, look) / 2;
    const middle = share * rampLengths.lying;
    if (middle - half < end) return false;
    end = middle + half + gapOfTexts;
    return true;
  });
}

/** A range of colours with its ticks, with its corner at 0, 0: the highest value at the top, or at the right. */
export function drawRamp({ range, ticks }: Ramp, look: TextLook, across: boolean, maker: Maker): SVGElement {
  const [left, top] = across ? [overhang({ range, ticks }, look), 0] : [0, lineHeight(look) / 2];
  const group = maker.make('g', { transform: `translate(${left.toFixed(2)},${top.toFixed(2)})` });
  const id = `${maker.prefix}-ramp-${range.aesthetic.id.replace(/\W/g, '_')}`;
  const stops = Array.from({ length: 11 }, (_, at) => {
    const share = across ? at / 10 : 1 - at / 10;
    const value = range.low + share * (range.high - range.low);
    return maker.make('stop', { offset: `${at * 10}%`, 'stop-color': range.lookOf(value).fill ?? none });
  });
  const rampLength = across ? rampLengths.lying : rampLengths.upright;
  const [width, height] = across ? [rampLength, rampWidth] : [rampWidth, rampLength];
  group.append(
    maker.make('linearGradient', { id, x1: 0, y1: 0, x2: across ? 1 : 0, y2: across ? 0 : 1 }, stops),
    maker.make('rect', { width, height, fill: `url(#${id})`, stroke: look.color, 'stroke-width': 0.5 }),
  );
  for (const { share, text } of across ? apart(ticks, look) : ticks) {
    const at = (across ? share : 1 - share) * rampLength;
    const line = across ? `M${at},${rampWidth} v${tickLength}` : `M${rampWidth},${at} h${tickLength}`;
    const below = rampWidth + tickLength + look.size;
    group.append(
      maker.make('path', { d: line, stroke: look.color, fill: none }),
      across
        ? maker.text([text], at, below, { ...look, align: 'middle' })
        : maker.text([text], rampWidth + gapToText, at + look.size * 0.35, { ...look, align: 'start' }),
    );
  }
  return group;
}
