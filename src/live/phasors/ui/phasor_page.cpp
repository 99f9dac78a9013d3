#include "live/phasors/ui/phasor_page.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "live/phasors/phasor_form.h"
#include "live/phasors/ui/phasor_diagram.h"
#include "screen/ui/fonts.h"

namespace halden {

namespace {

constexpr int smallest_text = 7;

// Sizes in design pixels.
constexpr double button_pixels = 14;
constexpr double caption_pixels = 15;
constexpr double pair_pixels = 17;
constexpr double panel_pixels = 21;

constexpr const char* widest_angle = "-000.0";
constexpr const char* widest_figure = "000.0KV";

int scaled(double pixels, double scale) {
  return std::max(static_cast<int>(std::lround(pixels * scale)), smallest_text);
}

// The place that covers two neighbours, the first on the left.
Place place_of_both(const Place& first, const Place& second) {
  Place place = first;
  place.width = second.left + second.width - first.left;
  return place;
}

}  // namespace

PhasorPage::PhasorPage(FormWindow& form, QWidget* parent)
    : DesignArea(form.window(), double{phasor_page_width}, double{phasor_page_height}, parent),
      form_(form),
      pairs_{{}, pair_pixels, widest_angle},
      panels_{{}, panel_pixels, widest_figure} {
  build_buttons();
  for (const PhasorPair& pair : phasor_pairs()) build_row(pairs_, pair.caption_name, pair.value, Frame::none);
  build_diagram();
  for (const Panel& panel : phasor_panels()) build_row(panels_, panel.label, panel.value, Frame::card);
  connect(this, &DesignArea::arranged, this, &PhasorPage::fit_texts);
  connect(&form, &FormWindow::places_changed, this, &DesignArea::arrange);
}

void PhasorPage::build_buttons() {
  for (const PhasorButton& designed : phasor_buttons()) {
    auto* const button = new QPushButton(this);
    const std::string name(designed.name);
    form_.tie_button(name, *button);
    put(name, *button);
    buttons_.push_back(button);
  }
}

void PhasorPage::build_row(Rows& rows, std::string_view caption, std::string_view value, Frame frame) {
  const std::string caption_name(caption), value_name(value);
  auto* const row = new CaptionRow(to_qt(caption), to_qt(value), frame, form_.theme(), this);
  const Place& caption_place = form_.window()[caption_name];
  const Place place = place_of_both(caption_place, form_.window()[value_name]);
  row->set_caption_part(static_cast<double>(caption_place.width / place.width));
  Mirror& mirror = form_.mirror();
  mirror.tie(caption_name, row->caption());
  mirror.tie(value_name, row->value());
  mirror.tie(value_name, [row](const Control& now) { row->setVisible(now.visible); });
  mirror.tie(caption_name, [row](const Control& now) { row->value().setAccessibleName(to_qt(now.text)); });
  put_at(place, *row);
  rows.rows.push_back(row);
}

// The diagram is not updated while the window is hidden.
void PhasorPage::build_diagram() {
  auto* const diagram = new PhasorDiagram(form_.window(), form_.theme(), this);
  put_at({phasor_diagram_left, phasor_diagram_top, phasor_diagram_width, phasor_diagram_height}, *diagram);
  connect(&form_, &FormWindow::changes_shown, diagram, [this, diagram] {
    if (form_.window().visible()) diagram->show_changes();
  });
}

void PhasorPage::fit_texts() {
  const double scale = width() * double{units_per_pixel} / double{phasor_page_width};
  for (QPushButton* button : buttons_)
    button->setFont(with_pixel_size(text_font(), scaled(button_pixels, scale)));
  fit(pairs_, scale);
  fit(panels_, scale);
}

// One size for all captions and one for all values.
void PhasorPage::fit(Rows& rows, double scale) {
  int caption = scaled(caption_pixels, scale);
  int value = scaled(rows.value_pixels, scale);
  for (CaptionRow* row : rows.rows) {
    caption = largest_size(text_font(), row->caption().text(), row->caption_room(row->size()), smallest_text,
                           caption);
    value = largest_size(reading_font(), QLatin1String(rows.widest_value), row->value_room(row->size()),
                         smallest_text, value);
  }
  for (CaptionRow* row : rows.rows) row->set_text_sizes(caption, value);
}

}  // namespace halden
