// A graph: the program's picture, whose symbols and bars stand for cases.
import { followMouse, Resting } from "./mouse.js";
import type { NodeOrder } from "./protocol.js";
import { makers, Node, Page, View } from "./view.js";

class GraphView implements View {
  readonly element = document.createElement("div");
  private size: [number, number] = [0, 0];
  private readonly rest = new Resting((x, y) => this.page.send("hover", this.node.id, x, y));

  constructor(private readonly page: Page, private readonly node: Node) {
    const { element } = this;
    element.className = "graph";
    element.setAttribute("role", "img");
    element.addEventListener("mousedown", (event) => this.press(event));
    element.addEventListener("mousemove", (event) => this.restAnew(event));
    element.addEventListener("mouseleave", () => this.rest.end());
    element.addEventListener("blur", () => element.classList.remove("pressed"));
  }

  remove(): void { this.rest.end(); }

  update(changed: NodeOrder, node: Node): void {
    if (changed.place) this.size = [Math.round(changed.place[2]), Math.round(changed.place[3])];
    if (changed.stop !== undefined) this.element.tabIndex = changed.stop ? 0 : -1;
    // A picture alone, or one to step about in.
    if (changed.marks !== undefined) this.element.setAttribute("aria-roledescription", changed.marks > 0 ? "chart" : "picture");
    if (!node.label && changed.name !== undefined) this.element.setAttribute("aria-label", "Graph");
    if (changed.svg !== undefined) this.draw(changed.svg);
    if (changed.spoken && this.element.contains(document.activeElement)) this.page.say(changed.spoken);
  }

  // Its title would be a tip of the browser's, and the name is told already.
  private draw(svg: string): void {
    const root = svg ? new DOMParser().parseFromString(svg, "image/svg+xml").documentElement : null;
    root?.querySelectorAll("title, desc").forEach((words) => words.remove());
    root?.setAttribute("aria-hidden", "true");
    this.element.replaceChildren(...(root ? [document.adoptNode(root)] : []));
  }

  focus(): void { this.element.focus({ preventScroll: true }); }

  // From the lower left corner, as the program counts.
  private at(event: MouseEvent): [number, number] {
    const { left, top } = this.element.getBoundingClientRect();
    return [event.clientX - left, this.size[1] - (event.clientY - top)];
  }

  private tell(act: string, event: MouseEvent): void {
    this.page.send("graph", this.node.id, act, ...this.at(event), event.shiftKey, event.ctrlKey || event.metaKey);
  }
  private mouse(act: string, isInside = true): void {
    this.page.send("mouse", this.node.id, act, "right", isInside);
  }

  private press(event: MouseEvent): void {
    const { element } = this;
    if (event.button === 1) return;
    event.preventDefault();
    this.rest.end();
    this.focus();
    element.classList.add("pressed"); // the keyboard came by the pointer: no need to show where it is
    const button = event.button === 0 ? "left" : "right";
    if (button === "left") this.tell("press", event);
    else this.mouse("press");
    followMouse(event.button, (moved) => button === "left" && this.tell("drag", moved), (up) => this.release(up, button));
  }

  private release(event: MouseEvent, button: string): void {
    const [x, y] = this.at(event);
    const isInside = x >= 0 && y > 0 && x < this.size[0] && y <= this.size[1];
    if (button === "left") this.tell(isInside ? "release" : "drop", event);
    else this.mouse("release", isInside);
  }

  // Tips come where the pointer rests.
  private restAnew(event: MouseEvent): void {
    if (event.buttons > 0 || !this.node.marks) this.rest.end();
    else this.rest.begin(...this.at(event));
  }
}

makers.set("graph", (page, node) => new GraphView(page, node));
