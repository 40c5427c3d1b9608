#include "transactions/corporate_actions/PurposeAmounts.h"

#include "core/text/Amounts.h"

#include <QRegularExpression>

#include <algorithm>
#include <numeric>

namespace quorvane::corporate_actions {
namespace {

using text::Shares;

/// A pattern in which "<n>" is a number, the group that captures, which is no percentage; and
/// "<rs>" the words for rupees as the exchanges write them: "Rs10/-", "Re. 0.63", "Rs. - 46.0000".
QRegularExpression Pattern(const char* text) {
  QString pattern = QString::fromLatin1(text);
  pattern.replace(QStringLiteral("<n>"),
                  QStringLiteral(R"((\d[\d,]*(?:\.\d+)?|\.\d+)(?![\d.]*\s*(?:%|per\s*cent)))"));
  pattern.replace(QStringLiteral("<rs>"),
                  QStringLiteral(R"((?:(?<![a-z])(?:rs|re|inr|rupees?)|\x{20B9})\.?[\s:-]*)"));
  return QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption);
}

bool Has(const QString& text, const QRegularExpression& pattern) {
  return pattern.match(text).hasMatch();
}

std::optional<double> NumberIn(QString digits) {
  constexpr double kMost = 1e7;  // no share pays or costs as much
  digits.remove(QLatin1Char(','));
  if (digits.startsWith(QLatin1Char('.'))) {
    digits.prepend(QLatin1Char('0'));
  }
  const std::optional<double> number = text::ParseNumber(digits.toStdString());
  return number && *number <= kMost ? number : std::nullopt;
}

/// The first number that the pattern finds, which is taken out of the text.
std::optional<double> TakeNumber(QString& text, const QRegularExpression& pattern) {
  const QRegularExpressionMatch match = pattern.match(text);
  if (!match.hasMatch()) {
    return std::nullopt;
  }
  text.replace(match.capturedStart(), match.capturedLength(), QStringLiteral(" "));
  return NumberIn(match.captured(1));
}

std::vector<double> NumbersOf(const QString& text, const QRegularExpression& pattern) {
  std::vector<double> numbers;
  for (auto matches = pattern.globalMatch(text); matches.hasNext();) {
    if (const auto number = NumberIn(matches.next().captured(1))) {
      numbers.push_back(*number);
    }
  }
  return numbers;
}

std::vector<FoundRatio> RatiosOf(const QString& text, const QRegularExpression& pattern) {
  const auto shares = [](const QString& digits) { return Shares(NumberIn(digits).value_or(0)); };
  std::vector<FoundRatio> found;
  for (auto matches = pattern.globalMatch(text); matches.hasNext();) {
    const QRegularExpressionMatch match = matches.next();
    const text::ShareRatio ratio{shares(match.captured(1)), shares(match.captured(2))};
    if (ratio.of_new && ratio.of_old) {
      found.push_back({ratio, match.capturedStart()});
    }
  }
  return found;
}

double SumOf(const std::vector<double>& numbers) {
  return text::Tidy(std::accumulate(numbers.begin(), numbers.end(), 0.0));
}

/// "Int Div- 2 Per Share", "Div-7.5/-": amounts that are not called rupees.
std::vector<double> BareAmounts(const QString& text) {
  static const QRegularExpression kPerShare =
      Pattern(R"((?<![\d.:%])(?<!\d[-/])<n>\s*(?:/\s*[-=]|pe\s*r\b|per|p\.?s\b|each))");
  static const QRegularExpression kAlone = Pattern(R"(div[a-z]*[\s:@-]*<n>[\s.)]*$)");
  std::vector<double> amounts = NumbersOf(text, kPerShare);
  if (amounts.empty()) {
    amounts = NumbersOf(text, kAlone);
    std::erase_if(amounts, [](double one) { return one >= 1900 && one <= 2100; });  // a year
  }
  return amounts;
}

double DividendSum(const QString& text) {
  const PurposeMoney money = MoneyIn(text);
  return SumOf(money.others.empty() ? BareAmounts(text) : money.others);
}

}  // namespace

std::vector<FoundRatio> RatiosIn(const QString& text) {
  static const QRegularExpression kColon =
      Pattern(R"((?<![\d.:])(\d{1,7}(?:\.\d{1,6})?)\s*:\s*(\d{1,7}(?:\.\d{1,6})?)(?!\s*[\d:]))");
  static const QRegularExpression kFor =
      Pattern(R"(\b(\d{1,7})\s+(?:(?:new|bonus|rights?|fully|paid|up|equity|shares?)\s+)*for\s+)"
              R"((?:every\s+|each\s+)?(\d{1,7})\b)");
  std::vector<FoundRatio> found = RatiosOf(text, kColon);
  return found.empty() ? RatiosOf(text, kFor) : found;
}

std::optional<text::ShareRatio> FaceValueChange(const QString& text) {
  static const QRegularExpression kNumber = Pattern("(?:<rs>)?<n>");
  static const QRegularExpression kTo = Pattern(R"(\d.*\b(?:in)?to\b.*\d)");
  const std::vector<double> values = NumbersOf(text, kNumber);
  if (values.size() != 2 || !Has(text, kTo)) {
    return std::nullopt;
  }
  const Shares from(values[0]);
  const Shares to(values[1]);
  const std::int64_t common = std::gcd(from.Millionths(), to.Millionths());
  if (!from || !to) {
    return std::nullopt;
  }
  constexpr std::int64_t kMillion = 1'000'000;
  const auto part = [&](Shares value) {
    return Shares::OfMillionths(value.Millionths() / common * kMillion);
  };
  return text::ShareRatio{part(from), part(to)};
}

PurposeMoney MoneyIn(const QString& text) {
  static const QRegularExpression kFace = Pattern(
      R"((?:(?:(?:face|par|nominal)\s*val\w*|(?<![a-z])f\.?v\.?)\s*(?:of|:|-|@|is)?|shares?\s+of)\s*)"
      R"((?:<rs>)?<n>)");
  static const QRegularExpression kPremium = Pattern(R"(prem\w*\.?[\s:@-]*(?:of\s*)?(?:<rs>)?<n>)");
  static const QRegularExpression kPremiumWord = Pattern(R"(\bprem)");
  static const QRegularExpression kRupees = Pattern("<rs><n>");
  static const QRegularExpression kPaise = Pattern(R"((?<![\d.])<n>\s*pais[ae])");
  // "Re.50" may be fifty paise or fifty rupees.
  static const QRegularExpression kPaiseOrRupees = Pattern(R"(\bre\.\d\d(?![\d.]))");
  QString rest = text;
  PurposeMoney money;
  money.face_value = TakeNumber(rest, kFace);
  money.premium = TakeNumber(rest, kPremium);
  money.doubtful = Has(rest, kPaiseOrRupees) || Has(rest, kPremiumWord);
  while (const auto paise = TakeNumber(rest, kPaise)) {
    money.others.push_back(*paise / 100);
  }
  const std::vector<double> rupees = NumbersOf(rest, kRupees);
  money.others.insert(money.others.end(), rupees.begin(), rupees.end());
  return money;
}

std::optional<double> DividendIn(const QString& text) {
  static const QRegularExpression kOtherwise = Pattern(
      R"(\bpref|\bon\s+r[se]\b|\bpaid\s*-?\s*up\b|\bfrom\b.*\bto\b|\binstead\b|\bearlier\b|\b(?:every|per)\s+\d|\bfor\s+\d+\s+(?:equity\s+)?shares)");
  static const QRegularExpression kBrackets(QStringLiteral(R"(\([^()]*\))"));
  if (Has(text, kOtherwise) || MoneyIn(text).doubtful) {
    return std::nullopt;
  }
  const double in_all = DividendSum(text);
  const double outside = DividendSum(QString(text).replace(kBrackets, QStringLiteral(" ")));
  // An amount in brackets beside one outside says the same once more, or one cannot tell what.
  const bool is_repeated = text::Tidy(2 * outside) == in_all;
  if (outside > 0 && outside != in_all && !is_repeated) {
    return std::nullopt;
  }
  const double amount = outside > 0 ? outside : in_all;
  return amount > 0 ? std::optional(amount) : std::nullopt;
}

}  // namespace quorvane::corporate_actions
