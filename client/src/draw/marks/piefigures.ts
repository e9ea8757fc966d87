/** The shares of a pie's slices, around it. */
import type { PieArcDatum } from 'd3';
import { none, readable } from '../svg/colors.js';
import type { Layer } from '../compile/layers.js';
import type { Canvas } from './canvas.js';
import type { Maker } from '../svg/svg.js';
import { lineHeight, textWidth, type TextLook } from '../svg/text.js';
import { counted } from '../notes/counts.js';

/** Slices of a lower share have a line to their figure. */
const leastAlone = 0.04;

export interface Slice {
  layer: Layer;
  value: number;
}

export interface Pie {
  angles: PieArcDatum<Slice>[];
  total: number;
  radius: number;
}

/** The figure of a slice beside the pie, from its middle. */
interface Figure {
  text: string;
  share: number;
  /** In radians from the top, with the clock. */
  angle: number;
  side: -1 | 1;
  /** Where its slice wants it, and where it stands. */
  wanted: number;
  y: number;
}

const gapToFigure = 12;

const noteOf = (count: number) =>
  `${counted(count)} ${count === 1 ? 'share' : 'shares'} of slices ${count === 1 ? 'has' : 'have'} no room.`;

const least = 0.001;

export function figureText(share: number): string {
  return share > 0 && share < least / 2 ? `<${100 * least}%` : `${(100 * share).toFixed(1)}%`;
}

/** Moves the figures of one side apart, within so much above and below the middle. */
function spread(figures: Figure[], half: number, step: number): void {
  figures.sort((a, b) => a.wanted - b.wanted);
  let low = -half;
  for (const figure of figures) {
    figure.y = Math.max(figure.wanted, low);
    low = figure.y + step;
  }
  let high = half;
  for (const figure of [...figures].reverse()) {
    figure.y = Math.min(figure.y, high);
    high = figure.y - step;
  }
}

/** As many figures as have room, those of the largest slices. */
function placeFigures(all: Figure[], half: number, step: number): Figure[] {
  const most = Math.max(1, Math.floor((2 * half) / step) + 1);
  return ([1, -1] as const).flatMap((side) => {
    const figures = all.filter((figure) => figure.side === side).sort((a, b) => b.share - a.share);
    const shown = figures.slice(0, most);
    spread(shown, half, step);
    return shown;
  });
}

/** The middle of a figure's text is over, or below, its slice where nothing else is near. */
function alignOf(figure: Figure, all: Figure[], step: number): TextLook['align'] {
  const free = all.every((other) => other === figure || Math.abs(other.y - figure.y) >= step);
  const moved = Math.abs(figure.y - figure.wanted) > 1 || figure.share < leastAlone;
  if (Math.abs(Math.sin(figure.angle)) < 0.3 && free && !moved) return 'middle';
  return figure.side > 0 ? 'start' : 'end';
}

/** The figures of the slices of a pie of that radius; `total` is what all slices are of. */
export function drawFigures(
  { angles, total, radius }: Pie,
  asked: TextLook,
  canvas: Canvas,
  notes: string[],
  maker: Maker,
): SVGElement[] {
  const look = { ...asked, color: readable(canvas.paper, asked.color) };
  const step = lineHeight(look);
  const outer = radius + gapToFigure;
  const figures = angles.flatMap((each): Figure[] => {
    if (!(each.value > 0)) return [];
    const angle = (each.startAngle + each.endAngle) / 2;
    const wanted = -Math.cos(angle) * outer;
    const share = each.value / total;
    return [{ text: figureText(share), share, angle, side: angle < Math.PI ? 1 : -1, wanted, y: wanted }];
  });
  const placed = placeFigures(figures, Math.max(step, canvas.height / 2 - step / 2), step);
  if (placed.length < figures.length) notes.push(noteOf(figures.length - placed.length));
  const texts = maker.group('Shares', '');
  const lines = maker.make('g', {
    'aria-hidden': 'true',
    fill: none,
    stroke: look.color,
    'stroke-width': 0.5,
  });
  for (const figure of placed) {
    const align = alignOf(figure, placed, step);
    const around = Math.sqrt(Math.max(0, outer ** 2 - figure.y ** 2));
    const own = Math.abs(Math.sin(figure.angle)) * outer;
    const beside = figure.side * Math.max(around, own, gapToFigure / 2);
    const x = align === 'middle' ? Math.sin(figure.angle) * outer : beside;
    texts.append(maker.text([figure.text], x, figure.y + look.size / 3, { ...look, align }));
    if (figure.share >= leastAlone && Math.abs(figure.y - figure.wanted) < step) continue;
    const [dx, dy] = [Math.sin(figure.angle), -Math.cos(figure.angle)];
    const at = (distance: number) => `${(dx * distance).toFixed(1)},${(dy * distance).toFixed(1)}`;
    const end = `${(x - 3 * figure.side).toFixed(1)},${figure.y.toFixed(1)}`;
    lines.append(maker.make('path', { d: `M${at(radius)} L${at(radius + 4)} L${end}` }));
  }
  return [lines, texts];
}

/** The pie leaves room for the figures around it. */
export function radiusOf({ width, height }: Canvas, look: TextLook): number {
  const beside = width / 2 - textWidth(figureText(1), look);
  const above = height / 2 - look.size;
  return Math.max(1, Math.min(beside, above) - gapToFigure, Math.min(width, height) / 5);
}
