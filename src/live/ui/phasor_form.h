// The phasor window on the screen: shows the values of PhasorForm and passes on what the user does.
#pragma once

#include <QImage>
#include <QMainWindow>
#include <cstdint>
#include <functional>
#include <string_view>

#include "screen/ui/mirror.h"
#include "screen/ui/settled_resize.h"
#include "screen/ui/theme.h"

namespace halden {

class PhasorPage;

// What the window tells; each is one call into the logic.
struct PhasorFormEvents {
  std::function<void(std::string_view)> click;
  std::function<void()> resized;  // shown for the first time, or a change of size has settled
  std::function<void()> closed;
  std::function<bool()> busy = [] { return false; };  // whether a handler or a wait is running
};

class PhasorForm : public QMainWindow {
  Q_OBJECT

 public:
  // Window and whatever the events call outlive this.
  PhasorForm(Window& window, PhasorFormEvents events, Look look);

  // Brings the window up to date; cheap when nothing has changed. A window that is shown, or shown again,
  // comes to the front.
  void show_changes();

  // The window as it is printed: in light colours, whatever it shows on the screen.
  QImage paper_image();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void build_menu_bar();
  void build_hint();  // why a print failed, at the end of the menu bar
  void build_page(const Theme& theme);
  void build_shortcuts();
  void dress(Look look);
  void come_to_front();

  Window& window_;
  PhasorFormEvents events_;
  Mirror mirror_;
  SettledResize settled_resize_;
  PhasorPage* page_ = nullptr;
  std::uint64_t shown_revision_ = 0;
  std::uint32_t times_shown_ = 0;
};

}  // namespace halden
