import { readRecords } from './captureFile.js';
import { Type } from './contentTypes.js';
import { parseMessage, type Message } from './message.js';
import type { MessageNote } from '../received.js';

/** A content as its chunks came, put together but not yet read. */
export interface RawContent {
  id: number;
  type: number;
  subtype: number;
  chunks: Uint8Array[];
  size: number;
  /** The message that it begins with. */
  first: MessageNote;
  /** Whether it ended as contents end, and not because the capture did, or a message could not be read. */
  ended: boolean;
}

/** What one chart put on the channel. */
export interface RawSend {
  contents: RawContent[];
  messages: MessageNote[];
  problems: string[];
  /** Whether the capture ends within it. */
  cut: boolean;
}

/** Sorts the messages of a capture into sends, and their chunks into contents. There is always one send. */
export function splitSends(capture: Uint8Array): RawSend[] {
  const { records, problem } = readRecords(capture);
  const sorter = new Sorter();
  records.forEach((record, index) => {
    const parsed = parseMessage(record.id, record.bytes, index + 1, record.offset);
    if ('message' in parsed) sorter.take(parsed.message);
    else sorter.skip(parsed.note, parsed.problem, parsed.foreign);
  });
  return sorter.finish(problem);
}

class Sorter {
  private readonly sends: RawSend[] = [];
  private send: RawSend | null = null;
  /** The content that the next message may continue. */
  private open: RawContent | null = null;

  take(message: Message): void {
    const { note, payload } = message;
    const continues =
      this.open !== null &&
      this.open.id === note.id &&
      this.open.type === note.type &&
      this.open.subtype === note.subtype;
    if (!continues) {
      this.close(true);
      if (note.type === Type.description) this.send = null;
      this.open = {
        id: note.id,
        type: note.type,
        subtype: note.subtype,
        chunks: [],
        size: 0,
        first: note,
        ended: true,
      };
      this.current().contents.push(this.open);
    }
    const content = this.open as RawContent;
    this.current().messages.push(note);
    content.chunks.push(payload);
    content.size += payload.length;
    if (message.full) return;
    this.close(true);
    if (note.type === Type.done) this.send = null;
  }

  skip(note: MessageNote, problem: string, foreign: boolean): void {
    // A damaged message may have been a chunk of the content that is open.
    this.close(foreign);
    this.current().messages.push(note);
    this.current().problems.push(problem);
  }

  finish(problem: string | null): RawSend[] {
    this.close(problem === null);
    if (problem !== null) {
      // What is cut belongs to the send that was under way, or to the last one.
      const target = this.send ?? this.sends.at(-1) ?? this.current();
      target.problems.push(problem);
      target.cut = true;
    }
    if (this.sends.length === 0) this.current();
    return this.sends;
  }

  private close(ended: boolean): void {
    if (this.open !== null) this.open.ended = ended;
    this.open = null;
  }

  private current(): RawSend {
    if (this.send === null) {
      this.send = { contents: [], messages: [], problems: [], cut: false };
      this.sends.push(this.send);
    }
    return this.send;
  }
}
