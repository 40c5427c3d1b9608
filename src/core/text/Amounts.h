#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane::text {

/// The masks round half away from zero on the value's decimal form of 15 significant digits, so
/// 2.675 gives 2.68 although the nearest double is below it. They never write "-0.00". What is no
/// finite number is written as "nan", "inf" or "-inf".
QString FormatAmount(double value);     ///< "###0.00": rupees, rates, quantities
QString FormatPercent(double value);    ///< "###0.000": percentages
QString FormatSummary(double value);    ///< "##0.00": summary layouts
QString FormatThousands(double value);  ///< "###,###.00": commas, no 0 before the point

/// "###0.00" appended to UTF-8 text. Fast: used on every cell of a large output.
void AppendAmount(std::string& out, double value);

/// Rounds to whole paise by the rule of FormatAmount. Exact for amounts below 9e15 paise; never
/// beyond 1e18 paise either way, so that a few of them add up without overflow, and 0 for what is
/// no number.
std::int64_t ToPaise(double rupees);
double FromPaise(std::int64_t paise);
void AppendPaise(std::string& out, std::int64_t paise);

/// FormatAmount as a number: the double nearest to the two-decimal text.
double RoundAmount(double value);

/// The double nearest to the value's decimal form of 15 significant digits: takes rounding error
/// such as 100.30000000000001 off a sum or a product.
double Tidy(double value);

/// A number as plain text: at most 15 significant digits, "." as the decimal mark, no exponent and
/// no thousands separator, in every locale. 0 is "0", never "-0".
QString NumberText(double value);
void AppendNumber(std::string& out, double value);

/// The shortest plain text that reads back as exactly the same double; equal to NumberText whenever
/// 15 digits are enough.
void AppendExact(std::string& out, double value);

/// The number at the start of a text: blanks are passed over, reading stops at the first character
/// that does not belong to a number, and a text without a number is 0.
double Val(QStringView text);

/// Reads a whole text as a plain decimal number ("-12.5"; no blanks, no exponent, no separators, no
/// "nan" or "inf"); nullopt for anything else.
std::optional<double> ParseNumber(std::string_view text);

}  // namespace quorvane::text
