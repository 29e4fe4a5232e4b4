#pragma once

#include <QString>

#include "base/message_box.h"
#include "platform/qt/mirror.h"

namespace tolmer {

// Shows the box above the top window until it is answered. Throws what the gate has kept.
Answer showMessageBox(Mirror& mirror, const MessageBox& box, const QString& emptyTitle);

}  // namespace tolmer
