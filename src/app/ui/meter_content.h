// The content of the main window: one widget for every designed control, in its place, tied to its values and
// in the colours of the theme.
#pragma once

#include <QLabel>
#include <string>
#include <vector>

#include "app/ui/panel_groups.h"
#include "screen/meter_rec/main_window.h"
#include "screen/ui/design_area.h"
#include "screen/ui/form_window.h"

namespace halden {

class MeterContent : public DesignArea {
  Q_OBJECT

 public:
  explicit MeterContent(FormWindow& form);

 protected:
  Place place_of(const std::string& control) const override;

  // Passes on a double click on a label of the sample clock.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using Build = void (MeterContent::*)(const DesignedControl&);
  static Build builder_of(ControlKind kind);

  void build_text(const DesignedControl& designed);
  void build_reading(const DesignedControl& designed);
  void build_panel(const DesignedControl& designed);
  void build_edit_box(const DesignedControl& designed);
  void build_button(const DesignedControl& designed);
  void build_scroll_bar(const DesignedControl& designed);
  void build_chart(const DesignedControl& designed);
  void choose_order(std::size_t point);
  void build_backdrop(const DesignedControl& chart);
  void build_nothing(const DesignedControl&) {}

  // The text of the control `label` becomes the widget's accessible name.
  void name_after(const std::string& label, QWidget& widget);
  void watch_double_clicks(const DesignedControl& designed, QWidget& widget);
  void fit_texts();

  FormWindow& form_;
  Mirror& mirror_;
  PanelGroups panels_;
  std::vector<QLabel*> titles_;
  std::vector<ReadingField*> readings_;
  std::vector<QWidget*> form_widgets_;  // buttons and edit boxes
};

}  // namespace halden
