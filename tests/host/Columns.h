#pragma once

#include <QTest>

namespace kwFieldDeck::test {

// Columns named by their place: columns<T...>() declares them and returns the function that adds a
// row; fetch<T...>() gives the current row's values in the same order.
inline const char *const columnNames[] = { "0", "1", "2", "3", "4", "5", "6", "7" };

template <typename... T>
auto columns()
{
    int i = 0;
    (QTest::addColumn<T>(columnNames[i++]), ...);
    return [](const QByteArray &tag, const T &...values) {
        (QTest::newRow(tag.constData()) << ... << values);
    };
}

template <typename... T, std::size_t... I>
std::tuple<T...> fetch(std::index_sequence<I...>)
{
    return { *static_cast<T *>(QTest::qData(columnNames[I], qMetaTypeId<T>()))... };
}

template <typename... T>
std::tuple<T...> fetch()
{
    return fetch<T...>(std::index_sequence_for<T...>());
}

} // namespace kwFieldDeck::test
