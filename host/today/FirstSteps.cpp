// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/FirstSteps.h"

#include "host/today/FirstStepRow.h"
#include "host/today/IconMark.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KErrorText.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/db/connection/KConnection.h"
#include "suite/utility/look/ElidedLabel.h"
#include "suite/utility/look/KChip.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/KSettings.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLoggingCategory>
#include <QPushButton>
#include <QResizeEvent>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcFirstSteps, "tz.firststeps")

constexpr int besideCards = 12;
constexpr int stepsHead = 40;
constexpr int stepsEdge = 4; // of the card, around its rows
constexpr int sideBySide = 900;
constexpr int listStretch = 5;
constexpr int promiseStretch = 3;
const QString stepsTitle = u"گام‌های نخست"_s;
const QString hiddenSection = u"tzhost\\FirstSteps"_s;

struct Promise
{
    const char *icon;
    const char *title;
    const char *text;
};

// What stands on the page of an office that works.
constexpr Promise promises[] = {
    {":/icons/calendar.svg", "اقساط و چک‌ها", "پس از نخستین فروش اقساطی، سررسیدها اینجا می‌آیند."},
    {":/icons/reminder.svg", "یادآوری‌ها", "برای هر مشتری یا خودرو یادآوری بگذارید."},
    {":/icons/search.svg", "خودروهای متناسب با تقاضا", "تقاضا و خودرو که ثبت شوند، برنامه آن‌ها را به هم می‌رساند."},
    {":/icons/money.svg", "ارقام ماه", "شمار قراردادها، مبلغ و کمیسیون، با نمودار."},
};

QWidget *promiseCard(const Promise &promise, QWidget *parent)
{
    auto *card = new QFrame(parent);
    LookMarks::setCard(card);
    auto *picture = new IconMark(QString::fromUtf8(promise.icon), card);
    auto *title = new ElidedLabel(QString::fromUtf8(promise.title), card);
    LookFonts::apply(title, LookFonts::Use::Strong);
    auto *text = new QLabel(QString::fromUtf8(promise.text), card);
    text->setWordWrap(true);
    LookFonts::apply(text, LookFonts::Use::Label);
    auto *head = new QHBoxLayout;
    head->setSpacing(LookSizes::iconGap);
    head->addWidget(picture);
    head->addWidget(title, 1);
    auto *column = new QVBoxLayout(card);
    column->setContentsMargins(LookSizes::cardPadding, besideCards, LookSizes::cardPadding, besideCards);
    column->addLayout(head);
    column->addWidget(text);
    return card;
}

}

FirstSteps::FirstSteps(QWidget *parent)
    : QWidget(parent)
    , m_sides(new QBoxLayout(QBoxLayout::LeftToRight, this))
{
    setAccessibleName(stepsTitle);
    m_sides->setContentsMargins({});
    m_sides->setSpacing(besideCards);
    m_sides->addWidget(makeList(), listStretch, Qt::AlignTop);
    m_sides->addWidget(makePromises(), promiseStretch, Qt::AlignTop);
}

QWidget *FirstSteps::makeList()
{
    auto *card = new QFrame(this);
    LookMarks::setCard(card);
    card->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *title = new QLabel(stepsTitle, card);
    LookFonts::apply(title, LookFonts::Use::Title);
    m_count = new KChip(KChip::Kind::Info, {}, card);
    auto *dismissing = new QPushButton(u"پنهان کردن"_s, card);
    dismissing->setAccessibleName(u"پنهان کردن گام‌های نخست"_s);
    dismissing->setAutoDefault(true);
    LookMarks::setButton(dismissing, LookMarks::Button::Flat);
    connect(dismissing, &QPushButton::clicked, this, &FirstSteps::dismiss);

    auto *head = new QHBoxLayout;
    head->setContentsMargins(besideCards, 0, besideCards, 0);
    head->setSpacing(LookSizes::unit);
    head->addWidget(title);
    head->addWidget(m_count);
    head->addStretch(1);
    head->addWidget(dismissing);
    head->addStrut(LookSizes::scaled(stepsHead));
    m_rows = new QVBoxLayout;
    m_rows->setSpacing(stepsEdge / 2);
    auto *column = new QVBoxLayout(card);
    column->setContentsMargins(stepsEdge, stepsEdge, stepsEdge, stepsEdge);
    column->setSpacing(stepsEdge / 2);
    column->addLayout(head);
    column->addLayout(m_rows);
    return card;
}

QWidget *FirstSteps::makePromises()
{
    auto *all = new QWidget(this);
    all->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_promises = new QVBoxLayout(all);
    m_promises->setContentsMargins({});
    m_promises->setSpacing(besideCards);
    for (const Promise &promise : promises)
        m_promises->addWidget(promiseCard(promise, all));
    return all;
}

void FirstSteps::addCard(QWidget *card)
{
    m_promises->addWidget(card);
}

bool FirstSteps::isHiddenByUser()
{
    return ReadSetting(hiddenSection, u"iHidden%1"_s.arg(GetDBSetting()->GetUserID()), 0) != 0;
}

void FirstSteps::setHiddenByUser(bool hidden)
{
    WriteSetting(hiddenSection, u"iHidden%1"_s.arg(GetDBSetting()->GetUserID()), hidden ? 1 : 0);
}

bool FirstSteps::isOffered() const
{
    if (!m_isRead || m_state.steps.isEmpty())
        return false;
    return m_isAsked || (!m_state.hasBegun && !isHiddenByUser());
}

void FirstSteps::tell(bool wasOffered)
{
    if (isOffered() != wasOffered)
        Q_EMIT offeredChanged(isOffered());
}

void FirstSteps::refresh()
{
    if (KConnection::isWaiting() || (m_isRead && m_state.hasBegun && !m_isAsked))
        return;
    const bool wasOffered = isOffered();
    try {
        showState(FirstStepList::read());
        m_isRead = true;
    } catch (const CMySQLException &) {
        qCWarning(lcFirstSteps).noquote() << "not read:" << KErrorText::logText(std::current_exception());
    }
    tell(wasOffered);
}

// The rows stay as long as the steps are the same, so that the focus does.
void FirstSteps::showState(const FirstStepState &state)
{
    const bool isSame = state.steps.size() == m_state.steps.size()
        && std::equal(state.steps.cbegin(), state.steps.cend(), m_state.steps.cbegin(), [](const auto &one, const auto &other) { return one.step.id == other.step.id; });
    m_state = state;
    if (!isSame) {
        qDeleteAll(m_steps);
        m_steps.clear();
        for (qsizetype place = 0; place < state.steps.size(); ++place) {
            const FirstStep &step = state.steps.at(place).step;
            auto *row = new FirstStepRow(int(place) + 1, step.title, step.line, this);
            connect(row, &FirstStepRow::chosen, this, [this, place] { take(place); });
            m_rows->addWidget(row);
            m_steps.append(row);
        }
    }
    const qsizetype next = state.next();
    for (qsizetype place = 0; place < m_steps.size(); ++place) {
        const bool isDone = state.steps.at(place).isDone;
        const bool hadFocus = isDone && m_steps.at(place)->button()->hasFocus();
        m_steps.at(place)->setState(isDone ? FirstStepRow::State::Done : place == next ? FirstStepRow::State::Next
                                                                                       : FirstStepRow::State::Open);
        if (hadFocus)
            focusFirst();
    }
    m_count->setText(u"%1 از %2"_s.arg(state.doneCount()).arg(state.steps.size()));
    m_count->updateGeometry();
}

void FirstSteps::take(qsizetype place)
{
    const FirstStep step = m_state.steps.at(place).step;
    KErrorBoundary::guarded(window(), [&] { step.open(window()); });
    refresh();
}

void FirstSteps::dismiss()
{
    const bool wasOffered = isOffered();
    m_isAsked = false;
    setHiddenByUser(true);
    tell(wasOffered);
}

void FirstSteps::bringBack()
{
    const bool wasOffered = isOffered();
    m_isAsked = true;
    setHiddenByUser(false);
    refresh();
    tell(wasOffered);
}

void FirstSteps::focusFirst()
{
    const qsizetype next = m_state.next();
    if (next >= 0)
        m_steps.at(next)->button()->setFocus(Qt::OtherFocusReason);
}

void FirstSteps::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const bool isWide = event->size().width() >= LookSizes::scaled(sideBySide);
    m_sides->setDirection(isWide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}
