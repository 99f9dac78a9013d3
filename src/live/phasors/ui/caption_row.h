// A caption with its value beside it, for figures in a column or a row, with or without a frame of its own.
#pragma once

#include <QLabel>
#include <QWidget>

#include "screen/ui/theme.h"
#include "screen/ui/value_panel.h"

namespace halden {

enum class Frame { none, card };

class CaptionRow : public QWidget {
  Q_OBJECT

 public:
  CaptionRow(const QString& label_name, const QString& value_name, Frame frame, const Theme& theme,
             QWidget* parent);

  QLabel& caption() { return *caption_; }
  ReadingField& value() { return *value_; }

  // The caption takes this part of the width, 0 to 1.
  void set_caption_part(double part);

  // Room for the texts in a row of this size.
  QSize caption_room(QSize row) const;
  QSize value_room(QSize row) const;

  // Sizes of the texts in pixels.
  void set_text_sizes(int caption, int value);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  int caption_width(int row_width) const;

  QLabel* caption_;
  ReadingField* value_;
  Frame frame_;
  Theme theme_;
  double caption_part_ = 0.5;
};

}  // namespace halden
