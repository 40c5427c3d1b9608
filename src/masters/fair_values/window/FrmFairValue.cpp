#include "masters/fair_values/window/FrmFairValue.h"

#include "controls/Style.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace quorvane::fair_values {
namespace {

using controls::Answer;
using controls::Grid;
using controls::Icon;
using controls::Mask;
using controls::ZENButton;

constexpr int kLettersOfChoice = 26;

enum Choice { kHeldScrips, kScripsWithoutValue, kAllScrips };
enum Column { kCode, kSymbol, kName, kHeld, kStoredRate, kRate };

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

QVariant RateCell(const tax::FairValues& values, ScripId scrip) {
  const auto found = values.find(scrip);
  return found == values.end() ? QVariant() : QVariant(found->second);
}

}  // namespace

FrmFairValue::FrmFairValue(controls::Desk& desk)
    : ChildWindow(desk, QStringLiteral("FrmFairValue"), tr("Fair Values of 31-Jan-2018"),
                  {790, 520}),
      book_(*desk.session.connection),
      scrips_(rates::ListScrips(*desk.session.connection)),
      held_(tax::ScripsAcquiredByFairValueDay(*desk.session.connection)),
      stored_(book_.Read()),
      entered_(stored_),
      CmdFile(new ZENButton(QStringLiteral("CmdFile"), tr("Take from &File..."))),
      CboShow(new controls::ComboBox),
      LblCount(new QLabel),
      VSF(new Grid(QStringLiteral("VSF"), tr("Highest prices of 31-Jan-2018"))),
      CmdUpdate(new ZENButton(QStringLiteral("CmdUpdate"), tr("&Update"))),
      CmdExit(new ZENButton(QStringLiteral("CmdExit"), tr("E&xit"))) {
  Build();
  BuildGrid();
  Hold({{Field::kRate, VSF->objectName()}, {Field::kScrip, VSF->objectName()}});
  Count();
  Fill();
}

void FrmFairValue::Build() {
  CmdFile->setToolTip(
      tr("A daily price file of 31-Jan-2018 of the Bombay or the National exchange: "
         "of each scrip the higher price counts"));
  CboShow->setObjectName(QStringLiteral("CboShow"));
  CboShow->SetTexts(
      {tr("Scrips acquired up to that day"), tr("Of these, without a value"), tr("All scrips")});
  CboShow->setCurrentIndex(kHeldScrips);
  CboShow->setMinimumContentsLength(kLettersOfChoice);
  LblCount->setObjectName(QStringLiteral("LblCount"));
  LblCount->setWordWrap(true);
  CmdExit->SetCancels(true);
  auto* show = new QLabel(tr("&Show"));
  show->setBuddy(CboShow);
  auto* sources = new QHBoxLayout;
  sources->addWidget(show);
  sources->addWidget(CboShow);
  sources->addStretch(1);
  sources->addWidget(CmdFile);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(CmdUpdate);
  buttons->addWidget(CmdExit);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                             controls::kMargin);
  layout->setSpacing(controls::kSpacing);
  layout->addLayout(sources);
  layout->addWidget(LblCount);
  layout->addWidget(VSF, 1);
  layout->addLayout(buttons);
  PressOn(QKeySequence::Save, CmdUpdate);
  OnClick(CmdFile, &FrmFairValue::CmdFile_Click);
  OnClick(CmdUpdate, &FrmFairValue::CmdUpdate_Click);
  OnClick(CmdExit, &FrmFairValue::CmdExit_Click);
  On(CboShow, &QComboBox::currentIndexChanged, &FrmFairValue::CboShow_Click,
     QStringLiteral("CboShow_Click"));
}

void FrmFairValue::BuildGrid() {
  VSF->SetColumns({{.heading = tr("Code")},
                   {.heading = tr("Ncode")},
                   {.heading = tr("Name")},
                   {.heading = tr("Held Then")},
                   {.heading = tr("Stored Rate"), .mask = Mask::kNumber},
                   {.heading = tr("Rate"), .mask = Mask::kNumber, .editable = true}});
  On(&VSF->Model(), &controls::GridModel::CellEdited, &FrmFairValue::VSF_AfterEdit,
     QStringLiteral("VSF_AfterEdit"));
}

void FrmFairValue::CmdFile_Click() {
  const QString path =
      TheDesk().ask_open_path(this, Session().folders.data,
                              tr("Files of the exchanges (*.csv *.CSV *.zip *.xls *.xlsx *.ods)") +
                                  QStringLiteral(";;") + tr("All Files (*)"));
  if (!path.isEmpty()) {
    LoadFile(path);
  }
}

void FrmFairValue::LoadFile(const QString& path) {
  Result<rates::PriceFile> file = ReadDayFile(path);
  if (!file) {
    Show(file.Why());
    return;
  }
  const QString day = text::FormatDmy(tax::kFairValueDay);
  if (!file->date && !Say().Ask(tr("The file %1 does not tell its day. Are its prices of %2?")
                                    .arg(QFileInfo(path).fileName(), day),
                                Answer::kNo, Icon::kInformation)) {
    return;
  }
  const FileValues values = MatchHighest(std::move(*file), scrips_);
  const Taken taken = TakeHigher(entered_, values.highest);
  Count();
  Fill();
  Say().Inform(tr("%1 values are new, %2 are higher than before, %3 stay. %4 rows of the file "
                  "belong to no scrip. Nothing is saved before Update.")
                   .arg(taken.added)
                   .arg(taken.raised)
                   .arg(taken.kept)
                   .arg(values.unmatched));
}

// What was typed last stays when it is no rate at all.
void FrmFairValue::VSF_AfterEdit(int row, int column) {
  if (column != kRate) {
    return;
  }
  const ScripId scrip{VSF->Model().IdOf(row)};
  const double rate = VSF->Model().Number(row, kRate);
  if (rate == 0) {
    entered_.erase(scrip);
  } else if (const MaybeRefusal refusal = tax::CheckFairValue(rate)) {
    Show(*refusal);
  } else {
    entered_[scrip] = rate;
  }
  VSF->Model().SetValue(row, kRate, RateCell(entered_, scrip));
  Count();
}

void FrmFairValue::Count() {
  std::size_t valued = 0;
  for (const ScripId scrip : held_) {
    valued += entered_.contains(scrip) ? 1 : 0;
  }
  const QString day = text::FormatDmy(tax::kFairValueDay);
  LblCount->setText(
      held_.empty()
          ? tr("No shares are recorded that were acquired up to %1. Choose All scrips to enter "
               "values for later.")
                .arg(day)
          : tr("%1 of the %2 scrips that were acquired up to %3 have a value: the highest price "
               "quoted on that day, in rupees a share.")
                .arg(valued)
                .arg(held_.size())
                .arg(day));
  CmdUpdate->setEnabled(IsDirty());
}

bool FrmFairValue::IsShown(ScripId scrip) const {
  switch (CboShow->CurrentPosition()) {
    case kAllScrips:
      return true;
    case kScripsWithoutValue:
      return held_.contains(scrip) && !entered_.contains(scrip);
    default:
      return held_.contains(scrip);
  }
}

void FrmFairValue::Fill() {
  std::vector<controls::Row> rows;
  for (const rates::ListedScrip& scrip : scrips_) {
    if (IsShown(scrip.id)) {
      rows.push_back({.id = scrip.id.value,
                      .cells = {Utf8(scrip.code), Utf8(scrip.symbol), Utf8(scrip.name),
                                held_.contains(scrip.id) ? tr("Yes") : QString(),
                                RateCell(stored_, scrip.id), RateCell(entered_, scrip.id)}});
    }
  }
  VSF->SetRows(std::move(rows));
}

void FrmFairValue::CboShow_Click() {
  Fill();
}

void FrmFairValue::CmdUpdate_Click() {
  if (const MaybeRefusal refusal = book_.Save(stored_, entered_)) {
    Show(*refusal);
    return;
  }
  stored_ = book_.Read();
  entered_ = stored_;
  Count();
  Fill();
  Say().Inform(tr("Update Successfully!"));
}

void FrmFairValue::CmdExit_Click() {
  close();
}

bool FrmFairValue::MayClose() {
  return !IsDirty() || Say().Ask(tr("The values are not saved. Close without saving them?"),
                                 Answer::kNo, Icon::kInformation);
}

}  // namespace quorvane::fair_values
