#include "transactions/posting/Shortage.h"

#include <QCoreApplication>

namespace quorvane::posting {

MaybeRefusal RefuseShortage(database::Connection& connection, const ledger::Lots& lots,
                            const QString& field) {
  const std::optional<ScripId> scrip = lots.Shortage();
  if (!scrip) {
    return std::nullopt;
  }
  auto rows = connection.Open("Select Name From Script Where Id=?", *scrip);
  const QString name = rows.Next() ? rows.Text(std::size_t{0}) : QString();
  return Refusal{
      QCoreApplication::translate(
          "Posting", "You Can't Update Record.\n\nQunatity of %1 Script Can't be Negative Value.")
          .arg(name),
      field};
}

}  // namespace quorvane::posting
