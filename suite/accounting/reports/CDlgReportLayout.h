// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/reports/CTblReportLayouts.h"
#include "suite/accounting/reports/ListReport.h"
#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/frame/KDialog.h"

#include <QMap>

#include <functional>

class FormGrid;
class KEdit;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QPushButton;
class QSpinBox;
class QTreeView;
class ReportColumnsModel;

// Arranges a report: columns, corner texts, paper and letters. OK takes the arrangement for this report now; saved under a
// name it is kept for everybody, and the one that is marked as default is what the report opens with.
class TZACCOUNTING_EXPORT CDlgReportLayout : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgReportLayout(const ListReport &report, QWidget *parent = nullptr);
    ~CDlgReportLayout() override;

    // The layout as the fields hold it.
    ReportLayout layoutOfFields() const;
    void setFields(const ReportLayout &layout);
    // Whether a layout was saved or deleted.
    bool storedChanged() const { return m_storedChanged; }

    // The commands behind the buttons, for the layout named in the entry.
    void saveLayout();
    void deleteLayout();

protected:
    // Refused while no column is chosen.
    bool OnOK() override;

private:
    void placeStored(FormGrid *grid);
    QGroupBox *buildColumns();
    QGroupBox *buildTexts();
    void placePaper(FormGrid *grid);
    void fillNames(const QString &current);
    const CTblReportLayouts::Entry *listed(const QString &name) const;
    bool store(const QString &name);
    void loadNamed(const QString &name);
    void showShare();
    void moveColumn(int places);
    int currentRow() const;
    bool hasColumns();
    // Runs work on the stored layouts, which a closed database refuses, and offers their names anew.
    void changeStored(const QString &nameAfterwards, const std::function<bool()> &work);

    ListReport m_report;
    QVector<CTblReportLayouts::Entry> m_listed; // as the names were last filled
    bool m_storedChanged = false;
    QComboBox *m_name = nullptr;
    QCheckBox *m_default = nullptr;
    QPushButton *m_delete = nullptr;
    KEdit *m_title = nullptr;
    ReportColumnsModel *m_columns = nullptr;
    QTreeView *m_columnList = nullptr;
    QSpinBox *m_share = nullptr;
    QMap<QString, KEdit *> m_corners;
    QComboBox *m_orientation = nullptr;
    QSpinBox *m_fontSize = nullptr;
};
