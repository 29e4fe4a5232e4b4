// The shapes that the style draws itself.
#pragma once

#include <QIcon>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace tolmer {

void drawButton(QPainter& painter, const QStyleOption& option);
void drawEditBorder(QPainter& painter, const QStyleOption& option, bool fill);
void drawFocusRing(QPainter& painter, const QRect& place);
void drawTick(QPainter& painter, const QStyleOption& option);
void drawOption(QPainter& painter, const QStyleOption& option);
void drawComboBox(QPainter& painter, const QStyleOptionComplex& option, const QRect& arrow);
void drawScrollBar(QPainter& painter, const QStyleOptionComplex& option, const QRect& groove,
                   const QRect& slider);
void drawWindowFrame(QPainter& painter, const QStyleOption& option);
// The bar of a window inside the frame; `button` is where maximise or restore is.
void drawTitleBar(QPainter& painter, const QStyleOptionTitleBar& option, const QRect& button);
void drawRestoreButton(QPainter& painter, const QRect& place, bool hovered);

// A message's sign: a disc with a letter in it.
QIcon messageIcon(QColor colour, QChar sign);

// Opens what a menu bar has no room for.
QIcon moreIcon();

}  // namespace tolmer
