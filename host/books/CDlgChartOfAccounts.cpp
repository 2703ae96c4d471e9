// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgChartOfAccounts.h"

#include "host/books/CDlgAddAccount.h"
#include "suite/accounting/books/DocumentRowsPane.h"
#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/books/AccountLedger.h"
#include "suite/accounting/books/CDlgAccountDocs.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/entries/EntryRange.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KCommandButton.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/lists/ListLook.h"
#include "suite/utility/lists/NumberDelegate.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "suite/utility/frame/TabOrder.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QStandardItemModel>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

enum Column {
    CodeColumn,
    NameColumn,
    ChartDebitColumn,
    ChartCreditColumn,
    BalanceColumn,
    NatureColumn,
    StateColumn
};

constexpr int codeRole = KListModel::KeyRole;

QVector<KListModel::Column> columns()
{
    return {
        {u"کد حساب"_s, Qt::AlignRight, 110},
        {u"نام حساب"_s, Qt::AlignRight, 200},
        {u"بدهکار"_s, Qt::AlignRight, 90},
        {u"بستانکار"_s, Qt::AlignRight, 90},
        {u"مانده"_s, Qt::AlignRight, 90},
        {u"تشخیص"_s, Qt::AlignHCenter, 45},
        {u"وضعیت"_s, Qt::AlignHCenter, 55},
    };
}

KListModel::Row rowCells(const ChartRows::Row &row)
{
    return {row.code,
            {{QString::number(row.code), row.code},
             {row.name},
             DocumentRowsPane::sideCell(row.balance.bed),
             DocumentRowsPane::sideCell(row.balance.bes),
             {DToMoney(std::abs(row.balance.net())), row.balance.net()},
             {row.balance.nature()},
             {row.active ? u"فعال"_s : u"غیرفعال"_s}}};
}

QList<QStandardItem *> makeItems(const ChartRows::Row &row)
{
    const KListModel::Row cells = rowCells(row);
    const QVector<KListModel::Column> titles = columns();
    QList<QStandardItem *> items;
    for (int column = 0; column < titles.size(); ++column) {
        auto *item = new QStandardItem(cells.cells.at(column).text);
        item->setEditable(false);
        item->setData(row.code, codeRole);
        item->setData(cells.cells.at(column).value, KListModel::SortRole);
        item->setTextAlignment(titles.at(column).alignment | Qt::AlignVCenter | Qt::AlignAbsolute);
        QFont font;
        font.setBold(row.level == AccountLevel::Kol);
        font.setItalic(!row.active);
        item->setFont(font);
        items.append(item);
    }
    return items;
}

}

CDlgChartOfAccounts::CDlgChartOfAccounts(QWidget *parent)
    : KDialogTabPage(parent)
    , m_tree(new QTreeView(this))
    , m_model(new QStandardItemModel(this))
{
    setTitle(u"سرفصل حساب‌ها"_s);
    SetFormName(u"ChartOfAccounts"_s);
    CheckSecurity();
    m_tree->setModel(m_model);
    m_tree->setItemDelegate(new NumberDelegate(m_tree));
    m_tree->setAccessibleName(title());
    m_tree->setLayoutDirection(Qt::RightToLeft);
    m_tree->setUniformRowHeights(true);
    ListLook::apply(m_tree);
    m_tree->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_tree->setExpandsOnDoubleClick(false);
    m_tree->header()->setSectionsMovable(false);
    // Always there, so that the columns keep their place when accounts are opened and closed.
    m_tree->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_tree->installEventFilter(this);
    connect(m_tree, &QTreeView::doubleClicked, this, [this] { guarded(&CDlgChartOfAccounts::showDocuments); });
    connect(m_tree->selectionModel(), &QItemSelectionModel::selectionChanged, this, &CDlgChartOfAccounts::takeSelection);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    layout->setSpacing(LookSizes::unit);
    auto *card = new KListCard(m_tree, this);
    m_count = new QLabel(card);
    card->addToFoot(m_count);
    layout->addWidget(buildFilter());
    layout->addWidget(card, 1);
    layout->addWidget(buildCommands());
    tabInLayoutOrder(this);
}

CDlgChartOfAccounts::~CDlgChartOfAccounts() = default;

bool CDlgChartOfAccounts::OnAccess()
{
    return CheckAccessSecurity(1);
}

QWidget *CDlgChartOfAccounts::buildFilter()
{
    auto *box = new QGroupBox(u"فيلتر جستجو"_s, this);
    auto *row = new QHBoxLayout(box);
    m_text = new KEdit(box);
    m_from = new KDateEdit(box);
    m_to = new KDateEdit(box);
    row->setSpacing(LookSizes::unit);
    for (QLabel *label : {addLabelled(row, u"کد یا نام :"_s, m_text, 1), addLabelled(row, u"مانده از تاریخ :"_s, m_from),
                          addLabelled(row, u"تا تاریخ :"_s, m_to)})
        LookFonts::apply(label, LookFonts::Use::Label);
    m_inactive = new QCheckBox(u"نمایش غیرفعال‌ها"_s, box);
    m_inactive->setAccessibleName(m_inactive->text());
    m_inactive->setChecked(true);
    auto *search = new QPushButton(LookIcons::icon(u":/icons/search.svg"_s), u"جستجو"_s, box);
    search->setAccessibleName(search->text());
    search->setAutoDefault(true);
    row->addWidget(m_inactive);
    row->addWidget(search);
    connect(search, &QPushButton::clicked, this, [this] { guarded(&CDlgChartOfAccounts::refill); });
    for (QLineEdit *edit : {static_cast<QLineEdit *>(m_text), static_cast<QLineEdit *>(m_from), static_cast<QLineEdit *>(m_to)})
        connect(edit, &QLineEdit::returnPressed, search, &QPushButton::click);
    auto *find = new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, this, [this] { m_text->setFocus(Qt::ShortcutFocusReason); });
    auto *refresh = new QShortcut(QKeySequence(Qt::Key_F5), this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(refresh, &QShortcut::activated, search, &QPushButton::click);
    search->setToolTip(refresh->key().toString(QKeySequence::NativeText));
    LookMarks::setTall(box);
    return box;
}

// Without a form the right is one on this page.
QPushButton *CDlgChartOfAccounts::addCommand(QHBoxLayout *row, const QString &caption, const QString &icon,
                                             const QKeySequence &shortcut, void (CDlgChartOfAccounts::*run)(),
                                             KSecurity::Right needs, const QString &form)
{
    auto *button = new KCommandButton(LookIcons::icon(u":/icons/%1.svg"_s.arg(icon)), caption, row->parentWidget());
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, [this, run] { guarded(run); });
    if (!shortcut.isEmpty()) {
        auto *key = new QShortcut(shortcut, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
        connect(key, &QShortcut::activated, button, [button] {
            if (!button->isHidden())
                button->click();
        });
        button->setShortcutTip(shortcut);
    }
    const QString &rightForm = form.isEmpty() ? FormName() : form;
    if (!IsGranted(rightForm, needs))
        button->setHindrance(refusalText(rightForm, needs));
    if (needs == Write || needs == Modify)
        m_changing.append(button);
    row->addWidget(button);
    return button;
}

QWidget *CDlgChartOfAccounts::buildCommands()
{
    auto *box = new QWidget(this);
    auto *row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(LookSizes::unit);
    addCommand(row, u"حساب کل جدید"_s, u"new"_s, QKeySequence(Qt::SHIFT | Qt::Key_Insert),
               &CDlgChartOfAccounts::addGeneral, Write);
    m_addBelow = addCommand(row, u"زیرحساب جدید"_s, u"new"_s, QKeySequence(Qt::Key_Insert),
                            &CDlgChartOfAccounts::addBelow, Write);
    LookMarks::setButton(m_addBelow, LookMarks::Button::Primary);
    m_rename = addCommand(row, u"تغییر نام"_s, u"edit"_s, QKeySequence(Qt::Key_F2),
                          &CDlgChartOfAccounts::rename, Modify);
    m_toggle = addCommand(row, u"فعال / غیرفعال"_s, u"archive"_s, {},
                          &CDlgChartOfAccounts::toggleActive, Modify);
    row->addSpacing(LookSizes::sideGap - LookSizes::unit);
    m_documents = addCommand(row, u"گردش حساب"_s, u"document"_s, {},
                             &CDlgChartOfAccounts::showDocuments, Read, u"Documents"_s);
    addCommand(row, u"چاپ"_s, u"print"_s, QKeySequence(QKeySequence::Print),
               &CDlgChartOfAccounts::print, PrintList);
    row->addStretch(1);
    LookMarks::setTall(box);
    return box;
}

void CDlgChartOfAccounts::showEvent(QShowEvent *event)
{
    KDialogTabPage::showEvent(event);
    if (m_opened)
        return;
    m_opened = true;
    guarded(&CDlgChartOfAccounts::refill);
    m_tree->setFocus(Qt::OtherFocusReason);
}

void CDlgChartOfAccounts::focusInEvent(QFocusEvent *event)
{
    m_tree->setFocus(event->reason());
}

// Enter opens the account's sheet, as a double click does.
bool CDlgChartOfAccounts::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_tree && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isEnter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (isEnter && (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier && currentCode() != 0) {
            guarded(&CDlgChartOfAccounts::showDocuments);
            return true;
        }
    }
    return KDialogTabPage::eventFilter(watched, event);
}

void CDlgChartOfAccounts::guarded(void (CDlgChartOfAccounts::*command)())
{
    KErrorBoundary::guarded(this, std::bind_front(command, this));
}

// A date that is being typed keeps the tree as it is.
void CDlgChartOfAccounts::refresh()
{
    if (m_opened && m_from->isEntryValid() && m_to->isEntryValid())
        guarded(&CDlgChartOfAccounts::refill);
}

void CDlgChartOfAccounts::refill()
{
    if (const auto problem = problemOfDays(m_from, m_to)) {
        g_pDlgWarning->Show(problem->message, this);
        problem->line->setFocus(Qt::TabFocusReason);
        return;
    }
    const KWaitCursor wait;
    noteReading();
    m_closed = GetDBSetting()->IsClosedDB();
    m_rows = ChartRows::read(m_from->dateTime(), m_to->dateTime());
    showRows();
}

void CDlgChartOfAccounts::showRows()
{
    const int remembered = currentCode();
    const int top = m_tree->verticalScrollBar()->value();
    m_shown = ChartRows::filtered(m_rows, m_text->text(), m_inactive->isChecked());
    m_model->clear();
    QStringList titles;
    for (const KListModel::Column &column : columns())
        titles.append(column.title);
    m_model->setHorizontalHeaderLabels(titles);
    QHash<int, QStandardItem *> shown;
    for (const ChartRows::Row &row : std::as_const(m_shown)) {
        const QList<QStandardItem *> items = makeItems(row);
        if (QStandardItem *above = shown.value(row.parent))
            above->appendRow(items);
        else
            m_model->appendRow(items);
        shown.insert(row.code, items.constFirst());
    }
    fitColumns();
    m_tree->expandAll();
    if (!selectCode(remembered) && !m_shown.isEmpty())
        selectCode(m_shown.constFirst().code);
    else
        m_tree->verticalScrollBar()->setValue(top);
    m_count->setText(SuiteMessages::count(m_shown.size()));
    updateCommands();
}

// The columns share the width in proportion to their own widths.
void CDlgChartOfAccounts::fitColumns()
{
    const QVector<KListModel::Column> shares = columns();
    const int total = std::accumulate(shares.cbegin(), shares.cend(), 0,
                                      [](int sum, const KListModel::Column &column) { return sum + column.width; });
    // All of them are laid out only once the tree has its titles.
    for (int column = 0; column < m_model->columnCount(); ++column)
        m_tree->header()->resizeSection(column, m_tree->viewport()->width() * shares.at(column).width / total);
}

void CDlgChartOfAccounts::resizeEvent(QResizeEvent *event)
{
    KDialogTabPage::resizeEvent(event);
    fitColumns();
}

QStandardItem *CDlgChartOfAccounts::findItem(int code) const
{
    const QModelIndex first = m_model->index(0, CodeColumn);
    const QModelIndexList found =
        m_model->match(first, codeRole, code, 1, Qt::MatchExactly | Qt::MatchRecursive | Qt::MatchWrap);
    return found.isEmpty() ? nullptr : m_model->itemFromIndex(found.constFirst());
}

// The selected account, wherever the cursor is: a screen reader selects a row and leaves the cursor where it was.
int CDlgChartOfAccounts::currentCode() const
{
    const QModelIndexList rows = m_tree->selectionModel()->selectedRows();
    return rows.isEmpty() ? 0 : rows.constFirst().data(codeRole).toInt();
}

void CDlgChartOfAccounts::takeSelection()
{
    // The arrow keys go on from there.
    const QModelIndexList rows = m_tree->selectionModel()->selectedRows();
    if (!rows.isEmpty() && rows.constFirst() != m_tree->currentIndex().siblingAtColumn(CodeColumn))
        m_tree->selectionModel()->setCurrentIndex(rows.constFirst(), QItemSelectionModel::NoUpdate);
    updateCommands();
}

bool CDlgChartOfAccounts::selectCode(int code)
{
    const QStandardItem *item = code == 0 ? nullptr : findItem(code);
    if (!item)
        return false;
    m_tree->setCurrentIndex(item->index());
    m_tree->scrollTo(item->index());
    return true;
}

QString CDlgChartOfAccounts::cellText(int code, int column) const
{
    const QStandardItem *item = findItem(code);
    return item ? item->index().siblingAtColumn(column).data().toString() : QString();
}

QString CDlgChartOfAccounts::countText() const
{
    return m_count->text();
}

const ChartRows::Row *CDlgChartOfAccounts::currentRow() const
{
    const int code = currentCode();
    const auto found = std::find_if(m_shown.cbegin(), m_shown.cend(), [code](const auto &row) { return row.code == code; });
    return found == m_shown.cend() ? nullptr : &*found;
}

void CDlgChartOfAccounts::updateCommands()
{
    for (QPushButton *button : std::as_const(m_changing))
        button->setVisible(!m_closed);
    const ChartRows::Row *row = currentRow();
    m_addBelow->setEnabled(row && row->level != AccountLevel::Tafsily);
    m_rename->setEnabled(row);
    m_toggle->setEnabled(row);
    m_documents->setEnabled(row);
}

bool CDlgChartOfAccounts::mayChange() const
{
    return !GetDBSetting()->IsClosedDB() && CheckModifySecurity();
}

void CDlgChartOfAccounts::addGeneral()
{
    if (GetDBSetting()->IsClosedDB() || !CheckWriteSecurity())
        return;
    CDlgAddAccount dialog(AccountLevel::Kol, 0, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    refill();
    selectCode(dialog.code());
}

void CDlgChartOfAccounts::addBelow()
{
    const ChartRows::Row *row = currentRow();
    if (!row || row->level == AccountLevel::Tafsily || GetDBSetting()->IsClosedDB() || !CheckWriteSecurity())
        return;
    const AccountLevel level = row->level == AccountLevel::Kol ? AccountLevel::Moeen : AccountLevel::Tafsily;
    CDlgAddAccount dialog(level, row->code, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    refill();
    selectCode(dialog.code());
}

void CDlgChartOfAccounts::rename()
{
    const int code = currentCode();
    if (code == 0 || !mayChange())
        return;
    CDlgAddAccount dialog(code, this);
    if (dialog.exec() == QDialog::Accepted)
        refill();
}

void CDlgChartOfAccounts::toggleActive()
{
    const ChartRows::Row *row = currentRow();
    if (!row || !mayChange())
        return;
    const int code = row->code;
    const bool deactivates = row->active;
    // An account in use can be made inactive, but not by mistake: reports leave inactive accounts out.
    const AccountBalance whole = AccountLedger::balance(row->level, code, {}, {});
    if (deactivates && !whole.isBalanced()
        && g_pDlgYesNo->Ask(u"این حساب %1 %2 مانده دارد و با غیرفعال شدن در گزارش‌ها نمی‌آید. ادامه می‌دهید؟"_s
                                .arg(DToMoney(std::abs(whole.net())), whole.nature()),
                            this)
            == KMessageDialog::No)
        return;
    AccountChart::setActive(code, !deactivates);
    refill();
}

void CDlgChartOfAccounts::showDocuments()
{
    const ChartRows::Row *row = currentRow();
    if (!row)
        return;
    const AccountLevel level = row->level;
    const int code = row->code;
    CDlgAccountDocs::Show(level, code, m_from->dateTime(), m_to->dateTime(), this);
}

void CDlgChartOfAccounts::print()
{
    if (!CheckPrintListSecurity())
        return;
    QVector<KListModel::Row> rows;
    for (const ChartRows::Row &row : std::as_const(m_shown))
        rows.append(rowCells(row));
    CDlgReportGenerator generator(u"ChartOfAccounts"_s, u"List"_s, this);
    generator.SetText(u"Title"_s, title());
    generator.SetText(u"LeftBottom"_s, u"تاریخ چاپ : "_s + shamsiText(QDate::currentDate()));
    generator.SetText(u"Count"_s, countText());
    generator.SetTable(u"List"_s, columns(), rows);
    if (!generator.LoadLayout())
        generator.BuildListReport(title());
    generator.ShowReport();
}
