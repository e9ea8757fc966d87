import { draw, type Drawn } from '../draw/draw.js';
import type { Received } from '../received.js';
import { element } from './elements.js';
import { imageUrl } from './images.js';
import { panelsOf, type Panel } from './panels.js';
import { parseXml } from './xml.js';

/** Makes all that is shown of one send: the chart, what it does not show, and what stands behind it. */
export function article(received: Received, id: string): HTMLElement {
  const problems = [...received.problems];
  const drawn = received.chartText === null ? null : drawnOr(problems, received);
  const title = drawn?.title || received.description || 'Content without a chart';
  const made = element(
    'article',
    { id, 'aria-labelledby': `${id}-title` },
    // The picture has its own titles; the heading is for those who go from heading to heading.
    element('h2', { id: `${id}-title`, class: drawn === null ? 'title' : 'hidden-title' }, title),
  );
  const language = languageOf(received.chartText);
  const panels = panelsOf(received, drawn);
  if (drawn !== null) made.append(figure(drawn, received, id, panels));
  else if (received.description !== '') made.append(element('p', {}, received.description));
  made.append(...images(received, title));
  if (drawn !== null) {
    const kind = hideRepeated(drawn.svg, drawn.notes) ? 'notes in-picture' : 'notes';
    made.append(...list(kind, 'What this picture leaves out', drawn.notes));
  }
  made.append(...list('problems', 'What was wrong with what was received', problems));
  addPanels(made, panels, id);
  if (language !== '') {
    for (const part of made.querySelectorAll('h2, figure svg, .description'))
      part.setAttribute('lang', language);
  }
  return made;
}

/** What a chart's texts are spoken in; empty where it does not say, or cannot be read. */
function languageOf(chartText: string | null): string {
  try {
    const language = chartText === null ? null : parseXml(chartText).documentElement.getAttribute('lang');
    return /^[A-Za-z]{2,8}([-_][A-Za-z0-9]{1,8})*$/.test(language ?? '') ? language!.replace(/_/g, '-') : '';
  } catch {
    return '';
  }
}

function drawnOr(problems: string[], received: Received): Drawn | null {
  try {
    return draw(received, { document, parseXml });
  } catch (error) {
    problems.push(`The chart cannot be drawn: ${error instanceof Error ? error.message : String(error)}.`);
    return null;
  }
}

function figure(drawn: Drawn, received: Received, id: string, panels: readonly Panel[]): HTMLElement {
  const { svg } = drawn;
  liftStyles(svg);
  if (!svg.hasAttribute('role')) svg.setAttribute('role', 'graphics-document');
  svg.setAttribute('aria-roledescription', 'chart');
  svg.setAttribute('aria-label', received.description || drawn.title);
  svg.setAttribute('aria-describedby', `${id}-keys`);
  svg.setAttribute('tabindex', '0');
  svg.setAttribute('aria-keyshortcuts', panels.map((panel) => panel.key.toUpperCase()).join(' '));
  const keys = panels.map((panel) => `${panel.key.toUpperCase()} shows the ${panel.name.toLowerCase()}`);
  return element(
    'figure',
    {},
    element('div', { class: 'picture' }, svg),
    element('figcaption', {}, element('p', { class: 'description' }, received.description)),
    element('p', { id: `${id}-keys`, class: 'keys' }, `${keys.join(', ')}.`),
  );
}

/**
 * The picture has its notes in it, the first of them, and the list below has all: what stands in both is shown in the
 * picture and read from the list. Returns whether all stand in the picture.
 */
function hideRepeated(svg: SVGSVGElement, notes: readonly string[]): boolean {
  const packed = (text: string): string => text.replace(/\s+/g, '');
  const groups = [...svg.querySelectorAll('[role="note"]')];
  for (const group of groups) {
    let rest = packed(group.textContent);
    for (const note of notes) rest = rest.replace(packed(note), '');
    if (/^(And\d+morenotes\.)?$/.test(rest)) group.setAttribute('aria-hidden', 'true');
  }
  const all = packed(groups.map((group) => group.textContent).join(''));
  return notes.every((note) => all.includes(packed(note)));
}

/**
 * Style elements come with the drawing; under the policy of the page they would not count, so they go where scripts
 * may put styles.
 */
function liftStyles(svg: SVGSVGElement): void {
  for (const style of [...svg.querySelectorAll('style')]) {
    const sheet = new CSSStyleSheet();
    sheet.replaceSync(style.textContent);
    document.adoptedStyleSheets = [...document.adoptedStyleSheets, sheet];
    style.remove();
  }
}

function images(received: Received, title: string): HTMLElement[] {
  return received.contents
    .filter((content) => content.name === 'image' && content.whole)
    .map((content) => {
      const url = imageUrl(content);
      if (url !== null) return element('img', { src: url, alt: received.description || title });
      return element(
        'p',
        { class: 'keys' },
        `An image of ${content.bytes.length} bytes that is not shown here.`,
      );
    });
}

function list(kind: string, heading: string, lines: readonly string[]): HTMLElement[] {
  if (lines.length === 0) return [];
  const items = lines.map((line) => element('li', {}, line));
  return [element('section', { class: kind }, element('h3', {}, heading), element('ul', {}, ...items))];
}

function addPanels(made: HTMLElement, panels: readonly Panel[], id: string): void {
  const buttons = element('div', { class: 'buttons', role: 'group', 'aria-label': 'More of this chart' });
  made.append(buttons);
  const drawers = panels.map((panel) => drawer(panel, `${id}-${panel.id}`));
  for (const { button } of drawers) buttons.append(button);
  for (const { place } of drawers) made.append(place);
  const picture = made.querySelector<SVGSVGElement>('figure svg');
  if (picture !== null) drawers.forEach((each) => listenToKeys(picture, each));
}

/** What a button opens and closes, and a key. */
interface Drawer {
  key: string;
  button: HTMLElement;
  place: HTMLElement;
  toggle: () => void;
}

function drawer(panel: Panel, id: string): Drawer {
  const place = element('div', { id, class: 'panel' });
  place.hidden = true;
  const button = element(
    'button',
    { type: 'button', 'aria-expanded': 'false', 'aria-controls': id, class: `show-${panel.id}` },
    panel.name,
  );
  const toggle = (): void => {
    if (place.childElementCount === 0) place.append(panel.make());
    place.hidden = !place.hidden;
    button.setAttribute('aria-expanded', String(!place.hidden));
    if (!place.hidden) place.scrollIntoView({ block: 'nearest' });
  };
  button.addEventListener('click', toggle);
  return { key: panel.key, button, place, toggle };
}

/**
 * Only while the chart itself has the focus, or what was opened, so that no key is taken from anything else. The focus
 * goes where the reader wants to be: without it, who does not see the page would not know what has opened.
 */
function listenToKeys(picture: SVGSVGElement, { key, place, toggle }: Drawer): void {
  const on = (target: Element, keys: readonly string[], run: () => void): void =>
    target.addEventListener('keydown', (event) => {
      const { key: pressed, ctrlKey, metaKey, altKey } = event as KeyboardEvent;
      if (ctrlKey || metaKey || altKey || !keys.includes(pressed.toLowerCase())) return;
      event.preventDefault();
      run();
    });
  on(picture, [key], () => {
    toggle();
    if (!place.hidden) place.querySelector<HTMLElement>('[tabindex="0"]')?.focus();
  });
  on(place, [key, 'escape'], () => {
    toggle();
    picture.focus();
  });
}
