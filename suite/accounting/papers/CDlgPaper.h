// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/papers/SheetPages.h"
#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/frame/KDialog.h"

#include <QSet>

#include <functional>

class KWndReportGen;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;

// Papers of one kind as they will be printed, and from there the printer and a PDF file. The size is remembered for the kind.
class TZACCOUNTING_EXPORT CDlgPaper : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgPaper(const QList<PaperSheet> &sheets, QWidget *parent = nullptr);
    ~CDlgPaper() override;

    // Makes and shows them to a user who may read the form and holds the right there, who is told otherwise; gone is said where nothing
    // was made.
    using Make = std::function<QList<PaperSheet>()>;
    static void run(const QString &form, KSecurity::Right right, const Make &make, const QString &gone, QWidget *parent);

    // Keeps a sheet's PDF with the record that it is about. Throws KAccountingError where that one alone cannot be kept.
    using File = std::function<void(qsizetype sheet, const QByteArray &pdf)>;
    // Adds the command "بایگانی". done: what is said of so many that were filed ("%1").
    void offerFiling(const File &file, const QString &done);
    // Files what is not filed yet. What could not be is told, and can be tried again.
    void fileSheets();
    // Whether it was printed, written to a file, or all of it filed.
    bool isHandedOut() const { return m_isHandedOut; }

    KWndReportGen *pages() const { return m_pages; }
    void savePdf(const QString &path);

private:
    void build();
    QWidget *buildBar();
    QStringList fileEach();
    SheetPages paper() const;
    SheetPages::Size size() const;
    void showPaper();
    void showPosition();
    void choosePrinter();
    void askAndSavePdf();

    const QList<PaperSheet> m_sheets;
    const Letterhead m_office;
    KWndReportGen *m_pages = nullptr;
    QComboBox *m_size = nullptr;
    QPushButton *m_previous = nullptr;
    QPushButton *m_next = nullptr;
    QLabel *m_position = nullptr;
    QPushButton *m_fileButton = nullptr;
    File m_file;
    QString m_filedWords;
    QSet<qsizetype> m_filed;
    bool m_isHandedOut = false;
};
