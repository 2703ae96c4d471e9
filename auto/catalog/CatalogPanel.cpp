// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CatalogPanel.h"

#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/TextStandard.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestFilter = 50;

}

CatalogPanel::CatalogPanel(const QString &heading, const QString &section, QWidget *parent)
    : QWidget(parent)
    , m_heading(heading)
    , m_filter(new KEdit(this))
    , m_list(new KExtListCtrl(this))
    , m_count(new QLabel(this))
{
    m_filter->setMaxLength(longestFilter);
    m_filter->setClearButtonEnabled(true);
    m_filter->setPlaceholderText(u"جستجو در نام"_s);
    m_filter->installEventFilter(this);

    m_list->setAccessibleName(heading);
    m_list->setColumns({{u"ردیف"_s, Qt::AlignHCenter, 40}, {heading, Qt::AlignRight, 170}});
    m_list->SetSettingName(section);

    auto *search = new QHBoxLayout;
    LookFonts::apply(addLabelled(search, heading + u" :"_s, m_filter, 1), LookFonts::Use::Label);
    auto *commands = new QHBoxLayout;
    m_add = makeButton(u"جديد"_s, QKeySequence(Qt::Key_Insert), this, commands);
    m_edit = makeButton(u"ويرايش"_s, QKeySequence(Qt::Key_F2), this, commands);
    // Delete belongs to the entry line while that has the focus.
    m_delete = makeButton(u"حذف"_s, QKeySequence(QKeySequence::Delete), m_list, commands);
    commands->addStretch(1);
    auto *card = new KListCard(m_list, this);
    card->addToFoot(m_count);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(LookSizes::unit);
    layout->addLayout(search);
    layout->addWidget(card, 1);
    layout->addLayout(commands);
    LookMarks::setTall(m_filter);

    connect(m_filter, &KEdit::textChanged, this, &CatalogPanel::filterEdited);
    connect(m_add, &QPushButton::clicked, this, &CatalogPanel::addRequested);
    connect(m_edit, &QPushButton::clicked, this, &CatalogPanel::editRequested);
    connect(m_delete, &QPushButton::clicked, this, &CatalogPanel::deleteRequested);
    connect(m_list, &KExtListCtrl::rowActivated, this, &CatalogPanel::activated);
    connect(m_list, &KExtListCtrl::emptyAreaActivated, this, &CatalogPanel::activated);
    connect(m_list, &KExtListCtrl::currentKeyChanged, this, &CatalogPanel::updateButtons);
    connect(m_list, &KExtListCtrl::currentKeyChanged, this, &CatalogPanel::currentKeyChanged);
    clear();
}

QPushButton *CatalogPanel::makeButton(const QString &caption, const QKeySequence &shortcut, QWidget *shortcutOwner,
                                      QHBoxLayout *row)
{
    auto *button = new QPushButton(caption, this);
    // Three lists have the same buttons: the name says which list it belongs to.
    button->setAccessibleName(caption + u' ' + m_heading);
    button->setToolTip(shortcut.toString(QKeySequence::NativeText));
    button->setAutoDefault(false);
    auto *keys = new QShortcut(shortcut, shortcutOwner, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(keys, &QShortcut::activated, button, [button] {
        if (!button->isHidden())
            button->click();
    });
    row->addWidget(button);
    return button;
}

QString CatalogPanel::namePart() const
{
    return ConvertToStandard(m_filter->text());
}

void CatalogPanel::clearFilter()
{
    const QSignalBlocker silent(m_filter);
    m_filter->clear();
}

void CatalogPanel::setEntries(const QVector<CatalogEntries::Entry> &entries)
{
    QVector<KListModel::Row> rows;
    rows.reserve(entries.size());
    for (const CatalogEntries::Entry &entry : entries) {
        const int number = static_cast<int>(rows.size()) + 1;
        rows.append({entry.key, {{QString::number(number), number}, {entry.name}}});
    }
    m_list->setRows(std::move(rows));
    m_count->setText(SuiteMessages::count(entries.size()));
    m_add->setEnabled(true);
    updateButtons();
}

void CatalogPanel::clear()
{
    m_list->setRows({});
    m_count->clear();
    m_add->setEnabled(false);
    updateButtons();
}

void CatalogPanel::updateButtons()
{
    const bool selected = m_list->currentKey() != 0;
    m_edit->setEnabled(selected);
    m_delete->setEnabled(selected);
}

void CatalogPanel::showCommands(bool addAndDelete, bool edit)
{
    const auto show = [](QPushButton *button, bool shown, const QString &icon) {
        button->setVisible(shown);
        button->setIcon(shown ? LookIcons::icon(icon) : QIcon());
    };
    show(m_add, addAndDelete, u":/icons/new.svg"_s);
    show(m_edit, edit, u":/icons/edit.svg"_s);
    show(m_delete, addAndDelete, u":/icons/delete.svg"_s);
}

// From the filter, Up and Down move through the rows found.
bool CatalogPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_filter && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            QCoreApplication::sendEvent(m_list, event);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
