// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/printing/ContractPrinting.h"
#include "auto/contracts/printing/ContractTemplates.h"
#include "suite/utility/frame/KDialog.h"

#include <functional>

class KEdit;
class KExtListCtrl;
class QPushButton;
class TemplateEditing;

// "قالب‌های قرارداد": what each type of contract is printed from at every desk, and what it was printed from before.
class CDlgContractTemplates final : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgContractTemplates(QWidget *parent = nullptr, ContractPrinting::Places places = {});
    ~CDlgContractTemplates() override;

    // Asks the right to see a contract.
    static void Show(QWidget *parent);

    void choose(int contractType);
    // The commands behind the buttons, on the chosen type; the file of the first one is what its dialog returns.
    void replaceBy(const QString &path);
    void edit();
    // Puts into use what was saved in the word processor.
    void takeBack();
    void preview();
    void check();
    void goBack();
    void useSupplied();

    KExtListCtrl *types() const { return m_types; }
    KExtListCtrl *versions() const { return m_versions; }
    const TemplateEditing *editing() const { return m_editing; }

    void reject() override;

private:
    void build();
    QPushButton *command(const QString &caption, const QString &icon, void (CDlgContractTemplates::*run)());
    QWidget *buildCommands();
    QWidget *buildPreview();
    int type() const;
    void refill();
    void fillVersions();
    void updateButtons();
    void chooseFile();
    // The office's own, else the one that came along; what it is called and holds.
    ContractTemplates::Held current() const;
    bool mayDropEditing();
    void editingSaved();
    // Does the change against what the window shows; where another desk was first, asks and does it against what is there now.
    bool change(qint32 seen, const std::function<void(qint32 seen)> &work);

    ContractPrinting::Places m_places;
    qint32 m_seen = 0; // in use for the chosen type, as the window shows it
    KExtListCtrl *m_types = nullptr;
    KExtListCtrl *m_versions = nullptr;
    QPushButton *m_replace = nullptr;
    QPushButton *m_edit = nullptr;
    QPushButton *m_takeBack = nullptr;
    QPushButton *m_check = nullptr;
    QPushButton *m_supplied = nullptr;
    QPushButton *m_goBack = nullptr;
    QPushButton *m_preview = nullptr;
    KEdit *m_contract = nullptr;
    TemplateEditing *m_editing = nullptr;
};
