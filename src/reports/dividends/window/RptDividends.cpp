#include "reports/dividends/window/RptDividends.h"

#include "core/app/Session.h"
#include "reports/dividends/DividendReport.h"

namespace quorvane::dividends {

RptDividends::RptDividends(reporting::ReportDesk& desk)
    : ReportWindow(desk, QStringLiteral("RptDividends"),
                   app::ClientTitle(tr("Dividend Report"), desk.session), {790, 520}),
      of_(app::CurrentOf(desk.session)) {
  AddPeriod();
  Start();
}

MaybeRefusal RptDividends::CheckSelection() {
  return reporting::RefuseOutside(ThePeriod(), of_.year);
}

std::optional<reporting::ReportDocument> RptDividends::BuildDocument(Progress& /*progress*/) {
  const DividendQuery query{of_, ThePeriod()};
  return MakeDividendReport(*Session().connection, query,
                            tax::AdvanceTaxWindows(Session().folders.data, of_.year));
}

}  // namespace quorvane::dividends
