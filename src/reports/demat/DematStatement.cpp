#include "reports/demat/DematStatement.h"

#include "reports/demat/MovementReader.h"

#include <algorithm>

namespace quorvane::demat {
namespace {

Movement KindOf(const RawMovement& raw) {
  switch (raw.kind) {
    case RawMovement::Kind::kOpening:
      return Movement::kOpening;
    case RawMovement::Kind::kBill:
      if (!raw.out) {
        return Movement::kPurchase;
      }
      return !raw.in ? Movement::kSale : Movement::kPurchaseAndSale;
    case RawMovement::Kind::kAction:
      return Movement::kAction;
    case RawMovement::Kind::kTransfer:
      break;
  }
  return !raw.out ? Movement::kTransferFrom : Movement::kTransferTo;
}

QString ParticularsOf(Movement movement, const RawMovement& raw, const MovementReader& reader) {
  switch (movement) {
    case Movement::kOpening:
      return QStringLiteral("Opening Balance");
    case Movement::kPurchase:
      return QStringLiteral("(P) - ") + reader.BrokerName(raw.other);
    case Movement::kSale:
      return QStringLiteral("(S) - ") + reader.BrokerName(raw.other);
    case Movement::kPurchaseAndSale:
      return QStringLiteral("(P & S) - ") + reader.BrokerName(raw.other);
    case Movement::kTransferTo:
      return QStringLiteral("Transfer To - ") + reader.AccountNumber(raw.other);
    case Movement::kTransferFrom:
      return QStringLiteral("Transfer From - ") + reader.AccountNumber(raw.other);
    case Movement::kAction:
      return reader.ActionText(raw.document);
  }
  return {};
}

/// The lines of one scrip in one account.
class LineMaker {
 public:
  LineMaker(const DematQuery& query, const MovementReader& reader)
      : query_(query), reader_(reader), folds_(query.period.from > query.year.FirstDay()) {}

  std::vector<DematLine> Make(std::span<const RawMovement> movements) const {
    std::vector<DematLine> lines;
    Shares balance;
    const auto is_before = [this](const RawMovement& raw) {
      return folds_ && (raw.kind == RawMovement::Kind::kOpening || raw.date < query_.period.from);
    };
    for (const RawMovement& raw : movements) {
      if (is_before(raw)) {
        balance += raw.in - raw.out;
      }
    }
    if (balance) {
      lines.push_back({Movement::kOpening, query_.period.from, QStringLiteral("Opening Balance"),
                       std::max(balance, Shares()), std::max(-balance, Shares()), balance});
    }
    for (const RawMovement& raw : movements) {
      if (!is_before(raw) && (raw.in || raw.out)) {
        balance += raw.in - raw.out;
        const Movement movement = KindOf(raw);
        lines.push_back(
            {movement, raw.date, ParticularsOf(movement, raw, reader_), raw.in, raw.out, balance});
      }
    }
    return lines;
  }

 private:
  const DematQuery& query_;
  const MovementReader& reader_;
  bool folds_;
};

}  // namespace

records::Faults BuildDematStatement(
    database::Connection& connection, const DematQuery& query, Progress& progress,
    const std::function<void(ClientId, std::span<const ScripMovements>)>& give) {
  MovementReader reader(connection, query, progress);
  const std::vector<RawMovement> all = reader.Read();
  const LineMaker maker(query, reader);
  std::vector<ScripMovements> of_client;
  for (std::size_t first = 0; first < all.size();) {
    std::size_t next = first + 1;
    while (next < all.size() && all[next].IsSamePlace(all[first])) {
      ++next;
    }
    ScripMovements scrip{reader.AccountOf(all[first]), reader.ScripOf(all[first]),
                         maker.Make(std::span(all).subspan(first, next - first))};
    if (!scrip.lines.empty()) {
      of_client.push_back(std::move(scrip));
    }
    const bool last = next == all.size() || all[next].client_rank != all[first].client_rank;
    if (last && !of_client.empty()) {
      give(reader.ClientOf(all[first]), of_client);
      of_client.clear();
    }
    first = next;
  }
  return reader.Faults();
}

}  // namespace quorvane::demat
