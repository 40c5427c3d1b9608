#include "admin/repair/window/RepairTable.h"

#include "admin/repair/DoubleKeys.h"
#include "controls/ProgressDialog.h"
#include "controls/Style.h"
#include "core/lookups/Directory.h"
#include "core/text/Amounts.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace quorvane::repair {
namespace {

using controls::Answer;
using controls::Icon;
using controls::Row;
using controls::ZENButton;

constexpr int kMostTold = 5;

QString FromUtf8(const std::string& text) {
  return QString::fromStdString(text);
}

/// What was found, in the order of the tables; a table in order has one line that says so.
class Lines {
 public:
  explicit Lines(const TableCheck& check) : check_(check) {}

  std::vector<Row> ForTables() {
    for (const TableSize& size : check_.sizes) {
      const std::size_t before = rows_.size();
      AddFaults(size);
      if (rows_.size() == before) {
        Add(size, RepairTable::tr("In order"), {});
      }
    }
    return std::move(rows_);
  }

 private:
  void AddFaults(const TableSize& size) {
    for (const TableFault& fault : check_.faults) {
      AddIf(fault.table, size, RepairTable::tr("Damaged"), FromUtf8(fault.text));
    }
    for (const std::string& table : check_.unchecked) {
      AddIf(table, size, RepairTable::tr("Note"),
            RepairTable::tr("The server does not let this user check the table."));
    }
    for (const DoubleKey& key : check_.double_keys) {
      AddIf(key.table, size, RepairTable::tr("Wrong"),
            RepairTable::tr("%1 keys (%2) stand more than once.")
                .arg(key.keys)
                .arg(FromUtf8(key.columns)));
    }
    if (size.table == "Stock" && !check_.wrong_lots.empty()) {
      Add(size, RepairTable::tr("Wrong"),
          RepairTable::tr("%1 lots do not agree with the documents.")
              .arg(check_.wrong_lots.size()));
    }
    for (const Dangling& dangling : check_.dangling) {
      AddIf(dangling.table, size, RepairTable::tr("Note"),
            RepairTable::tr("%1 rows name a record of %2 (%3) that is not there.")
                .arg(dangling.rows)
                .arg(FromUtf8(dangling.names), FromUtf8(dangling.column)));
    }
  }

  void AddIf(const std::string& table, const TableSize& size, const QString& state,
             const QString& text) {
    if (table == size.table) {
      Add(size, state, text);
    }
  }

  void Add(const TableSize& size, const QString& state, const QString& text) {
    rows_.push_back(
        {.cells = {FromUtf8(size.table), static_cast<qlonglong>(size.rows), state, text}});
  }

  const TableCheck& check_;
  std::vector<Row> rows_;
};

Row LotRow(const ledger::LotChange& change, const lookups::Directory& directory) {
  const QString says =
      change.duplicate
          ? RepairTable::tr("the lot stands twice")
          : RepairTable::tr("the documents say %1").arg(text::NumberText(change.quantity.Number()));
  return {
      .cells = {QStringLiteral("Stock"), QVariant(), RepairTable::tr("Wrong"),
                RepairTable::tr("%1, %2, account %3, scrip %4 at %5: the ledger holds %6, %7.")
                    .arg(FromUtf8(directory.Client(change.lot.client).code), change.lot.year.Text(),
                         FromUtf8(directory.Account(change.lot.account).number),
                         FromUtf8(directory.Scrip(change.lot.scrip).code),
                         text::NumberText(change.lot.rate),
                         text::NumberText(change.lot.quantity.Number()), says)}};
}

}  // namespace

RepairTable::RepairTable(controls::Desk& desk)
    : ChildWindow(desk, QStringLiteral("RepairTable"), tr("Refresh Data"), {660, 420}) {
  BuildControls();
}

void RepairTable::BuildControls() {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                             controls::kMargin);
  layout->setSpacing(controls::kSpacing);
  LblResult =
      new QLabel(tr("Checks every table, its keys, and whether the holdings agree with "
                    "opening stock, bills and transfers. Nothing is changed by it."));
  LblResult->setObjectName(QStringLiteral("LblResult"));
  LblResult->setTextFormat(Qt::PlainText);
  LblResult->setWordWrap(true);
  VSF = new controls::Grid(QStringLiteral("VSF"), tr("Findings"));
  VSF->SetFilterable(true);
  VSF->SetColumns({{.heading = tr("Table")},
                   {.heading = tr("Records"), .mask = controls::Mask::kNumber},
                   {.heading = tr("State")},
                   {.heading = tr("What was found")}});
  layout->addWidget(LblResult);
  layout->addWidget(VSF, 1);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(controls::kSpacing);
  const auto add = [&](const char* name, const QString& text, void (RepairTable::*handler)()) {
    auto* button = new ZENButton(QLatin1String(name), text);
    buttons->addWidget(button);
    OnClick(button, handler);
    return button;
  };
  add("cmdCheck", tr("Chec&k"), &RepairTable::cmdCheck_Click)->setDefault(true);
  cmdUpdateStock = add("cmdUpdateStock", tr("Update &Stock"), &RepairTable::cmdUpdateStock_Click);
  cmdUpdateStock->setToolTip(tr("Computes the holdings of every client and year anew"));
  cmdNewKeys = add("cmdNewKeys", tr("Give &New Keys"), &RepairTable::cmdNewKeys_Click);
  cmdNewKeys->setToolTip(tr("Gives records that share a key with another one keys of their own"));
  cmdNewKeys->setEnabled(false);
  buttons->addStretch(1);
  add("cmdexit", tr("E&xit"), &RepairTable::cmdexit_Click)->SetCancels(true);
  layout->addLayout(buttons);
}

void RepairTable::cmdCheck_Click() {
  controls::ProgressDialog progress(this);
  ShowCheck(CheckTables(*Session().connection, progress));
}

void RepairTable::ShowCheck(const TableCheck& check) {
  std::vector<Row> rows = Lines(check).ForTables();
  if (!check.wrong_lots.empty()) {
    const lookups::Directory directory(*Session().connection);
    for (const ledger::LotChange& change : check.wrong_lots) {
      rows.push_back(LotRow(change, directory));
    }
  }
  for (const QString& fault : check.record_faults) {
    rows.push_back({.cells = {QString(), QVariant(), tr("Wrong"), fault}});
  }
  for (const QString& action : check.outdated_actions) {
    rows.push_back({.cells = {QStringLiteral("CorpAction"), QVariant(), tr("Note"), action}});
  }
  for (const QString& fault : check.log_faults) {
    rows.push_back({.cells = {tr("Log of Changes"), QVariant(), tr("Wrong"), fault}});
  }
  const std::vector<DoubleRecord> doubles = check.double_keys.empty()
                                                ? std::vector<DoubleRecord>()
                                                : FindDoubleRecords(*Session().connection);
  for (const DoubleRecord& record : doubles) {
    rows.push_back({.cells = {FromUtf8(record.table), QVariant(), tr("Wrong"),
                              tr("Key %1: %2").arg(record.key).arg(record.contents)}});
  }
  cmdNewKeys->setEnabled(!doubles.empty());
  VSF->SetRows(std::move(rows));
  LblResult->setText(Summary(check));
}

QString RepairTable::Summary(const TableCheck& check) const {
  if (!check.AllIsWell() && check.wrong_lots.empty() && !check.log_faults.isEmpty()) {
    return tr("The log of changes was edited by other means: %1").arg(check.log_faults.front());
  }
  if (!check.AllIsWell()) {
    return check.wrong_lots.empty()
               ? tr("Something is wrong. Make a BackUp before anything else.")
               : tr("Something is wrong. \"Update Stock\" mends the holdings.");
  }
  return check.dangling.empty()
             ? tr("All tables are in order, and every holding agrees with its documents.")
             : tr("All tables are in order, and every holding agrees with its documents. Some "
                  "records name others that are not there; see the notes.");
}

void RepairTable::cmdUpdateStock_Click() {
  if (!Say().Ask(tr("The holdings of every client and year are computed anew from opening stock, "
                    "bills and transfers. Go on?"),
                 Answer::kYes, Icon::kInformation)) {
    return;
  }
  std::size_t changed = 0;
  {
    controls::ProgressDialog progress(this);
    changed = ledger::RebuildStock(*Session().connection, std::nullopt, progress);
    ShowCheck(CheckTables(*Session().connection, progress));
  }
  Say().Inform(tr("Stock is Updated Successfully !!!\nLots changed: %1").arg(changed));
}

void RepairTable::cmdNewKeys_Click() {
  if (!Say().Ask(tr("The first record of each key that stands more than once keeps it; the others "
                    "get new keys, and what belongs to them goes along. Make a BackUp first. Go "
                    "on?"),
                 Answer::kNo, Icon::kInformation)) {
    return;
  }
  NewKeys keys;
  {
    controls::ProgressDialog progress(this);
    keys = GiveNewKeys(*Session().connection);
    ShowCheck(CheckTables(*Session().connection, progress));
  }
  QStringList told{tr("Records with a new key: %1").arg(keys.given)};
  if (keys.removed > 0) {
    told << tr("Copies of a record, equal in every field, that were removed: %1").arg(keys.removed);
  }
  Say().Inform((told + keys.refused.mid(0, kMostTold)).join(QStringLiteral("\n\n")));
}

void RepairTable::cmdexit_Click() {
  close();
}

}  // namespace quorvane::repair
