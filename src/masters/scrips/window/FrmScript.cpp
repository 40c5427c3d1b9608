#include "masters/scrips/window/FrmScript.h"

#include "controls/FieldLayout.h"
#include "controls/ProgressDialog.h"
#include "core/lookups/Choices.h"
#include "masters/Questions.h"

#include <QHBoxLayout>

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
        {Field::kClass, "Combo2"}});
  Start();
}

void FrmScript::FillList() {
  database::Connection& connection = *Session().connection;
  FillCombos();
  List().Model().SetChoices(kType, lookups::ChoiceList(connection, Choices::kScripTypes));
  List().Model().SetChoices(kClass, lookups::ChoiceList(connection, Choices::kScripClasses));
  std::vector<controls::Row> rows;
  for (const Scrip& scrip : book_.List()) {
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
}

MaybeRefusal FrmScript::Save() {
  return Saved(book_.Save({.id = ScripId{CurrentId()},
                           .code = Text1[Code]->text(),
                           .name = Text1[Name]->text(),
                           .second_code = Text1[SecondCode]->text(),
                           .type = Combo1->CurrentId(),
                           .scrip_class = Combo2->CurrentId()}));
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
  fields->setRowStretch(fields->rowCount(), 1);
  On(Combo1, &ComboBox::Entered, &FrmScript::Combo1_GotFocus, QStringLiteral("Combo1_GotFocus"));
  On(Combo2, &ComboBox::Entered, &FrmScript::Combo2_GotFocus, QStringLiteral("Combo2_GotFocus"));
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
