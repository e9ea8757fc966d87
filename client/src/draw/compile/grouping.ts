/** Groups of an element's rows: what varies its look by categories, and the look of each group. */
import type { Aesthetic, Chart, ChartElement, Style } from '../../chart/model.js';
import { categoriesOf, type Category } from '../../data/categories.js';
import type { Data, Values } from '../../data/columns.js';
import { groupColors, groupDashes, groupPatterns, groupSymbols } from '../svg/colors.js';
import type { Direction } from './directions.js';
import { styled, type Look, type LookKind } from './looks.js';

/** A variable that makes groups, and the aesthetics that show it. */
export interface GroupVariable {
  values: Values;
  categories: Category[];
  aesthetics: Aesthetic[];
}

export interface Group {
  /** A category for each variable of the grouping. */
  categories: Category[];
  /** What these are categories of. */
  variables: Values[];
  look: Look;
  /** Its texts, such as "Adelie, male". */
  name: string;
}

/** What an aesthetic varies; that of a styleBy is in the extension of its cycle. */
export function aestheticOf(aesthetic: Aesthetic, chart: Chart): string {
  if (aesthetic.kind !== 'styleBy') return aesthetic.kind;
  return chart.cycles.get(aesthetic.cycle)?.aesthetic || 'color';
}

/** Whether the values of the variable make groups, and not a range. */
export function isGrouping(aesthetic: Aesthetic, values: Values, chart: Chart): boolean {
  if (aesthetic.kind === 'size' || aesthetic.kind === 'transparency') return false;
  if (aesthetic.kind === 'styleBy' || values.kind === 'category' || aesthetic.mappings.size > 0) return true;
  return aesthetic.kind !== 'color' || chart.domains.get(aesthetic.domain)?.categorical === true;
}

const points = (value: number) => ({ value, unit: 'pt' as const });

/** The client's own cycles. */
const ownCycles: Record<string, Style[]> = {
  color: groupColors.map((color) => ({ color })),
  shape: groupSymbols.map((symbol) => ({ symbol })),
  pattern: groupPatterns.map((pattern) => ({ pattern })),
  dash: groupDashes.map((dashes) => ({ dashes: dashes.map(points) })),
};

const says: Record<string, (style: Style) => boolean> = {
  color: (style) => style.color !== undefined,
  shape: (style) => style.symbol !== undefined,
  pattern: (style) => style.pattern !== undefined,
  dash: (style) => style.dashes !== undefined,
};

/** The styles of the chart's cycle; of the repository where it has none; the client's own at last. */
export function cycleOf(aesthetic: Aesthetic, chart: Chart): Style[] {
  const kind = aestheticOf(aesthetic, chart);
  const own = chart.cycles.get(aesthetic.cycle)?.cycles.flatMap((cycle) => cycle.styles) ?? [];
  if (own.some((style) => (says[kind] ?? (() => true))(style))) return own;
  const repository = chart.cycles.get(chart.parts.get('styleCycleRepository') ?? 'styleCycleRepository');
  const named = repository?.cycles.find(
    (cycle) => cycle.id === aesthetic.cycle || cycle.id === `cycle_${kind}`,
  );
  if (named?.styles.some((style) => (says[kind] ?? (() => true))(style))) return named.styles;
  return ownCycles[kind] ?? ownCycles['color']!;
}

const mapped: Record<string, (text: string) => Style> = {
  color: (color) => ({ color }),
  shape: (symbol) => ({ symbol }),
};

/** What the chart says of a single value. */
export function mappingOf(aesthetic: Aesthetic, category: Category): string | undefined {
  return aesthetic.mappings.get(String(category.code)) ?? aesthetic.mappings.get(category.text);
}

/** The style that an aesthetic gives the category at `at`. */
function categoryStyle(aesthetic: Aesthetic, category: Category, at: number, chart: Chart): Style {
  const mapping = mappingOf(aesthetic, category);
  const cycle = cycleOf(aesthetic, chart);
  const style = cycle[at % cycle.length] ?? {};
  return mapping === undefined ? style : { ...style, ...mapped[aesthetic.kind]?.(mapping) };
}

/** The look of an element where it shows these categories. */
export function lookOf(
  own: Look,
  kind: LookKind,
  variables: GroupVariable[],
  categories: Category[],
  chart: Chart,
): Look {
  let look = own;
  variables.forEach((variable, at) => {
    const category = categories[at];
    if (!category) return;
    const number = variable.categories.indexOf(category);
    for (const aesthetic of variable.aesthetics) {
      look = styled(look, categoryStyle(aesthetic, category, number, chart), kind);
    }
  });
  return look;
}

export class Grouping {
  private readonly indexes: Map<number, number>[];
  private readonly sizes: number[];

  constructor(readonly variables: GroupVariable[]) {
    this.indexes = variables.map(({ categories }) => new Map(categories.map(({ code }, at) => [code, at])));
    this.sizes = variables.map(({ categories }) => Math.max(1, categories.length));
  }

  /** The number of the row's group; -1 where the row has no place in any. */
  keyOf(row: number): number {
    let key = 0;
    for (let at = 0; at < this.variables.length; at += 1) {
      const index = this.indexes[at]!.get(this.variables[at]!.values.numbers[row]!);
      if (index === undefined) return -1;
      key = key * this.sizes[at]! + index;
    }
    return key;
  }

  categoriesOf(key: number): Category[] {
    const categories: Category[] = [];
    for (let at = this.variables.length - 1; at >= 0; at -= 1) {
      const size = this.sizes[at]!;
      categories.unshift(this.variables[at]!.categories[key % size]!);
      key = Math.floor(key / size);
    }
    return categories;
  }
}

/** The variables that make groups of an element's rows; the one that clusters are made of comes last. */
export function groupingOf(
  element: ChartElement,
  chart: Chart,
  data: Data,
  cluster: Direction['cluster'],
): Grouping {
  const variables: GroupVariable[] = [];
  for (const aesthetic of element.aesthetics) {
    const values = data.values(aesthetic.variable);
    if (!values || !isGrouping(aesthetic, values, chart)) continue;
    const known = variables.find((variable) => variable.values === values);
    if (known) known.aesthetics.push(aesthetic);
    else
      variables.push({
        values,
        categories: categoriesOf(chart, values, aesthetic.domain),
        aesthetics: [aesthetic],
      });
  }
  if (cluster && !variables.some((variable) => variable.values === cluster.values)) {
    variables.push({ values: cluster.values, categories: cluster.categories, aesthetics: [] });
  }
  return new Grouping(variables);
}
