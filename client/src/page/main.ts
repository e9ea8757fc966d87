import { receive } from '../wire/receive.js';
import { article } from './article.js';
import { bytesOfBase64 } from './base64.js';
import { element } from './elements.js';

/** Shows the capture that stands in the page itself. */
function show(): void {
  const main = document.querySelector('main') as HTMLElement;
  const embedded = document.getElementById('capture');
  const sends = receive(bytesOfBase64(embedded?.textContent ?? ''));
  main.replaceChildren(
    element('h1', { class: 'hidden-title' }, document.title),
    ...sends.map((received, index) => article(received, `chart-${index + 1}`)),
  );
  const title = main.querySelector('h2')?.textContent;
  if (title) document.title = title;
  // For whoever waits until all is drawn.
  document.documentElement.dataset['drawn'] = String(sends.length);
}

show();
