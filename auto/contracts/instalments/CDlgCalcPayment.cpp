// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/CDlgCalcPayment.h"

#include "auto/contracts/instalments/PlanSheet.h"
#include "auto/db/PlanTrace.h"
#include "suite/accounting/changes/HistoryButton.h"
#include "auto/contracts/instalments/InstalmentFollowUp.h"
#include "auto/contracts/instalments/InstalmentQuestions.h"
#include "auto/contracts/instalments/LateFee.h"
#include "auto/contracts/instalments/PlanFollowing.h"
#include "auto/words/WordLists.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/papers/CDlgPaper.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/crm/messages/CDlgMessageToPerson.h"
#include "suite/crm/messages/MessageRows.h"
#include "suite/crm/persons/CTblPersonsMini.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const QString calculateCaption = u"محاسبه اقساط"_s;
const QString saveCaption = u"ذخيره اقساط"_s;
const QString deleteCaption = u"حذف اقساط"_s;
const QString receiveCaption = u"دريافت قسط"_s;
const QString messageCaption = u"متن پیام"_s;
const QString printCaption = u"چاپ"_s;
const QString pageCaption = u"برگه قرارداد"_s;
const QString closeCaption = u"بازگشت"_s;

// Positions of the two drop-downs.
constexpr int yearlyPosition = 1;
constexpr int monthsPosition = 1;

// The late fee has a column where the office takes one.
QVector<KListModel::Column> listColumns(bool withLateFee)
{
    QVector<KListModel::Column> columns{{u"ردیف"_s, Qt::AlignCenter, 40},
                                        {u"تاریخ قسط"_s, Qt::AlignCenter, 80, {}, true},
                                        {u"شرح"_s, Qt::AlignRight, 150},
                                        {u"مبلغ قسط"_s, Qt::AlignCenter, 100},
                                        {u"وضعیت"_s, Qt::AlignCenter, 100},
                                        {u"دریافت شده"_s, Qt::AlignCenter, 100},
                                        {u"مانده"_s, Qt::AlignCenter, 100}};
    if (withLateFee)
        columns.append({u"جریمه دیرکرد"_s, Qt::AlignCenter, 90});
    return columns;
}

QString stateText(InstalmentState::Kind kind)
{
    switch (kind) {
    case InstalmentState::Unpaid: return WordLists::textAt(WordLists::paymentStates(), 0);
    case InstalmentState::Paid: return WordLists::textAt(WordLists::paymentStates(), 1);
    case InstalmentState::Partly: break;
    }
    return u"بخشی پرداخت شده"_s;
}

}

CDlgCalcPayment::CDlgCalcPayment(int contractID, int personID, double principal, QWidget *parent)
    : KDialog(parent)
    , m_settings(OfficeSettings::read({ContractSettings::section()}))
    , m_rates(ContractSettings::of(m_settings))
    , m_contractID(contractID)
    , m_personID(personID)
{
    setWindowTitle(calculateCaption);
    SetSettingName(u"AutomobilPayments\\Calculator"_s);
    CTblAutomobilContracts contract;
    if (contract.IsRecordExist(u"iID"_s, contractID)) {
        m_contractCode = contract.m_iCode;
        m_confirmed = contract.m_iDocNum > 0;
        m_contractNumber = contract.number();
    }
    build(principal);
    loadPlan();
    // It has no OK button: the plan is saved by a command.
    setAsksBeforeDropping(true);
    resize(LookSizes::scaled(960), LookSizes::scaled(660));
}

CDlgCalcPayment::~CDlgCalcPayment() = default;

void CDlgCalcPayment::Run(int contractID, int personID, double principal, QWidget *parent, bool readOnly)
{
    CDlgCalcPayment dialog(contractID, personID, principal, parent);
    dialog.setReadOnly(readOnly);
    if (dialog.m_contractCode > 0)
        dialog.exec();
}

void CDlgCalcPayment::RunAnew(int contractID, int personID, double principal, QWidget *parent)
{
    CDlgCalcPayment dialog(contractID, personID, principal, parent);
    dialog.calculateAnew(principal);
    if (dialog.m_contractCode > 0)
        dialog.exec();
}

void CDlgCalcPayment::build(double principal)
{
    m_list = new KExtListCtrl(this);
    m_list->setAccessibleName(calculateCaption);
    m_list->setColumns(listColumns(m_rates.lateFeePercent > 0));
    m_list->SetSettingName(u"AutomobilPayments\\List"_s);
    m_list->setSeveralMarkable();
    connect(m_list, &KExtListCtrl::currentKeyChanged, this, &CDlgCalcPayment::updateButtons);
    m_note = new QLabel(
        u"به دليل اينکه حداقل يکي از اقساط پرداخت شده، نمي توانيد  اقساط را تغيير دهيد."_s, this);
    m_note->setWordWrap(true);
    m_note->hide();
    m_disagreement = new QLabel(this);
    m_disagreement->setWordWrap(true);
    m_disagreement->setForegroundRole(HostColors::dangerText);
    m_disagreement->hide();

    auto *content = new QWidget(this);
    auto *cards = new CardStack(content);
    cards->addCard(buildTerms(principal));
    cards->addCard(buildMethod());
    cards->addCard(new KListCard(m_list, content), true);
    cards->addCard(m_note);
    cards->addCard(m_disagreement);
    cards->addCard(buildSums());
    QDialogButtonBox *close = createButtons({}, closeCaption);
    setContent(content, close);
    addCommands(close);
    m_principal->setFocus();
}

// A field and the drop-down of its unit are one.
QComboBox *CDlgCalcPayment::addWithUnit(FormGrid *grid, const QString &caption, KEdit *edit, const QString &name, const QStringList &units)
{
    auto *combo = new KDropDown;
    combo->addItems(units);
    combo->setAccessibleName(name);
    auto *line = new QHBoxLayout;
    line->setSpacing(LookSizes::unit / 2);
    line->addWidget(edit, 1);
    line->addWidget(combo);
    QLabel *label = labelFor(caption, edit);
    grid->addField(label, new FieldNote(edit), line, 2);
    return combo;
}

QWidget *CDlgCalcPayment::buildTerms(double principal)
{
    auto *box = new QGroupBox(this);
    auto *grid = new FormGrid(box);
    m_principal = new KEdit(KEdit::Kind::Money, box);
    m_principal->setNumber(principal);
    addLabelled(grid, u"مبلغ مانده فاکتور جهت تقسيط :"_s, m_principal, 2);
    m_start = new KDateEdit(box);
    m_start->setDate(m_settings.serverTime().date());
    addLabelled(grid, u" شروع تاريخ :"_s, m_start, 2);
    m_rate = new KEdit(KEdit::Kind::Percent, box);
    m_rateUnit = addWithUnit(grid, u"درصد بهره :"_s, m_rate, u"واحد درصد بهره"_s, {u"ماهانه"_s, u"سالانه"_s});
    m_count = new KEdit(KEdit::Kind::Integer, box);
    m_count->setRange(0, 1200);
    addLabelled(grid, u"تعداد اقساط :"_s, m_count, 2);
    m_interval = new KEdit(KEdit::Kind::Integer, box);
    m_interval->setRange(0, 3650);
    m_intervalUnit = addWithUnit(grid, u"فاصله اقساط :"_s, m_interval, u"واحد فاصله اقساط"_s, {u"روز"_s, u"ماه"_s});
    m_intervalUnit->setCurrentIndex(monthsPosition);
    return box;
}

QWidget *CDlgCalcPayment::buildMethod()
{
    auto *method = new QGroupBox(u"روش محاسبه بهره"_s, this);
    m_declining = new QRadioButton(u"رأس"_s, method);
    m_whole = new QRadioButton(u"بازاري"_s, method);
    m_whole->setChecked(true);
    auto *grid = new FormGrid(method);
    grid->addCell(m_declining);
    grid->addCell(m_whole);
    return method;
}

QWidget *CDlgCalcPayment::buildSums()
{
    auto *box = new QGroupBox(this);
    auto *grid = new FormGrid(box);
    const auto sum = [grid, box](const QString &text, bool displayed) {
        auto *edit = new KEdit(KEdit::Kind::Money, box);
        edit->setReadOnly(true);
        QLabel *label = labelFor(text, edit);
        grid->addField(label, nullptr, edit, 2);
        label->setVisible(displayed);
        edit->setVisible(displayed);
        return edit;
    };
    m_total = sum(u"جمع اقساط :"_s, true);
    m_interest = sum(u"بهره اضافه شده :"_s, true);
    m_remaining = sum(u"مانده فاکتور قسطي :"_s, false);
    return box;
}

void CDlgCalcPayment::addCommands(QDialogButtonBox *close)
{
    const std::pair<QString, void (CDlgCalcPayment::*)()> commands[] = {{calculateCaption, &CDlgCalcPayment::calculate},
                                                                        {saveCaption, &CDlgCalcPayment::savePlan},
                                                                        {deleteCaption, &CDlgCalcPayment::deletePlan},
                                                                        {receiveCaption, &CDlgCalcPayment::receiveSelected},
                                                                        {messageCaption, &CDlgCalcPayment::writeMessages},
                                                                        {printCaption, &CDlgCalcPayment::printPlan},
                                                                        {pageCaption, &CDlgCalcPayment::showPage}};
    for (const auto &[caption, command] : commands) {
        QPushButton *added = addButton(footer(), caption);
        connect(added, &QPushButton::clicked, this, [this, command = command] { guarded(command); });
        m_buttons.append(added);
    }
    HistoryButton::addTo(this, footer(), PlanTrace::name(), m_confirmed ? m_contractID : 0);
    button(calculateCaption)->setDefault(true);
    LookMarks::setButton(button(calculateCaption), LookMarks::Button::Primary);
    // A calculated plan is work: this button asks before it is dropped.
    auto *back = close->findChild<QPushButton *>();
    disconnect(back, &QPushButton::clicked, this, &KDialog::cancel);
    connect(back, &QPushButton::clicked, this, &CDlgCalcPayment::reject);
    m_buttons.append(back);
}

void CDlgCalcPayment::guarded(void (CDlgCalcPayment::*command)())
{
    KErrorBoundary::guarded(this, std::bind_front(command, this));
}

QPushButton *CDlgCalcPayment::button(const QString &caption) const
{
    for (QPushButton *button : m_buttons) {
        if (button->text() == caption)
            return button;
    }
    return nullptr;
}

void CDlgCalcPayment::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    updateButtons();
}

bool CDlgCalcPayment::isNoteShown() const
{
    return !m_note->isHidden();
}

bool CDlgCalcPayment::changesAllowed() const
{
    return !m_readOnly && !m_anyReceived && !GetDBSetting()->IsClosedDB();
}

void CDlgCalcPayment::updateButtons()
{
    const bool changes = !m_readOnly && !m_anyReceived && !m_settings.isClosed();
    for (const QString &caption : {calculateCaption, saveCaption, deleteCaption})
        button(caption)->setEnabled(changes);
    const int key = m_list->currentKey();
    const auto selected = std::find_if(m_stored.cbegin(), m_stored.cend(), [key](const auto &row) { return row.id == key; });
    const bool isOpen = key > 0 && selected != m_stored.cend() && selected->state().kind != InstalmentState::Paid;
    // A contract that was never confirmed can still be cancelled, and a receipt would outlive it.
    // A plan that was just calculated is in no one's mind yet.
    button(messageCaption)->setEnabled(key > 0 && KSecurity::IsGranted(InstalmentFollowUp::form(), KSecurity::Read));
    button(receiveCaption)->setEnabled(m_confirmed && !m_readOnly && !m_settings.isClosed() && isOpen);
}

InstalmentTerms CDlgCalcPayment::terms() const
{
    return {m_principal->number(), m_rate->number(),
            m_rateUnit->currentIndex() == yearlyPosition ? RateUnit::Yearly : RateUnit::Monthly,
            m_whole->isChecked() ? InterestMethod::WholePrincipal : InterestMethod::DecliningPrincipal, m_count->integer(),
            m_interval->integer(), m_intervalUnit->currentIndex() == monthsPosition ? IntervalUnit::Months : IntervalUnit::Days,
            m_start->date()};
}

void CDlgCalcPayment::setTerms(const InstalmentTerms &terms)
{
    m_principal->setNumber(terms.principal);
    m_rate->setNumber(terms.rate);
    m_rateUnit->setCurrentIndex(terms.rateUnit == RateUnit::Yearly ? yearlyPosition : 0);
    (terms.method == InterestMethod::WholePrincipal ? m_whole : m_declining)->setChecked(true);
    m_count->setNumber(terms.count);
    m_interval->setNumber(terms.interval);
    m_intervalUnit->setCurrentIndex(terms.intervalUnit == IntervalUnit::Months ? monthsPosition : 0);
    m_start->setDate(terms.start);
}

double CDlgCalcPayment::shownTotal() const
{
    return m_total->number();
}

double CDlgCalcPayment::shownInterest() const
{
    return m_interest->number();
}

bool CDlgCalcPayment::refuse(const QString &message, QWidget *field)
{
    g_pDlgWarning->Show(message, this);
    field->setFocus(Qt::OtherFocusReason);
    return false;
}

// A marked line does not show the number that it gives.
bool CDlgCalcPayment::checkEntries()
{
    const auto isRight = [this](auto *edit) {
        return edit->isEntryValid() || refuse(edit->accessibleName() + u' ' + edit->entryError(), edit);
    };
    return isRight(m_principal) && isRight(m_start) && isRight(m_rate) && isRight(m_count) && isRight(m_interval);
}

bool CDlgCalcPayment::checkTerms(const InstalmentTerms &terms)
{
    switch (problemOf(terms)) {
    case InstalmentProblem::NoPrincipal:
        return refuse(u"لطفا مبلغ مانده فاکتور جهت تقسیط را وارد نمایید."_s, m_principal);
    case InstalmentProblem::NoCount:
        return refuse(u"لطفا تعداد اقساط را وارد نمایید."_s, m_count);
    case InstalmentProblem::NoInterval:
        return refuse(u"لطفا فاصله اقساط را وارد نمایید."_s, m_interval);
    case InstalmentProblem::None:
        break;
    }
    return terms.start.isValid() || refuse(u"لطفا تاریخ شروع را وارد نمایید."_s, m_start);
}

void CDlgCalcPayment::calculate()
{
    if (!changesAllowed() || !checkEntries())
        return;
    const InstalmentTerms wanted = terms();
    if (!checkTerms(wanted))
        return;
    m_plannedTerms = wanted;
    m_plan = instalmentPlan(wanted);
    showPlan();
}

void CDlgCalcPayment::calculateAnew(double principal)
{
    m_principal->setNumber(principal);
    calculate();
}

// An instalment is kept as exact as it was calculated, and shown as it will be received.
void CDlgCalcPayment::showPlan()
{
    const int decimals = m_settings.moneyDecimals();
    std::vector<double> amounts;
    for (const Instalment &instalment : m_plan->instalments)
        amounts.push_back(instalment.amount);
    const std::vector<double> dues = amountsToReceive(amounts, decimals);
    QVector<KListModel::Row> rows;
    for (const Instalment &instalment : m_plan->instalments) {
        const double due = dues[static_cast<std::size_t>(rows.size())];
        const int number = static_cast<int>(rows.size()) + 1;
        rows.append({-number,
                     {{QString::number(number), number},
                      {shamsiText(instalment.due), instalment.due},
                      {},
                      {DToMoney(due, decimals), instalment.amount},
                      {stateText(InstalmentState::Unpaid)},
                      {DToMoney(0, decimals), 0.0},
                      {DToMoney(due, decimals), due}}});
    }
    m_list->setRows(std::move(rows));
    m_total->setNumber(m_plan->total);
    m_interest->setNumber(m_plan->interest);
    updateButtons();
}

void CDlgCalcPayment::loadPlan()
{
    m_plan.reset();
    m_stored = StoredInstalments::load(m_contractID);
    m_anyReceived = std::any_of(m_stored.cbegin(), m_stored.cend(),
                                [](const auto &row) { return row.paid || row.state().kind != InstalmentState::Unpaid; });
    m_note->setVisible(m_anyReceived);
    showStored();
    showDisagreement();
    updateButtons();
}

// The stored contract and the stored plan: what an open editor holds may still be changed.
void CDlgCalcPayment::showDisagreement()
{
    CTblAutomobilContracts contract;
    if (m_contractCode > 0 && m_confirmed && contract.IsRecordExist(u"iID"_s, m_contractID))
        m_disagreement->setText(PlanFollowing::disagreement(contract).join(u'\n'));
    m_disagreement->setVisible(!m_disagreement->text().isEmpty());
}

QString CDlgCalcPayment::disagreementText() const
{
    return m_disagreement->isHidden() ? QString() : m_disagreement->text();
}

KListModel::Row CDlgCalcPayment::storedRow(const StoredInstalments::Row &row, int number) const
{
    const QDate due = row.date.date();
    const QDate today = m_settings.serverTime().date();
    const int decimals = m_settings.moneyDecimals();
    const InstalmentState state = row.state();
    const bool isLate = state.kind != InstalmentState::Paid && due < today;
    // Older rows are marked as paid without a receipt that names them.
    const double received = row.received > 0 ? row.received : row.due - state.rest;
    KListModel::Row listed{row.id,
                           {{QString::number(number), number},
                            {shamsiText(due), due, isLate},
                            {row.description},
                            {DToMoney(row.due, decimals), row.amount},
                            {stateText(state.kind)},
                            {DToMoney(received, decimals), received},
                            {DToMoney(state.rest, decimals), state.rest, isLate}}};
    const double fee = LateFee::of(state.rest, static_cast<int>(due.daysTo(today)), m_rates.lateFeePercent, m_rates.lateFeeGrace, decimals);
    if (m_rates.lateFeePercent > 0)
        listed.cells.append({DToMoney(fee, decimals), fee, fee > 0});
    return listed;
}

void CDlgCalcPayment::showStored()
{
    QVector<KListModel::Row> rows;
    double total = 0;
    double interest = 0;
    for (const StoredInstalments::Row &row : m_stored) {
        rows.append(storedRow(row, static_cast<int>(rows.size()) + 1));
        total += row.amount;
        interest += row.interest;
    }
    m_list->setRows(std::move(rows));
    m_total->setNumber(total);
    m_interest->setNumber(interest);
    if (!m_stored.empty())
        setTerms(StoredInstalments::termsOf(m_stored));
}

void CDlgCalcPayment::savePlan()
{
    if (!changesAllowed())
        return;
    if (m_list->count() == 0) {
        refuse(u"ابتدا باید دکمه محاسبه اقساط را بزنید."_s, button(calculateCaption));
        return;
    }
    // Many large amounts are added up: in double alone their rounding would come near the tolerance.
    long double listed = 0;
    for (int row = 0; row < m_list->count(); ++row)
        listed += m_list->model()->index(row, 3).data(KListModel::SortRole).toDouble();
    if (!IsEquals(static_cast<double>(listed), m_principal->number() + m_interest->number())) {
        refuse(u"مبلغ مانده فاکتور با جمع مبالغ اقساط برابر نیست."_s, m_principal);
        return;
    }
    // The plan in the list is stored already, unless it was just calculated.
    if (!m_plan)
        return;
    if (!storePlan(StoredInstalments::keysOf(m_stored)))
        return;
    loadPlan();
    typedWorkSaved();
    g_pDlgMessage->Show(u"اقساط ذخیره شد."_s, this);
}

// False when another plan was stored meanwhile and the user leaves that one as it is.
bool CDlgCalcPayment::storePlan(const QList<int> &seen)
{
    try {
        const KWaitCursor wait;
        StoredInstalments::save({m_contractID, m_contractCode, m_personID}, seen, m_plannedTerms, *m_plan);
        return true;
    } catch (const StoredInstalments::Changed &changed) {
        const QString question = changed.userMessage() + u"\nبرنامه شما جای آن ذخیره شود؟"_s;
        return g_pDlgYesNo->Ask(question, this) != KMessageDialog::No && storePlan(changed.stored());
    }
}

void CDlgCalcPayment::deletePlan()
{
    if (!changesAllowed() || m_list->count() == 0)
        return;
    if (g_pDlgYesNo->Ask(u"آیا از حذف اقساط این قرارداد اطمینان دارید؟"_s, this) == KMessageDialog::No)
        return;
    try {
        StoredInstalments::remove(m_contractID, StoredInstalments::keysOf(m_stored));
    } catch (const KAccountingError &error) {
        g_pDlgWarning->Show(error.userMessage(), this);
    }
    loadPlan();
}

ListReport CDlgCalcPayment::planReport() const
{
    ListReport report(u"اقساط"_s, u"اقساط فاکتور"_s);
    const QString title = u"اقساط فاکتور ش %1 [%2]"_s.arg(m_contractNumber).arg(CTblPersonsMini::GetName(m_personID));
    report.setText(u"LeftTop"_s, u"جمع اقساط : "_s + DToMoney(m_total->number()));
    report.setText(u"LeftBottom"_s,
                   u"تاریخ چاپ : "_s + shamsiText(GetDBSetting()->GetDBServerDate().date()));
    report.setText(u"Count"_s, SuiteMessages::count(m_list->count()));
    report.setTable(u"List"_s, m_list);
    if (!report.loadLayout())
        report.buildStandard(title);
    report.setText(u"Title"_s, title);
    return report;
}

void CDlgCalcPayment::printPlan()
{
    KSecurity security;
    security.SetFormName(u"AutomobilContracts"_s);
    if (security.CheckPrintListSecurity())
        CDlgReportGenerator(planReport(), this).ShowReport();
}

// What is signed is what is stored.
void CDlgCalcPayment::showPage()
{
    const auto make = [this] {
        const std::optional<PaperSheet> sheet = m_plan ? std::nullopt : PlanSheet::read(m_contractID, Letterhead::read().name);
        return sheet ? QList<PaperSheet>{*sheet} : QList<PaperSheet>();
    };
    CDlgPaper::run(u"AutomobilContracts"_s, KSecurity::PrintList, make, u"لطفا نخست اقساط را ذخیره نمایید."_s, this);
}

// The rows of a plan that is not stored have keys below 0.
void CDlgCalcPayment::writeMessages()
{
    QList<MessageAbout> about = MessageRows::marked(*m_list);
    about.removeIf([](const MessageAbout &row) { return row.key <= 0; });
    CDlgMessageToPerson::run(u"instalment"_s, about, this);
}

void CDlgCalcPayment::receiveSelected()
{
    const int key = m_list->currentKey();
    const int row = m_list->currentRow();
    if (!m_confirmed || key <= 0)
        return;
    InstalmentQuestions::receive(m_contractID, key, this);
    CTblAutomobilContracts contract;
    contract.SetColumns({u"iPersonSecondID"_s});
    // A buyer typed in by hand may have become a person.
    if (m_personID < 1 && contract.IsRecordExist(u"iID"_s, m_contractID))
        m_personID = contract.m_iPersonSecondID;
    // Also when nothing was received here: somebody else may have received it.
    loadPlan();
    m_list->selectRow(row);
}
