/** What statistics are called where the chart does not say: titles of axes, and sentences below the picture. */
import { plainText } from '../../chart/labels.js';
import type { Axis, ChartElement, Style } from '../../chart/model.js';
import type { Direction } from '../compile/directions.js';
import type { Layer, LayerKind } from '../compile/layers.js';

const titles: Record<number, string> = {
  3: 'Percent',
  10: 'Count',
  11: 'Cumulative count',
  12: 'Cumulative percent',
  22: 'Percent',
  23: 'Percent',
};

function titleOf(element: ChartElement): string {
  if (element.density) return 'Density';
  if (element.summary !== null) return titles[element.summary] ?? '';
  return element.bins && element.y.length === 0 ? 'Count' : '';
}

/** What the chart does not name looks like the title of another axis, or like the labels of its own ticks. */
function titleStyle(axis: Axis, others: Axis[]): Style {
  const style = others.find(({ label }) => label && label.style.visible !== false)?.label?.style;
  const { visible: _, ...own } = style ?? axis.ticks?.style ?? {};
  return own;
}

/** An axis that has no title along values that all elements compute is named after these. */
export function namedByStatistic(axis: Axis, direction: Direction, layers: Layer[], others: Axis[]): Axis {
  if (axis.label || axis.derived || direction.name !== 'y' || layers.length === 0) return axis;
  const names = new Set(layers.map(({ element, kind }) => (kind === 'dots' ? '' : titleOf(element))));
  const [text] = names;
  if (names.size !== 1 || !text) return axis;
  const pieces = [{ kind: 'text' as const, text }];
  const label = { id: '', style: titleStyle(axis, others), frameStyle: {}, purpose: 0, pieces };
  return { ...axis, label };
}

const summaries: Record<number, string> = {
  1: 'sum',
  2: 'mean',
  4: 'median',
  5: 'least value',
  6: 'greatest value',
};

const marks: Partial<Record<LayerKind, string>> = {
  bars: 'Bars show',
  line: 'Lines show',
  points: 'Points show',
  area: 'Areas show',
};

/** What marks show of several rows each, unless an axis has a title of its own that tells it. */
export function summaryCaptions(layers: Layer[], y: Direction): string[] {
  const texts = layers.flatMap(({ kind, element }) => {
    const what = summaries[element.summary ?? 0];
    const own = y.values.filter(({ variable }) => y.values.length === 1 || element.y.includes(variable.id));
    const [values] = own;
    if (!what || !marks[kind] || own.length !== 1 || !values) return [];
    const label = values.variable.label || values.variable.id;
    const titled = (y.dimension?.axes ?? []).some((axis) => {
      const title = axis.derived ? '' : plainText(axis.label);
      return title !== '' && title !== label;
    });
    return titled ? [] : [`${marks[kind]} the ${what} of ${label}.`];
  });
  return [...new Set(texts)];
}
