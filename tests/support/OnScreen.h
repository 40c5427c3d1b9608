#pragma once

#include <QTest>
#include <QWidget>

namespace quorvane::test {

/// Milliseconds for a window to come up on a busy machine.
inline constexpr int kPatience = 20000;

/// Shows a window and waits until it has the keyboard: before that, no box can have the focus.
inline void PutOnScreen(QWidget& window) {
  window.show();
  window.activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(&window, kPatience));
}

}  // namespace quorvane::test
