#pragma once

#include "controls/ChildWindow.h"
#include "core/ClientYear.h"
#include "reporting/period/window/PeriodPane.h"
#include "reporting/screen/window/ReportGridView.h"
#include "reporting/window/ReportDesk.h"
#include "reporting/window/ReportOutputs.h"
#include "reporting/window/TickGrid.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QGroupBox>
#include <QTabWidget>

#include <optional>

namespace quorvane::reporting {

/// What every report window shares: the period (PeriodPane), grids in which accounts and scrips are
/// ticked (TickGrid), the report on the screen (`VS`), the buttons `CmdReport` and `CmdExit`, and
/// the outputs (ReportOutputs), whose menu comes by `CmdOutput` or on the report itself. From top
/// to bottom: options, ticks beside the report, buttons.
///
/// A derived window adds its parts in its constructor and builds the document:
///
///     RptDMatStatement::RptDMatStatement(reporting::ReportDesk& desk)
///         : ReportWindow(desk, "RptDMatStatement", tr("Demat A/c Statement"), {780, 520}) {
///       AddPeriod(Months::kYes);
///       VSF = AddTickGrid("VSF", tr("Demat A/c No."), tr("Demat accounts"));
///       VSF->Fill(AccountsByNumber(*Session().connection, client));
///       Start();
///     }
///     MaybeRefusal RptDMatStatement::CheckSelection() {
///       return VSF->RefuseWithoutAccount();
///     }
///     std::optional<ReportDocument> RptDMatStatement::BuildDocument(Progress& progress) {
///       return demat::MakeStatement(*Session().connection, QueryOf(ThePeriod(), *VSF), progress);
///     }
class ReportWindow : public controls::ChildWindow, private ReportOutputs::Source {
  Q_OBJECT

 protected:
  enum class Months { kNo, kYes };

  /// `name`, `title` and `designed` as for ChildWindow.
  ReportWindow(ReportDesk& desk, const QString& name, const QString& title, QSize designed);

  ReportDesk& TheDesk() const { return desk_; }

  /// The client and year that were current when the window opened: what its title names is what it
  /// reports, also after another choice elsewhere.
  const std::optional<ClientYear>& Current() const { return current_; }

  /// The name of that client, as it was then.
  const QString& ClientName() const { return client_name_; }

  /// The financial year of the period and of its months; the current one unless the window has a
  /// choice of years of its own.
  virtual std::optional<text::FinancialYear> PeriodYear() const;

  /// The period in a row of its own, filled with the year of the period.
  void AddPeriod(Months months = Months::kNo);

  /// The period in a frame, for windows with many options. Returns the row, in which the options'
  /// frames go to the right.
  QBoxLayout* AddPeriodFrame();

  /// A row of the window's own controls, below what was added before.
  void AddOptions(QLayout* options) { options_->addLayout(options); }
  void AddOptions(QWidget* options) { options_->addWidget(options); }

  /// A grid with ticks and one column of text, to the left of the report. `share` is its part of
  /// the height.
  TickGrid* AddTickGrid(const QString& name, const QString& heading, const QString& purpose,
                        int share = 1);

  /// Only after AddPeriod or AddPeriodFrame.
  PeriodPane& ThePeriodPane() { return *period_; }

  /// A framed choice of one of several: the frame's and the array's control names ("Frame1",
  /// "optF"; the buttons are "optF_0" and so on), the frame's title and the captions in the order
  /// of their indices. The first is chosen. The caller adds the frame to a layout and connects the
  /// group's idClicked.
  struct Choice {
    QGroupBox* frame = nullptr;
    QButtonGroup* group = nullptr;

    int Index() const;
    void Choose(int index) const;
  };
  Choice MakeChoice(const QString& frame_name, const QString& title, const QString& array_name,
                    const QStringList& captions);

  /// Another page in the report's place, behind a tab; the report has the first tab.
  QTabWidget* AddPage(const QString& title, QWidget* page);

  /// Something else to the left of the report, between the grids.
  void AddBesideReport(QWidget* widget, int share = 0);

  /// To be called at the end of the derived constructor: settles the order of the Tab key.
  void Start();

  /// The period in the boxes. Only after the checks have passed, as in BuildDocument.
  Period ThePeriod() const;

  /// The first rule of the selection that is broken, after those of the period.
  virtual MaybeRefusal CheckSelection() { return std::nullopt; }

  /// The rules of the period and of the selection.
  MaybeRefusal Check();

  /// The report for the screen; nullopt leaves the screen as it is. Long work steps `progress` and
  /// throws Cancellation.
  virtual std::optional<ReportDocument> BuildDocument(Progress& progress) = 0;

  /// The report for paper and files where that differs from the screen's.
  virtual std::optional<ReportDocument> BuildOutput(Progress& progress) {
    return BuildDocument(progress);
  }

  /// Called before the report is built for the screen and after it was shown: the places for a
  /// question and for a notice. False from the first stops it.
  virtual bool BeforeReport() { return true; }
  virtual void ReportShown(const ReportDocument& document) { static_cast<void>(document); }

  /// Why no workbook can be written, such as a template that is missing; checked before the report
  /// is built.
  virtual MaybeRefusal CheckWorkbook() { return std::nullopt; }

  /// Writes the workbook; the place to fill a template instead.
  void WriteWorkbook(const ReportDocument& document, const QString& path,
                     Progress& progress) override;

  /// Writes and opens the document for a word processor.
  void WriteWord(const ReportDocument& document) override;

  /// What was chosen and is not in the report's name: other choices are another file. The period,
  /// unless it is the whole year.
  virtual QStringList Choices() const;

  /// Name of a written file without its extension: the report, the client and the year that the
  /// window opened with, and the choices.
  QString FileName(const ReportDocument& document) const override;

  ReportOutputs& Outputs() { return *outputs_; }

  void CmdReport_Click();
  void CmdOutput_Click();
  void CmdExit_Click();

  ReportGridView* VS = nullptr;
  controls::ZENButton* CmdReport = nullptr;
  controls::ZENButton* CmdOutput = nullptr;
  controls::ZENButton* CmdExit = nullptr;

 private:
  std::optional<ReportDocument> MakeOutput(std::optional<OutputFormat> format) override;
  void BuildLayout();
  void AddReportKey();
  bool SettleEntry();
  bool SettleOwnEntry();
  void MakePeriod(PeriodPane::Form form);
  void VS_MouseUp(const QPoint& at);

  ReportDesk& desk_;
  std::optional<ClientYear> current_;
  QString client_name_;
  ReportOutputs* outputs_;
  PeriodPane* period_ = nullptr;
  QBoxLayout* options_ = nullptr;
  QWidget* beside_ = nullptr;  ///< holds what is ticked
  QBoxLayout* beside_rows_ = nullptr;
  QTabWidget* pages_ = nullptr;  ///< none while the report is the only page
};

}  // namespace quorvane::reporting
