#include "portfolio/trades/window/TargetPane.h"

#include "core/app/Session.h"
#include "core/lookups/Choices.h"
#include "portfolio/trades/window/LinesPane.h"

#include <QCheckBox>
#include <QHBoxLayout>

namespace quorvane::portfolio {

TargetPane::TargetPane(QWidget* parent) : QWidget(parent) {
  auto* choices = new QHBoxLayout(this);
  choices->setContentsMargins(0, 0, 0, 0);
  CboAccount = NewBox(QStringLiteral("CboAccount"));
  CboBroker = NewBox(QStringLiteral("CboBroker"));
  CboExchange = NewBox(QStringLiteral("CboExchange"));
  CboExchange->setToolTip(tr("Of trades whose file names none"));
  CboExchange->SetTexts({QStringLiteral("NSE"), QStringLiteral("BSE")});
  CboExchange->setCurrentIndex(0);
  ChkJoin = new QCheckBox(tr("&Join Fills of an Order"));
  ChkJoin->setObjectName(QStringLiteral("ChkJoin"));
  ChkJoin->setChecked(true);
  AddLabelled(*choices, tr("&Account"), CboAccount, 3);
  AddLabelled(*choices, tr("&Broker"), CboBroker, 2);
  AddLabelled(*choices, tr("E&xchange"), CboExchange);
  choices->addWidget(ChkJoin);
}

void TargetPane::Offer(const TradeBook& book, const app::Session& session) {
  std::vector<lookups::Item> accounts;
  for (const TradeAccount& account : book.Accounts()) {
    accounts.push_back({account.id.value, account.text});
  }
  const bool one_account = accounts.size() == 1;
  CboAccount->SetItems(std::move(accounts));
  std::vector<lookups::Item> brokers =
      lookups::DropDownItems(*session.connection, lookups::DropDown::kBrokers);
  const bool one_broker = brokers.size() == 1;
  CboBroker->SetItems(std::move(brokers));
  if (one_account) {
    CboAccount->setCurrentIndex(0);
  } else if (session.current) {
    const auto own = lookups::AccountItems(*session.connection, session.current->client);
    CboAccount->ById(own.empty() ? 0 : own.front().id);
  }
  if (one_broker) {
    CboBroker->setCurrentIndex(0);
  }
}

void TargetPane::ProposeBroker(std::span<const OpenedTrades> opened) {
  for (const OpenedTrades& one : opened) {
    if (CboBroker->HasChoice() || !one.header || one.header->broker.isEmpty()) {
      continue;
    }
    for (int i = 0; i < CboBroker->count(); ++i) {
      if (CboBroker->itemText(i).contains(one.header->broker, Qt::CaseInsensitive)) {
        CboBroker->setCurrentIndex(i);
        break;
      }
    }
  }
}

TradeOptions TargetPane::Options(text::Date today) const {
  return {ChkJoin->isChecked() ? TradePlan::Fills::kJoined : TradePlan::Fills::kKept,
          CboExchange->currentText().toStdString(), today};
}

controls::ComboBox* NewBox(const QString& name) {
  auto* box = new controls::ComboBox;
  box->setObjectName(name);
  return box;
}

}  // namespace quorvane::portfolio
