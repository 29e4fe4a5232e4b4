// Hands that work the program by keys alone: in a browser's page, and on the desktop.
import assert from "node:assert/strict";
import { execFileSync, spawn } from "node:child_process";
import { existsSync, mkdtempSync, readFileSync, rmSync } from "node:fs";
import { tmpdir } from "node:os";
import { join, resolve } from "node:path";
import { launch, pastedBeside, pause, press, until } from "./browsers.mjs";

// Asks until there is an answer.
async function awaited(words, ask) {
  for (const begin = Date.now(); Date.now() - begin < 30000; await pause(100)) {
    const answer = await ask();
    if (answer) return answer;
  }
  throw new Error(`it never came: ${words}`);
}
const whole = (path) => awaited(path, () => existsSync(path) && !existsSync(`${path}.part`) && readFileSync(path));

export class PageHands {
  count = 0;
  folder = mkdtempSync(join(tmpdir(), "tolmer-"));
  constructor(name) { this.name = name; }

  async start(address, more = {}) {
    this.browser = await launch(this.name, {
      downloadBehavior: { policy: "allow", downloadPath: this.folder },
      extraPrefsFirefox: { "browser.download.folderList": 2, "browser.download.dir": this.folder },
      ignoreDefaultArgs: ["--hide-scrollbars"],
      ...more,
    });
    this.page = await this.browser.newPage();
    await this.page.goto(address);
  }
  async end() {
    await this.browser.close();
    rmSync(this.folder, { recursive: true });
  }

  // Until nothing has changed on the page for a while.
  settled() {
    return this.page.evaluate(() => new Promise((done) => {
      const rest = () => setTimeout(done, 120);
      let last = rest();
      new MutationObserver(() => {
        clearTimeout(last);
        last = rest();
      }).observe(document.body, { subtree: true, childList: true, attributes: true, characterData: true });
      setTimeout(done, 5000);
    }));
  }
  async press(...keys) {
    for (const key of keys) {
      await press(this.page, key);
      await this.settled();
    }
    this.count += keys.length;
  }
  async type(text) {
    await this.page.keyboard.type(text);
    this.count += text.length;
    await this.settled();
  }
  async at(title) {
    await until(this.page, `the window "${title}"`, (title) => [...document.querySelectorAll(".window, dialog")].some((one) =>
      one.checkVisibility() && [one.ariaLabel, one.querySelector("h1")?.textContent].some((name) => name?.startsWith(title))), title);
    await this.settled();
    assert(await this.page.evaluate(() => [...document.querySelectorAll(".window.dialog > .inside")].every((one) => one.scrollHeight <= one.clientHeight && one.scrollWidth <= one.clientWidth)), `${title} has to be scrolled`);
  }
  // A row of cells, or the lines of a text box.
  look(path) { return this.page.screenshot({ path }); }

  // What the browser shows in a tab of its own; closed again.
  async opened() {
    const other = await awaited("another tab", async () => (await this.browser.pages()).find((one) => one !== this.page && one.url().startsWith("http")));
    const address = other.url();
    await other.close();
    await this.page.bringToFront();
    return (await fetch(address)).arrayBuffer();
  }
  copied() { return pastedBeside(this.page); }
  // As the kind at that place of the list.
  async save(name, kind = 0) {
    await this.at("Save");
    if (kind > 0) await this.press("Tab", ...Array(kind).fill("ArrowDown"), "Shift+Tab");
    await this.press("Control+a");
    await this.type(name);
    await this.press("Enter");
    return whole(join(this.folder, name));
  }
  async open(path) {
    const chooser = await this.page.waitForSelector(".file-dialog input[type=file]");
    await chooser.uploadFile(path);
    await this.settled();
  }
}

const symbols = { Enter: "Return", Control: "ctrl", Alt: "alt", Shift: "shift", " ": "space", PageDown: "Next", PageUp: "Prior", Backspace: "BackSpace" };
const symbolOf = (key) => key.split("+").map((part) => symbols[part] ?? part.replace("Arrow", "")).join("+");

export class DesktopHands {
  count = 0;
  name = "desktop";
  home = mkdtempSync(join(tmpdir(), "tolmer-"));

  constructor(program) { this.program = resolve(program); }

  async start() {
    this.running = [spawn("openbox", ["--sm-disable"], { stdio: "ignore" })];
    await pause(1000);
    const env = { HOME: this.home, PATH: process.env.PATH, LANG: "C.UTF-8", LC_PAPER: "en_US", DISPLAY: process.env.DISPLAY };
    this.running.push(spawn(this.program, [], { env, cwd: this.home, stdio: "ignore" }));
  }
  end() {
    for (const one of this.running) one.kill();
    rmSync(this.home, { recursive: true });
  }
  shot(...words) { return execFileSync("import", ["-silent", "-window", "root", ...words], { maxBuffer: 1e8 }); }
  // Until two pictures are the same; a blinking cursor is waited for in vain.
  async settled() {
    for (let i = 0, last = ""; i < 8; ++i) {
      await pause(200);
      const now = this.shot("-depth", "8", "rgb:-").toString("base64");
      if (now === last) return;
      last = now;
    }
  }
  async press(...keys) {
    for (const key of keys) {
      execFileSync("xdotool", ["key", symbolOf(key)]);
      await this.settled();
    }
    this.count += keys.length;
  }
  async type(text) {
    execFileSync("xdotool", ["type", "--delay", "25", text]);
    this.count += text.length;
    await this.settled();
  }
  async at(title) {
    await awaited(`the window "${title}"`, () => {
      try {
        return execFileSync("xdotool", ["search", "--onlyvisible", "--name", `^${title}`], { stdio: ["ignore", "pipe", "ignore"] }).length > 0;
      } catch {
        return false;
      }
    });
    await this.settled();
  }
  async look(path) { this.shot(path); }
  async copied() {
    const read = (type) => {
      try {
        return execFileSync("xclip", ["-selection", "clipboard", "-o", "-t", type], { stdio: ["ignore", "pipe", "ignore"] }).toString();
      } catch {
        return "";
      }
    };
    return { text: read("text/plain"), html: read("text/html") };
  }
  async save(name, kind = 0) {
    await this.at("Save");
    if (kind > 0) await this.press("Alt+t", ...Array(kind).fill("ArrowDown"), "Alt+n");
    await this.press("Control+a");
    await this.type(join(this.home, name));
    await this.press("Enter");
    return whole(join(this.home, name));
  }
  async open(path) {
    await this.at("Open");
    await this.type(path);
    await this.press("Enter");
  }
}
