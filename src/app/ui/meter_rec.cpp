#include "app/ui/meter_rec.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QPixmap>
#include <QResizeEvent>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <array>
#include <utility>

#include "app/ui/meter_content.h"
#include "app/ui/status_row.h"
#include "screen/ui/fonts.h"

namespace halden {

namespace {

constexpr QSize smallest_size(1024, 700);
constexpr QSize start_size(1280, 800);
constexpr int menu_pixels = 14;

struct ControlShortcut {
  const char* keys;
  const char* control;
};

constexpr std::array control_shortcuts = {ControlShortcut{"F5", "get_hz"},
                                          ControlShortcut{"Ctrl+P", "Command3D1"}};

}  // namespace

MeterRec::MeterRec(Window& window, MeterRecEvents events, Look look)
    : window_(window),
      events_(std::move(events)),
      look_(look),
      mirror_(window),
      settled_resize_([this] { return events_.busy(); }, [this] { events_.resized(); }) {
  setObjectName(to_qt(window.name()));
  dress(look);
  build_menu_bar();
  build_content();
  build_shortcuts();
  choose_size();
  if (mirror_.show_changes()) content_->arrange();
}

void MeterRec::build_menu_bar() {
  menuBar()->setNativeMenuBar(false);  // inside the window on every system: a print shows it too
  menuBar()->setFont(with_pixel_size(text_font(), menu_pixels));
  build_menus(*menuBar(), mirror_, events_.click);
}

void MeterRec::build_content() {
  auto* const central = new QWidget(this);
  auto* const column = new QVBoxLayout(central);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  content_ = new MeterContent(window_, mirror_, events_.click);
  content_->set_theme(theme(look_));
  auto* const status = new StatusRow(mirror_);
  status->set_theme(theme(look_));
  column->addWidget(content_, 1);
  column->addWidget(status);
  setCentralWidget(central);
  central->setFocus();  // no button looks pressed before the user has taken to the keyboard
}

void MeterRec::build_shortcuts() {
  for (const ControlShortcut& shortcut : control_shortcuts) {
    auto* const keys = new QShortcut(QKeySequence(QLatin1String(shortcut.keys)), this);
    connect(keys, &QShortcut::activated, this, [this, &shortcut] { events_.click(shortcut.control); });
  }
  auto* const menu_key = new QShortcut(QKeySequence(Qt::Key_F10), this);
  connect(menu_key, &QShortcut::activated, this,
          [this] { menuBar()->setActiveAction(menuBar()->actions().front()); });
}

void MeterRec::choose_size() {
  setMinimumSize(smallest_size);
  resize(start_size.boundedTo(screen()->availableSize()).expandedTo(smallest_size));
}

// Before anything is built: a style sheet that comes later makes widgets forget the sizes of their fonts.
void MeterRec::dress(Look look) {
  if (desktop_look(QApplication::palette()) == look) return;
  setPalette(to_palette(theme(look)));
  setStyleSheet(to_style_sheet(theme(look)));
}

void MeterRec::show_changes() {
  if (window_.revision() == shown_revision_) return;
  shown_revision_ = window_.revision();
  if (mirror_.show_changes()) content_->arrange();
  if (windowTitle() != to_qt(window_.caption())) setWindowTitle(to_qt(window_.caption()));
  if (isVisible() != window_.visible()) setVisible(window_.visible());
}

void MeterRec::refuse_typing() { content_->set_typing(Typing::refused); }

void MeterRec::take_typing() { content_->set_typing(Typing::taken); }

// A second window that never reaches the screen, so that the first one keeps its colours.
QImage MeterRec::paper_image() {
  MeterRec on_paper(window_, {[](std::string_view) {}, [] {}, [] {}}, Look::light);
  on_paper.resize(size());
  on_paper.ensurePolished();
  return on_paper.grab().toImage();
}

void MeterRec::closeEvent(QCloseEvent* event) {
  event->ignore();  // the program decides what becomes of its windows
  events_.closed();
}

void MeterRec::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  settled_resize_.resized(event->size());
}

void MeterRec::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  settled_resize_.shown();
}

}  // namespace halden
