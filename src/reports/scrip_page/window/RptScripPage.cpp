#include "reports/scrip_page/window/RptScripPage.h"

#include "controls/ProgressDialog.h"
#include "core/app/Session.h"
#include "reporting/selection/ReportLists.h"

#include <QLabel>

namespace quorvane::scrip_page {
namespace {

enum Whose { kClient, kFamily };
enum Page { kReportPage, kChartPage };
enum Chart { kHolding, kRate };

}  // namespace

RptScripPage::RptScripPage(reporting::ReportDesk& desk)
    : ReportWindow(desk, QStringLiteral("RptScripPage"),
                   app::ClientTitle(tr("Script Page"), desk.session), {790, 520}),
      of_(app::CurrentOf(desk.session)) {
  auto* row = new QHBoxLayout();
  Combo1 = new controls::ComboBox();
  Combo1->setObjectName(QStringLiteral("Combo1"));
  Combo1->setAccessibleName(tr("Script Name"));
  auto* label = new QLabel(tr("&Script Name"));
  label->setBuddy(Combo1);
  row->addWidget(label);
  row->addWidget(Combo1, 1);
  whose_ = MakeChoice(QStringLiteral("Frame1"), tr("Whose"), QStringLiteral("optW"),
                      {tr("&Client"), tr("&Family")});
  row->addWidget(whose_.frame);
  AddOptions(row);
  chart_ = new charts::ChartPane(TheGuard(), TheDesk(), {tr("Holding"), tr("Rate")});
  QTabWidget* pages = AddPage(tr("Chart"), chart_);
  FillScrips();
  Combo1->setCurrentIndex(Combo1->count() > 0 ? 0 : -1);
  Hold({{Field::kScrip, QStringLiteral("Combo1")}});
  On(whose_.group, &QButtonGroup::idClicked, &RptScripPage::Chart_Click,
     QStringLiteral("optW_Click"));
  On(Combo1, &QComboBox::activated, &RptScripPage::Chart_Click, QStringLiteral("Combo1_Click"));
  On(pages, &QTabWidget::currentChanged, &RptScripPage::Pages_Click, QStringLiteral("Pages_Click"));
  On(chart_, &charts::ChartPane::Chosen, &RptScripPage::Chart_Click,
     QStringLiteral("CmbChart_Click"));
  Start();
}

void RptScripPage::FillScrips() {
  Combo1->SetItems(reporting::ScripsEverHeld(*Session().connection, Query().clients));
}

bool RptScripPage::GoTo(int record) {
  FillScrips();
  if (!Combo1->ById(record)) {
    return false;
  }
  TheGuard().Run(QStringLiteral("CmdReport_Click"), [this] { CmdReport_Click(); });
  return true;
}

ScripPageQuery RptScripPage::Query() const {
  const bool family = whose_.group != nullptr && whose_.Index() == kFamily;
  return {family ? reporting::FamilyOf(*Session().connection, of_.client)
                 : std::set<ClientId>{of_.client},
          ScripId{Combo1->CurrentId()}, TheDesk().today()};
}

MaybeRefusal RptScripPage::CheckSelection() {
  if (!Combo1->HasChoice()) {
    return Refusal{tr("Select Script."), Field::kScrip};
  }
  return std::nullopt;
}

QStringList RptScripPage::Choices() const {
  return {Combo1->currentText(), whose_.Index() == kFamily ? tr("Family") : QString()};
}

std::optional<reporting::ReportDocument> RptScripPage::BuildDocument(Progress& progress) {
  return ScripPage(*Session().connection, Query(), progress).Document();
}

void RptScripPage::ShowChart() {
  if (!Combo1->HasChoice()) {
    chart_->Show({});
    return;
  }
  controls::ProgressDialog progress(this);
  const ScripPage page(*Session().connection, Query(), progress);
  chart_->Show(chart_->Choice() == kRate ? page.RateChart() : page.HoldingChart());
}

void RptScripPage::Pages_Click(int page) {
  if (page == kChartPage) {
    ShowChart();
  }
}

/// Another scrip, family or chart was chosen.
void RptScripPage::Chart_Click(int /*choice*/) {
  const int scrip = Combo1->CurrentId();
  FillScrips();
  Combo1->ById(scrip);
  if (chart_->isVisible()) {
    ShowChart();
  }
}

}  // namespace quorvane::scrip_page
