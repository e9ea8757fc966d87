/** Colours: what charts may name, the client's own palettes, and ranges for numbers. */
import {
  color,
  interpolateRgb,
  interpolateRgbBasis,
  interpolateViridis,
  piecewise,
  interpolateLab,
} from 'd3';

/** Shows nothing. */
export const none = 'none';

/** A colour of the chart as SVG takes it; undefined for what is none. */
export function safeColor(text: string | undefined): string | undefined {
  if (text === undefined) return undefined;
  const trimmed = text.trim();
  if (trimmed === 'transparent' || trimmed === none) return none;
  const parsed = color(trimmed);
  return parsed ? parsed.formatHex() : undefined;
}

/** Told apart by colour-blind readers, too. */
export const groupColors = [
  '#0072B2',
  '#D55E00',
  '#009E73',
  '#CC79A7',
  '#E69F00',
  '#56B4E9',
  '#4D4D4D',
  '#8C510A',
];

export const groupSymbols = ['circle', 'square', 'triangle', 'diamond', 'cross', 'plus', 'star'];

/** Numbers of patterns: solid, strokes, dots, and so on. */
export const groupPatterns = [1, 2, 3, 4, 5, 6];

/** In points. */
export const groupDashes = [[], [6, 3], [2, 2], [8, 2, 2, 2], [12, 3]];

/** The stops of a range of colours for numbers from 0 to 1; without stops the client's own range. */
export function colorRange(stops: string[]): (share: number) => string {
  if (stops.length === 1) return piecewise(interpolateLab, ['#f2f2f2', stops[0]!]);
  if (stops.length === 2) return piecewise(interpolateLab, stops);
  if (stops.length > 2) return interpolateRgbBasis(stops);
  // The lightest colours of the range do not show on white.
  return (share) => interpolateViridis(share * 0.92);
}

/** The share of light that a colour gives, from 0 to 1. */
export function luminance(text: string): number {
  const parsed = color(text)?.rgb();
  if (!parsed) return 1;
  const linear = [parsed.r, parsed.g, parsed.b].map((value) => {
    const share = value / 255;
    return share <= 0.04045 ? share / 12.92 : ((share + 0.055) / 1.055) ** 2.4;
  });
  return 0.2126 * linear[0]! + 0.7152 * linear[1]! + 0.0722 * linear[2]!;
}

/** From 1, none, to 21, black on white. */
export function contrast(first: string, second: string): number {
  const [low, high] = [luminance(first), luminance(second)].sort((a, b) => a - b) as [number, number];
  return (high + 0.05) / (low + 0.05);
}

/** The contrast that small texts need. */
const leastContrast = 4.5;

/** The first of the colours that can be read on the paper; black or white where none can. */
export function readable(paper: string, ...colors: string[]): string {
  const ground = paper === none ? '#ffffff' : paper;
  const found = colors.find((each) => each !== none && contrast(each, ground) >= leastContrast);
  return found ?? (contrast('#1a1a1a', ground) > contrast('#ffffff', ground) ? '#1a1a1a' : '#ffffff');
}

/** The colour itself, or as much darker or lighter as that contrast with the paper needs. */
function shadeOf(paper: string, text: string, least: number): string {
  const ground = paper === none ? '#ffffff' : paper;
  const lighter = luminance(ground) < 0.2;
  let shade = color(text);
  for (let step = 0; shade && step < 20; step += 1) {
    if (contrast(shade.formatHex(), ground) >= least) return shade.formatHex();
    shade = lighter ? shade.brighter(0.15) : shade.darker(0.15);
  }
  return readable(paper);
}

/** The colour itself, or as much darker or lighter as a text on the paper needs. */
export function readableShade(paper: string, text: string): string {
  return shadeOf(paper, text, leastContrast);
}

/** The contrast that marks and their parts need. */
export const leastMarkContrast = 3;

/** The colour itself, or as much darker or lighter as the edge of a mark on the paper needs. */
export function edgeShade(paper: string, text: string): string {
  return shadeOf(paper, text, leastMarkContrast);
}

/** What is seen of a colour on the paper. */
export function blend(text: string, opacity: number, paper: string): string {
  return opacity < 1 ? interpolateRgb(paper, text)(opacity) : text;
}
