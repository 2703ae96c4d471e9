// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListPrinting.h"

#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QMenu>
#include <QToolButton>

using namespace Qt::StringLiterals;

KListPrinting::KListPrinting(std::function<void(const Work &)> withReport, QWidget *page)
    : m_withReport(std::move(withReport))
    , m_page(page)
{
}

void KListPrinting::print() const
{
    m_withReport([page = m_page](ListReport &report) {
        CDlgReportGenerator generator(report, page);
        generator.ShowReport();
    });
}

QWidget *KListPrinting::makeMenu(QWidget *parent, const std::function<bool()> &mayArrange) const
{
    auto *arrow = new QToolButton(parent);
    arrow->setIcon(LookIcons::icon(u":/icons/chevron.svg"_s));
    arrow->setFocusPolicy(Qt::TabFocus);
    LookMarks::setTall(arrow);
    arrow->setMinimumWidth(LookSizes::scaled(LookSizes::tallControl) + LookSizes::unit / 2);
    arrow->setToolTip(u"خروجی های دیگر"_s);
    arrow->setAccessibleName(arrow->toolTip());
    auto *menu = new QMenu(arrow->toolTip(), arrow);
    const auto add = [&](const QString &caption, const QString &icon, const Work &work) {
        return menu->addAction(LookIcons::icon(icon), caption, m_page, [withReport = m_withReport, work] { withReport(work); });
    };
    menu->addAction(LookIcons::icon(u":/icons/print.svg"_s), u"پیش نمایش چاپ"_s, m_page, [printing = *this] { printing.print(); });
    add(u"ذخیره PDF"_s, u":/icons/save.svg"_s,
        [page = m_page](ListReport &report) { CDlgReportGenerator::askAndSavePdf(report, page); });
    add(u"صفحه گسترده"_s, u":/icons/document.svg"_s,
        [page = m_page](ListReport &report) { CDlgReportGenerator::askAndSaveSpreadsheet(report, page); });
    QAction *arrange = add(u"چیدمان گزارش"_s, u":/icons/settings.svg"_s,
                           [page = m_page](ListReport &report) { CDlgReportGenerator::arrange(report, page); });
    QObject::connect(menu, &QMenu::aboutToShow, arrange, [arrange, mayArrange] { arrange->setVisible(mayArrange()); });
    // Not set as the button's menu: the style would draw a second arrow.
    QObject::connect(arrow, &QToolButton::clicked, menu,
                     [arrow, menu] { menu->popup(arrow->mapToGlobal(QPoint(0, -menu->sizeHint().height()))); });
    return arrow;
}

ListReport KListPrinting::report(const KListReport &spec, const KExtListCtrl *list, const QString &count)
{
    ListReport report(spec.group, spec.report);
    report.setText(u"LeftBottom"_s, u"تاریخ چاپ : "_s + shamsiText(QDate::currentDate()));
    report.setText(u"Count"_s, count);
    report.setText(u"Title"_s, spec.title);
    for (const auto &[element, text] : spec.texts)
        report.setText(element, text);
    report.setTable(u"List"_s, list);
    if (!report.loadLayout())
        report.buildStandard(spec.title);
    return report;
}
