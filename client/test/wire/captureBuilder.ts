import { deflateSync } from 'node:zlib';
import {
  Float64,
  makeData,
  RecordBatch,
  Schema,
  Field,
  Struct,
  Table,
  tableToIPC,
  vectorFromArray,
} from 'apache-arrow';

/** Writes captures byte by byte, and knows nothing of the decoder. */
export class CaptureBuilder {
  private readonly parts: Buffer[] = [Buffer.from('KCAP0001', 'latin1')];

  /** A message of any kind. */
  record(id: number, bytes: Uint8Array, length = bytes.length): this {
    const head = Buffer.alloc(16);
    head.writeBigInt64LE(BigInt(id), 0);
    head.writeBigInt64LE(BigInt(length), 8);
    this.parts.push(head, Buffer.from(bytes));
    return this;
  }

  /** A message of layout 307. */
  message(type: number, payload: Uint8Array, subtype = 0, trailer = 0): this {
    const bytes = Buffer.alloc(payload.length + 12);
    bytes.writeUInt8(type, 0);
    bytes.writeUInt8(subtype, 1);
    bytes.writeUInt32LE(payload.length, 4);
    Buffer.from(payload).copy(bytes, 8);
    bytes.writeUInt32LE(trailer, 8 + payload.length);
    return this.record(307, bytes);
  }

  /** A message of layout 318. */
  interactiveMessage(type: number, payload: Uint8Array): this {
    const bytes = Buffer.alloc(payload.length + 16);
    bytes.writeUInt32LE(1, 0);
    bytes.writeUInt32LE(type, 4);
    bytes.writeUInt32LE(payload.length, 8);
    Buffer.from(payload).copy(bytes, 12);
    return this.record(318, bytes);
  }

  /** A content in chunks as a sender cuts it. */
  content(type: number, payload: Uint8Array | string, subtype = 0): this {
    const bytes = Buffer.from(payload as Uint8Array);
    for (let at = 0; at < bytes.length; at += fullChunk) {
      this.message(type, bytes.subarray(at, at + fullChunk), subtype);
    }
    return this;
  }

  interactiveContent(type: number, payload: Uint8Array | string): this {
    const bytes = Buffer.from(payload as Uint8Array);
    for (let at = 0; at < bytes.length; at += fullInteractiveChunk) {
      this.interactiveMessage(type, bytes.subarray(at, at + fullInteractiveChunk));
    }
    return this;
  }

  /** The chart text with both its announcements. */
  chartText(text: string): this {
    const bytes = Buffer.from(text, 'utf8');
    const sent = deflateSync(bytes);
    return this.content(2, Buffer.alloc(bytes.length)).content(4, Buffer.alloc(sent.length)).content(1, sent);
  }

  data(stream: Uint8Array): this {
    return this.content(5, Buffer.alloc(stream.length)).content(8, stream);
  }

  done(editable = 0, editor = 1): this {
    const bytes = Buffer.alloc(8);
    bytes.writeUInt32LE(editable, 0);
    bytes.writeUInt32LE(editor, 4);
    return this.message(3, bytes);
  }

  bytes(): Buffer {
    return Buffer.concat(this.parts);
  }
}

export const fullChunk = 33_984;
export const fullInteractiveChunk = 33_980;

/** A chart as it is usually sent. */
export function usualChart(stream: Uint8Array): CaptureBuilder {
  return new CaptureBuilder()
    .content(0, 'Höhe der Berge')
    .content(9, 'Hohe der Berge')
    .chartText('<visualization xmlns="http://xml.vexa.example/visualization"/>')
    .data(stream)
    .done();
}

/** One Arrow stream for a source, written by Arrow itself. */
export function arrowStream(source: string, columns: Record<string, (number | null)[]>): Uint8Array {
  const vectors = Object.entries(columns).map(
    ([name, cells]) => [name, vectorFromArray(cells, new Float64())] as const,
  );
  const fields = vectors.map(([name]) => new Field(name, new Float64(), true));
  const schema = new Schema(fields, new Map([['source', source]]));
  const children = vectors.map(
    ([, vector]) => vector.data[0] ?? makeData({ type: new Float64(), length: 0 }),
  );
  const length = vectors[0]?.[1].length ?? 0;
  const struct = makeData({ type: new Struct(fields), length, children });
  return tableToIPC(new Table(schema, [new RecordBatch(schema, struct)]), 'stream');
}
