// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/CDlgAddAutomobilContract.h"

#include "auto/editor/NewRecord.h"
#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "auto/contracts/cheques/CDlgContractCheques.h"
#include "auto/contracts/editor/CDlgAddAutomobilContractBase.h"
#include "auto/contracts/editor/CDlgAddAutomobilContractMatter.h"
#include "auto/contracts/instalments/CDlgCalcPayment.h"
#include "auto/contracts/instalments/CDlgPlanChoice.h"
#include "auto/contracts/editor/ContractPartyGroup.h"
#include "auto/settings/ContractSettings.h"
#include "auto/contracts/editor/ContractTitle.h"
#include "auto/contracts/editor/LoadCarForContract.h"
#include "auto/contracts/editor/MatterVisibility.h"
#include "auto/contracts/receipts/CDlgContractReceipts.h"
#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/contracts/receipts/ContractChanging.h"
#include "auto/contracts/receipts/ContractDeleting.h"
#include "auto/contracts/whatif/CDlgDealWhatIf.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblCarContracts.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/attachments/CDlgCustomFields.h"
#include "suite/accounting/attachments/CTblCustomFieldRecords.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/books/CDlgDocCreated.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/KExpectedRow.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/frame/KTabPageButtons.h"
#include "suite/utility/look/LookIcons.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

OfficeSettings CDlgAddAutomobilContract::readSettings()
{
    return OfficeSettings::read({ContractSettings::section()});
}

void CDlgAddAutomobilContract::expectSettings()
{
    OfficeSettings::expect({ContractSettings::section()});
}

void CDlgAddAutomobilContract::expectEdit(int key)
{
    expectSettings();
    CTblCarContracts::expectCarOf(key);
    expectRow<CTblAutomobilContracts>(key);
}

int CDlgAddAutomobilContract::addPlaceholder(const OfficeSettings &settings)
{
    const ContractSettings rates = ContractSettings::of(settings);
    return NewRecord::add<CTblAutomobilContracts>([&](CTblAutomobilContracts &contract) {
        contract.m_dateCreate = settings.serverTime();
        contract.m_iUserID = GetDBSetting()->GetUserID();
        contract.m_dPercentTax = contract.m_dPercentTax2 = rates.taxPercent;
        contract.m_dPercentImpsition = contract.m_dPercentImposition2 = rates.dutyPercent;
    });
}

int CDlgAddAutomobilContract::NewContract(QWidget *parent, int carID)
{
    const KReadAhead reading;
    const OfficeSettings settings = readSettings();
    settings.requireOpen();
    const int key = addPlaceholder(settings);
    int saved = 0;
    const auto confirmed = [&] {
        saved = edit(key, ContractEditorMode::New, settings, parent, carID);
        return saved != 0;
    };
    return NewRecord::keptByEditor<CTblAutomobilContracts>(key, confirmed) ? saved : 0;
}

bool CDlgAddAutomobilContract::EditContract(int key, bool isNew, QWidget *parent)
{
    const KReadAhead reading;
    const OfficeSettings settings = readSettings();
    settings.requireOpen();
    return edit(key, isNew ? ContractEditorMode::New : ContractEditorMode::Edit, settings, parent) != 0;
}

int CDlgAddAutomobilContract::edit(int key, ContractEditorMode mode, const OfficeSettings &settings, QWidget *parent, int carID)
{
    CDlgAddAutomobilContract dialog(key, mode, parent);
    if (!dialog.load(settings))
        return 0;
    if (carID != 0 && !dialog.takeCar(carID))
        return 0;
    return dialog.exec() == QDialog::Accepted ? dialog.key() : 0;
}

void CDlgAddAutomobilContract::ShowContract(int key, bool &refresh, QWidget *parent)
{
    refresh = false;
    if (key < 1)
        return;
    CDlgAddAutomobilContract dialog(key, ContractEditorMode::Show, parent);
    if (!dialog.load())
        return;
    dialog.exec();
    refresh = dialog.refreshNeeded();
}

CDlgAddAutomobilContract::CDlgAddAutomobilContract(int key, ContractEditorMode mode, QWidget *parent)
    : CDlgRecordEditor(key, mode, parent)
    , m_car(mode == ContractEditorMode::New ? 0 : key)
{
    SetSettingName(u"AutomobilContracts\\Editor"_s);
    m_copyCar = addCommand(u"گالري اتومبيل"_s, [this] { copyCar(); });
    m_copyCar->setIcon(LookIcons::icon(u":/icons/car.svg"_s));
    m_estimate = addCommand(u"برآورد معامله"_s, [this] { estimate(); });
}

CDlgAddAutomobilContract::~CDlgAddAutomobilContract() = default;

bool CDlgAddAutomobilContract::load(const OfficeSettings &settings)
{
    CTblAutomobilContracts contract;
    if (!loadRecord(contract))
        return false;
    addPages(settings);
    applyMode();
    if (mode() == ContractEditorMode::Edit)
        CTblCustomFieldRecords::expectValues(CTblAutomobilContracts::recordKind, key());
    m_base->fill(contract);
    m_matter->fill(contract);
    showState(contract.m_iStatus, contract.m_iArchiveUserID, settings.isClosed());
    showContractType(contract.m_iContractType);
    remember(contract, pages());
    if (mode() == ContractEditorMode::Edit)
        m_customValues = CTblCustomFieldRecords::values(CTblAutomobilContracts::recordKind, key());
    return true;
}

void CDlgAddAutomobilContract::addPages(const OfficeSettings &settings)
{
    m_base = new CDlgAddAutomobilContractBase(mode(), settings, tabs());
    addPage(m_base, m_base->title());
    connect(m_base, &CDlgAddAutomobilContractBase::contractTypeChanged, this, &CDlgAddAutomobilContract::showContractType);
    m_matter = new CDlgAddAutomobilContractMatter(mode(), tabs());
    m_matterTab = addPage(m_matter, m_matter->title());
    connect(m_matter, &CDlgAddAutomobilContractMatter::instalmentsRequested, this,
            [this] { KErrorBoundary::guarded(this, [this] { showInstalments(); }); });
    connect(m_matter, &CDlgAddAutomobilContractMatter::chequesRequested, this,
            [this] { KErrorBoundary::guarded(this, [this] { showCheques(); }); });

    m_customFields = new CDlgCustomFields(tabs());
    m_customFields->bind(CTblAutomobilContracts::recordKind, key());
    m_customFields->setReadOnly(isShowMode());
    addPage(m_customFields, m_customFields->title());
    addFilesPage(CTblFileDocs::General, CTblAutomobilContracts::recordKind, u"پرونده های عمومی"_s);
    addFilesPage(CTblFileDocs::Personal, CTblAutomobilContracts::recordKind, u"پرونده های شخصی"_s);
    tabs()->setCurrentIndex(0);
}

void CDlgAddAutomobilContract::applyMode()
{
    if (!isShowMode())
        return;
    leaveOnlyWayBack();
    m_copyCar->hide();
    m_estimate->hide();
}

void CDlgAddAutomobilContract::showContractType(int contractType)
{
    m_contractType = contractType;
    setWindowTitle(contractEditorTitle(contractType, mode()));
    m_matter->showContractType(contractType);
    tabs()->setPageShown(m_matterTab, MatterVisibility::hasPage(contractType));
}

void CDlgAddAutomobilContract::showInstalments()
{
    const double amount = m_base->form()->edit(u"dAmount"_s)->number();
    // The buyer pays the instalments.
    CDlgCalcPayment::Run(key(), m_base->secondParty()->personField()->personID(), m_matter->amountLeftOf(amount), this,
                         isShowMode());
}

void CDlgAddAutomobilContract::showCheques()
{
    CTblAutomobilContracts stored;
    QString refusal;
    if (mode() == ContractEditorMode::New || !stored.IsRecordExist(u"iID"_s, key()))
        refusal = u"این قرارداد هنوز ثبت نشده است. ابتدا آن را تایید نمایید و سپس برای ثبت چک‌ها ویرایش کنید."_s;
    else if (!isShowMode())
        refusal = ContractCheques::entryRefusal(stored, m_base->secondParty()->personField()->personID());
    if (!refusal.isEmpty()) {
        g_pDlgWarning->Show(refusal, this);
        return;
    }
    const auto texts = [this] { return MatterCheques::texts(ContractCheques::ofPrice(ContractCheques::list(key()))); };
    const QList<MatterCheques::FieldText> before = texts();
    CDlgContractCheques::Show(stored, isShowMode(), this);
    m_matter->followCheques(before, texts());
}

QList<ContractEditorPage *> CDlgAddAutomobilContract::pages() const
{
    QList<ContractEditorPage *> pages{m_base};
    if (MatterVisibility::hasPage(m_contractType))
        pages.append(m_matter);
    return pages;
}

bool CDlgAddAutomobilContract::validatePages()
{
    return validateInOrder(pages()) && (!m_customFields->isOpened() || m_customFields->validate()) && confirmDoubts(pages())
        && m_base->settlePayments();
}

// The answer is about what was shown: a plan that another desk changes meanwhile is asked about anew.
void CDlgAddAutomobilContract::save()
{
    m_planAnswer.reset();
    m_car.askAboutSale(m_contractType, chosenStatus() == 0, this);
    for (;;) {
        try {
            return savePosted();
        } catch (const PlanFollowing::Undecided &undecided) {
            const std::optional<PlanChoice> choice = CDlgPlanChoice::ask(undecided.facts(), this);
            if (!choice)
                throw GoneBack();
            m_planAnswer = {undecided.facts(), *choice};
        } catch (const CarSale::Changed &changed) {
            if (!m_car.goesOnAfter(changed, this))
                throw GoneBack();
        } catch (const ContractDeleting::MoneyReceived &received) {
            CDlgContractReceipts::offer(received, key(), this);
            throw GoneBack();
        }
    }
}

void CDlgAddAutomobilContract::savePosted()
{
    const KWaitCursor wait;
    const ContractSaving::PlanStep moneyAndPlan{[this](CTblAutomobilContracts &contract) {
                                                    ContractChanging::requireAllowed(contract);
                                                    PlanFollowing::run(contract, m_planAnswer);
                                                },
                                                [](int key) {
                                                    ContractChanging::expect(key);
                                                    StoredInstalments::expectLocked(key);
                                                }};
    m_posted = ContractSaving::save(decision(pages()), {m_customFields->openedValues(), m_customFields->changedValues()}, moneyAndPlan,
                                    [this](CTblAutomobilContracts &contract) { m_car.write(contract); });
}

int CDlgAddAutomobilContract::saveAsNew()
{
    const KWaitCursor wait;
    int added = 0;
    m_posted = ContractSaving::saveAsNew(decision(pages()), {m_customValues, m_customFields->changedValues()}, added,
                                         [this](CTblAutomobilContracts &contract) { m_car.write(contract); });
    return added;
}

QString CDlgAddAutomobilContract::recordName() const
{
    return u"قرارداد"_s;
}

QString CDlgAddAutomobilContract::rightsForm() const
{
    return u"AutomobilContracts"_s;
}

QString CDlgAddAutomobilContract::captionOf(const QString &column) const
{
    const int field = ContractSaving::customFieldOf(column);
    return field != 0 ? m_customFields->caption(field) : CDlgRecordEditor::captionOf(column);
}

std::optional<QString> CDlgAddAutomobilContract::textOf(const QString &column, const QVariant &value) const
{
    const int field = ContractSaving::customFieldOf(column);
    return field != 0 ? m_customFields->textOf(field, value.toString()) : CDlgRecordEditor::textOf(column, value);
}

void CDlgAddAutomobilContract::goToField(const QString &column)
{
    if (const int field = ContractSaving::customFieldOf(column))
        m_customFields->goTo(field);
    else
        CDlgRecordEditor::goToField(column);
}

void CDlgAddAutomobilContract::refuseCode(const QString &why)
{
    m_base->refuseCode(why);
}

void CDlgAddAutomobilContract::saved()
{
    CDlgDocCreated::Show(m_posted.docNum, m_posted.fiscalYear, this);
    if (m_planAnswer && m_planAnswer->choice == PlanChoice::NewPlan)
        CDlgCalcPayment::RunAnew(key(), m_planAnswer->facts.contract.buyerID, m_planAnswer->facts.contract.left, this);
}

bool CDlgAddAutomobilContract::takeOutOfArchive()
{
    if (!KSecurity::IsGranted(u"AutomobilContractArchive"_s, KSecurity::Access)) {
        g_pDlgWarning->Show(u"شما اجازه تغییر دادن ندارید."_s, this);
        return false;
    }
    RecordArchiving::takeOut<CTblAutomobilContracts>(key());
    g_pDlgWarning->Show(u"این قرارداد از حالت بایگانی خارج شد."_s, this);
    return true;
}

void CDlgAddAutomobilContract::copyCar()
{
    const int chosen = CDlgAutomobilInformations::SelectCar(this, m_car.carID());
    if (chosen != 0)
        (void)takeCar(chosen);
}

// At the price as it stands in the window.
void CDlgAddAutomobilContract::estimate()
{
    const double price = m_base->form()->edit(u"dAmount"_s)->number();
    if (m_car.carID() != 0)
        CDlgDealWhatIf::ShowCar(m_car.carID(), price, this);
    else
        CDlgDealWhatIf::Show({.car = {}, .price = price}, this);
}

bool CDlgAddAutomobilContract::takeCar(int carID)
{
    const auto car = loadCarForContract(carID);
    if (!car)
        return true;
    if (!m_car.mayTake(carID, this))
        return false;
    m_car.take(carID);
    m_base->proposeAmount(car->price);
    const QStringList shortened = m_matter->takeVehicle(contractFromCar(*car));
    if (car->ownerID != 0) {
        // A person from the list of persons is an ordinary party.
        m_base->firstParty()->setKind(PartyKind::Ordinary);
        m_base->firstParty()->takePerson(car->ownerID);
    }
    // Half a name must not go into a contract unnoticed.
    if (!shortened.isEmpty())
        g_pDlgWarning->Show(
            u"متن خودرو در این فیلدهای قرارداد جا نشد و کوتاه شد، لطفا بررسی کنید: "_s + shortened.join(u"، "_s),
            this);
    return true;
}
