// What all nodes have, whatever their kind: place, name, look.
import type { ControlView } from "./controls.js";
import type { NodeOrder } from "./protocol.js";
import type { Node } from "./view.js";

const ownsItsLook = new Set(["grid", "graph"]);

export function dress(node: Node, changed: NodeOrder): void {
  const { view } = node;
  const target = (view as ControlView).target ?? view.element;
  if (node.kind !== "window") {
    if (changed.place) setPlace(view.element, changed.place);
    if (changed.visible !== undefined) view.element.hidden = !changed.visible;
    if (changed.order !== undefined) view.element.style.zIndex = String(changed.order);
  }
  if (changed.enabled !== undefined) {
    view.element.classList.toggle("off", !changed.enabled);
    if ("disabled" in target) (target as HTMLButtonElement).disabled = !changed.enabled;
  }
  if (node.kind !== "label" && node.kind !== "window" && changed.label !== undefined) setOrRemove(target, "aria-label", changed.label);
  if (changed.description !== undefined || changed.tip !== undefined) setOrRemove(target, "aria-description", node.description || node.tip || "");
  if (changed.stop === false && target !== view.element) target.tabIndex = -1;
  if (!ownsItsLook.has(node.kind!)) setLook(view.element, node, changed);
}

function setLook(element: HTMLElement, node: Node, changed: NodeOrder): void {
  const { style } = element;
  if (changed.ink !== undefined) style.color = changed.ink;
  if (changed.ground !== undefined) style.setProperty("--own", changed.ground || null);
  if (changed.serif !== undefined) element.classList.toggle("serif", changed.serif);
  if (changed.bold !== undefined) style.fontWeight = changed.bold ? "bold" : "";
  if (changed.pixels === undefined && changed.serif === undefined) return;
  const pixels = node.pixels ?? 12;
  style.fontSize = `${pixels}px`;
  style.lineHeight = `${lineHeight(node.serif ?? false, pixels)}px`;
}

// As the program lays texts out: whole pixels above and below the base line.
function lineHeight(serif: boolean, pixels: number): number {
  const parts = serif ? [0.891, 0.216, 0.042] : [1.069, 0.293];
  return parts.reduce((sum, part) => sum + Math.round(part * pixels), 0);
}

export function setOrRemove(element: Element, name: string, value: string): void {
  if (value) element.setAttribute(name, value);
  else element.removeAttribute(name);
}

export function setPlace(element: HTMLElement, place: [number, number, number, number]): void {
  const [left, top, width, height] = place.map(Math.round);
  Object.assign(element.style, { left: `${left}px`, top: `${top}px`, width: `${width}px`, height: `${height}px` });
}
