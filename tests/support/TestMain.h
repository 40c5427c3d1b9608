#pragma once

#include <QObject>

#include <functional>
#include <memory>

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

}  // namespace quorvane::test
