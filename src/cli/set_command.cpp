#include "cli/set_command.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "live/settings/settings_panel.h"
#include "screen/meter_rec/settings.h"

namespace halden {

namespace {

constexpr std::size_t longest_value = 10;

const SettingNames* names_of(std::string_view name) {
  for (const SettingNames& names : meter_settings)
    if (names.name == name) return &names;
  return nullptr;
}

std::string in_capitals(std::string name) {
  for (char& letter : name) letter = static_cast<char>(letter - 'a' + 'A');
  return name;
}

int run_set(const OpenSession& open, const CommonOptions& common, const std::vector<TypedSetting>& settings) {
  const auto session = open(common.port, Interruption::is_failure, FileAccess::none);
  return session->run([&] {
    send_settings(
        session->program(), settings, common.format, [&] { return session->last_message(); }, *session);
  });
}

}  // namespace

std::optional<TypedSetting> parse_setting(std::string_view text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos || names_of(text.substr(0, equals)) == nullptr) return std::nullopt;
  if (text.size() - equals - 1 > longest_value) return std::nullopt;
  return TypedSetting{std::string(text.substr(0, equals)), std::string(text.substr(equals + 1))};
}

Record settings_record(const Window& meter_rec) {
  Record record;
  for (const SettingNames& names : meter_settings)
    record[std::string(names.name)] = meter_rec[names.box].text;
  return record;
}

void send_settings(Program& program, const std::vector<TypedSetting>& settings, Format format,
                   const std::function<std::string()>& last_message, Terminal& terminal) {
  Window& window = program.shared.meter_rec;
  for (const TypedSetting& setting : settings) {
    const SettingNames& names = *names_of(setting.name);
    terminal.progress("Sending " + in_capitals(setting.name) + " to the meter...");
    window.set_text(names.box, setting.value);
    window.click(names.button);
    if (const std::string refusal = last_message(); !refusal.empty()) {
      terminal.failed(refusal);
      return;
    }
    const std::string held = window[names.box].text;
    if (setting_value(names.setting, held) != setting_value(names.setting, setting.value)) {
      terminal.failed("The meter did not take " + setting.name + "=" + setting.value + "; it holds " + held +
                      ".");
      return;
    }
  }
  terminal.print(formatted(settings_record(window), format));
  terminal.done();
}

void add_set_command(CLI::App& app, ChosenCommand& chosen) {
  struct Typed {
    CommonOptions common;
    std::vector<std::string> texts;
  };
  const auto typed = std::make_shared<Typed>();
  CLI::App* const command = app.add_subcommand("set", "Send settings to the meter and print what it holds");
  add_common_options(*command, typed->common);
  command
      ->add_option("settings", typed->texts,
                   "ct, pt: ratios; md: minutes; sec: even seconds; hz: 50, 60, auto")
      ->type_name("NAME=VALUE")
      ->required()
      ->check([](const std::string& text) {
        return parse_setting(text)
                   ? std::string()
                   : "expected ct, pt, md, sec or hz, \"=\" and at most 10 characters, not " + text;
      });
  command->callback([typed, &chosen] {
    chosen = [typed](const OpenSession& open) {
      std::vector<TypedSetting> settings;
      for (const std::string& text : typed->texts) settings.push_back(*parse_setting(text));
      return run_set(open, typed->common, settings);
    };
  });
}

}  // namespace halden
