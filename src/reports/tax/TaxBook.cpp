#include "reports/tax/TaxBook.h"

#include "reporting/selection/ReportLists.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

namespace quorvane::tax_year {
namespace {

using positions::Positions;

/// From so many clients on all records are read at once.
constexpr std::size_t kMany = 24;

/// The parts of a history of all clients by client.
std::map<ClientId, Positions> ByClient(Positions all) {
  std::map<ClientId, Positions> clients;
  for (positions::Holding& one : all.holdings) {
    clients[one.client].holdings.push_back(std::move(one));
  }
  for (const positions::Piece& one : all.pieces) {
    clients[one.client].pieces.push_back(one);
  }
  for (const positions::Difference& one : all.differences) {
    clients[one.of.client].differences.push_back(one);
  }
  for (const positions::Shortage& one : all.shortages) {
    clients[one.client].shortages.push_back(one);
  }
  for (const records::Fault& one : all.faults) {
    clients[one.client].faults.push_back(one);
  }
  return clients;
}

void Sort(std::vector<positions::Piece>& pieces, const lookups::Directory& directory) {
  std::ranges::stable_sort(pieces, {}, [&](const positions::Piece& piece) {
    return std::tuple(std::string_view(directory.Account(piece.place.account).number),
                      std::string_view(directory.Scrip(piece.place.scrip).code), piece.sold);
  });
}

bool IsSame(const tax::TaxLoss& entered, const OpenLoss& left) {
  return entered.loss_year == left.loss_year && entered.kind == left.kind;
}

}  // namespace

TaxBook::Losses TaxBook::ReadLosses() const {
  return {tax::ReadTaxLosses(connection_, rules_.Year()),
          before_ == nullptr ? tax::LossesByClient()
                             : tax::ReadTaxLosses(connection_, before_->Year())};
}

ClientTax TaxBook::Make(ClientId client, Positions history, Losses& losses) const {
  Sort(history.pieces, directory_);
  ClientTax result;
  result.year = Compute(rules_, client, history.pieces, std::move(losses.of_year[client]));
  if (before_ != nullptr) {
    result.left_before =
        Compute(*before_, client, history.pieces, std::move(losses.of_year_before[client]))
            .set_off.carried;
  }
  result.history = std::move(history);
  return result;
}

ClientTax TaxBook::Of(ClientId client, Progress& progress) const {
  Losses losses = ReadLosses();
  return Make(client,
              positions::ReadPositions(connection_,
                                       {.client = client, .to = rules_.Year().LastDay()}, progress),
              losses);
}

std::vector<ClientTax> TaxBook::Of(std::span<const ClientId> clients, Progress& progress) const {
  std::vector<ClientTax> result;
  positions::PositionsQuery query{.to = rules_.Year().LastDay()};
  if (clients.size() < kMany) {
    query.clients = {clients.begin(), clients.end()};
  }
  Losses losses = ReadLosses();
  auto histories = ByClient(positions::ReadPositions(connection_, query, progress));
  for (const ClientId client : clients) {
    progress.ThrowIfCancelled();
    result.push_back(Make(client, std::move(histories[client]), losses));
  }
  return result;
}

std::vector<tax::TaxLoss> Carried(const ClientYear& of, std::span<const tax::TaxLoss> entered,
                                  std::span<const OpenLoss> left_before) {
  std::vector<tax::TaxLoss> losses;
  for (const OpenLoss& left : left_before) {
    losses.push_back({of.client, of.year, left.loss_year, left.kind, left.amount});
  }
  for (const tax::TaxLoss& loss : entered) {
    if (std::ranges::none_of(left_before,
                             [&](const OpenLoss& left) { return IsSame(loss, left); })) {
      losses.push_back(loss);
    }
  }
  return losses;
}

bool IsCarried(const TaxYear& year, std::span<const OpenLoss> left_before) {
  return std::ranges::all_of(left_before, [&](const OpenLoss& left) {
    return std::ranges::any_of(year.brought_forward, [&](const tax::TaxLoss& entered) {
      return IsSame(entered, left) && entered.amount == left.amount;
    });
  });
}

std::vector<ClientId> FamilyByCode(database::Connection& connection,
                                   const lookups::Directory& directory, ClientId client) {
  const std::set<ClientId> family = reporting::FamilyOf(connection, client);
  std::vector<ClientId> clients;
  for (const lookups::ClientEntry& entry : directory.Clients()) {
    if (family.contains(entry.id)) {
      clients.push_back(entry.id);
    }
  }
  return clients;
}

}  // namespace quorvane::tax_year
