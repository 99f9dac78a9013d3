// The line at the bottom of the main window: port, link, frames per second, recording, hint.
#pragma once

#include <QLabel>
#include <QWidget>
#include <string_view>

#include "screen/ui/theme.h"
#include "screen/window.h"

namespace halden {

class Mirror;

// A label that shortens its text with an ellipsis where there is no room, and then shows the whole text as
// tooltip.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  // Where the row is too short, it gives up its room down to `least_width` pixels.
  explicit ElidedLabel(int least_width, QWidget* parent = nullptr);

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  int least_width_;
};

// The state of the link, as a mark that differs in shape as well as in colour: a full disc (linked), a ring
// (idle: no port, or waiting for the meter), a cross (lost), or no mark.
enum class LinkMark { none, linked, idle, lost };

// From the link field's tag: "ok", "idle", "lost".
LinkMark link_mark(std::string_view tag);

class LinkLight : public QWidget {
  Q_OBJECT

 public:
  explicit LinkLight(const Theme& theme, QWidget* parent = nullptr);

  void set_mark(LinkMark mark);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  LinkMark mark_ = LinkMark::none;
  Theme theme_;
};

class StatusRow : public QWidget {
  Q_OBJECT

 public:
  StatusRow(Mirror& mirror, const Theme& theme);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  ElidedLabel* add_field(const char* name, Mirror& mirror, int least_width, int stretch = 0);

  LinkLight* light_;
  Theme theme_;
};

}  // namespace halden
