// Keeps the whole program for use without a network, and gives every answer the headers that set the
// page apart (web/main.ts). A release differs in its version, which the build writes before this:
// it is loaded whole beside the old one and takes its place when no page shows that any more.
declare const version: string;
declare const files: string[]; // addresses below the page's
declare const headers: Record<string, string>;

const self_ = self as unknown as ServiceWorkerGlobalScope;
const ours = `tolmer ${self_.registration.scope} `;
const current = ours + version;

async function keep(): Promise<void> {
  const cache = await caches.open(current);
  await cache.addAll(files.map((file) => new Request(file, { cache: "no-cache" })));
}

// Pages that are open already are left to the host: a program that sleeps in its worker does not hear
// that it is claimed, and Firefox would let no further page load meanwhile.
async function dropOld(): Promise<void> {
  for (const name of await caches.keys())
    if (name.startsWith(ours) && name !== current) await caches.delete(name);
}

function apart(answer: Response): Response {
  if (answer.type === "opaque" || answer.status === 0) return answer;
  const with_ = new Headers(answer.headers);
  for (const [name, value] of Object.entries(headers)) with_.set(name, value);
  return new Response(answer.body, { status: answer.status, statusText: answer.statusText, headers: with_ });
}

// What is not kept from the start, the chapter text, is kept once it has been read.
async function answerTo(request: Request): Promise<Response> {
  const cache = await caches.open(current);
  const kept = await cache.match(request, { ignoreSearch: true });
  if (kept) return apart(kept);
  const answer = await fetch(request);
  if (answer.ok && answer.status === 200) await cache.put(request, answer.clone());
  return apart(answer);
}

self_.addEventListener("install", (event) => event.waitUntil(keep()));
self_.addEventListener("activate", (event) => event.waitUntil(dropOld()));
self_.addEventListener("fetch", (event) => {
  const { method, url } = event.request;
  if (method === "GET" && url.startsWith(self_.registration.scope)) event.respondWith(answerTo(event.request));
});
