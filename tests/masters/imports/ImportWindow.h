#pragma once

#include "support/Files.h"
#include "support/LocalExchange.h"
#include "support/ShownWindow.h"

#include <QComboBox>
#include <QLabel>

namespace quorvane::test {

/// An import window over a test database and an exchange on this machine.
template <class Window>
class ImportWindow : public ShownWindow<Window> {
 public:
  explicit ImportWindow(TestDatabase& database) {
    this->today_ = *text::MakeDate(31, 1, 2018);
    this->session_.folders = app::Folders::At(this->folder.path());
    const QByteArray here = exchange.Address().toEncoded();
    WriteFile(this->session_.folders.config_file,
              "[Internet]\nBseHost=" + here + "\nArchiveHost=" + here + "\n");
    this->desk_.ask_open_path = [this](QWidget*, const QString& where, const QString& filters) {
      asked_folder = where;
      asked_filters = filters;
      return this->chosen;
    };
    this->Open(database);
    this->window->SetLimits({.milliseconds = 2000, .bytes = 1 << 20});
  }
  ~ImportWindow() { delete this->window; }

  void TypeDate(const QString& date) const {
    this->Named("TxtDate")->clear();
    this->Overtype("TxtDate", date);
  }

  void Show(int choice) const {
    this->template Named<QComboBox>("CboShow")->setCurrentIndex(choice);
  }
  QString Counts() const { return this->template Named<QLabel>("LblCount")->text(); }

  /// A file that is then chosen.
  void Choose(const QString& name, const QByteArray& content) {
    this->chosen = WriteFile(this->folder.filePath(name), content);
  }

  LocalExchange exchange;
  QString asked_folder;
  QString asked_filters;
};

}  // namespace quorvane::test
