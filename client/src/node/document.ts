import { DOMParser, onWarningStopParsing } from '@xmldom/xmldom';
import { parseHTML } from 'linkedom';

/** A document to make elements in. It has no layout: what needs to know how wide a text is has to estimate it. */
export function makeDocument(): Document {
  return parseHTML('<!doctype html><html><body></body></html>').document as unknown as Document;
}

/** Parses XML with namespaces; throws an Error where the text is not well-formed. */
export function parseXml(text: string): Document {
  try {
    const parser = new DOMParser({ onError: onWarningStopParsing });
    return parser.parseFromString(text, 'application/xml') as unknown as Document;
  } catch (error) {
    throw new Error(`the chart text is no XML: ${error instanceof Error ? error.message : String(error)}`);
  }
}
