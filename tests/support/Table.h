#pragma once

#include <QTest>

#include <tuple>

namespace quorvane::test {

/// The rows of a test: `const Table<int, QString> row; row("name", 1, "x");` in its data function,
/// `const auto [number, text] = Table<int, QString>::Row();` in the test itself.
template <class... Cells>
class Table {
 public:
  Table() { QTest::addColumn<std::tuple<Cells...>>("row"); }

  void operator()(const char* name, const Cells&... cells) const {
    QTest::newRow(name) << std::tuple<Cells...>(cells...);
  }

  static std::tuple<Cells...> Row() {
    QFETCH(std::tuple<Cells...>, row);
    return row;
  }
};

}  // namespace quorvane::test
