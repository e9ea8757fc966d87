/** The variables of a chart as columns of what was received, row by row. */
import type { Chart, Format, Variable } from '../chart/model.js';
import type { Column, Received, Table } from '../received.js';
import { parseBlend, parseExpression, type BlendTerm } from './expression.js';
import { dateText, numberText, plainDateText } from './format.js';
import { withinReach, type ValueKind } from './reach.js';

export type { ValueKind };

/** The values of one variable, one for each row of its source. */
export interface Values {
  variable: Variable;
  kind: ValueKind;
  source: string;
  /** Numbers, seconds since 1970, or codes of categories; NaN is a missing value. */
  numbers: Float64Array;
  /** A value as text: relabelled, or formatted. */
  textOf(value: number, format?: Format | null): string;
}

/** The texts of a column of texts get the numbers 1, 2, 3 in the order in which they appear. */
function codesOf(column: Column): { numbers: Float64Array; texts: Map<number, string> } {
  const codes = new Map<string, number>();
  const cells = column.texts ?? [];
  const numbers = Float64Array.from(cells, (text) => {
    if (text === null) return NaN;
    let code = codes.get(text);
    if (code === undefined) codes.set(text, (code = codes.size + 1));
    return code;
  });
  return { numbers, texts: new Map([...codes].map(([text, code]) => [code, text])) };
}

/** What a host calls the numbers of the rows. */
const caseNumberColumn = '$CASENUM';

export class Data {
  private readonly tables: Map<string, Table>;
  private readonly cache = new Map<string, Values | null>();
  private readonly pending = new Set<string>();

  constructor(
    private readonly chart: Chart,
    received: Pick<Received, 'tables'>,
    private readonly notes: string[],
  ) {
    this.tables = new Map([...embeddedTables(chart), ...received.tables]);
  }

  /** Null, with a note, where the variable cannot be had. */
  values(id: string): Values | null {
    const known = this.cache.get(id);
    if (known !== undefined) return known;
    if (this.pending.has(id)) {
      this.notes.push(`The variable ${id} is computed of itself.`);
      return null;
    }
    this.pending.add(id);
    const values = this.make(id);
    this.pending.delete(id);
    this.cache.set(id, values);
    return values;
  }

  /** The measures of a blend; a single one, without a category, of any other variable. */
  terms(id: string): BlendTerm[] {
    const variable = this.chart.variables.get(id);
    if (variable?.kind !== 'expression') return [{ variable: id, category: '' }];
    const terms = parseBlend(variable.expression);
    if (!terms) this.notes.push(`The expression "${variable.expression}" is not understood.`);
    return terms ?? [];
  }

  rows(source: string): number {
    return this.tables.get(source)?.rows ?? 0;
  }

  /** How often each row of a source counts; null where each counts once. */
  weights(source: string): Float64Array | null {
    for (const variable of this.chart.variables.values()) {
      if (!variable.weight || this.sourceOf(variable) !== source) continue;
      const values = this.values(variable.id);
      if (values) return values.numbers;
    }
    return null;
  }

  private make(id: string): Values | null {
    const variable = this.chart.variables.get(id);
    if (!variable) {
      this.notes.push(`There is no variable ${id}.`);
      return null;
    }
    if (variable.kind === 'source') return this.fromColumn(variable);
    if (variable.kind === 'derived') return this.derived(variable);
    const [only, ...others] = this.terms(id);
    if (only && others.length === 0) return this.values(only.variable);
    this.notes.push(`The blend ${id} is drawn along x and y alone.`);
    return null;
  }

  private sourceOf(variable: Variable): string {
    if (variable.source) return variable.source;
    const [first] = this.tables.keys();
    return first ?? '';
  }

  private fromColumn(variable: Variable): Values | null {
    const source = this.sourceOf(variable);
    const table = this.tables.get(source);
    const column = table?.columns.get(variable.column);
    if (!column) {
      if (table && variable.column === caseNumberColumn)
        return this.caseNumbers(variable, source, table.rows);
      const what = table
        ? `a column ${variable.column} in the source ${source}`
        : `data of the source ${source}`;
      this.notes.push(`There is no ${what}, which the variable "${variable.label || variable.id}" shows.`);
      return null;
    }
    if (column.kind === 'text') {
      const { numbers, texts } = codesOf(column);
      return this.valuesOf(variable, 'category', source, numbers, texts);
    }
    return this.valuesOf(
      variable,
      this.kindOf(variable),
      source,
      column.numbers ?? new Float64Array(table!.rows),
    );
  }

  private caseNumbers(variable: Variable, source: string, rows: number): Values {
    return this.valuesOf(
      variable,
      'number',
      source,
      Float64Array.from({ length: rows }, (_, row) => row + 1),
    );
  }

  private kindOf(variable: Variable): ValueKind {
    if (variable.categorical) return 'category';
    return variable.date || this.chart.domains.get(variable.domain)?.date ? 'date' : 'number';
  }

  private derived(variable: Variable): Values | null {
    const constant = /^\s*constant\((.*)\)\s*$/s.exec(variable.expression);
    if (constant) return this.constant(variable, constant[1] ?? '');
    try {
      const expression = parseExpression(variable.expression);
      const inputs = new Map(expression.names.map((name) => [name, this.values(name)]));
      const first = [...inputs.values()].find((values) => values);
      if (!first || [...inputs.values()].some((values) => !values)) return null;
      const numbers = new Float64Array(first.numbers.length);
      for (let row = 0; row < numbers.length; row += 1) {
        numbers[row] = expression.evaluate((name) => inputs.get(name)?.numbers[row] ?? NaN);
      }
      return this.valuesOf(variable, this.kindOf(variable), first.source, numbers);
    } catch (error) {
      const reason = error instanceof Error ? error.message : String(error);
      this.notes.push(`The variable "${variable.label || variable.id}" cannot be computed: ${reason}.`);
      return null;
    }
  }

  /** One category, which stands in every row. */
  private constant(variable: Variable, text: string): Values {
    const source = this.sourceOf(variable);
    const numbers = new Float64Array(this.rows(source)).fill(1);
    return this.valuesOf(variable, 'category', source, numbers, new Map([[1, text]]));
  }

  private shown(variable: Variable, kind: ValueKind, all: Float64Array): Float64Array {
    const { numbers, beyond } = withinReach(all, kind);
    const are = beyond === 1 ? '1 value' : `${beyond.toLocaleString('en')} values`;
    const label = variable.label || variable.id;
    if (beyond > 0)
      this.notes.push(
        `${are} of ${label} ${beyond === 1 ? 'is' : 'are'} too large or infinite, as if missing.`,
      );
    return numbers;
  }

  private valuesOf(
    variable: Variable,
    kind: ValueKind,
    source: string,
    all: Float64Array,
    texts?: Map<number, string>,
  ): Values {
    const language = this.chart.language;
    const numbers = this.shown(variable, kind, all);
    const textOf = (value: number, format: Format | null = variable.format): string => {
      if (Number.isNaN(value)) return format?.errorCharacter ?? '';
      const text = texts?.get(value) ?? String(value);
      const relabelled = format?.relabels.get(text) ?? variable.format?.relabels.get(text);
      if (relabelled !== undefined) return relabelled;
      if (texts?.has(value)) return text;
      if (variable.date || kind === 'date') {
        return format?.pattern ? dateText(value, format.pattern, language) : plainDateText(value);
      }
      return numberText(value, format, language);
    };
    return { variable, kind, source, numbers, textOf };
  }
}

function embeddedTables(chart: Chart): [string, Table][] {
  return chart.embedded.map(({ id, columns, rows }) => {
    const cells = rows.map((row) => row.split(';'));
    const made = columns.map((column, at): [string, Column] => {
      const numbers = Float64Array.from(cells, (row) => {
        const cell = (row[at] ?? '').trim();
        return cell === '' ? NaN : Number(cell);
      });
      return [column, { id: column, kind: 'number', numbers }];
    });
    return [id, { source: id, rows: rows.length, columns: new Map(made) }];
  });
}
