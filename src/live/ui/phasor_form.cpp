#include "live/ui/phasor_form.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPixmap>
#include <QScreen>
#include <QShortcut>
#include <utility>

#include "live/ui/phasor_diagram.h"
#include "live/ui/phasor_page.h"
#include "screen/ui/fonts.h"

namespace halden {

namespace {

constexpr QSize smallest_size(800, 560);
constexpr QSize start_size(1100, 760);
constexpr int menu_pixels = 14;
constexpr int hint_width = 420;
constexpr int hint_margin = 16;

// Keeps its child as large as its proportions allow, in the middle.
class KeptProportions : public QWidget {
 public:
  KeptProportions(QSizeF proportions, QWidget* parent) : QWidget(parent), proportions_(proportions) {}

  void set_child(QWidget& child) { child_ = &child; }

 protected:
  void resizeEvent(QResizeEvent*) override {
    QRect place(QPoint(), proportions_.scaled(size(), Qt::KeepAspectRatio).toSize());
    place.moveCenter(rect().center());
    child_->setGeometry(place);
  }

 private:
  QSizeF proportions_;
  QWidget* child_ = nullptr;
};

}  // namespace

PhasorForm::PhasorForm(Window& window, PhasorFormEvents events, Look look)
    : window_(window),
      events_(std::move(events)),
      mirror_(window),
      settled_resize_([this] { return events_.busy(); }, [this] { events_.resized(); }),
      times_shown_(window.times_shown()) {
  setObjectName(to_qt(window.name()));
  dress(look);
  build_menu_bar();
  build_page(theme(look));
  build_shortcuts();
  setMinimumSize(smallest_size);
  resize(start_size.boundedTo(screen()->availableSize()).expandedTo(smallest_size));
  mirror_.show_changes();
  menuBar()->cornerWidget()->setFixedHeight(menuBar()->sizeHint().height());
  page_->arrange();
}

void PhasorForm::build_menu_bar() {
  menuBar()->setNativeMenuBar(false);  // inside the window on every system: a print shows it too
  menuBar()->setFont(with_pixel_size(text_font(), menu_pixels));
  QAction* const print = menuBar()->addAction(QString());
  print->setObjectName(QStringLiteral("print_phasor"));
  print->setShortcut(QKeySequence(QStringLiteral("Ctrl+P")));
  mirror_.tie("print_phasor", *print);
  connect(print, &QAction::triggered, this, [this] { events_.click("print_phasor"); });
  build_hint();
}

void PhasorForm::build_hint() {
  auto* const hint = new QLabel(menuBar());
  hint->setObjectName(QStringLiteral("status_hint"));
  hint->setFont(menuBar()->font());
  hint->setTextFormat(Qt::PlainText);
  hint->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  hint->setFixedWidth(hint_width);
  hint->setContentsMargins(0, 0, hint_margin, 0);
  menuBar()->setCornerWidget(hint);
  mirror_.tie("status_hint", [hint](const Control& now) { hint->setText(to_qt(now.text)); });
}

void PhasorForm::build_page(const Theme& theme) {
  auto* const frame =
      new KeptProportions(QSizeF(double{phasor_page_width}, double{phasor_page_height}), this);
  page_ = new PhasorPage(window_, mirror_, events_.click, theme, frame);
  frame->set_child(*page_);
  setCentralWidget(frame);
  frame->setFocus();  // no button looks pressed before the user has taken to the keyboard
}

void PhasorForm::build_shortcuts() {
  auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(escape, &QShortcut::activated, this, [this] { events_.closed(); });
}

// Before anything is built: a style sheet that comes later makes widgets forget the sizes of their fonts.
void PhasorForm::dress(Look look) {
  if (desktop_look(QApplication::palette()) == look) return;
  setPalette(to_palette(theme(look)));
  setStyleSheet(to_style_sheet(theme(look)));
}

void PhasorForm::show_changes() {
  if (window_.revision() == shown_revision_) return;
  shown_revision_ = window_.revision();
  mirror_.show_changes();
  if (window_.visible()) page_->diagram().show_changes();
  if (windowTitle() != to_qt(window_.caption())) setWindowTitle(to_qt(window_.caption()));
  if (isVisible() != window_.visible()) setVisible(window_.visible());
  if (times_shown_ != window_.times_shown()) come_to_front();
}

void PhasorForm::come_to_front() {
  times_shown_ = window_.times_shown();
  if (isMinimized()) showNormal();
  raise();
  activateWindow();
}

// A second window that never reaches the screen, so that the first one keeps its colours.
QImage PhasorForm::paper_image() {
  PhasorForm on_paper(window_, {[](std::string_view) {}, [] {}, [] {}}, Look::light);
  on_paper.resize(size());
  on_paper.ensurePolished();
  return on_paper.grab().toImage();
}

void PhasorForm::closeEvent(QCloseEvent* event) {
  event->ignore();  // the logic hides it
  events_.closed();
}

void PhasorForm::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  settled_resize_.resized(event->size());
}

void PhasorForm::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  settled_resize_.shown();
}

}  // namespace halden
