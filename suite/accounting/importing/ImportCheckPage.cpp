// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/ImportCheckPage.h"

#include "suite/accounting/importing/ImportTexts.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int checkPageWidth = 860;

QString stateOf(const ImportRow &row)
{
    if (!row.problems.isEmpty())
        return u"خطا"_s;
    if (!row.twin)
        return u"وارد می‌شود"_s;
    return row.takesTwin ? u"تکراری، وارد می‌شود"_s : u"تکراری، کنار می‌ماند"_s;
}

QVector<KListModel::Row> linesOf(const ImportRow &row)
{
    const QString number = QString::number(row.number);
    QVector<KListModel::Row> lines;
    for (const ImportProblem &problem : row.problems)
        lines.append({row.number, {{number}, {stateOf(row)}, {problem.field}, {problem.text}}, true});
    if (row.twin) {
        const QString text = row.twin->isRefused ? row.twin->text + u" (دوباره ثبت نمی‌شود)"_s : row.twin->text;
        lines.append({row.number, {{number}, {stateOf(row)}, {}, {text}}});
    }
    if (lines.isEmpty())
        lines.append({row.number, {{number}, {stateOf(row)}, {}, {}}});
    return lines;
}

}

ImportCheckPage::ImportCheckPage(QWidget *parent)
    : CardPage(checkPageWidth, parent)
    , m_list(new KExtListCtrl)
    , m_onlyTroubled(new QCheckBox(u"تنها سطرهای خطادار و تکراری"_s))
{
    QHBoxLayout *line = addLine();
    m_onlyTroubled->setAccessibleName(m_onlyTroubled->text());
    line->addWidget(m_onlyTroubled);
    line->addStretch(1);
    m_toggle = addButton(line, u"ورود این تکراری"_s, u":/icons/check.svg"_s);
    m_toggle->setToolTip(u"Space"_s);
    m_takeAll = addButton(line, u"ورود همه تکراری‌ها"_s);
    m_takeNone = addButton(line, u"کنار گذاشتن همه"_s);
    m_showTwin = addButton(line, u"نمایش ردیف موجود"_s, u":/icons/show.svg"_s);
    m_list->setAccessibleName(u"نتیجه بررسی"_s);
    m_list->SetSettingName(u"Import\\Check"_s);
    m_list->setColumns({{u"سطر"_s, Qt::AlignHCenter, 30}, {u"وضعیت"_s, Qt::AlignRight, 80}, {u"فیلد"_s, Qt::AlignRight, 70}, {u"توضیح"_s, Qt::AlignRight, 260}});
    m_list->installEventFilter(this);
    KListCard *card = addList(m_list);
    m_counts = new QLabel(card);
    card->addToFoot(m_counts, true);
    connect(m_onlyTroubled, &QCheckBox::toggled, this, &ImportCheckPage::fill);
    connect(m_toggle, &QPushButton::clicked, this, &ImportCheckPage::toggle);
    connect(m_takeAll, &QPushButton::clicked, this, [this] { takeAll(true); });
    connect(m_takeNone, &QPushButton::clicked, this, [this] { takeAll(false); });
    connect(m_list, &KExtListCtrl::currentKeyChanged, this, &ImportCheckPage::updateButtons);
    const auto showTwin = [this] {
        if (const ImportRow *row = selectedRow(); row && row->twin && row->twin->key > 0)
            Q_EMIT twinWanted(row->twin->key);
    };
    connect(m_showTwin, &QPushButton::clicked, this, showTwin);
    connect(m_list, &KExtListCtrl::rowActivated, this, showTwin);
    updateButtons();
}

void ImportCheckPage::showChecked(const Importing::Checked &checked)
{
    m_checked = checked;
    m_onlyTroubled->setChecked(checked.bad() > 0 || checked.twins() > 0);
    fill();
    m_list->selectRow(0);
}

void ImportCheckPage::fill()
{
    const int current = m_list->currentKey();
    QVector<KListModel::Row> lines;
    for (const ImportRow &row : std::as_const(m_checked.rows)) {
        if (!m_onlyTroubled->isChecked() || !row.problems.isEmpty() || row.twin)
            lines.append(linesOf(row));
    }
    m_list->setRows(std::move(lines));
    m_list->selectKey(current);
    m_counts->setText(m_checked.problem.isEmpty() ? ImportTexts::counts(m_checked) : m_checked.problem);
    updateButtons();
}

ImportRow *ImportCheckPage::selectedRow()
{
    const auto row = std::ranges::find_if(m_checked.rows, [this](const ImportRow &one) { return one.number == m_list->currentKey(); });
    return row == m_checked.rows.end() ? nullptr : &*row;
}

void ImportCheckPage::updateButtons()
{
    const ImportRow *row = selectedRow();
    const bool isTwin = row && row->twin;
    m_toggle->setEnabled(isTwin && !row->twin->isRefused && row->problems.isEmpty());
    m_showTwin->setEnabled(isTwin && row->twin->key > 0);
    m_takeAll->setEnabled(m_checked.twins() > 0);
    m_takeNone->setEnabled(m_checked.twins() > 0);
}

void ImportCheckPage::toggle()
{
    ImportRow *row = selectedRow();
    if (!row || !row->twin || row->twin->isRefused)
        return;
    row->takesTwin = !row->takesTwin;
    fill();
}

void ImportCheckPage::takeAll(bool takes)
{
    for (ImportRow &row : m_checked.rows)
        row.takesTwin = takes && row.twin && !row.twin->isRefused;
    fill();
}

bool ImportCheckPage::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_list && event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Space) {
        toggle();
        return true;
    }
    return CardPage::eventFilter(watched, event);
}
