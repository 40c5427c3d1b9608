#pragma once

#include <QString>

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quorvane::tax {

/// How the tax law treats what a sale brought, in the order of statements.
enum class GainKind : std::uint8_t {
  kShortTermStt,  ///< securities transaction tax was paid on the sale
  kShortTerm,
  kLongTermStt,
  kLongTerm,
  kSpeculation,  ///< bought and sold on one day without delivery
  kFo,           ///< futures and options
  kDividend,     ///< what a company paid for its own shares, where the law says so
  kExempt,
  kUnknown,  ///< cost and day of the purchase are not on record
};

/// A kind, its name in files and its title on statements.
struct GainName {
  GainKind kind;
  std::string_view file_name;
  const char* title;
};

inline constexpr std::array<GainName, 9> kGainNames{{
    {GainKind::kShortTermStt, "short-term-stt", "Short term, STT paid"},
    {GainKind::kShortTerm, "short-term", "Short term, other"},
    {GainKind::kLongTermStt, "long-term-stt", "Long term, STT paid"},
    {GainKind::kLongTerm, "long-term", "Long term, other"},
    {GainKind::kSpeculation, "speculation", "Speculation"},
    {GainKind::kFo, "futures-and-options", "Futures and options"},
    {GainKind::kDividend, "dividend", "Dividend by buy-back"},
    {GainKind::kExempt, "exempt", "Exempt"},
    {GainKind::kUnknown, "unknown", "Cost not known"},
}};

constexpr const GainName& NameOf(GainKind kind) {
  return kGainNames[static_cast<std::size_t>(kind)];
}

inline std::optional<GainKind> GainKindOf(std::string_view file_name) {
  for (const GainName& name : kGainNames) {
    if (name.file_name == file_name) {
      return name.kind;
    }
  }
  return std::nullopt;
}

constexpr bool IsShortTerm(GainKind kind) {
  return kind == GainKind::kShortTermStt || kind == GainKind::kShortTerm;
}
constexpr bool IsLongTerm(GainKind kind) {
  return kind == GainKind::kLongTermStt || kind == GainKind::kLongTerm;
}

}  // namespace quorvane::tax
