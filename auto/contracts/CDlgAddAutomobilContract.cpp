// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/CDlgAddAutomobilContract.h"

#include "auto/contracts/CDlgAddAutomobilContractBase.h"
#include "auto/contracts/CDlgAddAutomobilContractMatter.h"
#include "auto/contracts/CDlgCalcPayment.h"
#include "auto/contracts/ContractPartyGroup.h"
#include "auto/contracts/ContractSettings.h"
#include "auto/contracts/ContractTitle.h"
#include "auto/contracts/StoredInstalments.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/KTransaction.h"
#include "suite/accounting/CDBSetting.h"
#include "suite/accounting/CDlgCustomFields.h"
#include "suite/accounting/CDlgFileDocs.h"
#include "suite/accounting/KErrorBoundary.h"
#include "suite/accounting/KMessageDialog.h"
#include "suite/accounting/KSecurity.h"
#include "suite/crm/KPersonField.h"
#include "suite/utility/KEdit.h"
#include "suite/utility/KForm.h"
#include "suite/utility/KTabPageButtons.h"
#include "suite/utility/KWaitCursor.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace {

const QString keyColumn = QStringLiteral("iID");

bool loadContract(CTblAutomobilContracts &contract, int key)
{
    return contract.IsRecordExist(keyColumn, key, 0, QString());
}

}

int CDlgAddAutomobilContract::addPlaceholder()
{
    const ContractSettings settings = ContractSettings::load();
    CTblAutomobilContracts contract;
    contract.Open(true, false, true);
    contract.AddNew();
    contract.m_iCode = CTblAutomobilContracts::nextCode();
    contract.m_dateCreate = GetDBSetting()->GetDBServerDate();
    contract.m_iUserID = GetDBSetting()->GetUserID();
    contract.m_dPercentTax = contract.m_dPercentTax2 = settings.taxPercent;
    contract.m_dPercentImpsition = contract.m_dPercentImposition2 = settings.dutyPercent;
    contract.Update(true);
    return static_cast<int>(contract.GetLastInsertedID());
}

int CDlgAddAutomobilContract::NewContract(QWidget *parent)
{
    GetDBSetting()->RequireOpenDB();
    const int key = addPlaceholder();
    bool confirmed = false;
    std::exception_ptr error;
    try {
        confirmed = EditContract(key, true, parent);
    } catch (...) {
        // The placeholder goes whatever ended the window.
        error = std::current_exception();
    }
    if (!confirmed) {
        CTblAutomobilContracts contract;
        if (loadContract(contract, key)) {
            // A plan that was stored on the way would be left without its contract.
            StoredInstalments::remove(key);
            contract.Delete();
        }
    }
    if (error)
        std::rethrow_exception(error);
    return confirmed ? key : 0;
}

bool CDlgAddAutomobilContract::EditContract(int key, bool isNew, QWidget *parent)
{
    GetDBSetting()->RequireOpenDB();
    CDlgAddAutomobilContract dialog(key, isNew ? ContractEditorMode::New : ContractEditorMode::Edit, parent);
    return dialog.load() && dialog.exec() == QDialog::Accepted;
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
    : KDialog(parent)
    , m_key(key)
    , m_mode(mode)
{
    SetSettingName(QStringLiteral("AutomobilContracts\\Editor"));
    buildFrame();
    // All of the first page in sight where the screen allows it; later as the user left it.
    resize(QSize(1200, 800).boundedTo(screen()->availableSize() - QSize(40, 60)));
}

CDlgAddAutomobilContract::~CDlgAddAutomobilContract() = default;

void CDlgAddAutomobilContract::buildFrame()
{
    m_tabs = new KTabPageButtons(this);
    m_active = new QCheckBox(QStringLiteral("فعال"), this);
    m_buttons = createButtons();
    m_unarchive = new QPushButton(QStringLiteral("برگشت از بايگاني"), this);
    m_copyCar = new QPushButton(QStringLiteral("گالري اتومبيل"), this);
    for (QPushButton *button : {m_unarchive, m_copyCar}) {
        button->setAccessibleName(button->text());
        button->setAutoDefault(false);
    }
    // Copying from a car record comes with the register of cars.
    m_copyCar->setEnabled(false);
    connect(m_unarchive, &QPushButton::clicked, this, [this] {
        try {
            unarchive();
        } catch (...) {
            KErrorBoundary::report(std::current_exception(), this);
        }
    });

    auto *bottom = new QHBoxLayout;
    bottom->addWidget(m_active);
    bottom->addSpacing(12);
    bottom->addWidget(m_copyCar);
    bottom->addWidget(m_unarchive);
    bottom->addStretch(1);
    bottom->addWidget(m_buttons);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs, 1);
    layout->addLayout(bottom);
}

bool CDlgAddAutomobilContract::load()
{
    CTblAutomobilContracts contract;
    if (!loadContract(contract, m_key))
        return false;
    addPages();
    applyMode();
    // The row is read again, as it is now that the pages stand.
    if (!loadContract(contract, m_key))
        return false;
    m_base->fill(contract);
    m_matter->fill(contract);
    m_active->setChecked(contract.m_iStatus == 0);
    m_unarchive->setVisible(contract.m_iArchiveUserID != 0 && !GetDBSetting()->IsClosedDB());
    showContractType(contract.m_iContractType);
    return true;
}

int CDlgAddAutomobilContract::addPage(KDialogTabPage *page, const QString &title)
{
    const int index = m_tabs->addPage(page, title);
    connect(page, &KDialogTabPage::frontRequested, m_tabs, [this, index] { m_tabs->setCurrentIndex(index); });
    return index;
}

void CDlgAddAutomobilContract::addPages()
{
    const bool readOnly = isShowMode();
    m_base = new CDlgAddAutomobilContractBase(m_mode, m_tabs);
    addPage(m_base, QStringLiteral("اطلاعات پایه"));
    connect(m_base, &CDlgAddAutomobilContractBase::contractTypeChanged, this, &CDlgAddAutomobilContract::showContractType);
    m_matter = new CDlgAddAutomobilContractMatter(m_mode, m_tabs);
    m_matterTab = addPage(m_matter, m_matter->title());
    connect(m_matter, &CDlgAddAutomobilContractMatter::instalmentsRequested, this,
            &CDlgAddAutomobilContract::showInstalments);

    m_customFields = new CDlgCustomFields(m_tabs);
    m_customFields->bind(CTblAutomobilContracts::recordKind, m_key);
    m_customFields->setReadOnly(readOnly);
    addPage(m_customFields, m_customFields->title());
    const std::pair<CTblFileDocs::Scope, QString> filePages[] = {
        {CTblFileDocs::General, QStringLiteral("پرونده های عمومی")},
        {CTblFileDocs::Personal, QStringLiteral("پرونده های شخصی")},
    };
    for (const auto &[scope, title] : filePages) {
        auto *files = new CDlgFileDocs(scope, m_tabs);
        files->bind(CTblAutomobilContracts::recordKind, m_key);
        files->setReadOnly(readOnly);
        addPage(files, title);
    }
    m_tabs->setCurrentIndex(0);
}

void CDlgAddAutomobilContract::applyMode()
{
    if (!isShowMode())
        return;
    for (QAbstractButton *button : m_buttons->buttons()) {
        if (m_buttons->buttonRole(button) != QDialogButtonBox::AcceptRole) {
            button->setText(QStringLiteral("بازگشت"));
            continue;
        }
        // Merely hidden, the first button of the row would still be handed the focus, and Tab would end there.
        m_buttons->removeButton(button);
        delete button;
    }
    m_active->setEnabled(false);
    m_copyCar->hide();
}

void CDlgAddAutomobilContract::showContractType(int contractType)
{
    m_contractType = contractType;
    setWindowTitle(contractEditorTitle(contractType, m_mode));
    m_matter->showContractType(contractType);
    m_tabs->setPageShown(m_matterTab, hasMatterPage(contractType));
}

void CDlgAddAutomobilContract::showInstalments()
{
    try {
        const double amount = m_base->form()->edit(QStringLiteral("dAmount"))->number();
        // Whoever buys pays the instalments.
        CDlgCalcPayment::Run(m_key, m_base->secondParty()->personField()->personID(), m_matter->amountLeftOf(amount), this,
                             isShowMode());
    } catch (...) {
        KErrorBoundary::report(std::current_exception(), this);
    }
}

QList<ContractEditorPage *> CDlgAddAutomobilContract::pages() const
{
    QList<ContractEditorPage *> pages{m_base};
    if (hasMatterPage(m_contractType))
        pages.append(m_matter);
    return pages;
}

bool CDlgAddAutomobilContract::OnOK()
{
    if (isShowMode())
        return false;
    try {
        GetDBSetting()->RequireOpenDB();
        if (!validatePages() || !save())
            return false;
    } catch (...) {
        // What was typed stays in the window.
        KErrorBoundary::report(std::current_exception(), this);
        return false;
    }
    for (ContractEditorPage *page : pages())
        page->saved();
    return true;
}

bool CDlgAddAutomobilContract::validatePages()
{
    for (ContractEditorPage *page : pages()) {
        if (!page->validate())
            return false;
    }
    return !m_customFields->isOpened() || m_customFields->validate();
}

bool CDlgAddAutomobilContract::save()
{
    const KWaitCursor wait;
    bool saved = false;
    KTransaction::runReplayable([&] {
        saved = false;
        CTblAutomobilContracts contract;
        if (!loadContract(contract, m_key))
            return;
        contract.Edit();
        if (contract.m_iUserID == 0)
            contract.m_iUserID = GetDBSetting()->GetUserID();
        contract.m_iStatus = m_active->isChecked() ? 0 : 1;
        for (ContractEditorPage *page : pages())
            page->write(contract);
        contract.Update(true);
        m_customFields->save(m_key);
        saved = true;
    });
    return saved;
}

void CDlgAddAutomobilContract::unarchive()
{
    if (!KSecurity::IsGranted(QStringLiteral("AutomobilContractArchive"), KSecurity::Access)) {
        g_pDlgWarning->Show(QStringLiteral("شما اجازه تغییر دادن ندارید."), this);
        return;
    }
    GetDBSetting()->RequireOpenDB();
    CTblAutomobilContracts contract;
    if (loadContract(contract, m_key))
        CTblAutomobilContracts::unarchive(contract.m_iCode);
    g_pDlgWarning->Show(QStringLiteral("این قرارداد از حالت بایگانی خارج شد."), this);
    m_refresh = true;
    reject();
}
