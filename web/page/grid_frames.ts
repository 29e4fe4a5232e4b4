// What is framed over the cells: the active one, lit rows, drawn blocks, and the fill corner.
import type { Box, GridState } from "./grid_state.js";
import type { Block } from "./protocol.js";

interface Frame { box: Box; room: Box; kind: string }

const cornerReach = 3; // pixels to either side of the middle of the fill corner

export class GridFrames {
  readonly element = document.createElement("div");

  constructor(private readonly state: GridState) {
    this.element.className = "grid-over";
    this.element.setAttribute("aria-hidden", "true");
  }

  // `line`: the open line, which is framed in place of its cell; isWhole: the grid is framed, too.
  place(hasFocus: boolean, line: Box | null, isWhole: boolean): void {
    const frames = this.frames(hasFocus, line, isWhole);
    while (this.element.childElementCount > frames.length) this.element.lastChild?.remove();
    while (this.element.childElementCount < frames.length) this.element.append(document.createElement("div"));
    frames.forEach((frame, i) => this.put(this.element.children[i] as HTMLElement, frame));
  }

  private frames(hasFocus: boolean, line: Box | null, isWhole: boolean): Frame[] {
    const { state } = this;
    const frames = this.litFrames();
    if (state.shape.mode !== "none" && !state.isEmpty) frames.push(this.activeFrame(hasFocus, line));
    for (const block of [state.drawn.pointed, state.drawn.fill])
      if (block) frames.push({ box: state.boxOf(block), room: this.roomOf(block), kind: "drawn" });
    if (isWhole) frames.push({ box: { left: 1, top: 1, right: state.width - 1, bottom: state.height - 1 }, room: this.all(), kind: "whole" });
    const corner = this.corner();
    if (corner && hasFocus) frames.push({ box: corner, room: this.all(), kind: "corner" });
    return frames;
  }

  private all(): Box { return { left: 0, top: 0, right: this.state.width, bottom: this.state.height }; }

  // The line around a cell lies on what is frozen where the cell comes next.
  private roomOf(block: Block): Box {
    const part = this.state.part([block[2], block[3]]);
    return { ...part, left: part.left - 1, top: part.top - 1 };
  }

  private activeFrame(hasFocus: boolean, line: Box | null): Frame {
    const { state } = this;
    const active = state.selection.active;
    const box = { ...(line ?? state.box(active)) };
    const room = this.roomOf([active[0], active[1], active[0], active[1]]);
    if (state.shape.mode === "rows") {
      room.left = 0;
      box.left = 1;
      box.right = state.box([1, state.cols.count]).right;
    }
    return { box, room, kind: hasFocus ? "active" : "quiet" };
  }

  // Each run of lit rows has one frame, which goes below what is frozen.
  private litFrames(): Frame[] {
    const { state } = this;
    const frames: Frame[] = [];
    const room = { ...this.all(), top: state.rows.frozenEnd - 1 };
    const right = Math.min(state.box([1, state.cols.count]).right, state.width - 1);
    for (const row of state.lit) {
      if (state.lit.has(row - 1) || state.isEmpty) continue;
      let last = row;
      while (state.lit.has(last + 1)) ++last;
      frames.push({ box: { ...state.boxOf([row, 1, last, 1]), left: 1, right }, room, kind: "active" });
    }
    return frames;
  }

  // The square at the lower right corner of the selection that is drawn out to fill cells.
  corner(): Box | null {
    const { state } = this;
    const block = state.drawn.corner;
    if (!block || state.drawn.fill) return null;
    const { right, bottom } = state.boxOf(block);
    const part = state.part([block[2], block[3]]);
    if (right < part.left || right > part.right + 1 || bottom < part.top || bottom > part.bottom + 1) return null;
    return { left: right - cornerReach + 1, top: bottom - cornerReach + 1, right: right + cornerReach, bottom: bottom + cornerReach };
  }

  // The frame surrounds the box on its lines.
  private put(element: HTMLElement, { box, room, kind }: Frame): void {
    element.className = kind;
    element.hidden = !this.state.put(element, { left: box.left - 1, top: box.top - 1, right: box.right + 1, bottom: box.bottom + 1 }, room);
  }
}
