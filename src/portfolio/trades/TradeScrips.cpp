#include "portfolio/trades/TradeScrips.h"

#include "core/rates/ScripFinder.h"
#include "core/text/Isin.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace quorvane::portfolio {
namespace {

using quorvane::rates::ListedScrip;

using Words = std::vector<std::string>;

/// The words of a name that tell companies apart.
Words NameWords(std::string_view name) {
  constexpr std::array<std::string_view, 11> kUsual{"ltd",     "limited", "the",         "co",
                                                    "company", "corp",    "corporation", "eq",
                                                    "equity",  "india",   "of"};
  Words words;
  std::string all = HeadingWords(name);
  for (std::size_t at = 0; at < all.size();) {
    const auto end = std::min(all.find(' ', at), all.size());
    const std::string word = all.substr(at, end - at);
    if (std::ranges::find(kUsual, word) == kUsual.end()) {
      words.push_back(word);
    }
    at = end + 1;
  }
  return words;
}

std::string OneText(const Words& words) {
  std::string text;
  for (const std::string& word : words) {
    text += word;
  }
  return text;
}

/// Names in the order of their letters, so that those that begin alike are found quickly.
class NameIndex {
 public:
  explicit NameIndex(const std::vector<ListedScrip>& scrips) {
    for (const ListedScrip& scrip : scrips) {
      if (std::string text = OneText(NameWords(scrip.name)); !text.empty()) {
        names_.emplace_back(std::move(text), scrip.id);
      }
    }
    std::ranges::sort(names_);
  }

  /// The scrip of the same name, or the only one that begins as the name does or the other way
  /// round; none when several do.
  ScripId Likely(const std::string& name) const {
    // Fewer letters begin too many names.
    constexpr std::size_t kFewest = 4;
    const std::string wanted = OneText(NameWords(name));
    if (wanted.empty()) {
      return {};
    }
    std::vector<ScripId> found = Same(wanted);
    if (found.empty() && wanted.size() >= kFewest) {
      found = Beginning(wanted);
      for (std::size_t size = kFewest; size < wanted.size(); ++size) {
        std::ranges::move(Same(wanted.substr(0, size)), std::back_inserter(found));
      }
    }
    return found.size() == 1 ? found.front() : ScripId{};
  }

 private:
  std::vector<ScripId> Beginning(const std::string& wanted) const {
    std::vector<ScripId> found;
    for (auto name = std::ranges::lower_bound(names_, std::pair(wanted, ScripId{}));
         name != names_.end() && name->first.starts_with(wanted); ++name) {
      found.push_back(name->second);
    }
    return found;
  }

  std::vector<ScripId> Same(const std::string& wanted) const {
    std::vector<ScripId> found;
    for (auto name = std::ranges::lower_bound(names_, std::pair(wanted, ScripId{}));
         name != names_.end() && name->first == wanted; ++name) {
      found.push_back(name->second);
    }
    return found;
  }

  std::vector<std::pair<std::string, ScripId>> names_;
};

class Matcher {
 public:
  Matcher(const std::vector<ListedScrip>& scrips, const ConfirmedScrips& confirmed)
      : confirmed_(confirmed), finder_(scrips), names_(scrips) {
    for (const ListedScrip& scrip : scrips) {
      known_.emplace(scrip.id, &scrip);
    }
  }

  TradedScrip Match(const ScripNaming& naming) const {
    TradedScrip traded;
    traded.naming = naming;
    const auto before = confirmed_.find(ConfirmedName(naming));
    if (before != confirmed_.end() && known_.contains(before->second)) {
      traded.scrip = before->second;
    } else {
      traded.scrip = ByKey(naming);
    }
    if (traded.scrip) {
      traded.match = ScripMatch::kKnown;
      return traded;
    }
    traded.scrip = Likely(naming);
    traded.match = traded.scrip ? ScripMatch::kLikely : ScripMatch::kUnknown;
    return traded;
  }

 private:
  static ScripId Only(const std::vector<ScripId>& found) {
    return found.size() == 1 ? found.front() : ScripId{};
  }

  /// A scrip that is known by another ISIN than the file's may be another share of the company.
  bool HasOtherIsin(ScripId scrip, const std::string& isin) const {
    const auto& isins = known_.at(scrip)->isins;
    return !isin.empty() && !isins.empty() && std::ranges::find(isins, isin) == isins.end();
  }

  ScripId ByKey(const ScripNaming& naming) const {
    if (const ScripId found = Only(finder_.OfIsin(naming.isin))) {
      return found;
    }
    for (const auto& found : {finder_.OfSymbol(naming.symbol), finder_.OfCode(naming.code)}) {
      if (const ScripId scrip = Only(found); scrip && !HasOtherIsin(scrip, naming.isin)) {
        return scrip;
      }
    }
    return {};
  }

  ScripId Likely(const ScripNaming& naming) const {
    for (const std::string* text : {&naming.symbol, &naming.own_code, &naming.name}) {
      for (const auto& found : {finder_.OfSymbol(*text), finder_.OfCode(*text)}) {
        if (const ScripId scrip = Only(found)) {
          return scrip;
        }
      }
      if (const ScripId scrip = names_.Likely(*text)) {
        return scrip;
      }
    }
    return {};
  }

  const ConfirmedScrips& confirmed_;
  quorvane::rates::ScripFinder finder_;
  NameIndex names_;
  std::unordered_map<ScripId, const ListedScrip*> known_;
};

}  // namespace

std::string ConfirmedName(const ScripNaming& naming) {
  // Not more than a key of the table of profiles holds.
  constexpr std::size_t kLongest = 100;
  const std::string& text = naming.isin.empty() ? naming.Shown() : naming.isin;
  return HeadingWords(text).substr(0, kLongest);
}

std::vector<TradedScrip> MatchScrips(std::span<const ScripNaming> namings,
                                     const std::vector<ListedScrip>& scrips,
                                     const ConfirmedScrips& confirmed) {
  const Matcher matcher(scrips, confirmed);
  std::vector<TradedScrip> matched;
  matched.reserve(namings.size());
  for (const ScripNaming& naming : namings) {
    matched.push_back(matcher.Match(naming));
  }
  return matched;
}

QString NewCode(const ScripNaming& naming) {
  for (const std::string* text : {&naming.code, &naming.symbol, &naming.isin, &naming.own_code}) {
    if (!text->empty()) {
      return QString::fromStdString(*text).toUpper();
    }
  }
  return QString::fromStdString(naming.name).toUpper();
}

}  // namespace quorvane::portfolio
