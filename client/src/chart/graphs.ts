/** Graphs: coordinates, axes, guides and panels. */
import { elementKinds, readElement } from './elements.js';
import type { StyleOf } from './labels.js';
import { readLabel, readLocations } from './labels.js';
import type { Markup } from './markup.js';
import type {
  Axis,
  Coordinates,
  Dimension,
  Graph,
  Guide,
  PanelLayout,
  PanelNode,
  Panels,
  Scale,
  ScaleMethod,
  Style,
  Ticks,
  Transform,
} from './model.js';
import { readConditions } from './styles.js';
import { readFormat } from './variables.js';

const scaleMethods: Record<number, ScaleMethod> = {
  1: 'linear',
  2: 'log',
  3: 'power',
  4: 'symmetric log',
  5: 'symmetric power',
};

function readScale(markup: Markup | null, notes: string[]): Scale | null {
  if (!markup) return null;
  const number = markup.number('method');
  const method = number === null ? 'linear' : scaleMethods[number];
  if (!method) notes.push(`The scale method ${number} is not known; the scale is drawn as a linear one.`);
  return {
    method: method ?? 'linear',
    base: markup.number('base'),
    invert: markup.flag('invert') ?? false,
    origin: markup.text('origin'),
  };
}

function readTicks(markup: Markup | null, styleOf: StyleOf): Ticks | null {
  if (!markup) return null;
  const gridline = markup.child('gridline');
  return {
    style: styleOf(markup.reference('style')),
    markStyle: styleOf(markup.reference('markStyle')),
    frameStyle: styleOf(markup.reference('tickFrameStyle')),
    base: markup.text('base'),
    delta: markup.number('delta'),
    angle: markup.number('labelAngle'),
    frequency: markup.number('labelFrequency'),
    length: markup.length('length'),
    stagger: markup.flag('stagger') ?? false,
    format: readFormat(markup.child('format')),
    gridline: gridline && styleOf(gridline.reference('style')),
  };
}

/** Transforms of an axis by their numbers. */
const primaryAxis = 2;
const derivedAxis = 1;

function readAxis(markup: Markup, styleOf: StyleOf, notes: string[]): Axis {
  const transform = markup.number('transform') ?? primaryAxis;
  if (transform !== primaryAxis && transform !== derivedAxis) {
    notes.push(`The transform ${transform} of an axis is not known; it is drawn as a primary one.`);
  }
  return {
    style: styleOf(markup.reference('style')),
    label: readLabel(markup.child('label'), styleOf),
    ticks: readTicks(markup.child('majorTicks'), styleOf),
    opposite: markup.flag('opposite'),
    derived: transform === derivedAxis,
    repeat: markup.number('repeat'),
    combineLabels: markup.flag('combineAxisLabels'),
  };
}

function readDimension(markup: Markup, styleOf: StyleOf, notes: string[]): Dimension {
  return {
    axes: markup.children('axis').map((axis) => readAxis(axis, styleOf, notes)),
    scale: readScale(markup.child('scale'), notes),
    domain: markup.reference('domain'),
    clusterVariable: markup.reference('clusterVariable'),
    clusterGap: markup.length('clusterGap'),
    lowerMargin: markup.length('lowerMargin'),
    upperMargin: markup.length('upperMargin'),
    unionDomain: markup.flag('unionDomain'),
    niceLower: markup.flag('niceLowerMapping'),
    niceUpper: markup.flag('niceUpperMapping'),
  };
}

const transformNames = [
  'transposeTransform',
  'polarTransform',
  'reflectionTransform',
  'sameRatioTransform',
  'rectangularTransform',
];

function readTransform(markup: Markup): Transform {
  switch (markup.name) {
    case 'transposeTransform':
      return { kind: 'transpose' };
    case 'polarTransform':
      return { kind: 'polar' };
    case 'reflectionTransform':
      return {
        kind: 'reflect',
        dimension: markup.number('dimension') ?? 0,
        alternating: markup.flag('alternating') ?? false,
      };
    case 'sameRatioTransform':
      return { kind: 'sameRatio', center: markup.flag('center') ?? false };
    default:
      for (const angle of ['distance', 'phi', 'theta', 'zeta']) markup.number(angle);
      return { kind: 'view' };
  }
}

function readCoordinates(graph: Markup, styleOf: StyleOf, notes: string[]): Coordinates[] {
  const byId = new Map<string, Dimension>();
  const references: { coordinates: Coordinates; at: number; target: string }[] = [];
  const all = graph.children('coordinates').map((markup) => {
    const coordinates: Coordinates = {
      id: markup.id,
      dimensions: [],
      transforms: markup.children(...transformNames).map(readTransform),
    };
    markup.children('dimension', 'dimensionReference').forEach((child, at) => {
      const dimension = readDimension(child, styleOf, notes);
      coordinates.dimensions.push(dimension);
      if (child.name === 'dimension') byId.set(child.id, dimension);
      else references.push({ coordinates, at, target: child.reference('ref') });
    });
    return coordinates;
  });
  for (const { coordinates, at, target } of references) {
    const dimension = byId.get(target);
    if (dimension) coordinates.dimensions[at] = dimension;
    else notes.push(`The dimension ${target} that coordinates refer to is not there.`);
  }
  return all;
}

const guideKinds: Record<string, Guide['kind']> = {
  lineGuide: 'line',
  functionGuide: 'function',
  planeGuide: 'plane',
  frameGuide: 'frame',
};

function readGuide(markup: Markup, styleOf: StyleOf): Guide {
  markup.number('normal');
  markup.flag('complete');
  return {
    kind: guideKinds[markup.name] ?? 'line',
    id: markup.id,
    name: markup.element.getAttribute('name') ?? '',
    style: styleOf(markup.reference('style')),
    conditions: readConditions(markup, styleOf),
    x: markup.text('x'),
    y: markup.text('y'),
    value: markup.text('value'),
  };
}

function readPanelNode(markup: Markup): PanelNode {
  if (markup.name === 'unity') return { kind: 'unity' };
  if (markup.name === 'variableReference') return { kind: 'variable', variable: markup.reference('ref') };
  const children = markup.children('cross', 'nest', 'unity', 'variableReference').map(readPanelNode);
  return { kind: markup.name === 'nest' ? 'nest' : 'cross', children };
}

function readPanels(markup: Markup | null): Panels | null {
  if (!markup) return null;
  const method = markup.reference('method');
  return { method, root: { kind: 'cross', children: markup.children('cross').map(readPanelNode) } };
}

function readLayout(markup: Markup | null, styleOf: StyleOf, notes: string[]): PanelLayout | null {
  if (!markup) return null;
  const method = markup.number('method');
  if (method !== null && method !== 1) notes.push(`The method ${method} of a panel layout is not known.`);
  const levels = markup.children('facetLevel').map((level, at) => {
    const axis = level.child('axis');
    return {
      level: level.number('level') ?? at + 1,
      gap: level.length('gap'),
      axis: axis && readAxis(axis, styleOf, notes),
    };
  });
  const cellStyles = markup.children('setCellProperties').map((cell): Style => {
    const frames = cell.children('setFrameStyle').map((frame) => styleOf(frame.reference('style')));
    return Object.assign({}, ...frames) as Style;
  });
  return {
    aspect: markup.number('cellAspect'),
    topDown: markup.flag('topDown') ?? true,
    levels,
    cellStyles,
  };
}

export function readGraph(markup: Markup, styleOf: StyleOf, notes: string[]): Graph {
  return {
    id: markup.id,
    locations: readLocations(markup),
    cellStyle: styleOf(markup.reference('cellStyle')),
    coordinates: readCoordinates(markup, styleOf, notes),
    elements: markup.children(...elementKinds).map((element) => readElement(element, styleOf)),
    guides: markup.children(...Object.keys(guideKinds)).map((guide) => readGuide(guide, styleOf)),
    panels: readPanels(markup.child('faceting')),
    layout: readLayout(markup.child('facetLayout'), styleOf, notes),
  };
}
