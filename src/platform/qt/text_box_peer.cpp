#include "platform/text_box.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <array>
#include <utility>

#include "platform/qt/convert.h"
#include "platform/qt/make_peer.h"

namespace tolmer {
namespace {

using Slider = QAbstractSlider;
constexpr std::array<std::pair<int, Slider::SliderAction>, 6> scrollActions{
    {{keys::up, Slider::SliderSingleStepSub},
     {keys::down, Slider::SliderSingleStepAdd},
     {keys::pageUp, Slider::SliderPageStepSub},
     {keys::pageDown, Slider::SliderPageStepAdd},
     {keys::home, Slider::SliderToMinimum},
     {keys::end, Slider::SliderToMaximum}}};

// One line or several: two widgets of the toolkit with the same few operations.
class TextBoxPeer : public ControlPeer {
 public:
  TextBoxPeer(Mirror& mirror, TextBox& box, QWidget* ground)
      : ControlPeer(mirror, box, ground), box_(box) {}

 private:
  QWidget* create(QWidget* ground) override {
    line_ = nullptr;
    lines_ = nullptr;
    if (!box_.multiLine()) {
      line_ = new QLineEdit(ground);
      line_->setTextMargins(3, 0, 3, 0);
      on(line_, &QLineEdit::textChanged, [this](const QString& text) { changedTo(text); });
      return line_;
    }
    lines_ = new QPlainTextEdit(ground);
    lines_->setTabChangesFocus(true);
    on(lines_, &QPlainTextEdit::textChanged, [this] { changedTo(lines_->toPlainText()); });
    return lines_;
  }
  void changedTo(const QString& text) {
    tell([&box = box_, utf8 = text.toStdString()] { box.setText(utf8); });
  }
  void update(Change what) override {
    if (has(what, Change::look) && box_.multiLine() != (lines_ != nullptr)) return remake();
    if (has(what, Change::text)) setText(toQt(box_.text()));
    if (has(what, Change::enabled)) setReadOnly(box_.readOnly());
    if (what == Change::value) scroll(box_.lastScrollKey());
    if (what == Change::focus && line_) line_->selectAll();
  }
  // Setting the text that stands there would send the cursor to its end.
  void setText(const QString& text) {
    if (line_ && line_->text() != text) {
      line_->setText(text);
      if (box_.readOnly()) line_->setCursorPosition(0);  // a long text shows its beginning
    }
    if (lines_ && lines_->toPlainText() != text) lines_->setPlainText(text);
  }
  void scroll(int keyCode) {
    for (const auto& [code, action] : scrollActions)
      if (lines_ && code == keyCode) lines_->verticalScrollBar()->triggerAction(action);
  }
  void setReadOnly(bool on) {
    if (line_) line_->setReadOnly(on);
    if (lines_) lines_->setReadOnly(on);
  }

  TextBox& box_;
  QLineEdit* line_ = nullptr;
  QPlainTextEdit* lines_ = nullptr;
};

}  // namespace

PeerPointer makeTextBoxPeer(Mirror& mirror, TextBox& box, QWidget* ground) {
  return std::make_unique<TextBoxPeer>(mirror, box, ground);
}

}  // namespace tolmer
