/** What of a panel is taken by symbols and texts. */
import { overlap, type Room } from './datalabels.js';

/** Rooms are looked for in cells of that many pixels. */
const cell = 32;

/** A label that begins in a panel covers nothing that is further outside of it, in pixels. */
const mostOutside = 1_000;

interface Panel {
  width: number;
  height: number;
}

export class TakenRooms {
  private readonly cells = new Map<string, Room[]>();

  constructor(private readonly panel: Panel) {}

  add(room: Room): void {
    for (const key of this.keysOf(room)) {
      const known = this.cells.get(key);
      if (known) known.push(room);
      else this.cells.set(key, [room]);
    }
  }

  /** What a room would cover of what is taken. */
  covered(room: Room): Room[] {
    const near = new Set(this.keysOf(room).flatMap((key) => this.cells.get(key) ?? []));
    return [...near].filter((other) => overlap(room, other));
  }

  isFree(room: Room): boolean {
    return this.keysOf(room).every((key) => !this.cells.get(key)?.some((other) => overlap(room, other)));
  }

  /** The cells of a room, as far as labels may reach it: marks may be billions of pixels away. */
  private keysOf({ left, right, top, bottom }: Room): string[] {
    const near = (place: number, extent: number) =>
      Math.max(-mostOutside, Math.min(extent + mostOutside, place));
    const { width, height } = this.panel;
    const [first, last] = [Math.floor(near(left, width) / cell), near(right, width)];
    const [highest, lowest] = [Math.floor(near(top, height) / cell), near(bottom, height)];
    const keys: string[] = [];
    for (let x = first; x * cell <= last; x += 1)
      for (let y = highest; y * cell <= lowest; y += 1) keys.push(`${x} ${y}`);
    return keys;
  }
}
