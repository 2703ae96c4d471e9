// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/look/HostColors.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace {

using HostColors::Look;
using HostColors::Pair;
using HostColors::Role;

struct Entry
{
    Role role;
    const char *name;
    QRgb light;
    QRgb dark;
};

constexpr QRgb rgb(unsigned value)
{
    return 0xff000000U | value;
}

constexpr Entry table[] = {
    {Role::Window, "window", rgb(0xF1F4F6), rgb(0x12171B)},
    {Role::Surface, "surface", rgb(0xFFFFFF), rgb(0x1B2228)},
    {Role::Sunken, "sunken", rgb(0xEDF1F3), rgb(0x232C33)},
    {Role::Header, "header", rgb(0xF7F9FA), rgb(0x20282F)},
    {Role::Stripe, "stripe", rgb(0xF8FAFB), rgb(0x1E262C)},
    {Role::Hover, "hover", rgb(0xEAF2F4), rgb(0x222D35)},
    {Role::Line, "line", rgb(0xDCE2E6), rgb(0x313C45)},
    {Role::Edge, "edge", rgb(0x84919C), rgb(0x6F7D88)},
    {Role::Text, "text", rgb(0x1A242D), rgb(0xE7ECF0)},
    {Role::Quiet, "quiet", rgb(0x4A5864), rgb(0xB3BFC9)},
    {Role::Hint, "hint", rgb(0x5C6A76), rgb(0x9AA7B2)},
    {Role::Disabled, "disabled", rgb(0x98A3AD), rgb(0x64717C)},
    {Role::Accent, "accent", rgb(0x0B6B7B), rgb(0x4FBFD0)},
    {Role::AccentHover, "accentHover", rgb(0x095866), rgb(0x6CCEDD)},
    {Role::AccentPress, "accentPress", rgb(0x074650), rgb(0x86DAE6)},
    {Role::OnAccent, "onAccent", rgb(0xFFFFFF), rgb(0x05252B)},
    {Role::Link, "link", rgb(0x0B6272), rgb(0x62CBDB)},
    {Role::Select, "select", rgb(0xD2E9ED), rgb(0x174853)},
    {Role::OnSelect, "onSelect", rgb(0x0A2A31), rgb(0xF0FAFB)},
    {Role::Danger, "danger", rgb(0xB3261E), rgb(0xFF968C)},
    {Role::DangerSoft, "dangerSoft", rgb(0xFBE7E5), rgb(0x45211F)},
    {Role::Warn, "warn", rgb(0x744700), rgb(0xF4C365)},
    {Role::WarnSoft, "warnSoft", rgb(0xFDEFD0), rgb(0x3F3013)},
    {Role::Good, "good", rgb(0x17602F), rgb(0x86D6A1)},
    {Role::GoodSoft, "goodSoft", rgb(0xE0F2E5), rgb(0x1B3927)},
    {Role::Info, "info", rgb(0x0B5F6D), rgb(0x7AD3E1)},
    {Role::InfoSoft, "infoSoft", rgb(0xDDF0F3), rgb(0x153A42)},
    {Role::NeutralSoft, "neutralSoft", rgb(0xE8ECEF), rgb(0x2D3740)},
    {Role::Icon, "icon", rgb(0x62707C), rgb(0x9BA8B3)},
    {Role::Icon2, "icon2", rgb(0x0F7F92), rgb(0x4FBFD0)},
    {Role::Chart, "chart", rgb(0x0F7F92), rgb(0x4FBFD0)},
    {Role::ChartPast, "chartPast", rgb(0x599EAA), rgb(0x357C8A)},
    {Role::ChartOther, "chartOther", rgb(0xA35612), rgb(0xE39A55)},
    {Role::Sky, "sky", rgb(0xE3ECF1), rgb(0x2B3943)},
    {Role::Ground, "ground", rgb(0xC9D3DA), rgb(0x1D262D)},
    {Role::Shadow, "shadow", 0x40202A33U, 0xA0000000U},
};
static_assert(std::size(table) == std::size_t(Role::Count));

constexpr bool standsInOrder()
{
    for (std::size_t i = 0; i < std::size(table); ++i) {
        if (table[i].role != Role(i))
            return false;
    }
    return true;
}
static_assert(standsInOrder());

const Entry &entry(Role role)
{
    return table[std::size_t(role)];
}

struct Grounds
{
    Role ink;
    std::vector<Role> grounds;
    bool isText = true;
};

std::vector<Pair> makePairs()
{
    using enum Role;
    const Grounds inks[] = {
        {Text, {Window, Surface, Sunken, Header, Hover, Stripe}},
        {Quiet, {Window, Surface, Sunken, Header, Hover, Stripe, NeutralSoft}},
        {Hint, {Window, Surface, Sunken, Header}},
        {OnSelect, {Select}},
        {OnAccent, {Accent, AccentHover, AccentPress, Chart, ChartOther}},
        {Link, {Window, Surface, Header}},
        {Danger, {Window, Surface, DangerSoft, Select, Stripe, Hover}},
        {Warn, {Surface, WarnSoft}},
        {Good, {Surface, GoodSoft}},
        {Info, {Surface, InfoSoft}},
        {ChartOther, {Surface}},
        {Edge, {Surface}, false},
        {Accent, {Surface, Window, Select}, false},
        {Icon, {Surface, Window}, false},
        {Icon2, {Surface, Window}, false},
        {Chart, {Surface}, false},
        {ChartPast, {Surface}, false},
    };
    std::vector<Pair> pairs;
    for (const Grounds &entry : inks) {
        for (const Role ground : entry.grounds)
            pairs.push_back({entry.ink, ground, entry.isText});
    }
    return pairs;
}

// Of sRGB, 0 to 1.
double luminance(const QColor &color)
{
    const auto linear = [](double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

Look current = Look::Light;

}

HostColors::Look HostColors::look()
{
    return current;
}

void HostColors::setLook(Look look)
{
    current = look;
}

QColor HostColors::of(Role role)
{
    return of(role, current);
}

QColor HostColors::of(Role role, Look look)
{
    const Entry &found = entry(role);
    return QColor::fromRgba(look == Look::Light ? found.light : found.dark);
}

const char *HostColors::name(Role role)
{
    return entry(role).name;
}

QPalette HostColors::palette(Look look)
{
    using enum Role;
    constexpr std::pair<QPalette::ColorRole, Role> roles[] = {
        {QPalette::Window, Window},
        {QPalette::WindowText, Text},
        {QPalette::Base, Surface},
        {QPalette::AlternateBase, Stripe},
        {QPalette::Text, Text},
        {QPalette::PlaceholderText, Hint},
        {QPalette::Button, Surface},
        {QPalette::ButtonText, Text},
        {QPalette::Light, Surface},
        {QPalette::Midlight, Hover},
        {QPalette::Mid, Line},
        {QPalette::Dark, Edge},
        {QPalette::Shadow, Edge},
        {QPalette::Highlight, Select},
        {QPalette::HighlightedText, OnSelect},
        {QPalette::Link, Link},
        {quietText, Quiet},
        {dangerText, Danger},
        {QPalette::ToolTipBase, Surface},
        {QPalette::ToolTipText, Text},
    };
    QPalette palette;
    for (const auto &[role, color] : roles)
        palette.setColor(role, of(color, look));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        palette.setColor(QPalette::Disabled, role, of(Disabled, look));
    palette.setColor(QPalette::Disabled, QPalette::Base, of(Window, look));
    palette.setColor(QPalette::Disabled, QPalette::Button, of(Window, look));
    return palette;
}

std::span<const HostColors::Pair> HostColors::pairs()
{
    static const std::vector<Pair> made = makePairs();
    return made;
}

double HostColors::contrast(const QColor &one, const QColor &other)
{
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}
