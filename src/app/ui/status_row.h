// The line at the bottom of the main window: port, link, frames per second, recording, hint.
#pragma once

#include <QWidget>
#include <string_view>

#include "screen/ui/bottom_row.h"
#include "screen/ui/theme.h"
#include "screen/window.h"

namespace halden {

class Mirror;

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

class StatusRow : public BottomRow {
  Q_OBJECT

 public:
  StatusRow(Mirror& mirror, const Theme& theme);
};

}  // namespace halden
