// The ring between two threads, as the page and the program have it. ring.mjs is made of ring.ts.
import assert from "node:assert";
import { test } from "node:test";
import { isMainThread, parentPort, Worker, workerData } from "node:worker_threads";
import { newRing, RingReader, RingWriter } from "./ring.mjs";

const texts = [];
for (let i = 0; i < 30000; ++i) texts.push("x".repeat((i * 7919) % 180) + i);
texts.push("", "π²\u001f名前 😀", "é".repeat(3_000_000), "end"); // three times the room

// Late, so that the writer fills the ring; then in haste.
function read() {
  const ring = new RingReader(workerData, () => parentPort.postMessage(null));
  const early = ring.next(5);
  parentPort.postMessage("ready");
  Atomics.wait(new Int32Array(new SharedArrayBuffer(4)), 0, 0, 300);
  const decoder = new TextDecoder();
  const got = texts.map(() => decoder.decode(ring.next(-1)));
  parentPort.postMessage({ early, got, late: ring.next(5) });
}

if (isMainThread) {
  test("every message arrives whole and in order, however many wait", { timeout: 60000 }, async () => {
    const shared = newRing();
    const ring = new RingWriter(shared);
    const worker = new Worker(new URL(import.meta.url), { workerData: shared });
    let room = 0;
    const told = await new Promise((resolve, reject) => {
      worker.on("error", reject);
      worker.on("message", (message) => {
        if (message === "ready") texts.forEach((text) => ring.send(text));
        else if (message === null) ++room, ring.pump();
        else resolve(message);
      });
    });
    assert.strictEqual(told.early, null, "nothing came in time");
    assert.deepStrictEqual(told.got, texts);
    assert.strictEqual(told.late, null);
    assert.ok(room > 0 && room < 200, `room was told ${room} times`);
  });
} else {
  read();
}
