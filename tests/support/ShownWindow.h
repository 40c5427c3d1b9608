#pragma once

#include "controls/ComboBox.h"
#include "controls/RecordWindow.h"
#include "controls/TextBox.h"
#include "reporting/document/ReportDocument.h"
#include "reporting/window/ReportDesk.h"
#include "support/DatabaseTest.h"
#include "support/OnScreen.h"
#include "support/RecordingMessages.h"

#include <QApplication>
#include <QPointer>

#include <stdexcept>

namespace quorvane::test {

/// For a window that works on one client in one year. The answers are those to what it asks, also
/// while it opens.
struct ForClient {
  ClientYear of;
  std::vector<bool> answers = {};
  QString config_file = {};
};

/// A window over a test database, in front and driven by keys and clicks; what it says, and which
/// windows, reports and files it opens, is written down.
template <class Window>
class ShownWindow {
 public:
  template <class... More>
  explicit ShownWindow(TestDatabase& database, More... more) {
    session_.folders.data = QStringLiteral(QUORVANE_SOURCE_DIR "/data/shipped");
    Open(database, more...);
  }
  template <class... More>
  ShownWindow(TestDatabase& database, const ForClient& current, More... more) {
    session_.folders.data = QStringLiteral(QUORVANE_SOURCE_DIR "/data/shipped");
    session_.current = current.of;
    session_.current_client_name = QStringLiteral("A CLIENT");
    session_.folders.config_file = current.config_file;
    for (const bool answer : current.answers) {
      messages.WillAnswer(answer);
    }
    Open(database, more...);
  }
  ~ShownWindow() { delete window; }
  ShownWindow(const ShownWindow&) = delete;

  Window* operator->() const { return window; }
  app::Session& Session() { return session_; }
  const app::Session& Session() const { return session_; }

  template <class Control = QLineEdit>
  Control* Named(const QString& name) const {
    return window->template findChild<Control*>(name);
  }

  QString TextIn(const QString& name) const {
    if (const auto* lines = Named<controls::LinesBox>(name)) {
      return lines->text();
    }
    const auto* combo = Named<controls::ComboBox>(name);
    return combo != nullptr ? combo->currentText() : Named(name)->text();
  }

  void Click(const QString& button) const {
    QTest::mouseClick(Named<controls::ZENButton>(button), Qt::LeftButton);
  }

  /// Types into the control with the focus; the first letter may open an editor in a grid.
  static void Type(const QString& text) {
    for (const QChar letter : text) {
      if (letter == QLatin1Char('\n')) {
        Press(Qt::Key_Return);
      } else {
        QTest::keyClick(QApplication::focusWidget(), letter.toLatin1());
      }
    }
  }
  static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }

  /// Each text into a box, Enter after it; Tab after a box of several lines.
  static void Fill(const QStringList& texts) {
    for (const QString& text : texts) {
      Type(text);
      const bool lines = qobject_cast<controls::LinesBox*>(QApplication::focusWidget()) != nullptr;
      Press(lines ? Qt::Key_Tab : Qt::Key_Return);
    }
  }

  /// Adds a record with keys alone.
  void AddByKeyboard(const QStringList& texts) const {
    QTest::keyClick(window, Qt::Key_N, Qt::ControlModifier);
    Fill(texts);
    Press(Qt::Key_S, Qt::ControlModifier);
  }

  /// Begins to modify the record and types over the text of a box.
  void Retype(int id, const QString& box, const QString& text) const {
    window->List().SelectId(id);
    Click("cmdModify");
    Named(box)->setFocus(Qt::TabFocusReason);
    Type(text);
  }

  /// Types over the text of a box, Enter after it.
  void Overtype(const QString& box, const QString& text) const {
    Named<QWidget>(box)->setFocus(Qt::TabFocusReason);
    Fill({text});
  }

  /// The control that has the focus: for a box inside a list, the name of the list.
  static QString Focused() {
    const QWidget* focus = QApplication::focusWidget();
    while (focus != nullptr && (focus->objectName().isEmpty() ||
                                focus->objectName().startsWith(QLatin1String("qt_")))) {
      focus = focus->parentWidget();
    }
    return focus == nullptr ? QString() : focus->objectName();
  }

  QStringList ListRow(int row) const { return Cells(window->List().Model(), row); }

  /// The rows of a grid as "a|b|c".
  QStringList RowsOf(const QString& grid) const {
    const controls::GridModel& model = Named<controls::Grid>(grid)->Model();
    QStringList rows;
    for (int row = 0; row < model.RowCount(); ++row) {
      rows.append(Cells(model, row).join(QLatin1Char('|')));
    }
    return rows;
  }

  RecordingMessages messages;
  QStringList opened;
  std::vector<reporting::ReportDocument> reports;
  QString chosen;  ///< the file that the user chooses whenever one is asked for; several on lines
  QTemporaryDir folder;
  QPointer<Window> window;

 protected:
  /// For windows that need more before they open: they fill the session and the desk, and call
  /// Open.
  ShownWindow() = default;

  template <class... More>
  void Open(TestDatabase& database, More... more) {
    session_.connection = std::make_unique<database::Connection>(database.Settings());
    window = new Window(desk_, more...);
    window->show();
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window, kPatience)) {
      throw std::runtime_error("the window does not become active");
    }
    QCoreApplication::processEvents();
  }

  app::Session session_;
  text::Date today_ = *text::MakeDate(15, 11, 2011);
  reporting::ReportDesk desk_{
      {.session = session_,
       .messages = messages,
       .today = [this] { return today_; },
       .open = [this](const QString& name) { opened.append(name); },
       .ask_open_path = [this](QWidget*, const QString&, const QString&) { return chosen; },
       .ask_open_paths =
           [this](QWidget*, const QString&) {
             return chosen.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
           }},
      [this](const reporting::ReportDocument& document, QWidget*) { reports.push_back(document); }};

 private:
  static QStringList Cells(const controls::GridModel& model, int row) {
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column) {
      cells.append(model.Text(row, column));
    }
    return cells;
  }
};

}  // namespace quorvane::test
