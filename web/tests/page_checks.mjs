// What only a browser does, on a site: node web/tests/page_checks.mjs SITE
//
// Every window before an accessibility checker; work that outlives a killed browser; two tabs;
// storage that is refused; the page without a network. Ends with "N passed, N failed".
import { mkdtemp, readFile, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { fileURLToPath } from "node:url";
import { atWindow, choose, launch, pause, press, serve, toEditor, toNotebook, toQuadrants, until } from "./browsers.mjs";

const server = await serve(process.argv[2], 8378);
const axe = await readFile(fileURLToPath(new URL("../node_modules/axe-core/axe.min.js", import.meta.url)), "utf8");
const counts = { passed: 0, failed: 0 };
async function check(name, work) {
  try {
    await work();
    ++counts.passed;
  } catch (error) {
    ++counts.failed;
    console.log(`${name}: ${error.message}`);
  }
}
function expect(isSo, words) {
  if (!isSo) throw new Error(words);
}
const text = (page) => page.evaluate(() => document.body.innerText);
const untilText = (page, words) => until(page, `"${words}"`, (words) => document.body.innerText.includes(words), words);

// --- every window before the checker
async function findings(page) {
  await pause(300);
  await page.evaluate(axe);
  const { violations } = await page.evaluate(() => window.axe.run(document, { resultTypes: ["violations"] }));
  return violations.map(({ id, nodes }) => `${id}: ${nodes[0].html.slice(0, 160)}`).join("\n  ");
}
const isClean = (page, name) => check(`checker, ${name}`, async () => {
  const found = await findings(page);
  expect(found === "", found);
});
async function everyWindow(browser) {
  const page = await browser.newPage();
  await page.setBypassCSP(true);
  await page.goto(server.address);
  await until(page, "the cover", () => document.querySelector(".window"));
  await isClean(page, "cover");
  await toNotebook(page, server.address);
  await isClean(page, "notebook");
  await toQuadrants(page, server.address);
  await isClean(page, "quadrants");
  for (const [title, ...path] of [["Save Report", "File", "Save Report..."], ["Notes", "Explore", "Notes..."], ["Case", "Explore", "Case..."],
    ["Predict", "Explore", "Predict..."], ["Compare Models", "Explore", "Compare Models..."], ["About This Module", "Help", "About..."]]) {
    await choose(page, ...path);
    await atWindow(page, title);
    await isClean(page, title);
    await press(page, "Escape");
    await until(page, `the end of ${title}`, (title) => ![...document.querySelectorAll(".window h1")].some((one) => one.checkVisibility() && one.textContent === title), title);
  }
  await press(page, "Alt+x");
  await isClean(page, "an open menu");
  await press(page, "Escape", "Escape", "F1");
  await until(page, "the help", () => document.querySelector(".companion"));
  await isClean(page, "help");
  await page.close();
  const editor = await browser.newPage();
  await editor.setBypassCSP(true);
  await toEditor(editor, server.address);
  await isClean(editor, "editor");
  await editor.keyboard.type("5");
  await isClean(editor, "an open cell");
  await editor.close();
}

// --- work written aside
async function typeInto(page, words) {
  await press(page, "ArrowRight");
  for (const word of words) {
    await page.keyboard.type(word);
    await press(page, "Enter");
  }
}
async function killedWhileTyping() {
  const userDataDir = await mkdtemp(join(tmpdir(), "tolmer-"));
  let browser = await launch("chromium", { userDataDir });
  let page = await browser.newPage();
  await toEditor(page, server.address);
  await typeInto(page, ["111", "222", "333"]);
  await pause(4000);
  await typeInto(page, ["444"]);
  browser.process().kill("SIGKILL");
  await pause(500);
  browser = await launch("chromium", { userDataDir });
  page = await browser.newPage();
  await page.goto(server.address);
  await untilText(page, "before the data in the Data Editor were saved");
  await press(page, "Enter");
  await atWindow(page, "Notebook");
  // A second tab does not find what the first one has.
  const other = await browser.newPage();
  await toNotebook(other, server.address);
  expect(!(await text(other)).includes("were saved"), "a second tab took the work, too");
  await page.bringToFront();
  await page.evaluate(() => [...document.querySelectorAll("[role=tab]")].find((tab) => tab.textContent === "Your Data").click());
  await press(page, "Enter");
  await untilText(page, "before its data were saved");
  await page.evaluate(() => [...document.querySelectorAll(".messagebox button")].find((button) => button.textContent === "Yes").click());
  await until(page, "the work", () => ["111", "222", "333"].every((value) => [...document.querySelectorAll("td")].some((cell) => cell.textContent.startsWith(value))));
  await browser.close();
  await rm(userDataDir, { recursive: true, force: true });
}
async function storageRefused(browser) {
  const page = await browser.newPage();
  await page.evaluateOnNewDocument(() => {
    indexedDB.open = () => { throw new DOMException("refused", "SecurityError"); };
  });
  await toEditor(page, server.address);
  await typeInto(page, ["1", "2"]);
  await untilText(page, "aside");
  await page.close();
}

// --- no network, after one visit
async function offline(browser) {
  const context = await browser.createBrowserContext();
  const page = await context.newPage();
  await toNotebook(page, server.address);
  await page.evaluate(() => navigator.serviceWorker.ready.then(() => undefined));
  await pause(1500);
  await page.setOfflineMode(true);
  await toQuadrants(page, server.address);
  await context.close();
}

const browser = await launch("chromium");
try {
  await check("windows", () => everyWindow(browser));
  await check("killed while typing", killedWhileTyping);
  await check("storage refused", () => storageRefused(browser));
  await check("offline", () => offline(browser));
} finally {
  await browser.close();
  server.stop();
}
console.log(`${counts.passed} passed, ${counts.failed} failed`);
process.exit(counts.failed > 0 ? 1 : 0);
