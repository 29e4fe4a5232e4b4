// The line between two threads, as the page and the program have it. line.mjs is made of line.ts.
import assert from "node:assert";
import { test } from "node:test";
import { isMainThread, parentPort, Worker, workerData } from "node:worker_threads";
import { Line, newPlace } from "./line.mjs";

const texts = [];
for (let i = 0; i < 30000; ++i) texts.push("x".repeat((i * 7919) % 180) + i);
texts.push("", "π²\u001f名前 😀", "é😀".repeat(1_000_000), "end"); // six times the room

// Late, so that much waits; then in haste.
function read() {
  const line = new Line(workerData, () => parentPort.postMessage(null));
  const early = line.next(5);
  parentPort.postMessage("ready");
  Atomics.wait(new Int32Array(new SharedArrayBuffer(4)), 0, 0, 300);
  const got = [];
  while (got.length < texts.length) {
    const text = line.next(-1);
    if (text !== null) got.push(text);
  }
  parentPort.postMessage({ early, got, late: line.next(5) });
}

if (isMainThread) {
  test("every message arrives whole and in order, however many wait", { timeout: 60000 }, async () => {
    const shared = newPlace();
    const line = new Line(shared);
    const worker = new Worker(new URL(import.meta.url), { workerData: shared });
    const told = await new Promise((resolve, reject) => {
      worker.on("error", reject);
      worker.on("message", (message) => {
        if (message === "ready") texts.forEach((text) => line.send(text));
        else if (message === null) line.pump();
        else resolve(message);
      });
    });
    assert.strictEqual(told.early, null, "nothing came in time");
    assert.deepStrictEqual(told.got, texts);
    assert.strictEqual(told.late, null);
  });
} else {
  read();
}
