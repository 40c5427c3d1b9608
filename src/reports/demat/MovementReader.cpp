#include "reports/demat/MovementReader.h"

#include "core/actions/Terms.h"
#include "core/records/Query.h"

#include <algorithm>
#include <tuple>

namespace quorvane::demat {
namespace {

using records::MovementKind;

auto OrderOf(const RawMovement& m) {
  return std::tuple(m.client_rank, m.account_rank, m.scrip_rank, m.date, m.kind, m.document);
}

template <class IdType>
bool Has(const std::vector<IdType>& wanted, IdType id) {
  return wanted.empty() || std::ranges::find(wanted, id) != wanted.end();
}

RawMovement::Kind KindOf(const records::Movement& movement) {
  switch (movement.kind) {
    case MovementKind::kOpening:
      return RawMovement::Kind::kOpening;
    case MovementKind::kActionIn:
    case MovementKind::kActionOut:
      return RawMovement::Kind::kAction;
    case MovementKind::kPurchase:
    case MovementKind::kSale:
      return RawMovement::Kind::kBill;
    case MovementKind::kTransferIn:
    case MovementKind::kTransferOut:
      break;
  }
  return RawMovement::Kind::kTransfer;
}

}  // namespace

MovementReader::MovementReader(database::Connection& connection, const DematQuery& query,
                               Progress& progress)
    : connection_(connection), query_(query), progress_(progress) {}

std::vector<RawMovement> MovementReader::Read() {
  ReadMasters();
  records::ReadMovements(connection_,
                         {.client = query_.client, .year = query_.year, .charges = false}, faults_,
                         progress_, [this](const records::Movement& movement) {
                           if (IsWanted(movement)) {
                             Take(movement);
                           }
                         });
  Sort();
  return std::move(movements_);
}

void MovementReader::ReadMasters() {
  for (const auto& row : connection_.Open("Select Id From ClientInfo Order By Code,Id")) {
    clients_.Add(row.Int(0));
  }
  for (const auto& row : connection_.Open("Select id,ACNo From ClientActDet Order By ACNo,id")) {
    accounts_.Add(row.Int(0));
    numbers_.emplace(row.Int(0), row.Text(1));
  }
  for (const auto& row : connection_.Open("Select Id From Script Order By Name,Id")) {
    scrips_.Add(row.Int(0));
  }
  for (const auto& row : connection_.Open("Select Id,Name From Broker")) {
    brokers_.emplace(row.Int(0), row.Text(1));
  }
  for (const records::Action& action : records::Select<records::Action>(connection_).All()) {
    actions_.emplace(action.id.value, actions::Describe(action));
  }
}

QString MovementReader::Text(const Texts& texts, int id) {
  const auto found = texts.find(id);
  return found == texts.end() ? QString() : found->second;
}

bool MovementReader::IsWanted(const records::Movement& movement) const {
  const bool in_time = movement.kind == MovementKind::kOpening || movement.date <= query_.period.to;
  return movement.dated && in_time && Has(query_.accounts, movement.account) &&
         Has(query_.scrips, movement.scrip);
}

void MovementReader::Take(const records::Movement& movement) {
  RawMovement& m = movements_.emplace_back();
  m.client_rank = clients_.Of(movement.client.value);
  m.account_rank = accounts_.Of(movement.account.value);
  m.scrip_rank = scrips_.Of(movement.scrip.value);
  m.date = movement.date;
  m.kind = KindOf(movement);
  m.document = m.kind == RawMovement::Kind::kOpening ? 0 : movement.document;
  m.other = movement.other;
  (records::IsReceipt(movement.kind) ? m.in : m.out) = movement.quantity;
}

void MovementReader::Sort() {
  std::ranges::stable_sort(movements_, {}, OrderOf);
  std::vector<RawMovement> merged;
  for (const RawMovement& movement : movements_) {
    const bool same = !merged.empty() && movement.kind != RawMovement::Kind::kTransfer &&
                      OrderOf(merged.back()) == OrderOf(movement);
    if (same) {
      merged.back().in += movement.in;
      merged.back().out += movement.out;
    } else {
      merged.push_back(movement);
    }
  }
  // What a demerger leaves of a lot has another rate, not another quantity.
  std::erase_if(merged, [](const RawMovement& m) {
    return m.kind == RawMovement::Kind::kAction && m.in == m.out;
  });
  movements_ = std::move(merged);
}

ClientId MovementReader::ClientOf(const RawMovement& movement) const {
  return {clients_.IdOf(movement.client_rank)};
}
AccountId MovementReader::AccountOf(const RawMovement& movement) const {
  return {accounts_.IdOf(movement.account_rank)};
}
ScripId MovementReader::ScripOf(const RawMovement& movement) const {
  return {scrips_.IdOf(movement.scrip_rank)};
}

}  // namespace quorvane::demat
