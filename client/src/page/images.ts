import type { Content } from '../received.js';

/** What the images begin with that a browser shows. */
const kinds: readonly { type: string; begin: readonly number[] }[] = [
  { type: 'image/png', begin: [0x89, 0x50, 0x4e, 0x47] },
  { type: 'image/jpeg', begin: [0xff, 0xd8, 0xff] },
  { type: 'image/gif', begin: [0x47, 0x49, 0x46, 0x38] },
  { type: 'image/bmp', begin: [0x42, 0x4d] },
];

/** The image as a data URL, or null where it is of no kind that a browser shows. */
export function imageUrl(content: Content): string | null {
  const kind = kinds.find(({ begin }) => begin.every((byte, index) => content.bytes[index] === byte));
  if (kind === undefined) return null;
  let packed = '';
  const step = 1 << 14;
  for (let at = 0; at < content.bytes.length; at += step) {
    packed += String.fromCharCode(...content.bytes.subarray(at, at + step));
  }
  return `data:${kind.type};base64,${btoa(packed)}`;
}
