/** Variables, their formats and domains, and sources that have their rows with them. */
import type { Markup } from './markup.js';
import type { Domain, EmbeddedSource, Format, Variable, VariableKind } from './model.js';

export function readFormat(markup: Markup | null): Format | null {
  if (!markup) return null;
  const relabels = new Map<string, string>();
  for (const relabel of markup.children('relabel')) {
    const from = relabel.reference('from');
    const to = relabel.reference('to');
    if (!relabels.has(from)) relabels.set(from, to);
  }
  return {
    errorCharacter: markup.text('errorCharacter'),
    maximumFractionDigits: markup.number('maximumFractionDigits'),
    minimumFractionDigits: markup.number('minimumFractionDigits'),
    pattern: markup.text('pattern'),
    prefix: markup.reference('prefix'),
    suffix: markup.reference('suffix'),
    grouping: markup.flag('useGrouping'),
    relabels,
  };
}

/** A pattern of dates or times: it has none of the signs that stand for digits. */
function isDatePattern(pattern: string | null): boolean {
  return pattern !== null && !/[#0]/.test(pattern) && /[yMdHhmsE]/.test(pattern.replace(/'[^']*'/g, ''));
}

function readVariable(markup: Markup, kind: VariableKind): Variable {
  const format = readFormat(markup.child('format'));
  const inputPattern = markup.text('inputDateFormatPattern');
  markup.text('description');
  const key = markup.flag('key');
  const label = markup.reference('label');
  const shortLabel = markup.reference('shortLabel');
  const column = kind === 'source' ? markup.reference('sourceName') : '';
  void key;
  return {
    id: markup.id,
    kind,
    label: label || shortLabel || column,
    categorical: markup.flag('categorical') ?? false,
    weight: markup.flag('weight') ?? false,
    source: markup.reference('source'),
    column,
    expression:
      kind === 'derived'
        ? markup.reference('value')
        : kind === 'expression'
          ? markup.reference('expression')
          : '',
    domain: markup.reference('domain'),
    date: inputPattern !== null || isDatePattern(format?.pattern ?? null),
    groupedMidpoints: markup.child('extension')?.flag('valuesAreGroupedMidpoints') ?? false,
    format,
  };
}

export function readVariables(root: Markup): Map<string, Variable> {
  const kinds: [string, VariableKind][] = [
    ['sourceVariable', 'source'],
    ['derivedVariable', 'derived'],
    ['expressionVariable', 'expression'],
  ];
  const variables = new Map<string, Variable>();
  for (const [name, kind] of kinds) {
    for (const markup of root.children(name)) {
      const variable = readVariable(markup, kind);
      if (variable.id && !variables.has(variable.id)) variables.set(variable.id, variable);
    }
  }
  return variables;
}

/** A list of categories: texts separated by ";". */
function listOf(text: string): string[] {
  return text
    .split(';')
    .map((part) => part.trim())
    .filter((part) => part !== '');
}

function readDomain(markup: Markup): Domain {
  const range = markup.child('range');
  const sort = markup.child('simpleSort');
  const categories = markup.children('categories').map((each) => ({
    removed: each.flag('remove') ?? false,
    names: listOf(each.content()),
  }));
  const shown = categories.filter((each) => !each.removed).flatMap((each) => each.names);
  return {
    id: markup.id,
    categorical: markup.name === 'categoricalDomain',
    date: markup.flag('date') ?? false,
    variables: markup.children('variableReference').map((each) => each.reference('ref')),
    format: readFormat(markup.child('format')),
    minimum: range?.text('min') ?? null,
    maximum: range?.text('max') ?? null,
    exact: range?.flag('exact') ?? false,
    sort: sort && {
      method: sort.number('method'),
      descending: sort.flag('descending') ?? false,
      order: sort.children('categoryOrder').flatMap((each) => listOf(each.content())),
    },
    only: categories.some((each) => !each.removed) ? shown : null,
    removed: categories.filter((each) => each.removed).flatMap((each) => each.names),
  };
}

export function readDomains(root: Markup): Map<string, Domain> {
  const domains = new Map<string, Domain>();
  for (const markup of root.children('intervalDomain', 'categoricalDomain')) {
    const domain = readDomain(markup);
    if (domain.id && !domains.has(domain.id)) domains.set(domain.id, domain);
  }
  return domains;
}

export function readEmbedded(root: Markup): EmbeddedSource[] {
  return root.children('embeddedSource').map((markup) => ({
    id: markup.id,
    columns: markup.children('column').map((column) => column.reference('name')),
    rows: markup
      .children('data')
      .flatMap((data) => data.content().split('\n'))
      .filter((row) => row.trim() !== ''),
  }));
}
