/** What the client cannot draw as the chart says is in a note, and what it can is drawn. */
import { describe, expect, test } from 'vitest';
import { draw } from '../../src/draw/draw.js';
import { makeDocument, parseXml } from '../../src/node/document.js';
import { chartText, number, Picture, picture, plainAxes, receivedOf, tableOf, variables } from './chart.js';

const points = '<point id="p"><x variable="a"/><y variable="b"/></point>';
const columns = { a: [1, 2, 3, 4], b: [1, 2, 3, 4], k: [1, 1, 2, 2], g: [1, 2, 1, 2] };
const categorical = { k: ['one', 'two'], g: ['low', 'high'] };
const crossed =
  '<faceting method="cross"><cross><variableReference ref="k"/><variableReference ref="g"/></cross></faceting>';
const single = '<faceting method="cross"><cross><variableReference ref="k"/></cross></faceting>';

/** Points in panels with a layout. */
const panelled = (layout: string, options: { rest?: string; coordinates?: string; faceting?: string } = {}) =>
  picture(columns, `${points}${options.faceting ?? crossed}<facetLayout>${layout}</facetLayout>`, {
    categorical,
    ...(options.rest === undefined ? {} : { rest: options.rest }),
    ...(options.coordinates === undefined ? {} : { coordinates: options.coordinates }),
  });

/** Points without panels. */
const plain = (extra: string, rest = '', element = points, coordinates = plainAxes) =>
  picture(columns, element + extra, { categorical, rest, coordinates });

describe('headers of panels', () => {
  const titled = (level: number, opposite: string, inner = '<majorTicks/>') =>
    `<facetLevel level="${level}"><axis ${opposite}><label><text>Title ${level}</text></label>${inner}</axis></facetLevel>`;

  const first = (drawn: Picture, name: string) =>
    Array.from(drawn.svg.querySelectorAll(`g[aria-label="${name} of panels"] text`));

  const down = (drawn: Picture) => number(first(drawn, 'Columns')[0]!, 'y');

  const across = (drawn: Picture) =>
    Number(/translate\((-?\d+)/.exec(first(drawn, 'Rows')[0]!.getAttribute('transform')!)![1]);

  test('stand on top and at the right where they are opposite, or the chart does not say', () => {
    for (const opposite of ['', 'opposite="true"']) {
      const drawn = panelled(titled(1, opposite) + titled(2, opposite));
      expect(down(drawn)).toBeLessThan(0);
      expect(across(drawn)).toBeGreaterThan(300);
      expect(drawn.textsOf('Columns of panels')).toEqual(['Title 1', 'one', 'two']);
    }
  });

  test('stand below and at the left where they are not opposite, their titles outside', () => {
    const drawn = panelled(titled(1, 'opposite="false"') + titled(2, 'opposite="false"'));
    expect(down(drawn)).toBeGreaterThan(300);
    expect(across(drawn)).toBeLessThan(0);
    expect(drawn.textsOf('Columns of panels')).toEqual(['one', 'two', 'Title 1']);
    expect(drawn.textsOf('Rows of panels')).toEqual(['low', 'high', 'Title 2']);
    expect(drawn.notes).toEqual([]);
  });

  test('of measures follow their own level', () => {
    const blended = (opposite: string) =>
      picture(
        { a: [1, 2], b: [3, 4], c: [5, 6] },
        `<line><x variable="a"/><y variable="e"/></line><facetLayout><facetLevel level="1"><axis ${opposite}><majorTicks labelAngle="0"/></axis></facetLevel></facetLayout>`,
        {
          rest:
            '<expressionVariable id="e" expression="b/lb + c/lc"/>' +
            '<derivedVariable id="lb" categorical="true" value="constant(B)"/>' +
            '<derivedVariable id="lc" categorical="true" value="constant(C)"/>',
        },
      );
    expect(down(blended(''))).toBeLessThan(0);
    expect(down(blended('opposite="false"'))).toBeGreaterThan(300);
    expect(blended('').notes).toEqual([]);
  });

  test('are left out where their style hides them', () => {
    const drawn = panelled(titled(1, '', '<majorTicks style="h"/>'), {
      rest: '<style id="h" visible="false"/>',
    });
    expect(drawn.textsOf('Columns of panels')).toEqual(['Title 1']);
  });

  test('say what of their level is not honoured', () => {
    const notes = panelled(
      '<facetLevel level="1"><axis style="s"><majorTicks labelAngle="45"><format prefix="x"/></majorTicks></axis></facetLevel>',
      { rest: '<style id="s" color="#FF0000"/>' },
    ).notes;
    expect(notes).toEqual([
      'The angle of the labels of panels at level 1 is not honoured.',
      'The format of the labels of panels at level 1 is not honoured.',
    ]);
  });

  test('have the line of their level where it has a colour', () => {
    const lines = (style: string, name: string) => {
      const level = (at: number) =>
        `<facetLevel level="${at}"><axis style="s"><majorTicks/></axis></facetLevel>`;
      const drawn = panelled(level(1) + level(2), { rest: `<style id="s" ${style}/>` });
      expect(drawn.notes).toEqual([]);
      const group = drawn.svg.querySelector(`g[aria-label="${name} of panels"]`)!;
      return Array.from(group.querySelectorAll('path')).map((path) => path.getAttribute('stroke'));
    };
    expect(lines('color="#FF0000" stroke_width="2px"', 'Columns')).toEqual(['#ff0000', '#ff0000']);
    expect(lines('color="#FF0000"', 'Rows')).toEqual(['#ff0000', '#ff0000']);
    expect(lines('color="#FF0000" visible="false"', 'Rows')).toEqual([]);
    expect(lines('color="transparent"', 'Columns')).toEqual([]);
  });

  test('say that gaps of inner levels are not honoured', () => {
    const levels = (gap: string) =>
      panelled(`<facetLevel level="1" gap="5%"/><facetLevel level="2" gap="${gap}"/>`, {
        faceting:
          '<faceting method="nest"><cross><nest><variableReference ref="k"/><variableReference ref="g"/></nest></cross></faceting>',
      }).notes;
    expect(levels('5%')).toEqual([]);
    expect(levels('1%')).toEqual(['Gaps between panels are those of the outer level.']);
  });
});

describe('looks of single panels', () => {
  const cell = (style: string) => `<setCellProperties><setFrameStyle style="${style}"/></setCellProperties>`;
  const rest =
    '<style id="r" color="#FF0000" color2="#00FF00" stroke_width="3pt" stroke_dasharray="2px"/><style id="b" color="#0000FF" pattern="3"/>';

  const rects = (drawn: Picture) =>
    drawn.names().flatMap((name) => {
      if (!name.startsWith('Panel: ')) return [];
      const group = drawn.svg.querySelector(`g[aria-label="${name}"]`)!;
      const own = (Array.from(group.children) as Element[]).filter((each) => each.localName === 'rect');
      return [own];
    });

  test('are drawn in the order of the panels', () => {
    const drawn = panelled(cell('r') + cell('b'), { rest, faceting: single });
    const [left, right] = rects(drawn);
    expect(left![0]!.getAttribute('fill')).toBe('#ff0000');
    expect(left![1]!.getAttribute('stroke')).toBe('#00ff00');
    expect(left![1]!.getAttribute('stroke-width')).toBe('4');
    expect(left![1]!.getAttribute('stroke-dasharray')).toBe('2');
    expect(right![0]!.getAttribute('fill')).toMatch(/^url\(#.*pattern-3/);
    expect(drawn.notes).toEqual([]);
  });

  test('say where the order of panels is not told, and where there are too many', () => {
    expect(panelled(cell('r'), { rest }).notes.join()).toContain('row by row');
    const many = panelled(cell('r').repeat(3), { rest, faceting: single });
    expect(many.notes).toEqual(['There are looks of 3 panels, but 2 panels.']);
  });
});

describe('a note names', () => {
  test('weights that do not enter stacked dots', () => {
    const weighted = (element: string, weight = 'true') =>
      picture({ k: [1, 1, 1], b: [1, 2, 9], w: [1, 2, 3] }, element, {
        categorical,
        rest: `<sourceVariable id="weight" source="s" sourceName="w" weight="${weight}"/>`,
      }).notes;
    const box = '<schema id="e"><x variable="k"/><y variable="b"/><tukeyStatistic/></schema>';
    const dots = '<point id="e" positionModifier="7"><x variable="b"/></point>';
    expect(weighted(box)).toEqual([]);
    expect(weighted(dots).join()).toContain('Stacked dots show each row once');
    expect(weighted(dots, 'false').join()).not.toContain('each row once');
    const means = '<interval><x variable="k"/><y variable="b"/><summaryStatistic method="2"/></interval>';
    expect(weighted(means)).toEqual([]);
  });

  test('a map that came with the chart', () => {
    const text = chartText(
      `<graph>${points}<coordinates>${plainAxes}</coordinates></graph>${variables({ a: 1, b: 1 })}`,
    );
    const notes = (type: number) => {
      const received = receivedOf(text, tableOf({ a: [1], b: [2] }));
      const content = { type, subtype: 0, name: '', sentBytes: 0, bytes: new Uint8Array(), text: null };
      received.contents.push({ ...content, whole: true });
      return draw(received, { document: makeDocument(), parseXml });
    };
    const drawn = notes(10);
    expect(drawn.notes).toEqual(['A map came with the chart; it is not drawn.']);
    expect(drawn.svg.querySelector('g[aria-label="Notes"]')!.textContent).toContain('A map came');
    expect(notes(6).notes).toEqual([]);
  });

  test('a map that came without a chart text', () => {
    const received = receivedOf(null);
    const content = { type: 10, subtype: 0, name: '', sentBytes: 0, bytes: new Uint8Array(), text: null };
    received.contents.push({ ...content, whole: true });
    const drawn = draw(received, { document: makeDocument(), parseXml });
    expect(drawn.notes).toEqual([
      'There is no chart text to draw.',
      'A map came with the chart; it is not drawn.',
    ]);
    expect(drawn.svg.textContent).toContain('A map came with the chart');
  });

  test('parts that go by others that are not there', () => {
    const frame = (target: string) =>
      plain('', `<labelFrame id="f"><location part="2" method="3" target="${target}"/></labelFrame>`).notes;
    expect(frame('f')).toEqual([]);
    expect(frame('q')).toEqual(['A place of the top goes by q, which is not there.']);
  });

  test('what labels of marks show that is not there', () => {
    const labelled = (kind: string, labeling: string, inner = '', attributes = '') =>
      plain(
        '',
        '',
        `<${kind} id="p" ${attributes}><x variable="k"/><y variable="b"/>${inner}<labeling ${labeling}/></${kind}>`,
      );
    const mean = '<summaryStatistic method="2"/>';
    expect(labelled('interval', 'variable="a"', mean).notes).toEqual([
      'Labels of the bars are not drawn: each mark shows several rows.',
    ]);
    const figures = labelled('interval', 'dimension="1"', mean);
    expect(figures.notes).toEqual([]);
    expect(figures.textsOf('Labels of data')).toEqual(['1.5', '3.5']);
    expect(labelled('interval', 'dimension="0"', mean).textsOf('Labels of data')).toEqual(['one', 'two']);
    expect(labelled('point', 'dimension="2"').notes.join()).toContain('along the dimension 2');
    expect(labelled('schema', 'dimension="1"').notes.join()).toContain('they name no variable');
    expect(labelled('point', 'variable="a"', '', 'labelCollisionHandling="2"').notes).toEqual([]);
    expect(labelled('point', 'variable="a"', '', 'labelCollisionHandling="5"').notes).toEqual([
      'What 5 does to labels of the points that would cover others is not known.',
    ]);
  });

  test('labels that are left out since they would cover others', () => {
    const rows = { a: [1, 1.001, 3], b: [1, 1, 3] };
    const labelled = (attributes: string) =>
      picture(
        rows,
        `<point id="p" ${attributes}><x variable="a"/><y variable="b"/><labeling variable="a"/></point>`,
      ).notes;
    expect(labelled('')).toEqual(['Labels of the points that would cover others are left out.']);
    expect(labelled('showCollidingLabels="true"')).toEqual([]);
  });

  test('dots of what is no point', () => {
    const dots = (kind: string) =>
      plain('', '', `<${kind} id="p" dot="true"><x variable="a"/><y variable="b"/></${kind}>`).notes;
    expect(dots('line')).toEqual(['Dots instead of the lines are not drawn.']);
    expect(dots('point')).toEqual([]);
  });

  test('labels of axes that are not staggered', () => {
    const axis = '<axis><majorTicks stagger="true"/></axis>';
    const notes = (x: string, y: string) =>
      plain('', '', points, `<dimension>${x}</dimension><dimension>${y}</dimension>`).notes;
    expect(notes(axis, '')).toEqual([]);
    expect(notes('', axis)).toEqual(['Labels of the axis y are not staggered.']);
  });

  test('properties of styles that show nothing where they stand', () => {
    const styled = (style: string, element: string) => plain('', `<style id="s" ${style}/>`, element).notes;
    const bars = '<interval id="p" style="s"><x variable="a"/><y variable="b"/></interval>';
    const line = '<line id="p" style="s"><x variable="a"/><y variable="b"/></line>';
    expect(styled('color="#FF0000" width="40%" pattern="4"', bars)).toEqual([]);
    expect(styled('symbol="star" stroke_linecap="round"', bars)).toEqual([
      'The symbol of the bars is not honoured.',
      'The stroke_linecap of the bars is not honoured.',
    ]);
    expect(styled('color2="#FF0000" pattern="1" visible="true"', line)).toEqual([
      'The color2 of the lines is not honoured.',
    ]);
    const axis = (attribute: string) =>
      plain(
        '',
        '<style id="s" padding="3px" textAlignment="left"/><style id="c" textAlignment="center"/>',
        points,
        `<dimension><axis><label style="${attribute}"><text>A</text></label></axis></dimension><dimension/>`,
      ).notes;
    expect(axis('c')).toEqual([]);
    expect(axis('s')).toEqual([
      'The textAlignment of titles of axes is not honoured.',
      'The padding of titles of axes is not honoured.',
    ]);
  });

  test('values that are not understood', () => {
    const style = (attributes: string) => plain('', `<style id="s" ${attributes}/>`).notes;
    expect(style('color="red" color2="transparent" symbol="star" stroke_linecap="round" size=""')).toEqual(
      [],
    );
    expect(style('color="sparkling"')).toEqual(['The color sparkling is not known.']);
    expect(style('symbol="heart"')).toEqual(['The symbol heart is not known; it is drawn as a circle.']);
    expect(style('stroke_linecap="sharp"')).toEqual(['The end sharp of lines is not known.']);
    expect(style('size="large"')).toEqual(['The size "large" of style is not understood.']);
    expect(style('visible="perhaps"')).toEqual(['The visible "perhaps" of style is not understood.']);
    expect(style('stroke_dasharray="2px, 1px"')).toEqual([]);
    expect(style('stroke_dasharray="none"')).toEqual([]);
    expect(style('stroke_dasharray="dotted"').join()).toContain('The dashes "dotted" of a style');
    const domain = (range: string) =>
      plain('', `<intervalDomain id="d"><range ${range}/></intervalDomain>`).notes;
    expect(domain('min="2012-06-30" max="1e3"')).toEqual([]);
    expect(domain('max="soon"')).toEqual(['The bound soon of the domain d is not understood.']);
    const scale = (origin: string) =>
      plain('', '', points, `<dimension/><dimension><scale origin="${origin}"/></dimension>`).notes;
    expect(scale('3')).toEqual([]);
    expect(scale('soon')).toEqual(['The origin soon of the y scale is not understood.']);
    expect(style('opacity="half"')).toEqual(['The opacity "half" of style is not understood.']);
  });

  test('functions of clients', () => {
    expect(plain('', '<swingController function="zoom" target="p"/>').notes).toEqual([
      'The function zoom that the chart asks for on p is not run.',
    ]);
  });

  test('values that are the middles of groups', () => {
    const rest = (flag: string) =>
      `<sourceVariable id="v" label="Ages" source="s" sourceName="a"><extension valuesAreGroupedMidpoints="${flag}"/></sourceVariable>`;
    expect(plain('', rest('true')).notes.join()).toContain('Values of Ages are middles of groups');
    expect(plain('', rest('false')).notes).toEqual([]);
  });

  test('boxes behind texts', () => {
    const boxed = (style: string) =>
      plain(
        '',
        `<style id="s" ${style}/>`,
        points,
        '<dimension><axis><label textFrameStyle="s"><text>A</text></label></axis></dimension><dimension/>',
      ).notes;
    expect(boxed('color="#FFFF00"')).toEqual([
      'Boxes behind single texts are not drawn; those of frames and legends are.',
    ]);
    expect(boxed('color="#FFFF00" visible="false"')).toEqual([]);
    expect(boxed('color="transparent"')).toEqual([]);
  });

  test('what of labels and statistics of an element is not drawn', () => {
    const notes = (inner: string) => plain('', '', points.replace('</point>', `${inner}</point>`)).notes;
    expect(notes('<labeling variable="a"/>')).toEqual([]);
    expect(notes('<labeling variable="a"/><labeling variable="b"/>')).toEqual([
      'Of 2 labels of the points the first is drawn.',
    ]);
    expect(notes('<labeling variable="a" connectingLines="true"/>').join()).toContain(
      'Lines from labels of the points',
    );
    expect(notes('<tukeyStatistic/>').join()).toContain('only a schema has boxes');
  });

  test('orders and bounds of categories', () => {
    const notes = (inner: string) =>
      plain('', `<categoricalDomain id="d">${inner}</categoricalDomain>`).notes;
    expect(notes('<simpleSort method="2"/>')).toEqual([]);
    expect(notes('<simpleSort method="9"/>').join()).toContain('The order 9 of categories is not known');
    expect(notes('<range min="1"/>')).toEqual(['The bounds of the categories d are not honoured.']);
  });

  test('styles and formats that nothing shows', () => {
    expect(plain('', '<style id="s" labelAngle="4" opacity2="0.5"/>').notes).toEqual([
      'Not honoured: the attribute labelAngle of style.',
      'Not honoured: the attribute opacity2 of style.',
    ]);
    const ticks =
      '<dimension><axis><majorTicks><format baseFormat="2"/></majorTicks></axis></dimension><dimension/>';
    expect(plain('', '', points, ticks).notes).toEqual(['Not honoured: the attribute baseFormat of format.']);
  });

  test('guides in space, and of two directions', () => {
    expect(plain('<planeGuide id="w"/><frameGuide id="f"/>').notes).toEqual([
      'The plane guide w is not drawn.',
      'The frame guide f is not drawn.',
    ]);
    expect(plain('<lineGuide id="l" x="2" y="3"/>').notes.join()).toContain('one line is drawn');
  });

  test('a method of panels that is not known', () => {
    const faceting = single.replace('method="cross"', 'method="spiral"');
    expect(panelled('', { faceting }).notes.join()).toContain('The method spiral of panels');
  });

  test('what panels do not have of their own', () => {
    const own = (dimension: string, axis: string) =>
      panelled('', { coordinates: `<dimension ${dimension}><axis ${axis}/></dimension><dimension/>` }).notes;
    expect(own('unionDomain="true"', 'repeat="0" combineAxisLabels="true"')).toEqual([]);
    expect(own('', 'repeat="1"').join()).toContain('although the chart repeats them');
    expect(own('', 'combineAxisLabels="false"').join()).toContain('one title of their axis');
    expect(own('unionDomain="false"', '').join()).toContain('the same scales');
    expect(plain('', '', points, '<dimension><axis repeat="1"/></dimension><dimension/>').notes).toEqual([]);
  });

  test('aesthetics that marks of a kind cannot show', () => {
    const notes = (kind: string, aesthetic: string) =>
      plain('', '', `<${kind} id="e"><x variable="a"/><y variable="b"/>${aesthetic}</${kind}>`).notes;
    const shape = '<shape id="h" variable="k"/>';
    const dash = '<dash id="h" variable="k"/>';
    const color = '<color id="h" variable="b"/>';
    expect(notes('point', shape)).toEqual([]);
    expect(notes('line', shape)).toEqual([
      'The shape of the lines by the k is not to be seen: this client draws no such lines.',
    ]);
    expect(notes('line', dash)).toEqual([]);
    expect(notes('point', dash).join()).toContain('The dash of the points by the k');
    expect(notes('point', color)).toEqual([]);
    expect(notes('line', color).join()).toContain('The color of the lines by the b');
    expect(notes('line', color.replace('"b"', '"k"'))).toEqual([]);
    expect(notes('interval', '<size id="h" variable="b"/>').join()).toContain(
      'The size of the bars by the b',
    );
  });

  test('ticks that cannot stand as far from each other as the chart wants', () => {
    const axis = (delta: string, element = points) =>
      plain('', '', element, `<dimension><axis><majorTicks delta="${delta}"/></axis></dimension><dimension/>`)
        .notes;
    expect(axis('1')).toEqual([]);
    for (const delta of ['0.0001', '0.0015'])
      expect(axis(delta)).toEqual(['Ticks along x do not have the distance that the chart wants.']);
    const bars = '<interval><x variable="k"/><summaryStatistic method="10"/></interval>';
    expect(axis('2', bars)).toEqual(['Ticks along x stand at all categories.']);
  });

  test('scales that values have no place on', () => {
    const bars = '<interval><x variable="k"/><summaryStatistic method="10"/></interval>';
    const scaled = (scale: string) =>
      plain('', '', bars, `<dimension>${scale}</dimension><dimension/>`).notes;
    expect(scaled('<scale method="1"/>')).toEqual([]);
    expect(scaled('<scale method="2"/>')).toEqual([
      'Categories along x stand on a linear scale, not on a log one.',
    ]);
    const equal = (element: string, center: string) =>
      plain('', '', element, `${plainAxes}<sameRatioTransform center="${center}"/>`).notes;
    expect(equal(points, 'true')).toEqual([]);
    expect(equal(points, 'false').join()).toContain('data stand in the middle');
    expect(equal(bars, 'true').join()).toContain('here they are not');
  });
});

describe('missing values', () => {
  const lacking = { a: [1, 2, null, 4], b: [1, 2, 3, 4], k: [1, 2, 1, 2], g: [1, null, 1, null] };
  const notesOf = (element: string, columns: Record<string, (number | null)[]> = lacking) =>
    picture(columns, element, { categorical }).notes;

  test('of places, groups and panels are counted, each row once', () => {
    expect(notesOf(points)).toEqual(['1 row with a missing value is not drawn (the a).']);
    const grouped = points.replace('</point>', '<color variable="g"/></point>');
    expect(notesOf(grouped)).toEqual(['3 rows with missing values are not drawn (the g, the a).']);
    const inPanels = single.replace('"k"', '"g"');
    expect(notesOf(points + inPanels)).toEqual(['3 rows with missing values are not drawn (the g, the a).']);
    expect(notesOf(points + single, { ...lacking, a: [1, 2, 3, 4] })).toEqual([]);
  });

  test('of rows of panels are counted', () => {
    const rows = single.replace('<variableReference ref="k"/>', '<unity/><variableReference ref="g"/>');
    expect(notesOf(points + rows, { ...lacking, a: [1, 2, 3, 4] })).toEqual([
      '2 rows with missing values are not drawn (the g).',
    ]);
  });

  test('of clusters are counted', () => {
    const drawn = picture(
      lacking,
      '<interval><x variable="k"/><summaryStatistic method="10"/><color variable="k"/></interval>',
      { categorical, coordinates: '<dimension clusterVariable="g"/><dimension/>' },
    );
    expect(drawn.notes).toEqual(['2 rows with missing values are not drawn (the g).']);
  });

  test('are counted where a line or an area has a gap', () => {
    for (const kind of ['line', 'area']) {
      const broken = `<${kind}><x variable="b"/><y variable="a"/></${kind}>`;
      expect(notesOf(broken)).toEqual(['1 row with a missing value is not drawn (the a).']);
    }
  });

  test('have groups of digits in their number', () => {
    const many = Array.from({ length: 2500 }, () => null);
    const drawn = picture({ a: [1, ...many], b: [1, ...many] }, points);
    expect(drawn.notes.join()).toContain('2,500 rows with missing values are not drawn');
  });

  test('of a range take no mark of several rows away that has others', () => {
    const colored = (w: (number | null)[]) =>
      picture(
        { g: [1, 1, 2, 2], w, n: [3, 1, 1, 1] },
        '<interval><x variable="g"/><summaryStatistic method="10"/><color variable="w"/></interval>',
        {
          categorical,
          rest: '<sourceVariable id="v" source="s" sourceName="n" weight="true"/><styleCycle id="c"/>',
        },
      );
    const fills = (drawn: Picture) => drawn.marks('rect').map((mark) => drawn.look(mark, 'fill'));
    const drawn = colored([10, null, 20, 30]);
    expect(fills(drawn)).toEqual(fills(colored([10, 10, 20, 30])));
    expect(drawn.notes).toEqual([]);
    // Of three cases of 10 and one of 30 the mean is 15.
    expect(fills(colored([10, 30, 10, 30]))).toEqual(fills(colored([15, 15, 10, 30])));
    const lost = colored([null, null, 20, 30]);
    expect(lost.marks('rect')).toHaveLength(1);
    expect(lost.notes).toEqual(['1 mark without any value of the w is not drawn.']);
  });

  test('are not counted where another measure of a blend is there', () => {
    const blended = picture(
      { ...lacking, c: [null, 2, 3, 4] },
      '<point><x variable="b"/><y variable="e"/></point>',
      {
        categorical,
        rest: '<expressionVariable id="e" expression="a + c"/>',
      },
    );
    expect(blended.notes).toEqual([]);
  });
});
