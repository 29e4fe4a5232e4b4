// The report program in browsers makes the same JSON as elsewhere, byte for byte: all shipped data
// sets, each of two variables dependent, and all examples, with and without an intercept.
//
//   node web/tests/report_checks.mjs SITE REPORT_PAGE TOLREPORT [BROWSER,...]
//
// SITE: for its course.json; REPORT_PAGE: the folder of web_report.js; TOLREPORT: the program to
// compare with.
import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import { cpSync, mkdtempSync, readdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { fileURLToPath } from "node:url";
import { launch, serve } from "./browsers.mjs";

const [site, reportPage, tolreport, browsers = "chromium,firefox"] = process.argv.slice(2);
const data = fileURLToPath(new URL("../../course/data/", import.meta.url));
const native = (words) => spawnSync(tolreport, [...words, "--format", "json"], { maxBuffer: 1e8 });

function* models() {
  for (const name of readdirSync(data).filter((name) => name.endsWith(".csv"))) {
    const [heads, first] = readFileSync(data + name, "utf8").split("\n").map((line) => line.trim().split(","));
    const labels = Number.isNaN(Number(first[0])) ? ["--labels", heads.shift()] : [];
    for (const y of [heads[0], heads.at(-1)]) yield [data + name, ...labels, "--y", y];
  }
  yield ["--default"];
  for (let n = 1; native(["--example", String(n)]).status === 0; ++n) yield ["--example", String(n)];
}

async function prepare(page, address) {
  await page.goto(address);
  await page.addScriptTag({ url: `${address}web_report.js` });
  await page.evaluate(async () => {
    const course = await (await fetch("course.json")).json();
    const errors = [];
    const program = await createReport({ printErr: (line) => errors.push(line), noExitRuntime: true });
    for (const [path, text] of Object.entries(course)) {
      const place = `/zelmar/${path}`;
      program.FS.mkdirTree(place.slice(0, place.lastIndexOf("/")));
      program.FS.writeFile(place, text);
    }
    window.report = (words) => {
      const status = program.callMain([...words, "--program-folder", "/zelmar/tolmod", "-o", "/report.json"]);
      return status === 0 ? program.FS.readFile("/report.json", { encoding: "utf8" }) : `${status}: ${errors.at(-1)}`;
    };
  });
}

const folder = mkdtempSync(join(tmpdir(), "tolmer-"));
for (const name of readdirSync(reportPage)) cpSync(join(reportPage, name), join(folder, name));
cpSync(join(site, "course.json"), join(folder, "course.json"));
writeFileSync(join(folder, "headers.json"), "{}");
writeFileSync(join(folder, "index.html"), "<!DOCTYPE html><title>Reports</title>");
const server = await serve(folder, 8380);
let different = 0;
try {
  for (const name of browsers.split(",")) {
    const browser = await launch(name);
    const page = await browser.newPage();
    await prepare(page, server.address);
    let count = 0;
    for (const model of models())
      for (const intercept of [[], ["--no-intercept"]]) {
        const wanted = native([...model, ...intercept]);
        const inPage = model.map((word) => word.replace(data, "/zelmar/data/"));
        const made = await page.evaluate((words) => window.report(words), [...inPage, ...intercept, "--format", "json"]);
        ++count;
        if (wanted.status === 0 ? made === wanted.stdout.toString() : made.startsWith(`${wanted.status}: `)) continue;
        ++different;
        console.log(`${name}, different: ${[...model, ...intercept].join(" ")}\n  ${made.slice(0, 200)}`);
      }
    assert(count > 100);
    console.log(`${name}: ${count} reports, ${different} different`);
    await browser.close();
  }
} finally {
  server.stop();
  rmSync(folder, { recursive: true });
}
process.exit(different > 0 ? 1 : 0);
