#pragma once

#include "reporting/charts/ChartData.h"
#include "reporting/output/Typesetter.h"

namespace quorvane::reporting {

/// A place on a page, in points.
struct Area {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

/// The height that a chart needs on a page, in points.
double ChartHeight(const charts::ChartData& chart);

/// Draws a chart on a page as lines and bars: parts as lying bars with amount and per cent, series
/// over time as lines, series that add up as bars above and below nothing. Nothing is drawn of an
/// empty chart.
void DrawChart(cairo_t* page, Typesetter& typesetter, const charts::ChartData& chart,
               const Area& area);

}  // namespace quorvane::reporting
