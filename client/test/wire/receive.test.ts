import { deflateSync } from 'node:zlib';
import { Dictionary, Float64, Int32, Table, tableToIPC, vectorFromArray } from 'apache-arrow';
import { describe, expect, test } from 'vitest';
import { receive } from '../../src/wire/receive.js';
import type { Received } from '../../src/received.js';
import { sentData } from './arrowBytes.js';
import {
  arrowStream,
  CaptureBuilder,
  fullChunk,
  fullInteractiveChunk,
  usualChart,
} from './captureBuilder.js';

function receiveOne(capture: Uint8Array): Received {
  const sends = receive(capture);
  expect(sends).toHaveLength(1);
  return sends[0] as Received;
}

function column(received: Received, source: string, name: string): number[] {
  return [...(received.tables.get(source)?.columns.get(name)?.numbers ?? [])];
}

const missingEnd = 'The end record is missing: the chart was not sent to its end.';

describe('a chart', () => {
  test('is read with its texts, its data and its end record', () => {
    const received = receiveOne(usualChart(sentData).bytes());
    expect(received.problems).toEqual([]);
    expect(received.description).toBe('Höhe der Berge');
    expect(received.englishDescription).toBe('Hohe der Berge');
    expect(received.chartText).toBe('<visualization xmlns="http://xml.vexa.example/visualization"/>');
    expect(received.done).toEqual({ editable: 0, editor: 1 });
    expect([...received.tables.keys()]).toEqual(['source0']);
    expect(column(received, 'source0', 'sourceVariable0_SN')).toEqual([1.5, NaN, -3]);
    expect(column(received, 'source0', 'sourceVariable1_SN')).toEqual([10, 20, NaN]);
  });

  test('notes its messages with their places', () => {
    const received = receiveOne(new CaptureBuilder().content(0, 'abc').done().bytes());
    expect(received.messages).toEqual([
      { number: 1, offset: 24, id: 307, type: 0, subtype: 0, name: 'description', chunk: 3, length: 15 },
      { number: 2, offset: 55, id: 307, type: 3, subtype: 0, name: 'done', chunk: 8, length: 20 },
    ]);
  });

  test('keeps its contents in order, decompressed', () => {
    const capture = new CaptureBuilder()
      .content(0, 'd')
      .content(12, deflateSync('{"a":1}'))
      .content(7, deflateSync(Buffer.from([1, 2, 3])), 9)
      .content(6, Buffer.from([0xff, 0x2c]))
      .content(77, 'later')
      .done(1, 3)
      .bytes();
    const received = receiveOne(capture);
    expect(received.problems).toEqual([]);
    expect(received.contents.map((content) => [content.name, content.subtype, content.text])).toEqual([
      ['description', 0, 'd'],
      ['engine JSON', 0, '{"a":1}'],
      ['image', 9, null],
      ['CSV content', 0, null],
      ['type 77', 0, null],
      ['done', 0, null],
    ]);
    expect([...(received.contents[2]?.bytes ?? [])]).toEqual([1, 2, 3]);
    expect([...(received.contents[3]?.bytes ?? [])]).toEqual([0xff, 0x2c]);
    expect(received.done).toEqual({ editable: 1, editor: 3 });
  });

  test('may be interactive: messages 318, and the end record as 307', () => {
    const page = JSON.stringify({ words: Array.from({ length: 30_000 }, (_, i) => Math.sin(i)) });
    const sent = deflateSync(page);
    expect(sent.length).toBeGreaterThan(fullInteractiveChunk);
    const capture = new CaptureBuilder()
      .interactiveContent(0, 'page')
      .interactiveContent(16, sent)
      .done(0, 3)
      .bytes();
    const received = receiveOne(capture);
    expect(received.problems).toEqual([]);
    expect(received.description).toBe('page');
    expect(received.contents[1]?.text).toBe(page);
  });
});

describe('chunks', () => {
  test('are joined up to the first that is not full', () => {
    const text = 'x'.repeat(2 * fullChunk + 5);
    expect(receiveOne(new CaptureBuilder().content(0, text).done().bytes()).description).toBe(text);
  });

  test('are joined up to a message of another type where all are full', () => {
    const text = 'x'.repeat(2 * fullChunk);
    const received = receiveOne(new CaptureBuilder().content(0, text).done().bytes());
    expect(received.description).toBe(text);
    expect(received.problems).toEqual([]);
  });

  test('are told apart by their subtype', () => {
    const image = Buffer.from(deflateSync(Buffer.alloc(80_000), { level: 0 }));
    const capture = new CaptureBuilder()
      .content(0, 'd')
      .message(7, image.subarray(0, fullChunk), 1)
      .message(7, deflateSync('other'), 2)
      .done()
      .bytes();
    const received = receiveOne(capture);
    expect(received.contents.filter((content) => content.name === 'image')).toHaveLength(2);
    expect(received.contents[1]?.whole).toBe(false);
    expect(Buffer.from(received.contents[2]?.bytes ?? []).toString()).toBe('other');
  });

  test('may have anything in their trailers', () => {
    const capture = new CaptureBuilder().message(0, Buffer.from('abc'), 0, 0xdeadbeef).done().bytes();
    expect(receiveOne(capture).problems).toEqual([]);
  });
});

describe('several sends', () => {
  test('stand one after the other', () => {
    const capture = new CaptureBuilder().content(0, 'first').done().content(0, 'second').done(1, 2).bytes();
    const sends = receive(capture);
    expect(sends.map((send) => send.description)).toEqual(['first', 'second']);
    expect(sends.map((send) => send.problems)).toEqual([[], []]);
  });

  test('are told by the description where an end record is missing', () => {
    const sends = receive(new CaptureBuilder().content(0, 'first').content(0, 'second').done().bytes());
    expect(sends.map((send) => send.description)).toEqual(['first', 'second']);
    expect(sends.map((send) => send.problems)).toEqual([[missingEnd], []]);
  });

  test('share no announcement', () => {
    const capture = new CaptureBuilder()
      .content(0, 'first')
      .content(5, Buffer.alloc(7))
      .content(0, 'second')
      .content(8, sentData)
      .done()
      .bytes();
    const sends = receive(capture);
    expect(sends[0]?.problems).toEqual(['The data is missing: 7 bytes were announced.', missingEnd]);
    expect(sends[1]?.problems).toEqual([]);
    expect(sends[1]?.tables.size).toBe(1);
  });
});

describe('data', () => {
  test('has a table for each stream, in their order', () => {
    const stream = Buffer.concat([
      arrowStream('b', { v: [1, null, 3] }),
      arrowStream('a', { w: [4], 'ä w': [null] }),
      arrowStream('none', { v: [] }),
    ]);
    const received = receiveOne(usualChart(stream).bytes());
    expect(received.problems).toEqual([]);
    expect([...received.tables.values()].map((table) => [table.source, table.rows])).toEqual([
      ['b', 3],
      ['a', 1],
      ['none', 0],
    ]);
    expect(column(received, 'b', 'v')).toEqual([1, NaN, 3]);
    expect(column(received, 'a', 'ä w')).toEqual([NaN]);
  });

  test('keeps infinities and negative zero', () => {
    const received = receiveOne(usualChart(arrowStream('s', { v: [Infinity, -Infinity, -0] })).bytes());
    expect(column(received, 's', 'v')).toEqual([Infinity, -Infinity, -0]);
  });

  test('counts the first of two streams of one source', () => {
    const stream = Buffer.concat([arrowStream('s', { v: [1] }), arrowStream('s', { v: [2] })]);
    const received = receiveOne(usualChart(stream).bytes());
    expect(received.problems).toEqual([
      "Data: there is more than one stream for source 's'; the first counts.",
    ]);
    expect(column(received, 's', 'v')).toEqual([1]);
  });

  test('is kept up to a stream that is cut', () => {
    const stream = Buffer.concat([
      arrowStream('s', { v: [1] }),
      arrowStream('t', { v: [2, 3] }).subarray(0, 100),
    ]);
    const received = receiveOne(usualChart(stream).bytes());
    expect(column(received, 's', 'v')).toEqual([1]);
    expect(received.problems).toHaveLength(1);
    expect(received.problems[0]).toMatch(/^Data: stream 2 cannot be read/);
  });
});

describe('announcements', () => {
  const text = deflateSync('<a/>');

  test('are compared with the chart text on the wire', () => {
    const capture = new CaptureBuilder()
      .content(0, 'd')
      .content(4, Buffer.alloc(3))
      .content(1, text)
      .done()
      .bytes();
    const received = receiveOne(capture);
    expect(received.chartText).toBeNull();
    expect(received.problems).toEqual([
      `The chart text (from message 3 on) has ${text.length} bytes where 3 were announced, and is lost.`,
    ]);
  });

  test.each([
    [3, 'it holds more than 3 bytes'],
    [5, 'it holds 4 bytes where 5 were announced'],
  ])('are compared with the chart text itself: %i', (size, why) => {
    const capture = new CaptureBuilder()
      .content(0, 'd')
      .content(2, Buffer.alloc(size))
      .content(1, text)
      .done()
      .bytes();
    const received = receiveOne(capture);
    expect(received.chartText).toBeNull();
    expect(received.problems).toEqual([
      `The chart text (from message 3 on) cannot be decompressed and is lost: ${why}.`,
    ]);
  });

  test('may be missing', () => {
    const received = receiveOne(new CaptureBuilder().content(0, 'd').content(1, text).done().bytes());
    expect(received.problems).toEqual([]);
    expect(received.chartText).toBe('<a/>');
  });

  test('are sums of chunks', () => {
    const long = `<a>${'b'.repeat(3 * fullChunk)}</a>`;
    const received = receiveOne(new CaptureBuilder().content(0, 'd').chartText(long).done().bytes());
    expect(received.problems).toEqual([]);
    expect(received.chartText).toBe(long);
  });

  test('may be of something that does not come', () => {
    const received = receiveOne(
      new CaptureBuilder().content(0, 'd').content(5, Buffer.alloc(7)).done().bytes(),
    );
    expect(received.problems).toEqual(['The data is missing: 7 bytes were announced.']);
  });

  test('are compared with the data', () => {
    const capture = new CaptureBuilder()
      .content(0, 'd')
      .content(5, Buffer.alloc(sentData.length + 1))
      .content(8, sentData)
      .done()
      .bytes();
    const received = receiveOne(capture);
    expect(received.tables.size).toBe(0);
    expect(received.problems).toEqual([
      `The data (from message 3 on) has ${sentData.length} bytes where ${sentData.length + 1} were announced, and is lost.`,
    ]);
  });
});

describe('damage', () => {
  test('of the first bytes: no capture', () => {
    const received = receiveOne(Buffer.from('<html>'));
    expect(received.problems).toEqual(['This is no capture: it does not begin with KCAP0001.']);
  });

  test('nothing was sent', () => {
    const received = receiveOne(new CaptureBuilder().bytes());
    expect(received.problems).toEqual([]);
    expect(received.messages).toEqual([]);
  });

  test('a cut within a message, and only once', () => {
    const capture = usualChart(sentData).bytes();
    const received = receiveOne(capture.subarray(0, capture.length - 3));
    expect(received.problems).toEqual([
      `The capture is cut at byte ${capture.length - 3}: message 8 has 17 of its 20 bytes.`,
    ]);
    expect(received.tables.size).toBe(1);
  });

  test('a cut before a message', () => {
    const capture = new CaptureBuilder().content(0, 'abc').done().bytes();
    const received = receiveOne(capture.subarray(0, 8 + 16 + 15 + 7));
    expect(received.problems).toEqual(['The capture is cut at byte 46, before message 2.']);
  });

  test('a length out of bounds', () => {
    const capture = new CaptureBuilder().content(0, 'abc').record(307, Buffer.alloc(3), -5).done().bytes();
    expect(receiveOne(capture).problems[0]).toBe(
      'Message 2 (at byte 39) says that it is -5 bytes long; nothing behind it can be read.',
    );
  });

  test('a message with no room for what stands before and behind its chunk', () => {
    const capture = new CaptureBuilder().content(0, 'abc').record(307, Buffer.alloc(10)).done().bytes();
    expect(receiveOne(capture).problems).toEqual(['Message 2 (at byte 55) has only 10 bytes; skipped.']);
  });

  test('a message whose chunk size is not its own', () => {
    const bytes = Buffer.alloc(20);
    bytes.writeUInt32LE(9, 4);
    const received = receiveOne(new CaptureBuilder().content(0, 'abc').record(307, bytes).done().bytes());
    expect(received.problems).toEqual([
      'Message 2 (at byte 55) is 20 bytes long and says it has 9; skipped.',
    ]);
    expect(received.description).toBe('abc');
  });

  test('a message that damage has taken out of a content', () => {
    const text = Buffer.from('x'.repeat(2 * fullChunk));
    const capture = new CaptureBuilder()
      .message(0, text.subarray(0, fullChunk))
      .record(307, Buffer.alloc(5))
      .done()
      .bytes();
    const received = receiveOne(capture);
    expect(received.description).toBe('');
    expect(received.problems).toContain('The description (from message 1 on) was cut off and is lost.');
  });

  test('a message with an identifier of later senders', () => {
    const capture = new CaptureBuilder().content(0, 'abc').record(400, Buffer.alloc(5)).done().bytes();
    const received = receiveOne(capture);
    expect(received.problems).toEqual(['Message 2 (at byte 55) has the unknown identifier 400; skipped.']);
  });

  test('a text that is no UTF-8', () => {
    const received = receiveOne(
      new CaptureBuilder()
        .content(0, Buffer.from([0x61, 0xff]))
        .done()
        .bytes(),
    );
    expect(received.description).toBe('a\uFFFD');
    expect(received.problems).toEqual([
      'The description (from message 1 on) is not UTF-8; what is wrong in it is shown as \uFFFD.',
    ]);
  });

  test('an end record of another size', () => {
    const received = receiveOne(new CaptureBuilder().content(0, 'd').message(3, Buffer.alloc(9)).bytes());
    expect(received.done).toBeNull();
    expect(received.problems[0]).toBe('The done (from message 2 on) has 9 bytes instead of 8.');
  });
});

describe('compressed contents', () => {
  function problemOf(sent: Uint8Array, limit?: number): string | undefined {
    const capture = new CaptureBuilder().content(0, 'd').content(12, sent).done().bytes();
    return receive(capture, limit)[0]?.problems[0];
  }
  const before = 'The engine JSON (from message 2 on) cannot be decompressed and is lost: ';

  test('with a wrong checksum are lost', () => {
    const sent = deflateSync('abc');
    sent[sent.length - 1] = (sent[sent.length - 1] as number) ^ 1;
    expect(problemOf(sent)).toBe(`${before}its checksum is wrong.`);
  });

  test('with something behind them are lost', () => {
    expect(problemOf(Buffer.concat([deflateSync('abc'), Buffer.from('x')]))).toContain(before);
  });

  test('that end early are lost', () => {
    expect(problemOf(deflateSync('abcdefghijkl').subarray(0, 12))).toContain(before);
  });

  test('that hold more than allowed are given up before they are held', () => {
    const bomb = deflateSync(Buffer.alloc(64 * 1024 * 1024));
    expect(problemOf(bomb, 1_000_000)).toBe(`${before}it holds more than 1000000 bytes.`);
  });

  test('may hold as much as 200 MiB, unless less is allowed', () => {
    expect(problemOf(deflateSync(Buffer.alloc(200 * 1024 * 1024)))).toBeUndefined();
  });

  test('may not hold too much together', () => {
    const part = deflateSync(Buffer.alloc(600_000));
    const capture = new CaptureBuilder().content(0, 'd').content(12, part).content(13, part).done().bytes();
    const [received] = receive(capture, 1_000_000);
    expect(received?.contents.map((content) => content.whole)).toEqual([true, true, false, true]);
  });
});

describe('what a stream says of its rows', () => {
  /** The stream with the one place where it has these numbers, of 8 bytes each, changed to others. */
  const changed = (cells: (number | null)[], from: number[], to: number[]): Buffer => {
    const bytes = Buffer.from(arrowStream('s', { v: cells }));
    const bytesOf = (numbers: number[]) => Buffer.from(BigInt64Array.from(numbers, BigInt).buffer);
    const at = bytes.indexOf(bytesOf(from));
    expect(at).toBeGreaterThan(0);
    expect(bytes.indexOf(bytesOf(from), at + 1)).toBe(-1);
    return Buffer.concat([bytes.subarray(0, at), bytesOf(to), bytes.subarray(at + 8 * to.length)]);
  };
  const problemOf = (stream: Uint8Array) => {
    const received = receiveOne(usualChart(stream).bytes());
    expect(received.tables.size).toBe(0);
    expect(received.problems).toHaveLength(1);
    return received.problems[0]!;
  };
  const full = [1, 2, 3];
  const gaps = [1, null, 3];
  const many = [1, null, 3, 4, 5, 6, 7, 8, 9];

  // Where the marks of missing values begin and how long they are; then the same of the values.
  test.each([
    ['that end beyond the body', full, [0, 0, 0, 24], [0, 0, 8, 24]],
    ['that are shorter than the rows', full, [0, 0, 0, 24], [0, 0, 0, 16]],
    ['that do not begin at a multiple of 8', gaps, [0, 64, 64, 24], [0, 64, 60, 24]],
    ['that begin before the body', gaps, [0, 64, 64, 24], [0, 64, -8, 24]],
    ['with too few marks of missing values', many, [0, 64, 64, 72], [0, 1, 64, 72]],
  ])('is not believed of buffers %s', (_, cells, from, to) => {
    expect(problemOf(changed(cells, from, to))).toContain('the buffers of a column do not hold its rows');
  });

  test('is not believed where a column has another number of them', () => {
    expect(problemOf(changed(full, [3, 0], [2, 0]))).toContain('its columns have different numbers of rows');
  });

  // The count of the nodes, or buffers, is the upper half of the 8 bytes before them.
  test.each([
    ['nodes', [2 ** 32, 3, 0], [0, 3, 0]],
    ['buffers', [2 ** 33, 0, 0, 0, 24], [2 ** 32, 0, 0, 0, 24]],
  ])('is not believed where it has not the columns of its schema: %s', (_, from, to) => {
    expect(problemOf(changed(full, from, to))).toContain('its rows have other columns than its schema');
  });

  test.each([-1, 1_000_000])('is not believed where it cannot be: %i rows', (rows) => {
    const stream = changed(full, [3, 0], [rows, 0]);
    // Now only the batch itself has the number of rows.
    const at = stream.indexOf(Buffer.from(BigInt64Array.of(3n).buffer));
    stream.writeBigInt64LE(BigInt(rows), at);
    expect(problemOf(stream)).toContain(`it says that it has ${rows} rows in 24 bytes`);
  });

  test('is not believed where its body would end before it begins', () => {
    const stream = Buffer.from(arrowStream('s', { v: full }));
    const at = stream.indexOf(Buffer.from(BigInt64Array.of(24n).buffer));
    stream.writeBigInt64LE(-8n, at);
    expect(problemOf(stream)).toContain('the body of a message is cut');
  });

  test('may not come without a schema', () => {
    expect(problemOf(Buffer.from([0xff, 0xff, 0xff, 0xff, 0, 0, 0, 0]))).toContain('it has no schema');
  });

  test('may not be of numbers that stand in a dictionary', () => {
    const vector = vectorFromArray([1, 2, 1], new Dictionary(new Float64(), new Int32()));
    const stream = tableToIPC(new Table({ v: vector }), 'stream');
    expect(problemOf(stream)).toContain("its column 'v' holds no float64 numbers");
  });
});
