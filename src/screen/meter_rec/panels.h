// The names of the value panels, in one place: three phases times seven quantities, line voltages, system
// values, unbalance. Everything that repeats per phase loops over these lists.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "readings/power_chain.h"
#include "screen/language.h"

namespace halden {

// A value panel with the label above it.
struct Panel {
  std::string value;    // "VAR1_value"
  std::string label;    // "Q1_label"
  std::string caption;  // "VAR1"
};

// `phase` is 0, 1 or 2.
const Panel& phase_panel(PhaseQuantity quantity, std::size_t phase);

// V12, V23, V31; `index` is 0, 1 or 2.
const Panel& line_panel(std::size_t index);

// The system panels in their order on the screen, and the six unbalance panels.
std::span<const Panel> system_panels();
std::span<const Panel> unbalance_panels();

// The panels of the harmonics and waveform views: four for the cursor and eight for the summary.
std::span<const Panel> harmonic_cursor_panels();
std::span<const Panel> wave_summary_panels();

// The label array Label1: titles and values of sampling time, sampling instant and date.
inline constexpr int clock_label_count = 6;

// Elements of the label array Label1 that have a name of their own.
inline constexpr std::string_view sample_time_label = "Label1_1";
inline constexpr std::string_view sample_clock_label = "Label1_3";
inline constexpr std::string_view date_label = "Label1_5";

// The field of the status line that says why an action failed, or what is in progress.
inline constexpr std::string_view status_hint = "status_hint";

// The field of a window's status line that says why live readings stand still, visible while they do.
inline constexpr std::string_view polling_note = "polling_note";
inline constexpr Text polling_note_text = {"Live readings pause while this window is open.",
                                           "此視窗開啟時，即時讀值暫停。"};

// What sample_clock_label shows before the first sampling instant.
inline constexpr std::string_view no_sampling_instant = "--:--:--";

}  // namespace halden
