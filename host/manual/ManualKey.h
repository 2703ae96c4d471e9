// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <memory>

class CDlgManual;
class QWidget;

// F1 anywhere in the program: the manual's page of the window that has the focus.
class ManualKey : public QObject
{
    Q_OBJECT

public:
    ManualKey();
    ~ManualKey() override;

    // The page of that window, or of the part of it that has the focus.
    void showFor(QWidget *window);
    // A page by its name; empty: the contents.
    void showPage(const QString &page);
    void close();
    // The one window, made when it was first asked for; null before.
    CDlgManual *manual() const { return m_manual.get(); }

    // Classes by which a page is looked for, the nearest first: what has the focus and what is around it, then the pages that the
    // window holds, then the window.
    static QStringList classesOf(const QWidget *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::unique_ptr<CDlgManual> m_manual;
};
