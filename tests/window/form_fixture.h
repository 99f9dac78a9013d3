// A window on the screen with nothing behind it: values are written by the test, what the user does is noted.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QCoreApplication>
#include <QFontMetricsF>
#include <QMenu>
#include <string>
#include <vector>

#include "screen/ui/form_window.h"
#include "screen/ui/value_panel.h"

namespace halden {

struct DirectInput : UserInput {
  void run_input(std::function<void()> handler) override { handler(); }
  void run_now(std::function<void()> handler) override { handler(); }
  bool busy() const override { return is_busy; }
  bool is_busy = false;
};

struct FormTest : testing::Test {
  FormTest(Window window, const FormDesign& design)
      : values(std::move(window)), form(values, input, design, Look::light) {
    apply_to_application(Look::light);
    for (const auto& [name, control] : values.controls()) {
      values.on_click(name, [this, name = name] { clicks.push_back(name); });
      values.on_change(name, [this, name = name] { changes.push_back(name); });
    }
    values.on_resize([this] { ++resizes; });
    values.on_close([this] { ++closes; });
    values.show();
    form.show_changes();
  }

  QWidget* widget(std::string_view name) { return form.findChild<QWidget*>(to_qt(name)); }
  QAction* action(std::string_view name) { return form.findChild<QAction*>(to_qt(name)); }
  QMenu* menu(std::string_view name) { return form.findChild<QMenu*>(to_qt(name)); }

  // The window in another size, with everything brought up to date.
  void resize(int width, int height) {
    form.resize(width, height);
    form.show_changes();
    QCoreApplication::sendPostedEvents();
  }

  Window values;
  DirectInput input;
  std::vector<std::string> clicks;
  std::vector<std::string> changes;
  int resizes = 0;
  int closes = 0;
  FormWindow form;
};

// Whether assistive technology, which starts at the window, finds the object; the interface it finds.
inline QAccessibleInterface* in_tree(QAccessibleInterface* from, const QObject* object) {
  if (from == nullptr || from->object() == object) return from;
  for (int child = 0; child < from->childCount(); ++child)
    if (QAccessibleInterface* const found = in_tree(from->child(child), object)) return found;
  return nullptr;
}

// Name and description, as assistive technology finds them.
inline std::string spoken(QWidget& window, const QWidget* widget) {
  QAccessibleInterface* const found = in_tree(QAccessible::queryAccessibleInterface(&window), widget);
  if (found == nullptr) return "not in the tree";
  return from_qt(found->text(QAccessible::Name) + QStringLiteral(": ") +
                 found->text(QAccessible::Description));
}

// The object names of widgets that take the focus and have no name.
inline std::string nameless_in_focus(QWidget& window) {
  std::string names;
  for (QWidget* widget : window.findChildren<QWidget*>())
    if (widget->focusPolicy() != Qt::NoFocus &&
        QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty())
      names += from_qt(widget->objectName()) + " ";
  return names;
}

inline void expect_fits(const QWidget* shown, const std::string& where) {
  ASSERT_NE(shown, nullptr) << where;
  if (!shown->isVisible()) return;
  if (const auto* const field = qobject_cast<const ReadingField*>(shown)) {
    const QSize size = reading_size(field->reading(), ReadingFonts(field->font().pixelSize()));
    EXPECT_LE(size.width(), field->width()) << where;
    EXPECT_LE(size.height(), field->height()) << where;
    return;
  }
  constexpr int button_frame = 14;  // line and padding on both sides
  const int frame = qobject_cast<const QAbstractButton*>(shown) != nullptr ? button_frame : 0;
  const QString text = shown->property("text").toString();
  const QFontMetricsF metrics(shown->font());
  EXPECT_LE(metrics.horizontalAdvance(text), shown->width() - frame) << where;
  EXPECT_LE(metrics.tightBoundingRect(text).height(), shown->height()) << where;
}

}  // namespace halden
