// How the page's parts meet: a view shows one node, and what the user does goes out as a message.
import type { Kind, NodeOrder } from "./protocol.js";

export type Field = string | number | boolean;

// A node as the page knows it: all that was ever said of it.
export interface Node extends NodeOrder {
  view: View;
  container: Node | null;
}

export interface View {
  readonly element: HTMLElement;
  // Where views of nodes go that stand in this one, if there are any.
  readonly ground?: HTMLElement;
  // `changed` is what the program said now; `node` is all of it.
  update(changed: NodeOrder, node: Node): void;
  // What of it has the focus, where that is not the element.
  readonly target?: HTMLElement;
  // The keyboard comes to it.
  focus?(): void;
  // A key for which nothing else has a use. Whether it meant anything here.
  key?(event: KeyboardEvent): boolean;
  remove?(): void;
}

// What a view may ask of the page.
export interface Page {
  send(kind: string, ...fields: Field[]): void;
  node(id: number): Node | undefined;
  // Messages that the program had not taken when it made the batch that is being shown: what the
  // user has typed since is not in it.
  unseen(): number;
  // The number of the message sent last.
  sent(): number;
  // Was that message taken before the batch that is shown was made?
  taken(message: number): boolean;
  say(words: string): void; // to a screen reader
}

export type ViewClass = new (page: Page, node: Node) => View;
export const makers = new Map<Kind, ViewClass>();
