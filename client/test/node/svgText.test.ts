import { describe, expect, test } from 'vitest';
import { makeDocument, parseXml } from '../../src/node/document.js';
import { svgText } from '../../src/node/svgText.js';

const namespace = 'http://www.w3.org/2000/svg';

function drawing(): { svg: SVGSVGElement; add: (name: string) => Element } {
  const document = makeDocument();
  const svg = document.createElementNS(namespace, 'svg') as SVGSVGElement;
  return {
    svg,
    add: (name) => svg.appendChild(document.createElementNS(namespace, name)) as Element,
  };
}

describe('a drawing as text', () => {
  test('is well-formed whatever its texts hold', () => {
    const { svg, add } = drawing();
    const text = `<&>"'\u0000\u0007\ud800 é 😀 ]]>`;
    const element = add('text');
    element.textContent = text;
    element.setAttribute('aria-label', text);
    const parsed = parseXml(svgText(svg)).documentElement;
    const kept = `<&>"' é 😀 ]]>`;
    expect(parsed.namespaceURI).toBe(namespace);
    expect(parsed.textContent.trim()).toBe(kept);
    expect((parsed.childNodes[0] as Element).getAttribute('aria-label')).toBe(kept);
  });

  test('keeps the case of names', () => {
    const { svg, add } = drawing();
    svg.setAttribute('viewBox', '0 0 1 2');
    add('clipPath').setAttribute('clipPathUnits', 'userSpaceOnUse');
    expect(svgText(svg)).toBe(
      '<?xml version="1.0" encoding="UTF-8"?>\n' +
        '<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" viewBox="0 0 1 2">' +
        '<clipPath clipPathUnits="userSpaceOnUse"></clipPath></svg>\n',
    );
  });

  test('declares its namespace once', () => {
    const { svg } = drawing();
    svg.setAttribute('xmlns', namespace);
    expect(svgText(svg).match(/xmlns=/g)).toHaveLength(1);
  });

  test('leaves styles of pages out', () => {
    const { svg, add } = drawing();
    add('style').textContent = ':where(.a) { color: red }';
    expect(svgText(svg)).not.toContain('style');
  });
});

describe('the parser', () => {
  test('knows namespaces and character references', () => {
    const root = parseXml('<v xmlns="urn:a" xmlns:b="urn:b" b:x="&amp;&#10;"><w/></v>').documentElement;
    expect(root.namespaceURI).toBe('urn:a');
    expect(root.getAttributeNS('urn:b', 'x')).toBe('&\n');
    expect((root.childNodes[0] as Element).localName).toBe('w');
  });

  test.each(['', '<a>', '<a></b>', '<a>&none;</a>', '<a b=c/>', '<a/><b/>'])('refuses %j', (text) => {
    expect(() => parseXml(text)).toThrow(/^the chart text is no XML: /);
  });

  test('expands no entities of a document type', () => {
    const bomb = '<!DOCTYPE v [<!ENTITY a "aaaaaaaaaa"><!ENTITY b "&a;&a;&a;&a;&a;&a;&a;&a;">]><v>&b;</v>';
    expect(() => parseXml(bomb)).toThrow(/^the chart text is no XML: /);
  });
});
