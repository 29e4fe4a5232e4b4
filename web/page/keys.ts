// All keys come here first: what has a use for them, and in which order they are told.
import { readClipboard } from "./clipboard.js";
import { choose } from "./controls.js";
import type { Screen } from "./page.js";
import type { Held, KeyChord } from "./protocol.js";
import type { Node } from "./view.js";
import type { WindowView } from "./windows.js";

const codes = { Backspace: 8, Tab: 9, Enter: 13, Escape: 27, PageUp: 33, PageDown: 34, Delete: 46, N: 78 };
// What browsers do not agree on; of other keys keyCode is the letter that they mean on any keyboard, also with Alt.
const signs: Record<string, number> = { "+": 187, "=": 187, "-": 189 };
const isMac = navigator.platform.startsWith("Mac");
// Browsers keep Ctrl with these keys for themselves: the page has Alt for them. `means`: code, and whether with Shift.
const keptByBrowsers: { code: number; shift: boolean; means: [number, boolean] }[] = [
  { code: codes.PageUp, shift: false, means: [codes.PageUp, false] }, { code: codes.PageDown, shift: false, means: [codes.PageDown, false] },
  { code: codes.PageUp, shift: true, means: [codes.Tab, true] }, { code: codes.PageDown, shift: true, means: [codes.Tab, false] },
  { code: codes.N, shift: true, means: [codes.N, false] },
];

// A key as the program names it.
export class Stroke {
  readonly shift: boolean;
  readonly control: boolean;
  readonly alt: boolean;
  readonly code: number;

  constructor(readonly event: KeyboardEvent) {
    const writes = event.getModifierState("AltGraph");
    this.shift = event.shiftKey;
    this.control = !writes && (event.ctrlKey || (isMac && event.metaKey));
    this.alt = !writes && event.altKey;
    this.code = signs[event.key] ?? event.keyCode;
    const kept = this.alt && !this.control ? keptByBrowsers.find(({ code, shift }) => code === this.code && shift === this.shift) : undefined;
    if (kept) [this.code, this.shift, this.control, this.alt] = [...kept.means, true, false];
  }
  letter(): string { return this.code >= 65 && this.code <= 90 ? String.fromCharCode(this.code) : ""; }
  writes(): boolean { return this.event.key.length === 1 && !this.control && !this.alt; }
}

const pasteTakes = 1000; // milliseconds after which no content is to be looked for any more

const agree = (wanted: Held, held: boolean) => wanted === 0 || (wanted === 2) === held;
const textKeys = new Set(["A", "C", "V", "X", "Y", "Z"]);

type Line = HTMLInputElement | HTMLTextAreaElement;
function focusedLine(): Line | undefined {
  const at = document.activeElement;
  // A grid holds the keyboard by a line while no cell is open.
  const isLine = at instanceof HTMLTextAreaElement || (at instanceof HTMLInputElement && !at.matches("[type=checkbox], [type=radio], [type=range], .grid-line.closed"));
  return isLine ? (at as Line) : undefined;
}

export class Keys {
  chords: KeyChord[] = [];
  wasLast = false; // was a key the last thing the user did?
  leads = false; // did it lead to another control? Of a single line all is marked then
  private readonly queue: Stroke[] = [];
  private onPaste: (() => void) | undefined;

  constructor(private readonly screen: Screen) {
    document.addEventListener("keydown", (event) => this.pressed(event), true);
    document.addEventListener("keyup", (event) => this.released(event), true);
    document.addEventListener("pointerdown", () => (this.wasLast = false), true);
    window.addEventListener("paste", () => this.pasted());
  }

  private pressed(event: KeyboardEvent): void {
    if (event.isComposing || ["Shift", "Control", "Alt", "Meta", "Dead", "AltGraph"].includes(event.key)) return;
    if (document.activeElement?.closest(".companion")) return;
    this.wasLast = true;
    this.screen.tips.hide();
    const stroke = new Stroke(event);
    if (this.queue.length > 0 || this.onPaste || this.screen.waits()) return this.keep(stroke);
    this.tell(stroke);
  }
  // A key typed ahead. One that repeats by being held shall not go on after it was let go.
  private keep(stroke: Stroke): void {
    stroke.event.preventDefault();
    if (!stroke.event.repeat || stroke.writes()) this.queue.push(stroke);
  }
  replay(): void {
    while (this.queue.length > 0 && !this.screen.waits() && !this.onPaste) this.tell(this.queue.shift()!, true);
  }
  private released(event: KeyboardEvent): void {
    const node = this.screen.windows.focusedNode();
    const { code, shift, control, alt } = new Stroke(event);
    if (node?.kind === "grid" && code) this.screen.send("keyup", node.id, code, shift, control, alt);
  }

  private tell(stroke: Stroke, isReplay = false): void {
    this.leads = stroke.code === codes.Tab;
    if (this.takes(stroke)) stroke.event.preventDefault();
    else if (isReplay) this.act(stroke);
  }

  private takes(stroke: Stroke): boolean {
    const { menus, windows } = this.screen;
    if (menus.isOpen()) return menus.key(stroke);
    const active = windows.active();
    if (!active || active.takesInput === false) return true;
    if ((active.view as WindowView).arrows?.take(stroke.event)) return true;
    if (stroke.alt && !stroke.control && stroke.letter()) return this.takesLetter(stroke, active);
    return this.takesChord(stroke) || this.takesView(stroke, active) || this.takesRest(stroke, active);
  }

  private takesLetter(stroke: Stroke, active: Node): boolean {
    const letter = stroke.letter();
    if (this.fits(stroke) || !(this.screen.menus.letter(letter) || this.pressLetter(letter, active))) this.send(stroke);
    return true;
  }
  // Of what stands in the window: what the letter marks is pressed, or what its label names.
  private pressLetter(letter: string, active: Node): boolean {
    for (const marked of active.view.element.querySelectorAll<HTMLElement>(`[data-key="${letter}"]`)) {
      const node = this.screen.node(Number(marked.dataset.for ?? marked.dataset.id));
      if (node && this.screen.windows.windowOf(node) === active && this.canBeUsed(node)) return this.press(node);
    }
    return false;
  }
  private canBeUsed({ view, enabled }: Node): boolean {
    return enabled !== false && view.element.offsetParent !== null && !view.element.closest(":disabled, [inert], .off");
  }
  private press({ view }: Node): boolean {
    const isButton = view.element.matches(".button");
    if (!isButton) view.focus?.();
    if (isButton || view.element.matches(".choice")) view.target?.click();
    if (document.activeElement instanceof HTMLInputElement) document.activeElement.select();
    return true;
  }

  // Where text is typed, the keys that edit text stay the text's.
  private fits(stroke: Stroke): boolean {
    const { code, shift, control, alt } = stroke;
    const fitting = this.chords.filter((chord) => chord.code === code && agree(chord.shift, shift) && agree(chord.control, control) && agree(chord.alt, alt));
    return code !== 0 && fitting.some(({ leavesText }) => !leavesText || !this.isOfText(stroke));
  }
  private takesChord(stroke: Stroke): boolean { return this.fits(stroke) && this.work(stroke); }
  private isOfText(stroke: Stroke): boolean {
    const line = focusedLine();
    if (!line) return false;
    if (!stroke.control) return stroke.writes() || [codes.Backspace, codes.Delete].includes(stroke.code);
    return textKeys.has(stroke.letter()) && (!line.readOnly || line.selectionStart !== line.selectionEnd);
  }
  // What a paste brings is told before the key: the browser hands it over when it acts on the key.
  private work(stroke: Stroke): boolean {
    const act = () => this.send(stroke);
    if (!stroke.control || stroke.alt || stroke.shift || stroke.letter() !== "V") {
      act();
      return true;
    }
    this.onPaste = act;
    if (stroke.event.defaultPrevented) void readClipboard(this.screen).then((isThere) => this.pasted(isThere));
    else window.setTimeout(() => this.onPaste === act && this.pasted(false), pasteTakes);
    return stroke.event.defaultPrevented;
  }
  // Has the key of a paste found its work already?
  awaitsPaste(): boolean { return this.onPaste !== undefined; }
  private pasted(isThere = true): void {
    const act = this.onPaste;
    this.onPaste = undefined;
    if (isThere) act?.();
    this.replay();
  }

  private takesView(stroke: Stroke, active: Node): boolean {
    const node = this.screen.windows.focusedNode();
    if (node?.view.key?.(stroke.event)) return true;
    if (stroke.control && stroke.code === codes.Tab) return this.turnPage(active, stroke.shift ? -1 : 1);
    return active.view.key?.(stroke.event) ?? false;
  }
  private turnPage(active: Node, step: number): boolean {
    const tabs = [...active.view.element.querySelectorAll<HTMLElement>(".tab")];
    const at = tabs.findIndex((tab) => tab.ariaSelected === "true");
    tabs[(at + step + tabs.length) % tabs.length]?.click();
    return tabs.length > 0;
  }

  private takesRest(stroke: Stroke, active: Node): boolean {
    const { code, control, alt } = stroke;
    if (stroke.event.key === "F10" && !stroke.shift) return this.screen.menus.enterBar();
    const isToTell = [codes.Tab, codes.Enter, codes.Escape].includes(code) && !control && !alt;
    if (isToTell) this.send(stroke);
    // A box lets nothing else be done; what is marked of its words may be copied.
    return isToTell || (active.box !== undefined && !control && stroke.event.key !== " ");
  }
  private send({ code, shift, control, alt }: Stroke): void { this.screen.send("key", code, shift, control, alt); }

  // What the browser would have done, had the key not been kept.
  private act(stroke: Stroke): void {
    const { key } = stroke.event;
    const at = document.activeElement;
    const line = focusedLine();
    const command = { Backspace: "delete", Delete: "forwardDelete" }[key];
    const step = { ArrowUp: -1, ArrowLeft: -1, ArrowDown: 1, ArrowRight: 1 }[key];
    if (line && stroke.writes()) document.execCommand("insertText", false, key);
    else if (line && command) document.execCommand(command);
    else if (line && step && /Left|Right/.test(key)) moveCursor(line, step);
    else if (at instanceof HTMLSelectElement && step) choose(at, at.selectedIndex + step);
    else if (at instanceof HTMLElement && key === " ") at.click();
  }
}

function moveCursor(line: Line, step: number): void {
  const [start, end] = [line.selectionStart, line.selectionEnd];
  if (start === null || end === null) return; // a number's
  const at = start !== end ? (step < 0 ? start : end) : Math.max(start + step, 0);
  line.setSelectionRange(at, at);
}
