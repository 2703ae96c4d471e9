// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CDlgPersons.h"

#include "suite/accounting/attachments/CDlgRecordFiles.h"
#include "suite/accounting/books/CDlgAccountDocs.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/importing/CDlgImport.h"
#include "suite/crm/letters/CDlgLetter.h"
#include "suite/crm/persons/CDlgAddPerson.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/persons/PersonAddress.h"
#include "suite/crm/persons/PersonSearch.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/TextStandard.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Long enough not to search for every letter of a word typed at speed.
constexpr int typingPauseMs = 180;

QString listSection()
{
    return u"Persons"_s;
}

KListColumn::Cell kindCell(const CTblPersons &person)
{
    return {person.isNatural() ? u"حقیقی"_s : u"حقوقی"_s};
}

KListColumn::Cell statusCell(const QVariant &status)
{
    return {status.toInt() == CTblPersons::statusActive ? u"فعال"_s : u"غیر فعال"_s};
}

}

CDlgPersons::CDlgPersons(QWidget *parent)
    : KListPage(u"اشخاص"_s, listSection(), listSection(), parent)
{
    build();
    list()->setSeveralMarkable(); // a letter goes to all of them
    list()->installEventFilter(this);
    prepareSearch();
    connect(filters().control<QCheckBox>(u"inactive"), &QCheckBox::toggled, this, [this] { guarded([this] { refill(); }); });
}

CDlgPersons::~CDlgPersons() = default;

int CDlgPersons::SelectPerson(QWidget *parent, int mode, int current)
{
    if (mode != modePickOne)
        return 0;
    auto *page = new CDlgPersons;
    page->setSelectMode(true, current);
    page->list()->setSelectionMode(QAbstractItemView::SingleSelection);
    page->m_leadingKey = current;
    KDialogHolder holder(page, parent);
    holder.setWindowTitle(u"انتخاب شخص"_s);
    holder.resize(LookSizes::scaled(960), LookSizes::scaled(600));
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

QList<KListColumn> CDlgPersons::columnTable() const
{
    constexpr auto right = Qt::AlignRight;
    return {
        {.key = u"code"_s, .title = u"کد شخص"_s, .width = 40, .sortKey = u"iCode"_s, .column = u"iCode"_s},
        {.key = u"name"_s, .title = u"نام و نام خانوادگی"_s, .width = 110, .alignment = right, .sortKey = defaultSort(), .column = u"sName2"_s},
        {.key = u"father"_s, .title = u"نام پدر"_s, .width = 55, .alignment = right, .sortKey = u"sFatherName"_s, .column = u"sFatherName"_s},
        {.key = u"nationalCode"_s, .title = u"کد ملی"_s, .width = 60, .sortKey = u"sNationalCode"_s, .column = u"sNationalCode"_s},
        {.key = u"mobile"_s, .title = u"موبایل"_s, .width = 60, .sortKey = u"sMobile"_s, .column = u"sMobile"_s},
        {.key = u"telephone"_s, .title = u"تلفن"_s, .width = 60, .sortKey = u"sTel"_s, .column = u"sTel"_s},
        {.key = u"kind"_s, .title = u"نوع شخص"_s, .width = 45, .sortKey = u"iKind"_s, .cell = KListColumn::of<CTblPersons>(kindCell), .reads = {u"iKind"_s}},
        {.key = u"status"_s, .title = u"وضعیت"_s, .width = 40, .sortKey = u"iStatus"_s, .column = u"iStatus"_s, .show = statusCell},
        {.key = u"address"_s, .title = u"آدرس"_s, .width = 150, .alignment = right, .sortKey = u"sAddress"_s, .column = u"sAddress"_s},
    };
}

QList<KListFilter> CDlgPersons::filterTable() const
{
    return PersonSearch::filters();
}

KListTraits CDlgPersons::traits() const
{
    return {.emptyIcon = u":/icons/users.svg"_s};
}

std::vector<KListCommand> CDlgPersons::commands()
{
    return {
        {.id = u"new"_s, .caption = u"جديد"_s, .options = KListCommand::HiddenInReadOnly, .run = [this] { addPerson(); }, .shortcut = QKeySequence(Qt::Key_Insert), .icon = u":/icons/new.svg"_s, .needs = Write},
        {.id = u"edit"_s, .caption = u"ويرايش"_s, .options = KListCommand::NeedsRow | KListCommand::HiddenInReadOnly, .run = [this] { editPerson(); }, .shortcut = QKeySequence(Qt::Key_F2), .icon = u":/icons/edit.svg"_s, .needs = Modify},
        {.id = u"show"_s, .caption = u"نمايش"_s, .options = KListCommand::NeedsRow, .run = [this] { showPerson(); }, .shortcut = QKeySequence(Qt::Key_F3), .icon = u":/icons/show.svg"_s, .needs = Read},
        {.id = u"statement"_s, .caption = u"صورتحساب"_s, .options = KListCommand::NeedsRow, .run = [this] { showStatement(); }, .shortcut = QKeySequence(Qt::Key_F6), .icon = u":/icons/document.svg"_s},
        {.id = u"letter"_s, .caption = u"نامه"_s, .options = KListCommand::NeedsRow | KListCommand::HiddenInSelect, .run = [this] { writeLetter(); }, .icon = u":/icons/edit.svg"_s, .needs = PrintList},
        {.id = u"files"_s, .caption = u"پرونده‌ها"_s, .options = KListCommand::NeedsRow | KListCommand::HiddenInSelect, .run = [this] { showFiles(); }, .icon = u":/icons/attach.svg"_s, .needs = Read},
        printCommand(KListCommand::HiddenInSelect | KListCommand::StartsGroup),
        {.id = u"import"_s, .caption = u"ورود از فایل"_s, .options = KListCommand::HiddenInReadOnly | KListCommand::HiddenInSelect, .run = [this] { importFile(); }, .icon = u":/icons/table.svg"_s, .needs = Write},
    };
}

KListReport CDlgPersons::reportSpec() const
{
    return {u"لیست اشخاص"_s, u"اشخاص"_s, u"لیست اشخاص"_s};
}

void CDlgPersons::buildFilters(QGridLayout *grid)
{
    m_notice = new QLabel(grid->parentWidget());
    m_notice->setObjectName(u"notice"_s);
    m_notice->setText(u"همه در فهرست جا نشدند؛ جستجو را کامل تر کنید."_s);
    m_notice->setForegroundRole(QPalette::PlaceholderText);
    m_notice->hide();
    grid->addWidget(m_notice, 1, 1, 1, 2);
}

void CDlgPersons::prepareSearch()
{
    m_search = filters().control<KEdit>(u"search");
    m_search->setPlaceholderText(u"نام، کد، کد ملی، موبایل یا تلفن"_s);
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    m_typing.setSingleShot(true);
    m_typing.setInterval(typingPauseMs);
    connect(&m_typing, &QTimer::timeout, this, [this] { guarded([this] { searchNow(); }); });
    connect(m_search, &KEdit::textChanged, &m_typing, qOverload<>(&QTimer::start));
}

// The page is entered to search; its rows are reached from there. (A focus proxy would break the way of Tab.)
void CDlgPersons::focusInEvent(QFocusEvent *event)
{
    m_search->setFocus(event->reason());
}

std::unique_ptr<KMySQL> CDlgPersons::makeRecords() const
{
    return std::make_unique<CTblPersons>();
}

QString CDlgPersons::defaultSort() const
{
    return u"sName2"_s;
}

void CDlgPersons::completeRows(QVector<KListModel::Row> &rows)
{
    notice(rows.size());
    const QString searched = ConvertToStandard(m_search->text());
    CTblPersons person;
    person.SetColumns(fetchedColumns());
    bool isCode = false;
    const int code = searched.toInt(&isCode);
    const bool found = isCode ? person.IsRecordExist(u"iCode"_s, code, 0, " AND " + filterClauses())
                              : searched.isEmpty() && m_leadingKey > 0 && person.IsRecordExist(u"iID"_s, m_leadingKey);
    if (found)
        lead(person, rows);
}

void CDlgPersons::notice(qsizetype rows)
{
    m_notice->setVisible(rows >= rowLimit());
}

// The caller searches: what the reset changes does not search again.
void CDlgPersons::resetFilter()
{
    const QSignalBlocker inactive(filters().control(u"inactive"));
    KListPage::resetFilter();
    m_typing.stop();
}

// Brings the person to the front of the rows, where the limit may not have let it in.
void CDlgPersons::lead(CTblPersons &person, QVector<KListModel::Row> &rows)
{
    const auto same = std::find_if(rows.begin(), rows.end(), [&](const auto &row) { return row.key == person.m_iID; });
    if (same != rows.end())
        rows.erase(same);
    rows.prepend(rowOf(person, 1));
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

void CDlgPersons::importFile()
{
    if (!isChangeBlocked() && CheckWriteSecurity() && CDlgImport::run(u"persons"_s, window()))
        refill();
}

void CDlgPersons::showStatement()
{
    CDlgAccountDocs::ShowPerson(list()->currentKey(), window());
}

// To all who are marked, from the first in the list.
void CDlgPersons::writeLetter()
{
    QList<qint32> persons;
    for (const int row : list()->markedRows())
        persons.append(list()->listModel()->keyAt(row));
    CDlgLetter::write(persons, &PersonAddress::read, window());
}

void CDlgPersons::showFiles()
{
    const QList<LetterRecipient> found = PersonAddress::read({list()->currentKey()});
    if (found.isEmpty())
        g_pDlgWarning->Show(u"این شخص دیگر وجود ندارد."_s, window());
    else
        CDlgRecordFiles::show(listSection(), u"پرونده‌های %1"_s.arg(found.constFirst().name), RecordKind::Person, found.constFirst().id, window());
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

// Typing in the list continues the search.
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
