import { contentName, contentType, Type, type Form } from './contentTypes.js';
import { inflate, joinBytes } from './inflate.js';
import { splitSends, type RawContent, type RawSend } from './sends.js';
import { readTables, reason } from './tables.js';
import type { Content, Done, Received } from '../received.js';

/** How many bytes all that a capture holds may take after decompression, unless the caller says otherwise. */
const usualLimit = 256 * 1024 * 1024;

/** What may still be decompressed: of the whole capture, or many small bombs would do what one cannot. */
interface Budget {
  bytes: number;
}

/**
 * Reads a capture: everything that its senders put on the channel, one entry for each send and at least one.
 * Never throws for what is in the capture: what is wrong there is in `problems`.
 */
export function receive(capture: Uint8Array, limit: number = usualLimit): Received[] {
  const budget: Budget = { bytes: limit };
  return splitSends(capture).map((send) => readSend(send, budget));
}

/** What the announcements of a send say. */
type Announced = Map<number, number>;

function readSend(send: RawSend, budget: Budget): Received {
  const received: Received = {
    description: '',
    englishDescription: '',
    chartText: null,
    tables: new Map(),
    contents: [],
    messages: send.messages,
    done: null,
    problems: [...send.problems],
  };
  const announced: Announced = new Map();
  for (const raw of send.contents) {
    if (contentType(raw.type)?.form === 'announcement') announced.set(raw.type, raw.size);
    try {
      received.contents.push(readContent(raw, announced, budget, received));
    } catch (error) {
      received.problems.push(`${place(raw)} ${reason(error)}.`);
      received.contents.push(content(raw, new Uint8Array(0), null, false));
    }
  }
  for (const [type, announcement] of sizeOnWire) {
    const size = announced.get(announcement);
    if (size !== undefined && !send.contents.some((raw) => raw.type === type)) {
      received.problems.push(`The ${contentName(type)} is missing: ${size} bytes were announced.`);
    }
  }
  // Of a capture that is cut, that has been said.
  if (received.done === null && send.messages.length > 0 && !send.cut) {
    received.problems.push('The end record is missing: the chart was not sent to its end.');
  }
  return received;
}

function place(raw: RawContent): string {
  return `The ${contentName(raw.type)} (from message ${raw.first.number} on)`;
}

function content(raw: RawContent, bytes: Uint8Array, text: string | null, whole: boolean): Content {
  const { type, subtype } = raw;
  return { type, subtype, name: contentName(type), sentBytes: raw.size, bytes, text, whole };
}

/** Reads a content and puts it where it belongs. Throws an Error that goes on with the sentence "The data ...". */
function readContent(raw: RawContent, announced: Announced, budget: Budget, received: Received): Content {
  const type = contentType(raw.type);
  if (type === undefined) return content(raw, joined(raw), null, raw.ended);
  if (type.form === 'announcement') return content(raw, new Uint8Array(0), null, raw.ended);
  requireAnnounced(raw, announced);
  if (!raw.ended) throw new Error('was cut off and is lost');
  if (type.form === 'data') return readData(raw, received);
  const bytes = isCompressed(type.form) ? decompressed(raw, announced, budget) : joined(raw);
  if (type.form === 'end') received.done = endRecord(bytes);
  const text = isText(type.form) ? decoded(raw, bytes, received) : null;
  if (text !== null) keepText(raw.type, text, received);
  return content(raw, bytes, text, true);
}

function isCompressed(form: Form): boolean {
  return form === 'compressedText' || form === 'compressedBytes';
}

function isText(form: Form): boolean {
  return form === 'compressedText' || form === 'text';
}

function joined(raw: RawContent): Uint8Array {
  return joinBytes(raw.chunks, raw.size);
}

/** The announcement that tells the size on the wire, by the type of the content. */
const sizeOnWire = new Map<number, number>([
  [Type.chartText, Type.compressedSize],
  [Type.data, Type.dataSize],
]);

function requireAnnounced(raw: RawContent, announced: Announced): void {
  const size = announced.get(sizeOnWire.get(raw.type) ?? -1);
  if (size !== undefined && size !== raw.size) {
    throw new Error(`has ${raw.size} bytes where ${size} were announced, and is lost`);
  }
}

function decompressed(raw: RawContent, announced: Announced, budget: Budget): Uint8Array {
  const size = raw.type === Type.chartText ? announced.get(Type.chartTextSize) : undefined;
  try {
    const bytes = inflate(joined(raw), Math.min(size ?? budget.bytes, budget.bytes));
    budget.bytes -= bytes.length;
    if (size === undefined || size === bytes.length) return bytes;
    throw new Error(`it holds ${bytes.length} bytes where ${size} were announced`);
  } catch (error) {
    throw new Error(`cannot be decompressed and is lost: ${reason(error)}`);
  }
}

function readData(raw: RawContent, received: Received): Content {
  const { tables, problems } = readTables(joined(raw));
  received.tables = tables;
  received.problems.push(...problems);
  return content(raw, new Uint8Array(0), null, problems.length === 0);
}

function endRecord(bytes: Uint8Array): Done {
  if (bytes.length !== 8) throw new Error(`has ${bytes.length} bytes instead of 8`);
  const view = new DataView(bytes.buffer, bytes.byteOffset, bytes.byteLength);
  return { editable: view.getUint32(0, true), editor: view.getUint32(4, true) };
}

function decoded(raw: RawContent, bytes: Uint8Array, received: Received): string {
  try {
    return new TextDecoder('utf-8', { fatal: true }).decode(bytes);
  } catch {
    received.problems.push(`${place(raw)} is not UTF-8; what is wrong in it is shown as \uFFFD.`);
    return new TextDecoder('utf-8').decode(bytes);
  }
}

function keepText(type: number, text: string, received: Received): void {
  if (type === Type.description) received.description = text;
  else if (type === Type.englishDescription) received.englishDescription = text;
  else if (type === Type.chartText) received.chartText = text;
}
