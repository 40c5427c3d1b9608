#include "masters/scrips/window/FrmScript.h"

#include "controls/FieldLayout.h"
#include "controls/ProgressDialog.h"
#include "core/lookups/Choices.h"
#include "core/lookups/Patch.h"
#include "masters/Questions.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace quorvane::scrips {
namespace {

using controls::ComboBox;
using controls::TextBox;
using controls::ZENButton;
using lookups::Choices;
using lookups::DropDown;

enum ListColumn { kCode, kName, kSecondCode, kType, kClass };

void SetItemsKeepingChoice(ComboBox& combo, std::vector<lookups::Item> items) {
  const int chosen = combo.CurrentId();
  combo.SetItems(std::move(items));
  combo.ById(chosen);
}

}  // namespace

FrmScript::FrmScript(controls::Desk& desk)
    : RecordWindow(desk, QStringLiteral("FrmScript"), tr("Script Details"), {700, 480},
                   QStringLiteral("VSF"), Panels::kTogether),
      book_(*desk.session.connection) {
  AddFields();
  AddButtons();
  List().SetColumns({{.heading = tr("Code")},
                     {.heading = tr("Name")},
                     {.heading = tr("Second Code")},
                     {.heading = tr("Type")},
                     {.heading = tr("Class")}});
  Hold({{Field::kCode, "Text1_0"},
        {Field::kName, "Text1_1"},
        {Field::kSecondCode, "Text1_2"},
        {Field::kType, "Combo1"},
        {Field::kClass, "Combo2"},
        {Field::kIsins, "VS"}});
  Start();
}

void FrmScript::FillList() {
  listed_ = book_.List();
  ShowScrips();
}

bool FrmScript::ReadRecords(std::span<const int> keys) {
  const auto order = [](const Scrip& scrip) {
    return std::pair(lookups::OrderOf(scrip.name), scrip.id);
  };
  lookups::Patch(
      listed_, keys, book_.List(keys), [](const Scrip& scrip) { return scrip.id.value; },
      [&](const Scrip& one, const Scrip& other) { return order(one) < order(other); });
  ShowScrips();
  return true;
}

void FrmScript::ShowScrips() {
  database::Connection& connection = *Session().connection;
  FillCombos();
  List().Model().SetChoices(kType, lookups::ChoiceList(connection, Choices::kScripTypes));
  List().Model().SetChoices(kClass, lookups::ChoiceList(connection, Choices::kScripClasses));
  std::vector<controls::Row> rows;
  for (const Scrip& scrip : listed_) {
    rows.push_back(
        {.id = scrip.id.value,
         .cells = {scrip.code, scrip.name, scrip.second_code, scrip.type, scrip.scrip_class}});
  }
  List().SetRows(std::move(rows));
}

void FrmScript::Clear() {
  for (TextBox* box : Text1) {
    box->clear();
  }
  Combo1->Clear();
  Combo2->Clear();
  ShowIsins({});
}

void FrmScript::Load(int id) {
  const std::optional<Scrip> scrip = book_.Load(ScripId{id});
  if (!scrip) {
    return;
  }
  Text1[Code]->setText(scrip->code);
  Text1[Name]->setText(scrip->name);
  Text1[SecondCode]->setText(scrip->second_code);
  Combo1->ById(scrip->type);
  Combo2->ById(scrip->scrip_class);
  ShowIsins(scrip->isins.value_or(std::vector<rates::DatedIsin>()));
}

MaybeRefusal FrmScript::Save() {
  return Saved(book_.Save({.id = ScripId{CurrentId()},
                           .code = Text1[Code]->text(),
                           .name = Text1[Name]->text(),
                           .second_code = Text1[SecondCode]->text(),
                           .type = Combo1->CurrentId(),
                           .scrip_class = Combo2->CurrentId(),
                           .isins = EnteredIsins()}));
}

void FrmScript::Remove(int id) {
  controls::ProgressDialog progress(this);
  book_.Delete(ScripId{id}, progress);
}

QString FrmScript::DeleteQuestion() const {
  return masters::AskDeleteRelatedData();
}

void FrmScript::AddFields() {
  constexpr int kWhole = 2;
  auto* fields = new controls::FieldLayout(2, Details());
  Text1[Code] = fields->Add(tr("Script &Code"), QStringLiteral("Text1_0"), new TextBox());
  Text1[Name] = fields->Add(tr("Script Na&me"), QStringLiteral("Text1_1"), new TextBox(), kWhole);
  Text1[SecondCode] = fields->Add(tr("&Second Code"), QStringLiteral("Text1_2"), new TextBox());
  fields->NewRow();
  Combo1 = fields->Add(tr("&Type"), QStringLiteral("Combo1"), new ComboBox());
  Combo2 = fields->Add(tr("C&lass"), QStringLiteral("Combo2"), new ComboBox());
  AddIsins(*fields);
  On(Combo1, &ComboBox::Entered, &FrmScript::Combo1_GotFocus, QStringLiteral("Combo1_GotFocus"));
  On(Combo2, &ComboBox::Entered, &FrmScript::Combo2_GotFocus, QStringLiteral("Combo2_GotFocus"));
}

/// A scrip may have had several ISINs, each from a day.
void FrmScript::AddIsins(controls::FieldLayout& fields) {
  constexpr int kIsinLength = 12;
  constexpr int kRows = 3;
  auto* panel = new QWidget();
  auto* row = new QHBoxLayout(panel);
  row->setContentsMargins(0, 0, 0, 0);
  VS = new controls::Grid(QStringLiteral("VS"), tr("ISINs of the script"));
  VS->SetColumns({{.heading = tr("ISIN"), .editable = true, .max_length = kIsinLength},
                  {.heading = tr("From Day"), .mask = controls::Mask::kDate, .editable = true}});
  VS->SetSortable(false);
  VS->setFixedHeight(VS->fontMetrics().height() * 2 * kRows);
  auto* buttons = new QVBoxLayout();
  auto* add = new ZENButton(QStringLiteral("CmdAddIsin"), tr("Add ISI&N"));
  auto* remove = new ZENButton(QStringLiteral("CmdDeleteIsin"), tr("Remo&ve ISIN"));
  buttons->addWidget(add);
  buttons->addWidget(remove);
  buttons->addStretch();
  row->addWidget(VS, 1);
  row->addLayout(buttons);
  fields.Add(tr("ISINs"), QStringLiteral("IsinPanel"), panel, 2);
  VS->setObjectName(QStringLiteral("VS"));
  OnClick(add, &FrmScript::CmdAddIsin_Click);
  OnClick(remove, &FrmScript::CmdDeleteIsin_Click);
  On(VS, &controls::Grid::LastCellLeft, &FrmScript::VS_LastCellLeft,
     QStringLiteral("VS_LastCellLeft"));
}

void FrmScript::ShowIsins(const std::vector<rates::DatedIsin>& isins) {
  std::vector<controls::Row> rows;
  rows.reserve(isins.size());
  for (const rates::DatedIsin& one : isins) {
    rows.push_back({.cells = {one.isin, one.from_day}});
  }
  VS->SetRows(std::move(rows));
}

/// Rows without an ISIN do not count.
std::vector<rates::DatedIsin> FrmScript::EnteredIsins() const {
  enum Column { kIsin, kFromDay };
  std::vector<rates::DatedIsin> isins;
  for (int row = 0; row < VS->Model().RowCount(); ++row) {
    const QString isin = VS->Model().Text(row, kIsin).trimmed().toUpper();
    if (!isin.isEmpty()) {
      isins.push_back({isin, VS->Model().Text(row, kFromDay)});
    }
  }
  return isins;
}

void FrmScript::CmdAddIsin_Click() {
  VS->AddRow();
  VS->setFocus(Qt::OtherFocusReason);
}

// Enter on an empty row is the way out of the grid.
void FrmScript::VS_LastCellLeft() {
  const int row = VS->CurrentRow();
  if (row >= 0 && VS->Model().Text(row, 0).trimmed().isEmpty()) {
    cmdUpdate->setFocus(Qt::TabFocusReason);
  } else {
    VS->AddRow();
  }
}

void FrmScript::CmdDeleteIsin_Click() {
  VS->RemoveCurrentRow();
}

void FrmScript::AddButtons() {
  auto* types = new ZENButton(QStringLiteral("CmdScriptType"), tr("Scr&ipt Types..."));
  auto* classes = new ZENButton(QStringLiteral("CmdScriptCls"), tr("Sc&ript Classes..."));
  Buttons()->addWidget(types);
  Buttons()->addWidget(classes);
  OnClick(types, &FrmScript::CmdScriptType_Click);
  OnClick(classes, &FrmScript::CmdScriptCls_Click);
}

void FrmScript::FillCombos() {
  Combo1_GotFocus();
  Combo2_GotFocus();
}

// The window of the types may have changed them since.
void FrmScript::Combo1_GotFocus() {
  SetItemsKeepingChoice(*Combo1,
                        lookups::DropDownItems(*Session().connection, DropDown::kScripTypes));
}

void FrmScript::Combo2_GotFocus() {
  SetItemsKeepingChoice(*Combo2,
                        lookups::DropDownItems(*Session().connection, DropDown::kScripClasses));
}

void FrmScript::CmdScriptType_Click() {
  TheDesk().open(QStringLiteral("FrmScriptType"));
}

void FrmScript::CmdScriptCls_Click() {
  TheDesk().open(QStringLiteral("FrmScriptCls"));
}

}  // namespace quorvane::scrips
