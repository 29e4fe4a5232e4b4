// Work written aside in the browser's own storage, so that a tab that goes costs seconds.
//
// Each work belongs to one tab at a time: a lock of its name, which the browser lets go with the tab.
import { base64Of, bytesOfBase64 } from "./bytes.js";
import { download } from "./files.js";
import { notice, reasonOf } from "./notice.js";
import type { Screen } from "./page.js";
import type { Order } from "./protocol.js";

interface Work { key: string; seconds: number; bytes: Uint8Array; aside?: boolean }
type VisitOrder = Extract<Order, { do: "visit" }>;

const lockOf = (key: string) => `tolmer visit ${key}`;

export class Visits {
  private readonly tab = crypto.randomUUID();
  private readonly held = new Map<string, () => void>(); // by key: to let go
  private readonly lost = new Set<string>(); // keys that the program knows by themselves

  constructor(private readonly database: IDBDatabase) {}

  static open(): Promise<Visits> {
    return new Promise((take, refuse) => {
      const request = indexedDB.open("tolmer", 1);
      request.onupgradeneeded = () => request.result.createObjectStore("visits", { keyPath: "key" });
      request.onsuccess = () => take(new Visits(request.result));
      request.onerror = () => refuse(request.error);
    });
  }

  // All work whose tabs are gone, the newest first, now this tab's.
  async takeLost(): Promise<Work[]> {
    const all = (await this.work<Work[]>("readonly", (store) => store.getAll())).filter((work) => !work.aside);
    const taken: Work[] = [];
    for (const work of all) if (await this.hold(work.key)) taken.push(work);
    for (const { key } of taken) this.lost.add(key);
    return taken.sort((one, other) => other.seconds - one.seconds);
  }

  // Two tabs may give their work the same name.
  private keyOf(name: string): string { return this.lost.has(name) ? name : `${name} ${this.tab}`; }

  async write(name: string, bytes: Uint8Array): Promise<void> {
    const key = this.keyOf(name);
    await this.hold(key);
    await this.work("readwrite", (store) => store.put({ key, seconds: Math.floor(Date.now() / 1000), bytes }));
  }

  async remove(name: string): Promise<void> {
    const key = this.keyOf(name);
    await this.work("readwrite", (store) => store.delete(key));
    this.letGo(key);
  }

  // It stays and is found no more; so that the user has it, too, it is handed over.
  async putAside(name: string): Promise<void> {
    const key = this.keyOf(name);
    const work = await this.work<Work | undefined>("readonly", (store) => store.get(key));
    if (!work) return;
    await this.work("readwrite", (store) => store.put({ ...work, aside: true }));
    this.letGo(key);
    download(`${name}.zmm`, "application/octet-stream", work.bytes);
  }

  private letGo(key: string): void {
    this.held.get(key)?.();
    this.held.delete(key);
  }

  // Whether the work is this tab's from now on.
  private hold(key: string): Promise<boolean> {
    if (this.held.has(key)) return Promise.resolve(true);
    return new Promise((tell, refuse) => {
      const hold = (lock: Lock | null) => {
        tell(lock !== null);
        return lock ? new Promise<void>((letGo) => this.held.set(key, letGo)) : undefined;
      };
      navigator.locks.request(lockOf(key), { ifAvailable: true }, hold).catch(refuse);
    });
  }

  private work<Result>(mode: IDBTransactionMode, act: (store: IDBObjectStore) => IDBRequest): Promise<Result> {
    return new Promise((take, refuse) => {
      // On the disk, and not only on its way there, when it is said to be written.
      const transaction = this.database.transaction("visits", mode, { durability: "strict" });
      const request = act(transaction.objectStore("visits"));
      transaction.oncomplete = () => take(request.result as Result);
      transaction.onabort = transaction.onerror = () => refuse(transaction.error ?? request.error);
    });
  }
}

// To be called before the program hears how large the page is, since with that it starts.
export async function serveVisits(screen: Screen): Promise<void> {
  const visits = await Visits.open().catch((error: unknown) => reasonOf(error));
  screen.on("visit", (order) => void obey(screen, visits, order));
  if (typeof visits === "string") return;
  try {
    for (const { key, seconds, bytes } of await visits.takeLost())
      screen.send("visit", key, seconds, await base64Of(new Blob([bytes])));
  } catch (error) {
    notice(`Unsaved work of earlier visits cannot be looked for: ${reasonOf(error)}`);
  }
}

async function obey(screen: Screen, visits: Visits | string, { ask, act, visit, base64 }: VisitOrder): Promise<void> {
  try {
    if (typeof visits === "string") throw new Error(`The browser refuses its storage: ${visits}`);
    if (act === "write") await visits.write(visit, bytesOfBase64(base64));
    else if (act === "remove") await visits.remove(visit);
    else await visits.putAside(visit);
    screen.send("answer", ask, 1);
  } catch (error) {
    const isFull = error instanceof DOMException && error.name === "QuotaExceededError";
    screen.send("answer", ask, 0, isFull ? "The browser's storage is full." : reasonOf(error));
  }
}
