// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/parameters/CDlgInputParameters.h"

#include "auto/catalog/parameters/CDlgAddInputParameter.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/lists/KExtListCtrl.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int optionsPerRow = 5;

int run(KDialogHolder &window)
{
    window.resize(640, 560);
    window.SetSettingName(u"InputParameters\\Window"_s);
    return window.exec();
}

}

CDlgInputParameters::CDlgInputParameters(int option, QWidget *parent)
    : KListPage(u"پارامترهاي ورودي"_s, u"InputParameters"_s, u"InputParameters"_s, parent)
{
    build();
    if (QRadioButton *button = optionButton(option))
        button->setChecked(true);
    connect(m_options, &QButtonGroup::idToggled, this, [this](int, bool on) {
        if (on && isOpened())
            guarded([this] { refill(); });
    });
}

CDlgInputParameters::~CDlgInputParameters() = default;

int CDlgInputParameters::Select(QWidget *parent, int option, int current)
{
    auto *page = new CDlgInputParameters(option);
    page->setSelectMode(true, current);
    KDialogHolder window(page, parent, u"انتخاب"_s);
    return run(window) == QDialog::Accepted ? page->chosenKey() : 0;
}

void CDlgInputParameters::Open(QWidget *parent, int option)
{
    KDialogHolder window(new CDlgInputParameters(option), parent, u"بازگشت"_s);
    window.okOnlyCloses();
    run(window);
}

int CDlgInputParameters::option() const
{
    return m_options->checkedId();
}

void CDlgInputParameters::setOption(int option)
{
    if (QRadioButton *button = optionButton(option))
        button->setChecked(true);
}

QRadioButton *CDlgInputParameters::optionButton(int option) const
{
    return static_cast<QRadioButton *>(m_options->button(option));
}

QList<KListColumn> CDlgInputParameters::columnTable() const
{
    return {
        KListColumn::rowNumber(),
        {.key = u"name"_s, .title = u"نام"_s, .width = 170, .alignment = Qt::AlignRight, .column = u"sName"_s},
    };
}

KListTraits CDlgInputParameters::traits() const
{
    KListTraits traits;
    traits.hasRowLimit = false;
    traits.hasSearchButton = false;
    traits.filterTitle.clear();
    return traits;
}

std::vector<KListCommand> CDlgInputParameters::commands()
{
    using C = KListCommand;
    constexpr int onRow = C::NeedsRow | C::HiddenInReadOnly;
    return {
        {u"new"_s, u"جديد"_s, C::HiddenInReadOnly, [this] { addValue(); }, QKeySequence(Qt::Key_Insert),
         u":/icons/new.svg"_s, Write},
        {u"edit"_s, u"ويرايش"_s, onRow, [this] { editValue(); }, QKeySequence(Qt::Key_F2), u":/icons/edit.svg"_s, Modify},
        {u"delete"_s, u"حذف"_s, onRow | C::HiddenInSelect, [this] { deleteSelected(); }, QKeySequence(Qt::Key_Delete),
         u":/icons/delete.svg"_s, Delete},
    };
}

void CDlgInputParameters::buildFilters(QGridLayout *grid)
{
    m_options = new QButtonGroup(this);
    for (int option = 0; option < InputParameters::optionCount; ++option) {
        auto *button = new QRadioButton(InputParameters::caption(option), grid->parentWidget());
        m_options->addButton(button, option);
        grid->addWidget(button, option / optionsPerRow, option % optionsPerRow);
    }
}

std::unique_ptr<KMySQL> CDlgInputParameters::makeRecords() const
{
    return std::make_unique<CTblItems>();
}

KSql CDlgInputParameters::filterClauses() const
{
    return InputParameters::valuesFilter(option());
}

// As the drop-downs offer them.
QString CDlgInputParameters::defaultSort() const
{
    return u"sName,iID"_s;
}

// Who was asked for a colour is not to come back with a capacity.
void CDlgInputParameters::modeApplied()
{
    for (QAbstractButton *button : m_options->buttons())
        button->setEnabled(!isSelectMode() || option() < 0 || button->isChecked());
}

void CDlgInputParameters::addValue()
{
    if (isChangeBlocked() || !InputParameters::isOption(option()) || !CheckWriteSecurity())
        return;
    CDlgAddInputParameter editor(0, InputParameters::itemType(option()), {}, InputParameters::caption(option()), this);
    if (editor.exec() != QDialog::Accepted)
        return;
    refill();
    selectListed(editor.itemID());
}

void CDlgInputParameters::editValue()
{
    CTblItems item;
    if (isChangeBlocked() || !CheckModifySecurity() || !loadSelected(item))
        return;
    CDlgAddInputParameter editor(item.m_iID, item.m_iType, item.m_sName, InputParameters::caption(option()), this);
    if (editor.exec() != QDialog::Accepted)
        return;
    refill();
    selectListed(item.m_iID);
}

void CDlgInputParameters::recordDeleted(int)
{
    refill();
}

void CDlgInputParameters::activated(int)
{
    runCommand(u"edit");
}

QWidget *CDlgInputParameters::firstFilterControl() const
{
    return m_options->checkedButton() ? m_options->checkedButton() : m_options->button(0);
}
