import { Unzlib } from 'fflate';

/** So much is decompressed at a time: of the worst input it becomes a thousand times more. */
const step = 1 << 14;

/**
 * Decompresses one zlib stream, checksum included. Throws an Error that says why where it is damaged, has
 * anything behind it, or holds more than `limit` bytes; never holds much more than `limit` itself.
 */
export function inflate(bytes: Uint8Array, limit: number): Uint8Array {
  if (bytes.length < 8) throw new Error('it is too short for a zlib stream');
  const parts: Uint8Array[] = [];
  let size = 0;
  const stream = new Unzlib((part) => {
    size += part.length;
    if (size > limit) throw new Error(`it holds more than ${limit} bytes`);
    if (part.length > 0) parts.push(part);
  });
  for (let at = 0; at < bytes.length; at += step) {
    stream.push(bytes.subarray(at, at + step), at + step >= bytes.length);
  }
  const whole = joinBytes(parts, size);
  const view = new DataView(bytes.buffer, bytes.byteOffset, bytes.byteLength);
  if (adler32(whole) !== view.getUint32(bytes.length - 4)) throw new Error('its checksum is wrong');
  return whole;
}

export function joinBytes(parts: readonly Uint8Array[], size: number): Uint8Array {
  const [only] = parts;
  if (parts.length === 1 && only !== undefined) return only;
  const whole = new Uint8Array(size);
  let at = 0;
  for (const part of parts) {
    whole.set(part, at);
    at += part.length;
  }
  return whole;
}

/** The checksum at the end of a zlib stream. */
function adler32(bytes: Uint8Array): number {
  const modulus = 65_521;
  // So many sums fit into 32 bits before they have to be reduced.
  const stride = 3_800;
  let low = 1;
  let high = 0;
  for (let at = 0; at < bytes.length; ) {
    const end = Math.min(at + stride, bytes.length);
    for (; at < end; ++at) {
      low += bytes[at] as number;
      high += low;
    }
    low %= modulus;
    high %= modulus;
  }
  return ((high << 16) | low) >>> 0;
}
