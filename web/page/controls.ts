// The views of the plain controls.
import { markOf } from "./bytes.js";
import { setOrRemove } from "./dress.js";
import { OutlineView, Search } from "./outline.js";
import type { Kind, NodeOrder } from "./protocol.js";
import type { Node, Page, View, ViewMaker } from "./view.js";
import { drag, make } from "./windows.js";

export interface ControlView extends View {
  readonly target?: HTMLElement; // has the focus and the name, where that is not the element
  press?(): void; // by its marked letter
}

// A caption with "&" before its letter, which is returned; "&&" is one "&".
export function showCaption(element: HTMLElement, caption: string, marks = true): string {
  const at = marks ? caption.search(/&[^&]/) : -1;
  const plain = (text: string) => (marks ? text.replace(/&&/g, "&") : text);
  if (at < 0) {
    element.textContent = plain(caption);
    return "";
  }
  const letter = make("u", "", caption[at + 1]);
  element.replaceChildren(plain(caption.slice(0, at)), letter, plain(caption.slice(at + 2)));
  return caption[at + 1]!.toUpperCase();
}
export const letterOf = (caption: string): string => (/&([^&])/.exec(caption.replace(/&&/g, ""))?.[1] ?? "").toUpperCase();

// What the user sets is not undone by what the program said before it knew.
class Echo {
  private last = 0;
  constructor(private readonly page: Page) {}
  send(kind: string, ...fields: (string | number | boolean)[]): void {
    this.page.send(kind, ...fields);
    this.last = this.page.sent();
  }
  hasTaken(): boolean { return this.page.taken(this.last); }
}

abstract class Plain implements ControlView {
  abstract readonly element: HTMLElement;
  protected readonly echo: Echo;
  constructor(protected readonly page: Page, protected readonly node: Node) {
    this.echo = new Echo(page);
  }
  abstract update(changed: NodeOrder, node: Node): void;
}

class Label extends Plain {
  readonly element: HTMLElement;
  private readonly text = make("span");

  constructor(page: Page, node: Node) {
    super(page, node);
    this.element = make(node.link ? "button" : "div", "label");
    this.element.append(this.text);
    if (!node.link) return;
    this.element.classList.add("link");
    // Who has clicked a page turner means the default button by the next Return.
    this.element.addEventListener("pointerdown", (event) => event.preventDefault());
    this.element.addEventListener("mousedown", (event) => event.preventDefault());
    this.element.addEventListener("click", () => page.send("click", node.id));
  }
  update(changed: NodeOrder, node: Node): void {
    const { classList } = this.element;
    classList.toggle("wraps", node.wraps ?? false);
    for (const align of ["centre", "right"]) classList.toggle(align, node.align === align);
    if (changed.caption === undefined && !changed.lines && changed.mnemonic === undefined) return;
    const lines = node.wraps && node.lines?.length ? node.lines : undefined;
    classList.toggle("broken", lines !== undefined);
    showCaption(this.text, lines ? lines.join("\n") : node.caption ?? "", node.mnemonic ?? false);
  }
}

class Button extends Plain {
  readonly element = make("button", "button");

  constructor(page: Page, node: Node) {
    super(page, node);
    this.element.addEventListener("click", () => page.send("click", node.id));
  }
  update(changed: NodeOrder, node: Node): void {
    if (changed.caption !== undefined) showCaption(this.element, changed.caption);
    this.element.classList.toggle("default", node.isDefault ?? false);
  }
  press(): void { this.element.click(); }
}

// Check box or option: a box or circle with its caption.
class Choice extends Plain {
  readonly element = make("label", "choice");
  readonly target = make("input");
  private readonly text = make("span");

  constructor(page: Page, node: Node) {
    super(page, node);
    this.target.type = node.kind === "optionButton" ? "radio" : "checkbox";
    this.target.name = `group-${node.parent ?? 0}`;
    this.element.append(this.target, this.text);
    this.target.addEventListener("change", () => this.echo.send("value", node.id, this.target.checked ? 1 : 0));
  }
  update(changed: NodeOrder): void {
    if (changed.caption !== undefined) showCaption(this.text, changed.caption);
    if (changed.value === undefined || !this.echo.hasTaken()) return;
    this.target.checked = changed.value === 1;
    this.target.indeterminate = changed.value === 2;
  }
  press(): void {
    this.target.focus();
    this.target.click();
  }
  // Of a group's options the keys choose the next one.
  key(event: KeyboardEvent): boolean {
    const step = { ArrowUp: -1, ArrowLeft: -1, ArrowDown: 1, ArrowRight: 1 }[event.key];
    if (!step || this.target.type !== "radio") return false;
    const group = [...document.querySelectorAll<HTMLInputElement>(`input[name="${this.target.name}"]:enabled`)].filter((one) => one.offsetParent);
    const next = group[(group.indexOf(this.target) + step + group.length) % group.length];
    next?.focus();
    next?.click();
    return true;
  }
}

type Line = HTMLInputElement | HTMLTextAreaElement;

class TextBox extends Plain {
  readonly element: Line;
  private told = "";

  constructor(page: Page, node: Node) {
    super(page, node);
    this.element = make(node.multiLine ? "textarea" : "input", "box");
    this.element.autocomplete = "off";
    this.element.spellcheck = false;
    this.element.addEventListener("input", () => this.echo.send("text", node.id, this.element.value, ...this.mark()));
    this.element.addEventListener("selectionchange", () => this.marked());
    document.addEventListener("selectionchange", this.marked);
  }
  private mark(): [number, number] {
    const { first, length } = markOf(this.element);
    return [first, length];
  }
  private readonly marked = (): void => {
    if (document.activeElement !== this.element) return;
    const now = this.mark();
    if (`${now}` === this.told) return;
    this.told = `${now}`;
    this.page.send("marked", this.node.id, ...now);
  };
  update(changed: NodeOrder, node: Node): void {
    if (changed.readOnly !== undefined) this.element.readOnly = changed.readOnly;
    if (changed.text !== undefined && this.echo.hasTaken() && this.element.value !== changed.text) this.put(changed.text, node);
    if (changed.scrollKey !== undefined || changed.scrollWish !== undefined) this.scroll(node.scrollKey ?? 0);
  }
  // A long text that is only read shows its beginning.
  private put(text: string, node: Node): void {
    this.element.value = text;
    const at = node.readOnly || (node.multiLine && document.activeElement !== this.element) ? 0 : text.length;
    this.element.setSelectionRange(at, at);
  }
  private scroll(code: number): void {
    const { clientHeight, scrollHeight } = this.element;
    const steps: Record<number, number> = { 33: -clientHeight, 34: clientHeight, 35: scrollHeight, 36: -scrollHeight, 38: -17, 40: 17 };
    this.element.scrollBy(0, steps[code] ?? 0);
  }
  focus(): void { this.element.focus(); }
  key(event: KeyboardEvent): boolean {
    const isBreak = event.key === "Enter" && this.element instanceof HTMLTextAreaElement && !this.element.readOnly;
    if (isBreak) document.execCommand("insertLineBreak");
    return isBreak;
  }
  remove(): void { document.removeEventListener("selectionchange", this.marked); }
}

class NumberBox extends Plain {
  readonly element = make("div", "box number");
  readonly target = make("input");

  constructor(page: Page, node: Node) {
    super(page, node);
    this.target.setAttribute("role", "spinbutton");
    this.target.inputMode = "numeric";
    this.target.autocomplete = "off";
    this.element.append(this.target);
    for (const step of [1, -1]) {
      const button = make("button", step > 0 ? "up" : "down");
      button.tabIndex = -1;
      button.ariaHidden = "true";
      button.addEventListener("click", () => this.stepBy(step));
      this.element.append(button);
    }
    this.target.addEventListener("input", () => this.typed());
    this.target.addEventListener("change", () => this.show());
  }
  private typed(): void {
    const number = Number(this.target.value);
    if (/^-?\d+$/.test(this.target.value.trim()) && this.allows(number)) this.set(number);
  }
  private allows(number: number): boolean { return number >= (this.node.min ?? 0) && number <= (this.node.max ?? 99); }
  private set(number: number): void {
    this.node.value = number;
    this.target.ariaValueNow = String(number);
    this.echo.send("value", this.node.id, number);
  }
  private stepBy(step: number): void {
    const { min = 0, max = 99, value = 0 } = this.node;
    this.set(Math.min(Math.max(value + step, min), max));
    this.show();
    this.target.select();
  }
  private show(): void { this.target.value = String(this.node.value ?? 0); }
  update(changed: NodeOrder, node: Node): void {
    this.target.ariaValueMin = String(node.min ?? 0);
    this.target.ariaValueMax = String(node.max ?? 99);
    if (changed.value === undefined || !this.echo.hasTaken()) return;
    this.target.ariaValueNow = String(changed.value);
    if (Number(this.target.value) !== changed.value || !this.target.value) this.show();
  }
  key(event: KeyboardEvent): boolean {
    const steps: Record<string, number> = { ArrowUp: 1, ArrowDown: -1, PageUp: 10, PageDown: -10 };
    const step = steps[event.key];
    if (step) this.stepBy(step);
    return step !== undefined;
  }
}

export function choose(list: HTMLSelectElement, index: number): void {
  if (index < 0 || index >= list.length || index === list.selectedIndex) return;
  list.selectedIndex = index;
  list.dispatchEvent(new Event("change"));
}

// Letters are looked for here: the browser would not see those that wait for their turn.
class ComboBox extends Plain {
  readonly element = make("select", "box combo");
  private readonly search = new Search();

  constructor(page: Page, node: Node) {
    super(page, node);
    this.element.addEventListener("change", () => this.echo.send("choose", node.id, this.element.selectedIndex));
  }
  update(changed: NodeOrder, node: Node): void {
    if (changed.items) this.element.replaceChildren(...changed.items.map((item) => new Option(item)));
    if ((changed.items || changed.index !== undefined) && this.echo.hasTaken()) this.element.selectedIndex = node.index ?? -1;
  }
  key(event: KeyboardEvent): boolean {
    if (event.ctrlKey || event.altKey || event.key.length !== 1 || (event.key === " " && !this.search.isGoing(event))) return false;
    choose(this.element, this.search.next(event, this.node.items ?? [], this.element.selectedIndex));
    return true;
  }
}

// Caption in the upper edge; the pieces of the box stand beside and below it.
class Frame extends Plain {
  readonly element = make("fieldset", "frame");
  private readonly caption = make("span");

  constructor(page: Page, node: Node) {
    super(page, node);
    const box = make("div", "edges");
    box.ariaHidden = "true";
    const middle = make("div");
    middle.append(this.caption);
    box.append(make("div"), middle, make("div"));
    this.element.append(box);
  }
  update(changed: NodeOrder, node: Node): void {
    if (changed.caption !== undefined) showCaption(this.caption, changed.caption);
    this.element.classList.toggle("named", !!node.caption);
    setOrRemove(this.element, "aria-label", node.label || this.caption.textContent || "");
  }
}

class Panel extends Plain {
  readonly element = make("div", "panel");
  private readonly caption = make("span");

  update(changed: NodeOrder, node: Node): void {
    this.element.classList.toggle("bordered", node.border ?? false);
    this.element.inert = node.enabled === false;
    if (changed.caption !== undefined) this.showCaption(changed.caption);
    const name = node.label || node.caption || "";
    setOrRemove(this.element, "aria-label", name);
    setOrRemove(this.element, "role", name ? "group" : "");
    this.caption.ariaHidden = node.label ? "true" : null;
  }
  // A pattern's lines stay whole; other captions are broken where they have no room.
  private showCaption(caption: string): void {
    const lines = caption.split("\n");
    this.caption.textContent = caption;
    this.caption.classList.toggle("pattern", lines.length > 1 && lines.every((line) => line === lines[0]));
    if (caption) this.element.prepend(this.caption);
    else this.caption.remove();
  }
}

class Picture extends Plain {
  readonly element = make("img");

  update(changed: NodeOrder, node: Node): void {
    if (changed.file !== undefined) setOrRemove(this.element, "src", changed.file);
    this.element.alt = node.label ?? "";
    this.element.draggable = false;
  }
}

class ScrollBar extends Plain {
  readonly element = make("div", "bar");
  private readonly handle = make("div", "handle");

  constructor(page: Page, node: Node) {
    super(page, node);
    this.element.tabIndex = 0;
    this.element.setAttribute("role", "scrollbar");
    this.element.append(this.handle);
    drag(this.element, (down) => this.take(down));
  }
  private isUpright(): boolean {
    const [, , width, height] = this.node.place ?? [0, 0, 0, 0];
    return height > width;
  }
  private take(down: PointerEvent): ((x: number, y: number) => void) | undefined {
    const { value = 0, max = 0, large = 1 } = this.node;
    const at = this.handle.getBoundingClientRect();
    const upright = this.isUpright();
    const before = upright ? down.clientY < at.top : down.clientX < at.left;
    if (down.target !== this.handle) {
      this.set(value + (before ? -large : large));
      return undefined;
    }
    const room = upright ? this.element.clientHeight - at.height : this.element.clientWidth - at.width;
    return (x, y) => this.set(value + ((upright ? y : x) / Math.max(room, 1)) * max);
  }
  private set(wanted: number): void {
    const value = Math.round(Math.min(Math.max(wanted, 0), this.node.max ?? 0));
    if (value === this.node.value) return;
    this.node.value = value;
    this.echo.send("value", this.node.id, value);
    this.show();
  }
  private show(): void {
    const { value = 0, max = 0, large = 1 } = this.node;
    const upright = this.isUpright();
    const share = `max(${(100 * large) / (max + large)}%, 26px)`;
    const rest = max > 0 ? value / max : 0;
    const start = `calc((100% - ${share}) * ${rest})`;
    this.element.ariaOrientation = upright ? "vertical" : "horizontal";
    this.element.classList.toggle("upright", upright);
    Object.assign(this.handle.style, upright ? { top: start, height: share, left: "", width: "" } : { left: start, width: share, top: "", height: "" });
    this.element.ariaValueNow = String(value);
    this.element.ariaValueMax = String(max);
    this.element.ariaValueMin = "0";
  }
  private shown = 0;
  update(changed: NodeOrder, node: Node): void {
    if (this.echo.hasTaken()) this.shown = node.value ?? 0;
    else if (changed.value !== undefined) node.value = this.shown;
    this.show();
  }
  key(event: KeyboardEvent): boolean {
    const { value = 0, max = 0, small = 1, large = 1 } = this.node;
    const places: Record<string, number> = {
      ArrowUp: value - small, ArrowLeft: value - small, ArrowDown: value + small, ArrowRight: value + small,
      PageUp: value - large, PageDown: value + large, Home: 0, End: max,
    };
    const place = places[event.key];
    if (place !== undefined) this.set(place);
    return place !== undefined;
  }
}

class TabBook extends Plain {
  readonly element = make("div", "book");
  readonly target = make("div", "tabs");
  readonly ground = make("div", "page");

  constructor(page: Page, node: Node) {
    super(page, node);
    this.target.setAttribute("role", "tablist");
    this.target.addEventListener("click", (event) => this.choose([...this.target.children].indexOf((event.target as Element).closest("button")!)));
    this.ground.setAttribute("role", "tabpanel");
    this.element.append(this.target, this.ground);
  }
  private choose(index: number): void {
    if (index < 0 || index === this.node.index) return;
    this.node.index = index;
    this.echo.send("choose", this.node.id, index);
    this.mark();
    this.focus();
  }
  stepBy(step: number): void {
    const count = this.target.children.length;
    if (count > 0) this.choose(((this.node.index ?? 0) + step + count) % count);
  }
  private mark(): void {
    [...this.target.children].forEach((tab, i) => {
      tab.ariaSelected = String(i === this.node.index);
      (tab as HTMLElement).tabIndex = i === this.node.index ? 0 : -1;
      if (i === this.node.index) this.ground.setAttribute("aria-labelledby", tab.id);
    });
  }
  update(changed: NodeOrder, node: Node): void {
    if (changed.items) this.target.replaceChildren(...changed.items.map((item, i) => this.makeTab(item, i)));
    if (node.tabHeight) this.element.style.setProperty("--tabs", `${node.tabHeight}px`);
    this.target.classList.toggle("tight", this.target.scrollWidth > this.target.clientWidth);
    if (changed.items || changed.index !== undefined) this.mark();
  }
  private makeTab(caption: string, index: number): HTMLElement {
    const tab = make("button", "tab");
    tab.append(make("span", "", caption));
    tab.id = `tab-${this.node.id}-${index}`;
    tab.setAttribute("role", "tab");
    tab.style.maxWidth = `${100 / (this.node.items?.length ?? 1)}%`;
    return tab;
  }
  focus(): void { (this.target.children[this.node.index ?? 0] as HTMLElement | undefined)?.focus(); }
  key(event: KeyboardEvent): boolean {
    const isOnTabs = this.target.contains(document.activeElement);
    const step = isOnTabs ? { ArrowLeft: -1, ArrowRight: 1 }[event.key] : undefined;
    const count = this.target.children.length;
    const end = isOnTabs ? { Home: 0, End: count - 1 }[event.key] : undefined;
    if (step) this.choose(Math.min(Math.max((this.node.index ?? 0) + step, 0), count - 1));
    if (end !== undefined) this.choose(end);
    return step !== undefined || end !== undefined;
  }
}

export const isBook = (view: View): view is TabBook => view instanceof TabBook;

type ViewClass = new (page: Page, node: Node) => View;
export function registerControls(makers: Map<Kind, ViewMaker>): void {
  const classes: [Kind, ViewClass][] = [
    ["label", Label], ["button", Button], ["checkBox", Choice], ["optionButton", Choice], ["textBox", TextBox],
    ["numberBox", NumberBox], ["comboBox", ComboBox], ["frame", Frame], ["panel", Panel], ["image", Picture],
    ["scrollBar", ScrollBar], ["tabBook", TabBook], ["outline", OutlineView],
  ];
  for (const [kind, View] of classes) makers.set(kind, (page, node) => new View(page, node));
}
