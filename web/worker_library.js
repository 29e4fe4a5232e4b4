// What the program in the worker calls: its side is src/programs/tolmer_web.cpp, and worker.ts gives
// tolmerNext.
mergeInto(LibraryManager.library, {
  tolmer_post: function (text, length) {
    postMessage(UTF8ToString(text, length));
  },
  tolmer_wait__deps: ["malloc"],
  tolmer_wait: function (milliseconds) {
    var message = Module["tolmerNext"](milliseconds);
    if (!message) return 0;
    var text = _malloc(message.length + 1);
    HEAPU8.set(message, text);
    HEAPU8[text + message.length] = 0;
    return text;
  },
});
