// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/register/editor/CDlgAddAutomobilInformation.h"
#include "auto/cars/register/editor/CDlgAddAutomobilInformationBase.h"
#include "auto/cars/register/editor/CDlgAddAutomobilInformationSales.h"
#include "auto/cars/fields/PersonGroup.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KTabPageButtons.h"
#include "tests/office/TestOffice.h"
#include "tests/support/NamedWidget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// An office with a car that has an owner, and the editor over it.
class CarEditorOffice : public TestOffice
{
public:
    using Car = CTblAutomobilInformations;
    using Dialog = CDlgAddAutomobilInformation;

    void begin()
    {
        clear();
        owner = addPerson(u"سارا"_s, u"کریمی"_s, [](CTblPersons &person) {
            person.m_sNationalCode = u"0012345679"_s;
            person.m_sTel = u"02188776655"_s;
            person.m_sMobile = u"09121234567"_s;
        });
        buyer = addPerson(u"رضا"_s, u"احمدی"_s);
        peugeot = addBrand(u"پژو"_s);
        saipa = addBrand(u"سایپا"_s);
        model206 = addModel(peugeot, u"206"_s);
        modelPars = addModel(peugeot, u"پارس"_s);
        pride = addModel(saipa, u"پراید"_s);
        type2 = addClass(model206, u"تیپ 2"_s);
        type5 = addClass(model206, u"تیپ 5"_s);
    }

    int addOwnedCar(const std::function<void(Car &)> &set = {})
    {
        return addCar([&](Car &car) {
            car.m_iPersonID = owner;
            if (set)
                set(car);
        });
    }

    static Car &load(Car &car, int key)
    {
        if (!car.IsRecordExist(u"iID"_s, key))
            qFatal("the car is gone");
        return car;
    }

    static std::unique_ptr<Dialog> opened(int key, EditorMode mode = EditorMode::Edit)
    {
        auto dialog = std::make_unique<Dialog>(key, mode);
        if (!dialog->load())
            return nullptr;
        dialog->show();
        return dialog;
    }

    // The car as it is stored once the window is confirmed.
    static Car &saved(Dialog &dialog, Car &car)
    {
        dialog.accept();
        if (dialog.isVisible())
            qFatal("not saved: %s", qPrintable(g_pDlgWarning->takeShown().join(u'|')));
        return load(car, dialog.key());
    }

    static QStringList entries(const QComboBox *combo)
    {
        QStringList texts;
        for (int i = 0; i < combo->count(); ++i)
            texts << combo->itemText(i);
        return texts;
    }

    int owner = 0;
    int buyer = 0;
    int peugeot = 0;
    int saipa = 0;
    int model206 = 0;
    int modelPars = 0;
    int pride = 0;
    int type2 = 0;
    int type5 = 0;
};

// The rows of car_labels.tsv of a page: column and label.
inline QList<QPair<QString, QString>> carLabels(const QString &page)
{
    QFile file(u"" TZ_TEST_SOURCE "/car_labels.tsv"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("the labels could not be read");
    QList<QPair<QString, QString>> labels;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        const QStringList cells = line.split(u'\t');
        if (cells.size() == 3 && cells.at(0) == page)
            labels.append({cells.at(1), cells.at(2).sliced(1, cells.at(2).size() - 2)});
    }
    return labels;
}

// Checks that every field's label is exactly the table's, and that the texts without a field are on the page.
inline void compareLabels(const QString &page, KForm &form, const QWidget &widget)
{
    QStringList texts;
    for (const QLabel *label : widget.findChildren<QLabel *>())
        texts << label->text();
    for (const QGroupBox *box : widget.findChildren<QGroupBox *>())
        texts << box->title();
    int compared = 0;
    for (const auto &[column, label] : carLabels(page)) {
        const auto field = std::find_if(form.fields().cbegin(), form.fields().cend(),
                                        [&name = column](const KFormField &candidate) { return candidate.column == name; });
        if (field != form.fields().cend()) {
            QCOMPARE(field->label, label);
            QVERIFY2(form.control(column)->accessibleName().startsWith(label), qPrintable(column));
            ++compared;
        } else {
            QVERIFY2(texts.contains(label), qPrintable(label));
        }
    }
    // No field is on the page that is not in the table.
    QCOMPARE(compared, form.fields().size());
}
