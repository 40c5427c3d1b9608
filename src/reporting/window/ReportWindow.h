#pragma once

#include "controls/ChildWindow.h"
#include "controls/ComboBox.h"
#include "controls/DateBox.h"
#include "controls/Grid.h"
#include "core/Progress.h"
#include "core/lookups/Choices.h"
#include "reporting/document/ReportDocument.h"
#include "reporting/output/OutputFormat.h"
#include "reporting/period/Period.h"
#include "reporting/screen/window/ReportGridView.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QGroupBox>
#include <QMenu>
#include <QTabWidget>

#include <array>
#include <optional>
#include <vector>

namespace quorvane::reporting {

class MonthsPane;

/// What every report window shares: the period with its checks, the choice of months, grids in
/// which accounts and scrips are ticked, the report on the screen (`VS`), the buttons `CmdReport`
/// and `CmdExit`, and the pop-up menu `mnuReport` (by `CmdOutput`, or on the report itself) that
/// shows pages and writes files. From top to bottom: options, ticks beside the report, buttons.
///
/// A derived window adds its parts in its constructor and builds the document:
///
///     RptDMatStatement::RptDMatStatement(controls::Desk& desk)
///         : ReportWindow(desk, "RptDMatStatement", tr("Demat A/c Statement"), {780, 520}) {
///       AddPeriod(Months::kYes);
///       VSF = AddTickGrid("VSF", tr("Demat A/c No."), tr("Demat accounts"));
///       FillTicks(*VSF, AccountsByNumber(*Session().connection, client));
///       Start();
///     }
///     MaybeRefusal RptDMatStatement::CheckSelection() {
///       return RefuseWithoutAccount(*VSF);
///     }
///     std::optional<ReportDocument> RptDMatStatement::BuildDocument(Progress& progress) {
///       return demat::MakeStatement(*Session().connection, QueryOf(ThePeriod(), *VSF), progress);
///     }
class ReportWindow : public controls::ChildWindow {
  Q_OBJECT

 public:
  /// A refusal with that text while nothing is ticked in the grid.
  static MaybeRefusal RefuseWithoutTick(const controls::Grid& grid, const QString& text);

  /// The keys of the ticked rows as a vector of typed ids, in the order of the grid.
  template <class IdType>
  static std::vector<IdType> Ticked(const controls::Grid& grid) {
    std::vector<IdType> ids;
    for (const int id : grid.Model().TickedIds()) {
      ids.push_back(IdType{id});
    }
    return ids;
  }

  /// "Select Demat A/c!" while no account of a client that has some is ticked. A client without
  /// accounts may have bills, which then have none either.
  static MaybeRefusal RefuseWithoutAccount(const controls::Grid& grid);

  /// The ticked accounts. Empty, which means every account, when all are: then bills that were
  /// entered without an account count as well.
  static std::vector<AccountId> ChosenAccounts(const controls::Grid& grid);

  /// The texts of what is ticked, at most a few; none when everything is.
  static QStringList ChosenOf(const controls::Grid& grid);

 protected:
  enum class Months { kNo, kYes };

  /// `name`, `title` and `designed` as for ChildWindow.
  ReportWindow(controls::Desk& desk, const QString& name, const QString& title, QSize designed);

  /// The client and year that were current when the window opened: what its title names is what it
  /// reports, whatever is chosen elsewhere later.
  const std::optional<ClientYear>& Current() const { return current_; }

  /// The name of that client, as it was then.
  const QString& ClientName() const { return client_name_; }

  /// The financial year of the period and of its months; the current one unless the window has a
  /// choice of years of its own.
  virtual std::optional<text::FinancialYear> PeriodYear() const;

  /// Another year was chosen: the period becomes the whole of it, and its months are to choose
  /// from.
  void SetPeriodYear(text::FinancialYear year);

  /// "From" and "To" with the boxes Text1_0 and Text1_1, filled with the year of the period;
  /// with months also `CmbFromMth` and `CmbToMth`, each of which sets its date.
  void AddPeriod(Months months = Months::kNo);

  /// The same two boxes one above the other in a frame, for windows with many options. Returns the
  /// row, in which the options' frames go to the right.
  QBoxLayout* AddPeriodFrame();

  /// A row of the window's own controls, below what was added before.
  void AddOptions(QLayout* options) { options_->addLayout(options); }
  void AddOptions(QWidget* options) { options_->addWidget(options); }

  /// A grid with ticks and one column of text, to the left of the report. A click on the heading of
  /// the ticks ticks all or none; Space ticks the current row. `share` is its part of the height.
  controls::Grid* AddTickGrid(const QString& name, const QString& heading, const QString& purpose,
                              int share = 1);

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

  /// Replaces the rows; all of them are ticked, or none.
  static void FillTicks(controls::Grid& grid, const std::vector<lookups::Item>& items,
                        bool ticked = true);

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

  /// What stands in the way of a workbook, such as a template that is not there; checked before
  /// the report is built.
  virtual MaybeRefusal CheckWorkbook() { return std::nullopt; }

  /// Writes the workbook; the place to fill a template instead.
  virtual void WriteWorkbook(const ReportDocument& document, const QString& path,
                             Progress& progress);

  /// Writes and opens the document for a word processor.
  virtual void WriteWord(const ReportDocument& document);

  /// What was chosen and is not in the report's name: other choices are another file. The period,
  /// unless it is the whole year.
  virtual QStringList Choices() const;

  /// Name of a written file without its extension: the report, the client and the year that the
  /// window opened with, and the choices.
  virtual QString FileName(const ReportDocument& document) const;

  /// Checks and builds as for the menu's outputs; nullopt when that ended with a message.
  std::optional<ReportDocument> MakeOutput();

  /// Writes into the folder of reports and opens the file with the desktop's own program.
  void WriteAndOpen(const ReportDocument& document, OutputFormat format);

  /// Opens a written file with the desktop's own program, or tells where it lies.
  void Open(const QString& path);

  /// Asks for the place and writes.
  void WriteWhereAsked(const ReportDocument& document, OutputFormat format);

  ReportGridView& Screen() { return *VS; }

  void CmdReport_Click();
  void CmdOutput_Click();
  void CmdExit_Click();
  void mnupreview_Click();
  void mnuword_Click();
  void mnuexcel_Click();
  void mnupdf_Click();
  void mnucsv_Click();

  std::array<controls::DateBox*, 2> Text1{};  ///< from, to; without AddPeriod there are none
  controls::ComboBox* CmbFromMth = nullptr;
  controls::ComboBox* CmbToMth = nullptr;
  ReportGridView* VS = nullptr;
  controls::ZENButton* CmdReport = nullptr;
  controls::ZENButton* CmdOutput = nullptr;
  controls::ZENButton* CmdExit = nullptr;
  QMenu* mnuReport = nullptr;

 private:
  void BuildLayout();
  void AddReportKey();
  bool SettleEntry();
  void BuildMenu();
  void MakePeriodBoxes();
  void AddMonths(QBoxLayout* row);
  QAction* AddAction(const char* name, const QString& caption, void (ReportWindow::*handler)());
  void TakeMonth(std::size_t end);
  void Text1_Validate();
  void CmbFromMth_Click();
  void CmbToMth_Click();
  void VS_MouseUp(const QPoint& at);
  void Write(const ReportDocument& document, OutputFormat format, const QString& path);

  std::optional<ClientYear> current_;
  QString client_name_;
  MonthsPane* months_ = nullptr;
  QBoxLayout* options_ = nullptr;
  QWidget* beside_ = nullptr;  ///< holds what is ticked
  QBoxLayout* beside_rows_ = nullptr;
  QBoxLayout* buttons_ = nullptr;
  QTabWidget* pages_ = nullptr;  ///< none while the report is the only page
};

}  // namespace quorvane::reporting
