// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgAddFactor.h"

#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/invoices/InvoicePaper.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/invoices/CTblServices.h"
#include "suite/accounting/invoices/InvoicePosting.h"
#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/LevyRates.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/AmountWords.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/lists/KLinesView.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

enum LineColumn {
    ServiceColumn,
    LineDescColumn,
    CountColumn,
    PriceColumn,
    AmountColumn
};

constexpr int longestInvoiceText = 500;

QString serviceText(int code, const QString &name)
{
    return u"%1 %2"_s.arg(code).arg(name);
}

QVector<KLinesModel::Choice> services()
{
    CTblServices set;
    set.m_sort = "iCode";
    QVector<KLinesModel::Choice> choices;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        choices.append({set.m_iID, serviceText(set.m_iCode, set.m_sName)});
    return choices;
}

QVector<KLinesModel::Column> lineColumns(int decimals)
{
    using Kind = KLinesModel::Kind;
    return {
        {u"خدمت"_s, Kind::Choice, 130, 0, services()},
        {u"شرح"_s, Kind::Text, 150, longestInvoiceText},
        {u"تعداد"_s, Kind::Number, 45},
        {u"قیمت"_s, Kind::Money, 80},
        {u"مبلغ"_s, Kind::Computed, 85, 0, {}, [decimals](const KLinesModel::Line &line) {
             return InvoiceFigures::lineAmount(line.at(CountColumn).number, line.at(PriceColumn).number, decimals);
         }},
    };
}

QString titleOf(const Invoice &invoice)
{
    const QString kind = invoice.type == CTblFactors::purchase ? u"فاکتور خرید"_s : u"فاکتور فروش"_s;
    return invoice.num == 0 ? kind + u" جدید"_s : kind + u" شماره %1"_s.arg(invoice.num);
}

}

CDlgAddFactor::CDlgAddFactor(const Invoice &invoice, bool showOnly, QWidget *parent)
    : KDialog(parent)
    , m_settings(OfficeSettings::read({LevyRates::section()}))
    , m_num(invoice.num)
    , m_type(invoice.type)
    , m_showOnly(showOnly)
    , m_decimals(m_settings.moneyDecimals())
    , m_figures(m_decimals)
{
    setWindowTitle(titleOf(invoice));
    SetSettingName(u"AddFactor"_s);
    build();
    load(invoice);
    remember(invoice);
    applyShowMode();
    resize(LookSizes::scaled(900), LookSizes::scaled(640));
    if (m_showOnly)
        m_linesView->setFocus();
    else
        m_person->nameEdit()->setFocus();
}

CDlgAddFactor::~CDlgAddFactor() = default;

void CDlgAddFactor::build()
{
    m_lines = new KLinesModel(lineColumns(m_decimals), this);
    m_linesView = new KLinesView(m_lines, this);
    m_linesView->setAccessibleName(u"ردیف‌های فاکتور"_s);
    connect(m_lines, &KLinesModel::edited, this, &CDlgAddFactor::recompute);

    // With room for some lines where the page scrolls.
    m_linesView->setMinimumHeight(LookSizes::scaled(LookSizes::titleRow + 4 * LookSizes::row));
    auto *page = new CardPage(900, this);
    placeHead(page->addForm());
    page->addList(m_linesView);
    fillLineCommands(page->addLine());
    placeFigures(page->addForm());
    setContent(page, m_showOnly ? createButtons(QString(), u"بازگشت"_s) : createButtons());
    fillFooter();
    if (m_showOnly) {
        // While it can be changed the paper would say something else than the window.
        QPushButton *print = addButton(footer(), u"چاپ فاکتور"_s, u":/icons/print.svg"_s);
        print->setShortcut(QKeySequence::Print);
        connect(print, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { InvoicePaper::show(m_num, this); }); });
    }
    HistoryButton::addTo(this, footer(), CTblFactors().GetTableName(), m_num);
}

void CDlgAddFactor::placeHead(FormGrid *grid)
{
    m_person = new KPersonField(u"شخص :"_s, this);
    m_date = new KDateEdit(this);
    m_desc = new KEdit(this);
    m_desc->setMaxLength(longestInvoiceText);
    m_returned = new QCheckBox(u"برگشتی"_s, this);
    m_returned->setAccessibleName(m_returned->text());
    m_returned->setToolTip(u"همه ردیف‌های این فاکتور برگشت داده شده‌اند و سند آن برعکس است."_s);
    addLabelled(grid, u"شخص :"_s, m_person, 2);
    addLabelled(grid, u"تاریخ :"_s, m_date);
    grid->addCell(m_returned);
    addLabelled(grid, u"شرح :"_s, m_desc, 4);
}

void CDlgAddFactor::fillLineCommands(QHBoxLayout *row)
{
    QPushButton *add = addButton(row, u"ردیف جدید"_s, u":/icons/new.svg"_s);
    QPushButton *remove = addButton(row, u"حذف ردیف"_s, u":/icons/delete.svg"_s);
    add->setToolTip(u"Insert"_s);
    remove->setToolTip(u"Delete"_s);
    connect(add, &QPushButton::clicked, m_linesView, &KLinesView::addLine);
    connect(remove, &QPushButton::clicked, m_linesView, &KLinesView::removeCurrentLine);
    row->addStretch(1);
    row->parentWidget()->setVisible(!m_showOnly);
}

KEdit *CDlgAddFactor::addFigure(FormGrid *grid, const QString &caption, KEdit::Kind kind, bool readOnly)
{
    auto *edit = new KEdit(kind, this);
    edit->setReadOnly(readOnly);
    addLabelled(grid, caption, edit);
    return edit;
}

// The discount before the levies, which follow from it.
void CDlgAddFactor::placeFigures(FormGrid *grid)
{
    using Kind = KEdit::Kind;
    m_sum = addFigure(grid, u"جمع ردیف‌ها :"_s, Kind::Money, true);
    m_discount = addFigure(grid, u"تخفیف :"_s, Kind::Money, false);
    m_taxPercent = addFigure(grid, u"درصد مالیات :"_s, Kind::Percent, false);
    m_tax = addFigure(grid, u"مالیات :"_s, Kind::Money, false);
    m_dutyPercent = addFigure(grid, u"درصد عوارض :"_s, Kind::Percent, false);
    m_duty = addFigure(grid, u"عوارض :"_s, Kind::Money, false);
    m_total = addFigure(grid, u"قابل پرداخت :"_s, Kind::Money, true);
    m_total->setFont(LookFonts::font(LookFonts::Use::Primary));
    m_words = new AmountWords(this);
    m_words->setMinimumHeight(LookSizes::scaled(LookSizes::labelLine));
    grid->addLine(m_words);

    const auto follow = [this](KEdit *edit, void (InvoiceFigures::*set)(double)) {
        connect(edit, &KEdit::numberEdited, this, [this, set](double number) {
            (m_figures.*set)(number);
            showFigures();
        });
    };
    follow(m_discount, &InvoiceFigures::setDiscount);
    follow(m_taxPercent, &InvoiceFigures::setTaxPercent);
    follow(m_tax, &InvoiceFigures::setTax);
    follow(m_dutyPercent, &InvoiceFigures::setDutyPercent);
    follow(m_duty, &InvoiceFigures::setDuty);
}

void CDlgAddFactor::fillFooter()
{
    m_document = new QLabel(this);
    footer()->addWidget(m_document);
    m_showDocument = addButton(footer(), u"نمایش سند"_s, u":/icons/document.svg"_s);
    connect(m_showDocument, &QPushButton::clicked, this,
            [this] { CDlgShowDocument::Show(m_docNum, m_fiscalYear, this); });
}

void CDlgAddFactor::load(const Invoice &invoice)
{
    m_person->setPersonID(invoice.personID);
    m_date->setDateTime(invoice.date.isValid() ? invoice.date
                                               : QDateTime(m_settings.serverTime().date(), QTime(0, 0), Qt::UTC));
    m_desc->setText(invoice.desc);
    m_returned->setChecked(invoice.returned);

    const QVector<KLinesModel::Choice> known = m_lines->columns().at(ServiceColumn).choices;
    QVector<KLinesModel::Line> lines;
    for (const InvoiceLine &entry : invoice.lines) {
        const auto service = std::find_if(known.cbegin(), known.cend(),
                                          [&entry](const auto &choice) { return choice.key == entry.serviceID; });
        KLinesModel::Line line = m_lines->emptyLine();
        if (service != known.cend())
            line[ServiceColumn] = {service->text, 0, service->key};
        line[LineDescColumn].text = entry.desc;
        line[CountColumn].number = entry.count;
        line[PriceColumn].number = entry.price;
        lines.append(line);
    }
    if (lines.isEmpty())
        lines.append(m_lines->emptyLine());
    m_lines->setLines(lines);

    if (m_num == 0 && invoice.lines.isEmpty()) {
        const LevyRates rates = LevyRates::of(m_settings);
        m_figures.setTaxPercent(rates.tax);
        m_figures.setDutyPercent(rates.duty);
    } else {
        m_figures.load(invoice.lines, invoice.discount, invoice.tax, invoice.duty);
    }
    showFigures();

    CTblFactors record;
    if (m_num != 0 && record.IsRecordExist(u"iID"_s, m_num)) {
        m_docNum = record.m_iDocNum;
        m_fiscalYear = record.m_iFiscalYear;
        const QString state = record.m_iStatus == CTblFactors::voided ? u"باطل شده - "_s : QString();
        m_document->setText(state + u"سند حسابداری شماره %1 سال مالی %2"_s.arg(m_docNum).arg(m_fiscalYear));
    }
    m_document->setVisible(m_docNum != 0);
    m_showDocument->setVisible(m_docNum != 0);
}

void CDlgAddFactor::applyShowMode()
{
    if (!m_showOnly)
        return;
    m_lines->setReadOnly(true);
    m_person->setButtonsVisible(false);
    m_date->setReadOnly(true);
    m_returned->setEnabled(false);
    for (KEdit *edit : {m_desc, m_discount, m_taxPercent, m_tax, m_dutyPercent, m_duty})
        edit->setReadOnly(true);
}

void CDlgAddFactor::recompute()
{
    m_figures.setLines(invoice().lines);
    showFigures();
}

// A line that is being edited keeps what it shows.
void CDlgAddFactor::showFigures()
{
    const auto show = [](KEdit *edit, double number) {
        if (!(edit->hasFocus() && !edit->isReadOnly()) && !IsEquals(edit->number(), number))
            edit->setNumber(number);
    };
    show(m_sum, m_figures.sum());
    show(m_discount, m_figures.discount());
    show(m_taxPercent, m_figures.tax().percent);
    show(m_tax, m_figures.tax().amount);
    show(m_dutyPercent, m_figures.duty().percent);
    show(m_duty, m_figures.duty().amount);
    // A discount above the sum is reported at OK; until then the total is shown as it would be.
    m_total->setRange(-1e15, 1e15);
    m_total->setNumber(m_figures.total());
    showWords();
}

void CDlgAddFactor::showWords()
{
    m_words->showAmount(qMax(m_figures.total(), 0.0), m_settings.moneyUnitName());
}

Invoice CDlgAddFactor::invoice() const
{
    Invoice invoice;
    invoice.num = m_num;
    invoice.type = m_type;
    invoice.returned = m_returned->isChecked();
    invoice.personID = m_person->personID();
    invoice.date = m_date->dateTime();
    invoice.desc = m_desc->text();
    for (const KLinesModel::Line &line : m_lines->lines())
        invoice.lines.append({line.at(ServiceColumn).key, line.at(LineDescColumn).text, line.at(CountColumn).number,
                              line.at(PriceColumn).number});
    invoice.discount = m_figures.discount();
    invoice.tax = m_figures.tax().amount;
    invoice.duty = m_figures.duty().amount;
    return invoice;
}

bool CDlgAddFactor::refuse(const QString &message, QWidget *field)
{
    g_pDlgWarning->Show(message, this);
    field->setFocus(Qt::TabFocusReason);
    return false;
}

// An entry that is no date or no listed service would be saved as something other than the window shows.
bool CDlgAddFactor::refuseInvalidEntry()
{
    if (!m_date->isEntryValid())
        return refuse(m_date->entryError(), m_date);
    QVector<int> positions;
    const QVector<KLinesModel::Line> lines = m_lines->lines(&positions);
    for (int index = 0; index < lines.size(); ++index) {
        const KLinesModel::Cell &service = lines.at(index).at(ServiceColumn);
        if (service.key != 0 || service.text.isEmpty())
            continue;
        g_pDlgWarning->Show(u"خدمت «%1» در لیست خدمات نیست."_s.arg(service.text), this);
        m_linesView->goTo(positions.at(index), ServiceColumn);
        return false;
    }
    return true;
}

bool CDlgAddFactor::refuseInvalidFigure()
{
    for (KEdit *edit : {m_discount, m_taxPercent, m_tax, m_dutyPercent, m_duty}) {
        if (!edit->isEntryValid())
            return refuse(edit->accessibleName() + u' ' + edit->entryError(), edit);
    }
    return true;
}

void CDlgAddFactor::goTo(const Invoice::Problem &problem)
{
    using What = Invoice::Problem::What;
    QVector<int> positions;
    m_lines->lines(&positions);
    const int row = positions.value(problem.line, 0);
    switch (problem.what) {
    case What::NoPerson:
        return m_person->nameEdit()->setFocus();
    case What::NoDate:
        return m_date->setFocus();
    case What::NoLines:
    case What::LineOfNothing:
        return m_linesView->goTo(row, ServiceColumn);
    case What::LineWithoutCount:
        return m_linesView->goTo(row, CountColumn);
    case What::LineWithoutPrice:
    case What::AmountTooLarge:
        return m_linesView->goTo(row, PriceColumn);
    case What::DiscountAboveSum:
    case What::NegativeFigure:
        return m_discount->setFocus();
    }
}

bool CDlgAddFactor::OnOK()
{
    m_linesView->finishEntry();
    if (m_showOnly)
        return true;
    if (!refuseInvalidEntry())
        return false;
    const Invoice wanted = invoice();
    const QList<Invoice::Problem> problems = wanted.problems(m_decimals);
    if (!problems.isEmpty()) {
        g_pDlgWarning->Show(Invoice::message(problems.constFirst()), this);
        goTo(problems.constFirst());
        return false;
    }
    // After the lines: a line that is too large makes the levies too large as well.
    if (!refuseInvalidFigure())
        return false;
    return save();
}

void CDlgAddFactor::remember(const Invoice &read)
{
    if (m_num == 0)
        return;
    m_values.set(read);
    m_opened = OpenedRow(m_values, InvoiceValues::groups(), [this] { m_values.set(invoice()); });
}

bool CDlgAddFactor::save()
{
    const RowQuestions::Texts texts{.format = InvoiceValues::shown};
    try {
        const auto outcome = RowQuestions::save(
            this, m_opened, m_values, texts, [this] { m_num = InvoicePosting::save(invoice(), m_opened).num; },
            [this] {
                m_num = 0;
                m_opened = {};
            });
        return outcome == RowQuestions::Outcome::Saved;
    } catch (const KAccountingError &error) {
        return refuse(error.userMessage(), m_date);
    }
}
