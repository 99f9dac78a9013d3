// The phasor window: calculates the phasors and the unbalance of each whole power frame, and places the
// vectors and their labels on the diagram.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "link/link_state.h"
#include "link/meter_status.h"
#include "live/phasors/phasor_form.h"
#include "live/phasors/phasors.h"
#include "live/power/power_view.h"
#include "platform/platform.h"
#include "readings/power_chain.h"
#include "screen/windows.h"

namespace halden {

class PhasorWindow : public PowerFrameListener {
 public:
  // All outlive the window. Connects the button of the main window that opens it.
  PhasorWindow(const Platform& platform, Windows& windows, Window& meter_rec, const LinkState& link,
               const MeterStatus& status, const PowerReadings& raw);
  PhasorWindow(const PhasorWindow&) = delete;
  PhasorWindow& operator=(const PhasorWindow&) = delete;

  void power_frame_shown() override;

  // Marks vectors and readings while they are no longer current; `description` says so to assistive
  // technology.
  void mark_old(bool old, std::string_view description);

  // The angles of the last whole power frame.
  const PhasorAngles& angles() const { return angles_; }

 private:
  using Vectors = std::span<const PhasorVector, phase_count>;

  void connect();
  void open();
  void resized();
  void print();

  // The buttons that choose the visible vectors.
  void v_only();
  void i_only();
  void vi_all();
  void vxy();
  void hide_vxy();
  void mark_chosen(std::string_view button);

  void place_vectors();
  void show_vectors();
  void show(Vectors vectors, std::size_t count);
  void show_unbalance(bool visible);

  struct Point {
    double x = 0;
    double y = 0;
  };
  using Ends = std::array<Point, phase_count>;

  void update_phasors();
  void redraw();
  Ends draw(Vectors vectors, const PerPhase<double>& sizes, const PerPhase<double>& angles, int radius);
  void draw_lines(const Ends& voltages);
  void put_marker(std::string_view marker, Point end);
  void put_vector(std::string_view vector, Point end);
  void put_label(const PhasorVector& names, double angle, int radius);
  void show_pairs(std::size_t first, const PerPhase<double>& angles);

  Platform platform_;
  Window& meter_rec_;
  const LinkState& link_;
  const MeterStatus& status_;
  const PowerReadings& raw_;
  PhasorAngles angles_;
  Window form_ = make_phasor_form();
  std::optional<Wiring> laid_out_for_;  // the wiring system of the last show_vectors
};

}  // namespace halden
