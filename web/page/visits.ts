// Work written aside in the browser's own storage, so that a tab that goes costs seconds.
import { borrow, lend } from "./bytes.js";
import { notice, reasonOf } from "./notice.js";
import type { Screen } from "./page.js";
import type { Order } from "./protocol.js";

interface Work { key: string; seconds: number; bytes: Uint8Array }

function openStorage(): Promise<IDBDatabase> {
  return new Promise((take, refuse) => {
    const request = indexedDB.open("tolmer", 1);
    request.onupgradeneeded = () => request.result.createObjectStore("visits", { keyPath: "key" });
    request.onsuccess = () => take(request.result);
    request.onerror = () => refuse(request.error);
  });
}

function inStorage<Result>(database: IDBDatabase, mode: IDBTransactionMode, act: (store: IDBObjectStore) => IDBRequest): Promise<Result> {
  return new Promise((take, refuse) => {
    // On the disk, and not only on its way there, when it is said to be written.
    const transaction = database.transaction("visits", mode, { durability: "strict" });
    const request = act(transaction.objectStore("visits"));
    transaction.oncomplete = () => take(request.result as Result);
    transaction.onabort = transaction.onerror = () => refuse(transaction.error ?? request.error);
  });
}

// Each work belongs to one tab, which holds the lock of its name until the tab goes. Whether this one
// has got it now.
function hold(key: string): Promise<boolean> {
  return new Promise((tell, refuse) => {
    const hold = (lock: Lock | null) => {
      tell(lock !== null);
      return lock && new Promise(() => {});
    };
    navigator.locks.request(`tolmer visit ${key}`, { ifAvailable: true }, hold).catch(refuse);
  });
}

async function keep(screen: Screen, storage: Promise<IDBDatabase>, { ask, visit, address }: Extract<Order, { do: "visit" }>): Promise<void> {
  try {
    const bytes = address ? await borrow(address) : undefined;
    const work = { key: visit, seconds: Math.floor(Date.now() / 1000), bytes };
    await hold(visit);
    await inStorage(await storage, "readwrite", (store) => (bytes ? store.put(work) : store.delete(visit)));
    screen.send("answer", ask, 1);
  } catch (error) {
    const isFull = error instanceof DOMException && error.name === "QuotaExceededError";
    screen.send("answer", ask, 0, isFull ? "The browser's storage is full." : `The browser refuses its storage: ${reasonOf(error)}`);
  }
}

// To be called before the program hears how large the page is, since with that it starts.
export async function serveVisits(screen: Screen): Promise<void> {
  const storage = openStorage();
  screen.on("visit", (order) => void keep(screen, storage, order));
  try {
    const all = await inStorage<Work[]>(await storage, "readonly", (store) => store.getAll());
    for (const { key, seconds, bytes } of all)
      if (await hold(key)) screen.send("visit", key, seconds, lend(bytes));
  } catch (error) {
    notice(`Unsaved work of earlier visits cannot be looked for: ${reasonOf(error)}`);
  }
}
