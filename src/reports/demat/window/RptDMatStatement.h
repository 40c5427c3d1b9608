#pragma once

#include "reporting/window/ReportWindow.h"
#include "reports/demat/DematStatement.h"
#include "reports/demat/TransactionReport.h"

namespace quorvane::demat {

/// The "Demat A/c Statement" and, opened for the target "RptTransaction", the transaction report of
/// the current client and year.
class RptDMatStatement : public reporting::ReportWindow {
  Q_OBJECT

 public:
  explicit RptDMatStatement(reporting::ReportDesk& desk);

 protected:
  MaybeRefusal CheckSelection() override;
  std::optional<reporting::ReportDocument> BuildDocument(Progress& progress) override;
  MaybeRefusal CheckWorkbook() override;
  QStringList Choices() const override;
  void WriteWorkbook(const reporting::ReportDocument& document, const QString& path,
                     Progress& progress) override;
  void WriteWord(const reporting::ReportDocument& document) override;

 private:
  enum class Mode : std::uint8_t { kStatement, kTransactions };

  static Mode ModeOf(const QString& target);
  void BuildOptions();
  DematQuery QueryOfStatement() const;
  TransactionQuery QueryOfTransactions() const;
  TransactionLayout ChosenLayout() const;
  reporting::ReportDocument BuildStatementDocument(Progress& progress) const;
  reporting::ReportDocument BuildTransactionDocument(Progress& progress);

  void OptTransaction_Click(int index);
  void OptDemat_Click(int index);

  Mode mode_;
  Choice OptTransaction;
  Choice OptDemat;  ///< its frame is `FDemat`
  reporting::TickGrid* VSF = nullptr;

  /// What the last transaction report was made of, for the workbook.
  std::optional<TransactionQuery> query_;
  std::vector<TransactionSection> sections_;
};

}  // namespace quorvane::demat
