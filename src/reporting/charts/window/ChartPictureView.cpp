#include "reporting/charts/window/ChartPictureView.h"

#include "controls/Style.h"
#include "core/text/Amounts.h"

#include <QBarCategoryAxis>
#include <QBarSet>
#include <QEvent>
#include <QFontInfo>
#include <QGraphicsLayout>
#include <QHorizontalBarSeries>
#include <QLineSeries>
#include <QScopedValueRollback>
#include <QStackedBarSeries>
#include <QValueAxis>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace quorvane::charts {
namespace {

constexpr int kLongestName = 23;
constexpr double kPaiseARupee = 100;
constexpr double kLakh = 1e5;
constexpr double kCrore = 1e7;

/// Amounts of the size that the chart has, so that its axis stays readable.
struct Unit {
  double rupees = 1;
  QString name;
};

Unit UnitFor(double largest) {
  if (largest >= kCrore) {
    return {kCrore, ChartPictureView::tr("Rs. crore")};
  }
  if (largest >= kLakh) {
    return {kLakh, ChartPictureView::tr("Rs. lakh")};
  }
  return {1, ChartPictureView::tr("Rs.")};
}

Unit UnitFor(const ChartData& data) {
  double largest = 0;
  for (const ChartData::Series& series : data.series) {
    for (const std::int64_t paise : series.paise) {
      largest = std::max(largest, std::abs(text::FromPaise(paise)));
    }
  }
  return UnitFor(largest);
}

double In(const Unit& unit, std::int64_t paise) {
  return static_cast<double>(paise) / kPaiseARupee / unit.rupees;
}

QString Shortened(const QString& name) {
  return name.size() <= kLongestName ? name : name.left(kLongestName - 1) + QChar(0x2026);
}

// The year of a month stands in the title and in the table.
QStringList MonthsOf(const QStringList& categories) {
  QStringList months;
  for (const QString& category : categories) {
    months << category.section(QLatin1Char(' '), 0, 0);
  }
  return months;
}

// Categories of one name would be one on the axis.
QStringList AxisNames(const QStringList& categories) {
  QStringList names;
  for (const QString& category : categories) {
    QString name = Shortened(category);
    while (names.contains(name)) {
      name += QLatin1Char(' ');
    }
    names << name;
  }
  return names;
}

QValueAxis* AmountAxis(const Unit& unit) {
  auto* axis = new QValueAxis;
  axis->setTitleText(unit.name);
  axis->setLabelFormat(unit.rupees == 1 ? QStringLiteral("%.0f") : QStringLiteral("%.2f"));
  return axis;
}

QBarCategoryAxis* CategoryAxis(const QStringList& names) {
  auto* axis = new QBarCategoryAxis;
  axis->append(names);
  return axis;
}

Qt::BrushStyle HatchOf(int series) {
  constexpr std::array kHatches{Qt::SolidPattern, Qt::BDiagPattern, Qt::Dense4Pattern};
  return kHatches[static_cast<std::size_t>(series) % kHatches.size()];
}

Qt::PenStyle LineOf(int series) {
  constexpr std::array kLines{Qt::SolidLine, Qt::DashLine, Qt::DotLine};
  return kLines[static_cast<std::size_t>(series) % kLines.size()];
}

void Attach(QChart& chart, QAbstractSeries* series, QAbstractAxis* categories,
            QAbstractAxis* amounts, bool lying) {
  chart.addSeries(series);
  chart.addAxis(categories, lying ? Qt::AlignLeft : Qt::AlignBottom);
  chart.addAxis(amounts, lying ? Qt::AlignBottom : Qt::AlignLeft);
  series->attachAxis(categories);
  series->attachAxis(amounts);
}

}  // namespace

ChartPictureView::ChartPictureView(QWidget* parent) : QChartView(parent) {
  setObjectName(QStringLiteral("ChartPicture"));
  setAccessibleName(tr("Chart; the table beside it says the same"));
  setRenderHint(QPainter::Antialiasing);
  setFrameShape(StyledPanel);
  setFocusPolicy(Qt::NoFocus);
  setMinimumSize(240, 160);
  Draw();
}

void ChartPictureView::SetData(const ChartData& chart_data) {
  data_ = chart_data;
  setAccessibleDescription(chart_data.title + QLatin1Char(' ') + chart_data.subtitle);
  Draw();
}

QColor ChartPictureView::ColorOf(int series) const {
  // Apart in brightness as well as in hue, for every kind of colour blindness.
  constexpr std::array kOnLight{0xff1f5fbf, 0xffc8641b, 0xff178f7c};
  constexpr std::array kOnDark{0xff6ea8fe, 0xfff2a65a, 0xff4fd1b8};
  const auto& colors = controls::IsDark() && !for_paper_ ? kOnDark : kOnLight;
  return QColor::fromRgb(
      static_cast<QRgb>(colors[static_cast<std::size_t>(series) % colors.size()]));
}

void ChartPictureView::Draw() {
  auto* chart = new QChart;
  chart->setMargins(QMargins(4, 4, 4, 4));
  chart->layout()->setContentsMargins(0, 0, 0, 0);
  chart->setBackgroundRoundness(0);
  if (data_.IsEmpty()) {
    chart->setTitle(tr("There is nothing to draw."));
    chart->legend()->hide();
  } else {
    chart->setTitle(data_.subtitle.isEmpty() ? data_.title
                                             : data_.title + QStringLiteral(", ") + data_.subtitle);
    switch (data_.kind) {
      case ChartKind::kParts:
        DrawParts(*chart);
        break;
      case ChartKind::kLines:
        DrawLines(*chart);
        break;
      case ChartKind::kStacked:
        DrawStacked(*chart);
        break;
    }
  }
  SetColors(*chart);
  QChart* const before = this->chart();
  setChart(chart);
  delete before;
  FitLabels();
}

/// The names of months lie where there is room for twelve of them, else they stand. The names of
/// parts are as small as a low picture needs to show every one of them.
void ChartPictureView::FitLabels() {
  constexpr int kRoomForMonths = 420;
  constexpr int kUpright = -90;
  constexpr int kFrame = 90;  // title and scale
  constexpr double kLine = 0.7;
  constexpr int kSmallest = 7;
  for (QAbstractAxis* axis : chart()->axes(Qt::Vertical)) {
    if (const auto* parts = qobject_cast<QBarCategoryAxis*>(axis)) {
      const int room = static_cast<int>(kLine * (height() - kFrame) / std::max(1, parts->count()));
      QFont fitting = SmallFont();
      const int usual = std::max(kSmallest, QFontInfo(fitting).pixelSize());
      fitting.setPixelSize(std::clamp(room, kSmallest, usual));
      axis->setLabelsFont(fitting);
    }
  }
  for (QAbstractAxis* axis : chart()->axes(Qt::Horizontal)) {
    if (qobject_cast<QBarCategoryAxis*>(axis) != nullptr) {
      axis->setLabelsAngle(width() < kRoomForMonths ? kUpright : 0);
    }
  }
}

void ChartPictureView::resizeEvent(QResizeEvent* event) {
  QChartView::resizeEvent(event);
  FitLabels();
}

// The largest part lies on top, as in the table; bars are filled from below.
void ChartPictureView::DrawParts(QChart& chart) {
  const std::vector<std::int64_t>& paise = data_.series.front().paise;
  const auto whole =
      static_cast<double>(std::accumulate(paise.begin(), paise.end(), std::int64_t{0}));
  QStringList names = AxisNames(data_.categories);
  auto* set = new QBarSet(data_.series.front().name);
  constexpr double kPerCent = 100;
  const std::vector<std::int64_t> from_below(paise.rbegin(), paise.rend());
  for (const std::int64_t part : from_below) {
    set->append(std::round(static_cast<double>(part) / whole * kPerCent * 10) / 10);
  }
  std::ranges::reverse(names);
  set->setColor(ColorOf(0));
  set->setBorderColor(ColorOf(0));
  auto* bars = new QHorizontalBarSeries;
  bars->append(set);
  bars->setLabelsVisible(true);
  bars->setLabelsPosition(QAbstractBarSeries::LabelsOutsideEnd);
  bars->setLabelsFormat(QStringLiteral("@value %"));
  bars->setBarWidth(0.7);
  auto* shares = new QValueAxis;
  shares->setTitleText(tr("Per cent of the value"));
  shares->setLabelFormat(QStringLiteral("%.0f"));
  auto* parts = CategoryAxis(names);
  parts->setTruncateLabels(false);  // a low picture would show points in place of every name
  Attach(chart, bars, parts, shares, true);
  // Room for the figures behind the longest bar.
  constexpr double kRoom = 1.25;
  shares->setRange(0, kRoom * kPerCent * static_cast<double>(std::ranges::max(paise)) / whole);
  shares->applyNiceNumbers();
  chart.legend()->hide();
}

void ChartPictureView::DrawLines(QChart& chart) {
  const Unit unit = UnitFor(data_);
  auto* months = CategoryAxis(AxisNames(MonthsOf(data_.categories)));
  auto* amounts = AmountAxis(unit);
  chart.addAxis(months, Qt::AlignBottom);
  chart.addAxis(amounts, Qt::AlignLeft);
  for (int i = 0; i < static_cast<int>(data_.series.size()); ++i) {
    const ChartData::Series& series = data_.series[static_cast<std::size_t>(i)];
    auto* line = new QLineSeries;
    line->setName(series.name);
    for (std::size_t at = 0; at < series.paise.size(); ++at) {
      line->append(static_cast<double>(at), In(unit, series.paise[at]));
    }
    line->setPen(QPen(ColorOf(i), 2.5, LineOf(i)));
    line->setPointsVisible(i == 0);
    chart.addSeries(line);
    line->attachAxis(months);
    line->attachAxis(amounts);
  }
  amounts->setMin(0);
  amounts->applyNiceNumbers();
  chart.legend()->setAlignment(Qt::AlignBottom);
  chart.legend()->setMarkerShape(QLegend::MarkerShapeFromSeries);
}

void ChartPictureView::DrawStacked(QChart& chart) {
  const Unit unit = UnitFor(data_);
  auto* bars = new QStackedBarSeries;
  for (int i = 0; i < static_cast<int>(data_.series.size()); ++i) {
    const ChartData::Series& series = data_.series[static_cast<std::size_t>(i)];
    auto* set = new QBarSet(series.name);
    for (const std::int64_t paise : series.paise) {
      set->append(In(unit, paise));
    }
    set->setBrush(QBrush(ColorOf(i), HatchOf(i)));
    set->setPen(QPen(ColorOf(i), 1));
    bars->append(set);
  }
  bars->setBarWidth(0.6);
  auto* months = CategoryAxis(AxisNames(MonthsOf(data_.categories)));
  auto* amounts = AmountAxis(unit);
  Attach(chart, bars, months, amounts, false);
  amounts->applyNiceNumbers();
  chart.legend()->setAlignment(Qt::AlignBottom);
}

QFont ChartPictureView::SmallFont() const {
  QFont small = font();
  small.setPointSizeF(small.pointSizeF() * 0.9);
  return small;
}

void ChartPictureView::SetColors(QChart& chart) {
  const QColor ground = for_paper_ ? QColor(Qt::white) : palette().color(QPalette::Base);
  const QColor ink = for_paper_ ? QColor(Qt::black) : palette().color(QPalette::Text);
  chart.setBackgroundBrush(ground);
  chart.setTitleBrush(ink);
  QFont bold = font();
  bold.setBold(true);
  chart.setTitleFont(bold);
  chart.legend()->setLabelColor(ink);
  chart.legend()->setFont(font());
  const QFont small = SmallFont();
  for (QAbstractAxis* axis : chart.axes()) {
    axis->setLabelsColor(ink);
    axis->setLabelsFont(small);
    axis->setTitleBrush(ink);
    axis->setTitleFont(small);
    axis->setLinePenColor(controls::Mix(ink, ground, 0.5));
    axis->setGridLineColor(controls::Mix(ink, ground, 0.15));
    axis->setGridLineVisible(qobject_cast<QValueAxis*>(axis) != nullptr);
  }
  for (QAbstractSeries* series : chart.series()) {
    if (auto* bars = qobject_cast<QAbstractBarSeries*>(series)) {
      for (QBarSet* set : bars->barSets()) {
        set->setLabelColor(ink);
      }
    }
  }
}

QImage ChartPictureView::Picture(QSize size) {
  ChartPictureView paper;
  paper.for_paper_ = true;
  paper.setFrameShape(NoFrame);
  paper.resize(size);
  paper.SetData(data_);
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  paper.ensurePolished();
  paper.chart()->resize(size);
  paper.chart()->setAnimationOptions(QChart::NoAnimation);
  paper.render(&painter);
  return image;
}

void ChartPictureView::changeEvent(QEvent* event) {
  QChartView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
    Draw();
  }
}

}  // namespace quorvane::charts
