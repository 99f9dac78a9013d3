#include "simulator/console.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

namespace halden::simulator {

namespace {

using Words = std::vector<std::string_view>;

Words words_of(std::string_view line) {
  constexpr std::string_view blanks = " \t\r";
  Words words;
  for (auto begin = line.find_first_not_of(blanks); begin != std::string_view::npos;) {
    const auto end = std::min(line.find_first_of(blanks, begin), line.size());
    words.push_back(line.substr(begin, end - begin));
    begin = line.find_first_not_of(blanks, end);
  }
  return words;
}

template <typename Number>
std::optional<Number> number_of(std::string_view word) {
  Number number{};
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size()) return std::nullopt;
  return number;
}

bool switched(std::string_view word, bool& flag) {
  if (word != "on" && word != "off") return false;
  flag = word == "on";
  return true;
}

std::string escaped(char byte) {
  constexpr std::string_view hex = "0123456789abcdef";
  const auto code = static_cast<unsigned char>(byte);
  if (byte == '\r') return "\\r";
  if (byte == '\n') return "\\n";
  if (byte == '"' || byte == '\\') return std::string("\\") + byte;
  if (code >= 0x20 && code < 0x7F) return std::string(1, byte);
  return std::string("\\x") + hex[code / 16] + hex[code % 16];
}

// Every command takes the words after its name; false when it does not understand them.

bool set_mode(const Words& words, Meter& meter, ConsoleAnswer&) {
  const auto mode = mode_of(words[0]);
  if (mode) meter.settings().mode = *mode;
  return mode.has_value();
}

bool set_wiring(const Words& words, Meter& meter, ConsoleAnswer&) {
  const auto wiring = wiring_of(words[0]);
  if (wiring) meter.settings().wiring = *wiring;
  return wiring.has_value();
}

bool set_channel(const Words& words, Meter& meter, ConsoleAnswer&) {
  const int channel = number_of<int>(words[0]).value_or(-1);
  if (channel < 0 || channel > 5) return false;
  meter.settings().channel = channel;
  return true;
}

bool set_silence(const Words& words, Meter& meter, ConsoleAnswer&) {
  return switched(words[0], meter.faults().silence);
}

bool set_garbage(const Words& words, Meter& meter, ConsoleAnswer&) {
  return switched(words[0], meter.faults().garbage);
}

bool set_fault(const Words& words, Meter& meter, ConsoleAnswer&) {
  if (words[0] != "none") return switch_on(words[0], meter.faults());
  meter.faults() = {};
  return true;
}

bool free_load(const Words& words, Meter& meter, ConsoleAnswer&) {
  if (words[0] == "off") meter.load().free();
  return words[0] == "off";
}

bool set_raw(const Words& words, Meter& meter, ConsoleAnswer&) {
  std::array<int, 6> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const auto number = number_of<int>(words[i]);
    if (!number) return false;
    numbers[i] = *number;
  }
  const auto [phase, v, i, w, p, q] = numbers;
  if (phase < 1 || phase > 3) return false;
  meter.load().fix_raw(phase, {v, i, w, p, q});
  return true;
}

bool show_log(const Words&, Meter& meter, ConsoleAnswer& answer) {
  answer.text = std::to_string(meter.log().size()) + " \"";
  for (const ReceivedByte& received : meter.log()) answer.text += escaped(received.byte);
  answer.text += '"';
  return true;
}

bool unplug(const Words& words, Meter&, ConsoleAnswer& answer) {
  const double seconds = number_of<double>(words[0]).value_or(-1.0);
  if (!(seconds >= 0.0 && seconds <= 86400.0)) return false;
  answer.unplug_s = seconds;
  return true;
}

// The caller knows the time.
bool press_transient(const Words&, Meter&, ConsoleAnswer& answer) { return answer.press_transient = true; }

bool quit(const Words&, Meter&, ConsoleAnswer& answer) { return answer.quit = true; }

struct Command {
  std::string_view name;
  std::size_t words;  // after the name
  bool (*run)(const Words& words, Meter& meter, ConsoleAnswer& answer);
};

constexpr std::array<Command, 12> commands = {{{"mode", 1, set_mode},
                                               {"wiring", 1, set_wiring},
                                               {"channel", 1, set_channel},
                                               {"silence", 1, set_silence},
                                               {"garbage", 1, set_garbage},
                                               {"fault", 1, set_fault},
                                               {"raw", 1, free_load},
                                               {"raw", 6, set_raw},
                                               {"log", 0, show_log},
                                               {"transient", 0, press_transient},
                                               {"unplug", 1, unplug},
                                               {"quit", 0, quit}}};

}  // namespace

ConsoleAnswer apply_command(std::string_view line, Meter& meter) {
  Words words = words_of(line);
  ConsoleAnswer answer;
  if (words.empty()) {
    answer.text.clear();
    return answer;
  }
  const std::string_view name = words.front();
  words.erase(words.begin());
  for (const Command& command : commands)
    if (command.name == name && command.words == words.size() && command.run(words, meter, answer))
      return answer;
  answer.text = "error: not understood: " + std::string(line);
  return answer;
}

}  // namespace halden::simulator
