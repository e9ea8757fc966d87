/**
 * Expressions in numbers and names, such as `log(mass) / 2`. They are read into functions of this module;
 * nothing of a chart is ever run as a program.
 */

export interface Expression {
  /** The names in it, each once. */
  names: string[];
  evaluate(valueOf: (name: string) => number): number;
}

type Evaluate = (valueOf: (name: string) => number) => number;

const functions: Record<string, (...values: number[]) => number> = {
  abs: Math.abs,
  ceiling: Math.ceil,
  cos: Math.cos,
  exp: Math.exp,
  floor: Math.floor,
  log: Math.log,
  log10: Math.log10,
  max: Math.max,
  min: Math.min,
  round: Math.round,
  sin: Math.sin,
  sqrt: Math.sqrt,
  tan: Math.tan,
};

const deepest = 200;
const token =
  /\s*(?:(\d+\.?\d*(?:[eE][-+]?\d+)?|\.\d+(?:[eE][-+]?\d+)?)|([\p{L}_$][\p{L}\p{N}_.$]*)|([-+*/^(),]))/uy;

function tokensOf(text: string): string[] {
  const tokens: string[] = [];
  token.lastIndex = 0;
  const trimmed = text.trimEnd();
  while (token.lastIndex < trimmed.length) {
    const at = token.lastIndex;
    const found = token.exec(trimmed);
    if (!found) throw new Error(`"${trimmed.slice(at, at + 10)}" is no part of an expression`);
    tokens.push(found[1] ?? found[2] ?? found[3] ?? '');
  }
  return tokens;
}

/** Reads sums of products of powers; powers bind to the right. */
class Parser {
  readonly names = new Set<string>();
  private at = 0;
  private depth = 0;

  constructor(private readonly tokens: string[]) {}

  whole(): Evaluate {
    const result = this.sum();
    if (this.at < this.tokens.length) throw new Error(`"${this.tokens[this.at]}" stands where nothing may`);
    return result;
  }

  private take(...wanted: string[]): string | null {
    const next = this.tokens[this.at];
    if (next === undefined || !wanted.includes(next)) return null;
    this.at += 1;
    return next;
  }

  private sum(): Evaluate {
    if (++this.depth > deepest) throw new Error('the expression is too deep');
    let left = this.product();
    for (let sign = this.take('+', '-'); sign; sign = this.take('+', '-')) {
      const [first, second] = [left, this.product()];
      left = sign === '+' ? (of) => first(of) + second(of) : (of) => first(of) - second(of);
    }
    this.depth -= 1;
    return left;
  }

  private product(): Evaluate {
    let left = this.signed();
    for (let sign = this.take('*', '/'); sign; sign = this.take('*', '/')) {
      const [first, second] = [left, this.signed()];
      left = sign === '*' ? (of) => first(of) * second(of) : (of) => first(of) / second(of);
    }
    return left;
  }

  private signed(): Evaluate {
    let negative = false;
    for (let sign = this.take('-', '+'); sign; sign = this.take('-', '+'))
      negative = negative !== (sign === '-');
    const value = this.power();
    return negative ? (of) => -value(of) : value;
  }

  private power(): Evaluate {
    const base = this.primary();
    if (!this.take('^')) return base;
    if (++this.depth > deepest) throw new Error('the expression is too deep');
    const exponent = this.signed();
    this.depth -= 1;
    return (of) => Math.pow(base(of), exponent(of));
  }

  private primary(): Evaluate {
    const next = this.tokens[this.at++];
    if (next === undefined) throw new Error('the expression ends too early');
    if (next === '(') return this.closed(this.sum());
    if (/^[\d.]/.test(next)) {
      const value = Number(next);
      return () => value;
    }
    if (!/^[\p{L}_$]/u.test(next)) throw new Error(`"${next}" stands where a value has to`);
    if (this.take('(')) return this.call(next);
    this.names.add(next);
    return (of) => of(next);
  }

  private call(name: string): Evaluate {
    const apply = Object.hasOwn(functions, name) ? functions[name] : undefined;
    if (!apply) throw new Error(`the function ${name} is not known`);
    const values = [this.sum()];
    while (this.take(',')) values.push(this.sum());
    return this.closed((of) => apply(...values.map((value) => value(of))));
  }

  private closed(value: Evaluate): Evaluate {
    if (!this.take(')')) throw new Error('a parenthesis is not closed');
    return value;
  }
}

/** Throws an Error that says what is wrong. */
export function parseExpression(text: string): Expression {
  const parser = new Parser(tokensOf(text));
  const evaluate = parser.whole();
  return { names: [...parser.names], evaluate };
}

/** One measure of a blend, and the variable that names its panel; empty where it has none. */
export interface BlendTerm {
  variable: string;
  category: string;
}

/** Algebra: `a/b + c/d` is a within the category b, beside c within d. Null for what is none. */
export function parseBlend(text: string): BlendTerm[] | null {
  const terms = text.split('+').map((term) => term.split('/').map((name) => name.trim()));
  const fits = terms.every((term) => term.length <= 2 && term.every((name) => /^[^\s*()^-]+$/.test(name)));
  return fits ? terms.map(([variable = '', category = '']) => ({ variable, category })) : null;
}
