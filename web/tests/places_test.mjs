// Places in a text. Made of page/bytes.ts.
import assert from "node:assert";
import { test } from "node:test";
import { bytesBefore, placeOfByte } from "./bytes.mjs";

test("places in bytes are places in letters, also beyond the plane of the usual ones", () => {
  const text = "a\u00e9\u03c0\u540d\u{1f600}z";
  assert.equal(bytesBefore(text, text.length), 13);
  for (const place of [0, 1, 2, 3, 4, 6, 7]) assert.equal(placeOfByte(text, bytesBefore(text, place)), place);
  assert.equal(placeOfByte(text, 99), text.length);
});
