// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/matching/CDlgMatches.h"

#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/crm/messages/CDlgMessageToPerson.h"
#include "suite/crm/messages/MessageRows.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

CDlgMatches::CDlgMatches(MatchTable table, QWidget *parent)
    : KDialog(parent)
    , m_table(std::move(table))
    , m_subject(new QLabel(this))
    , m_list(new KExtListCtrl(this))
    , m_count(new QLabel(this))
{
    setWindowTitle(m_table.title);
    SetSettingName(m_table.section);
    SetFormName(m_table.form);
    CheckSecurity();
    build();
    resize(QSize(1180, 620).boundedTo(screen()->availableSize() - QSize(40, 60)));
}

CDlgMatches::~CDlgMatches() = default;

void CDlgMatches::Run(MatchTable table, QWidget *parent)
{
    CDlgMatches window(std::move(table), parent);
    if (window.CheckAccessSecurity() && window.load())
        window.exec();
}

void CDlgMatches::build()
{
    m_subject->setTextFormat(Qt::PlainText);
    m_subject->setWordWrap(true);
    LookFonts::apply(m_subject, LookFonts::Use::Strong);
    m_list->setAccessibleName(m_table.title);
    m_list->setColumns(m_table.columns);
    m_list->SetSettingName(m_table.section + u"\\List"_s);
    if (m_table.message)
        m_list->setSeveralMarkable();
    connect(m_list, &KExtListCtrl::currentKeyChanged, this, &CDlgMatches::updateButtons);
    connect(m_list, &KExtListCtrl::rowActivated, this, [this] { showSelected(); });

    auto *content = new QWidget(this);
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    column->setSpacing(LookSizes::cardGap);
    column->addWidget(m_subject);
    auto *card = new KListCard(m_list, content);
    m_empty = new KEmptyState(m_list);
    card->addToFoot(m_count);
    column->addWidget(card, 1);
    setContent(content, createButtons({}, u"بازگشت"_s), Content::Fills);
    addCommands();
    m_list->setFocus();
}

void CDlgMatches::addCommands()
{
    m_show = addButton(footer(), u"نمايش"_s, u":/icons/show.svg"_s);
    LookMarks::setButton(m_show, LookMarks::Button::Primary);
    connect(m_show, &QPushButton::clicked, this, &CDlgMatches::showSelected);
    QPushButton *printButton = addButton(footer(), u"چاپ"_s, u":/icons/print.svg"_s);
    connect(printButton, &QPushButton::clicked, this, &CDlgMatches::print);
    auto *shortcut = new QShortcut(QKeySequence(QKeySequence::Print), this);
    connect(shortcut, &QShortcut::activated, printButton, &QPushButton::click);
    printButton->setToolTip(shortcut->key().toString(QKeySequence::NativeText));
    if (!m_table.message)
        return;
    m_message = addButton(footer(), u"متن پیام"_s, u":/icons/edit.svg"_s);
    connect(m_message, &QPushButton::clicked, this, &CDlgMatches::writeMessages);
    auto *key = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_M), this);
    connect(key, &QShortcut::activated, m_message, &QPushButton::click);
    m_message->setToolTip(key->key().toString(QKeySequence::NativeText));
}

void CDlgMatches::writeMessages()
{
    QList<MessageAbout> about;
    for (const MessageAbout &row : MessageRows::marked(*m_list))
        about.append(m_table.message(row.key));
    CDlgMessageToPerson::run(u"carFound"_s, about, this);
}

bool CDlgMatches::load()
{
    const KWaitCursor wait;
    const int selected = m_list->currentKey();
    std::optional<MatchTable::Contents> contents = m_table.read();
    if (!contents)
        return false;
    m_subject->setText(contents->subject);
    m_list->setRows(std::move(contents->rows));
    if (selected <= 0 || !m_list->selectKey(selected))
        m_list->selectRow(0);
    m_count->setText(SuiteMessages::count(m_list->count()));
    if (m_list->count() == 0)
        m_empty->say(u":/icons/search.svg"_s, m_table.nothing);
    else
        m_empty->dismiss();
    updateButtons();
    return true;
}

void CDlgMatches::updateButtons()
{
    const bool hasRow = m_list->currentKey() > 0;
    m_show->setEnabled(hasRow);
    if (m_message)
        m_message->setEnabled(hasRow);
}

QString CDlgMatches::subject() const
{
    return m_subject->text();
}

QString CDlgMatches::countText() const
{
    return m_count->text();
}

void CDlgMatches::showSelected()
{
    KErrorBoundary::guarded(this, [this] {
        const int key = m_list->currentKey();
        if (key <= 0 || !CheckReadSecurity() || !m_table.show(key, this))
            return;
        if (!load())
            reject();
    });
}

ListReport CDlgMatches::report() const
{
    ListReport report(m_table.report.group, m_table.report.report);
    report.setText(u"RightTop"_s, m_subject->text());
    report.setText(u"LeftBottom"_s, u"تاریخ چاپ : "_s + shamsiText(QDate::currentDate()));
    report.setText(u"Count"_s, m_count->text());
    report.setTable(u"List"_s, m_list);
    if (!report.loadLayout())
        report.buildStandard(m_table.report.title);
    return report;
}

void CDlgMatches::print()
{
    KErrorBoundary::guarded(this, [this] {
        if (!CheckPrintListSecurity())
            return;
        CDlgReportGenerator generator(report(), this);
        generator.ShowReport();
    });
}

KListModel::Cell MatchTexts::percent(int percent)
{
    return {QString::number(percent) + u'%', percent};
}

KListModel::Cell MatchTexts::name(const QString &name)
{
    return {name.isEmpty() ? u"-"_s : name};
}

KListModel::Cell MatchTexts::number(int number)
{
    return number == 0 ? KListModel::Cell{} : KListModel::Cell{QString::number(number), number};
}

KListModel::Cell MatchTexts::latestDate(const QDateTime &date)
{
    return {shamsiText(date.date()), date};
}

KListModel::Cell MatchTexts::sold(bool sold)
{
    return {sold ? u"فروخته شده"_s : u"-"_s};
}

KListModel::Cell MatchTexts::money(double amount)
{
    return amount == 0 ? KListModel::Cell{} : KListModel::Cell{DToMoney(amount), amount};
}
