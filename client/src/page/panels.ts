import type { Drawn } from '../draw/draw.js';
import type { Content, Received } from '../received.js';
import { element, table } from './elements.js';
import { indented } from './markup.js';

/** What stands beside a chart and is shown on demand. */
export interface Panel {
  id: string;
  name: string;
  /** The key that shows and hides it while the chart has the focus. */
  key: string;
  /** Makes what is shown; called when it is shown for the first time. */
  make: () => HTMLElement;
}

export function panelsOf(received: Received, drawn: Drawn | null): Panel[] {
  const panels: Panel[] = [];
  if (drawn !== null && drawn.dataTable.header.length > 0) {
    panels.push({ id: 'table', name: 'Data table', key: 't', make: () => dataTable(drawn) });
  }
  const { chartText } = received;
  if (chartText !== null) {
    panels.push({ id: 'text', name: 'Chart text', key: 'x', make: () => markup(chartText) });
  }
  const others = received.contents.filter((content) => content.text && !shownElsewhere.has(content.name));
  if (others.length > 0) {
    panels.push({ id: 'others', name: 'Other contents', key: 'o', make: () => otherTexts(others) });
  }
  panels.push({ id: 'messages', name: 'Messages', key: 'm', make: () => traffic(received) });
  return panels;
}

/** Texts that have places of their own. */
const shownElsewhere = new Set(['description', 'English description', 'chart text']);

/** More of a text is not read on a screen, and would make the page slow. */
const mostLetters = 200_000;

function otherTexts(contents: readonly Content[]): HTMLElement {
  const parts = contents.map((content) => {
    const text = content.text ?? '';
    const shown = text.length > mostLetters ? `${text.slice(0, mostLetters)} …` : text;
    const label = `${content.name}, ${count(text.length, 'character')}`;
    return element('div', {}, element('h3', {}, label), region(label, element('pre', {}, shown)));
  });
  return element('div', {}, ...parts);
}

const mostRows = 10_000;

function dataTable(drawn: Drawn): HTMLElement {
  const { header, rows, numeric } = drawn.dataTable;
  const caption =
    rows.length < mostRows
      ? `The data of the chart, ${count(rows.length, 'row')}`
      : `The first ${count(rows.length, 'row')} of the data`;
  return region(caption, table(caption, header, rows, numeric));
}

function markup(text: string): HTMLElement {
  return region('Chart text', element('pre', {}, element('code', {}, indented(text))));
}

function traffic(received: Received): HTMLElement {
  const { contents, messages, done } = received;
  const end = done === null ? 'no end record' : `editable ${done.editable}, editor ${done.editor}`;
  return element(
    'div',
    {},
    region(
      'Contents',
      table(
        `${count(contents.length, 'content')}, ${end}`,
        ['type', 'name', 'subtype', 'bytes sent', 'bytes', 'state'],
        contents.map((one) => [
          one.type,
          one.name,
          one.subtype,
          one.sentBytes,
          one.bytes.length,
          one.whole ? 'whole' : 'lost',
        ]),
      ),
    ),
    region(
      'Messages',
      table(
        count(messages.length, 'message'),
        ['no', 'identifier', 'type', 'name', 'subtype', 'chunk', 'length', 'at byte'],
        messages.map((one) => [
          one.number,
          one.id,
          one.type,
          one.name,
          one.subtype,
          one.chunk,
          one.length,
          one.offset,
        ]),
      ),
    ),
  );
}

/** A part that scrolls by itself, and by the keyboard too. */
function region(label: string, child: HTMLElement): HTMLElement {
  return element('div', { class: 'scroll', role: 'region', 'aria-label': label, tabindex: '0' }, child);
}

export function count(number: number, noun: string): string {
  return `${number.toLocaleString('en')} ${noun}${number === 1 ? '' : 's'}`;
}
