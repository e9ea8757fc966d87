/** Symbols of points by the names that charts have for them. */
import {
  symbolCircle,
  symbolDiamond2,
  symbolPlus,
  symbolSquare,
  symbolStar,
  symbolTimes,
  symbolTriangle,
  type Path,
  type SymbolType,
} from 'd3';

/** An upright I. */
const symbolIBeam: SymbolType = {
  draw(context, size) {
    const half = Math.sqrt(size) * 0.6;
    const foot = half * 0.6;
    context.moveTo(-foot, -half);
    context.lineTo(foot, -half);
    context.moveTo(0, -half);
    context.lineTo(0, half);
    context.moveTo(-foot, half);
    context.lineTo(foot, half);
  },
};

const filled: Record<string, SymbolType> = {
  circle: symbolCircle,
  square: symbolSquare,
  triangle: symbolTriangle,
  diamond: symbolDiamond2,
  star: symbolStar,
};

const stroked: Record<string, SymbolType> = { cross: symbolTimes, plus: symbolPlus, ibeam: symbolIBeam };

/** Names that are not known are drawn as a circle. */
export function symbolType(name: string): SymbolType {
  return filled[name] ?? stroked[name] ?? symbolCircle;
}

export function isKnownSymbol(name: string): boolean {
  return name in filled || name in stroked;
}

/** Symbols of strokes have no inside. */
export function isStroked(name: string): boolean {
  return name in stroked;
}

/** The path of a symbol around 0, 0 with the area of a circle of that diameter. */
export function symbolPath(name: string, diameter: number, path: () => Path): string {
  const drawing = path();
  symbolType(name).draw(drawing as unknown as CanvasRenderingContext2D, Math.PI * (diameter / 2) ** 2);
  return String(drawing);
}
