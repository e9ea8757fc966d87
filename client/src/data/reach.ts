/** Numbers so large that there would be no room for axes around them are as good as missing. */

export type ValueKind = 'number' | 'date' | 'category';

/** Dates, in seconds since 1970, are those that calendars of browsers have. */
const farthest: Record<ValueKind, number> = { number: 1e305, date: 8e12, category: Number.MAX_VALUE };

export const isWithinReach = (value: number, kind: ValueKind) => Math.abs(value) <= farthest[kind];

/** The values with missing ones in place of those that are too large or infinite, and how many these are. */
export function withinReach(
  numbers: Float64Array,
  kind: ValueKind,
): { numbers: Float64Array; beyond: number } {
  const isBeyond = (value: number) => Math.abs(value) > farthest[kind];
  let beyond = 0;
  for (const value of numbers) if (isBeyond(value)) beyond += 1;
  if (beyond === 0) return { numbers, beyond };
  return { numbers: numbers.map((value) => (isBeyond(value) ? NaN : value)), beyond };
}
