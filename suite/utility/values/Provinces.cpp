// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/Provinces.h"

#include "suite/utility/values/TextStandard.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Province
{
    QString name;
    QStringList cities;
    QList<int> counties; // of the cities

    int code() const { return counties.first() / Provinces::countiesOfAProvince; }
};

QList<Province> readProvinces()
{
    QFile file(u":/data/provinces.tsv"_s);
    QList<Province> provinces;
    if (!file.open(QIODevice::ReadOnly))
        return provinces;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        const QStringList cells = line.split(u'\t');
        if (cells.size() != 3 || line.startsWith(u'#'))
            continue;
        if (provinces.isEmpty() || provinces.last().name != cells[0])
            provinces.append({cells[0], {}, {}});
        provinces.last().cities.append(cells[1]);
        provinces.last().counties.append(cells[2].toInt());
    }
    return provinces;
}

const QList<Province> &provinces()
{
    static const QList<Province> read = readProvinces();
    return read;
}

}

QStringList Provinces::names()
{
    QStringList names;
    for (const Province &province : provinces())
        names.append(province.name);
    return names;
}

QStringList Provinces::cities(const QString &province)
{
    const QString wanted = searchKey(province);
    for (const Province &candidate : provinces()) {
        if (searchKey(candidate.name) == wanted)
            return candidate.cities;
    }
    return {};
}

int Provinces::code(const QString &province)
{
    for (const Province &candidate : provinces()) {
        if (candidate.name == province)
            return candidate.code();
    }
    return -1;
}

QList<Provinces::County> Provinces::counties(int provinceCode)
{
    QList<County> counties;
    for (const Province &province : provinces()) {
        if (province.code() != provinceCode)
            continue;
        for (qsizetype i = 0; i < province.cities.size(); ++i) {
            const int code = province.counties.at(i);
            const auto known = std::ranges::find(counties, code, &County::code);
            if (known == counties.end())
                counties.append({code, province.cities.at(i)});
            else
                known->cities += u"، "_s + province.cities.at(i);
        }
    }
    return counties;
}

bool Provinces::isCity(const QString &city)
{
    const QString wanted = searchKey(city);
    return std::ranges::any_of(provinces(), [&](const Province &province) {
        return std::ranges::any_of(province.cities, [&](const QString &known) { return searchKey(known) == wanted; });
    });
}
