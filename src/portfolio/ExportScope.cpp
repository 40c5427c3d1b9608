#include "portfolio/ExportScope.h"

#include <fmt/format.h>

namespace quorvane::portfolio {
namespace {

std::string Places(std::size_t count) {
  std::string places;
  for (std::size_t i = 0; i < count; ++i) {
    places += i > 0 ? ",?" : "?";
  }
  return places;
}

}  // namespace

ExportScope::ExportScope(database::Connection& connection, std::optional<ClientId> client) {
  if (!client) {
    return;
  }
  std::vector<std::pair<ClientId, ClientId>> joined;
  for (const auto& row : connection.Open("Select Distinct Cid,ToClientID From ScrTransfer")) {
    joined.emplace_back(ClientId{row.Int(std::size_t{0})}, ClientId{row.Int(1)});
  }
  clients_ = {*client};
  for (std::size_t before = 0; before != clients_.size();) {
    before = clients_.size();
    for (const auto& [from, to] : joined) {
      if (clients_.contains(from) || clients_.contains(to)) {
        clients_.insert({from, to});
      }
    }
  }
}

ScopedText ExportScope::Clients(std::string_view column) const {
  if (clients_.empty()) {
    return {};
  }
  return {fmt::format(" Where {} In ({})", column, Places(clients_.size())),
          {clients_.begin(), clients_.end()}};
}

ScopedText ExportScope::UsedIn(std::string_view column,
                               std::initializer_list<Source> sources) const {
  ScopedText scoped;
  if (clients_.empty()) {
    return scoped;
  }
  for (const Source& source : sources) {
    scoped.text += scoped.text.empty() ? " Where " : " or ";
    scoped.text += fmt::format("{} In (Select {} From {} Where {} In ({}))", column, source.column,
                               source.table, source.client_column, Places(clients_.size()));
    scoped.values.insert(scoped.values.end(), clients_.begin(), clients_.end());
  }
  return scoped;
}

ScopedText ExportScope::Participants(std::string_view column) const {
  return UsedIn(column, {{"DMATAC", "ClientActDet", "CId"}});
}

ScopedText ExportScope::Brokers(std::string_view column) const {
  return UsedIn(column, {{"BrokId", "SPMaster", "Cid"},
                         {"BrId", "BrOpBal", "CId"},
                         {"BrId", "BrPayment", "Cid"},
                         {"BrId", "BrRec", "Cid"}});
}

ScopedText ExportScope::Scrips(std::string_view column) const {
  return UsedIn(column, {{"ScriptId", "SPTrans", "Cid"},
                         {"ScriptId", "StkOpBal", "CId"},
                         {"ScrId", "ScrTransfer", "Cid"}});
}

}  // namespace quorvane::portfolio
