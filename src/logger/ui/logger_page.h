// The content of the datalogger window from the title to the results: the cards that tell how the selected
// file was recorded, the buttons, the transfer panel, and the files of this session.
#pragma once

#include <QPushButton>
#include <QWidget>
#include <string_view>
#include <vector>

#include "logger/logger_form.h"
#include "logger/ui/scaled_sizes.h"
#include "logger/ui/start_box.h"
#include "screen/ui/form_window.h"
#include "screen/ui/value_panel.h"

class QHBoxLayout;
class QVBoxLayout;

namespace halden {

class LoggerPage : public QWidget {
  Q_OBJECT

 public:
  // Both outlive the page.
  LoggerPage(FormWindow& form, Window& notice);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void build_title(QVBoxLayout& column);
  void build_cards(QVBoxLayout& column);
  void build_buttons(QVBoxLayout& column);

  QHBoxLayout* add_row(QVBoxLayout& column, int stretch);
  QLabel* add_label(std::string_view control, double design_pixels, const QFont& font);
  QPushButton* make_status_button();
  void add_card(const LoggerPanel& designed, QHBoxLayout& row);
  void add_box(const LoggerPanel& designed, QHBoxLayout& row);

  void fit();
  void fit_captions();
  void fit_digits();
  void fit_buttons();

  FormWindow& form_;
  ScaledSizes sizes_;
  double scale_ = 1.0;
  std::vector<ValuePanel*> cards_;
  std::vector<StartBox*> boxes_;
  std::vector<QPushButton*> buttons_;
};

}  // namespace halden
