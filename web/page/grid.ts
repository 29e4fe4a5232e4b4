// A grid: cells in rows and columns, which are looked at, chosen or typed in. What is selected, and
// where a key leads, the program decides.
import { setOrRemove } from "./dress.js";
import { GridCells } from "./grid_cells.js";
import { GridFrames } from "./grid_frames.js";
import { GridLine } from "./grid_line.js";
import { GridMouse } from "./grid_mouse.js";
import { GridState, Place, same } from "./grid_state.js";
import type { GridSelection, NodeOrder } from "./protocol.js";
import { makers, Node, Page, View } from "./view.js";

const code = { backspace: 8, tab: 9, enter: 13, escape: 27, space: 32, pageUp: 33, pageDown: 34, end: 35, home: 36,
               up: 38, down: 40, delete: 46, menu: 93, f2: 113, f10: 121 };
const isMove = (key: number) => key >= code.pageUp && key <= code.down;

class GridView implements View {
  readonly element = document.createElement("div");
  readonly target: HTMLElement; // that has the name
  private readonly state: GridState;
  private readonly cells: GridCells;
  private readonly frames: GridFrames;
  private readonly line: GridLine;
  private readonly mouse: GridMouse;
  private readonly seen = new ResizeObserver(([entry]) => { if (entry) this.resized(entry.contentRect); });
  private shownSelection: GridSelection;
  private shownRow = 0;
  private shownPointed = "";
  private hasFocus = false;
  private isPressed = false;

  constructor(private readonly page: Page, node: Node) {
    this.state = new GridState(node.id);
    this.shownSelection = this.state.selection;
    this.cells = new GridCells(this.state);
    this.target = this.cells.element;
    this.target.id = `grid${node.id}`;
    this.frames = new GridFrames(this.state);
    this.line = new GridLine(page, this.state, this.cells, () => this.placeOver());
    this.mouse = new GridMouse(page, this.element, this.state, this.frames, {
      scrollTo: (left, top) => this.scrollTo(left, top), takeFocus: () => this.takeFocus(),
    });
    this.element.classList.add("grid");
    this.element.append(this.cells.element, this.frames.element);
    this.listen();
  }

  private listen(): void {
    const { element } = this;
    this.seen.observe(element);
    element.addEventListener("scroll", () => this.scrolled());
    element.addEventListener("focusin", () => this.focusChanged(true));
    element.addEventListener("focusout", () => this.focusChanged(false));
  }

  remove(): void {
    this.mouse.giveUp();
    this.seen.disconnect();
  }

  // --- what the program tells

  update(changed: NodeOrder, node: Node): void {
    const { state } = this;
    const before = state.selection, wereLit = state.lit;
    if (state.width === 0 && node.place) [state.width, state.height] = [node.place[2], node.place[3]];
    state.take(node);
    for (const block of changed.changed ?? []) state.patch(block.row, block.col, block.rows);
    if (changed.grid) this.takeShape();
    this.target.setAttribute("aria-label", node.label || "Table");
    setOrRemove(this.target, "aria-labelledby", node.labelledBy ?? "");
    setOrRemove(this.target, "aria-description", node.description ?? "");
    this.drawCells(changed, before, state.lit !== wereLit);
    if (changed.edit !== undefined) this.followEdit();
    if (changed.current !== undefined) this.showCurrentRow();
    if (changed.selection) this.showSelection();
    if (changed.drawn) this.showPointed();
    this.placeOver();
    if (changed.visible === false) this.mouse.giveUp();
  }

  private takeShape(): void {
    const { shape } = this.state;
    const { element } = this;
    element.style.overflowX = shape.across ? "scroll" : "hidden";
    element.style.overflowY = shape.down ? "scroll" : "hidden";
    this.cells.measureAnew();
    if (shape.edits && !this.line.element.isConnected) element.append(this.line.element);
    const table = this.cells.element;
    table.setAttribute("role", shape.mode === "none" ? "table" : "grid");
    table.tabIndex = shape.edits ? -1 : 0;
    if (shape.mode !== "none") table.setAttribute("aria-multiselectable", "true");
    if (shape.mode !== "none" && !shape.edits) table.setAttribute("aria-readonly", "true");
  }

  private drawCells(changed: NodeOrder, before: GridSelection, isLitAnew: boolean): void {
    if (changed.grid) return this.cells.layOut();
    if (changed.rows || changed.styles || changed.tags || isLitAnew) this.cells.drawAll();
    else for (const { row, col, rows } of changed.changed ?? [])
      this.cells.drawBlock([row, col, row + rows.length - 1, col + (rows[0]?.length ?? 1) - 1]);
    if (changed.selection && changed.selection !== before) this.cells.drawSelection();
  }

  private followEdit(): void {
    const wasOpen = this.line.isOpen;
    this.line.follow();
    const { edit } = this.state;
    if (!edit || wasOpen) return;
    this.bringIntoView(edit.cell);
    this.focus();
  }

  private showCurrentRow(): void {
    const { current } = this.state;
    const moves = this.shownRow !== current && current > 0;
    this.shownRow = current;
    if (!moves) return;
    this.bringIntoView([current, 0]);
    if (this.hasFocus && this.state.shape.mode === "none") this.page.say(this.state.rowWords(current));
  }

  private showSelection(): void {
    const before = this.shownSelection;
    const now = (this.shownSelection = this.state.selection);
    this.nameActive();
    const isAsWas = same(before.active, now.active) && same(before.head, now.head) && String(before.blocks) === String(now.blocks);
    if (!isAsWas) this.showHead(!same(before.active, now.active));
  }

  // To mark whole rows or columns is no wish to see their ends. A block that was marked at one
  // stroke is seen from its first cell on.
  private showHead(isNew: boolean): void {
    const { rows, cols, selection } = this.state;
    const head: Place = [...selection.head], first: Place = [...selection.active];
    const last = selection.blocks[selection.blocks.length - 1];
    if (last && last[0] === 1 && last[2] === rows.count) head[0] = first[0] = 0;
    if (last && last[1] === 1 && last[3] === cols.count) head[1] = first[1] = 0;
    this.bringIntoView(head);
    if (isNew) this.bringIntoView(first);
  }

  private showPointed(): void {
    const { pointed } = this.state.drawn;
    const was = this.shownPointed;
    this.shownPointed = String(pointed ?? "");
    if (pointed && was !== this.shownPointed && !this.mouse.isDragging) this.bringIntoView([pointed[2], pointed[3]]);
  }

  private nameActive(): void {
    const { shape, selection, isEmpty } = this.state;
    if (shape.edits) return this.line.name();
    const table = this.cells.element;
    const [row, col] = selection.active;
    if (shape.mode === "none" || isEmpty) table.removeAttribute("aria-activedescendant");
    else table.setAttribute("aria-activedescendant", shape.mode === "rows" ? this.cells.idOf(row) : this.cells.idOf(row, col));
  }

  // --- what shows

  private placeOver(): void {
    this.cells.fill();
    if (this.state.shape.edits) this.line.stand();
    const isList = this.state.shape.mode === "rows" && this.hasFocus;
    this.frames.place(this.hasFocus, this.line.box(), isList || (this.state.shape.mode === "none" && !this.isPressed && this.target.matches(":focus-visible")));
  }

  private resized(room: { width: number; height: number }): void {
    const { state } = this;
    const comesUp = state.width === 0 || !this.element.classList.contains("shown");
    [state.width, state.height] = [room.width, room.height];
    this.element.classList.toggle("shown", room.width > 0);
    if (comesUp && room.width > 0) {
      if (state.shape.mode !== "none") this.bringIntoView(state.selection.head);
      if (state.current > 0) this.bringIntoView([state.current, 0]);
    }
    this.placeOver();
  }

  private bringIntoView([row, col]: Place): void {
    const { state } = this;
    this.scrollTo(state.cols.scrolledTo(col, state.left, state.width), state.rows.scrolledTo(row, state.top, state.height));
  }

  private scrollTo(left: number, top: number): void {
    const { state, element } = this;
    if (left === state.left && top === state.top) return;
    element.scrollLeft = left;
    element.scrollTop = top;
    this.scrolled();
  }

  private scrolled(): void {
    const { state, element } = this;
    if (element.scrollLeft === state.left && element.scrollTop === state.top) return;
    [state.left, state.top] = [element.scrollLeft, element.scrollTop];
    this.placeOver();
  }

  // --- the keyboard

  focus(): void {
    const holder = this.state.shape.edits ? this.line.element : this.cells.element;
    if (document.activeElement !== holder) holder.focus({ preventScroll: true });
  }

  // By the pointer: no need to show where it is.
  private takeFocus(): void {
    this.isPressed = true;
    this.focus();
    this.placeOver();
  }

  private focusChanged(hasFocus: boolean): void {
    if (hasFocus === this.hasFocus) return;
    this.hasFocus = hasFocus;
    if (!hasFocus) this.isPressed = false;
    this.placeOver();
  }

  key(event: KeyboardEvent): boolean {
    const isTyped = [...event.key].length === 1 && (event.getModifierState("AltGraph") || !(event.ctrlKey || event.metaKey || event.altKey));
    if (event.isComposing || (event.altKey && !isTyped)) return false;
    if (this.line.isOpen) return this.lineKey(event);
    if (event.keyCode === code.menu || (event.keyCode === code.f10 && event.shiftKey)) {
      this.page.send("mouse", this.state.id, "release", "right", true);
      return true;
    }
    if (this.state.shape.mode === "none") return this.tableKey(event);
    if (this.isCellKey(event)) return this.sendKey(event);
    if (!isTyped || !this.state.shape.edits) return false;
    this.page.send("type", this.state.id, event.key);
    return true;
  }

  private sendKey(event: KeyboardEvent): true {
    this.page.send("key", event.keyCode, event.shiftKey, event.ctrlKey || event.metaKey, event.altKey);
    return true;
  }

  // The arrows and Page keys scroll by themselves.
  private tableKey(event: KeyboardEvent): boolean {
    if (event.keyCode !== code.home && event.keyCode !== code.end) return false;
    this.scrollTo(0, event.keyCode === code.home ? 0 : this.state.rows.total);
    return true;
  }

  // Control+V waits for what is pasted.
  private isCellKey(event: KeyboardEvent): boolean {
    const key = event.keyCode;
    const control = event.ctrlKey || event.metaKey;
    const letter = String.fromCharCode(key);
    // The first cell may be a frozen one, which is on the screen always: the rest comes back too.
    if (key === code.home && control) this.scrollTo(0, 0);
    if (isMove(key) || (control && letter === "A")) return true;
    if (!this.state.shape.edits) return false;
    if (key === code.space) return control !== event.shiftKey;
    if (key === code.enter || key === code.tab) return !control;
    if (control) return "CXYZ".includes(letter);
    return [code.escape, code.f2, code.backspace, code.delete].includes(key);
  }

  private lineKey(event: KeyboardEvent): boolean {
    const key = event.keyCode;
    const control = event.ctrlKey || event.metaKey;
    if ((key === code.enter || key === code.tab) && !control) return this.sendKey(event);
    if (key === code.escape || key === code.f2) return this.sendKey(event);
    const canExtend = !event.shiftKey || this.state.drawn.pointed !== null;
    if (isMove(key) && this.state.edit?.keysMove && canExtend) return this.sendKey(event);
    // Some systems have another key for it.
    if (control && key === "Y".charCodeAt(0)) return document.execCommand("redo") || true;
    // In one line these lead nowhere.
    return [code.up, code.down, code.pageUp, code.pageDown].includes(key);
  }
}

makers.set("grid", GridView);
