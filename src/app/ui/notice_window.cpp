#include "app/ui/notice_window.h"

#include <QCloseEvent>
#include <QPainter>
#include <QProgressBar>
#include <QScreen>
#include <QVBoxLayout>

#include "screen/ui/fonts.h"
#include "screen/ui/value_panel.h"
#include "screen/windows.h"

namespace halden {

namespace {

constexpr QSize notice_size(380, 140);
constexpr int caption_pixels = 13;
constexpr int message_pixels = 19;
constexpr int message_height = 30;
constexpr int accent_width = 4;

constexpr Qt::WindowFlags notice_flags =
    Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::CustomizeWindowHint;

constexpr int bar_height = 6;

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
  message_->setFixedHeight(message_height);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(24, 18, 20, 18);
  column->addWidget(caption_);
  column->addWidget(message_);
  column->addWidget(build_port());
  column->addSpacing(6);
  column->addWidget(build_bar());
  mirror_.tie("Text1", *message_);
  setFixedSize(notice_size);
}

QWidget* NoticeWindow::build_port() {
  auto* const port = new QLabel(this);
  port->setObjectName(to_qt(notice_port));
  port->setFont(with_pixel_size(text_font(), caption_pixels));
  port->setTextFormat(Qt::PlainText);
  set_role(*port, Role::quiet);
  mirror_.tie(std::string(notice_port), *port);
  return port;
}

QWidget* NoticeWindow::build_bar() {
  auto* const bar = new QProgressBar(this);
  bar->setObjectName(to_qt(notice_progress));
  bar->setTextVisible(false);
  bar->setFixedHeight(bar_height);
  mirror_.tie(std::string(notice_progress), *bar);
  mirror_.tie(std::string(notice_progress),
              [bar](const Control& now) { bar->setVisible(now.maximum > now.minimum); });
  return bar;
}

void NoticeWindow::show_changes() {
  mirror_.show_changes();
  const QString caption = to_qt(window_.caption());
  if (windowTitle() != caption) {
    setWindowTitle(caption);
    caption_->setText(caption);
    message_->setAccessibleName(caption);
  }
  if (isVisible() == wanted()) return;
  if (wanted()) centre();
  setVisible(wanted());
}

bool NoticeWindow::wanted() const {
  const bool shown_elsewhere = host_ != nullptr && host_->isVisible() && !host_->isMinimized();
  return window_.visible() && !is_lasting_notice(window_) && !shown_elsewhere;
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
