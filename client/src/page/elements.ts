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

/**
 * A table with a caption, as screen readers want it: the head of each column has its scope. Columns of numbers, which
 * `numeric` tells or their values, stand at the right.
 */
export function table(
  caption: string,
  header: readonly string[],
  rows: readonly (readonly (string | number | null)[])[],
  numeric?: readonly boolean[],
): HTMLTableElement {
  const isNumber =
    numeric ?? header.map((_, index) => rows.every((row) => typeof (row[index] ?? 0) === 'number'));
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

function cell(value: string | number | null, isNumber: boolean): HTMLTableCellElement {
  const attributes: Record<string, string> = isNumber ? { class: 'number' } : {};
  if (value !== null) return element('td', attributes, String(value));
  // Few screen readers say anything of a dash.
  const dash = element('span', { 'aria-hidden': 'true' }, '\u2013');
  return element(
    'td',
    { class: isNumber ? 'missing number' : 'missing' },
    dash,
    element('span', { class: 'unseen' }, 'no value'),
  );
}
