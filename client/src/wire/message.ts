import { contentName } from './contentTypes.js';
import type { MessageNote } from '../received.js';

/** A message that keeps the rules of its layout. */
export interface Message {
  note: MessageNote;
  payload: Uint8Array;
  /** Whether its chunk is full, so that its content may go on in the next message. */
  full: boolean;
}

interface Layout {
  /** Bytes before the payload; four bytes of trailer follow it. */
  head: number;
  fullChunk: number;
}

const trailerBytes = 4;
export const longestMessage = 33_996;

const layouts = new Map<number, Layout>([
  [307, { head: 8, fullChunk: 33_984 }],
  [318, { head: 12, fullChunk: 33_980 }],
]);

/**
 * What a message is, or in one sentence why it is none. A foreign one is of no layout that is known here; any
 * other has been damaged.
 */
export type Parsed = { message: Message } | { note: MessageNote; problem: string; foreign: boolean };

/** Reads one message; `number` and `offset` say where it stands in the capture. */
export function parseMessage(id: number, bytes: Uint8Array, number: number, offset: number): Parsed {
  const note: MessageNote = {
    number,
    offset,
    id,
    type: -1,
    subtype: 0,
    name: 'unknown message',
    chunk: 0,
    length: bytes.length,
  };
  const layout = layouts.get(id);
  const where = `Message ${number} (at byte ${offset})`;
  if (layout === undefined)
    return { note, problem: `${where} has the unknown identifier ${id}; skipped.`, foreign: true };
  if (bytes.length < layout.head + trailerBytes) {
    return { note, problem: `${where} has only ${bytes.length} bytes; skipped.`, foreign: false };
  }
  readHead(id, bytes, note);
  if (note.chunk > layout.fullChunk || note.chunk + layout.head + trailerBytes !== bytes.length) {
    return {
      note,
      problem: `${where} is ${bytes.length} bytes long and says it has ${note.chunk}; skipped.`,
      foreign: false,
    };
  }
  const payload = bytes.subarray(layout.head, layout.head + note.chunk);
  return { message: { note, payload, full: note.chunk === layout.fullChunk } };
}

function readHead(id: number, bytes: Uint8Array, note: MessageNote): void {
  const view = new DataView(bytes.buffer, bytes.byteOffset, bytes.byteLength);
  if (id === 307) {
    note.type = view.getUint8(0);
    note.subtype = view.getUint8(1);
    note.chunk = view.getUint32(4, true);
  } else {
    note.type = view.getUint32(4, true);
    note.chunk = view.getUint32(8, true);
  }
  note.name = contentName(note.type);
}
