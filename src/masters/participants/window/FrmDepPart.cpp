#include "masters/participants/window/FrmDepPart.h"

#include "controls/Style.h"
#include "masters/Questions.h"
#include "masters/window/BoxName.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace quorvane::participants {
namespace {

using controls::ComboBox;
using controls::FieldLayout;
using controls::Grid;
using controls::Row;
using controls::TextBox;
using controls::ZENButton;

enum DpIdColumn { kId, kText };

constexpr int kPersonBox = 9;
constexpr int kDesignationBox = 10;
constexpr int kDpIdLength = 100;

Row RowOf(const DpId& dp_id) {
  return {.id = dp_id.id.value, .cells = {dp_id.id.value, dp_id.text}};
}

}  // namespace

FrmDepPart::FrmDepPart(controls::Desk& desk)
    : FrmContact(desk, QStringLiteral("FrmDepPart"), tr("Depository Participant"), {680, 520},
                 masters::AddressBook::kParticipants),
      book_(*desk.session.connection) {
  auto* rows = new QVBoxLayout(Details());
  auto* fields = new FieldLayout(2);
  rows->addLayout(fields);
  AddContact(*fields);
  person_ = fields->Add(tr("Contact Pe&rson"), masters::BoxName(kPersonBox), new TextBox());
  designation_ = fields->Add(tr("Desi&gnation"), masters::BoxName(kDesignationBox), new TextBox());
  Combo2 = fields->Add(tr("Dep&ository"), QStringLiteral("Combo2"), new ComboBox());
  Combo2->SetTexts(DepositoryItems());
  rows->addWidget(DpIdPanel(), 1);
  List().SetColumns({{.heading = tr("Name")},
                     {.heading = tr("Depository")},
                     {.heading = tr("City")},
                     {.heading = tr("Phone")},
                     {.heading = tr("Contact Person")}});
  Hold({{Field::kPerson, masters::BoxName(kPersonBox)},
        {Field::kDesignation, masters::BoxName(kDesignationBox)},
        {Field::kDpIds, VS->objectName()}});
  Start();
}

void FrmDepPart::FillList() {
  const QStringList depositories = DepositoryItems();
  std::vector<Row> rows;
  for (const Participant& one : book_.List()) {
    rows.push_back({.id = one.id.value,
                    .cells = {one.name, depositories.value(one.depository), one.contact.city,
                              one.contact.phone, one.person}});
  }
  List().SetRows(std::move(rows));
}

void FrmDepPart::Clear() {
  ClearContact();
  person_->clear();
  designation_->clear();
  Combo2->ById(0);
  VS->Model().Clear();
}

void FrmDepPart::Load(int id) {
  const std::optional<Participant> participant = book_.Load(ParticipantId{id});
  if (!participant) {
    return;
  }
  ShowContact(participant->name, participant->contact);
  person_->setText(participant->person);
  designation_->setText(participant->designation);
  Combo2->ById(participant->depository);
  ShowDpIds(participant->dp_ids);
}

MaybeRefusal FrmDepPart::Save() {
  return Saved(book_.Save({.id = ParticipantId{CurrentId()},
                           .name = EnteredName(),
                           .contact = EnteredContact(),
                           .person = person_->text(),
                           .designation = designation_->text(),
                           .depository = Combo2->CurrentId(),
                           .dp_ids = EnteredDpIds()}));
}

void FrmDepPart::Remove(int id) {
  book_.Delete(ParticipantId{id});
}

QString FrmDepPart::DeleteQuestion() const {
  return masters::AskDeleteRecord();
}

QWidget* FrmDepPart::DpIdPanel() {
  auto* panel = new QWidget();
  auto* columns = new QHBoxLayout(panel);
  columns->setContentsMargins(0, 0, 0, 0);
  VS = new Grid(QStringLiteral("VS"), tr("DP ids of the participant"));
  VS->SetColumns({{.heading = tr("Id"), .mask = controls::Mask::kNumber},
                  {.heading = tr("DP Id"), .editable = true, .max_length = kDpIdLength}});
  VS->installEventFilter(this);
  columns->addWidget(VS, 1);
  auto* buttons = new QVBoxLayout();
  columns->addLayout(buttons);
  CmdAddRow = new ZENButton(QStringLiteral("CmdAddRow"), tr("Add Ro&w"));
  CmdDelRow = new ZENButton(QStringLiteral("CmdDelRow"), tr("Remo&ve Row"));
  buttons->addWidget(CmdAddRow);
  buttons->addWidget(CmdDelRow);
  buttons->addStretch(1);
  OnClick(CmdAddRow, &FrmDepPart::CmdAddRow_Click);
  OnClick(CmdDelRow, &FrmDepPart::CmdDelRow_Click);
  On(VS, &Grid::LastCellLeft, &FrmDepPart::VS_LastCellLeft, QStringLiteral("VS_LastCellLeft"));
  return panel;
}

void FrmDepPart::ShowDpIds(const std::vector<DpId>& dp_ids) {
  std::vector<Row> rows(dp_ids.size());
  std::ranges::transform(dp_ids, rows.begin(), RowOf);
  VS->SetRows(std::move(rows));
}

std::vector<DpId> FrmDepPart::EnteredDpIds() const {
  const controls::GridModel& model = VS->Model();
  std::vector<DpId> dp_ids;
  dp_ids.reserve(static_cast<std::size_t>(model.RowCount()));
  for (int row = 0; row < model.RowCount(); ++row) {
    dp_ids.push_back({DpIdId{model.IdOf(row)}, model.Text(row, kText)});
  }
  return dp_ids;
}

bool FrmDepPart::eventFilter(QObject* watched, QEvent* event) {
  if (watched == VS && event->type() == QEvent::FocusIn) {
    TheGuard().Run(QStringLiteral("VS_GotFocus"), [this] { VS_GotFocus(); });
  }
  return FrmContact::eventFilter(watched, event);
}

// What is typed into a grid without a row would be lost.
void FrmDepPart::VS_GotFocus() {
  if (IsEditing() && VS->Model().RowCount() == 0) {
    VS->AddRow();
  }
}

void FrmDepPart::CmdAddRow_Click() {
  VS->AddRow();
  VS->setFocus(Qt::OtherFocusReason);
}

void FrmDepPart::CmdDelRow_Click() {
  VS->RemoveCurrentRow();
}

// Enter on an empty row is the way out of the grid.
void FrmDepPart::VS_LastCellLeft() {
  const int row = VS->CurrentRow();
  if (row >= 0 && VS->Model().Text(row, kText).trimmed().isEmpty()) {
    cmdUpdate->setFocus(Qt::TabFocusReason);
  } else {
    VS->AddRow();
  }
}

}  // namespace quorvane::participants
