#include "masters/imports/window/ImpScrRate.h"

#include "controls/Style.h"
#include "core/text/Amounts.h"

#include <unordered_set>

namespace quorvane::imports {
namespace {

using controls::Answer;
using controls::Icon;

enum Choice { kAllScrips, kScripsInFile, kScripsWithoutRate, kRowsWithoutScrip };
enum Column { kCode, kSymbol, kName, kClass, kType, kStoredRate, kRate };

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

QVariant RateCell(double rate) {
  return rate > 0 ? QVariant(rate) : QVariant();
}

double RateIn(const std::unordered_map<ScripId, double>& rates, ScripId scrip) {
  const auto found = rates.find(scrip);
  return found == rates.end() ? 0 : found->second;
}

}  // namespace

ImpScrRate::ImpScrRate(controls::Desk& desk)
    : ImpScrWindow(desk, QStringLiteral("ImpScrRate"), tr("Import Script Market Rate"), {790, 520}),
      scrips_(rates::ListScrips(*desk.session.connection)),
      TxtDate(new controls::DateBox),
      CboExchange(new controls::ComboBox),
      grids_(new QStackedWidget),
      VSF(new controls::Grid(QStringLiteral("VSF"), tr("Rates of the scrips"))),
      VSU(new controls::Grid(QStringLiteral("VSU"), tr("Rows of the file without a scrip"))) {
  BuildSources();
  BuildGrids();
  Finish({tr("All scrips"), tr("Scrips in the file"), tr("Scrips without a rate"),
          tr("Rows without a scrip")});
  Count();
  Fill();
}

void ImpScrRate::BuildSources() {
  TxtDate->setObjectName(QStringLiteral("TxtDate"));
  Hold({{Field::kDate, TxtDate->objectName()}});
  CboExchange->setObjectName(QStringLiteral("CboExchange"));
  CboExchange->setAccessibleName(tr("Exchange of the archive"));
  CboExchange->SetTexts({QStringLiteral("BSE"), QStringLiteral("NSE")});
  CboExchange->setCurrentIndex(0);
  auto* date = new QLabel(tr("&Date"));
  date->setBuddy(TxtDate);
  Sources()->addWidget(date);
  Sources()->addWidget(TxtDate);
  controls::ZENButton* import =
      AddSource(QStringLiteral("CmdImport"), tr("From &File..."),
                tr("A daily price file of an exchange: .csv, .xls, .xlsx, .ods or .zip"));
  controls::ZENButton* site = AddSource(QStringLiteral("CmdSite"), tr("From the &Archive"),
                                        tr("The daily price file of the date"));
  Sources()->addWidget(CboExchange);
  controls::ZENButton* movers =
      AddSource(QStringLiteral("CmdGainLose"), tr("&Gainers and Losers"),
                tr("The newest prices of the scrips that moved most at the Bombay exchange"));
  Watch(TxtDate);
  On(TxtDate, &controls::TextBox::Left, &ImpScrRate::TxtDate_Validate,
     QStringLiteral("TxtDate_Validate"));
  OnClick(import, &ImpScrRate::CmdImport_Click);
  OnClick(site, &ImpScrRate::CmdSite_Click);
  OnClick(movers, &ImpScrRate::CmdGainLose_Click);
}

void ImpScrRate::BuildGrids() {
  VSF->SetColumns({{.heading = tr("Code")},
                   {.heading = tr("Ncode")},
                   {.heading = tr("Name")},
                   {.heading = tr("Class")},
                   {.heading = tr("Type")},
                   {.heading = tr("Stored Rate"), .mask = controls::Mask::kAmount},
                   {.heading = tr("Rate"), .mask = controls::Mask::kAmount, .editable = true}});
  VSU->SetColumns({{.heading = tr("Line"), .mask = controls::Mask::kNumber},
                   {.heading = QStringLiteral("SC_Code")},
                   {.heading = QStringLiteral("SC_Name")},
                   {.heading = QStringLiteral("SC_Group")},
                   {.heading = QStringLiteral("SC_Type")},
                   {.heading = QStringLiteral("SC_Rate"), .mask = controls::Mask::kAmount}});
  grids_->addWidget(VSF);
  grids_->addWidget(VSU);
  Middle()->addWidget(grids_, 1);
  On(&VSF->Model(), &controls::GridModel::CellEdited, &ImpScrRate::VSF_AfterEdit,
     QStringLiteral("VSF_AfterEdit"));
}

void ImpScrRate::FirstShown() {
  TxtDate->setFocus();
}

void ImpScrRate::TxtDate_Validate() {
  if (TxtDate->IsProper() && !TxtDate->DateText().isEmpty() && !IsCancelling()) {
    TakeDate();
  }
}

bool ImpScrRate::TakeDate() {
  if (const MaybeRefusal refusal = rates::CheckRateDate(TxtDate->DateText(), TheDesk().today())) {
    Show(*refusal);
    return false;
  }
  const text::Date date = *TxtDate->Date();
  if (date_ == date) {
    return true;
  }
  if (IsDirty() &&
      !Say().Ask(tr("The rates are not saved. Give them up?"), Answer::kNo, Icon::kInformation)) {
    TxtDate->SetDate(text::FormatDmy(*date_));
    return false;
  }
  LoadDate(date);
  return true;
}

void ImpScrRate::LoadDate(text::Date date) {
  stored_ = rates::RateBook(*Session().connection).RatesOf(date);
  entered_ = stored_;
  date_ = date;
  file_ = {};
  matched_ = {};
  Count();
  Fill();
}

void ImpScrRate::CmdImport_Click() {
  if (!TakeDate()) {
    return;
  }
  const QString path = AskFile(tr("Excel Files(*.csv *.CSV *.zip *.xls *.xlsx *.ods)"));
  if (!path.isEmpty()) {
    LoadFile(path);
  }
}

void ImpScrRate::CmdSite_Click() {
  if (!TakeDate()) {
    return;
  }
  const rates::Exchange exchange =
      CboExchange->CurrentPosition() == 1 ? rates::Exchange::kNse : rates::Exchange::kBse;
  Fetch().FileOf(exchange, *date_,
                 Awaited(QStringLiteral("CmdSite_Click"),
                         [this](const rates::Fetched& fetched) { LoadFile(fetched.path); }));
}

// The pages tell no day: for another one than today the user has to know it.
void ImpScrRate::CmdGainLose_Click() {
  if (!TakeDate() || (*date_ != TheDesk().today() &&
                      !Say().Ask(tr("The pages show the newest prices. Take them as rates of %1?")
                                     .arg(text::FormatDmy(*date_)),
                                 Answer::kNo, Icon::kInformation))) {
    return;
  }
  Fetch().Movers(Awaited(QStringLiteral("CmdGainLose_Click"),
                         [this](const rates::Fetched& fetched) { Enter(fetched.movers); }));
}

void ImpScrRate::LoadFile(const QString& path) {
  Result<rates::PriceFile> file = rates::ReadPriceFile(path);
  if (const MaybeRefusal refusal = file ? rates::CheckPrices(*file, *date_) : file.Refused()) {
    Show(*refusal);
    return;
  }
  Enter(std::move(*file));
}

void ImpScrRate::Enter(rates::PriceFile file) {
  file_ = std::move(file);
  matched_ = rates::MatchRates(file_, scrips_);
  for (const rates::ScripRate& rate : matched_.rates) {
    entered_[rate.scrip] = rate.rate;
  }
  Count();
  ShowAll();
  Fill();
  Say().Inform(tr("Completed."));
}

void ImpScrRate::VSF_AfterEdit(int row, int column) {
  if (column != kRate) {
    return;
  }
  const ScripId scrip{VSF->Model().IdOf(row)};
  const double rate = text::RoundAmount(VSF->Model().Number(row, kRate));
  if (!date_ || rate < 0) {
    VSF->Model().SetValue(row, kRate, RateCell(EnteredRate(scrip)));
    TakeDate();
    return;
  }
  // What is shown is what is kept.
  VSF->Model().SetValue(row, kRate, RateCell(rate));
  if (rate > 0) {
    entered_[scrip] = rate;
  } else {
    entered_.erase(scrip);
  }
  Count();
}

double ImpScrRate::EnteredRate(ScripId scrip) const {
  return RateIn(entered_, scrip);
}

void ImpScrRate::Count() {
  QString text = date_ ? tr("%1 of %2 scrips have a rate.")
                             .arg(static_cast<qulonglong>(entered_.size()))
                             .arg(static_cast<qulonglong>(scrips_.size()))
                       : tr("Enter the date of the rates.");
  if (!file_.rows.empty()) {
    text += tr(" Rows of the file: %1 matched, %2 without a scrip.")
                .arg(static_cast<qulonglong>(matched_.matched))
                .arg(static_cast<qulonglong>(matched_.unmatched.size()));
  }
  Tell(text);
  EnableUpdate(date_.has_value() && IsDirty());
}

void ImpScrRate::Fill() {
  grids_->setCurrentWidget(Shown() == kRowsWithoutScrip ? VSU : VSF);
  if (Shown() == kRowsWithoutScrip) {
    FillStrangers();
  } else {
    FillScrips();
  }
}

void ImpScrRate::FillScrips() {
  std::unordered_set<ScripId> in_file;
  for (const rates::ScripRate& rate : matched_.rates) {
    in_file.insert(rate.scrip);
  }
  std::vector<controls::Row> rows;
  for (const rates::ListedScrip& scrip : scrips_) {
    const double rate = EnteredRate(scrip.id);
    if ((Shown() == kScripsInFile && !in_file.contains(scrip.id)) ||
        (Shown() == kScripsWithoutRate && rate > 0)) {
      continue;
    }
    rows.push_back(
        {.id = scrip.id.value,
         .cells = {Utf8(scrip.code), Utf8(scrip.symbol), Utf8(scrip.name), Utf8(scrip.scrip_class),
                   Utf8(scrip.type), RateCell(RateIn(stored_, scrip.id)), RateCell(rate)}});
  }
  VSF->SetRows(std::move(rows));
}

void ImpScrRate::FillStrangers() {
  std::vector<controls::Row> rows;
  for (const std::size_t place : matched_.unmatched) {
    const rates::PriceRow& row = file_.rows[place];
    rows.push_back({.cells = {static_cast<qulonglong>(row.line),
                              Utf8(row.code.empty() ? row.symbol : row.code), Utf8(row.name),
                              Utf8(row.scrip_class), Utf8(row.type), RateCell(row.rate)}});
  }
  VSU->SetRows(std::move(rows));
}

void ImpScrRate::Update() {
  if (!TakeDate()) {
    return;
  }
  std::vector<rates::ScripRate> changes;
  for (const auto& [scrip, rate] : entered_) {
    if (RateIn(stored_, scrip) != rate) {
      changes.push_back({scrip, rate});
    }
  }
  for (const auto& [scrip, rate] : stored_) {
    if (!entered_.contains(scrip)) {
      changes.push_back({scrip, 0});
    }
  }
  rates::RateBook(*Session().connection).Save(*date_, changes, matched_.isins);
  stored_ = entered_;
  Count();
  Fill();
  Say().Inform(tr("Update Successfully!"));
}

bool ImpScrRate::MayClose() {
  if (IsDirty() && !Say().Ask(tr("The rates are not saved. Close without saving them?"),
                              Answer::kNo, Icon::kInformation)) {
    return false;
  }
  return ImpScrWindow::MayClose();
}

}  // namespace quorvane::imports
