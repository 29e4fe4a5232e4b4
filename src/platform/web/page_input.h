// What the user does in the page, on its way to the models.
#pragma once

#include "platform/web/web_desktop.h"

namespace tolmer {

class EditGrid;
class Graph;

// Leads one message to its control. A control that is gone, cannot be used or stands in a window
// that takes no input hears nothing.
class PageInput {
 public:
  explicit PageInput(WebDesktop& desktop) : desktop_(desktop), nodes_(desktop.nodes_) {}

  void take(const PageMessage& message);

 private:
  void key(const PageMessage& message);
  void click(int id);
  void value(Control& control, int value);
  void text(Control& control, const PageMessage& message);
  void focus(Control& control);
  void mouse(Control& control, const PageMessage& message);
  void tellAgain(int id);
  // Null for a control that is no grid, or that the page has not heard of.
  static ToldGrid* told(const Control& control);
  void seen(Control& control, const PageMessage& message);
  void point(Control& control, const PageMessage& message);
  void edited(EditGrid& grid, const PageMessage& message);
  void graph(Graph& graph, const PageMessage& message);
  void hover(Control& control, const PageMessage& message);
  void resize(Window& window, Size shown);
  void window(Window& window, const PageMessage& message);

  WebDesktop& desktop_;
  Nodes& nodes_;
};

}  // namespace tolmer
