// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/register/editor/CarEditorPage.h"
#include "auto/editor/CDlgRecordEditor.h"

class CDlgAddAutomobilInformationBase;
class CDlgAddAutomobilInformationSales;
class FieldRefused;

// The window in which one car of the register is written, changed or shown: a row of tabs over its pages. One save writes
// all pages into the car's row.
class CDlgAddAutomobilInformation final : public CDlgRecordEditor
{
    Q_OBJECT

public:
    // Opens a car that is already in the table; isNew only makes the pages start as those of a new car. True when the user
    // confirmed. False also when there is no such car. changed, if not null, is set when the car was taken out of the archive
    // meanwhile, which closes the window as cancelled. Throws when the database is closed.
    static bool EditCar(int carID, bool isNew, QWidget *parent, bool *changed = nullptr);
    // That a list will edit it, which looks once more whether the database is closed (KReadAhead).
    static void expectEdit(int carID);
    // That one will be made.
    static void expectPages();
    // Opens the car read-only. changed is set when the car was taken out of the archive meanwhile. A key below 1 does
    // nothing.
    static void ShowCar(int carID, bool &changed, QWidget *parent);

    CDlgAddAutomobilInformation(int carID, EditorMode mode, QWidget *parent = nullptr);
    ~CDlgAddAutomobilInformation() override;

    // Builds the pages and fills them. False when the car does not exist; the window must not be shown then.
    [[nodiscard]] bool load();

    CDlgAddAutomobilInformationBase *basePage() const { return m_base; }
    CDlgAddAutomobilInformationSales *salePage() const { return m_sale; }
    // A menu of what else can be done with the car; hidden for a new one.
    QPushButton *moreButton() const { return m_more; }
    QPushButton *demandsButton() const { return m_demands; }

protected:
    bool OnOK() override;
    [[nodiscard]] bool validatePages() override;
    void save() override;
    [[nodiscard]] int saveAsNew() override;
    void saved() override;
    QString recordName() const override;
    QString rightsForm() const override;
    [[nodiscard]] bool takeOutOfArchive() override;

private:
    void offerMore();
    // What is saved along with the row. asNew: of a car that has none yet.
    RecordSaving::Parts<CTblAutomobilInformations> parts(bool asNew);
    QList<CarEditorPage *> pages() const;
    // Shows why, at its field. Throws GoneBack.
    [[noreturn]] void goBackFor(const FieldRefused &refused);
    // False, after a message, for entries that are no valid values and for a buyer who is also the owner.
    bool checkEntries();
    bool checkParties();

    QString m_picturesChangedBy; // another desk, while the window was open; empty: nobody
    CDlgAddAutomobilInformationBase *m_base = nullptr;
    CDlgAddAutomobilInformationSales *m_sale = nullptr;
    QPushButton *m_demands = nullptr;
    QPushButton *m_more = nullptr;
};
