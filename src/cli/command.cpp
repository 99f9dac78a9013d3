#include "cli/command.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace halden {

namespace {

std::string check_port(const std::string& text) {
  return parse_port_argument(text) ? std::string()
                                   : "expected 1 to 16, the path of a device, or demo, not \"" + text + "\"";
}

std::string as_json(const Record& value) {
  constexpr int one_line = -1;
  return value.dump(one_line, ' ', false, Record::error_handler_t::replace);
}

}  // namespace

void add_common_options(CLI::App& command, CommonOptions& options) {
  command
      .add_option_function<std::string>(
          "--port",
          [&options](const std::string& text) {
            if (const auto port = parse_port_argument(text)) options.port = *port;
          },
          "The meter's COM port, the path of its device, or demo for a simulated meter")
      ->type_name("1..16|DEVICE|demo")
      ->required()
      ->check(check_port);
  command
      .add_option_function<std::string>(
          "--format",
          [&options](const std::string& name) {
            options.format = name == "json" ? Format::json : Format::text;
          },
          "How results are printed: name=value lines, or one JSON object a line")
      ->type_name("text|json")
      ->check(CLI::IsMember({"text", "json"}).description(""));
}

void add_output_options(CLI::App& command, const char* description, std::string& file,
                        ExistingFile& existing) {
  command.add_option("--out", file, description)
      ->type_name("FILE")
      ->required()
      ->check([](const std::string& name) {
        return name.empty() ? std::string("expected the name of a file, not \"\"") : std::string();
      });
  command.add_flag_callback(
      "--append", [&existing] { existing = ExistingFile::appended_to; },
      "Write behind what the file holds already");
}

int end_with_failure(const std::string& sentence) {
  write_remark(sentence + "\n");
  return exit_failed;
}

bool is_refused(Files& files, const std::string& file, ExistingFile existing) {
  if (existing == ExistingFile::appended_to || !files.exists(file)) return false;
  std::fprintf(stderr, "%s exists. Give --append to write behind what it holds.\n", file.c_str());
  return true;
}

std::string formatted(const Record& record, Format format) {
  if (format == Format::json) return as_json(record) + "\n";
  std::string text;
  for (const auto& [name, value] : record.items())
    text += name + "=" + (value.is_string() ? value.get<std::string>() : as_json(value)) + "\n";
  return text;
}

}  // namespace halden
