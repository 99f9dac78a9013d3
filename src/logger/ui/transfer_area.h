// What an exchange of the datalogger window is doing: the notice, the file of a run, what has arrived, and
// Cancel. Its rows keep their room while parts of them are hidden, so that nothing moves.
#pragma once

#include <QLabel>
#include <QWidget>

#include "logger/logger_form.h"
#include "logger/ui/scaled_sizes.h"
#include "screen/ui/form_window.h"
#include "screen/ui/value_panel.h"

class QHBoxLayout;
class QProgressBar;
class QVBoxLayout;

namespace halden {

class TransferArea : public QWidget {
  Q_OBJECT

 public:
  // Form, notice and sizes outlive the area.
  TransferArea(FormWindow& form, Window& notice, ScaledSizes& sizes, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void build_notice();
  void build_task();
  void build_figures();
  void build_note();

  QWidget* add_row(double design_height);
  QLabel* add_text(std::string_view control, double design_pixels, QHBoxLayout& row);
  void add_file_name(QHBoxLayout& row);
  QProgressBar* add_bar(const std::string& control, Mirror& mirror, double design_height);
  void add_figure(const LoggerPanel& figure, QHBoxLayout& row);

  void show_notice();
  void show_or_hide();

  FormWindow& form_;
  Window& notice_;
  Mirror notice_mirror_;
  ScaledSizes& sizes_;
  double design_height_ = 0;
  QVBoxLayout* rows_;
  QWidget* notice_row_ = nullptr;
  QLabel* notice_caption_ = nullptr;
  ReadingField* notice_text_ = nullptr;
  QProgressBar* notice_bar_ = nullptr;
};

}  // namespace halden
