// One reading on the main window: a framed panel with a quiet caption and a large value. The value is a
// read-only text field, so that assistive technology finds the reading by its caption and the user can copy
// it.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QWidget>
#include <optional>

#include "screen/ui/reading_text.h"
#include "screen/ui/theme.h"

namespace halden {

// Whether a unit is painted smaller than its number. Such a field also shows a dash while it is empty.
enum class Units { like_the_number, smaller };

// A read-only text field that looks like a label; its accessible name is set to the caption of the reading.
// A click selects the whole reading, for copying.
class ReadingField : public QLineEdit {
  Q_OBJECT

 public:
  ReadingField(const QString& object_name, Units units, const Theme& theme, QWidget* parent = nullptr);

  // The size in pixels the text is shown with, smaller where this text alone would not fit.
  void set_size(int pixels);

  // The upper left corner that the text must not cover.
  void keep_free(QSize corner);

  // The size of the digits, from `smallest` to `largest`, at which a text fits below or beside that corner.
  int largest_for(const ReadingText& text, int smallest, int largest) const;

  // What is painted, without the dash.
  const ReadingText& reading() const { return reading_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent*) override {}
  void mouseDoubleClickEvent(QMouseEvent*) override {}

 private:
  void follow_text();
  void fit();
  bool fits() const;

  Units units_;
  Theme theme_;
  ReadingText reading_;
  QSize corner_{0, 0};
  int size_ = 12;
  ReadingFonts fonts_{12};
};

class ValuePanel : public QWidget {
  Q_OBJECT

 public:
  // With a bar of that colour at the left edge, or without one.
  ValuePanel(const QString& label_name, const QString& value_name, std::optional<QColor> bar,
             const Theme& theme, QWidget* parent);

  QLabel& caption() { return *caption_; }
  ReadingField& value() { return *value_; }

  static QSize caption_room(QSize panel);

  void set_caption_font(const QFont& font);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void arrange();

  QLabel* caption_;
  ReadingField* value_;
  std::optional<QColor> bar_;
  Theme theme_;
};

}  // namespace halden
