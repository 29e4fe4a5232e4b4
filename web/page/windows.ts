// Windows: how they stand on the page, which of them takes input, and where the keyboard is.
import { setOrRemove, setPlace } from "./dress.js";
import type { Screen } from "./page.js";
import type { NodeOrder } from "./protocol.js";
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
  Object.assign(element.style, { left: `${x}px`, top: `${y}px` });
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
  private reported = "";
  private size: [number, number] | undefined; // as the user has drawn it, until the program follows
  private sizeSent = 0;

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
    if (style === "child") this.title.addEventListener("dblclick", () => this.toggleMaximised());
    this.element.setAttribute("role", style === "dialog" || style === "bare" ? "dialog" : "group");
  }

  private becomeDialog(id: number): void {
    this.title.append(signButton("close", "Close", () => this.screen.send("close", id)));
    this.foot.append(this.footGround);
    const moved = (x: number, y: number) => this.screen.send("move", id, x, y);
    movable(this.element, this.title, moved, () => this.node.state !== "maximised");
    const grip = make("div", "grip");
    this.element.append(grip);
    drag(grip, () => this.follow());
    const size = (x: number, y: number) => this.node.sizable && this.node.state !== "maximised" && this.follow()(x, y);
    this.arrows = new ArrowKeys(this.element, (words) => this.screen.say(words), size, moved);
  }
  // How the inside follows what its edge is drawn by.
  private follow(): (x: number, y: number) => void {
    const [width, height] = this.shown();
    return (x, y) => this.sizeTo(Math.max(width + x, leastShown), Math.max(height + y, leastShown));
  }

  private sizeTo(width: number, height: number): void {
    this.size = [width, height];
    this.arrange();
    if (this.screen.taken(this.sizeSent)) this.report();
  }

  toggleMaximised(): void { this.screen.send("state", this.node.id, this.node.state === "maximised" ? "normal" : "maximised"); }

  update(changed: NodeOrder, node: Node): void {
    if (changed.caption !== undefined) this.caption.textContent = changed.caption;
    if (changed.place) {
      this.size = undefined;
      this.reported = "";
    }
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
  }

  // Above what the program counts as the window's inside.
  addMenuBar(bar: HTMLElement): void { this.element.insertBefore(bar, this.node.style === "frame" ? this.area : this.inside); }

  groundOf(child: Node): HTMLElement {
    if (this.node.style === "frame") return child.kind === "window" ? this.area : this.foot;
    const inFoot = !this.foot.hidden && this.footTop() >= 0 && parseInt(child.view.element.style.top) >= this.footTop();
    return inFoot ? this.footGround : this.ground;
  }

  private footTop(): number { return this.node.foot ?? -1; }

  // The inside that the layout needs, the room on the page, and what shows of the one in the other.
  private whole(shown: [number, number]): [number, number] {
    const [, , width, height] = this.node.place ?? [0, 0, 0, 0];
    const [leastWidth, leastHeight] = this.node.least ?? [0, 0];
    if (!this.node.sizable) return [leastWidth || width, leastHeight || height];
    return [Math.max(shown[0], leastWidth), Math.max(shown[1], leastHeight)];
  }
  private room(): [number, number] {
    const { desk } = this.screen.windows;
    const bars = this.element.offsetHeight - this.inside.offsetHeight - (this.foot.hidden ? 0 : this.foot.offsetHeight);
    return [desk.clientWidth - (this.element.offsetWidth - this.inside.offsetWidth), desk.clientHeight - bars];
  }
  private shown(): [number, number] {
    const [width, height] = this.room();
    if (this.node.state === "maximised") return [width, height];
    const [, , wanted, wantedHeight] = this.node.place ?? [0, 0, 0, 0];
    const [w, h] = this.size ?? [wanted, wantedHeight];
    return [Math.min(Math.round(w), width), Math.min(Math.round(h), height)];
  }

  arrange(): void {
    const { node, element } = this;
    if (node.style === "frame") this.foot.style.height = `${node.foot ?? 0}px`;
    else if (node.style === "child") this.arrangeChild();
    else if (!element.hidden) this.arrangeDialog();
  }

  private arrangeChild(): void {
    const { node, ground } = this;
    if (node.place && node.state !== "maximised") setPlace(this.element, node.place);
    else Object.assign(this.element.style, { left: "0", top: "0", width: "100%", height: "100%" });
    const [width, height] = node.least ?? [0, 0];
    Object.assign(ground.style, { minWidth: `${width}px`, minHeight: `${height}px` });
  }

  private arrangeDialog(): void {
    const { node, inside, ground, foot, footGround, element } = this;
    const shown = this.shown();
    const whole = this.whole(shown);
    const hasRoom = whole[0] <= shown[0] && whole[1] <= shown[1];
    const footTop = this.footTop() < 0 || hasRoom ? whole[1] : this.footTop();
    foot.hidden = hasRoom || this.footTop() < 0;
    const footHeight = foot.hidden ? 0 : whole[1] - footTop;
    Object.assign(inside.style, { width: `${shown[0]}px`, height: `${shown[1] - footHeight}px`, overflow: hasRoom ? "clip" : "auto" });
    Object.assign(ground.style, { minWidth: hasRoom ? "0" : `${whole[0]}px`, minHeight: hasRoom ? "0" : `${footTop}px` });
    foot.style.height = `${footHeight}px`;
    setPlace(footGround, [Math.min(shown[0] - whole[0], 0), -footTop, Math.max(...whole, shown[0]), whole[1]]);
    for (const child of this.screen.nodes.values())
      if (child.container === node && child.view.element.parentElement !== this.groundOf(child)) this.groundOf(child).append(child.view.element);
    this.stand(element, node.place ?? [0, 0, 0, 0]);
  }

  // Nothing reaches beyond the right or lower edge.
  private stand(element: HTMLElement, [left, top]: number[]): void {
    const { desk } = this.screen.windows;
    const isMaximised = this.node.state === "maximised";
    const x = isMaximised ? 0 : Math.max(Math.min(Math.round(left!), desk.clientWidth - element.offsetWidth), 0);
    const y = isMaximised ? 0 : Math.max(Math.min(Math.round(top!), desk.clientHeight - element.offsetHeight), 0);
    Object.assign(element.style, { left: `${x}px`, top: `${y}px` });
  }

  // The inside's size where it is not what the program reckons with.
  report(): void {
    const { node, screen } = this;
    const size = node.visible === false ? undefined : this.innerSize();
    if (!size || `${size}` === this.reported) return;
    this.reported = `${size}`;
    screen.send("resize", node.id, ...size);
    this.sizeSent = screen.sent();
  }

  private innerSize(): [number, number] | undefined {
    const { node } = this;
    if (node.style === "frame") return [this.area.clientWidth, this.area.clientHeight];
    if (node.style === "child") return node.least?.[0] ? [this.ground.clientWidth, this.ground.clientHeight] : undefined;
    if (!node.sizable || node.style === "bare") return undefined;
    const now = this.whole(this.shown());
    const [, , width, height] = node.place ?? [0, 0, 0, 0];
    const known = this.whole([width, height]);
    const isNews = this.size || node.state === "maximised" || `${now}` !== `${known}`;
    if (!isNews) this.reported = "";
    return isNews ? now : undefined;
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
  private readonly changedOnes = new Set<Node>();
  private readonly shownAt = new Map<Node, number>();
  private readonly focusOf = new Map<Node, Node>();
  private count = 0;
  private wanted: Node | undefined;
  private marks = false;
  private isNew = false;
  private focusSent = 0;

  constructor(private readonly screen: Screen) {
    document.addEventListener("focusin", (event) => this.focused(event.target));
    window.addEventListener("resize", () => this.resized());
  }

  // The browser's window, and what a scroll bar takes of it.
  tellSize(): void {
    const probe = make("div", "inside probe");
    this.desk.append(probe);
    const bar = probe.offsetWidth - probe.clientWidth;
    probe.remove();
    this.screen.send("size", this.desk.clientWidth, this.desk.clientHeight, bar);
  }
  private resized(): void {
    this.tellSize();
    this.arrange(this.all());
  }
  private arrange(changed: Iterable<Node>): void {
    for (const window of changed) viewOf(window).arrange();
    for (const window of this.all()) viewOf(window).report();
  }

  private all(): Node[] { return [...this.screen.nodes.values()].filter((node) => node.kind === "window"); }
  private roots(): Node[] {
    // The frame is the ground of all others.
    const rank = (node: Node) => (node.style === "frame" ? 0 : this.shownAt.get(node) ?? 0);
    return this.all()
      .filter((node) => !node.container && node.visible !== false)
      .sort((a, b) => rank(a) - rank(b));
  }
  windowOf(node: Node): Node {
    let at = node;
    while (at.kind !== "window" && at.container) at = at.container;
    return at;
  }
  rootOf(node: Node): Node {
    const window = this.windowOf(node);
    return window.container ?? window;
  }

  stand(node: Node): void {
    if (node.kind === "window" && node.container === null) return this.desk.append(node.view.element);
    const container = node.container!;
    const ground = container.kind === "window" ? viewOf(container).groundOf(node) : container.view.ground ?? container.view.element;
    const above = [...ground.children].find((other) => Number((other as HTMLElement).dataset.id) > node.id);
    ground.insertBefore(node.view.element, above ?? null);
  }
  changed(node: Node): void {
    const container = node.container;
    if (node.kind === "window") {
      this.changedOnes.add(node);
      if (node.visible !== false && !this.shownAt.has(node)) this.shownAt.set(node, ++this.count);
      if (node.visible === false) this.shownAt.delete(node);
    } else if (container?.kind === "window" && container.style === "dialog") {
      this.changedOnes.add(container);
    }
  }
  forget(node: Node): void {
    this.changedOnes.delete(node);
    this.focusOf.delete(node);
    for (const [window, focus] of this.focusOf) if (focus === node) this.focusOf.delete(window);
    if (this.wanted === node) this.wanted = undefined;
  }

  // The program has put the focus there; unless the user has put it elsewhere since.
  focus(id: number, marks: boolean): void {
    if (!this.screen.taken(this.focusSent)) return;
    this.wanted = this.screen.node(id);
    this.marks = marks;
    this.isNew = true;
    if (!this.wanted) return;
    const window = this.windowOf(this.wanted);
    this.focusOf.set(window, this.wanted);
    this.shownAt.set(window, ++this.count);
  }
  private focused(target: EventTarget | null): void {
    const node = this.screen.nodeAt(target);
    if (!node || node.kind === "window" || node === this.wanted) return;
    this.wanted = node;
    this.focusOf.set(this.windowOf(node), node);
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
    const isActive = window === this.active();
    if (isActive || window.takesInput === false) return;
    if (window.style === "dialog") this.shownAt.set(window, ++this.count);
    this.screen.send("activate", window.id);
  }

  // The window to which keys go.
  active(): Node | undefined {
    const roots = this.roots();
    const lowest = this.lowestOpen(roots);
    const mayHaveKeys = (node: Node) => roots.indexOf(this.rootOf(node)) >= lowest;
    if (this.wanted && this.isShown(this.wanted) && mayHaveKeys(this.wanted)) return this.windowOf(this.wanted);
    const top = roots[roots.length - 1];
    return (top?.active && this.screen.node(top.active)) || top;
  }
  private lowestOpen(roots: Node[]): number {
    for (let i = roots.length - 1; i > 0; --i) if (roots[i]!.modal) return i;
    return 0;
  }
  private isShown(node: Node): boolean { return node.visible !== false && (!node.container || this.isShown(node.container)); }

  // After a batch: who stands above whom, who takes input, where things are, who has the focus.
  settle(): void {
    const roots = this.roots();
    const lowest = this.lowestOpen(roots);
    const isAsked = this.screen.boxes.isOpen();
    roots.forEach((root, i) => {
      root.view.element.style.zIndex = String(i + 1);
      root.view.element.inert = isAsked || i < lowest;
    });
    if (this.changedOnes.size > 0) this.arrange(this.changedOnes);
    this.changedOnes.clear();
    this.followFocus();
    this.showActive(roots);
  }

  followFocus(): void {
    if (this.screen.boxes.isOpen() || this.screen.menus.isOpen()) return;
    const active = this.active();
    const isBeside = document.activeElement?.closest(".companion");
    if (!active || (isBeside && !this.isNew)) return;
    const node = this.wanted && this.windowOf(this.wanted) === active ? this.wanted : this.focusOf.get(active);
    if (this.isNew || !hasFocus(node ?? active)) this.give(node ?? active);
    this.isNew = this.marks = false;
  }
  private give(node: Node): void {
    this.wanted = node.kind === "window" ? undefined : node;
    if (!hasFocus(node)) (node.view.focus ? node.view : node.view.element).focus!();
    const line = document.activeElement;
    if ((this.marks || this.screen.keys.leads) && line instanceof HTMLInputElement) line.select();
    if (node.kind !== "window") node.view.element.scrollIntoView({ block: "nearest", inline: "nearest" });
  }

  private showActive(roots: Node[]): void {
    const active = this.active();
    const root = active && this.rootOf(active);
    for (const window of this.all()) {
      const isActive = window.container ? window.container.active === window.id : window === root;
      window.view.element.classList.toggle("active", isActive);
    }
    const frame = roots.find((node) => node.style === "frame");
    const child = frame?.active ? this.screen.node(frame.active) : undefined;
    const isFilled = child?.state === "maximised" && child.visible !== false;
    if (frame) this.screen.menus.showRestore(frame, isFilled ? child : undefined);
    const title = (frame ?? active)?.caption;
    if (title) document.title = isFilled ? `${title} - [${child!.caption}]` : title;
  }
}
