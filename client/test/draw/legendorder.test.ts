import { describe, expect, test } from 'vitest';
import { shares } from '../../src/draw/legends/legendlayout.js';
import { number, picture, plainAxes, type Picture } from './chart.js';

const categorical = { k: ['one', 'two'], g: ['low', 'high'] };
const legend = '<legend id="l"><legendTarget target="c"/></legend>';

describe('the order of a legend', () => {
  const order = (attributes: string, coordinates: string, x = 'k') =>
    picture(
      { k: [1, 1, 2, 2], g: [1, 2, 1, 2] },
      `<interval ${attributes}><x variable="${x}"/><summaryStatistic method="10"/><color id="c" variable="g"/></interval>`,
      { categorical, coordinates, rest: legend },
    ).textsOf('Legend');

  test('is that of the parts of a stack, upwards or along it', () => {
    expect(order('positionModifier="3"', plainAxes)).toEqual(['high', 'low']);
    expect(order('positionModifier="3"', `${plainAxes}<transposeTransform/>`)).toEqual(['low', 'high']);
  });

  test('is that of bars beside each other, from above where they lie', () => {
    expect(order('positionModifier="1"', plainAxes)).toEqual(['low', 'high']);
    expect(order('positionModifier="1"', `${plainAxes}<transposeTransform/>`)).toEqual(['high', 'low']);
  });

  test('is that of slices by the clock', () => {
    expect(order('positionModifier="3"', `${plainAxes}<polarTransform/>`, 'g')).toEqual(['low', 'high']);
  });
});

test('a range of colours has its highest value at the top, or at the right', () => {
  const ramp = (location: string): { drawn: Picture; texts: Element[]; stops: (string | null)[] } => {
    const drawn = picture(
      { a: [0, 10], b: [0, 10], w: [0, 10] },
      '<point><x variable="a"/><y variable="b"/><color id="c" variable="w"/></point>',
      { rest: legend.replace('</legend>', `${location}</legend>`) },
    );
    const group = drawn.svg.querySelector('g[aria-label="Legend"]')!;
    const stops = Array.from(group.querySelectorAll('stop')).map((stop) => stop.getAttribute('stop-color'));
    return { drawn, texts: Array.from(group.querySelectorAll('text')), stops };
  };
  const colors = ({ drawn }: ReturnType<typeof ramp>) =>
    drawn.marks('dot').map((mark) => drawn.look(mark, 'fill'));
  const upright = ramp('');
  const [low, high] = [upright.texts[0]!, upright.texts.at(-1)!];
  expect([low.textContent, high.textContent]).toEqual(['0', '10']);
  expect(number(high, 'y')).toBeLessThan(number(low, 'y'));
  expect([upright.stops.at(-1), upright.stops[0]]).toEqual(colors(upright));
  const lying = ramp('<location part="3" method="0" value="100%"/>');
  expect(number(lying.texts.at(-1)!, 'x')).toBeGreaterThan(number(lying.texts[0]!, 'x'));
  expect([lying.stops[0], lying.stops.at(-1)]).toEqual(colors(lying));
});

test('parts that want less than their share leave the rest to the others', () => {
  expect(shares([100, 10, 100], 120)).toEqual([55, 10, 55]);
  expect(shares([20, 10], 120)).toEqual([20, 10]);
});
