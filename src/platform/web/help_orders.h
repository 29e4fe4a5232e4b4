// What the page shows to read in beside the program's windows.
#pragma once

#include <memory>
#include <string>

#include "help/help_reader.h"
#include "platform/desktop.h"
#include "platform/web/nodes.h"
#include "platform/web/page_line.h"

namespace tolmer {

// The help, and pages of the notebook. The help's are read when somebody first asks for them.
class HelpOrders {
 public:
  HelpOrders(Nodes& nodes, std::string folder) : nodes_(nodes), folder_(std::move(folder)) {}

  void answer(const HelpRequest& request);
  void keep(const KeptPages& pages);
  // A link, a way back, a search.
  void take(const PageMessage& message);

 private:
  HelpReader& reader();
  void follow(const std::string& link);
  void turnTo(std::size_t page);
  void show();
  void list();

  Nodes& nodes_;
  std::string folder_;
  std::unique_ptr<HelpReader> reader_;
  std::string words_;  // that are searched for
  KeptPages kept_;
};

}  // namespace tolmer
