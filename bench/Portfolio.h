#pragma once

#include "core/text/FinancialYear.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quorvane::bench {

struct PortfolioOptions {
  std::size_t lines = 10000;  ///< of bills, in all
  std::size_t clients = 0;    ///< 0: one for each thousand lines, at least 10
  std::uint64_t seed = 1;
};

/// Key numbers count from 1 in every table, in the order of the vectors.
struct Account {
  int client = 0;
  std::string number;
};

struct Lot {
  int account = 0;
  int scrip = 0;
  double rate = 0;
  double quantity = 0;  ///< as all documents leave it
};

struct Opening {
  int account = 0;
  int scrip = 0;
  double quantity = 0;
  double rate = 0;
  text::Date date;
  double service_tax = 0;
  double brokerage = 0;
  double stt = 0;
};

struct Line {
  bool purchase = false;
  bool intraday = false;
  int lot = 0;
  int scrip = 0;
  double quantity = 0;
  double rate = 0;
  double brokerage = 0;
  double service_tax = 0;
  double stt = 0;
  double net = 0;
  double amount = 0;
};

struct Bill {
  int account = 0;
  int broker = 0;
  text::Date date;
  std::size_t first_line = 0;
  std::size_t line_count = 0;
};

struct Transfer {
  int from = 0;
  int to = 0;
  int lot = 0;
  text::Date date;
  double quantity = 0;
};

/// A made-up office: clients with one to three accounts each, one year of bills of about ten lines
/// in the order of their dates, opening lots and a few transfers. About half of the lines are
/// sales; rates are partly all different, partly a few round ones; some shares are sold in the
/// bill that bought them. No sale or transfer takes more than its lot holds.
struct Portfolio {
  text::FinancialYear year{2011};
  int clients = 0;
  int scrips = 0;
  int brokers = 0;
  std::vector<Account> accounts;
  std::vector<Lot> lots;
  std::vector<Opening> openings;
  std::vector<Bill> bills;
  std::vector<Line> lines;
  std::vector<Transfer> transfers;

  const Account& AccountOf(int id) const { return accounts[static_cast<std::size_t>(id) - 1]; }
  const Lot& LotOf(int id) const { return lots[static_cast<std::size_t>(id) - 1]; }
};

/// Every other account takes part in transfers.
bool MayTransfer(int account);

/// The same portfolio for the same options, on every machine.
Portfolio MakePortfolio(const PortfolioOptions& options);

std::string ClientCode(int client);
std::string ScripCode(int scrip);
std::string ScripName(int scrip);
std::string BrokerName(int broker);
std::string BillNumber(std::size_t bill);

}  // namespace quorvane::bench
