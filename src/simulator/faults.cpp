#include "simulator/faults.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "simulator/sending.h"

namespace halden::simulator {

namespace {

constexpr std::size_t noise_every = 7;
constexpr double longest_sending_on_s = 86400.0;
constexpr std::size_t most_added_bytes = 1'000'000;

// A well-mixed number from a counter (the finalizer of splitmix64), so that no random device is needed.
std::uint64_t mixed(std::uint64_t x) {
  x += 0x9E3779B97F4A7C15U;
  x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9U;
  x = (x ^ (x >> 27)) * 0x94D049BB133111EBU;
  return x ^ (x >> 31);
}

std::string meaningless(std::size_t length) {
  std::string text;
  for (std::size_t i = 0; i < length; ++i) text += meaningless_byte(i);
  return text;
}

std::string without_every(const std::string& reply, std::size_t n) {
  std::string kept;
  for (std::size_t i = 0; i < reply.size(); ++i)
    if ((i + 1) % n != 0) kept += reply[i];
  return kept;
}

std::string with_noise(const std::string& reply) {
  std::string noisy;
  for (std::size_t i = 0; i < reply.size(); ++i) {
    if (i % noise_every == 0) noisy += i % 2 == 0 ? '\0' : static_cast<char>(0x80 + mixed(i) % 0x80);
    noisy += reply[i];
  }
  return noisy;
}

template <typename Number>
bool parse_all(std::string_view text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && number >= Number{};
}

bool switch_on_flag(std::string_view name, Faults& faults) {
  struct Flag {
    std::string_view name;
    bool Faults::*member;
  };
  constexpr std::array<Flag, 7> flags = {{{"silence", &Faults::silence},
                                          {"garbage", &Faults::garbage},
                                          {"doubled", &Faults::doubled},
                                          {"noise", &Faults::noise},
                                          {"restarts", &Faults::restarts},
                                          {"stream", &Faults::endless_stream},
                                          {"unplugged", &Faults::unplugged}}};
  for (const Flag& flag : flags)
    if (flag.name == name) return faults.*flag.member = true;
  return false;
}

bool parse_pause(std::string_view value, std::size_t& after, double& pause_s) {
  const auto colon = value.find(':');
  return colon != std::string_view::npos && parse_all(value.substr(0, colon), after) &&
         parse_all(value.substr(colon + 1), pause_s);
}

bool parse_file_fault(std::string_view name, std::string_view value, FileFaults& faults) {
  if (name == "file_cut") return parse_all(value, faults.cut_after.emplace());
  if (name == "file_lose") return parse_all(value, faults.lost_byte.emplace());
  if (name == "file_extra")
    return parse_all(value, faults.extra_bytes) && faults.extra_bytes <= most_added_bytes;
  if (name == "file_pause") return parse_pause(value, faults.pause_after, faults.pause_s);
  if (name == "file_sends_on")
    return parse_all(value, faults.sends_on_s) && faults.sends_on_s <= longest_sending_on_s;
  return name == "wrong_index" && parse_all(value, faults.wrong_index.emplace());
}

bool parse_fault(std::string_view fault, Faults& faults) {
  const auto equals = fault.find('=');
  if (equals == std::string_view::npos) return switch_on_flag(fault, faults);
  const auto name = fault.substr(0, equals);
  const auto value = fault.substr(equals + 1);
  if (name == "cut") return parse_all(value, faults.cut_after.emplace());
  if (name == "drop") return parse_all(value, faults.drop_every);
  if (name == "late") return parse_all(value, faults.late_s);
  if (name == "split") return parse_pause(value, faults.split_after, faults.split_pause_s);
  return parse_file_fault(name, value, faults.file);
}

}  // namespace

std::string with_faults(std::string reply, const Faults& faults) {
  if (faults.garbage) reply = meaningless(reply.size());
  if (faults.doubled) reply += std::string(reply);
  if (faults.drop_every > 0) reply = without_every(reply, faults.drop_every);
  if (faults.noise) reply = with_noise(reply);
  reply.insert(0, faults.garbage_prefix);
  if (faults.cut_after && *faults.cut_after < reply.size()) reply.resize(*faults.cut_after);
  return reply;
}

std::string with_file_faults(std::string bytes, const FileFaults& faults) {
  if (faults.lost_byte && *faults.lost_byte < bytes.size()) bytes.erase(*faults.lost_byte, 1);
  if (faults.cut_after && *faults.cut_after < bytes.size()) bytes.resize(*faults.cut_after);
  const double added = std::min(faults.sends_on_s, longest_sending_on_s) * bytes_per_second;
  return bytes + meaningless(faults.extra_bytes + static_cast<std::size_t>(added));
}

char meaningless_byte(std::uint64_t position) {
  constexpr std::string_view alphabet = "abcdefghijklmnopqrstuvwxyz0123456789";
  return alphabet[mixed(position) % alphabet.size()];
}

bool switch_on(std::string_view fault, Faults& faults) {
  Faults changed = faults;
  if (!parse_fault(fault, changed)) return false;
  faults = std::move(changed);
  return true;
}

}  // namespace halden::simulator
