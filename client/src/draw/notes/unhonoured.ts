/** What of a chart is read but cannot be drawn as it says; a sentence for each, so that nothing is left out in silence. */
import type {
  Aesthetic,
  AestheticKind,
  Axis,
  Chart,
  ChartElement,
  Graph,
  Label,
  Labeling,
  Style,
} from '../../chart/model.js';
import type { Received } from '../../received.js';
import { secondsOf } from '../../data/format.js';
import { none, safeColor } from '../svg/colors.js';
import { isWithinReach } from '../../data/reach.js';
import { placeOf } from '../compile/directions.js';
import { aestheticOf } from '../compile/grouping.js';
import { blendLevel } from '../axes/headers.js';
import type { LayerKind } from '../compile/layers.js';
import type { Orientation } from '../compile/orientation.js';
import type { PanelGrid } from '../compile/panels.js';
import type { DrawnScale } from '../compile/scales.js';
import { elementName, marksName } from './names.js';
import { styleNotes } from './styleuse.js';
import { baseOf } from '../axes/ticktexts.js';
import { mostTicks } from '../axes/tickvalues.js';
import { counted } from './counts.js';

/** The type of contents that are maps. */
const mapContent = 10;

const isShown = (color: string | undefined) => (safeColor(color) ?? none) !== none;

const isBox = (style: Style | undefined) =>
  style !== undefined && style.visible !== false && (isShown(style.color) || isShown(style.color2));

function axesOf(chart: Chart): Axis[] {
  return chart.graphs.flatMap((graph) => [
    ...graph.coordinates.flatMap((each) => each.dimensions.flatMap((dimension) => dimension.axes)),
    ...(graph.layout?.levels ?? []).flatMap((level) => level.axis ?? []),
  ]);
}

function boxNotes(chart: Chart): string[] {
  const axes = axesOf(chart);
  const labels: (Label | null)[] = [...axes, ...chart.frames, ...chart.legends].map((each) => each.label);
  const boxed =
    labels.some((label) => isBox(label?.frameStyle)) ||
    axes.some((axis) => isBox(axis.ticks?.frameStyle)) ||
    chart.graphs.some((graph) =>
      graph.elements.some((element) => element.labeling.some((each) => isBox(each.frameStyle))),
    );
  return boxed ? ['Boxes behind single texts are not drawn; those of frames and legends are.'] : [];
}

/** Numbers of ways to deal with labels that would cover each other: one of them goes. */
const knownCollisions = new Set([null, 1, 2]);

/** Labels of the first labeling that are not drawn as it says. */
function labelNotes(element: ChartElement, name: string): string[] {
  const notes: string[] = [];
  const [{ variable, dimension }] = element.labeling as [Labeling];
  const single = element.kind === 'schema' || !(element.summary || element.bins || element.density);
  if (variable !== '' && !single)
    notes.push(`Labels of ${name} are not drawn: each mark shows several rows.`);
  if (variable === '' && element.kind === 'schema')
    notes.push(`Labels of ${name} are not drawn: they name no variable.`);
  if (variable === '' && dimension > 1)
    notes.push(`Labels of ${name} along the dimension ${dimension} are not drawn.`);
  if (!knownCollisions.has(element.collisions))
    notes.push(`What ${element.collisions} does to labels of ${name} that would cover others is not known.`);
  return notes;
}

function elementNotes(element: ChartElement): string[] {
  const name = elementName(element);
  const notes: string[] = [];
  if (element.labeling.length > 1)
    notes.push(`Of ${counted(element.labeling.length)} labels of ${name} the first is drawn.`);
  if (element.labeling.some((each) => each.connectingLines))
    notes.push(`Lines from labels of ${name} to what they name are not drawn.`);
  if (element.labeling.length > 0) notes.push(...labelNotes(element, name));
  if (element.dot && element.kind !== 'point') notes.push(`Dots instead of ${name} are not drawn.`);
  if (element.tukey && element.kind !== 'schema')
    notes.push(`The statistic of boxes of ${name} is not drawn: only a schema has boxes.`);
  return notes;
}

/** Numbers of orders of categories that say what is done anyway. */
const knownOrders = new Set([null, 2]);

function domainNotes(chart: Chart): string[] {
  return [...chart.domains.values()].flatMap((domain) => {
    const notes: string[] = [];
    if (domain.sort && !knownOrders.has(domain.sort.method)) {
      const method = domain.sort.method!;
      notes.push(`The order ${method} of categories is not known; they are sorted by their values.`);
    }
    if (!domain.categorical) {
      const kind = domain.date ? 'date' : 'number';
      const isRead = (text: string) => isWithinReach(secondsOf(text) ?? Infinity, kind);
      const unread = [domain.minimum, domain.maximum].filter((text) => text && !isRead(text));
      notes.push(...unread.map((text) => `The bound ${text} of the domain ${domain.id} is not understood.`));
    }
    if (domain.categorical && (domain.minimum !== null || domain.maximum !== null))
      notes.push(`The bounds of the categories ${domain.id} are not honoured.`);
    return notes;
  });
}

function graphNotes(graph: Graph): string[] {
  const notes = graph.elements.flatMap(elementNotes);
  const method = graph.panels?.method ?? '';
  if (!['', 'cross', 'nest'].includes(method))
    notes.push(`The method ${method} of panels is not known; they are drawn as the markup nests them.`);
  for (const guide of graph.guides) {
    if (guide.kind === 'line' && guide.x !== null && guide.y !== null)
      notes.push(
        `${guide.name ? `The guide ${guide.name}` : 'A guide'} has an x and a y; one line is drawn.`,
      );
  }
  const ratios = graph.coordinates.flatMap((each) => each.transforms);
  if (ratios.some((each) => each.kind === 'sameRatio' && !each.center))
    notes.push(
      'Where units are equally long, data stand in the middle, although the chart does not want it.',
    );
  return notes;
}

/** What came with a chart and is not shown. */
export function contentNotes(received: Pick<Received, 'contents'>): string[] {
  const mapped = received.contents.some((content) => content.type === mapContent);
  return mapped ? ['A map came with the chart; it is not drawn.'] : [];
}

/** Parts that stand where a part is that is not there. */
function placeNotes(chart: Chart): string[] {
  const located = [...chart.frames, ...chart.graphs, ...chart.legends];
  const known = new Set(located.map(({ id }) => id).filter((id) => id !== ''));
  const lost = located.flatMap(({ locations }) =>
    locations.filter(({ method, target }) => method === 'target' && !known.has(target)),
  );
  return lost.map(
    ({ part, target }) => `A place of the ${part} goes by ${target || 'a part'}, which is not there.`,
  );
}

/** What can be told from the chart and what came with it. */
export function chartNotes(chart: Chart, received: Pick<Received, 'contents'>): string[] {
  const notes = contentNotes(received);
  for (const { name, target } of chart.controllers)
    notes.push(`The function ${name} that the chart asks for on ${target} is not run.`);
  for (const variable of chart.variables.values()) {
    if (!variable.groupedMidpoints) continue;
    const label = variable.label || variable.id;
    notes.push(`Values of ${label} are middles of groups; statistics take them as they stand.`);
  }
  return [
    ...notes,
    ...placeNotes(chart),
    ...boxNotes(chart),
    ...styleNotes(chart),
    ...domainNotes(chart),
    ...chart.graphs.flatMap(graphNotes),
  ];
}

type Unseen = Partial<Record<LayerKind, AestheticKind[]>>;

const ofStrokes: AestheticKind[] = ['shape', 'pattern'];

/** What groups of such marks do not differ by. */
export const unseenGroups: Unseen = {
  points: ['pattern', 'dash'],
  dots: ['pattern', 'dash'],
  line: ofStrokes,
  edges: ofStrokes,
  errors: ofStrokes,
  bars: ['shape'],
  area: ['shape'],
  boxes: ['shape'],
  polygon: ['shape'],
  slices: ['shape', 'dash'],
};

const allRanges: AestheticKind[] = ['color', 'size', 'transparency'];

/** Which numbers such marks do not show by their looks. */
const unseenRanges: Unseen = {
  line: allRanges,
  edges: allRanges,
  polygon: allRanges,
  boxes: allRanges,
  slices: allRanges,
  bars: ['size'],
  area: ['size'],
  dots: ['size'],
};

/** Whether marks of that kind cannot show an aesthetic; `ranged` where its values make a range. */
export function isUnseen(aesthetic: Aesthetic, kind: LayerKind, ranged: boolean, chart: Chart): boolean {
  const unseen = ranged ? unseenRanges[kind] : unseenGroups[kind];
  const what = ranged ? aesthetic.kind : aestheticOf(aesthetic, chart);
  return unseen?.includes(what as AestheticKind) ?? false;
}

/** Aesthetics that marks of that kind cannot show. */
export function aestheticNotes(
  element: ChartElement,
  kind: LayerKind,
  ranged: Aesthetic[],
  chart: Chart,
): string[] {
  const name = elementName(element);
  const unseen = element.aesthetics.filter((aesthetic) =>
    isUnseen(aesthetic, kind, ranged.includes(aesthetic), chart),
  );
  return unseen.map((aesthetic) => {
    const label = chart.variables.get(aesthetic.variable)?.label || aesthetic.variable;
    return `The ${aesthetic.kind} of ${name} by ${label} is not to be seen: this client draws no such ${marksName(element)}.`;
  });
}

/** Angles were written as unsigned numbers, too. */
const turned = (angle: number) => (angle | 0) % 360;

function levelNotes(graph: Graph, grid: PanelGrid): string[] {
  const notes: string[] = [];
  for (const name of ['columns', 'rows'] as const) {
    const own = grid[name].variables.flatMap(
      (variable) => graph.layout?.levels.find((each) => each.level === variable.level) ?? [],
    );
    const [first, ...others] = own;
    if (
      first &&
      others.some(({ gap }) => gap && (gap.value !== first.gap?.value || gap.unit !== first.gap.unit))
    )
      notes.push('Gaps between panels are those of the outer level.');
    const blend = grid.blended[name].length > 0 ? blendLevel(grid, name, graph) : undefined;
    for (const { axis, level } of [...own, ...(blend ? [blend] : [])]) {
      const angle = axis?.ticks?.angle ?? null;
      const drawn = name === 'columns' ? 0 : 90;
      if (angle !== null && Math.abs(turned(angle)) % 180 !== drawn)
        notes.push(`The angle of the labels of panels at level ${level} is not honoured.`);
      if (axis?.ticks?.format)
        notes.push(`The format of the labels of panels at level ${level} is not honoured.`);
    }
  }
  return notes;
}

function cellNotes(graph: Graph, grid: PanelGrid, columns: number, rows: number): string[] {
  const cells = graph.layout?.cellStyles.length ?? 0;
  const notes: string[] = [];
  if (cells > grid.panels.length)
    notes.push(`There are looks of ${counted(cells)} panels, but ${grid.panels.length} panels.`);
  if (cells > 0 && columns > 1 && rows > 1)
    notes.push(
      'Looks of single panels are given row by row; the chart does not say in which order they stand.',
    );
  return notes;
}

/** What several panels do not have of their own. */
export function panelNotes(graph: Graph, grid: PanelGrid): string[] {
  const notes: string[] = [];
  const columns = Math.max(0, ...grid.panels.map((panel) => panel.column)) + 1;
  const rows = Math.max(0, ...grid.panels.map((panel) => panel.row)) + 1;
  notes.push(...levelNotes(graph, grid), ...cellNotes(graph, grid, columns, rows));
  if (grid.panels.length < 2) return notes;
  const dimensions = graph.coordinates.flatMap((each) => each.dimensions);
  const axes = dimensions.flatMap((dimension) => dimension.axes);
  if (axes.some((axis) => axis.repeat !== null && axis.repeat !== 0))
    notes.push('Axes stand at the outer panels alone, although the chart repeats them.');
  if (axes.some((axis) => axis.combineLabels === false))
    notes.push('All panels have one title of their axis, although the chart gives each its own.');
  if (dimensions.some((dimension) => dimension.unionDomain === false))
    notes.push('All panels have the same scales, although the chart gives each its own.');
  return notes;
}

/** Guides in space, where there is no space. */
export function flatNotes(graph: Graph): string[] {
  const spatial = graph.guides.filter((guide) => guide.kind === 'plane' || guide.kind === 'frame');
  return spatial.map((guide) => `The ${guide.kind} guide ${guide.name || guide.id} is not drawn.`);
}

/** Ticks that cannot stand where the chart wants one; at 0 there is one anyway. */
function baseNotes(scale: DrawnScale): string[] {
  const { direction } = scale;
  const based = (direction.dimension?.axes ?? []).some(({ ticks }) => {
    const base = ticks?.base ? baseOf(ticks, scale) : 0;
    const stepped = direction.kind === 'number' ? scale.method !== 'log' : direction.kind === 'date';
    return (
      base === null || (base !== 0 && !(stepped && (ticks!.delta !== null || direction.kind === 'number')))
    );
  });
  return based ? [`Ticks along ${direction.name} do not stand at the base that the chart wants.`] : [];
}

/** Ticks whose distance cannot be had. */
function tickNotes(scale: DrawnScale): string[] {
  const { direction, domain } = scale;
  const [low, high] = domain;
  const deltas = (direction.dimension?.axes ?? []).flatMap((axis) => axis.ticks?.delta ?? []);
  if (deltas.length === 0) return [];
  if (direction.kind === 'category') return [`Ticks along ${direction.name} stand at all categories.`];
  const fits = deltas.every((delta) => delta > 0 && (high - low) / delta <= mostTicks);
  return fits ? [] : [`Ticks along ${direction.name} do not have the distance that the chart wants.`];
}

/** Scales that the values do not fit. */
export function scaleNotes(scales: { x: DrawnScale; y: DrawnScale }, orientation: Orientation): string[] {
  const notes = [scales.x, scales.y].flatMap((scale) => [...tickNotes(scale), ...baseNotes(scale)]);
  for (const { direction } of [scales.x, scales.y]) {
    const wanted = direction.dimension?.scale?.method ?? 'linear';
    const origin = direction.dimension?.scale?.origin;
    if (origin && placeOf(direction, origin) === null)
      notes.push(`The origin ${origin} of the ${direction.name} scale is not understood.`);
    const what = direction.kind === 'date' ? 'Dates' : 'Categories';
    if (wanted !== 'linear' && direction.kind !== 'number')
      notes.push(`${what} along ${direction.name} stand on a linear scale, not on a ${wanted} one.`);
  }
  const straight = (scale: DrawnScale) => scale.method === 'linear' && scale.direction.kind === 'number';
  if (orientation.sameRatio && !(straight(scales.x) && straight(scales.y)))
    notes.push('Units are equally long on linear scales of numbers alone; here they are not.');
  return notes;
}
