// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// What is to be said of a template before an office relies on it: a rule over the file's bytes, for one type of contract.
struct TemplateCheck
{
    QString refusal;      // why it cannot be used at all, in English, for the log; empty: it can
    QStringList unknown;  // fields that nothing fills: they would stand in every printed contract as they are
    QStringList missing;  // stated fields, shown by the type, that the template does not hold: what is entered there is not printed
    QStringList hidden;   // fields whose entry the type does not show, outside of a part that is left out then
    QStringList unpaired; // marks of a part without their other half: nothing is left out by them

    bool isUsable() const { return refusal.isEmpty(); }
    // Nothing to be said. A stated field may be missing on purpose, so that alone is no fault.
    bool isClean() const { return isUsable() && unknown.isEmpty() && hidden.isEmpty() && unpaired.isEmpty(); }

    // contractType: 0 sale, 1 rent, 2 instalment sale, 3 letter. Names of fields in the order of the template, or of the batches; each once.
    static TemplateCheck of(const QByteArray &file, int contractType);
    // Every field that a contract fills, also the ones that come by rows or as pictures.
    static QStringList knownFields();
};
