// The clipboard: what the program copies, and what the user pastes.
import { notice } from "./notice.js";
import type { Screen } from "./page.js";
import type { Order } from "./protocol.js";

type Content = Extract<Order, { do: "clipboard" }>;

const pictureScale = 2; // dots for one of the picture's units

// Other programs see no cells of ours; they count where the text is still the one copied with them.
let copied = { text: "", cells: "" };

const lines = (text: string) => text.replace(/\r\n?/g, "\n");

export function serveClipboard(screen: Screen): void {
  screen.on("clipboard", (content) => {
    copied = { text: lines(content.text), cells: content.cells };
    void copy(content);
  });
  document.addEventListener("paste", (event) => pasteInto(screen, event));
}

function send(screen: Screen, text: string, html: string): void {
  const cells = copied.cells && lines(text) === copied.text ? copied.cells : "";
  screen.send("paste", text, html, cells);
}

// A line of text takes what is pasted by itself, except one that is not open yet.
function pasteInto(screen: Screen, event: ClipboardEvent): void {
  const to = event.target instanceof Element ? event.target.closest("input, textarea") : null;
  const isUnopened = to?.classList.contains("grid-line") && to.classList.contains("closed");
  if (!event.clipboardData || (to && !isUnopened)) return;
  event.preventDefault();
  send(screen, event.clipboardData.getData("text/plain"), event.clipboardData.getData("text/html"));
  if (isUnopened && !screen.keys.awaitsPaste()) screen.send("key", "V".charCodeAt(0), false, true, false);
}

// For an entry of a menu, which brings no content with it. Whether the program has it now.
export async function readClipboard(screen: Screen): Promise<boolean> {
  try {
    const [item] = await navigator.clipboard.read();
    const read = async (type: string) => (item?.types.includes(type) ? (await item.getType(type)).text() : "");
    send(screen, await read("text/plain"), await read("text/html"));
    return true;
  } catch {
    notice("The browser does not hand the clipboard over to a menu: press Ctrl+V (on a Mac Command+V) to paste.");
    return false;
  }
}

// The old way takes all texts as they are, where the new one changes the table's markup; a picture
// of dots only the new one takes.
async function copy(content: Content): Promise<void> {
  if (!content.svg && copyTexts(content)) return;
  try {
    await navigator.clipboard.write([new ClipboardItem(formsOf(content))]);
  } catch {
    if (content.text && copyTexts(content)) return;
    notice("The browser did not let this be copied. Try once more with the page in front.");
  }
}

function copyTexts({ text, html }: Content): boolean {
  let isDone = false;
  const give = (event: ClipboardEvent) => {
    if (text) event.clipboardData?.setData("text/plain", text);
    if (html) event.clipboardData?.setData("text/html", html);
    event.preventDefault();
    event.stopImmediatePropagation();
    isDone = true;
  };
  document.addEventListener("copy", give, { capture: true, once: true });
  const isTaken = document.execCommand("copy");
  document.removeEventListener("copy", give, { capture: true });
  return isTaken && isDone;
}

function formsOf({ text, html, svg }: Content): Record<string, Blob | Promise<Blob>> {
  const { supports } = ClipboardItem as { supports?: (type: string) => boolean };
  const takesSvg = supports?.call(ClipboardItem, "image/svg+xml");
  const texts = Object.entries({ "text/plain": text, "text/html": html, "image/svg+xml": takesSvg ? svg : "" });
  const forms = texts.filter(([, words]) => words).map(([type, words]) => [type, new Blob([words], { type })]);
  return Object.fromEntries(svg ? [...forms, ["image/png", drawn(svg)]] : forms);
}

async function drawn(svg: string): Promise<Blob> {
  const picture = new Image();
  picture.src = `data:image/svg+xml,${encodeURIComponent(svg)}`;
  await picture.decode();
  const canvas = document.createElement("canvas");
  [canvas.width, canvas.height] = [picture.width * pictureScale, picture.height * pictureScale];
  canvas.getContext("2d")?.drawImage(picture, 0, 0, canvas.width, canvas.height);
  return new Promise((take, refuse) => canvas.toBlob((dots) => (dots ? take(dots) : refuse(new Error("no picture")))));
}
