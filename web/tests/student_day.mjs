// What a student does on a day, by keys alone: in the page of a site, whose tables, texts and files
// are compared with what the report program makes; and on the desktop, where a program is named,
// which takes the same keys and must have copied and saved the same.
//
//   node web/tests/student_day.mjs SITE TOLREPORT [BROWSER,... [TOLMER PICTURES]]
//
// The desktop needs a screen of 1280 x 800 with openbox, xdotool, xclip and ImageMagick.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { basename, join } from "node:path";
import { fileURLToPath } from "node:url";
import { pause, serve } from "./browsers.mjs";
import { DesktopHands, PageHands } from "./hands.mjs";

const [site, tolreport, browsers = "chromium,firefox", tolmer, pictures] = process.argv.slice(2);
const folder = mkdtempSync(join(tmpdir(), "tolmer-"));
const towns = join(folder, "towns.csv");
writeFileSync(towns, "Town;Size;Rent\nUlm;1;4,5\nRom;2;5\nOslo;3;7,25\nKiel;4;7\nBern;6;11\n");
const swiss = fileURLToPath(new URL("../../course/data/swiss.csv", import.meta.url));
const ownRows = [["Size", "Rent"], ["1", "4"], ["2", "5.5"], ["3", "7"], ["5", "9"], ["8", "16"]];

const report = (words, ...more) => execFileSync(tolreport, [...words, ...more], { maxBuffer: 1e8 });

// --- what the page shows, and what it should

const tables = { "Estimated Coefficients": "frmEstCoef", "ANOVA Table": "frmANOVA", "Residual List": "frmResidList" };
const graphs = { "Histogram of Residuals": "histogram", "Normality Plot for Residuals": "normality", "Scatter Plot 1": "plot1" };
const spoken = (html, id) => new RegExp(`<section id="${id}">[^]*?<p class="spoken">(.*?)</p>`).exec(html)[1];

// Numbers as they are shown are those values, rounded.
function agree(shown, values) {
  assert.equal(shown.length, values.length);
  shown.forEach((text, i) => assert.equal(text, values[i].toFixed(/\.(\d*)$/.exec(text)?.[1].length ?? 0)));
}

// All displays on the page against a report of the model; of a long table what shows of it.
async function expectShown(page, words) {
  const wanted = JSON.parse(report(words, "--format", "json")).displays;
  const html = report(words, "--format", "html", "--sections", "all").toString();
  const windows = await page.evaluate(() => [...document.querySelectorAll(".window.child")].filter((one) => one.checkVisibility()).map((window) => ({
    title: window.querySelector("h1").textContent,
    cells: [...window.querySelectorAll("td, th")].map((cell) => [cell.parentElement.ariaRowIndex - 1, cell.ariaColIndex - 1, cell.textContent]),
    description: window.querySelector(".graph")?.ariaDescription,
  })));
  assert.equal(windows.length, 4);
  for (const { title, cells, description } of windows) {
    if (title === "Control Panel") continue;
    assert(cells.length > 10 || description, `${title} is empty`);
    for (const [row, col, text] of cells) assert.equal(text, wanted[tables[title]].cells[row][col], `${title}, row ${row + 1}, column ${col + 1}`);
    if (description) assert.equal(description, spoken(html, graphs[title]));
  }
}

// What is asked may take its time.
async function eventually(ask) {
  for (const begin = Date.now(); ; await pause(200)) {
    try {
      return await ask();
    } catch (error) {
      if (Date.now() - begin > 20000) throw error;
    }
  }
}

// --- the day

class Day {
  kept = {}; // what was copied and saved, by name
  constructor(hands) { this.hands = hands; }
  get page() { return this.hands.page; }
  keys(...keys) { return this.hands.press(...keys); }
  async look(name) { if (pictures) await this.hands.look(join(pictures, `${name}-${this.hands.name}.png`)); }
  async at(title, name = title.toLowerCase().replaceAll(" ", "-")) {
    await this.hands.at(title);
    await this.look(name);
  }
  copied(test) {
    return eventually(async () => {
      const content = await this.hands.copied();
      assert(test(content.text), `copied: ${content.text.slice(0, 80)}`);
      return content;
    });
  }
  async shows(name, words) {
    if (this.page) await eventually(() => expectShown(this.page, words));
    await this.look(name);
  }

  async firstAnalysis() {
    await this.at("Notebook");
    await this.keys("ArrowRight", "ArrowRight", "Tab", "Enter", "Tab", "ArrowDown");
    await this.look("example");
    await this.keys("Enter");
    await this.at("Variable Selection");
    await this.keys("Enter");
    await this.at("Hint");
    await this.keys("Enter");
    await this.shows("quadrants", ["--example", "2"]);
  }
  async scatterPlot() {
    await this.keys("F6", "Alt+d", "s", "1", "F6", "F6", "F6", "F6", "Shift+Tab", "Shift+Tab", "Home", "Tab", "Home", "ArrowDown", "ArrowDown", "ArrowDown", "Alt+u");
    await this.shows("scatter-plot", ["--example", "2", "--plot", "1=Education:Fertility"]);
  }
  async twoDisplays() {
    await this.keys("F6", "F6", "Alt+d", "g", "n", "Shift+F6", "Alt+d", "t", "r");
    await this.shows("two-displays", ["--example", "2"]);
  }
  async copies() {
    await this.keys("Control+c");
    this.kept.table = await this.copied((text) => text.startsWith("Case"));
    await this.keys("Alt+d", "i", "Alt+e", "c");
    this.kept.interpretation = await this.copied((text) => text.startsWith("FITTED MODEL"));
    await this.look("interpretation");
    if (!this.page) return;
    const { displays } = JSON.parse(report(["--example", "2", "--format", "json"]));
    assert.equal(this.kept.table.text, displays.frmResidList.cells.map((row) => row.join("\t") + "\n").join(""));
    assert.equal(this.kept.interpretation.text.replaceAll("\r", ""), displays.frmInterpretation.text.replaceAll("\r", ""));
  }
  async otherModel() {
    await this.keys("Alt+d", "t", "a", "F6", "F6", "F6", "F6", "Alt+c");
    await this.hands.at("Variable Selection");
    await this.keys("Tab", "Tab", "Tab", "Tab", "Tab", "Tab", "ArrowDown", "Alt+m");
    await this.look("without-one");
    await this.keys("Enter");
    this.words = ["--example", "2", "--x", "Agricult,Education,Catholic,InfMort"];
    await this.shows("refit", this.words);
  }
  async savedReport() {
    await this.keys("Alt+f", "r");
    await this.at("Save Report");
    await this.keys("Enter");
    this.kept.report = (await this.hands.save("report.html", 1)).toString();
    assert.equal(this.kept.report, report([...this.words, "--format", "html", "--sections", "equation,interpretation,coefficients,anova,histogram", "--paper", "letter"]).toString());
  }
  async aCaseLeftOut() {
    await this.keys("Alt+x", "c", "Alt+f");
    await this.at("Case");
    if (this.page) {
      const lines = readFileSync(swiss, "utf8").trim().split("\n");
      const others = join(folder, "others.csv");
      writeFileSync(others, [lines[0], ...lines.slice(2)].join("\n"));
      const { sCoef, sCoefSE } = JSON.parse(report([others, "--labels", "Province", "--y", "Fertility", ...this.words.slice(2), "--format", "json"])).state;
      await eventually(async () => {
        const rows = await this.page.evaluate(() => [...document.querySelectorAll(".window.active .grid-table tr")].map((row) => [...row.cells].map((cell) => cell.textContent)));
        const first = rows.findIndex(([name]) => name === "Intercept");
        sCoef.forEach((_, i) => agree(rows[first + i].filter((_, at) => at === 2 || at === 4), [sCoef[i], sCoefSE[i]]));
      });
    }
    await this.keys("Escape");
  }
  async aPrediction() {
    await this.keys("Alt+x", "p", "Alt+n", "Backspace", "7", "Alt+a");
    await this.at("Predict");
    await this.keys("Alt+o");
    this.kept.predictions = await this.copied((text) => text.includes("Broye"));
    const wanted = JSON.parse(report([...this.words, "--predict", swiss, "--format", "json"])).predictions[6];
    const shown = this.kept.predictions.text.split("\n").find((line) => line.includes("Broye")).split("\t");
    agree(shown.slice(6, 11), [wanted.fit, wanted.meanLower, wanted.meanUpper, wanted.newLower, wanted.newUpper]);
    await this.keys("Escape");
  }
  async help() {
    await this.keys("F1");
    await this.at("Histogram of Residuals - Help", "help");
    await this.keys("Control+f");
    await this.hands.type("inflation");
    await this.keys("Enter");
    await this.hands.at("Variance Inflation Factors - Help");
    await this.keys("Alt+ArrowLeft");
    await this.hands.at("Histogram of Residuals - Help");
    await this.keys("Escape");
  }
  // On the desktop another program opens it.
  async worktext() {
    if (!this.page) return;
    await this.keys("Alt+f", "w");
    assert.equal(Buffer.from(await this.hands.opened()).subarray(0, 5).toString(), "%PDF-");
  }
  async ownData() {
    await this.keys("Alt+n");
    await this.hands.at("Notebook");
    await this.keys("ArrowRight", "ArrowRight", "Enter");
    await this.hands.at("Data Editor");
    await this.keys("ArrowUp", "ArrowRight");
    for (const [size, rent] of ownRows) {
      await this.hands.type(size);
      await this.keys("Tab");
      await this.hands.type(rent);
      await this.keys("Enter");
    }
    await this.look("editor");
    await this.keys("Control+s");
    const own = await this.hands.save("own.zmm");
    this.kept.own = own.toString();
    await this.fitRentOnSize(join(folder, "own.zmm"), own);
  }
  async importedText() {
    await this.keys("F6", "F6", "F6", "Alt+e");
    await this.hands.at("Data Editor");
    await this.keys("Control+o");
    await this.hands.open(towns);
    await this.at("Bring in Data", "import");
    await this.keys("Enter");
    await this.hands.at("Data Editor");
    await this.keys("Control+s");
    await this.fitRentOnSize(join(folder, "towns.zmm"), await this.hands.save("towns.zmm"));
  }
  async fitRentOnSize(file, bytes) {
    writeFileSync(file, bytes);
    await this.keys("Alt+f", "u");
    await this.hands.at("Variable Selection");
    await this.keys("ArrowDown", "Alt+c", "ArrowUp", "Alt+o");
    await this.look(`model-of-${basename(file)}`);
    await this.keys("Enter");
    await this.shows(`fit-of-${basename(file)}`, [file, "--y", "Rent", "--x", "Size"]);
  }
}

async function doDay(hands, address) {
  const day = new Day(hands);
  await hands.start(address);
  try {
    for (const part of ["firstAnalysis", "scatterPlot", "twoDisplays", "copies", "otherModel", "savedReport", "aCaseLeftOut", "aPrediction", "help", "worktext", "ownData", "importedText"]) {
      try {
        await day[part]();
      } catch (error) {
        if (pictures) await hands.look(join(pictures, `failed-${hands.name}.png`));
        throw new Error(`${hands.name}, ${part}: ${error.message}`);
      }
    }
    console.log(`${hands.name}: ${hands.count} keys`);
    return day.kept;
  } finally {
    await hands.end();
  }
}

if (pictures) mkdirSync(pictures, { recursive: true });
const server = await serve(site, 8379);
let status = 0;
try {
  const all = [];
  const hands = browsers.split(",").filter(Boolean).map((name) => new PageHands(name));
  if (tolmer) hands.push(new DesktopHands(tolmer));
  for (const one of hands) all.push(await doDay(one, server.address));
  for (const kept of all.slice(1))
    for (const name in kept) assert(JSON.stringify(kept[name]) === JSON.stringify(all[0][name]), `${name} differs`);
} catch (error) {
  console.log(error.stack);
  status = 1;
} finally {
  server.stop();
  rmSync(folder, { recursive: true });
}
process.exit(status);
