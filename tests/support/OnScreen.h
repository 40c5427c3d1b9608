#pragma once

#include <QTest>
#include <QWidget>

namespace quorvane::test {

/// Shows a window and waits until it has the keyboard: before that, no box can have the focus.
inline void PutOnScreen(QWidget& window) {
  window.show();
  window.activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(&window));
}

}  // namespace quorvane::test
