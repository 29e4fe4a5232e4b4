#include "platform/text_box.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <array>
#include <utility>

#include "platform/qt/convert.h"
#include "platform/qt/event_hook.h"
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
      : ControlPeer(mirror, box, ground), box_(box), keyHook_([this](QEvent& event) {
          if (event.type() == QEvent::ShortcutOverride) claim(static_cast<QKeyEvent&>(event));
          return false;
        }) {}

 private:
  QWidget* create(QWidget* ground) override {
    line_ = nullptr;
    lines_ = nullptr;
    if (!box_.multiLine()) {
      line_ = new QLineEdit(ground);
      line_->setTextMargins(3, 0, 3, 0);
      on(line_, &QLineEdit::textChanged, [this](const QString& text) { changedTo(text); });
      on(line_, &QLineEdit::cursorPositionChanged, [this] { reportMarked(); });
      on(line_, &QLineEdit::selectionChanged, [this] { reportMarked(); });
      return line_;
    }
    lines_ = new QPlainTextEdit(ground);
    lines_->setTabChangesFocus(true);
    lines_->installEventFilter(&keyHook_);
    on(lines_, &QPlainTextEdit::textChanged, [this] { changedTo(lines_->toPlainText()); });
    on(lines_, &QPlainTextEdit::cursorPositionChanged, [this] { reportMarked(); });
    on(lines_, &QPlainTextEdit::selectionChanged, [this] { reportMarked(); });
    return lines_;
  }
  // The toolkit leaves the key for copying to the menu wherever several lines can only be read; but
  // what is marked there is what the user wants.
  void claim(QKeyEvent& event) const {
    if (event.matches(QKeySequence::Copy) && lines_->textCursor().hasSelection()) event.accept();
  }
  void changedTo(const QString& text) {
    tell([&box = box_, utf8 = text.toStdString()] { box.setText(utf8); });
  }
  // The toolkit counts letters of 16 bits, the model bytes.
  void reportMarked() {
    const QString text = line_ ? line_->text() : lines_->toPlainText();
    const auto [first, length] = marked();
    const TextBox::Marked inBytes{bytes(text.left(first)), bytes(text.mid(first, length))};
    tell([&box = box_, inBytes] { box.reportMarked(inBytes); });
  }
  static std::size_t bytes(const QString& text) {
    return static_cast<std::size_t>(text.toUtf8().size());
  }
  std::pair<int, int> marked() const {
    if (lines_) {
      const QTextCursor cursor = lines_->textCursor();
      return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
    }
    if (!line_->hasSelectedText()) return {line_->cursorPosition(), 0};
    return {line_->selectionStart(), line_->selectionLength()};
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
      line_->setCursorPosition(box_.readOnly() ? 0 : cursor());  // a long text shows its beginning
    }
    if (lines_ && lines_->toPlainText() != text) lines_->setPlainText(text);
  }
  int cursor() const {
    return static_cast<int>(toQt(box_.text().substr(0, box_.marked().first)).size());
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
  EventHook keyHook_;
  QLineEdit* line_ = nullptr;
  QPlainTextEdit* lines_ = nullptr;
};

}  // namespace

PeerPointer makeTextBoxPeer(Mirror& mirror, TextBox& box, QWidget* ground) {
  return std::make_unique<TextBoxPeer>(mirror, box, ground);
}

}  // namespace tolmer
