#pragma once

#include "controls/ChildWindow.h"
#include "controls/ComboBox.h"
#include "controls/Grid.h"
#include "reports/home/Figures.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QLabel>

#include <cstdint>
#include <map>
#include <optional>

namespace quorvane::home {

/// What the figures of the start are made of. Holdings: by scrip or by client; Enter on a line
/// shows what it is made of, and then the page of the scrip for the client. Gains: a line a client,
/// Enter opens the capital-gain statement of client and year. The totals below are those of the
/// lines that the filter shows.
class FrmFigures : public controls::ChildWindow {
  Q_OBJECT

 public:
  enum class What : std::uint8_t { kHoldings, kGains };

  /// What GoTo takes in place of a scrip: holdings without a rate of the last seven days.
  static constexpr int kOldRates = -1;

  FrmFigures(controls::Desk& desk, What what);

  /// Shows who holds a scrip.
  bool GoTo(int record) override;

  void AskedAgain() override;

 protected:
  void EscapePressed() override;
  void Activated() override;

 private:
  enum By { kByScrip, kByClient };

  void Build();
  void AddChoices(QLayout& line);
  void FillYears();
  void SetColumns();
  void Read();
  void ShowLines();
  void ShowHoldings();
  void ShowGains();
  void ShowTotals();
  bool ListsClients() const;
  std::map<int, Held> Summed() const;
  bool IsShown(const Held& held) const;
  QString NameAt(int id) const;
  Scope TheScope() const;
  void OpenPage(ClientId client, ScripId scrip);

  void Cbo_Click();
  void VSF_DblClick(int row);
  void cmdOpen_Click();
  void cmdBack_Click();
  void cmdExit_Click();

  What what_;
  Holdings holdings_;
  std::vector<ClientGains> gains_;
  std::map<int, QString> client_names_;
  std::map<int, QString> scrip_names_;
  QElapsedTimer since_read_;
  ScripId scrip_;    ///< whose holders are shown
  ClientId client_;  ///< whose scrips are shown
  controls::ComboBox* CboFamily;
  controls::ComboBox* CboYear = nullptr;
  controls::ComboBox* CboBy = nullptr;
  QCheckBox* ChkOld = nullptr;
  controls::Grid* VSF;
  QLabel* LblTotals;
  controls::ZENButton* cmdOpen;
  controls::ZENButton* cmdBack;
  controls::ZENButton* cmdExit;
};

}  // namespace quorvane::home
