// The worker's start: takes the ring from the page, lays the course where the program looks for it,
// and runs the program, which stays in its main loop. To the page go texts, and null where there is
// room in the ring again.
import { RingReader } from "./ring.js";

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

function lay(course: Course, files: Files): void {
  for (const [path, text] of Object.entries(course)) {
    const place = `/zelmar/${path}`;
    files.mkdirTree(place.slice(0, place.lastIndexOf("/")));
    files.writeFile(place, text);
  }
}

async function start(shared: SharedArrayBuffer): Promise<void> {
  const ring = new RingReader(shared, () => postMessage(null));
  importScripts("tolmer.js");
  const [answer, program] = await Promise.all([
    fetch("course.json"),
    createTolmer({ tolmerNext: (milliseconds: number) => ring.next(milliseconds) }),
  ]);
  lay((await answer.json()) as Course, program.FS);
  program.callMain([]);
}

onmessage = ({ data }: MessageEvent<SharedArrayBuffer>) =>
  void start(data).catch((fault) => setTimeout(() => { throw fault; })); // so that the page hears of it
