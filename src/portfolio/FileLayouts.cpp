#include "portfolio/FileLayouts.h"

#include <array>

namespace quorvane::portfolio {
namespace {

constexpr std::size_t kUnbounded = 1000000;

constexpr std::array<ColumnLayout, 14> kParticipants{{{"name", true, 255},
                                                      {"depository", false, 10},
                                                      {"dp_id", false, 100},
                                                      {"address", false, kUnbounded},
                                                      {"city", false, 255},
                                                      {"state", false, 255},
                                                      {"pin", false, 11},
                                                      {"std", false, 10},
                                                      {"phone", false, 100},
                                                      {"mobile", false, 100},
                                                      {"fax", false, 100},
                                                      {"email", false, 100},
                                                      {"person", false, 255},
                                                      {"designation", false, 255}}};

constexpr std::array<ColumnLayout, 16> kClients{{{"code", true, 100},
                                                 {"group_code", false, 100},
                                                 {"name", true, 255},
                                                 {"address", false, kUnbounded},
                                                 {"city", false, 255},
                                                 {"state", false, 255},
                                                 {"pin", false, 10},
                                                 {"std", false, 10},
                                                 {"phone", false, 100},
                                                 {"mobile", false, 100},
                                                 {"fax", false, 100},
                                                 {"email", false, 255},
                                                 {"dob", false, 0},
                                                 {"pan", false, 10},
                                                 {"sex", false, 20},
                                                 {"marital_status", false, 20}}};

constexpr std::array<ColumnLayout, 4> kAccounts{{{"client_code", true, 100},
                                                 {"participant", true, 255},
                                                 {"dp_id", false, 100},
                                                 {"account_no", true, 100}}};

constexpr std::array<ColumnLayout, 10> kBrokers{{{"name", true, 255},
                                                 {"address", false, kUnbounded},
                                                 {"city", false, 255},
                                                 {"state", false, 255},
                                                 {"pin", false, 11},
                                                 {"std", false, 10},
                                                 {"phone", false, 100},
                                                 {"mobile", false, 100},
                                                 {"fax", false, 100},
                                                 {"email", false, 100}}};

constexpr std::array<ColumnLayout, 5> kScrips{{{"code", true, 255},
                                               {"ncode", false, 255},
                                               {"name", true, 255},
                                               {"type", true, 255},
                                               {"class", true, 255}}};

constexpr std::array<ColumnLayout, 4> kPercentages{
    {{"fyear", true, 0}, {"name", true, 100}, {"percent", true, 0}, {"as_on", false, 100}}};

constexpr std::array<ColumnLayout, 11> kOpening{{{"client_code", true, 100},
                                                 {"account_no", false, 100},
                                                 {"fyear", true, 0},
                                                 {"scrip_code", true, 255},
                                                 {"quantity", true, 0},
                                                 {"rate", true, 0},
                                                 {"purchase_date", true, 0},
                                                 {"service_tax", false, 0},
                                                 {"brokerage", false, 0},
                                                 {"stt", false, 0},
                                                 {"fo", false, 0}}};

constexpr std::array<ColumnLayout, 21> kBills{{{"client_code", true, 100},
                                               {"account_no", false, 100},
                                               {"bill_no", true, 100},
                                               {"bill_date", true, 0},
                                               {"settlement_no", false, 100},
                                               {"broker", true, 255},
                                               {"exchange", true, 255},
                                               {"side", true, 0},
                                               {"scrip_code", true, 255},
                                               {"quantity", true, 0},
                                               {"rate", true, 0},
                                               {"brokerage", false, 0},
                                               {"service_tax", false, 0},
                                               {"stt", false, 0},
                                               {"stt_percent", false, 0},
                                               {"delivery_type", false, 100},
                                               {"fo", false, 0},
                                               {"lot_rate", false, 0},
                                               {"other_charges", false, 0},
                                               {"transaction_charges", false, 0},
                                               {"bill_part", false, 0}}};

constexpr std::array<ColumnLayout, 8> kTransfers{{{"date", true, 0},
                                                  {"from_account", true, 100},
                                                  {"to_account", true, 100},
                                                  {"scrip_code", true, 255},
                                                  {"rate", true, 0},
                                                  {"quantity", true, 0},
                                                  {"from_client", false, 100},
                                                  {"to_client", false, 100}}};

constexpr std::array<ColumnLayout, 5> kBrokerOpening{{{"client_code", true, 100},
                                                      {"fyear", true, 0},
                                                      {"broker", true, 255},
                                                      {"amount", true, 0},
                                                      {"side", true, 0}}};

constexpr std::array<ColumnLayout, 10> kMoney{{{"client_code", true, 100},
                                               {"broker", true, 255},
                                               {"mode", true, 0},
                                               {"amount", true, 0},
                                               {"date", true, 0},
                                               {"payment_mode", true, 0},
                                               {"cheque_no", false, 100},
                                               {"cheque_date", false, 0},
                                               {"drawn_on", false, 255},
                                               {"remark", false, 255}}};

constexpr std::array<ColumnLayout, 3> kRates{
    {{"date", true, 0}, {"scrip_code", true, 255}, {"rate", true, 0}}};

constexpr std::array<ColumnLayout, 3> kIsins{
    {{"scrip_code", true, 255}, {"isin", true, 12}, {"from_date", false, 0}}};

constexpr std::array<ColumnLayout, 12> kActions{{{"scrip_code", true, 255},
                                                 {"kind", true, 0},
                                                 {"ex_date", true, 0},
                                                 {"record_date", false, 0},
                                                 {"new", false, 0},
                                                 {"old", false, 0},
                                                 {"other_scrip_code", false, 255},
                                                 {"price", false, 0},
                                                 {"cost_percent", false, 0},
                                                 {"note", false, 255},
                                                 {"allotment_date", false, 0},
                                                 {"applied", false, 0}}};

constexpr std::array<ColumnLayout, 13> kActionLots{{{"action", true, 0},
                                                    {"client_code", true, 100},
                                                    {"account_no", false, 100},
                                                    {"scrip_code", true, 255},
                                                    {"rate", false, 0},
                                                    {"out", false, 0},
                                                    {"to_scrip_code", false, 255},
                                                    {"to_rate", false, 0},
                                                    {"in", false, 0},
                                                    {"acquired", false, 0},
                                                    {"brokerage", false, 0},
                                                    {"service_tax", false, 0},
                                                    {"stt", false, 0}}};

constexpr std::array<ColumnLayout, 8> kDividends{{{"client_code", true, 100},
                                                  {"account_no", false, 100},
                                                  {"scrip_code", true, 255},
                                                  {"date", true, 0},
                                                  {"quantity", true, 0},
                                                  {"per_share", true, 0},
                                                  {"tax_deducted", false, 0},
                                                  {"action", false, 0}}};

constexpr std::array<ColumnLayout, 2> kFairValues{{{"scrip_code", true, 255}, {"rate", true, 0}}};

constexpr std::array<ColumnLayout, 5> kTaxLosses{{{"client_code", true, 100},
                                                  {"fyear", true, 0},
                                                  {"kind", true, 0},
                                                  {"amount", true, 0},
                                                  {"loss_year", false, 0}}};

constexpr std::array<ColumnLayout, 4> kOpeningMarks{{{"client_code", true, 100},
                                                     {"account_no", false, 100},
                                                     {"fyear", true, 0},
                                                     {"scrip_code", true, 255}}};

constexpr std::array<ColumnLayout, 8> kTradeKeys{{{"client_code", true, 100},
                                                  {"account_no", true, 100},
                                                  {"bill_no", true, 100},
                                                  {"bill_date", true, 0},
                                                  {"broker", true, 255},
                                                  {"trade_key", true, 120},
                                                  {"scrip_code", false, 255},
                                                  {"bill_part", false, 0}}};

constexpr std::array<ColumnLayout, 6> kStatementChecks{{{"client_code", true, 100},
                                                        {"account_no", true, 100},
                                                        {"statement_day", true, 0},
                                                        {"compared", true, 0},
                                                        {"differing", true, 0},
                                                        {"checked_on", true, 0}}};

constexpr std::array<FileLayout, 22> kLayouts{
    {{FileKind::kParticipants, "participants.csv", kParticipants},
     {FileKind::kClients, "clients.csv", kClients},
     {FileKind::kAccounts, "accounts.csv", kAccounts},
     {FileKind::kBrokers, "brokers.csv", kBrokers},
     {FileKind::kScrips, "scrips.csv", kScrips},
     {FileKind::kPercentages, "percentages.csv", kPercentages},
     {FileKind::kOpening, "opening.csv", kOpening},
     {FileKind::kBills, "bills.csv", kBills},
     {FileKind::kTransfers, "transfers.csv", kTransfers},
     {FileKind::kBrokerOpening, "broker_opening.csv", kBrokerOpening},
     {FileKind::kPayments, "payments.csv", kMoney},
     {FileKind::kReceipts, "receipts.csv", kMoney},
     {FileKind::kRates, "rates.csv", kRates},
     {FileKind::kIsins, "isins.csv", kIsins},
     {FileKind::kActions, "corporate_actions.csv", kActions},
     {FileKind::kActionLots, "corporate_action_lots.csv", kActionLots},
     {FileKind::kDividends, "dividends.csv", kDividends},
     {FileKind::kFairValues, "fair_values.csv", kFairValues},
     {FileKind::kTaxLosses, "tax_losses.csv", kTaxLosses},
     {FileKind::kOpeningMarks, "opening_marks.csv", kOpeningMarks},
     {FileKind::kTradeKeys, "trade_keys.csv", kTradeKeys},
     {FileKind::kStatementChecks, "statement_checks.csv", kStatementChecks}}};

}  // namespace

std::span<const FileLayout> Layouts() {
  return kLayouts;
}

const FileLayout& LayoutOf(FileKind kind) {
  return kLayouts[static_cast<std::size_t>(kind)];
}

}  // namespace quorvane::portfolio
