// The page's start. The program needs memory shared with its worker, which browsers give only to a
// page apart from others; a host that does not send the headers for it gets them from the service
// worker, which answers for the host from the second load on.
import { start } from "./page/page.js";

const note = document.getElementById("note")!;
const triedKey = "tolmer-loaded-again"; // and when
const patience = 10_000; // ms

function tell(text: string): void {
  note.textContent = text;
  note.hidden = false;
}

// Inside another page, one of its own is the way out.
function tellNotApart(): void {
  tell(
    "Tolmer cannot start here: this browser does not let the page share memory with its worker. " +
      "A private window may be the reason, or that the page is shown inside another one. " +
      "Loading the page once more may help. ",
  );
  if (window.top === window) return;
  const link = document.createElement("a");
  Object.assign(link, { href: location.href, target: "_blank", rel: "noopener", textContent: "Open Tolmer in a tab of its own" });
  note.append(link);
}

async function serveFromHere(): Promise<void> {
  await navigator.serviceWorker.register("service-worker.js");
  await navigator.serviceWorker.ready;
}

// A load that did not help is not tried again at once. A reload past all caches, which passes the
// service worker by, comes here, too.
async function loadApart(): Promise<void> {
  const tried = Number(sessionStorage.getItem(triedKey) ?? 0);
  if (!("serviceWorker" in navigator) || Date.now() - tried < patience)
    return tellNotApart();
  await serveFromHere();
  sessionStorage.setItem(triedKey, String(Date.now()));
  location.reload();
}

window.addEventListener("error", (event) => tell(`Tolmer has broken down: ${event.message}`));
window.addEventListener("unhandledrejection", (event) => tell(`Tolmer cannot start: ${event.reason}`));

if (!crossOriginIsolated) {
  void loadApart();
} else {
  sessionStorage.removeItem(triedKey);
  note.hidden = true;
  start();
  if ("serviceWorker" in navigator) serveFromHere().catch(() => undefined); // it runs without, too
}
