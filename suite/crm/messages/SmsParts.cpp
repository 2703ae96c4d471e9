// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/SmsParts.h"

#include <QList>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

struct Room
{
    int alone;
    int amongOthers;
};
constexpr Room latinRoom{160, 153};
constexpr Room wideRoom{70, 67};

// GSM 03.38 without its escape: each letter is one.
const QString &basicAlphabet()
{
    static const QString letters = u"@£$¥èéùìòÇ\nØø\rÅåΔ_ΦΓΛΩΠΨΣΘΞÆæßÉ !\"#¤%&'()*+,-./0123456789:;<=>?¡ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§¿abcdefghijklmnopqrstuvwxyzäöñüà"_s;
    return letters;
}

// Behind an escape: each is two.
const QString &escapedAlphabet()
{
    static const QString letters = u"\f^{}\\[~]|€"_s;
    return letters;
}

bool isLatin(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) { return basicAlphabet().contains(c) || escapedAlphabet().contains(c); });
}

// How much room each letter takes, in the order of the text.
QList<int> weights(const QString &text, bool latin)
{
    QList<int> list;
    list.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool isPair = text.at(at).isHighSurrogate() && at + 1 < text.size() && text.at(at + 1).isLowSurrogate();
        list.append(isPair || (latin && escapedAlphabet().contains(text.at(at))) ? 2 : 1);
        at += isPair ? 1 : 0;
    }
    return list;
}

}

SmsParts SmsParts::of(const QString &text)
{
    QString sent = text;
    sent.replace(u"\r\n"_s, u"\n"_s);
    const bool latin = isLatin(sent);
    const Room room = latin ? latinRoom : wideRoom;
    const QList<int> list = weights(sent, latin);
    const int letters = std::accumulate(list.cbegin(), list.cend(), 0);
    if (letters <= room.alone)
        return {letters, letters > 0 ? 1 : 0, room.alone - letters};
    int parts = 1;
    int used = 0;
    for (const int weight : list) {
        if (used + weight > room.amongOthers) {
            ++parts;
            used = 0;
        }
        used += weight;
    }
    return {letters, parts, room.amongOthers - used};
}
