#include "support/Test.h"

#ifdef QUORVANE_WINDOW_TESTS
#include <QApplication>
#else
#include <QCoreApplication>
#endif
#include <QTest>

#include <string>
#include <vector>

namespace quorvane::test {
namespace {

std::vector<std::function<std::unique_ptr<QObject>()>>& TestClasses() {
  static std::vector<std::function<std::unique_ptr<QObject>()>> classes;
  return classes;
}

}  // namespace

void AddTestClass(std::function<std::unique_ptr<QObject>()> make) {
  TestClasses().push_back(std::move(make));
}

}  // namespace quorvane::test

#ifdef QUORVANE_WINDOW_TESTS
using TestApplication = QApplication;
#else
using TestApplication = QCoreApplication;
#endif

int main(int argc, char** argv) {
  // No window of a test is to be seen unless somebody asks for it.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  TestApplication app(argc, argv);
  if (quorvane::test::TestClasses().empty()) {
    qCritical("no test class is registered");
    return 1;
  }
  // The library's own handler calls itself for ever when a test aborts, and fills the memory of
  // whoever keeps what it prints.
  std::vector<char*> arguments(argv, argv + argc);
  std::string no_handler = "-nocrashhandler";
  arguments.push_back(no_handler.data());
  int failures = 0;
  for (const auto& make : quorvane::test::TestClasses()) {
    failures += QTest::qExec(make().get(), static_cast<int>(arguments.size()), arguments.data());
  }
  return failures == 0 ? 0 : 1;
}
