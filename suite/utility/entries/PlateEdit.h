// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"
#include "suite/utility/entries/KEdit.h"

// The line of a number plate: two digits, letter, three digits, "ایران", two digits. Whoever types goes from part to part without a further
// key; a plate that is pasted in any spelling is understood. A text of another form (a free zone, a
// motorcycle) stays as it is typed.
class TZUTILITY_EXPORT PlateEdit : public KEdit
{
    Q_OBJECT

public:
    explicit PlateEdit(QWidget *parent = nullptr);

    // What is stored is shown as it was stored.
    void load(const QString &stored);
    // The one spelling of a plate; what was loaded, where nobody has changed it.
    QString storedText() const;

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void goOn();
    void takeSpelling();

    QString m_loaded;
    qsizetype m_length = 0; // of the code before the last key
};
