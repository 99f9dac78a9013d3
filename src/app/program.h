// The whole program without its windows on the screen: its parts in the order they are built, each with
// references to the parts it uses.
//
// Desktop, tests and haldenctl drive it the same way: application.start_up once, then the user's actions on
// the values of the windows, which also hold everything that is shown. Timer ticks come from the platform.
#pragma once

#include "app/application.h"
#include "app/live.h"
#include "app/shared.h"
#include "app/start_options.h"
#include "app/stored_files.h"
#include "filetools/export/export_window.h"
#include "filetools/hardcopy/hardcopy_window.h"
#include "filetools/playback/playback_window.h"
#include "filetools/power_plot/plot_window.h"
#include "filetools/printing/print_window.h"
#include "filetools/viewer/viewer_window.h"
#include "link/link.h"
#include "logger/logger_window.h"
#include "platform/platform.h"

namespace halden {

struct Program {
  Program(const Platform& outside, const StartOptions& start_options);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  const Platform platform;
  const StartOptions options;
  Shared shared;
  Link link{platform, shared.meter_rec, shared.notice, shared.label_column_left};
  Live live{platform, shared, link, options.work_folder, options.temporary_folder};
  LoggerWindow logger{platform, shared.windows, shared.meter_rec, shared.notice, link, options.work_folder};
  PlotWindow plot{platform, shared.windows, shared.meter_rec, link.state};
  PlaybackWindow playback{platform, shared.windows, shared.meter_rec, link.state, link.status};
  HardcopyWindow hardcopy{platform, shared.windows, shared.meter_rec, shared.notice, link};
  ViewerWindow viewer{platform, shared.windows, shared.meter_rec, link};
  PrintWindow print{platform, shared.windows, link.state};
  ExportWindow numbers{platform, shared.windows, shared.meter_rec, link};
  StoredFiles files{platform.files, shared.windows, shared.meter_rec, recent_files_path(options.work_folder)};
  Application application{platform, options, shared, link, live};
};

}  // namespace halden
