/** Bars in polar coordinates, stacked: the slices of a pie. */
import { arc, pie } from 'd3';
import type { Style } from '../chart/model.js';
import type { Layer } from './layers.js';
import { none, readable } from './colors.js';
import { edged } from './edges.js';
import { ownTexts } from './looks.js';
import type { Canvas } from './marks.js';
import type { Maker } from './svg.js';
import { textLook, textWidth, type TextLook } from './text.js';

/** The least share that has room for its figure. */
const leastLabelled = 0.04;

interface Slice {
  layer: Layer;
  value: number;
}

/** The figures look like labels of the data where the chart has some, else like the texts of the legend. */
function sharesLook(layers: Layer[], legendText: Style): TextLook {
  const labeling = layers[0]?.element.labeling[0];
  return textLook(labeling?.style ?? legendText, ownTexts.legendLabel);
}

const gapToFigure = 6;

/** As large as the figures around the pie let it be. */
function radiusOf(canvas: Canvas, look: TextLook): number {
  const beside = canvas.width / 2 - textWidth('00.0%', look) - look.size / 2;
  const above = canvas.height / 2 - look.size;
  return Math.max(1, Math.min(beside, above) - gapToFigure);
}

/** `legendText` is how the legend's texts look. */
export function drawSlices(layers: Layer[], canvas: Canvas, legendText: Style, maker: Maker): SVGElement {
  const slices: Slice[] = layers.map((layer) => ({
    layer,
    value: layer.shapes.reduce((total, shape) => total + Math.max(0, shape.y), 0),
  }));
  const total = slices.reduce((sum, slice) => sum + slice.value, 0);
  const figures = sharesLook(layers, legendText);
  const radius = radiusOf(canvas, figures);
  const unlabelled = layers[0]?.element.labeling[0]?.style.visible === false;
  const angles = pie<Slice>()
    .sort(null)
    .value((slice) => slice.value)(slices);
  const shape = arc<(typeof angles)[number]>().innerRadius(0).outerRadius(radius);
  const place = arc<(typeof angles)[number]>()
    .innerRadius(radius + gapToFigure + figures.size / 2)
    .outerRadius(radius + gapToFigure + figures.size / 2);
  const group = maker.make('g', { transform: `translate(${canvas.width / 2},${canvas.height / 2})` });
  const paths = maker.make('g', { role: 'graphics-object', 'aria-label': 'slice' });
  const texts = maker.group('Shares', '');
  for (const angle of angles) {
    const look = edged(angle.data.layer.look, 'interval', canvas.paper);
    const share = total > 0 ? angle.value / total : 0;
    const percent = `${(100 * share).toFixed(1)}%`;
    paths.append(
      maker.make(
        'path',
        {
          d: shape(angle) ?? '',
          fill: canvas.patterns.fill(look.fill, look.pattern),
          'fill-opacity': look.opacity < 1 ? look.opacity : null,
          stroke: look.stroke === none ? '#ffffff' : look.stroke,
          'stroke-width': Math.max(1, look.strokeWidth),
          'stroke-linejoin': 'round',
        },
        [maker.make('title', {}, [`${angle.data.layer.group.name}: ${percent}`])],
      ),
    );
    if (share < leastLabelled || unlabelled) continue;
    const [x, y] = place.centroid(angle);
    const middle = (angle.startAngle + angle.endAngle) / 2;
    const beside = middle < Math.PI ? ('start' as const) : ('end' as const);
    const align = Math.abs(Math.sin(middle)) < 0.3 ? ('middle' as const) : beside;
    const text = { ...figures, align, color: readable(canvas.paper, figures.color) };
    texts.append(maker.text([percent], x, y + figures.size * 0.35, text));
  }
  group.append(paths, texts);
  return group;
}
