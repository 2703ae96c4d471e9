// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KTabButton.h"

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
    setAccessibleName(title);
}

// The current page's button carries a bar in the accent colour: being pressed alone is hard to see on a dark palette.
void KTabButton::paintEvent(QPaintEvent *event)
{
    QPushButton::paintEvent(event);
    if (!isChecked())
        return;
    QPainter painter(this);
    painter.fillRect(QRect(4, height() - 4, width() - 8, 3), palette().color(QPalette::Highlight));
}
