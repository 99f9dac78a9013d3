// The hardcopy window HC_window: opens a file of pictures of the meter's display, shows one of them, and
// prints it. Live polling stands still while it is open (link/polling_pause.h).
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>

#include "filetools/hardcopy/hardcopy_file.h"
#include "filetools/hardcopy/hardcopy_form.h"
#include "link/link.h"
#include "platform/platform.h"
#include "screen/output/picture_output.h"
#include "screen/windows.h"

namespace halden {

class HardcopyWindow {
 public:
  // All outlive the window. Connects the entry of the main window that opens it.
  HardcopyWindow(const Platform& platform, Windows& windows, Window& meter_rec, Window& notice, Link& link);
  HardcopyWindow(const HardcopyWindow&) = delete;
  HardcopyWindow& operator=(const HardcopyWindow&) = delete;

  // As if the user had chosen the file.
  void open_file(const std::string& path);

  // Called with the path of each file that has been read.
  void on_opened(std::function<void(const std::string& path)> handler) { opened_ = std::move(handler); }

 private:
  void connect();
  void open();
  void close();

  void open_file_and_plot();
  void draw();
  void clear();
  void read();
  void show_picture();
  void show_hint();
  void show_next();
  void read_again();
  void with_picture(const std::function<void(const DotPicture&)>& use);
  std::string suggested_name() const;
  void print();

  Platform platform_;
  Window& notice_;
  Link& link_;
  Window form_ = make_hardcopy_form();
  PictureOutput output_{platform_, link_.state.language, form_};
  std::string hc_file_name_;  // the file opened last
  std::function<void(const std::string& path)> opened_;
  HardcopyFile file_;
  std::size_t shown_ = 0;  // which of its pictures
};

}  // namespace halden
