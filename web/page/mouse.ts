// The pointer over controls, and what it says beside them: presses, moves, wheel; tips and told words.
import type { Screen } from "./page.js";
import type { Node } from "./view.js";
import { make } from "./windows.js";

// They know best where in them the pointer is.
const raisesItsOwn = (node: Node) => node.kind === "grid" || node.kind === "graph";
const pixelsPerLine = 100 / 3; // a notch of the wheel is three lines

export class Mouse {
  at = { x: 0, y: 0 };
  private pressed: { node: Node; button: string } | undefined;
  private moved = 0;

  constructor(private readonly screen: Screen) {
    document.addEventListener("pointerdown", (event) => this.press(event), true);
    document.addEventListener("pointerup", (event) => this.release(event), true);
    document.addEventListener("dblclick", (event) => this.tell(event.target, "double", "left"), true);
    document.addEventListener("pointermove", (event) => this.move(event), true);
    document.addEventListener("wheel", (event) => this.turn(event), { capture: true, passive: true });
    document.addEventListener("contextmenu", (event) => {
      const at = event.target as Element;
      if (!at.closest("input, textarea, .companion")) event.preventDefault();
    });
  }

  private heard(target: EventTarget | null): Node | undefined {
    const node = this.screen.nodeAt(target);
    if (!node || this.screen.windows.windowOf(node).takesInput === false) return undefined;
    return node;
  }
  private tell(target: EventTarget | null, act: string, button: string, isInside = true): void {
    const node = this.heard(target);
    const isBar = target instanceof Element && target.closest(".title, .menubar, .grip");
    if (node && !raisesItsOwn(node) && !isBar) this.screen.send("mouse", node.id, act, button, isInside);
  }

  private press(event: PointerEvent): void {
    this.at = { x: event.clientX, y: event.clientY };
    this.screen.tips.hide();
    const node = this.heard(event.target);
    const button = event.button === 2 ? "right" : event.button === 0 ? "left" : "";
    this.pressed = node && button ? { node, button } : undefined;
    if (!node || !button) return;
    this.screen.windows.touch(node);
    this.tell(event.target, "press", button);
  }
  private release(event: PointerEvent): void {
    const { pressed } = this;
    this.pressed = undefined;
    if (!pressed) return;
    const isInside = this.screen.nodeAt(event.target) === pressed.node;
    this.tell(isInside ? event.target : pressed.node.view.element, "release", pressed.button, isInside);
  }
  // One at a time: the next when the program has taken the last.
  private move(event: PointerEvent): void {
    this.at = { x: event.clientX, y: event.clientY };
    const node = this.heard(event.target);
    this.screen.tips.over(node);
    if (!node?.follows || event.buttons !== 0 || raisesItsOwn(node) || !this.screen.taken(this.moved)) return;
    this.screen.send("mouse", node.id, "move", "left", true);
    this.moved = this.screen.sent();
  }
  private turn(event: WheelEvent): void {
    const node = this.heard(event.target);
    if (node) this.screen.send("wheel", node.id, event.deltaMode === 0 ? event.deltaY / pixelsPerLine : event.deltaY);
  }
}

const rest = 700; // milliseconds the pointer has to rest for a tip
const restInside = 600; // on a part of a control

// Says where in a control the pointer has come to rest.
export class Resting {
  private timer = 0;
  constructor(private readonly tell: (x: number, y: number) => void) {}
  begin(x: number, y: number): void {
    this.end();
    this.timer = window.setTimeout(() => this.tell(x, y), restInside);
  }
  end(): void { window.clearTimeout(this.timer); }
}

// Follows the mouse also beyond the browser's window, until that button is let go.
export function followMouse(button: number, moved: (event: MouseEvent) => void, released: (event: MouseEvent) => void): void {
  const stop = new AbortController();
  window.addEventListener("mousemove", moved, { signal: stop.signal });
  window.addEventListener("mouseup", (event) => {
    if (event.button !== button) return;
    stop.abort();
    released(event);
  }, { signal: stop.signal });
}

export class Tips {
  private readonly element = make("div", "tip");
  private timer = 0;
  private over_: Node | undefined;

  constructor(private readonly screen: Screen) {
    this.element.setAttribute("role", "tooltip");
  }

  over(node: Node | undefined): void {
    if (node === this.over_) return;
    this.over_ = node;
    this.hide();
    clearTimeout(this.timer);
    if (node?.tip) this.timer = window.setTimeout(() => this.answer(node.id, node.tip!), rest);
  }
  // Words for where the pointer rests.
  answer(id: number, words: string): void {
    const { x, y } = this.screen.mouse.at;
    if (!words) this.hide();
    else if (this.over_?.id === id) this.put(words, x + 2, y + 18);
  }
  // Beside a control, and read out; they go by themselves.
  tell(id: number, words: string): void {
    const node = this.screen.node(id);
    if (!node || !words) return this.hide();
    const { left, bottom } = node.view.element.getBoundingClientRect();
    this.screen.say(words);
    this.put(words, left, bottom);
    clearTimeout(this.timer);
    this.timer = window.setTimeout(() => this.hide(), 10000 + 40 * Math.max(words.length - 100, 0));
  }
  private put(words: string, x: number, y: number): void {
    this.element.textContent = words;
    document.body.append(this.element);
    this.element.style.left = `${Math.max(Math.min(x, innerWidth - this.element.offsetWidth), 0)}px`;
    this.element.style.top = `${Math.max(Math.min(y, innerHeight - this.element.offsetHeight), 0)}px`;
  }
  hide(): void { this.element.remove(); }
}
