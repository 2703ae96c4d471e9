// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/CDlgSaveFilter.h"

#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/values/TextStandard.h"

#include <QCheckBox>
#include <QDialogButtonBox>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int savePageWidth = 480;

}

CDlgSaveFilter::CDlgSaveFilter(const QString &list, const QString &form, CTblSavedFilters::Entry entry, QWidget *parent)
    : KDialog(parent)
    , m_list(list)
    , m_form(form)
    , m_entry(std::move(entry))
    , m_name(new KEdit)
    , m_shared(new QCheckBox(u"مشترک با همه کاربران"_s))
{
    const bool isNew = m_entry.key == 0;
    setWindowTitle(isNew ? u"ذخیره فیلتر"_s : u"تغییر نام فیلتر"_s);
    m_name->setMaxLength(CTblSavedFilters::longestName);
    m_name->setText(m_entry.name);
    m_shared->setAccessibleName(m_shared->text());
    m_shared->setChecked(!isNew && m_entry.userID == CTblSavedFilters::shared);
    m_shared->setEnabled(isNew && KSecurity::IsGranted(form, KSecurity::Modify));
    if (isNew && !m_shared->isEnabled())
        m_shared->setToolTip(KSecurity::refusalText(form, KSecurity::Modify));
    auto *page = new CardPage(savePageWidth, this);
    FormGrid *grid = page->addForm({}, FormGrid::Extent::Half);
    addLabelled(grid, u"نام فیلتر :"_s, m_name, 4);
    grid->addCell(m_shared, 4);
    setContent(page, createButtons());
    m_name->setFocus();
    m_name->selectAll();
}

CDlgSaveFilter::~CDlgSaveFilter() = default;

bool CDlgSaveFilter::mayKeep(const QString &form, const CTblSavedFilters::Entry &entry, QWidget *parent)
{
    try {
        GetDBSetting()->RequireOpenDB();
    } catch (const KAccountingError &error) {
        g_pDlgWarning->Show(error.userMessage(), parent);
        return false;
    }
    if (entry.key == 0 || entry.userID != CTblSavedFilters::shared || KSecurity::IsGranted(form, KSecurity::Modify))
        return true;
    g_pDlgWarning->Show(KSecurity::refusalText(form, KSecurity::Modify), parent);
    return false;
}

bool CDlgSaveFilter::OnOK()
{
    CTblSavedFilters::Entry after = m_entry;
    after.name = ConvertToStandard(m_name->text());
    if (m_entry.key == 0)
        after.userID = m_shared->isChecked() ? CTblSavedFilters::shared : GetDBSetting()->GetUserID();
    if (after.userID == CTblSavedFilters::shared && !KSecurity::IsGranted(m_form, KSecurity::Modify)) {
        g_pDlgWarning->Show(KSecurity::refusalText(m_form, KSecurity::Modify), this);
        return false;
    }
    if (m_entry.key != 0)
        return isSaved(m_entry, after);
    const QList<CTblSavedFilters::Entry> listed = CTblSavedFilters::entries(m_list, GetDBSetting()->GetUserID());
    const auto same = std::ranges::find_if(listed, [&](const CTblSavedFilters::Entry &entry) { return entry.name == after.name && entry.userID == after.userID; });
    if (same == listed.cend())
        return isSaved({}, after);
    if (g_pDlgYesNo->Ask(u"فیلتری با این نام ذخیره شده است. آیا جایگزین شود؟"_s, this) == KMessageDialog::No) {
        m_name->setFocus();
        return false;
    }
    after.key = same->key;
    return isSaved(*same, after);
}

bool CDlgSaveFilter::isSaved(const CTblSavedFilters::Entry &before, const CTblSavedFilters::Entry &after)
{
    CTblSavedFilters stored;
    RowEdit edit(stored, before.key);
    stored.begin(m_list, before.key == 0 ? after : before);
    if (before.key != 0)
        edit.remember([] {});
    // The name and the conditions are each one field; the conditions are not shown as they are kept.
    const RowQuestions::Texts texts{
        .caption = [](const QString &column) { return column == u"sFilter" ? u"شرط‌ها"_s : QString(); },
        .format = [](const QString &column, const QVariant &) { return column == u"sFilter" ? std::optional(u"شرط‌های دیگر"_s) : std::nullopt; },
        .goTo = [this](const QString &) { m_name->setFocus(); }};
    const auto write = [&] {
        if (edit.isNew())
            stored.begin(m_list, after);
        stored.m_sName = after.name;
        stored.m_sFilter = after.filter;
    };
    try {
        return RowQuestions::save(this, edit, texts, write, [&] { stored.settle(edit.key()); }) != RowQuestions::Outcome::Back;
    } catch (const KAccountingError &error) {
        g_pDlgWarning->Show(error.userMessage(), this);
        m_name->setFocus();
        return false;
    }
}
