// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/importing/CTblImportMappings.h"
#include "suite/accounting/importing/ImportMapping.h"

#include <QWidget>

class KEdit;
class QComboBox;
class QLabel;
class QPushButton;

// The second step: which column of the file fills which field. What was chosen can be kept under a name.
class TZACCOUNTING_EXPORT ImportColumnsPage : public QWidget
{
    Q_OBJECT

public:
    explicit ImportColumnsPage(const QList<ImportField> &fields, QWidget *parent = nullptr);

    // Matches the columns by their titles anew, or by the kept ones that fit them all.
    void showSheet(const Sheet &sheet, int titleRow, const QList<CTblImportMappings::Entry> &kept);
    void showKept(const QList<CTblImportMappings::Entry> &kept, const QString &current);

    ImportMapping::Columns columns() const;
    QString keepName() const;
    QString mapping() const { return ImportMapping::toText(columns(), m_titles); }
    QComboBox *choice(const QString &key) const { return m_choices.value(key); }
    // The first field that needs a column and has none; null: none.
    const ImportField *missing() const;
    KEdit *keepEdit() const { return m_name; }

Q_SIGNALS:
    void keepWanted();
    void dropWanted(const CTblImportMappings::Entry &entry);

private:
    void build();
    void choose(const ImportMapping::Columns &columns);
    void chosen(const QString &key);
    void tell();
    void keptChosen();

    QList<ImportField> m_fields;
    QStringList m_titles;
    QStringList m_examples; // by column: what its first row holds
    QList<CTblImportMappings::Entry> m_entries;
    QHash<QString, QComboBox *> m_choices;
    QComboBox *m_kept;
    KEdit *m_name;
    QPushButton *m_keep = nullptr;
    QPushButton *m_drop = nullptr;
    QLabel *m_unused;
    bool m_filling = false;
};
