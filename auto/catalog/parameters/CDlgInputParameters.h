// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/catalog/parameters/InputParameters.h"
#include "suite/accounting/lists/KListPage.h"

class QButtonGroup;
class QRadioButton;

// The values of the input parameters, one kind at a time. A window to keep them in, or, in select mode, to choose a value.
class CDlgInputParameters final : public KListPage
{
    Q_OBJECT

public:
    // Of no kind at first when option is none of InputParameters::Option: the list is then empty.
    explicit CDlgInputParameters(int option = 0, QWidget *parent = nullptr);
    ~CDlgInputParameters() override;

    // Lets the user choose a value of the kind; current is selected at first (0: none). The key of the chosen value; 0 when
    // the window was cancelled or the user may not open it. Values may have been added or renamed in either case.
    [[nodiscard]] static int Select(QWidget *parent, int option, int current = 0);
    // Opens the values to be kept, at that kind.
    static void Open(QWidget *parent, int option = 0);

    // -1 while no kind is chosen.
    int option() const;
    // Shows the values of the kind, as a click on it does.
    void setOption(int option);
    QRadioButton *optionButton(int option) const;

protected:
    QList<KListColumn> columnTable() const override;
    std::vector<KListCommand> commands() override;
    KListTraits traits() const override;
    void buildFilters(QGridLayout *grid) override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    KSql filterClauses() const override;
    QString defaultSort() const override;
    void modeApplied() override;
    void recordDeleted(int key) override;
    void activated(int key) override;
    QWidget *firstFilterControl() const override;

private:
    void addValue();
    void editValue();

    QButtonGroup *m_options = nullptr;
};
