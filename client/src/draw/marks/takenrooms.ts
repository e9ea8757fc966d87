/** What of a panel is taken by symbols and texts. */
import { overlap, type Room } from './datalabels.js';

/** Rooms are looked for in cells of that many pixels. */
const cell = 32;

export class TakenRooms {
  private readonly cells = new Map<string, Room[]>();

  add(room: Room): void {
    for (const key of keysOf(room)) {
      const known = this.cells.get(key);
      if (known) known.push(room);
      else this.cells.set(key, [room]);
    }
  }

  /** What a room would cover of what is taken. */
  covered(room: Room): Room[] {
    const near = new Set(keysOf(room).flatMap((key) => this.cells.get(key) ?? []));
    return [...near].filter((other) => overlap(room, other));
  }

  isFree(room: Room): boolean {
    return keysOf(room).every((key) => !this.cells.get(key)?.some((other) => overlap(room, other)));
  }
}

function keysOf({ left, right, top, bottom }: Room): string[] {
  const keys: string[] = [];
  for (let x = Math.floor(left / cell); x * cell <= right; x += 1)
    for (let y = Math.floor(top / cell); y * cell <= bottom; y += 1) keys.push(`${x} ${y}`);
  return keys;
}
