/** Parses XML with the browser's parser; throws an Error where the text is not well-formed. */
export function parseXml(text: string): Document {
  const document = new DOMParser().parseFromString(text, 'application/xml');
  const error = document.getElementsByTagName('parsererror')[0];
  if (error !== undefined) {
    const [why = ''] = (error.querySelector('div') ?? error).textContent.trim().split('\n');
    throw new Error(`the chart text is no XML: ${why}`);
  }
  return document;
}
