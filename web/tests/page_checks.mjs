// What only a browser does, on a site: node web/tests/page_checks.mjs SITE
//
// Every window before an accessibility checker; work that outlives a killed browser; two tabs;
// storage that is refused or full; the page without a network. Ends with "N passed, N failed".
import { mkdtemp, readFile, rm, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { fileURLToPath } from "node:url";
import { launch, pause, press, serve, toEditor, toNotebook, toQuadrants, until } from "./browsers.mjs";
import { PageHands } from "./hands.mjs";

const folder = await mkdtemp(join(tmpdir(), "tolmer-"));
const towns = join(folder, "towns.csv");
await writeFile(towns, "Town;Size;Rent\nUlm;1;4,5\nRom;2;5\nOslo;3;7,25\n");
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

// --- every window before the checker, reached by keys alone
async function findings(page) {
  await page.evaluate(axe);
  const { violations } = await page.evaluate(() => window.axe.run(document, { resultTypes: ["violations"] }));
  return violations.map(({ id, nodes }) => `${id}: ${nodes[0].html.slice(0, 160)}`).join("\n  ");
}
// Window by window: keys, the title that they bring, keys before the checker looks, keys back.
const windows = [
  [[], "Notebook"],
  [["Alt+k"], "", ["F6"], ["F6", "Escape"]],
  [["Escape"], "", [], ["Escape"]],
  [["ArrowRight", "ArrowRight", "ArrowRight", "Tab", "Enter"], "Notebook", [], ["ArrowLeft", "ArrowLeft", "ArrowLeft"]],
  [["Enter"], "Variable Selection"],
  [["Alt+d"], "List of Variables", [], ["Escape"]],
  [["Enter"], "Hint", [], ["Enter"]],
  [["F6"], ""],
  [["Alt+d", "s", "1"], "Scatter Plot 1"],
  [["Alt+d", "i"], "Interpretation"],
  [["Alt+d", "t", "r"], "Residual List", ["ArrowDown"]],
  [["Shift+F10"], "", [], ["Escape"]],
  [["Alt+x"], "", [], ["Escape"]],
  [["Alt+f", "r"], "Save Report"],
  [["Enter"], "Save Report", [], ["Escape"]],
  [["Alt+x", "n"], "Notes", [], ["Escape"]],
  [["Alt+x", "c"], "Case", ["Alt+f"], ["Alt+a"]],
  [[], "Case", [], ["Escape"]],
  [["Alt+x", "p"], "Predict", ["Alt+a"], ["Escape"]],
  [["Alt+x", "m"], "Compare Models", [], ["Escape"]],
  [["Alt+h", "a"], "About This Module", [], ["Escape"]],
  [["Alt+h", "s"], "", [], ["Escape"]],
  [["F6", "F6", "F6", "F6", "Alt+n"], "Notebook", [], ["ArrowRight", "ArrowRight", "ArrowRight", "ArrowRight"]],
  [["Enter"], "Data Editor", ["ArrowRight", "5", "Enter"]],
  [["F2"], "Data Editor", [], ["Escape"]],
  [["Control+f"], "Find and Replace", [], ["Escape"]],
  [["Alt+o", "f", "s"], "Format", [], ["Escape"]],
  [["Alt+o", "s"], "Sort Options", [], ["Escape"]],
  [["Alt+o", "l"], "Variable Label", [], ["Escape"]],
  [["Alt+h", "i", "t"], "", [], ["Escape"]],
  [["Control+s"], "Save", [], ["Escape"]],
  [["Control+o"], "Data Changed", [], ["Enter"]],
  [[], "Open"],
];
async function everyWindow(name) {
  const hands = new PageHands(name);
  await hands.start(server.address);
  const look = async (what) => {
    await check(`checker, ${name}, ${what}`, async () => {
      const found = await findings(hands.page);
      expect(found === "", found);
    });
  };
  await look("cover");
  for (const [keys, title, more = [], back = []] of windows) {
    await hands.press(...keys);
    if (title) await hands.at(title);
    await hands.press(...more);
    await look(title || keys.join(" "));
    await hands.press(...back);
  }
  await hands.open(towns);
  await hands.at("Bring in Data");
  await look("import");
  await hands.press("Alt+v");
  await hands.at("Choose Variables");
  await look("variables of a file");
  await hands.end();
}

// --- work written aside
async function toSheet(hands) {
  await hands.at("Notebook");
  await hands.press("ArrowRight", "ArrowRight", "ArrowRight", "ArrowRight", "Enter");
  await hands.at("Data Editor");
}
async function enter(hands, ...values) {
  for (const value of values) {
    await hands.type(value);
    await hands.press("Enter");
  }
}
const untilCells = (page, values) => until(page, values.join(", "), (values) => {
  const shown = [...document.querySelectorAll("td")].map((cell) => cell.textContent);
  return values.every((value) => shown.includes(`${value}.000`));
}, values);

// What was entered more than four seconds before is there again.
async function killedWhileTyping(name) {
  const userDataDir = await mkdtemp(join(tmpdir(), "tolmer-"));
  const hands = new PageHands(name);
  await hands.start(server.address, { userDataDir });
  await toSheet(hands);
  await hands.press("ArrowRight");
  const entered = [];
  for (const begin = Date.now(); Date.now() - begin < 9000; await pause(400)) {
    entered.push([String(100 + entered.length), 0]);
    await enter(hands, entered.at(-1)[0]);
    entered.at(-1)[1] = Date.now();
  }
  const killed = Date.now();
  process.kill(-hands.browser.process().pid, "SIGKILL");
  await pause(500);
  await hands.start(server.address, { userDataDir });
  const { page } = hands;
  await untilText(page, "before the data in the Data Editor were saved");
  await hands.press("Enter");
  await hands.at("Notebook");
  // A second tab does not find what the first one has.
  const other = await hands.browser.newPage();
  await toNotebook(other, server.address);
  expect(!(await text(other)).includes("were saved"), "a second tab took the work, too");
  await other.close();
  await page.bringToFront();
  await hands.press("ArrowRight", "ArrowRight", "ArrowRight", "ArrowRight", "Enter");
  await untilText(page, "before its data were saved");
  await hands.press("Alt+y");
  const safe = entered.filter(([, time]) => killed - time > 4000).map(([value]) => value);
  expect(safe.length > 3, "too little was typed");
  await untilCells(page, safe);
  await hands.end();
  await rm(userDataDir, { recursive: true, force: true });
}

// The program tells it, goes on, and saves all as a file; with room again, all is written aside.
async function storageFull() {
  const hands = new PageHands("chromium");
  await hands.start(server.address);
  const devices = await hands.page.createCDPSession();
  const limit = (more) => devices.send("Storage.overrideQuotaForOrigin", { origin: new URL(server.address).origin, ...more });
  await toSheet(hands);
  await hands.press("ArrowRight");
  await limit({ quotaSize: 1 });
  await enter(hands, "111", "222");
  await untilText(hands.page, "The work could not be written aside: The browser's storage is full.");
  await enter(hands, "333");
  await untilCells(hands.page, ["111", "222", "333"]);
  await hands.press("Control+s");
  const saved = (await hands.save("full.zmm")).toString();
  expect(["111", "222", "333"].every((value) => saved.includes(value)), "the file lacks values");
  await limit({});
  await enter(hands, "444");
  await until(hands.page, "the work aside", () => new Promise((tell) => {
    indexedDB.open("tolmer").onsuccess = ({ target: { result } }) => {
      result.transaction("visits").objectStore("visits").getAll().onsuccess = ({ target }) => {
        result.close();
        tell(target.result.some(({ bytes }) => new TextDecoder().decode(bytes).includes("444")));
      };
    };
  }));
  await hands.end();
}
async function storageRefused(browser) {
  const page = await browser.newPage();
  await page.evaluateOnNewDocument(() => {
    indexedDB.open = () => { throw new DOMException("refused", "SecurityError"); };
  });
  await toEditor(page, server.address);
  await press(page, "1", "Enter", "2", "Enter");
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
  for (const name of ["chromium", "firefox"]) await check(`windows, ${name}`, () => everyWindow(name));
  for (const name of ["chromium", "firefox"]) await check(`killed while typing, ${name}`, () => killedWhileTyping(name));
  await check("storage full", storageFull);
  await check("storage refused", () => storageRefused(browser));
  await check("offline", () => offline(browser));
} finally {
  await browser.close();
  server.stop();
}
console.log(`${counts.passed} passed, ${counts.failed} failed`);
process.exit(counts.failed > 0 ? 1 : 0);
