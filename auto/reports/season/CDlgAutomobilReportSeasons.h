// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/season/SeasonalGathering.h"
#include "auto/reports/season/SeasonalTask.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/reports/ListReport.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/lists/KSortOrder.h"

#include <array>
#include <memory>

class KEdit;
class KExtListCtrl;
class QButtonGroup;
class QDialogButtonBox;
class KNextRows;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QWidget;
class SeasonalList;

// The seasonal tax report ("گزارش فصلي"): what the dealership sold or bought in a season, party by party, to be looked at,
// corrected, printed and written into the tax authority's file. The rows are gathered on a thread of their own.
class CDlgAutomobilReportSeasons : public KDialog, private KSecurity
{
    Q_OBJECT

public:
    // The highest amount that small contracts may be summed below, and what the window opens with; in the money unit.
    static constexpr double highestMinimumAmount = 16'400'000;

    explicit CDlgAutomobilReportSeasons(QWidget *parent = nullptr);
    ~CDlgAutomobilReportSeasons() override;

    // Whether the user may open it; if not, a message is shown.
    using KSecurity::CheckAccessSecurity;

    // What the controls ask for now.
    SeasonalGathering::Query query() const;
    // Gathers the rows again, on the other thread; does nothing while that is already running.
    void refresh();
    bool isBusy() const { return m_task.isRunning(); }

    KExtListCtrl *list() const { return m_list; }
    // Shown while the list does not show all rows at once.
    KNextRows *nextRows() const { return m_next; }
    KEdit *year() const { return m_year; }
    KEdit *minimumAmount() const { return m_minimumAmount; }
    QButtonGroup *seasons() const { return m_seasons; }
    QButtonGroup *kinds() const { return m_kinds; }
    // The list as it is printed.
    ListReport listReport() const;

Q_SIGNALS:
    // The gathering ended, well or not, and the window is idle again.
    void idle();

public Q_SLOTS:
    void print();
    void exportSeason();
    void showPayable();
    void editCompany();

protected:
    void showEvent(QShowEvent *event) override;
    void done(int result) override;

private:
    enum Total {
        Amount,
        Tax,
        Duties,
        Discount,
        FinalAmount,
        TotalCount
    };

    QWidget *buildChoices();
    QHBoxLayout *buildSeasonLine();
    QHBoxLayout *buildAmountLine();
    QWidget *buildTotals();
    QWidget *buildProgress();
    void addCommands(QDialogButtonBox *buttons);
    SeasonalGathering::Kind chosenKind() const;
    void openOnToday();
    void startGathering();
    void takeRows(const QVector<SeasonalRow> &rows);
    void finish(const SeasonalGathering::Outcome &outcome);
    void fail(const std::exception_ptr &error);
    void setBusy(bool busy);
    void showTooLongAddress();
    void showTotals(const SeasonalTotals &totals);
    void sortBy(int column);
    void editParty(int key);
    bool isEntryGood();
    bool stillAsGathered();
    void showFurther(int row);
    void offerFurther();
    void dropRows();

    SeasonalTask m_task;
    std::shared_ptr<SeasonalList> m_rows;
    SeasonalGathering::Query m_gathered; // what the rows were gathered by
    bool m_whole = false;                // the gathering came to its end
    KSortOrder m_order;
    bool m_opened = false;
    QButtonGroup *m_seasons;
    QButtonGroup *m_kinds;
    KEdit *m_year;
    KEdit *m_minimumAmount;
    KExtListCtrl *m_list;
    KNextRows *m_next = nullptr;
    std::array<KEdit *, TotalCount> m_totals{};
    QWidget *m_progress = nullptr;
    QLabel *m_progressText = nullptr;
    QPushButton *m_show = nullptr;
    QPushButton *m_print = nullptr;
    QPushButton *m_close = nullptr;
    QPushButton *m_export = nullptr;
};
