#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

#include <concepts>

// Values joined by blanks, so that a record, or a whole list of them, compares in one QCOMPARE and a
// failure shows every field at once.
template <typename... T>
QString line(const T &...values)
{
    QStringList parts;
    const auto add = [&parts](const auto &v) {
        using V = std::decay_t<decltype(v)>;
        if constexpr (std::same_as<V, bool>)
            parts << QString::number(int(v));
        else if constexpr (std::is_arithmetic_v<V>)
            parts << QString::number(v);
        else if constexpr (std::same_as<V, QDate>)
            parts << v.toString(Qt::ISODate);
        else
            parts << QString(v);
    };
    (add(values), ...);
    return parts.join(QLatin1Char(' '));
}

// Each element of a list through f, as one list that compares at once.
template <typename List, typename F>
QStringList lines(const List &list, F f)
{
    QStringList out;
    for (const auto &item : list)
        out << f(item);
    return out;
}
