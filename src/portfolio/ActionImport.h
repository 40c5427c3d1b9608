#pragma once

#include "core/ledger/Layers.h"
#include "portfolio/ImportSteps.h"

#include <optional>
#include <vector>

namespace quorvane::portfolio {

/// Takes corporate actions in: each day's before the bills and transfers of that day. An action
/// that is applied changes the layers, either as the folder's lots say or, in a folder without
/// them, for every account that holds the scrip then. What is refused goes to the errors.
class ActionImport {
 public:
  ActionImport(const Portfolio& portfolio, const ResolvedNames& names, ledger::Lots& lots,
               ledger::Layers& layers, ErrorList& errors);

  /// Checks every action, also against those that are recorded: one that is there already is an
  /// error.
  void Check(database::Connection& connection);

  /// The day of the next action; nullopt after the last.
  std::optional<text::Date> NextDay() const;

  /// Applies the actions of that day, in file order.
  void Apply(text::Date day);

  /// Writes the actions with their lots, and the folder's dividends. To be called after all other
  /// documents were written: charges of the lots are read from these.
  void Write(database::Transaction& transaction, ImportResult& result);

 private:
  /// Where the shares of one account are before an action.
  struct Holder {
    ledger::Place place;
    std::vector<ledger::Layer> layers;  ///< in the order in which they entered
  };

  void CheckDividends(database::Connection& connection);
  records::Dividend DividendOf(const DividendRow& row) const;
  void ApplyGiven(std::size_t action);
  void ApplyTerms(std::size_t action);
  bool Take(const ActionLotRow& row);
  void Move(const ledger::Place& place, const records::ActionLot& lot, text::Date ex_day);
  std::vector<Holder> HoldersOf(const ActionRow& row) const;
  std::optional<ledger::Place> PlaceOf(const ActionLotRow& row) const;
  std::optional<AccountId> AccountOf(ClientId client, Symbol number) const;
  bool HasDividends(std::size_t action) const;
  void WriteGivenLots(database::Transaction& transaction, std::span<const ActionId> ids) const;
  void WriteDividends(database::Transaction& transaction, std::span<const ActionId> ids);

  const Portfolio& portfolio_;
  const ResolvedNames& names_;
  ledger::Lots& lots_;
  ledger::Layers& layers_;
  ErrorList& errors_;
  std::vector<records::Action> actions_;  ///< in file order, with their scrips
  std::vector<std::size_t> by_day_;       ///< places in actions_
  std::size_t next_ = 0;
};

}  // namespace quorvane::portfolio
