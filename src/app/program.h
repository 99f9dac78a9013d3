// The whole program without its windows on the screen: every object in the order it is built, each handed its
// neighbours by reference.
//
// Desktop, tests and haldenctl drive it the same way: start_up once, then what the user does, through the
// windows; what is to be seen stands in them. Timer ticks come from the platform.
#pragma once

#include "app/desk.h"
#include "link/link.h"
#include "link/live_poll.h"
#include "live/live_monitor.h"
#include "live/live_views.h"
#include "live/phasors/phasor_window.h"
#include "live/power/power_view.h"
#include "live/recording/recording.h"
#include "live/sample_clock.h"
#include "live/settings/settings_panel.h"
#include "live/unshown_view.h"
#include "live/view_selection.h"
#include "logger/logger_window.h"
#include "platform/platform.h"
#include "readings/power_chain.h"
#include "screen/meter_rec/columns.h"
#include "screen/meter_rec/main_window.h"
#include "screen/windows.h"

namespace halden {

// The values that several rooms write to.
struct Shared {
  Shared();
  Shared(const Shared&) = delete;
  Shared& operator=(const Shared&) = delete;

  Window meter_rec = make_main_window();
  Window notice = make_notice_window();
  Windows windows;  // these two, and those that the rooms add
  const LabelColumns label_column_left = read_label_columns(meter_rec);
};

// The live views, and what follows their frames.
struct Live {
  Live(const Platform& platform, Shared& shared, Link& link, const StartOptions& options);
  Live(const Live&) = delete;
  Live& operator=(const Live&) = delete;

  HarmonicsOptions harmonics_options;
  PowerChain chain;
  SampleClock sample_clock;
  PhasorWindow phasors;
  PowerView power;
  UnshownView harmonics;
  UnshownView waveform;
  LiveViews views;
  LiveMonitor monitor;
  LivePoll poll;
  ViewSelection selection;
  Rescue rescue;
  Recording recording;
  SettingsPanel settings;
};

struct Program {
  Program(const Platform& outside, const StartOptions& options);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  Platform platform;
  Shared shared;
  Link link;
  Live live;
  LoggerWindow logger;
  Desk desk;
};

}  // namespace halden
