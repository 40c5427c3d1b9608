#pragma once

#include "core/Ids.h"
#include "core/records/Cells.h"
#include "core/records/Table.h"

#include <QString>

#include <cstdint>

namespace quorvane::records {

/// Where somebody can be reached: what clients, participants and brokers have in common.
struct Contact {
  QString address;
  QString city;
  QString state;
  QString pin;
  QString std_code;
  QString phone;
  QString mobile;
  QString fax;
  QString email;

  bool operator==(const Contact&) const = default;
};

/// A person whose shares are managed.
struct Client : Contact {
  ClientId id;  ///< none until it is saved
  QString code;
  QString group_code;
  QString name;
  QString date_of_birth;    ///< dd/mm/yyyy or empty
  QString pan;              ///< permanent account number, may be empty
  int sex = -1;             ///< place in the list of sexes; -1 when none is chosen
  int marital_status = -1;  ///< place in the list of marital statuses; -1 when none is chosen
  QString document;         ///< name of the signature or identity file, without its folder
};

/// A demat account of a client with a depository participant.
struct Account {
  ClientId client;
  AccountId id;  ///< none until it is saved; bills and lots name it, so it stays
  ParticipantId participant;
  DpIdId dp_id;  ///< may be none
  QString number;
};

enum class Depository : std::uint8_t { kNsdl = 0, kCdsl = 1 };

/// A depository participant, who keeps demat accounts.
struct Participant : Contact {
  ParticipantId id;  ///< none until it is saved
  QString name;
  QString person;  ///< whom to speak to
  QString designation;
  Depository depository = Depository::kNsdl;

  bool operator==(const Participant&) const = default;
};

/// A number under which a participant is known to its depository.
struct DpId {
  ParticipantId participant;
  DpIdId id;
  QString number;
};

struct Broker : Contact {
  BrokerId id;  ///< none until it is saved
  QString name;
};

/// A security.
struct Scrip {
  ScripId id;  ///< none until it is saved
  QString code;
  QString name;
  int type = 0;         ///< key of a ScripType, 0 when none is chosen
  int scrip_class = 0;  ///< key of a ScripClass, 0 when none is chosen
  QString second_code;  ///< the other exchange's; may be empty
};

/// An ISIN of a scrip.
struct ScripIsin {
  ScripId scrip;
  QString isin;
  QString from_day;  ///< dd/mm/yyyy, or empty when it is not known
};

struct ScripType {
  int id = 0;
  QString name;
};

struct ScripClass {
  int id = 0;
  QString name;
};

struct Exchange {
  ExchangeId id;
  QString name;
};

/// Who may log in; the password is in a table that is not read as records.
struct User {
  int id = 0;
  QString name;
};

/// What a user may do; one without a row may do everything.
struct UserRights {
  int user = 0;
  int rights = 0;  ///< bits of changes::Right
};

/// A percentage of securities transaction tax to choose from.
struct SttPercent {
  int id = 0;
  double percent = 0;
};

/// A percentage of a year from which charges of bill lines are proposed.
struct Percentage {
  int id = 0;
  text::FinancialYear year;
  QString name;  ///< which charge, of which kind of delivery
  double percent = 0;
  QString as_on;
};

/// The columns of a record with a Contact, between those before it and those after it.
template <class Record, class... Before, class... After>
constexpr auto WithContact(std::tuple<Before...> before, std::string_view email,
                           std::tuple<After...> after) {
  const auto column = [](std::string_view name, QString Contact::*member) {
    return Column<Record, QString>{name, member};
  };
  return std::tuple_cat(
      before,
      std::tuple(column("Address", &Contact::address), column("City", &Contact::city),
                 column("State", &Contact::state), column("PIN", &Contact::pin),
                 column("STD", &Contact::std_code), column("Phone", &Contact::phone),
                 column("Mobile", &Contact::mobile), column("Fax", &Contact::fax),
                 column(email, &Contact::email)),
      after);
}

template <>
struct Table<Client> {
  static constexpr std::string_view kName = "ClientInfo";
  static constexpr auto kColumns = WithContact<Client>(
      std::tuple(Column{"Id", &Client::id}, Column{"Code", &Client::code},
                 Column{"GCode", &Client::group_code}, Column{"Name", &Client::name}),
      "EMail",
      std::tuple(Column{"DOB", &Client::date_of_birth}, Column{"PAN", &Client::pan},
                 Column{"Sex", &Client::sex}, Column{"MStatus", &Client::marital_status},
                 Column{"SignDoc", &Client::document}));
};

template <>
struct Table<Account> {
  static constexpr std::string_view kName = "ClientActDet";
  static constexpr auto kColumns =
      std::tuple(Column{"CId", &Account::client}, Column{"id", &Account::id},
                 Column{"DMATAC", &Account::participant}, Column{"DPID", &Account::dp_id},
                 Column{"ACNo", &Account::number});
};

/// Accounts that were removed while records name them, with the same columns as the others.
inline constexpr std::string_view kRemovedAccounts = "RemovedAccount";

template <>
struct Table<Participant> {
  static constexpr std::string_view kName = "DepPart";
  static constexpr auto kColumns = WithContact<Participant>(
      std::tuple(Column{"Id", &Participant::id}, Column{"Name", &Participant::name}), "Email",
      std::tuple(Column{"Person", &Participant::person},
                 Column{"Designation", &Participant::designation},
                 Column{"Depository", &Participant::depository}));
};

template <>
struct Table<DpId> {
  static constexpr std::string_view kName = "DpIDs";
  static constexpr auto kColumns = std::tuple(
      Column{"DepId", &DpId::participant}, Column{"id", &DpId::id}, Column{"DPID", &DpId::number});
};

template <>
struct Table<Broker> {
  static constexpr std::string_view kName = "Broker";
  static constexpr auto kColumns = WithContact<Broker>(
      std::tuple(Column{"Id", &Broker::id}, Column{"Name", &Broker::name}), "Email", std::tuple());
};

template <>
struct Table<Scrip> {
  static constexpr std::string_view kName = "Script";
  static constexpr auto kColumns =
      std::tuple(Column{"Id", &Scrip::id}, Column{"Code", &Scrip::code},
                 Column{"Name", &Scrip::name}, Column{"Type", &Scrip::type},
                 Column{"ScrCls", &Scrip::scrip_class}, Column{"NCode", &Scrip::second_code});
};

template <>
struct Table<ScripIsin> {
  static constexpr std::string_view kName = "ScripIsin";
  static constexpr auto kColumns =
      std::tuple(Column{"ScrId", &ScripIsin::scrip}, Column{"Isin", &ScripIsin::isin},
                 Column{"FromDay", &ScripIsin::from_day});
};

template <>
struct Table<User> {
  static constexpr std::string_view kName = "LoginId";
  static constexpr auto kColumns = std::tuple(Column{"id", &User::id}, Column{"Name", &User::name});
};

template <>
struct Table<UserRights> {
  static constexpr std::string_view kName = "UserRight";
  static constexpr auto kColumns =
      std::tuple(Column{"LoginId", &UserRights::user}, Column{"Rights", &UserRights::rights});
};

template <>
struct Table<ScripType> {
  static constexpr std::string_view kName = "ScriptType";
  static constexpr auto kColumns =
      std::tuple(Column{"Id", &ScripType::id}, Column{"Type", &ScripType::name});
};

template <>
struct Table<ScripClass> {
  static constexpr std::string_view kName = "ScriptClass";
  static constexpr auto kColumns =
      std::tuple(Column{"Id", &ScripClass::id}, Column{"Name", &ScripClass::name});
};

template <>
struct Table<Exchange> {
  static constexpr std::string_view kName = "Exchange";
  static constexpr auto kColumns =
      std::tuple(Column{"Id", &Exchange::id}, Column{"ExName", &Exchange::name});
};

template <>
struct Table<SttPercent> {
  static constexpr std::string_view kName = "STTPer";
  static constexpr auto kColumns =
      std::tuple(Column{"Id", &SttPercent::id}, Column{"STTPer", &SttPercent::percent});
};

template <>
struct Table<Percentage> {
  static constexpr std::string_view kName = "TransTaxPer";
  static constexpr auto kColumns =
      std::tuple(Column{"Id", &Percentage::id}, Column{"FYear", &Percentage::year},
                 Column{"Name", &Percentage::name}, Column{"Percent", &Percentage::percent},
                 Column{"Ason", &Percentage::as_on});
};

}  // namespace quorvane::records
