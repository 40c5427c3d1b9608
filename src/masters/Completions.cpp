#include "masters/Completions.h"

#include <fmt/format.h>

namespace quorvane::masters {
namespace {

using database::Connection;
using database::Recordset;

std::string_view TableOf(AddressBook book) {
  switch (book) {
    case AddressBook::kClients:
      return "ClientInfo";
    case AddressBook::kParticipants:
      return "DepPart";
    case AddressBook::kBrokers:
      return "Broker";
  }
  return {};
}

QStringList ValuesOf(Recordset rows) {
  QStringList values;
  while (rows.Next()) {
    if (const QString value = rows.Text(0); !value.trimmed().isEmpty()) {
      values << value;
    }
  }
  return values;
}

QStringList DistinctOfCity(Connection& connection, AddressBook book, std::string_view column,
                           const QString& city) {
  return ValuesOf(connection.Open(
      fmt::format("Select Distinct({0}) From {1} Where City=? Order By {0}", column, TableOf(book)),
      city));
}

}  // namespace

QStringList GroupCodes(Connection& connection) {
  return ValuesOf(connection.Open("Select Distinct(GCode) From ClientInfo Order By GCode"));
}

QStringList Cities(Connection& connection, AddressBook book) {
  return ValuesOf(
      connection.Open(fmt::format("Select Distinct(City) From {} Order By City", TableOf(book))));
}

QStringList PinsOf(Connection& connection, AddressBook book, const QString& city) {
  return DistinctOfCity(connection, book, "PIN", city);
}

QStringList StdCodesOf(Connection& connection, AddressBook book, const QString& city) {
  return DistinctOfCity(connection, book, "STD", city);
}

}  // namespace quorvane::masters
