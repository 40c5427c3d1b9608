#include "core/text/Pan.h"
#include "portfolio/PortfolioRows.h"

#include <algorithm>

namespace quorvane::portfolio {

template <class Row>
void MasterRows::AddUnique(std::vector<Row>& rows, Row row, int column) {
  if (!keys_.emplace(static_cast<int>(fields_.File()), KeyOf(row.record)).second) {
    fields_.Table().Fail(column, "stands in this file already");
    return;
  }
  rows.push_back(std::move(row));
}

void MasterRows::ReadParticipant() {
  using namespace participants;
  MasterRow<records::Participant> row{{}, fields_.Table().Line()};
  records::Participant& record = row.record;
  record.name = fields_.Text(kName);
  fields_.ReadContact(record, kAddress);
  record.person = fields_.Text(kPerson);
  record.designation = fields_.Text(kDesignation);
  record.depository = fields_.Table().Choice(kDepository, kDepositories) == 1
                          ? records::Depository::kCdsl
                          : records::Depository::kNsdl;
  portfolio_.dp_ids.push_back({KeyOf(record), fields_.Text(kDpId), row.line});
  // A participant with several DP ids has a row for each.
  const auto same = std::ranges::find(
      portfolio_.participants, KeyOf(record),
      [](const MasterRow<records::Participant>& other) { return KeyOf(other.record); });
  if (same == portfolio_.participants.end()) {
    portfolio_.participants.push_back(std::move(row));
  } else if (same->record != record) {
    fields_.Table().Fail(kName, "the participant stands above with other details");
  }
}

void MasterRows::ReadClient() {
  using namespace clients;
  MasterRow<records::Client> row{{}, fields_.Table().Line()};
  records::Client& record = row.record;
  record.code = fields_.Text(kCode);
  record.group_code = fields_.Text(kGroupCode);
  record.name = fields_.Text(kName);
  fields_.ReadContact(record, kAddress);
  record.date_of_birth = fields_.DayText(kDob);
  record.pan = fields_.Text(kPan);
  if (!text::IsValidPan(record.pan).valid) {
    fields_.Table().Fail(
        kPan, "expected a PAN such as AAAPA9999A, found " + Quoted(record.pan.toStdString()));
  }
  record.sex = fields_.Table().Choice(kSex, kSexes);
  record.marital_status = fields_.Table().Choice(kMaritalStatus, kMaritalStatuses);
  AddUnique(portfolio_.clients, std::move(row), kCode);
}

void MasterRows::ReadAccount() {
  using namespace accounts;
  portfolio_.accounts.push_back({fields_.Client(kClientCode), fields_.FoldedText(kParticipant),
                                 fields_.Text(kDpId), fields_.Text(kAccountNo),
                                 fields_.Table().Line()});
}

void MasterRows::ReadBroker() {
  using namespace brokers;
  MasterRow<records::Broker> row{{}, fields_.Table().Line()};
  row.record.name = fields_.Text(kName);
  fields_.ReadContact(row.record, kAddress);
  AddUnique(portfolio_.brokers, std::move(row), kName);
}

void MasterRows::ReadScrip() {
  using namespace scrips;
  ScripRow row{{{}, fields_.Table().Line()}, fields_.Text(kType), fields_.Text(kClass)};
  row.record.code = fields_.Text(kCode);
  row.record.name = fields_.Text(kName);
  row.record.second_code = fields_.Text(kNCode);
  AddUnique(portfolio_.scrips, std::move(row), kCode);
}

void MasterRows::ReadPercentage() {
  using namespace percentages;
  MasterRow<records::Percentage> row{{}, fields_.Table().Line()};
  const auto year = fields_.Table().YearOf(kFyear);
  const int kind = fields_.Table().Choice(kName, kPercentKinds);
  row.record.percent = fields_.Table().Number(kPercent);
  if (!year || kind < 0) {
    return;
  }
  row.record.year = *year;
  row.record.name = fields_.Text(kName);
  row.record.as_on = fields_.Text(kAsOn);
  AddUnique(portfolio_.percentages, std::move(row), kName);
}

}  // namespace quorvane::portfolio
