#pragma once

#include "controls/Grid.h"
#include "controls/ZENButton.h"
#include "transactions/bills/AverageRates.h"
#include "transactions/bills/HeldLots.h"
#include "transactions/bills/window/BillContext.h"

#include <QLabel>
#include <QTabWidget>
#include <QWidget>

#include <optional>
#include <span>
#include <vector>

namespace quorvane::bills {

/// The holdings of a bill's account beside its lines: the lots with their balance, what the bill's
/// lines move, and the average rates.
class HoldingsPane : public QWidget {
  Q_OBJECT

 public:
  explicit HoldingsPane(const BillContext& context);

  void Clear();

  /// The lots and the average rates of the bill's account.
  void ShowAccount(const QString& account_number);

  /// The lots alone, after the lines of the entry. Used-up ones come last.
  void ShowBalance();

  /// The average rates as the records have them.
  void ShowRecordedAverages();

  /// What the bill's lines move.
  void ShowMoves();

  /// Puts the lots of a scrip on top, oldest first, and the cursor on the first of them.
  void BringUp(ScripId scrip);

  /// The lot of the current row.
  std::optional<records::Lot> CurrentLot() const;

  /// The only lot of a scrip that has shares left.
  std::optional<records::Lot> OnlyLotOf(ScripId scrip) const;

  void FocusBalance();

  controls::Grid* Balance() const { return VS3; }
  controls::ZENButton* Refresh() const { return ImgRefresh; }

 private:
  void Arrange();
  void ShowAverages(std::span<const records::Movement> movements);
  void FillAverages(const std::vector<AverageRate>& rates);
  void FillBalance(ScripId first = {});
  void KeepNumbersInSight();

  const BillContext& context_;
  QLabel* caption_;
  QTabWidget* tabs_;
  controls::Grid* VS3;
  controls::Grid* VS2;
  controls::Grid* VSAvg;
  controls::ZENButton* ImgRefresh;
  std::vector<HeldLot> lots_;
};

}  // namespace quorvane::bills
