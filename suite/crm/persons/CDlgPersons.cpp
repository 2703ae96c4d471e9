// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CDlgPersons.h"

#include "suite/crm/persons/CDlgAddPerson.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/persons/PersonSearch.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/TextStandard.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Long enough not to search for every letter of a word typed at speed.
constexpr int typingPauseMs = 180;

QString section()
{
    return u"Persons"_s;
}

QString keyColumn()
{
    return u"iID"_s;
}

}

CDlgPersons::CDlgPersons(QWidget *parent)
    : KListPage(u"اشخاص"_s, section(), section(), parent)
{
    build();
    list()->installEventFilter(this);
    m_typing.setSingleShot(true);
    m_typing.setInterval(typingPauseMs);
    connect(&m_typing, &QTimer::timeout, this, [this] { guarded([this] { searchNow(); }); });
    connect(m_search, &KEdit::textChanged, &m_typing, qOverload<>(&QTimer::start));
    connect(m_showInactive, &QCheckBox::toggled, this, [this] { guarded([this] { refill(); }); });
}

CDlgPersons::~CDlgPersons() = default;

int CDlgPersons::SelectPerson(QWidget *parent, int mode, int current)
{
    if (mode != modePickOne)
        return 0;
    auto *page = new CDlgPersons;
    page->setSelectMode(true, current);
    page->m_leadingKey = current;
    page->m_showInactive->hide();
    KDialogHolder holder(page, parent);
    holder.setWindowTitle(u"انتخاب شخص"_s);
    holder.resize(960, 600);
    holder.SetSettingName(u"Persons\\Select"_s);
    return holder.exec() == QDialog::Accepted ? page->chosenKey() : 0;
}

bool CDlgPersons::OnOK()
{
    // Enter may come before the pause after the last letter is over.
    if (m_typing.isActive())
        searchNow();
    return KListPage::OnOK();
}

void CDlgPersons::OnClosing()
{
    m_typing.stop();
    KListPage::OnClosing();
}

QVector<KListModel::Column> CDlgPersons::listColumns() const
{
    return {
        {u"کد شخص"_s, Qt::AlignHCenter, 40, u"iCode"_s},
        {u"نام و نام خانوادگی"_s, Qt::AlignRight, 110, defaultSort()},
        {u"نام پدر"_s, Qt::AlignRight, 55, PersonSearch::alphabetical(u"sFatherName"_s)},
        {u"کد ملی"_s, Qt::AlignHCenter, 60, u"sNationalCode"_s},
        {u"موبایل"_s, Qt::AlignHCenter, 60, u"sMobile"_s},
        {u"تلفن"_s, Qt::AlignHCenter, 60, u"sTel"_s},
        {u"نوع شخص"_s, Qt::AlignHCenter, 45, u"iKind"_s},
        {u"وضعیت"_s, Qt::AlignHCenter, 40, u"iStatus"_s},
        {u"آدرس"_s, Qt::AlignRight, 150, PersonSearch::alphabetical(u"sAddress"_s)},
    };
}

QStringList CDlgPersons::fetchedColumns() const
{
    return {keyColumn(), u"iCode"_s, u"sName2"_s, u"sFatherName"_s,
            u"sNationalCode"_s, u"sMobile"_s, u"sTel"_s,
            u"iKind"_s, u"sAddress"_s, u"iStatus"_s};
}

KListModel::Row CDlgPersons::makeRow(KMySQL &record, int)
{
    const auto &person = static_cast<const CTblPersons &>(record);
    const bool active = person.m_iStatus == CTblPersons::statusActive;
    return {person.m_iID,
            {
                {IToStr(person.m_iCode), person.m_iCode},
                {person.m_sName2},
                {person.m_sFatherName},
                {person.m_sNationalCode},
                {person.m_sMobile},
                {person.m_sTel},
                {person.isNatural() ? u"حقیقی"_s : u"حقوقی"_s},
                {active ? u"فعال"_s : u"غیر فعال"_s},
                {person.m_sAddress},
            }};
}

std::vector<KListCommand> CDlgPersons::commands()
{
    return {
        {.id = u"new"_s, .caption = u"جديد"_s, .options = KListCommand::HiddenInReadOnly, .run = [this] { addPerson(); }, .shortcut = QKeySequence(Qt::Key_Insert), .icon = u":/icons/new.svg"_s},
        {.id = u"edit"_s, .caption = u"ويرايش"_s, .options = KListCommand::NeedsRow | KListCommand::HiddenInReadOnly, .run = [this] { editPerson(); }, .shortcut = QKeySequence(Qt::Key_F2), .icon = u":/icons/edit.svg"_s},
        {.id = u"show"_s, .caption = u"نمايش"_s, .options = KListCommand::NeedsRow, .run = [this] { showPerson(); }, .shortcut = QKeySequence(Qt::Key_F3), .icon = u":/icons/show.svg"_s},
        printCommand(KListCommand::HiddenInSelect | KListCommand::StartsGroup),
    };
}

KListReport CDlgPersons::reportSpec() const
{
    return {u"لیست اشخاص"_s, u"اشخاص"_s, u"لیست اشخاص"_s};
}

void CDlgPersons::buildFilters(QGridLayout *grid)
{
    m_search = new KEdit(grid->parentWidget());
    m_search->setPlaceholderText(u"نام، کد، کد ملی، موبایل یا تلفن"_s);
    m_search->setClearButtonEnabled(true);
    m_search->setMaxLength(100);
    m_search->installEventFilter(this);
    addFilter(grid, 0, 0, u"جستجو :"_s, m_search);
    m_showInactive = new QCheckBox(u"نمايش غير فعال ها"_s, grid->parentWidget());
    grid->addWidget(m_showInactive, 0, 2);
    m_notice = new QLabel(grid->parentWidget());
    m_notice->setObjectName(u"notice"_s);
    m_notice->setForegroundRole(QPalette::PlaceholderText);
    m_notice->hide();
    grid->addWidget(m_notice, 1, 1, 1, 2);
    grid->setColumnStretch(1, 1);
    setFocusProxy(m_search);
}

QWidget *CDlgPersons::firstFilterControl() const
{
    return m_search;
}

std::unique_ptr<KMySQL> CDlgPersons::makeRecords() const
{
    return std::make_unique<CTblPersons>();
}

QString CDlgPersons::filterClauses() const
{
    QString clauses;
    if (!m_showInactive->isChecked())
        clauses += u" AND iStatus=0"_s;
    if (const QString searched = PersonSearch::condition(m_search->text()); !searched.isEmpty())
        clauses += u" AND "_s + searched;
    return clauses;
}

QString CDlgPersons::defaultSort() const
{
    return PersonSearch::alphabetical(u"sName2"_s);
}

void CDlgPersons::completeRows(QVector<KListModel::Row> &rows)
{
    notice(rows.size());
    const QString searched = ConvertToStandard(m_search->text());
    CTblPersons person;
    person.SetColumns(fetchedColumns());
    bool isCode = false;
    const int code = searched.toInt(&isCode);
    const bool found = isCode ? person.IsRecordExist(u"iCode"_s, code, 0, filterClauses())
                              : searched.isEmpty() && m_leadingKey > 0 && person.IsRecordExist(keyColumn(), m_leadingKey);
    if (found)
        lead(person, rows);
}

void CDlgPersons::notice(qsizetype rows)
{
    QString text;
    if (rows >= rowLimit())
        text = u"همه در فهرست جا نشدند؛ جستجو را کامل تر کنید."_s;
    else if (rows == 0 && !m_search->text().trimmed().isEmpty())
        text = isReadOnly() ? u"کسی پیدا نشد."_s
                            : u"کسی پیدا نشد؛ با «جديد» شخص تازه ای اضافه کنید."_s;
    m_notice->setText(text);
    m_notice->setVisible(!text.isEmpty());
}

// Brings the person to the front of the rows, where the limit may not have let it in.
void CDlgPersons::lead(CTblPersons &person, QVector<KListModel::Row> &rows)
{
    const auto same = std::find_if(rows.begin(), rows.end(), [&](const auto &row) { return row.key == person.m_iID; });
    if (same != rows.end())
        rows.erase(same);
    rows.prepend(makeRow(person, 1));
}

// What is found replaces the list, so its first row is the one that Enter means.
void CDlgPersons::searchNow()
{
    m_typing.stop();
    refill();
    list()->selectRow(0);
}

void CDlgPersons::activated(int)
{
    if (!isChangeBlocked() && CheckModifySecurity(0))
        editPerson();
    else
        showPerson();
}

void CDlgPersons::emptyAreaActivated()
{
    addPerson();
}

void CDlgPersons::addPerson()
{
    if (isChangeBlocked() || !CheckWriteSecurity())
        return;
    const int added = CDlgAddPerson::Add(window(), m_search->text());
    if (added == 0)
        return;
    m_leadingKey = added;
    searchNow();
    if (!list()->selectKey(added)) {
        // What was searched for does not find the person under the name that was entered.
        m_search->clear();
        searchNow();
    }
    m_search->setFocus();
}

void CDlgPersons::editPerson()
{
    const int key = list()->currentKey();
    if (key == 0 || isChangeBlocked() || !CheckModifySecurity() || !CDlgAddPerson::Edit(window(), key))
        return;
    refill();
    list()->selectKey(key);
}

void CDlgPersons::showPerson()
{
    const int key = list()->currentKey();
    if (key != 0 && CheckReadSecurity())
        CDlgAddPerson::Show(window(), key);
}

void CDlgPersons::showEvent(QShowEvent *event)
{
    KListPage::showEvent(event);
    m_search->setFocus();
}

bool CDlgPersons::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (watched == m_search)
            return searchKeyPressed(key);
        if (watched == list())
            return listKeyPressed(key);
    }
    return KListPage::eventFilter(watched, event);
}

bool CDlgPersons::searchKeyPressed(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(list(), event);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        guarded([this] {
            if (m_typing.isActive())
                searchNow();
            if (const int key = list()->currentKey(); key != 0)
                Q_EMIT list()->rowActivated(key);
        });
        return true;
    default:
        return false;
    }
}

// Typing in the list goes on with the search.
bool CDlgPersons::listKeyPressed(QKeyEvent *event)
{
    const QString text = event->text();
    if (text.isEmpty() || !(text.front().isLetterOrNumber() || event->key() == Qt::Key_Backspace))
        return false;
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    m_search->setFocus();
    m_search->deselect();
    m_search->end(false);
    QCoreApplication::sendEvent(m_search, event);
    return true;
}
