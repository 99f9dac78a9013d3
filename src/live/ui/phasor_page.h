// The content of the phasor window: buttons and pair angles left of the diagram, unbalance figures below.
#pragma once

#include <QPushButton>
#include <functional>
#include <string_view>
#include <vector>

#include "live/ui/caption_row.h"
#include "screen/ui/design_area.h"

namespace halden {

class Mirror;
class PhasorDiagram;

class PhasorPage : public DesignArea {
  Q_OBJECT

 public:
  using Click = std::function<void(std::string_view)>;

  // Ties everything but the diagram to the mirror; `click` learns which button was pressed.
  PhasorPage(Window& window, Mirror& mirror, Click click, const Theme& theme, QWidget* parent);

  PhasorDiagram& diagram() { return *diagram_; }

 private:
  // Rows whose texts have the same size.
  struct Rows {
    std::vector<CaptionRow*> rows;
    double value_pixels;  // at the design size
    const char* widest_value;
  };

  void build_diagram();
  void build_buttons(Mirror& mirror, const Click& click);
  void build_row(Rows& rows, std::string_view caption, std::string_view value, Frame frame, Mirror& mirror);
  void fit_texts();
  void fit(Rows& rows, double scale);

  Window& window_;
  Theme theme_;
  PhasorDiagram* diagram_ = nullptr;
  std::vector<QPushButton*> buttons_;
  Rows pairs_;
  Rows panels_;
};

}  // namespace halden
