// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/CDlgAddAutomobilInformation.h"

#include "auto/editor/EditorTitle.h"
#include "auto/cars/register/editor/CDlgAddAutomobilInformationBase.h"
#include "auto/cars/register/editor/CarTwins.h"
#include "auto/cars/register/editor/CDlgAddAutomobilInformationSales.h"
#include "auto/cars/demands/editor/CDlgMatchingDemands.h"
#include "auto/cars/fields/PersonGroup.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/attachments/RecordPictures.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/KExpectedRow.h"
#include "suite/image/PictureStrip.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KTabPageButtons.h"
#include "suite/utility/look/LookIcons.h"

#include <QCheckBox>
#include <QMenu>
#include <QPushButton>

using namespace Qt::StringLiterals;

void CDlgAddAutomobilInformation::expectEdit(int carID)
{
    for (int time = 0; time < 2; ++time)
        OfficeSettings::expect();
    expectPages();
    expectRow<CTblAutomobilInformations>(carID);
}

void CDlgAddAutomobilInformation::expectPages()
{
    CDlgAddAutomobilInformationBase::expectChoices();
    CDlgAddAutomobilInformationSales::expectChoices();
}

bool CDlgAddAutomobilInformation::EditCar(int carID, bool isNew, QWidget *parent, bool *changed)
{
    const KReadAhead reading;
    // Where a new one is begun, it has been asked.
    if (!isNew)
        GetDBSetting()->RequireOpenDB();
    CDlgAddAutomobilInformation dialog(carID, isNew ? EditorMode::New : EditorMode::Edit, parent);
    const bool confirmed = dialog.load() && dialog.exec() == QDialog::Accepted;
    if (changed)
        *changed = dialog.refreshNeeded();
    return confirmed;
}

void CDlgAddAutomobilInformation::ShowCar(int carID, bool &changed, QWidget *parent)
{
    changed = false;
    if (carID < 1)
        return;
    CDlgAddAutomobilInformation dialog(carID, EditorMode::Show, parent);
    if (!dialog.load())
        return;
    dialog.exec();
    changed = dialog.refreshNeeded();
}

CDlgAddAutomobilInformation::CDlgAddAutomobilInformation(int carID, EditorMode mode, QWidget *parent)
    : CDlgRecordEditor(carID, mode, parent)
{
    SetSettingName(u"AutomobilInformations\\Editor"_s);
    setWindowTitle(editorTitle(u"گالري اتومبيل"_s, mode));
    m_demands = addCommand(u"تقاضا"_s, [this] {
        OfferedCar car = m_base->offered();
        car.sold = m_sale->form()->checkBox(u"bSold"_s)->isChecked();
        CDlgMatchingDemands::Show(car, m_base->code(), this);
    });
    m_more = addCommand(u"بیشتر"_s, [] {});
    m_more->setMenu(new QMenu(m_more));
    m_more->setVisible(mode != EditorMode::New);
    connect(m_more->menu(), &QMenu::aboutToShow, this, &CDlgAddAutomobilInformation::offerMore);
}

CDlgAddAutomobilInformation::~CDlgAddAutomobilInformation() = default;

// Of the car as it is stored.
void CDlgAddAutomobilInformation::offerMore()
{
    QMenu *menu = m_more->menu();
    menu->clear();
    for (const RecordAction &action : RecordWindows::actionsOf(u"AutomobilInformations"_s, key())) {
        if (action.id != "matchingDemands"_L1)
            menu->addAction(LookIcons::icon(action.icon), action.text, this, [this, action] { RecordWindows::run(action, key(), this); });
    }
}

bool CDlgAddAutomobilInformation::load()
{
    CTblAutomobilInformations car;
    if (!loadRecord(car))
        return false;
    m_base = new CDlgAddAutomobilInformationBase(mode(), tabs());
    addPage(m_base, m_base->title());
    m_sale = new CDlgAddAutomobilInformationSales(mode(), tabs());
    addPage(m_sale, m_sale->title());
    connect(m_base, &CDlgAddAutomobilInformationBase::plateChanged, m_sale, &CDlgAddAutomobilInformationSales::showPlate);
    addFilesPage(CTblFileDocs::Personal, CTblAutomobilInformations::recordKind, u"پرونده های شخصی"_s);
    tabs()->setCurrentIndex(0);
    m_base->expectFill(car);
    m_sale->expectFill(car);
    m_base->fill(car);
    m_sale->fill(car);
    showState(car.m_iStatus, car.m_iArchiveUserID);
    remember(car, pages());
    return true;
}

bool CDlgAddAutomobilInformation::OnOK()
{
    if (!isShowMode())
        return CDlgRecordEditor::OnOK();
    cancel();
    return false;
}

bool CDlgAddAutomobilInformation::validatePages()
{
    return validateInOrder(pages()) && checkEntries() && confirmDoubts(pages()) && checkParties();
}

QList<CarEditorPage *> CDlgAddAutomobilInformation::pages() const
{
    return {m_base, m_sale};
}

bool CDlgAddAutomobilInformation::checkEntries()
{
    for (const auto &[page, form] : {std::pair<CarEditorPage *, KForm *>(m_base, m_base->form()),
                                     std::pair<CarEditorPage *, KForm *>(m_sale, m_sale->form())}) {
        if (const auto problem = form->firstInvalid())
            return page->refuseEntry(*problem);
    }
    return true;
}

bool CDlgAddAutomobilInformation::checkParties()
{
    if (m_base->owner()->personID() != m_sale->buyer()->personID())
        return true;
    return m_sale->refuse(u"شخص مالک و خریدار یکی است لطفا اصلاح کنید."_s, m_sale->buyer()->codeEdit());
}

// Cars are saved one after the other, so that of two desks with the same number the second one sees the first.
RecordSaving::Parts<CTblAutomobilInformations> CDlgAddAutomobilInformation::parts(bool asNew)
{
    PictureStrip *strip = m_base->furtherPictures();
    const RecordPictures::Change pictures = asNew ? strip->asNew() : strip->change();
    return {.locks = [] { RecordCodes::lock(u"AutomobilInformations"_s); },
            .beforeRow = [](CTblAutomobilInformations &car) { CarTwins::requireAllowed(car); },
            .afterRow = [this, pictures](CTblAutomobilInformations &car, const KRowValues &) {
                m_picturesChangedBy = RecordPictures::save(CTblAutomobilInformations::recordKind, car.m_iID, pictures, car.m_oPicture.data, car.database());
            }};
}

void CDlgAddAutomobilInformation::goBackFor(const FieldRefused &refused)
{
    m_base->refuse(refused.userMessage(), m_base->form()->control(refused.column()));
    throw GoneBack();
}

void CDlgAddAutomobilInformation::save()
{
    try {
        saveRecord(pages(), parts(false));
    } catch (const FieldRefused &refused) {
        goBackFor(refused);
    }
}

int CDlgAddAutomobilInformation::saveAsNew()
{
    return addRecord(pages(), parts(true));
}

void CDlgAddAutomobilInformation::saved()
{
    if (!m_picturesChangedBy.isEmpty())
        g_pDlgMessage->Show(u"%1 تصویرهای این خودرو را در این میان تغییر داده است. تغییر هر دو ذخیره شد."_s.arg(m_picturesChangedBy), this);
}

QString CDlgAddAutomobilInformation::recordName() const
{
    return u"خودرو"_s;
}

QString CDlgAddAutomobilInformation::rightsForm() const
{
    return u"AutomobilInformations"_s;
}

bool CDlgAddAutomobilInformation::takeOutOfArchive()
{
    KSecurity archive;
    archive.SetFormName(u"AutomobilInformationArchive"_s);
    if (!archive.CheckWriteSecurity())
        return false;
    RecordArchiving::takeOut<CTblAutomobilInformations>(key());
    g_pDlgMessage->Show(u"این نامه از حالت بایگانی خارج شد."_s, this);
    return true;
}
