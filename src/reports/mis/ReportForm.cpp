#include "reports/mis/ReportForm.h"

namespace quorvane::mis {
namespace {

void AddTo(std::optional<double>& sum, const std::optional<double>& more, Nature nature) {
  if (!more) {
    return;
  }
  switch (nature) {
    case Nature::kRate:
      sum = !sum || *sum == *more ? more : sum;
      break;
    case Nature::kShares:
      sum = AddShares(sum.value_or(0), *more);
      break;
    case Nature::kMoney:
    case Nature::kRunning:
      // Whole numbers of paise: exact.
      sum = sum.value_or(0) + *more;
      break;
  }
}

}  // namespace

void AddFigures(Figures& sum, const Figures& more, const std::vector<FigureColumn>& columns) {
  sum.resize(columns.size());
  for (std::size_t i = 0; i < columns.size() && i < more.size(); ++i) {
    AddTo(sum[i], more[i], columns[i].nature);
  }
}

std::unique_ptr<ReportForm> MakeForm(ReportKind kind, const MarketRates& rates, Date day) {
  return IsOfOneDay(kind) ? MakeLotForm(kind, rates, day) : MakeMovementForm(kind);
}

}  // namespace quorvane::mis
