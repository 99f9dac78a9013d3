// The live views, and the objects that work on their frames, in the order they are built.
#pragma once

#include <string>

#include "app/shared.h"
#include "link/link.h"
#include "link/live_poll.h"
#include "live/chart_output.h"
#include "live/live_monitor.h"
#include "live/live_view.h"
#include "live/phasors/phasor_window.h"
#include "live/power/power_view.h"
#include "live/recording/recording.h"
#include "live/sample_clock.h"
#include "live/settings/settings_panel.h"
#include "live/spectrum/spectrum_view.h"
#include "live/view_selection.h"
#include "live/waveform/waveform_view.h"
#include "platform/platform.h"
#include "readings/power_chain.h"

namespace halden {

struct Live {
  // The folders are for rescued lines. All outlive this.
  Live(const Platform& outside, Shared& shared_values, Link& meter_link, const std::string& work_folder,
       const std::string& temporary_folder)
      : platform(outside),
        shared(shared_values),
        link(meter_link),
        rescue(outside.files, work_folder, temporary_folder) {
    monitor.add_listener(recording);
    monitor.add_listener(harmonics);
  }
  Live(const Live&) = delete;
  Live& operator=(const Live&) = delete;

  const Platform& platform;
  Shared& shared;
  Link& link;

  SampleClock sample_clock{platform, link.state, shared.meter_rec};
  PowerChain chain{link.status};
  PhasorWindow phasors{platform, shared.windows, shared.meter_rec, link.state, link.status, chain.raw};
  PowerView power{link, chain, sample_clock, phasors, shared.meter_rec};
  HarmonicsOptions harmonics_options;
  SpectrumView harmonics{platform, link, harmonics_options, sample_clock, shared.meter_rec};
  WaveformView waveform{platform, link, harmonics_options, sample_clock, shared.meter_rec};
  LiveViews views{link.state, link.status, power, harmonics, waveform};
  ViewSelection selection{platform, link, views, harmonics_options, shared.meter_rec};
  ChartOutput chart_output{platform, link.state, shared.meter_rec};
  LiveMonitor monitor{platform.clock, views, sample_clock};
  LivePoll poll{platform, link.waits, link.polling, link.state, shared.meter_rec, monitor};
  Rescue rescue;
  Recording recording{platform,     link.state,       link.exchange, views,
                      sample_clock, shared.meter_rec, shared.notice, rescue};
  SettingsPanel settings{platform, link, power, shared.meter_rec};
};

}  // namespace halden
