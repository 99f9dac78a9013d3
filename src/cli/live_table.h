// The readings of a frame as a table, and how a table on a terminal is replaced by the next one.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "screen/window.h"

namespace halden {

// What the power view shows, in lines without line ends: the time and the wiring system, quantities in rows
// and phases in columns, energies and demands, unbalance. Rows and columns without a visible value are left
// out.
//
//   2026-11-22T12:30:44.250  1P2W
//
//                     Phase 1      System
//   V                  230.1V
//   W                 2.781KW     2.781KW
std::vector<std::string> live_table(const Window& meter_rec, const std::string& time);

// Lines that a terminal shows in one place. Each function returns what to send to the terminal; afterwards
// the cursor stands at the beginning of the line below.
class RedrawnLines {
 public:
  // Replaces the lines drawn before.
  std::string draw(const std::vector<std::string>& lines);

  // Adds one line below those drawn; the next draw replaces it as well.
  std::string add(const std::string& line);

  // Erases what the terminal itself has written behind the lines, the "^C" of an interruption.
  std::string clear_below() const;

  // They stay on the terminal: what is drawn next comes below them.
  void leave() { drawn_ = 0; }

  bool drawn() const { return drawn_ > 0; }

 private:
  std::size_t drawn_ = 0;  // lines above the cursor
};

}  // namespace halden
