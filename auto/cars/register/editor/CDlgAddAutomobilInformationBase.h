// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/register/editor/CarEditorPage.h"
#include "auto/cars/matching/DemandMatch.h"

class ArchiveLine;
class CatalogFields;
class ItemFields;
class KStaticImage;
class PersonGroup;
class PictureStrip;
class PlateKindBox;
class PlatePicture;
class TwinNote;

// First page of the car editor: the owner, the vehicle with its numbers, insurance, equipment and papers, and its picture.
class CDlgAddAutomobilInformationBase final : public CarEditorPage
{
    Q_OBJECT

public:
    explicit CDlgAddAutomobilInformationBase(EditorMode mode, QWidget *parent = nullptr);
    ~CDlgAddAutomobilInformationBase() override;

    // That it will offer its choices, and be filled with that car (KReadAhead).
    static void expectChoices();
    static void expectFill(const CTblAutomobilInformations &car);
    void fill(CTblAutomobilInformations &car) override;
    // A car has an owner. Without one the picker of persons opens after the warning.
    [[nodiscard]] bool validate() override;
    void write(CTblAutomobilInformations &car) override;
    QList<KForm::Problem> doubts() const override;
    QHash<QString, Entry> furtherEntries() const override;

    // The car as it stands on the page, saved or not.
    OfferedCar offered() const;
    int code() const;

    KForm *form() const override { return m_form; }
    PersonGroup *owner() const { return m_owner; }
    KStaticImage *picture() const { return m_picture; }
    PictureStrip *furtherPictures() const { return m_furtherPictures; }
    PlatePicture *plate() const { return m_plate; }
    PlateKindBox *plateKind() const { return m_plateKind; }
    // The hint beside a VIN that looks wrong; empty otherwise.
    QString vinHint() const;

Q_SIGNALS:
    // The plate as it stands on the page is another, typed or loaded.
    void plateChanged(const QString &plate);

private:
    void build();
    QWidget *buildIdentity(QWidget *content);
    QWidget *buildPicture(QWidget *content);
    QWidget *buildVehicle(QWidget *content);
    QWidget *buildNumbers(QWidget *content);
    QWidget *buildEquipment(QWidget *content);
    void wireItems();
    void wireTwins();
    bool validateTwins();
    void showPlate();

    KForm *m_form = nullptr;
    PersonGroup *m_owner = nullptr;
    KStaticImage *m_picture = nullptr;
    PictureStrip *m_furtherPictures = nullptr;
    CatalogFields *m_catalog = nullptr;
    ItemFields *m_items = nullptr;
    ArchiveLine *m_archiveLine = nullptr;
    PlatePicture *m_plate = nullptr;
    PlateKindBox *m_plateKind = nullptr;
    QList<TwinNote *> m_twins; // in the order of CarTwins::fields
    int m_carID = 0;
};
