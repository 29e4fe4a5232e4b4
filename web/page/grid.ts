// A grid: cells in rows and columns, which are looked at, chosen or typed in. The program decides
// what stands where; the page scrolls, and says what the user does.
import { setOrRemove } from "./dress.js";
import { GridLine } from "./grid_line.js";
import { followMouse, Resting } from "./mouse.js";
import type { NodeOrder, Part } from "./protocol.js";
import { makers, Node, Page, View } from "./view.js";

const code = { backspace: 8, tab: 9, enter: 13, escape: 27, space: 32, pageUp: 33, pageDown: 34, end: 35, home: 36,
               up: 38, down: 40, delete: 46, menu: 93, f2: 113, f10: 121 };
const isMove = (key: number) => key >= code.pageUp && key <= code.down;
const restTick = 40; // milliseconds between the steps of a drag that rests outside

// Makes the element what the program tells of it, as far as that is not what it told before.
function become(element: HTMLElement, { tag: _, style, text, parts, ...attributes }: Part, was: Part = {}): void {
  for (const [name, value] of Object.entries(attributes)) if (value !== was[name]) setOrRemove(element, name, String(value));
  if (style !== was.style) element.style.cssText = style ?? "";
  if (text !== undefined && text !== was.text) element.textContent = text;
  if (parts) element.append(...parts.map(made));
}

function made(part: Part): HTMLElement {
  const element = document.createElement(part.tag ?? "div");
  become(element, part);
  return element;
}

// What of an element cannot be changed by its attributes.
const kindOf = (part: Part) => String([part.tag, ...Object.keys(part)]);

interface Row { element: HTMLElement; part: Part }

class GridView implements View {
  readonly element = document.createElement("div");
  readonly target = document.createElement("table"); // that has the name
  private readonly body = this.target.createTBody();
  private readonly over = document.createElement("div");
  private readonly frames = document.createElement("div");
  private readonly line: GridLine;
  private readonly rows = new Map<number, Row>();
  private readonly resized = new ResizeObserver(() => this.tellSeen());
  private readonly rest = new Resting((x, y) => this.page.send("hover", this.id, x, y));
  private readonly id: number;
  private edits = false;
  private scrolled = [0, 0];
  private lastMove = 0;

  constructor(private readonly page: Page, node: Node) {
    this.id = node.id;
    this.line = new GridLine(page, node.id);
    this.element.className = "grid";
    this.target.className = "grid-table";
    this.target.id = `grid${node.id}`;
    this.body.setAttribute("role", "presentation");
    this.over.className = "grid-over";
    this.frames.setAttribute("aria-hidden", "true");
    this.over.append(this.frames);
    this.element.append(this.target, this.over);
    this.listen();
  }

  private listen(): void {
    const { element } = this;
    this.resized.observe(element);
    element.addEventListener("scroll", () => this.followScroll());
    element.addEventListener("focusout", () => element.classList.remove("pressed"));
    element.addEventListener("mousedown", (event) => this.press(event));
    element.addEventListener("mousemove", (event) => this.pointAt(event));
    element.addEventListener("mouseleave", () => this.rest.end());
  }

  remove(): void {
    this.resized.disconnect();
    this.rest.end();
  }

  // --- what the program tells

  update(changed: NodeOrder, node: Node): void {
    if (changed.table) this.takeTable(changed.table);
    this.target.setAttribute("aria-label", node.label || "Table");
    setOrRemove(this.target, "aria-labelledby", node.labelledBy ?? "");
    setOrRemove(this.target, "aria-description", node.description ?? "");
    for (const row of changed.gone ?? []) this.drop(row);
    for (const { at, before, part } of changed.cells ?? []) this.showRow(at, before, part);
    if (changed.frames) this.frames.replaceChildren(...changed.frames.map(made));
    if (changed.line) this.showLine(changed.line);
    if (changed.edit !== undefined) this.followEdit(changed.edit);
    if (changed.cursor !== undefined) this.element.style.cursor = changed.cursor;
    if (changed.scroll) this.scrollTo(changed.scroll);
    if (changed.spoken && this.element.matches(":focus-within")) this.page.say(changed.spoken);
  }

  private takeTable(table: Part): void {
    become(this.target, table);
    const { across, down } = this.target.dataset;
    Object.assign(this.element.style, { overflowX: across, overflowY: down });
  }

  private drop(row: number): void {
    this.rows.get(row)?.element.remove();
    this.rows.delete(row);
  }

  private showRow(at: number, before: number, part: Part): void {
    const known = this.rows.get(at);
    if (known && known.part.parts?.length === part.parts?.length) return this.showCells(known, part);
    const element = made(part);
    if (known) known.element.replaceWith(element);
    else this.body.insertBefore(element, this.rows.get(before)?.element ?? null);
    this.rows.set(at, { element, part });
  }

  // A cell stays the same to a screen reader, unless it becomes one of another kind.
  private showCells(row: Row, part: Part): void {
    const { parts: before = [], ...was } = row.part;
    const { parts = [], ...own } = part;
    become(row.element, own, was);
    parts.forEach((cell, i) => {
      const element = row.element.children[i] as HTMLElement;
      if (!cell.parts && kindOf(cell) === kindOf(before[i]!)) become(element, cell, before[i]);
      else if (JSON.stringify(cell) !== JSON.stringify(before[i])) element.replaceWith(made(cell));
    });
    row.part = part;
  }

  private showLine(line: Part): void {
    this.edits = true;
    become(this.line.element, line);
    if (!this.line.element.isConnected) this.over.append(this.line.element);
  }

  private followEdit(edit: NodeOrder["edit"]): void {
    const wasOpen = this.line.open;
    this.line.follow(edit ?? null);
    if (edit && !wasOpen) this.focus();
  }

  // --- what is seen

  private scrollTo([left, top]: [number, number]): void {
    this.element.scrollTo(left, top);
    this.followScroll();
  }

  private followScroll(): void {
    const { scrollLeft, scrollTop } = this.element;
    if (scrollLeft === this.scrolled[0] && scrollTop === this.scrolled[1]) return;
    this.scrolled = [scrollLeft, scrollTop];
    this.over.style.setProperty("--left", `${scrollLeft}px`);
    this.over.style.setProperty("--top", `${scrollTop}px`);
    this.tellSeen();
  }

  // Nothing shows while it is hidden, which forgets how far it was scrolled.
  private tellSeen(): void {
    const { scrollLeft, scrollTop, clientWidth, clientHeight } = this.element;
    this.page.send("scrolled", this.id, Math.round(scrollLeft), Math.round(scrollTop), clientWidth, clientHeight);
  }

  // --- the pointer

  private point(act: string, event: MouseEvent): void {
    const { left, top } = this.element.getBoundingClientRect();
    this.page.send("point", this.id, act, Math.floor(event.clientX - left), Math.floor(event.clientY - top),
                   event.button === 2 ? "right" : "left", event.shiftKey, event.ctrlKey || event.metaKey);
  }

  private press(event: MouseEvent): void {
    const { left, top } = this.element.getBoundingClientRect();
    const isOnBar = event.clientX - left >= this.element.clientWidth || event.clientY - top >= this.element.clientHeight;
    const inLine = event.target instanceof HTMLInputElement && event.button === 0;
    if (inLine || isOnBar || event.button === 1) return;
    event.preventDefault();
    this.rest.end();
    // By the pointer: no need to show where it is.
    this.element.classList.add("pressed");
    this.focus();
    const isSecond = event.button === 0 && event.detail > 0 && event.detail % 2 === 0;
    this.point(isSecond ? "double" : "press", event);
    this.followPress(event.button);
  }

  private followPress(button: number): void {
    const tick = window.setInterval(() => this.page.send("point", this.id, "rest"), restTick);
    followMouse(button, (moved) => this.move(moved), (up) => {
      window.clearInterval(tick);
      this.point("release", up);
    });
  }

  // One at a time: the next when the program has taken the last.
  private move(event: MouseEvent): void {
    if (!this.page.taken(this.lastMove)) return;
    this.point("move", event);
    this.lastMove = this.page.sent();
  }

  // Tips come where the pointer rests.
  private pointAt(event: MouseEvent): void {
    const { left, top } = this.element.getBoundingClientRect();
    this.rest.end();
    if (event.buttons !== 0) return;
    this.rest.begin(event.clientX - left, event.clientY - top);
    if (this.edits) this.move(event);
  }

  // --- the keyboard

  focus(): void {
    const holder = this.edits ? this.line.element : this.target;
    if (document.activeElement !== holder) holder.focus({ preventScroll: true });
  }

  key(event: KeyboardEvent): boolean {
    const isTyped = [...event.key].length === 1 && (event.getModifierState("AltGraph") || !(event.ctrlKey || event.metaKey || event.altKey));
    if (event.isComposing || (event.altKey && !isTyped)) return false;
    if (this.line.open) return this.lineKey(event);
    if (this.isCellKey(event)) return this.sendKey(event);
    if (!isTyped || !this.edits) return false;
    this.page.send("type", this.id, event.key);
    return true;
  }

  private sendKey(event: KeyboardEvent): true {
    this.page.send("key", event.keyCode, event.shiftKey, event.ctrlKey || event.metaKey, event.altKey);
    return true;
  }

  // Control+V waits for what is pasted. In a table the arrows and Page keys scroll by themselves.
  private isCellKey(event: KeyboardEvent): boolean {
    const key = event.keyCode;
    const control = event.ctrlKey || event.metaKey;
    const letter = String.fromCharCode(key);
    if (key === code.menu || (key === code.f10 && event.shiftKey)) return true;
    if (this.target.getAttribute("role") === "table") return key === code.home || key === code.end;
    if (isMove(key) || (control && letter === "A")) return true;
    if (!this.edits) return false;
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
    const canExtend = !event.shiftKey || this.line.open?.points;
    if (isMove(key) && this.line.open?.keysMove && canExtend) return this.sendKey(event);
    // Some systems have another key for it.
    if (control && key === "Y".charCodeAt(0)) return document.execCommand("redo") || true;
    // In one line these lead nowhere.
    return [code.up, code.down, code.pageUp, code.pageDown].includes(key);
  }
}

makers.set("grid", GridView);
