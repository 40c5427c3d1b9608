#include "reports/tax/CheckList.h"

#include "core/actions/Application.h"
#include "core/actions/Terms.h"
#include "core/positions/EventReader.h"
#include "core/rates/IsinBook.h"
#include "core/records/Query.h"
#include "core/text/Amounts.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace quorvane::tax_year {
namespace {

using positions::DatedAction;
using positions::PieceKind;
using records::ActionKind;
using tax::GainKind;

QString Quantity(Shares shares) {
  return text::NumberText(shares.Number());
}

QString Money(Paise amount) {
  return text::FormatAmount(amount.Rupees());
}

/// The same day of another month, or its last day.
Date AddMonths(Date day, int months) {
  const auto moved = std::chrono::year_month_day(day) + std::chrono::months(months);
  return moved.ok() ? Date(moved) : Date(moved.year() / moved.month() / std::chrono::last);
}

}  // namespace

/// Finds the points of one client and year.
class Finder {
 public:
  Finder(CheckList& list, const ClientTax& tax)
      : list_(list), directory_(list.directory_), tax_(tax) {}

  void FindMissingCosts() {
    for (const TaxPiece& piece : tax_.year.pieces) {
      if (piece.kind == GainKind::kUnknown) {
        Add(PointKind::kCost, piece.of.place.scrip,
            QStringLiteral(
                "%1 of %2 sold on %3 have no purchase on record: enter it, or the opening "
                "stock.")
                .arg(Quantity(piece.of.quantity), Name(piece.of.place.scrip),
                     text::FormatDmy(piece.of.sold)),
            "FrmStkOpBalance");
      }
    }
  }

  void FindMissingFairValues() {
    std::map<QString, ScripId> scrips;
    for (const TaxPiece& piece : tax_.year.pieces) {
      if (piece.needs_fair) {
        scrips.emplace(Name(piece.of.place.scrip), piece.of.place.scrip);
      }
    }
    for (const auto& [name, scrip] : scrips) {
      Add(PointKind::kFairValue, scrip,
          QStringLiteral("%1 was acquired before 1-Feb-2018: its highest price of 31-Jan-2018 is "
                         "missing.")
              .arg(name),
          "FrmFairValue");
    }
  }

  void FindDifferences() {
    for (const positions::Difference& one : tax_.history.differences) {
      if (Concerns(one.place)) {
        Add(PointKind::kDifference, one.place.scrip,
            QStringLiteral("%1 opens with %2 of %3 in account %4; the year before leaves %5.")
                .arg(one.of.year.Text(), Quantity(one.recorded), Name(one.place.scrip),
                     QString::fromStdString(directory_.Account(one.place.account).number),
                     Quantity(one.computed)),
            "FrmStkOpBalance", one.of.year);
      }
    }
  }

  void FindSalesWithoutStt() {
    std::set<std::pair<Date, ScripId>> sales;
    for (const TaxPiece& piece : tax_.year.pieces) {
      const bool capital = tax::IsShortTerm(piece.kind) || tax::IsLongTerm(piece.kind);
      if (capital && piece.of.kind == PieceKind::kDelivery && !piece.of.stt_paid) {
        sales.insert({piece.of.sold, piece.of.place.scrip});
      }
    }
    for (const auto& [day, scrip] : sales) {
      Add(PointKind::kNoStt, scrip,
          QStringLiteral("%1 sold on %2 without STT is taxed as if it was not sold on an exchange: "
                         "enter its STT if there was one.")
              .arg(Name(scrip), text::FormatDmy(day)),
          "FrmSalePurchase");
    }
  }

  void FindFaults() {
    records::Faults faults;
    std::ranges::copy_if(
        tax_.history.faults, std::back_inserter(faults),
        [&](const records::Fault& fault) { return fault.client == tax_.year.of.client; });
    for (const QString& text : records::FaultTexts(list_.connection_, faults)) {
      Add(PointKind::kFault, {}, text, "RepairTable");
    }
  }

  void FindActions(Progress& progress) {
    for (CheckList::KnownAction& known : list_.actions_) {
      const records::Action& action = known.dated.terms;
      if (known.dated.ex_day > tax_.year.of.year.LastDay() || !scrips_.contains(action.scrip)) {
        continue;
      }
      if (!action.applied) {
        AddAction(action, QStringLiteral("is recorded but not applied."));
      } else if (!list_.IsCurrent(known, progress)) {
        AddAction(action, QStringLiteral("was applied before the books were changed: take it back "
                                         "and apply it again."));
      } else if (action.kind == ActionKind::kBonus) {
        FindBonusStripping(known.dated);
      }
    }
  }

  void FindLosses() {
    if (!IsCarried(tax_.year, tax_.left_before)) {
      Add(PointKind::kLosses, {},
          QStringLiteral("The losses that %1 leaves are not what is brought forward.")
              .arg(tax_.year.of.year.Previous().Text()),
          "FrmTaxLoss");
    }
    FindLossesOfNoYear();
    for (const OpenLoss& loss : tax_.year.set_off.ignored) {
      Add(PointKind::kLosses, {},
          QStringLiteral("The loss of %1 (Rs %2) is too old to be set off.")
              .arg(loss.loss_year.Text(), Money(loss.amount)),
          "FrmTaxLoss");
    }
  }

  void FindIsins() {
    std::map<QString, ScripId> scrips;
    for (const TaxPiece& piece : tax_.year.pieces) {
      if (piece.kind == GainKind::kLongTermStt &&
          !list_.with_isin_.contains(piece.of.place.scrip)) {
        scrips.emplace(Name(piece.of.place.scrip), piece.of.place.scrip);
      }
    }
    for (const auto& [name, scrip] : scrips) {
      Add(PointKind::kIsin, scrip,
          QStringLiteral("%1 has no ISIN: schedule 112A names it INNOTREQUIRD.").arg(name),
          "FrmScript");
    }
  }

  void FindPan() {
    if (list_.without_pan_.contains(tax_.year.of.client)) {
      Add(PointKind::kPan, {}, QStringLiteral("The client has no PAN."), "FrmClientMaster");
      points_.back().open = false;
    }
  }

  void FindScrips() {
    for (const TaxPiece& piece : tax_.year.pieces) {
      scrips_.insert(piece.of.place.scrip);
    }
  }

  std::vector<Point> Take() && {
    std::ranges::stable_sort(points_, {}, &Point::kind);
    return std::move(points_);
  }

 private:
  void Add(PointKind kind, ScripId scrip, const QString& text, const char* window) {
    Add(kind, scrip, text, window, tax_.year.of.year);
  }
  void Add(PointKind kind, ScripId scrip, const QString& text, const char* window,
           text::FinancialYear year) {
    points_.push_back({.kind = kind,
                       .text = text,
                       .window = QString::fromLatin1(window),
                       .of = {tax_.year.of.client, year},
                       .scrip = scrip});
  }

  void AddAction(const records::Action& action, const QString& what) {
    Add(PointKind::kAction, action.scrip,
        QStringLiteral("%1 of %2, Ex-Date %3 %4")
            .arg(actions::Describe(action), Name(action.scrip), action.ex_day, what),
        "FrmCorpAction");
  }

  /// Shares bought within three months before the record day of a bonus and sold at a loss within
  /// nine months after it, while bonus shares are held.
  void FindBonusStripping(const DatedAction& bonus) {
    const Date record_day = text::ParseDmy(bonus.terms.record_day).value_or(bonus.ex_day);
    const Date first = AddMonths(record_day, -3);
    const Date last = AddMonths(record_day, 9);
    const bool loss = std::ranges::any_of(tax_.year.pieces, [&](const TaxPiece& piece) {
      return piece.of.place.scrip == bonus.terms.scrip && piece.gain < Paise() &&
             piece.of.source != positions::Source::kBonus && piece.of.acquired >= first &&
             piece.of.acquired <= record_day && piece.of.sold >= bonus.ex_day &&
             piece.of.sold <= last;
    });
    if (loss && record_day >= kBonusStrippingFrom) {
      AddAction(bonus.terms, QStringLiteral("may make a loss void that was taken here "
                                            "(section 94(8)): ask before filing."));
      points_.back().kind = PointKind::kBonusStripping;
      points_.back().open = false;
    }
  }

  /// Losses brought forward that the books of the year before do not leave: entered by hand, or
  /// carried before these books were corrected.
  void FindLossesOfNoYear() {
    for (const tax::TaxLoss& loss : tax_.year.brought_forward) {
      const bool left = std::ranges::any_of(tax_.left_before, [&](const OpenLoss& one) {
        return one.loss_year == loss.loss_year && one.kind == loss.kind;
      });
      if (!left) {
        Add(PointKind::kLosses, {},
            QStringLiteral("The loss of %1 (Rs %2) is brought forward, and the books of %3 do not "
                           "leave it.")
                .arg(loss.loss_year.Text(), Money(loss.amount),
                     tax_.year.of.year.Previous().Text()),
            "FrmTaxLoss");
        points_.back().open = false;
      }
    }
  }

  bool Concerns(const positions::Place& place) const {
    return std::ranges::any_of(tax_.year.pieces,
                               [&](const TaxPiece& piece) { return piece.of.place == place; });
  }

  QString Name(ScripId scrip) const { return QString::fromStdString(directory_.Scrip(scrip).name); }

  /// Shares fall under the section from this year on.
  static constexpr Date kBonusStrippingFrom = std::chrono::sys_days(std::chrono::year_month_day(
      std::chrono::year(2022), std::chrono::April, std::chrono::day(1)));

  CheckList& list_;
  const lookups::Directory& directory_;
  const ClientTax& tax_;
  std::set<ScripId> scrips_;  ///< sold in the year
  std::vector<Point> points_;
};

CheckList::CheckList(database::Connection& connection, const lookups::Directory& directory)
    : connection_(connection), directory_(directory) {
  for (const auto& [scrip, isins] : rates::AllIsins(connection)) {
    with_isin_.insert(scrip);
  }
  for (const auto& row : connection.Open("Select Id From ClientInfo Where Trim(PAN)=''")) {
    without_pan_.insert(ClientId{row.Int(0)});
  }
  for (const records::Action& action :
       records::Select<records::Action>(connection).OrderBy(&records::Action::id).All()) {
    const auto dated = positions::Dated(action);
    if (dated && action.kind != ActionKind::kDividend) {
      actions_.push_back({*dated, {}});
    }
  }
}

bool CheckList::IsCurrent(KnownAction& action, Progress& progress) {
  if (!action.current) {
    action.current = actions::IsCurrent(connection_, action.dated.terms, progress);
  }
  return *action.current;
}

std::vector<Point> CheckList::PointsOf(const ClientTax& tax, Progress& progress) {
  Finder finder(*this, tax);
  finder.FindScrips();
  finder.FindMissingCosts();
  finder.FindMissingFairValues();
  finder.FindDifferences();
  finder.FindSalesWithoutStt();
  finder.FindFaults();
  finder.FindActions(progress);
  finder.FindLosses();
  finder.FindIsins();
  finder.FindPan();
  return std::move(finder).Take();
}

bool HasOpen(const std::vector<Point>& points) {
  return std::ranges::any_of(points, &Point::open);
}

}  // namespace quorvane::tax_year
