#include "core/lookups/Choices.h"

#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace quorvane::lookups {

namespace {

using database::Connection;
using database::Recordset;
using database::Value;

template <class Key>
using Query = std::pair<Key, std::string_view>;

// Every query gives the key and the text to show.
constexpr std::array kChoiceQueries{
    Query<Choices>{Choices::kParticipants, "Select ID,Name From DepPart"},
    Query<Choices>{Choices::kScripTypes, "Select ID,Type From ScriptType"},
    Query<Choices>{Choices::kScripClasses, "Select ID,Name From ScriptClass"},
    Query<Choices>{Choices::kScripNames, "Select ID,Name From Script Order By Name Desc"},
    Query<Choices>{Choices::kScripCodes, "Select ID,Code From Script Order By Name Desc"},
    Query<Choices>{Choices::kScripNseCodes, "Select ID,NCode From Script Order By Name Desc"},
    Query<Choices>{Choices::kAccounts, "Select ID,AcNo From ClientActDet"},
    Query<Choices>{Choices::kBrokers, "Select Id,Name From Broker Order By Name Desc"},
};

constexpr std::array kDropDownQueries{
    Query<DropDown>{DropDown::kScripTypes, "Select ID,Type From ScriptType Order By Type"},
    Query<DropDown>{DropDown::kScripClasses, "Select ID,Name From ScriptClass Order By Name"},
    Query<DropDown>{DropDown::kExchanges, "Select Id,ExName From Exchange Order by ExName"},
    Query<DropDown>{DropDown::kSttPercentages, "Select Id,STTPer From STTPer Order by STTPer"},
    Query<DropDown>{DropDown::kBrokers, "Select Id,Name From Broker Order By Name"},
    Query<DropDown>{DropDown::kScrips, "Select Id,Name From Script"},
};

constexpr std::string_view kAccountsOfClient = "Select ID,AcNo From ClientActDet Where Cid=?";
constexpr std::string_view kAccountsOfOthers = "Select Id,ACNo From ClientActDet Where Cid<>?";
constexpr std::string_view kDpIdsOfParticipant = "Select ID,DpId From DpIDs Where DepId=?";

template <class Key, std::size_t kCount>
std::string_view QueryOf(const std::array<Query<Key>, kCount>& queries, Key key) {
  return std::ranges::find(queries, key, &Query<Key>::first)->second;
}

std::vector<Item> ReadItems(Recordset rows) {
  std::vector<Item> items;
  while (rows.Next()) {
    items.push_back({rows.Int(0), rows.Text(1)});
  }
  return items;
}

}  // namespace

QString ListOf(const std::vector<Item>& items) {
  QString list;
  for (const Item& item : items) {
    QString text = item.text;
    text.replace(QLatin1Char('|'), kBarInText);
    list +=
        QLatin1Char('#') + QString::number(item.id) + QLatin1Char(';') + text + QLatin1Char('|');
  }
  return list;
}

QString ChoiceList(Connection& connection, Choices choices) {
  return ListOf(ReadItems(connection.Open(QueryOf(kChoiceQueries, choices))));
}

QString AccountChoiceList(Connection& connection, ClientId client) {
  return ListOf(AccountItems(connection, client));
}

QString DpIdChoiceList(Connection& connection, ParticipantId participant) {
  return ListOf(ReadItems(connection.Open(kDpIdsOfParticipant, participant)));
}

std::vector<Item> DropDownItems(Connection& connection, DropDown list) {
  return ReadItems(connection.Open(QueryOf(kDropDownQueries, list)));
}

std::vector<Item> AccountItems(Connection& connection, ClientId client) {
  return ReadItems(connection.Open(kAccountsOfClient, client));
}

std::vector<Item> AccountItemsOfOthers(Connection& connection, ClientId client) {
  return ReadItems(connection.Open(kAccountsOfOthers, client));
}

ClientId AccountOwner(Connection& connection, AccountId account) {
  Recordset rows = connection.Open("Select Cid From ClientActDet Where Id=?", account);
  return ClientId{rows.Next() ? rows.Int("CId") : 0};
}

QString ExchangeName(Connection& connection, ExchangeId exchange) {
  Recordset rows = connection.Open("Select ExName From Exchange Where Id=?", exchange);
  return rows.Next() ? rows.Text("ExName") : QString();
}

QStringList FillStateList(const QString& path) {
  QStringList states;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    return states;
  }
  QTextStream lines(&file);
  QString line;
  while (lines.readLineInto(&line)) {
    states << line;
  }
  return states;
}

}  // namespace quorvane::lookups
