#include <QAbstractButton>
#include <QFontMetricsF>
#include <QImageReader>
#include <QLabel>
#include <QPainter>
#include <QPixmapCache>
#include <QStyleOptionFocusRect>

#include "base/file_io.h"
#include "platform/labels.h"
#include "platform/qt/control_peer.h"
#include "platform/qt/convert.h"
#include "platform/qt/theme.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

// A text that is pressed like a button and looks like a link. Its text has no marked letters.
class LinkWidget : public QAbstractButton {
 public:
  explicit LinkWidget(QWidget* parent);
  void setTextLayout(Qt::Alignment alignment, bool wraps);
  // Text as it stands; the toolkit would take "&" for a mark in a button's text.
  void showText(const QString& text, const QString& inLines);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  QString shown_;
  Qt::Alignment alignment_ = Qt::AlignLeft | Qt::AlignVCenter;
  bool wraps_ = false;
};

Qt::Alignment alignmentOf(Align align) {
  if (align == Align::centre) return Qt::AlignHCenter;
  if (align == Align::right) return Qt::AlignRight;
  return Qt::AlignLeft;
}

// Whether the face on this machine is the one whose letters were measured, or no wider.
bool isAsMeasured(const Font& font) {
  static constexpr const char* words = "The residuals of a model show what it has not explained.";
  const auto fits = [](FontFamily family) {
    const Font plain{family, 16, false};
    return QFontMetricsF(toQt(plain, 1)).horizontalAdvance(words) <= textWidth(plain, words) + 1;
  };
  static const bool interfaceFits = fits(FontFamily::interface);
  static const bool serifFits = fits(FontFamily::serif);
  return font.family == FontFamily::serif ? serifFits : interfaceFits;
}

// A link is a widget of its own, which the keyboard and a screen reader can press.
class LabelPeer : public PeerOf<Label> {
 public:
  using PeerOf::PeerOf;

 private:
  QWidget* create(QWidget* ground) override {
    plain_ = nullptr;
    link_ = nullptr;
    if (!model_.isLink()) {
      plain_ = new QLabel(ground);
      plain_->setTextFormat(Qt::PlainText);
      return plain_;
    }
    link_ = new LinkWidget(ground);
    on(link_, &LinkWidget::clicked, [this] { tell([&label = model_] { label.click(); }); });
    return link_;
  }

  void update(Change what) override {
    if (has(what, Change::look) && model_.isLink() != (link_ != nullptr)) return remake();
    if (has(what, Change::text) || (model_.wordWrap() && has(what, Change::look | Change::place)))
      setText();
    if (!has(what, Change::look)) return;
    const auto alignment =
        alignmentOf(model_.align()) | (model_.wordWrap() ? Qt::AlignTop : Qt::AlignVCenter);
    const bool wraps = model_.wordWrap() && !isAsMeasured(model_.font());
    if (plain_) {
      plain_->setAlignment(alignment);
      plain_->setWordWrap(wraps);
    } else {
      link_->setTextLayout(alignment, wraps);
    }
  }

  std::string unmarked() const {
    return model_.usesMnemonic() ? withoutMnemonic(model_.caption()) : model_.caption();
  }

  // The toolkit, which brings some letters closer, would have a word more here and there than the
  // layout and other showings of the page.
  QString shown() const { return toQt(inLines(model_, unmarked())); }

  // The toolkit takes "&" for a mark only where the label has a buddy. Where lines end is nothing
  // to be read out.
  void setText() {
    const QString caption = toQt(model_.caption());
    if (link_) return link_->showText(toQt(unmarked()), shown());
    if (plain_->buddy())
      return plain_->setText(model_.usesMnemonic() ? caption : QString(caption).replace('&', "&&"));
    plain_->setText(shown());
    plain_->setAccessibleName(model_.wordWrap() ? toQt(unmarked()) : QString());
  }

  QLabel* plain_ = nullptr;
  LinkWidget* link_ = nullptr;
};

// Reads its file when it is first painted, at the very size that is painted.
class PictureWidget : public QWidget {
 public:
  using QWidget::QWidget;
  void setFile(const QString& file) {
    file_ = file;
    picture_ = {};
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    if (file_.isEmpty()) return;
    const double ratio = devicePixelRatioF();
    const QSize room = size() * ratio;
    if (room != room_ || picture_.isNull()) find(room, ratio);
    const QSizeF shown = picture_.deviceIndependentSize();
    QPainter painter(this);
    painter.drawPixmap(QPointF((width() - shown.width()) / 2, (height() - shown.height()) / 2),
                       picture_);
  }

 private:
  // A drawing that stands on several windows, as the cover's, is read once for each size.
  void find(QSize room, double ratio) {
    room_ = room;
    const QString key = QStringLiteral("%1 %2 %3").arg(file_).arg(room.width()).arg(room.height());
    const bool isDrawing = file_.endsWith(".svg", Qt::CaseInsensitive);
    if (isDrawing && QPixmapCache::find(key, &picture_)) return;
    read(room, ratio);
    if (isDrawing) QPixmapCache::insert(key, picture_);
  }

  void read(QSize room, double ratio) {
    if (!isRegularFile(file_.toStdString())) return;
    // The named format spares a look at every format the system knows.
    QImageReader reader(file_, file_.endsWith(".svg", Qt::CaseInsensitive) ? "svg" : "png");
    reader.setAutoDetectImageFormat(false);
    reader.setScaledSize(reader.size().scaled(room, Qt::KeepAspectRatio));
    picture_ = QPixmap::fromImageReader(&reader);
    picture_.setDevicePixelRatio(ratio);
  }

  QString file_;
  QPixmap picture_;
  QSize room_;
};

class ImagePeer : public WidgetPeer<Image, PictureWidget> {
 public:
  using WidgetPeer::WidgetPeer;

 private:
  void update(Change what) override {
    if (has(what, Change::look)) widget_->setFile(toQt(model_.file()));
  }
};

LinkWidget::LinkWidget(QWidget* parent) : QAbstractButton(parent) {
  setCursor(Qt::PointingHandCursor);
  // Not by a click: who has clicked a page turner means the default button by the next Return.
  setFocusPolicy(Qt::TabFocus);
}

void LinkWidget::setTextLayout(Qt::Alignment alignment, bool wraps) {
  alignment_ = alignment;
  wraps_ = wraps;
  update();
}

void LinkWidget::showText(const QString& text, const QString& inLines) {
  shown_ = inLines;
  setText(QString(text).replace('&', "&&"));
  setShortcut({});
}

void LinkWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QFont linkFont = font();
  linkFont.setUnderline(underMouse() || hasFocus());
  painter.setFont(linkFont);
  // A colour of its own, as while it flashes, goes before the link colour.
  const QColor own = palette().color(QPalette::WindowText);
  const QColor link = own == QColor(theme::text) ? QColor(theme::accent) : own;
  painter.setPen(isEnabled() ? link : palette().color(QPalette::WindowText));
  painter.drawText(rect(), static_cast<int>(alignment_) | (wraps_ ? Qt::TextWordWrap : 0), shown_);
  if (!hasFocus()) return;
  QStyleOptionFocusRect option;
  option.initFrom(this);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void LinkWidget::enterEvent(QEnterEvent*) { update(); }
void LinkWidget::leaveEvent(QEvent*) { update(); }

}  // namespace

constinit PeerMaker* const makeLabelPeer = makePeerOf<LabelPeer>;
constinit PeerMaker* const makeImagePeer = makePeerOf<ImagePeer>;

}  // namespace tolmer
