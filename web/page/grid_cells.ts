// The cells of a grid as a table of the document, of which only what shows is there.
//
// Rows and cells are put at their pixels, and what is frozen sticks; so each tells its role by
// itself, since a table that is laid out otherwise is none to a screen reader.
import { setOrRemove } from "./dress.js";
import type { GridState } from "./grid_state.js";
import { Letters } from "./grid_text.js";
import type { Block, CellLook } from "./protocol.js";

export const sideMargin = 6;
const faces = '"Noto Sans", sans-serif';

interface Row { element: HTMLTableRowElement; cells: Map<number, HTMLTableCellElement> }

export class GridCells {
  readonly element = document.createElement("table");
  private readonly body = this.element.createTBody();
  private readonly shown = new Map<number, Row>();
  private wanted = "";
  private letters = new Map<boolean, Letters>();

  constructor(private readonly state: GridState) {
    this.element.className = "grid-table";
    this.body.setAttribute("role", "presentation");
    this.measureAnew();
    document.fonts.addEventListener("loadingdone", () => { this.measureAnew(); this.drawAll(); });
  }

  measureAnew(): void {
    for (const bold of [false, true])
      this.letters.set(bold, new Letters(`${bold ? 600 : 400} ${this.state.shape.pixels}px ${faces}`));
  }
  width(text: string, bold = false): number { return this.letters.get(bold)?.width(text) ?? 0; }
  idOf(row: number, col?: number): string { return `grid${this.state.id}-${row}` + (col === undefined ? "" : `-${col}`); }

  // After rows and columns have moved.
  layOut(): void {
    const { rows, cols, shape } = this.state;
    this.element.style.width = `${cols.total}px`;
    this.element.style.height = `${rows.total}px`;
    this.element.style.fontSize = `${shape.pixels}px`;
    this.element.setAttribute("aria-rowcount", String(rows.count + 1 - rows.first));
    this.element.setAttribute("aria-colcount", String(cols.count + 1 - cols.first));
    this.body.replaceChildren();
    this.shown.clear();
    this.wanted = "";
    this.fill();
  }

  // Brings into the document what shows now.
  fill(): void {
    const { state } = this;
    const [row, col] = state.selection.active;
    const rows = state.rows.inDocument(state.top, state.height, 8, state.shape.mode === "none" ? state.current : row);
    const cols = state.cols.inDocument(state.left, state.width, 4, col);
    if (String([rows, cols]) === this.wanted) return;
    this.wanted = String([rows, cols]);
    this.fillRows(new Set(rows), new Set(cols));
  }

  private fillRows(wanted: Set<number>, cols: Set<number>): void {
    for (const [index, row] of this.shown)
      if (!wanted.has(index)) {
        row.element.remove();
        this.shown.delete(index);
      }
    let next = this.body.firstChild;
    for (const index of wanted) {
      const row = this.shown.get(index) ?? this.makeRow(index);
      this.fillRow(index, row, cols);
      if (row.element === next) next = next.nextSibling;
      else this.body.insertBefore(row.element, next);
    }
  }

  private makeRow(index: number): Row {
    const { rows, cols } = this.state;
    const element = document.createElement("tr");
    const first = index === rows.first;
    const start = rows.start(index) - (first ? 1 : 0);
    element.setAttribute("role", "row");
    element.setAttribute("aria-rowindex", String(index + 1 - rows.first));
    element.id = this.idOf(index);
    element.classList.toggle("frozen", rows.isFrozen(index));
    element.classList.toggle("first", first);
    element.style.top = `${start}px`;
    element.style.width = `${cols.total}px`;
    element.style.height = `${rows.start(index + 1) - start}px`;
    element.style.lineHeight = `${rows.size(index)}px`;
    const row = { element, cells: new Map<number, HTMLTableCellElement>() };
    this.shown.set(index, row);
    this.drawRow(index, row);
    return row;
  }

  private fillRow(index: number, row: Row, wanted: Set<number>): void {
    for (const [col, cell] of row.cells)
      if (!wanted.has(col)) {
        cell.remove();
        row.cells.delete(col);
      }
    let next = row.element.firstChild;
    for (const col of wanted) {
      const cell = row.cells.get(col) ?? this.makeCell(index, col, row);
      if (cell === next) next = next.nextSibling;
      else row.element.insertBefore(cell, next);
    }
  }

  // Without a text it heads nothing, as the one in the corner.
  private isHeading(index: number, col: number): boolean {
    return this.state.look(index, col).heading && this.state.cell(index, col)[0] !== "";
  }

  private makeCell(index: number, col: number, row: Row): HTMLTableCellElement {
    const { cols, shape } = this.state;
    const isHeading = this.isHeading(index, col);
    const cell = document.createElement(isHeading ? "th" : "td");
    const plain = shape.mode === "none" ? "cell" : "gridcell";
    cell.setAttribute("role", !isHeading ? plain : index <= 1 ? "columnheader" : "rowheader");
    cell.setAttribute("aria-colindex", String(col + 1 - cols.first));
    cell.id = this.idOf(index, col);
    const first = col === cols.first;
    const start = cols.start(col) - (first ? 1 : 0);
    cell.style.left = `${start}px`;
    cell.style.width = `${cols.start(col + 1) - start}px`;
    row.cells.set(col, cell);
    this.draw(index, col, cell);
    return cell;
  }

  drawAll(): void { this.drawBlock([0, 0, this.state.rows.count, this.state.cols.count]); }

  drawBlock([row, col, row2, col2]: Block): void {
    for (const [index, shown] of this.shown)
      if (index >= row && index <= row2) {
        this.drawRow(index, shown);
        for (const [at, cell] of shown.cells) if (at >= col && at <= col2) this.drawAnew(index, at, cell, shown);
      }
  }

  // A cell that has become a heading, or is none any more, is another element.
  private drawAnew(index: number, col: number, cell: HTMLTableCellElement, row: Row): void {
    if ((cell.tagName === "TH") === this.isHeading(index, col)) return this.draw(index, col, cell);
    cell.replaceWith(this.makeCell(index, col, row));
  }

  private drawRow(index: number, row: Row): void {
    const isLit = this.state.lit.has(index);
    setOrRemove(row.element, "aria-current", isLit ? "true" : "");
    if (this.state.shape.mode === "rows") row.element.setAttribute("aria-selected", String(this.state.isCovered(index, 1)));
  }

  // What is selected, in all cells.
  drawSelection(): void {
    for (const [index, row] of this.shown) {
      this.drawRow(index, row);
      for (const [col, cell] of row.cells) this.drawState(index, col, cell);
    }
  }

  private drawState(index: number, col: number, cell: HTMLTableCellElement): void {
    const { state } = this;
    const isTinted = state.isTinted(index, col);
    cell.classList.toggle("picked", isTinted);
    if (state.shape.mode !== "cells") return;
    const selected = String(index > 0 && col > 0 && state.isCovered(index, col));
    if (cell.getAttribute("aria-selected") !== selected) cell.setAttribute("aria-selected", selected);
  }

  private draw(index: number, col: number, cell: HTMLTableCellElement): void {
    const { state } = this;
    const [text, , remark] = state.cell(index, col);
    const look = state.look(index, col);
    const tag = index === 1 && col > 0 ? state.tags[col] ?? "" : "";
    const room = state.cols.size(col) - 2 * sideMargin - (tag ? this.width(tag, true) : 0);
    const isLit = state.lit.has(index);
    const bold = look.heading || look.bold || (isLit && this.width(text, true) <= room);
    cell.className = this.classes(index, col, look, bold, !!remark);
    cell.style.backgroundColor = look.face ? "" : look.back;
    cell.style.color = look.fore;
    const shown = this.shownText(text, look, bold, room);
    cell.textContent = shown;
    if (tag) this.addTag(cell, tag, look.align === "right");
    setOrRemove(cell, "aria-label", shown === text ? "" : text);
    setOrRemove(cell, "aria-description", state.remarks(index, col));
    this.drawState(index, col, cell);
  }

  private classes(index: number, col: number, look: CellLook, bold: boolean, remark: boolean): string {
    const { cols } = this.state;
    let classes = look.align as string;
    if (cols.isFrozen(col)) classes += " frozen";
    if (col === cols.first) classes += " first";
    if (look.face) classes += !look.heading ? " face" : index <= 1 ? " face upper" : " face beside";
    if (bold) classes += " bold";
    if (remark) classes += " remark";
    return classes;
  }

  // A figure without its last digits would look like another one.
  private shownText(text: string, look: CellLook, bold: boolean, room: number): string {
    if (!look.number || this.width(text, bold) <= room) return text;
    return "#".repeat(Math.max(Math.floor(room / this.width("#", bold)), 1));
  }

  // A small letter opposite the text.
  private addTag(cell: HTMLTableCellElement, tag: string, isLeft: boolean): void {
    const span = document.createElement("span");
    span.textContent = tag;
    span.className = isLeft ? "tag left" : "tag";
    const margin = `${sideMargin + this.width(tag, true)}px`;
    cell.style[isLeft ? "paddingLeft" : "paddingRight"] = margin;
    cell.append(span);
  }
}
