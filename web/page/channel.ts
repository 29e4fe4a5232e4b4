// The page's end of the line to the program, which runs in a worker.
import { Line, newPlace } from "../line.js";

export interface Channel {
  send(text: string): void;
  onMessage(take: (text: string) => void): void;
}

// Starts the program, which waits for the page's first message.
export function openChannel(): Channel {
  const shared = newPlace();
  const line = new Line(shared);
  let take: (text: string) => void;
  const worker = new Worker("worker.js");
  worker.onmessage = ({ data }: MessageEvent<string | null>) => {
    if (data === null) line.pump();
    else take(data);
  };
  worker.postMessage(shared);
  return { send: (text) => line.send(text), onMessage: (taker) => void (take = taker) };
}
