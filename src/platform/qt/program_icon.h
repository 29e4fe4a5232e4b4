#pragma once

#include <QIcon>

namespace tolmer {

// Points around a rising line; drawn when somebody wants to see it, at whatever size.
QIcon programIcon();

}  // namespace tolmer
