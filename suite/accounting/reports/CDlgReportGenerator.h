// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/reports/ListReport.h"
#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/look/LookMarks.h"

class KWndReportGen;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QPrinter;
class QPushButton;
class QSpinBox;

// The window of a list report: its pages as they will be printed, and from it the printer, a PDF file, a spreadsheet and the
// arranging of the layout. Use:
//
//     CDlgReportGenerator generator(group, report, this);
//     generator.SetText("LeftBottom", ...);
//     generator.SetTable("List", list);
//     if (!generator.LoadLayout())
//         generator.BuildListReport(title);
//     generator.ShowReport();
class TZACCOUNTING_EXPORT CDlgReportGenerator : public KDialog
{
    Q_OBJECT

public:
    CDlgReportGenerator(const QString &group, const QString &report, QWidget *parent = nullptr);
    explicit CDlgReportGenerator(const ListReport &report, QWidget *parent = nullptr);
    ~CDlgReportGenerator() override;

    // See ListReport.
    void SetText(const QString &element, const QString &text) { m_report.setText(element, text); }
    void SetTable(const QString &element, const KExtListCtrl *list) { m_report.setTable(element, list); }
    void SetTable(const QString &element, const QVector<KListModel::Column> &columns, const QVector<KListModel::Row> &rows)
    {
        m_report.setTable(element, columns, rows);
    }
    [[nodiscard]] bool LoadLayout() { return m_report.loadLayout(); }
    void BuildListReport(const QString &title) { m_report.buildStandard(title); }
    const ListReport &report() const { return m_report; }

    // Lays out the pages and shows them modally. Nothing is shown when the user stops the layout.
    void ShowReport();
    KWndReportGen *pages() const { return m_pages; }

    // The commands, each also usable without the window: their questions and messages appear over parent. True when done,
    // false when the user stopped it; a file is then as it was before. Throws KAccountingError for a file that cannot be written.
    [[nodiscard]] static bool savePdf(const ListReport &report, const QString &path, QWidget *parent);
    [[nodiscard]] static bool saveSpreadsheet(const ListReport &report, const QString &path, QWidget *parent);
    [[nodiscard]] static bool print(const ListReport &report, QPrinter &printer, QWidget *parent);
    // The name that a file of the report is offered: the report's and today's date, without what a file's name cannot hold.
    static QString fileName(const ListReport &report, const QString &suffix);
    // The same, asking for the file first and telling of it afterwards.
    static void askAndSavePdf(const ListReport &report, QWidget *parent);
    static void askAndSaveSpreadsheet(const ListReport &report, QWidget *parent);
    // Lets the user arrange the report's layouts; true when they or the report's layout changed.
    static bool arrange(ListReport &report, QWidget *parent);

private:
    void build();
    QHBoxLayout *makeBar(LookMarks::Bar kind);
    QWidget *buildCommands();
    QWidget *buildNavigation();
    bool layOut();
    void choosePrinter();
    void arrangeLayout();
    void showPosition();
    void applyZoom(int choice);

    ListReport m_report;
    KWndReportGen *m_pages = nullptr;
    QSpinBox *m_page = nullptr;
    QLabel *m_pageCount = nullptr;
    QComboBox *m_zoom = nullptr;
    QPushButton *m_first = nullptr;
    QPushButton *m_previous = nullptr;
    QPushButton *m_next = nullptr;
    QPushButton *m_last = nullptr;
};
