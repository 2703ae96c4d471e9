// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QWidget>

class KEdit;
class QToolButton;

// Two arrows behind the line of a whole number, one above the other, that step it by one within its range; while the line
// has the focus the keys Up and Down do. Tab does not stop at them: the keys serve instead.
class TZUTILITY_EXPORT KStepArrows : public QWidget
{
    Q_OBJECT

public:
    KStepArrows(KEdit *edit, QWidget *parent);

    // The value that the first step from an empty line or 0 sets, in place of counting up from there.
    void setStart(int start) { m_start = start; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QToolButton *makeArrow(Qt::ArrowType arrow, const QString &name, int by);
    void step(int by);

    KEdit *m_edit;
    int m_start = 0;
};
