// A user of the program's windows, in a user's verbs.
//
//   user.click("frmNotebook", "cmdOK");
//   user.choose("frmControlPanel", "cboXAxisVar", "Fitted Y");
//   user.menu("mdiReg", "File/Exit");
//
// A name that does not exist fails with the names that do; what is hidden, disabled or behind a
// modal window cannot be used.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/input.h"
#include "platform/window.h"

namespace tolmer::test {

class User {
 public:
  virtual ~User() = default;

  void click(std::string_view window, std::string_view control);
  void doubleClick(std::string_view window, std::string_view control);
  void rightClick(std::string_view window, std::string_view control = {});
  // Puts the text in place of what stands in the box.
  void type(std::string_view window, std::string_view control, std::string_view text);
  // Picks the list entry of that text.
  void choose(std::string_view window, std::string_view control, std::string_view entry);
  // Captions without their "&", divided by "/".
  void menu(std::string_view window, std::string_view path);
  // A key on the control that has the focus.
  void key(std::string_view window, const KeyPress& press);
  void close(std::string_view window);
  void maximise(std::string_view window);
  void restore(std::string_view window);

  // The window of that name on the screen.
  Window& window(std::string_view name);
  // A control in it, which can be used.
  Control& control(std::string_view window, std::string_view control);
  template <class Kind>
  Kind& get(std::string_view window, std::string_view control) {
    return dynamic_cast<Kind&>(this->find(window, control));
  }

 protected:
  virtual std::vector<Window*> windowsOnScreen() = 0;
  virtual Window* modalWindow() = 0;
  virtual void doClick(Control& control) = 0;
  virtual void doDoubleClick(Control& control) = 0;
  virtual void doRightClick(Control& control) = 0;
  virtual void doType(Control& control, const std::string& text) = 0;
  virtual void doChoose(Control& control, int index) = 0;
  virtual void doMenu(Window& window, const std::vector<MenuItem*>& path) = 0;
  virtual void doKey(Window& window, const KeyPress& press) = 0;
  virtual void doClose(Window& window) = 0;
  virtual void doState(Window& window, WindowState state) = 0;

 private:
  Control& find(std::string_view window, std::string_view control);
  Window& usable(std::string_view name);
};

}  // namespace tolmer::test
