/** How the payload of a content is to be read. */
export type Form = 'text' | 'compressedText' | 'compressedBytes' | 'bytes' | 'announcement' | 'data' | 'end';

export interface ContentType {
  name: string;
  form: Form;
}

export const Type = {
  description: 0,
  chartText: 1,
  chartTextSize: 2,
  done: 3,
  compressedSize: 4,
  dataSize: 5,
  data: 8,
  englishDescription: 9,
} as const;

/** By the number of the type. */
const contentTypes: readonly ContentType[] = [
  { name: 'description', form: 'text' },
  { name: 'chart text', form: 'compressedText' },
  { name: 'chart text size', form: 'announcement' },
  { name: 'done', form: 'end' },
  { name: 'compressed size', form: 'announcement' },
  { name: 'data size', form: 'announcement' },
  { name: 'CSV content', form: 'bytes' },
  { name: 'image', form: 'compressedBytes' },
  { name: 'data', form: 'data' },
  { name: 'English description', form: 'text' },
  { name: 'map information', form: 'bytes' },
  { name: 'CSV name', form: 'text' },
  { name: 'engine JSON', form: 'compressedText' },
  { name: 'engine template', form: 'compressedText' },
  { name: 'GeoJSON name', form: 'text' },
  { name: 'GeoJSON', form: 'compressedText' },
  { name: 'interactive JSON', form: 'compressedText' },
  { name: 'procedure name', form: 'text' },
  { name: 'JSON path', form: 'text' },
  { name: 'options', form: 'text' },
  { name: 'chart options', form: 'text' },
  { name: 'service template', form: 'text' },
];

/** What is known of a type; undefined for one that senders to come may have. */
export function contentType(type: number): ContentType | undefined {
  return contentTypes[type];
}

export function contentName(type: number): string {
  return contentTypes[type]?.name ?? `type ${type}`;
}
