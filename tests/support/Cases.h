#pragma once

#include <QString>
#include <QTest>

namespace quorvane::test {

/// The columns of a test's table, by type and name, and its rows.
template <class... Cells>
class Cases {
 public:
  template <class... Names>
  explicit Cases(const Names&... names) {
    (QTest::addColumn<Cells>(names), ...);
  }

  void Add(const char* name, const Cells&... cells) const {
    QTestData& row = QTest::newRow(name);
    (row << ... << cells);
  }
};

}  // namespace quorvane::test
