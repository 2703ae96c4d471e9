// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CDlgAddCar.h"

#include "suite/accounting/changes/HistoryButton.h"
#include "auto/catalog/CatalogEntries.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/TextStandard.h"

#include <QDialogButtonBox>
#include <QGroupBox>

using namespace Qt::StringLiterals;

namespace {

constexpr int usualWidth = 480;
constexpr int longestName = 50;

}

CDlgAddCar::CDlgAddCar(const QString &heading, QWidget *parent)
    : KDialog(parent)
    , m_heading(heading)
    , m_name(new KEdit)
{
    m_name->setMaxLength(longestName);
    auto *content = new QWidget(this);
    auto *card = new QGroupBox(content);
    addLabelled(new FormGrid(card), u"نام :"_s, m_name, 4);
    (new CardStack(content))->addCard(card);
    setContent(content, createButtons());
    resize(LookSizes::scaled(usualWidth), sizeHint().height());
    showTitle();
}

void CDlgAddCar::setEdited(int key, const QString &name)
{
    m_editing = true;
    m_key = key;
    m_name->setText(name);
    m_name->selectAll();
    showTitle();
}

void CDlgAddCar::offerHistory(const QString &table)
{
    HistoryButton::addTo(this, footer(), table, m_key);
}

void CDlgAddCar::showTitle()
{
    setWindowTitle(m_heading + (m_editing ? u" - ویرایش"_s : u" - جدید"_s));
}

QString CDlgAddCar::name() const
{
    return m_name->text();
}

bool CDlgAddCar::OnOK()
{
    const QString typed = m_name->text().trimmed();
    const QString name = ConvertToStandard(typed);
    if (name.isEmpty())
        return refuse(u"لطفا نوع خودرو را مشخص نماید."_s);
    if (m_checkDuplicates && CatalogEntries::isNameTaken(m_key, typed, m_parentKey))
        return refuse(QString());
    m_name->setText(name);
    bool saved = !m_save;
    if (m_save)
        KErrorBoundary::guarded(this, [&] { saved = m_save(name); });
    if (!saved)
        m_name->setFocus();
    return saved;
}

bool CDlgAddCar::refuse(const QString &message)
{
    g_pDlgWarning->Show(message, this);
    m_name->setFocus();
    return false;
}
