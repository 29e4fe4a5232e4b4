// Keys typed ahead of the program's answers. keys.mjs is made of page/keys.ts.
import assert from "node:assert";
import { test } from "node:test";

const heard = {};
const hear = (kind, take) => (heard[kind] = take);
Object.assign(globalThis, {
  window: { addEventListener: hear, setTimeout: () => 0 },
  document: { addEventListener: hear, activeElement: null },
  HTMLTextAreaElement: class {}, HTMLInputElement: class {}, HTMLSelectElement: class {}, HTMLElement: class {}, Element: class {},
});
if (!globalThis.navigator) globalThis.navigator = { platform: "" };
const { Keys } = await import("./keys.mjs");

// A program that answers when it is told to; a dialog with a button comes at the first Return.
function setUp() {
  const sent = [];
  const line = Object.assign(new HTMLInputElement(), { value: "", closest: () => null, matches: () => false });
  const screen = {
    unanswered: 0, sent,
    waits: () => screen.unanswered > 0,
    send: (kind, ...fields) => { sent.push([kind, ...fields].join(" ")); screen.unanswered++; },
    nodes: new Map(), tips: { hide() {} }, menus: { isOpen: () => false, letter: () => false },
    windows: { active: () => ({ view: {} }), focusedNode: () => undefined },
  };
  document.execCommand = (command, _, text) => (line.value = command === "delete" ? line.value.slice(0, -1) : line.value + text);
  document.activeElement = line;
  return { screen, sent, line, keys: new Keys(screen) };
}
const codes = { Enter: 13, Tab: 9, Backspace: 8, ArrowDown: 40, F5: 116, F6: 117 };
function press(key, more = {}) {
  const event = { key, keyCode: codes[key] ?? key.toUpperCase().charCodeAt(0), shiftKey: false, ctrlKey: false, altKey: false, repeat: false, isComposing: false, getModifierState: () => false, defaultPrevented: false,
                  preventDefault() { this.defaultPrevented = true; }, ...more };
  heard.keydown(event);
  return event;
}

test("A letter behind a key that has no answer yet waits for it, and stands in the line in its order", () => {
  const { screen, sent, line, keys } = setUp();
  assert.equal(press("a").defaultPrevented, false); // the browser's own
  press("Enter");
  for (const key of ["b", "c", "Backspace", "d", "Tab", "e"]) assert.ok(press(key).defaultPrevented);
  assert.deepEqual([sent.length, line.value], [1, ""]);
  screen.unanswered = 0;
  keys.replay();
  assert.deepEqual([sent, line.value], [["key 13 false false false", "key 9 false false false"], "bd"]);
  screen.unanswered = 0;
  keys.replay();
  assert.equal(line.value, "bde");
});

test("A held arrow does not go on after it was let go; a held letter is text", () => {
  const { screen, line, keys } = setUp();
  press("Enter");
  for (let i = 0; i < 5; ++i) press("ArrowDown", { repeat: true });
  for (let i = 0; i < 3; ++i) press("x", { repeat: true });
  screen.unanswered = 0;
  keys.replay();
  assert.equal(line.value, "xxx");
});

test("A key that the program takes is told, any other combination stays the browser's", () => {
  const { sent, keys } = setUp();
  keys.chords = [{ code: 117, shift: 1, control: 0, alt: 1 }];
  assert.ok(!press("F6", { shiftKey: true }).defaultPrevented && !press("F5").defaultPrevented);
  assert.ok(press("F6", { ctrlKey: true }).defaultPrevented);
  assert.deepEqual(sent, ["key 117 false true false"]);
});
