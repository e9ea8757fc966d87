/** Elements of a graph: what they show, by which statistics, and how it looks. */
import type { Markup } from './markup.js';
import { numberOf } from './markup.js';
import type { StyleOf } from './labels.js';
import type { Aesthetic, AestheticKind, BinStatistic, ChartElement, ElementKind, Labeling } from './model.js';
import { readConditions } from './styles.js';
import { readFormat } from './variables.js';

export const elementKinds: ElementKind[] = [
  'point',
  'line',
  'path',
  'interval',
  'area',
  'schema',
  'edge',
  'polygon',
];

const aestheticKinds: AestheticKind[] = [
  'color',
  'shape',
  'pattern',
  'dash',
  'size',
  'transparency',
  'styleBy',
];

/** Augmenting fills a statistic up with empty places; this client always shows what there is. */
function readBins(markup: Markup | null): BinStatistic | null {
  if (!markup) return null;
  // Settings stand once for each direction; only the first is used. A d behind a number is its kind.
  const first = (name: string) =>
    numberOf((markup.text(name) ?? '').split(';')[0]?.replace(/d$/, '') ?? null);
  return {
    count: first('binCount'),
    start: first('binStart'),
    width: first('binWidth'),
    dots: markup.number('gridType') === 1,
  };
}

function readMappings(markup: Markup): Map<string, string> {
  const mappings = markup.children('colorMapping', 'symbolMapping');
  return new Map(mappings.map((each) => [each.reference('from'), each.reference('to')]));
}

function readAesthetic(markup: Markup): Aesthetic {
  const kind = markup.name as AestheticKind;
  const ranged = kind === 'size' || kind === 'transparency';
  return {
    kind,
    id: markup.id,
    variable: markup.reference('variable'),
    domain: markup.reference('domain'),
    cycle: ranged ? '' : markup.reference(kind === 'styleBy' ? 'styleCycle' : 'cycle'),
    mappings: readMappings(markup),
    low: ranged ? markup.text('low') : null,
    high: ranged ? markup.text('high') : null,
  };
}

function readLabeling(markup: Markup, styleOf: StyleOf): Labeling {
  return {
    variable: markup.reference('variable'),
    dimension: markup.number('dimension') ?? 0,
    style: styleOf(markup.reference('style')),
    frameStyle: styleOf(markup.reference('textFrameStyle')),
    connectingLines: markup.flag('connectingLines') ?? false,
    format: readFormat(markup.child('format')),
  };
}

const variablesOf = (markup: Markup, direction: string) =>
  markup.children(direction).map((each) => each.reference('variable'));

function readParts(markup: Markup, styleOf: StyleOf): ChartElement['parts'] {
  const part = (name: string) => (markup.name === 'schema' ? styleOf(markup.reference(name)) : {});
  return {
    extreme: part('extremeStyle'),
    fence: part('fenceStyle'),
    hinge: part('hingeStyle'),
    median: part('medianStyle'),
    outlier: part('outlierStyle'),
  };
}

/** Programs that have no name for an element give its id: that says nothing to a reader. */
function nameOf(markup: Markup): string {
  const name = markup.reference('name');
  return name === markup.id ? '' : name;
}

export function readElement(markup: Markup, styleOf: StyleOf): ChartElement {
  const summary = markup.child('summaryStatistic');
  return {
    kind: markup.name as ElementKind,
    id: markup.id,
    name: nameOf(markup),
    style: styleOf(markup.reference('style')),
    parts: readParts(markup, styleOf),
    coordinates: markup.reference('coordinates'),
    x: variablesOf(markup, 'x'),
    y: variablesOf(markup, 'y'),
    z: variablesOf(markup, 'z'),
    aesthetics: markup.children(...aestheticKinds).map(readAesthetic),
    labeling: markup.children('labeling').map((each) => readLabeling(each, styleOf)),
    conditions: readConditions(markup, styleOf),
    modifier: markup.number('positionModifier'),
    bins: readBins(markup.child('binStatistic')),
    summary: summary?.number('method') ?? null,
    density: markup.child('distributionStatistic') !== null,
    tukey: markup.child('tukeyStatistic') !== null,
    showCollidingLabels: markup.flag('showCollidingLabels') ?? false,
    collisions: markup.number('labelCollisionHandling'),
    dot: markup.flag('dot') ?? false,
  };
}
