#include "platform/qt/control_style.h"

#include <QStyleOption>

#include "platform/qt/control_shapes.h"
#include "platform/qt/convert.h"
#include "platform/qt/theme.h"
#include "platform/window.h"

namespace tolmer {
namespace {

bool isMessageSign(QStyle::StandardPixmap icon) {
  return icon == QStyle::SP_MessageBoxInformation || icon == QStyle::SP_MessageBoxQuestion ||
         icon == QStyle::SP_MessageBoxWarning || icon == QStyle::SP_MessageBoxCritical;
}

}  // namespace

ControlStyle::ControlStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

int ControlStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                              const QWidget* widget) const {
  switch (metric) {
    case PM_ScrollBarExtent:
      return 14;
    case PM_MdiSubWindowFrameWidth:
      return toPixel(FrameWindow::childSide);
    case PM_TitleBarHeight:
      return toPixel(FrameWindow::childTop);
    case PM_DefaultFrameWidth:
      return 1;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int ControlStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* returned) const {
  switch (hint) {
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_EtchDisabledText:
    case SH_WindowFrame_Mask:  // square corners in the frame
      return 0;
    case SH_DialogButtonLayout:
      return 0;  // OK before Cancel
    case SH_ComboBox_Popup:
      return 0;  // a list below the box
    default:
      return QProxyStyle::styleHint(hint, option, widget, returned);
  }
}

QRect ControlStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                   SubControl part, const QWidget* widget) const {
  // A window in the frame has one button: at the very end of its bar, or, while it is maximised, of
  // the menu bar.
  if (control == CC_MdiControls) return part == SC_MdiNormalButton ? option->rect : QRect();
  const bool isButton = part == SC_TitleBarMaxButton || part == SC_TitleBarNormalButton;
  if (control != CC_TitleBar || !isButton)
    return QProxyStyle::subControlRect(control, option, part, widget);
  const QRect& bar = option->rect;
  return {bar.right() - bar.height() - 3, bar.top(), bar.height(), bar.height()};
}

QSize ControlStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                     const QSize& size, const QWidget* widget) const {
  if (type == CT_MdiControls) return {28, 18};
  const QSize usual = QProxyStyle::sizeFromContents(type, option, size, widget);
  return type == CT_PushButton ? usual.expandedTo({90, 30}) : usual;
}

QIcon ControlStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                 const QWidget* widget) const {
  // The toolkit would search the desktop's icon themes for it while the menu bar is made.
  if (icon == SP_ToolBarHorizontalExtensionButton) return moreIcon();
  if (!isMessageSign(icon)) return QProxyStyle::standardIcon(icon, option, widget);
  if (icon == SP_MessageBoxInformation) return messageIcon(theme::accent, 'i');
  if (icon == SP_MessageBoxQuestion) return messageIcon(theme::accent, '?');
  if (icon == SP_MessageBoxWarning) return messageIcon(QColor(0xD9, 0x8E, 0x04), '!');
  return messageIcon(QColor(0xC0, 0x2B, 0x2B), QChar(0x00D7));
}

void ControlStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  switch (element) {
    case PE_PanelButtonCommand:
      drawButton(*painter, *option);
      break;
    case PE_FrameDefaultButton:
      break;
    case PE_FrameFocusRect:
      drawFocusRing(*painter, option->rect);
      break;
    case PE_FrameLineEdit:
    case PE_Frame:
      drawEditBorder(*painter, *option, false);
      break;
    case PE_PanelLineEdit:
      // The edit line of a number box has no border of its own.
      if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
          frame && frame->lineWidth > 0)
        drawEditBorder(*painter, *option, true);
      else
        painter->fillRect(option->rect, option->palette.base());
      break;
    case PE_IndicatorCheckBox:
      drawTick(*painter, *option);
      break;
    case PE_IndicatorRadioButton:
      drawOption(*painter, *option);
      break;
    case PE_PanelScrollAreaCorner:
      painter->fillRect(option->rect, QColor(theme::face));
      break;
    case PE_FrameWindow:
      drawWindowFrame(*painter, *option);
      break;
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
  painter->restore();
}

void ControlStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
  const auto part = [&](SubControl which) {
    return subControlRect(control, option, which, widget);
  };
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  if (control == CC_ComboBox) {
    drawComboBox(*painter, *option, part(SC_ComboBoxArrow));
  } else if (control == CC_ScrollBar) {
    drawScrollBar(*painter, *option, option->rect, part(SC_ScrollBarSlider));
  } else if (control == CC_TitleBar) {
    const auto& bar = *qstyleoption_cast<const QStyleOptionTitleBar*>(option);
    const bool maximised = bar.titleBarState & Qt::WindowMaximized;
    drawTitleBar(*painter, bar, part(maximised ? SC_TitleBarNormalButton : SC_TitleBarMaxButton));
  } else if (control == CC_MdiControls) {
    drawRestoreButton(*painter, option->rect, option->activeSubControls & SC_MdiNormalButton);
  } else {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
  }
  painter->restore();
}

}  // namespace tolmer
