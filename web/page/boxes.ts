// Message boxes.
import { letterOf, showCaption } from "./controls.js";
import type { Stroke } from "./keys.js";
import type { Screen } from "./page.js";
import type { Order } from "./protocol.js";
import { make, movable, put, setUp, signButton } from "./windows.js";

type Box = Extract<Order, { do: "box" }>;

const signs: Record<string, string> = { critical: "\u00d7", question: "?", exclamation: "!", information: "i" };

export class Boxes {
  private shown: { box: Box; element: HTMLElement } | undefined;

  constructor(private readonly screen: Screen) {}

  isOpen(): boolean { return this.shown !== undefined; }

  show(box: Box): void {
    const element = setUp(make("section", "window dialog active messagebox"), { role: "alertdialog", "aria-modal": "true", "aria-labelledby": "boxtitle", "aria-describedby": "boxtext" });
    const title = make("div", "title");
    title.append(setUp(make("h1", "", box.title), { id: "boxtitle" }));
    if (box.escape >= 0) title.append(signButton("close", "Close", () => this.answer(box.escape)));
    const middle = make("div", "words");
    if (signs[box.icon]) middle.append(setUp(make("div", `icon ${box.icon}`, signs[box.icon]), { "aria-hidden": "true" }));
    middle.append(setUp(make("p", "", box.text), { id: "boxtext" }));
    element.append(title, middle, this.makeButtons(box));
    this.shown = { box, element };
    this.screen.menus.close();
    document.body.append(element);
    put(element, Math.max(Math.round((innerWidth - element.offsetWidth) / 2), 0), Math.round((innerHeight - element.offsetHeight) / 2));
    movable(element, title);
    element.querySelector<HTMLElement>(".default")?.focus();
  }
  private makeButtons(box: Box): HTMLElement {
    const row = make("div", "buttons");
    for (const { answer, caption } of box.buttons) {
      const button = make("button", "button");
      showCaption(button, caption);
      button.classList.toggle("default", answer === box.enter);
      button.addEventListener("click", () => this.answer(answer));
      row.append(button);
    }
    return row;
  }

  private answer(answer: number): void {
    if (!this.shown) return;
    const { box, element } = this.shown;
    this.shown = undefined;
    element.remove();
    this.screen.send("answer", box.ask, answer);
    this.screen.windows.settle();
  }

  key(stroke: Stroke): boolean {
    const { box, element } = this.shown!;
    const buttons = [...element.querySelectorAll<HTMLButtonElement>(".buttons button")];
    const at = buttons.indexOf(document.activeElement as HTMLButtonElement);
    const { key } = stroke.event;
    const step = key === "Tab" ? (stroke.shift ? -1 : 1) : { ArrowLeft: -1, ArrowUp: -1, ArrowRight: 1, ArrowDown: 1 }[key];
    const lettered = stroke.letter() && !stroke.control ? box.buttons.find(({ caption }) => letterOf(caption) === stroke.letter()) : undefined;
    if (step) buttons[(at + step + buttons.length) % buttons.length]?.focus();
    else if (key === "Escape" && box.escape >= 0) this.answer(box.escape);
    else if (key === "Enter" || key === " ") this.answer(box.buttons[at]?.answer ?? box.enter);
    else if (lettered) this.answer(lettered.answer);
    // What is marked of the words may be copied.
    return !(stroke.control && stroke.letter() === "C");
  }
}
