#pragma once

#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>
#include <optional>
#include <tuple>
#include <vector>

namespace quorvane::test {

/// Adds a test class to the executable's run. Every file of a test folder holds one class and one
/// registration, so that a folder is one executable without a list of its classes.
void AddTestClass(std::function<std::unique_ptr<QObject>()> make);

/// `static const RegisterTest<PostLotTest> kRegistered;` at the end of a test file.
template <class Test>
struct RegisterTest {
  RegisterTest() {
    AddTestClass([] { return std::make_unique<Test>(); });
  }
};

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
