// Chooses the size of the digits: panels that belong together show them equally large, as large as the widest
// text expected in any of them allows.
#pragma once

#include <QString>
#include <array>
#include <cstddef>
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
  enum class Kind { other_phase_values, powers, system, unbalance, cursor, summary, count };

  static Kind kind_of(const std::string& value_name, int phase);
  Group& group(Kind kind) { return groups_[static_cast<std::size_t>(kind)]; }

  // The size chosen, at most `largest`.
  int fit_group(Kind kind, double scale, int largest);
  static void fit_captions(const Group& group, double scale);
  static int fit_digits(const Group& group, int largest);

  std::array<Group, static_cast<std::size_t>(Kind::count)> groups_;
};

}  // namespace halden
