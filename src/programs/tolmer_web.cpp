// The desktop program's twin for a browser: the same windows, shown by a page. It runs in a worker.
#include <emscripten.h>

#include <filesystem>
#include <string>

#include "platform/web/web_desktop.h"
#include "sheetfiles/autosave_store.h"
#include "shell/module.h"

// Module.line is of web/worker.ts. An answer's length is below zero where there is none.
EM_JS(void, tolmer_post, (const char* text, int length),
      { postMessage(UTF8ToString(text, length)); });
EM_JS(int, tolmer_next, (double milliseconds), { return Module.line.next(milliseconds); });
EM_JS(int, tolmer_lend, (const char* bytes, int length),
      { return Module.line.lend(HEAPU8.slice(bytes, bytes + length)); });
EM_JS(int, tolmer_borrow, (const char* address),
      { return Module.line.borrow(UTF8ToString(address)); });
EM_JS(void, tolmer_answer, (char* to), { HEAPU8.set(Module.line.answer, to); });

namespace {

std::optional<std::string> answer(int length) {
  if (length < 0) return std::nullopt;
  std::string bytes(static_cast<std::size_t>(length), '\0');
  tolmer_answer(bytes.data());
  return bytes;
}

class WorkerLine : public tolmer::PageLine {
 public:
  void post(const std::string& batch) override {
    tolmer_post(batch.data(), static_cast<int>(batch.size()));
  }
  std::optional<std::string> next(double milliseconds) override {
    return answer(tolmer_next(milliseconds));
  }
  std::string lend(std::string_view bytes) override {
    return *answer(tolmer_lend(bytes.data(), static_cast<int>(bytes.size())));
  }
  std::optional<std::string> borrow(const std::string& address) override {
    return answer(tolmer_borrow(address.c_str()));
  }
};

// The page keeps it in the browser's storage.
class PageStore : public tolmer::VisitStore {
 public:
  explicit PageStore(tolmer::WebDesktop& desktop) : desktop_(desktop) {}
  std::optional<tolmer::Error> write(const std::string& name, std::string_view bytes) override {
    return desktop_.keepVisit(name, bytes);
  }
  void remove(const std::string& name) override { desktop_.keepVisit(name, {}); }
  void handOver(const std::string& file, std::string_view bytes) override {
    desktop_.handOver(file, bytes);
  }

 private:
  tolmer::WebDesktop& desktop_;
};

constexpr const char* programFolder = "/zelmar/tolmod";
constexpr const char* filesFolder = "/files";

}  // namespace

int main() {
  std::filesystem::create_directories(filesFolder);
  WorkerLine line;
  tolmer::WebDesktop desktop(line, programFolder, filesFolder);
  std::vector<tolmer::StoredVisit> found;
  for (const auto& visit : desktop.meet())
    found.push_back({visit.name, visit.written, visit.bytes});
  PageStore store(desktop);
  tolmer::StoredVisits aside(store, std::move(found));
  tolmer::Module module(desktop, programFolder);
  module.parts().aside = &aside;
  int status = 0;
  try {
    module.Main();
    desktop.run();
  } catch (const tolmer::ProgramEnded& ended) {
    status = ended.status;
  }
  line.post("{\"seen\":0,\"orders\":[{\"do\":\"ended\",\"status\":" + std::to_string(status) +
            "}]}");
  return status;
}
