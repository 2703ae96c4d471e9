// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QGroupBox>
#include <QHash>

class KEdit;
class QLabel;
class QPushButton;

// One person of the suite on an editor's page, a card of its own: the code with the picker beside it, and the data from the list
// of persons. From the code F4, Alt+Down or the space bar open the picker too, and Delete empties the group.
class PersonGroup final : public QGroupBox
{
    Q_OBJECT

public:
    enum Option {
        Clearable = 1, // a second "..." button empties the group
        WithFather = 2,
        WithNationalCode = 4, // and a hint when it looks wrong
        BesideAnother = 8     // a card that may stand beside another one
    };

    // ofWhom is appended to the labels in the accessible names, where a window has two such groups.
    PersonGroup(const QString &title, int options, QWidget *parent = nullptr, const QString &ofWhom = {});

    // 0 when nobody is chosen.
    int personID() const { return m_personID; }
    // Empty when nobody is chosen, and for a person who is gone.
    QString name() const;
    // Not a user action: changed is not emitted. The key of a person who is gone stays, though nothing is shown of it, and
    // only another choice replaces it.
    void setPersonID(int personID);
    // Read-only: the buttons are hidden.
    void setReadOnly(bool readOnly);
    KEdit *codeEdit() const { return m_code; }
    // Null where the group shows none.
    KEdit *nationalCodeEdit() const { return m_nationalCode; }

public Q_SLOTS:
    // Opens the picker, as the button does.
    void pick();

Q_SIGNALS:
    // The user chose a person, or emptied the group (0).
    void changed(int personID);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    KEdit *addLine(const QString &label);
    QPushButton *addButton(const QString &accessibleName, const QString &toolTip);
    void place(int options);
    void clearByUser();

    QString m_ofWhom;
    QHash<const KEdit *, QLabel *> m_labels;
    KEdit *m_code;
    QPushButton *m_pick;
    QPushButton *m_clear = nullptr;
    KEdit *m_name;
    KEdit *m_father = nullptr;
    KEdit *m_telephone;
    KEdit *m_mobile;
    KEdit *m_nationalCode = nullptr;
    int m_personID = 0;
    bool m_readOnly = false;
};
