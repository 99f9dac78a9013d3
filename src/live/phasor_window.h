// The phasor window: places the vectors of the last reading on the diagram and says what belongs to each.
#pragma once

#include <functional>
#include <span>

#include "link/meter_status.h"
#include "live/live_readings.h"
#include "live/phasor_geometry.h"
#include "live/phasors.h"
#include "platform/platform.h"
#include "platform/printer.h"
#include "screen/main_window.h"
#include "screen/phasor_form.h"

namespace halden {

class PhasorWindow {
 public:
  PhasorWindow(const Platform& platform, const MeterStatus& status, const LiveReadings& raw,
               const PhasorAngles& angles, PhasorGeometry& geometry, Screen& screen)
      : platform_(platform),
        status_(status),
        raw_(raw),
        angles_(angles),
        geometry_(geometry),
        meter_rec_(screen.meter_rec),
        form_(screen.phasor_form) {}

  // Shows the window; while the meter is not in power mode a message says so instead.
  void open();
  void close() { form_.hide(); }

  // The window was loaded or has another size: the origin and what the wiring system shows are set anew.
  void resized();

  // Redraws once while the window is visible.
  void update_phasors();

  void v_only();
  void i_only();
  void vi_all();
  void vxy();
  void hide_vxy();

  // Prints an image of the window in landscape.
  PrintFailure print();

 private:
  using Vectors = std::span<const PhasorVector, phase_count>;

  void place_vectors();
  void show_vectors();
  void show(Vectors vectors, int count);
  void show_unbalance(bool visible);

  struct Point {
    double x = 0;
    double y = 0;
  };
  using Ends = std::array<Point, phase_count>;

  Point centre() const;
  void redraw();
  Ends draw(Vectors vectors, const PerPhase<double>& sizes, const PerPhase<double>& angles, int radius);
  void draw_lines(const Ends& voltages);
  void put_marker(std::string_view marker, Point end);
  void put_vector(std::string_view vector, Point end);
  void put_label(const PhasorVector& names, double angle, int radius);
  void show_pairs(std::size_t first, const PerPhase<double>& angles);

  Platform platform_;
  const MeterStatus& status_;
  const LiveReadings& raw_;
  const PhasorAngles& angles_;
  PhasorGeometry& geometry_;
  const Window& meter_rec_;
  Window& form_;
  std::int16_t laid_out_for_ = -1;  // the wiring system of the last show_vectors
};

}  // namespace halden
