// The worker's start: takes the line from the page, lays the course where the program looks for it,
// and runs the program, which stays in its main loop. To the page go texts, and null where the line
// is free again.
import { Line } from "./line.js";

interface Files {
  mkdirTree(folder: string): void;
  writeFile(path: string, text: string): void;
}
interface Program {
  FS: Files;
  callMain(words: string[]): number;
}
type Course = Record<string, string>; // texts by path from the root of the course

declare function importScripts(...addresses: string[]): void;
declare function createTolmer(settings: object): Promise<Program>; // in tolmer.js
declare function postMessage(message: string | null): void;

// What src/programs/tolmer_web.cpp asks: the answer's length, below zero without one, then itself.
class ProgramLine {
  answer = new Uint8Array();

  constructor(private readonly line: Line) {}
  next(milliseconds: number): number {
    const text = this.line.next(milliseconds);
    return text === null ? -1 : this.give(text);
  }
  lend(bytes: Uint8Array): number {
    return this.give(URL.createObjectURL(new Blob([bytes], { type: "application/octet-stream" })));
  }
  borrow(address: string): number {
    const request = new XMLHttpRequest();
    request.open("GET", address, false);
    request.responseType = "arraybuffer";
    try {
      request.send();
    } catch {
      return -1;
    }
    URL.revokeObjectURL(address);
    this.answer = new Uint8Array(request.response as ArrayBuffer);
    return this.answer.length;
  }
  private give(text: string): number {
    this.answer = new TextEncoder().encode(text);
    return this.answer.length;
  }
}

function lay(course: Course, files: Files): void {
  for (const [path, text] of Object.entries(course)) {
    const place = `/zelmar/${path}`;
    files.mkdirTree(place.slice(0, place.lastIndexOf("/")));
    files.writeFile(place, text);
  }
}

async function start(shared: SharedArrayBuffer): Promise<void> {
  importScripts("tolmer.js");
  const line = new ProgramLine(new Line(shared, () => postMessage(null)));
  const [answer, program] = await Promise.all([fetch("course.json"), createTolmer({ line })]);
  lay((await answer.json()) as Course, program.FS);
  program.callMain([]);
}

onmessage = ({ data }: MessageEvent<SharedArrayBuffer>) =>
  void start(data).catch((fault) => setTimeout(() => { throw fault; })); // so that the page hears of it
