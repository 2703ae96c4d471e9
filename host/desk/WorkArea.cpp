// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/WorkArea.h"

#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/utility/frame/KDialogTabPage.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// A page that cannot store its settings must still be closable.
void tellClosing(KDialogTabPage *page)
{
    KErrorBoundary::guarded(page->window(), [page] { page->OnClosing(); });
}

}

WorkArea::WorkArea(QWidget *startPage, QWidget *parent)
    : QStackedWidget(parent)
    , m_tabs(new QTabWidget(this))
{
    m_tabs->setTabsClosable(true);
    m_tabs->setMovable(true);
    m_tabs->setDocumentMode(true);
    m_tabs->setAccessibleName(u"صفحه‌های باز"_s);
    m_tabs->tabBar()->setAccessibleName(u"صفحه‌های باز"_s);
    addWidget(startPage);
    addWidget(m_tabs);
    connect(m_tabs, &QTabWidget::tabCloseRequested, this, &WorkArea::closePage);
    connect(m_tabs, &QTabWidget::currentChanged, this, &WorkArea::noteUse);

    const auto addKey = [this](const QKeySequence &key, auto action) {
        auto *shortcut = new QShortcut(key, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, action);
    };
    addKey(QKeySequence(Qt::CTRL | Qt::Key_W), [this] { closeCurrent(); });
    addKey(QKeySequence(Qt::CTRL | Qt::Key_Tab), [this] { step(1); });
    addKey(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), [this] { step(-1); });
    addKey(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), [this] { step(-1); });
}

WorkArea::~WorkArea()
{
    closeAll();
}

void WorkArea::addPage(KDialogTabPage *page)
{
    m_opened.insert(page, {m_openingKind, freeNumber(m_openingKind)});
    const int index = m_tabs->addTab(page, tabText(page));
    connect(page, &KDialogTabPage::titleChanged, this,
            [this, page] { m_tabs->setTabText(m_tabs->indexOf(page), tabText(page)); });
    // Queued: the page may ask for it from within one of its own slots.
    connect(
        page, &KDialogTabPage::closeRequested, this, [this, page] { closePage(m_tabs->indexOf(page)); },
        Qt::QueuedConnection);
    setCurrentWidget(m_tabs);
    m_tabs->setCurrentIndex(index);
    page->setFocus();
}

void WorkArea::open(const QString &kind, bool another, const std::function<void()> &opener)
{
    if (KDialogTabPage *open = another ? nullptr : lastUsed(kind)) {
        open->refresh();
        m_tabs->setCurrentWidget(open);
        return;
    }
    const QScopedValueRollback opening(m_openingKind, kind);
    opener();
}

KDialogTabPage *WorkArea::lastUsed(const QString &kind) const
{
    KDialogTabPage *found = nullptr;
    for (int index = 0; index < count(); ++index) {
        const Opened opened = m_opened.value(page(index));
        if (opened.kind == kind && (!found || opened.used > m_opened.value(found).used))
            found = page(index);
    }
    return found;
}

int WorkArea::freeNumber(const QString &kind) const
{
    const auto isTaken = [&](int number) {
        return std::any_of(m_opened.cbegin(), m_opened.cend(),
                           [&](const Opened &opened) { return opened.kind == kind && opened.number == number; });
    };
    int number = 1;
    while (!kind.isEmpty() && isTaken(number))
        ++number;
    return number;
}

QString WorkArea::tabText(const KDialogTabPage *page) const
{
    const int number = m_opened.value(page).number;
    return number == 1 ? page->title() : u"%1 (%2)"_s.arg(page->title(), QString::number(number));
}

void WorkArea::noteUse()
{
    if (const auto opened = m_opened.find(currentPage()); opened != m_opened.end())
        opened->used = ++m_uses;
}

int WorkArea::count() const
{
    return m_tabs->count();
}

KDialogTabPage *WorkArea::page(int index) const
{
    return qobject_cast<KDialogTabPage *>(m_tabs->widget(index));
}

KDialogTabPage *WorkArea::currentPage() const
{
    return qobject_cast<KDialogTabPage *>(m_tabs->currentWidget());
}

void WorkArea::setCurrent(int index)
{
    m_tabs->setCurrentIndex(index);
}

void WorkArea::closePage(int index)
{
    KDialogTabPage *closing = page(index);
    if (!closing)
        return;
    // The mouse and the keys do not come here then, but a screen reader's commands do.
    if (QWidget *modal = QApplication::activeModalWidget()) {
        modal->activateWindow();
        return;
    }
    tellClosing(closing);
    m_opened.remove(closing);
    m_tabs->removeTab(m_tabs->indexOf(closing));
    // Not at once: the click that closes the page may come from inside it.
    closing->deleteLater();
    showStartPageIfEmpty();
}

void WorkArea::closeCurrent()
{
    closePage(m_tabs->currentIndex());
}

void WorkArea::closeAll()
{
    while (KDialogTabPage *closing = page(0)) {
        tellClosing(closing);
        m_opened.remove(closing);
        delete closing;
    }
    showStartPageIfEmpty();
}

void WorkArea::step(int direction)
{
    if (count() > 1)
        m_tabs->setCurrentIndex((m_tabs->currentIndex() + direction + count()) % count());
}

void WorkArea::showStartPageIfEmpty()
{
    if (count() == 0)
        setCurrentIndex(0);
}
