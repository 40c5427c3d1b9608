#include "transactions/corporate_actions/PurposeClauses.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <optional>

namespace quorvane::corporate_actions {
namespace {

QRegularExpression Pattern(const QString& text) {
  return QRegularExpression(text, QRegularExpression::CaseInsensitiveOption);
}

/// The words that name each topic, in the order of the enum, with the typing errors that are seen.
/// None has a group that captures.
constexpr std::array kTopicWords{
    R"((?:\b|fv)sp(?:li?|il)t\w*|\bsub\s*-?\s*divi\w*)",
    R"(\bconsol\w*|\breverse\s+split)",
    R"(\bbonus\w*|\bbouns\b|\bbonous\b)",
    R"(\br(?:i?ghts?|igths?|gts?)(?![a-z]))",
    R"(\bbuy\s*-?\s*backs?)",
    R"(\bde\s*-?\s*merg\w*|\bspin\s*-?\s*off|\bhiv(?:e|ing)\s*-?\s*off)",
    R"(\bmerg\w*|\bamalg\w*|\bamlg\w*)",
    R"(\bar+[ae]ng\w*|\bscheme\b|\brestructur\w*)",
    R"(\bcapital\s+reduc\w*|\breduc\w*\s+(?:of|in)\s+(?:share\s+|paid\s*-?\s*up\s+)*capital)",
    R"(\bannual\s+general|\bgeneral\s+meeting|\ba\.?g\.?m\b|\be\.?o?\.?g\.?m\b|\bbook\s+closure|\binterest\b|\bredemption|\bpostal\s+ballot)",
    R"((?<!in)div(?!i?s)[a-z]*|\bdevid\w*|\bdvi?d\w*)",
};

QRegularExpression AllTopics() {
  QStringList groups;
  for (const char* words : kTopicWords) {
    groups << QStringLiteral("(%1)").arg(QLatin1String(words));
  }
  return Pattern(groups.join(QLatin1Char('|')));
}

/// "Rs 8.50 (Including Special Dividend Of Rs.2/-)" pays 8.50: what is included is not added.
QString WithoutIncluded(QString text) {
  static const QRegularExpression kInBrackets = Pattern(QStringLiteral(
      R"(\(\s*(?:inc[a-z]*\b|(?:out\s+)?of\s+which|consist|compris|which\b)[^)]*\))"));
  static const QRegularExpression kToTheEnd = Pattern(QStringLiteral(
      R"(\b(?:includ\w*|inclus\w*|incl\b|(?:out\s+)?of\s+which|consist\w*|compris\w*))"
      R"((?:[^/+&;)]|/\s*[-=]|[+&](?!\s*(?:bonus|face|fv|spl[it]+|right|buy|stock)))*)"));
  return text.replace(kInBrackets, QStringLiteral(" ")).replace(kToTheEnd, QStringLiteral(" "));
}

/// A piece between joints that names no topic and says nothing either: "Per Share", "(Revised)". At
/// the end "Special" is what is left of a second dividend.
bool IsFiller(const QString& piece, bool is_last) {
  static const QRegularExpression kFiller = Pattern(QStringLiteral(
      R"(^(?:[\s().,:=-]|\b(?:purpose|revised?|per|pe|r|sh|shares?|equity|interim|int|final|special|spl|rs|re|of|the|and|composite)\b)*$)"));
  static const QRegularExpression kDividend =
      Pattern(QStringLiteral(R"(\b(?:interim|int|final|special|spl)\b)"));
  return kFiller.match(piece).hasMatch() && !(is_last && kDividend.match(piece).hasMatch());
}

bool HasDigit(const QString& text) {
  return std::ranges::any_of(text, [](QChar one) { return one.isDigit(); });
}

class Cutter {
 public:
  void Add(const QString& piece, bool is_last) {
    static const QRegularExpression kTopics = AllTopics();
    std::vector<Clause> found;
    qsizetype last = 0;
    for (auto matches = kTopics.globalMatch(piece); matches.hasNext();) {
      const QRegularExpressionMatch match = matches.next();
      const auto topic = static_cast<Topic>(match.lastCapturedIndex() - 1);
      // Each dividend has its amount; "Face Value Split (Sub-Division)" is one split.
      if (!found.empty() && found.back().topic == topic && topic != Topic::kDividend) {
        continue;
      }
      // What stands before the first topic belongs to it: "Rs 5/- Final Dividend".
      const qsizetype start = found.empty() ? 0 : match.capturedStart();
      if (!found.empty()) {
        found.back().text = piece.mid(last, start - last);
      }
      found.push_back({topic, {}});
      last = start;
    }
    if (found.empty()) {
      AddWithoutTopic(piece, is_last);
      return;
    }
    found.back().text = piece.mid(last);
    AddClauses(std::move(found));
  }

  PurposeClauses Take() { return std::move(result_); }

 private:
  /// A further ratio or amount of the purpose before it: "Rights - 4:25 ... / 2:25 ...".
  void AddWithoutTopic(const QString& piece, bool is_last) {
    const bool goes_on = !result_.clauses.empty() && HasDigit(piece) &&
                         result_.clauses.back().topic != Topic::kNothing;
    if (goes_on) {
      result_.clauses.back().text += QLatin1Char('/') + piece;
    } else if (!IsFiller(piece, is_last)) {
      result_.unknown << piece.trimmed();
    }
  }

  /// A scheme is told by what else its piece names: "Scheme Of Arrangement - Bonus Ncrps 4:1".
  void AddClauses(std::vector<Clause> found) {
    const bool told = std::ranges::any_of(
        found, [](const Clause& clause) { return clause.topic < Topic::kArrangement; });
    for (Clause& clause : found) {
      if (!told || clause.topic != Topic::kArrangement) {
        result_.clauses.push_back(std::move(clause));
      }
    }
  }

  PurposeClauses result_;
};

}  // namespace

PurposeClauses ClausesOf(const QString& purpose) {
  static const QRegularExpression kJoint = Pattern(QStringLiteral(R"(/(?!\s*[-=])|[+&;])"));
  Cutter cutter;
  const QStringList pieces = WithoutIncluded(purpose).simplified().split(kJoint);
  for (qsizetype at = 0; at < pieces.size(); ++at) {
    cutter.Add(pieces[at], at + 1 == pieces.size());
  }
  return cutter.Take();
}

}  // namespace quorvane::corporate_actions
