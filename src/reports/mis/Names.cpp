#include "reports/mis/Names.h"

namespace quorvane::mis {
namespace {

std::string Padded(const std::string& text, int id) {
  std::string number = std::to_string(id);
  constexpr std::size_t kDigits = 10;
  return lookups::Folded(text) + '\0' +
         std::string(kDigits - std::min(kDigits, number.size()), '0') + number;
}

}  // namespace

Names::Names(database::Connection& connection) : directory_(connection) {
  for (const auto& row : connection.Open("Select Id,GCode From ClientInfo")) {
    groups_.emplace(ClientId{row.Int(0)}, row.Utf8(1));
  }
}

QString Names::Scrip(ScripId id) const {
  return QString::fromStdString(directory_.Scrip(id).name);
}

QString Names::Account(AccountId id) const {
  return QString::fromStdString(directory_.Account(id).number);
}

QString Names::Client(ClientId id) const {
  const lookups::ClientEntry& client = directory_.Client(id);
  return QString::fromStdString(client.name + " (" + client.code + ')');
}

QString Names::GroupOf(ClientId id) const {
  const auto found = groups_.find(id);
  return found == groups_.end() ? QString() : QString::fromStdString(found->second).trimmed();
}

std::string Names::SortKey(ScripId id) const {
  return Padded(directory_.Scrip(id).name, id.value);
}

std::string Names::SortKey(AccountId id) const {
  return Padded(directory_.Account(id).number, id.value);
}

std::string Names::SortKey(ClientId id) const {
  return Padded(directory_.Client(id).code, id.value);
}

std::string Names::GroupSortKey(ClientId id) const {
  return lookups::Folded(GroupOf(id).toStdString());
}

std::vector<ClientId> Names::ClientsOf(const QString& group) const {
  const std::string wanted = lookups::Folded(group.trimmed().toStdString());
  std::vector<ClientId> clients;
  for (const lookups::ClientEntry& client : directory_.Clients()) {
    if (GroupSortKey(client.id) == wanted) {
      clients.push_back(client.id);
    }
  }
  return clients;
}

}  // namespace quorvane::mis
