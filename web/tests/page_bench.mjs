// How long a user waits in the page: node web/tests/page_bench.mjs SITE [chromium|firefox]
//
// A time runs from the key's event in the page to the frame behind what it brings; that of a key in
// the sheet to the page laid out anew, without the wait for the screen's next frame.
import { atWindow, copyBeside, launch, pause, press, serve, toEditor, toNotebook, until } from "./browsers.mjs";
import { loadavg } from "node:os";

const [site, name = "chromium"] = process.argv.slice(2);
const server = await serve(site, 8377);
const browser = await launch(name);
const median = (times) => [...times].sort((a, b) => a - b)[Math.floor(times.length / 2)];
const report = (what, times, limit) =>
  console.log(`${what.padEnd(44)} median ${median(times).toFixed(1)} ms, worst ${Math.max(...times).toFixed(1)} ms (limit ${limit})`);

async function newPage() {
  const context = await browser.createBrowserContext();
  const page = await context.newPage();
  page.on("pageerror", (error) => console.log(`page: ${error.message}`));
  await page.evaluateOnNewDocument(() => {
    // Until the test holds in a frame, and that frame is painted.
    window.timed = (test) => new Promise((done) => {
      addEventListener("keydown", (event) => {
        const begin = event.timeStamp;
        const look = () => (test() ? requestAnimationFrame(() => setTimeout(() => done(performance.now() - begin))) : setTimeout(look));
        look();
      }, { capture: true, once: true });
    });
    // Until what the program says first after the key is shown and laid out.
    let answered;
    window.Worker = class extends Worker {
      set onmessage(take) {
        super.onmessage = (message) => {
          take(message);
          if (message.data?.includes("\"do\"")) answered?.();
        };
      }
    };
    window.answered = () => new Promise((done) => {
      addEventListener("keydown", (event) => {
        answered = () => {
          answered = undefined;
          document.body.getBoundingClientRect();
          done(performance.now() - event.timeStamp);
        };
      }, { capture: true, once: true });
    });
  });
  return { page, close: () => context.close() };
}
async function timeKey(page, keys, test, argument) {
  await page.evaluate((test, argument) => {
    const holds = new Function("argument", `return (${test})(argument);`);
    window.result = window.timed(() => holds(argument));
  }, String(test), argument);
  await press(page, keys);
  return page.evaluate(() => window.result);
}
async function timeAnswer(page, key) {
  await pause(60);  // so long as the fastest fingers; the frame of the key before is painted by then
  await page.evaluate(() => void (window.result = window.answered()));
  await press(page, key);
  return page.evaluate(() => window.result);
}

async function ready() {
  const times = [];
  for (let i = 0; i < 5; ++i) {
    const { page, close } = await newPage();
    await page.goto(server.address, { waitUntil: "domcontentloaded" });
    await until(page, "the cover", () => [...document.querySelectorAll(".window img")].some((one) => one.complete && one.naturalWidth));
    times.push(await page.evaluate(() => performance.now()));
    await close();
  }
  report("address to the opening message, not cached", times, 1000);
}

async function quadrants() {
  const times = [];
  for (let i = 0; i < 5; ++i) {
    const { page, close } = await newPage();
    await toNotebook(page, server.address);
    await press(page, "Enter");
    await until(page, "the designer", () => document.body.innerText.includes("Independent Variables"));
    await pause(200);
    times.push(await timeKey(page, "Enter", () => document.querySelector(".child svg") && document.querySelectorAll(".child td").length > 40));
    await close();
  }
  report("designer OK to four painted quadrants", times, 100);
}

async function sheet() {
  const { page, close } = await newPage();
  await toEditor(page, server.address);
  const rows = Array.from({ length: 500 }, (_, i) => Array.from({ length: 50 }, (_, j) => ((i * 7919 + j * 104729) % 9973) / 10));
  const text = rows.map((row) => row.join("\t")).join("\n");
  await copyBeside(page, text);
  await press(page, "ArrowRight");
  await pause(300);
  const time = await timeKey(page, "Control+v", (value) => [...document.querySelectorAll("td")].some((cell) => cell.textContent.startsWith(value)), "791.9");
  report("paste of 500 x 50 cells", [time], 200);
  await pause(1000);
  const moves = [];
  for (let i = 0; i < 40; ++i) moves.push(await timeAnswer(page, i % 2 ? "ArrowUp" : "ArrowDown"));
  report("arrow key in the full sheet", moves, 8);
  const opens = [];
  for (let i = 0; i < 20; ++i) {
    opens.push(await timeAnswer(page, "7"));
    await press(page, "Escape");
    await until(page, "the closed cell", () => document.querySelector(".grid-line.closed"));
  }
  report("letter that opens a cell in the full sheet", opens, 8);
  const entries = [];
  for (let i = 0; i < 20; ++i) {
    await page.keyboard.type("7");
    await until(page, "the open cell", () => document.querySelector(".grid-line:not(.closed)"));
    entries.push(await timeAnswer(page, "Enter"));
  }
  report("Return that enters a value in the full sheet", entries, 8);
  await close();
}

async function typing() {
  const { page, close } = await newPage();
  await toEditor(page, server.address);
  const letters = Array.from({ length: 2000 }, (_, i) => String((i * 7 + (i >> 3)) % 10)).join("");
  // The last ones may still wait for their turn.
  await page.keyboard.type(letters);
  await pause(2000);
  const cell = await page.$eval(".grid-line", (line) => line.value);
  await press(page, "Escape");
  await press(page, "Alt+t");
  await until(page, "the title", () => document.activeElement.matches("input.box"));
  await page.keyboard.type(letters);
  await pause(500);
  const title = await page.$eval("input.box", (box) => box.value);
  await close();
  console.log(`2,000 letters typed: cell ${cell === letters ? "whole" : `lost, has ${cell.length}`}, title ${title === letters ? "whole" : `lost, has ${title.length}`}`);
}

// In a list each letter leads to the next entry that begins so, from the last one to the first.
async function list() {
  const { page, close } = await newPage();
  await toNotebook(page, server.address);
  await press(page, "ArrowRight", "ArrowRight", "Tab", "Enter");
  await until(page, "the examples", () => [...document.querySelectorAll("input[type=radio]")].some((one) => one.checkVisibility()));
  await press(page, "Tab", "ArrowDown", "Enter");
  await until(page, "the designer", () => document.body.innerText.includes("Independent Variables"));
  await press(page, "Enter");
  await atWindow(page, "Hint");
  await press(page, "Enter", "F6", "Alt+d", "s", "1", "F6", "F6", "F6", "F6", "Shift+Tab");
  await until(page, "the list", () => document.activeElement.matches("select"));
  const wanted = await page.evaluate(() => {
    const { options, selectedIndex } = document.activeElement;
    const next = [...options].slice(selectedIndex + 1).concat([...options].slice(0, selectedIndex + 1));
    const begun = next.map(({ text }) => text).filter((text) => text.startsWith("E"));
    return begun[(2000 - 1) % begun.length];
  });
  await page.keyboard.type("e".repeat(2000));
  await pause(1500);
  const shown = () => page.evaluate(() => document.activeElement.selectedOptions[0].text);
  const afterMany = await shown();
  await Promise.all([..."ex"].map((letter) => page.keyboard.press(letter)));  // the second before the first is answered
  await pause(500);
  const afterWord = await shown();
  await close();
  console.log(`2,000 letters typed into a list: ${afterMany === wanted ? "all counted" : `lost, at ${afterMany}`}; a word: ${afterWord === "Examinat" ? "found" : `lost, at ${afterWord}`}`);
}

console.log(`${name}, load ${loadavg()[0].toFixed(1)} at the start`);
try {
  for (const measure of [ready, quadrants, sheet, typing, list]) await measure().catch((error) => console.log(`${measure.name}: ${error.message}`));
} finally {
  console.log(`load ${loadavg()[0].toFixed(1)} at the end`);
  await browser.close();
  server.stop();
}
