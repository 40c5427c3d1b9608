#include "controls/ChildWindow.h"
#include "support/Test.h"
#include "ui/Features.h"
#include "ui/main/ShownMain.h"

#include <QAccessible>
#include <QMenuBar>

using namespace quorvane;
using test::ShownMain;

namespace {

/// Every object of the accessibility tree below one, itself included.
void Walk(QAccessibleInterface* object, QList<QAccessibleInterface*>& found) {
  if (object == nullptr || !object->isValid() || object->state().invisible) {
    return;
  }
  found << object;
  for (int child = 0; child < object->childCount(); ++child) {
    QAccessibleInterface* one = object->child(child);
    // Cells of a table are its text, and there may be many.
    if (one != nullptr && one->role() != QAccessible::Cell) {
      Walk(one, found);
    }
  }
}

QString PlaceOf(const QWidget& widget) {
  return QStringLiteral("%1 %2 in %3")
      .arg(QLatin1String(widget.metaObject()->className()), widget.objectName(),
           widget.parentWidget() == nullptr ? QString() : widget.parentWidget()->objectName());
}

bool TakesTab(const QWidget& widget) {
  return (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus && widget.isEnabled() &&
         widget.isVisible() && widget.focusProxy() == nullptr;
}

/// Controls that a reader cannot name.
QStringList Nameless(QWidget& window) {
  QList<QAccessibleInterface*> objects;
  Walk(QAccessible::queryAccessibleInterface(&window), objects);
  QStringList nameless;
  for (QAccessibleInterface* object : objects) {
    const auto* widget = qobject_cast<QWidget*>(object->object());
    if (widget != nullptr && widget->focusPolicy() != Qt::NoFocus && object->state().focusable &&
        object->text(QAccessible::Name).isEmpty()) {
      nameless << PlaceOf(*widget);
    }
  }
  return nameless;
}

/// Places where the Tab key goes up, or left within a line, among controls of one parent: reading
/// goes from the left to the right, and from the top to the bottom, part by part.
QStringList Backward(QWidget& window) {
  QStringList backward;
  std::map<const QWidget*, const QWidget*> last;  // by parent
  for (QWidget* widget = window.nextInFocusChain(); widget != &window;
       widget = widget->nextInFocusChain()) {
    if (!TakesTab(*widget) || !window.isAncestorOf(widget)) {
      continue;
    }
    const QWidget* parent = widget->parentWidget();
    if (const QWidget*& before = last[parent]; before != nullptr) {
      const QRect from = before->geometry();
      const QRect to = widget->geometry();
      const bool above = to.bottom() < from.top();
      const bool same_line = to.top() <= from.bottom() && from.top() <= to.bottom();
      if (above || (same_line && to.right() < from.left() && to.top() <= from.top())) {
        backward << PlaceOf(*before) + QStringLiteral(" -> ") + PlaceOf(*widget);
      }
    }
    last[parent] = widget;
  }
  return backward;
}

}  // namespace

class AccessibleTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void EveryControlHasANameAndTabGoesAsOneReads_data() {
    QTest::addColumn<QString>("name");
    for (const ui::Feature& feature : ui::Features()) {
      if (feature.make != nullptr) {
        QTest::newRow(feature.name) << QString(QLatin1String(feature.name));
      }
    }
    QTest::newRow("main window") << QString();
  }
  void EveryControlHasANameAndTabGoesAsOneReads() {
    QFETCH(QString, name);
    ShownMain shown;
    const ClientId client = shown.database.AddClient(QStringLiteral("C1"));
    shown.session.current = ClientYear{client, text::FinancialYear(2011)};
    shown.session.current_client_name = QStringLiteral("A CLIENT");
    delete shown.main;
    shown.Open();
    shown.session.target = name;
    if (!name.isEmpty()) {
      shown.desk.open(name);
      QApplication::processEvents();
    }
    QCOMPARE(Nameless(*shown.main).join(QStringLiteral(", ")), QString());
    QCOMPARE(Backward(*shown.main).join(QStringLiteral(", ")), QString());
  }
};

static const test::RegisterTest<AccessibleTest> kRegistered;
#include "AccessibleTest.moc"
