import type { Received } from '../received.js';

/** A chart as a picture, and what a reader gets beside it. */
export interface Drawn {
  svg: SVGSVGElement;
  /** In CSS pixels. */
  width: number;
  height: number;
  /** The chart's title, or the description where it has none. */
  title: string;
  /** What of the chart could not be drawn; shown beside it. */
  notes: string[];
  /** What the chart shows as rows: labels, relabelled and formatted values; at most 10,000 rows. */
  dataTable: { header: string[]; rows: (string | number | null)[][] };
}

export interface DrawOptions {
  /** Where elements are made. Under Node it is not a browser's: only what a drawing needs may be relied upon. */
  document: Document;
  /**
   * Parses XML with namespaces, and throws an Error where the text is not well-formed. Of the result only
   * `documentElement`, `childNodes`, `nodeType`, `localName`, `namespaceURI`, `getAttribute`, `getAttributeNS`,
   * `hasAttribute`, `attributes`, `parentNode` and `textContent` may be relied upon.
   */
  parseXml: (text: string) => Document;
}

const svgNamespace = 'http://www.w3.org/2000/svg';

/** Draws the chart of a send. Never throws for what came over the wire: what it cannot draw is in `notes`. */
export function draw(received: Received, options: DrawOptions): Drawn {
  const { document } = options;
  const width = 640;
  const height = 400;
  const svg = document.createElementNS(svgNamespace, 'svg') as SVGSVGElement;
  svg.setAttribute('xmlns', svgNamespace);
  svg.setAttribute('viewBox', `0 0 ${width} ${height}`);
  const title = received.description || 'Chart';
  const text = document.createElementNS(svgNamespace, 'text');
  text.setAttribute('x', '20');
  text.setAttribute('y', '40');
  text.textContent = title;
  svg.append(text);
  return {
    svg,
    width,
    height,
    title,
    notes: ['No element of this chart can be drawn.'],
    dataTable: { header: [], rows: [] },
  };
}
