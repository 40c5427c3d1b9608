#pragma once

#include "core/Ids.h"
#include "core/Result.h"
#include "core/text/Dates.h"
#include "masters/Contact.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace quorvane::clients {

/// A demat account of a client with a depository participant.
struct Account {
  AccountId id;  ///< none until it is saved; bills and lots refer to it, so it never changes
  ParticipantId participant;
  DpIdId dp_id;
  QString number;
};

/// A person whose shares are managed, with the demat accounts in the order of entry.
struct Client {
  ClientId id;  ///< none until it is saved
  QString code;
  QString group_code;
  QString name;
  masters::Contact contact;
  QString date_of_birth;    ///< dd/mm/yyyy or empty; anything in an older record
  QString pan;              ///< permanent account number, may be empty
  int sex = -1;             ///< place in SexItems(); -1 when none is chosen
  int marital_status = -1;  ///< place in MaritalStatusItems(); -1 when none is chosen
  QString document;         ///< name of the signature or identity file, without its folder
  std::vector<Account> accounts;
};

/// The lists whose places are stored; an item's place never changes.
QStringList SexItems();
QStringList MaritalStatusItems();

/// The rules of a client in their order: first code, name and accounts; then, after the book has
/// seen whether the code is free, the date of birth, the permanent account number and texts that
/// are too long. What an older record holds and was not changed, as in `stored`, does not stop a
/// save.
MaybeRefusal CheckEntries(const Client& client);
MaybeRefusal CheckValues(const Client& client, const Client& stored);

/// An empty text, or the mask that older records hold in place of one: "__/__/____".
bool IsEmptyDate(const QString& date);

/// Whether a row of the accounts' grid is empty and is not to be kept. A row that is in the
/// database is kept: records refer to it.
bool IsBlank(const Account& account);

/// When the box is left: what is wrong with a permanent account number, and a warning about one
/// that is accepted nevertheless.
MaybeRefusal CheckPan(const QString& pan);
QString PanWarning(const QString& pan);

}  // namespace quorvane::clients
