#pragma once

#include "support/Desk.h"
#include "support/Records.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

namespace quorvane::test {

/// The base of test classes that share one database.
class DatabaseTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { database_.emplace(); }
  void cleanupTestCase() { database_.reset(); }

 protected:
  std::optional<TestDatabase> database_;
};

/// The base of test classes that share one desk; each test begins without records.
class DeskTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { desk_.emplace(); }
  void init() { desk_->Empty(); }
  void cleanupTestCase() { desk_.reset(); }

 protected:
  std::optional<Desk> desk_;
};

}  // namespace quorvane::test
