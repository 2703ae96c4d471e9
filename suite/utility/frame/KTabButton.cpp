// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KTabButton.h"

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"

#include <QAccessibleWidget>
#include <QPainter>

namespace {

class TabReader : public QAccessibleWidget
{
public:
    explicit TabReader(KTabButton *button)
        : QAccessibleWidget(button, QAccessible::PageTab) { }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = true;
        state.selected = button()->isChecked();
        return state;
    }

    QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (button()->isEnabled())
            names.prepend(pressAction());
        return names;
    }

    void doAction(const QString &name) override
    {
        if (name == pressAction())
            button()->click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    KTabButton *button() const { return static_cast<KTabButton *>(widget()); }
};

QAccessibleInterface *makeReader(const QString &, QObject *object)
{
    auto *button = qobject_cast<KTabButton *>(object);
    return button ? new TabReader(button) : nullptr;
}

}

KTabButton::KTabButton(const QString &title, QWidget *parent)
    : QPushButton(title, parent)
{
    static const bool installed = [] {
        QAccessible::installFactory(makeReader);
        return true;
    }();
    Q_UNUSED(installed)
    setCheckable(true);
    setAutoDefault(false);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(title);
}

QSize KTabButton::sizeHint() const
{
    const QFontMetrics bold(LookFonts::font(LookFonts::Use::Primary));
    return {bold.horizontalAdvance(text()) + 2 * LookSizes::windowMargin, LookSizes::scaled(LookSizes::editorTabs)};
}

QSize KTabButton::minimumSizeHint() const
{
    return sizeHint();
}

// Text alone; the current page's is bold and underlined in the accent.
void KTabButton::paintEvent(QPaintEvent *)
{
    using HostColors::Role;
    constexpr int underline = 3;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isCurrent = isChecked();
    const Role ink = !isEnabled() ? Role::Disabled : isCurrent ? Role::Link
        : underMouse()                                         ? Role::Text
                                                               : Role::Quiet;
    painter.setFont(LookFonts::font(isCurrent ? LookFonts::Use::Primary : LookFonts::Use::Text));
    painter.setPen(HostColors::of(ink));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
    if (isCurrent)
        painter.fillRect(QRect(0, height() - underline, width(), underline), HostColors::of(Role::Accent));
    if (!hasFocus())
        return;
    painter.setPen(QPen(HostColors::of(Role::Accent), LookSizes::ring));
    const QRectF ring = QRectF(rect()).adjusted(3, 5, -3, -6);
    painter.drawRoundedRect(ring, LookSizes::controlCorner, LookSizes::controlCorner);
}
