// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/SavedFilterMenu.h"

#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/lists/CDlgSavedFilters.h"
#include "suite/accounting/lists/CDlgSaveFilter.h"
#include "suite/accounting/lists/KFilterForm.h"
#include "suite/accounting/lists/KListFilterBox.h"
#include "suite/accounting/lists/SavedFilterText.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/utility/look/LookIcons.h"

#include <QMenu>

using namespace Qt::StringLiterals;

SavedFilterMenu::SavedFilterMenu(KListFilterBox *filters, const QString &section, const QString &form, QWidget *page)
    : QPushButton(LookIcons::icon(u":/icons/filter.svg"_s), u"فیلترها"_s, page)
    , m_filters(filters)
    , m_page(page)
    , m_section(section)
    , m_form(form)
{
    setAccessibleName(text());
    connect(this, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(m_page, [this] { open(); }); });
}

void SavedFilterMenu::open()
{
    if (!m_menu) {
        m_menu = new QMenu(this);
        m_menu->setAccessibleName(text());
    }
    fill();
    m_menu->popup(mapToGlobal(QPoint(width() - m_menu->sizeHint().width(), height())));
    m_menu->setActiveAction(m_menu->actions().constFirst());
}

void SavedFilterMenu::fill()
{
    m_menu->clear();
    const QList<CTblSavedFilters::Entry> entries = CTblSavedFilters::entries(m_section, GetDBSetting()->GetUserID());
    for (const CTblSavedFilters::Entry &entry : entries) {
        QString caption = entry.userID == CTblSavedFilters::shared ? u"%1 (مشترک)"_s.arg(entry.name) : entry.name;
        m_menu->addAction(caption.replace(u'&', u"&&"_s), this, [this, filter = entry.filter] { Q_EMIT chosen(filter); });
    }
    if (!entries.isEmpty())
        m_menu->addSeparator();
    m_menu->addAction(LookIcons::icon(u":/icons/save.svg"_s), u"ذخیره فیلتر ..."_s, this, [this] { KErrorBoundary::guarded(m_page, [this] { save(); }); });
    QAction *kept = m_menu->addAction(LookIcons::icon(u":/icons/edit.svg"_s), u"فیلترهای ذخیره شده ..."_s, this,
                                      [this] { KErrorBoundary::guarded(m_page, [this] { manage(); }); });
    kept->setEnabled(!entries.isEmpty());
}

void SavedFilterMenu::save()
{
    CTblSavedFilters::Entry entry;
    entry.filter = SavedFilterText::of(m_filters->filters().filters(), m_filters->filters().enteredValues());
    if (m_filters->checkEntries() && CDlgSaveFilter::mayKeep(m_form, entry, m_page))
        CDlgSaveFilter(m_section, m_form, entry, m_page).exec();
}

void SavedFilterMenu::manage()
{
    CDlgSavedFilters(m_section, m_form, m_page).exec();
}
