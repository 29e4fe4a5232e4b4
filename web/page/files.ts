// Files: what the user opens, saves, prints and lets fall on the page.
import { base64Of, bytesOfBase64 } from "./bytes.js";
import { notice, reasonOf } from "./notice.js";
import type { Screen } from "./page.js";
import type { FileKind, Order } from "./protocol.js";
import { make, setUp } from "./windows.js";

type Question = Extract<Order, { do: "open" | "save" }>;

let takeFile: ((file: File) => void) | undefined; // of the open dialog

export function serveFiles(screen: Screen): void {
  screen.on("open", (order) => askToOpen(screen, order));
  screen.on("save", (order) => askToSave(screen, order));
  screen.on("download", ({ name, type, base64 }) => download(name, type, bytesOfBase64(base64)));
  screen.on("print", ({ html }) => printDocument(html));
  screen.on("document", ({ address }) => openDocument(address));
  document.addEventListener("dragover", (event) => event.preventDefault());
  document.addEventListener("drop", (event) => {
    event.preventDefault();
    if (event.dataTransfer) void drop(screen, event.dataTransfer);
  });
}

// --- the dialogs

// The browser keeps all else from the user while it is open; its keys are its own.
function openDialog(screen: Screen, order: Question): { dialog: HTMLDialogElement; rows: HTMLElement; kind: HTMLSelectElement; end: () => void } {
  const dialog = setUp(make("dialog", "companion file-dialog"), { "aria-label": order.title });
  const rows = make("div", "rows");
  const kind = make("select");
  order.kinds.forEach((one, i) => kind.append(new Option(nameOf(one), String(i))));
  dialog.append(make("h1", "", order.title), rows);
  document.body.append(dialog);
  const end = () => {
    takeFile = undefined;
    dialog.remove();
    screen.windows.followFocus();
  };
  // The chooser's own event of that name comes up here, too.
  dialog.addEventListener("cancel", (event) => {
    if (event.target !== dialog) return;
    end();
    screen.send("given-up", order.ask);
  });
  dialog.showModal();
  return { dialog, rows, kind, end };
}

// "Data files (*.zmd)"
function nameOf({ name, extensions }: FileKind): string {
  return `${name} (${extensions.length > 0 ? extensions.map((one) => `*.${one}`).join(", ") : "*"})`;
}

function labelled(words: string, control: HTMLElement): HTMLElement {
  const label = make("label", "", words);
  label.append(control);
  return label;
}

export function button(caption: string, press: () => void, title = ""): HTMLButtonElement {
  const made = setUp(make("button", "button", caption), { type: "button", title });
  made.addEventListener("click", press);
  return made;
}

function buttons(dialog: HTMLElement, ...those: HTMLElement[]): HTMLElement {
  const row = make("div", "buttons");
  row.append(...those, button("Cancel", () => dialog.dispatchEvent(new Event("cancel"))));
  return row;
}

// A browser lets the user choose a file only after a click of his own.
function askToOpen(screen: Screen, order: Question): void {
  const { dialog, rows, kind, end } = openDialog(screen, order);
  const chooser = setUp(make("input"), { type: "file", hidden: "" });
  const take = async (file: File) => {
    end();
    try {
      screen.send("chosen", order.ask, kind.value, file.name, await base64Of(file));
    } catch (error) {
      notice(`The file ${file.name} cannot be read: ${reasonOf(error)}`);
      screen.send("given-up", order.ask);
    }
  };
  chooser.addEventListener("change", () => { if (chooser.files?.[0]) void take(chooser.files[0]); });
  takeFile = (file) => void take(file);
  const choose = button("Choose a File...", () => {
    chooser.accept = (order.kinds[Number(kind.value)]?.extensions ?? []).map((one) => `.${one}`).join(",");
    chooser.click();
  });
  choose.classList.add("default");
  rows.append(labelled("Files of type: ", kind), chooser, make("p", "dropzone", "Choose a file, or let one fall here."), buttons(dialog, choose));
  choose.focus();
}

function askToSave(screen: Screen, order: Extract<Order, { do: "save" }>): void {
  const { dialog, rows, kind, end } = openDialog(screen, order);
  const name = setUp(make("input"), { type: "text", spellcheck: "false" });
  name.value = order.name;
  const save = () => {
    const chosen = name.value.trim();
    if (!chosen) return name.focus();
    end();
    const ending = order.kinds[Number(kind.value)]?.extensions[0];
    screen.send("chosen", order.ask, kind.value, chosen.includes(".") || !ending ? chosen : `${chosen}.${ending}`);
  };
  name.addEventListener("keydown", (event) => { if (event.key === "Enter" && !event.isComposing) save(); });
  const press = button("Save", save);
  press.classList.add("default");
  rows.append(labelled("File name: ", name), labelled("Files of type: ", kind),
              make("p", "", "The browser puts the file where it puts what you download."), buttons(dialog, press));
  name.focus();
  name.setSelectionRange(0, name.value.lastIndexOf(".") > 0 ? name.value.lastIndexOf(".") : name.value.length);
}

// --- out

export function download(name: string, type: string, bytes: Uint8Array): void {
  const link = make("a");
  link.href = URL.createObjectURL(new Blob([bytes], { type }));
  link.download = name;
  link.click();
  window.setTimeout(() => URL.revokeObjectURL(link.href), 60000);
}

// The document's looks come from a file, since none may stand in it.
export function printDocument(html: string): void {
  const frame = setUp(make("iframe", "printed"), { "aria-hidden": "true", tabindex: "-1" });
  frame.addEventListener("load", () => {
    const printed = frame.contentWindow;
    if (!printed) return;
    lookAsWritten(printed.document.body);
    printed.addEventListener("afterprint", () => window.setTimeout(() => frame.remove()));
    void printed.document.fonts.ready.then(() => printed.print());
  });
  frame.srcdoc = withoutStyles(html);
  document.body.append(frame);
}

// Looks that a text brings with it count only where a program sets them.
export function withoutStyles(html: string): string {
  return html.replace(/ style="/g, ' data-look="');
}
export function lookAsWritten(text: ParentNode): void {
  for (const element of text.querySelectorAll<HTMLElement>("[data-look]"))
    for (const [property, value] of (element.dataset.look ?? "").split(";").map((one) => one.split(":")))
      if (property && value) element.style.setProperty(property.trim(), value.trim());
}

function openDocument(address: string): void {
  if (window.open(address, "_blank")) return;
  const link = setUp(make("a", "", "Open it here."), { href: address, target: "_blank" });
  notice("The browser did not let the page open a document. ", link);
}

// --- in

async function drop(screen: Screen, dropped: DataTransfer): Promise<void> {
  const files = [...dropped.files];
  if (takeFile) {
    if (files[0]) takeFile(files[0]);
    return;
  }
  const address = dropped.getData("text/uri-list");
  if (files.length === 0) return address ? screen.send("address", address.split(/\r?\n/)[0] ?? "") : undefined;
  try {
    const fields = await Promise.all(files.map(async (file) => [file.name, await base64Of(file)]));
    screen.send("drop", files.length, ...fields.flat());
  } catch (error) {
    notice(`What was let fall here cannot be read: ${reasonOf(error)}`);
  }
}
