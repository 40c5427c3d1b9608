#pragma once

#include "controls/ComboBox.h"
#include "portfolio/trades/TradeBook.h"

#include <QWidget>

class QCheckBox;

namespace quorvane::app {
struct Session;
}

namespace quorvane::portfolio {

/// Whose trades a file has, and how they are made into lines.
class TargetPane : public QWidget {
  Q_OBJECT

 public:
  explicit TargetPane(QWidget* parent = nullptr);

  /// Offers the accounts and brokers; proposes the first account of the current client, and what
  /// there is only one of.
  void Offer(const TradeBook& book, const app::Session& session);

  /// Proposes the broker whose name has that of a file's layout in it, while none is chosen.
  void ProposeBroker(std::span<const OpenedTrades> opened);

  bool IsChosen() const { return CboAccount->HasChoice() && CboBroker->HasChoice(); }
  AccountId Account() const { return AccountId{CboAccount->CurrentId()}; }
  BrokerId Broker() const { return BrokerId{CboBroker->CurrentId()}; }
  TradeOptions Options(text::Date today) const;

  controls::ComboBox* CboAccount = nullptr;
  controls::ComboBox* CboBroker = nullptr;
  controls::ComboBox* CboExchange = nullptr;  ///< of trades whose file names none
  QCheckBox* ChkJoin = nullptr;
};

/// A drop-down list of that name.
controls::ComboBox* NewBox(const QString& name);

}  // namespace quorvane::portfolio
