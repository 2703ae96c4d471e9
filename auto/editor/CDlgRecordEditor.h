// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/RecordArchiving.h"
#include "auto/db/RecordSaving.h"
#include "auto/editor/EditorPage.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/frame/KWaitCursor.h"

#include <QList>

#include <algorithm>
#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

class KChip;
class KTabPageButtons;
class QCheckBox;
class QDialogButtonBox;
class QHBoxLayout;
class QPushButton;

// Base of the windows in which one record of the module is written, changed or shown: a row of tabs over the record's
// pages, and below them "فعال", the window's own commands, "برگشت از بايگاني", "تاييد" and "انصراف". A derived window
// names its pages, says how the record leaves the archive, and saves by saveRecord, or by a unit that takes its decision.
//
// The window remembers the row as it opened it. What somebody else changed since then stays, unless the user changed it too: then
// the user is asked, field by field. A row that is gone can be saved as a new one, which the window then is about.
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
    // Thrown by save: the user was asked something and goes back to the window. Nothing is told.
    struct GoneBack
    {
    };

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
    void typedWorkChanged(bool typed) override;
    // When false, the reason has been shown.
    [[nodiscard]] virtual bool validatePages() = 0;
    // Throws RowChanged where the row is no longer as it was read and the user has to decide, GoneBack where he has decided so.
    virtual void save() = 0;
    // Saves what the window holds as a new row, and returns its key.
    [[nodiscard]] virtual int saveAsNew() = 0;
    // What the record is called in the question about that: "قرارداد".
    virtual QString recordName() const = 0;
    // The form whose right to write that needs.
    virtual QString rightsForm() const = 0;
    // For the names under which further values are saved with the row (OpenedRow::Further): the label, a value as the user knows it,
    // and the way to the control. Here, of the pages' columns.
    virtual QString captionOf(const QString &column) const;
    virtual std::optional<QString> textOf(const QString &column, const QVariant &value) const;
    virtual void goToField(const QString &column);
    // The code was refused. Shows why; a window in which it can be entered goes to its field.
    virtual void refuseCode(const QString &why);
    // The record is saved for good.
    virtual void saved() { }
    // The unarchive command up to its message. False when the user may not. Throws RowChanged when another desk deleted the record
    // or took it out before.
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
        return {m_key, chosenStatus(),
                [pages](Record &record) {
                    for (EditorPage<Record> *page : pages)
                        page->write(record);
                },
                m_opened,
                [pages](Record &record) {
                    for (EditorPage<Record> *page : pages)
                        page->follow(record);
                }};
    }

    // Keeps the loaded record as the window opened it; to be called once the pages show it. What a new record's pages begin with
    // is the user's entry.
    template <class Record>
    void remember(Record &record, const QList<EditorPage<Record> *> &pages)
    {
        const RecordSaving::Decision<Record> asFilled = decision(pages);
        const bool isNew = m_mode == EditorMode::New;
        m_opened = OpenedRow(record, Record::fieldGroups(), [&] {
            if (!isNew)
                RecordSaving::takeDecision(record, asFilled);
        });
        m_pages = {pages.cbegin(), pages.cend()};
        m_columns = std::make_unique<Record>();
        offerHistory();
    }

    // Saves a record that has no dependent data, over the stored row or as a new one.
    template <class Record>
    void saveRecord(const QList<EditorPage<Record> *> &pages, const RecordSaving::Parts<Record> &parts = {}) const
    {
        const KWaitCursor wait;
        RecordSaving::save(decision(pages), parts);
    }
    template <class Record>
    [[nodiscard]] int addRecord(const QList<EditorPage<Record> *> &pages, const RecordSaving::Parts<Record> &parts = {}) const
    {
        const KWaitCursor wait;
        return RecordSaving::saveAsNew(decision(pages), parts);
    }
    const OpenedRow &opened() const { return m_opened; }

private:
    bool saveOrAsk();
    bool takeAnswer(const RowChanged &conflict);
    bool saveInPlaceOf(const RowChanged &gone);
    void buildFrame();
    // Of a record that has been saved.
    void offerHistory();
    bool confirmDoubtsOf(const QList<EditorTabPage *> &pages);

    int m_key;
    EditorMode m_mode;
    bool m_refresh = false;
    bool m_saving = false;
    bool m_saved = false;
    OpenedRow m_opened;
    QList<EditorTabPage *> m_pages;
    std::unique_ptr<KMySQL> m_columns; // an object of the record's class, for captions and the names behind keys
    KTabPageButtons *m_tabs = nullptr;
    QHBoxLayout *m_commands = nullptr;
    QCheckBox *m_active = nullptr;
    KChip *m_unsaved = nullptr;
    QDialogButtonBox *m_buttons = nullptr;
    QPushButton *m_unarchive = nullptr;
    QWidget *m_lastCommand = nullptr;
};
