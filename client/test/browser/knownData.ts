import { readFileSync } from 'node:fs';

/** The data that the gallery is made of, read from its files without any part of the client. */
export type Row = Record<string, string>;

function read(name: string): Row[] {
  const [head = '', ...lines] = readFileSync(`../examples/data/${name}`, 'utf8').trim().split(/\r?\n/);
  const names = head.split(',');
  return lines.map((line) => {
    const cells = line.split(',');
    return Object.fromEntries(names.map((column, index) => [column, cells[index] ?? '']));
  });
}

export const penguins = read('penguins.csv');
export const weather = read('seattle-weather.csv');

/** Cells of a column as numbers, without those that are missing. */
export function numbers(rows: readonly Row[], column: string): number[] {
  return rows
    .map((row) => row[column] ?? '')
    .filter((cell) => cell !== '' && cell !== 'NA')
    .map(Number);
}

/** How many rows have something in each of the columns. */
export function complete(rows: readonly Row[], ...columns: string[]): number {
  return rows.filter((row) => columns.every((column) => !['', 'NA'].includes(row[column] ?? ''))).length;
}

/** How many different combinations of categories there are. */
export function combinations(rows: readonly Row[], ...columns: string[]): number {
  return new Set(
    rows
      .filter((row) => columns.every((column) => !['', 'NA'].includes(row[column] ?? '')))
      .map((row) => columns.map((column) => row[column]).join('|')),
  ).size;
}

export function groups(rows: readonly Row[], column: string): Row[][] {
  const found = new Map<string, Row[]>();
  for (const row of rows) {
    const key = row[column] ?? '';
    found.set(key, [...(found.get(key) ?? []), row]);
  }
  return [...found.values()];
}

/** How many classes of a width, counted from an anchor, have something in them. */
export function filledClasses(values: readonly number[], anchor: number, width: number): number {
  return new Set(values.map((value) => Math.floor((value - anchor) / width))).size;
}

/** Tukey's hinges: the medians of the halves, both with the median in it. */
function hinges(values: readonly number[]): [number, number] {
  const sorted = [...values].sort((a, b) => a - b);
  const half = Math.ceil(sorted.length / 2);
  return [median(sorted.slice(0, half)), median(sorted.slice(-half))];
}

function median(sorted: readonly number[]): number {
  const middle = sorted.length / 2;
  return ((sorted[Math.ceil(middle) - 1] as number) + (sorted[Math.floor(middle)] as number)) / 2;
}

/** How many values lie further from the box than one and a half of its length. */
export function outliers(values: readonly number[]): number {
  const [low, high] = hinges(values);
  const reach = 1.5 * (high - low);
  return values.filter((value) => value < low - reach || value > high + reach).length;
}
