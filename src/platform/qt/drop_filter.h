// Files that fall on any window of the program, told to the model that takes them.
#pragma once

#include <QDropEvent>
#include <QObject>

#include "platform/input.h"
#include "platform/qt/mirror.h"

namespace tolmer {

// Watches all windows, those without a model too, before a text box takes a file for its name.
// Under a box or dialog of the toolkit's own nothing is taken.
class DropFilter : public QObject {
 public:
  explicit DropFilter(Mirror& mirror);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Window* taker() const;
  void tellLater(const QMimeData& dropped);
  void tell(const DroppedItems& items);

  Mirror& mirror_;
};

}  // namespace tolmer
