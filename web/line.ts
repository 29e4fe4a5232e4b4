// The line from the page to the worker: a place in memory that both share. The worker may sleep on
// it; the page never waits. What it says while the place is taken goes together, once it is free, or
// in pieces if it is long.

const room = 1 << 20; // bytes
const countBytes = 4; // before them: of how many the place is taken
const end = "\0"; // of a message

export const newPlace = (): SharedArrayBuffer => new SharedArrayBuffer(countBytes + room);

export class Line {
  private readonly count: Int32Array;
  private readonly place: Uint8Array;
  private readonly piece = new Uint8Array(room);
  private waiting = ""; // of the writer
  private begun = ""; // and the reader
  private readonly whole: string[] = [];

  // tellFree: the reader's, asks the writer to pump.
  constructor(shared: SharedArrayBuffer, private readonly tellFree?: () => void) {
    this.count = new Int32Array(shared, 0, 1);
    this.place = new Uint8Array(shared, countBytes);
  }

  send(text: string): void {
    this.waiting += text.replaceAll(end, "") + end;
    this.pump();
  }
  pump(): void {
    if (!this.waiting || Atomics.load(this.count, 0) > 0) return;
    const { read = 0, written = 0 } = new TextEncoder().encodeInto(this.waiting, this.piece);
    this.waiting = this.waiting.slice(read);
    this.place.set(this.piece.subarray(0, written));
    Atomics.store(this.count, 0, written);
    Atomics.notify(this.count, 0);
  }

  // The next message, waited for so many milliseconds, or without end below zero; null where none
  // is whole by then. The waiting may be shorter: the writer wakes the reader even where that has
  // just taken it.
  next(milliseconds: number): string | null {
    if (this.whole.length === 0) {
      Atomics.wait(this.count, 0, 0, milliseconds < 0 ? Infinity : milliseconds);
      this.take();
    }
    return this.whole.shift() ?? null;
  }
  private take(): void {
    const count = Atomics.load(this.count, 0);
    if (count === 0) return;
    const texts = (this.begun + new TextDecoder().decode(this.place.slice(0, count))).split(end);
    this.begun = texts.pop()!;
    this.whole.push(...texts);
    Atomics.store(this.count, 0, 0);
    this.tellFree?.();
  }
}
