// The geometry of the phasor picture in 1/1440 inch. The conversion of its angles stands in
// readings/angles.h.
#pragma once

namespace halden {

struct PhasorGeometry {
  int phasor_center_x = 7480;
  int phasor_center_y = 3560;
  int voltage_radius = 1900;
  int current_radius = 1500;
  int label_radius = voltage_radius + 150;
  int line_label_radius = voltage_radius + 700;
};

}  // namespace halden
