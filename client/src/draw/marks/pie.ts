/** Bars in polar coordinates, stacked: the slices of a pie, with their shares around it. */
import { arc, pie } from 'd3';
import type { Style } from '../../chart/model.js';
import { none } from '../svg/colors.js';
import { edged } from './edges.js';
import type { Layer } from '../compile/layers.js';
import { ownTexts } from '../compile/looks.js';
import type { Canvas } from './canvas.js';
import { drawFigures, figureText, radiusOf, type Pie, type Slice } from './piefigures.js';
import type { Maker } from '../svg/svg.js';
import { textLook, type TextLook } from '../svg/text.js';

/** The figures look like labels of the data where the chart has some, else like the texts of the legend. */
function sharesLook(layers: Layer[], legendText: Style): TextLook {
  const labeling = layers[0]?.element.labeling[0];
  return textLook(labeling?.style ?? legendText, ownTexts.legendLabel);
}

function drawPaths({ angles, total, radius }: Pie, canvas: Canvas, maker: Maker): SVGElement {
  const shape = arc<Pie['angles'][number]>().innerRadius(0).outerRadius(radius);
  const paths = maker.make('g', { role: 'graphics-object', 'aria-label': 'slice' });
  for (const angle of angles) {
    const { layer } = angle.data;
    const look = edged(layer.look, 'interval', canvas.paper);
    const share = total > 0 ? angle.value / total : 0;
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
        [maker.make('title', {}, [`${layer.group.name}: ${figureText(share)}`])],
      ),
    );
  }
  return paths;
}

/** `legendText` is how the legend's texts look. */
export function drawSlices(
  layers: Layer[],
  canvas: Canvas,
  legendText: Style,
  notes: string[],
  maker: Maker,
): SVGElement {
  const slices: Slice[] = layers.map((layer) => ({
    layer,
    value: layer.shapes.reduce((total, shape) => total + Math.max(0, shape.y), 0),
  }));
  const look = sharesLook(layers, legendText);
  const whole: Pie = {
    angles: pie<Slice>()
      .sort(null)
      .value((slice) => slice.value)(slices),
    total: slices.reduce((sum, slice) => sum + slice.value, 0),
    radius: radiusOf(canvas, look),
  };
  const unlabelled = layers[0]?.element.labeling[0]?.style.visible === false;
  const group = maker.make('g', { transform: `translate(${canvas.width / 2},${canvas.height / 2})` });
  group.append(drawPaths(whole, canvas, maker));
  if (!unlabelled) group.append(...drawFigures(whole, look, canvas, notes, maker));
  return group;
}
