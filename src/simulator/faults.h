// Faults of the meter and its line, for tests and the demo. Everything is off until switched on, and stays on
// until switched off, except the one frame of next_live_frame.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace halden::simulator {

// Faults of what the meter sends as a stored file or a transient report. Every other reply stays whole, so
// that a transfer can be spoiled whose status query goes well.
struct FileFaults {
  std::optional<std::size_t> cut_after;  // the meter stops after that many bytes
  std::optional<std::size_t> lost_byte;  // that byte (from 0) is lost
  std::size_t extra_bytes = 0;           // meaningless bytes behind the file
  std::size_t pause_after = 0;           // the meter pauses after that many bytes ...
  double pause_s = 0.0;                  // ... for that long
  double sends_on_s = 0.0;               // meaningless bytes behind the file for that long, at most a day
  std::optional<int> wrong_index;        // every selection selects this file
};

struct Faults {
  bool silence = false;                  // receives, but answers nothing
  bool garbage = false;                  // replies of the usual length, but meaningless
  std::string garbage_prefix;            // sent before every reply
  std::optional<std::size_t> cut_after;  // a reply stops after that many bytes
  std::size_t split_after = 0;           // a reply pauses after that many bytes ...
  double split_pause_s = 0.0;            // ... for that long
  double late_s = 0.0;                   // added to the latency of every reply
  bool doubled = false;                  // every reply is sent twice
  std::size_t drop_every = 0;            // every n-th byte of a reply is lost
  bool noise = false;                    // bytes 0x00 and 0x80..0xFF mixed in
  bool restarts = false;                 // a request drops the rest of the reply that is being sent
  bool endless_stream = false;           // 960 bytes a second without a frame in them; no request is answered
  bool unplugged = false;                // nothing gets in or out
  FileFaults file;
  std::optional<std::string> status_reply;     // sent instead of the status reply
  std::optional<std::string> next_live_frame;  // sent once, instead of the reply to the next " " or "W"
};

// The reply as it leaves a meter with these faults.
std::string with_faults(std::string reply, const Faults& faults);

// The stored file or report as it leaves a meter with these faults, all but the pause.
std::string with_file_faults(std::string bytes, const FileFaults& faults);

// Byte number `position` of an endless meaningless text: lower-case letters and digits, so that it contains
// no frame mark.
char meaningless_byte(std::uint64_t position);

// Switches on a fault given by name: "silence", "garbage", "doubled", "noise", "restarts", "stream",
// "unplugged", or with a number "cut=BYTES", "drop=EVERY", "late=SECONDS", "split=BYTES:SECONDS", and of
// stored files "file_cut=BYTES", "file_lose=BYTE", "file_extra=BYTES", "file_pause=BYTES:SECONDS",
// "file_sends_on=SECONDS", "wrong_index=FILE". False when the text is none of these.
bool switch_on(std::string_view fault, Faults& faults);

}  // namespace halden::simulator
