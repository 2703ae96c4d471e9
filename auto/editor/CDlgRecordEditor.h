// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/RecordSaving.h"
#include "auto/editor/EditorPage.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/frame/KWaitCursor.h"

#include <QList>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

class KTabPageButtons;
class QCheckBox;
class QDialogButtonBox;
class QHBoxLayout;
class QPushButton;

// Base of the windows in which one record of the module is written, changed or shown: a row of tabs over the record's
// pages, and below them "فعال", the window's own commands, "برگشت از بايگاني", "تاييد" and "انصراف". A derived window
// names its pages, says how the record leaves the archive, and saves by saveRecord, or by a unit that takes its decision.
class CDlgRecordEditor : public KDialog
{
    Q_OBJECT

public:
    EditorMode mode() const { return m_mode; }
    bool isShowMode() const { return m_mode == EditorMode::Show; }
    int key() const { return m_key; }
    // The record was changed meanwhile (taken out of the archive), whether or not the window was confirmed.
    bool refreshNeeded() const { return m_refresh; }

    KTabPageButtons *tabs() const { return m_tabs; }
    QPushButton *unarchiveButton() const { return m_unarchive; }
    QCheckBox *activeBox() const { return m_active; }
    // Takes the record out of the archive and closes the window as cancelled.
    void unarchive();

protected:
    CDlgRecordEditor(int key, EditorMode mode, QWidget *parent);

    // Adds a button beside "فعال", before "برگشت از بايگاني". What its action throws is shown.
    QPushButton *addCommand(const QString &caption, const std::function<void()> &work);
    int addPage(KDialogTabPage *page, const QString &title);
    void addFilesPage(CTblFileDocs::Scope scope, int recordKind, const QString &title);
    QDialogButtonBox *buttons() const { return m_buttons; }
    // Removes "تاييد" and renames the other button to "بازگشت", where a record is only shown.
    void leaveOnlyWayBack();
    // Sets "فعال" and "برگشت از بايگاني" by the record's state. closed: the database, where the caller knows; otherwise it is
    // asked.
    void showState(int status, int archiveUserID);
    void showState(int status, int archiveUserID, bool closed);
    int chosenStatus() const;

    bool OnOK() override;
    // When false, the reason has been shown.
    [[nodiscard]] virtual bool validatePages() = 0;
    // False when the record is gone, or when saving was refused and the reason shown.
    [[nodiscard]] virtual bool save() = 0;
    // The code was refused. Shows why; a window in which it can be entered goes to its field.
    virtual void refuseCode(const QString &why);
    // The record is saved for good.
    virtual void saved() { }
    // The unarchive command up to its message. False when the user may not.
    [[nodiscard]] virtual bool takeOutOfArchive() = 0;

    template <class Record>
    [[nodiscard]] bool loadRecord(Record &record) const
    {
        return record.IsRecordExist(u"iID"_s, m_key);
    }

    template <class Record>
    [[nodiscard]] static bool validateInOrder(const QList<EditorPage<Record> *> &pages)
    {
        return std::ranges::all_of(pages, [](EditorPage<Record> *page) { return page->validate(); });
    }

    // Asks once about all that is doubtful on the pages. When false, the user went back, to the first of it.
    template <class Record>
    [[nodiscard]] bool confirmDoubts(const QList<EditorPage<Record> *> &pages)
    {
        return confirmDoubtsOf({pages.cbegin(), pages.cend()});
    }

    // What the user has decided in the window: the state, and the columns of the pages.
    template <class Record>
    [[nodiscard]] RecordSaving::Decision<Record> decision(const QList<EditorPage<Record> *> &pages) const
    {
        return {m_key, chosenStatus(), [pages](Record &record) {
                    for (EditorPage<Record> *page : pages)
                        page->write(record);
                }};
    }

    // Saves a record that has no dependent data. False when it is gone.
    template <class Record>
    [[nodiscard]] bool saveRecord(const QList<EditorPage<Record> *> &pages) const
    {
        const KWaitCursor wait;
        return RecordSaving::save(decision(pages));
    }

private:
    void buildFrame();
    bool confirmDoubtsOf(const QList<EditorTabPage *> &pages);

    int m_key;
    EditorMode m_mode;
    bool m_refresh = false;
    KTabPageButtons *m_tabs = nullptr;
    QHBoxLayout *m_commands = nullptr;
    QCheckBox *m_active = nullptr;
    QDialogButtonBox *m_buttons = nullptr;
    QPushButton *m_unarchive = nullptr;
    QWidget *m_lastCommand = nullptr;
};
