import { describe, expect, test } from 'vitest';
import { picture } from './chart.js';

const bars = (bins: string) => `<interval><x variable="a"/><binStatistic gridType="0" ${bins}/></interval>`;

describe('classes', () => {
  test('that are too many are wider, and a note says so', () => {
    const a = [2700, 2701, 4700, 6300];
    const drawn = picture({ a }, bars('binWidth="1"'));
    expect(drawn.marks('rect')).toHaveLength(3);
    expect(drawn.notes).toEqual(['Classes are 2 wide, not 1: more than 2,000 are no picture.']);
    const counted = picture({ a }, bars('binCount="4000"'));
    expect(counted.notes).toEqual(['There are 2,000 classes, not 4,000: more than 2,000 are no picture.']);
  });

  test('may be two thousand', () => {
    const drawn = picture({ a: Array.from({ length: 1000 }, (_, at) => 2 * at) }, bars('binWidth="1"'));
    expect(drawn.marks('rect')).toHaveLength(1000);
    expect(drawn.notes).toEqual([]);
  });
});
