// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CDlgCarsAll.h"

#include "auto/catalog/CDlgAddCar.h"
#include "auto/catalog/CatalogImportDialogs.h"
#include "auto/catalog/CatalogPanel.h"
#include "suite/accounting/changes/AddedSince.h"
#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/bin/RowDeleting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/look/LookSizes.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QPushButton>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr CatalogLevel levels[] = {CatalogLevel::Brand, CatalogLevel::Model, CatalogLevel::Class};

QString rightsForm()
{
    return u"CarsAll"_s;
}

CatalogPanel *makePanel(CatalogLevel level, QWidget *parent)
{
    switch (level) {
    case CatalogLevel::Brand:
        return new CatalogPanel(u"نوع خودرو"_s, u"DlgCarsAll\\List"_s, parent);
    case CatalogLevel::Model:
        return new CatalogPanel(u"مدل خودرو"_s, u"DlgCarsAll\\List2"_s, parent);
    case CatalogLevel::Class:
        return new CatalogPanel(u"تیپ خودرو"_s, u"DlgCarsAll\\List3"_s, parent);
    }
    Q_UNREACHABLE();
}

// Of a model or a class.
CatalogLevel levelAbove(CatalogLevel level)
{
    return level == CatalogLevel::Model ? CatalogLevel::Brand : CatalogLevel::Model;
}

// Another user may have deleted what the list still shows.
bool isParentThere(CatalogLevel level, int parent)
{
    return level == CatalogLevel::Brand || CatalogEntries::name(levelAbove(level), parent).has_value();
}

// The same inside the unit of work that adds an entry below it: until its end nobody deletes the parent.
void requireParent(CatalogLevel level, int parent)
{
    if (level == CatalogLevel::Brand)
        return;
    const std::unique_ptr<KMySQL> above = CatalogEntries::records(levelAbove(level));
    if (!above->lockRecord(parent))
        throw KAccountingError(u"%1 ردیف بالاتر را در این میان حذف کرده است. چیزی ذخیره نشد."_s
                                   .arg(RowChanged::lastChange(above->GetTableName(), parent)));
}

bool saveEntry(CDlgAddCar *editor, RowEdit &edit, const QString &name, const RowEdit::Settle &settle)
{
    edit.lockAs(CatalogEntries::lockName());
    return RowQuestions::save(
               editor, edit, {}, [&] { edit.record().setValue(u"sName", name); }, settle)
        == RowQuestions::Outcome::Saved;
}

QString usedText(CatalogLevel level)
{
    switch (level) {
    case CatalogLevel::Brand:
        return u"شما نمی توانید این نوع خودرو را حذف نمایید زیرا استفاده شده است در گالری اتومبیل."_s;
    case CatalogLevel::Model:
        return u"نمی توانید این مدل را حذف نمایید زیرا استفاده شده است."_s;
    case CatalogLevel::Class:
        return u"نمی توانید این تیپ را حذف نمایید زیرا در گالری اتومبیل استفاده شده است."_s;
    }
    Q_UNREACHABLE();
}

}

CDlgCarsAll::CDlgCarsAll(QWidget *parent)
    : KDialog(parent)
{
    SetFormName(rightsForm());
    CheckSecurity();
    setWindowTitle(formCaption(rightsForm()));
    resize(fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 34);
    SetSettingName(u"DlgCarsAll"_s);
    build();
}

CDlgCarsAll::~CDlgCarsAll() = default;

bool CDlgCarsAll::Pick(QWidget *parent, int &brand, int &model, int &carClass)
{
    CDlgCarsAll dialog(parent);
    dialog.setPickMode(true);
    dialog.setChosen(brand, model, carClass);
    if (dialog.exec() != Accepted)
        return false;
    brand = dialog.chosenBrand();
    model = dialog.chosenModel();
    carClass = dialog.chosenClass();
    return true;
}

bool CDlgCarsAll::Browse(QWidget *parent)
{
    CDlgCarsAll dialog(parent);
    dialog.exec();
    return dialog.isChanged();
}

void CDlgCarsAll::setChosen(int brand, int model, int carClass)
{
    m_chosenBrand = brand;
    m_chosenModel = model;
    m_chosenClass = carClass;
}

void CDlgCarsAll::build()
{
    auto *content = new QWidget(this);
    auto *lists = new QHBoxLayout(content);
    lists->setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    lists->setSpacing(LookSizes::sideGap);
    for (const CatalogLevel level : levels) {
        m_panels[static_cast<size_t>(level)] = makePanel(level, this);
        lists->addWidget(panel(level), 1);
        connectPanel(level);
    }
    m_import = new QPushButton(u"ورود فهرست آماده"_s, this);
    m_import->setAccessibleName(m_import->text());
    m_import->setToolTip(u"افزودن نوع‌ها، مدل‌ها و تیپ‌های یک فایل به فهرست"_s);
    m_import->setAutoDefault(false);
    connect(m_import, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { importEntries(); }); });

    m_buttons = createButtons(u"انتخاب"_s);
    setAsksBeforeDropping(false);
    for (QAbstractButton *button : m_buttons->buttons()) {
        if (m_buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
            m_accept = qobject_cast<QPushButton *>(button);
    }
    setContent(content, m_buttons, Content::Fills);
    footer()->addWidget(m_import);
}

void CDlgCarsAll::connectPanel(CatalogLevel level)
{
    const CatalogPanel *source = panel(level);
    connect(source, &CatalogPanel::filterEdited, this, [this, level] {
        KErrorBoundary::guarded(this, [&] {
            if (hasParent(level))
                fill(level);
        });
    });
    const auto guard = [this, level](void (CDlgCarsAll::*command)(CatalogLevel)) {
        return [this, level, command] { KErrorBoundary::guarded(this, std::bind_front(command, this, level)); };
    };
    connect(source, &CatalogPanel::addRequested, this, guard(&CDlgCarsAll::addEntry));
    connect(source, &CatalogPanel::editRequested, this, guard(&CDlgCarsAll::editEntry));
    connect(source, &CatalogPanel::deleteRequested, this, guard(&CDlgCarsAll::deleteEntry));
    connect(source, &CatalogPanel::activated, this, guard(&CDlgCarsAll::activated));
    connect(source, &CatalogPanel::currentKeyChanged, this,
            [this, level](int key) { KErrorBoundary::guarded(this, [&] { selectionChanged(level, key); }); });
}

int CDlgCarsAll::exec()
{
    return CheckAccessSecurity() ? KDialog::exec() : int(Rejected);
}

void CDlgCarsAll::showEvent(QShowEvent *event)
{
    KDialog::showEvent(event);
    KErrorBoundary::guarded(this, [this] { start(); });
}

void CDlgCarsAll::start()
{
    if (m_started)
        return;
    m_started = true;
    applyMode();
    fill(CatalogLevel::Brand);
    if (m_pickMode && m_chosenBrand != 0)
        selectPath(m_chosenBrand, m_chosenModel, m_chosenClass);
    else
        panel(CatalogLevel::Brand)->list()->selectRow(0);
    panel(CatalogLevel::Brand)->filter()->setFocus();
}

bool CDlgCarsAll::isChangeBlocked() const
{
    const OfficeSettings settings = OfficeSettings::read();
    return settings.isClosed() || settings.isCatalogLocked();
}

void CDlgCarsAll::applyMode()
{
    const bool mayChange = !isChangeBlocked();
    for (const CatalogLevel level : levels)
        panel(level)->showCommands(mayChange && !m_pickMode, mayChange);
    m_import->setVisible(mayChange && !m_pickMode);
    m_accept->setVisible(m_pickMode);
    m_accept->setEnabled(false);
    if (m_pickMode)
        return;
    for (QAbstractButton *button : m_buttons->buttons()) {
        if (button != m_accept)
            button->setText(u"بازگشت"_s);
    }
}

int CDlgCarsAll::selectedKey(CatalogLevel level) const
{
    return panel(level)->list()->currentKey();
}

int CDlgCarsAll::parentKey(CatalogLevel level) const
{
    return level == CatalogLevel::Brand ? 0 : selectedKey(levelAbove(level));
}

bool CDlgCarsAll::hasParent(CatalogLevel level) const
{
    return level == CatalogLevel::Brand || parentKey(level) != 0;
}

// The rows are read first: a list whose reading fails keeps what it shows.
void CDlgCarsAll::fill(CatalogLevel level)
{
    const KWaitCursor waiting;
    const QVector<CatalogEntries::Entry> entries = CatalogEntries::list(level, parentKey(level), panel(level)->namePart());
    clearBelow(level);
    panel(level)->setEntries(entries);
}

void CDlgCarsAll::clearBelow(CatalogLevel level)
{
    for (const CatalogLevel below : levels) {
        if (below > level)
            panel(below)->clear();
    }
}

// What depends on the former selection must not stay if reading the new one fails.
void CDlgCarsAll::selectionChanged(CatalogLevel level, int key)
{
    clearBelow(level);
    if (level == CatalogLevel::Brand && m_pickMode)
        m_accept->setEnabled(key != 0);
    if (key != 0 && level != CatalogLevel::Class)
        fill(level == CatalogLevel::Brand ? CatalogLevel::Model : CatalogLevel::Class);
}

void CDlgCarsAll::selectPath(int brand, int model, int carClass)
{
    if (panel(CatalogLevel::Brand)->list()->selectKey(brand) && model != 0
        && panel(CatalogLevel::Model)->list()->selectKey(model) && carClass != 0)
        panel(CatalogLevel::Class)->list()->selectKey(carClass);
}

void CDlgCarsAll::selectNew(CatalogLevel level, int key)
{
    fill(level);
    if (panel(level)->list()->selectKey(key))
        return;
    // The current filter does not find the new name.
    panel(level)->clearFilter();
    fill(level);
    panel(level)->list()->selectKey(key);
}

// An entry is gone: the selection stays at its place.
void CDlgCarsAll::refill(CatalogLevel level)
{
    KExtListCtrl *list = panel(level)->list();
    const int row = list->currentRow();
    fill(level);
    list->selectRow(qMin(row, list->count() - 1));
}

void CDlgCarsAll::activated(CatalogLevel level)
{
    if (m_pickMode)
        accept();
    else if (selectedKey(level) != 0)
        editEntry(level);
    else
        addEntry(level);
}

bool CDlgCarsAll::OnOK()
{
    if (selectedKey(CatalogLevel::Brand) == 0)
        return false;
    setChosen(selectedKey(CatalogLevel::Brand), selectedKey(CatalogLevel::Model), selectedKey(CatalogLevel::Class));
    return true;
}

void CDlgCarsAll::addEntry(CatalogLevel level)
{
    if (!hasParent(level) || !CheckWriteSecurity() || isChangeBlocked())
        return;
    const int parent = parentKey(level);
    const std::unique_ptr<KMySQL> entry = CatalogEntries::records(level);
    RowEdit edit(*entry);
    const AddedSince added(entry->GetTableName());
    bool parentGone = false;
    CDlgAddCar editor(panel(level)->heading(), this);
    editor.setParentKey(parent);
    editor.setSave([&](const QString &name) {
        parentGone = !isParentThere(level, parent);
        return parentGone || saveEntry(&editor, edit, name, [&] {
                   requireParent(level, parent);
                   CatalogEntries::fillNew(*entry, level, parent, GetDBSetting()->GetUserID(), GetDBSetting()->GetDBServerDate());
                   const QString who = added.by(CatalogEntries::sameNameBelow(level, parent, name));
                   if (!who.isEmpty() && level != CatalogLevel::Brand)
                       edit.doubt(u"%1 «%2» را در این میان ثبت کرده است. آیا با این حال ذخیره شود؟"_s.arg(who, name), {});
               });
    });
    if (editor.exec() != Accepted)
        return;
    if (parentGone) {
        refill(levelAbove(level));
        return;
    }
    if (level == CatalogLevel::Class)
        m_changed = true;
    selectNew(level, edit.key());
}

void CDlgCarsAll::editEntry(CatalogLevel level)
{
    const int key = selectedKey(level);
    if (key == 0 || !CheckModifySecurity() || isChangeBlocked())
        return;
    const std::unique_ptr<KMySQL> entry = CatalogEntries::records(level);
    if (!entry->IsRecordExist(u"iID"_s, key))
        return;
    RowEdit edit(*entry, key);
    edit.remember([] {});
    CDlgAddCar editor(panel(level)->heading(), this);
    editor.setEdited(key, entry->value(u"sName").toString());
    editor.offerHistory(entry->GetTableName());
    editor.setSave([&](const QString &typed) { return saveEntry(&editor, edit, typed, [] {}); });
    if (editor.exec() != Accepted)
        return;
    const int model = selectedKey(CatalogLevel::Model);
    const int carClass = selectedKey(CatalogLevel::Class);
    // Another key than before where the entry was gone and is a new one now.
    selectNew(level, edit.key());
    // The lists below still belong to the same entry.
    if (level == CatalogLevel::Brand)
        selectPath(edit.key(), model, carClass);
    else if (level == CatalogLevel::Model)
        panel(CatalogLevel::Class)->list()->selectKey(carClass);
}

void CDlgCarsAll::deleteEntry(CatalogLevel level)
{
    const int key = selectedKey(level);
    if (m_pickMode || key == 0 || !CheckDeletionSecurity() || isChangeBlocked())
        return;
    const std::unique_ptr<KMySQL> asked = CatalogEntries::record(level, key);
    if (!asked)
        return refill(level);
    if (CatalogEntries::isUsed(level, key)) {
        g_pDlgWarning->Show(usedText(level), this);
        return;
    }
    if (g_pDlgYesNo->Ask(SuiteMessages::deleteQuestion(), this) == KMessageDialog::No)
        return;
    try {
        if (!CatalogEntries::remove(level, *asked))
            g_pDlgWarning->Show(usedText(level), this);
    } catch (const RowDeleting::Refused &refused) {
        g_pDlgWarning->Show(refused.userMessage(), this);
    }
    refill(level);
}

void CDlgCarsAll::importEntries()
{
    if (m_pickMode || !CheckWriteSecurity() || isChangeBlocked())
        return;
    const QString path = CatalogImportDialogs::askForFile(this);
    if (path.isEmpty() || !CatalogImportDialogs::importFile(path, this))
        return;
    m_changed = true;
    const int brand = selectedKey(CatalogLevel::Brand);
    fill(CatalogLevel::Brand);
    if (!panel(CatalogLevel::Brand)->list()->selectKey(brand))
        panel(CatalogLevel::Brand)->list()->selectRow(0);
}
