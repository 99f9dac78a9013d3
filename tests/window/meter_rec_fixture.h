// The main window with nothing behind it: values are written by the test, events are noted.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMenu>
#include <string>
#include <vector>

#include "app/ui/meter_rec.h"
#include "screen/columns.h"
#include "screen/main_window.h"

namespace halden {

struct MeterRecTest : testing::Test {
  MeterRecTest() {
    apply_to_application(Look::light);
    values.show();
    rec.show_changes();
  }

  MeterRecEvents events() {
    return {[this](std::string_view control) { clicks.emplace_back(control); }, [this] { ++resizes; },
            [this] { ++closes; }, [this] { return busy; }};
  }

  QWidget* widget(std::string_view name) { return rec.findChild<QWidget*>(to_qt(name)); }
  QAction* action(std::string_view name) { return rec.findChild<QAction*>(to_qt(name)); }
  QMenu* menu(std::string_view name) { return rec.findChild<QMenu*>(to_qt(name)); }

  // The window in another size, with everything brought up to date.
  void resize(int width, int height) {
    rec.resize(width, height);
    rec.show_changes();
    QCoreApplication::sendPostedEvents();
  }

  Screen screen;
  Window& values = screen.meter_rec;
  LabelColumns columns = read_label_columns(values);
  std::vector<std::string> clicks;
  int resizes = 0;
  int closes = 0;
  bool busy = false;
  MeterRec rec{values, events(), Look::light};
};

}  // namespace halden
