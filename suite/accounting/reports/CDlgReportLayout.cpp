// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/CDlgReportLayout.h"

#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/reports/ReportColumnsModel.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/entries/KSpinBox.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/lists/ListLook.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/TextStandard.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestName = 100;
constexpr int longestText = 200;
// In the order of ReportLayout::corners().
const std::array cornerCaptions{u"راست بالا :"_s, u"راست وسط :"_s, u"راست پایین :"_s,
                                u"چپ بالا :"_s, u"چپ وسط :"_s, u"چپ پایین :"_s};

// A kept layout in one line.
QString summaryOf(const QString &json)
{
    const std::optional<ReportLayout> layout = ReportLayout::fromJson(json.toUtf8());
    if (!layout)
        return {};
    QStringList columns;
    for (const ReportLayout::Column &column : layout->columns)
        columns.append(column.title);
    return u"%1 - %2 - قلم %3 - %4"_s.arg(layout->title, columns.join(u"، "_s), QString::number(layout->fontSize),
                                          layout->landscape ? u"افقی"_s : u"عمودی"_s);
}

}

CDlgReportLayout::CDlgReportLayout(const ListReport &report, QWidget *parent)
    : KDialog(parent)
    , m_report(report)
{
    setWindowTitle(u"چیدمان گزارش - %1"_s.arg(report.shownTitle()));
    SetSettingName(u"ReportLayout"_s);
    auto *page = new CardPage(1240, this);
    placeStored(page->addForm(u"قالب های ذخیره شده"_s, FormGrid::Extent::Full));
    page->cards()->addPair(buildColumns(), buildTexts());
    setContent(page, createButtons());
    setFields(report.layout());
    fillNames({});
}

CDlgReportLayout::~CDlgReportLayout() = default;

void CDlgReportLayout::placeStored(FormGrid *grid)
{
    m_name = new KDropDown(this);
    m_name->setEditable(true);
    m_name->setInsertPolicy(QComboBox::NoInsert);
    m_name->lineEdit()->setMaxLength(longestName);
    m_default = new QCheckBox(u"قالب پیش فرض"_s, this);
    addLabelled(grid, u"نام قالب :"_s, m_name, 2);
    grid->addCell(m_default);
    auto *row = new QHBoxLayout;
    grid->addCell(row, 2);
    QPushButton *save = addButton(row, u"ذخیره"_s);
    m_delete = addButton(row, u"حذف"_s);
    row->addStretch(1);
    connect(save, &QPushButton::clicked, this, &CDlgReportLayout::saveLayout);
    connect(m_delete, &QPushButton::clicked, this, &CDlgReportLayout::deleteLayout);
    connect(m_name, &QComboBox::textActivated, this, &CDlgReportLayout::loadNamed);
    connect(m_name, &QComboBox::editTextChanged, this,
            [this](const QString &name) { m_delete->setEnabled(m_name->findText(ConvertToStandard(name)) >= 0); });
}

QGroupBox *CDlgReportLayout::buildColumns()
{
    auto *box = new QGroupBox(u"ستون ها"_s);
    m_columns = new ReportColumnsModel(this);
    m_columnList = new QTreeView;
    m_columnList->setAccessibleName(box->title());
    m_columnList->setRootIsDecorated(false);
    m_columnList->setUniformRowHeights(true);
    ListLook::apply(m_columnList);
    m_columnList->setModel(m_columns);
    m_columnList->header()->setStretchLastSection(false);
    m_columnList->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_share = new KSpinBox;
    m_share->setRange(0, 100);
    m_share->setSuffix(u" %"_s);
    m_share->setSpecialValueText(u"خودکار"_s);
    auto *commands = new QHBoxLayout;
    QPushButton *up = addButton(commands, u"بالا"_s);
    QPushButton *down = addButton(commands, u"پایین"_s);
    commands->addStretch(1);
    addLabelled(commands, u"پهنا (درصد) :"_s, m_share);
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(LookSizes::cardPadding, LookSizes::unit, LookSizes::cardPadding, LookSizes::unit);
    layout->setSpacing(LookSizes::unit);
    layout->addWidget(m_columnList, 1);
    layout->addLayout(commands);
    connect(up, &QPushButton::clicked, this, [this] { moveColumn(-1); });
    connect(down, &QPushButton::clicked, this, [this] { moveColumn(1); });
    m_share->setProperty(followsSelection, true);
    connect(m_share, &QSpinBox::valueChanged, this, [this](int percent) { m_columns->setShare(currentRow(), percent); });
    connect(m_columnList->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &CDlgReportLayout::showShare);
    return box;
}

QGroupBox *CDlgReportLayout::buildTexts()
{
    auto *box = new QGroupBox(u"متن ها و کاغذ"_s);
    auto *grid = new FormGrid(box, FormGrid::Extent::Half);
    auto addEdit = [grid](const QString &caption, int span) {
        auto *edit = new KEdit(KEdit::Kind::Text);
        edit->setMaxLength(longestText);
        addLabelled(grid, caption, edit, span);
        return edit;
    };
    m_title = addEdit(u"عنوان :"_s, 4);
    for (size_t i = 0; i < cornerCaptions.size(); ++i)
        m_corners.insert(ReportLayout::corners().at(static_cast<int>(i)), addEdit(cornerCaptions.at(i), 2));
    auto *hint = new QLabel(u"هنگام چاپ، متن خود برنامه به جای %1، تاریخ روز به جای %2 و تعداد ردیف ها به جای %3 می آید."_s
                                .arg(ReportLayout::ownTextMark(), ReportLayout::dateMark(), ReportLayout::countMark()));
    hint->setWordWrap(true);
    LookFonts::applyHint(hint);
    grid->addLine(hint);
    placePaper(grid);
    return box;
}

void CDlgReportLayout::placePaper(FormGrid *grid)
{
    m_orientation = new KDropDown;
    m_orientation->addItems({u"عمودی"_s, u"افقی"_s});
    m_fontSize = new KSpinBox;
    m_fontSize->setRange(static_cast<int>(ReportLayout::lowestFontSize), static_cast<int>(ReportLayout::highestFontSize));
    addLabelled(grid, u"جهت کاغذ :"_s, m_orientation, 2);
    addLabelled(grid, u"اندازه قلم :"_s, m_fontSize, 2);
}

void CDlgReportLayout::setFields(const ReportLayout &layout)
{
    m_title->setText(layout.title);
    for (auto corner = m_corners.cbegin(); corner != m_corners.cend(); ++corner)
        corner.value()->setText(layout.texts.value(corner.key(), ReportLayout::ownTextMark()));
    m_orientation->setCurrentIndex(layout.landscape ? 1 : 0);
    m_fontSize->setValue(qRound(layout.fontSize));
    m_columns->arrange(m_report, layout);
    m_columnList->setCurrentIndex(m_columns->index(0, 0));
    showShare();
}

ReportLayout CDlgReportLayout::layoutOfFields() const
{
    ReportLayout layout;
    layout.title = m_title->text();
    layout.columns = m_columns->chosen();
    for (auto corner = m_corners.cbegin(); corner != m_corners.cend(); ++corner) {
        if (corner.value()->text() != ReportLayout::ownTextMark())
            layout.texts.insert(corner.key(), corner.value()->text());
    }
    layout.landscape = m_orientation->currentIndex() == 1;
    layout.fontSize = m_fontSize->value();
    return layout;
}

int CDlgReportLayout::currentRow() const
{
    return m_columnList->currentIndex().row();
}

void CDlgReportLayout::showShare()
{
    const QSignalBlocker quiet(m_share);
    m_share->setValue(qRound(m_columns->share(currentRow())));
}

void CDlgReportLayout::moveColumn(int places)
{
    const int row = m_columns->move(currentRow(), places);
    m_columnList->setCurrentIndex(m_columns->index(row, 0));
}

void CDlgReportLayout::fillNames(const QString &current)
{
    const QSignalBlocker quiet(m_name);
    m_name->clear();
    bool isDefault = false;
    m_listed = CTblReportLayouts::entries(m_report.group(), m_report.report());
    for (const CTblReportLayouts::Entry &entry : std::as_const(m_listed)) {
        m_name->addItem(entry.name, entry.isDefault);
        if (entry.name == current || (current.isEmpty() && entry.isDefault)) {
            m_name->setCurrentIndex(m_name->count() - 1);
            isDefault = entry.isDefault;
        }
    }
    if (current.isEmpty() && !isDefault)
        m_name->setEditText({});
    m_default->setChecked(isDefault);
    m_delete->setEnabled(m_name->findText(m_name->currentText()) >= 0);
}

void CDlgReportLayout::loadNamed(const QString &name)
{
    KErrorBoundary::guarded(this, [&] {
        if (const auto layout = CTblReportLayouts::load(m_report.group(), m_report.report(), name))
            setFields(*layout);
        m_default->setChecked(m_name->currentData().toBool());
    });
}

bool CDlgReportLayout::hasColumns()
{
    if (!m_columns->chosen().isEmpty())
        return true;
    g_pDlgWarning->Show(u"لطفا حداقل یک ستون را انتخاب نمایید."_s, this);
    m_columnList->setFocus();
    return false;
}

void CDlgReportLayout::saveLayout()
{
    const QString name = ConvertToStandard(m_name->currentText());
    if (!hasColumns())
        return;
    if (listed(name)
        && g_pDlgYesNo->Ask(u"قالبی با این نام ذخیره شده است. آیا جایگزین شود؟"_s, this) == KMessageDialog::No)
        return;
    changeStored(name, [&] { return store(name); });
}

const CTblReportLayouts::Entry *CDlgReportLayout::listed(const QString &name) const
{
    const auto found = std::ranges::find(m_listed, name, &CTblReportLayouts::Entry::name);
    return found == m_listed.cend() ? nullptr : &*found;
}

bool CDlgReportLayout::store(const QString &name)
{
    const CTblReportLayouts::Entry before = listed(name) ? *listed(name) : CTblReportLayouts::Entry();
    CTblReportLayouts stored;
    RowEdit edit(stored, before.key);
    const auto begin = [&] { stored.begin(m_report.group(), m_report.report(), name, before); };
    begin();
    if (before.key != 0)
        edit.remember([] {});
    const RowQuestions::Texts texts{
        .caption = [](const QString &column) { return column == u"sLayout" ? u"قالب"_s : QString(); },
        .format = [](const QString &column, const QVariant &value) { return column == u"sLayout" ? std::optional(summaryOf(value.toString())) : std::nullopt; },
        .goTo =
            [this](const QString &) {
                // What another desk has kept by now is asked about at the next try.
                m_listed = CTblReportLayouts::entries(m_report.group(), m_report.report());
                m_name->setFocus();
            }};
    const auto write = [&] {
        if (edit.isNew())
            begin();
        stored.setLayout(layoutOfFields(), m_default->isChecked());
    };
    return RowQuestions::save(this, edit, texts, write, [&] { stored.settle(edit.key()); }) != RowQuestions::Outcome::Back;
}

void CDlgReportLayout::deleteLayout()
{
    const QString name = ConvertToStandard(m_name->currentText());
    if (m_name->findText(name) < 0
        || g_pDlgYesNo->Ask(u"آیا از حذف این قالب اطمینان دارید؟"_s, this) == KMessageDialog::No)
        return;
    changeStored({}, [&] {
        CTblReportLayouts::remove(m_report.group(), m_report.report(), name);
        return true;
    });
}

void CDlgReportLayout::changeStored(const QString &nameAfterwards, const std::function<bool()> &work)
{
    try {
        GetDBSetting()->RequireOpenDB();
        if (!work())
            return;
        m_storedChanged = true;
        fillNames(nameAfterwards);
    } catch (const KAccountingError &error) {
        g_pDlgWarning->Show(error.userMessage(), this);
        m_name->setFocus();
    }
}

bool CDlgReportLayout::OnOK()
{
    return hasColumns();
}
