// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/frame/KDialog.h"

#include <functional>

class KEdit;

// Asks for the name of one entry of the car catalog, new or existing.
class CDlgAddCar : public KDialog
{
    Q_OBJECT

public:
    // The heading names the kind of entry; the title says whether it is new.
    explicit CDlgAddCar(const QString &heading, QWidget *parent = nullptr);

    void setEdited(int key, const QString &name);
    // The button of the edited entry's history; the table is that of its level. After setEdited.
    void offerHistory(const QString &table);
    void setParentKey(int key) { m_parentKey = key; }
    // Off unless set. The check looks among the models, and at the parent as CatalogFilter::sameName says.
    void setCheckDuplicates(bool on) { m_checkDuplicates = on; }
    // What OK does with the name: false, or an error that it throws and that is shown here, keeps the window open with what was
    // typed.
    void setSave(std::function<bool(const QString &name)> save) { m_save = std::move(save); }

    // Trimmed and in standard letters after OK.
    QString name() const;

protected:
    bool OnOK() override;

private:
    void showTitle();
    bool refuse(const QString &message);

    QString m_heading;
    bool m_editing = false;
    int m_key = 0; // of the entry that is edited
    int m_parentKey = 0;
    bool m_checkDuplicates = false;
    std::function<bool(const QString &)> m_save;
    KEdit *m_name;
};
