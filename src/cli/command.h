// What the commands of haldenctl have in common: their options on the command line, and the two forms in
// which results are printed.
#pragma once

#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "cli/port_argument.h"
#include "cli/session.h"
#include "platform/files.h"

namespace CLI {
class App;
}

namespace halden {

enum class Format { text, json };

// The command that was typed, ready to run on sessions it opens; returns the exit code.
using ChosenCommand = std::function<int(const OpenSession& open)>;

// Every command adds itself to the command line, and puts itself into `chosen` when it is the one typed.
void add_status_command(CLI::App& app, ChosenCommand& chosen);
void add_live_command(CLI::App& app, ChosenCommand& chosen);
void add_record_command(CLI::App& app, ChosenCommand& chosen);
void add_set_command(CLI::App& app, ChosenCommand& chosen);
void add_logger_command(CLI::App& app, ChosenCommand& chosen);

struct CommonOptions {
  PortArgument port;
  Format format = Format::text;
};

// Adds --port and --format. `options` lives until the command line is parsed.
void add_common_options(CLI::App& command, CommonOptions& options);

enum class ExistingFile { refused, appended_to };

// Adds --out and --append. `file` and `existing` live until the command line is parsed.
void add_output_options(CLI::App& command, const char* description, std::string& file,
                        ExistingFile& existing);

// Says why the command has failed, in one sentence. Returns the exit code.
int end_with_failure(const std::string& sentence);

// Says that the file exists when it is not to be added to.
bool is_refused(Files& files, const std::string& file, ExistingFile existing);

// Named values: an object whose members are texts and numbers, in the order in which they are printed.
using Record = nlohmann::ordered_json;

// Text: one "name=value" a line. JSON: one object on one line. Both end with a line end and are the same in
// every locale. What is not UTF-8 in a text is replaced.
std::string formatted(const Record& record, Format format);

}  // namespace halden
