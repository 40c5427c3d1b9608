#pragma once

#include "controls/Grid.h"
#include "controls/ZENButton.h"
#include "portfolio/trades/TradeBook.h"

#include <QWidget>

class QCheckBox;
class QLabel;

namespace quorvane::portfolio {

/// Asks what the columns of a file mean whose header is not known, and shows the first trades as
/// they are then read. Headings that mean something in a known layout are proposed.
class ColumnPane : public QWidget {
  Q_OBJECT

 public:
  explicit ColumnPane(QWidget* parent = nullptr);

  /// Begins with the header that is most probably one. The trades are read for `reading`.
  void Ask(const OpenedTrades& opened, const std::vector<TradeLayout>& layouts,
           const TradeReading& reading);

  /// The header with the meanings that were chosen; nullopt while something is missing.
  std::optional<FoundHeader> Chosen() const;

  controls::ZENButton* CmdUse = nullptr;
  controls::Grid* VSC = nullptr;  ///< a row a column of the file
  QCheckBox* ChkMonth = nullptr;  ///< days are written with the month first

 public Q_SLOTS:
  /// Shows what the chosen meanings make of the file.
  void Preview();

 private:
  void FillColumns();
  ColumnMap Map() const;

  controls::Grid* VSP = nullptr;  ///< the first trades
  QLabel* LblMissing = nullptr;
  files::TextTable sample_;  ///< the header and what is below it
  FoundHeader header_;
  TradeReading reading_;
};

}  // namespace quorvane::portfolio
