/**
 * Outlines of marks, and darker casings below lines, where a colour alone would not stand out from what is behind it.
 * What the chart says of colours holds: only their edges become darker, or lighter on dark paper.
 */
import { none, blend, contrast, edgeShade, leastMarkContrast } from '../svg/colors.js';
import { ownLook, type Look, type LookKind } from '../compile/looks.js';
import { isSolid } from '../svg/patterns.js';

const leastEdge = 1;
/** What a casing adds to the width of a line. */
const casingWidth = 1;

const groundOf = (paper: string) => (paper === none ? '#ffffff' : paper);

/** Transparency that the chart wants is a message of its own: it does not make a colour faint. */
const drawnOpacity = (look: Look, kind: LookKind) =>
  look.opacity === ownLook(kind).opacity ? look.opacity : 1;

function standsOut(color: string, opacity: number, paper: string): boolean {
  const ground = groundOf(paper);
  return color !== none && contrast(blend(color, opacity, ground), ground) >= leastMarkContrast;
}

/** The look with an outline that stands out, where neither its inside nor its own outline does. */
export function edged(look: Look, kind: LookKind, paper: string): Look {
  const opacity = drawnOpacity(look, kind);
  const outlined = look.stroke !== none && look.strokeWidth > 0;
  if (isSolid(look.pattern) && standsOut(look.fill, opacity, paper)) return look;
  if (outlined ? standsOut(look.stroke, 1, paper) : look.fill === none) return look;
  return {
    ...look,
    stroke: edgeShade(groundOf(paper), look.fill === none ? look.stroke : look.fill),
    strokeWidth: Math.max(leastEdge, look.strokeWidth),
    strokeOpacity: look.opacity === opacity ? 1 : look.opacity,
  };
}

/** The opacity of a symbol of strokes: the client's own lets colours through only where they stand out even so. */
export function opaque(look: Look, kind: LookKind, paper: string): number {
  const drawn = drawnOpacity(look, kind);
  return look.opacity === drawn && !standsOut(look.fill, drawn, paper) ? 1 : look.opacity;
}

/** What lies below a line whose colour does not stand out; null where it does. */
export function casingOf(
  stroke: string,
  width: number,
  paper: string,
): { stroke: string; width: number } | null {
  if (stroke === none || width === 0 || standsOut(stroke, 1, paper)) return null;
  return { stroke: edgeShade(groundOf(paper), stroke), width: width + casingWidth };
}
