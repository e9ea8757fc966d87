import { FlatTable } from './flatTable.js';

/** One Arrow IPC stream among those of a data content. */
export interface Stream {
  bytes: Uint8Array;
  /** Why it must not be given to Arrow, as the end of a sentence; null where it may. */
  problem: string | null;
}

export interface Streams {
  streams: Stream[];
  /** Why what follows the streams cannot be told apart; null where they fill the bytes. */
  problem: string | null;
}

/** Headers of a message, types of a field and precisions of numbers, as Arrow counts them. */
const headerSchema = 1;
const headerRecordBatch = 3;
const typeFloatingPoint = 3;
const precisionDouble = 2;

/** Where the fields lie in Arrow's tables. */
const Message = { headerType: 1, header: 2, bodyLength: 3, metadata: 4 };
const Schema = { endianness: 0, fields: 1, metadata: 2, features: 3 };
const Field = { name: 0, typeType: 2, type: 3, dictionary: 4, children: 5, metadata: 6 };
const FloatingPoint = { precision: 0 };
const RecordBatch = { length: 0, nodes: 1, buffers: 2, compression: 3, variadicCounts: 4 };
const KeyValue = { key: 0, value: 1 };

/**
 * Tells streams apart and checks all that Arrow's reader believes without a check: with damaged metadata it would
 * loop for minutes, or take memory without end.
 */
export function splitStreams(bytes: Uint8Array): Streams {
  const streams: Stream[] = [];
  let at = 0;
  while (at < bytes.length) {
    const walk = new StreamWalk(bytes, at);
    try {
      walk.toEnd();
    } catch (error) {
      const why = error instanceof RangeError ? 'its metadata is damaged' : (error as Error).message;
      return { streams, problem: `${why}, at byte ${walk.at}` };
    }
    streams.push({ bytes: bytes.subarray(at, walk.at), problem: walk.problem });
    at = walk.at;
  }
  return { streams, problem: null };
}

class StreamWalk {
  /** What of the stream is not as data is sent, though it can be told where it ends. */
  problem: string | null = null;
  private readonly view: DataView;
  private columns: number | null = null;

  constructor(
    private readonly bytes: Uint8Array,
    public at: number,
  ) {
    this.view = new DataView(bytes.buffer, bytes.byteOffset, bytes.byteLength);
  }

  /** Goes on behind the end mark. Throws where a message has no bounds. */
  toEnd(): void {
    for (;;) {
      if (this.at + 8 > this.bytes.length) throw new Error('it has no end mark');
      if (this.view.getUint32(this.at, true) !== 0xffff_ffff)
        throw new Error('a message does not begin with FF FF FF FF');
      const size = this.view.getUint32(this.at + 4, true);
      if (size === 0) break;
      this.message(size);
    }
    if (this.columns === null) this.problem ??= 'it has no schema';
    this.at += 8;
  }

  private message(size: number): void {
    const begin = this.at + 8;
    if (begin + size > this.bytes.length) throw new Error('a message is cut');
    const message = FlatTable.root(this.bytes.subarray(begin, begin + size));
    const bodyLength = message.int64(Message.bodyLength);
    const end = begin + size + bodyLength;
    if (!Number.isSafeInteger(bodyLength) || bodyLength < 0 || end > this.bytes.length) {
      throw new Error('the body of a message is cut');
    }
    this.problem ??= this.wrongWith(message, bodyLength);
    this.at = end;
  }

  private wrongWith(message: FlatTable, bodyLength: number): string | null {
    const header = message.table(Message.header);
    const headerType = message.uint8(Message.headerType);
    visitPairs(message, Message.metadata);
    if (header !== null && headerType === headerSchema && this.columns === null) return this.schema(header);
    if (header !== null && headerType === headerRecordBatch && this.columns !== null) {
      return wrongWithBatch(header, this.columns, bodyLength);
    }
    return 'it has other messages than a schema and its rows';
  }

  private schema(schema: FlatTable): string | null {
    const fields = schema.tables(Schema.fields);
    this.columns = fields.length;
    visitPairs(schema, Schema.metadata);
    if (schema.has(Schema.features)) return 'it needs features of Arrow that are not used here';
    if (schema.int16(Schema.endianness) !== 0) return 'its numbers are big-endian';
    const other = fields.find((field) => !isDouble(field));
    return other === undefined ? null : `its column '${other.text(Field.name)}' holds no float64 numbers`;
  }
}

function isDouble(field: FlatTable): boolean {
  field.text(Field.name);
  visitPairs(field, Field.metadata);
  return (
    field.uint8(Field.typeType) === typeFloatingPoint &&
    field.table(Field.type)?.int16(FloatingPoint.precision) === precisionDouble &&
    !field.has(Field.dictionary) &&
    field.tables(Field.children).length === 0
  );
}

/** Reads keys and values only to see that they can be read. */
function visitPairs(table: FlatTable, field: number): void {
  for (const pair of table.tables(field)) {
    pair.text(KeyValue.key);
    pair.text(KeyValue.value);
  }
}

/** Each column has one node, and two buffers: validity, which may be empty, and values. */
function wrongWithBatch(batch: FlatTable, columns: number, bodyLength: number): string | null {
  const rows = batch.int64(RecordBatch.length);
  const nodes = batch.pairs(RecordBatch.nodes);
  const buffers = batch.pairs(RecordBatch.buffers);
  if (batch.has(RecordBatch.compression)) return 'its rows are compressed';
  if (batch.has(RecordBatch.variadicCounts)) return 'it has columns of texts';
  if (nodes.length !== columns || buffers.length !== 2 * columns)
    return 'its rows have other columns than its schema';
  if (rows < 0 || rows > bodyLength * 8) return `it says that it has ${rows} rows in ${bodyLength} bytes`;
  if (nodes.some(([length]) => length !== rows)) return 'its columns have different numbers of rows';
  const fits = buffers.every(([offset, length], index) => {
    const isValidity = index % 2 === 0;
    const needed = isValidity ? (length === 0 ? 0 : Math.ceil(rows / 8)) : rows * 8;
    return offset >= 0 && offset % 8 === 0 && length >= needed && offset + length <= bodyLength;
  });
  return fits ? null : 'the buffers of a column do not hold its rows';
}
