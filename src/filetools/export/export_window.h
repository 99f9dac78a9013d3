// The window that exports the numbers of a data file for other programs.
//
// It does not need the line: live polling goes on, also while a long file is exported.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "filetools/export/export_form.h"
#include "filetools/export/number_export.h"
#include "filetools/reading_progress.h"
#include "link/link.h"
#include "platform/platform.h"
#include "screen/windows.h"

namespace halden {

class ExportWindow {
 public:
  // All outlive the window. Connects the entry of the main window that opens it.
  ExportWindow(const Platform& platform, Windows& windows, Window& meter_rec, const Link& link);
  ExportWindow(const ExportWindow&) = delete;
  ExportWindow& operator=(const ExportWindow&) = delete;

  // As if the user had chosen the file.
  void open_file(const std::string& path);

 private:
  void connect();
  void connect_choice(const ExportChoice& choice, std::function<void(std::size_t)> choose);
  void choose_file();
  void choose_target();
  void run();
  void close();
  void say(std::string_view sentence) { form_.set_text(export_result, sentence); }
  void set_running(bool running);

  Platform platform_;
  const Link& link_;
  Window form_ = make_export_form();
  ExportRequest request_;  // no source before a file is chosen, no target before a name is
  ReadingProgress progress_;
};

}  // namespace halden
