#pragma once

#include "controls/Grid.h"
#include "controls/ZENButton.h"
#include "core/records/Bill.h"
#include "transactions/bills/AverageRates.h"
#include "transactions/bills/EntryLookups.h"
#include "transactions/bills/HeldLots.h"

#include <QLabel>
#include <QTabWidget>
#include <QWidget>

#include <optional>
#include <span>
#include <vector>

namespace quorvane::bills {

using records::BillLine;

/// The holdings of a bill's account beside its lines: the lots with their balance, what the bill's
/// lines move, and the average rates.
class HoldingsPane : public QWidget {
  Q_OBJECT

 public:
  HoldingsPane();

  /// The lots as they are given, used-up ones last.
  void ShowBalance(const QString& account_number, std::vector<HeldLot> lots,
                   const ScripList& scrips);

  /// Puts the lots of a scrip on top, oldest first, and the cursor on the first of them.
  void BringUp(ScripId scrip, const ScripList& scrips);

  void ShowMoves(std::span<const BillLine> lines, const ScripList& scrips);
  void ShowAverages(const std::vector<AverageRate>& rates, const ScripList& scrips);

  /// The lot of the current row.
  std::optional<records::Lot> CurrentLot() const;

  /// The only lot of a scrip that has shares left.
  std::optional<records::Lot> OnlyLotOf(ScripId scrip) const;

  void FocusBalance();

  controls::Grid* Balance() const { return VS3; }
  controls::ZENButton* Refresh() const { return ImgRefresh; }

 private:
  void Arrange();
  void FillBalance(const ScripList& scrips, ScripId first = {});
  void KeepNumbersInSight();

  QLabel* caption_;
  QTabWidget* tabs_;
  controls::Grid* VS3;
  controls::Grid* VS2;
  controls::Grid* VSAvg;
  controls::ZENButton* ImgRefresh;
  std::vector<HeldLot> lots_;
};

}  // namespace quorvane::bills
