#include "portfolio/window/PaperFields.h"

#include "core/app/Session.h"
#include "core/lookups/Choices.h"
#include "core/lookups/Directory.h"

namespace quorvane::paper {

using controls::ComboBox;

PaperFields::PaperFields(Account account) : FieldLayout(2), account_(account) {
  Combo1 = Add(tr("C&lient"), QStringLiteral("Combo1"), new ComboBox());
  Combo2 = Add(tr("&Demat A/c No."), QStringLiteral("Combo2"), new ComboBox());
}

void PaperFields::AddPassword() {
  TxtPassword = Add(tr("Pass&word"), QStringLiteral("TxtPassword"), new controls::TextBox());
  TxtPassword->SetUpperCase(false);
  TxtPassword->setEchoMode(QLineEdit::Password);
  TxtPassword->setPlaceholderText(tr("the client's PAN is tried by itself"));
}

void PaperFields::Offer(const app::Session& session) {
  const lookups::Directory directory(*session.connection);
  std::vector<lookups::Item> items;
  for (const lookups::ClientEntry& client : directory.Clients()) {
    items.push_back({client.id.value, QString::fromStdString(client.name) + QStringLiteral(" (") +
                                          QString::fromStdString(client.code) + QLatin1Char(')')});
  }
  Combo1->SetItems(std::move(items));
  if (session.current) {
    Combo1->ById(session.current->client.value);
  }
  OfferAccounts(session);
}

bool PaperFields::IsAnotherClient(const app::Session& session) {
  if (Client() == client_) {
    return false;
  }
  OfferAccounts(session);
  return true;
}

void PaperFields::OfferAccounts(const app::Session& session) {
  client_ = Client();
  const auto items = Combo1->HasChoice() ? lookups::AccountItems(*session.connection, client_)
                                         : std::vector<lookups::Item>();
  Combo2->SetItems(items);
  if (account_ == Account::kAlways && items.size() == 1) {
    Combo2->ById(items.front().id);
  }
}

}  // namespace quorvane::paper
