#include "reporting/output/ChartPicture.h"

#include "core/text/Amounts.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace quorvane::reporting {
namespace {

using charts::ChartData;
using charts::ChartKind;

constexpr double kTitleType = 9;
constexpr double kType = 7.5;
constexpr double kHead = 18;         // title and names of the series
constexpr double kFoot = 14;         // names of the categories
constexpr double kGap = 10;          // below the picture
constexpr double kPartLine = 15;     // a part's bar with its room
constexpr double kPlotHeight = 170;  // of lines and standing bars
constexpr double kGridInk = 0.82;
constexpr double kMostLabels = 13;
constexpr double kPerCent = 100;

struct Color {
  double red = 0;
  double green = 0;
  double blue = 0;
};

/// Those of the charts on the screen: apart in brightness as well as in hue.
constexpr std::array kColors{Color{0.12, 0.37, 0.75}, Color{0.78, 0.39, 0.11},
                             Color{0.09, 0.56, 0.49}};

/// Amounts of the size that the chart has, so that its axis stays readable.
struct Unit {
  double rupees = 1;
  const char* name = "Rs.";
};

Unit UnitFor(double largest) {
  constexpr double kLakh = 1e5;
  constexpr double kCrore = 1e7;
  if (largest >= kCrore) {
    return {kCrore, "Rs. crore"};
  }
  return largest >= kLakh ? Unit{kLakh, "Rs. lakh"} : Unit{};
}

/// An axis from at most nothing to at least nothing, in rupees.
struct Axis {
  double low = 0;
  double high = 0;
  double step = 1;

  static Axis Of(double lowest, double highest) {
    constexpr double kMostSteps = 5;
    const double least = std::max((highest - lowest) / kMostSteps, 0.01);
    double step = std::pow(10, std::floor(std::log10(least)));
    for (const double factor : {2.0, 2.5, 2.0}) {  // 1, 2, 5, 10
      step *= step < least * (1 - 1e-9) ? factor : 1;
    }
    return {std::floor(lowest / step) * step, std::ceil(highest / step) * step, step};
  }
};

QString Shortened(const QString& name) {
  constexpr qsizetype kLongest = 30;
  return name.size() <= kLongest ? name : name.left(kLongest - 1) + QChar(0x2026);
}

class Picture {
 public:
  Picture(cairo_t* page, Typesetter& typesetter, const ChartData& chart, const Area& area)
      : page_(page), typesetter_(typesetter), chart_(chart), area_(area) {}

  void Draw() {
    cairo_save(page_);
    if (chart_.kind == ChartKind::kParts) {
      Text(Title(QString()), Face::kBold, kTitleType, area_.left, area_.top, area_.width);
      DrawParts();
    } else {
      DrawAxes();
      chart_.kind == ChartKind::kLines ? DrawLines() : DrawStacked();
    }
    cairo_restore(page_);
  }

 private:
  QString Title(const QString& unit) const {
    QStringList words{chart_.title};
    for (const QString& word : {chart_.subtitle, unit}) {
      if (!word.isEmpty()) {
        words << word;
      }
    }
    return words.join(QStringLiteral(", "));
  }

  void SetColor(std::size_t series) {
    const Color& color = kColors[series % kColors.size()];
    cairo_set_source_rgb(page_, color.red, color.green, color.blue);
  }

  void Text(const QString& text, Face face, double size, double left, double top, double width,
            Alignment alignment = Alignment::kLeft) {
    cairo_set_source_rgb(page_, 0, 0, 0);
    typesetter_.Draw(page_, text.toStdString(), face, size, left, top, width, alignment);
  }

  void Box(double left, double top, double width, double height) {
    cairo_rectangle(page_, left, top, width, height);
    cairo_fill(page_);
  }

  void DrawParts() {
    constexpr double kNames = 165;
    constexpr double kAmounts = 125;
    const auto& parts = chart_.series.front().paise;
    const auto all = std::accumulate(parts.begin(), parts.end(), std::int64_t{0});
    const auto largest = std::max<std::int64_t>(1, *std::ranges::max_element(parts));
    const double room = area_.width - kNames - kAmounts;
    double top = area_.top + kHead;
    for (std::size_t i = 0; i < parts.size(); ++i, top += kPartLine) {
      const double width = room * static_cast<double>(std::max<std::int64_t>(0, parts[i])) /
                           static_cast<double>(largest);
      Text(Shortened(chart_.categories[static_cast<qsizetype>(i)]), Face::kRegular, kType,
           area_.left, top, kNames - 4);
      SetColor(0);
      Box(area_.left + kNames, top + 1, width, kPartLine - 5);
      const double share =
          all == 0 ? 0 : kPerCent * static_cast<double>(parts[i]) / static_cast<double>(all);
      Text(QStringLiteral("%1  (%2%)")
               .arg(CellText(text::FromPaise(parts[i]), Mask::kAmount),
                    QString::number(share, 'f', 1)),
           Face::kRegular, kType, area_.left + kNames + width + 4, top, kAmounts);
    }
  }

  /// The lowest and the highest amount that is drawn, in rupees.
  std::pair<double, double> Bounds() const {
    double low = 0;
    double high = 0;
    for (qsizetype i = 0; i < chart_.categories.size(); ++i) {
      double above = 0;
      double below = 0;
      for (const ChartData::Series& series : chart_.series) {
        const double amount = text::FromPaise(series.paise[static_cast<std::size_t>(i)]);
        if (chart_.kind == ChartKind::kStacked) {
          (amount < 0 ? below : above) += amount;
        } else {
          above = std::max(above, amount);
          below = std::min(below, amount);
        }
      }
      high = std::max(high, above);
      low = std::min(low, below);
    }
    return {low, high};
  }

  double Y(double rupees) const {
    return plot_.top + plot_.height * (axis_.high - rupees) / (axis_.high - axis_.low);
  }

  /// The middle of a category.
  double X(std::size_t category) const {
    return plot_.left + Slot() * (static_cast<double>(category) + 0.5);
  }
  double Slot() const { return plot_.width / static_cast<double>(chart_.categories.size()); }

  void DrawAxes() {
    constexpr double kAmounts = 48;
    const auto [low, high] = Bounds();
    axis_ = Axis::Of(low, high);
    const Unit unit = UnitFor(std::max(axis_.high, -axis_.low));
    plot_ = {area_.left + kAmounts, area_.top + kHead + 4, area_.width - kAmounts, kPlotHeight};
    Text(Title(QLatin1String(unit.name)), Face::kBold, kTitleType, area_.left, area_.top,
         area_.width);
    DrawNames();
    const double line = typesetter_.LineHeight() * kType;
    cairo_set_line_width(page_, 0.5);
    const auto steps = static_cast<int>(std::lround((axis_.high - axis_.low) / axis_.step));
    for (int i = 0; i <= steps; ++i) {
      const double amount = axis_.low + i * axis_.step;
      const double ink = std::abs(amount) < axis_.step / 2 ? 0 : kGridInk;
      cairo_set_source_rgb(page_, ink, ink, ink);
      cairo_move_to(page_, plot_.left, Y(amount));
      cairo_line_to(page_, plot_.left + plot_.width, Y(amount));
      cairo_stroke(page_);
      Text(text::NumberText(text::Tidy(amount / unit.rupees)), Face::kRegular, kType, area_.left,
           Y(amount) - line / 2, kAmounts - 5, Alignment::kRight);
    }
    DrawCategories();
  }

  /// The names of the series at the right, each beside a box in its colour.
  void DrawNames() {
    constexpr double kBox = 7;
    double right = area_.left + area_.width;
    for (std::size_t i = chart_.series.size(); i-- > 0;) {
      const QString& name = chart_.series[i].name;
      const double width = typesetter_.Width(name.toStdString(), Face::kRegular) * kType + 2;
      right -= width;
      Text(name, Face::kRegular, kType, right, area_.top + 1, width);
      right -= kBox + 4;
      SetColor(i);
      Box(right, area_.top + 3, kBox, kBox);
      right -= kBox + 4;
    }
  }

  /// Every one, or every second or third where they are many. Months go without their year while
  /// they are of two years at most.
  void DrawCategories() {
    const auto count = static_cast<std::size_t>(chart_.categories.size());
    const auto step = static_cast<std::size_t>(std::ceil(static_cast<double>(count) / kMostLabels));
    for (std::size_t i = 0; i < count; i += step) {
      const QString& category = chart_.categories[static_cast<qsizetype>(i)];
      const double width = Slot() * static_cast<double>(step);
      const bool fits =
          typesetter_.Width(category.toStdString(), Face::kRegular) * kType <= width - 2;
      Text(fits ? category : category.section(QLatin1Char(' '), 0, 0), Face::kRegular, kType,
           X(i) - width / 2, plot_.top + plot_.height + 3, width, Alignment::kCentre);
    }
  }

  void DrawLines() {
    constexpr std::array kDashes{5.0, 3.0};
    constexpr double kDot = 1.6;
    cairo_set_line_width(page_, 1.4);
    for (std::size_t i = 0; i < chart_.series.size(); ++i) {
      const auto& paise = chart_.series[i].paise;
      SetColor(i);
      cairo_set_dash(page_, kDashes.data(), i % 2 == 0 ? 0 : static_cast<int>(kDashes.size()), 0);
      cairo_new_path(page_);  // a text leaves its place as a beginning
      for (std::size_t at = 0; at < paise.size(); ++at) {
        cairo_line_to(page_, X(at), Y(text::FromPaise(paise[at])));
      }
      cairo_stroke(page_);
      for (std::size_t at = 0; at < paise.size(); ++at) {
        Box(X(at) - kDot, Y(text::FromPaise(paise[at])) - kDot, 2 * kDot, 2 * kDot);
      }
    }
  }

  void DrawStacked() {
    constexpr double kBar = 0.62;  // of a category's room
    for (std::size_t at = 0; at < static_cast<std::size_t>(chart_.categories.size()); ++at) {
      double above = 0;
      double below = 0;
      for (std::size_t i = 0; i < chart_.series.size(); ++i) {
        const double amount = text::FromPaise(chart_.series[i].paise[at]);
        double& reached = amount < 0 ? below : above;
        const double top = Y(std::max(reached, reached + amount));
        const double foot = Y(std::min(reached, reached + amount));
        reached += amount;
        SetColor(i);
        Box(X(at) - Slot() * kBar / 2, top, Slot() * kBar, foot - top);
      }
    }
  }

  cairo_t* page_;
  Typesetter& typesetter_;
  const ChartData& chart_;
  Area area_;
  Area plot_;
  Axis axis_;
};

}  // namespace

double ChartHeight(const charts::ChartData& chart) {
  return kHead + kGap +
         (chart.kind == ChartKind::kParts ? kPartLine * static_cast<double>(chart.categories.size())
                                          : kPlotHeight + kFoot + 4);
}

void DrawChart(cairo_t* page, Typesetter& typesetter, const charts::ChartData& chart,
               const Area& area) {
  if (!chart.IsEmpty()) {
    Picture(page, typesetter, chart, area).Draw();
  }
}

}  // namespace quorvane::reporting
