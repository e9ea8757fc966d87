// Reads data streams with the Arrow implementation of npm and compares them with what must be in them:
//   node read_stream.mjs PROGRAM FOLDER
// PROGRAM writes the streams and the expectations into FOLDER, which is emptied first.

import { execFileSync } from 'node:child_process';
import { readFileSync, readdirSync, rmSync } from 'node:fs';
import { join } from 'node:path';
import assert from 'node:assert/strict';
import { Precision, RecordBatchReader, Type } from 'apache-arrow';

/** A number from its text, null for a missing one. Number() knows no "inf" and "nan". */
function numberOf(text) {
  switch (text) {
    case null: return null;
    case 'inf': return Infinity;
    case '-inf': return -Infinity;
    case 'nan':
    case '-nan': return NaN;
    default: return Number(text);
  }
}

function readSource(reader) {
  const fields = reader.schema.fields;
  const batches = [...reader];
  assert.equal(batches.length, 1, 'one batch for each source');
  for (const field of fields) {
    assert.equal(field.typeId, Type.Float);
    assert.equal(field.type.precision, Precision.DOUBLE);
    assert.equal(field.nullable, true);
  }
  const columns = fields.map((field, index) => {
    const vector = batches[0].getChildAt(index);
    const cells = Array.from({ length: batches[0].numRows }, (_, row) => vector.get(row));
    assert.equal(vector.nullCount, cells.filter((cell) => cell === null).length, 'the count of missing cells');
    return { name: field.name, cells };
  });
  return { source: reader.schema.metadata.get('source'), columns };
}

function readStream(bytes) {
  if (bytes.length === 0) return [];
  const sources = [];
  for (const reader of RecordBatchReader.readAll(bytes)) sources.push(readSource(reader.open()));
  return sources;
}

const [program, folder] = process.argv.slice(2);
rmSync(folder, { recursive: true, force: true });
execFileSync(program, [folder], { stdio: 'inherit' });

const names = readdirSync(folder).filter((name) => name.endsWith('.arrow')).map((name) => name.slice(0, -6));
assert.ok(names.length > 0, 'there are streams to read');
for (const name of names) {
  const expected = JSON.parse(readFileSync(join(folder, `${name}.json`), 'utf8'));
  for (const source of expected) {
    for (const column of source.columns) column.cells = column.cells.map(numberOf);
  }
  const found = readStream(new Uint8Array(readFileSync(join(folder, `${name}.arrow`))));
  // Tells 0 from -0, and takes NaN for NaN.
  assert.deepStrictEqual(found, expected, name);
  console.log(`${name}: ${found.length} sources as expected`);
}
