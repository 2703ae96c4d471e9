// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/RowEdit.h"
#include "suite/crm/messages/CTblMessageTexts.h"
#include "suite/crm/messages/MessageKinds.h"
#include "suite/crm/TzCRMExport.h"
#include "suite/utility/frame/KDialog.h"

#include <optional>

class FieldNote;
class KDropDown;
class KEdit;
class KTextArea;
class QLabel;
class QPushButton;
class QWidget;

// Editor of a text of messages: its fields by a click, what is wrong with it, and how it reads of a record of the office.
class TZCRM_EXPORT CDlgAddMessageText final : public KDialog
{
    Q_OBJECT

public:
    // key 0: a new one.
    explicit CDlgAddMessageText(qint32 key, QWidget *parent = nullptr);
    ~CDlgAddMessageText() override;

    // For a new one, after OK.
    qint32 key() const { return m_edit.key(); }

    KDropDown *kinds() const { return m_kind; }
    KEdit *name() const { return m_name; }
    KTextArea *text() const { return m_text; }
    QString previewText() const;
    // The buttons of the fields, in their order.
    QList<QPushButton *> fieldButtons() const { return m_fieldButtons; }
    // Puts the text that came along in place of the one that is there, after a question.
    void takeSupplied();

protected:
    bool OnOK() override;

private:
    void build();
    QWidget *buildFields();
    QWidget *buildPreview();
    const MessageKind *kind() const;
    void kindChosen();
    void showFields();
    void readSample();
    void showPreview();
    void insert(const QString &field);
    void goTo(const QString &column);
    void store();

    CTblMessageTexts m_record;
    RowEdit m_edit;
    std::optional<PersonMessage> m_sample;
    QString m_noSample; // why there is none
    QString m_supplied; // the text that came along for the chosen kind
    KDropDown *m_kind;
    KEdit *m_name;
    KTextArea *m_text;
    QWidget *m_fields = nullptr;
    QList<QPushButton *> m_fieldButtons;
    QLabel *m_preview = nullptr;
    QLabel *m_count = nullptr;
};
