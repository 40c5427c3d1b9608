#pragma once

#include "controls/Grid.h"
#include "core/rates/RateImport.h"

#include <unordered_map>
#include <vector>

namespace quorvane::mis {

/// The scrips with their rates of one date in rupees, as recorded or as they are being entered.
/// While they are only looked at, scrips without a rate are left out.
class RateList : public controls::Grid {
  Q_OBJECT

 public:
  using Rates = std::unordered_map<ScripId, double>;

  RateList();

  /// The scrips that can have a rate, in their order.
  void SetScrips(std::vector<rates::ListedScrip> scrips) { scrips_ = std::move(scrips); }

  /// Lists the scrips with the rates that are recorded of a date.
  void ShowRates(Rates recorded);
  const Rates& Recorded() const { return recorded_; }

  /// Takes input from now on, or no more. The rows stay until ShowRates.
  void SetEditing(bool editing);

  /// The date is another one, of which these rates are recorded: they are shown, so that they are
  /// changed and not doubled. What was typed so far stays.
  void ChangeRecorded(Rates recorded);

  /// Puts rates to the scrips that are listed, as if they were typed. False when a single one is
  /// not listed.
  void SetRates(const Rates& rates);
  bool SetRate(ScripId scrip, double rate);
  void FocusFirstRate();

  /// Rates that differ from those recorded.
  std::vector<rates::ScripRate> Changed() const;

  /// The scrips whose rows are selected.
  std::vector<rates::ListedScrip> Chosen() const;

 private:
  double RecordedOf(ScripId scrip) const;
  void RoundEntered(int row, int column);

  std::vector<rates::ListedScrip> scrips_;
  Rates recorded_;
  bool editing_ = false;
};

}  // namespace quorvane::mis
