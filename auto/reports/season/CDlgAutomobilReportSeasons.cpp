// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/CDlgAutomobilReportSeasons.h"

#include "auto/reports/season/CDlgPaymentAmount.h"
#include "auto/reports/season/SeasonBounds.h"
#include "auto/reports/season/SeasonalColumns.h"
#include "auto/reports/season/SeasonalExportDialogs.h"
#include "auto/reports/season/SeasonalList.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/CDlgAddCompanyProps.h"
#include "suite/crm/persons/CDlgAddPerson.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/lists/KNextRows.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/entries/KStepArrows.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "suite/utility/frame/TabOrder.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr double highestTotal = 1e15;
// In letters.
// The list lays out anew all that are in sight: with more of them the window would stand still for longer than a frame.
constexpr int rowsInSight = 100'000;
constexpr int yearWidth = 12;
constexpr int amountWidth = 22;
const QString section = u"DlgAutomobilReportSeasons"_s;
const QString minimumKey = u"dMinAmount"_s;
// Once the rows have been gathered the caption is written with the other letter yeh; this is on purpose.
const QString idleCaption = u"نمایش"_s;
const QString busyCaption = u"لطفا صبر کنید..."_s;
const QString showCaption = u"نمايش"_s;

// A row of options of which one is chosen; their numbers count from 0.
QButtonGroup *addOptions(QHBoxLayout *line, const QString &name, const QStringList &captions, QObject *parent)
{
    auto *box = new QWidget;
    box->setAccessibleName(name);
    auto *options = new QHBoxLayout(box);
    options->setContentsMargins(0, 0, 0, 0);
    auto *group = new QButtonGroup(parent);
    for (const QString &caption : captions) {
        auto *option = new QRadioButton(caption);
        group->addButton(option, int(group->buttons().size()));
        options->addWidget(option);
    }
    group->button(0)->setChecked(true);
    tabToPickedOption(group);
    line->addWidget(box);
    return group;
}

// Whichever of them is picked when Tab comes, it stands where the first one does: the order was made when only that was a stop.
void keepOptionsTogether(const QButtonGroup *group)
{
    const QList<QAbstractButton *> options = group->buttons();
    for (qsizetype i = 1; i < options.size(); ++i)
        QWidget::setTabOrder(options.at(i - 1), options.at(i));
}

// The field, a colon and what is wrong with it; its label may have the colon, or a blank at its end.
QString namedError(const KEdit &edit)
{
    const QString name = edit.accessibleName().trimmed();
    return name + (name.endsWith(u':') ? u" "_s : u" : "_s) + edit.entryError();
}

}

CDlgAutomobilReportSeasons::CDlgAutomobilReportSeasons(QWidget *parent)
    : KDialog(parent)
    , m_year(new KEdit(KEdit::Kind::Integer))
    , m_minimumAmount(new KEdit(KEdit::Kind::Money))
    , m_list(new KExtListCtrl)
{
    SetFormName(u"AutomobilReportSeasons"_s);
    CheckSecurity();
    setWindowTitle(u"گزارش فصلي"_s);
    SetSettingName(section);
    m_list->setAccessibleName(windowTitle());
    m_list->SetSettingName(section + u"\\List"_s);
    connect(m_list, &KExtListCtrl::columnClicked, this, &CDlgAutomobilReportSeasons::sortBy);
    connect(m_list, &KExtListCtrl::rowActivated, this, &CDlgAutomobilReportSeasons::editParty);
    connect(&m_task, &SeasonalTask::rowsArrived, this, &CDlgAutomobilReportSeasons::takeRows);
    connect(&m_task, &SeasonalTask::ended, this, &CDlgAutomobilReportSeasons::finish);
    connect(&m_task, &SeasonalTask::failed, this, &CDlgAutomobilReportSeasons::fail);

    auto *content = new QWidget(this);
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    column->setSpacing(LookSizes::cardGap);
    column->addWidget(buildChoices());
    auto *card = new KListCard(m_list, content);
    column->addWidget(card, 1);
    m_next = new KNextRows(card);
    card->addBelowRows(m_next);
    m_next->follow(m_list);
    connect(m_next, &KNextRows::clicked, this, [this] { showFurther(m_list->count()); });
    m_list->listModel()->setStep(rowsInSight);
    column->addWidget(buildTotals());
    QDialogButtonBox *buttons = createButtons({}, u"بازگشت"_s);
    setContent(content, buttons, Content::Fills);
    addCommands(buttons);
    keepOptionsTogether(m_seasons);
    keepOptionsTogether(m_kinds);
    resize(LookSizes::scaled(1180), LookSizes::scaled(660));
    m_minimumAmount->setText(ReadSetting(section, minimumKey, DToStr(highestMinimumAmount)));
}

CDlgAutomobilReportSeasons::~CDlgAutomobilReportSeasons() = default;

QWidget *CDlgAutomobilReportSeasons::buildChoices()
{
    auto *box = new QGroupBox;
    auto *lines = new QVBoxLayout(box);
    lines->setContentsMargins(LookSizes::cardPadding, LookSizes::unit, LookSizes::cardPadding, LookSizes::unit);
    lines->setSpacing(LookSizes::unit);
    lines->addLayout(buildSeasonLine());
    lines->addLayout(buildAmountLine());
    LookMarks::setTall(box);
    return box;
}

// Which season of which year, and of what.
QHBoxLayout *CDlgAutomobilReportSeasons::buildSeasonLine()
{
    auto *line = new QHBoxLayout;
    line->setSpacing(LookSizes::unit);
    m_seasons = addOptions(line, u"فصل"_s, {u"بهار"_s, u"تابستان"_s, u"پاييز"_s, u"زمستان"_s}, this);
    line->addSpacing(LookSizes::sideGap);
    line->addWidget(labelFor(u"سال :"_s, m_year));
    m_year->setRange(firstShamsiYear, lastShamsiYear);
    m_year->setMaximumWidth(fontMetrics().averageCharWidth() * yearWidth);
    auto *year = new QHBoxLayout;
    year->setSpacing(LookSizes::unit / 2);
    year->addWidget(m_year);
    year->addWidget(new KStepArrows(m_year, this));
    line->addLayout(year);
    line->addSpacing(LookSizes::sideGap);
    m_kinds = addOptions(line, u"نوع گزارش"_s, {u"فروش"_s, u"خريد"_s}, this);
    line->addStretch(1);
    return line;
}

QHBoxLayout *CDlgAutomobilReportSeasons::buildAmountLine()
{
    auto *line = new QHBoxLayout;
    line->setSpacing(LookSizes::unit);
    m_minimumAmount->setRange(0, highestMinimumAmount);
    m_minimumAmount->setMinimumWidth(fontMetrics().averageCharWidth() * amountWidth);
    addLabelled(line, u"مبالغ کمتر از "_s, m_minimumAmount);
    auto *behind = new QLabel(u"ريال مجموعاً در يک رديف بيايند"_s);
    LookFonts::apply(behind, LookFonts::Use::Label);
    line->addWidget(behind);
    line->addSpacing(LookSizes::sideGap);
    m_show = new QPushButton(LookIcons::icon(u":/icons/search.svg"_s), showCaption);
    m_show->setDefault(true);
    LookMarks::setButton(m_show, LookMarks::Button::Primary);
    connect(m_show, &QPushButton::clicked, this, &CDlgAutomobilReportSeasons::refresh);
    // Its other caption is longer; the window must not jump.
    m_show->setText(busyCaption);
    m_show->setMinimumWidth(m_show->sizeHint().width());
    m_show->setText(showCaption);
    // Queued: Enter moves to the next field first, and a wrong entry must have the focus in the end.
    connect(m_minimumAmount, &QLineEdit::returnPressed, this, &CDlgAutomobilReportSeasons::refresh, Qt::QueuedConnection);
    line->addWidget(m_show);
    line->addSpacing(LookSizes::sideGap);
    line->addWidget(buildProgress(), 1);
    return line;
}

QWidget *CDlgAutomobilReportSeasons::buildProgress()
{
    m_progress = new QWidget;
    QSizePolicy policy = m_progress->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_progress->setSizePolicy(policy);
    auto *line = new QHBoxLayout(m_progress);
    line->setContentsMargins(0, 0, 0, 0);
    m_progressText = new QLabel;
    line->addWidget(m_progressText);
    auto *bar = new QProgressBar;
    bar->setRange(0, 0);
    bar->setTextVisible(false);
    bar->setAccessibleName(u"پیشرفت"_s);
    line->addWidget(bar, 1);
    QPushButton *stop = addButton(line, u"توقف"_s, u":/icons/close.svg"_s);
    connect(stop, &QPushButton::clicked, this, [this] { m_task.cancel(); });
    m_progress->hide();
    return m_progress;
}

QWidget *CDlgAutomobilReportSeasons::buildTotals()
{
    auto *box = new QGroupBox;
    auto *grid = new FormGrid(box, FormGrid::Extent::Half);
    const std::array<QString, TotalCount> labels{u"مبلغ :"_s, u"ارزش افزوده :"_s, u"عوارض :"_s,
                                                 u"تخفيف :"_s, u"جمع :"_s};
    for (std::size_t i = 0; i < labels.size(); ++i) {
        auto *edit = new KEdit(KEdit::Kind::Money);
        edit->setReadOnly(true);
        edit->setRange(-highestTotal, highestTotal); // discounts can be more than amounts
        QLabel *label = labelFor(labels[i], edit);
        grid->addField(label, nullptr, edit, 1);
        m_totals[i] = edit;
        // The duties are part of the tax column already.
        label->setVisible(i != Duties);
        edit->setVisible(i != Duties);
    }
    return box;
}

void CDlgAutomobilReportSeasons::addCommands(QDialogButtonBox *buttons)
{
    QPushButton *company = addButton(footer(), u"مشخصات شرکت/فروشگاه"_s, u":/icons/settings.svg"_s);
    connect(company, &QPushButton::clicked, this, &CDlgAutomobilReportSeasons::editCompany);
    m_export = addButton(footer(), u"تهيه فايل خروجي اداره ماليات"_s, u":/icons/save.svg"_s);
    connect(m_export, &QPushButton::clicked, this, &CDlgAutomobilReportSeasons::exportSeason);
    m_print = addButton(footer(), u"چاپ"_s, u":/icons/print.svg"_s);
    connect(m_print, &QPushButton::clicked, this, &CDlgAutomobilReportSeasons::print);
    auto *shortcut = new QShortcut(QKeySequence(QKeySequence::Print), this);
    connect(shortcut, &QShortcut::activated, m_print, &QPushButton::click);
    m_print->setToolTip(shortcut->key().toString(QKeySequence::NativeText));
    QPushButton *payable = addButton(footer(), u"مبلغ قابل پرداخت"_s, u":/icons/money.svg"_s);
    connect(payable, &QPushButton::clicked, this, &CDlgAutomobilReportSeasons::showPayable);
    m_close = buttons->findChildren<QPushButton *>().constFirst();
    m_close->setAutoDefault(false);
}

// Each time the window opens, the highest minimum amount replaces the stored one.
void CDlgAutomobilReportSeasons::openOnToday()
{
    const ShamsiDate today = GetShamsi(GetDBSetting()->GetDBServerDate().date());
    m_minimumAmount->setNumber(highestMinimumAmount);
    m_seasons->button(Season::ofMonth(today.month))->setChecked(true);
    m_year->setNumber(today.year);
    m_list->setColumns(seasonalColumns(chosenKind()));
    startGathering();
}

void CDlgAutomobilReportSeasons::showEvent(QShowEvent *event)
{
    KDialog::showEvent(event);
    if (m_opened)
        return;
    m_opened = true;
    openOnToday();
    m_list->setFocus();
}

SeasonalGathering::Kind CDlgAutomobilReportSeasons::chosenKind() const
{
    return m_kinds->checkedId() == 0 ? SeasonalGathering::Kind::Sales : SeasonalGathering::Kind::Purchases;
}

SeasonalGathering::Query CDlgAutomobilReportSeasons::query() const
{
    SeasonalGathering::Query query;
    query.kind = chosenKind();
    query.season = m_seasons->checkedId();
    query.shamsiYear = m_year->integer();
    query.minimumAmount = m_minimumAmount->number();
    query.departmentID = GetDBSetting()->GetDepartmentID();
    query.kindFromMark = GetDBSetting()->NaturalPersonByMark();
    query.company = CompanyDetails::read();
    return query;
}

bool CDlgAutomobilReportSeasons::isEntryGood()
{
    for (KEdit *edit : {m_year, m_minimumAmount}) {
        if (edit->isEntryValid())
            continue;
        g_pDlgWarning->Show(namedError(*edit), this);
        edit->setFocus(Qt::OtherFocusReason);
        return false;
    }
    return true;
}

void CDlgAutomobilReportSeasons::refresh()
{
    if (!isBusy() && isEntryGood())
        startGathering();
}

void CDlgAutomobilReportSeasons::startGathering()
{
    m_gathered = query();
    m_whole = false;
    dropRows();
    m_order = {};
    m_list->setSortMark(m_order.column);
    showTotals({});
    m_task.start(m_gathered);
    setBusy(true);
}

void CDlgAutomobilReportSeasons::setBusy(bool busy)
{
    // A disabled or hidden control loses the focus to its neighbour; a user typing in a field meanwhile keeps it.
    if (qobject_cast<QPushButton *>(focusWidget()))
        m_list->setFocus();
    m_show->setText(busy ? busyCaption : idleCaption);
    for (QPushButton *button : {m_show, m_print, m_close, m_export})
        button->setDisabled(busy);
    m_progressText->setText(u"در حال گردآوری"_s);
    m_progress->setVisible(busy);
    setCursor(busy ? Qt::BusyCursor : Qt::ArrowCursor);
    if (!busy)
        Q_EMIT idle();
}

// The whole list is laid out again each time it grows, so it is notified in steps that grow with it.
void CDlgAutomobilReportSeasons::takeRows(const QVector<SeasonalRow> &rows)
{
    m_rows->append(rows);
    m_progressText->setText(u"در حال گردآوری : %1 ردیف"_s.arg(m_rows->count()));
    if (m_rows->count() < 2 * m_list->count())
        return;
    m_list->listModel()->sourceGrew();
}

// As far as that row, in whole steps.
void CDlgAutomobilReportSeasons::showFurther(int row)
{
    const KWaitCursor wait;
    const int first = m_list->count();
    const int step = m_list->listModel()->step();
    if (row >= first)
        m_list->listModel()->showFurther(((row - first) / step + 1) * step);
    offerFurther();
    if (m_list->count() > first)
        m_list->selectRow(row);
}

void CDlgAutomobilReportSeasons::offerFurther()
{
    m_next->offer(qMin(m_list->listModel()->step(), m_rows->count() - m_list->count()));
}

void CDlgAutomobilReportSeasons::finish(const SeasonalGathering::Outcome &outcome)
{
    if (outcome.cancelled) {
        dropRows();
        setBusy(false);
        return;
    }
    m_whole = true;
    m_list->listModel()->sourceGrew();
    offerFurther();
    m_list->selectRow(0);
    showTotals(outcome.totals);
    setBusy(false);
    if (outcome.tooLongAddresses > 0) {
        g_pDlgWarning->Show(u"%1 آدرس دارای طول بیش از %2 کاراکتر می باشند، لطفا اصلاح بفرمایید."_s
                                .arg(outcome.tooLongAddresses)
                                .arg(TaxParty::longestAddress),
                            this);
        showTooLongAddress();
    }
}

// The address column is beyond the window's edge when it opens.
void CDlgAutomobilReportSeasons::showTooLongAddress()
{
    const int row = m_rows->firstTooLongAddress();
    if (row < 0)
        return;
    if (row >= m_list->count())
        showFurther(row);
    m_list->selectCell(row, SeasonalRow::Address);
}

void CDlgAutomobilReportSeasons::fail(const std::exception_ptr &error)
{
    dropRows();
    setBusy(false);
    KErrorBoundary::report(error, this);
}

// Part of a season is not a report of it.
void CDlgAutomobilReportSeasons::dropRows()
{
    m_rows = std::make_shared<SeasonalList>();
    m_list->listModel()->setSource(m_rows);
    offerFurther();
}

void CDlgAutomobilReportSeasons::showTotals(const SeasonalTotals &totals)
{
    m_totals[Amount]->setNumber(totals.amount);
    m_totals[Tax]->setNumber(totals.tax);
    m_totals[Duties]->setNumber(0);
    m_totals[Discount]->setNumber(totals.discount);
    m_totals[FinalAmount]->setNumber(totals.total);
}

void CDlgAutomobilReportSeasons::sortBy(int column)
{
    if (isBusy() || !m_rows || column < 0 || column >= SeasonalRow::ColumnCount)
        return;
    const KWaitCursor wait;
    KListModel *model = m_list->listModel();
    const int selected = m_list->currentKey();
    m_order = m_order.clicked(column);
    m_list->setSortMark(column);
    m_rows->sort(column, m_order.descending);
    model->sourceChanged();
    if (!m_list->selectKey(selected))
        m_list->selectRow(0);
}

// The party of the row is corrected in the list of persons, and every row that names it follows.
void CDlgAutomobilReportSeasons::editParty(int key)
{
    const SeasonalRow *row = m_rows ? m_rows->find(key) : nullptr;
    if (isBusy() || !row || !row->party || row->party->personID == 0)
        return;
    const int personID = row->party->personID;
    KSecurity persons;
    persons.SetFormName(u"Persons"_s);
    if (persons.CheckModifySecurity(0) && !GetDBSetting()->IsClosedDB())
        CDlgAddPerson::Edit(this, personID);
    else if (persons.CheckReadSecurity())
        CDlgAddPerson::Show(this, personID);
    CTblPersons person;
    if (!person.IsRecordExist(u"iID"_s, personID))
        return;
    m_rows->setParty(personID, SeasonalGathering::partyOf(person, m_gathered.kindFromMark));
    m_list->listModel()->sourceChanged();
}

void CDlgAutomobilReportSeasons::editCompany()
{
    CDlgAddCompanyProps(this).exec();
}

void CDlgAutomobilReportSeasons::showPayable()
{
    if (isEntryGood())
        CDlgPaymentAmount(m_seasons->checkedId(), quint16(m_year->integer()), this).exec();
}

// The file's heading data come from the fields; rows of another season, or none because the user stopped their
// gathering, must not be exported under it unnoticed.
bool CDlgAutomobilReportSeasons::stillAsGathered()
{
    const SeasonalGathering::Query now = query();
    QString question;
    if (!m_whole)
        question = u"گردآوری ردیف ها به پایان نرسیده و لیست خالی است. آیا فایل بدون ردیف تهیه شود؟"_s;
    else if (now.kind != m_gathered.kind || now.season != m_gathered.season || now.shamsiYear != m_gathered.shamsiYear)
        question = u"فصل، سال یا نوع گزارش پس از آخرین نمایش تغییر کرده است و ردیف های لیست با آن یکی نیست. "
                   "آیا فایل با همین ردیف ها تهیه شود؟"_s;
    return question.isEmpty() || g_pDlgYesNo->Ask(question, this) == KMessageDialog::Yes;
}

void CDlgAutomobilReportSeasons::exportSeason()
{
    if (isBusy() || !m_rows || !isEntryGood() || !stillAsGathered())
        return;
    SeasonalExport::Report report;
    report.kind = m_kinds->checkedId() == 0 ? SeasonalExport::Kind::Sales : SeasonalExport::Kind::Purchases;
    report.season = m_seasons->checkedId();
    report.year = m_year->text();
    report.rowCount = m_rows->count();
    report.cells = [rows = m_rows](int row) { return rows->at(row).texts(); };
    report.subject = [rows = m_rows](int row) { return rows->at(row).subject(); };
    for (const KListModel::Column &column : m_list->listModel()->columns())
        report.titles.append(column.title);
    exportSeasonWithDialogs(this, report);
}

ListReport CDlgAutomobilReportSeasons::listReport() const
{
    const QString title = u"گزارشات"_s;
    const QStringList seasons{u" بهار "_s, u" تابستان "_s, u" پاییز "_s, u" زمستان "_s};
    ListReport report(u"گالری اتومبیل"_s, u"گزارش فصلي"_s);
    report.setText(u"RightTop"_s, CompanyDetails::read().name());
    report.setText(u"RightCenter"_s, seasons.value(m_gathered.season) + u" سال : "_s + QString::number(m_gathered.shamsiYear));
    report.setText(u"RightBottom"_s, m_kinds->button(int(m_gathered.kind))->text());
    report.setText(u"LeftBottom"_s,
                   u"تاریخ چاپ : "_s + shamsiText(GetDBSetting()->GetDBServerDate().date()));
    const auto total = [this](Total which) { return m_totals[which]->text(); };
    report.setText(u"Count"_s, u"تعداد ردیف : %1"_s.arg(m_rows->count()));
    report.setText(u"Amount"_s, u"مبلغ : %1"_s.arg(total(Amount)));
    report.setText(u"Tax"_s, u"مالیات : %1"_s.arg(total(Tax)));
    report.setText(u"Discount"_s, u"تخفیف : %1"_s.arg(total(Discount)));
    report.setText(u"FinalAmount"_s, u"جمع : %1"_s.arg(total(FinalAmount)));

    report.setTable(u"List"_s, m_list);
    const auto sum = [this](Total which) { return m_totals[which]->number(); };
    report.addFooter({{SeasonalRow::Amount, u"جمع مبلغ"_s, sum(Amount)},
                      {SeasonalRow::Tax, u"جمع مالیات"_s, sum(Tax)},
                      {SeasonalRow::Discount, u"جمع تخفیف"_s, sum(Discount)},
                      {SeasonalRow::Total, u"جمع کل"_s, sum(FinalAmount)}});
    if (!report.loadLayout())
        report.buildStandard(title);
    return report;
}

void CDlgAutomobilReportSeasons::print()
{
    if (!isBusy() && CheckPrintListSecurity())
        CDlgReportGenerator(listReport(), this).ShowReport();
}

// While the rows are being gathered the window stays open.
void CDlgAutomobilReportSeasons::done(int result)
{
    if (isBusy())
        return;
    WriteSetting(section, minimumKey, DToStr(m_minimumAmount->number()));
    KDialog::done(result);
}
