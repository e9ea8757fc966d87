type Child = Node | string;

/** Makes an element with attributes and children. Texts are texts: nothing that came over the wire is ever markup. */
export function element<Name extends keyof HTMLElementTagNameMap>(
  name: Name,
  attributes: Record<string, string> = {},
  ...children: Child[]
): HTMLElementTagNameMap[Name] {
  const made = document.createElement(name);
  for (const [key, value] of Object.entries(attributes)) made.setAttribute(key, value);
  made.append(...children);
  return made;
}

/** A table with a caption, as screen readers want it: the head of each column has its scope. */
export function table(
  caption: string,
  header: readonly string[],
  rows: readonly (readonly (string | number | null)[])[],
): HTMLTableElement {
  const isNumber = header.map((_, index) => rows.every((row) => looksLikeNumber(row[index] ?? null)));
  const heads = header.map((text, index) => {
    const kind: Record<string, string> = rows.length > 0 && isNumber[index] ? { class: 'number' } : {};
    return element('th', { scope: 'col', ...kind }, text);
  });
  const head = element('tr', {}, ...heads);
  const body = element('tbody');
  for (const row of rows) {
    body.append(element('tr', {}, ...row.map((value, index) => cell(value, isNumber[index] === true))));
  }
  return element('table', {}, element('caption', {}, caption), element('thead', {}, head), body);
}

/** Formatted numbers are texts; they stand below each other all the same. */
function looksLikeNumber(value: string | number | null): boolean {
  return typeof value !== 'string' || /^[-\u2212]?[\d.,\u00a0\u202f]+%?$/.test(value);
}

function cell(value: string | number | null, isNumber: boolean): HTMLTableCellElement {
  if (value === null) return element('td', { class: 'missing' }, '\u2013');
  const attributes: Record<string, string> = isNumber ? { class: 'number' } : {};
  return element('td', attributes, String(value));
}
