// The plain controls: the program writes their HTML, here is what the user does with them.
import { markOf } from "./bytes.js";
import type { Screen } from "./page.js";
import type { Kind, NodeOrder } from "./protocol.js";
import { makers, type Field, type Node, type Page, type View, type ViewClass } from "./view.js";

// In a caption the marked letter is underlined; it is returned.
export const letterOf = (caption: string): string => (/<u>(.)/.exec(caption)?.[1] ?? "").toUpperCase();
export function showCaption(element: HTMLElement, caption: string): string {
  element.innerHTML = caption;
  return letterOf(caption);
}

function made(html: string): HTMLElement {
  const template = document.createElement("template");
  template.innerHTML = html;
  return template.content.firstElementChild as HTMLElement;
}

// Makes an element what another one is. What is alike stays, with focus and selection; so do place
// and look, and the controls that stand in it.
function patch(element: Element, now: Element): void {
  for (const { name } of [...element.attributes]) if (name !== "style" && !now.hasAttribute(name)) element.removeAttribute(name);
  for (const { name, value } of now.attributes) if (element.getAttribute(name) !== value) element.setAttribute(name, value);
  const inner = [...element.childNodes];
  const controls = inner.filter((one) => one instanceof HTMLElement && one.dataset.id);
  const own = inner.filter((one) => !controls.includes(one));
  const wanted = [...now.childNodes];
  wanted.forEach((child, i) => {
    const before = own[i];
    if (!before) element.insertBefore(child, controls[0] ?? null);
    else if (before instanceof HTMLElement && before.nodeName === child.nodeName) patch(before, child as HTMLElement);
    else if (!before.isEqualNode(child)) before.replaceWith(child);
  });
  for (const rest of own.slice(wanted.length)) rest.remove();
}

export class ControlView implements View {
  readonly element: HTMLElement;
  private html: string;
  private sent = 0;

  constructor(protected readonly page: Page, protected readonly node: Node) {
    this.html = node.html ?? "";
    this.element = made(this.html);
  }
  get ground(): HTMLElement { return this.element.querySelector<HTMLElement>(":scope > .page") ?? this.element; }
  // That has the focus.
  get target(): HTMLElement { return this.element.querySelector<HTMLElement>(":scope > input, :scope > .tabs > [tabindex='0']") ?? this.element; }
  focus(): void { this.target.focus({ preventScroll: true }); }

  // What the user sets is not undone by what the program said before it knew.
  update({ html = this.html, value }: NodeOrder): void {
    if (html !== this.html) patch(this.element, made(html));
    this.html = html;
    if (value !== undefined && this.page.taken(this.sent)) this.put(value);
  }
  protected send(kind: string, ...fields: Field[]): void {
    this.page.send(kind, this.node.id, ...fields);
    this.sent = this.page.sent();
  }

  protected put(_value: string): void {}
  clicked(_at: Element): void {}
  typed(): void {}
  changed(): void {}
  key(_event: KeyboardEvent): boolean { return false; }
}

class Button extends ControlView {
  clicked(): void { if (this.element instanceof HTMLButtonElement) this.send("click"); }
}

// Check box or option.
class Choice extends ControlView {
  private readonly box = this.target as HTMLInputElement;

  protected put(value: string): void {
    this.box.checked = value === "1";
    this.box.indeterminate = value === "2";
  }
  changed(): void { this.send("value", this.box.checked); }
  // Of a group's options the keys choose the next one.
  key(event: KeyboardEvent): boolean {
    const step = { ArrowUp: -1, ArrowLeft: -1, ArrowDown: 1, ArrowRight: 1 }[event.key];
    if (!step || this.box.type !== "radio") return false;
    const group = [...document.getElementsByName(this.box.name)].filter((one) => one.offsetParent && one.matches(":enabled"));
    const next = group[(group.indexOf(this.box) + step + group.length) % group.length];
    next?.focus();
    next?.click();
    return true;
  }
}

export class TextBox extends ControlView {
  declare readonly element: HTMLInputElement | HTMLTextAreaElement;
  private told = "";

  private mark(): [number, number] {
    const { first, length } = markOf(this.element);
    return [first, length];
  }
  tellMark(): void {
    const now = this.mark();
    if (`${now}` === this.told) return;
    this.told = `${now}`;
    this.page.send("marked", this.node.id, ...now);
  }
  typed(): void { this.send("text", this.element.value, ...this.mark()); }
  // A long text that is only read shows its beginning.
  protected put(text: string): void {
    const { element } = this;
    if (element.value === text) return;
    element.value = text;
    const isRead = element.readOnly || (element instanceof HTMLTextAreaElement && document.activeElement !== element);
    element.setSelectionRange(isRead ? 0 : text.length, isRead ? 0 : text.length);
  }
  scroll(code: number): void {
    const { clientHeight, scrollHeight } = this.element;
    const steps: Record<number, number> = { 33: -clientHeight, 34: clientHeight, 35: scrollHeight, 36: -scrollHeight, 38: -17, 40: 17 };
    this.element.scrollBy(0, steps[code] ?? 0);
  }
  key(event: KeyboardEvent): boolean {
    const isBreak = event.key === "Enter" && this.element instanceof HTMLTextAreaElement && !this.element.readOnly;
    if (isBreak) document.execCommand("insertLineBreak");
    return isBreak;
  }
}

// Number box or scroll bar: the one grows upwards, the other downwards.
class Amount extends ControlView {
  declare readonly element: HTMLInputElement;
  private value = ""; // the last one that is allowed

  protected put(value: string): void { this.element.value = this.value = value; }
  typed(): void {
    const { value, validity } = this.element;
    if (!value || !validity.valid) return;
    this.value = value;
    this.send("value", Number(value));
  }
  changed(): void { this.element.value = this.value; }
  key({ key }: KeyboardEvent): boolean {
    const { small = "-1", large = "-10" } = this.element.dataset;
    const isBar = this.node.kind === "scrollBar";
    const steps: Record<string, number> = { ArrowUp: -small, ArrowDown: +small, PageUp: -large, PageDown: +large };
    const further: Record<string, number> = { ArrowLeft: -small, ArrowRight: +small, Home: -this.value, End: +this.element.max };
    const step = steps[key] ?? (isBar ? further[key] : undefined);
    if (step === undefined) return false;
    const { min, max } = this.element;
    this.element.value = String(Math.min(Math.max(Number(this.value) + step, Number(min)), Number(max)));
    this.typed();
    this.element.select();
    return true;
  }
}

const searchRest = 1000; // milliseconds after which a letter begins another word

// Letters lead to the next item that begins so, one letter over and over from item to item. They are
// looked for here: the browser would not see those that wait for their turn.
class Search {
  private text = "";
  private at = -Infinity;

  // The index, -1 where none begins so; nothing for a key that seeks nothing.
  seek(event: KeyboardEvent, items: Iterable<Element>, from: number): number | undefined {
    const isGoing = event.timeStamp - this.at <= searchRest;
    if (event.ctrlKey || event.altKey || event.key.length !== 1 || (event.key === " " && !isGoing)) return undefined;
    const letter = event.key.toLowerCase();
    this.text = (isGoing ? this.text : "") + letter;
    this.at = event.timeStamp;
    const sought = [...this.text].every((one) => one === letter) ? letter : this.text;
    const texts = [...items].map((item) => item.textContent!.toLowerCase());
    const first = from + (sought.length === 1 ? 1 : 0);
    return texts.map((_, i) => (first + i) % texts.length).find((at) => texts[at]!.startsWith(sought)) ?? -1;
  }
}

export function choose(list: HTMLSelectElement, index: number): void {
  if (index < 0 || index >= list.length || index === list.selectedIndex) return;
  list.selectedIndex = index;
  list.dispatchEvent(new Event("change", { bubbles: true }));
}

class ComboBox extends ControlView {
  declare readonly element: HTMLSelectElement;
  private readonly search = new Search();

  protected put(index: string): void { this.element.selectedIndex = Number(index); }
  changed(): void { this.send("choose", this.element.selectedIndex); }
  key(event: KeyboardEvent): boolean {
    const index = this.search.seek(event, this.element.options, this.element.selectedIndex);
    if (index !== undefined) choose(this.element, index);
    return index !== undefined;
  }
}

class TabBook extends ControlView {
  clicked(at: Element): void {
    const tab = at.closest<HTMLElement>(".tab");
    tab?.focus();
    if (tab && tab.tabIndex < 0) this.send("choose", [...tab.parentElement!.children].indexOf(tab));
  }
  key({ key }: KeyboardEvent): boolean {
    const at = document.activeElement;
    if (!at?.matches(".tab")) return false;
    const to = { ArrowLeft: at.previousElementSibling, ArrowRight: at.nextElementSibling, Home: at.parentElement!.firstElementChild, End: at.parentElement!.lastElementChild }[key];
    (to as HTMLElement | null | undefined)?.click();
    return to !== undefined;
  }
}

// A list whose items stand under one another by indent; items can be opened and closed.
class Outline extends ControlView {
  private readonly search = new Search();

  update(changed: NodeOrder): void {
    super.update(changed);
    if (changed.html !== undefined) this.chosen()?.scrollIntoView({ block: "nearest" });
  }
  private chosen(): Element | null { return this.element.querySelector('[aria-selected="true"]'); }
  private tell(kind: string, row: Element | null | undefined, ...fields: Field[]): void {
    if (row) this.send(kind, [...this.element.children].indexOf(row), ...fields);
  }
  clicked(at: Element): void {
    const row = at.closest(".row");
    if (at.matches(".mark")) this.tell("expand", row, row?.ariaExpanded !== "true");
    else this.tell("choose", row);
  }

  key(event: KeyboardEvent): boolean {
    if (event.ctrlKey || event.altKey) return false;
    const chosen = this.chosen();
    const shown = [...this.element.children].filter((row) => !(row as HTMLElement).hidden);
    const at = shown.indexOf(chosen!);
    const page = Math.max(Math.floor(this.element.clientHeight / 23) - 1, 1);
    const steps: Record<string, number> = { ArrowUp: -1, ArrowDown: 1, PageUp: -page, PageDown: page, Home: -Infinity, End: Infinity };
    const step = steps[event.key];
    if (step !== undefined) this.moveTo(shown[Math.min(Math.max(at + step, 0), shown.length - 1)]);
    else if (["ArrowRight", "ArrowLeft", "+", "-"].includes(event.key)) this.fold(event.key, chosen);
    else {
      const index = this.search.seek(event, shown, at);
      this.moveTo(shown[index ?? -1]);
      return index !== undefined;
    }
    return true;
  }
  private moveTo(row: Element | null | undefined): void {
    if (row !== this.chosen()) this.tell("moveto", row);
  }
  // Opens or closes; an arrow with nothing to open or close leads in or out.
  private fold(key: string, row: Element | null): void {
    const opens = key === "ArrowRight" || key === "+";
    if (row?.ariaExpanded === String(!opens)) return this.tell("expand", row, opens);
    if (key === "ArrowRight" && row?.ariaExpanded) this.moveTo(row.nextElementSibling);
    if (key !== "ArrowLeft") return;
    let above = row?.previousElementSibling;
    while (above && above.ariaLevel! >= row!.ariaLevel!) above = above.previousElementSibling;
    this.moveTo(above);
  }
}

const classes: [Kind, ViewClass][] = [
  ["label", Button], ["button", Button], ["checkBox", Choice], ["optionButton", Choice], ["textBox", TextBox],
  ["numberBox", Amount], ["scrollBar", Amount], ["comboBox", ComboBox], ["tabBook", TabBook], ["outline", Outline],
  ["frame", ControlView], ["panel", ControlView], ["image", ControlView],
];
for (const [kind, View] of classes) makers.set(kind, View);

export function serveControls(screen: Screen): void {
  const listen = (kind: string, act: (view: ControlView, at: Element) => void) => document.addEventListener(kind, ({ target }) => {
    const view = screen.nodeAt(target)?.view;
    if (view instanceof ControlView) act(view, target as Element);
  });
  listen("click", (view, at) => view.clicked(at));
  listen("input", (view) => view.typed());
  listen("change", (view) => view.changed());
  document.addEventListener("selectionchange", () => {
    const view = screen.nodeAt(document.activeElement)?.view;
    if (view instanceof TextBox) view.tellMark();
  });
  // Who has clicked a page turner means the default button by the next Return.
  document.addEventListener("mousedown", (event) => (event.target as Element).closest(".link") && event.preventDefault());
  screen.on("scroll", ({ id, key }) => {
    const view = screen.node(id)?.view;
    if (view instanceof TextBox) view.scroll(key);
  });
}
