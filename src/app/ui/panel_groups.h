// Chooses the size of the digits: panels that belong together show them equally large, as large as the widest
// text expected in any of them allows.
#pragma once

#include <QString>
#include <string>
#include <vector>

#include "screen/ui/value_panel.h"

namespace halden {

class PanelGroups {
 public:
  // The panel shows the value of that name.
  void add(const std::string& value_name, int phase, const std::string& widest, ValuePanel& panel);

  // Fits digits and captions to the size the panels have now; `scale` is that of the window against its
  // design.
  void fit(double scale);

 private:
  struct Member {
    ValuePanel* panel;
    QString widest;
  };
  using Group = std::vector<Member>;

  static QFont fit_captions(const Group& group, double scale);
  static int fit_digits(const Group& group, const QFont& caption_font, int largest);

  std::vector<Group> groups_ = std::vector<Group>(5);
};

}  // namespace halden
