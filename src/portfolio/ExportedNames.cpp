#include "portfolio/ExportedNames.h"

#include "core/records/Transfer.h"

namespace quorvane::portfolio {
namespace {

std::set<ClientId> ClientsJoinedTo(database::Connection& connection, ClientId client) {
  using records::Transfer;
  std::set<std::pair<ClientId, ClientId>> joined;
  records::Select<Transfer>(connection)
      .Only<&Transfer::client, &Transfer::to_client>(
          [&](const Transfer& transfer) { joined.emplace(transfer.client, transfer.to_client); });
  std::set<ClientId> clients{client};
  for (std::size_t before = 0; before != clients.size();) {
    before = clients.size();
    for (const auto& [from, to] : joined) {
      if (clients.contains(from) || clients.contains(to)) {
        clients.insert({from, to});
      }
    }
  }
  return clients;
}

}  // namespace

ExportedNames::ExportedNames(database::Connection& connection, std::optional<ClientId> client) {
  if (client) {
    wanted_clients = ClientsJoinedTo(connection, *client);
  }
  clients.Read(connection, &records::Client::code);
  accounts.Read(connection, &records::Account::number);
  scrips.Read(connection, &records::Scrip::code);
  brokers.Read(connection, &records::Broker::name);
  participants.Read(connection, &records::Participant::name);
  exchanges.Read(connection, &records::Exchange::name);
}

}  // namespace quorvane::portfolio
