// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"
#include "suite/utility/forms/KFormField.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <initializer_list>
#include <memory>
#include <optional>
#include <vector>

class FieldCompanions;
class FormControl;
class FormGrid;
class KDateEdit;
class KEdit;
class KMySQL;
class KStepArrows;
class KTextArea;
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QWidget;

// A page of an editor as a table: builds the controls of its fields with label and buddy, loads them from a record, stores
// them into it, sets show mode, and finds the first entry that cannot be stored. The page places them and wires its rules.
class TZUTILITY_EXPORT KForm : public QObject
{
    Q_OBJECT

public:
    struct Problem
    {
        QWidget *widget = nullptr; // the control to go to
        QString message;           // for the user
    };

    // The record supplies the columns' lengths; it is not kept. The controls become children of the page.
    KForm(QList<KFormField> fields, KMySQL &record, QWidget *page);
    ~KForm() override;

    const QList<KFormField> &fields() const { return m_fields; }

    // The control of a column; asking for one of another kind is an error of the program and asserts.
    QWidget *control(const QString &column) const;
    KEdit *edit(const QString &column) const;
    KDateEdit *dateEdit(const QString &column) const;
    QComboBox *comboBox(const QString &column) const;
    QCheckBox *checkBox(const QString &column) const;
    KTextArea *longText(const QString &column) const;
    QLabel *label(const QString &column) const;
    // Its "..." and its arrows; null for a field without them.
    QPushButton *button(const QString &column) const;
    KStepArrows *arrows(const QString &column) const;

    // A field of a line: its column, how many columns of the grid it takes, and for an amount in words how many the words take
    // behind it; 0: they stand beside its label.
    struct Cell
    {
        const char *column;
        int span = 1;
        int wordsSpan = 0;
    };
    // Adds the field to the form grid: its label above the control, and beside the label its hint or error.
    void place(FormGrid *grid, const QString &column, int span = 1, int wordsSpan = 0);
    void place(FormGrid *grid, std::initializer_list<Cell> cells);

    // Takes a field off the page for now, or puts it back: off the page it is not shown, not checked by firstInvalid and
    // not written by store, so that the record keeps what it holds. load fills it all the same.
    void setUsed(const QString &column, bool used);
    bool isUsed(const QString &column) const;
    // A label other than the table's, until it is set again; an empty one restores the table's.
    void setLabel(const QString &column, const QString &label);
    // Sets what an EditableChoice offers from now on; its text stays.
    void setChoices(const QString &column, const QStringList &choices);
    // The key selected in a Lookup. One that the drop-down does not offer, such as that of a deleted value, gets an entry of
    // its own, so that saving keeps it.
    int key(const QString &column) const;
    void setKey(const QString &column, int key);

    // Texts that a Text or LongText offers while a part of one is typed.
    void setCompletions(const QString &column, const QStringList &texts);

    void load(KMySQL &record);
    // Writes every control that is in use back into its member, those not displayed as well; not those of fields that are only
    // shown (KFormField::readOnly).
    void store(KMySQL &record) const;
    // Read-only controls throughout, or as the fields say.
    void setShowMode(bool show);
    bool isShowMode() const { return m_showMode; }
    // One field's own switch within edit mode; in show mode the field stays read-only in any case.
    void setReadOnly(const QString &column, bool readOnly);

    std::optional<Problem> firstInvalid() const;

private:
    struct Item
    {
        KFormField field;
        std::unique_ptr<FormControl> control;
        QLabel *label = nullptr;
        std::unique_ptr<FieldCompanions> companions;
        bool readOnly = false;
        bool used = true;
        bool basicPlaneOnly = false; // the column holds no emoji
    };

    Item makeItem(const KFormField &field, KMySQL &record, QWidget *page);
    const Item &item(const QString &column) const;
    Item &item(const QString &column);
    static QString errorOf(const Item &item);
    void applyReadOnly(const Item &item) const;
    void applyDisplayed(const Item &item) const;
    static bool isShown(const Item &item) { return item.used && item.field.displayed; }
    bool isReadOnly(const Item &item) const { return m_showMode || item.readOnly; }

    QList<KFormField> m_fields;
    std::vector<Item> m_items;
    QHash<QString, std::size_t> m_positions;
    bool m_showMode = false;
};
