/** Charts that together have every element of the markup, each part of them with an id by which it can be changed. */
import { XMLSerializer } from '@xmldom/xmldom';
import { draw } from '../../src/draw/draw.js';
import { hashOf } from '../../src/draw/svg/svg.js';
import { makeDocument, parseXml } from '../../src/node/document.js';
import { svgText } from '../../src/node/svgText.js';
import { chartText, receivedOf, tableOf } from './chart.js';

const day = 86_400;

const columns = {
  a: [1, 2, 3, 4, 1.5, 2.5, 3.5, 1],
  b: [3, 1, 4, 1.5, 5, 9, 2.25, 6],
  n: [10, 1000, 2000, 3, 40, 500, 60, 70],
  k: [1, 1, 2, 2, 1, 2, 1, 2],
  g: [1, 2, 1, 2, 2, 1, 1, 2],
  d: [0, 20, 45, 70, 95, 120, 145, 170].map((days) => (15_400 + days) * day),
  w: [1, 2, 3, 1, 2, 3, 1, 2],
  c: [1, 1, 1, 1, 1, 1, 1, 1],
  o: [-2, 2, 2, 3, 3, 4, 4, 100],
  m: [1, 2, null, 4, 5, 6, 7, 8],
};

const relabels = (id: string, ...texts: string[]) =>
  `<format>${texts.map((text, at) => `<relabel id="${id}${at}" from="${at + 1}" to="${text}"/>`).join('')}</format>`;

const variables = `<userSource id="s"/>
  <sourceVariable id="va" source="s" sourceName="a" label="The a"/>
  <sourceVariable id="vb" source="s" sourceName="b" label="The b"/>
  <sourceVariable id="vn" source="s" sourceName="n" label="The n"/>
  <sourceVariable id="vk" source="s" sourceName="k" label="The k" categorical="true">${relabels('rk', 'low', 'high')}</sourceVariable>
  <sourceVariable id="vg" source="s" sourceName="g" label="The g" categorical="true">${relabels('rg', 'left', 'right')}</sourceVariable>
  <sourceVariable id="vd" source="s" sourceName="d" label="The d" inputDateFormatPattern="yyyy-MM-dd"/>
  <sourceVariable id="vw" source="s" sourceName="w" label="The w"/>
  <sourceVariable id="vc" source="s" sourceName="c" label="The c" categorical="true"/>
  <sourceVariable id="vo" source="s" sourceName="o" label="The o"/>
  <sourceVariable id="vm" source="s" sourceName="m" label="The m"/>`;

const styles = `<style id="container">
  <style id="page" color="#FFFFFE"/><style id="cell" color="#FEFEFE"/><style id="line" color="#111111"/>
  <style id="text" color="#222222"/><style id="ticks" color="#333333"/><style id="marks" color="#444444"/>
  <style id="grid" color="#DDDDDD"/><style id="own" color="#0055AA"/><style id="guide" color="#AA0000"/>
  <style id="frame" color="#EEEEEE"/><style id="caption" color="#555555"/>
  <style id="red" color="#FF0000"/><style id="huge" font_size="90px"/><style id="boxed" color="#FFFF00" color2="#000000"/></style>`;

const axis = (name: string, rest = '') =>
  `<axis id="a${name}" style="line"><label id="l${name}" style="text"><text id="t${name}">Axis ${name}</text></label>` +
  `<majorTicks id="m${name}" style="ticks" markStyle="marks" tickFrameStyle="none">${rest}</majorTicks></axis>`;

const plainY = `<dimension id="dy">${axis('y')}</dimension>`;
const xy = '<x id="ex" variable="va"/><y id="ey" variable="vb"/>';

const chart = (graph: string, rest = '', attributes = '') =>
  chartText(`<graph id="graph" cellStyle="cell">${graph}</graph>${variables}${styles}${rest}`, attributes);

const frames = `
  <extension id="parts" title2="second" subtitle="under"/>
  <labelFrame id="head" style="frame"><label id="headLabel" style="caption" purpose="1"><text>Head</text></label>
    <location id="headTop" part="2" value="5px"/><location id="headHeight" part="5" value="30px"/></labelFrame>
  <labelFrame id="second"><label><text>Second</text></label></labelFrame>
  <labelFrame id="under"><label id="underLabel"><text>Under</text></label></labelFrame>
  <labelFrame id="foot"><label purpose="4"><text>Foot</text></label></labelFrame>
  <labelFrame id="summary"><label id="summaryLabel"><descriptionGroup id="group" target="e"><text id="groupText">Mean </text>
    <description id="figure" name="5"><format id="figureFormat"/></description></descriptionGroup></label></labelFrame>`;

/** By their names. */
export const specimens: Record<string, string> = {
  points: chart(
    `<coordinates id="co"><dimension id="dx" domain="dox">${axis('x', '<format id="fm"/><gridline id="gl" style="grid"/>')}<scale id="sc"/></dimension>
    ${plainY}</coordinates>
    <point id="e" style="own">${xy}<labeling id="lb" variable="vk" style="text"><format id="lf"/></labeling></point>
    <lineGuide id="lg" name="At two" x="2" style="guide"><conditionalStyle id="lc" when="facet1 == &quot;9&quot;" style="red"/></lineGuide>
    <functionGuide id="fg" name="Function" value="x" style="guide"/>
    <location id="graphLeft" part="0" value="20px"/>`,
    `<intervalDomain id="dox"><range id="ra" min="0" max="5"/></intervalDomain>
     <intervalDomain id="wide"><format id="df" suffix=" m"/><range min="-10" max="50"/></intervalDomain>${frames}
     <location id="pageWidth" part="4" value="600px"/><extension id="free"/>
     <labelFrame id="boxedLabel"><label id="bx"><text id="boxText">Boxed</text></label></labelFrame>`,
    'id="all" style="page" description="Points" lang="en-US" name="Name"',
  ),
  groups: chart(
    `<coordinates><dimension>${axis('x')}</dimension>${plainY}</coordinates>
    <point id="e">${xy}<color id="color" variable="vk" cycle="cy"><colorMapping id="cm" from="2" to="#123456"/></color>
      <shape id="shape" variable="vg"><symbolMapping id="sm" from="2" to="star"/></shape>
      <size id="size" variable="vn" low="4px" high="20px"/><transparency id="clear" variable="vb" low="0" high="0.5"/></point>`,
    `<styleCycle id="cy"><cycle id="cyc"><style id="c1" color="#101010"/><style color="#202020"/></cycle></styleCycle>
     <styleCycle id="repo"><cycle id="cycle_shape"><style symbol="square"/><style symbol="diamond"/></cycle></styleCycle>
     <categoricalDomain id="order"><simpleSort id="ss"><categoryOrder id="oo">2;1</categoryOrder></simpleSort></categoricalDomain>
     <categoricalDomain id="some"><categories>1</categories></categoricalDomain>
     <intervalDomain id="many"><range min="-5000" max="5000"/></intervalDomain><extension id="parts"/>
     <legend id="le" style="frame" tickTextStyle="text"><label id="ll"><text>Kinds</text></label>
       <legendTarget id="lt" target="color"/><location id="leg" part="0" value="0%"/></legend>`,
  ),
  styled: chart(
    `<coordinates><dimension>${axis('x')}</dimension>${plainY}</coordinates>
    <interval id="e"><x variable="vk"/><styleBy id="by" variable="vg" styleCycle="cy"/><summaryStatistic method="10"/></interval>`,
    `<styleCycle id="cy"><extension id="cx" aesthetic="color"/><cycle><style id="c1" color="#101010"/><style color="#202020"/></cycle></styleCycle>
     <styleCycle id="cz"><cycle><style id="z1" color="#303030"/><style color="#404040"/></cycle></styleCycle>
     <categoricalDomain id="some"><categories>1</categories></categoricalDomain>
     <legend id="le"><legendTarget target="e"/></legend>`,
  ),
  bars: chart(
    `<coordinates id="co"><dimension id="dx" domain="cat">${axis('x')}</dimension><dimension id="dy">${axis('y')}<axis id="second" opposite="true" transform="1"><majorTicks/></axis></dimension>
    </coordinates>
    <interval id="e" style="own" positionModifier="3"><x id="ex" variable="vk"/><pattern id="pattern" variable="vg" cycle="cp"/><color id="color" variable="vg"/><summaryStatistic id="su" method="10"/></interval>
    <location id="graphLeft" part="0" value="20px"/>`,
    `<categoricalDomain id="cat"><categories id="ca" remove="false">1;2</categories><variableReference id="cr" ref="vk"/><simpleSort id="ss" descending="false"><categoryOrder id="oo">2;1</categoryOrder></simpleSort></categoricalDomain>
     <styleCycle id="cp"><cycle><style pattern="2"/><style pattern="4"/></cycle></styleCycle>
     <styleCycle id="cq"><cycle><style pattern="5"/><style pattern="6"/></cycle></styleCycle>`,
  ),
  plainBars: chart(
    `<coordinates><dimension id="dx">${axis('x')}<scale id="sx"/></dimension><dimension id="dy">${axis('y')}<scale id="sy"/></dimension></coordinates>
    <interval id="e" style="own"><x variable="vk"/><y variable="vb"/><summaryStatistic id="su" method="1"/></interval>`,
  ),
  histogram: chart(
    `<coordinates><dimension id="dx">${axis('x')}</dimension>${plainY}</coordinates>
    <interval id="e" style="own"><x variable="vb"/><binStatistic id="bs" binStart="0"/><summaryStatistic id="su" method="10"/></interval>`,
    '<sourceVariable id="weights" source="s" sourceName="w" weight="false"/>',
  ),
  boxes: chart(
    `<coordinates><dimension id="dx">${axis('x')}</dimension>${plainY}</coordinates>
    <schema id="e" style="own"><x variable="vc"/><y variable="vo"/><tukeyStatistic id="ts"/><labeling id="lb" variable="vw"/></schema>`,
  ),
  panels: chart(
    `<coordinates id="co"><dimension id="dx" unionDomain="true">${axis('x')}</dimension>${plainY}</coordinates><point id="e" style="own">${xy}</point>
    <line id="lined"><x variable="va"/><y variable="vb"/><conditionalStyle id="cs" when="facet1 == &quot;1&quot;" style="hidden"/></line>
    <lineGuide id="lg" y="4"><conditionalStyle id="gc" when="facet1 == &quot;1&quot;" style="hidden"/></lineGuide>
    <faceting id="fa"><cross id="outer"><cross id="cr"><variableReference id="r1" ref="vk"/><variableReference id="r2" ref="vg"/></cross></cross></faceting>
    <facetLayout id="fl"><facetLevel id="f1" level="1" gap="5%"><axis id="fa1"><label id="fl1"><text>Columns</text></label><majorTicks id="fm1"/></axis></facetLevel>
      <facetLevel id="f2" level="2"/><setCellProperties id="cp"><setFrameStyle id="cf" style="frame"/></setCellProperties></facetLayout>`,
    '<style id="hidden" visible="false"/>',
  ),
  nested: chart(
    `<coordinates><dimension>${axis('x')}</dimension>${plainY}</coordinates><point id="e">${xy}</point>
    <faceting id="fa" method="nest"><cross id="outer"><cross id="cr"><unity id="un"/><nest id="ne"><variableReference id="n1" ref="vk"/><variableReference ref="vg"/></nest></cross></cross></faceting>`,
  ),
  lines: chart(
    `<coordinates id="co"><dimension id="dx">${axis('x')}</dimension>${plainY}</coordinates>
    <line id="e" style="own"><x variable="va"/><y variable="vb"/><dash id="dash" variable="vk" cycle="cd"/></line>
    <path id="pa" name="Path"><x variable="va"/><y variable="vb"/></path>
    <polygon id="po"><x variable="va"/><y variable="vb"/></polygon>
    <edge id="ed"><x variable="va"/><y variable="vb"/><x variable="va"/><y variable="vw"/></edge>`,
    `<styleCycle id="cd"><cycle><style stroke_dasharray="9px"/><style stroke_dasharray="1px"/></cycle></styleCycle>
     <styleCycle id="ce"><cycle><style stroke_dasharray="3px"/><style stroke_dasharray="7px"/></cycle></styleCycle>`,
  ),
  dates: chart(
    `<coordinates><dimension id="dx" domain="dox">${axis('x', '<format id="fm"/>')}</dimension>${plainY}</coordinates>
    <line id="e"><x variable="vd"/><y variable="vb"/></line>`,
    `<intervalDomain id="dox" date="true"><range id="ra" min="2012-02-01"/><variableReference id="ir" ref="vd"/></intervalDomain>
     <sourceVariable id="plain" source="s" sourceName="d" label="Plain"/><categoricalDomain id="cat"/>`,
    'id="all" lang="en-US"',
  ),
  density: chart(
    `<coordinates><dimension>${axis('x')}</dimension>${plainY}</coordinates>
    <area id="e" style="own"><x variable="vb"/><distributionStatistic id="ds"/></area>`,
  ),
  pie: chart(
    `<coordinates id="co"><dimension/><dimension/><polarTransform id="pt"/></coordinates>
    <interval id="e" style="own" positionModifier="3"><x variable="vk"/><color variable="vk"/><summaryStatistic method="10"/></interval>`,
  ),
  space: chart(
    `<coordinates id="co"><dimension>${axis('x')}</dimension>${plainY}<dimension id="dz"/><rectangularTransform id="rt" distance="3"/></coordinates>
    <point id="e">${xy}<z id="ez" variable="vn"/></point><planeGuide id="pg" normal="1"/><frameGuide id="wg" complete="true"/>`,
  ),
  guides: chart(
    `<coordinates id="co"><dimension id="dx">${axis('x')}</dimension>${plainY}</coordinates><point id="e">${xy}</point>
    <lineGuide id="lg" x="2" name="Here" style="guide"/>`,
  ),
  referring: chart(
    `<coordinates id="co"><dimension id="dx">${axis('x')}</dimension><dimension id="dy">${axis('y')}</dimension></coordinates>
    <coordinates id="other"><dimensionReference id="dr" ref="dx"/></coordinates><point id="e" coordinates="co">${xy}</point>`,
  ),
  dots: chart(
    `<coordinates><dimension>${axis('x')}</dimension><dimension/></coordinates>
    <point id="e" style="own" positionModifier="7"><x variable="va"/></point>`,
  ),
  bins: chart(
    `<coordinates><dimension>${axis('x')}</dimension><dimension/></coordinates>
    <point id="e" style="own"><x variable="vb"/><binStatistic id="bs"/></point>`,
  ),
  blend: chart(
    `<coordinates><dimension>${axis('x')}</dimension>${plainY}</coordinates><line id="e"><x variable="va"/><y variable="sum"/></line>`,
    '<expressionVariable id="sum" expression="vb + vn"/>',
  ),
  computed: chart(
    `<coordinates><dimension>${axis('x')}</dimension>${plainY}</coordinates><point id="e">${xy.replace('"vb"', '"half"')}</point>`,
    '<derivedVariable id="half" value="vb / 2" label="Half"/>',
  ),
  embedded: chartText(
    `<graph><coordinates/><point><x variable="one"/><y variable="two"/></point></graph>
    <embeddedSource id="em"><column id="c1" name="a"/><column id="c2" name="b"/><data id="da">1;2\n3;5\n4;4\n</data></embeddedSource>
    <sourceVariable id="one" source="em" sourceName="a" label="One"/><sourceVariable id="two" source="em" sourceName="b" label="Two"/>`,
  ),
  contained: chartText(
    `<container id="co"><graph id="graph"><coordinates/><point id="e"><x variable="va"/><y variable="vb"/><color id="color" variable="vk"/></point></graph>
    <labelFrame id="head"><label purpose="1"><text>Head</text></label></labelFrame>
    <container id="inner"><legend id="le"><legendTarget target="color"/></legend></container></container>${variables}`,
  ),
};

/** What a chart becomes: the picture with its table, and the notes below it. */
export interface Outcome {
  picture: string;
  notes: string[];
}

/** The names of clips and patterns go by the text of the chart, and tell nothing. */
export function outcomeOf(text: string): Outcome {
  const drawn = draw(receivedOf(text, tableOf(columns)), { document: makeDocument(), parseXml });
  drawn.svg.querySelector('g[aria-label="Notes"]')?.remove();
  drawn.svg.removeAttribute('height');
  drawn.svg.removeAttribute('viewBox');
  const paper = drawn.svg.querySelector('rect');
  paper?.removeAttribute('height');
  const picture = svgText(drawn.svg).replaceAll(`k${hashOf(text)}`, 'k');
  return { picture: picture + JSON.stringify(drawn.dataTable), notes: drawn.notes };
}

export type Change = (find: (id: string) => Element, document: Document) => void;

/** A specimen as text with a change. */
export function changed(name: string, change: Change): string {
  const text = specimens[name];
  if (text === undefined) throw new Error(`there is no specimen ${name}`);
  const document = parseXml(text);
  const all = Array.from(document.getElementsByTagName('*'));
  const find = (id: string) => {
    const found = all.find((element) => element.getAttribute('id') === id);
    if (!found) throw new Error(`there is no ${id} in ${name}`);
    return found;
  };
  change(find, document);
  return new XMLSerializer().serializeToString(document as never);
}

export const setting =
  (id: string, attribute: string, value: string): Change =>
  (find) =>
    find(id).setAttribute(attribute, value);

export const without =
  (id: string): Change =>
  (find) => {
    const element = find(id);
    element.parentNode!.removeChild(element);
  };

export const all =
  (...changes: Change[]): Change =>
  (find, document) =>
    changes.forEach((change) => change(find, document));

export const nothing: Change = () => {};

/** The markup comes into the element, in front of what is there. */
export const adding =
  (id: string, markup: string): Change =>
  (find, document) => {
    const made = parseXml(`<added xmlns="http://xml.vexa.example/visualization">${markup}</added>`);
    const parent = find(id);
    for (const child of Array.from(made.documentElement.childNodes)) {
      parent.insertBefore(document.importNode(child, true), parent.firstChild);
    }
  };
