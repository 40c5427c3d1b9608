#pragma once

#include "core/Result.h"
#include "core/tax/AdvanceTax.h"
#include "core/tax/GainKind.h"
#include "core/tax/TaxLosses.h"
#include "core/text/Dates.h"
#include "core/text/FinancialYear.h"
#include "core/text/Paise.h"

#include <QString>

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <vector>

namespace quorvane::tax {

/// A per cent of tax, to a millionth of a per cent.
class Percent {
 public:
  Percent() = default;
  explicit Percent(double percent) : millionths_(text::Shares(percent).Millionths()) {}

  double Number() const { return text::Shares::OfMillionths(millionths_).Number(); }

  /// Rounded half away from zero to the paisa.
  text::Paise Of(text::Paise amount) const;

  auto operator<=>(const Percent&) const = default;

 private:
  std::int64_t millionths_ = 0;
};

/// The section of the law that a gain falls under.
struct Section {
  QString name;                         ///< "112A"
  std::optional<Percent> percent = {};  ///< none where the gain is taxed with other income
  bool exempt = false;

  bool operator==(const Section&) const = default;
};

/// What the law makes of the money that a company pays for its own shares.
enum class BuyBackTreatment : std::uint8_t {
  kGains,     ///< as of a sale
  kExempt,    ///< for the holder
  kDividend,  ///< the money is dividend, the cost a capital loss
};

struct BuyBackRule {
  BuyBackTreatment treatment = BuyBackTreatment::kGains;
  QString section;
};

/// The columns of the upload file of schedule 112A.
enum class UploadLayout : std::uint8_t {
  kAcquired,             ///< before or after 31-Jan-2018 (1a), one row a scrip
  kAcquiredTransferred,  ///< and sold before or after 23-Jul-2024 (1b)
  kConsolidated,         ///< what was acquired later in one row
};

/// The tax law of a financial year, from the dated files in the folder "tax" of the data folder.
class Rules {
 public:
  /// Refused for a year that the files do not know. Throws files::TableError for a broken file.
  static Result<Rules> Load(const QString& data_folder, text::FinancialYear year);

  text::FinancialYear Year() const { return year_; }

  /// The section of a gain by the day of the sale. Of long-term gains with STT it may say that they
  /// are exempt.
  const Section& SectionOf(GainKind kind, text::Date sold) const;
  const BuyBackRule& BuyBackOn(text::Date day) const;

  /// Long-term gains with STT up to it are free of tax, rupees a year.
  text::Paise Exemption() const { return exemption_; }

  /// For how many years a loss may be brought forward.
  int CarryYears(LossKind kind) const { return carry_years_[static_cast<std::size_t>(kind) - 1]; }

  /// None for a year without an upload file.
  const std::optional<UploadLayout>& Upload() const { return upload_; }

  const std::vector<AdvanceTaxWindow>& Windows() const { return windows_; }

  /// The window of a day of the year, counted from 1; 0 when the windows are not known.
  int WindowOf(text::Date day) const;

 private:
  template <class Value>
  struct Dated {
    text::Date from;
    Value value;
  };

  explicit Rules(text::FinancialYear year) : year_(year) {}

  bool LoadYear(const QString& folder);
  void LoadSections(const QString& folder);
  void LoadBuyBacks(const QString& folder);
  void LoadLosses(const QString& folder);

  text::FinancialYear year_;
  text::Paise exemption_;
  std::optional<UploadLayout> upload_;
  std::array<std::vector<Dated<Section>>, kGainNames.size()> sections_;  ///< by day
  std::vector<Dated<BuyBackRule>> buy_backs_;                            ///< by day
  std::array<int, 3> carry_years_{};
  std::vector<AdvanceTaxWindow> windows_;
};

}  // namespace quorvane::tax
