// What the user sees of an exchange of the datalogger: the notice with its given texts, and beside it in the
// datalogger window the figures and the Cancel button.
#pragma once

#include <cstddef>
#include <string_view>

#include "link/link_state.h"
#include "logger/transfer.h"
#include "screen/window.h"

namespace halden {

class TransferPanel {
 public:
  // All outlive the panel.
  TransferPanel(Window& logger, Window& notice, const LinkState& link)
      : window_(logger), notice_(notice), link_(link) {}

  // An exchange that Cancel can end begins; the panel shows no figures yet.
  void begin(std::string_view task);
  void end();

  // The notice, with its caption unless that is empty.
  void show_notice(std::string_view caption, std::string_view text);
  void hide_notice();

  // The figures; in the notice the bytes as soon as there are some. `record_bytes` 0: no records are counted.
  void show_figures(const TransferFigures& figures, std::size_t record_bytes);

  // The records that a conversion has written.
  void show_records(std::size_t records);

  // Instead of what Cancel does: the meter is still sending, and for how long that has been waited for.
  void show_still_sending(double waited_s);
  void hide_still_sending();

  // What became of an exchange, in the status line.
  void say(std::string_view text);

 private:
  void show_controls(bool visible);
  void show_cancel(bool visible);

  Window& window_;
  Window& notice_;
  const LinkState& link_;
  bool shown_ = false;  // from begin() to end()
};

}  // namespace halden
