#include "platform/label.h"

#include <QLabel>

#include "platform/qt/convert.h"
#include "platform/qt/link_widget.h"
#include "platform/qt/make_peer.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

Qt::Alignment toQt(Align align) {
  switch (align) {
    case Align::centre:
      return Qt::AlignHCenter;
    case Align::right:
      return Qt::AlignRight;
    case Align::left:
      break;
  }
  return Qt::AlignLeft;
}

// A link is a widget of its own, which the keyboard and a screen reader can press.
class LabelPeer : public ControlPeer {
 public:
  LabelPeer(Mirror& mirror, Label& label, QWidget* ground)
      : ControlPeer(mirror, label, ground), label_(label) {}

 private:
  QWidget* create(QWidget* ground) override {
    plain_ = nullptr;
    link_ = nullptr;
    if (!label_.isLink()) {
      plain_ = new QLabel(ground);
      plain_->setTextFormat(Qt::PlainText);
      return plain_;
    }
    link_ = new LinkWidget(ground);
    on(link_, &LinkWidget::clicked, [this] { tell([&label = label_] { label.click(); }); });
    return link_;
  }

  void update(Change what) override {
    if (has(what, Change::look) && label_.isLink() != (link_ != nullptr)) return remake();
    if (has(what, Change::text)) setText();
    if (!has(what, Change::look)) return;
    const bool wraps = label_.wordWrap();
    const auto alignment = toQt(label_.align()) | (wraps ? Qt::AlignTop : Qt::AlignVCenter);
    if (plain_) {
      plain_->setAlignment(alignment);
      plain_->setWordWrap(wraps);
    } else {
      link_->setTextLayout(alignment, wraps);
    }
  }

  // The toolkit takes "&" for a mark only where the label has a buddy.
  void setText() {
    const QString caption = tolmer::toQt(label_.caption());
    const QString unmarked = tolmer::toQt(withoutMnemonic(label_.caption()));
    if (link_) return link_->showText(label_.usesMnemonic() ? unmarked : caption);
    if (plain_->buddy())
      plain_->setText(label_.usesMnemonic() ? caption : QString(caption).replace('&', "&&"));
    else
      plain_->setText(label_.usesMnemonic() ? unmarked : caption);
  }

  Label& label_;
  QLabel* plain_ = nullptr;
  LinkWidget* link_ = nullptr;
};

}  // namespace

PeerPointer makeLabelPeer(Mirror& mirror, Label& label, QWidget* ground) {
  return std::make_unique<LabelPeer>(mirror, label, ground);
}

}  // namespace tolmer
