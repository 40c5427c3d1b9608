#pragma once

#include "controls/Grid.h"
#include "controls/Messages.h"
#include "controls/ZENButton.h"
#include "core/database/Connection.h"
#include "masters/clients/Client.h"

#include <QWidget>

#include <vector>

namespace quorvane::clients {

/// The demat accounts of a client as rows to edit: participant, DP id, account number. The DP ids
/// to choose from are those of the row's participant. Before an account is removed that records
/// name, the user is asked.
class AccountsPane : public QWidget {
  Q_OBJECT

 public:
  AccountsPane(const controls::Guard& guard, database::Connection& connection,
               controls::Messages& messages);

  void Show(const std::vector<Account>& accounts);

  /// Every row, blank ones included. An account keeps the id that it was shown with.
  std::vector<Account> Entered() const;

  /// Reads the lists of the choices again.
  void RefreshChoices();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Arrange();
  void RefreshDpIds(int row);
  void VS_GotFocus();
  void VS_CellEdited(int row, int column);
  void VS_LastCellLeft();
  void CmdAddRow_Click();
  void CmdDelRow_Click();

  const controls::Guard& guard_;
  database::Connection& connection_;
  controls::Messages& messages_;
  controls::Grid* VS;
  controls::ZENButton* CmdAddRow;
  controls::ZENButton* CmdDelRow;
};

}  // namespace quorvane::clients
