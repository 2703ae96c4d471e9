// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/StartPage.h"

#include "host/today/BackupCard.h"
#include "host/today/FirstSteps.h"
#include "host/today/LauncherRow.h"
#include "host/today/MonthFigures.h"
#include "host/today/TodayBoard.h"
#include "host/today/TodayCardView.h"
#include "host/today/TodayTones.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/utility/look/ElidedLabel.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int greetingHeight = 40;
constexpr int besideGreeting = 12;
constexpr int minutesBetweenReadings = 3;
constexpr int lastRank = 99;

}

StartPage::StartPage(const QList<QAction *> &actions, QWidget *parent)
    : QWidget(parent)
    , m_greeting(new ElidedLabel(this))
    , m_line(new ElidedLabel(this))
    , m_chips(new QHBoxLayout)
    , m_launchers(new LauncherRow(actions, this))
    , m_board(new QWidget(this))
    , m_columns(new TodayBoard(m_board))
    , m_figures(new MonthFigures(m_board))
    , m_steps(new FirstSteps(this))
    , m_backups{new BackupCard(m_board), new BackupCard(m_steps)}
    , m_reader([this](const TodayState &state) { show(state); })
{
    setAccessibleName(u"امروز"_s);
    LookFonts::apply(m_greeting, LookFonts::Use::Page);
    m_greeting->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    LookFonts::apply(m_line, LookFonts::Use::Label);

    auto *head = new QHBoxLayout;
    head->setSpacing(LookSizes::scaled(besideGreeting));
    head->addWidget(m_greeting);
    head->addWidget(m_line, 1);
    head->addLayout(m_chips);
    m_chips->setSpacing(LookSizes::unit);
    m_greeting->setMinimumHeight(LookSizes::scaled(greetingHeight));
    m_columns->addCard(m_figures, TodayCard::Figures, 0);
    m_columns->addCard(m_backups[0], TodayCard::Figures, lastRank);
    m_steps->addCard(m_backups[1]);
    m_figures->hide();
    for (BackupCard *card : m_backups) {
        card->hide();
        connect(card, &BackupCard::asked, this, &StartPage::backupAsked);
    }
    auto *scroll = new QScrollArea(this);
    auto *content = new QWidget(scroll);
    auto *either = new QVBoxLayout(content);
    either->setContentsMargins({});
    either->setSpacing(0);
    either->addWidget(m_steps);
    either->addWidget(m_board, 1);
    m_steps->hide();
    connect(m_steps, &FirstSteps::offeredChanged, this, [this](bool offered) {
        m_steps->setVisible(offered);
        m_board->setVisible(!offered);
    });
    scroll->setWidget(content);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    m_board->setAutoFillBackground(false);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(LookSizes::windowMargin, LookSizes::unit / 2, LookSizes::windowMargin, LookSizes::unit);
    column->setSpacing(LookSizes::unit);
    column->addLayout(head);
    column->addWidget(m_launchers);
    column->addWidget(scroll, 1);
    connect(&m_clock, &QTimer::timeout, this, &StartPage::read);
    m_clock.start(minutesBetweenReadings * 60 * 1000);
}

StartPage::~StartPage() = default;

void StartPage::setGreeting(const QString &greeting, const QString &line)
{
    m_greeting->setText(greeting);
    m_line->setText(line);
}

void StartPage::focusFirst()
{
    m_launchers->focusFirst();
}

void StartPage::refresh()
{
    if (GetDBSetting()->IsLoggedIn())
        m_reader.read();
}

// Nobody is disturbed in a window that is open before the page.
void StartPage::read()
{
    if (!isVisible() || QApplication::activeModalWidget())
        return;
    refresh();
    if (GetDBSetting()->IsLoggedIn())
        m_steps->refresh();
}

void StartPage::showFirstSteps()
{
    m_steps->bringBack();
    m_steps->focusFirst();
}

void StartPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    read();
}

TodayCardView *StartPage::viewOf(const QString &card) const
{
    const auto found = std::ranges::find_if(m_views, [&](const TodayCardView *view) { return view->card().id == card; });
    return found == m_views.cend() ? nullptr : *found;
}

// Cards that the user lost the right to go; those that are there keep their rows, and with them the focus.
void StartPage::addCards(const TodayState &state)
{
    m_views.removeIf([&](TodayCardView *view) {
        if (state.cards.contains(view->card().id))
            return false;
        view->hide();
        view->deleteLater();
        return true;
    });
    const QList<TodayCard> cards = TodayCards::cards();
    for (const TodayCard &card : cards) {
        if (!state.cards.contains(card.id) || viewOf(card.id))
            continue;
        auto *view = new TodayCardView(card, m_board);
        m_columns->addCard(view, card.column, card.rank);
        m_views.append(view);
        connect(view, &TodayCardView::opened, this, [this](const TodayLine &line) {
            RecordWindows::open(line.table, line.key, false, window());
            refresh();
        });
        connect(view, &TodayCardView::allAsked, this, [](const QString &table, const KListRequest &request) { RecordWindows::openList(table, request); });
    }
}

void StartPage::show(const TodayState &state)
{
    if (!state.trouble.isEmpty())
        return;
    const QString unit = state.frame.settings ? state.frame.settings->moneyUnitName() : QString();
    addCards(state);
    for (TodayCardView *view : std::as_const(m_views)) {
        const TodayContent content = state.cards.value(view->card().id);
        view->show(content, unit);
        view->setVisible(content.count > 0 || !view->card().emptyText.isEmpty());
    }
    m_figures->setVisible(state.figures.has_value());
    if (state.figures)
        m_figures->show(*state.figures, unit);
    showChips(state);
    m_columns->invalidate();
}

void StartPage::showChips(const TodayState &state)
{
    qDeleteAll(m_chipViews);
    m_chipViews.clear();
    const QList<TodayCard> cards = TodayCards::cards();
    for (const TodayCard &card : cards) {
        const TodayContent content = state.cards.value(card.id);
        if (card.countText.isEmpty() || content.count == 0)
            continue;
        m_chipViews.append(new KChip(TodayTones::chip(content.tone), card.countText.arg(content.count), this));
        m_chips->addWidget(m_chipViews.constLast());
    }
}

void StartPage::setBackups(const BackupStanding &standing)
{
    for (BackupCard *card : m_backups) {
        card->show(standing);
        card->setVisible(standing.kind != BackupStanding::Kind::Unknown);
    }
}
