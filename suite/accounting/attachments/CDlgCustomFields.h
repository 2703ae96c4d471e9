// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/frame/KDialogTabPage.h"

#include <QHash>

#include <memory>
#include <optional>
#include <vector>

class CustomFieldInput;
class FormGrid;
class QLabel;
class QPushButton;
class QWidget;

// Editor page of the fields that the office added to a record kind. Nothing is read before the page is first shown, and a
// page that was never shown saves nothing.
class TZACCOUNTING_EXPORT CDlgCustomFields : public KDialogTabPage
{
    Q_OBJECT

public:
    explicit CDlgCustomFields(QWidget *parent = nullptr);
    ~CDlgCustomFields() override;

    // The record kind (RecordKinds.h) and the record's key; 0 for a record that is not stored yet.
    void bind(int table, int recordID);
    void setReadOnly(bool readOnly);
    // Whether the page was shown, and so holds values to validate and save.
    bool isOpened() const { return m_opened; }

    // Reads fields and values again. What the user changed stays.
    void load();
    // False after showing a message about the first invalid field, which then has the focus. True for a page never shown.
    [[nodiscard]] bool validate();
    // Value per field key, to be stored by CTblCustomFieldRecords::setValues; nothing for a page never shown or read-only.
    std::optional<QHash<int, QString>> enteredValues() const;
    // The values as the page read them, and of those fields that the user changed since what is entered now; nothing of a page
    // never shown or read-only.
    QHash<int, QString> openedValues() const { return m_read; }
    QHash<int, QString> changedValues() const;
    // The field's name, and a stored value of it as its control shows it. Empty for a field that the page does not have.
    QString caption(int fieldID) const;
    QString textOf(int fieldID, const QString &value) const;
    // Brings the page to the front and focuses the field.
    void goTo(int fieldID);

    // Opens the definition of the record kind's fields, then loads the page again; what was typed stays. Refused without
    // the right to modify form "CustomFields" and in a closed database.
    void defineFields();

    bool OnAccess() override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void clearInputs();
    CustomFieldInput *inputOf(int fieldID) const;
    QHash<int, QString> typedValues() const;

    int m_table = 0;
    int m_recordID = 0;
    bool m_readOnly = false;
    bool m_opened = false;
    std::vector<std::unique_ptr<CustomFieldInput>> m_inputs;
    QHash<int, QString> m_read;      // by field, as the database held it
    QHash<int, QString> m_untouched; // and as the controls wrote it before anybody changed it
    QWidget *m_fields = nullptr;
    FormGrid *m_form = nullptr;
    QLabel *m_empty = nullptr;
    QPushButton *m_defineButton = nullptr;
};
