import { RecordBatchReader, type RecordBatch } from 'apache-arrow';
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
    try {
      if (stream.problem !== null) throw new Error(stream.problem);
      const table = readTable(stream.bytes, index + 1, problems);
      if (!tables.has(table.source)) tables.set(table.source, table);
      else
        problems.push(`Data: there is more than one stream for source '${table.source}'; the first counts.`);
    } catch (error) {
      problems.push(unreadable(index + 1, reason(error)));
    }
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

function readTable(bytes: Uint8Array, number: number, problems: string[]): Table {
  const reader = RecordBatchReader.from(bytes).open();
  // The reader forgets it at the end of the stream.
  const { schema } = reader;
  const batches = [...reader] as RecordBatch[];
  const source = schema.metadata.get('source');
  if (source === undefined) problems.push(`Data: stream ${number} does not say which source it is.`);
  const rows = batches.reduce((sum, batch) => sum + batch.numRows, 0);
  const table: Table = { source: source ?? '', rows, columns: new Map() };
  schema.fields.forEach(({ name }, index) => {
    if (!table.columns.has(name)) {
      table.columns.set(name, { id: name, kind: 'number', numbers: cells(batches, index, rows) });
    } else {
      problems.push(`Data: source '${table.source}' has more than one column '${name}'; the first counts.`);
    }
  });
  return table;
}

/** The cells of a column, with NaN where they are missing. */
function cells(batches: RecordBatch[], index: number, rows: number): Float64Array {
  const numbers = new Float64Array(rows);
  let begin = 0;
  for (const batch of batches) {
    const data = batch.data.children[index];
    const values = data?.values as Float64Array;
    const valid = data?.nullBitmap ?? new Uint8Array(0);
    numbers.set(values.subarray(0, batch.numRows), begin);
    // The count of missing cells is not asked: it need not be that of the bitmap.
    for (let i = 0; i < batch.numRows && valid.length > 0; ++i) {
      if (((valid[i >> 3] as number) & (1 << (i & 7))) === 0) numbers[begin + i] = NaN;
    }
    begin += batch.numRows;
  }
  return numbers;
}
