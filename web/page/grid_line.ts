// The line in which the user types into a cell.
//
// It holds the keyboard also while no cell is open, empty and unseen over the active one: only where
// text can be typed does the browser compose letters.
import { Mark, markOf, setMark } from "./bytes.js";
import type { GridEdit } from "./protocol.js";
import type { Page } from "./view.js";

export class GridLine {
  readonly element = document.createElement("input");
  open: GridEdit | null = null;
  private composing = false;
  private lastSent = 0;
  private mark: Mark = { first: 0, length: 0 }; // as the program knows it

  constructor(private readonly page: Page, private readonly id: number) {
    const line = this.element;
    line.autocomplete = "off";
    line.spellcheck = false;
    line.setAttribute("autocapitalize", "off");
    line.addEventListener("input", () => this.typed());
    line.addEventListener("compositionstart", () => this.compose());
    line.addEventListener("compositionend", () => {
      this.composing = false;
      this.typed();
      this.element.classList.toggle("closed", !this.open);
    });
    line.addEventListener("blur", (event) => this.left(event));
    for (const moved of ["selectionchange", "keyup", "mouseup", "select"]) line.addEventListener(moved, () => this.marked());
  }

  follow(edit: GridEdit | null): void {
    const opens = !!edit && this.open?.cell !== edit.cell;
    const isNews = opens || this.page.taken(this.lastSent);
    this.open = edit;
    if (!edit) this.element.value = "";
    else if (isNews && !this.composing && (opens || this.element.value !== edit.text)) this.show(edit);
  }

  // Setting the text that stands there would take its undo away.
  private show(edit: GridEdit): void {
    if (this.element.value !== edit.text) this.element.value = edit.text;
    this.mark = { first: edit.first, length: edit.length };
    setMark(this.element, this.mark);
  }

  private typed(): void {
    if (this.composing) return;
    const text = this.element.value;
    if (this.open) {
      this.mark = markOf(this.element);
      this.page.send("edit", this.id, text, this.mark.first, this.mark.length);
      this.lastSent = this.page.sent();
    } else if (text) {
      // Letters that came as no keys, as from a panel of symbols.
      this.page.send("type", this.id, text);
      this.element.value = "";
    }
  }

  // Composed letters begin an edit, too; what is composed then goes on in the line.
  private compose(): void {
    this.composing = true;
    if (this.open) return;
    this.page.send("type", this.id, "");
    this.element.classList.remove("closed");
  }

  private marked(): void {
    if (!this.open || this.composing || document.activeElement !== this.element) return;
    const mark = markOf(this.element);
    if (mark.first === this.mark.first && mark.length === this.mark.length) return;
    this.mark = mark;
    this.page.send("editmark", this.id, mark.first, mark.length);
  }

  // Another program's window, or a box of ours, is no end of typing.
  private left(event: FocusEvent): void {
    const to = event.relatedTarget;
    if (!this.open || !(to instanceof Element) || !document.hasFocus()) return;
    const own = this.element.closest("[role=dialog], .window");
    if (own && to.closest("[role=dialog], [role=alertdialog], .window") !== own) return;
    this.page.send("leave", this.id);
  }
}
