// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMExport.h"

#include <QString>
#include <QWidget>

class KEdit;
class QPushButton;

// A field that holds one person: the name, a button that opens the picker, a button that empties the field.
// The label that names the field on a form is the form's own; here it sets the accessible names "<label>", "<label> ..."
// and "<label> حذف". From the name F4, Alt+Down or the space bar open the picker, Delete empties the field.
class TZCRM_EXPORT KPersonField : public QWidget
{
    Q_OBJECT

public:
    explicit KPersonField(const QString &label, QWidget *parent = nullptr);
    // With another caption on the clear button than "حذف"; its accessible name stays.
    KPersonField(const QString &label, const QString &clearCaption, QWidget *parent = nullptr);

    // 0 when nobody is picked.
    int personID() const { return m_personID; }
    // Shows the person's name; when the person is gone, the name passed instead. Not a user's act: changed is not emitted.
    void setPersonID(int id, const QString &nameIfGone = {});
    // The same with the name as passed, where the person has been read; 0 shows a name that belongs to nobody in the list.
    void setPerson(int id, const QString &name);
    // Nobody and no name; changed is not emitted.
    void clear();

    // The shown name; typed by hand when the name is editable.
    QString name() const;
    // Shows a name that belongs to nobody in the list of persons.
    void setName(const QString &name);
    // Whether the name can be typed; initially it cannot.
    void setNameEditable(bool editable);
    // Whether a person can be picked and cleared; initially it can.
    void setPickEnabled(bool enabled);
    // Hides both buttons, as for a form that is only shown.
    void setButtonsVisible(bool visible);
    // The line of the name, as buddy of the form's label and to limit what is typed.
    KEdit *nameEdit() const { return m_name; }

public Q_SLOTS:
    // Opens the picker, as the button does.
    void pick();

Q_SIGNALS:
    // The user picked a person, or cleared the field (0).
    void changed(int personID);
    void nameEdited(const QString &name);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void clearByUser();
    void enableButtons();

    KEdit *m_name;
    QPushButton *m_pickButton;
    QPushButton *m_clearButton;
    int m_personID = 0;
    bool m_pickEnabled = true;
};
