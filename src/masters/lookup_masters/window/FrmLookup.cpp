#include "masters/lookup_masters/window/FrmLookup.h"

#include "controls/ComboBox.h"
#include "controls/TextBox.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"
#include "masters/Questions.h"
#include "masters/lookup_masters/Levies.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QRegularExpressionValidator>

#include <algorithm>
#include <array>

namespace quorvane::lookup_masters {
namespace {

using controls::ComboBox;
using controls::DateBox;
using controls::FieldLayout;
using controls::Mask;
using controls::TextBox;
using controls::ZENButton;

enum class Entry { kText, kYear, kPercent, kKinds, kDate };

struct FieldFace {
  const char* label = "";
  Entry entry = Entry::kText;
};

/// How a lookup table looks in its window; the fields stand in the order of its columns.
struct Face {
  LookupKind kind;
  const char* title = "";
  QSize designed;
  std::array<FieldFace, 4> fields;
};

const std::array<Face, 5> kFaces{{
    {LookupKind::kScripTypes,
     QT_TRANSLATE_NOOP("LookupMasters", "Script Type"),
     {480, 360},
     {{{QT_TRANSLATE_NOOP("LookupMasters", "Script &Type"), Entry::kText}}}},
    {LookupKind::kScripClasses,
     QT_TRANSLATE_NOOP("LookupMasters", "Script Class"),
     {480, 360},
     {{{QT_TRANSLATE_NOOP("LookupMasters", "Script Class Na&me"), Entry::kText}}}},
    {LookupKind::kExchanges,
     QT_TRANSLATE_NOOP("LookupMasters", "Exchange"),
     {480, 360},
     {{{QT_TRANSLATE_NOOP("LookupMasters", "&Exchange Name"), Entry::kText}}}},
    {LookupKind::kSttPercentages,
     QT_TRANSLATE_NOOP("LookupMasters", "S.T.T. Percent Detail"),
     {600, 360},
     {{{QT_TRANSLATE_NOOP("LookupMasters", "&S.T.T. Percent"), Entry::kPercent}}}},
    {LookupKind::kTaxPercentages,
     QT_TRANSLATE_NOOP("LookupMasters", "Brokerage and Tax Percentages"),
     {600, 420},
     {{{QT_TRANSLATE_NOOP("LookupMasters", "&Financial Year"), Entry::kYear},
       {QT_TRANSLATE_NOOP("LookupMasters", "Delivery &Type"), Entry::kKinds},
       {QT_TRANSLATE_NOOP("LookupMasters", "P&ercentage"), Entry::kPercent},
       {QT_TRANSLATE_NOOP("LookupMasters", "As &On"), Entry::kDate}}}},
}};

const Face& FaceOf(LookupKind kind) {
  return *std::ranges::find(kFaces, kind, &Face::kind);
}

bool IsMasked(const QString& number) {
  const double value = text::Val(number);
  return text::Val(text::FormatPercent(value)) == value;
}

// Rates of tax have up to four decimals: the mask must not round one away.
QString PercentText(const QString& typed) {
  const bool has_digit = std::ranges::any_of(typed, [](QChar one) { return one.isDigit(); });
  if (!has_digit) {
    return typed;
  }
  const double value = text::Val(typed);
  return IsMasked(typed) ? text::FormatPercent(value) : text::NumberText(value);
}

/// What was added; of years within which a rate changed also which rate it is.
QString Added(const std::vector<LookupRow>& rows, const std::vector<YearLevy>& levies) {
  if (rows.empty()) {
    return FrmLookup::tr("No rate is missing.");
  }
  QStringList lines(FrmLookup::tr("%1 rates were added.").arg(rows.size()));
  if (rows.front().values.size() == 1) {
    QStringList percents;
    std::ranges::transform(rows, std::back_inserter(percents),
                           [](const LookupRow& row) { return PercentText(row.values.front()); });
    return lines.front() + QLatin1Char('\n') + percents.join(QStringLiteral(", "));
  }
  const auto changed_in = [&](const LookupRow& row) {
    return std::ranges::any_of(levies, [&](const YearLevy& levy) {
      return levy.changed && levy.year.Text() == row.values[0] && levy.levy.kind == row.values[1];
    });
  };
  for (const LookupRow& row : rows) {
    if (changed_in(row)) {
      lines << FrmLookup::tr("%1 %2: %3 from %4, the rate of most days of the year.")
                   .arg(row.values[0], row.values[1], PercentText(row.values[2]), row.values[3]);
    }
  }
  return lines.join(QLatin1Char('\n'));
}

}  // namespace

FrmLookup::FrmLookup(controls::Desk& desk, LookupKind kind)
    : RecordWindow(desk, QString::fromLatin1(MasterOf(kind).window),
                   Tr("LookupMasters", FaceOf(kind).title), FaceOf(kind).designed,
                   QStringLiteral("VSF"), Panels::kTogether),
      book_(*desk.session.connection, kind) {
  AddFields();
  AddButtons();
  List().SetColumns(ListColumns());
  Start();
}

void FrmLookup::FillList() {
  const auto& columns = book_.Master().columns;
  std::vector<controls::Row> rows;
  for (const LookupRow& record : book_.List()) {
    controls::Row row{.id = record.id};
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const bool number = columns[i].kind == LookupColumn::Kind::kNumber;
      row.cells.push_back(number ? QVariant(text::Val(record.values[i])) : record.values[i]);
    }
    rows.push_back(std::move(row));
  }
  List().SetRows(std::move(rows));
}

void FrmLookup::Clear() {
  for (const Box& box : boxes_) {
    box.show({});
  }
}

void FrmLookup::Load(int id) {
  if (const std::optional<LookupRow> row = book_.Load(id)) {
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
      boxes_[i].show(row->values[i]);
    }
  }
}

MaybeRefusal FrmLookup::Save() {
  LookupRow row{CurrentId(), {}};
  for (const Box& box : boxes_) {
    row.values.push_back(box.entered());
  }
  MaybeRefusal refusal = CheckRow(book_.Master(), row);
  for (const Box& box : boxes_) {
    refusal = refusal ? refusal : box.check();
  }
  return refusal ? refusal : Saved(book_.Save(row));
}

void FrmLookup::Remove(int id) {
  book_.Delete(id);
}

QString FrmLookup::DeleteQuestion() const {
  return masters::AskDeleteRecord();
}

/// Boxes are numbered; the delivery type is chosen from a list.
QString FrmLookup::NameBox(const LookupColumn& column) {
  const bool listed = column.field == Field::kDeliveryType;
  QString name = listed ? QStringLiteral("CmbName") : QStringLiteral("Text1_%1").arg(numbered_++);
  Hold({{column.field, name}});
  return name;
}

void FrmLookup::AddFields() {
  const auto& columns = book_.Master().columns;
  const Face& face = FaceOf(book_.Master().kind);
  auto* fields = new FieldLayout(2, Details());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const auto& [label, entry] = face.fields[i];
    switch (entry) {
      case Entry::kText:
        boxes_.push_back(AddText(*fields, columns[i], label));
        break;
      case Entry::kYear:
        boxes_.push_back(AddYear(*fields, columns[i], label));
        break;
      case Entry::kPercent:
        boxes_.push_back(AddPercent(*fields, columns[i], label));
        break;
      case Entry::kKinds:
        boxes_.push_back(AddKinds(*fields, columns[i], label));
        break;
      case Entry::kDate:
        boxes_.push_back(AddDate(*fields, columns[i], label));
        break;
    }
  }
  fields->setRowStretch(fields->rowCount(), 1);
}

FrmLookup::Box FrmLookup::BoxOf(TextBox* box) {
  return {.entered = [box] { return box->text(); },
          .show = [box](const QString& value) { box->setText(value); }};
}

FrmLookup::Box FrmLookup::AddText(FieldLayout& fields, const LookupColumn& column,
                                  const char* label) {
  constexpr int kWhole = 2;
  return BoxOf(fields.Add(Tr("LookupMasters", label), NameBox(column), new TextBox(), kWhole));
}

FrmLookup::Box FrmLookup::AddYear(FieldLayout& fields, const LookupColumn& column,
                                  const char* label) {
  auto* box = fields.Add(Tr("LookupMasters", label), NameBox(column), new TextBox());
  box->setPlaceholderText(QStringLiteral("2011-12"));
  On(box, &TextBox::Left, &FrmLookup::Text1_Validate, QStringLiteral("Text1_Validate"));
  return BoxOf(box);
}

FrmLookup::Box FrmLookup::AddPercent(FieldLayout& fields, const LookupColumn& column,
                                     const char* label) {
  static const QRegularExpression kTypable(QStringLiteral("[0-9]*\\.?[0-9]*"));
  auto* box = fields.Add(Tr("LookupMasters", label), NameBox(column), new TextBox());
  box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  box->setValidator(new QRegularExpressionValidator(kTypable, box));
  connect(box, &TextBox::Left, this, [box] { box->setText(PercentText(box->text())); });
  return {.entered = [box] { return box->text(); },
          .show = [box](const QString& value) { box->setText(PercentText(value)); }};
}

FrmLookup::Box FrmLookup::AddKinds(FieldLayout& fields, const LookupColumn& column,
                                   const char* label) {
  auto* combo = fields.Add(Tr("LookupMasters", label), NameBox(column), new ComboBox());
  combo->SetTexts(PercentageKinds());
  return {.entered = [combo] { return combo->itemText(combo->CurrentPosition()); },
          .show =
              [combo](const QString& value) {
                combo->Clear();
                combo->ByText(value);
              }};
}

FrmLookup::Box FrmLookup::AddDate(FieldLayout& fields, const LookupColumn& column,
                                  const char* label) {
  auto* box = fields.Add(Tr("LookupMasters", label), NameBox(column), new DateBox());
  Watch(box);
  return {.entered = [box] { return box->DateText(); },
          .show = [box](const QString& value) { box->SetDate(value); },
          .check = [box, field = column.field]() -> MaybeRefusal {
            return box->IsProper() ? std::nullopt
                                   : MaybeRefusal(Refusal{tr("Enter Proper Date."), field});
          }};
}

void FrmLookup::AddButtons() {
  const LookupKind kind = book_.Master().kind;
  if (kind == LookupKind::kSttPercentages || kind == LookupKind::kTaxPercentages) {
    CmdLevies = new ZENButton(QStringLiteral("CmdLevies"), tr("Dated &Rates..."));
    CmdLevies->setToolTip(tr("Adds the rates of S.T.T. and service tax that are missing"));
    Buttons()->addWidget(CmdLevies);
    OnClick(CmdLevies, &FrmLookup::CmdLevies_Click);
  }
  if (book_.Master().kind == LookupKind::kSttPercentages) {
    auto* taxes =
        new ZENButton(QStringLiteral("CmdTransPer"), tr("&Brokerage and Tax Percentages..."));
    Buttons()->addWidget(taxes);
    OnClick(taxes, &FrmLookup::CmdTransPer_Click);
  }
}

std::vector<controls::Column> FrmLookup::ListColumns() const {
  std::vector<controls::Column> columns;
  for (const LookupColumn& column : book_.Master().columns) {
    const bool number = column.kind == LookupColumn::Kind::kNumber;
    columns.push_back({.heading = Tr("LookupMasters", column.label),
                       .mask = number ? Mask::kPercent : Mask::kText});
  }
  return columns;
}

void FrmLookup::Text1_Validate() {
  const QString year = boxes_.front().entered();
  if (year.isEmpty() || IsCancelling() || !IsEditing()) {
    return;
  }
  if (const MaybeRefusal refusal = CheckFinancialYear(year)) {
    Show(*refusal);
  }
}

void FrmLookup::StateChanged() {
  if (CmdLevies != nullptr) {
    CmdLevies->setEnabled(!IsEditing());
  }
}

void FrmLookup::CmdLevies_Click() {
  if (!Say().Ask(tr("Add the rates of S.T.T. and service tax that are missing? Rows that exist "
                    "stay as they are."),
                 controls::Answer::kYes, controls::Icon::kInformation)) {
    return;
  }
  const std::vector<YearLevy> levies =
      LeviesByYear(tax::ReadLevies(Session().folders.data + QStringLiteral("/levies.csv")),
                   text::FinancialYear::Of(TheDesk().today()));
  const std::vector<LookupRow> added = book_.AddMissing(RowsOf(book_.Master().kind, levies));
  Refill();
  Say().Inform(Added(added, levies));
}

void FrmLookup::CmdTransPer_Click() {
  TheDesk().open(QStringLiteral("FrmTransPer"));
}

}  // namespace quorvane::lookup_masters
