// halden: the desktop companion with its windows.

#include <CLI/CLI.hpp>
#include <QGuiApplication>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "app/ui/desktop_program.h"
#include "platform/port_table.h"
#include "platform/process.h"

namespace {

constexpr int wrong_usage = 2;

// The options as typed, before they are interpreted.
struct Typed {
  halden::DesktopOptions options;
  std::vector<std::string> ports;
  std::string palette;
};

std::string check_port(const std::string& text) {
  return halden::parse_port_override(text) ? std::string()
                                           : "expected N=DEVICE with N from 1 to 16, not " + text;
}

// A range check lets "nan" through, which is neither below nor above anything.
std::string check_number(const std::string& text) {
  return text.find_first_of("0123456789") == std::string::npos ? "expected a number, not " + text
                                                               : std::string();
}

void declare(CLI::App& app, Typed& typed) {
  app.set_version_flag("--version", "halden " HALDEN_VERSION);
  app.add_flag("--demo", typed.options.demo, "COM 1 is a simulated meter, with a panel of its buttons");
  app.add_option("--com", typed.ports, "Use DEVICE for port COM N; may be repeated")
      ->type_name("N=DEVICE")
      ->allow_extra_args(false)
      ->check(check_port);
  app.add_option("--workdir", typed.options.work_folder, "The folder with language.pha and commport.dat")
      ->type_name("DIR")
      ->check(CLI::ExistingDirectory);
  app.add_option("--screenshot", typed.options.screenshot, "Write a picture of the main window, then end")
      ->type_name("FILE");
  app.add_option("--after", typed.options.screenshot_after_s,
                 "Seconds from showing the window to the picture")
      ->type_name("SECONDS")
      ->check(CLI::Range(0.0, 86400.0))
      ->check(check_number);
  app.add_option("FILES", typed.options.open_files, "Stored files to open")->check(CLI::ExistingFile);
  app.add_option("--palette", typed.palette, "Colours; those of the desktop when not given")
      ->type_name("light|dark")
      ->check(CLI::IsMember({"light", "dark"}));
}

halden::DesktopOptions interpret(const Typed& typed) {
  halden::DesktopOptions options = typed.options;
  for (const std::string& port : typed.ports)
    if (const auto device = halden::parse_port_override(port)) options.devices.push_back(*device);
  if (!typed.palette.empty())
    options.look = typed.palette == "dark" ? halden::Look::dark : halden::Look::light;
  return options;
}

// What Qt says first when no window can be shown ("could not connect to display :99").
std::string& display_trouble() {
  static std::string text;
  return text;
}

// Qt ends the process with a core dump where the display cannot be opened. As long as there is no screen,
// that is what a fatal message means; it becomes one sentence and an exit code.
void take_message(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  const bool starting = QGuiApplication::primaryScreen() == nullptr;
  const bool of_display = std::string_view(context.category).starts_with("qt.qpa.");
  if (starting && type == QtFatalMsg) {
    std::fprintf(stderr, "No window can be shown: %s; \"haldenctl live\" shows the readings in a terminal.\n",
                 display_trouble().c_str());
    std::_Exit(1);
  }
  if (starting && of_display && type != QtDebugMsg) {
    if (display_trouble().empty()) display_trouble() = text.toStdString();
    return;
  }
  std::fprintf(stderr, "%s\n", qFormatLogMessage(type, context, text).toUtf8().constData());
}

}  // namespace

int main(int argc, char** argv) {
  halden::prepare_process();
  CLI::App app("Companion of the Halden power and harmonics analyzer", "halden");
  Typed typed;
  declare(app, typed);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    std::ostringstream text;
    return app.exit(error, text, std::cerr) == 0 ? halden::print_and_end(text.str()) : wrong_usage;
  }
  if (const std::string missing = halden::missing_display(); !missing.empty()) {
    std::fprintf(stderr, "%s\n", missing.c_str());
    return 1;
  }
  qInstallMessageHandler(take_message);
  return halden::run_desktop(argc, argv, interpret(typed));
}
