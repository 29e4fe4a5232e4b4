// A list whose items stand under one another by indent; items can be opened and closed.
import type { NodeOrder } from "./protocol.js";
import type { Node, Page, View } from "./view.js";
import { make } from "./windows.js";

const searchRest = 1000; // milliseconds after which a letter begins another word

// Letters lead to the next item that begins so, one letter over and over from item to item.
export class Search {
  private text = "";
  private at = -Infinity;

  // Has a word been begun, so that a blank belongs to it?
  isGoing(event: KeyboardEvent): boolean { return event.timeStamp - this.at <= searchRest; }
  // Its index; -1 where none begins so.
  next(event: KeyboardEvent, items: readonly string[], from: number, isShown = (_index: number) => true): number {
    const letter = event.key.toLowerCase();
    this.text = (this.isGoing(event) ? this.text : "") + letter;
    this.at = event.timeStamp;
    const sought = [...this.text].every((one) => one === letter) ? letter : this.text;
    const first = from + (sought.length === 1 ? 1 : 0);
    const order = items.map((_, i) => (first + i) % items.length);
    return order.find((at) => isShown(at) && items[at]!.toLowerCase().startsWith(sought)) ?? -1;
  }
}

export class OutlineView implements View {
  readonly element = make("div", "box outline");
  private index = -1;
  private last = 0;
  private readonly search = new Search();

  constructor(private readonly page: Page, private readonly node: Node) {
    this.element.tabIndex = 0;
    this.element.setAttribute("role", "tree");
    this.element.addEventListener("pointerdown", (event) => this.pressed(event));
  }

  update(changed: NodeOrder, node: Node): void {
    if (changed.items || changed.levels) this.fill(node);
    if (changed.index !== undefined && this.page.taken(this.last)) this.index = changed.index;
    this.mark();
  }

  private fill(node: Node): void {
    const rows = (node.items ?? []).map((text, i) => {
      const row = make("div", "row");
      row.id = `item-${node.id}-${i}`;
      row.setAttribute("role", "treeitem");
      row.ariaLevel = String(this.level(i));
      row.style.setProperty("--level", String(this.level(i)));
      if (this.hasInner(i)) row.append(make("i", "mark"));
      row.append(make("span", "", text));
      return row;
    });
    this.element.replaceChildren(...rows);
  }

  private rows(): HTMLElement[] { return [...this.element.children] as HTMLElement[]; }
  private level(index: number): number { return this.node.levels?.[index] ?? 1; }
  private hasInner(index: number): boolean {
    return this.level(index + 1) > this.level(index) && index + 1 < (this.node.items?.length ?? 0);
  }
  private isOpen(index: number): boolean { return this.node.opened?.[index] ?? false; }
  private above(index: number): number {
    let at = index - 1;
    while (at >= 0 && this.level(at) >= this.level(index)) --at;
    return at;
  }
  private isShown(index: number): boolean {
    const above = this.above(index);
    return above < 0 || (this.isOpen(above) && this.isShown(above));
  }

  private mark(): void {
    this.rows().forEach((row, i) => {
      row.hidden = !this.isShown(i);
      row.ariaExpanded = this.hasInner(i) ? String(this.isOpen(i)) : null;
      row.ariaSelected = String(i === this.index);
    });
    const chosen = this.rows()[this.index];
    if (!chosen) return this.element.removeAttribute("aria-activedescendant");
    this.element.setAttribute("aria-activedescendant", chosen.id);
    chosen.scrollIntoView({ block: "nearest" });
  }

  private send(kind: string, ...fields: (number | boolean)[]): void {
    this.page.send(kind, this.node.id, ...fields);
    this.last = this.page.sent();
  }
  private pressed(event: PointerEvent): void {
    const target = event.target as HTMLElement;
    const index = this.rows().indexOf(target.closest<HTMLElement>(".row")!);
    if (index < 0 || event.button !== 0) return;
    if (target.classList.contains("mark")) return this.send("expand", index, !this.isOpen(index));
    this.index = index;
    this.mark();
    this.send("choose", index);
  }
  private moveTo(index: number): void {
    if (index < 0 || index === this.index) return;
    this.index = index;
    this.mark();
    this.send("moveto", index);
  }

  private step(by: number): number {
    const shown = this.rows().map((_, i) => i).filter((i) => this.isShown(i));
    const at = Math.min(Math.max(shown.indexOf(this.index) + by, 0), shown.length - 1);
    return shown[at] ?? -1;
  }

  key(event: KeyboardEvent): boolean {
    if (event.ctrlKey || event.altKey) return false;
    const page = Math.max(Math.floor(this.element.clientHeight / 23) - 1, 1);
    const steps: Record<string, number> = { ArrowUp: -1, ArrowDown: 1, PageUp: -page, PageDown: page, Home: -Infinity, End: Infinity };
    const by = steps[event.key];
    if (by !== undefined) this.moveTo(this.step(by));
    else if (event.key === "ArrowRight" || event.key === "+") this.openOrEnter(event.key === "+");
    else if (event.key === "ArrowLeft" || event.key === "-") this.closeOrLeave(event.key === "-");
    else return event.key.length === 1 && event.key !== " " && this.seek(event);
    return true;
  }
  private openOrEnter(stays: boolean): void {
    if (!this.hasInner(this.index)) return;
    if (!this.isOpen(this.index)) this.send("expand", this.index, true);
    else if (!stays) this.moveTo(this.index + 1);
  }
  private closeOrLeave(stays: boolean): void {
    if (this.hasInner(this.index) && this.isOpen(this.index)) this.send("expand", this.index, false);
    else if (!stays) this.moveTo(this.above(this.index));
  }

  private seek(event: KeyboardEvent): boolean {
    this.moveTo(this.search.next(event, this.node.items ?? [], this.index, (at) => this.isShown(at)));
    return true;
  }
}
