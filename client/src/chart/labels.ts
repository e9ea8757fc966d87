/** Labels, their frames, legends and places on the page. */
import type { Markup } from './markup.js';
import type { Label, LabelFrame, LabelPiece, Legend, Location, Part, Style } from './model.js';
import { readFormat } from './variables.js';

/** Finds a style by its id; an empty one where there is none. */
export type StyleOf = (id: string) => Style;

const parts: Part[] = ['left', 'right', 'top', 'bottom', 'width', 'height'];

/** Methods of a location by their numbers. */
const methods: Record<number, Location['method']> = { 0: 'value', 1: 'client', 3: 'target' };

function readLocation(markup: Markup): Location[] {
  const number = markup.number('part');
  const part = parts[number ?? -1];
  const which = markup.number('method') ?? 0;
  const method = methods[which];
  const location = { value: markup.length('value'), target: markup.reference('target') };
  if (!part) {
    markup.note(number === null ? 'A place says of no part.' : `The part ${number} of a place is not known.`);
    return [];
  }
  if (!method) markup.note(`The method ${which} of a place is not known; this client finds one.`);
  if (method === 'value' && !location.value) markup.note(`A place of the ${part} has no value.`);
  return [{ part, method: method ?? 'client', ...location }];
}

export function readLocations(markup: Markup): Location[] {
  return markup.children('location').flatMap(readLocation);
}

function readPieces(markup: Markup): LabelPiece[] {
  return markup.children('text', 'descriptionGroup').flatMap((child): LabelPiece[] => {
    if (child.name === 'text') return [{ kind: 'text', text: child.content() }];
    const target = child.reference('target');
    return child.children('text', 'description').map((piece) =>
      piece.name === 'text'
        ? { kind: 'text', text: piece.content() }
        : {
            kind: 'figure',
            target,
            figure: piece.number('name') ?? 0,
            format: readFormat(piece.child('format')),
          },
    );
  });
}

export function readLabel(markup: Markup | null, styleOf: StyleOf): Label | null {
  if (!markup) return null;
  return {
    id: markup.id,
    style: styleOf(markup.reference('style')),
    frameStyle: styleOf(markup.reference('textFrameStyle')),
    purpose: markup.number('purpose') ?? 0,
    pieces: readPieces(markup),
  };
}

export function readFrames(root: Markup, styleOf: StyleOf): LabelFrame[] {
  return root.children('labelFrame').map((frame) => ({
    id: frame.id,
    style: styleOf(frame.reference('style')),
    label: readLabel(frame.child('label'), styleOf),
    locations: readLocations(frame),
  }));
}

export function readLegends(root: Markup, styleOf: StyleOf): Legend[] {
  return root.children('legend').map((legend) => ({
    id: legend.id,
    style: styleOf(legend.reference('style')),
    textStyle: styleOf(legend.reference('tickTextStyle')),
    label: readLabel(legend.child('label'), styleOf),
    targets: legend.children('legendTarget').map((target) => target.reference('target')),
    locations: readLocations(legend),
  }));
}

/** The text of a label without figures, as one line. */
export function plainText(label: Label | null): string {
  const texts = label?.pieces.map((piece) => (piece.kind === 'text' ? piece.text : '')) ?? [];
  return texts.join('').trim();
}
