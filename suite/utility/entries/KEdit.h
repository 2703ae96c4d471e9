// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLineEdit>
#include <QString>

#include "suite/utility/TzUtilityExport.h"

// The suite's entry line.
//
// The number kinds read left to right inside a box aligned right, take Persian, Arabic and ASCII digits, drop what
// cannot belong to a number, and show an amount grouped by three while it is typed. A point, / or ٫ begins the decimals;
// those beyond the allowed ones are refused, and the line is marked with a hint until it is edited or left. What is out of
// range stays as typed and is marked; entryError says why. A number without room for its digits is shown as CutNumber::mark while
// the line does not have the focus, and whole in the tip. So is a text that can only be read.
//
// A code (a plate, a chassis number) reads left to right too, its Persian letters among the rest: "12 ب 345 ایران 67" stands
// as it does on the car.
class TZUTILITY_EXPORT KEdit : public QLineEdit
{
    Q_OBJECT

public:
    enum class Kind {
        Text,    // free text; setMaxLength limits it
        Money,   // 0 and above unless setRange says otherwise, in the decimals of the office's money unit
        Percent, // 0 to 100, at most four decimals
        Integer, // whole number, 0 and above unless setRange says otherwise
        Code     // read left to right; take it by plainText and limit it by setCodeLength
    };

    explicit KEdit(QWidget *parent = nullptr);
    explicit KEdit(Kind kind, QWidget *parent = nullptr);

    Kind kind() const { return m_kind; }
    // Also sets the kind's own range and decimals. Empties the line of a number kind.
    void setKind(Kind kind);

    double minimum() const { return m_minimum; }
    double maximum() const { return m_maximum; }
    void setRange(double minimum, double maximum);
    // Decimals that may be typed; -1 (Money at start) follows the office's money unit.
    void setDecimals(int decimals);

    // What was entered, 0 for an empty line, brought into the range whatever the line shows. A number that was set
    // comes back exactly as it was set, though shown rounded, until the line is edited.
    double number() const;
    int integer() const;
    // Shows the number; not an edit, so numberEdited is not emitted.
    void setNumber(double number);

    // The text as it is stored: a code's line holds marks that only order what is seen.
    QString plainText() const;
    // Characters that a code may have; 0, as at the start: any number.
    void setCodeLength(int length);

    // False while the line shows a number out of range.
    bool isEntryValid() const { return m_error.isEmpty(); }
    // Why the entry is refused, in words for the user; empty when it is not.
    QString entryError() const { return m_error; }

    // Marks the line with something to consider, which does not make the entry invalid. The next edit of the line, or an
    // empty hint, takes it back.
    void setHint(const QString &hint);
    // What the line is marked with: the error, or else a hint; empty for an unmarked line.
    QString notice() const;

Q_SIGNALS:
    // The number changed in any way but setNumber: typing, pasting, setText, a screen reader.
    void numberEdited(double number);
    // The number changed, by setNumber too. Comes before numberEdited.
    void numberChanged(double number);

protected:
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool isNumberKind() const;
    bool isLongerThanRoom() const;
    bool isCut() const;
    void paintCut();
    void paintElided();
    QRect textRoom() const;
    bool readsLeftToRight() const { return isNumberKind() || m_kind == Kind::Code; }
    void alignText();
    int decimals() const;
    QString displayText(double number) const;
    void takeText(const QString &text);
    void takeCode();
    void takeFont();
    void normalize();
    void showText(const QString &text, int caret);
    void checkRange(double entered);
    void setRefusal(bool refused);
    void tellNotice();
    bool refusesKey(const QKeyEvent *event);
    void stepOverInserted(int key);
    static void takeMarksOffClipboard(const QString &copied);

    Kind m_kind = Kind::Text;
    double m_minimum = 0;
    double m_maximum = 0;
    int m_decimals = -1;
    int m_codeLength = 0;
    double m_number = 0;
    QString m_error;
    QString m_refusal; // why decimals that were just entered are missing
    QString m_hint;
    QString m_told;              // the notice that the line is marked with
    bool m_pointRefused = false; // so are the digits that follow it
    bool m_isLatinCode = false;  // and drawn in the font for it
    bool m_showing = false;
    bool m_selectOnRelease = false;
};
