// Asks the meter for its complete status and shows it in the main window: mode, wiring system, settings boxes
// and column layout.
//
// Always runs with the live poll stopped; takes 9 seconds, of which one yields. The notice window asks the
// user to wait meanwhile.
#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "link/link_state.h"
#include "link/meter_status.h"
#include "link/polling.h"
#include "link/waits.h"
#include "platform/platform.h"
#include "screen/meter_rec/columns.h"
#include "screen/window.h"

namespace halden {

class StatusQuery {
 public:
  StatusQuery(const Platform& platform, Waits& waits, Polling& polling, LinkState& state, MeterStatus& status,
              Window& meter_rec, Window& notice, const LabelColumns& label_column_left)
      : platform_(platform),
        waits_(waits),
        polling_(polling),
        state_(state),
        status_(status),
        window_(meter_rec),
        notice_(notice),
        label_column_left_(label_column_left) {}

  // A reply that is too short resumes polling, tells the user and leaves the status as it was. So does a
  // meter that goes on sending a stored file: it is not asked.
  void query_meter_status();

  // The same, but returns false, with nothing told, as soon as bytes of a stored file come: a download that
  // was over has been cut.
  bool query_unless_file_comes();

  // Whether the meter can be asked. A stored file that still comes is thrown away for at most six seconds.
  bool line_is_free();

  // Brings the notice's progress up to date: the part of a query's 9 seconds that is over.
  void show_progress();

  // Whether the last query got a reply.
  bool succeeded() const { return succeeded_; }

  // Whether that reply told everything about the selected stored file.
  bool told_stored_file() const { return succeeded_ && reply_.stored_file_is_whole; }

  // What the user is told without a reply.
  static constexpr std::string_view failed_message =
      "Meter status could not be obtained, please check connections, com port, etc, and try again.";

  // Called after each successful query, once its values are shown.
  void on_status_read(std::function<void()> handler) { status_read_.push_back(std::move(handler)); }

 private:
  void show_splash();
  bool file_comes();
  bool ask();
  void show_status(int fields);
  void report_failure();

  Platform platform_;
  Waits& waits_;
  Polling& polling_;
  LinkState& state_;
  MeterStatus& status_;
  Window& window_;
  Window& notice_;
  const LabelColumns& label_column_left_;
  bool succeeded_ = false;
  StatusReply reply_;
  std::optional<double> began_s_;  // of the query that runs, monotonic
  std::vector<std::function<void()>> status_read_;
};

}  // namespace halden
