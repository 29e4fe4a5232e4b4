// What the page itself has to say: a sentence at the foot of the page, which goes by itself.
import { make, setUp } from "./windows.js";

const stays = 12000; // milliseconds

export function notice(words: string, ...more: Node[]): void {
  document.querySelector(".notice")?.remove();
  const box = setUp(make("p", "notice", words), { role: "alert" });
  box.append(...more);
  document.body.append(box);
  window.setTimeout(() => box.remove(), stays);
}

export function reasonOf(error: unknown): string {
  return error instanceof Error || error instanceof DOMException ? error.message : String(error);
}
