import { Message } from 'apache-arrow/fb/message';
import { RecordBatch } from 'apache-arrow/fb/record-batch';
import { Schema } from 'apache-arrow/fb/schema';
import { ByteBuffer } from 'flatbuffers';
import { splitStreams } from './streams.js';
import type { Table } from '../received.js';

export interface Tables {
  tables: Map<string, Table>;
  problems: string[];
}

/** Reads a data stream: one Arrow IPC stream for each source, one directly behind the other. */
export function readTables(bytes: Uint8Array): Tables {
  const tables = new Map<string, Table>();
  const problems: string[] = [];
  const { streams, problem } = splitStreams(bytes);
  streams.forEach((stream, index) => {
    if (stream.problem !== null) {
      problems.push(unreadable(index + 1, stream.problem));
      return;
    }
    const table = readTable(stream.bytes, index + 1, problems);
    if (!tables.has(table.source)) tables.set(table.source, table);
    else problems.push(`Data: there is more than one stream for source '${table.source}'; the first counts.`);
  });
  if (problem !== null) problems.push(unreadable(streams.length + 1, problem));
  return { tables, problems };
}

function unreadable(number: number, why: string): string {
  return `Data: stream ${number} cannot be read: ${why}.`;
}

export function reason(error: unknown): string {
  return error instanceof Error ? error.message : String(error);
}

interface Head {
  source: string | undefined;
  names: string[];
}

/** Rows that came together. */
interface Batch {
  rows: number;
  record: RecordBatch;
  body: Uint8Array;
}

/** A stream that has been checked: a schema, rows, and the end mark. */
function readTable(bytes: Uint8Array, number: number, problems: string[]): Table {
  const { head, batches } = readMessages(bytes);
  if (head.source === undefined) problems.push(`Data: stream ${number} does not say which source it is.`);
  const rows = batches.reduce((sum, batch) => sum + batch.rows, 0);
  const table: Table = { source: head.source ?? '', rows, columns: new Map() };
  head.names.forEach((name, index) => {
    if (!table.columns.has(name)) {
      table.columns.set(name, { id: name, kind: 'number', numbers: cells(batches, index, rows) });
    } else {
      problems.push(`Data: source '${table.source}' has more than one column '${name}'; the first counts.`);
    }
  });
  return table;
}

function readMessages(bytes: Uint8Array): { head: Head; batches: Batch[] } {
  const view = new DataView(bytes.buffer, bytes.byteOffset, bytes.byteLength);
  let head: Head = { source: undefined, names: [] };
  const batches: Batch[] = [];
  for (let at = 0; ; ) {
    const size = view.getUint32(at + 4, true);
    if (size === 0) return { head, batches };
    const begin = at + 8;
    const message = Message.getRootAsMessage(new ByteBuffer(bytes.subarray(begin, begin + size)));
    at = begin + size + Number(message.bodyLength());
    if (message.headerType() === schemaHeader) {
      head = headOf(message.header(new Schema()) as Schema);
    } else {
      const record = message.header(new RecordBatch()) as RecordBatch;
      batches.push({ rows: Number(record.length()), record, body: bytes.subarray(begin + size, at) });
    }
  }
}

/** As Arrow counts the headers of messages. */
const schemaHeader = 1;

function headOf(schema: Schema): Head {
  const names = Array.from(
    { length: schema.fieldsLength() },
    (_, index) => schema.fields(index)?.name() ?? '',
  );
  for (let i = 0; i < schema.customMetadataLength(); ++i) {
    const pair = schema.customMetadata(i);
    if (pair?.key() === 'source') return { source: pair.value() ?? undefined, names };
  }
  return { source: undefined, names };
}

/** The cells of a column, with NaN where they are missing. */
function cells(batches: readonly Batch[], column: number, rows: number): Float64Array {
  const numbers = new Float64Array(rows);
  let begin = 0;
  for (const batch of batches) {
    const values = new Uint8Array(numbers.buffer, begin * 8, batch.rows * 8);
    values.set(bufferOf(batch, 2 * column + 1).subarray(0, values.length));
    // The count of missing cells is not asked: it need not be that of the bitmap.
    const valid = bufferOf(batch, 2 * column);
    for (let i = 0; i < batch.rows && valid.length > 0; ++i) {
      if (((valid[i >> 3] as number) & (1 << (i & 7))) === 0) numbers[begin + i] = NaN;
    }
    begin += batch.rows;
  }
  return numbers;
}

function bufferOf({ record, body }: Batch, index: number): Uint8Array {
  const place = record.buffers(index);
  const offset = Number(place?.offset() ?? 0);
  return body.subarray(offset, offset + Number(place?.length() ?? 0));
}
