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
constexpr double largest_digits = 64;  // at the design size
// The digits of other panels are at most this many times as high as those of the powers of a phase.
constexpr double at_most_of_powers = 1.4;
constexpr double design_caption_pixels = 12.0;
constexpr int usual_smallest_caption = 11;
constexpr int smallest_caption = 7;

bool contains(std::span<const Panel> panels, const std::string& value_name) {
  return std::any_of(panels.begin(), panels.end(),
                     [&](const Panel& panel) { return panel.value == value_name; });
}

// VAR texts are the longest, so powers have a size of their own.
bool is_power(const std::string& value_name, int phase) {
  for (const PhaseQuantity quantity : {PhaseQuantity::W, PhaseQuantity::VA, PhaseQuantity::VAR})
    if (phase_panel(quantity, static_cast<std::size_t>(phase)).value == value_name) return true;
  return false;
}

}  // namespace

PanelGroups::Kind PanelGroups::kind_of(const std::string& value_name, int phase) {
  if (phase >= 0) return is_power(value_name, phase) ? Kind::powers : Kind::other_phase_values;
  if (contains(system_panels(), value_name)) return Kind::system;
  if (contains(unbalance_panels(), value_name)) return Kind::unbalance;
  return contains(harmonic_cursor_panels(), value_name) ? Kind::cursor : Kind::summary;
}

void PanelGroups::add(const std::string& value_name, int phase, const std::string& widest,
                      ValuePanel& panel) {
  group(kind_of(value_name, phase)).push_back({&panel, to_qt(widest)});
}

void PanelGroups::fit(double scale) {
  const int largest = static_cast<int>(largest_digits * scale);
  fit_group(Kind::other_phase_values, scale, largest);
  const int powers = fit_group(Kind::powers, scale, largest);
  const int at_most = std::min(largest, static_cast<int>(powers * at_most_of_powers));
  const int system = fit_group(Kind::system, scale, at_most);
  fit_group(Kind::unbalance, scale, std::min(powers, static_cast<int>(system / at_most_of_powers)));
  fit_group(Kind::cursor, scale, at_most);
  fit_group(Kind::summary, scale, at_most);
}

int PanelGroups::fit_group(Kind kind, double scale, int largest) {
  fit_captions(group(kind), scale);
  const int pixels = fit_digits(group(kind), largest);
  for (const Member& member : group(kind)) member.panel->value().set_size(pixels);
  return pixels;
}

void PanelGroups::fit_captions(const Group& group, double scale) {
  int pixels = std::max(static_cast<int>(std::lround(design_caption_pixels * scale)), usual_smallest_caption);
  for (const Member& member : group) {
    const QSize room = ValuePanel::caption_room(member.panel->size());
    if (!member.panel->isHidden())
      pixels = largest_size(text_font(), member.panel->caption().text(), room, smallest_caption, pixels);
  }
  for (const Member& member : group) member.panel->set_caption_font(with_pixel_size(text_font(), pixels));
}

int PanelGroups::fit_digits(const Group& group, int largest) {
  int pixels = largest;
  for (const Member& member : group)
    if (!member.panel->isHidden())
      pixels = member.panel->value().largest_for(split_reading(member.widest), smallest_digits, pixels);
  return pixels;
}

}  // namespace halden
