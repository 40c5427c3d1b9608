#pragma once

#include "controls/Desk.h"
#include "controls/Grid.h"
#include "controls/ZENButton.h"
#include "support/LocalExchange.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace quorvane::test {

/// An import window over a test database, an exchange on this machine, and a file that the user
/// chooses whenever one is asked for.
template <class Window>
class ImportWindow {
 public:
  explicit ImportWindow(TestDatabase& database) {
    session_.connection = std::make_unique<database::Connection>(database.Settings());
    session_.folders = app::Folders::At(folder_.path());
    QFile settings(session_.folders.config_file);
    if (!settings.open(QIODevice::WriteOnly)) {
      throw std::runtime_error("no settings file");
    }
    const QByteArray here = exchange.Address().toString().toLatin1();
    settings.write("[Internet]\nBseHost=" + here + "\nArchiveHost=" + here + "\n");
    settings.close();
    desk_.ask_open_path = [this](QWidget*, const QString& folder, const QString& filters) {
      asked_folder = folder;
      asked_filters = filters;
      return chosen;
    };
    window = new Window(desk_);
    window->SetLimits({.milliseconds = 2000, .bytes = 1 << 20});
    window->show();
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window)) {
      throw std::runtime_error("the window does not become active");
    }
  }
  ~ImportWindow() { delete window; }
  ImportWindow(const ImportWindow&) = delete;

  template <class Control = QLineEdit>
  Control* Named(const char* name) const {
    return window->template findChild<Control*>(QLatin1String(name));
  }

  void Click(const char* button) const {
    QTest::mouseClick(Named<controls::ZENButton>(button), Qt::LeftButton);
  }

  void TypeDate(const QString& date) const {
    auto* box = Named("TxtDate");
    box->setFocus(Qt::TabFocusReason);
    box->clear();
    QTest::keyClicks(box, date);
    QTest::keyClick(box, Qt::Key_Return);
  }

  void Show(int choice) const { Named<QComboBox>("CboShow")->setCurrentIndex(choice); }
  QString Counts() const { return Named<QLabel>("LblCount")->text(); }

  /// A file that is then chosen.
  void Choose(const char* name, const QByteArray& content) {
    chosen = folder_.filePath(QLatin1String(name));
    QFile file(chosen);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
      throw std::runtime_error("the test's file cannot be written");
    }
  }

  QStringList Cells(const char* grid) const {
    QStringList rows;
    const controls::GridModel& model = Named<controls::Grid>(grid)->Model();
    for (int row = 0; row < model.RowCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < model.columnCount(); ++column) {
        cells << model.Text(row, column);
      }
      rows << cells.join(QLatin1Char('|'));
    }
    return rows;
  }

  LocalExchange exchange;
  RecordingMessages messages;
  QString chosen;
  QString asked_folder;
  QString asked_filters;
  QPointer<Window> window;

 private:
  QTemporaryDir folder_;
  app::Session session_;
  controls::Desk desk_{session_, messages, [] { return *text::MakeDate(31, 1, 2018); }};
};

/// The bytes of a sample in tests/core/files.
inline QByteArray PriceSample(const char* name) {
  QFile file(QStringLiteral(QUORVANE_SOURCE_DIR "/tests/core/files/samples/") +
             QLatin1String(name));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace quorvane::test
