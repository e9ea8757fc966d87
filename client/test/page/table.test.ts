import { afterEach, beforeEach, expect, test, vi } from 'vitest';
import { makeDocument } from '../../src/node/document.js';
import { table } from '../../src/page/elements.js';

beforeEach(() => vi.stubGlobal('document', makeDocument()));
afterEach(() => vi.unstubAllGlobals());

const cells = (made: HTMLElement, row: number) => Array.from(made.querySelectorAll('tr')[row]!.children);

test('numbers stand at the right, below the head of their column', () => {
  const made = table('Figures', ['name', 'cost'], [['one', '$1.50']], [false, true]);
  expect(cells(made, 0).map((cell) => cell.className)).toEqual(['', 'number']);
  expect(cells(made, 1).map((cell) => cell.className)).toEqual(['', 'number']);
});

test('columns of plain numbers need not be told', () => {
  const made = table(
    'Figures',
    ['no', 'name'],
    [
      [1, 'one'],
      [2, '2'],
    ],
  );
  expect(cells(made, 2).map((cell) => cell.className)).toEqual(['number', '']);
});

test('a missing value is a dash for the eye, and words for a screen reader', () => {
  const [cell] = cells(table('Figures', ['cost'], [[null]], [true]), 1);
  expect(cell!.getAttribute('class')).toBe('missing number');
  const [dash, words] = Array.from(cell!.children);
  expect([dash!.textContent, dash!.getAttribute('aria-hidden')]).toEqual(['\u2013', 'true']);
  expect([words!.textContent, words!.getAttribute('class')]).toEqual(['no value', 'unseen']);
});

test('a table without rows has no columns of numbers', () => {
  const made = table('Figures', ['cost'], []);
  expect(cells(made, 0).map((cell) => cell.className)).toEqual(['']);
});
