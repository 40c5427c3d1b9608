#include "transactions/bills/window/BillTotalsPane.h"

#include "controls/FieldLayout.h"
#include "core/text/Tr.h"
#include "transactions/bills/window/BillContext.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QRegularExpressionValidator>

#include <algorithm>
#include <array>

namespace quorvane::bills {
namespace {

using controls::TextBox;

constexpr int kNetWidth = 180;

struct Field {
  BillBox box;
  const char* label;
  bool computed;
};

constexpr std::array kFields{
    Field{BillBox::kTotal, QT_TRANSLATE_NOOP("Bills", "Bill Total"), true},
    Field{BillBox::kOtherCharges, QT_TRANSLATE_NOOP("Bills", "Other Charges"), false},
    Field{BillBox::kTransactionCharges, QT_TRANSLATE_NOOP("Bills", "Trans. Charges"), false},
    Field{BillBox::kStt, QT_TRANSLATE_NOOP("Bills", "S.T.T."), true},
    Field{BillBox::kGrandTotal, QT_TRANSLATE_NOOP("Bills", "Total Receivable"), true}};

QLabel* LabelOf(const QWidget& parent, const QWidget* box) {
  const QList<QLabel*> labels = parent.findChildren<QLabel*>();
  const auto found =
      std::ranges::find_if(labels, [box](const QLabel* label) { return label->buddy() == box; });
  return found == labels.end() ? nullptr : *found;
}

}  // namespace

BillTotalsPane::BillTotalsPane(const BillContext& context) : context_(context) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* fields = new controls::FieldLayout(static_cast<int>(kFields.size()));
  rows->addLayout(fields);
  static const QRegularExpression kTypable(QStringLiteral("-?[0-9,]*\\.?[0-9]*"));
  for (const Field& field : kFields) {
    auto* text = fields->Add(Tr("Bills", field.label), ControlName(field.box), new TextBox());
    text->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    text->setValidator(new QRegularExpressionValidator(kTypable, text));
    text->setReadOnly(field.computed);
    text->setFocusPolicy(field.computed ? Qt::ClickFocus : Qt::StrongFocus);
    Text1[field.box] = text;
    connect(text, &TextBox::Left, this, [this, box = field.box] {
      context_.guard.Run(QStringLiteral("Text1_Validate"), [this, box] { Text1_Validate(box); });
    });
  }
  AddNoteNet(*rows);
  LblTotal = LabelOf(*this, Text1[BillBox::kGrandTotal]);
  LblTotal->setObjectName(QStringLiteral("LblTotal"));
}

/// In a row of its own below the grand total: a screen of 800 has no room beside it.
void BillTotalsPane::AddNoteNet(QVBoxLayout& rows) {
  auto* row = new QHBoxLayout;
  rows.addLayout(row);
  row->addStretch(1);
  auto* fields = new controls::FieldLayout;
  row->addLayout(fields);
  TxtNoteNet =
      fields->Add(Tr("Bills", "Net as on the note"), QStringLiteral("TxtNoteNet"), new TextBox());
  TxtNoteNet->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  TxtNoteNet->setReadOnly(true);
  TxtNoteNet->setFocusPolicy(Qt::ClickFocus);
  TxtNoteNet->setMinimumWidth(kNetWidth);
}

void BillTotalsPane::Show() {
  const records::Bill& bill = context_.entry.Current();
  boxes_.Show(BillBox::kTotal, bill.total);
  boxes_.Show(BillBox::kOtherCharges, bill.other_charges);
  boxes_.Show(BillBox::kTransactionCharges, bill.transaction_charges);
  boxes_.Show(BillBox::kStt, bill.stt);
  boxes_.Show(BillBox::kGrandTotal, bill.grand_total);
  TxtNoteNet->setText(records::NetText(
      records::AmountsOnNote(bill.lines, bill.other_charges, bill.transaction_charges).Net()));
  LblTotal->setText(records::CaptionText(context_.entry.Caption()));
  ShowBoxes();
}

void BillTotalsPane::ShowBoxes() {
  for (const auto& [box, text] : Text1) {
    text->setText(boxes_[box]);
    text->setModified(false);
  }
}

void BillTotalsPane::Read() {
  for (const auto& [box, text] : Text1) {
    if (text->isModified()) {
      boxes_.Type(box, text->text());
      text->setModified(false);
    }
  }
}

void BillTotalsPane::Text1_Validate(BillBox box) {
  if (Text1[box]->isReadOnly()) {
    return;
  }
  Read();
  LeaveBox(box, Side::kPurchase, boxes_);
  ShowBoxes();
  if (context_.entry.IsOpen()) {
    Take();
  }
}

void BillTotalsPane::Take() {
  Read();
  context_.entry.SetCharges(boxes_.Number(BillBox::kOtherCharges),
                            boxes_.Number(BillBox::kTransactionCharges));
  Show();
}

}  // namespace quorvane::bills
