// A browser of Debian's on a site, for the checks beside this file.
import { spawn } from "node:child_process";
import { fileURLToPath } from "node:url";
import puppeteer from "puppeteer-core";

export const pause = (milliseconds) => new Promise((done) => setTimeout(done, milliseconds));

export async function serve(folder, port) {
  const server = spawn(fileURLToPath(new URL("../../tools/serve-web", import.meta.url)), [folder, String(port)], { stdio: "ignore" });
  for (let i = 0; i < 400; ++i) {
    if (await fetch(`http://localhost:${port}/`).then(() => true, () => false)) break;
    await pause(50);
  }
  return { address: `http://localhost:${port}/`, stop: () => server.kill() };
}

export function launch(name, more = {}) {
  const isFirefox = name === "firefox";
  return puppeteer.launch({
    browser: isFirefox ? "firefox" : "chrome",
    executablePath: isFirefox ? "/usr/bin/firefox-esr" : "/usr/bin/chromium",
    headless: true,
    args: isFirefox ? [] : ["--no-sandbox"],
    defaultViewport: { width: 1280, height: 800 },
    protocolTimeout: 120000,
    ...more,
  });
}

// Until something on the page is so; fails with its words after a while.
export async function until(page, words, test, ...more) {
  try {
    await page.waitForFunction(test, { timeout: 20000, polling: 5 }, ...more);
  } catch {
    throw new Error(`it never came: ${words}`);
  }
}

const titleOf = () => [...document.querySelectorAll(".window.active h1")].map((title) => title.textContent).join(", ");
export const atWindow = (page, title) =>
  until(page, `the window "${title}"`, (title) => [...document.querySelectorAll(".window")].some((one) => one.checkVisibility() && one.querySelector("h1")?.textContent === title), title);
export const activeTitle = (page) => page.evaluate(titleOf);

// What these keys do beside the page's own work, a browser without a screen does only by its name.
const commands = { "Control+c": ["Copy"], "Control+v": ["Paste"] };
export async function press(page, ...keys) {
  for (const key of keys) {
    const parts = key.split("+");
    for (const held of parts.slice(0, -1)) await page.keyboard.down(held);
    await page.keyboard.press(parts.at(-1), { commands: commands[key] });
    for (const held of parts.slice(0, -1).reverse()) await page.keyboard.up(held);
  }
}

// Done in a page of another program, in front for that time; `work` gets it with all of its text marked.
export async function beside(page, work) {
  const other = await page.browserContext().newPage();
  await other.goto(new URL("notices.txt", page.url()));
  await other.evaluate(() => {
    document.body.contentEditable = true;
    document.body.focus();
    document.execCommand("selectAll");
  });
  await other.bringToFront();
  try {
    return await work(other);
  } finally {
    await other.close();
    await page.bringToFront();
  }
}
export const copyBeside = (page, text) => beside(page, async (other) => {
  await other.evaluate((text) => document.addEventListener("copy", (event) => {
    event.preventDefault();
    event.clipboardData.setData("text/plain", text);
  }), text);
  await press(other, "Control+c");
});
export const pastedBeside = (page) => beside(page, async (other) => {
  await other.evaluate(() => void (window.pasted = new Promise((done) => document.addEventListener("paste", ({ clipboardData }) =>
    done({ text: clipboardData.getData("text/plain"), html: clipboardData.getData("text/html") })))));
  await press(other, "Control+v");
  return other.evaluate(() => window.pasted);
});

// The start, up to the notebook, and on to the four quadrants of the example that comes first.
export async function toNotebook(page, address) {
  await page.goto(address);
  await atWindow(page, "Notebook");
}
export async function toQuadrants(page, address) {
  await toNotebook(page, address);
  await press(page, "Enter");
  await until(page, "the designer", () => document.body.innerText.includes("Independent Variables"));
  await press(page, "Enter");
  await atWindow(page, "Hint");
  await press(page, "Enter");
  await until(page, "the histogram", () => document.querySelector("[data-id] svg"));
}
// By the menus: captions, one below the other.
export async function choose(page, ...captions) {
  for (const caption of captions) {
    await until(page, `the entry "${caption}"`, (caption) =>
      [...document.querySelectorAll("[role^=menuitem]")].some((one) => one.checkVisibility() && (one.querySelector("span") ?? one).textContent === caption), caption);
    const entries = await page.$$("[role^=menuitem]");
    for (const entry of entries) {
      const isIt = await entry.evaluate((one, caption) => one.checkVisibility() && (one.querySelector("span") ?? one).textContent === caption, caption);
      if (!isIt) continue;
      await entry.click();
      break;
    }
  }
}
// From the notebook's section "Your Data".
export async function toEditor(page, address) {
  await toNotebook(page, address);
  await page.evaluate(() => [...document.querySelectorAll("[role=tab]")].find((tab) => tab.textContent === "Your Data").click());
  await until(page, "the section", () => document.querySelector("[role=tab][aria-selected=true]")?.textContent === "Your Data");
  await press(page, "Enter");
  await until(page, "the editor", () => document.querySelector(".grid-line"));
}
