// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/manual/ManualKey.h"

#include "host/manual/CDlgManual.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

void addClasses(const QWidget *widget, QStringList &classes)
{
    for (const QMetaObject *type = widget->metaObject(); type && type != &QWidget::staticMetaObject; type = type->superClass())
        classes.append(QString::fromLatin1(type->className()));
}

}

ManualKey::ManualKey()
{
    qApp->installEventFilter(this);
}

ManualKey::~ManualKey() = default;

QStringList ManualKey::classesOf(const QWidget *window)
{
    QStringList classes;
    for (const QWidget *widget = window->focusWidget(); widget && widget != window; widget = widget->parentWidget())
        addClasses(widget, classes);
    for (const QWidget *part : window->findChildren<QWidget *>()) {
        if (QLatin1StringView(part->metaObject()->className()).startsWith("CDlg"_L1) && !part->isWindow() && part->isVisibleTo(window))
            addClasses(part, classes);
    }
    addClasses(window, classes);
    return classes;
}

void ManualKey::showFor(QWidget *window)
{
    showPage(ManualPages().pageOf(window ? classesOf(window) : QStringList()));
}

void ManualKey::showPage(const QString &page)
{
    if (!m_manual) {
        m_manual = std::make_unique<CDlgManual>();
        // Where the windows that it is read beside, which begin at the right, can still be seen.
        m_manual->move(m_manual->screen()->availableGeometry().topLeft());
    }
    if (page.isEmpty())
        m_manual->showContents(u"این پنجره صفحه‌ای از خود در راهنما ندارد."_s);
    else
        m_manual->showPage(page);
    m_manual->setWindowState(m_manual->windowState() & ~Qt::WindowMinimized);
    m_manual->show();
    m_manual->raise();
    m_manual->activateWindow();
}

void ManualKey::close()
{
    if (m_manual)
        m_manual->close();
}

bool ManualKey::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier)
        return false;
    QWidget *window = static_cast<QWidget *>(watched)->window();
    // A menu or drop-down belongs to the window behind it, and would keep the keys for itself.
    while (QWidget *popup = QApplication::activePopupWidget()) {
        if (popup == window)
            window = QApplication::activeWindow();
        if (!popup->close())
            break;
    }
    showFor(window);
    return true;
}
