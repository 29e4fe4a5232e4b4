// Menu bars, what is pulled down from them, and menus that pop up.
import { showCaption } from "./controls.js";
import type { Stroke } from "./keys.js";
import { readClipboard } from "./clipboard.js";
import type { Screen } from "./page.js";
import type { MenuEntry, Order } from "./protocol.js";
import { make, setUp, signButton, WindowView } from "./windows.js";

type Item = HTMLElement; // that stands for an entry

// An open list of items, and the one it is pulled down from.
interface OpenMenu {
  list: HTMLElement;
  from: Item | undefined;
}

const itemsOf = (list: HTMLElement) => [...list.querySelectorAll<Item>("[role^=menuitem]")];
const itemAt = (event: Event) => (event.target as Element).closest<Item>("[role^=menuitem]") ?? undefined;
const letterOf = (item: Item) => item.querySelector("u")?.textContent?.toUpperCase();
const isUnfolded = (item: Item) => item.ariaExpanded === "true";

export class Menus {
  private readonly entries = new Map<number, MenuEntry>();
  private readonly bars = new Map<number, HTMLElement>();
  private readonly open: OpenMenu[] = [];
  private bar: HTMLElement | undefined; // whose menus are open, or that has the keys

  constructor(private readonly screen: Screen) {
    document.addEventListener("pointerdown", (event) => {
      if (this.isOpen() && !(event.target as Element).closest(".menu, .menubar")) this.close();
    }, true);
    window.addEventListener("blur", () => this.close());
  }

  isOpen(): boolean { return this.open.length > 0 || this.bar !== undefined; }

  setBar(window: number, entries: MenuEntry[]): void {
    const node = this.screen.node(window);
    if (!node) return;
    const bar = this.makeList("menubar", entries);
    // Shown in a frame's while one of its children fills it.
    bar.append(signButton("restore", "Restore", () => this.screen.send("state", node.active ?? 0, "normal")));
    bar.addEventListener("pointerdown", (event) => this.pressedInBar(event));
    bar.addEventListener("pointerover", (event) => {
      const item = itemAt(event);
      if (item && this.open.length > 0 && this.bar === bar && !isUnfolded(item)) this.pullDown(item, false);
    });
    (node.view as WindowView).addMenuBar(bar);
    this.bars.set(window, bar);
    this.remember(entries);
  }
  // They change also while they are not on the page.
  private remember(entries: MenuEntry[]): void {
    for (const entry of entries) {
      this.entries.set(entry.id, entry);
      this.remember(entry.entries ?? []);
    }
  }
  private pressedInBar(event: Event): void {
    const item = itemAt(event);
    if (!item) return;
    event.preventDefault();
    const isThis = isUnfolded(item);
    this.close();
    if (!isThis) this.pullDown(item, false);
  }

  private makeList(role: "menu" | "menubar", entries: MenuEntry[]): HTMLElement {
    const list = setUp(make("div", role), { role });
    list.append(...entries.map((entry) => this.makeItem(entry, role === "menubar")));
    return list;
  }
  private makeItem(entry: MenuEntry, isInBar: boolean): HTMLElement {
    if (entry.id === 0) return setUp(make("hr"), { role: "separator" });
    const item = setUp(make("button", "entry"), { id: `entry-${entry.id}`, tabindex: "-1" });
    const caption = make("span");
    const letter = showCaption(caption, entry.caption);
    const keys = isInBar && letter ? `Alt+${letter}` : entry.key.replace("Ctrl", "Control");
    item.append(caption);
    if (!isInBar) item.append(make("kbd", entry.entries?.length ? "inner" : "", entry.key));
    if (keys) item.setAttribute("aria-keyshortcuts", keys);
    if (isInBar || entry.entries?.length) setUp(item, { "aria-haspopup": "menu", "aria-expanded": "false" });
    this.showState(item, entry);
    return item;
  }
  private showState(item: Item, entry: MenuEntry): void {
    const canTick = entry.checkable || entry.checked;
    item.setAttribute("role", canTick ? "menuitemcheckbox" : "menuitem");
    item.ariaChecked = canTick ? String(entry.checked) : null;
    item.ariaDisabled = String(!entry.enabled);
  }
  private entryOf(item: Item): MenuEntry { return this.entries.get(Number(item.id.replace("entry-", "")))!; }

  change(order: Extract<Order, { do: "entry" }>): void {
    const entry = this.entries.get(order.id);
    if (!entry) return;
    Object.assign(entry, { enabled: order.enabled, checked: order.checked, checkable: order.checkable });
    const item = document.getElementById(`entry-${order.id}`);
    if (item) this.showState(item, entry);
  }

  popUp(window: number, entries: MenuEntry[]): void {
    const node = this.screen.node(window);
    if (!node) return;
    this.close();
    this.remember(entries);
    const around = node.view.element.getBoundingClientRect();
    const { x, y } = this.screen.mouse.at;
    const isInside = x >= around.left && x < around.right && y >= around.top && y < around.bottom;
    const isByKey = !isInside || this.screen.keys.wasLast;
    this.unfold(entries, isByKey ? around.left + around.width / 2 : x, isByKey ? around.top + around.height / 2 : y, isByKey);
  }

  // The menu below an item; `first`: its first item gets the keys.
  private pullDown(item: Item, first: boolean): void {
    const entry = this.entryOf(item);
    const isTop = !item.closest(".menu");
    this.foldBehind(item);
    if (isTop) this.bar = item.parentElement!;
    if (!entry.enabled || !entry.entries?.length) item.focus();
    if (!entry.enabled) return;
    // The program sets its entries' states when they are looked at.
    this.screen.send("click", entry.id);
    const { left, right, top, bottom } = item.getBoundingClientRect();
    if (entry.entries?.length) this.unfold(entry.entries, isTop ? left : right - 2, isTop ? bottom : top - 4, first, item);
  }

  private unfold(entries: MenuEntry[], x: number, y: number, first: boolean, from?: Item): void {
    const list = this.makeList("menu", entries);
    list.addEventListener("pointerdown", (event) => event.preventDefault());
    list.addEventListener("pointermove", (event) => this.pointAt(itemAt(event)));
    list.addEventListener("click", (event) => this.choose(itemAt(event)));
    this.screen.windows.desk.parentElement!.append(list);
    list.style.left = `${Math.max(Math.min(x, innerWidth - list.offsetWidth), 0)}px`;
    list.style.top = `${Math.max(Math.min(y, innerHeight - list.offsetHeight), 0)}px`;
    if (from) from.ariaExpanded = "true";
    this.open.push({ list, from });
    if (first) itemsOf(list)[0]?.focus();
  }

  private pointAt(item: Item | undefined): void {
    if (!item || isUnfolded(item) || item === document.activeElement) return;
    this.foldBehind(item);
    item.focus();
  }
  private choose(item: Item | undefined): void {
    const entry = item && this.entryOf(item);
    if (!entry?.enabled) return;
    if (entry.entries?.length) return this.pullDown(item!, true);
    this.close();
    const click = () => this.screen.send("click", entry.id);
    if (entry.pastes) void readClipboard(this.screen).then((isThere) => isThere && click());
    else click();
  }

  private fold(depth: number): void {
    for (const { list, from } of this.open.splice(depth)) {
      list.remove();
      if (from) from.ariaExpanded = "false";
    }
  }
  private foldBehind(item: Item): void { this.fold(this.open.findIndex(({ list }) => list === item.parentElement) + 1); }
  close(): void {
    if (!this.isOpen()) return;
    this.fold(0);
    this.bar = undefined;
    document.activeElement?.closest<HTMLElement>(".menubar button")?.blur();
    this.screen.windows.followFocus();
  }

  // --- keys

  // The bar that belongs to the active window.
  private activeBar(): HTMLElement | undefined {
    const active = this.screen.windows.active();
    return active && (this.bars.get(active.id) ?? this.bars.get(active.container?.id ?? 0));
  }
  letter(letter: string): boolean {
    const bar = this.activeBar();
    const item = bar && itemsOf(bar).find((item) => letterOf(item) === letter);
    if (item) this.pullDown(item, true);
    return item !== undefined;
  }
  // F10 brings the keys to the bar.
  enterBar(): boolean {
    this.bar = this.activeBar();
    if (this.bar) itemsOf(this.bar)[0]?.focus();
    return this.bar !== undefined;
  }

  key(stroke: Stroke): boolean {
    const { key } = stroke.event;
    const menu = this.open[this.open.length - 1]?.list;
    if (key === "Tab" || key === "F10" || key === "Alt") this.close();
    else if (key === "Escape") this.back();
    else if (key === "ArrowLeft" || key === "ArrowRight") this.sideways(key === "ArrowRight" ? 1 : -1);
    else if (menu) this.inMenu(itemsOf(menu), stroke);
    else this.inBar(stroke);
    return true;
  }
  private back(): void {
    const from = this.open[this.open.length - 1]?.from;
    if (!from) return this.close();
    this.fold(this.open.length - 1);
    from.focus();
  }
  private sideways(step: number): void {
    const at = document.activeElement as HTMLElement;
    if (step > 0 && at.matches(".menu > [aria-haspopup]")) return this.choose(at);
    if (step < 0 && this.open.length > 1) return this.back();
    const items = this.bar ? itemsOf(this.bar) : [];
    const from = items.indexOf(this.open[0]?.from ?? at);
    const next = items[(from + step + items.length) % items.length];
    if (this.open.length > 0 && next) this.pullDown(next, true);
    else next?.focus();
  }
  private inMenu(items: Item[], stroke: Stroke): void {
    const { key } = stroke.event;
    const at = items.indexOf(document.activeElement as HTMLElement);
    const ends: Record<string, number> = { Home: 0, End: items.length - 1, ArrowDown: at + 1, ArrowUp: at < 0 ? items.length - 1 : at - 1 };
    const end = ends[key];
    if (end !== undefined) items[(end + items.length) % items.length]?.focus();
    else if (key === "Enter" || key === " ") this.choose(items[at]);
    else this.byLetter(items, at, stroke.letter() || key);
  }
  // Of several with the same letter the next one is marked, a single one is chosen.
  private byLetter(items: Item[], at: number, letter: string): void {
    const fitting = items.filter((item) => letterOf(item) === letter);
    if (fitting.length === 1) this.choose(fitting[0]);
    else (fitting.find((item) => items.indexOf(item) > at) ?? fitting[0])?.focus();
  }
  private inBar(stroke: Stroke): void {
    const at = document.activeElement as HTMLElement;
    if (["ArrowDown", "ArrowUp", "Enter", " "].includes(stroke.event.key)) this.pullDown(at, true);
    else if (stroke.letter()) this.letter(stroke.letter());
  }
}
