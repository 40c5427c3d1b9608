#pragma once

#include "controls/ComboBox.h"
#include "controls/Desk.h"
#include "masters/client_list/ClientList.h"

#include <QLabel>
#include <QWidget>

#include <vector>

namespace quorvane::ui {

/// The client and year that windows open for, in one line of the main window. Both can be changed
/// here, by the keyboard as well: a name or a year is typed, and Enter takes it.
class ClientBar : public QWidget {
  Q_OBJECT

 public:
  explicit ClientBar(controls::Desk& desk);

  /// Shows what is current now.
  void Refresh();

  /// Writes its texts in the language in force.
  void ShowTexts();

  void FocusClient() { CboClient->setFocus(Qt::ShortcutFocusReason); }

 Q_SIGNALS:
  /// Another client or year is current.
  void Chosen();

 private:
  void FillClients();
  void FillYears();
  void Cbo_Click();

  controls::Desk& desk_;
  controls::Guard guard_;
  std::vector<client_list::ListedClient> clients_;
  QLabel* client_label_;
  QLabel* year_label_;
  controls::ComboBox* CboClient;
  controls::ComboBox* CboYear;
};

}  // namespace quorvane::ui
