// A window of the program on the screen: shows the values of a Window and passes on what the user does. It
// holds what all windows have in common; the content of each is built by its design.
#pragma once

#include <QImage>
#include <QMainWindow>
#include <QSize>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "screen/ui/mirror.h"
#include "screen/ui/settled_resize.h"
#include "screen/ui/theme.h"

class QPushButton;

namespace halden {

// What a window manager usually adds around a window: title bar and borders.
inline constexpr QSize window_frame(8, 40);

// Passes what the user does to the logic.
class UserInput {
 public:
  virtual ~UserInput() = default;

  // Runs the handler; during a wait that takes no input it is kept until that wait is over.
  virtual void run_input(std::function<void()> handler) = 0;

  // Runs the handler at once, also during a wait.
  virtual void run_now(std::function<void()> handler) = 0;

  // Whether a wait that takes no input is running.
  virtual bool busy() const = 0;
};

class FormWindow;

struct FormDesign {
  QSize smallest;
  QSize start;
  // Fills the menu bar and returns the content. Ties everything to form.mirror().
  std::function<QWidget*(FormWindow& form)> build;
};

class FormWindow : public QMainWindow {
  Q_OBJECT

 public:
  // Window and input outlive the form.
  FormWindow(Window& window, UserInput& input, const FormDesign& design, Look look);

  // ---- for the design ----
  Window& window() { return window_; }
  Mirror& mirror() { return mirror_; }
  const Theme& theme() const { return theme_; }

  // Passes a click on, as if the user had clicked the control.
  void click(std::string control);

  // The button shows the control of that name and passes its clicks on.
  void tie_button(const std::string& control, QPushButton& button);

  // The keys click the control.
  void add_shortcut(const char* keys, const std::string& control);

  // For a part that shows another window: `show` is called when that has changed, and at the first call of
  // show_changes. The other window outlives the form.
  void follow(const Window& other, std::function<void()> show);

  // A part of the content that is not printed. The menu bar never is.
  void keep_off_paper(QWidget& part);

  // ---- for the desktop ----
  // Makes it a dialog of the other window, which takes no input while this one is visible.
  void stand_before(FormWindow& other);

  // Brings the window up to date; cheap when nothing has changed. A window that is shown again comes
  // to the front.
  void show_changes();

  // Whether edit boxes accept typing: not during an exchange, which fills them at its end.
  void set_typing(Typing typing) { mirror_.set_typing(typing); }

  // The content as it is printed: in light colours on white.
  QImage paper_image();

 Q_SIGNALS:
  void changes_shown();
  void places_changed();  // some control has another place, or is shown or hidden

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  struct Followed {
    const Window* window;
    std::function<void()> show;
    std::uint64_t shown_revision = 0;
  };

  void apply_look(Look look);
  void come_to_front();
  void accept_drops();
  void show_followed();
  void show_on_paper(const FormWindow& on_paper) const;

  Window& window_;
  UserInput& input_;
  FormDesign design_;
  Theme theme_;
  Mirror mirror_;
  SettledResize settled_resize_;
  std::vector<Followed> followed_;
  std::vector<QWidget*> kept_off_paper_;
  std::uint64_t shown_revision_ = 0;
  std::uint32_t times_shown_ = 0;
};

}  // namespace halden
