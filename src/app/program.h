// Every object of the program in the order it is built; each is handed its neighbours by reference.
#pragma once

#include "app/configuration.h"
#include "app/port_choice.h"
#include "app/status_line.h"
#include "link/exchange_gate.h"
#include "link/link_state.h"
#include "link/live_poll.h"
#include "link/meter_status.h"
#include "link/polling.h"
#include "link/status_query.h"
#include "link/waits.h"
#include "live/live_monitor.h"
#include "live/live_readings.h"
#include "live/phasor_geometry.h"
#include "live/phasor_window.h"
#include "live/phasors.h"
#include "live/power_monitor.h"
#include "live/recording.h"
#include "live/rescue.h"
#include "live/sample_clock.h"
#include "live/settings_panel.h"
#include "live/view_selection.h"
#include "platform/platform.h"
#include "readings/readings.h"
#include "screen/columns.h"
#include "screen/main_window.h"

namespace halden {

// How the plot of stored harmonics starts.
struct HarmonicsPlot {
  std::int16_t plot_harmo_mode = 0;
  std::int16_t harmonics_shown = 100;
};

// Designer periods of the two timers of the main window.
inline constexpr int designed_clock_period_ms = 2000;
inline constexpr int designed_poll_period_ms = 250;

struct Program {
  Program(Platform outside, const std::string& work_folder, const std::string& temporary_folder);

  void connect_steps();

  Platform platform;

  // The program-wide values.
  Screen screen;
  LinkState link;
  MeterStatus status;
  LabelColumns label_column_left{};
  PhasorGeometry phasor_geometry;
  HarmonicsView harmonics_view;
  HarmonicsPlot harmonics_plot;
  LiveReadings raw;
  PhasorAngles phasor_angles;
  Readings readings{status};
  PowerFrameSteps power_frame_steps;
  LiveSteps live_steps;

  // What works on them.
  ExchangeGate gate;
  Waits waits;
  Polling polling;
  StatusQuery query;
  SampleClock sample_clock;
  PowerMonitor power;
  LiveMonitor monitor;
  Rescue rescue;
  Recording recording;
  LivePoll live_poll;
  PhasorWindow phasors;
  ViewSelection views;
  SettingsPanel settings;
  Configuration configuration;
  StatusLine status_line;
  PortChoice port_choice;
};

}  // namespace halden
