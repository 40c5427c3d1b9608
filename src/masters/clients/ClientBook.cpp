#include "masters/clients/ClientBook.h"

#include "core/lookups/Patch.h"
#include "core/records/Action.h"
#include "core/records/Bill.h"
#include "core/records/Dividend.h"
#include "core/records/Lot.h"
#include "core/records/Money.h"
#include "core/records/Opening.h"
#include "core/records/OpeningMark.h"
#include "core/records/StatementCheck.h"
#include "core/records/Tax.h"
#include "core/records/Transfer.h"
#include "core/records/Writing.h"
#include "core/text/Tr.h"
#include "masters/clients/AccountBook.h"

#include <fmt/format.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace quorvane::clients {
namespace {

using database::Connection;
using database::Recordset;
using database::Transaction;

constexpr std::string_view kColumns = "Id,Code,GCode,Name,{},DOB,PAN,Sex,MStatus,SignDoc";
constexpr std::size_t kFirstContactColumn = 4;
constexpr std::size_t kAfterContact = kFirstContactColumn + masters::kContactColumnCount;

std::string Columns() {
  return fmt::format(kColumns, masters::kContactColumns);
}

Client ClientOf(const Recordset& row) {
  Client client;
  client.id = ClientId{row.Int(0)};
  client.code = row.Text(1);
  client.group_code = row.Text(2);
  client.name = row.Text(3);
  client.contact = masters::ContactOf(row, kFirstContactColumn);
  if (const QString date = row.Text(kAfterContact); !IsEmptyDate(date)) {
    client.date_of_birth = date;
  }
  client.pan = row.Text(kAfterContact + 1);
  client.sex = row.OptionalInt(kAfterContact + 2).value_or(-1);
  client.marital_status = row.OptionalInt(kAfterContact + 3).value_or(-1);
  client.document = row.Text(kAfterContact + 4);
  return client;
}

bool CodeIsTaken(Connection& connection, const Client& client) {
  return connection
      .Open("Select Code From ClientInfo Where Code=? and Id<>? For Update", client.code, client.id)
      .Next();
}

Refusal CodeTaken() {
  return {Tr("Clients", "Client Code Already Exists."), Field::kCode};
}

records::Client RecordOf(const Client& client) {
  records::Client record;
  static_cast<records::Contact&>(record) = client.contact;
  record.id = client.id;
  record.code = client.code;
  record.group_code = client.group_code;
  record.name = client.name;
  record.date_of_birth = client.date_of_birth;
  record.pan = client.pan;
  record.sex = client.sex;
  record.marital_status = client.marital_status;
  record.document = client.document;
  return record;
}

Result<Client> SaveIn(Transaction& transaction, Client client) {
  if (CodeIsTaken(transaction.GetConnection(), client)) {
    return CodeTaken();
  }
  client.id = records::ClaimKey(transaction, &records::Client::id, client.id);
  records::Insert(transaction, RecordOf(client));
  ReplaceAccounts(transaction, client);
  return client;
}

/// The tables that carry the client's key as their first column, those of later releases and of
/// other programs included. Their names come from the server and may need quoting.
std::vector<std::string> ClientTables(Transaction& transaction) {
  std::vector<std::string> tables;
  for (const auto& row : transaction.Open(
           "Select Replace(C.TABLE_NAME,'`','``') From information_schema.COLUMNS C "
           "Join information_schema.TABLES T On T.TABLE_SCHEMA=C.TABLE_SCHEMA and "
           "T.TABLE_NAME=C.TABLE_NAME Where C.TABLE_SCHEMA=Database() and "
           "T.TABLE_TYPE='BASE TABLE' and C.ORDINAL_POSITION=1 and Lower(C.COLUMN_NAME)='cid' "
           "Order By C.TABLE_NAME")) {
    tables.emplace_back(row.Utf8(0));
  }
  return tables;
}

template <class Record>
void DeleteOf(Transaction& transaction, ClientId id,
              std::string_view table = records::Table<Record>::kName) {
  records::Delete<Record>(transaction, table).Where(&Record::client, id).Run();
}

/// What the log of changes keeps of a client that is deleted.
void DeleteRecords(Transaction& transaction, ClientId id) {
  records::Delete<records::Client>(transaction).Where(&records::Client::id, id).Run();
  DeleteOf<records::Account>(transaction, id);
  DeleteOf<records::Account>(transaction, id, records::kRemovedAccounts);
  DeleteOf<records::Opening>(transaction, id);
  DeleteOf<records::OpeningMark>(transaction, id);
  DeleteOf<records::Bill>(transaction, id);
  DeleteOf<records::BillLine>(transaction, id);
  DeleteOf<records::Transfer>(transaction, id);
  DeleteOf<records::BrokerOpening>(transaction, id);
  DeleteOf<records::Payment>(transaction, id);
  DeleteOf<records::Payment>(transaction, id, records::kReceipts);
  DeleteOf<records::Lot>(transaction, id);
  DeleteOf<records::Dividend>(transaction, id);
  DeleteOf<records::ActionLot>(transaction, id);
  DeleteOf<records::TaxLoss>(transaction, id);
  DeleteOf<records::StatementCheck>(transaction, id);
}

std::string AfterCommit(const QString& done, const std::runtime_error& error) {
  return done.toStdString() + "\n" + error.what();
}

Refusal OfDocument(Refusal refusal) {
  refusal.field = Field::kDocument;
  return refusal;
}

}  // namespace

ClientBook::ClientBook(Connection& connection, documents::DocumentStore documents)
    : connection_(connection), documents_(std::move(documents)) {}

std::vector<ClientRow> ClientBook::List() const {
  std::vector<ClientRow> clients;
  for (const auto& row : connection_.Open("Select Id,Code,Name From ClientInfo Order By Code,Id")) {
    clients.push_back({ClientId{row.Int(0)}, row.Text(1), row.Text(2)});
  }
  return clients;
}

std::vector<ClientRow> ClientBook::List(std::span<const int> keys) const {
  std::vector<ClientRow> clients;
  const std::vector<database::Value> values(keys.begin(), keys.end());
  for (const auto& row : connection_.OpenValues(
           "Select Id,Code,Name From ClientInfo Where Id In (" + lookups::Places(keys.size()) + ")",
           values)) {
    clients.push_back({ClientId{row.Int(0)}, row.Text(1), row.Text(2)});
  }
  return clients;
}

std::optional<Client> ClientBook::Load(ClientId id) const {
  std::optional<Client> client;
  {
    Recordset rows =
        connection_.Open(fmt::format("Select {} From ClientInfo Where Id=?", Columns()), id);
    if (rows.Next()) {
      client = ClientOf(rows);
    }
  }
  if (client) {
    client->accounts = ReadAccounts(connection_, id);
  }
  return client;
}

Result<Client> ClientBook::Save(const Client& client, const QString& new_document) {
  const Client stored = Load(client.id).value_or(Client{});
  if (const MaybeRefusal refusal = Check(client, stored)) {
    return *refusal;
  }
  Result<Document> document = ReceiveDocument(client, stored, new_document);
  if (!document) {
    return document.Why();
  }
  Client with_document = client;
  with_document.document = document->name;
  Result<Client> saved = database::InTransaction(
      connection_, [&](Transaction& transaction) { return SaveIn(transaction, with_document); });
  if (saved) {
    FileDocument(*saved, std::move(document->incoming));
  }
  return saved;
}

MaybeRefusal ClientBook::Check(const Client& client, const Client& stored) const {
  if (MaybeRefusal refusal = CheckEntries(client)) {
    return refusal;
  }
  return CodeIsTaken(connection_, client) ? CodeTaken() : CheckValues(client, stored);
}

void ClientBook::Delete(ClientId id) {
  if (!id) {
    return;
  }
  database::InTransaction(connection_, [&](Transaction& transaction) {
    DeleteRecords(transaction, id);
    for (const std::string& table : ClientTables(transaction)) {
      transaction.Execute(fmt::format("Delete From `{}` Where Cid=?", table), id);
    }
  });
  try {
    documents_.Remove(id);
  } catch (const std::runtime_error& error) {
    throw std::runtime_error(
        AfterCommit(Tr("Clients", "The Client is Deleted, but the Document could not be."), error));
  }
}

Result<ClientBook::Document> ClientBook::ReceiveDocument(const Client& client, const Client& stored,
                                                         const QString& new_document) const {
  if (!new_document.isEmpty()) {
    auto received = documents_.Receive(new_document);
    if (!received) {
      return OfDocument(received.Why());
    }
    const QString name = received->Name();
    return Document{name, std::move(*received)};
  }
  const QString name = client.document.trimmed();
  const bool changed = name != stored.document.trimmed();
  if (changed && !name.isEmpty() && (!client.id || !documents_.Path(client.id, name))) {
    return OfDocument(documents::FileDoesNotExist());
  }
  return Document{name, {}};
}

void ClientBook::FileDocument(const Client& client,
                              documents::DocumentStore::Incoming incoming) const {
  try {
    if (!incoming.Name().isEmpty()) {
      documents_.Place(client.id, std::move(incoming));
    } else if (client.document.isEmpty()) {
      documents_.Remove(client.id);
    }
  } catch (const std::runtime_error& error) {
    throw DocumentNotFiled(
        AfterCommit(Tr("Clients", "The Client is Saved, but the Document could not be Filed."),
                    error),
        client.id);
  }
}

}  // namespace quorvane::clients
