// A line of messages through memory that a page and a worker share. The worker may sleep on it; the
// page never waits: what does not fit at once goes out as the worker makes room.

const size = 1 << 20; // bytes; a power of two
const written = 0, taken = 1, waiting = 2; // counts of bytes, modulo 2^32, and whether more waits for room
const countsBytes = 12;

export function newRing(): SharedArrayBuffer {
  return new SharedArrayBuffer(countsBytes + size);
}

class Ring {
  protected readonly counts: Int32Array;
  protected readonly bytes: Uint8Array;

  constructor(shared: SharedArrayBuffer) {
    this.counts = new Int32Array(shared, 0, countsBytes / 4);
    this.bytes = new Uint8Array(shared, countsBytes);
  }
  protected filled(): number {
    return (Atomics.load(this.counts, written) - Atomics.load(this.counts, taken)) >>> 0;
  }
  // The bytes from a count on, as far as they lie in one piece.
  protected piece(which: number, most: number): Uint8Array {
    const from = Atomics.load(this.counts, which) & (size - 1);
    return this.bytes.subarray(from, Math.min(from + most, size));
  }
}

// Each message is its length in four bytes, then its UTF-8.
function framed(text: string): Uint8Array {
  const bytes = new TextEncoder().encode(text);
  const frame = new Uint8Array(4 + bytes.length);
  new DataView(frame.buffer).setUint32(0, bytes.length, true);
  frame.set(bytes, 4);
  return frame;
}

export class RingWriter extends Ring {
  private readonly rest: Uint8Array[] = [];

  send(text: string): void {
    this.rest.push(framed(text));
    this.pump();
  }
  // To be called when the reader tells that there is room.
  pump(): void {
    Atomics.store(this.counts, waiting, 1);
    while (this.rest.length > 0 && this.filled() < size) this.fill();
    if (this.rest.length === 0) Atomics.store(this.counts, waiting, 0);
  }

  // There is room, and something to put into it.
  private fill(): void {
    const to = this.piece(written, size - this.filled());
    const from = this.rest[0].subarray(0, to.length);
    to.set(from);
    Atomics.add(this.counts, written, from.length);
    Atomics.notify(this.counts, written);
    if (from.length < this.rest[0].length) this.rest[0] = this.rest[0].subarray(from.length);
    else this.rest.shift();
  }
}

export class RingReader extends Ring {
  // tellRoom: asks the writer to pump.
  constructor(shared: SharedArrayBuffer, private readonly tellRoom: () => void) {
    super(shared);
  }

  // The next message in UTF-8, or null where none has begun to come within so many milliseconds;
  // below zero it waits without end.
  next(milliseconds: number): Uint8Array | null {
    const until = milliseconds < 0 ? Infinity : performance.now() + milliseconds;
    // The writer wakes the reader after it has written: it may be for what was taken meanwhile.
    while (this.filled() === 0) {
      const left = until - performance.now();
      if (left <= 0) return null;
      Atomics.wait(this.counts, written, Atomics.load(this.counts, taken), left);
    }
    const length = new DataView(this.take(4).buffer).getUint32(0, true);
    return this.take(length);
  }

  private take(length: number): Uint8Array {
    const all = new Uint8Array(length);
    for (let done = 0; done < length; ) {
      if (this.filled() === 0) Atomics.wait(this.counts, written, Atomics.load(this.counts, taken));
      const piece = this.piece(taken, Math.min(length - done, this.filled()));
      all.set(piece, done);
      done += piece.length;
      Atomics.add(this.counts, taken, piece.length);
      if (this.filled() <= size / 2 && Atomics.exchange(this.counts, waiting, 0) !== 0) this.tellRoom();
    }
    return all;
  }
}
