// Windows: how they stand on the page, which of them takes input, and where the keyboard is.
import { setOrRemove, setPlace } from "./dress.js";
import type { Screen } from "./page.js";
import type { NodeOrder, Order } from "./protocol.js";
import type { Node, View } from "./view.js";

export function make<Tag extends keyof HTMLElementTagNameMap>(tag: Tag, names = "", text = ""): HTMLElementTagNameMap[Tag] {
  const element = document.createElement(tag);
  element.className = names;
  if (text) element.textContent = text;
  return element;
}

export function setUp<Made extends Element>(element: Made, attributes: Record<string, string>): Made {
  for (const [name, value] of Object.entries(attributes)) element.setAttribute(name, value);
  return element;
}

export function signButton(sign: string, label: string, press: () => void): HTMLButtonElement {
  const button = make("button", `sign ${sign}`);
  button.tabIndex = -1;
  button.ariaLabel = label;
  button.addEventListener("click", press);
  return button;
}

// Follows the pointer from a press until it is let go: by how much it has moved.
export function drag(handle: HTMLElement, start: (event: PointerEvent) => ((x: number, y: number, ended: boolean) => void) | undefined): void {
  handle.addEventListener("pointerdown", (down) => {
    const follow = down.button === 0 ? start(down) : undefined;
    if (!follow) return;
    handle.setPointerCapture(down.pointerId);
    const moved = (event: PointerEvent) => follow(event.clientX - down.clientX, event.clientY - down.clientY, event.type !== "pointermove");
    handle.addEventListener("pointermove", moved);
    handle.addEventListener("lostpointercapture", (event) => {
      handle.removeEventListener("pointermove", moved);
      follow(event.clientX - down.clientX, event.clientY - down.clientY, true);
    }, { once: true });
  });
}

// Puts a window there, as far as enough of it stays on the page to get hold of.
export function put(element: HTMLElement, left: number, top: number): [number, number] {
  const { clientWidth, clientHeight } = document.documentElement;
  const x = Math.min(Math.max(left, leastShown - element.offsetWidth), clientWidth - leastShown / 2);
  const y = Math.min(Math.max(top, 0), clientHeight - titleHeight);
  Object.assign(element.style, { left: `${x}px`, top: `${y}px`, margin: "0" });
  return [x, y];
}

// A window that the pointer moves by its title.
export function movable(element: HTMLElement, title: HTMLElement, moved = (_x: number, _y: number) => {}, mayMove = () => true): void {
  drag(title, (down) => {
    if (down.target instanceof HTMLButtonElement || !mayMove()) return undefined;
    const { offsetLeft, offsetTop } = element;
    return (x, y, ended) => {
      const place = put(element, offsetLeft + x, offsetTop + y);
      if (ended) moved(...place);
    };
  });
}

const titleHeight = 28; // pixels
const leastShown = 120; // of a window that the user makes small, or moves away
const signs: Record<string, string> = { critical: "\u00d7", question: "?", exclamation: "!", information: "i" };
const keyStep = 16; // pixels that an arrow moves a window, or its edge

// F8 lets the arrows draw a window's edges, with Ctrl the window itself, up to the next other key.
export class ArrowKeys {
  private isOn = false;

  constructor(private readonly window: HTMLElement, private readonly say: (words: string) => void,
              private readonly size: (x: number, y: number) => void, private readonly moved = (_x: number, _y: number) => {}) {}

  take({ key, ctrlKey }: KeyboardEvent): boolean {
    const wasOn = this.isOn;
    const step = wasOn ? { ArrowLeft: [-keyStep, 0], ArrowRight: [keyStep, 0], ArrowUp: [0, -keyStep], ArrowDown: [0, keyStep] }[key] : undefined;
    if (step && ctrlKey) this.moved(...put(this.window, this.window.offsetLeft + step[0]!, this.window.offsetTop + step[1]!));
    else if (step) this.size(step[0]!, step[1]!);
    else this.isOn = key === "F8" && !wasOn;
    this.window.classList.toggle("drawn", this.isOn);
    if (this.isOn && !wasOn) this.say("Arrows change the size of this window, with Control its place. Enter ends that.");
    return wasOn ? step !== undefined || ["F8", "Enter", "Escape"].includes(key) : this.isOn;
  }
}

export class WindowView implements View {
  readonly element = make("section", "window");
  readonly title = make("div", "title");
  readonly inside = make("div", "inside");
  readonly ground = make("div", "ground");
  readonly foot = make("div", "foot");
  readonly area = make("div", "area"); // of a frame: where its children stand
  private readonly footGround = make("div", "ground");
  private readonly caption = make("h1");
  private readonly maximise: HTMLButtonElement;
  arrows: ArrowKeys | undefined; // of a dialog
  private sizes: ResizeObserver | undefined;

  constructor(private readonly screen: Screen, private readonly node: Node) {
    const { style, id } = node;
    this.element.classList.add(style ?? "dialog");
    this.element.tabIndex = -1;
    this.caption.id = `caption-${id}`;
    this.maximise = signButton("maximise", "Maximise", () => this.toggleMaximised());
    this.title.append(this.caption, this.maximise);
    this.inside.append(this.ground);
    if (style === "frame") this.element.append(this.area, this.foot);
    else this.element.append(this.title, this.inside, this.foot);
    if (style === "dialog") this.becomeDialog(id);
    if (node.box) this.becomeBox(node.box);
    if (style === "child") this.title.addEventListener("dblclick", () => this.toggleMaximised());
    const role = node.box ? "alertdialog" : style === "dialog" || style === "bare" ? "dialog" : "group";
    this.element.setAttribute("role", role);
  }

  private becomeDialog(id: number): void {
    if (this.node.closes !== false) this.title.append(signButton("close", "Close", () => this.screen.send("close", id)));
    this.foot.append(this.footGround);
    const moved = (x: number, y: number) => this.screen.send("move", id, x, y);
    const mayMove = () => this.node.state !== "maximised";
    movable(this.element, this.title, moved, mayMove);
    this.arrows = new ArrowKeys(this.element, (words) => this.screen.say(words), (x, y) => this.grow(x, y), moved);
  }
  private becomeBox(icon: string): void {
    this.element.classList.add("messagebox");
    if (signs[icon]) this.ground.append(setUp(make("div", `icon ${icon}`, signs[icon]), { "aria-hidden": "true" }));
  }

  private grow(x: number, y: number): void {
    const { inside, node } = this;
    if (!node.sizable || node.state === "maximised") return;
    Object.assign(inside.style, { width: `${inside.offsetWidth + x}px`, height: `${inside.offsetHeight + y}px` });
  }

  toggleMaximised(): void { this.screen.send("state", this.node.id, this.node.state === "maximised" ? "normal" : "maximised"); }

  update(changed: NodeOrder, node: Node): void {
    if (changed.caption !== undefined) this.caption.textContent = changed.caption;
    if (changed.visible !== undefined) this.element.hidden = !changed.visible;
    if (changed.takesInput !== undefined) this.element.classList.toggle("deaf", !changed.takesInput);
    if (changed.modal !== undefined) setOrRemove(this.element, "aria-modal", changed.modal ? "true" : "");
    const isMaximised = node.state === "maximised";
    this.element.classList.toggle("maximised", isMaximised);
    this.element.classList.toggle("sizable", node.sizable ?? false);
    this.maximise.hidden = node.style === "dialog" && !node.sizable;
    this.maximise.ariaLabel = isMaximised ? "Restore" : "Maximise";
    if (node.caption && node.style !== "bare") this.element.setAttribute("aria-labelledby", this.caption.id);
    else this.element.ariaLabel = node.label || node.caption || node.name || "";
    if (changed.place) this.arrange(changed.place);
    if (!this.sizes && (node.sizable || (node.style === "child" && node.least?.[0]))) this.tellSizes();
  }

  // Above what the program counts as the window's inside.
  addMenuBar(bar: HTMLElement): void { this.element.insertBefore(bar, this.node.style === "frame" ? this.area : this.inside); }

  groundOf(child: Node): HTMLElement {
    const { style, foot = -1 } = this.node;
    if (style === "frame") return child.kind === "window" ? this.area : this.foot;
    return foot >= 0 && parseInt(child.view.element.style.top) >= foot ? this.footGround : this.ground;
  }

  private arrange(place: [number, number, number, number]): void {
    const { node, ground } = this;
    if (node.style === "frame") this.foot.style.height = `${node.foot ?? 0}px`;
    else if (node.style === "child") setPlace(this.element, place);
    else this.arrangeDialog(place);
    const [width, height] = node.least ?? [0, 0];
    Object.assign(ground.style, { minWidth: `${width}px`, minHeight: `${this.footTop(height)}px` });
  }
  private footTop(end: number): number { return this.node.foot !== undefined && this.node.foot >= 0 ? this.node.foot : end; }

  // All but the foot scrolls where there is no room for it.
  private arrangeDialog([left, top, width, height]: [number, number, number, number]): void {
    const { inside, foot, footGround } = this;
    const [wholeWidth, wholeHeight] = this.node.least ?? [0, 0];
    const footTop = this.footTop(wholeHeight);
    const footHeight = wholeHeight - footTop;
    Object.assign(this.element.style, { left: `${left}px`, top: `${top}px` });
    Object.assign(inside.style, { width: `${width}px`, height: `${height - footHeight}px` });
    foot.style.height = `${footHeight}px`;
    setPlace(footGround, [Math.min(width - wholeWidth, 0), -footTop, wholeWidth, wholeHeight]);
    for (const child of this.screen.nodes.values()) if (child.container === this.node) this.screen.windows.stand(child);
  }

  // What the user, or a scroll bar, makes of the inside's size.
  private tellSizes(): void {
    this.sizes = new ResizeObserver(() => {
      const { offsetWidth, offsetHeight } = this.ground;
      if (offsetWidth > 0) this.screen.send("resize", this.node.id, offsetWidth, offsetHeight);
    });
    this.sizes.observe(this.ground);
  }

  // By keys that nothing in the window had a use for.
  key(event: KeyboardEvent): boolean {
    const isPage = event.key === "PageUp" || event.key === "PageDown";
    if (!isPage || this.inside.scrollHeight <= this.inside.clientHeight) return false;
    this.inside.scrollBy(0, (event.key === "PageUp" ? -0.9 : 0.9) * this.inside.clientHeight);
    return true;
  }
}

// Firefox leaves the focus for a while with what it shows no more.
const hasFocus = ({ view }: Node) => view.element.contains(document.activeElement) && (document.activeElement as HTMLElement).offsetParent !== null;
const viewOf = (window: Node) => window.view as WindowView;

export class Windows {
  readonly desk = document.getElementById("desk")!;
  private activeId = 0;
  private wanted: Node | undefined; // that is to have the focus
  private marks = false;
  private isNew = false;
  private focusSent = 0;

  constructor(private readonly screen: Screen) {
    document.addEventListener("focusin", (event) => this.focused(event.target));
    window.addEventListener("resize", () => this.tellSize());
  }

  // The browser's window, and what a scroll bar takes of it.
  tellSize(): void {
    const probe = make("div", "inside probe");
    this.desk.append(probe);
    const bar = probe.offsetWidth - probe.clientWidth;
    probe.remove();
    this.screen.send("size", this.desk.clientWidth, this.desk.clientHeight, bar);
  }

  windowOf(node: Node): Node { return this.screen.nodeAt(node.view.element.closest(".window"))!; }
  // The window to which keys go.
  active(): Node | undefined { return this.screen.node(this.activeId); }

  // In its container, behind those that it lies above.
  stand(node: Node): void {
    const { container, view } = node;
    const ground = !container ? this.desk : container.kind === "window" ? viewOf(container).groundOf(node) : container.view.ground ?? container.view.element;
    if (view.element.parentElement === ground) return;
    const above = container && [...ground.children].find((other) => Number((other as HTMLElement).dataset.id) > node.id);
    ground.insertBefore(view.element, above ?? null);
  }
  forget(node: Node): void {
    if (this.wanted === node) this.wanted = undefined;
  }

  // From the lowest window to the highest, which take input from `open` on, and which one has the keys.
  stack({ windows, open, active }: Extract<Order, { do: "stack" }>): void {
    windows.forEach((id, i) => {
      const element = this.screen.node(id)?.view.element;
      if (!element) return;
      element.style.zIndex = String(i + 1);
      element.inert = i < open;
    });
    if (active !== this.activeId && this.screen.node(active)?.box) this.screen.menus.close();
    this.activeId = active;
  }

  // The program has put the focus there; unless the user has put it elsewhere since.
  focus(id: number, marks: boolean): void {
    if (!this.screen.taken(this.focusSent)) return;
    this.wanted = this.screen.node(id);
    this.marks = marks;
    this.isNew = true;
  }
  private focused(target: EventTarget | null): void {
    const node = this.screen.nodeAt(target);
    if (!node || node.kind === "window" || node === this.wanted) return;
    this.wanted = node;
    this.screen.send("focus", node.id);
    this.focusSent = this.screen.sent();
  }
  focusedNode(): Node | undefined {
    const at = this.screen.nodeAt(document.activeElement);
    return at && at.kind !== "window" ? at : undefined;
  }

  // The user has pressed the pointer in there.
  touch(node: Node): void {
    const window = this.windowOf(node);
    if (window !== this.active() && window.takesInput !== false) this.screen.send("activate", window.id);
  }

  // After a batch.
  settle(): void {
    this.followFocus();
    this.showActive();
  }

  followFocus(): void {
    const to = this.wanted ?? this.active();
    const isBeside = document.activeElement?.closest(".companion");
    if (!to || this.screen.menus.isOpen() || (isBeside && !this.isNew)) return;
    if (this.isNew || !hasFocus(to)) this.give(to);
    this.isNew = this.marks = false;
  }
  private give(node: Node): void {
    if (!hasFocus(node)) (node.view.focus ? node.view : node.view.element).focus!();
    const line = document.activeElement;
    if ((this.marks || this.screen.keys.leads) && line instanceof HTMLInputElement) line.select();
    if (node.kind !== "window") node.view.element.scrollIntoView({ block: "nearest", inline: "nearest" });
  }

  private showActive(): void {
    const active = this.active();
    const windows = [...this.screen.nodes.values()].filter((node) => node.kind === "window");
    for (const node of windows) {
      const isActive = node.container ? node.container.active === node.id : node === (active?.container ?? active);
      node.view.element.classList.toggle("active", isActive);
    }
    const frame = windows.find((node) => node.style === "frame" && node.visible !== false);
    const child = frame?.active ? this.screen.node(frame.active) : undefined;
    const isFilled = child?.state === "maximised" && child.visible !== false;
    const title = (frame ?? active)?.caption;
    if (title) document.title = isFilled ? `${title} - [${child.caption}]` : title;
  }
}
