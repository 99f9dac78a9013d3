// A window on the screen with nothing behind it: values are written by the test, what the user does is noted.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMenu>
#include <string>
#include <vector>

#include "app/ui/meter_rec.h"
#include "screen/meter_rec/columns.h"
#include "screen/meter_rec/main_window.h"

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

struct MeterRecTest : FormTest {
  MeterRecTest() : FormTest(make_main_window(), meter_rec_design()) {}

  const LabelColumns columns = read_label_columns(values);
};

}  // namespace halden
