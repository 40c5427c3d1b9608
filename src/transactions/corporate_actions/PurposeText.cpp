#include "transactions/corporate_actions/PurposeText.h"

#include "core/actions/Terms.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"
#include "transactions/corporate_actions/PurposeAmounts.h"
#include "transactions/corporate_actions/PurposeClauses.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <utility>

namespace quorvane::corporate_actions {
namespace {

QRegularExpression Pattern(const char* text) {
  return QRegularExpression(QString::fromLatin1(text), QRegularExpression::CaseInsensitiveOption);
}

bool Has(const QString& text, const QRegularExpression& pattern) {
  return pattern.match(text).hasMatch();
}

bool HasDigit(const QString& text) {
  return std::ranges::any_of(text, [](QChar one) { return one.isDigit(); });
}

/// What is given is no share of the kind that is held.
bool IsOfOtherSecurity(const QString& text) {
  static const QRegularExpression kOther = Pattern(
      R"(\b(?:deb[ebn]\w*|[nofpc]cds?|ncrps|[coa]*cr?ps|rps|pref\w*|warrants?|bonds?|dvrs?|differential)\b)");
  return Has(text, kOther);
}

/// The words of the text, where a number of them waits to be understood.
QString NoteOf(const QString& text) {
  constexpr qsizetype kWidest = 255;
  return HasDigit(text) ? text.simplified().left(kWidest) : QString();
}

Action ActionOf(ActionKind kind, const QString& text) {
  Action action;
  action.kind = kind;
  action.note = NoteOf(text);
  return action;
}

void SetRatio(Action& action, const text::ShareRatio& ratio) {
  action.new_shares = ratio.of_new;
  action.old_shares = ratio.of_old;
}

/// Open when the amounts run the other way than the word says.
Action FaceValueAction(ActionKind kind, const QString& text) {
  Action action = ActionOf(kind, text);
  const auto change = FaceValueChange(text);
  const bool fits = change && (kind == ActionKind::kSplit ? change->of_new > change->of_old
                                                          : change->of_new < change->of_old);
  if (fits) {
    SetRatio(action, *change);
    action.note.clear();
  }
  return action;
}

Action BonusAction(const QString& text) {
  Action action = ActionOf(ActionKind::kBonus, text);
  const std::vector<FoundRatio> ratios = RatiosIn(text);
  if (ratios.size() == 1) {
    SetRatio(action, ratios.front().ratio);
    action.note.clear();
  }
  return action;
}

/// What is paid for a share in all; 0 when the text does not tell: a premium without face value, or
/// a share that is paid in parts.
double RightsPrice(const QString& text) {
  static const QRegularExpression kInParts = Pattern(R"(\bpart\w*[\s-]*paid|\bcalls?\b)");
  static const QRegularExpression kAtPar = Pattern(R"(\bat\s+par\b)");
  const PurposeMoney money = MoneyIn(text);
  if (money.doubtful || Has(text, kInParts)) {
    return 0;
  }
  if (money.others.empty()) {
    const bool is_told = money.face_value && (money.premium || Has(text, kAtPar));
    return is_told ? text::Tidy(*money.face_value + money.premium.value_or(0)) : 0;
  }
  return money.others.size() == 1 && !money.premium ? money.others.front() : 0;
}

/// The part of a text before what is given along with the shares.
QString WithoutExtras(const QString& text) {
  static const QRegularExpression kWith = Pattern(R"(\b(?:with|along)\b)");
  return text.left(kWith.match(text).hasMatch() ? kWith.match(text).capturedStart() : text.size());
}

Action RightsAction(const QString& text, const text::ShareRatio& ratio) {
  Action action = ActionOf(ActionKind::kRights, text);
  SetRatio(action, ratio);
  const QString shares = WithoutExtras(text);
  action.price = RightsPrice(shares);
  if (action.price > 0 && shares == text) {
    action.note.clear();
  }
  return action;
}

/// One offer for each ratio: fully and partly paid shares may be offered together.
std::vector<Action> RightsActions(const QString& text) {
  static const QRegularExpression kRevised = Pattern(R"(\brevised\b)");
  const std::vector<FoundRatio> ratios = RatiosIn(text);
  if (ratios.empty() || (ratios.size() > 1 && Has(text, kRevised))) {
    return {ActionOf(ActionKind::kRights, text)};
  }
  if (ratios.size() == 1) {
    return {RightsAction(text, ratios.front().ratio)};
  }
  std::vector<Action> actions;
  for (std::size_t i = 0; i < ratios.size(); ++i) {
    const qsizetype start = ratios[i].at;
    const qsizetype end = i + 1 < ratios.size() ? ratios[i + 1].at : text.size();
    QString offer = text.mid(start, end - start).simplified();
    while (offer.endsWith(QLatin1Char('/')) || offer.endsWith(QLatin1Char(' '))) {
      offer.chop(1);
    }
    actions.push_back(RightsAction(offer, ratios[i].ratio));
  }
  return actions;
}

Action BuyBackAction(const QString& text) {
  Action action = ActionOf(ActionKind::kBuyBack, text);
  const PurposeMoney money = MoneyIn(text);
  if (money.others.size() == 1 && !money.doubtful && !money.premium) {
    action.price = money.others.front();
    action.note.clear();
  }
  return action;
}

/// The sum of a text's dividends. It stays open when one of them is told in a way that cannot be
/// added: per cent, or amounts that may be parts of one another.
class DividendTotal {
 public:
  void Add(const QString& text) {
    static const QRegularExpression kOrdinal = Pattern(R"(\b\d+(?:st|nd|rd|th)\b)");
    words_ << text.simplified();
    const auto amount = DividendIn(text);
    if (amount) {
      is_open_ = is_open_ || opens_bracket_;
      opens_bracket_ = text.count(QLatin1Char('(')) > text.count(QLatin1Char(')'));
      sum_ += *amount;
      lacks_last_ = false;
    } else {
      is_open_ = is_open_ || HasDigit(QString(text).remove(kOrdinal));
      lacks_last_ = sum_ > 0 && !EndsBracket(text);
    }
  }

  bool IsEmpty() const { return words_.isEmpty(); }

  Action Take() const {
    Action action = ActionOf(ActionKind::kDividend, words_.join(QLatin1String(" / ")));
    if (sum_ > 0 && !is_open_ && !lacks_last_) {
      action.price = text::Tidy(sum_);
      action.note.clear();
    }
    return action;
  }

 private:
  /// A name only of the amount before it: "Rs 5 (Special Dividend)".
  static bool EndsBracket(const QString& text) {
    const qsizetype end = text.indexOf(QLatin1Char(')'));
    const qsizetype start = text.indexOf(QLatin1Char('('));
    return end >= 0 && (start < 0 || end < start);
  }

  QStringList words_;
  double sum_ = 0;
  bool is_open_ = false;
  bool opens_bracket_ = false;
  bool lacks_last_ = false;
};

class Reading {
 public:
  explicit Reading(const PurposeClauses& clauses) : left_over_(clauses.unknown) {
    for (const Clause& clause : clauses.clauses) {
      Add(clause);
    }
  }

  Purpose Take() {
    if (!dividends_.IsEmpty()) {
      actions_.insert(actions_.begin() + dividends_at_, dividends_.Take());
    }
    return {std::move(actions_), left_over_.join(QLatin1String("; "))};
  }

 private:
  void Add(const Clause& clause) {
    switch (clause.topic) {
      case Topic::kSplit:
        return AddFaceValue(ActionKind::kSplit, clause.text);
      case Topic::kConsolidation:
        return AddFaceValue(ActionKind::kConsolidation, clause.text);
      case Topic::kBonus:
        return IsOfOtherSecurity(clause.text) ? void() : AddOne(BonusAction(clause.text));
      case Topic::kRights:
        return AddRights(clause.text);
      case Topic::kBuyBack:
        return AddOne(BuyBackAction(clause.text));
      case Topic::kDemerger:
        return AddOne(ActionOf(ActionKind::kDemerger, clause.text));
      case Topic::kMerger:
        return AddOne(ActionOf(ActionKind::kMerger, clause.text));
      case Topic::kDividend:
        return AddDividend(clause.text);
      case Topic::kArrangement:
      case Topic::kReduction:
        left_over_ << clause.text.simplified();
        return;
      case Topic::kNothing:
        return;
    }
  }

  /// "Sub-Division/Split From Rs 10 To Rs 2" names one thing twice.
  void AddOne(Action action) {
    const bool is_same = !actions_.empty() && actions_.back().kind == action.kind;
    if (is_same && SaysNothing(actions_.back())) {
      actions_.back() = std::move(action);
    } else if (!is_same || !SaysNothing(action)) {
      actions_.push_back(std::move(action));
    }
  }

  static bool SaysNothing(const Action& action) {
    return !action.new_shares && action.price == 0 && action.note.isEmpty();
  }

  void AddFaceValue(ActionKind kind, const QString& text) { AddOne(FaceValueAction(kind, text)); }

  void AddRights(const QString& text) {
    if (IsOfOtherSecurity(WithoutExtras(text))) {
      return;
    }
    for (Action& action : RightsActions(text)) {
      AddOne(std::move(action));
    }
  }

  void AddDividend(const QString& text) {
    static const QRegularExpression kOther = Pattern(R"(\b(?:pref\w*|ncrps|[coa]*cr?ps|rps)\b)");
    static const QRegularExpression kEquity = Pattern(R"(\b(?:equity|ordinary)\b)");
    if (Has(text, kOther) && !Has(text, kEquity)) {
      return;
    }
    if (dividends_.IsEmpty()) {
      dividends_at_ = static_cast<std::ptrdiff_t>(actions_.size());
    }
    dividends_.Add(text);
  }

  std::vector<Action> actions_;
  QStringList left_over_;
  DividendTotal dividends_;
  std::ptrdiff_t dividends_at_ = 0;
};

}  // namespace

Purpose ReadPurpose(const QString& text) {
  constexpr qsizetype kLongest = 1'000;  // the exchanges' have 150 characters at most
  if (text.size() > kLongest) {
    return {{}, text.left(kLongest)};
  }
  return Reading(ClausesOf(text)).Take();
}

std::vector<OpenPoint> OpenPointsOf(const Action& action) {
  const actions::Terms terms = actions::TermsOf(action.kind);
  const bool has_ratio = action.new_shares > Shares() && action.old_shares > Shares();
  const bool pays_dividend = action.kind == ActionKind::kDividend;
  const std::array<std::pair<OpenPoint, bool>, 6> points{{
      {OpenPoint::kExDay, action.ex_day.isEmpty()},
      {OpenPoint::kRatio, terms.ratio && !has_ratio},
      {OpenPoint::kOtherScrip, terms.other && !action.other},
      {OpenPoint::kPrice, terms.price && !pays_dividend && !(action.price > 0)},
      {OpenPoint::kAmount, pays_dividend && !(action.price > 0)},
      {OpenPoint::kCostPercent, terms.percent && !(action.cost_percent > 0)},
  }};
  std::vector<OpenPoint> open;
  for (const auto& point : points) {
    if (point.second) {
      open.push_back(point.first);
    }
  }
  return open;
}

QString TextOf(OpenPoint point) {
  constexpr std::array kTexts{QT_TRANSLATE_NOOP("ActionList", "ex-date"),
                              QT_TRANSLATE_NOOP("ActionList", "ratio"),
                              QT_TRANSLATE_NOOP("ActionList", "other script"),
                              QT_TRANSLATE_NOOP("ActionList", "price"),
                              QT_TRANSLATE_NOOP("ActionList", "amount a share"),
                              QT_TRANSLATE_NOOP("ActionList", "percent of cost")};
  return Tr("ActionList", kTexts[static_cast<std::size_t>(point)]);
}

}  // namespace quorvane::corporate_actions
