// Windows to read in beside the program's: help, and pages of the notebook. They take input while a
// window of the program waits for its answer, too, and keep their keys to themselves.
import { button, labelled, print, textOf } from "./files.js";
import type { Screen } from "./page.js";
import type { Order } from "./protocol.js";
import { ArrowKeys, make, movable, setUp, signButton } from "./windows.js";

type Way = "back" | "forward";
const ways: Record<string, Way> = { ArrowLeft: "back", PageUp: "back", ArrowRight: "forward", PageDown: "forward" };

class Companion {
  protected readonly element: HTMLElement;
  protected readonly page = setUp(make("article", "reading"), { tabindex: "0" });
  protected readonly bar = make("div", "buttons");
  private readonly heading = make("h1");
  private readonly arrows: ArrowKeys;

  constructor(protected readonly screen: Screen, private readonly name: "help" | "kept", pageName: string, private readonly back: HTMLButtonElement, private readonly forward: HTMLButtonElement) {
    this.element = setUp(make("section", `companion window active ${name}`), { role: "dialog", "aria-labelledby": `heading-${name}` });
    this.heading.id = `heading-${name}`;
    this.page.ariaLabel = pageName;
    const title = make("div", "title");
    title.append(this.heading, signButton("close", "Close", () => this.close()));
    this.bar.append(back, forward);
    this.element.append(title, this.bar, this.page);
    back.addEventListener("click", () => this.goTo("back"));
    forward.addEventListener("click", () => this.goTo("forward"));
    this.element.addEventListener("keydown", (event) => { if (this.key(event)) event.preventDefault(); });
    this.page.addEventListener("click", (event) => {
      const link = event.target instanceof Element && event.target.closest("a[href]")?.getAttribute("href");
      if (link) this.goTo(link);
      event.preventDefault();
    });
    movable(this.element, title);
    this.arrows = new ArrowKeys(this.element, (words) => screen.say(words), (x, y) => this.grow(x, y));
  }

  private grow(x: number, y: number): void {
    const { offsetWidth, offsetHeight } = this.element;
    Object.assign(this.element.style, { width: `${offsetWidth + x}px`, height: `${offsetHeight + y}px` });
  }

  get isOpen(): boolean { return this.element.isConnected; }
  focus(): void { this.page.focus(); }
  close(): void {
    this.element.remove();
    this.leave();
  }
  private leave(): void {
    if (this.element.contains(document.activeElement)) (document.activeElement as HTMLElement).blur();
    this.screen.windows.followFocus();
  }

  show({ title, html, anchor, back, forward }: Extract<Order, { do: "read" }>): void {
    this.heading.textContent = title;
    this.back.disabled = !back;
    this.forward.disabled = !forward;
    this.page.replaceChildren(...textOf(html));
    this.page.scrollTop = 0;
    // Comes to the page, or to its front, and takes the keyboard.
    if (!this.element.contains(document.activeElement)) {
      document.body.append(this.element);
      this.focus();
    }
    if (anchor) this.page.querySelector(`[name="${CSS.escape(anchor)}"]`)?.scrollIntoView();
  }

  protected goTo(link: string): void { this.screen.send(this.name, link.replace("page:", "")); }
  protected print(): void { print(this.heading.textContent ?? "", this.page.cloneNode(true)); }

  // Whether the key meant anything here.
  protected key(event: KeyboardEvent): boolean {
    const { key, altKey, ctrlKey } = event;
    const way = altKey || (ctrlKey && key.startsWith("Page")) ? ways[key] : undefined;
    if (key === "Control") return false; // held for the arrows
    if (this.arrows.take(event)) return true;
    if (way) this.goTo(way);
    else if (key === "Escape") this.close();
    else if (key === "F6") this.leave();
    else if (ctrlKey && key === "p") this.print();
    else return false;
    return true;
  }
}

class Help extends Companion {
  private readonly query = setUp(make("input"), { type: "search", placeholder: "beginning of a word" });
  private readonly list = setUp(make("select", "box"), { size: "20" });

  constructor(screen: Screen) {
    super(screen, "help", "Help page", button("Back", "The page before (Alt+Left)"), button("Forward", "The page that you came back from (Alt+Right)"));
    this.bar.append(button("Contents", "All pages", () => this.toContents()), button("Print", "Print this page (Ctrl+P)", () => this.print()));
    const finder = make("div", "finder");
    finder.append(labelled("Search: ", this.query), this.list);
    this.page.before(finder);
    this.query.addEventListener("input", () => this.search());
    this.list.addEventListener("click", () => this.goTo(this.list.value));
    finder.addEventListener("keydown", ({ key }) => {
      if (key === "Enter") this.goTo(this.list.value);
      if (key === "ArrowDown") this.list.focus(); // from the words to what they have found
    });
  }

  asked(searches: boolean): void {
    this.query.value = "";
    if (searches) this.toSearch();
  }
  fill({ name, options, at }: Extract<Order, { do: "help-list" }>): void {
    this.list.ariaLabel = name;
    this.list.innerHTML = options;
    this.list.selectedIndex = at;
  }

  private search(): void { this.screen.send("help-search", this.query.value.trim()); }
  private toContents(): void {
    this.query.value = "";
    this.search();
    this.goTo("help:tolmod");
  }
  private toSearch(): void {
    this.query.focus();
    this.query.select();
  }

  protected override key(event: KeyboardEvent): boolean {
    if (event.key === "F1") this.goTo("help:tolmod/2");
    else if (event.ctrlKey && event.key === "f") this.toSearch();
    else return super.key(event);
    return true;
  }
}

export function serveCompanions(screen: Screen): void {
  const help = new Help(screen);
  const kept = new Companion(screen, "kept", "Notebook page", button("Previous Page", "Alt+PgUp"), button("Next Page", "Alt+PgDn"));
  screen.on("read", (order) => (order.in === "help" ? help : kept).show(order));
  screen.on("help-list", (order) => help.fill(order));
  screen.on("help-asked", ({ searches }) => help.asked(searches));
  screen.on("help-quit", () => help.close());
  // F6 leads from the program's windows to these, and back.
  document.addEventListener("keydown", (event) => {
    const to = [help, kept].find((one) => one.isOpen);
    if (event.key !== "F6" || event.defaultPrevented || !to) return;
    event.preventDefault();
    to.focus();
  });
}
