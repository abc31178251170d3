#pragma once

#include <QTest>

#include <initializer_list>

// The columns of a data table in one call: addColumns<int, QString>({"status", "message"}).
template <typename... T>
void addColumns(std::initializer_list<const char *> names)
{
    Q_ASSERT(names.size() == sizeof...(T));
    auto name = names.begin();
    (QTest::addColumn<T>(*name++), ...);
}
