#include "portfolio/TransferImport.h"

#include "core/ledger/Posting.h"
#include "core/text/Amounts.h"

#include <fmt/format.h>

#include <algorithm>

namespace quorvane::portfolio {

bool TransferImport::ApplyPossible() {
  const std::size_t before = open_.size();
  std::erase_if(open_, [this](const TransferRow* row) { return Apply(*row, false); });
  return open_.size() < before;
}

void TransferImport::ApplyRest() {
  while (ApplyPossible()) {
  }
  for (const TransferRow* row : open_) {
    Apply(*row, true);
  }
  open_.clear();
}

bool TransferImport::Apply(const TransferRow& row, bool report) {
  const auto ends = EndsOf(row, report);
  if (!ends) {
    return false;
  }
  records::Transfer transfer = row.record;
  transfer.client = ends->from.client;
  transfer.from = ends->from.account;
  transfer.kind = ends->from.client == ends->to.client ? records::TransTo::kSameClient
                                                       : records::TransTo::kOtherClient;
  transfer.to = ends->to.account;
  transfer.to_client = ends->to.client;
  transfer.scrip = names_.scrips[row.scrip];
  const auto taken = layers_.TakeFromLot(
      names_.LotKeyAt(ledger::SourceOf(transfer), row.scrip, transfer.rate), transfer.quantity);
  if (!taken) {
    if (report) {
      errors_.Add(FileKind::kTransfers, row.line, "quantity",
                  "You Can't Transfer Scripts More than Balance. Maximum Allowed Value is: " +
                      text::FormatAmount(taken.available.Number()).toStdString());
    }
    return false;
  }
  layers_.Receive(names_.LotKeyAt(ledger::DestinationOf(transfer), row.scrip, transfer.rate),
                  {row.date, transfer.quantity});
  if (recorded_.Has(transfer)) {
    errors_.Add(FileKind::kTransfers, row.line, "", "this transfer is recorded already");
  }
  transfer.lot = taken.pieces.front().lot;
  documents_.Add(transfer);
  return true;
}

std::vector<ResolvedNames::Owned> TransferImport::AccountsOf(Symbol number,
                                                             std::optional<Symbol> client) const {
  std::vector<ResolvedNames::Owned> found = names_.Accounts(number);
  if (client) {
    std::erase_if(found, [&](const ResolvedNames::Owned& owned) {
      return owned.client != names_.clients[*client];
    });
  }
  return found;
}

std::optional<TransferImport::Ends> TransferImport::EndsOf(const TransferRow& row, bool report) {
  const auto from = AccountsOf(row.from_account, row.from_client);
  const auto to = AccountsOf(row.to_account, row.to_client);
  if (from.size() == 1 && to.size() == 1) {
    return Ends{from.front(), to.front()};
  }
  const auto fail = [&](const auto& found, std::string_view column,
                        std::string_view client_column) {
    if (report && found.size() != 1) {
      errors_.Add(FileKind::kTransfers, row.line, column,
                  found.empty() ? "expected a known account number"
                                : fmt::format("several clients have an account of this number: the "
                                              "column {} tells which",
                                              client_column));
    }
  };
  fail(from, "from_account", "from_client");
  fail(to, "to_account", "to_client");
  return std::nullopt;
}

}  // namespace quorvane::portfolio
