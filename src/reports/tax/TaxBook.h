#pragma once

#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/lookups/Directory.h"
#include "core/positions/Positions.h"
#include "reports/tax/TaxYear.h"

#include <map>
#include <span>
#include <vector>

namespace quorvane::tax_year {

/// A client's year with the history that it was worked out from.
struct ClientTax {
  TaxYear year;
  positions::Positions history;  ///< of this client, up to the end of the year

  /// What the year before leaves to be brought forward; none when its law is not known.
  std::vector<OpenLoss> left_before;
};

/// Works out the tax year of clients with one query a table, however many they are. Pieces come by
/// account number, scrip code and day of sale. Throws DatabaseError and Cancellation.
class TaxBook {
 public:
  /// `before` are the rules of the year before, where these are known. The rules outlive the book.
  TaxBook(database::Connection& connection, const lookups::Directory& directory,
          const tax::Rules& rules, const tax::Rules* before)
      : connection_(connection), directory_(directory), rules_(rules), before_(before) {}

  ClientTax Of(ClientId client, Progress& progress) const;

  /// Of several clients from one reading, in the order given.
  std::vector<ClientTax> Of(std::span<const ClientId> clients, Progress& progress) const;

 private:
  /// Of every client; what was entered to be brought forward.
  struct Losses {
    tax::LossesByClient of_year;
    tax::LossesByClient of_year_before;
  };

  Losses ReadLosses() const;
  ClientTax Make(ClientId client, positions::Positions history, Losses& losses) const;

  database::Connection& connection_;
  const lookups::Directory& directory_;
  const tax::Rules& rules_;
  const tax::Rules* before_;
};

/// The losses to bring forward into a year: those that the year before leaves, in place of the same
/// ones that were entered, and the others that were entered.
std::vector<tax::TaxLoss> Carried(const ClientYear& of, std::span<const tax::TaxLoss> entered,
                                  std::span<const OpenLoss> left_before);

/// Whether those that the year before leaves are what the year brings forward.
bool IsCarried(const TaxYear& year, std::span<const OpenLoss> left_before);

/// The client and all others of the same group code, by code.
std::vector<ClientId> FamilyByCode(database::Connection& connection,
                                   const lookups::Directory& directory, ClientId client);

}  // namespace quorvane::tax_year
