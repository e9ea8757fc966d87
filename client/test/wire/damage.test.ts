import { deflateSync } from 'node:zlib';
import { expect, test } from 'vitest';
import { receive } from '../../src/wire/receive.js';
import { sentData } from './arrowBytes.js';
import { arrowStream, CaptureBuilder, usualChart } from './captureBuilder.js';

/** Numbers from 0 to below 1, always the same ones for a seed. */
function randomNumbers(seed: number): () => number {
  let state = seed >>> 0;
  return () => {
    state = (state + 0x6d2b79f5) >>> 0;
    let mixed = Math.imul(state ^ (state >>> 15), state | 1);
    mixed ^= mixed + Math.imul(mixed ^ (mixed >>> 7), mixed | 61);
    return ((mixed ^ (mixed >>> 14)) >>> 0) / 4_294_967_296;
  };
}

const captures: Buffer[] = [
  usualChart(sentData).bytes(),
  usualChart(
    Buffer.concat([arrowStream('a', { v: [1, null, 3], w: [4, 5, 6] }), arrowStream('b', { x: [] })]),
  ).bytes(),
  new CaptureBuilder()
    .interactiveContent(0, 'page')
    .interactiveContent(16, deflateSync('{}'))
    .done(0, 3)
    .content(0, 'image')
    .content(7, deflateSync(Buffer.alloc(100)), 2)
    .done()
    .bytes(),
];

/** What holds of every result, whatever the capture was. */
function checkResult(capture: Uint8Array): number {
  const sends = receive(capture, 1 << 22);
  expect(sends.length).toBeGreaterThan(0);
  for (const send of sends) {
    for (const table of send.tables.values()) {
      for (const column of table.columns.values()) {
        if (column.numbers?.length !== table.rows)
          throw new Error(`${column.id} has not the rows of its table`);
      }
    }
    for (const problem of send.problems) {
      if (!/^[A-Z].*\.$/su.test(problem)) throw new Error(`no sentence: ${problem}`);
    }
  }
  return sends.reduce((sum, send) => sum + send.problems.length, 0);
}

test('A capture may be cut anywhere, and only a cut between sends does not show', () => {
  for (const capture of captures) {
    const [first] = receive(capture);
    const endOfFirstSend = (first?.messages.at(-1)?.offset ?? 0) + (first?.messages.at(-1)?.length ?? 0);
    const silent: number[] = [];
    for (let length = 0; length <= capture.length; ++length) {
      if (checkResult(capture.subarray(0, length)) === 0) silent.push(length);
    }
    expect(silent).toEqual([...new Set([8, endOfFirstSend, capture.length])]);
  }
});

test('Flipped bits are never more than a problem', () => {
  for (const capture of captures) {
    for (let bit = 0; bit < capture.length * 8; ++bit) {
      const damaged = Buffer.from(capture);
      damaged[bit >> 3] = (damaged[bit >> 3] as number) ^ (1 << (bit & 7));
      checkResult(damaged);
    }
  }
});

type Change = (bytes: Buffer, random: () => number) => Buffer;

const interesting = [0, 1, 7, 8, 0x7f, 0x80, 0xff];

const changes: Change[] = [
  (bytes, random) => {
    bytes[Math.floor(random() * bytes.length)] = Math.floor(random() * 256);
    return bytes;
  },
  (bytes, random) => {
    const at = Math.floor(random() * bytes.length);
    const value = interesting[Math.floor(random() * interesting.length)] as number;
    return bytes.fill(value, at, Math.min(at + 1 + Math.floor(random() * 8), bytes.length));
  },
  (bytes, random) => {
    const at = Math.floor(random() * bytes.length);
    return Buffer.concat([bytes.subarray(0, at), bytes.subarray(at + 1 + Math.floor(random() * 40))]);
  },
  (bytes, random) => {
    const at = Math.floor(random() * bytes.length);
    const from = Math.floor(random() * bytes.length);
    const piece = bytes.subarray(from, from + Math.floor(random() * 200));
    return Buffer.concat([bytes.subarray(0, at), piece, bytes.subarray(at)]);
  },
  (bytes, random) => bytes.subarray(0, Math.floor(random() * bytes.length)),
];

test('Thousands of changed captures are never more than a problem', () => {
  const random = randomNumbers(20_261_121);
  for (let round = 0; round < 12_000; ++round) {
    let bytes: Buffer = Buffer.from(captures[round % captures.length] as Buffer);
    const times = 1 + Math.floor(random() * 4);
    for (let i = 0; i < times && bytes.length > 0; ++i) {
      bytes = (changes[Math.floor(random() * changes.length)] as Change)(bytes, random);
    }
    checkResult(bytes);
  }
});

test('Thousands of changed data streams are never more than a problem', () => {
  const random = randomNumbers(7);
  for (let round = 0; round < 12_000; ++round) {
    let bytes: Buffer = Buffer.from(
      round % 2 === 0 ? sentData : arrowStream('a', { v: [1, null, 3], w: [4, 5, 6] }),
    );
    const times = 1 + Math.floor(random() * 3);
    for (let i = 0; i < times && bytes.length > 0; ++i) {
      bytes = (changes[Math.floor(random() * changes.length)] as Change)(bytes, random);
    }
    checkResult(usualChart(bytes).bytes());
  }
});
