// The desktop program's twin for a browser: the same windows, shown by a page. It runs in a worker.
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/web/web_desktop.h"
#include "sheetfiles/autosave_store.h"
#include "shell/module.h"

// Of the worker: web/worker_library.js.
extern "C" {
void tolmer_post(const char* text, int length);
// The next message, to be freed; null where none came in time. Below zero it waits without end.
char* tolmer_wait(double milliseconds);
}

namespace {

class WorkerLine : public tolmer::PageLine {
 public:
  void post(const std::string& batch) override {
    tolmer_post(batch.data(), static_cast<int>(batch.size()));
  }
  std::optional<std::string> next(double milliseconds) override {
    const std::unique_ptr<char, decltype(&std::free)> text(tolmer_wait(milliseconds), &std::free);
    if (!text) return std::nullopt;
    return std::string(text.get());
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
