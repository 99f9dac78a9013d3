// The viewer window VIEW: lists the lines of a text file block by block, shifts them sideways, and hands file
// or selected lines to the print dialog. Live polling stands still while it is open (link/polling_pause.h).
#pragma once

#include <functional>
#include <string>

#include "filetools/text_to_print.h"
#include "filetools/viewer/viewed_file.h"
#include "filetools/viewer/viewer_form.h"
#include "link/link.h"
#include "platform/platform.h"
#include "screen/windows.h"

namespace halden {

class ViewerWindow {
 public:
  // All outlive the window. Connects the entry of the main window that opens it.
  ViewerWindow(const Platform& platform, Windows& windows, Window& meter_rec, Link& link);
  ViewerWindow(const ViewerWindow&) = delete;
  ViewerWindow& operator=(const ViewerWindow&) = delete;

  // As if the user had chosen the file.
  void open_file(const std::string& path);

  // Called with the path of each file that has been read.
  void on_opened(std::function<void(const std::string& path)> handler) { opened_ = std::move(handler); }

  void on_print(PrintText print) { print_ = std::move(print); }

 private:
  void connect();
  void open();
  void close();
  void choose_file();
  void read_again();
  void toggle_long_lines();
  void shift(int column);
  void print();

  ViewRefusal read(const std::function<ViewRefusal()>& step);
  void show_from_the_top();
  void show_file();
  void show_selection();
  void tell(ViewRefusal refusal);
  VisibleLines visible_lines() const;

  Platform platform_;
  Link& link_;
  Window form_ = make_viewer_form();
  ViewedFile file_;
  bool long_lines_ = false;
  PrintText print_;
  std::function<void(const std::string& path)> opened_;
};

}  // namespace halden
