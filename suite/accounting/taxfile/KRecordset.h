// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>
#include <QVector>

#include <optional>
#include <variant>

class KAccessDatabase;

// Records of one table of an Access file, written in the order of the calls. A derived class binds its members to the values
// of the mapping; the mapping says which table and fields these are. A value without a field in the mapping is not written.
//
// Every function may throw KAccountingError, see KAccessDatabase.
class TZACCOUNTINGDATA_EXPORT KRecordset
{
public:
    virtual ~KRecordset();
    KRecordset(const KRecordset &) = delete;
    KRecordset &operator=(const KRecordset &) = delete;

    // The file that the records go into: that of the database, or one that Open then opens the database on.
    void SetFilePath(const QString &path);
    // Refuses a database that is open on another file.
    void Open();
    bool IsOpen() const { return m_isOpen; }
    void Close();

    void DeleteAllRecords();
    // Starts a new record: every member is without a value (NULL in the file) until it is set. Update saves it.
    void AddNew();
    // Starts a change of the table's first record, or a new one when the table has none: members without a value leave
    // the record's field as it is. Update saves it.
    void Edit();
    // Saves what AddNew or Edit began. Without either it does nothing.
    void Update();

protected:
    // The role is the table's in the mapping.
    KRecordset(KAccessDatabase *database, const QString &role);

    using Text = std::optional<QString>;
    using Number = std::optional<int>;
    using Flag = std::optional<bool>;
    using Member = std::variant<Text *, Number *, Flag *>;
    // In the constructor of the derived class: the mapping's word for the value, and the member that holds it.
    void bind(const char16_t *value, Member member);

private:
    enum class Pending {
        Nothing,
        Added,
        Changed
    };
    struct Binding
    {
        QString value;
        Member member;
    };

    void select();
    void begin(Pending pending);

    KAccessDatabase *m_database;
    QString m_role;
    QString m_path;
    QVector<Binding> m_bindings;
    QVector<int> m_written; // positions of the bindings that have a field, in the mapping's order
    Pending m_pending = Pending::Nothing;
    bool m_isOpen = false;
};
