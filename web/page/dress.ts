// What elements of all kinds are given.
export function setOrRemove(element: Element, name: string, value: string): void {
  if (value) element.setAttribute(name, value);
  else element.removeAttribute(name);
}

// By the object model alone: the page's policy allows no attribute for it.
export function setStyle(element: HTMLElement, style: Record<string, string>): void {
  for (const [name, value] of Object.entries(style)) element.style.setProperty(name, value);
}

export function setPlace(element: HTMLElement, place: [number, number, number, number]): void {
  const [left, top, width, height] = place.map((length) => `${Math.round(length)}px`);
  Object.assign(element.style, { left, top, width, height });
}
