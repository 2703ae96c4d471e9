// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/SettingsEdit.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/crm/TzCRMExport.h"
#include "suite/utility/frame/KDialog.h"

#include <QList>

class KEdit;
class QComboBox;

// Editor of the dealership's own details ("مشخصات نمایشگاه").
class TZCRM_EXPORT CDlgAddCompanyProps : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgAddCompanyProps(QWidget *parent = nullptr);
    ~CDlgAddCompanyProps() override;

    // What the controls hold now.
    CompanyDetails details() const;
    void setDetails(const CompanyDetails &details);

    // Checks and writes. Refused: no name; a closed database is left as it is.
    bool OnOK() override;

private:
    CDlgAddCompanyProps(const OfficeSettings &settings, QWidget *parent);
    void build();
    void updateHints();
    void writeDetails();

    SettingsEdit m_edit;
    QList<KEdit *> m_edits; // in the order of the table of fields
    QComboBox *m_kind;
};
