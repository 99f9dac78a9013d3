// Takes a stored file out of the meter, as it comes from the line.
//
// The meter sends 16-bit words, high byte first, with nothing that says where they end: a transfer is over
// when five seconds have passed without a byte. Bytes are taken straight from the port, whose limits are
// those of the line and not of a live frame.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>

#include "logger/meter_line.h"
#include "platform/clock.h"
#include "platform/files.h"

namespace halden {

// How far a transfer has come.
struct TransferFigures {
  std::size_t bytes = 0;
  double elapsed_s = 0;         // since the meter was asked
  double bytes_per_second = 0;  // up to the last byte; 0 in the first second
};

struct TransferPlan {
  std::size_t unit_bytes = 2;  // decoded together
  double after_request_s = 0;  // from the request to the first look
  std::string words_path;      // the received words are written to the end of this file
  std::string first_line{};    // before them, once the meter has sent something or fallen silent
};

enum class TransferEnd { silent, cancelled, unwritable };

struct TransferResult {
  TransferEnd end = TransferEnd::silent;
  std::size_t bytes = 0;
  FileFailure failure = FileFailure::none;
};

class Transfer {
 public:
  using Show = std::function<void(const TransferFigures&)>;

  // All outlive the transfer. `show` is called when the meter has been asked, then ten times a second, and at
  // the end.
  Transfer(const Clock& clock, Files& files, MeterLine& line, Show show)
      : clock_(clock), files_(files), line_(line), show_(std::move(show)) {}

  // Empties the line, asks for the selected file and receives it. Bytes of an incomplete unit at the end are
  // counted and dropped.
  TransferResult run(const TransferPlan& plan);

 private:
  bool ask(const TransferPlan& plan);
  void take(const std::string& received, std::size_t unit_bytes);
  bool write_and_show(const TransferPlan& plan);
  bool write_words(const TransferPlan& plan);
  void show() const;

  const Clock& clock_;
  Files& files_;
  MeterLine& line_;
  Show show_;
  TransferResult result_;
  std::string undecoded_;  // the bytes of an incomplete unit
  std::string words_;      // decoded, not written
  double asked_s_ = 0;     // monotonic
  double last_byte_s_ = 0;
  double shown_s_ = 0;
};

}  // namespace halden
