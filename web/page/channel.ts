// The page's end of the line to the program, which runs in a worker.
import { newRing, RingWriter } from "../ring.js";

export interface Channel {
  send(text: string): void;
  onMessage(take: (text: string) => void): void;
}

// Starts the program. What it says before somebody listens is kept for them.
export function openChannel(): Channel {
  const shared = newRing();
  const ring = new RingWriter(shared);
  const kept: string[] = [];
  let take = (text: string): void => void kept.push(text);
  const worker = new Worker("worker.js");
  worker.onmessage = ({ data }: MessageEvent<string | null>) => {
    if (data === null) ring.pump();
    else take(data);
  };
  worker.postMessage(shared);
  return {
    send: (text) => ring.send(text),
    onMessage: (taker) => {
      take = taker;
      kept.splice(0).forEach(taker);
    },
  };
}
