#pragma once

#include "portfolio/trades/TradeFile.h"

namespace quorvane::portfolio {

/// Takes trades out of rows below a header, one row after the other.
class TradeRows {
 public:
  TradeRows(const FoundHeader& header, const TradeReading& reading, ErrorList& errors)
      : map_(header.map), reading_(reading), errors_(errors) {
    file_.layout = header.layout;
    file_.broker = header.broker;
  }

  void Read(const files::TextRow& row);

  /// After the last row.
  TradeFile Take();

 private:
  /// What a row has, before it is known to be a trade.
  struct Cells {
    std::optional<Moment> moment;
    std::optional<records::Side> side;
    std::optional<double> quantity;
    std::optional<double> price;
    std::optional<double> value;
  };

  const std::string& Cell(Meaning meaning) const {
    return files::CellAt(*row_, map_.First(meaning));
  }
  std::optional<double> Number(Meaning meaning) const { return NumberIn(Cell(meaning)); }
  std::optional<double> Sum(Meaning meaning) const;
  bool IsLeftOut();
  Cells CellsOf() const;
  void ReadOneSided();
  void ReadTwoSided();
  bool CheckDay(const std::optional<Moment>& moment, bool is_trade);
  bool CheckAccount();
  void AddTrade(const Moment& moment, records::Side side, double quantity, double rate,
                TradeCharges charges);
  void KeepOrderCharges();
  TradeCharges Charges(double quantity) const;
  std::uint32_t Scrip();
  std::uint32_t Exchange();
  void Fail(Meaning meaning, const std::string& expected);

  const ColumnMap& map_;
  const TradeReading& reading_;
  ErrorList& errors_;
  const files::TextRow* row_ = nullptr;
  TradeFile file_;
  std::map<ScripNaming, std::uint32_t> scrips_;
  std::map<std::string, std::uint32_t> exchanges_;
  std::map<std::string, TradeCharges> order_charges_;  ///< of rows without shares, by order
};

}  // namespace quorvane::portfolio
