// Files: what the user opens, saves, prints and lets fall on the page.
import { lend } from "./bytes.js";
import { notice, reasonOf } from "./notice.js";
import type { Screen } from "./page.js";
import type { FileKind, Order } from "./protocol.js";
import { make, setUp } from "./windows.js";

type Question = Extract<Order, { do: "open" | "save" }>;

export function serveFiles(screen: Screen): void {
  for (const question of ["open", "save"] as const) screen.on(question, (order) => ask(screen, order));
  screen.on("download", ({ name, address }) => download(name, address));
  screen.on("print", ({ title, html }) => print(title, ...textOf(html)));
  screen.on("document", ({ address }) => openDocument(address));
  for (const act of ["dragover", "drop"] as const) document.addEventListener(act, (event) => drop(screen, event));
}

// --- the dialogs

// "Data files (*.zmd)"
function nameOf({ name, extensions }: FileKind): string {
  return `${name} (${extensions.length > 0 ? extensions.map((one) => `*.${one}`).join(", ") : "*"})`;
}

export function labelled(words: string, control: HTMLElement): HTMLElement {
  const label = make("label", "", words);
  control.className = "box";
  label.append(control);
  return label;
}

export function button(caption: string, title = "", press = () => {}): HTMLButtonElement {
  const made = setUp(make("button", "button", caption), { type: "button", title });
  made.addEventListener("click", press);
  return made;
}

function formOf(order: Question, field: HTMLElement, kind: HTMLElement, cancel: HTMLElement): HTMLFormElement {
  const form = make("form", "rows");
  const buttons = make("div", "buttons");
  if (order.do === "save") buttons.append(make("button", "button default", "Save"));
  buttons.append(cancel);
  const [name, hint] = order.do === "open" ? ["File: ", "Choose a file, or let one fall into the field."] : ["File name: ", "The browser puts the file where it puts what you download."];
  form.append(labelled(name, field), labelled("Files of type: ", kind), make("p", "", hint), buttons);
  return form;
}

// The browser keeps all else from the user while it is open; its keys are its own.
function ask(screen: Screen, order: Question): void {
  const dialog = setUp(make("dialog", "companion file-dialog"), { "aria-label": order.title });
  const field = setUp(make("input"), order.do === "open" ? { type: "file" } : { value: order.name, spellcheck: "false" });
  const kind = make("select");
  kind.append(...order.kinds.map((one, i) => new Option(nameOf(one), String(i))));
  const end = (isGiven: boolean) => {
    dialog.remove();
    screen.windows.followFocus();
    if (isGiven) void give(screen, order, kind.value, field);
    else screen.send("given-up", order.ask);
  };
  const form = formOf(order, field, kind, button("Cancel", "", () => end(false)));
  form.addEventListener("submit", (event) => {
    event.preventDefault();
    if (field.value.trim()) end(true);
  });
  field.addEventListener("click", () => { field.accept = (order.kinds[Number(kind.value)]?.extensions ?? []).map((one) => `.${one}`).join(","); });
  field.addEventListener("change", () => { if (field.files?.[0]) end(true); });
  // The chooser's own event of that name comes up here, too.
  dialog.addEventListener("cancel", (event) => { if (event.target === dialog) end(false); });
  dialog.append(make("h1", "", order.title), form);
  document.body.append(dialog);
  dialog.showModal();
  if (order.do === "save") field.setSelectionRange(0, order.name.lastIndexOf(".") > 0 ? order.name.lastIndexOf(".") : order.name.length);
}

async function give(screen: Screen, order: Question, kind: string, field: HTMLInputElement): Promise<void> {
  const [file] = field.files ?? [];
  if (!file) return screen.send("chosen", order.ask, kind, field.value.trim());
  try {
    screen.send("chosen", order.ask, kind, file.name, lend(await file.arrayBuffer()));
  } catch (error) {
    notice(`The file ${file.name} cannot be read: ${reasonOf(error)}`);
    screen.send("given-up", order.ask);
  }
}

// --- out

export function download(name: string, address: string): void {
  setUp(make("a"), { href: address, download: name }).click();
  window.setTimeout(() => URL.revokeObjectURL(address), 60000);
}

// In place of the page; a file that the browser makes of it has the title for its name.
export async function print(title: string, ...parts: Node[]): Promise<void> {
  const printed = make("div", "printed");
  const usual = document.title;
  printed.append(...parts);
  document.body.append(printed);
  await Promise.allSettled([...printed.querySelectorAll("img")].map((picture) => picture.decode()));
  window.addEventListener("afterprint", () => {
    printed.remove();
    document.title = usual;
  }, { once: true });
  document.title = title;
  window.print();
}

// A text with the looks that it brings along, which count only where a program sets them.
export function textOf(html: string): Node[] {
  const { body } = new DOMParser().parseFromString(html.replace(/ style="/g, ' data-look="'), "text/html");
  for (const element of body.querySelectorAll<HTMLElement>("[data-look]")) element.style.cssText = element.dataset.look ?? "";
  return [...body.childNodes];
}

function openDocument(address: string): void {
  if (window.open(address, "_blank")) return;
  const link = setUp(make("a", "", "Open it here."), { href: address, target: "_blank" });
  notice("The browser did not let the page open a document. ", link);
}

// --- in

// A field for files takes what falls into it by itself, and while a question is open nothing else does.
function drop(screen: Screen, event: DragEvent): void {
  if (event.target instanceof HTMLInputElement && event.target.type === "file") return;
  event.preventDefault();
  if (event.type === "drop" && event.dataTransfer && !document.querySelector("dialog")) void send(screen, event.dataTransfer);
}

async function send(screen: Screen, dropped: DataTransfer): Promise<void> {
  const files = [...dropped.files];
  const address = dropped.getData("text/uri-list");
  if (files.length === 0) return address ? screen.send("address", address.split(/\r?\n/)[0] ?? "") : undefined;
  try {
    const fields = await Promise.all(files.map(async (file) => [file.name, lend(await file.arrayBuffer())]));
    screen.send("drop", files.length, ...fields.flat());
  } catch (error) {
    notice(`What was let fall here cannot be read: ${reasonOf(error)}`);
  }
}
