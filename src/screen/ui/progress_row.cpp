#include "screen/ui/progress_row.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <string>

#include "screen/ui/fonts.h"
#include "screen/ui/form_window.h"

namespace halden {

namespace {

constexpr int text_pixels = 13;
constexpr int row_height = 34;
constexpr int bar_height = 6;

}  // namespace

QWidget* build_progress_row(FormWindow& form, const ProgressRowControls& controls) {
  auto* const row = new QWidget;
  row->setFixedHeight(row_height);
  auto* const line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  auto* const text = new QLabel;
  text->setFont(with_pixel_size(text_font(), text_pixels));
  form.mirror().tie(std::string(controls.text), *text);
  auto* const bar = new QProgressBar;
  bar->setTextVisible(false);
  bar->setFixedHeight(bar_height);
  form.mirror().tie(std::string(controls.bar), *bar);
  auto* const cancel = new QPushButton;
  cancel->setFont(with_pixel_size(text_font(), text_pixels));
  form.tie_button(std::string(controls.cancel), *cancel);
  line->addWidget(text);
  line->addWidget(bar, 1);
  line->addWidget(cancel);
  form.keep_off_paper(*row);
  return row;
}

void cancel_or_close_on_escape(FormWindow& form, std::string_view cancel) {
  auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), &form);
  QObject::connect(escape, &QShortcut::activated, &form, [&form, cancel = std::string(cancel)] {
    if (form.window()[cancel].visible)
      form.click(cancel);
    else
      form.close();
  });
}

}  // namespace halden
