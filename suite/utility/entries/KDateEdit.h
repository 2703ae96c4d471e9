// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QLineEdit>

#include "suite/utility/TzUtilityExport.h"

class QAbstractButton;
class QCheckBox;

class KMonthPopup;

// Entry line for a Shamsi date, shown as 1405/08/29. Typed in every form that parseShamsi reads; Up and Down step the
// day, PageUp and PageDown the month, with Shift the year; F4, Alt+Down or the button opens the month.
//
// With a check box the date counts only while the box is checked. Entering a date checks it.
class TZUTILITY_EXPORT KDateEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit KDateEdit(QWidget *parent = nullptr);

    // A check box of the field's own; it starts unchecked.
    void setCheckable(bool checkable);
    bool isCheckable() const;
    // Always true without a check box.
    bool isChecked() const;
    // Checking an empty field puts today into it.
    void setChecked(bool checked);

    // Wall clock in Qt::UTC; invalid when the line is empty or holds no date, whether checked or not. What was set
    // comes back with its time of day until the date is edited; an edited date is at midnight.
    QDateTime dateTime() const;
    QDate date() const { return m_dateTime.date(); }
    // An invalid value empties the line. Not an edit, and leaves the check box alone.
    void setDateTime(const QDateTime &dateTime);
    void setDate(const QDate &date);

    // False while the line shows something that is no date. An empty line is valid.
    bool isEntryValid() const;
    // Why the entry is refused, in words for the user; empty when it is not.
    QString entryError() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    void showPopup();

Q_SIGNALS:
    // The date changed in any way but setDateTime and setDate: typing, keys, popup, setText, a screen reader.
    void dateEdited(const QDateTime &dateTime);
    // The date changed in any way.
    void dateTimeChanged(const QDateTime &dateTime);
    void checkedChanged(bool checked);

protected:
    void changeEvent(QEvent *event) override;
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void takeText(const QString &text);
    void enterDate(const QDate &date);
    void showText(const QString &text);
    void setState(const QDateTime &dateTime, bool isEdit);
    bool stepByKey(const QKeyEvent *event);
    void onCheckToggled(bool checked);
    void normalize();
    void nameChildren();
    void placeChildren();
    void updateLook();

    QAbstractButton *m_button;
    QCheckBox *m_check = nullptr;
    KMonthPopup *m_popup = nullptr;
    QDateTime m_dateTime;
    QString m_shownError;
    bool m_showing = false;
    bool m_typing = false;
    bool m_unfinished = false;
    bool m_updatingLook = false;
};
