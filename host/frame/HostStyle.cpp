// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/HostStyle.h"

#include "host/frame/HostLabels.h"
#include "host/frame/HostPanels.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleFactory>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace {

using HostColors::Role;

constexpr int chevronRoom = 24;
constexpr int lineEditMargin = 2; // that the line edit keeps inside by itself
constexpr int scrollWidth = 12;

template <class Option>
const Option *as(const QStyleOption *option)
{
    return qstyleoption_cast<const Option *>(option);
}

int controlHeight(const QWidget *widget, const QFontMetrics &font)
{
    const int least = LookMarks::isTall(widget) ? LookSizes::tallControl : LookSizes::control;
    return qMax(least, font.height() + LookSizes::unit);
}

int titleHeight()
{
    return QFontMetrics(LookFonts::font(LookFonts::Use::Title)).height() + 2;
}

// What an area of text or a list has around it.
void drawFrame(QPainter &painter, const QStyleOption &option, const QWidget *widget)
{
    const auto *frame = as<QStyleOptionFrame>(&option);
    if (frame && frame->lineWidth <= 0)
        return;
    if (const auto *text = qobject_cast<const QPlainTextEdit *>(widget)) {
        HostPanels::field(painter, option, text->isReadOnly());
        return;
    }
    painter.setPen(HostColors::of(Role::Line));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    if (widget && widget->hasFocus() && qobject_cast<const QAbstractScrollArea *>(widget))
        HostPanels::focusRing(painter, option.rect);
}

QRect scrollHandle(const QStyleOptionSlider &bar, const QRect &rect)
{
    constexpr int least = 32;
    const bool upright = bar.orientation == Qt::Vertical;
    const int length = upright ? rect.height() : rect.width();
    const int range = bar.maximum - bar.minimum;
    if (range <= 0)
        return rect;
    const int size = qBound(qMin(least, length), int(double(length) * bar.pageStep / (range + bar.pageStep)), length);
    const int at = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition, length - size, bar.upsideDown);
    // A scroll bar that lies counts from the side that is read first.
    return upright ? QRect(rect.left(), rect.top() + at, rect.width(), size)
                   : QStyle::visualRect(bar.direction, rect, QRect(rect.left() + at, rect.top(), size, rect.height()));
}

QRect besideHandle(const QRect &rect, const QRect &handle, bool atTheLeft)
{
    return atTheLeft ? QRect(rect.left(), rect.top(), handle.left() - rect.left(), rect.height())
                     : QRect(handle.right() + 1, rect.top(), rect.right() - handle.right(), rect.height());
}

void drawScrollBar(QPainter &painter, const QStyleOptionSlider &bar)
{
    constexpr int inset = 3;
    if (bar.maximum <= bar.minimum)
        return;
    const QRect handle = scrollHandle(bar, bar.rect).adjusted(inset, inset, -inset, -inset);
    const bool active = bar.state & QStyle::State_MouseOver || bar.state & QStyle::State_Sunken;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(HostColors::of(active ? Role::Quiet : Role::Edge));
    const double corner = qMin(handle.width(), handle.height()) / 2.0;
    painter.drawRoundedRect(handle, corner, corner);
    painter.restore();
}

// A time is read from the left, and its arrows stand where those of its neighbours do.
Qt::LayoutDirection directionOf(const QStyleOption &option, const QWidget *widget)
{
    const auto *spin = qobject_cast<const QAbstractSpinBox *>(widget);
    return spin && spin->parentWidget() ? spin->parentWidget()->layoutDirection() : option.direction;
}

QRect atEnd(const QStyleOption &option, int width, Qt::LayoutDirection direction)
{
    const QRect &rect = option.rect;
    return direction == Qt::RightToLeft ? QRect(rect.left(), rect.top(), width, rect.height())
                                        : QRect(rect.right() - width + 1, rect.top(), width, rect.height());
}

QRect atEnd(const QStyleOption &option, int width)
{
    return atEnd(option, width, option.direction);
}

// A drop-down that is disabled and yet keeps its text readable shows a record's value.
bool showsOnly(const QStyleOption &option)
{
    const QPalette &colors = option.palette;
    return !(option.state & QStyle::State_Enabled)
        && colors.color(QPalette::Disabled, QPalette::ButtonText) == colors.color(QPalette::Active, QPalette::ButtonText);
}

QSize headerSize(const QStyleOption &option, const QSize &base, const QFontMetrics &font)
{
    const auto *header = as<QStyleOptionHeader>(&option);
    if (!header || header->orientation == Qt::Vertical)
        return base;
    const int title = QFontMetrics(LookFonts::font(LookFonts::Use::Column)).horizontalAdvance(header->text) + 2 * LookSizes::unit + 2;
    return {qMax(base.width(), title), qMax(LookSizes::titleRow, font.height() + LookSizes::unit)};
}

void drawSpinBox(QPainter &painter, const QStyleOptionSpinBox &option, const QWidget *widget)
{
    const auto *spin = qobject_cast<const QAbstractSpinBox *>(widget);
    if (option.frame)
        HostPanels::field(painter, option, spin && spin->isReadOnly());
    if (option.buttonSymbols == QAbstractSpinBox::NoButtons)
        return;
    const QRect arrows = atEnd(option, chevronRoom, directionOf(option, widget));
    const bool enabled = option.state & QStyle::State_Enabled;
    HostPanels::chevron(painter, arrows.adjusted(0, 0, 0, -arrows.height() / 2 + 2), enabled && (option.stepEnabled & QAbstractSpinBox::StepUpEnabled), true);
    HostPanels::chevron(painter, arrows.adjusted(0, arrows.height() / 2 - 2, 0, 0), enabled && (option.stepEnabled & QAbstractSpinBox::StepDownEnabled));
}

void drawGroupBox(const QStyle &style, QPainter &painter, const QStyleOptionGroupBox &option, const QWidget *widget)
{
    const bool flat = option.features & QStyleOptionFrame::Flat;
    if (option.subControls & QStyle::SC_GroupBoxFrame && !flat)
        HostPanels::card(painter, option.rect);
    if (option.subControls & QStyle::SC_GroupBoxLabel && !option.text.isEmpty())
        HostLabels::groupTitle(style, option, style.subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, widget), painter);
    if (option.subControls & QStyle::SC_GroupBoxCheckBox) {
        QStyleOption box = option;
        box.rect = style.subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxCheckBox, widget);
        HostPanels::checkMark(painter, box);
        if (option.state & QStyle::State_HasFocus)
            HostPanels::focusRing(painter, box.rect.adjusted(-3, -3, 3, 3));
    }
}

}

HostStyle::HostStyle()
    : QProxyStyle(QStyleFactory::create(u"Fusion"_s))
{
}

void HostStyle::applyFonts()
{
    constexpr std::pair<const char *, LookFonts::Use> fonts[] = {
        {"QPushButton", LookFonts::Use::Strong},
        {"QHeaderView", LookFonts::Use::Column},
        {"QStatusBar", LookFonts::Use::Label},
        {"QToolTip", LookFonts::Use::Label},
    };
    for (const auto &[kind, use] : fonts)
        QApplication::setFont(LookFonts::font(use), kind);
}

void HostStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    if (qobject_cast<QLineEdit *>(widget) || qobject_cast<QAbstractButton *>(widget) || qobject_cast<QComboBox *>(widget)
        || qobject_cast<QAbstractSpinBox *>(widget))
        widget->setAttribute(Qt::WA_Hover);
    if (auto *view = qobject_cast<QAbstractItemView *>(widget))
        view->viewport()->setAttribute(Qt::WA_Hover);
}

void HostStyle::polish(QApplication *application)
{
    QProxyStyle::polish(application);
    application->installEventFilter(this);
}

void HostStyle::unpolish(QApplication *application)
{
    application->removeEventFilter(this);
    QProxyStyle::unpolish(application);
}

QIcon HostStyle::standardIcon(StandardPixmap picture, const QStyleOption *option, const QWidget *widget) const
{
    // What does not fit a bar is behind this one.
    if (picture == SP_ToolBarHorizontalExtensionButton || picture == SP_ToolBarVerticalExtensionButton)
        return LookIcons::icon(u":/icons/chevron.svg"_s);
    return QProxyStyle::standardIcon(picture, option, widget);
}

// The letters to press with Alt are underlined while it is down.
bool HostStyle::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ApplicationStateChange)
        m_altIsDown = false; // it is let go of in another program
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (isKey && watched->isWidgetType() && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Alt) {
        m_altIsDown = event->type() == QEvent::KeyPress;
        for (QMenuBar *bar : static_cast<QWidget *>(watched)->window()->findChildren<QMenuBar *>())
            bar->update();
    }
    return QProxyStyle::eventFilter(watched, event);
}

void HostStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const
{
    switch (element) {
    case PE_Widget:
        HostPanels::marked(*painter, *option, widget);
        return;
    case PE_PanelLineEdit:
        if (const auto *frame = as<QStyleOptionFrame>(option); frame && frame->lineWidth > 0)
            HostPanels::field(*painter, *option, option->state & State_ReadOnly);
        else if (!widget || !qobject_cast<const QComboBox *>(widget->parentWidget()))
            painter->fillRect(option->rect, option->palette.brush(QPalette::Base));
        return;
    case PE_FrameLineEdit:
    case PE_FrameDefaultButton:
    case PE_FrameStatusBarItem:
    case PE_PanelStatusBar:
    case PE_PanelMenuBar:
    case PE_FrameTabBarBase:
    case PE_FrameTabWidget:
        return;
    case PE_Frame:
        drawFrame(*painter, *option, widget);
        return;
    case PE_FrameGroupBox:
        HostPanels::card(*painter, option->rect);
        return;
    case PE_PanelButtonCommand:
    case PE_PanelButtonBevel:
        HostPanels::button(*painter, *option, widget);
        return;
    case PE_PanelButtonTool:
        HostPanels::toolButton(*painter, *option, widget);
        return;
    case PE_IndicatorCheckBox:
        HostPanels::checkMark(*painter, *option);
        return;
    case PE_IndicatorRadioButton:
        HostPanels::radioMark(*painter, *option);
        return;
    case PE_FrameFocusRect:
        // Rows, which come without a widget, show the focus by their bar, fields and buttons by their frames.
        if (widget && !qobject_cast<const QAbstractItemView *>(widget))
            HostPanels::focusRing(*painter, option->rect);
        return;
    case PE_PanelItemViewRow:
        if (const auto *row = as<QStyleOptionViewItem>(option)) {
            HostPanels::row(*painter, *row, widget);
            return;
        }
        break;
    case PE_PanelItemViewItem:
        if (const auto *cell = as<QStyleOptionViewItem>(option)) {
            HostPanels::cell(*painter, *cell, widget);
            return;
        }
        break;
    case PE_PanelScrollAreaCorner:
        painter->fillRect(option->rect, HostColors::of(Role::Surface));
        return;
    case PE_IndicatorTabClose:
        HostPanels::cross(*painter, *option);
        return;
    case PE_IndicatorArrowDown:
    case PE_IndicatorArrowUp:
        HostPanels::chevron(*painter, option->rect, option->state & State_Enabled, element == PE_IndicatorArrowUp);
        return;
    case PE_PanelMenu:
    case PE_PanelTipLabel:
        HostPanels::popup(*painter, option->rect);
        return;
    case PE_FrameMenu:
        return;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void HostStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const
{
    const auto *button = as<QStyleOptionButton>(option);
    const auto *header = as<QStyleOptionHeader>(option);
    const auto *tab = as<QStyleOptionTab>(option);
    const auto *item = as<QStyleOptionMenuItem>(option);
    if (element == CE_PushButton && button) {
        HostPanels::button(*painter, *button, widget);
        HostLabels::button(*proxy(), *button, *painter, widget);
    } else if (element == CE_PushButtonBevel && button) {
        HostPanels::button(*painter, *button, widget);
    } else if (element == CE_PushButtonLabel && button) {
        HostLabels::button(*proxy(), *button, *painter, widget);
    } else if (element == CE_HeaderSection && header) {
        HostLabels::headerSection(*header, *painter);
    } else if (element == CE_HeaderLabel && header) {
        HostLabels::headerLabel(*header, *painter);
    } else if (element == CE_HeaderEmptyArea) {
        painter->fillRect(option->rect, HostColors::of(Role::Header));
        painter->fillRect(QRect(option->rect.left(), option->rect.bottom(), option->rect.width(), 1), HostColors::of(Role::Line));
    } else if (element == CE_TabBarTabShape && tab) {
        HostLabels::tabShape(*tab, *painter);
    } else if (element == CE_TabBarTabLabel && tab) {
        HostLabels::tabLabel(*proxy(), *tab, *painter, widget);
    } else if (element == CE_MenuItem && item) {
        HostLabels::menuItem(*proxy(), *item, *painter, widget);
    } else if (element == CE_MenuBarItem && item) {
        HostLabels::menuBarItem(*proxy(), *item, *painter, widget);
    } else if (element == CE_MenuBarEmptyArea || element == CE_MenuEmptyArea) {
        return;
    } else if (const auto *bar = as<QStyleOptionProgressBar>(option); element == CE_ProgressBarContents && bar && bar->maximum > bar->minimum) {
        const double share = double(bar->progress - bar->minimum) / (bar->maximum - bar->minimum);
        QRect done = option->rect;
        done.setWidth(int(done.width() * qBound(0.0, share, 1.0)));
        painter->fillRect(visualRect(option->direction, option->rect, done), HostColors::of(Role::Select));
        painter->fillRect(QRect(visualRect(option->direction, option->rect, done).left(), done.bottom() - 2, done.width(), 3), HostColors::of(Role::Accent));
    } else if (element == CE_ProgressBarGroove) {
        painter->fillRect(option->rect, HostColors::of(Role::Sunken));
    } else {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void HostStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                                   const QWidget *widget) const
{
    if (const auto *combo = as<QStyleOptionComboBox>(option); control == CC_ComboBox && combo) {
        if (combo->frame && showsOnly(*option))
            HostPanels::quietField(*painter, option->rect);
        else if (combo->frame)
            HostPanels::field(*painter, *option, false);
        HostPanels::chevron(*painter, atEnd(*option, chevronRoom + 2), option->state & State_Enabled);
    } else if (const auto *spin = as<QStyleOptionSpinBox>(option); control == CC_SpinBox && spin) {
        drawSpinBox(*painter, *spin, widget);
    } else if (const auto *group = as<QStyleOptionGroupBox>(option); control == CC_GroupBox && group) {
        drawGroupBox(*proxy(), *painter, *group, widget);
    } else if (const auto *bar = as<QStyleOptionSlider>(option); control == CC_ScrollBar && bar) {
        drawScrollBar(*painter, *bar);
    } else {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

QRect HostStyle::subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const
{
    if (element == SE_LineEditContents) {
        const auto *frame = as<QStyleOptionFrame>(option);
        if (frame && frame->lineWidth <= 0)
            return option->rect;
        const int padding = (LookMarks::isShared(widget) ? LookSizes::controlCorner : LookSizes::fieldPadding) - lineEditMargin;
        return option->rect.adjusted(padding, 1, -padding, -1);
    }
    if (const auto *cell = as<QStyleOptionViewItem>(option); element == SE_ItemViewItemCheckIndicator && cell && cell->text.isEmpty()) {
        QRect mark = QProxyStyle::subElementRect(element, option, widget);
        mark.moveCenter(cell->rect.center());
        return mark;
    }
    if (element == SE_PushButtonFocusRect || element == SE_PushButtonContents)
        return option->rect.adjusted(2, 2, -2, -2);
    if (element == SE_TabWidgetTabBar) {
        // Tabs begin a little inside their window.
        const int inside = option->direction == Qt::RightToLeft ? -LookSizes::unit : LookSizes::unit;
        return QProxyStyle::subElementRect(element, option, widget).translated(inside, 0) & option->rect;
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect HostStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part, const QWidget *widget) const
{
    const QRect &rect = option->rect;
    if (const auto *group = as<QStyleOptionGroupBox>(option); control == CC_GroupBox && group) {
        const bool titled = !group->text.isEmpty() || (group->subControls & SC_GroupBoxCheckBox);
        const bool checkable = group->subControls & SC_GroupBoxCheckBox;
        QRect line(rect.left() + LookSizes::cardPadding, rect.top() + LookSizes::unit - 1, rect.width() - 2 * LookSizes::cardPadding, titleHeight());
        const int mark = pixelMetric(PM_IndicatorWidth, option, widget);
        const bool rtl = option->direction == Qt::RightToLeft;
        switch (part) {
        case SC_GroupBoxFrame:
            return rect;
        case SC_GroupBoxContents:
            return rect.adjusted(1, titled ? LookSizes::unit - 2 + titleHeight() - LookSizes::unit / 2 : 1, -1, -1);
        case SC_GroupBoxCheckBox:
            return {rtl ? line.right() - mark + 1 : line.left(), line.center().y() - mark / 2, mark, mark};
        case SC_GroupBoxLabel:
            if (checkable)
                line.adjust(rtl ? 0 : mark + LookSizes::unit, 0, rtl ? -mark - LookSizes::unit : 0, 0);
            return line;
        default:
            break;
        }
    }
    if (control == CC_ComboBox && part == SC_ComboBoxEditField) {
        const QRect inner = rect.adjusted(LookSizes::fieldPadding - lineEditMargin, 1, -LookSizes::fieldPadding + lineEditMargin, -1);
        const int arrow = chevronRoom - LookSizes::unit / 2;
        return option->direction == Qt::RightToLeft ? inner.adjusted(arrow, 0, 0, 0) : inner.adjusted(0, 0, -arrow, 0);
    }
    if (control == CC_ComboBox && part == SC_ComboBoxArrow)
        return atEnd(*option, chevronRoom);
    if (control == CC_SpinBox) {
        const Qt::LayoutDirection direction = directionOf(*option, widget);
        const QRect arrows = atEnd(*option, chevronRoom, direction);
        switch (part) {
        case SC_SpinBoxUp:
            return arrows.adjusted(0, 0, 0, -arrows.height() / 2);
        case SC_SpinBoxDown:
            return arrows.adjusted(0, arrows.height() / 2, 0, 0);
        case SC_SpinBoxEditField:
            return direction == Qt::RightToLeft ? rect.adjusted(chevronRoom, 2, -LookSizes::fieldPadding + 2, -2)
                                                : rect.adjusted(LookSizes::fieldPadding - 2, 2, -chevronRoom, -2);
        default:
            break;
        }
    }
    if (const auto *bar = as<QStyleOptionSlider>(option); control == CC_ScrollBar && bar) {
        const QRect handle = scrollHandle(*bar, rect);
        const bool upright = bar->orientation == Qt::Vertical;
        switch (part) {
        case SC_ScrollBarSlider:
            return handle;
        case SC_ScrollBarGroove:
            return rect;
        case SC_ScrollBarSubPage:
            return upright ? QRect(rect.left(), rect.top(), rect.width(), handle.top() - rect.top()) : besideHandle(rect, handle, bar->direction == Qt::LeftToRight);
        case SC_ScrollBarAddPage:
            return upright ? QRect(rect.left(), handle.bottom() + 1, rect.width(), rect.bottom() - handle.bottom()) : besideHandle(rect, handle, bar->direction == Qt::RightToLeft);
        default:
            return {};
        }
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize HostStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size, const QWidget *widget) const
{
    const QSize base = QProxyStyle::sizeFromContents(type, option, size, widget);
    const QFontMetrics font = option ? option->fontMetrics : QFontMetrics(QApplication::font());
    switch (type) {
    case CT_PushButton: {
        const auto *button = as<QStyleOptionButton>(option);
        const LookMarks::Button kind = LookMarks::button(widget);
        const bool small = kind == LookMarks::Button::Small;
        const int padding = kind == LookMarks::Button::Primary ? LookSizes::primaryPadding : small ? LookSizes::unit
                                                                                                   : LookSizes::buttonPadding;
        int width = 0;
        if (button) {
            const QFontMetrics own = kind == LookMarks::Button::Primary ? QFontMetrics(LookFonts::font(LookFonts::Use::Primary)) : font;
            width += button->text.isEmpty() ? 0 : own.size(Qt::TextShowMnemonic, button->text).width();
            width += button->icon.isNull() ? 0 : button->iconSize.width() + (button->text.isEmpty() ? 0 : LookSizes::iconGap);
            width += button->features & QStyleOptionButton::HasMenu ? pixelMetric(PM_MenuButtonIndicator, option, widget) : 0;
        }
        return {width + 2 * padding, qMax(small && !LookMarks::isTall(widget) ? LookSizes::control : LookSizes::tallControl, font.height() + LookSizes::unit)};
    }
    case CT_ToolButton:
        return LookMarks::isTall(widget) ? QSize(base.width() + LookSizes::unit, qMax(LookSizes::tallControl, font.height() + LookSizes::unit)) : base;
    case CT_LineEdit:
        return {size.width() + 2 * LookSizes::fieldPadding, as<QStyleOptionFrame>(option) && as<QStyleOptionFrame>(option)->lineWidth <= 0 ? base.height() : controlHeight(widget, font)};
    case CT_ComboBox:
        return {size.width() + LookSizes::fieldPadding + chevronRoom, controlHeight(widget, font)};
    case CT_SpinBox:
        return {size.width() + LookSizes::fieldPadding + chevronRoom, controlHeight(widget, font)};
    case CT_HeaderSection:
        return headerSize(*option, base, font);
    case CT_ItemViewItem:
        return {base.width(), qMax(base.height(), qMax(LookSizes::row, font.height() + LookSizes::unit))};
    case CT_MenuItem: {
        const auto *item = as<QStyleOptionMenuItem>(option);
        if (item && item->menuItemType == QStyleOptionMenuItem::Separator)
            return {base.width(), 11};
        constexpr int itemHeight = 30;
        const int keyGap = item && item->text.contains(u'\t') ? item->reservedShortcutWidth + 3 * LookSizes::unit : 0;
        const int text = item ? QFontMetrics(item->font).size(Qt::TextShowMnemonic, item->text.section(u'\t', 0, 0)).width() : size.width();
        const int arrow = item && item->menuItemType == QStyleOptionMenuItem::SubMenu ? 3 * LookSizes::unit : 0;
        return {text + keyGap + arrow + LookSizes::scaled(LookSizes::iconSize) + LookSizes::iconGap + 2 * LookSizes::buttonPadding, qMax(itemHeight, font.height() + LookSizes::unit)};
    }
    case CT_MenuBarItem:
        return {size.width() + 2 * LookSizes::buttonPadding, qMax(LookSizes::tallControl, font.height() + LookSizes::unit)};
    case CT_TabBarTab: {
        const auto *tab = as<QStyleOptionTab>(option);
        const int bold = tab ? QFontMetrics(LookFonts::font(LookFonts::Use::Primary)).size(Qt::TextShowMnemonic, tab->text).width() - font.size(Qt::TextShowMnemonic, tab->text).width() : 0;
        return {base.width() + qMax(0, bold) + LookSizes::unit, qMax(LookSizes::workTabs, font.height() + 2 * LookSizes::unit)};
    }
    case CT_CheckBox:
    case CT_RadioButton:
        return {base.width() + 2, qMax(base.height(), font.height() + LookSizes::unit / 2)};
    case CT_GroupBox: {
        const auto *group = as<QStyleOptionGroupBox>(option);
        const int title = group ? QFontMetrics(LookFonts::font(LookFonts::Use::Title)).horizontalAdvance(group->text) + 2 * LookSizes::cardPadding : 0;
        return {qMax(size.width(), title), size.height()};
    }
    default:
        return base;
    }
}

int HostStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_ButtonIconSize:
    case PM_SmallIconSize:
    case PM_TabBarIconSize:
        return LookSizes::scaled(LookSizes::iconSize);
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return LookSizes::scaled(16);
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
    case PM_HeaderMargin:
        return LookSizes::unit;
    case PM_LayoutLeftMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutBottomMargin:
        return LookSizes::windowMargin;
    case PM_FocusFrameHMargin:
        return LookSizes::unit - 1;
    case PM_ScrollBarExtent:
        return scrollWidth;
    case PM_ScrollView_ScrollBarSpacing:
    case PM_ScrollView_ScrollBarOverlap:
    case PM_TabBarBaseOverlap:
    case PM_TabBarTabShiftVertical:
    case PM_TabBarTabShiftHorizontal:
    case PM_MenuBarPanelWidth:
    case PM_MenuBarVMargin:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return 5;
    case PM_MenuPanelWidth:
    case PM_ToolTipLabelFrameWidth:
    case PM_DefaultFrameWidth:
        return 1;
    case PM_MenuBarItemSpacing:
        return LookSizes::unit / 2;
    case PM_MenuButtonIndicator:
        return LookSizes::unit * 2;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int HostStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget, QStyleHintReturn *result) const
{
    switch (hint) {
    case SH_DialogButtonLayout:
        return QDialogButtonBox::WinLayout;
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_EtchDisabledText:
    case SH_ComboBox_Popup:
        return 0;
    case SH_ItemView_ShowDecorationSelected:
        return 1;
    case SH_UnderlineShortcut:
        // An open menu takes the letter alone.
        return m_altIsDown || qobject_cast<const QMenu *>(widget) || (widget && qobject_cast<const QMenuBar *>(widget) && widget->hasFocus());
    case SH_Table_GridLineColor:
        return int(HostColors::of(Role::Line).rgba());
    default:
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
}
