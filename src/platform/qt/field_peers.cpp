#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSpinBox>
#include <algorithm>
#include <array>
#include <utility>

#include "platform/fields.h"
#include "platform/qt/control_peer.h"
#include "platform/qt/convert.h"

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
class TextBoxPeer : public PeerOf<TextBox> {
 public:
  using PeerOf::PeerOf;

 private:
  QWidget* create(QWidget* ground) override {
    line_ = nullptr;
    lines_ = nullptr;
    if (!model_.multiLine()) {
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
    tell([&box = model_, utf8 = text.toStdString()] { box.setText(utf8); });
  }
  // The toolkit counts letters of 16 bits, the model bytes.
  void reportMarked() {
    const QString text = line_ ? line_->text() : lines_->toPlainText();
    const auto [first, length] = marked();
    const TextBox::Marked inBytes{bytes(text.left(first)), bytes(text.mid(first, length))};
    tell([&box = model_, inBytes] { box.reportMarked(inBytes); });
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
    if (has(what, Change::look) && model_.multiLine() != (lines_ != nullptr)) return remake();
    if (has(what, Change::text)) setText(toQt(model_.text()));
    if (has(what, Change::enabled)) setReadOnly(model_.readOnly());
    if (what == Change::value) scroll(model_.lastScrollKey());
    if (what == Change::focus && line_) line_->selectAll();
  }
  // Setting the text that stands there would send the cursor to its end.
  void setText(const QString& text) {
    if (line_ && line_->text() != text) {
      line_->setText(text);
      line_->setCursorPosition(model_.readOnly() ? 0
                                                 : cursor());  // a long text shows its beginning
    }
    if (lines_ && lines_->toPlainText() != text) lines_->setPlainText(text);
  }
  int cursor() const {
    return static_cast<int>(toQt(model_.text().substr(0, model_.marked().first)).size());
  }
  void scroll(int keyCode) {
    for (const auto& [code, action] : scrollActions)
      if (lines_ && code == keyCode) lines_->verticalScrollBar()->triggerAction(action);
  }
  void setReadOnly(bool on) {
    if (line_) line_->setReadOnly(on);
    if (lines_) lines_->setReadOnly(on);
  }

  EventHook keyHook_{[this](QEvent& event) {
    if (event.type() == QEvent::ShortcutOverride) claim(static_cast<QKeyEvent&>(event));
    return false;
  }};
  QLineEdit* line_ = nullptr;
  QPlainTextEdit* lines_ = nullptr;
};

class NumberBoxPeer : public WidgetPeer<NumberBox, QSpinBox> {
 public:
  using WidgetPeer::WidgetPeer;

 private:
  void prepare() override {
    on(widget_, &QSpinBox::valueChanged,
       [this](int value) { tell([&box = model_, value] { box.setValue(value); }); });
  }
  void update(Change what) override {
    if (what == Change::focus) return widget_->selectAll();
    if (!has(what, Change::items) && !has(what, Change::value)) return;
    // The program may set what the user may not type.
    widget_->setRange(std::min(model_.min(), model_.value()),
                      std::max(model_.max(), model_.value()));
    widget_->setValue(model_.value());
  }
};

class ComboBoxPeer : public WidgetPeer<ComboBox, QComboBox> {
 public:
  using WidgetPeer::WidgetPeer;

 private:
  void prepare() override {
    on(widget_, &QComboBox::currentIndexChanged,
       [this](int index) { tell([&box = model_, index] { box.setListIndex(index); }); });
  }
  void update(Change what) override {
    if (has(what, Change::items)) fill();
    if (has(what, Change::items) || has(what, Change::value))
      widget_->setCurrentIndex(model_.listIndex());
  }
  // A list only grows at its end or is cleared.
  void fill() {
    const int count = static_cast<int>(model_.items().size());
    if (widget_->count() >= count) widget_->clear();
    for (int i = widget_->count(); i < count; ++i) widget_->addItem(toQt(model_.items()[i]));
  }
};

class ScrollBarPeer : public WidgetPeer<ScrollBar, QScrollBar> {
 public:
  using WidgetPeer::WidgetPeer;

 private:
  void prepare() override {
    widget_->setFocusPolicy(Qt::StrongFocus);
    on(widget_, &QScrollBar::valueChanged,
       [this](int value) { tell([&bar = model_, value] { bar.setValue(value); }); });
  }
  void update(Change what) override {
    if (has(what, Change::place))
      widget_->setOrientation(model_.height() > model_.width() ? Qt::Vertical : Qt::Horizontal);
    if (has(what, Change::items)) {
      widget_->setRange(0, model_.max());
      widget_->setSingleStep(model_.smallChange());
      widget_->setPageStep(model_.largeChange());
    }
    if (has(what, Change::items) || has(what, Change::value)) widget_->setValue(model_.value());
  }
};

}  // namespace

constinit PeerMaker* const makeTextBoxPeer = makePeerOf<TextBoxPeer>;
constinit PeerMaker* const makeNumberBoxPeer = makePeerOf<NumberBoxPeer>;
constinit PeerMaker* const makeComboBoxPeer = makePeerOf<ComboBoxPeer>;
constinit PeerMaker* const makeScrollBarPeer = makePeerOf<ScrollBarPeer>;

}  // namespace tolmer
