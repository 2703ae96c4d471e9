// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/CDlgAddAutomobilContractBase.h"

#include "auto/editor/ArchiveLine.h"
#include "auto/words/WordLists.h"
#include "auto/contracts/document/ContractDocumentRows.h"
#include "auto/contracts/editor/ContractNotes.h"
#include "auto/contracts/editor/ContractPartyGroup.h"
#include "auto/settings/ContractSettings.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/RecordCodes.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CDlgMultiItems.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/frame/ScrolledPage.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/look/WrapLine.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <tuple>

using namespace Qt::StringLiterals;

namespace {

using Kind = KFormField::Kind;

constexpr int rentContract = 1;

QString column(const char *name)
{
    return QString::fromLatin1(name);
}

QList<KFormField> formFields()
{
    KFormField documentNumber{column("iDocNum"), u"شماره سند :"_s, Kind::Integer};
    documentNumber.readOnly = true;
    KFormField type{column("iContractType"), u"نوع قرارداد :"_s, Kind::Choice};
    type.choices = WordLists::texts(WordLists::contractTypes());
    KFormField extension{column("dateExtension"), u"تاريخ تمديد :"_s, Kind::Date};
    extension.displayed = false;
    KFormField explanation{column("sExplain"), u"شرح قرارداد :"_s};
    explanation.maxLength = 250;
    KFormField amount{column("dAmount"), u"مبلغ قرارداد :"_s, Kind::Money};
    amount.inWords = true;
    KFormField commission{column("dCommission"), u"حق کميسيون :"_s, Kind::Money};
    commission.inWords = true;
    KFormField perParty{column("dCommissionEveryPerson"), u"کميسيون دريافتي از هر طرفين :"_s, Kind::Money};
    perParty.displayed = false;
    QList<KFormField> fields = {
        {column("iCode"), u"کد قرارداد :"_s, Kind::Integer},
        documentNumber,
        type,
        {column("bReturn"), u"برگشتي"_s, Kind::Flag},
        {column("dateContract"), u"تاريخ عقد :"_s, Kind::Date},
        {column("dateExpiration"), u"تاريخ انقضاء :"_s, Kind::Date},
        extension,
        {column("sDomainRegister"), u"حوزه ثبتي :"_s},
        {column("sNoAdvice"), u"مشاور خودرو شماره :"_s},
        amount,
        commission,
        perParty,
    };
    fields += ContractPartySide::first().formFields();
    fields += ContractPartySide::second().formFields();
    fields += QList<KFormField>{
        {column("sCommitmentFirstHand"), u"تعهدات مربوط به طرف اول :"_s},
        {column("sCommitmentsSecondHand"), u"تعهدات مربوط به طرف دوم :"_s},
        {column("sDeal"), u"مورد معامله :"_s},
        explanation,
        {column("sDesc"), u"توضيحات :"_s},
        {column("sPage"), u"خلاصه اين قرارداد در صفحه :"_s},
        {column("sCover"), u"جلد :"_s},
        {column("iNum"), u"شماره :"_s, Kind::Integer},
        {column("dateSummary"), u"و تاريخ :"_s, Kind::Date},
    };
    return fields;
}

}

CDlgAddAutomobilContractBase::CDlgAddAutomobilContractBase(ContractEditorMode mode, const OfficeSettings &settings,
                                                           QWidget *parent)
    : ContractEditorPage(mode, u"اطلاعات پایه"_s, parent)
    , m_tiers(ContractSettings::of(settings).tiers)
    , m_today(settings.serverTime().date())
{
    build();
    wireFigures();
    connect(m_form->comboBox(column("iContractType")), &QComboBox::currentIndexChanged, this, [this](int type) {
        nameGroups(type);
        Q_EMIT contractTypeChanged(type);
    });
}

CDlgAddAutomobilContractBase::~CDlgAddAutomobilContractBase() = default;

void CDlgAddAutomobilContractBase::build()
{
    auto *content = new QWidget(this);
    CTblAutomobilContracts columns;
    m_form = new KForm(formFields(), columns, content);

    m_first = new ContractPartyGroup(ContractPartySide::first(), *m_form, content);
    m_second = new ContractPartyGroup(ContractPartySide::second(), *m_form, content);
    auto *cards = new CardStack(content);
    cards->addCard(buildIdentity(content));
    cards->addPair(m_first, m_second);
    cards->addCard(buildTexts(content));
    m_archiveLine = new ArchiveLine(content);
    m_archiveLine->setVisible(isShowMode());
    cards->addCard(m_archiveLine);

    fillWithScrolled(this, content);
}

QGroupBox *CDlgAddAutomobilContractBase::buildIdentity(QWidget *content)
{
    auto *card = new QGroupBox(content);
    m_form->place(new FormGrid(card),
                  {{"iCode"}, {"iDocNum"}, {"iContractType"}, {"sDomainRegister"}, {"dateContract"}, {"dateExpiration"}, {"bReturn"}, {"sNoAdvice"}, {"dAmount", 2, 2}, {"dCommission", 2, 2}});
    return card;
}

QGroupBox *CDlgAddAutomobilContractBase::buildTexts(QWidget *content)
{
    auto *card = new QGroupBox(content);
    auto *grid = new FormGrid(card);
    m_form->place(grid, {{"sCommitmentFirstHand", 4}, {"sCommitmentsSecondHand", 4}, {"sDeal", 2}, {"sExplain", 2}, {"sDesc", 2}});

    const QString label = u"تبصره ها :"_s;
    m_notesLine = new KEdit(card);
    m_notesLine->setReadOnly(true);
    m_notesButton = new QPushButton(u"..."_s, card);
    m_notesButton->setAccessibleName(label + u" ..."_s);
    m_notesButton->setAutoDefault(false);
    LookMarks::setButton(m_notesButton, LookMarks::Button::Small);
    m_notesButton->setMinimumWidth(LookSizes::scaled(LookSizes::control) + LookSizes::unit);
    m_notesButton->setVisible(!isShowMode());
    connect(m_notesButton, &QPushButton::clicked, this, &CDlgAddAutomobilContractBase::pickNotes);
    auto *row = new QHBoxLayout;
    row->setSpacing(LookSizes::unit / 2);
    row->addWidget(m_notesLine, 1);
    row->addWidget(m_notesButton);
    grid->addField(labelFor(label, m_notesLine), nullptr, row, 2);
    grid->addLine(buildRegistrySentence(card));
    return card;
}

// One sentence with its fields in it.
QWidget *CDlgAddAutomobilContractBase::buildRegistrySentence(QWidget *card)
{
    auto *sentence = new QWidget(card);
    auto *line = new WrapLine(sentence);
    for (const char *name : {"sPage", "sCover", "iNum", "dateSummary"})
        line->addTogether({m_form->label(column(name)), m_form->control(column(name))});
    auto *end = new QLabel(u"ثبت گرديده است."_s, sentence);
    LookFonts::apply(end, LookFonts::Use::Label);
    line->addWidget(end);
    return sentence;
}

void CDlgAddAutomobilContractBase::wireFigures()
{
    m_figureColumns = {{CommissionField::Amount, column("dAmount")},
                       {CommissionField::Commission, column("dCommission")},
                       {CommissionField::PerPartyTotal, column("dCommissionEveryPerson")}};
    for (const ContractPartySide *side : {&ContractPartySide::first(), &ContractPartySide::second()}) {
        for (const ContractPartySide::Figure &figure : side->figures)
            m_figureColumns.append(figure);
    }
    for (const auto &figure : std::as_const(m_figureColumns)) {
        connect(m_form->edit(figure.second), &KEdit::numberEdited, this,
                [this, field = figure.first](double number) { figureEdited(field, number); });
    }
    KEdit *amount = m_form->edit(column("dAmount"));
    connect(amount, &KEdit::editingFinished, this, [this, amount] {
        // Going to another program and back is no end of the entry.
        if (amount->window()->focusWidget() != amount)
            m_beforeAmount.reset();
    });
    auto wire = [this](ContractPartyGroup *group, CommissionParty CommissionFields::*party, const ContractPartySide &side) {
        connect(group, &ContractPartyGroup::kindChanged, this, [this, group, party, field = side.kindField] {
            (m_figures.*party).kind = group->kind();
            recompute(field);
        });
        connect(group, &ContractPartyGroup::personDiscountFound, this,
                [this, party, field = side.discountPercentField, edit = m_form->edit(side.discountPercent)](double percent) {
                    edit->setNumber(percent);
                    (m_figures.*party).discountPercent = percent;
                    recompute(field);
                });
    };
    wire(m_first, &CommissionFields::first, ContractPartySide::first());
    wire(m_second, &CommissionFields::second, ContractPartySide::second());
}

// The beginning of an amount may fall into another tier than the whole. So each key of its entry starts from the figures
// before the entry, and an amount above the last tier leaves the commission that stood then.
void CDlgAddAutomobilContractBase::figureEdited(CommissionField figure, double number)
{
    const bool isAmount = figure == CommissionField::Amount;
    if (isAmount && !m_beforeAmount)
        m_beforeAmount = m_figures;
    else if (isAmount)
        m_figures = *m_beforeAmount;
    setCommissionValue(m_figures, figure, number);
    recompute(figure);
    if (isAmount) {
        const bool byHand = !tierCommission(number, m_tiers);
        m_form->edit(column("dCommission"))->setHint(byHand ? u"کمیسیون این مبلغ را وارد کنید"_s : QString());
    }
}

void CDlgAddAutomobilContractBase::proposeAmount(double amount)
{
    KEdit *edit = m_form->edit(column("dAmount"));
    if (amount <= 0 || !IsEquals(edit->number(), 0))
        return;
    edit->setNumber(amount);
    figureEdited(CommissionField::Amount, amount);
    m_beforeAmount.reset();
}

void CDlgAddAutomobilContractBase::recompute(CommissionField changed)
{
    if (changed != CommissionField::Amount)
        m_beforeAmount.reset();
    afterChange(changed, m_figures, m_tiers);
    showFigures();
}

void CDlgAddAutomobilContractBase::showFigures()
{
    for (const auto &[field, name] : std::as_const(m_figureColumns)) {
        KEdit *edit = m_form->edit(name);
        // One that shows its figure may be the line that is being typed into.
        if (const double figure = commissionValue(m_figures, field); edit->number() != figure)
            edit->setNumber(figure);
    }
}

void CDlgAddAutomobilContractBase::fill(CTblAutomobilContracts &contract)
{
    m_form->setShowMode(isShowMode());
    {
        // The record's own values: nothing follows from them until the user changes one.
        const QSignalBlocker first(m_form->comboBox(ContractPartySide::first().kind));
        const QSignalBlocker second(m_form->comboBox(ContractPartySide::second().kind));
        m_form->load(contract);
    }
    if (contract.m_iDocNum == 0)
        m_form->edit(column("iDocNum"))->clear();
    m_first->fill(contract);
    m_second->fill(contract);
    showPersons();
    for (const auto &[field, name] : std::as_const(m_figureColumns))
        setCommissionValue(m_figures, field, contract.value(name).toDouble());
    m_beforeAmount.reset();
    m_figures.first.kind = m_first->kind();
    m_figures.second.kind = m_second->kind();
    m_first->setShowMode(isShowMode());
    m_second->setShowMode(isShowMode());

    if (mode() == ContractEditorMode::New && !contract.m_dateContract.isValid())
        m_form->dateEdit(column("dateContract"))->setDate(m_today);
    m_form->control(column("bReturn"))->setVisible(mode() != ContractEditorMode::New);
    m_notes = ContractNotes::notes(contract);
    showNotes();
    nameGroups(contract.m_iContractType);
    m_archiveLine->showArchived(contract);
    // Otherwise the window would open on its confirm button.
    if (!isShowMode())
        m_form->control(mode() == ContractEditorMode::New ? column("dAmount") : column("iCode"))->setFocus(Qt::TabFocusReason);
}

// Both in one statement.
void CDlgAddAutomobilContractBase::showPersons()
{
    QList<int> keys;
    for (const ContractPartyGroup *group : {m_first, m_second}) {
        if (const int key = group->personField()->personID(); key > 0)
            keys.append(key);
    }
    if (keys.isEmpty())
        return;
    CTblPersons person;
    person.m_filter = KSql::formatted("iID IN (%1)", KSql::list(keys));
    for (person.Open(true, true, true); !person.IsEOF(); person.MoveNext()) {
        for (ContractPartyGroup *group : {m_first, m_second}) {
            if (group->personField()->personID() == person.m_iID)
                group->showPerson(person);
        }
    }
}

void CDlgAddAutomobilContractBase::nameGroups(int contractType)
{
    const bool rent = contractType == rentContract;
    m_first->setTitle(rent ? u"اطلاعات موجر"_s : u"فروشنده/طرف اول"_s);
    m_second->setTitle(rent ? u"اطلاعات مستاجر"_s : u"خریدار/طرف دوم"_s);
}

void CDlgAddAutomobilContractBase::pickNotes()
{
    QString text = m_notes.join(CDlgMultiItems::separator());
    if (!CDlgMultiItems::Select(CTblItems::typeClause, u"تبصره"_s, &text, this))
        return;
    m_notes = text.split(CDlgMultiItems::separator(), Qt::SkipEmptyParts);
    showNotes();
}

void CDlgAddAutomobilContractBase::showNotes()
{
    m_notesLine->setText(m_notes.join(CDlgMultiItems::separator()));
    m_notesLine->setCursorPosition(0);
}

bool CDlgAddAutomobilContractBase::validate()
{
    if (isShowMode())
        return true;
    // What a contract cannot be without comes first, whatever else is wrong.
    return validateAmountAndParties() && validateDate() && validateEntries();
}

bool CDlgAddAutomobilContractBase::validateAmountAndParties()
{
    if (IsEquals(m_form->edit(column("dAmount"))->number(), 0))
        return refuse(u"لطفا مبلغ قرارداد را وارد نمایید."_s, m_form->edit(column("dAmount")));
    const std::pair<ContractPartyGroup *, QString> parties[] = {
        {m_first, u"لطفا شخص اول را انتخاب نمایید."_s},
        {m_second, u"لطفا شخص دوم را انتخاب نمایید."_s},
    };
    for (const auto &[group, message] : parties) {
        if (!group->name().trimmed().isEmpty())
            continue;
        refuse(message, group->personField()->nameEdit());
        group->askForPerson();
        return false;
    }
    if (m_first->name() == m_second->name())
        return refuse(u"دو طرف معامله نمی تواند یک شخص باشد."_s, m_second->personField()->nameEdit());
    return true;
}

bool CDlgAddAutomobilContractBase::validateDate()
{
    KDateEdit *date = m_form->dateEdit(column("dateContract"));
    if (!date->isEntryValid())
        return refuseEntry({date, date->entryError()});
    if (!date->dateTime().isValid())
        return refuse(u"لطفا تاریخ عقد را وارد نمایید."_s, date);
    if (date->date() < GetDBSetting()->FiscalYearOpeningDate().date())
        return refuse(u"تاریخ عقدقرارداد کوچکتر از تاریخ افتتاحیه می باشد."_s, date);
    return true;
}

bool CDlgAddAutomobilContractBase::refuseCode(const QString &why)
{
    return refuse(why, m_form->control(column("iCode")));
}

bool CDlgAddAutomobilContractBase::validateEntries()
{
    if (m_form->edit(column("iCode"))->integer() < 1)
        return refuseCode(RecordCodes::emptyMessage());
    for (const ContractPartyGroup *group : {m_first, m_second}) {
        if (const auto problem = group->discountProblem())
            return refuse(problem->message, problem->widget);
    }
    if (const auto problem = m_form->firstInvalid())
        return refuseEntry(*problem);
    if (const QString problem = ContractNotes::problem(m_notes); !problem.isEmpty())
        return refuse(problem, m_notesButton);
    return true;
}

QList<KForm::Problem> CDlgAddAutomobilContractBase::doubts() const
{
    KDateEdit *signing = m_form->dateEdit(column("dateContract"));
    KDateEdit *expiration = m_form->dateEdit(column("dateExpiration"));
    QList<KForm::Problem> doubts;
    if (signing->date() > GetDBSetting()->FiscalYearClosingDate().date())
        doubts.append({signing, u"تاریخ عقد پس از پایان سال مالی است."_s});
    if (expiration->date().isValid() && expiration->date() < signing->date())
        doubts.append({expiration, u"تاریخ انقضاء پیش از تاریخ عقد است."_s});
    return doubts;
}

QList<CDlgAddAutomobilContractBase::PaymentDifference> CDlgAddAutomobilContractBase::paymentDifferences() const
{
    const std::tuple<const ContractPartyGroup *, const CommissionParty &, CommissionField, QString> parties[] = {
        {m_first, m_figures.first, CommissionField::FirstPays, ContractPartySide::first().pays},
        {m_second, m_figures.second, CommissionField::SecondPays, ContractPartySide::second().pays}};
    QList<PaymentDifference> differences;
    for (const auto &[group, party, figure, name] : parties) {
        const auto charged = amountCharged(m_figures.commission,
                                           {group->personField()->personID(), group->name(), party.kind, party.discount,
                                            party.taxPercent, party.tax, party.dutyPercent, party.duty});
        // Two amounts that are shown alike are one to the user.
        if (charged && DToMoney(*charged) != DToMoney(party.pays))
            differences.append({figure, m_form->edit(name), group->name(), *charged});
    }
    return differences;
}

bool CDlgAddAutomobilContractBase::settlePayments()
{
    const QList<PaymentDifference> differences = paymentDifferences();
    if (differences.isEmpty())
        return true;
    QStringList sentences;
    for (const PaymentDifference &difference : differences)
        sentences.append(u"پرداختي %1 %2 است، اما سند قرارداد برای او %3 ثبت می‌کند."_s.arg(
            difference.name, DToMoney(difference.edit->number()), DToMoney(difference.charged)));
    sentences.append(u"آیا مبلغ سند جایگزین پرداختي شود؟"_s);
    Q_EMIT frontRequested();
    const KMessageDialog::Answer answer = g_pDlgYesNo->AskOrCancel(sentences.join(u'\n'), this);
    if (answer == KMessageDialog::Cancel) {
        goTo(differences.constFirst().edit);
        return false;
    }
    for (const PaymentDifference &difference : differences) {
        if (answer == KMessageDialog::Yes)
            setCommissionValue(m_figures, difference.figure, difference.charged);
    }
    showFigures();
    return true;
}

QHash<QString, EditorTabPage::Entry> CDlgAddAutomobilContractBase::furtherEntries() const
{
    QHash<QString, Entry> entries;
    for (const auto &[group, side, key, name] :
         {std::tuple(m_first, u"طرف اول"_s, u"iPersonFirstID"_s, u"sName1"_s), std::tuple(m_second, u"طرف دوم"_s, u"iPersonSecondID"_s, u"sName2"_s)}) {
        entries.insert(key, {u"شخص "_s + side, group->personField()->nameEdit()});
        entries.insert(name, {u"نام و نام خانوادگي "_s + side, group->personField()->nameEdit()});
    }
    for (int i = 1; i <= ContractNotes::most; ++i)
        entries.insert(u"sNote%1"_s.arg(i), {u"تبصره %1"_s.arg(i), m_notesButton});
    return entries;
}

void CDlgAddAutomobilContractBase::write(CTblAutomobilContracts &contract)
{
    m_form->store(contract);
    m_first->write(contract);
    m_second->write(contract);
    ContractNotes::setNotes(contract, m_notes);
}
