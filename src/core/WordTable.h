#pragma once

#include <QLatin1String>
#include <QString>

#include <cstddef>
#include <utility>

// The stored words of a closed set, as a table of (value, word) pairs. Reading an unknown word and
// writing an unknown value both land on the fallback, so a row written by a newer or foreign client
// degrades to something we can show.
template <typename Enum>
using WordEntry = std::pair<Enum, const char *>;

template <typename Enum, std::size_t N>
QString wordOf(const WordEntry<Enum> (&table)[N], Enum value, Enum fallback)
{
    for (const auto &[e, word] : table) {
        if (e == value)
            return QString::fromLatin1(word);
    }
    return wordOf(table, fallback, fallback);
}

template <typename Enum, std::size_t N>
Enum valueOf(const WordEntry<Enum> (&table)[N], const QString &word, Enum fallback)
{
    for (const auto &[e, w] : table) {
        if (word == QLatin1String(w))
            return e;
    }
    return fallback;
}
