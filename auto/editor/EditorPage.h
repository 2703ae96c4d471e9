// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/frame/KDialogTabPage.h"
#include "suite/utility/forms/KForm.h"

#include <QHash>

enum class EditorMode {
    New,
    Edit,
    Show
};

// What the pages of every editor share: the mode, and the way errors are shown.
class EditorTabPage : public KDialogTabPage
{
    Q_OBJECT

public:
    EditorTabPage(EditorMode mode, const QString &title, QWidget *parent);

    EditorMode mode() const { return m_mode; }
    bool isShowMode() const { return m_mode == EditorMode::Show; }

    // Brings the page to the front and focuses the field.
    void goTo(QWidget *field);
    // Brings the page to the front, shows the message, focuses the field and returns false.
    bool refuse(const QString &message, QWidget *field);
    // The same for an entry of the form; the message begins with the field's name.
    bool refuseEntry(const KForm::Problem &problem);
    // The form of the page; null for a page without one.
    virtual KForm *form() const { return nullptr; }
    // What the page calls the columns that it writes besides those of its form, and the control to go to for each.
    struct Entry
    {
        QString caption;
        QWidget *control = nullptr;
    };
    virtual QHash<QString, Entry> furtherEntries() const { return {}; }
    // The control of a column of the page, and what it is called; null and empty for a column of another page.
    Entry entryOf(const QString &column) const;

    // Entries that may be as they are and are yet hardly meant, each as a sentence; they are asked about once, before saving.
    virtual QList<KForm::Problem> doubts() const { return {}; }

private:
    EditorMode m_mode;
};

// What an editor requires of each of its own pages.
template <class Record>
class EditorPage : public EditorTabPage
{
public:
    using EditorTabPage::EditorTabPage;

    // Shows the loaded record.
    virtual void fill(Record &record) = 0;
    // When false, the page has shown what is wrong and focused the field.
    [[nodiscard]] virtual bool validate() = 0;
    // Sets the page's own columns of a record that is open for editing, inside the transaction that saves it; may run again
    // when that is replayed. What it throws ends the save, and nothing of it is kept.
    virtual void write(Record &record) = 0;
    // Sets the columns that follow from others. The record holds what is going to be saved, which is not all as it stands on the
    // page where somebody else changed it meanwhile.
    virtual void follow(Record &) { }
};
