// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/catalog/CatalogLevel.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/frame/KDialog.h"

#include <array>

class CatalogPanel;
class QDialogButtonBox;
class QPushButton;

// The car catalog: brands, the models of the selected brand and the classes of the selected model, side by side. A window
// to keep the catalog in, or, in pick mode, to choose an entry of it.
//
// Opening it needs the access right of form "CarsAll"; each command its own right, an open database and a catalog that the
// office has not locked.
class CDlgCarsAll : public KDialog, private KSecurity
{
    Q_OBJECT

public:
    explicit CDlgCarsAll(QWidget *parent = nullptr);
    ~CDlgCarsAll() override;

    // Lets the user choose. The keys are preselected (0: none) and, when it returns true, those that were chosen; a model or
    // class that the user left open is 0. False: cancelled or refused, the keys are as they were. Names may have been
    // changed in either case.
    [[nodiscard]] static bool Pick(QWidget *parent, int &brand, int &model, int &carClass);
    // Opens the catalog for editing. Returns whether it changed in a way that lists of it elsewhere must follow (isChanged).
    static bool Browse(QWidget *parent);

    // Before exec.
    void setPickMode(bool on) { m_pickMode = on; }
    void setChosen(int brand, int model, int carClass);
    int chosenBrand() const { return m_chosenBrand; }
    int chosenModel() const { return m_chosenModel; }
    int chosenClass() const { return m_chosenClass; }
    // A class was added, or a set of entries imported.
    bool isChanged() const { return m_changed; }

    // Fills the window; done by itself when it is first shown.
    void start();
    // Rejected at once, and nothing shown, without the access right.
    int exec() override;

    // The commands behind the buttons of a level. Each checks its right (a refusal is shown) and does nothing where nothing
    // may be changed, without the selection that it needs, when that is gone, or, deleting, in pick mode.
    void addEntry(CatalogLevel level);
    void editEntry(CatalogLevel level);
    // Asks first; what a car record uses stays, with a warning.
    void deleteEntry(CatalogLevel level);
    // Lets the user choose a file of brands, models and classes and adds what is not there yet.
    void importEntries();

    CatalogPanel *panel(CatalogLevel level) const { return m_panels[static_cast<size_t>(level)]; }
    QPushButton *importButton() const { return m_import; }

protected:
    bool OnOK() override;
    void showEvent(QShowEvent *event) override;

private:
    void build();
    void connectPanel(CatalogLevel level);
    bool isChangeBlocked() const;
    void applyMode();
    void fill(CatalogLevel level);
    void refill(CatalogLevel level);
    void clearBelow(CatalogLevel level);
    void selectPath(int brand, int model, int carClass);
    void selectNew(CatalogLevel level, int key);
    void selectionChanged(CatalogLevel level, int key);
    void activated(CatalogLevel level);
    int selectedKey(CatalogLevel level) const;
    int parentKey(CatalogLevel level) const;
    bool hasParent(CatalogLevel level) const;

    std::array<CatalogPanel *, 3> m_panels{};
    QDialogButtonBox *m_buttons = nullptr;
    QPushButton *m_accept = nullptr;
    QPushButton *m_import = nullptr;
    bool m_started = false;
    bool m_pickMode = false;
    int m_chosenBrand = 0;
    int m_chosenModel = 0;
    int m_chosenClass = 0;
    bool m_changed = false;
};
