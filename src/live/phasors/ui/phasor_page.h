// The content of the phasor window: buttons and pair angles left of the diagram, unbalance figures below.
#pragma once

#include <QPushButton>
#include <string_view>
#include <vector>

#include "live/phasors/ui/caption_row.h"
#include "screen/ui/design_area.h"
#include "screen/ui/form_window.h"

namespace halden {

class PhasorPage : public DesignArea {
  Q_OBJECT

 public:
  PhasorPage(FormWindow& form, QWidget* parent);

 private:
  // Rows whose texts have the same size.
  struct Rows {
    std::vector<CaptionRow*> rows;
    double value_pixels;  // at the design size
    const char* widest_value;
  };

  void build_diagram();
  void build_buttons();
  void build_row(Rows& rows, std::string_view caption, std::string_view value, Frame frame);
  void fit_texts();
  void fit(Rows& rows, double scale);

  FormWindow& form_;
  std::vector<QPushButton*> buttons_;
  Rows pairs_;
  Rows panels_;
};

}  // namespace halden
