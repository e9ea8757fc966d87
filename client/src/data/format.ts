/** Values as text: numbers with decimals, grouping, prefix and suffix; dates by patterns; relabels. */
import type { Format } from '../chart/model.js';
import { isWithinReach } from './reach.js';

const minus = '\u2212';

/** How many decimals a number needs, up to `most`, if it may be wrong by `slack`. */
export function decimalsOf(value: number, most = 10, slack = 0): number {
  const tolerance = Math.max(slack, Math.abs(value) * 1e-9);
  for (let decimals = 0; decimals < most; decimals += 1) {
    const factor = 10 ** decimals;
    if (Math.abs(Math.round(value * factor) / factor - value) <= tolerance) return decimals;
  }
  return most;
}

/** The parts of a pattern of numbers, such as `#,##0.00 %`. Null where it is none. */
function numberPattern(pattern: string) {
  const found = /^([^#0,.]*)([#0,]*)(?:\.([0#]*))?([^#0,.]*)$/.exec(
    (pattern.split(';')[0] ?? '').replace(/'/g, ''),
  );
  if (!found || !/[#0]/.test(pattern)) return null;
  const [, prefix = '', whole = '', fraction = '', suffix = ''] = found;
  return {
    prefix,
    suffix,
    grouping: whole.includes(','),
    least: fraction.replace(/#/g, '').length,
    most: fraction.length,
    percent: (prefix + suffix).includes('%'),
  };
}

const formatters = new Map<string, Intl.NumberFormat>();

/** Formats of a language are costly to make. */
function formatter(language: string, options: Intl.NumberFormatOptions): Intl.NumberFormat {
  const key = language + JSON.stringify(options);
  let made = formatters.get(key);
  if (!made) {
    try {
      made = new Intl.NumberFormat(language || 'en-US', options);
    } catch {
      made = new Intl.NumberFormat('en-US', options);
    }
    formatters.set(key, made);
  }
  return made;
}

const clampDigits = (digits: number) => Math.max(0, Math.min(20, Math.round(digits)));

function scientific(value: number, most: number): string {
  const mantissa = Number(value.toExponential(13).split('e')[0]);
  return value.toExponential(decimalsOf(mantissa, most)).replace('e+', 'e');
}

/** The most decimals that a format leaves to a number; null where it does not say. */
export function mostDecimals(format: Format | null): number | null {
  const pattern = format?.pattern ? numberPattern(format.pattern) : null;
  const most = format?.maximumFractionDigits ?? pattern?.most ?? null;
  return most === null ? null : most + (pattern?.percent ? 2 : 0);
}

/** How often a number is shown: a hundred times by patterns of percents. */
export function shownFactor(format: Format | null): number {
  return format?.pattern && numberPattern(format.pattern)?.percent ? 100 : 1;
}

/** A format that asks for nothing. */
export const noFormat: Format = {
  errorCharacter: null,
  maximumFractionDigits: null,
  minimumFractionDigits: null,
  pattern: null,
  prefix: '',
  suffix: '',
  grouping: null,
  relabels: new Map(),
};

/** From here on digits stand in groups: four of them are read as they are. */
const leastGrouped = 10_000;

/** The format with groups of three digits where any of the values needs them, unless it says how numbers are grouped. */
export function withGroups(format: Format | null, values: number[]): Format | null {
  if (!values.some((value) => Math.abs(value) >= leastGrouped)) return format;
  const own = format ?? noFormat;
  return own.grouping !== null || own.pattern ? own : { ...own, grouping: true };
}

/** The format with exactly so many decimals, whatever it says of them. */
export function withDecimals(format: Format | null, decimals: number): Format {
  const digits = clampDigits(decimals);
  return { ...(format ?? noFormat), minimumFractionDigits: digits, maximumFractionDigits: digits };
}

/** The format without a word on decimals; only percents, which are shown a hundredfold, then have so many. */
export function withoutDecimals(format: Format, decimals: number): Format {
  const pattern = format.pattern ? numberPattern(format.pattern) : null;
  if (pattern?.percent) return withDecimals(format, Math.max(0, decimals - 2));
  return {
    ...format,
    maximumFractionDigits: null,
    minimumFractionDigits: null,
    pattern: null,
    prefix: format.prefix + (pattern?.prefix ?? ''),
    suffix: (pattern?.suffix ?? '') + format.suffix,
    grouping: format.grouping ?? pattern?.grouping ?? null,
  };
}

/** As many decimals for all numbers as they need, as far as their format and `most` let them have these. */
export function commonDecimals(values: number[], format: Format | null, most: number): number {
  const pattern = format?.pattern ? numberPattern(format.pattern) : null;
  const factor = shownFactor(format);
  const needed = values.reduce((digits, value) => Math.max(digits, decimalsOf(value * factor, most)), 0);
  const highest = format?.maximumFractionDigits ?? pattern?.most ?? Infinity;
  const lowest = format?.minimumFractionDigits ?? pattern?.least ?? 0;
  return Math.min(highest, Math.max(lowest, needed));
}

/** From here on digits are too many to be read. */
const leastHuge = 1e15;
const leastHugeTick = 1e12;
const leastPlain = 1e-6;

function isHuge(shown: number, free: boolean): boolean {
  return Math.abs(shown) >= leastHuge || (free && shown !== 0 && Math.abs(shown) < leastPlain);
}

/** Whether numbers beside each other are shown with exponents, which they then all are but for 0. */
export function needExponents(values: number[], format: Format | null): boolean {
  const factor = shownFactor(format);
  const most = mostDecimals(format);
  const plain = !format?.pattern && format?.grouping !== true;
  return values.some((value) => {
    const shown = Math.abs(value * factor);
    const tiny = (most === null || (plain && most > 6)) && shown !== 0 && shown < leastPlain;
    return tiny || shown >= (plain ? leastHugeTick : leastHuge);
  });
}

/** The number that a reader takes from the text of a value at a tick. */
export function readNumber(
  value: number,
  format: Format | null,
  decimals: number,
  exponents: boolean,
): number {
  if (exponents) return Number(scientific(value, mostOfMantissa));
  const most = mostDecimals(format) ?? Math.max(decimals, format?.minimumFractionDigits ?? 0);
  return Number(value.toFixed(clampDigits(most)));
}

const superscripts = '\u2070\u00b9\u00b2\u00b3\u2074\u2075\u2076\u2077\u2078\u2079';

/** A power as such, with what the format has before and behind it. */
export function powerText(base: number, exponent: number, format: Format | null): string {
  const digits = Array.from(String(Math.abs(exponent)), (digit) => superscripts[Number(digit)]).join('');
  return `${format?.prefix ?? ''}${base}${exponent < 0 ? '\u207b' : ''}${digits}${format?.suffix ?? ''}`;
}

const mostOfMantissa = 12;

/**
 * `decimals` is what a number gets where its format does not say; by default as many as it needs, up to 6. With
 * exponents, which numbers from 1e15 on always have unless `exponents` says, it then has all of its digits, and else 3
 * of them.
 */
export function numberText(
  value: number,
  format: Format | null,
  language: string,
  decimals?: number,
  exponents?: boolean,
): string {
  if (Number.isNaN(value)) return format?.errorCharacter ?? '';
  if (!Number.isFinite(value)) return value > 0 ? '\u221e' : minus + '\u221e';
  const pattern = format?.pattern ? numberPattern(format.pattern) : null;
  const wanted = decimals ?? decimalsOf(value, 6);
  const most =
    format?.maximumFractionDigits ?? pattern?.most ?? Math.max(wanted, format?.minimumFractionDigits ?? 0);
  const least = Math.min(
    format?.minimumFractionDigits ?? pattern?.least ?? Math.min(decimals ?? 0, most),
    most,
  );
  const shown = pattern?.percent ? value * 100 : value;
  const huge = exponents ?? isHuge(shown, format?.maximumFractionDigits == null && !pattern);
  const digits = huge
    ? scientific(shown, decimals === undefined ? 3 : mostOfMantissa)
    : formatter(language, {
        useGrouping: format?.grouping ?? pattern?.grouping ?? false,
        minimumFractionDigits: clampDigits(least),
        maximumFractionDigits: clampDigits(most),
      }).format(shown);
  const signed = digits.replace(/^-/, /^-[0.,]*$/.test(digits) ? '' : minus);
  return `${format?.prefix ?? ''}${pattern?.prefix ?? ''}${signed}${pattern?.suffix ?? ''}${format?.suffix ?? ''}`;
}

const two = (value: number, width = 2) => String(value).padStart(width, '0');

function named(date: Date, language: string, options: Intl.DateTimeFormatOptions): string {
  const all = { ...options, timeZone: 'UTC' };
  try {
    return new Intl.DateTimeFormat(language || 'en-US', all).format(date);
  } catch {
    return new Intl.DateTimeFormat('en-US', all).format(date);
  }
}

function month(date: Date, count: number, language: string): string {
  if (count <= 2) return two(date.getUTCMonth() + 1, count);
  return named(date, language, { month: count === 3 ? 'short' : 'long' });
}

function dayOfYear(date: Date): number {
  return Math.floor((date.getTime() - Date.UTC(date.getUTCFullYear(), 0, 1)) / 86_400_000) + 1;
}

/** The week of ISO 8601. */
function weekOfYear(date: Date): number {
  const thursday = new Date(date.getTime());
  thursday.setUTCDate(date.getUTCDate() + 3 - ((date.getUTCDay() + 6) % 7));
  return Math.floor((dayOfYear(thursday) - 1) / 7) + 1;
}

const fields: Record<string, (date: Date, count: number, language: string) => string> = {
  y: (date, count) => (count === 2 ? two(date.getUTCFullYear() % 100) : two(date.getUTCFullYear(), count)),
  M: month,
  L: month,
  d: (date, count) => two(date.getUTCDate(), count),
  D: (date, count) => two(dayOfYear(date), count),
  w: (date, count) => two(weekOfYear(date), count),
  q: (date, count) => two(Math.floor(date.getUTCMonth() / 3) + 1, count > 2 ? 1 : count),
  Q: (date, count) => two(Math.floor(date.getUTCMonth() / 3) + 1, count > 2 ? 1 : count),
  E: (date, count, language) => named(date, language, { weekday: count > 3 ? 'long' : 'short' }),
  H: (date, count) => two(date.getUTCHours(), count),
  h: (date, count) => two(date.getUTCHours() % 12 || 12, count),
  m: (date, count) => two(date.getUTCMinutes(), count),
  s: (date, count) => two(date.getUTCSeconds(), count),
  S: (date, count) => two(date.getUTCMilliseconds(), 3).slice(0, count),
  a: (date) => (date.getUTCHours() < 12 ? 'AM' : 'PM'),
};

/** A date by a pattern such as `dd.MM.yyyy`; texts stand in single quotes. */
export function dateText(seconds: number, pattern: string, language: string): string {
  const date = new Date(seconds * 1000);
  if (Number.isNaN(date.getTime())) return '';
  return pattern.replace(
    /'((?:[^']|'')*)'|([A-Za-z])\2*/g,
    (all, quoted: string | undefined, letter?: string) => {
      if (quoted !== undefined) return quoted === '' ? "'" : quoted.replace(/''/g, "'");
      const field = letter && fields[letter];
      return field ? field(date, all.length, language) : all;
    },
  );
}

/** Days, or days with a time where there is one. */
export function plainDateText(seconds: number): string {
  const text = new Date(seconds * 1000);
  if (Number.isNaN(text.getTime())) return '';
  const iso = text.toISOString();
  return iso.endsWith('T00:00:00.000Z') ? iso.slice(0, 10) : iso.slice(0, 19).replace('T', ' ');
}

/** A date as bounds and places have it: `2012-06-30`, `2012-06-30T12:00:00`, or a number of seconds. */
export function secondsOf(text: string): number | null {
  const number = Number(text);
  if (text.trim() !== '' && !Number.isNaN(number)) return isWithinReach(number, 'number') ? number : null;
  const found = /^(\d{4,})-(\d\d)-(\d\d)(?:[T ](\d\d):(\d\d)(?::(\d\d(?:\.\d+)?))?)?$/.exec(text.trim());
  if (!found) return null;
  const [, year, monthNumber, day, hour = '0', minute = '0', second = '0'] = found;
  const start = Date.UTC(Number(year), Number(monthNumber) - 1, Number(day), Number(hour), Number(minute));
  return start / 1000 + Number(second);
}

/** The first of the formats that says anything of a look; relabels are taken from all. */
export function mergeFormats(...formats: (Format | null | undefined)[]): Format | null {
  const present = formats.filter((format): format is Format => !!format);
  if (present.length === 0) return null;
  const merged = { ...present[present.length - 1]! };
  for (const format of present.slice(0, -1).reverse()) {
    for (const [key, value] of Object.entries(format)) {
      if (value === null || value === '' || key === 'relabels') continue;
      Object.assign(merged, { [key]: value });
    }
    merged.relabels = new Map([...merged.relabels, ...format.relabels]);
  }
  return merged;
}
