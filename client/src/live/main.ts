import { article } from '../page/article.js';
import { element } from '../page/elements.js';
import { count } from '../page/panels.js';
import { receive } from '../wire/receive.js';
import { readNews, type Announcement } from './news.js';

const charts = document.getElementById('charts') as HTMLElement;
const state = document.getElementById('state') as HTMLElement;

/** Charts are fetched and drawn when they come into sight: there may be many. */
const sight = new IntersectionObserver((entries) => {
  for (const entry of entries) {
    if (!entry.isIntersecting) continue;
    sight.unobserve(entry.target);
    void fill(entry.target as HTMLElement);
  }
});

async function fill(place: HTMLElement): Promise<void> {
  const id = place.dataset['chart'] ?? '';
  try {
    const response = await fetch(`charts/${id}.kcap`);
    if (response.status === 404) return say(place, 'it is no longer kept');
    if (!response.ok) throw new Error(response.statusText);
    const bytes = new Uint8Array(await response.arrayBuffer());
    const heads = receive(bytes).map((received, index) => article(received, `chart-${id}-${index + 1}`));
    place.replaceChildren(element('p', { class: 'keys' }, place.dataset['line'] ?? ''), ...heads);
    place.classList.remove('waiting');
  } catch {
    place.dataset['failed'] = '';
    say(place, 'it did not come whole. It is asked for again when the connection is back');
  }
}

function say(place: HTMLElement, why: string): void {
  place.replaceChildren(element('p', { class: 'empty' }, `This chart cannot be shown: ${why}.`));
}

function places(): HTMLElement[] {
  return [...charts.querySelectorAll<HTMLElement>('[data-chart]')];
}

function idOf(place: HTMLElement): number {
  return Number(place.dataset['chart']);
}

/** Newest first, whatever the order in which they are told. */
function add(announcement: Announcement): void {
  const name = `received-${announcement.id}`;
  if (document.getElementById(name) !== null) return;
  const when = new Date(announcement.received).toLocaleString();
  const place = element('div', { id: name, class: 'waiting', 'data-chart': String(announcement.id) });
  place.dataset['line'] = `No. ${announcement.id}, received ${when} from ${announcement.from}`;
  const older = places().find((each) => idOf(each) < announcement.id);
  charts.insertBefore(place, older ?? null);
  sight.observe(place);
  tell();
}

function removeWhere(isGone: (id: number) => boolean): void {
  for (const place of places()) {
    if (!isGone(idOf(place))) continue;
    sight.unobserve(place);
    place.remove();
  }
  tell();
}

function askAgain(): void {
  for (const place of places()) {
    if (place.dataset['failed'] === undefined) continue;
    delete place.dataset['failed'];
    sight.observe(place);
  }
}

function tell(): void {
  const number = places().length;
  state.textContent = number === 0 ? 'No chart has come yet.' : `${count(number, 'chart')}, newest first.`;
}

readNews({
  open: () => {
    tell();
    askAgain();
  },
  begin: (first, isNewServer) => removeWhere((id) => isNewServer || id < first),
  chart: add,
  gone: (gone) => removeWhere((id) => id === gone),
  lost: () => {
    state.textContent = 'The connection is lost; trying again. Does kestrel serve still run?';
  },
});
