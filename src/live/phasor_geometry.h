// The constants of the phasor picture: its geometry in 1/1440 inch, and the conversion between tenths of a
// degree and radians, for which pi is 3.14159 throughout the program.
#pragma once

namespace halden {

struct PhasorGeometry {
  int phasor_center_x = 7480;
  int phasor_center_y = 3560;
  int voltage_radius = 1900;
  int current_radius = 1500;
  int label_radius = voltage_radius + 150;
  int line_label_radius = voltage_radius + 700;
  double tenths_to_radians = 3.14159 / 1800;
  float radians_to_tenths = static_cast<float>(1800 / 3.14159);
};

}  // namespace halden
