// The program's own look: the same on every desktop, light whatever the desktop's theme is.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QString>

class QWidget;

namespace tolmer::theme {

inline constexpr QColor face{0xF3, 0xF4, 0xF6};
inline constexpr QColor window{0xFF, 0xFF, 0xFF};
inline constexpr QColor text{0x1F, 0x24, 0x2B};
inline constexpr QColor quietText{0x5A, 0x63, 0x6E};
inline constexpr QColor disabledText{0x8C, 0x94, 0x9E};
inline constexpr QColor line{0xC3, 0xC9, 0xD1};
inline constexpr QColor strongLine{0x8F, 0x98, 0xA3};
inline constexpr QColor ground{0xD9, 0xDD, 0xE3};  // behind the quadrants
inline constexpr QColor accent{0x1F, 0x5F, 0xA8};
inline constexpr QColor paleAccent{0xE3, 0xEC, 0xF7};

// Noto Sans alone sets a hat on a Greek letter rightly.
inline const QString interfaceFamily = QStringLiteral("Noto Sans");
// The serif face, by the name that it has here. Just one: of a list of names the toolkit looks up
// what may stand in for each of them as soon as a letter is drawn.
const QString& serifFamily();
inline constexpr int fontPixels = 12;

// What a window manager's title bar and borders take; only where a window nearly fills the screen
// does it matter.
inline constexpr int titleBarAllowance = 40;

// For text in documents, which is searched for and copied: no ligatures, whose letters many
// programs do not take apart. The toolkit sets none where letters are spaced out, be it by a 64th
// of a dot.
void keepLettersApart(QFont& font);

QPalette palette();
// How many times as large as usual everything is shown.
float zoom();
void setZoom(float times);

// Of that and what its window is magnified.
float scaleOf(const QWidget* widget);
// For a widget that is a window.
void setMagnification(QWidget& window, float times);

// To be called before the application object is made: style and palette of the desktop are then
// not even loaded.
void install();
// After it.
void installFont();

}  // namespace tolmer::theme
