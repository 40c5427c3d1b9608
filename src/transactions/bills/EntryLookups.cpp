#include "transactions/bills/EntryLookups.h"

#include <algorithm>

namespace quorvane::bills {
namespace {

struct PercentNames {
  const char* brokerage;
  const char* stt;
};

PercentNames NamesOf(Delivery delivery) {
  return delivery == Delivery::kDeliveryBased
             ? PercentNames{"Brokerage Delivery Based", "STT Delivery Based"}
             : PercentNames{"Brokerage Non Delivery Based", "STT Non Delivery Based"};
}

}  // namespace

QString DeliveryText(Delivery delivery) {
  return delivery == Delivery::kDeliveryBased ? QStringLiteral("Delivery Based")
                                              : QStringLiteral("Non Delivery Based");
}

std::optional<Delivery> DeliveryOf(const QString& text) {
  for (const Delivery delivery : {Delivery::kDeliveryBased, Delivery::kNonDeliveryBased}) {
    if (text.compare(DeliveryText(delivery), Qt::CaseInsensitive) == 0) {
      return delivery;
    }
  }
  return std::nullopt;
}

records::ChargePercents ReadPercents(database::Connection& connection, text::FinancialYear year,
                                     Delivery delivery) {
  const PercentNames names = NamesOf(delivery);
  records::ChargePercents percents;
  for (const auto& row : connection.Open(
           "Select Name,Percent From TransTaxPer Where FYear=? and (Name=? or Name=? or "
           "Name='Service Tax')",
           year.Text(), names.brokerage, names.stt)) {
    const QString name = row.Text(std::size_t{0});
    double& percent =
        name.compare(QLatin1String(names.brokerage), Qt::CaseInsensitive) == 0 ? percents.brokerage
        : name.compare(QLatin1String(names.stt), Qt::CaseInsensitive) == 0     ? percents.stt
                                                                           : percents.service_tax;
    percent = row.Double(1);
  }
  return percents;
}

std::optional<double> MarketRateOf(database::Connection& connection, text::FinancialYear year,
                                   ScripId scrip, const QString& date) {
  auto rows = connection.Open("Select Rate From MarketRate Where ScrId=? and FYear=? and MDate=?",
                              scrip, year.Text(), date);
  const std::optional<double> rate = rows.Next() ? rows.OptionalDouble(0) : std::nullopt;
  return rate && *rate > 0 ? rate : std::nullopt;
}

ScripList::ScripList(database::Connection& connection) {
  for (const auto& row :
       connection.Open("Select Id,Code,Name,NCode From Script Order By Name,Id")) {
    places_.try_emplace(ScripId{row.Int(std::size_t{0})}, scrips_.size());
    scrips_.push_back(
        {ScripId{row.Int(std::size_t{0})}, row.Text(1), row.Text(2), row.Text(3).trimmed()});
  }
}

std::vector<lookups::Item> ScripList::Names() const {
  std::vector<lookups::Item> items;
  items.reserve(scrips_.size());
  for (const ScripFound& scrip : scrips_) {
    items.push_back({scrip.id.value, scrip.name});
  }
  return items;
}

QStringList ScripList::Codes() const {
  QStringList codes;
  codes.reserve(2 * static_cast<qsizetype>(scrips_.size()));
  for (const ScripFound& scrip : scrips_) {
    codes << scrip.code << scrip.ncode;
  }
  codes.sort();
  codes.removeAll(QString());
  codes.erase(std::unique(codes.begin(), codes.end()), codes.end());
  return codes;
}

const ScripFound* ScripList::Find(ScripId id) const {
  const auto found = places_.find(id);
  return found == places_.end() ? nullptr : &scrips_[found->second];
}

QString ScripList::NameOf(ScripId id) const {
  const ScripFound* scrip = Find(id);
  return scrip == nullptr ? QString() : scrip->name;
}

std::optional<ScripFound> FindScripByCode(database::Connection& connection, const QString& code) {
  const QString wanted = code.trimmed().toUpper();
  if (wanted.isEmpty()) {
    return std::nullopt;
  }
  auto rows = connection.Open(
      "Select Id,Code,Name,NCode From Script Where Ucase(Code)=? or Ucase(NCode)=? "
      "Order By Ucase(Code)=? Desc,Id Limit 1",
      wanted, wanted, wanted);
  if (!rows.Next()) {
    return std::nullopt;
  }
  return ScripFound{ScripId{rows.Int(std::size_t{0})}, rows.Text(1), rows.Text(2),
                    rows.Text(3).trimmed()};
}

}  // namespace quorvane::bills
