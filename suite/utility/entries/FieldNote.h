// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"
#include "suite/utility/look/ElidedLabel.h"

// What is said beside a field's label: why its entry is refused, in danger; else a hint; else a text of its own, such as the amount
// in words. It has its room from the start, so that nothing moves when it appears.
class TZUTILITY_EXPORT FieldNote : public ElidedLabel
{
    Q_OBJECT

public:
    // Becomes the note of the control, whose errors and hints it shows from then on.
    explicit FieldNote(QWidget *control, QWidget *parent = nullptr);
    // Null for a control without one.
    static FieldNote *of(const QWidget *control);

    // What stands here while nothing is wrong.
    void setOwnText(const QString &text);
    void showHint(const QString &hint);
    void showError(const QString &error);

private:
    void tell();

    QString m_own;
    QString m_hint;
    QString m_error;
};
