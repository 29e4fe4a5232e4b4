// The help in a page, and pictures of pages.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "help/help_reader.h"
#include "platform/desktop.h"
#include "platform/web/nodes.h"
#include "platform/web/page_line.h"

namespace tolmer {

// What the help window of the page shows. The pages are read when somebody first asks for them.
class HelpOrders {
 public:
  HelpOrders(Nodes& nodes, std::string folder) : nodes_(nodes), folder_(std::move(folder)) {}

  void answer(const HelpRequest& request);
  // A link, a way back, a search.
  void take(const PageMessage& message);

 private:
  HelpReader& reader();
  void open(const HelpRequest& request);
  void find(const std::string& words);
  void show();
  void writeContents(JsonWriter& json);

  Nodes& nodes_;
  std::string folder_;
  std::unique_ptr<HelpReader> reader_;
  bool contentsAreKnown_ = false;
};

// The pictures themselves in place of their plain names.
std::string withPictures(const std::string& html, const std::vector<std::string>& folders);

}  // namespace tolmer
