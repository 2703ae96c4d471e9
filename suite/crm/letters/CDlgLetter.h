// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/letters/Letter.h"
#include "suite/crm/TzCRMExport.h"
#include "suite/utility/frame/KDialog.h"

#include <functional>

class CDlgPaper;
class KDateEdit;
class KEdit;
class KTextArea;
class QLabel;

// "نامه": a business letter to one person, or the same one to several, each on a sheet of its own.
class TZCRM_EXPORT CDlgLetter : public KDialog
{
    Q_OBJECT

public:
    // Reads those of the persons who are still there, in that order.
    using Read = std::function<QList<LetterRecipient>(const QList<qint32> &persons)>;

    CDlgLetter(const QList<qint32> &persons, Read read, QWidget *parent = nullptr);
    ~CDlgLetter() override;

    // Asks the right to read persons, and to print them; says so where none of them is there.
    static void write(const QList<qint32> &persons, const Read &read, QWidget *parent);

    Letter letter() const;
    // Takes the words of another letter; what was typed is asked about.
    void takeWords(const Letter &other);

protected:
    // Shows the paper; the window stays.
    bool OnOK() override;

private:
    void build();
    void chooseEarlier();
    bool isEntryGood();
    bool refuse(const QString &why, QWidget *field);
    // The recipients as they are now; false: the user goes back.
    bool readRecipients();
    void showRecipients();
    void offerFiling(CDlgPaper &paper);

    const Read m_read;
    QList<LetterRecipient> m_recipients;
    Letter m_filedWords; // what the mark stands for
    QString m_mark;
    QLabel *m_to;
    KDateEdit *m_date;
    KEdit *m_number;
    KEdit *m_subject;
    KTextArea *m_body;
};
