// Menu bars, what is pulled down from them, and menus that pop up.
import { letterOf, showCaption } from "./controls.js";
import type { Stroke } from "./keys.js";
import { readClipboard } from "./clipboard.js";
import type { Screen } from "./page.js";
import type { MenuEntry, Order } from "./protocol.js";
import type { Node } from "./view.js";
import { make, setUp, signButton, WindowView } from "./windows.js";

// One open list of entries; of a bar's, `owner` is the button in the bar.
interface OpenMenu {
  list: HTMLElement;
  entries: MenuEntry[];
  at: number; // -1 for none
}

const isLine = (entry: MenuEntry) => entry.id === 0;

export class Menus {
  private readonly entries = new Map<number, MenuEntry>();
  private readonly bars = new Map<number, { element: HTMLElement; entries: MenuEntry[]; restore: HTMLButtonElement }>();
  private readonly open: OpenMenu[] = [];
  private bar: { window: number; at: number } | undefined; // whose menus are open, or that has the keys

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
    this.bars.get(window)?.element.remove();
    const element = setUp(make("div", "menubar"), { role: "menubar" });
    entries.forEach((entry, i) => element.append(this.makeTop(window, entry, i)));
    const restore = signButton("restore", "Restore", () => undefined);
    restore.hidden = true;
    element.append(restore);
    (node.view as WindowView).addMenuBar(element);
    this.bars.set(window, { element, entries, restore });
    this.remember(entries);
    this.screen.windows.changed(node);
  }
  private remember(entries: MenuEntry[]): void {
    for (const entry of entries) {
      this.entries.set(entry.id, entry);
      this.remember(entry.entries ?? []);
    }
  }
  private makeTop(window: number, entry: MenuEntry, index: number): HTMLElement {
    const button = setUp(make("button"), { role: "menuitem", "aria-haspopup": "menu", "aria-expanded": "false" });
    button.tabIndex = -1;
    const letter = showCaption(button, entry.caption);
    if (letter) button.setAttribute("aria-keyshortcuts", `Alt+${letter}`);
    button.addEventListener("pointerdown", (event) => {
      event.preventDefault();
      const isThis = this.open.length > 0 && this.bar?.at === index;
      this.close();
      if (!isThis) this.pullDown(window, index);
    });
    button.addEventListener("pointerenter", () => {
      if (this.open.length > 0 && this.bar?.window === window && this.bar.at !== index) this.pullDown(window, index);
    });
    return button;
  }

  // While a child of the frame fills it, the frame's bar has the button that restores it.
  showRestore(frame: Node, child: Node | undefined): void {
    const bar = this.bars.get(frame.id);
    if (!bar) return;
    bar.restore.hidden = !child;
    bar.restore.onclick = () => child && (child.view as WindowView).toggleMaximised();
  }

  change(order: Extract<Order, { do: "entry" }>): void {
    const entry = this.entries.get(order.id);
    if (!entry) return;
    Object.assign(entry, { enabled: order.enabled, checked: order.checked, checkable: order.checkable });
    for (const [, bar] of this.bars) {
      const at = bar.entries.indexOf(entry);
      if (at >= 0) bar.element.children[at]!.ariaDisabled = String(!entry.enabled);
    }
    for (const menu of this.open) menu.entries.forEach((one, i) => one === entry && this.showState(menu.list.children[i] as HTMLElement, entry));
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

  private pullDown(window: number, index: number, first = false): void {
    const bar = this.bars.get(window);
    const entry = bar?.entries[index];
    if (!bar || !entry) return;
    this.fold(0);
    this.bar = { window, at: index };
    const button = bar.element.children[index]!.getBoundingClientRect();
    if (!entry.enabled) return this.markTop();
    // The program sets its entries' states when they are looked at.
    this.screen.send("click", entry.id);
    if (entry.entries?.length) this.unfold(entry.entries, button.left, button.bottom, first);
  }
  private markTop(): void {
    for (const [window, { element }] of this.bars)
      [...element.children].forEach((button, i) => {
        const isIt = this.bar?.window === window && this.bar.at === i;
        button.classList.toggle("chosen", isIt);
        button.ariaExpanded = String(isIt && this.open.length > 0);
        if (isIt && this.open.length === 0) (button as HTMLElement).focus();
      });
  }

  private unfold(entries: MenuEntry[], x: number, y: number, first: boolean): void {
    const list = setUp(make("div", "menu"), { role: "menu" });
    const menu: OpenMenu = { list, entries, at: -1 };
    entries.forEach((entry, i) => list.append(this.makeEntry(menu, entry, i)));
    this.screen.windows.desk.parentElement!.append(list);
    list.style.left = `${Math.max(Math.min(x, innerWidth - list.offsetWidth), 0)}px`;
    list.style.top = `${Math.max(Math.min(y, innerHeight - list.offsetHeight), 0)}px`;
    this.open.push(menu);
    this.markTop();
    this.mark(menu, first ? this.next(menu, 1) : -1);
  }

  private makeEntry(menu: OpenMenu, entry: MenuEntry, index: number): HTMLElement {
    if (isLine(entry)) return setUp(make("hr"), { role: "separator" });
    const item = make("button", "entry");
    item.id = `entry-${entry.id}`;
    item.tabIndex = -1;
    const caption = make("span");
    showCaption(caption, entry.caption);
    item.append(caption, make("kbd", entry.entries?.length ? "inner" : "", entry.key));
    if (entry.key) item.setAttribute("aria-keyshortcuts", entry.key.replace("Ctrl", "Control"));
    if (entry.entries?.length) item.ariaHasPopup = "menu";
    item.addEventListener("pointermove", () => menu.at !== index && this.mark(menu, index));
    item.addEventListener("pointerdown", (event) => event.preventDefault());
    item.addEventListener("click", () => this.choose(menu, index));
    this.showState(item, entry);
    return item;
  }
  private showState(item: HTMLElement, entry: MenuEntry): void {
    const canTick = entry.checkable || entry.checked;
    item.setAttribute("role", canTick ? "menuitemcheckbox" : "menuitem");
    item.ariaChecked = canTick ? String(entry.checked) : null;
    item.ariaDisabled = String(!entry.enabled);
  }

  private mark(menu: OpenMenu, index: number): void {
    menu.at = index;
    this.fold(this.open.indexOf(menu) + 1);
    [...menu.list.children].forEach((item, i) => item.classList.toggle("chosen", i === index));
    (menu.list.children[index] as HTMLElement | undefined)?.focus();
  }
  private next(menu: OpenMenu, step: number): number {
    const count = menu.entries.length;
    for (let i = 1, at = menu.at < 0 && step < 0 ? 0 : menu.at; i <= count; ++i) {
      const index = (at + step * i + count * count) % count;
      if (!isLine(menu.entries[index]!)) return index;
    }
    return -1;
  }

  private choose(menu: OpenMenu, index: number): void {
    const entry = menu.entries[index];
    if (!entry || isLine(entry) || !entry.enabled) return;
    if (entry.entries?.length) return this.openInner(menu, index, entry.entries);
    this.close();
    this.take(entry);
  }
  private openInner(menu: OpenMenu, index: number, entries: MenuEntry[]): void {
    this.mark(menu, index);
    const at = menu.list.children[index]!.getBoundingClientRect();
    this.screen.send("click", menu.entries[index]!.id);
    this.unfold(entries, at.right - 2, at.top - 4, true);
  }
  private take(entry: MenuEntry): void {
    const click = () => this.screen.send("click", entry.id);
    if (entry.pastes) void readClipboard(this.screen).then((isThere) => isThere && click());
    else click();
  }

  private fold(depth: number): void {
    for (const menu of this.open.splice(depth)) menu.list.remove();
  }
  close(): void {
    if (!this.isOpen()) return;
    this.fold(0);
    this.bar = undefined;
    this.markTop();
    this.screen.windows.followFocus();
  }

  // --- keys

  // The bar that belongs to the active window.
  private barWindow(): number | undefined {
    const active = this.screen.windows.active();
    if (!active) return undefined;
    return [active.id, this.screen.windows.rootOf(active).id].find((id) => this.bars.has(id));
  }
  letter(letter: string): boolean {
    const window = this.barWindow();
    const entries = window === undefined ? [] : this.bars.get(window)!.entries;
    const index = entries.findIndex((entry) => letterOf(entry.caption) === letter);
    if (index >= 0) this.pullDown(window!, index, true);
    return index >= 0;
  }
  // F10 brings the keys to the bar.
  enterBar(): boolean {
    const window = this.barWindow();
    if (window === undefined) return false;
    this.bar = { window, at: 0 };
    this.markTop();
    return true;
  }
  // What an entry of the active window's bar does by this key.
  byKey(stroke: Stroke): (() => void) | undefined {
    const window = this.barWindow();
    const name = stroke.name();
    const entry = window === undefined ? undefined : this.withKey(this.bars.get(window)!.entries, name);
    return entry && (() => this.screen.send("click", entry.id));
  }
  private withKey(entries: MenuEntry[], name: string): MenuEntry | undefined {
    for (const entry of entries) {
      const found = entry.key === name && entry.enabled ? entry : this.withKey(entry.entries ?? [], name);
      if (found) return found;
    }
    return undefined;
  }

  key(stroke: Stroke): boolean {
    const menu = this.open[this.open.length - 1];
    const { key } = stroke.event;
    if (key === "Escape" || key === "Tab" || key === "F10" || key === "Alt") this.leave(key);
    else if (key === "ArrowLeft" || key === "ArrowRight") this.sideways(key === "ArrowRight");
    else if (menu) this.inMenu(menu, stroke);
    else this.inBar(stroke);
    return true;
  }
  private leave(key: string): void {
    const isInner = this.open.length > 1 || (this.open.length === 1 && this.bar !== undefined);
    if (key !== "Escape" || !isInner) return this.close();
    this.fold(this.open.length - 1);
    this.markTop();
  }
  private sideways(forward: boolean): void {
    const menu = this.open[this.open.length - 1];
    const inner = menu?.entries[menu.at]?.entries;
    if (forward && menu && inner?.length) return this.openInner(menu, menu.at, inner);
    if (!forward && this.open.length > 1) return this.fold(this.open.length - 1);
    if (!this.bar) return;
    const count = this.bars.get(this.bar.window)!.entries.length;
    const at = (this.bar.at + (forward ? 1 : count - 1)) % count;
    if (menu) return this.pullDown(this.bar.window, at, true);
    this.bar.at = at;
    this.markTop();
  }
  private inMenu(menu: OpenMenu, stroke: Stroke): void {
    const { key } = stroke.event;
    if (key === "ArrowDown") this.mark(menu, this.next(menu, 1));
    else if (key === "ArrowUp") this.mark(menu, this.next(menu, -1));
    else if (key === "Home" || key === "End") this.toEnd(menu, key === "Home" ? 1 : -1);
    else if (key === "Enter" || key === " ") this.choose(menu, menu.at);
    else this.byLetter(menu, stroke.letter() || key);
  }
  private toEnd(menu: OpenMenu, step: number): void {
    menu.at = -1;
    this.mark(menu, this.next(menu, step));
  }
  // Of several with the same letter the next one is marked, a single one is chosen.
  private byLetter(menu: OpenMenu, letter: string): void {
    const fitting = menu.entries.map((_, i) => i).filter((i) => letterOf(menu.entries[i]!.caption) === letter);
    if (fitting.length === 1) this.choose(menu, fitting[0]!);
    else if (fitting.length > 1) this.mark(menu, fitting.find((i) => i > menu.at) ?? fitting[0]!);
  }
  private inBar(stroke: Stroke): void {
    const { window, at } = this.bar!;
    if (["ArrowDown", "ArrowUp", "Enter", " "].includes(stroke.event.key)) this.pullDown(window, at, true);
    else if (stroke.letter()) this.letter(stroke.letter());
  }
}
