// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/CDlgListColumns.h"

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/lists/ListLook.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QShortcut>
#include <QStandardItemModel>
#include <QTreeView>

#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr int columnRole = Qt::UserRole;
constexpr int pageWidth = 420;
constexpr int pageHeight = 600;

}

CDlgListColumns::CDlgListColumns(KExtListCtrl *list, QWidget *parent)
    : KDialog(parent)
    , m_list(list)
    , m_view(new QTreeView)
    , m_model(new QStandardItemModel(this))
{
    setWindowTitle(u"ستون‌های فهرست"_s);
    SetSettingName(u"ListColumns"_s);
    m_view->setAccessibleName(windowTitle());
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ListLook::apply(m_view);
    m_view->setModel(m_model);
    auto *page = new CardPage(pageWidth, this);
    page->addList(m_view);
    QHBoxLayout *line = page->addLine();
    const auto addCommand = [&](const QString &caption, const QString &icon, const QKeySequence &key, const auto &run) {
        auto *button = new QPushButton(LookIcons::icon(icon), caption);
        button->setAccessibleName(caption);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, run);
        line->addWidget(button);
        if (key.isEmpty())
            return;
        button->setToolTip(key.toString(QKeySequence::NativeText));
        connect(new QShortcut(key, this), &QShortcut::activated, this, run);
    };
    addCommand(u"بالا"_s, u":/icons/up.svg"_s, QKeySequence(Qt::CTRL | Qt::Key_Up), [this] { moveColumn(-1); });
    addCommand(u"پایین"_s, u":/icons/down.svg"_s, QKeySequence(Qt::CTRL | Qt::Key_Down), [this] { moveColumn(1); });
    line->addStretch(1);
    addCommand(u"بازگشت به حالت نخست"_s, u":/icons/refresh.svg"_s, {}, [this] {
        QList<int> order(m_list->listModel()->columns().size());
        std::iota(order.begin(), order.end(), 0);
        fill(order, true);
    });
    setContent(page, createButtons(), Content::Fills);
    resize(LookSizes::scaled(pageWidth), LookSizes::scaled(pageHeight));
    fill(list->columnOrder(), false);
    m_view->setFocus();
}

CDlgListColumns::~CDlgListColumns() = default;

void CDlgListColumns::Show(KExtListCtrl *list, QWidget *parent)
{
    CDlgListColumns dialog(list, parent);
    dialog.exec();
}

void CDlgListColumns::fill(const QList<int> &order, bool asAtFirst)
{
    m_model->clear();
    m_model->setHorizontalHeaderLabels({u"ستون"_s});
    for (const int column : order) {
        const KListModel::Column &listed = m_list->listModel()->columns().at(column);
        if (listed.shownWidth() == 0)
            continue;
        auto *item = new QStandardItem(listed.title);
        item->setData(column, columnRole);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | (listed.key.isEmpty() ? Qt::NoItemFlags : Qt::ItemIsUserCheckable));
        const bool shown = asAtFirst ? !listed.isOffAtFirst() : m_list->isColumnShown(column);
        item->setCheckState(shown ? Qt::Checked : Qt::Unchecked);
        m_model->appendRow(item);
    }
    m_view->setCurrentIndex(m_model->index(0, 0));
}

void CDlgListColumns::moveColumn(int places)
{
    const int row = m_view->currentIndex().row();
    const int to = row + places;
    if (row < 0 || to < 0 || to >= m_model->rowCount())
        return;
    m_model->insertRow(to, m_model->takeRow(row));
    m_view->setCurrentIndex(m_model->index(to, 0));
    m_view->setFocus();
}

bool CDlgListColumns::OnOK()
{
    QList<int> order;
    QList<int> ticked;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QStandardItem *item = m_model->item(row);
        order.append(item->data(columnRole).toInt());
        if (item->checkState() == Qt::Checked)
            ticked.append(order.last());
    }
    if (ticked.isEmpty()) {
        g_pDlgWarning->Show(u"لطفا حداقل یک ستون را انتخاب نمایید."_s, this);
        m_view->setFocus();
        return false;
    }
    m_list->arrangeColumns(order, ticked);
    return true;
}
