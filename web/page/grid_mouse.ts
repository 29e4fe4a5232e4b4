// The mouse on a grid: cells, headings, widths of columns, the fill corner.
import type { GridFrames } from "./grid_frames.js";
import type { GridState, Place } from "./grid_state.js";
import { followMouse, Resting } from "./mouse.js";
import type { Page } from "./view.js";

const dragTick = 40; // milliseconds
const edgeReach = 4; // pixels to either side of the line behind a column

interface Point { x: number; y: number }
export interface Scroller {
  scrollTo(left: number, top: number): void;
  takeFocus(): void;
}

export class GridMouse {
  private drag: "none" | "cells" | "fill" | "width" = "none";
  private column = 0;
  private at: Point = { x: 0, y: 0 };
  private reached = "";
  private held: [boolean, boolean] = [false, false];
  private tick = 0;
  private readonly rest = new Resting((x, y) => this.page.send("hover", this.state.id, ...this.state.cellAt(x, y)));

  constructor(private readonly page: Page, private readonly root: HTMLElement, private readonly state: GridState,
              private readonly frames: GridFrames, private readonly scroller: Scroller) {
    root.addEventListener("mousedown", (event) => this.press(event));
    root.addEventListener("mousemove", (event) => this.pointAt(event));
    root.addEventListener("mouseleave", () => this.rest.end());
  }

  private point(event: MouseEvent): Point {
    const { left, top } = this.root.getBoundingClientRect();
    return { x: event.clientX - left, y: event.clientY - top };
  }
  private isOver({ x, y }: Point): boolean { return this.state.isOverCells(x, y); }
  private cell(act: string, [row, col]: Place): void {
    this.page.send("cell", this.state.id, act, row, col, ...this.held);
  }
  get isDragging(): boolean { return this.drag !== "none"; }
  private mouse(act: string, button: string): void { this.page.send("mouse", this.state.id, act, button, true); }
  private fill(act: string, [row, col]: Place = [0, 0]): void {
    this.page.send("fill", this.state.id, act, row, col);
  }

  private press(event: MouseEvent): void {
    const at = this.point(event);
    const inLine = event.target instanceof HTMLInputElement && event.button === 0;
    if (inLine || at.x >= this.state.width || at.y >= this.state.height || event.button === 1) return;
    event.preventDefault();
    this.rest.end();
    this.scroller.takeFocus();
    this.held = [event.shiftKey, event.ctrlKey || event.metaKey];
    this.at = at;
    if (event.button !== 0) return this.pressRight(at);
    if (event.detail > 0 && event.detail % 2 === 0) return this.pressAgain(at);
    this.begin(at);
    followMouse(0, (moved) => this.dragTo(this.point(moved)), (up) => this.release(this.point(up)));
  }

  private begin(at: Point): void {
    const edge = this.edgeAt(at);
    if (edge > 0) {
      this.column = edge;
      this.drag = "width";
    } else if (this.isOnCorner(at)) {
      this.drag = "fill";
      this.fill("start");
    } else {
      this.drag = this.isOver(at) ? "cells" : "none";
      this.reached = String(this.state.cellAt(at.x, at.y));
      if (this.drag === "cells") this.cell("press", this.state.cellAt(at.x, at.y));
      else this.mouse("press", "left");
    }
  }

  private pressRight(at: Point): void {
    if (this.isOver(at)) return this.cell("menu", this.state.cellAt(at.x, at.y));
    this.mouse("press", "right");
    followMouse(2, () => undefined, () => this.mouse("release", "right"));
  }

  private pressAgain(at: Point): void {
    const edge = this.edgeAt(at);
    if (edge > 0) this.page.send("width", this.state.id, edge, -1);
    else if (this.isOnCorner(at)) this.fill("beside");
    else if (this.isOver(at)) this.cell("double", this.state.cellAt(at.x, at.y));
  }

  private dragTo(at: Point): void {
    this.at = at;
    if (this.drag === "width")
      this.page.send("width", this.state.id, this.column, Math.max(Math.round(at.x - this.state.x(this.column)), 1));
    if (this.drag !== "cells" && this.drag !== "fill") return;
    const isInside = at.x >= 0 && at.y >= 0 && at.x < this.state.width && at.y < this.state.height;
    if (isInside) this.stopTicking();
    else if (!this.tick) this.tick = window.setInterval(() => this.scrollOn(), dragTick);
    this.reach();
  }

  // A cell is told once, however far the pointer moves on it.
  private reach(): void {
    const { width, height } = this.state;
    const clamp = (at: number, size: number) => Math.min(Math.max(at, 0), size - 1);
    const cell = this.state.cellAt(clamp(this.at.x, width), clamp(this.at.y, height));
    if (String(cell) === this.reached) return;
    this.reached = String(cell);
    if (this.drag === "fill") this.fill("to", cell);
    else this.cell("drag", cell);
  }

  private scrollOn(): void {
    const beyond = (at: number, size: number) => (at < 0 ? at : Math.max(at - size + 1, 0));
    const { left, top, width, height } = this.state;
    this.scroller.scrollTo(left + beyond(this.at.x, width), top + beyond(this.at.y, height));
    this.reach();
  }
  private stopTicking(): void {
    window.clearInterval(this.tick);
    this.tick = 0;
  }

  private release(at: Point): void {
    const drag = this.drag;
    this.end();
    if (drag === "fill") return this.fill("end");
    if (drag === "width") return;
    if (this.isOver(at)) this.cell("click", this.state.cellAt(at.x, at.y));
    else this.mouse("release", "left");
  }

  private end(): void {
    this.drag = "none";
    this.reached = "";
    this.stopTicking();
  }

  // The grid is hidden, or goes.
  giveUp(): void {
    if (this.drag === "fill") this.fill("cancel");
    this.end();
    this.rest.end();
  }

  // The column whose line is there, in the uppermost row.
  private edgeAt({ x, y }: Point): number {
    const { state } = this;
    const [row, col] = state.cellAt(x, y);
    if (!state.shape.edits || row !== (state.rows.size(0) > 0 ? 0 : 1)) return 0;
    for (const at of [col, col - 1])
      if (at > 0 && state.cols.size(at) > 0 && Math.abs(state.x(at) + state.cols.size(at) - x) <= edgeReach) return at;
    return 0;
  }

  private isOnCorner({ x, y }: Point): boolean {
    const box = this.frames.corner();
    return !!box && x >= box.left - 2 && x < box.right + 2 && y >= box.top - 2 && y < box.bottom + 2;
  }

  private pointAt(event: MouseEvent): void {
    const at = this.point(event);
    if (this.drag === "none") {
      const cursor = this.edgeAt(at) > 0 ? "col-resize" : this.isOnCorner(at) ? "crosshair" : "";
      if (this.root.style.cursor !== cursor) this.root.style.cursor = cursor;
    }
    // Tips come where the pointer rests.
    if (event.buttons === 0 && this.isOver(at)) this.rest.begin(at.x, at.y);
    else this.rest.end();
  }
}
