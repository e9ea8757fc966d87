import { longestMessage } from './message.js';

/** A message as it lies in a capture, before anybody has looked into it. */
export interface Record {
  id: number;
  /** Where its bytes begin in the capture. */
  offset: number;
  bytes: Uint8Array;
}

export interface Records {
  records: Record[];
  /** Why there are no more, where the capture does not end behind a message. */
  problem: string | null;
}

const mark = 'KCAP0001';
const recordHead = 16;

/** The messages of a capture file, up to where it has been cut. Their bytes are views into the capture. */
export function readRecords(capture: Uint8Array): Records {
  const records: Record[] = [];
  if (!startsWithMark(capture)) {
    return { records, problem: `This is no capture: it does not begin with ${mark}.` };
  }
  const view = new DataView(capture.buffer, capture.byteOffset, capture.byteLength);
  let at = mark.length;
  while (at < capture.length) {
    const number = records.length + 1;
    const left = capture.length - at - recordHead;
    if (left < 0) {
      return { records, problem: `The capture is cut at byte ${capture.length}, before message ${number}.` };
    }
    // Identifiers and lengths that are no safe integers are wrong in any case.
    const id = Number(view.getBigInt64(at, true));
    const length = Number(view.getBigInt64(at + 8, true));
    if (length < 0 || length > longestMessage) {
      const problem = `Message ${number} (at byte ${at}) says that it is ${length} bytes long; nothing behind it can be read.`;
      return { records, problem };
    }
    if (length > left) {
      const problem = `The capture is cut at byte ${capture.length}: message ${number} has ${left} of its ${length} bytes.`;
      return { records, problem };
    }
    at += recordHead;
    records.push({ id, offset: at, bytes: capture.subarray(at, at + length) });
    at += length;
  }
  return { records, problem: null };
}

function startsWithMark(capture: Uint8Array): boolean {
  if (capture.length < mark.length) return false;
  for (let i = 0; i < mark.length; ++i) {
    if (capture[i] !== mark.charCodeAt(i)) return false;
  }
  return true;
}
