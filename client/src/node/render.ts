import { draw } from '../draw/draw.js';
import type { Received } from '../received.js';
import { receive } from '../wire/receive.js';
import { makeDocument, parseXml } from './document.js';
import { svgText } from './svgText.js';

export interface Rendered {
  svg: string;
  /** What the picture leaves out, and what was wrong with the capture. */
  notes: string[];
  problems: string[];
}

/** The charts of a capture, in the order in which they were sent. */
export function chartsOf(capture: Uint8Array): Received[] {
  return receive(capture).filter((received) => received.chartText !== null);
}

/** Draws a chart as the text of an SVG file. Throws an Error where its chart text is no XML. */
export function render(received: Received): Rendered {
  const document = makeDocument();
  const drawn = draw(received, { document, parseXml });
  const { svg } = drawn;
  if (!svg.hasAttribute('role')) svg.setAttribute('role', 'graphics-document');
  addFirst(svg, 'desc', received.description);
  addFirst(svg, 'title', drawn.title);
  return { svg: svgText(svg), notes: drawn.notes, problems: received.problems };
}

function addFirst(svg: SVGSVGElement, name: 'title' | 'desc', text: string): void {
  const present = Array.from(svg.childNodes).some((child) => (child as Element).localName === name);
  if (present || text === '') return;
  const element = svg.ownerDocument.createElementNS('http://www.w3.org/2000/svg', name);
  element.textContent = text;
  svg.insertBefore(element, svg.firstChild);
}
