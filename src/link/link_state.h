// The state of the exchange with the meter: language, port, view, missed ticks and receive buffers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "screen/language.h"

namespace halden {

// The values of display_mode: which live view runs.
inline constexpr std::int16_t harmonics_view = 0;
inline constexpr std::int16_t power_view = 1;
inline constexpr std::int16_t waveform_view = 2;

// Whether bytes of a stored file may still come. The meter cannot be stopped: while they do, whatever is
// asked is lost or answered with the rest of the file.
enum class FileBytes {
  none,
  perhaps,   // a transfer has ended by silence; nothing has come since
  certainly  // they came, or were coming when the wait for their end was given up
};

struct LinkState {
  Language language = Language::english;
  std::int16_t port_ready = 0;     // 1 once a port opened
  std::int16_t logger_active = 0;  // 1 while all stored files are downloaded in one run
  std::int16_t display_mode = power_view;
  std::int16_t missed_polls = 0;  // consecutive live ticks that ended with an incomplete frame
  std::int16_t link_lost = 0;     // 1 after more than 16 of them
  FileBytes file_bytes = FileBytes::none;
  std::string reply_buffer;  // the answer to the status query
  std::string poll_buffer;   // live frames of the power and harmonics views
  std::string wave_buffer;   // live frames of the waveform view, as bytes
};

// No frame or reply is nearly this long. The limits bound the memory when a device that is no meter sends
// without end: the newest bytes of live frames are kept, and the first bytes of a reply.
inline constexpr std::size_t live_buffer_limit = 16 * 1024;
inline constexpr std::size_t reply_buffer_limit = 64 * 1024;

// The live buffer of the view that runs.
inline std::string& live_buffer(LinkState& state) {
  return state.display_mode == waveform_view ? state.wave_buffer : state.poll_buffer;
}
inline const std::string& live_buffer(const LinkState& state) {
  return state.display_mode == waveform_view ? state.wave_buffer : state.poll_buffer;
}

}  // namespace halden
