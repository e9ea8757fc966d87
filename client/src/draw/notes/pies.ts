/** What pies do not show: values below 0 have no slice. */
import type { Layer } from '../compile/layers.js';
import type { PanelGrid } from '../compile/panels.js';

const mostNamed = 6;

/** A pie and what tells it from those of other panels. */
interface Pie {
  panel: string;
  layers: Layer[];
}

function listed(texts: string[]): string {
  const unique = [...new Set(texts)];
  const more = unique.length - mostNamed;
  return unique.slice(0, mostNamed).join(', ') + (more > 0 ? ` and ${more} more` : '');
}

const sliceName = ({ group }: Layer) => group.name || 'a slice';

function belowZero({ panel, layers }: Pie): string[] {
  const below = layers.filter(({ shapes }) => shapes.some(({ y }) => y < 0));
  return below.map((layer) => (panel === '' ? sliceName(layer) : `${sliceName(layer)} (${panel})`));
}

/** Names what has no slice, and tells of pies that have none at all. */
export function pieNotes(panels: Layer[][], grid: PanelGrid): string[] {
  const pies = panels.flatMap((all, at): Pie[] => {
    const layers = all.filter(({ kind }) => kind === 'slices');
    const facets = [...grid.panels[at]!.facets.values()].map(({ text }) => text);
    return layers.length > 0 ? [{ panel: facets.join(', '), layers }] : [];
  });
  const isEmpty = ({ layers }: Pie) => !layers.some(({ shapes }) => shapes.some(({ y }) => y > 0));
  const empty = pies.filter(isEmpty);
  const below = pies.flatMap((pie) => (isEmpty(pie) ? [] : belowZero(pie)));
  const notes: string[] = [];
  if (below.length > 0)
    notes.push(`Values below 0 are not in the pie: ${listed(below)}. Its shares are those of the rest.`);
  if (empty.length > 0) {
    const where = empty.map(({ panel }) => panel).filter((panel) => panel !== '');
    notes.push(
      `There is no pie${where.length > 0 ? ` of ${listed(where)}` : ''}: nothing that it would show is above 0.`,
    );
  }
  return notes;
}
