// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/taxfile/AccessMapping.h"
#include "suite/accounting/frame/KAccountingError.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QProcess>

#include <functional>
#include <memory>

class KRecordset;

// Ends the work when the user stopped it.
class TZACCOUNTINGDATA_EXPORT KAccessCancelled : public KAccountingError
{
public:
    KAccessCancelled();
    ~KAccessCancelled() override;
};

// An Access file that is written to. The format is the work of a helper program in Java, which is started by Open, gets the
// records as lines on its standard input and ends with Close; nothing of it runs at any other time. Record sets (KRecordset)
// write through this object, which must outlive them.
//
// Every function throws KAccountingError: with the name of the package to install when there is no Java, with the name of
// the file when the helper is not there, and with what the helper said when it could not go on (KAccessValueError for a value). After any error the file is
// not whole and must be thrown away; Close or the destructor ends the helper at once.
class TZACCOUNTINGDATA_EXPORT KAccessDatabase
{
public:
    // The folder that holds the helper and the mapping: of the module.
    explicit KAccessDatabase(const QString &moduleFolder);
    ~KAccessDatabase();
    KAccessDatabase(const KAccessDatabase &) = delete;
    KAccessDatabase &operator=(const KAccessDatabase &) = delete;

    // Called about every 50 milliseconds while waiting, with the number of records written to the file so far; false
    // stops: the helper is ended and the operation under way throws KAccessCancelled.
    using Progress = std::function<bool(int written)>;
    void setProgress(Progress progress);

    // Starts the helper on an existing file.
    void Open(const QString &path);
    bool IsOpen() const;
    QString path() const { return m_path; }
    // Waits until everything is written to the file and the helper has ended successfully.
    void Close();

    // Key of the helper's process, 0 when none runs.
    qint64 helperProcess() const;
    // Of the file; read by Open.
    const AccessMapping &mapping() const { return m_mapping; }

    // The file names of the helper, the mapping and the template in the module's folder.
    static QString helperFileName();
    static QString mappingFileName();
    static QString templateFileName();

private:
    friend class KRecordset;

    // A line of the helper's input, with its line feed. What a line may say stands in the helper's own source, TaxFile.java.
    void send(const QByteArray &line);
    void drainTo(qint64 bytes);
    // Waits that long for the helper to read or to end, reads its answers, reports the progress.
    void wait(int milliseconds);
    void readAnswers();
    void stop();
    [[noreturn]] void failAsTheHelperSaid();

    QString m_folder;
    AccessMapping m_mapping;
    QString m_path;
    std::unique_ptr<QProcess> m_helper; // null: not open
    QByteArray m_outgoing;
    QByteArray m_answers;
    QByteArray m_error; // the helper's line about it, without its first word
    Progress m_progress;
    QElapsedTimer m_sinceProgress;
    const KRecordset *m_selected = nullptr; // whose table the next lines are about
    int m_saved = 0;
    int m_written = 0;
    int m_done = -1; // records that the helper counted in the end
};
