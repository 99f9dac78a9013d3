#include "screen/ui/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QPixmap>
#include <QPushButton>
#include <QResizeEvent>
#include <QScreen>
#include <QShortcut>
#include <QUrl>
#include <QWindow>
#include <utility>

#include "screen/ui/fonts.h"
#include "screen/ui/paper_twin.h"

namespace halden {

namespace {

constexpr int menu_pixels = 14;

// For a window that is only drawn for a print.
class NoInput : public UserInput {
 public:
  void run_input(std::function<void()>) override {}
  void run_now(std::function<void()>) override {}
  bool busy() const override { return false; }
};

Lines dropped_files(const QDropEvent& event) {
  Lines paths;
  for (const QUrl& url : event.mimeData()->urls())
    if (url.isLocalFile()) paths.push_back(from_qt(url.toLocalFile()));
  return paths;
}

}  // namespace

FormWindow::FormWindow(Window& window, UserInput& input, const FormDesign& design, Look look)
    : window_(window),
      input_(input),
      design_(design),
      theme_(halden::theme(look)),
      mirror_(window,
              [this](const std::string& control) {
                input_.run_input([&values = window_, control] { values.changed(control); });
              }),
      settled_resize_([this] { return input_.busy(); },
                      [this] { input_.run_now([&values = window_] { values.resized(); }); }),
      times_shown_(window.times_shown()) {
  setObjectName(to_qt(window.name()));
  apply_look(look);
  menuBar()->setNativeMenuBar(false);  // inside the window on every system
  menuBar()->setFont(with_pixel_size(text_font(), menu_pixels));
  QWidget* const content = design.build(*this);
  setCentralWidget(content);
  accept_drops();
  setFocus();  // otherwise a button would have the keyboard focus at the start
  setMinimumSize(design.smallest);
  resize(design.start.boundedTo(screen()->availableSize() - window_frame).expandedTo(design.smallest));
  mirror_.show_changes();
  Q_EMIT places_changed();
}

// Called before anything is built: a style sheet set later resets the font sizes of widgets.
void FormWindow::apply_look(Look look) {
  if (desktop_look(QApplication::palette()) == look) return;
  setPalette(to_palette(theme_));
  setStyleSheet(to_style_sheet(theme_));
}

void FormWindow::click(std::string control) {
  window_.press(control);
  input_.run_input([&values = window_, control = std::move(control)] { values.click(control); });
}

// Qt toggles the mark of a checkable button; that is undone, because the values decide which are marked.
void FormWindow::tie_button(const std::string& control, QPushButton& button) {
  button.setObjectName(to_qt(control));
  mirror_.tie(control, button);
  connect(&button, &QPushButton::clicked, this, [this, control, &button](bool now_checked) {
    if (button.isCheckable()) button.setChecked(!now_checked);
    click(control);
  });
}

void FormWindow::add_shortcut(const char* keys, const std::string& control) {
  auto* const shortcut = new QShortcut(QKeySequence(QLatin1String(keys)), this);
  connect(shortcut, &QShortcut::activated, this, [this, control] { click(control); });
}

void FormWindow::follow(const Window& other, std::function<void()> show) {
  followed_.push_back({&other, std::move(show)});
}

void FormWindow::show_followed() {
  for (Followed& followed : followed_)
    if (std::exchange(followed.shown_revision, followed.window->revision()) != followed.window->revision())
      followed.show();
}

// Not a child of the other window, which would delete it.
void FormWindow::stand_before(FormWindow& other) {
  setWindowFlags(Qt::Dialog);
  setWindowModality(Qt::WindowModal);
  other.winId();  // both need their windows on the screen
  winId();
  windowHandle()->setTransientParent(other.windowHandle());
}

void FormWindow::show_changes() {
  show_followed();
  if (window_.revision() == shown_revision_) return;
  shown_revision_ = window_.revision();
  if (mirror_.show_changes()) Q_EMIT places_changed();
  Q_EMIT changes_shown();
  if (windowTitle() != to_qt(window_.caption())) setWindowTitle(to_qt(window_.caption()));
  const bool shown_again = isVisible() && times_shown_ != window_.times_shown();
  times_shown_ = window_.times_shown();
  if (isVisible() != window_.visible()) setVisible(window_.visible());
  if (shown_again) come_to_front();
}

void FormWindow::come_to_front() {
  if (isMinimized()) showNormal();
  raise();
  activateWindow();
}

void FormWindow::keep_off_paper(QWidget& part) { kept_off_paper_.push_back(&part); }

// Draws a second window that is never shown, so that this one keeps its colours and its parts.
QImage FormWindow::paper_image() {
  NoInput no_input;
  FormWindow on_paper(window_, no_input, design_, Look::paper);
  on_paper.menuBar()->hide();
  for (QWidget* part : on_paper.kept_off_paper_) part->hide();
  show_on_paper(on_paper);
  on_paper.resize(size());
  on_paper.ensurePolished();
  return on_paper.grab().toImage();
}

void FormWindow::show_on_paper(const FormWindow& on_paper) const {
  for (QWidget* part : on_paper.findChildren<QWidget*>()) {
    auto* const twin = dynamic_cast<PaperTwin*>(part);
    const QWidget* const shown = twin != nullptr ? findChild<QWidget*>(part->objectName()) : nullptr;
    if (shown != nullptr) twin->show_as(*shown);
  }
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // the logic decides whether the window closes
  const auto close = [&values = window_] { values.closed(); };
  window_.closing() == Closing::at_once ? input_.run_now(close) : input_.run_input(close);
}

// A box would put the file's address into its text.
void FormWindow::accept_drops() {
  setAcceptDrops(true);
  for (QLineEdit* box : findChildren<QLineEdit*>()) box->setAcceptDrops(false);
}

void FormWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!dropped_files(*event).empty()) event->acceptProposedAction();
}

void FormWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  input_.run_input([&values = window_, paths = dropped_files(*event)] { values.dropped(paths); });
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  settled_resize_.resized(event->size());
}

void FormWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  settled_resize_.shown();
}

}  // namespace halden
