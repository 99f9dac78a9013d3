// A day's work through the real windows, beside a simulated meter in virtual time.
#include <QAbstractButton>
#include <QAction>
#include <algorithm>

#include "../scenario/program_test_base.h"
#include "app/ui/forms.h"
#include "chart/chart.h"
#include "form_fixture.h"
#include "simulator/stored_files.h"

namespace halden {
namespace {

struct FileJourney : testing::Test, Journey {
  FileJourney() {
    meter.settings().wiring = simulator::Wiring::w3p3w;
    fix_worked_load();
    start_on_port(1);
    forms = make_forms(program().shared.windows, input, Look::light);
    show_changes();
  }

  void show_changes() {
    for (const auto& form : forms) form->show_changes();
  }
  FormWindow& form(const std::string& name) {
    for (const auto& form : forms)
      if (form->window().name() == name) return *form;
    throw std::out_of_range(name);
  }
  void choose(const std::string& name, const std::string& entry) {
    QAction* const action = action_of(name, entry);
    ASSERT_TRUE(action != nullptr && action->isEnabled() && action->isVisible()) << name << " " << entry;
    action->trigger();
    show_changes();
  }
  void push(const std::string& name, const std::string& button) {
    auto* const widget = form(name).findChild<QAbstractButton*>(to_qt(button));
    ASSERT_TRUE(widget != nullptr && widget->isEnabled() && widget->isVisible()) << name << " " << button;
    widget->click();
    show_changes();
  }
  QAction* action_of(const std::string& name, const std::string& entry) {
    return form(name).findChild<QAction*>(to_qt(entry));
  }
  void choose_file(const std::string& path, const std::string& name, const std::string& entry) {
    world.dialogs.file_answers = {path};
    choose(name, entry);
  }
  std::string& file(const std::string& path) { return world.files.contents[path]; }

  DirectInput input;
  std::vector<std::unique_ptr<FormWindow>> forms;
};

// 2781 W, 2655 W and 2902 W are 8.338 KW.
TEST_F(FileJourney, ARecordingIsPlottedListedPrintedAndExported) {
  choose_file("d/a.csv", "MeterRec", "FileName");
  choose("MeterRec", "auto_record");
  world.run_for(21);
  show_changes();
  choose("MeterRec", "FileStop");
  const std::vector<std::string> recorded = lines_of(file("d/a.csv"));
  const std::size_t records = recorded.size() - 2;
  ASSERT_EQ(records, 11U) << "one after a second, then one every two seconds";

  choose("MeterRec", "OpenPlotFile");
  choose_file("d/a.csv", "PlotFile", "openfileforplot");
  choose("PlotFile", "SelectData_24");
  const auto chart = window("PlotFile")["Graph1"].chart;
  EXPECT_EQ(chart->y_title, "P_SYS (KW)");
  EXPECT_EQ(*chart->sets.at(0).points, std::vector<double>(records, 8.338));
  EXPECT_FALSE(action_of("PlotFile", "SelectData_3")->isEnabled()) << "V1 is not measured";
  choose("PlotFile", "Pgraphics");
  EXPECT_EQ(world.printer.documents.back().at(0).windows, std::vector<std::string>{"PlotFile"});

  choose("MeterRec", "ViewFile");
  choose("VIEW", "long_lines");
  choose_file("d/a.csv", "VIEW", "OpenViewFile");
  EXPECT_EQ(*window("VIEW")["List1"].lines, recorded);
  choose("VIEW", "PrintList");
  world.dialogs.file_answers = {"d/a.pdf"};  // no printer is set up
  push("PrintFile", "Command3D1_0");
  std::string printed;
  for (const PrintedLine& line : world.printer.documents.back().at(0).lines) printed += line.text;
  EXPECT_TRUE(printed.starts_with(recorded[0] + recorded[1])) << printed.substr(0, 300);

  choose_file("d/a.csv", "MeterRec", "export_numbers");
  world.dialogs.file_answers = {"d/numbers.csv"};
  push("ExportNumbers", "export");
  const std::string& numbers = file("d/numbers.csv");
  EXPECT_EQ(std::count(numbers.begin(), numbers.end(), '\n'), 12) << "the names and the records";
  EXPECT_NE(numbers.find(",W_SYS_W,"), std::string::npos) << numbers;
  EXPECT_NE(numbers.find(",8338,"), std::string::npos) << numbers;
}

}  // namespace
}  // namespace halden
