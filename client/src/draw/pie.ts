/** Bars in polar coordinates, stacked: the slices of a pie. */
import { arc, pie } from 'd3';
import type { Layer } from './layers.js';
import { none, readable } from './colors.js';
import { edged } from './edges.js';
import { ownTexts } from './looks.js';
import type { Canvas } from './marks.js';
import type { Maker } from './svg.js';

/** The least share that has room for its figure. */
const leastLabelled = 0.04;

interface Slice {
  layer: Layer;
  value: number;
}

export function drawSlices(layers: Layer[], canvas: Canvas, maker: Maker): SVGElement {
  const slices: Slice[] = layers.map((layer) => ({
    layer,
    value: layer.shapes.reduce((total, shape) => total + Math.max(0, shape.y), 0),
  }));
  const total = slices.reduce((sum, slice) => sum + slice.value, 0);
  const radius = Math.min(canvas.width, canvas.height) / 2 - 18;
  const angles = pie<Slice>()
    .sort(null)
    .value((slice) => slice.value)(slices);
  const shape = arc<(typeof angles)[number]>().innerRadius(0).outerRadius(Math.max(1, radius));
  const place = arc<(typeof angles)[number]>()
    .innerRadius(radius + 12)
    .outerRadius(radius + 12);
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
    if (share < leastLabelled) continue;
    const [x, y] = place.centroid(angle);
    const middle = (angle.startAngle + angle.endAngle) / 2;
    const beside = middle < Math.PI ? ('start' as const) : ('end' as const);
    const align = Math.abs(Math.sin(middle)) < 0.3 ? ('middle' as const) : beside;
    const own = ownTexts.legendLabel;
    const text = { ...own, align, color: readable(canvas.paper, own.color) };
    texts.append(maker.text([percent], x, y + 4, text));
  }
  group.append(paths, texts);
  return group;
}
