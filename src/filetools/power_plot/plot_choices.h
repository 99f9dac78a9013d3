// The quantities a power data file can be plotted by, in the order of the Select menu, and which of them a
// wiring system has.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "formats/power_file.h"
#include "readings/wiring.h"

namespace halden {

struct PlotChoice {
  std::string_view caption;
  std::string_view unit;  // without its prefix
};

// In the order of PowerQuantity.
inline constexpr std::array<PlotChoice, power_quantity_count> plot_choices = {
    {{"V12", "V"},   {"V23", "V"},    {"V31", "V"},     {"V1", "V"},      {"V2", "V"},     {"V3", "V"},
     {"I1", "A"},    {"I2", "A"},     {"I3", "A"},      {"P1", "W"},      {"P2", "W"},     {"P3", "W"},
     {"S1", "VA"},   {"S2", "VA"},    {"S3", "VA"},     {"Q1", "VAR"},    {"Q2", "VAR"},   {"Q3", "VAR"},
     {"PF1", ""},    {"PF2", ""},     {"PF3", ""},      {"Phase1", "°"},  {"Phase2", "°"}, {"Phase3", "°"},
     {"P_SYS", "W"}, {"S_SYS", "VA"}, {"Q_SYS", "VAR"}, {"PF_SYS", ""},   {"WH", "WH"},    {"SH", "VAH"},
     {"QH", "VARH"}, {"PFH", ""},     {"W(AD)", "W"},   {"VA(AD)", "VA"}, {"W(MD)", "W"},  {"VA(MD)", "VA"}}};

// What the Status menu draws over the chart, in the order of Statistics.
inline constexpr std::array<std::string_view, 9> statistic_captions = {"None",
                                                                       "Mean",
                                                                       "MinMax",
                                                                       "Mean and MinMax",
                                                                       "StdDev",
                                                                       "StdDev and Mean",
                                                                       "StdDev and MinMax",
                                                                       "StdDev and MinMax and Mean",
                                                                       "BestFit"};

// Its place in the menu; nothing for another caption.
std::optional<std::size_t> plot_choice(std::string_view caption);

// Whether the menu offers the choice for files of that wiring system.
bool is_offered(std::size_t choice, Wiring wiring_system);

// What is plotted first: V12 of three phases, V1 of one.
constexpr std::size_t first_choice(Wiring wiring_system) {
  return static_cast<std::size_t>(is_three_phase(wiring_system) ? PowerQuantity::V12 : PowerQuantity::V1);
}

// "KW": the unit with the prefix of that exponent. Angles and power factors have no prefix.
std::string unit_of(std::size_t choice, int prefix);

}  // namespace halden
