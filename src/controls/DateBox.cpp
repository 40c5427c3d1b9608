#include "controls/DateBox.h"

#include <QAction>
#include <QKeyEvent>
#include <QRegularExpressionValidator>
#include <QStyle>

namespace quorvane::controls {
namespace {

constexpr int kLength = 10;  // dd/mm/yyyy

bool IsDigit(const QKeyEvent& event) {
  return event.text().size() == 1 && event.text().front() >= QLatin1Char('0') &&
         event.text().front() <= QLatin1Char('9');
}

bool IsSeparator(const QKeyEvent& event) {
  return event.text() == QLatin1String("/") || event.text() == QLatin1String(".");
}

bool EndsDayOrMonth(const QString& text) {
  static const QRegularExpression kDayOrMonth(QStringLiteral("^([0-9]{1,2}[/.])?[0-9]{2}$"));
  return kDayOrMonth.match(text).hasMatch();
}

// "010411" and "01042011" are dates without their separators.
QString WithSeparators(const QString& text) {
  const bool bare = !text.contains(QLatin1Char('/')) && !text.contains(QLatin1Char('.'));
  if (!bare || (text.size() != 6 && text.size() != 8)) {
    return text;
  }
  return text.left(2) + QLatin1Char('/') + text.mid(2, 2) + QLatin1Char('/') + text.mid(4);
}

}  // namespace

DateBox::DateBox(QWidget* parent) : TextBox(parent) {
  setMaxLength(kLength);
  setPlaceholderText(tr("dd/mm/yyyy"));
  static const QRegularExpression kTypable(QStringLiteral("[0-9/.]*"));
  setValidator(new QRegularExpressionValidator(kTypable, this));
  connect(this, &QLineEdit::textChanged, this, [this] { Unmark(); });
}

QString DateBox::DateText() const {
  return Completed().value_or(QString());
}

std::optional<text::Date> DateBox::Date() const {
  return text::ParseDmy(DateText());
}

void DateBox::SetDate(const QString& dmy) {
  given_ = dmy;
  setText(dmy);
}

bool DateBox::IsProper() const {
  return text().isEmpty() || Completed().has_value();
}

bool DateBox::IsRefused() const {
  return mark_ != nullptr && mark_->isVisible();
}

std::optional<QString> DateBox::Completed() const {
  if (text().isEmpty()) {
    return std::nullopt;
  }
  return text::CompleteDate(WithSeparators(text()), today_());
}

void DateBox::keyPressEvent(QKeyEvent* event) {
  if (IsSeparator(*event) && !hasSelectedText() && text().endsWith(QLatin1Char('/'))) {
    return;
  }
  TextBox::keyPressEvent(event);
  if (IsDigit(*event) && cursorPosition() == text().size() && EndsDayOrMonth(text())) {
    insert(QStringLiteral("/"));
  }
}

void DateBox::Leave() {
  if (const std::optional<QString> completed = Completed()) {
    setText(*completed);
  } else if (!text().isEmpty() && text() != given_) {
    Mark();
    Q_EMIT Refused(tr("Enter Proper Date."));
  }
}

void DateBox::Mark() {
  if (mark_ == nullptr) {
    mark_ = addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning), TrailingPosition);
    mark_->setToolTip(tr("Enter Proper Date."));
  }
  mark_->setVisible(true);
  setAccessibleDescription(tr("Enter Proper Date."));
}

void DateBox::Unmark() {
  if (mark_ != nullptr) {
    mark_->setVisible(false);
    setAccessibleDescription({});
  }
}

}  // namespace quorvane::controls
