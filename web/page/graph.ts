// A graph: the program's picture, whose symbols and bars stand for cases.
import { ControlView } from "./controls.js";
import { followMouse, Resting } from "./mouse.js";
import type { NodeOrder } from "./protocol.js";
import { makers, Node, Page } from "./view.js";

class GraphView extends ControlView {
  private readonly rest = new Resting((x, y) => this.send("hover", x, y));
  private isPressed = false; // the keyboard came by the pointer: no need to show where it is

  constructor(page: Page, node: Node) {
    super(page, node);
    const { element } = this;
    element.addEventListener("mousedown", (event) => this.press(event));
    element.addEventListener("mousemove", (event) => this.restAnew(event));
    element.addEventListener("mouseleave", () => this.rest.end());
    element.addEventListener("blur", () => this.show(false));
  }
  remove(): void { this.rest.end(); }

  update(changed: NodeOrder): void {
    super.update(changed);
    this.show(this.isPressed);
  }
  private show(isPressed: boolean): void {
    this.isPressed = isPressed;
    this.element.classList.toggle("pressed", isPressed);
  }
  protected put(words: string): void {
    if (words && this.element === document.activeElement) this.page.say(words);
  }

  // From the lower left corner, as the program counts.
  private at(event: MouseEvent): [number, number] {
    const { left, bottom } = this.element.getBoundingClientRect();
    return [event.clientX - left, bottom - event.clientY];
  }
  private tell(act: string, event: MouseEvent): void {
    this.send("graph", act, ...this.at(event), event.shiftKey, event.ctrlKey || event.metaKey);
  }

  private press(event: MouseEvent): void {
    if (event.button === 1) return;
    event.preventDefault();
    this.rest.end();
    this.focus();
    this.show(true);
    const isLeft = event.button === 0;
    if (isLeft) this.tell("press", event);
    else this.send("mouse", "press", "right", true);
    followMouse(event.button, (moved) => isLeft && this.tell("drag", moved), (up) => this.release(up, isLeft));
  }
  private release(event: MouseEvent, isLeft: boolean): void {
    const [x, y] = this.at(event);
    const isInside = x >= 0 && y > 0 && x < this.element.offsetWidth && y <= this.element.offsetHeight;
    if (isLeft) this.tell(isInside ? "release" : "drop", event);
    else this.send("mouse", "release", "right", isInside);
  }

  // Tips come where the pointer rests.
  private restAnew(event: MouseEvent): void {
    const hasMarks = this.element.getAttribute("aria-roledescription") === "chart";
    if (event.buttons > 0 || !hasMarks) this.rest.end();
    else this.rest.begin(...this.at(event));
  }
}

makers.set("graph", GraphView);
