import { expect, test } from 'vitest';
import { imageUrl } from '../../src/page/images.js';
import { indented } from '../../src/page/markup.js';
import type { Content } from '../../src/received.js';

test('Chart text stands with an element on each line', () => {
  expect(indented('<?xml version="1.0"?><a><b c="1"/><d>text</d><e><f></f></e></a>')).toBe(
    [
      '<?xml version="1.0"?>',
      '<a>',
      '  <b c="1"/>',
      '  <d>text</d>',
      '  <e>',
      '    <f>',
      '    </f>',
      '  </e>',
      '</a>',
    ].join('\n'),
  );
});

test('Images are told by how they begin', () => {
  const content = (bytes: number[]): Content => ({
    type: 7,
    subtype: 0,
    name: 'image',
    sentBytes: 1,
    bytes: Uint8Array.from(bytes),
    text: null,
    whole: true,
  });
  expect(imageUrl(content([0x89, 0x50, 0x4e, 0x47, 0]))).toBe('data:image/png;base64,iVBORwA=');
  expect(imageUrl(content([0x3c, 0x73, 0x76, 0x67]))).toBeNull();
  expect(imageUrl(content([]))).toBeNull();
});
