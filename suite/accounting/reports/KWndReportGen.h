// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/reports/PaperPages.h"
#include "suite/accounting/reports/ReportProgress.h"
#include "suite/accounting/TzAccountingExport.h"

#include <QAbstractScrollArea>

#include <memory>

class ListReport;

// The pages of a list report, or others, on screen, one at a time, as they will be printed. PageUp, PageDown, Home and End turn the pages;
// Ctrl with the wheel, + or - changes the scale.
class TZACCOUNTING_EXPORT KWndReportGen : public QAbstractScrollArea
{
    Q_OBJECT

public:
    enum Fit {
        FixedScale,
        FitWidth,
        FitPage
    };

    explicit KWndReportGen(QWidget *parent = nullptr);
    ~KWndReportGen() override;

    // Lays the report out anew and shows its first page; the report must stay alive. False, with nothing changed, when
    // progress asked to stop.
    [[nodiscard]] bool setReport(const ListReport &report, const ReportProgress &progress = {});
    // The same with pages that are laid out.
    void setPages(std::unique_ptr<PaperPages> pages);
    int pageCount() const;
    // From 0; brought to the nearest existing page.
    int currentPage() const { return m_page; }
    void showPage(int page);
    // 1 is the paper's own size.
    double scale() const { return m_scale; }
    void setScale(double scale);
    void setFit(Fit fit);
    Fit fit() const { return m_fit; }

Q_SIGNALS:
    void pageChanged(int page);
    void scaleChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void paintPage(QPainter &painter);
    double screenDotsPerDot() const;
    void fitNow();
    void updateBars();
    void turn(int pages);

    std::unique_ptr<PaperPages> m_painter;
    int m_page = 0;
    double m_scale = 1;
    Fit m_fit = FitWidth;
};
