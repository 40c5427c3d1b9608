#include "ui/main/ClientBar.h"

#include "controls/Style.h"

#include <QHBoxLayout>

#include <algorithm>

namespace quorvane::ui {
namespace {

constexpr int kClientWidth = 320;

}  // namespace

ClientBar::ClientBar(controls::Desk& desk)
    : desk_(desk),
      guard_(desk.messages),
      client_label_(new QLabel),
      year_label_(new QLabel),
      CboClient(new controls::ComboBox),
      CboYear(new controls::ComboBox) {
  setObjectName(QStringLiteral("ClientBar"));
  CboClient->setObjectName(QStringLiteral("CboClient"));
  CboYear->setObjectName(QStringLiteral("CboYear"));
  CboClient->setMinimumContentsLength(1);
  CboClient->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  CboClient->setMinimumWidth(kClientWidth / 2);
  CboClient->setMaximumWidth(kClientWidth);
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(controls::kSpacing);
  line->addWidget(client_label_);
  line->addWidget(CboClient, 1);
  line->addWidget(year_label_);
  line->addWidget(CboYear);
  line->addStretch(1);
  for (const controls::ComboBox* box : {CboClient, CboYear}) {
    guard_.Connect(box, &QComboBox::activated, this, &ClientBar::Cbo_Click,
                   box->objectName() + QStringLiteral("_Click"));
    guard_.Connect(box, &controls::ComboBox::Left, this, &ClientBar::Cbo_Click,
                   box->objectName() + QStringLiteral("_LostFocus"));
  }
  guard_.Connect(CboClient, &controls::ComboBox::Entered, this, &ClientBar::FillClients,
                 QStringLiteral("CboClient_GotFocus"));
  FillYears();
  ShowTexts();
  guard_.Run(QStringLiteral("Form_Load"), [this] { Refresh(); });
}

void ClientBar::ShowTexts() {
  client_label_->setText(tr("Client"));
  year_label_->setText(tr("Year"));
  CboClient->setAccessibleName(tr("Client"));
  CboYear->setAccessibleName(tr("Financial Year"));
  CboClient->setToolTip(tr("The client that windows open for (Ctrl+L)"));
  CboYear->setToolTip(tr("The financial year that windows open for"));
}

/// Clients may have come or gone since the last time.
void ClientBar::FillClients() {
  clients_ = client_list::ListClients(*desk_.session.connection);
  std::vector<lookups::Item> items;
  items.reserve(clients_.size());
  for (const client_list::ListedClient& client : clients_) {
    items.push_back({client.id.value, QStringLiteral("%1 (%2)").arg(client.name, client.code)});
  }
  CboClient->SetItems(std::move(items));
  if (desk_.session.current) {
    CboClient->ById(desk_.session.current->client.value);
  }
}

void ClientBar::FillYears() {
  QStringList texts;
  for (const text::FinancialYear year : client_list::YearsUpTo(desk_.today())) {
    texts << year.Text();
  }
  CboYear->SetTexts(texts);
  CboYear->ByText(client_list::DefaultYear(desk_.today()).Text());
}

void ClientBar::Refresh() {
  const std::optional<ClientYear>& current = desk_.session.current;
  if (!current) {
    return;
  }
  if (CboClient->CurrentId() != current->client.value && !CboClient->ById(current->client.value)) {
    FillClients();
  }
  CboYear->ByText(current->year.Text());
}

/// Without a client the year alone is nothing that a window could open for.
void ClientBar::Cbo_Click() {
  const ClientId client{CboClient->CurrentId()};
  const auto year = text::FinancialYear::Parse(CboYear->currentText());
  const auto found = std::ranges::find(clients_, client, &client_list::ListedClient::id);
  if (!year || found == clients_.end()) {
    return;
  }
  app::Session& session = desk_.session;
  if (session.current && session.current->client == client && session.current->year == *year) {
    return;
  }
  session.current = ClientYear{client, *year};
  session.current_client_name = found->name;
  Q_EMIT Chosen();
}

}  // namespace quorvane::ui
