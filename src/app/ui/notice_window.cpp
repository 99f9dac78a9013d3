#include "app/ui/notice_window.h"

#include <QCloseEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

#include "app/ui/recording_mark.h"
#include "screen/ui/fonts.h"
#include "screen/ui/value_panel.h"

namespace halden {

namespace {

constexpr QSize notice_size(380, 116);
constexpr int caption_pixels = 13;
constexpr int message_pixels = 19;
constexpr int accent_width = 4;

constexpr Qt::WindowFlags notice_flags =
    Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::CustomizeWindowHint;

constexpr int bar_height = 4;
constexpr int step_ms = 120;
constexpr int steps_across = 12;  // from one end to the other
constexpr int piece_share = 4;    // the piece is a quarter of the bar

// A thin bar with a moving piece, which shows that the program still works during a long wait. It moves only
// while it is visible.
class BusyBar : public QWidget {
 public:
  explicit BusyBar(const Theme& theme) : theme_(theme) {
    setFixedHeight(bar_height);
    steps_.setInterval(step_ms);
    connect(&steps_, &QTimer::timeout, this, [this] {
      step_ = (step_ + 1) % (2 * steps_across);
      update();
    });
  }

 protected:
  void showEvent(QShowEvent*) override { steps_.start(); }
  void hideEvent(QHideEvent*) override { steps_.stop(); }

  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), theme_.line);
    const int piece = width() / piece_share;
    const int position = step_ < steps_across ? step_ : 2 * steps_across - step_;
    painter.fillRect(QRect((width() - piece) * position / steps_across, 0, piece, height()), theme_.accent);
  }

 private:
  Theme theme_;
  QTimer steps_;
  int step_ = 0;
};

}  // namespace

NoticeWindow::NoticeWindow(Window& window, QWidget& main_window, Look look)
    : QWidget(&main_window, notice_flags),
      window_(window),
      main_window_(main_window),
      theme_(theme(look)),
      mirror_(window),
      caption_(new QLabel(this)),
      message_(new ReadingField(QStringLiteral("Text1"), Units::like_the_number, theme_, this)) {
  setObjectName(to_qt(window.name()));
  setAttribute(Qt::WA_ShowWithoutActivating);
  build();
}

void NoticeWindow::build() {
  caption_->setFont(with_pixel_size(text_font(), caption_pixels));
  caption_->setTextFormat(Qt::PlainText);
  set_role(*caption_, Role::quiet);
  static_cast<ReadingField*>(message_)->set_size(message_pixels);
  message_->setFocusPolicy(Qt::NoFocus);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(24, 18, 20, 18);
  column->addWidget(caption_);
  column->addWidget(message_);
  column->addSpacing(6);
  column->addWidget(new BusyBar(theme_));
  mirror_.tie("Text1", *message_);
  setFixedSize(notice_size);
}

void NoticeWindow::show_changes() {
  mirror_.show_changes();
  const QString caption = to_qt(window_.caption());
  if (windowTitle() != caption) {
    setWindowTitle(caption);
    caption_->setText(caption);
    message_->setAccessibleName(caption);
  }
  const bool wanted = window_.visible() && !is_lasting_notice(window_);
  if (isVisible() == wanted) return;
  if (wanted) centre();
  setVisible(wanted);
}

void NoticeWindow::centre() {
  const QRect around =
      main_window_.isVisible() ? main_window_.frameGeometry() : screen()->availableGeometry();
  move(around.center() - rect().center());
}

void NoticeWindow::closeEvent(QCloseEvent* event) { event->ignore(); }

void NoticeWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), theme_.panel);
  painter.setPen(theme_.line);
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.fillRect(QRect(0, 0, accent_width, height()), theme_.accent);
}

}  // namespace halden
