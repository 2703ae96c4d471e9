// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListPage.h"

class CarGallery;
class CarWebCommand;

// The list of the cars on offer, and the commands on a car. In select mode another window picks a car with
// it. The search may begin with the wishes of a customer's demand.
class CDlgAutomobilInformations final : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgAutomobilInformations(QWidget *parent = nullptr);
    ~CDlgAutomobilInformations() override;

    // Lets the user pick a car in a modal window. Returns its key, or 0 when the user cancelled.
    static int SelectCar(QWidget *parent, int preselected = 0);
    // Opens the list as a page of the host's work area, searching for what the demand asks for.
    static void ShowForDemand(int demandID);

    // Adds the row that a new car starts as and returns its key. Part of the command "جديد".
    static int addPlaceholder();

    // The demand whose wishes the search begins with, 0 for none; to be set before the page is first shown. A demand that
    // does not exist changes nothing.
    void setDemand(int demandID) { m_demandID = demandID; }

    // The same rows as cards.
    CarGallery *gallery() const { return m_gallery; }

    // Resets the filter to all cars not archived and empties the list.
    void resetFilter() override;

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    std::vector<KListCommand> commands() override;
    KListTraits traits() const override;
    void opening() override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    std::unique_ptr<KMySQL> makeRecord() const override;
    bool completesRows() const override;
    void completeRows(QVector<KListModel::Row> &rows) override;
    QString defaultSort() const override;
    void deleteRecord(KMySQL &asked) override;
    void recordDeleted(int key) override;
    void modeApplied() override;
    void activated(int key) override;
    KListReport reportSpec() const override;

private:
    void presetFromDemand();
    void addCar();
    // Cars out of a spreadsheet.
    void importFile();
    void editCar();
    void showSelected();
    void showCar(int key);
    void archiveCar();
    void showMatchingDemands();
    KListCommand recordCommand(const QString &id, const QString &text, const QString &icon);
    void browseCatalog();
    void editInputParameters();

    int m_demandID = 0;
    CarGallery *m_gallery = nullptr;
    std::unique_ptr<CarWebCommand> m_web;
};
