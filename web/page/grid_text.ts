// How long texts are. Without kerning a text is as long as its letters together, so each is measured once only.

const pen = document.createElement("canvas").getContext("2d") as CanvasRenderingContext2D & { fontKerning: string };

export class Letters {
  private readonly advances = new Map<string, number>();

  constructor(private readonly font: string) {}

  width(text: string): number {
    let width = 0;
    for (const letter of text) width += this.advances.get(letter) ?? this.measure(letter);
    return width;
  }

  private measure(letter: string): number {
    pen.font = this.font;
    pen.fontKerning = "none";
    const { width } = pen.measureText(letter);
    this.advances.set(letter, width);
    return width;
  }
}
