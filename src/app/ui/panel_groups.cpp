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
  fit_group(Kind::other_phase_values, scale, largest_digits);
  const int powers = fit_group(Kind::powers, scale, largest_digits);
  const int at_most = static_cast<int>(powers * at_most_of_powers);
  fit_group(Kind::system, scale, at_most);
  fit_group(Kind::unbalance, scale, powers);
  fit_group(Kind::cursor, scale, at_most);
  fit_group(Kind::summary, scale, at_most);
}

int PanelGroups::fit_group(Kind kind, double scale, int largest) {
  const QFont caption_font = fit_captions(group(kind), scale);
  const int pixels = fit_digits(group(kind), caption_font, largest);
  for (const Member& member : group(kind)) member.panel->set_fonts(caption_font, pixels);
  return pixels;
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
      pixels = largest_reading(split_reading(member.widest), room, smallest_digits, pixels);
  }
  return pixels;
}

}  // namespace halden
