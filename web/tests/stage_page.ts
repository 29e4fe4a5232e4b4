// The page on a stage: its program runs outside the browser.
import { Screen } from "../page/page.js";

const sent: string[] = [];
let take: (text: string) => void = () => undefined;
Object.assign(window, {
  stageTake: (text: string) => take(text),
  stageSent: () => sent.splice(0),
});
new Screen({ send: (text) => void sent.push(text), onMessage: (taker) => (take = taker) }).windows.tellSize();
