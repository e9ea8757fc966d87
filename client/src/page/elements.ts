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
  const isNumber = header.map((_, index) => rows.every((row) => typeof row[index] !== 'string'));
  const heads = header.map((text, index) => {
    const kind: Record<string, string> = rows.length > 0 && isNumber[index] ? { class: 'number' } : {};
    return element('th', { scope: 'col', ...kind }, text);
  });
  const head = element('tr', {}, ...heads);
  const body = element('tbody');
  for (const row of rows) body.append(element('tr', {}, ...row.map(cell)));
  return element('table', {}, element('caption', {}, caption), element('thead', {}, head), body);
}

function cell(value: string | number | null): HTMLTableCellElement {
  if (value === null) return element('td', { class: 'missing' }, '\u2013');
  return typeof value === 'number'
    ? element('td', { class: 'number' }, String(value))
    : element('td', {}, value);
}
