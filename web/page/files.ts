// Files: what the user opens, saves, prints and lets fall on the page.
import { base64Of, bytesOfBase64 } from "./bytes.js";
import { notice, reasonOf } from "./notice.js";
import type { Screen } from "./page.js";
import type { FileKind, Order } from "./protocol.js";
import { make, setUp } from "./windows.js";

type Question = Extract<Order, { do: "open" | "save" }>;

export function serveFiles(screen: Screen): void {
  for (const question of ["open", "save"] as const) screen.on(question, (order) => ask(screen, order));
  screen.on("download", ({ name, base64 }) => download(name, bytesOfBase64(base64)));
  screen.on("print", ({ title, html }) => print(title, ...textOf(html)));
  screen.on("document", ({ address }) => openDocument(address));
  document.addEventListener("dragover", (event) => event.preventDefault());
  document.addEventListener("drop", (event) => {
    event.preventDefault();
    if (event.dataTransfer) void drop(screen, event.dataTransfer);
  });
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

function formOf(order: Question, field: HTMLInputElement, kind: HTMLElement, ...buttons: HTMLElement[]): HTMLFormElement {
  const form = make("form", "rows");
  const kinds = labelled("Files of type: ", kind);
  const row = make("div", "buttons");
  row.append(...buttons);
  if (order.do === "open") form.append(kinds, setUp(field, { type: "file", hidden: "" }), make("p", "dropzone", "Choose a file, or let one fall here."), row);
  else form.append(labelled("File name: ", setUp(field, { value: order.name, required: "", pattern: ".*\\S.*", spellcheck: "false" })), kinds, make("p", "", "The browser puts the file where it puts what you download."), row);
  return form;
}

// The browser keeps all else from the user while it is open; its keys are its own.
function ask(screen: Screen, order: Question): void {
  const dialog = setUp(make("dialog", "companion file-dialog"), { "aria-label": order.title });
  const [field, kind] = [make("input"), make("select")];
  kind.append(...order.kinds.map((one, i) => new Option(nameOf(one), String(i))));
  const end = (isGiven: boolean) => {
    dialog.remove();
    screen.windows.followFocus();
    if (isGiven) void give(screen, order, kind.value, field);
    else screen.send("given-up", order.ask);
  };
  const choose = make("button", "button default", order.do === "open" ? "Choose a File..." : "Save");
  const form = formOf(order, field, kind, choose, button("Cancel", "", () => end(false)));
  form.addEventListener("submit", (event) => {
    event.preventDefault();
    if (order.do === "save") return end(true);
    field.accept = (order.kinds[Number(kind.value)]?.extensions ?? []).map((one) => `.${one}`).join(",");
    field.click();
  });
  field.addEventListener("change", () => { if (field.files?.[0]) end(true); });
  // The chooser's own event of that name comes up here, too.
  dialog.addEventListener("cancel", (event) => { if (event.target === dialog) end(false); });
  dialog.append(make("h1", "", order.title), form);
  document.body.append(dialog);
  dialog.showModal();
  if (order.do === "open") return choose.focus();
  field.setSelectionRange(0, order.name.lastIndexOf(".") > 0 ? order.name.lastIndexOf(".") : order.name.length);
}

async function give(screen: Screen, order: Question, kind: string, field: HTMLInputElement): Promise<void> {
  const [file] = field.files ?? [];
  if (!file) return screen.send("chosen", order.ask, kind, field.value.trim());
  try {
    screen.send("chosen", order.ask, kind, file.name, await base64Of(file));
  } catch (error) {
    notice(`The file ${file.name} cannot be read: ${reasonOf(error)}`);
    screen.send("given-up", order.ask);
  }
}

// --- out

export function download(name: string, bytes: Uint8Array): void {
  const link = make("a");
  link.href = URL.createObjectURL(new Blob([bytes]));
  link.download = name;
  link.click();
  window.setTimeout(() => URL.revokeObjectURL(link.href), 60000);
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

async function drop(screen: Screen, dropped: DataTransfer): Promise<void> {
  const chooser = document.querySelector<HTMLInputElement>("dialog input[type=file]");
  if (chooser) {
    chooser.files = dropped.files;
    chooser.dispatchEvent(new Event("change"));
    return;
  }
  const files = [...dropped.files];
  const address = dropped.getData("text/uri-list");
  if (files.length === 0) return address ? screen.send("address", address.split(/\r?\n/)[0] ?? "") : undefined;
  try {
    const fields = await Promise.all(files.map(async (file) => [file.name, await base64Of(file)]));
    screen.send("drop", files.length, ...fields.flat());
  } catch (error) {
    notice(`What was let fall here cannot be read: ${reasonOf(error)}`);
  }
}
