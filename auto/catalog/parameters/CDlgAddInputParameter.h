// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/RowEdit.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/utility/frame/KDialog.h"

class KEdit;

// The editor of one value of the input parameters.
class CDlgAddInputParameter final : public KDialog
{
    Q_OBJECT

public:
    // itemID 0: a new value of the type (CTblItems::type...); caption: the type in words, for the title.
    CDlgAddInputParameter(int itemID, int itemType, const QString &name, const QString &caption, QWidget *parent = nullptr);

    // Key of the value; of a new one from its saving on.
    int itemID() const { return m_edit.key(); }
    int itemType() const { return m_itemType; }
    QString name() const;

    // Saves. Refused: an empty name, one that another item has, a closed database.
    bool OnOK() override;

private:
    bool refuse(const QString &message);
    bool save();
    void write();
    void settle();

    CTblItems m_item;
    RowEdit m_edit;
    int m_itemType;
    KEdit *m_name;
};
