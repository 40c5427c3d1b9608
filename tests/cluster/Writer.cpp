// One writer of a cluster, beside others: saves, changes and deletes bills and transfers of one
// client and tells on the output what each bill holds once it is saved, and at the end how many
// shares it has transferred.
//
//   cluster_writer APPLICATION_FOLDER NUMBER ROUNDS

#include "core/app/Session.h"
#include "core/lookups/Directory.h"
#include "transactions/bills/BillBook.h"
#include "transactions/transfers/TransferBook.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

using namespace quorvane;

namespace {

void Insist(const MaybeRefusal& refusal) {
  if (refusal) {
    throw std::runtime_error(refusal->text.toStdString());
  }
}

template <class T>
T Saved(Result<T> saved) {
  Insist(saved.Refused());
  return std::move(*saved);
}

class Writer {
 public:
  Writer(database::Connection& connection, QString number)
      : directory_(connection),
        book_(connection, {directory_.FindClient("AN")->id, text::FinancialYear(2011)}),
        transfers_(connection, {directory_.FindClient("AN")->id, text::FinancialYear(2011)}),
        number_(std::move(number)) {}

  void Run(int rounds) {
    for (int round = 1; round <= rounds; ++round) {
      Add(round);
      Transfer();
      if (round % 2 == 0) {
        Change(saved_[saved_.size() - 2]);
        ChangeTransfer(moved_.front());
      }
      if (round % 4 == 0) {
        Delete();
        DeleteTransfer();
      }
    }
    double shares = 0;
    for (const records::Transfer& transfer : moved_) {
      shares += transfer.quantity.Number();
    }
    std::printf("transferred %g\n", shares);
  }

 private:
  void Add(int round) {
    records::Bill bill;
    bill.number = QStringLiteral("W%1-%2").arg(number_).arg(round);
    bill.date = QStringLiteral("10/06/2011");
    bill.broker = BrokerId{1};
    bill.exchange = ExchangeId{1};
    bill.account = directory_.FindAccounts("A1").front()->id;
    records::BillLine line;
    line.scrip = directory_.FindScrip("600001")->id;
    line.quantity = text::Shares(10);
    line.rate = 100 + round % 3;
    records::ComputeAmount(line);
    bill.lines = {line, line};
    bill = Saved(book_.Save(bill));
    saved_.push_back(bill);
    Tell(bill, "20");
  }

  void Change(records::Bill& bill) {
    bill.lines[0].quantity = text::Shares(7);
    records::ComputeAmount(bill.lines[0]);
    bill = Saved(book_.Save(bill));
    Tell(bill, "17");
  }

  void Delete() {
    Insist(book_.Delete(saved_.front().id));
    Tell(saved_.front(), "0");
    saved_.erase(saved_.begin());
  }

  /// One share of the opening lot, to the client's other account.
  void Transfer() {
    records::Transfer transfer;
    transfer.date = QStringLiteral("11/06/2011");
    transfer.from = directory_.FindAccounts("A1").front()->id;
    transfer.to = directory_.FindAccounts("A2").front()->id;
    transfer.scrip = directory_.FindScrip("600001")->id;
    transfer.rate = 50;
    transfer.quantity = text::Shares(1);
    const ClientYear of{directory_.FindClient("AN")->id, text::FinancialYear(2011)};
    transfer.lot =
        transfers_.Begin(std::nullopt).Find({of, transfer.from, transfer.scrip, transfer.rate})->id;
    transfer = Saved(transfers_.Save(transfer));
    moved_.push_back(transfer);
  }

  void ChangeTransfer(records::Transfer& transfer) {
    transfer.quantity = text::Shares(transfer.quantity.Number() == 1 ? 2 : 1);
    transfer = Saved(transfers_.Save(transfer));
  }

  void DeleteTransfer() {
    Insist(transfers_.Delete(moved_.front().id));
    moved_.erase(moved_.begin());
  }

  /// The bill's number and the shares that it holds now.
  static void Tell(const records::Bill& bill, const char* shares) {
    std::printf("%s %s\n", qPrintable(bill.number), shares);
    std::fflush(stdout);
  }

  lookups::Directory directory_;
  bills::BillBook book_;
  transfers::TransferBook transfers_;
  QString number_;
  std::vector<records::Bill> saved_;
  std::vector<records::Transfer> moved_;
};

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  try {
    app::StartUpOptions options;
    options.application_folder = QString::fromLocal8Bit(argv[1]);
    const auto session = app::StartUp(options);
    Writer(*session->connection, QString::fromLocal8Bit(argv[2])).Run(std::atoi(argv[3]));
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
