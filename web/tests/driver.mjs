// Works a page in a browser for tests: a request on the standard input is "LENGTH\n" and so many
// bytes, words parted by U+001F; the answer on the standard output is of the same form and holds
// what the page has told since, parted by U+001E, or "!" and what went wrong.
import { createServer } from "node:http";
import { readFile } from "node:fs/promises";
import { join } from "node:path";
import { fileURLToPath } from "node:url";
import puppeteer from "puppeteer-core";

const folder = process.env.TOLMER_STAGE_SITE ?? fileURLToPath(new URL(".", import.meta.url));
const types = { html: "text/html", js: "text/javascript", css: "text/css", svg: "image/svg+xml" };
const server = createServer(async (request, response) => {
  const path = new URL(request.url, "http://localhost").pathname;
  try {
    const bytes = await readFile(join(folder, path));
    response.setHeader("Content-Type", types[path.split(".").pop()] ?? "application/octet-stream");
    response.end(bytes);
  } catch {
    response.writeHead(404).end();
  }
});
await new Promise((done) => server.listen(0, "127.0.0.1", done));
const address = `http://127.0.0.1:${server.address().port}/stage.html`;

const isFirefox = process.argv[2] === "firefox";
const browser = await puppeteer.launch({
  browser: isFirefox ? "firefox" : "chrome",
  executablePath: isFirefox ? "/usr/bin/firefox-esr" : "/usr/bin/chromium",
  headless: true,
  args: isFirefox ? [] : ["--no-sandbox"],
  defaultViewport: { width: 1280, height: 800 },
});
const page = await browser.newPage();
page.on("pageerror", (error) => process.stderr.write(`page: ${error.message}\n`));
page.on("console", (message) => message.type() === "error" && process.stderr.write(`page: ${message.text()}\n`));

const names = { 8: "Backspace", 9: "Tab", 13: "Enter", 27: "Escape", 32: "Space", 33: "PageUp", 34: "PageDown", 35: "End",
  36: "Home", 37: "ArrowLeft", 38: "ArrowUp", 39: "ArrowRight", 40: "ArrowDown", 46: "Delete", 93: "ContextMenu", 187: "+", 189: "-" };
const nameOfKey = (code) => names[code] ?? (code >= 112 && code < 124 ? `F${code - 111}` : String.fromCharCode(code).toLowerCase());

// Where a click means the control: the sign of a check box is at its left.
const placeOf = (id) => page.evaluate((id) => {
  const element = document.querySelector(`[data-id="${id}"]`);
  if (!element) return null;
  element.scrollIntoView({ block: "nearest", inline: "nearest" });
  const { left, top, width, height } = element.getBoundingClientRect();
  const isChoice = element.matches(".choice");
  return [isChoice ? left + 8 : left + width / 2, top + height / 2];
}, id);
async function clickAt(id, options) {
  const place = await placeOf(id);
  if (!place) throw new Error(`no element for control ${id}`);
  await page.mouse.click(...place, options);
}
async function press(selector) {
  const element = await page.$(selector);
  if (!element) throw new Error(`nothing like ${selector} on the page`);
  await element.click();
}
async function pressKey(code, shift, control, alt) {
  const held = [[shift, "Shift"], [control, "Control"], [alt, "Alt"]].filter(([on]) => on === "1").map(([, name]) => name);
  for (const name of held) await page.keyboard.down(name);
  await page.keyboard.press(nameOfKey(Number(code)));
  for (const name of held.reverse()) await page.keyboard.up(name);
}

const acts = {
  async reload() {
    await page.goto(address);
    await page.waitForFunction(() => "stageTake" in window);
  },
  batch: (text) => page.evaluate((text) => window.stageTake(text), text),
  async wait(milliseconds) {
    const until = Date.now() + Number(milliseconds);
    while (Date.now() < until) {
      if (kept.length > 0 || (await fetchSent()).length > 0) return;
      await new Promise((done) => setTimeout(done, 5));
    }
  },
  click: (id) => clickAt(id),
  double: (id) => clickAt(id, { count: 2 }),
  right: (id) => clickAt(id, { button: "right" }),
  async type(id, text) {
    const kind = await page.evaluate((id) => {
      const element = document.querySelector(`[data-id="${id}"]`);
      if (element.matches("input, textarea, .number")) return "box";
      if (!element.contains(document.activeElement)) element.focus();
      return "grid";
    }, id);
    if (kind === "box") {
      await clickAt(id);
      await pressKey(65, "0", "1", "0");
    }
    if (!text) await page.keyboard.press("Delete");
    await page.keyboard.type(text ?? "");
  },
  async choose(id, index) {
    await page.evaluate((id, index) => {
      const list = document.querySelector(`[data-id="${id}"]`);
      list.focus();
      list.selectedIndex = index;
      list.dispatchEvent(new Event("change", { bubbles: true }));
    }, id, Number(index));
  },
  async entry(id, caption) {
    const place = await page.evaluate((caption) => {
      const plain = (entry) => (entry.querySelector("span") ?? entry).textContent;
      const entry = [...document.querySelectorAll("[role^=menuitem]")].find((one) => one.checkVisibility() && plain(one) === caption);
      if (!entry) return null;
      const { left, top, width, height } = entry.getBoundingClientRect();
      return [left + width / 2, top + height / 2];
    }, caption);
    if (!place) throw new Error(`the entry "${caption}" is not on the screen`);
    await page.mouse.click(...place);
  },
  key: (id, code, ...held) => pressKey(code, ...held),
  // A child of a frame has no close box.
  close: async (id) => void (await (await page.$(`[data-id="${id}"] .close`))?.click()),
  // A child that fills its frame is restored by the button in the frame's menu bar.
  async maximise(id) {
    const isFull = await page.evaluate((id) => document.querySelector(`[data-id="${id}"]`).matches(".maximised"), id);
    await press(isFull ? ".menubar .restore" : `[data-id="${id}"] .maximise`);
  },
  async answer(text, caption) {
    await page.waitForFunction((text) => document.body.innerText.includes(text), { timeout: 3000 }, text);
    const buttons = await page.$$("[role=alertdialog] button");
    for (const button of buttons)
      if ((await button.evaluate((one) => one.textContent)) === caption) return button.click();
    throw new Error(`the box "${text}" has no button "${caption}"`);
  },
};

const kept = [];
async function fetchSent() {
  const sent = await page.evaluate(() => window.stageSent?.() ?? []);
  kept.push(...sent);
  return sent;
}

function answer(text) {
  const bytes = Buffer.from(text);
  process.stdout.write(`${bytes.length}\n`);
  process.stdout.write(bytes);
}

async function carryOut(words) {
  try {
    await acts[words[0]](...words.slice(1));
    await page.evaluate(() => new Promise((done) => setTimeout(done)));
    await fetchSent();
    answer(kept.splice(0).join("\u001e"));
  } catch (error) {
    answer(`!${words[0]}: ${error.message}`);
  }
}

answer("ready");
let input = Buffer.alloc(0);
for await (const chunk of process.stdin) {
  input = Buffer.concat([input, chunk]);
  for (;;) {
    const end = input.indexOf(10);
    const length = end < 0 ? Infinity : Number(input.subarray(0, end));
    if (input.length < end + 1 + length) break;
    const words = input.subarray(end + 1, end + 1 + length).toString().split("\u001f");
    input = input.subarray(end + 1 + length);
    await carryOut(words);
  }
}
await browser.close();
server.close();
