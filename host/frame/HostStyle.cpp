// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/HostStyle.h"

#include <QApplication>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>

using namespace Qt::StringLiterals;

namespace {

constexpr int iconGap = 6;
constexpr int sideMargin = 10;

bool hasIconAndText(const QStyleOptionButton &button)
{
    return !button.icon.isNull() && !button.text.isEmpty() && !(button.features & QStyleOptionButton::HasMenu);
}

// Icon and text side by side in the middle of the button. The base style aligns the text to the far edge instead.
void drawLabelRightToLeft(const QStyle &style, const QStyleOptionButton &button, QPainter &painter)
{
    const bool enabled = button.state & QStyle::State_Enabled;
    const int flags = Qt::TextShowMnemonic | Qt::AlignVCenter | Qt::AlignHCenter;
    const int textWidth = button.fontMetrics.size(Qt::TextShowMnemonic, button.text).width();
    const int width = qMin(button.rect.width(), button.iconSize.width() + iconGap + textWidth);
    const QRect label(button.rect.center().x() - width / 2, button.rect.top(), width, button.rect.height());
    const QRect icon(label.right() - button.iconSize.width() + 1, label.center().y() - button.iconSize.height() / 2,
                     button.iconSize.width(), button.iconSize.height());
    button.icon.paint(&painter, icon, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
    const QRect text = label.adjusted(0, 0, -(button.iconSize.width() + iconGap), 0);
    style.drawItemText(&painter, text, flags, button.palette, enabled, button.text, QPalette::ButtonText);
}

}

HostStyle::HostStyle()
    : QProxyStyle(QStyleFactory::create(u"Fusion"_s))
{
}

void HostStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const
{
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
    if (element == CE_PushButtonLabel && button && hasIconAndText(*button) && button->direction == Qt::RightToLeft)
        drawLabelRightToLeft(*this, *button, *painter);
    else
        QProxyStyle::drawControl(element, option, painter, widget);
}

void HostStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                                   const QWidget *widget) const
{
    const auto *combo = qstyleoption_cast<const QStyleOptionComboBox *>(option);
    if (control != CC_ComboBox || !combo || combo->state & State_Enabled) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    // The text is drawn afterwards and may have been kept readable; the arrow still shows that no list will open.
    QStyleOptionComboBox greyed(*combo);
    greyed.palette.setColor(QPalette::ButtonText, QApplication::palette(widget).color(QPalette::Disabled, QPalette::ButtonText));
    QProxyStyle::drawComplexControl(control, &greyed, painter, widget);
}

QSize HostStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size, const QWidget *widget) const
{
    const QSize base = QProxyStyle::sizeFromContents(type, option, size, widget);
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
    if (type != CT_PushButton || !button || !hasIconAndText(*button))
        return base;
    // The base style leaves a button with an icon no room beside its caption.
    return {qMax(base.width(), size.width() + 2 * sideMargin), base.height()};
}
