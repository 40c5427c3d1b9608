#pragma once

#include "controls/ComboBox.h"
#include "controls/Messages.h"
#include "core/Result.h"
#include "core/database/Connection.h"
#include "core/text/FinancialYear.h"
#include "reporting/window/TickGrid.h"

#include <QButtonGroup>
#include <QRadioButton>
#include <QWidget>

#include <set>
#include <vector>

namespace quorvane::mis {

/// A choice of one of two, side by side.
class OptionPairView : public QWidget {
  Q_OBJECT

 public:
  /// The buttons are "Option1_N" and "Option1_N+1", N being `first`; the first one is chosen.
  OptionPairView(int first, const QString& one, const QString& other, const QString& purpose);

  bool IsFirst() const { return group_->checkedId() == 0; }
  QString Text() const { return group_->checkedButton()->text(); }  ///< of the choice, with its key
  void ChooseFirst(bool on) { group_->button(on ? 0 : 1)->setChecked(true); }

 Q_SIGNALS:
  /// The user chose; setting the choice from the program does not send it.
  void Clicked();

 private:
  QButtonGroup* group_;
};

/// What a management report covers: the clients of a group or single ones, their demat accounts
/// and scrips. The accounts are those of the ticked clients, and so are the scrips unless all are
/// asked for; a tick that was removed stays removed while the clients change.
class SelectionPane : public QWidget {
  Q_OBJECT

 public:
  SelectionPane(const controls::Guard& guard, database::Connection& connection);

  /// Fills everything: the group of `client` is chosen, and the client is ticked among the single
  /// ones.
  void Fill(ClientId client, text::FinancialYear year);

  /// Scrips are those of this year from now on.
  void SetYear(text::FinancialYear year);

  /// "Select Client!", "Select Demat A/c!", "Select Script Name!".
  MaybeRefusal Check() const;

  /// The accounts and scrips when not all of them are ticked.
  QStringList Choices() const;

  std::vector<ClientId> Clients() const;
  /// Empty, which means every account of the clients, when all are ticked: then bills that were
  /// entered without an account count as well.
  std::vector<AccountId> Accounts() const;
  std::vector<ScripId> Scrips() const;

 private:
  void Arrange();
  void Connect(const controls::Guard& guard);
  void FillClients();
  void FillAccounts();
  void FillScrips();
  std::set<ClientId> TickedClients() const;

  void Option1_Click();
  void CboGroup_Click();
  void OptionScripts_Click();
  void VSC_AfterEdit();

  database::Connection& connection_;
  text::FinancialYear year_{0};
  ClientId client_;
  OptionPairView* by_group_;
  OptionPairView* client_scrips_;
  controls::ComboBox* CboGroup;
  reporting::TickGrid* VSC;
  reporting::TickGrid* VSD;
  reporting::TickGrid* VSS;
  std::set<int> accounts_left_out_;
  std::set<int> scrips_left_out_;
  std::set<ClientId> filled_for_;  ///< clients whose accounts and scrips are listed
};

}  // namespace quorvane::mis
