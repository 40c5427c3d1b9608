#include "masters/brokers/window/FrmBroker.h"

#include "controls/ProgressDialog.h"
#include "masters/Questions.h"

namespace quorvane::brokers {

using controls::FieldLayout;

FrmBroker::FrmBroker(controls::Desk& desk)
    : FrmContact(desk, QStringLiteral("FrmBroker"), tr("Broker Details"), {640, 380},
                 masters::AddressBook::kBrokers),
      book_(*desk.session.connection) {
  auto* fields = new FieldLayout(2, Details());
  AddContact(*fields);
  fields->setRowStretch(fields->rowCount(), 1);
  List().SetColumns({{.heading = tr("Name")},
                     {.heading = tr("City")},
                     {.heading = tr("State")},
                     {.heading = tr("Phone")},
                     {.heading = tr("Mobile")}});
  Start();
}

void FrmBroker::FillList() {
  std::vector<controls::Row> rows;
  for (const Broker& broker : book_.List()) {
    const masters::Contact& contact = broker.contact;
    rows.push_back(
        {.id = broker.id.value,
         .cells = {broker.name, contact.city, contact.state, contact.phone, contact.mobile}});
  }
  List().SetRows(std::move(rows));
}

void FrmBroker::Clear() {
  ClearContact();
}

void FrmBroker::Load(int id) {
  if (const std::optional<Broker> broker = book_.Load(BrokerId{id})) {
    ShowContact(broker->name, broker->contact);
  }
}

MaybeRefusal FrmBroker::Save() {
  return Saved(book_.Save({BrokerId{CurrentId()}, EnteredName(), EnteredContact()}));
}

void FrmBroker::Remove(int id) {
  const std::unique_ptr<Progress> progress = NewProgress();
  book_.Delete(BrokerId{id}, *progress);
}

QString FrmBroker::DeleteQuestion() const {
  return masters::AskDeleteRelatedRecords();
}

std::unique_ptr<Progress> FrmBroker::NewProgress() {
  return std::make_unique<controls::ProgressDialog>(this);
}

}  // namespace quorvane::brokers
