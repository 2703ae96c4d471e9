// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/CDlgUserRights.h"

#include "host/administration/RightsGridModel.h"
#include "suite/accounting/office/RightsRoles.h"
#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/lists/ListLook.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

QHash<QString, int> withoutEmpty(QHash<QString, int> rights)
{
    rights.removeIf([](const auto &form) { return form.value() == 0; });
    return rights;
}

QLabel *hintLabel(const QString &text)
{
    auto *note = new QLabel(text);
    note->setWordWrap(true);
    LookFonts::applyHint(note);
    return note;
}

}

CDlgUserRights::CDlgUserRights(int userID, QWidget *parent)
    : KDialog(parent)
    , m_userID(userID)
    , m_edit(userID)
    , m_grid(new RightsGridModel(this))
    , m_view(new QTableView(this))
    , m_role(new KDropDown(this))
    , m_source(new KDropDown(this))
{
    CTblUsers user;
    user.IsRecordExist(u"iID"_s, userID);
    setWindowTitle(u"دسترسی‌های %1"_s.arg(user.m_sName.isEmpty() ? user.m_sUser : user.m_sName));
    SetSettingName(u"UserRights"_s);
    buildView();

    auto *page = new CardPage(900, this);
    if (user.m_bAdmin != 0)
        page->cards()->addCard(hintLabel(u"این کاربر مدیر است و همه دسترسی‌ها را دارد؛ جدول زیر وقتی به کار می‌آید که مدیر نباشد."_s));
    if (user.m_bAdmin == 0 && withoutEmpty(m_edit.rights()).isEmpty())
        page->cards()->addCard(hintLabel(u"این کاربر هنوز هیچ دسترسی ندارد. یک نقش آماده برگزینید و اگر لازم است تیک‌ها را تغییر دهید."_s));
    fillRoleRow(page->addLine());
    fillCopyRow(page->addLine());
    page->addList(m_view);
    setContent(page, createButtons(), Content::Fills);
    fill(m_edit.rights());
    HistoryButton::addTo(this, footer(), u"Rights"_s, userID);
    m_edit.remember([this] { m_edit.setRights(m_grid->rights()); });
    resize(LookSizes::scaled(900), LookSizes::scaled(680));
    m_view->setFocus();
}

void CDlgUserRights::buildView()
{
    m_view->setModel(m_grid);
    m_view->setAccessibleName(u"جدول دسترسی‌ها"_s);
    ListLook::apply(m_view);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    // Tab leaves the grid, the arrow keys move in it, the space bar ticks.
    m_view->setTabKeyNavigation(false);
    m_view->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    // The leading edge is the right one here.
    m_view->verticalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

void CDlgUserRights::fillCopyRow(QHBoxLayout *row)
{
    CTblUsers users;
    users.m_filter = KSql::formatted("iID<>%1", m_userID);
    users.m_sort = "sUser";
    for (users.Open(true, true, true); !users.IsEOF(); users.MoveNext())
        m_source->addItem(users.m_sUser, users.m_iID);

    addSource(row, u"کپی از کاربر :"_s, m_source, u"کپی"_s, [this] { return KSecurity::storedRights(m_source->currentData().toInt()); });
    row->addStretch();
    addButton(row, u"انتخاب همه"_s, [this] { m_grid->setAll(true); });
    addButton(row, u"هیچ کدام"_s, [this] { m_grid->setAll(false); });
}

void CDlgUserRights::fillRoleRow(QHBoxLayout *row)
{
    m_role->addItems(RightsRoles::names());
    addSource(row, u"نقش آماده :"_s, m_role, u"اعمال نقش"_s, [this] {
        // Forms that no role knows stay as they are.
        QHash<QString, int> rights = m_grid->rights();
        rights.insert(RightsRoles::rightsOf(m_role->currentText()));
        return rights;
    });
    row->addStretch();
}

// Where rights come from is no right yet.
void CDlgUserRights::addSource(QHBoxLayout *row, const QString &label, QComboBox *source, const QString &caption,
                               const std::function<QHash<QString, int>()> &rights)
{
    source->setProperty(followsSelection, true);
    source->setMinimumContentsLength(20);
    addLabelled(row, label, source);
    QPushButton *button = addButton(row, caption, [this, rights] { replace(rights()); });
    button->setEnabled(source->count() > 0);
    source->setEnabled(source->count() > 0);
}

QPushButton *CDlgUserRights::addButton(QHBoxLayout *row, const QString &caption, const std::function<void()> &action)
{
    auto *button = new QPushButton(caption, this);
    button->setAccessibleName(caption);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, action);
    row->addWidget(button);
    return button;
}

void CDlgUserRights::replace(const QHash<QString, int> &rights)
{
    const bool tickedByHand = withoutEmpty(m_grid->rights()) != withoutEmpty(m_shown);
    if (tickedByHand && g_pDlgYesNo->Ask(u"دسترسی‌هایی که در این پنجره تغییر داده‌اید جای خود را به این‌ها می‌دهند. ادامه می‌دهید؟"_s, this) == KMessageDialog::No)
        return;
    fill(rights);
}

void CDlgUserRights::fill(const QHash<QString, int> &rights)
{
    m_grid->setRights(rights);
    m_shown = rights;
}

bool CDlgUserRights::OnOK()
{
    QStringList lost;
    const RowQuestions::Texts texts{
        .format = [](const QString &, const QVariant &value) { return value.toString().isEmpty() ? u"ندارد"_s : u"دارد"_s; },
        .offersNewRow = false};
    const auto outcome = RowQuestions::save(
        this, m_edit, texts, [this] { m_edit.setRights(m_grid->rights()); },
        [&] { lost = m_edit.closeForms(m_grid->rights()); });
    if (!lost.isEmpty() && outcome == RowQuestions::Outcome::Saved)
        g_pDlgMessage->Show(u"کاربر دیگری در این میان «دسترسی» را گرفته است؛ این‌ها داده نشد:\n%1"_s.arg(lost.join(u'\n')), this);
    return outcome == RowQuestions::Outcome::Saved;
}
