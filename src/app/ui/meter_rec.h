// The main window on the screen: shows the values of MeterRec and passes on what the user does.
#pragma once

#include <QImage>
#include <QMainWindow>
#include <cstdint>
#include <functional>
#include <string_view>

#include "app/ui/menu_builder.h"
#include "screen/ui/mirror.h"
#include "screen/ui/settled_resize.h"
#include "screen/ui/theme.h"

namespace halden {

class MeterContent;

// What the window tells; each is one call into the logic.
struct MeterRecEvents {
  Click click;
  std::function<void()> resized;  // shown, or a change of size has settled
  std::function<void()> closed;
  std::function<bool()> busy = [] { return false; };  // whether a handler or a wait is running
};

class MeterRec : public QMainWindow {
  Q_OBJECT

 public:
  // Window and whatever the events call outlive this.
  MeterRec(Window& window, MeterRecEvents events, Look look);

  // Brings the window up to date; cheap when nothing has changed.
  void show_changes();

  // A long wait begins; the exchange it belongs to ends. What is typed meanwhile would be lost when the
  // status is read and fills the boxes, so they do not take it.
  void refuse_typing();
  void take_typing();

  // The window as it is printed: in light colours, whatever it shows on the screen.
  QImage paper_image();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void build_menu_bar();
  void build_content();
  void build_shortcuts();
  void choose_size();
  void dress(Look look);

  Window& window_;
  MeterRecEvents events_;
  Look look_;
  Mirror mirror_;
  SettledResize settled_resize_;
  MeterContent* content_ = nullptr;
  std::uint64_t shown_revision_ = 0;
};

}  // namespace halden
