#pragma once

#include <cstdint>

namespace quorvane::gains {

/// The average cost of a holding while its movements are taken in order: of one scrip in one
/// account, for the statements at the average rate and for the average rates of the bill window.
///
/// The average changes only when shares come in, and starts again after the holding was empty.
/// Costs are kept in whole paise beside it: what left, and what is held, add up to what was paid.
class AverageCost {
 public:
  /// Shares come in; `paid` in paise is the whole of their cost, service tax included. Without
  /// shares nothing comes in.
  void Receive(double shares, std::int64_t paid);

  /// Shares leave; returns their cost in paise. When more leave than are held, only those held have
  /// a cost.
  std::int64_t Release(double shares);

  double Held() const { return held_; }             ///< shares
  std::int64_t Cost() const { return held_cost_; }  ///< paise, of the shares held

  /// Rupees a share; 0 while nothing is held.
  double Average() const;

 private:
  double CostOf(double shares) const;

  double held_ = 0;
  std::int64_t held_cost_ = 0;
  double shares_ = 1;  ///< with cost_ the average as it was after the last receipt
  double cost_ = 0;    ///< paise, not rounded
};

}  // namespace quorvane::gains
