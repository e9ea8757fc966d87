/** Names of lines that no legend explains: beside the ends of these, or within panels. */
import type { Chart } from '../chart/model.js';
import { placeOfAxis } from './axes/axes.js';
import type { Layer } from './compile/layers.js';
import { ownTexts } from './compile/looks.js';
import type { CompiledGraph } from './compilegraph.js';
import { noRoomFor } from './marks/linenames.js';
import { visibleSpots, type Extent, type Spot } from './marks/visibleline.js';
import { panelScales } from './panelscales.js';
import { smallText } from './smalltexts.js';
import { readableShade } from './svg/colors.js';
import type { Maker } from './svg/svg.js';
import { lineHeight, widest, type TextLook } from './svg/text.js';

/** What lines are called that no legend explains. */
export interface LineNames {
  /** Lines that have their names at the right of the only panel. */
  beside: Layer[];
  /** Lines that have them within panels. */
  within: Map<Layer, TextLook>;
  look: TextLook;
}

/** Names beside a panel take at most this part of the width. */
const mostOfWidth = 1 / 3;

/** A line that ends further from the right edge of its panel, as a part of its width, has its name within it. */
function farFromEdge({ x }: CompiledGraph): number {
  return 0.15 + (x.kind === 'category' ? 0.5 / Math.max(1, x.texts.length) : 0);
}

/** Nothing else stands at the right of the only panel. */
function hasRoomBeside({ grid, orientation, x, y }: CompiledGraph): boolean {
  if (grid.panels.length !== 1 || orientation.transposed) return false;
  if (grid.rows.variables.length > 0 || grid.blended.rows.length > 0) return false;
  return [x, y].every(({ name, dimension }) =>
    (dimension?.axes ?? []).every((axis) => placeOfAxis(axis, name, false) !== 'right'),
  );
}

/** The place furthest to the right where a line is seen; of several the last. */
function rightEnd(layer: Layer, panel: Extent): Spot | null {
  const spots = visibleSpots(layer, panel);
  return spots.reduce<Spot | null>((best, spot) => (best && best[0] > spot[0] ? best : spot), null);
}

/** Lines that a legend does not explain are named at their ends, or within panels that have no room there. */
export function nameLines(compiled: CompiledGraph, chart: Chart, width: number): LineNames {
  const explained = new Set(chart.legends.flatMap((legend) => legend.targets));
  const look = { ...smallText([compiled.graph], ownTexts.guideLabel), weight: 'bold' };
  const named = compiled.panels.flat().filter(({ kind, element, group, look, shapes }) => {
    const isNamed = kind === 'line' && element.name !== '' && !explained.has(element.id) && look.visible;
    return isNamed && group.categories.length === 0 && shapes.some((shape) => !Number.isNaN(shape.y));
  });
  const room = hasRoomBeside(compiled);
  const [first] = compiled.grid.panels;
  const unit = room && { ...panelScales(compiled, compiled.scales, first!), transposed: false };
  const isBeside = (layer: Layer) => {
    const end = unit ? rightEnd(layer, { ...unit, width: 1, height: 1 }) : null;
    return (
      end && 1 - end[0] <= farFromEdge(compiled) && widest([layer.element.name], look) <= width * mostOfWidth
    );
  };
  const within = named.filter((layer) => !isBeside(layer));
  return {
    beside: named.filter(isBeside),
    within: new Map(within.map((layer) => [layer, { ...look, color: layer.look.stroke }])),
    look,
  };
}

/** The room beside the panels that names of lines need, in pixels. */
export function roomForNames({ beside, look }: LineNames): number {
  const names = beside.map(({ element }) => element.name);
  return names.length > 0 ? widest(names, look) + 1.2 * look.size : 0;
}

interface Beside {
  layer: Layer;
  /** From the top of the panel, in pixels. */
  at: number;
}

/** Moves names apart that would cover each other, and up again where the last ones would be below the panel. */
function apart(names: Beside[], line: number, height: number): Beside[] {
  const down: Beside[] = [];
  for (const name of [...names].sort((a, b) => a.at - b.at)) {
    const before = down[down.length - 1]?.at ?? -Infinity;
    down.push({ ...name, at: Math.max(name.at, before + line) });
  }
  return down.map((name, index) => ({
    ...name,
    at: Math.min(name.at, height - (down.length - 1 - index) * line),
  }));
}

/** Names at the heights where their lines leave the panel; those that have no room are noted. */
export function drawLineNames(
  { beside, look }: LineNames,
  panel: Extent,
  paper: string,
  notes: string[],
  maker: Maker,
): SVGElement {
  const group = maker.group('Names of lines', 'group');
  const line = lineHeight(look);
  const most = 1 + Math.floor(panel.height / line);
  for (const { element } of beside.slice(most)) notes.push(noRoomFor(element.name));
  const names = beside.slice(0, most).flatMap((layer): Beside[] => {
    const end = rightEnd(layer, panel);
    return end ? [{ layer, at: panel.height - end[1] }] : [];
  });
  for (const { layer, at } of apart(names, line, panel.height)) {
    const color = readableShade(paper, layer.look.stroke);
    const x = panel.width + look.size / 2;
    group.append(maker.text([layer.element.name], x, at + look.size * 0.35, { ...look, color }));
  }
  return group;
}
