// Where the rows or the columns of a grid lie, in pixels: the page's side of GridAxis.

export class Axis {
  readonly frozen: number;

  // A line of one pixel stands before the first one and behind each; one of size 0 is hidden.
  constructor(private readonly starts: number[] = [1, 1], frozen = 0) {
    this.frozen = Math.min(frozen, this.count);
  }

  get count(): number { return this.starts.length - 2; }
  get total(): number { return this.start(this.count + 1); }
  // All that follows scrolls.
  get frozenEnd(): number { return this.start(this.frozen + 1); }
  get first(): number { return this.size(0) > 0 ? 0 : Math.min(1, this.count); }

  start(index: number): number { return this.starts[index] ?? 1; }
  size(index: number): number { return Math.max(this.start(index + 1) - this.start(index) - 1, 0); }
  isFrozen(index: number): boolean { return index <= this.frozen; }

  // The one at that pixel, the line behind it included; the nearest one outside.
  at(pixel: number): number {
    let low = 0, high = this.count;
    while (low < high) {
      const middle = (low + high + 1) >> 1;
      if (this.start(middle) <= pixel) low = middle;
      else high = middle - 1;
    }
    return Math.max(low, this.first);
  }

  // The scrolled pixels at which it is seen whole, or its beginning where it is larger than the
  // room.
  scrolledTo(index: number, scrolled: number, viewport: number): number {
    if (this.isFrozen(index)) return scrolled;
    const begin = this.start(index) - this.frozenEnd;
    const least = begin + this.size(index) + 1 - (viewport - this.frozenEnd);
    if (least <= scrolled) return Math.min(scrolled, begin);
    // Scrolled on, what follows the frozen part is whole: the end of a number looks like a number.
    const next = this.at(this.frozenEnd + least - 1) + 1;
    return Math.min(this.start(next) - this.frozenEnd, begin);
  }

  // Those that are to be in the document: what is frozen, what shows and some more, so that not
  // every step of scrolling changes it, and the one that is spoken of.
  inDocument(scrolled: number, viewport: number, chunk: number, also: number): number[] {
    const from = Math.floor((this.at(scrolled + this.frozenEnd) - 2) / chunk) * chunk;
    const to = Math.ceil((this.at(scrolled + viewport) + 3) / chunk) * chunk;
    const wanted: number[] = [];
    for (let index = 0; index <= this.count; ++index)
      if (this.size(index) > 0 && (this.isFrozen(index) || index === also || (index >= from && index < to)))
        wanted.push(index);
    return wanted;
  }
}
