// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/twins/Twins.h"

#include <QObject>

#include <functional>

class KEdit;

// Says beside an entry line, once it is left, that another record says the same. A click on the note, or Ctrl+T in the line, leads there. Nothing
// is refused, and while somebody types nothing is looked up.
class TZACCOUNTING_EXPORT TwinNote : public QObject
{
    Q_OBJECT

public:
    using Find = std::function<std::optional<Twin>(const QString &text)>;
    using Take = std::function<void(const Twin &twin)>;

    // The note of the line is its FieldNote. otherHint: what the note says while there is no twin; empty: nothing. take: what the click does;
    // empty: the record's window opens.
    TwinNote(KEdit *edit, Find find, std::function<QString()> otherHint = {}, Take take = {});

    const std::optional<Twin> &twin() const { return m_twin; }
    // As leaving the line does.
    void look();
    // What was loaded is no news until it is changed.
    void loaded();
    // The twin of what is entered now; nothing for what was loaded.
    std::optional<Twin> found() const;
    void open();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void tell();

    KEdit *m_edit;
    Find m_find;
    std::function<QString()> m_otherHint;
    Take m_take;
    QString m_loadedText;
    std::optional<Twin> m_twin;
};
