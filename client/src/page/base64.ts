/** The bytes of a text in base64; white space in it counts for nothing. */
export function bytesOfBase64(text: string): Uint8Array {
  const packed = atob(text);
  const bytes = new Uint8Array(packed.length);
  for (let i = 0; i < packed.length; ++i) bytes[i] = packed.charCodeAt(i);
  return bytes;
}
