#pragma once

#include "core/database/Connection.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace quorvane::lookups {

/// What a grid column lets the user choose from. The three lists of scrips have the same order, by
/// name from Z to A; they show names, codes and second codes.
enum class Choices {
  kParticipants,
  kScripTypes,
  kScripClasses,
  kScripNames,
  kScripCodes,
  kScripNseCodes,
  kAccounts,
  kBrokers,
};

/// What a drop-down list offers.
enum class DropDown {
  kScripTypes,
  kScripClasses,
  kExchanges,
  kSttPercentages,
  kBrokers,
  kScrips,
};

/// One line of a drop-down list with the key of its record.
struct Item {
  int id = 0;
  QString text;

  bool operator==(const Item&) const = default;
};

/// What a choice list has in place of a "|" within a text, which would end the entry.
inline constexpr QChar kBarInText{0x1F};

/// A grid column's choice list: "#id;text|" a record; empty when there is none.
QString ListOf(const std::vector<Item>& items);
QString ChoiceList(database::Connection& connection, Choices choices);
QString AccountChoiceList(database::Connection& connection, ClientId client);
QString DpIdChoiceList(database::Connection& connection, ParticipantId participant);

/// The lines of a drop-down list, by their text where the list has an order.
std::vector<Item> DropDownItems(database::Connection& connection, DropDown list);
std::vector<Item> AccountItems(database::Connection& connection, ClientId client);

/// The accounts of every other client, for a transfer to one of them.
std::vector<Item> AccountItemsOfOthers(database::Connection& connection, ClientId client);

/// The client whose account it is; none when there is no such account.
ClientId AccountOwner(database::Connection& connection, AccountId account);

/// Empty when there is no such exchange.
QString ExchangeName(database::Connection& connection, ExchangeId exchange);

/// The names of the states to choose from: the lines of a UTF-8 text file, in their order. Empty
/// when there is no such file.
QStringList FillStateList(const QString& path);

}  // namespace quorvane::lookups
