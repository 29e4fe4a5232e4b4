#include "platform/frame.h"

#include <QGroupBox>
#include <QPainter>

#include "platform/qt/convert.h"
#include "platform/qt/make_peer.h"
#include "platform/qt/theme.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

constexpr int captionLeft = 10;
constexpr int captionGap = 4;

// The toolkit's own look sets the caption above the box, where the model's places leave no room.
class FrameWidget : public QGroupBox {
 public:
  FrameWidget(QWidget* parent, const Frame& frame) : QGroupBox(parent), frame_(frame) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QFont font = toQt(Font{frame_.font().family, frame_.font().pixels, true});
    const QFontMetrics metrics(font);
    const QString caption = toQt(withoutMnemonic(frame_.caption()));
    const QRect text(captionLeft, 0, metrics.horizontalAdvance(caption) + 2 * captionGap,
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

class FramePeer : public ContainerPeer {
 public:
  FramePeer(Mirror& mirror, Frame& frame, QWidget* ground)
      : ContainerPeer(mirror, frame, ground), frame_(frame) {}

 private:
  QWidget* create(QWidget* ground) override {
    widget_ = new FrameWidget(ground, frame_);
    return widget_;
  }
  void update(Change what) override {
    if (has(what, Change::text)) widget_->setTitle(toQt(frame_.caption()));
    ContainerPeer::update(what);
  }

  Frame& frame_;
  QGroupBox* widget_ = nullptr;
};

}  // namespace

PeerPointer makeFramePeer(Mirror& mirror, Frame& frame, QWidget* ground) {
  return std::make_unique<FramePeer>(mirror, frame, ground);
}

}  // namespace tolmer
