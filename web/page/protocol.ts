// What the program in the worker and the page say to each other.
//
// The program sends one batch, a JSON array of orders, whenever it is about to wait. The page
// sends one message for each thing the user does: fields joined by U+001F, the first one its kind.
// Texts are Unicode without U+001F; lengths are CSS pixels, places relative to the container.
//
// A batch tells how many messages the program had taken when it was made ("seen"). What the user
// typed since is not in it: a text the page has sent later than that goes before the batch's.

export interface Batch {
  seen: number;
  orders: Order[];
}

export type Order =
  | NodeOrder // a window or control, as it is now or what of it has changed
  | { do: "gone"; id: number } // with all that stands in it
  | { do: "stack"; windows: number[]; open: number; active: number } // those that are no children, from the lowest: from which on they take input; the one that has the keys
  | { do: "focus"; id: number; marks?: boolean } // 0: none; marks: all of a single line
  | { do: "keys"; keys: KeyChord[] } // that the focus, its window, frame and menu take now
  | { do: "menu"; window: number; entries: MenuEntry[] } // a window's menu bar
  | { do: "entry"; id: number; enabled: boolean; checked: boolean; checkable: boolean }
  | { do: "popup"; window: number; entries: MenuEntry[] } // at the pointer, or where a key asked
  | { do: "open"; ask: number; title: string; kinds: FileKind[] }
  | { do: "save"; ask: number; title: string; kinds: FileKind[]; name: string }
  | { do: "download"; name: string; address: string }
  | { do: "print"; title: string; html: string }
  | { do: "clipboard"; text: string; html: string; svg: string; cells: string }
  | { do: "scroll"; id: number; key: number } // a text, as if that key had been pressed in it
  | { do: "tell"; id: number; words: string } // beside a control, for a while; empty: at once no more
  | { do: "tip"; id: number; words: string } // the answer to "hover"
  | { do: "busy"; on: boolean }
  | { do: "beep" }
  | { do: "read"; in: "help" | "kept"; title: string; html: string; anchor: string; back: boolean; forward: boolean } // beside the windows
  | { do: "help-list"; name: string; options: string; at: number } // contents, or pages found, as HTML
  | { do: "help-asked"; searches: boolean } // by the program, not by a link: nothing is searched for yet
  | { do: "help-quit" } // the help window goes
  | { do: "document"; address: string } // to be opened in a tab of its own
  | { do: "visit"; ask: number; visit: string; address: string } // work to be kept; without an address: no more
  | { do: "ended"; status: number };

export interface FileKind { name: string; extensions: string[] } // without extensions: all files
export interface KeyChord { code: number; shift: Held; control: Held; alt: Held; leavesText: boolean } // not where it edits text
export type Held = 0 | 1 | 2; // any, must not be held, must be held
export interface MenuEntry {
  id: number; // 0: a line between entries
  caption: string; // HTML, with <u> around its letter
  enabled: boolean;
  checked: boolean;
  checkable: boolean;
  key: string; // "Ctrl+C", empty without
  pastes: boolean; // wants what the clipboard holds, which the page is to send before
  entries?: MenuEntry[];
}

export type Kind =
  | "window" | "label" | "button" | "textBox" | "checkBox" | "optionButton" | "comboBox" | "frame"
  | "panel" | "scrollBar" | "image" | "tabBook" | "outline" | "numberBox" | "grid" | "graph";

// Of a node that the page knows, only what has changed is there.
export interface NodeOrder extends Partial<Common>, Partial<OfWindow>, Partial<OfGrid> {
  do: "node";
  id: number;
  kind?: Kind; // there at the first time
  parent?: number; // 0 for a window that is no child of the frame
  html?: string; // of all but windows and grids: the element
  value?: string; // what the user may set: a text, a number, a place in a list, check box 0, 1, 2 (grey); of a graph what is to be read out
}

export interface Common {
  name: string; // in the program: "cmdOK", "lblText(3)"
  enabled: boolean;
  visible: boolean;
  tip: string;
  css: Record<string, string>; // place and look, by names of styles; empty: the usual one
  follows: boolean; // the pointer's moves are wanted
  // of windows and grids
  place: [number, number, number, number]; // left, top, width, height
  label: string; // what a screen reader says in place of the caption
  labelledBy: string; // or the element that names it
  description: string;
}

export interface OfWindow {
  caption: string;
  style: "dialog" | "bare" | "frame" | "child";
  modal: boolean;
  sizable: boolean;
  state: "normal" | "minimised" | "maximised";
  takesInput: boolean;
  least: [number, number]; // its inside is at least so large, and scrolls
  foot: number; // a frame's strip below; a dialog's: what begins there stays in view, -1 without
  active: number; // of a frame: its active child
  box: "none" | "critical" | "question" | "exclamation" | "information"; // of a message box: its icon
  closes: boolean; // can it be closed without an answer?
}

export interface OfGrid {
  table: Part; // attributes of the whole; its cells are told by row
  cells: { at: number; before: number; part: Part }[]; // rows that read otherwise, before which they stand
  gone: number[]; // rows that are not there any more
  frames: Part[];
  line: Part; // in which the user types
  edit: GridEdit | null; // the open one
  scroll: [number, number];
  cursor: string;
  spoken: string; // to be read out: the current row of a table
}

// An element of the document as the program tells it; further members are its attributes.
export interface Part {
  [attribute: string]: string | number | undefined | Part[];
  tag?: string;
  text?: string;
  style?: string;
  parts?: Part[];
}
export interface GridEdit {
  cell: string;
  text: string;
  first: number; // the mark in bytes of UTF-8
  length: number;
  keysMove: boolean; // arrows and their like are the program's, not the line's
  points: boolean; // with Shift, too
}

// --- from the page; booleans are "0" and "1"
//  size WIDTH HEIGHT BAR          the browser's window, and the thickness of a scroll bar
//  visit NAME SECONDS BASE64      unsaved work that was found in the browser's storage; all of them
//                                 before the first "size"
//  click ID                       button, link, entry of a menu; also one whose own menu opens
//  value ID NUMBER                check box, option, number box, scroll bar
//  choose ID INDEX                combo box, tab; an outline's item by the pointer
//  moveto ID INDEX                an outline's item by keys
//  expand ID INDEX ON             an outline's item
//  text ID TEXT FIRST LENGTH      the box's text, and what is marked in bytes of UTF-8
//  marked ID FIRST LENGTH
//  key CODE SHIFT CONTROL ALT     that comes to the focus and that the page does not use itself
//  keyup ID CODE SHIFT CONTROL ALT
//  focus ID                       the user has put it there by the pointer
//  mouse ID ACT BUTTON INSIDE     ACT: press, release, double, move; BUTTON: left, right
//  wheel ID LINES
//  point ID ACT X Y BUTTON SHIFT CONTROL   on a grid: press, double, move, release, rest (a drag goes on)
//  scrolled ID LEFT TOP WIDTH HEIGHT  what shows of a grid
//  type ID TEXT                   letters where no line is open
//  edit ID TEXT FIRST LENGTH      the open line
//  editmark ID FIRST LENGTH
//  leave ID                       the open line has lost the focus to something else
//  graph ID ACT X Y SHIFT CONTROL     press, drag, release (inside), drop (outside); from the lower left
//  hover ID X Y                   the pointer rests: a grid wants pixels, a graph its units
//  close ID, move ID X Y, resize ID WIDTH HEIGHT, state ID normal|maximised, activate ID
//  answer ASK NUMBER              of a visit 1, or 0 and the reason
//  chosen ASK KIND NAME BASE64    a file that was opened; to save, without BASE64
//  given-up ASK
//  paste TEXT HTML CELLS          what the clipboard holds; before the key or entry that wants it
//  drop COUNT (NAME BASE64)...    files let fall on the page; addresses: "address TEXT"
//  help LINK | help-search WORDS | kept PAGE   "back" and "forward" are links, too
//
// Alt with a letter: the chords of "keys" come before the letters of menus and controls.
