// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/WorkArea.h"

#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/utility/frame/KDialogTabPage.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The first tab stays the first, whatever is drawn to its place.
class WorkTabBar : public QTabBar
{
public:
    using QTabBar::QTabBar;

    QWidget *first = nullptr;

protected:
    QSize tabSizeHint(int index) const override
    {
        const QSize hint = QTabBar::tabSizeHint(index);
        return {hint.width(), std::max(LookSizes::scaled(LookSizes::workTabs), fontMetrics().height() + 2 * LookSizes::unit)};
    }

    void mouseReleaseEvent(QMouseEvent *event) override
    {
        QTabBar::mouseReleaseEvent(event);
        const auto *tabs = static_cast<const QTabWidget *>(parentWidget());
        if (const int at = tabs->indexOf(first); at > 0)
            moveTab(at, 0);
    }
};

class WorkTabs : public QTabWidget
{
public:
    WorkTabs(QWidget *first, QWidget *parent)
        : QTabWidget(parent)
    {
        auto *bar = new WorkTabBar(this);
        bar->first = first;
        setTabBar(bar);
    }
};

// A page that cannot store its settings must still be closable.
void tellClosing(KDialogTabPage *page)
{
    KErrorBoundary::guarded(page->window(), [page] { page->OnClosing(); });
}

}

WorkArea::WorkArea(QWidget *startPage, QWidget *parent)
    : QWidget(parent)
    , m_startPage(startPage)
    , m_tabs(new WorkTabs(startPage, this))
{
    m_tabs->setTabsClosable(true);
    m_tabs->setMovable(true);
    m_tabs->setDocumentMode(true);
    m_tabs->setAccessibleName(u"صفحه‌های باز"_s);
    m_tabs->tabBar()->setAccessibleName(u"صفحه‌های باز"_s);
    m_tabs->addTab(startPage, LookIcons::icon(u":/icons/home.svg"_s), startPage->accessibleName());
    for (const QTabBar::ButtonPosition side : {QTabBar::LeftSide, QTabBar::RightSide})
        m_tabs->tabBar()->setTabButton(0, side, nullptr);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(m_tabs);
    connect(m_tabs, &QTabWidget::tabCloseRequested, this, &WorkArea::closeTab);
    connect(m_tabs, &QTabWidget::currentChanged, this, &WorkArea::noteUse);
    addKeys();
}

void WorkArea::addKeys()
{
    const auto addKey = [this](const QKeySequence &key, auto action) {
        auto *shortcut = new QShortcut(key, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, action);
    };
    addKey(QKeySequence(Qt::CTRL | Qt::Key_W), [this] { closeCurrent(); });
    addKey(QKeySequence(Qt::CTRL | Qt::Key_Tab), [this] { step(1); });
    addKey(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), [this] { step(-1); });
    addKey(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), [this] { step(-1); });
    addKey(QKeySequence(Qt::ALT | Qt::Key_Home), [this] { showStartPage(); });
}

WorkArea::~WorkArea()
{
    closeAll();
}

void WorkArea::addPage(KDialogTabPage *page)
{
    m_opened.insert(page, {m_openingKind, freeNumber(m_openingKind)});
    m_tabs->addTab(page, tabText(page));
    connect(page, &KDialogTabPage::titleChanged, this,
            [this, page] { m_tabs->setTabText(m_tabs->indexOf(page), tabText(page)); });
    // Queued: the page may ask for it from within one of its own slots.
    connect(
        page, &KDialogTabPage::closeRequested, this, [this, page] { closePage(indexOf(page)); },
        Qt::QueuedConnection);
    m_tabs->setCurrentWidget(page);
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
    const KReadAhead reading;
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

QSize WorkArea::minimumSizeHint() const
{
    constexpr QSize least(480, 240);
    return {LookSizes::scaled(least.width()), LookSizes::scaled(least.height())};
}

int WorkArea::count() const
{
    return m_tabs->count() - 1;
}

// The tabs without the start page's, which is not the first one while tabs are being drawn about.
int WorkArea::tabOf(int index) const
{
    return index < m_tabs->indexOf(m_startPage) ? index : index + 1;
}

int WorkArea::indexOf(const KDialogTabPage *page) const
{
    for (int index = 0; index < count(); ++index) {
        if (this->page(index) == page)
            return index;
    }
    return -1;
}

KDialogTabPage *WorkArea::page(int index) const
{
    return index < 0 ? nullptr : qobject_cast<KDialogTabPage *>(m_tabs->widget(tabOf(index)));
}

KDialogTabPage *WorkArea::currentPage() const
{
    return qobject_cast<KDialogTabPage *>(m_tabs->currentWidget());
}

void WorkArea::showStartPage()
{
    m_tabs->setCurrentWidget(m_startPage);
}

void WorkArea::setCurrent(int index)
{
    m_tabs->setCurrentIndex(tabOf(index));
}

void WorkArea::closeTab(int tab)
{
    closePage(indexOf(qobject_cast<KDialogTabPage *>(m_tabs->widget(tab))));
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
}

void WorkArea::closeCurrent()
{
    closePage(indexOf(currentPage()));
}

void WorkArea::closeAll()
{
    while (KDialogTabPage *closing = page(0)) {
        tellClosing(closing);
        m_opened.remove(closing);
        delete closing;
    }
}

void WorkArea::step(int direction)
{
    if (count() == 0)
        return;
    const int current = indexOf(currentPage());
    // From the start page, to the first page or the last one.
    const int next = current < 0 && direction < 0 ? count() - 1 : (current + direction + count()) % count();
    setCurrent(next);
}
