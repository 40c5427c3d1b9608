#include "reports/home/window/FrmFigures.h"

#include "controls/Style.h"
#include "core/lookups/Directory.h"
#include "core/text/Amounts.h"
#include "reports/home/window/FamilyChoice.h"
#include "reports/home/window/HomeTexts.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace quorvane::home {
namespace {

using controls::Mask;
using controls::Row;

constexpr int kFirstYear = 2005;

QString NameOfWindow(FrmFigures::What what) {
  return QLatin1String(what == FrmFigures::What::kGains ? kGainsWindow : kHoldingsWindow);
}

QString TitleOf(FrmFigures::What what) {
  return what == FrmFigures::What::kGains ? FrmFigures::tr("Gains of the Year")
                                          : FrmFigures::tr("Holdings of Today");
}

}  // namespace

FrmFigures::FrmFigures(controls::Desk& desk, What what)
    : ChildWindow(desk, NameOfWindow(what), TitleOf(what), {700, 460}),
      what_(what),
      CboFamily(new controls::ComboBox),
      VSF(new controls::Grid(QStringLiteral("VSF"), TitleOf(what))),
      LblTotals(new QLabel),
      cmdOpen(new controls::ZENButton(QStringLiteral("cmdOpen"), tr("&Open"))),
      cmdBack(new controls::ZENButton(QStringLiteral("cmdBack"), tr("&Back"))),
      cmdExit(new controls::ZENButton(QStringLiteral("cmdExit"), tr("E&xit"))) {
  Build();
  OfferFamilies(*CboFamily, Session());
  SetColumns();
  Read();
}

void FrmFigures::Build() {
  cmdExit->SetCancels(true);
  cmdBack->setVisible(what_ == What::kHoldings);
  VSF->SetFilterable(true);
  LblTotals->setObjectName(QStringLiteral("LblTotals"));
  LblTotals->setTextFormat(Qt::PlainText);
  LblTotals->setWordWrap(true);
  auto* choices = new QHBoxLayout;
  AddChoices(*choices);
  choices->addStretch(1);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(LblTotals, 1);
  buttons->addWidget(cmdOpen);
  buttons->addWidget(cmdBack);
  buttons->addWidget(cmdExit);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                           controls::kMargin);
  rows->setSpacing(controls::kSpacing);
  rows->addLayout(choices);
  rows->addWidget(VSF, 1);
  rows->addLayout(buttons);
  On(VSF, &controls::Grid::RowActivated, &FrmFigures::VSF_DblClick, QStringLiteral("VSF_DblClick"));
  connect(&VSF->Model(), &QAbstractItemModel::modelReset, this, &FrmFigures::ShowTotals);
  OnClick(cmdOpen, &FrmFigures::cmdOpen_Click);
  OnClick(cmdBack, &FrmFigures::cmdBack_Click);
  OnClick(cmdExit, &FrmFigures::cmdExit_Click);
}

void FrmFigures::AddChoices(QLayout& line) {
  CboFamily->setObjectName(QStringLiteral("CboFamily"));
  AddLabelled(line, tr("&Family"), CboFamily);
  std::vector<controls::ComboBox*> boxes{CboFamily};
  if (what_ == What::kGains) {
    CboYear = new controls::ComboBox;
    CboYear->setObjectName(QStringLiteral("CboYear"));
    AddLabelled(line, tr("Financial &Year"), CboYear);
    FillYears();
    boxes.push_back(CboYear);
  } else {
    CboBy = new controls::ComboBox;
    CboBy->setObjectName(QStringLiteral("CboBy"));
    CboBy->SetTexts({tr("Scrips"), tr("Clients")});
    CboBy->setCurrentIndex(kByScrip);
    AddLabelled(line, tr("Li&st"), CboBy);
    boxes.push_back(CboBy);
    ChkOld = new QCheckBox(tr("&Without a rate of the last seven days"));
    ChkOld->setObjectName(QStringLiteral("ChkOld"));
    line.addWidget(ChkOld);
    On(ChkOld, &QCheckBox::clicked, &FrmFigures::Cbo_Click, QStringLiteral("ChkOld_Click"));
  }
  for (const controls::ComboBox* box : boxes) {
    On(box, &QComboBox::activated, &FrmFigures::Cbo_Click,
       box->objectName() + QStringLiteral("_Click"));
  }
}

void FrmFigures::FillYears() {
  const auto last = text::FinancialYear::Of(TheDesk().today());
  QStringList texts;
  for (auto year = text::FinancialYear(kFirstYear); year <= last; year = year.Next()) {
    texts << year.Text();
  }
  CboYear->SetTexts(texts);
  CboYear->ByText((Session().current ? Session().current->year : last).Text());
}

void FrmFigures::SetColumns() {
  if (what_ == What::kGains) {
    VSF->SetColumns({{.heading = tr("Client")},
                     {.heading = tr("Long Term"), .mask = Mask::kAmount},
                     {.heading = tr("Short Term"), .mask = Mask::kAmount},
                     {.heading = tr("Speculation"), .mask = Mask::kAmount},
                     {.heading = tr("Together"), .mask = Mask::kAmount}});
    return;
  }
  const bool clients = ListsClients();
  VSF->SetColumns(
      {{.heading = clients ? tr("Client") : tr("Script Name")},
       {.heading = tr("Quantity"), .mask = Mask::kQuantity, .hidden = clients && !scrip_},
       {.heading = tr("Rate"), .mask = Mask::kAmount, .hidden = clients && !scrip_},
       {.heading = tr("Rate of"), .mask = Mask::kDate, .hidden = clients && !scrip_},
       {.heading = tr("Cost"), .mask = Mask::kAmount},
       {.heading = tr("Value"), .mask = Mask::kAmount},
       {.heading = tr("Day's Change"), .mask = Mask::kAmount}});
}

bool FrmFigures::ListsClients() const {
  return scrip_ || (!client_ && CboBy->CurrentPosition() == kByClient);
}

Scope FrmFigures::TheScope() const {
  const auto year =
      CboYear == nullptr ? std::nullopt : text::FinancialYear::Parse(CboYear->currentText());
  return {ChosenFamily(*CboFamily), year.value_or(text::FinancialYear::Of(TheDesk().today())),
          TheDesk().today()};
}

void FrmFigures::Read() {
  const lookups::Directory directory(*Session().connection);
  const auto name_client = [&](ClientId client) {
    client_names_[client.value] = QString::fromStdString(directory.Client(client).name);
  };
  if (what_ == What::kGains) {
    gains_ = ReadGains(*Session().connection, TheScope());
    std::ranges::for_each(gains_, name_client, &ClientGains::client);
  } else {
    holdings_ = ReadHoldings(*Session().connection, TheScope());
    for (const Held& held : holdings_.held) {
      name_client(held.client);
      scrip_names_[held.scrip.value] = QString::fromStdString(directory.Scrip(held.scrip).name);
    }
  }
  since_read_.start();
  ShowLines();
}

void FrmFigures::ShowLines() {
  cmdBack->setEnabled(scrip_ || client_);
  setWindowTitle(scrip_    ? tr("Who Holds %1").arg(scrip_names_[scrip_.value])
                 : client_ ? tr("Holdings of %1").arg(client_names_[client_.value])
                           : TitleOf(what_));
  if (what_ == What::kGains) {
    ShowGains();
  } else {
    ShowHoldings();
  }
  if (VSF->CurrentRow() < 0) {
    VSF->SelectRow(0);
  }
  ShowTotals();
}

bool FrmFigures::IsShown(const Held& held) const {
  return (!scrip_ || held.scrip == scrip_) && (!client_ || held.client == client_) &&
         (!ChkOld->isChecked() || held.is_old);
}

/// The lines by the key of the scrip or client that they are of.
std::map<int, Held> FrmFigures::Summed() const {
  const bool clients = ListsClients();
  std::map<int, Held> lines;
  for (const Held& held : holdings_.held) {
    if (!IsShown(held)) {
      continue;
    }
    const int key = clients ? held.client.value : held.scrip.value;
    const auto [line, is_first] = lines.try_emplace(key, held);
    if (!is_first) {
      line->second.quantity += held.quantity;
      line->second.cost += held.cost;
      line->second.value += held.value;
      line->second.change += held.change;
    }
  }
  return lines;
}

QString FrmFigures::NameAt(int id) const {
  const bool clients = ListsClients();
  const auto& names = clients ? client_names_ : scrip_names_;
  const auto name = names.find(id);
  return name == names.end() ? QString() : name->second;
}

void FrmFigures::ShowHoldings() {
  std::vector<Row> rows;
  for (const auto& [id, held] : Summed()) {
    Row row{
        .id = id,
        .cells = {NameAt(id), held.quantity.Number(), QVariant(), QVariant(), held.cost.Rupees()}};
    row.cells.emplace_back(held.value.Rupees());
    row.cells.emplace_back(held.change.Rupees());
    if (held.rates) {
      row.cells[2] = held.rates->newest.rate;
      row.cells[3] = text::FormatDmy(held.rates->newest.date);
    }
    rows.push_back(std::move(row));
  }
  std::ranges::stable_sort(rows, {}, [](const Row& row) { return row.cells[0].toString(); });
  VSF->SetRows(std::move(rows));
}

void FrmFigures::ShowGains() {
  std::vector<Row> rows;
  for (const ClientGains& one : gains_) {
    rows.push_back({.id = one.client.value,
                    .cells = {client_names_[one.client.value], one.gains.long_term.Rupees(),
                              one.gains.short_term.Rupees(), one.gains.speculation.Rupees(),
                              one.gains.Total().Rupees()}});
  }
  VSF->SetRows(std::move(rows));
}

void FrmFigures::ShowTotals() {
  const controls::GridModel& model = VSF->Model();
  const auto sum = [&](int column) {
    Paise total;
    for (int row = 0; row < model.RowCount(); ++row) {
      total += Paise::OfRupees(model.Number(row, column));
    }
    return text::FormatAmount(total.Rupees());
  };
  if (model.RowCount() == 0) {
    LblTotals->setText(what_ == What::kGains ? tr("Nothing was gained by sales of that year.")
                                             : tr("Nothing is held."));
  } else if (what_ == What::kGains) {
    LblTotals->setText(tr("Long term %1, short term %2, speculation %3, together %4")
                           .arg(sum(1), sum(2), sum(3), sum(4)));
  } else {
    LblTotals->setText(tr("Cost %1, value %2, day's change %3").arg(sum(4), sum(5), sum(6)));
  }
  cmdOpen->setEnabled(model.RowCount() > 0);
}

bool FrmFigures::GoTo(int record) {
  if (what_ == What::kGains) {
    return record == 0;
  }
  ChkOld->setChecked(record == kOldRates);
  client_ = {};
  scrip_ = ScripId{record > 0 ? record : 0};
  CboBy->setCurrentIndex(kByScrip);
  VSF->Header().ClearFilter();
  SetColumns();
  ShowLines();
  VSF->setFocus(Qt::OtherFocusReason);
  return true;
}

void FrmFigures::AskedAgain() {
  OfferFamilies(*CboFamily, Session());
  Read();
}

/// Others may have computed anew meanwhile; the program is not in the middle of anything.
void FrmFigures::Activated() {
  constexpr qint64 kFreshMs = 2000;
  if (since_read_.elapsed() > kFreshMs && !Session().connection->InTransaction()) {
    TheGuard().Run(QStringLiteral("Form_Activate"), [this] { Read(); });
  }
}

void FrmFigures::Cbo_Click() {
  KeepFamily(Session(), TheScope().family);
  scrip_ = {};
  client_ = {};
  SetColumns();
  Read();
}

void FrmFigures::OpenPage(ClientId client, ScripId scrip) {
  const text::FinancialYear year =
      Session().current ? Session().current->year : text::FinancialYear::Of(TheDesk().today());
  TheDesk().open_record({QStringLiteral("RptScripPage"), scrip.value, ClientYear{client, year},
                         client_names_[client.value]});
}

void FrmFigures::VSF_DblClick(int row) {
  VSF->SelectRow(row);
  cmdOpen_Click();
}

void FrmFigures::cmdOpen_Click() {
  const int id = VSF->CurrentId();
  if (id == 0) {
    return;
  }
  if (what_ == What::kGains) {
    TheDesk().open_record({QStringLiteral("RptCapitalGain"), 0,
                           ClientYear{ClientId{id}, TheScope().year}, client_names_[id]});
    return;
  }
  if (scrip_) {
    return OpenPage(ClientId{id}, scrip_);
  }
  if (client_) {
    return OpenPage(client_, ScripId{id});
  }
  if (CboBy->CurrentPosition() == kByClient) {
    client_ = ClientId{id};
  } else {
    scrip_ = ScripId{id};
  }
  VSF->Header().ClearFilter();
  SetColumns();
  ShowLines();
}

void FrmFigures::cmdBack_Click() {
  const int from = scrip_ ? scrip_.value : client_.value;
  scrip_ = {};
  client_ = {};
  SetColumns();
  ShowLines();
  VSF->Reveal(from);
  VSF->setFocus(Qt::OtherFocusReason);
}

void FrmFigures::EscapePressed() {
  if (cmdBack->isEnabled()) {
    cmdBack_Click();
  } else {
    ChildWindow::EscapePressed();
  }
}

void FrmFigures::cmdExit_Click() {
  close();
}

}  // namespace quorvane::home
