#include "portfolio/paper/ScripIsins.h"

#include "core/database/Transaction.h"
#include "core/rates/IsinBook.h"
#include "core/text/Tr.h"

namespace quorvane::paper {

MaybeRefusal AssignIsin(database::Connection& connection, ScripId scrip, const QString& isin) {
  return database::InTransaction(
      connection, [&](database::Transaction& transaction) -> MaybeRefusal {
        auto isins = rates::IsinsOf(transaction.GetConnection(), scrip);
        isins.push_back({isin, {}});
        if (MaybeRefusal refusal = rates::CheckIsins(isins)) {
          return refusal;
        }
        const rates::Isins all(transaction.GetConnection());
        if (!all.ScripsOf(isin.toStdString()).empty()) {
          return Refusal{Tr("Reconcile", "Another Script has the ISIN %1.").arg(isin),
                         Field::kScrip};
        }
        rates::SetIsins(transaction, scrip, isins);
        return std::nullopt;
      });
}

}  // namespace quorvane::paper
