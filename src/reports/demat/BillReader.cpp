#include "reports/demat/BillReader.h"

#include "core/text/Tr.h"

#include <algorithm>
#include <tuple>

namespace quorvane::demat {
namespace {

constexpr int kSteps = 3;

template <class IdType>
bool IsWanted(const std::vector<IdType>& wanted, IdType id) {
  return wanted.empty() || std::ranges::find(wanted, id) != wanted.end();
}

}  // namespace

std::vector<PlacedBill> BillReader::Read() {
  progress_.Begin(Tr("TransactionReport", "Reading bills"), kSteps);
  ReadMasters();
  Step();
  ReadBills();
  Step();
  ReadLines();
  Step();
  std::ranges::sort(bills_, {}, [this](const PlacedBill& one) {
    return std::tuple(one.client_rank, query_.account_wise ? one.account_rank : 0, one.broker_rank,
                      one.date, one.bill.id);
  });
  return std::move(bills_);
}

QString BillReader::NameOf(BrokerId broker) const {
  const auto found = names_.find(broker);
  return found == names_.end() ? QString() : found->second;
}

void BillReader::Step() {
  progress_.Step(++steps_);
  progress_.ThrowIfCancelled();
}

void BillReader::ReadMasters() {
  for (const auto& row : connection_.Open("Select Id From ClientInfo Order By Code,Id")) {
    clients_.Add(row.Int(0));
  }
  for (const auto& row : connection_.Open("Select id From ClientActDet Order By ACNo,id")) {
    accounts_.Add(row.Int(0));
  }
  for (const auto& row : connection_.Open("Select Id,Name From Broker Order By Name,Id")) {
    brokers_.Add(row.Int(0));
    names_.emplace(BrokerId{row.Int(0)}, row.Text(1));
  }
}

template <class Record>
records::Select<Record> BillReader::OfYear() {
  records::Select<Record> select(connection_);
  select.Where(&Record::client, query_.client).Where(&Record::year, query_.year);
  return select;
}

void BillReader::ReadBills() {
  OfYear<records::Bill>().Each([this](const records::Bill& bill) {
    const auto date = text::ParseDmy(bill.date);
    if (!date) {
      faults_.push_back({records::FaultKind::kBillWithoutDate, bill.client, bill.id.value,
                         bill.number.toStdString(), bill.date.toStdString()});
    } else if (query_.period.from <= *date && *date <= query_.period.to &&
               IsWanted(query_.accounts, bill.account)) {
      places_.emplace(bill.id, bills_.size());
      bills_.push_back({clients_.Of(bill.client.value), accounts_.Of(bill.account.value),
                        brokers_.Of(bill.broker.value), *date, bill});
    }
  });
}

void BillReader::ReadLines() {
  using records::BillLine;
  OfYear<BillLine>()
      .OrderBy(&BillLine::bill)
      .OrderBy(&BillLine::number)
      .Each([this](const BillLine& line) {
        const auto place = places_.find(line.bill);
        if (place != places_.end() && bills_[place->second].bill.Of() == line.Of() &&
            IsWanted(query_.scrips, line.scrip)) {
          bills_[place->second].bill.lines.push_back(line);
        }
      });
}

}  // namespace quorvane::demat
