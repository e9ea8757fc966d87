/** Every attribute and every element of the schema is drawn, named in a note, or known to say nothing of the picture. */
import { readFileSync } from 'node:fs';
import { describe, expect, test } from 'vitest';
import { parseXml } from '../../src/node/document.js';
import { decisions } from './decisions.js';
import { changed, nothing, outcomeOf, specimens, type Change, type Outcome } from './specimens.js';

const schema = parseXml(readFileSync('../schema/lumoml.xsd', 'utf8'));
const named = (parent: Document | Element, name: string) =>
  Array.from(parent.getElementsByTagNameNS('http://www.w3.org/2001/XMLSchema', name));

/** As type@attribute and type>child; what a type has from another one stands there. */
const inSchema = named(schema, 'complexType').flatMap((type) => {
  const own = (name: string, sign: string) =>
    named(type, name).map((each) => `${type.getAttribute('name')}${sign}${each.getAttribute('name')}`);
  const free = named(type, 'anyAttribute').map(() => `${type.getAttribute('name')}@*`);
  return [...own('attribute', '@'), ...free, ...own('element', '>')];
});

const known = new Map<string, Outcome>();

function outcome(specimen: string, change: Change): Outcome {
  if (change !== nothing) return outcomeOf(changed(specimen, change));
  if (!known.has(specimen)) known.set(specimen, outcomeOf(changed(specimen, nothing)));
  return known.get(specimen)!;
}

test('somebody has decided on all that is in the schema', () => {
  expect(inSchema.length).toBeGreaterThan(300);
  expect(Object.keys(decisions).sort()).toEqual([...new Set(inSchema)].sort());
});

test('the specimens are drawn', () => {
  for (const name of Object.keys(specimens)) {
    expect(outcome(name, nothing).notes.join(), name).not.toMatch(/nothing to draw|cannot be drawn/);
  }
});

const of = (is: string) => Object.entries(decisions).filter(([, decision]) => decision.is === is);

describe('what is drawn looks different', () => {
  test.each(of('drawn'))('%s', (_, decision) => {
    if (decision.is !== 'drawn') throw new Error();
    const changes = decision.changes.length > 1 ? decision.changes : [nothing, ...decision.changes];
    const pictures = changes.map((change) => outcome(decision.specimen, change).picture);
    expect(new Set(pictures).size).toBe(changes.length);
  });
});

describe('what is not drawn is in a note', () => {
  test.each(of('noted'))('%s', (_, decision) => {
    if (decision.is !== 'noted') throw new Error();
    expect(outcome(decision.specimen, decision.change).notes.join('\n')).toMatch(decision.words);
    if (decision.change !== nothing)
      expect(outcome(decision.specimen, nothing).notes.join('\n')).not.toMatch(decision.words);
  });
});

describe('what says nothing of the picture changes nothing', () => {
  test.each(of('silent'))('%s', (_, decision) => {
    if (decision.is !== 'silent') throw new Error();
    expect(decision.why).not.toBe('');
    expect(outcome(decision.specimen, decision.change)).toEqual(outcome(decision.specimen, nothing));
  });
});
