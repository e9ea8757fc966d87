import { article } from '../page/article.js';
import { element } from '../page/elements.js';
import { count } from '../page/panels.js';
import { receive } from '../wire/receive.js';

/** What the server says of a chart that it keeps. */
interface Announcement {
  id: number;
  /** Where it came from, and when, in milliseconds since 1970. */
  from: string;
  received: number;
}

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
    if (!response.ok) throw new Error(response.status === 404 ? 'it is no longer kept' : response.statusText);
    const sends = receive(new Uint8Array(await response.arrayBuffer()));
    const heads = sends.map((received, index) => article(received, `chart-${id}-${index + 1}`));
    place.replaceChildren(element('p', { class: 'keys' }, place.dataset['line'] ?? ''), ...heads);
    place.classList.remove('waiting');
  } catch (error) {
    place.replaceChildren(
      element('p', { class: 'empty' }, `This chart cannot be shown: ${(error as Error).message}.`),
    );
  }
}

/** Newest first, whatever the order in which they are told. */
function add(announcement: Announcement): void {
  const name = `received-${announcement.id}`;
  if (document.getElementById(name) !== null) return;
  const when = new Date(announcement.received).toLocaleString();
  const place = element('div', { id: name, class: 'waiting', 'data-chart': String(announcement.id) });
  place.dataset['line'] = `No. ${announcement.id}, received ${when} from ${announcement.from}`;
  const older = [...charts.children].find(
    (child) => Number((child as HTMLElement).dataset['chart'] ?? 0) < announcement.id,
  );
  charts.insertBefore(place, older ?? null);
  sight.observe(place);
  tell();
}

function remove(id: number): void {
  document.getElementById(`received-${id}`)?.remove();
  tell();
}

function tell(): void {
  const number = charts.querySelectorAll('[data-chart]').length;
  state.textContent = number === 0 ? 'No chart has come yet.' : `${count(number, 'chart')}, newest first.`;
}

const events = new EventSource('events');
events.addEventListener('chart', (event) =>
  add(JSON.parse((event as MessageEvent<string>).data) as Announcement),
);
events.addEventListener('gone', (event) => remove(Number((event as MessageEvent<string>).data)));
events.addEventListener('open', () => tell());
events.addEventListener('error', () => {
  state.textContent = 'The connection is lost; trying again.';
});
