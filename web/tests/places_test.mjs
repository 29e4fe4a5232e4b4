// Where a grid's rows and columns lie, and places in a text. Made of page/grid_axis.ts and page/bytes.ts.
import assert from "node:assert";
import { test } from "node:test";
import { bytesBefore, placeOfByte } from "./bytes.mjs";
import { Axis } from "./grid_axis.mjs";

// A heading of 20 pixels that stays, then 10 columns of 50 with their lines; the fourth is hidden.
const starts = [1, 22];
for (let i = 1; i <= 10; ++i) starts.push(starts[i] + (i === 4 ? 0 : 51));
const axis = new Axis(starts, 0);

test("a pixel belongs to what stands before its line, and a hidden one to nothing", () => {
  assert.deepEqual([0, 21, 22, 72, 73, 174, 175, 9999].map((pixel) => axis.at(pixel)), [0, 0, 1, 1, 2, 3, 5, 10]);
  assert.equal(axis.at(-5), 0);
  assert.deepEqual([axis.size(4), axis.total, axis.frozenEnd], [0, 22 + 9 * 51, 22]);
});

test("what is brought into view begins whole behind what stays, and moves no more than it must", () => {
  const room = 22 + 160;
  assert.equal(axis.scrolledTo(2, 0, room), 0);
  assert.equal(axis.scrolledTo(5, 0, room), 51); // its end would need 44, in the middle of the first
  assert.equal(axis.scrolledTo(1, 300, room), 0);
  assert.equal(axis.scrolledTo(0, 120, room), 120);
  assert.equal(axis.scrolledTo(9, 0, 22 + 30), axis.start(9) - 22); // larger than the room: its beginning
});

test("the document holds what stays, what shows and the active one", () => {
  const held = axis.inDocument(250, 22 + 60, 4, 1);
  assert.ok([0, 1, 6, 7].every((index) => held.includes(index)) && !held.includes(4));
});

test("places in bytes are places in letters, also beyond the plane of the usual ones", () => {
  const text = "a\u00e9\u03c0\u540d\u{1f600}z";
  assert.equal(bytesBefore(text, text.length), 13);
  for (const place of [0, 1, 2, 3, 4, 6, 7]) assert.equal(placeOfByte(text, bytesBefore(text, place)), place);
  assert.equal(placeOfByte(text, 99), text.length);
});
