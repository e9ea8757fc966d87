/** The text of a chart as a model of what the client draws. */
import { readGraph } from './graphs.js';
import { readFrames, readLegends, readLocations } from './labels.js';
import { Markup, Reading } from './markup.js';
import type { Chart, Graph, LabelFrame, Legend, Style } from './model.js';
import { collectStyles, readCycle } from './styles.js';
import { readDomains, readEmbedded, readVariables } from './variables.js';

export interface ReadChart {
  chart: Chart;
  /** What stands in the text and was not understood, or cannot be drawn; a sentence for each. */
  notes: string[];
}

const namespace = 'http://xml.vexa.example/visualization';

/** Extension attributes that name parts of the chart; all others are free texts. */
const partName = /^(title\d|subtitle|footnote\d|legend\d+|statisticsSummary\d+|styleCycleRepository)$/;

function readParts(root: Markup): Map<string, string> {
  const parts = new Map<string, string>();
  for (const extension of root.children('extension')) {
    for (const attribute of Array.from(extension.element.attributes)) {
      if (partName.test(attribute.name)) parts.set(attribute.name, attribute.value);
    }
  }
  return parts;
}

/** Graphs, frames and legends of the page and of the containers on it. */
function readContents(root: Markup, styleOf: (id: string) => Style, notes: string[]) {
  const graphs: Graph[] = [];
  const frames: LabelFrame[] = [];
  const legends: Legend[] = [];
  const walk = (markup: Markup) => {
    graphs.push(...markup.children('graph').map((graph) => readGraph(graph, styleOf, notes)));
    frames.push(...readFrames(markup, styleOf));
    legends.push(...readLegends(markup, styleOf));
    for (const container of markup.children('container')) {
      if (container.children('location').length > 0) {
        notes.push('Places within a container are taken as places on the page.');
      }
      walk(container);
    }
  };
  walk(root);
  return { graphs, frames, legends };
}

/** Sources have their rows beside the chart, or nothing at all. */
function touchSources(root: Markup, notes: string[]): void {
  root.children('userSource');
  for (const source of root.children('databaseSource', 'delimitedFileSource', 'streamingSource')) {
    notes.push(`The data of the ${source.name} ${source.id} does not come with the chart.`);
  }
}

/** Throws an Error where the text is not well-formed or no chart. */
export function readChart(text: string, parseXml: (text: string) => Document): ReadChart {
  const element = parseXml(text).documentElement;
  if (!element || element.localName !== 'visualization') {
    throw new Error(
      `The chart text is a ${element?.localName ?? 'text without elements'}, not a visualization.`,
    );
  }
  const notes: string[] = [];
  if (element.namespaceURI && element.namespaceURI !== namespace) {
    notes.push(`The chart is in the namespace ${element.namespaceURI}, which is read as that of charts.`);
  }
  const reading = new Reading();
  const root = new Markup(element, reading);
  const styles = new Map<string, Style>();
  collectStyles(root, styles);
  const styleOf = (id: string): Style => styles.get(id) ?? {};
  const cycles = root.children('styleCycle').map((cycle) => readCycle(cycle, styles));
  const variables = readVariables(root);
  touchSources(root, notes);
  const chart: Chart = {
    description: root.reference('description'),
    language: root.reference('lang'),
    name: element.getAttribute('name') ?? '',
    pageStyle: styleOf(root.reference('style')),
    locations: readLocations(root),
    ...readContents(root, styleOf, notes),
    variables,
    domains: readDomains(root),
    styles,
    cycles: new Map(cycles.map((cycle) => [cycle.id, cycle])),
    embedded: readEmbedded(root),
    parts: readParts(root),
    controllers: root.children('swingController').map((each) => ({
      name: each.reference('function'),
      target: each.reference('target'),
    })),
  };
  return { chart, notes: [...notes, ...reading.notes, ...reading.leftovers(element)] };
}
