// The line in which the user types into a cell.
//
// It holds the keyboard also while no cell is open, empty and unseen over the active one: only where
// text can be typed does the browser compose letters.
import { Mark, markOf, setMark } from "./bytes.js";
import { GridCells, sideMargin } from "./grid_cells.js";
import type { Box, GridState } from "./grid_state.js";
import type { GridEdit } from "./protocol.js";
import type { Page } from "./view.js";

const caretRoom = 12; // behind the text, for the caret and the next letter

export class GridLine {
  readonly element = document.createElement("input");
  private open: GridEdit | null = null;
  private composing = false;
  private lastSent = 0;
  private mark: Mark = { first: 0, length: 0 }; // as the program knows it

  constructor(private readonly page: Page, private readonly state: GridState, private readonly cells: GridCells,
              private readonly grown: () => void) {
    const line = this.element;
    line.className = "grid-line closed";
    line.autocomplete = "off";
    line.spellcheck = false;
    line.setAttribute("autocapitalize", "off");
    line.addEventListener("input", () => this.typed());
    line.addEventListener("compositionstart", () => this.compose());
    line.addEventListener("compositionend", () => {
      this.composing = false;
      this.typed();
    });
    line.addEventListener("blur", (event) => this.left(event));
    line.addEventListener("selectionchange", () => this.marked());
    for (const moved of ["keyup", "mouseup", "select"]) line.addEventListener(moved, () => this.marked());
  }

  get isOpen(): boolean { return this.open !== null; }

  // After the program has told of the open edit.
  follow(): void {
    const edit = this.state.edit;
    const opens = !!edit && (!this.open || String(this.open.cell) !== String(edit.cell));
    const isNews = opens || this.page.taken(this.lastSent);
    this.open = edit;
    this.element.classList.toggle("closed", !edit);
    if (!edit) this.element.value = "";
    else if (isNews && !this.composing && (opens || this.element.value !== edit.text)) this.show(edit);
    this.name();
  }

  // Setting the text that stands there would take its undo away.
  private show(edit: GridEdit): void {
    if (this.element.value !== edit.text) this.element.value = edit.text;
    this.mark = { first: edit.first, length: edit.length };
    setMark(this.element, this.mark);
  }

  // What a screen reader says: the cell that is typed in, else the active one of the table.
  name(): void {
    const { state, element } = this;
    const [row, col] = this.open ? this.open.cell : state.selection.active;
    if (this.open) element.removeAttribute("aria-activedescendant");
    else if (!state.isEmpty) element.setAttribute("aria-activedescendant", this.cells.idOf(row, col));
    const words = this.open ? state.described([row, col]) || "Cell" : this.cells.element.getAttribute("aria-label");
    element.setAttribute("aria-label", words ?? "Cell");
    element.setAttribute("aria-controls", this.cells.element.id);
  }

  // As wide as its text needs, as far as there is room.
  box(): Box | null {
    if (!this.open) return null;
    const place = this.state.box(this.open.cell);
    const needed = place.left + this.cells.width(this.element.value) + 2 * sideMargin + caretRoom;
    return { ...place, right: Math.min(Math.max(needed, place.right), Math.max(this.state.width, place.right)) };
  }

  // Cells in place hide what is scrolled below them.
  stand(): void {
    const { state, element } = this;
    const [row, col] = this.open?.cell ?? state.selection.active;
    state.put(element, this.box() ?? state.box([row, col]), { ...state.part([row, col]), right: Infinity });
    element.style.fontSize = `${state.shape.pixels}px`;
    element.style.backgroundColor = this.open ? state.ground(row, col) : "";
  }

  private typed(): void {
    if (this.composing) return;
    const text = this.element.value;
    if (this.open) {
      this.mark = markOf(this.element);
      this.page.send("edit", this.state.id, text, this.mark.first, this.mark.length);
      this.lastSent = this.page.sent();
      this.grown();
    } else if (text) {
      // Letters that came as no keys, as from a panel of symbols.
      this.page.send("type", this.state.id, text);
      this.element.value = "";
    }
  }

  // Composed letters begin an edit, too; what is composed then goes on in the line.
  private compose(): void {
    this.composing = true;
    if (this.open) return;
    this.page.send("type", this.state.id, "");
    this.element.classList.remove("closed");
  }

  private marked(): void {
    if (!this.open || this.composing || document.activeElement !== this.element) return;
    const mark = markOf(this.element);
    if (mark.first === this.mark.first && mark.length === this.mark.length) return;
    this.mark = mark;
    this.page.send("editmark", this.state.id, mark.first, mark.length);
  }

  // Another program's window, or a box of ours, is no end of typing.
  private left(event: FocusEvent): void {
    const to = event.relatedTarget;
    if (!this.open || !(to instanceof Element) || !document.hasFocus()) return;
    const own = this.element.closest("[role=dialog], .window");
    if (own && to.closest("[role=dialog], [role=alertdialog], .window") !== own) return;
    this.page.send("leave", this.state.id);
  }
}
