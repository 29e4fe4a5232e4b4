// The page: takes the program's batches in and numbers what goes back.
import { openChannel, type Channel } from "./channel.js";
import { serveClipboard } from "./clipboard.js";
import { serveCompanions } from "./companion.js";
import { serveControls } from "./controls.js";
import { setStyle } from "./dress.js";
import { serveFiles } from "./files.js";
import "./graph.js";
import "./grid.js";
import { Keys } from "./keys.js";
import { Menus } from "./menus.js";
import { Mouse, Tips } from "./mouse.js";
import type { Batch, NodeOrder, Order } from "./protocol.js";
import { makers, type Field, type Node, type Page } from "./view.js";
import { serveVisits } from "./visits.js";
import { WindowView, Windows } from "./windows.js";

type Handler<Do extends Order["do"]> = (order: Extract<Order, { do: Do }>) => void;

// What goes out beside the keyboard's work: keys need not wait until it has been taken.
const quiet = new Set(["text", "marked", "edit", "editmark", "scrolled", "hover", "mouse", "wheel", "size", "resize", "move"]);
const separator = "\u001f";

export class Screen implements Page {
  readonly nodes = new Map<number, Node>();
  readonly windows = new Windows(this);
  readonly menus = new Menus(this);
  readonly tips = new Tips(this);
  readonly mouse = new Mouse(this);
  readonly keys = new Keys(this);
  private readonly handlers = new Map<string, (order: Order) => void>();
  private readonly voice = document.getElementById("voice")!;
  private count = 0;
  private asked = 0;
  private seen = 0;

  constructor(private readonly channel: Channel) {
    this.on("node", (order) => this.show(order));
    this.on("gone", (order) => this.drop(order.id));
    this.on("stack", (order) => this.windows.stack(order));
    this.on("focus", (order) => this.windows.focus(order.id, order.marks ?? false));
    this.on("keys", (order) => (this.keys.chords = order.keys));
    this.on("menu", (order) => this.menus.setBar(order.window, order.entries));
    this.on("entry", (order) => this.menus.change(order));
    this.on("popup", (order) => this.menus.popUp(order.window, order.entries));
    this.on("tell", (order) => this.tips.tell(order.id, order.words));
    this.on("tip", (order) => this.tips.answer(order.id, order.words));
    this.on("busy", (order) => document.body.classList.toggle("busy", order.on));
    this.on("beep", () => beep());
    this.on("ended", () => this.end());
    for (const serve of [serveClipboard, serveFiles, serveCompanions, serveControls]) serve(this);
    channel.onMessage((text) => this.take(JSON.parse(text) as Batch));
  }

  on<Do extends Order["do"]>(what: Do, handler: Handler<Do>): void { this.handlers.set(what, handler as (order: Order) => void); }

  send(kind: string, ...fields: Field[]): void {
    ++this.count;
    if (!quiet.has(kind)) this.asked = this.count;
    const texts = fields.map((field) => (typeof field === "boolean" ? (field ? "1" : "0") : String(field)));
    this.channel.send([kind, ...texts].join(separator));
  }
  node(id: number): Node | undefined { return this.nodes.get(id); }
  unseen(): number { return this.count - this.seen; }
  sent(): number { return this.count; }
  taken(message: number): boolean { return message <= this.seen; }
  // Is an answer to come that may decide where the next key goes?
  waits(): boolean { return !this.taken(this.asked); }
  say(words: string): void { this.voice.textContent = words; }

  // The node in which that element stands, where any does.
  nodeAt(element: EventTarget | null): Node | undefined {
    const holder = element instanceof Element ? element.closest<HTMLElement>("[data-id]") : null;
    return holder ? this.nodes.get(Number(holder.dataset.id)) : undefined;
  }

  private take(batch: Batch): void {
    this.seen = batch.seen;
    for (const order of batch.orders) this.obey(order);
    this.windows.settle();
    this.keys.replay();
  }

  // One order that fails shall not take the others with it.
  private obey(order: Order): void {
    try {
      this.handlers.get(order.do)?.(order);
    } catch (error) {
      console.error(order, error);
    }
  }

  private show(order: NodeOrder): void {
    const node = this.nodes.get(order.id) ?? this.make(order);
    if (!node) return;
    Object.assign(node, order);
    const { element } = node.view;
    if (order.css) setStyle(element, order.css);
    if (!element.isConnected) this.windows.stand(node);
    node.view.update(order, node);
    if (node.kind !== "window") element.hidden = node.visible === false;
    if (order.css && node.kind !== "window") this.windows.stand(node);
  }

  private make(order: NodeOrder): Node | undefined {
    const View = makers.get(order.kind!);
    const container = order.parent ? this.nodes.get(order.parent) : undefined;
    if (order.parent && !container) return undefined;
    const node = { ...order, container: container ?? null } as Node;
    node.view = View ? new View(this, node) : new WindowView(this, node);
    node.view.element.dataset.id = String(order.id);
    if (order.kind !== "window") node.view.element.classList.add("control");
    this.nodes.set(order.id, node);
    return node;
  }

  private drop(id: number): void {
    const node = this.nodes.get(id);
    if (!node) return;
    for (const inner of [...this.nodes.values()]) if (inner.container === node) this.drop(inner.id);
    this.nodes.delete(id);
    this.windows.forget(node);
    node.view.remove?.();
    node.view.element.remove();
  }

  private end(): void {
    for (const { id } of [...this.nodes.values()]) this.drop(id);
    document.getElementById("note")!.textContent = "Tolmer has ended. Load the page again to start it.";
    document.body.classList.add("ended");
  }
}

function beep(): void {
  const audio = new AudioContext();
  const tone = audio.createOscillator();
  tone.connect(audio.destination);
  tone.start();
  tone.stop(audio.currentTime + 0.1);
  tone.onended = () => void audio.close();
}


// The program starts when it knows how large the page is.
export async function start(): Promise<void> {
  const screen = new Screen(openChannel());
  await serveVisits(screen);
  await Promise.all(["12px Noto Sans", "bold 12px Noto Sans", "12px Liberation Serif", "bold 12px Liberation Serif"].map((font) => document.fonts.load(font)));
  screen.windows.tellSize();
}
