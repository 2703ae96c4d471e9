// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CDlgMultiItems.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblMultiItems.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/look/LookSizes.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QListView>
#include <QPushButton>
#include <QStandardItemModel>

using namespace Qt::StringLiterals;

namespace {

constexpr int idRole = Qt::UserRole;
constexpr int longestName = 250;

KSecurity security()
{
    KSecurity itemsSecurity;
    itemsSecurity.SetFormName(u"InputParameters"_s);
    return itemsSecurity;
}

}

CDlgMultiItems::CDlgMultiItems(int itemType, const QString &title, QWidget *parent)
    : KDialog(parent)
    , m_itemType(itemType)
    , m_name(new KEdit)
    , m_view(new QListView)
    , m_model(new QStandardItemModel(this))
{
    setWindowTitle(title);
    SetSettingName(u"MultiItems"_s);
    build();
    fill({}, 0);
}

CDlgMultiItems::~CDlgMultiItems() = default;

void CDlgMultiItems::build()
{
    m_name->setMaxLength(longestName);
    m_name->setProperty(followsSelection, true);
    auto *page = new CardPage(440, this);
    FormGrid *grid = page->addForm();
    addLabelled(grid, u"نام :"_s, m_name, 4);

    auto *commands = new QHBoxLayout;
    QPushButton *add = addButton(commands, u"جديد"_s);
    m_renameButton = addButton(commands, u"ويرايش"_s);
    m_deleteButton = addButton(commands, u"حذف"_s);
    commands->addStretch();

    m_view->setModel(m_model);
    m_view->setUniformItemSizes(true);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setAccessibleName(windowTitle());

    grid->addCell(commands, 4);
    page->addList(m_view);
    setContent(page, createButtons(), Content::Fills);
    resize(LookSizes::scaled(440), LookSizes::scaled(480));
    connect(add, &QPushButton::clicked, this, &CDlgMultiItems::addValue);
    connect(m_renameButton, &QPushButton::clicked, this, &CDlgMultiItems::renameValue);
    connect(m_deleteButton, &QPushButton::clicked, this, &CDlgMultiItems::deleteValue);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this, &CDlgMultiItems::showCurrent);
}

void CDlgMultiItems::fill(const QList<int> &ticked, int currentID)
{
    m_model->clear();
    const QList<CTblMultiItems::Value> values = CTblMultiItems::values(m_itemType);
    for (const CTblMultiItems::Value &value : values) {
        auto *item = new QStandardItem(value.name);
        item->setData(value.id, idRole);
        item->setCheckable(true);
        item->setCheckState(ticked.contains(value.id) ? Qt::Checked : Qt::Unchecked);
        m_model->appendRow(item);
        if (value.id == currentID)
            m_view->setCurrentIndex(item->index());
    }
    showCurrent();
}

QStandardItem *CDlgMultiItems::currentItem() const
{
    return m_model->itemFromIndex(m_view->currentIndex());
}

void CDlgMultiItems::showCurrent()
{
    const QStandardItem *item = currentItem();
    m_renameButton->setEnabled(item);
    m_deleteButton->setEnabled(item);
    if (item)
        m_name->setText(item->text());
}

bool CDlgMultiItems::newNameIsTyped() const
{
    return focusWidget() == m_name && !m_name->text().isEmpty() && m_model->findItems(m_name->text()).isEmpty();
}

void CDlgMultiItems::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && !(event->modifiers() & Qt::ControlModifier) && newNameIsTyped())
        addValue();
    else
        KDialog::keyPressEvent(event);
}

void CDlgMultiItems::setSelectedNames(const QStringList &names)
{
    for (int row = 0; row < m_model->rowCount(); ++row) {
        QStandardItem *item = m_model->item(row);
        item->setCheckState(names.contains(item->text()) ? Qt::Checked : Qt::Unchecked);
    }
}

QStringList CDlgMultiItems::selectedNames() const
{
    QStringList names;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (m_model->item(row)->checkState() == Qt::Checked)
            names.append(m_model->item(row)->text());
    }
    return names;
}

QList<int> CDlgMultiItems::selectedIDs() const
{
    QList<int> ids;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (m_model->item(row)->checkState() == Qt::Checked)
            ids.append(m_model->item(row)->data(idRole).toInt());
    }
    return ids;
}

QString CDlgMultiItems::separator()
{
    return u"، "_s;
}

bool CDlgMultiItems::Select(int itemType, const QString &title, QString *text, QWidget *parent)
{
    CDlgMultiItems dialog(itemType, title, parent);
    QStringList own = text->split(separator(), Qt::SkipEmptyParts);
    dialog.setSelectedNames(own);
    const QStringList known = dialog.selectedNames();
    own.removeIf([&known](const QString &name) { return known.contains(name); });
    if (dialog.exec() != QDialog::Accepted)
        return false;
    *text = (own + dialog.selectedNames()).join(separator());
    return true;
}

void CDlgMultiItems::change(const std::function<int()> &work)
{
    try {
        GetDBSetting()->RequireOpenDB();
        const QList<int> ticked = selectedIDs();
        const int currentID = work();
        fill(ticked, currentID);
    } catch (const KAccountingError &error) {
        g_pDlgWarning->Show(error.userMessage(), this);
        m_name->setFocus();
    }
}

void CDlgMultiItems::addValue()
{
    if (security().CheckWriteSecurity())
        change([this] { return CTblMultiItems::addValue(m_itemType, m_name->text()); });
}

void CDlgMultiItems::renameValue()
{
    const QStandardItem *item = currentItem();
    if (!item || !security().CheckModifySecurity())
        return;
    change([this, id = item->data(idRole).toInt()] {
        CTblMultiItems::renameValue(id, m_name->text());
        return id;
    });
}

void CDlgMultiItems::deleteValue()
{
    const QStandardItem *item = currentItem();
    if (!item || !security().CheckDeletionSecurity()
        || g_pDlgYesNo->Ask(SuiteMessages::deleteQuestion(), this) == KMessageDialog::No)
        return;
    change([id = item->data(idRole).toInt()] {
        CTblMultiItems::deleteValue(id);
        return 0;
    });
}
