#include "transactions/corporate_actions/window/ActionFields.h"

#include "controls/FieldLayout.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"

namespace quorvane::corporate_actions {
namespace {

using actions::ActionKind;
using controls::ComboBox;
using controls::TextBox;

enum Day { kExDay, kRecordDay, kAllotment };

std::vector<lookups::Item> KindItems() {
  std::vector<lookups::Item> items;
  items.reserve(actions::kKinds.size());
  for (const actions::KindName& name : actions::kKinds) {
    items.push_back({static_cast<int>(name.kind), Tr("Actions", name.title)});
  }
  return items;
}

QString NumberOrNothing(double number) {
  return number == 0 ? QString() : text::NumberText(number);
}

}  // namespace

ActionFields::ActionFields(QWidget* panel) : QObject(panel) {
  constexpr int kWhole = 2;
  auto* fields = new controls::FieldLayout(2, panel);
  Combo1 = fields->Add(tr("&Kind"), QStringLiteral("Combo1"), new ComboBox());
  fields->NewRow();
  Combo2 = fields->Add(tr("&Script"), QStringLiteral("Combo2"), new ComboBox(), kWhole);
  const auto add_day = [&](Day day, const QString& label) {
    Text2[day] = fields->Add(label, QStringLiteral("Text2_%1").arg(day), new controls::DateBox());
  };
  const auto add = [&](Box box, const QString& label, TextBox* control) {
    Text1[box] = fields->Add(label, QStringLiteral("Text1_%1").arg(box), control);
  };
  add_day(kExDay, tr("E&x-Date"));
  add_day(kRecordDay, tr("&Record Date"));
  add(New, tr("Ne&w Shares"), new controls::NumberBox());
  add(Old, tr("for Shares &Held"), new controls::NumberBox());
  Combo3 = fields->Add(tr("&To Script"), QStringLiteral("Combo3"), new ComboBox(), kWhole);
  add(Price, tr("Pr&ice per Share"), new controls::NumberBox());
  add(Percent, tr("Cost Mo&ved (%)"), new controls::NumberBox());
  add_day(kAllotment, tr("A&llotment Date"));
  fields->NewRow();
  TxtNote = fields->Add(tr("N&ote"), QStringLiteral("TxtNote"), new TextBox(), kWhole);
  constexpr int kNoteLength = 255;
  TxtNote->setMaxLength(kNoteLength);
  fields->setRowStretch(fields->rowCount(), 1);
  Combo1->SetItems(KindItems());
}

void ActionFields::SetScrips(const std::vector<lookups::Item>& scrips) {
  for (ComboBox* box : {Combo2, Combo3}) {
    const int chosen = box->CurrentId();
    box->SetItems(scrips);
    box->ById(chosen);
  }
}

void ActionFields::Clear() {
  for (ComboBox* box : {Combo1, Combo2, Combo3}) {
    box->Clear();
  }
  for (TextBox* box : Text1) {
    box->clear();
  }
  for (controls::DateBox* box : Text2) {
    box->clear();
  }
  TxtNote->clear();
}

void ActionFields::Fill(const Action& action) {
  Combo1->ById(static_cast<int>(action.kind));
  Combo2->ById(action.scrip.value);
  Combo3->ById(action.other.value);
  Text2[kExDay]->setText(action.ex_day);
  Text2[kRecordDay]->setText(action.record_day);
  Text2[kAllotment]->setText(action.allotment_day);
  Text1[New]->setText(NumberOrNothing(action.new_shares.Number()));
  Text1[Old]->setText(NumberOrNothing(action.old_shares.Number()));
  Text1[Price]->setText(NumberOrNothing(action.price));
  Text1[Percent]->setText(NumberOrNothing(action.cost_percent));
  TxtNote->setText(action.note);
}

void ActionFields::EnableTerms() {
  const bool chosen = Combo1->HasChoice();
  const actions::Terms terms =
      chosen ? actions::TermsOf(static_cast<ActionKind>(Combo1->CurrentId())) : actions::Terms{};
  const bool ratio = terms.ratio || terms.any_ratio;
  Text1[New]->setEnabled(ratio);
  Text1[Old]->setEnabled(ratio);
  Combo3->setEnabled(terms.other || terms.any_other);
  Text1[Price]->setEnabled(terms.price || terms.fraction);
  Text1[Price]->setPlaceholderText(terms.fraction ? tr("paid for a part of a share") : QString());
  Text1[Percent]->setEnabled(terms.percent);
  Text2[kAllotment]->setEnabled(terms.allotment);
}

Action ActionFields::Entered() const {
  Action action;
  action.kind = static_cast<ActionKind>(Combo1->CurrentId());
  action.scrip = ScripId{Combo2->CurrentId()};
  action.ex_day = Text2[kExDay]->DateText();
  action.record_day = Text2[kRecordDay]->DateText();
  action.note = TxtNote->text().trimmed();
  const actions::Terms terms = actions::TermsOf(action.kind);
  const auto number = [this](Box box) { return text::Val(Text1[box]->text()); };
  if (terms.ratio || terms.any_ratio) {
    action.new_shares = text::Shares(number(New));
    action.old_shares = text::Shares(number(Old));
  }
  if (terms.other || terms.any_other) {
    action.other = ScripId{Combo3->CurrentId()};
  }
  if (terms.price || terms.fraction) {
    action.price = number(Price);
  }
  if (terms.percent) {
    action.cost_percent = number(Percent);
  }
  if (terms.allotment) {
    action.allotment_day = Text2[kAllotment]->DateText();
  }
  return action;
}

}  // namespace quorvane::corporate_actions
