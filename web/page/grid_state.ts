// What the page knows of one grid, and where its cells lie now.
import { Axis } from "./grid_axis.js";
import type { Block, Cell, CellLook, GridEdit, GridSelection, GridShape } from "./protocol.js";
import type { Node } from "./view.js";

export interface Box { left: number; top: number; right: number; bottom: number }
export type Place = [row: number, col: number];

const noShape: GridShape = {
  rowStarts: [1, 1], colStarts: [1, 1], frozenRows: 0, frozenCols: 0, across: false, down: false,
  edits: false, mode: "none", pixels: 12,
};
const plainLook: CellLook = {
  align: "left", heading: false, bold: false, back: "", face: false, fore: "", number: false, mark: "",
};
const noCell: Cell = ["", 0];
const faceColour = "#f3f4f6";

export function same(one: readonly unknown[] | null, other: readonly unknown[] | null): boolean {
  return one === other || (!!one && !!other && one.length === other.length && one.every((part, i) => part === other[i]));
}

export function contains(block: Block, row: number, col: number): boolean {
  return block[0] <= row && row <= block[2] && block[1] <= col && col <= block[3];
}

export class GridState {
  shape = noShape;
  rows = new Axis();
  cols = new Axis();
  cells: Cell[][] = [];
  looks: CellLook[] = [];
  tags: string[] = [];
  selection: GridSelection = { active: [1, 1], head: [1, 1], blocks: [] };
  lit = new Set<number>();
  current = 0;
  edit: GridEdit | null = null;
  drawn: { pointed: Block | null; fill: Block | null; corner: Block | null } = { pointed: null, fill: null, corner: null };
  // The viewport, and how far it is scrolled.
  width = 0;
  height = 0;
  left = 0;
  top = 0;

  constructor(readonly id: number) {}

  take(node: Node): void {
    this.cells = node.rows ?? this.cells;
    this.looks = node.styles ?? this.looks;
    this.tags = node.tags ?? this.tags;
    this.selection = node.selection ?? this.selection;
    this.drawn = node.drawn ?? this.drawn;
    this.current = node.current ?? 0;
    this.edit = node.edit ?? null;
    if (node.lit && String(node.lit) !== String([...this.lit])) this.lit = new Set(node.lit);
    if (node.grid) this.takeShape(node.grid);
  }

  private takeShape(shape: GridShape): void {
    if (shape === this.shape) return;
    this.shape = shape;
    this.rows = new Axis(shape.rowStarts, shape.frozenRows);
    this.cols = new Axis(shape.colStarts, shape.frozenCols);
  }

  patch(row: number, col: number, rows: Cell[][]): void {
    rows.forEach((cells, i) => {
      const whole = (this.cells[row + i] ??= []);
      cells.forEach((cell, j) => { whole[col + j] = cell; });
    });
  }

  cell(row: number, col: number): Cell { return this.cells[row]?.[col] ?? noCell; }
  look(row: number, col: number): CellLook { return this.looks[this.cell(row, col)[1]] ?? plainLook; }
  ground(row: number, col: number): string {
    const look = this.look(row, col);
    return look.face ? faceColour : look.back || "#ffffff";
  }
  get isEmpty(): boolean { return this.rows.count < 1 || this.cols.count < 1; }

  // --- what is selected
  isCovered(row: number, col: number): boolean {
    const { active, blocks } = this.selection;
    if (blocks.length > 0) return blocks.some((block) => contains(block, row, col));
    return active[0] === row && (active[1] === col || this.shape.mode === "rows");
  }
  // Shown by a tint.
  isTinted(row: number, col: number): boolean {
    const marks = this.selection.blocks.length > 0 || this.shape.mode === "rows";
    return marks && this.shape.mode !== "none" && row > 0 && col > 0 && this.isCovered(row, col);
  }

  // --- what is said
  heading(row: number, col: number): string {
    const beside = (row === 0 ? this.rows : this.cols).size(0) > 0;
    if (beside) return this.cell(row, col)[0];
    const [r, c] = [Math.max(row, 1), Math.max(col, 1)];
    return this.look(r, c).heading ? this.cell(r, c)[0] : "";
  }
  remarks(row: number, col: number): string {
    return [this.look(row, col).mark, this.cell(row, col)[2] ?? ""].filter(Boolean).join(", ");
  }
  described([row, col]: Place): string {
    const words = [row > 1 ? this.heading(0, col) : "", col > 1 ? this.heading(row, 0) : "", this.remarks(row, col)];
    return words.filter(Boolean).join(", ");
  }
  rowWords(row: number): string {
    const words = this.cells[row]?.slice(1).map((cell, i) => [cell[0], this.remarks(row, i + 1)]).flat() ?? [];
    return words.filter(Boolean).join(", ");
  }

  // --- places in the viewport
  x(col: number): number { return this.cols.start(col) - (this.cols.isFrozen(col) ? 0 : this.left); }
  y(row: number): number { return this.rows.start(row) - (this.rows.isFrozen(row) ? 0 : this.top); }

  // Without its lines.
  box([row, col]: Place): Box {
    const [left, top] = [this.x(col), this.y(row)];
    return { left, top, right: left + this.cols.size(col), bottom: top + this.rows.size(row) };
  }
  boxOf(block: Block): Box {
    const [first, last] = [this.box([block[0], block[1]]), this.box([block[2], block[3]])];
    return { left: first.left, top: first.top, right: last.right, bottom: last.bottom };
  }
  // In which the cell shows: what is frozen, or what scrolls.
  part([row, col]: Place): Box {
    return {
      left: this.cols.isFrozen(col) ? 0 : this.cols.frozenEnd, right: this.width,
      top: this.rows.isFrozen(row) ? 0 : this.rows.frozenEnd, bottom: this.height,
    };
  }
  cellAt(x: number, y: number): Place {
    return [this.rows.at(y >= this.rows.frozenEnd ? y + this.top : y), this.cols.at(x >= this.cols.frozenEnd ? x + this.left : x)];
  }
  isOverCells(x: number, y: number): boolean {
    return x >= 0 && y >= 0 && x < this.width && y < this.height &&
      x + this.left < this.cols.total && y + this.top < this.rows.total;
  }
  // Puts an element over the cells. What lies outside its room is clipped; whether any of it shows.
  put({ style }: HTMLElement, { left, top, right, bottom }: Box, room: Box): boolean {
    const [width, height] = [Math.max(right - left, 0), Math.max(bottom - top, 0)];
    const cut = [room.top - top, right - room.right, bottom - room.bottom, room.left - left].map((part) => Math.max(part, 0));
    Object.assign(style, { left: `${left + this.left}px`, top: `${top + this.top}px`, width: `${width}px`, height: `${height}px` });
    style.clipPath = cut.some((part) => part > 0) ? `inset(${cut.map((part) => `${part}px`).join(" ")})` : "";
    return right > room.left && left < room.right && bottom > room.top && top < room.bottom;
  }
}
