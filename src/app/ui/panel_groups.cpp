#include "app/ui/panel_groups.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "screen/meter_rec/panels.h"
#include "screen/ui/fonts.h"
#include "screen/ui/mirror.h"

namespace halden {

namespace {

constexpr int smallest_digits = 9;
constexpr int largest_digits = 400;
// The digits of all other panels are at most this many times as high as those of the phases.
constexpr double at_most_of_phases = 1.4;
constexpr double design_caption_pixels = 12.0;
constexpr int usual_smallest_caption = 11;
constexpr int smallest_caption = 7;

bool contains(std::span<const Panel> panels, const std::string& value_name) {
  return std::any_of(panels.begin(), panels.end(),
                     [&](const Panel& panel) { return panel.value == value_name; });
}

// Panels of the three phases are one group; then system values, unbalance, and the blocks of the harmonics
// view.
std::size_t group_of(const std::string& value_name, int phase) {
  if (phase >= 0) return 0;
  if (contains(system_panels(), value_name)) return 1;
  if (contains(unbalance_panels(), value_name)) return 2;
  if (contains(harmonic_cursor_panels(), value_name)) return 3;
  return 4;
}

}  // namespace

void PanelGroups::add(const std::string& value_name, int phase, const std::string& widest,
                      ValuePanel& panel) {
  groups_[group_of(value_name, phase)].push_back({&panel, to_qt(widest)});
}

void PanelGroups::fit(double scale) {
  int largest = largest_digits;
  for (const Group& group : groups_) {
    const QFont caption_font = fit_captions(group, scale);
    const int pixels = fit_digits(group, caption_font, largest);
    for (const Member& member : group) member.panel->set_fonts(caption_font, pixels);
    if (&group == &groups_.front()) largest = static_cast<int>(pixels * at_most_of_phases);
  }
}

QFont PanelGroups::fit_captions(const Group& group, double scale) {
  int pixels = std::max(static_cast<int>(std::lround(design_caption_pixels * scale)), usual_smallest_caption);
  for (const Member& member : group) {
    const QSize room(ValuePanel::caption_room(member.panel->width()), member.panel->height());
    if (!member.panel->isHidden())
      pixels = largest_size(text_font(), member.panel->caption().text(), room, smallest_caption, pixels);
  }
  return with_pixel_size(text_font(), pixels);
}

int PanelGroups::fit_digits(const Group& group, const QFont& caption_font, int largest) {
  int pixels = largest;
  for (const Member& member : group) {
    const QSize room = ValuePanel::value_room(member.panel->size(), caption_font);
    if (!member.panel->isHidden())
      pixels = largest_size(reading_font(), member.widest, room, smallest_digits, pixels);
  }
  return pixels;
}

}  // namespace halden
