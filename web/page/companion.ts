// Windows to read in beside the program's: help, and pages of the notebook. They take input while a
// window of the program waits for its answer, too, and keep their keys to themselves.
import { button, lookAsWritten, printDocument, withoutStyles } from "./files.js";
import type { Screen } from "./page.js";
import type { HelpEntry, Order } from "./protocol.js";
import { ArrowKeys, make, movable, put, setUp, signButton } from "./windows.js";

const edge = 24; // between the window and the page's corner

function textOf(html: string): Node[] {
  const { body } = new DOMParser().parseFromString(withoutStyles(html), "text/html");
  lookAsWritten(body);
  return [...body.childNodes].map((node) => document.adoptNode(node));
}

abstract class Companion {
  protected readonly element: HTMLElement;
  protected readonly page = setUp(make("article", "reading"), { tabindex: "0" });
  private readonly heading = make("h1");
  private readonly arrows: ArrowKeys;

  constructor(protected readonly screen: Screen, name: string, pageName: string) {
    this.element = setUp(make("section", `companion window active ${name}`), { role: "dialog", "aria-labelledby": `heading-${name}` });
    this.heading.id = `heading-${name}`;
    this.page.setAttribute("aria-label", pageName);
    const title = make("div", "title");
    title.append(this.heading, signButton("close", "Close", () => this.close()));
    this.element.append(title);
    this.element.addEventListener("keydown", (event) => { if (this.key(event)) event.preventDefault(); });
    this.page.addEventListener("click", (event) => this.clicked(event));
    movable(this.element, title);
    this.arrows = new ArrowKeys(this.element, (words) => screen.say(words), (x, y) => this.grow(x, y));
  }

  private grow(x: number, y: number): void {
    const { offsetWidth, offsetHeight } = this.element;
    Object.assign(this.element.style, { width: `${offsetWidth + x}px`, height: `${offsetHeight + y}px` });
  }

  get isOpen(): boolean { return this.element.isConnected; }

  // Comes to the page, or to its front, and takes the keyboard.
  protected open(atRight: boolean): void {
    const isNew = !this.isOpen;
    if (isNew || this.element.nextElementSibling?.classList.contains("companion")) document.body.append(this.element);
    const { offsetWidth, offsetHeight } = this.element;
    const [x, y] = [Math.max(innerWidth - offsetWidth, 0), Math.max(innerHeight - offsetHeight, 0)];
    if (isNew && atRight) put(this.element, Math.max(x - edge, 0), Math.max(y - edge, 0));
    else if (isNew) put(this.element, Math.min(edge, x), Math.min(edge, y));
    this.page.focus();
  }

  close(): void {
    this.element.remove();
    this.leave();
  }
  private leave(): void {
    if (this.element.contains(document.activeElement)) (document.activeElement as HTMLElement).blur();
    this.screen.windows.followFocus();
  }
  focus(): void { this.page.focus(); }

  protected show(title: string, html: string, anchor: string): void {
    this.heading.textContent = title;
    const hadFocus = this.page.contains(document.activeElement);
    this.page.replaceChildren(...textOf(html));
    this.page.scrollTop = 0;
    if (hadFocus) this.page.focus();
    const place = anchor ? this.page.querySelector(`#${CSS.escape(anchor)}, [name="${CSS.escape(anchor)}"]`) : null;
    place?.scrollIntoView({ block: "start" });
  }

  private clicked(event: MouseEvent): void {
    const link = event.target instanceof Element ? event.target.closest("a[href]")?.getAttribute("href") : undefined;
    if (!link) return;
    event.preventDefault();
    this.goTo(link);
  }
  protected abstract goTo(link: string): void;

  // Whether the key meant anything here.
  protected key(event: KeyboardEvent): boolean {
    if (this.arrows.take(event)) return true;
    if (event.key === "Escape") this.close();
    else if (event.key === "F6") this.leave();
    else return false;
    return true;
  }
}

class Help extends Companion {
  private readonly back = button("Back", () => this.screen.send("help-back"), "The page before (Alt+Left)");
  private readonly forward = button("Forward", () => this.screen.send("help-forward"), "The page that you came back from (Alt+Right)");
  private readonly query = setUp(make("input"), { type: "search", placeholder: "beginning of a word" });
  private readonly list = setUp(make("select"), { size: "20" });
  private contents: HelpEntry[] = [];
  private at = 0;
  private title = "";

  constructor(screen: Screen) {
    super(screen, "help", "Help page");
    const bar = make("div", "bar");
    bar.append(this.back, this.forward, button("Contents", () => this.toContents(), "All pages"),
               button("Print", () => this.print(), "Print this page (Ctrl+P)"));
    const finder = make("div", "finder");
    const label = make("label", "", "Search: ");
    label.append(this.query);
    finder.append(label, this.list);
    const split = make("div", "split");
    split.append(finder, this.page);
    this.element.append(bar, split);
    this.query.addEventListener("input", () => this.search());
    this.query.addEventListener("keydown", (event) => this.queryKey(event));
    this.list.addEventListener("click", () => this.goTo(this.list.value));
    this.list.addEventListener("keydown", (event) => { if (event.key === "Enter") this.goTo(this.list.value); });
  }

  answer(order: Extract<Order, { do: "help" }>): void {
    this.contents = order.contents ?? this.contents;
    this.at = order.at;
    this.title = order.title;
    this.back.disabled = !order.back;
    this.forward.disabled = !order.forward;
    this.show(`${order.title} - Help`, order.html, order.anchor);
    if (!this.isOpen) this.query.value = "";
    if (!this.isOpen || !this.element.contains(document.activeElement)) this.open(false);
    this.listContents();
  }

  // Of another search, or of none any more, where the words have changed since.
  hits({ hits, words }: Extract<Order, { do: "hits" }>): void {
    if (words !== undefined && words !== this.query.value) return;
    if (!this.query.value.trim()) return this.toSearch();
    this.fill("Pages found", hits.map((hit) => ({ ...hit, level: 0 })));
    this.list.selectedIndex = 0;
    if (hits.length === 0) this.list.append(setUp(new Option("No page has a word that begins so."), { disabled: "" }));
  }

  private listContents(): void {
    if (this.query.value.trim()) return;
    this.fill("Contents", this.contents);
    this.list.selectedIndex = this.at;
  }
  private fill(name: string, entries: HelpEntry[]): void {
    this.list.setAttribute("aria-label", name);
    this.list.replaceChildren(...entries.map(({ title, link, level }) => setUp(new Option("\u00a0\u00a0\u00a0".repeat(level) + title, link), { title })));
  }

  private search(): void {
    this.screen.send("help-search", this.query.value);
    this.listContents();
  }
  private queryKey(event: KeyboardEvent): void {
    if (event.key === "Enter" && this.query.value.trim() && this.list.options[0]?.value) this.goTo(this.list.options[0].value);
    // From the words to what they have found.
    if (event.key === "ArrowDown") this.list.focus();
  }

  private toContents(): void {
    this.query.value = "";
    this.screen.send("help-contents");
  }
  private toSearch(): void {
    this.query.focus();
    this.query.select();
  }
  private print(): void {
    const title = new Option(this.title).outerHTML.replace(/<\/?option[^>]*>/g, "");
    printDocument(`<!doctype html><html lang="en"><head><meta charset="utf-8"><title>${title}</title>` +
                  `<link rel="stylesheet" href="print.css"></head><body class="reading">${this.page.innerHTML}</body></html>`);
  }

  protected goTo(link: string): void { if (link) this.screen.send("help", link); }

  protected override key(event: KeyboardEvent): boolean {
    if (event.altKey && event.key === "ArrowLeft") this.screen.send("help-back");
    else if (event.altKey && event.key === "ArrowRight") this.screen.send("help-forward");
    else if (event.key === "F1") this.screen.send("help-using");
    else if (event.ctrlKey && event.key === "f") this.toSearch();
    else if (event.ctrlKey && event.key === "p") this.print();
    else return super.key(event);
    return true;
  }
}

class Kept extends Companion {
  private readonly previous = button("Previous Page", () => this.turnTo(this.shown - 1), "Alt+PgUp");
  private readonly next = button("Next Page", () => this.turnTo(this.shown + 1), "Alt+PgDn");
  private pages: { title: string; html: string }[] = [];
  private shown = 0;

  constructor(screen: Screen) {
    super(screen, "kept", "Notebook page");
    const bar = make("div", "bar");
    bar.append(this.previous, this.next);
    this.element.append(this.page, bar);
  }

  answer({ pages, shown }: Extract<Order, { do: "kept" }>): void {
    this.pages = pages;
    this.turnTo(shown);
    this.open(true);
    this.turnTo(shown); // only what is on the page scrolls to a place
  }

  private turnTo(page: number): void {
    const shown = this.pages[page];
    if (!shown) return;
    this.shown = page;
    this.show(`${shown.title} - Notebook`, shown.html, "chosen");
    this.previous.disabled = page === 0;
    this.next.disabled = page + 1 === this.pages.length;
  }
  protected goTo(link: string): void {
    const page = /^page:(\d+)$/.exec(link);
    if (page) this.turnTo(Number(page[1]));
  }
  protected override key(event: KeyboardEvent): boolean {
    const step = event.ctrlKey || event.altKey ? { PageUp: -1, PageDown: 1 }[event.key] : undefined;
    if (step === undefined) return super.key(event);
    this.turnTo(this.shown + step);
    return true;
  }
}

export function serveCompanions(screen: Screen): void {
  const help = new Help(screen);
  const kept = new Kept(screen);
  screen.on("help", (order) => help.answer(order));
  screen.on("hits", (order) => help.hits(order));
  screen.on("help-quit", () => help.close());
  screen.on("kept", (order) => kept.answer(order));
  // F6 leads from the program's windows to these, and back.
  document.addEventListener("keydown", (event) => {
    const to = [help, kept].find((one) => one.isOpen);
    if (event.key !== "F6" || event.defaultPrevented || !to) return;
    event.preventDefault();
    to.focus();
  });
}
