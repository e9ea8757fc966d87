import { describe, expect, test } from 'vitest';
import { dateTicks } from '../../src/draw/axes/dateticks.js';
import { secondsOf } from '../../src/data/format.js';
import { picture } from './chart.js';

const between = (low: string, high: string, pattern: string | null, wanted = 8, weekBegins = 1) =>
  dateTicks({ low: secondsOf(low)!, high: secondsOf(high)!, weekBegins }, wanted, pattern, 'en-US').map(
    ({ text }) => text,
  );

const dates =
  '<sourceVariable id="t" source="s" sourceName="a"><format pattern="yyyy-MM-dd"/></sourceVariable><intervalDomain id="d" type="date"/>';
const dated = (kind: string) => `<${kind}><x variable="t"/><y variable="b"/></${kind}>`;

describe('dates at ticks', () => {
  test('are no finer than their pattern tells apart', () => {
    expect(between('2024-02-28', '2024-03-01', 'yyyy-MM-dd')).toEqual([
      '2024-02-28',
      '2024-02-29',
      '2024-03-01',
    ]);
    expect(between('2020-03-01', '2022-03-01', 'yyyy')).toEqual(['2021', '2022']);
    expect(between('2020-01-01', '2020-06-01', 'MMM yyyy')).toEqual([
      'Jan 2020',
      'Feb 2020',
      'Mar 2020',
      'Apr 2020',
      'May 2020',
      'Jun 2020',
    ]);
  });

  test('stand at weeks from Monday on, or from the day that all dates are on', () => {
    const weeks = (weekBegins: number) =>
      between('2024-03-01', '2024-03-30', 'yyyy-MM-dd', 4, weekBegins).slice(0, 2);
    expect(weeks(1)).toEqual(['2024-03-04', '2024-03-11']);
    expect(weeks(3)).toEqual(['2024-03-06', '2024-03-13']);
    const axis = (from: number[]) =>
      picture({ a: from.map((days) => (19786 + days) * 86400), b: from }, dated('interval'), {
        rest: dates,
      }).textsOf('x axis');
    // From 2024-03-04, a Monday, and from the Wednesday behind it.
    expect(axis([0, 7, 14, 21, 28, 35])).toEqual(
      expect.arrayContaining(['2024-03-04', '2024-03-11', '2024-04-08']),
    );
    expect(axis([2, 9, 16, 23, 30, 37])).toEqual(expect.arrayContaining(['2024-03-06', '2024-04-10']));
    expect(axis([2, 9, 16, 24, 30, 37])).toContain('2024-03-11');
  });

  test('stand at halves of years, too', () => {
    expect(between('2021-01-01', '2023-01-01', 'yyyy-MM', 4)).toEqual([
      '2021-01',
      '2021-07',
      '2022-01',
      '2022-07',
      '2023-01',
    ]);
    expect(between('2021-01-01', '2023-01-01', 'yyyy-MM', 5)).toHaveLength(5);
    expect(between('2021-01-01', '2023-01-01', 'yyyy-MM', 6)).toHaveLength(9);
  });

  test('show as much as tells them apart where there is no pattern', () => {
    expect(between('2021-01-01', '2021-04-01', null, 4)).toEqual([
      'Jan 2021',
      'Feb 2021',
      'Mar 2021',
      'Apr 2021',
    ]);
    expect(between('2024-02-28T00:00:00', '2024-02-28T00:20:00', null, 4)).toContain('28 Feb 00:05');
  });

  test('have a finer pattern where else there would be no scale', () => {
    expect(between('2024-02-28', '2024-02-28T03:00:00', 'yyyy-MM-dd', 4)).toEqual([
      '2024-02-28 00:00',
      '2024-02-28 01:00',
      '2024-02-28 02:00',
      '2024-02-28 03:00',
    ]);
    expect(between('2024-02-28', '2024-03-04', 'yyyy', 3)).toEqual([
      '29 Feb 2024',
      '2 Mar 2024',
      '4 Mar 2024',
    ]);
    expect(between('2024-02-28T00:00:00', '2024-02-28T00:00:02', 'dd.MM.yyyy', 2)).toContain(
      '28.02.2024 00:00:01',
    );
    // A day that begins before the axis has no place on it.
    expect(between('2024-02-28T06:00:00', '2024-02-29T06:00:00', 'yyyy-MM-dd', 2)).toContain(
      '2024-02-28 12:00',
    );
    // Days of months are the same in each of them.
    expect(between('2024-01-01', '2024-06-01', 'dd', 6)).toContain('Feb 2024');
    // A pattern that has hours gets no second time.
    expect(between('2024-02-28T00:00:00', '2024-02-28T00:20:00', 'yyyy-MM-dd HH', 4)).toContain(
      '28 Feb 00:05',
    );
  });

  test('are each there once with ticks that the chart asks for', () => {
    const days = [secondsOf('2024-02-28')!, secondsOf('2024-02-29')!];
    const drawn = picture({ a: days, b: [1, 2] }, '<line><x variable="t"/><y variable="b"/></line>', {
      rest: '<sourceVariable id="t" source="s" sourceName="a"><format pattern="yyyy-MM-dd"/></sourceVariable><intervalDomain id="d" type="date"><range min="2024-02-28" max="2024-02-29"/></intervalDomain>',
      coordinates: '<dimension domain="d"><axis><majorTicks delta="43200"/></axis></dimension><dimension/>',
    });
    expect(drawn.textsOf('x axis')).toEqual(['2024-02-28', '2024-02-29']);
  });

  test('go by the first date of the axis where the chart asks for a distance without a base', () => {
    const times = ['2024-02-28T06:00:00', '2024-02-29T18:00:00'].map((text) => secondsOf(text)!);
    const drawn = picture({ a: times, b: [1, 2] }, '<line><x variable="t"/><y variable="b"/></line>', {
      rest: '<sourceVariable id="t" source="s" sourceName="a"><format pattern="d HH"/></sourceVariable><intervalDomain id="d"><range min="2024-02-28T06:00:00" max="2024-02-29T18:00:00" exact="true"/></intervalDomain>',
      coordinates: '<dimension domain="d"><axis><majorTicks delta="43200"/></axis></dimension><dimension/>',
    });
    expect(drawn.textsOf('x axis')).toEqual(['28 06', '28 18', '29 06', '29 18']);
  });
});

test('the only bar of dates is as wide as a day has room, with dates around it', () => {
  const drawn = picture({ a: [19786 * 86400], b: [3] }, dated('interval'), { rest: dates });
  expect(drawn.textsOf('x axis')).toEqual(['2024-03-03', '2024-03-04', '2024-03-05']);
  const width = Number(drawn.marks('rect')[0]!.getAttribute('width'));
  expect(width).toBeGreaterThan(100);
  expect(width).toBeLessThan(250);
});

test('a single date has dates around it', () => {
  const at = secondsOf('2024-02-29')!;
  const drawn = picture({ a: [at, at], b: [1, 2] }, '<point><x variable="t"/><y variable="b"/></point>', {
    rest: '<sourceVariable id="t" source="s" sourceName="a"><format pattern="yyyy-MM-dd"/></sourceVariable>',
  });
  expect(drawn.textsOf('x axis')).toEqual(['2024-02-28', '2024-02-29', '2024-03-01']);
});

test('a distance of dates that gives too many ticks leaves round dates', () => {
  const axis = '<axis><majorTicks delta="7"/></axis>';
  const day = 86_400;
  const drawn = picture({ a: [19786 * day, 19846 * day], b: [3, 4] }, dated('point'), {
    rest: dates,
    coordinates: `<dimension>${axis}</dimension><dimension/>`,
  });
  expect(drawn.textsOf('x axis').length).toBeGreaterThan(3);
  expect(drawn.notes).toEqual(['Ticks along x do not have the distance that the chart wants.']);
});
