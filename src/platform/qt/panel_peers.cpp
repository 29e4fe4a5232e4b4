#include <QGroupBox>
#include <QPainter>

#include "platform/panels.h"
#include "platform/qt/control_peer.h"
#include "platform/qt/convert.h"
#include "platform/qt/theme.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

class PanelWidget : public QWidget {
 public:
  PanelWidget(QWidget* parent, const Panel& panel) : QWidget(parent), panel_(panel) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), toQt(panel_.backColour()));
    if (panel_.border()) {
      painter.setPen(QColor(theme::line));
      painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    if (panel_.caption().empty()) return;
    painter.setFont(toQt(panel_.font(), scaleOf(panel_)));
    painter.setPen(toQt(panel_.foreColour()));
    const QStringList lines = toQt(panel_.caption()).split('\n');
    if (lines.size() > 1 && lines.count(lines.front()) == lines.size())
      paintRepeated(painter, lines.front(), static_cast<int>(lines.size()));
    else
      painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, toQt(panel_.caption()));
  }

 private:
  // A pattern that fills the screen: setting one line and copying it takes a tenth of the time.
  void paintRepeated(QPainter& painter, const QString& line, int count) {
    const QFontMetrics metrics(painter.font());
    const int height = metrics.lineSpacing();
    const double ratio = devicePixelRatioF();
    QPixmap strip(QSize(width(), height) * ratio);
    strip.setDevicePixelRatio(ratio);
    strip.fill(toQt(panel_.backColour()));
    QPainter stripPainter(&strip);
    stripPainter.setFont(painter.font());
    stripPainter.setPen(painter.pen());
    stripPainter.drawText(QRect(0, 0, width(), height), Qt::AlignCenter, line);
    const int top = (this->height() - count * height) / 2;
    for (int i = 0; i < count; ++i) painter.drawPixmap(0, top + i * height, strip);
  }

  const Panel& panel_;
};

class PanelPeer : public PeerOf<Panel, ContainerPeer> {
 public:
  using PeerOf::PeerOf;

 private:
  QWidget* create(QWidget* ground) override { return new PanelWidget(ground, model_); }
  void update(Change what) override {
    if (has(what, Change::text)) widget()->update();
    if (raised_ != model_.raised()) {
      raised_ = model_.raised();
      widget()->raise();
    }
    ContainerPeer::update(what);
    if (has(what, Change::children) && model_.stopsByPlace() && model_.window())
      orderTabStops(*model_.window());
  }
  // Painted text by itself is hidden from a screen reader.
  std::string accessibleName() const override {
    return model_.accessibleName().empty() ? model_.caption() : model_.accessibleName();
  }

  int raised_ = 0;
};

constexpr Twips captionLeft = pixels(10);
constexpr Twips captionGap = pixels(4);

// The toolkit's own look sets the caption above the box, where the model's places leave no room.
class FrameWidget : public QGroupBox {
 public:
  FrameWidget(QWidget* parent, const Frame& frame) : QGroupBox(parent), frame_(frame) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const float scale = scaleOf(frame_);
    const QFont font = toQt(Font{frame_.font().family, frame_.font().pixels, true}, scale);
    const QFontMetrics metrics(font);
    const QString caption = toQt(withoutMnemonic(frame_.caption()));
    const QRect text(toPixel(captionLeft, scale), 0,
                     metrics.horizontalAdvance(caption) + 2 * toPixel(captionGap, scale),
                     metrics.height());
    paintBox(painter, caption.isEmpty() ? 0 : metrics.height() / 2, text);
    painter.setFont(font);
    painter.setPen(isEnabled() ? toQt(frame_.foreColour()) : QColor(theme::disabledText));
    painter.drawText(text, Qt::AlignCenter, caption);
  }

 private:
  void paintBox(QPainter& painter, int top, const QRect& gap) {
    painter.save();
    if (top > 0) painter.setClipRegion(QRegion(rect()) - gap);
    painter.setPen(QColor(theme::line));
    if (frame_.hasOwnGround()) painter.setBrush(toQt(frame_.backColour()));
    painter.drawRoundedRect(QRectF(0.5, top + 0.5, width() - 1, height() - top - 1), 4, 4);
    painter.restore();
  }

  const Frame& frame_;
};

class FramePeer : public PeerOf<Frame, ContainerPeer> {
 public:
  using PeerOf::PeerOf;

 private:
  QWidget* create(QWidget* ground) override {
    widget_ = new FrameWidget(ground, model_);
    return widget_;
  }
  void update(Change what) override {
    if (has(what, Change::text)) widget_->setTitle(toQt(model_.caption()));
    ContainerPeer::update(what);
  }
  // The toolkit would call a frame in a frame by the outer one's title.
  std::string accessibleName() const override {
    return model_.accessibleName().empty() ? withoutMnemonic(model_.caption())
                                           : model_.accessibleName();
  }

  QGroupBox* widget_ = nullptr;
};

}  // namespace

constinit PeerMaker* const makePanelPeer = makePeerOf<PanelPeer>;
constinit PeerMaker* const makeFramePeer = makePeerOf<FramePeer>;

}  // namespace tolmer
