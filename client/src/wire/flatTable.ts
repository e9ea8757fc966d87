/**
 * A table of a flatbuffer that has not been checked: every read is within the buffer or throws, and all reads
 * together may not take more than the buffer can honestly hold.
 */
export class FlatTable {
  private constructor(
    private readonly view: DataView,
    private readonly at: number,
    private readonly work: { left: number },
  ) {}

  static root(bytes: Uint8Array): FlatTable {
    const view = new DataView(bytes.buffer, bytes.byteOffset, bytes.byteLength);
    // Parts of a buffer may be shared; few of them are.
    return new FlatTable(view, view.getUint32(0, true), { left: 4 * bytes.length });
  }

  /** A scalar of the field with this number, or what it is where it was not written. */
  uint8(field: number): number {
    const at = this.place(field);
    return at === 0 ? 0 : this.view.getUint8(at);
  }

  int16(field: number): number {
    const at = this.place(field);
    return at === 0 ? 0 : this.view.getInt16(at, true);
  }

  int64(field: number): number {
    const at = this.place(field);
    return at === 0 ? 0 : Number(this.view.getBigInt64(at, true));
  }

  has(field: number): boolean {
    return this.place(field) !== 0;
  }

  table(field: number): FlatTable | null {
    const at = this.place(field);
    return at === 0 ? null : new FlatTable(this.view, at + this.view.getUint32(at, true), this.work);
  }

  tables(field: number): FlatTable[] {
    const { begin, count } = this.vector(field, 4);
    return Array.from({ length: count }, (_, index) => {
      const at = begin + 4 * index;
      return new FlatTable(this.view, at + this.view.getUint32(at, true), this.work);
    });
  }

  /** A vector of structs that are pairs of int64. */
  pairs(field: number): [number, number][] {
    const { begin, count } = this.vector(field, 16);
    return Array.from({ length: count }, (_, index) => {
      const at = begin + 16 * index;
      return [Number(this.view.getBigInt64(at, true)), Number(this.view.getBigInt64(at + 8, true))];
    });
  }

  text(field: number): string {
    const { begin, count } = this.vector(field, 1);
    return new TextDecoder().decode(new Uint8Array(this.view.buffer, this.view.byteOffset + begin, count));
  }

  private vector(field: number, width: number): { begin: number; count: number } {
    const at = this.place(field);
    if (at === 0) return { begin: 0, count: 0 };
    const start = at + this.view.getUint32(at, true);
    const count = this.view.getUint32(start, true);
    this.work.left -= count * width;
    if (start + 4 + count * width > this.view.byteLength || this.work.left < 0) {
      throw new Error('its metadata is damaged');
    }
    return { begin: start + 4, count };
  }

  /** Where the field lies, or 0 where it was not written. */
  private place(field: number): number {
    const shape = this.at - this.view.getInt32(this.at, true);
    const entry = 4 + 2 * field;
    if (entry + 2 > this.view.getUint16(shape, true)) return 0;
    const offset = this.view.getUint16(shape + entry, true);
    return offset === 0 ? 0 : this.at + offset;
  }
}
