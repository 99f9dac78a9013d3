#include "filetools/viewer/ui/viewer_form_design.h"

#include <QAction>
#include <QBoxLayout>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <optional>
#include <string>

#include "filetools/viewer/viewer_form.h"
#include "screen/meter_rec/panels.h"
#include "screen/ui/bottom_row.h"
#include "screen/ui/elided_label.h"
#include "screen/ui/fonts.h"
#include "screen/ui/line_list.h"
#include "screen/ui/menu_builder.h"
#include "screen/ui/value_panel.h"

namespace halden {

namespace {

constexpr QSize smallest_size(640, 440);
constexpr QSize start_size(1100, 740);
constexpr int margin = 12;
constexpr int gap = 6;
constexpr int least_of_text = 60;
constexpr int least_of_note = 120;
constexpr int line_pixels = 13;
constexpr int text_pixels = 13;
constexpr int heading_indent = 12;  // as far as the lines of the list
constexpr QSize button_size(120, 30);
constexpr int panel_height = 46;
constexpr int digit_pixels = 19;
constexpr int caption_pixels = 12;

void build_menu(FormWindow& form) {
  build_menus(*form.menuBar(), viewer_menu(), form, [](QAction& action, const MenuEntry& entry) {
    if (entry.name == open_view_entry) action.setShortcut(QKeySequence(QKeySequence::Open));
    if (entry.name == print_list_entry) action.setShortcut(QKeySequence(QKeySequence::Print));
    if (entry.name == view_again_entry) action.setShortcut(QKeySequence(Qt::Key_F5));
  });
  auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), &form);
  QObject::connect(escape, &QShortcut::activated, &form, &QWidget::close);
}

ElidedLabel* make_label(FormWindow& form, std::string_view control, const QFont& font) {
  auto* const label = new ElidedLabel(least_of_text);
  label->setObjectName(to_qt(control));
  label->setFont(font);
  form.mirror().tie(std::string(control), *label);
  return label;
}

// The file's name, and the buttons for its other blocks.
QBoxLayout* build_top(FormWindow& form) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(gap);
  row->addWidget(make_label(form, view_name, with_pixel_size(text_font(), text_pixels)), 1);
  row->addWidget(make_label(form, view_reading, with_pixel_size(text_font(), text_pixels)));
  row->addSpacing(gap);
  for (const std::string_view control : {previous_block_button, more_blocks_button}) {
    auto* const button = new QPushButton;
    button->setFont(with_pixel_size(text_font(), text_pixels));
    button->setMinimumSize(button_size);
    form.tie_button(std::string(control), *button);
    row->addWidget(button);
  }
  row->addStrut(button_size.height());  // as high without buttons
  return row;
}

QWidget* build_list(FormWindow& form) {
  auto* const list = new LineList;
  list->setObjectName(to_qt(view_list));
  list->setFont(with_pixel_size(fixed_font(), line_pixels));
  form.mirror().tie(std::string(view_list), *list);
  const auto click = [&form] { form.click(std::string(view_list)); };
  QObject::connect(list, &QAbstractItemView::clicked, &form, click);
  QObject::connect(list, &QAbstractItemView::activated, &form, click);  // by the Enter key
  return list;
}

QWidget* build_shift(FormWindow& form) {
  auto* const bar = new QScrollBar(Qt::Horizontal);
  bar->setObjectName(to_qt(view_shift));
  bar->setFocusPolicy(Qt::TabFocus);
  bar->setPageStep(10);
  form.mirror().tie(std::string(view_shift), *bar);
  return bar;
}

QBoxLayout* build_panels(FormWindow& form) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(gap);
  for (const ViewerPanel& designed : viewer_panels) {
    auto* const panel =
        new ValuePanel(to_qt(designed.label), to_qt(designed.value), std::nullopt, form.theme(), nullptr);
    panel->setFixedHeight(panel_height);
    panel->set_caption_font(with_pixel_size(text_font(), caption_pixels));
    panel->value().set_size(digit_pixels);
    panel->value().setAccessibleName(to_qt(designed.caption));
    form.mirror().tie(std::string(designed.label), panel->caption());
    form.mirror().tie(std::string(designed.value), panel->value());
    row->addWidget(panel, 1);
  }
  return row;
}

BottomRow* build_bottom(FormWindow& form) {
  auto* const row = new BottomRow(form.theme());
  row->add_field(std::string(polling_note), form.mirror(), least_of_note);
  row->add_field(std::string(status_hint), form.mirror(), 0, 1)->setAlignment(Qt::AlignRight);
  return row;
}

QWidget* build(FormWindow& form) {
  build_menu(form);
  auto* const central = new QWidget(&form);
  auto* const outer = new QVBoxLayout(central);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->setSpacing(0);
  auto* const page = new QVBoxLayout;
  page->setContentsMargins(margin, gap, margin, gap);
  page->setSpacing(gap);
  page->addLayout(build_top(form));
  auto* const heading = new QHBoxLayout;
  heading->addSpacing(heading_indent);
  heading->addWidget(make_label(form, view_heading, with_pixel_size(fixed_font(), line_pixels)));
  page->addLayout(heading);
  page->addWidget(build_list(form), 1);
  page->addWidget(build_shift(form));
  page->addWidget(make_label(form, view_align_note, with_pixel_size(text_font(), text_pixels)));
  page->addLayout(build_panels(form));
  outer->addLayout(page, 1);
  outer->addWidget(build_bottom(form));
  return central;
}

}  // namespace

FormDesign viewer_form_design() { return {smallest_size, start_size, build}; }

}  // namespace halden
