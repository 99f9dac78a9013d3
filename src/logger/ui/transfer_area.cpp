#include "logger/ui/transfer_area.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <string>

#include "screen/ui/card.h"
#include "screen/ui/elided_label.h"
#include "screen/ui/fonts.h"
#include "screen/windows.h"

namespace halden {

namespace {

// At the design size.
constexpr double margin_pixels = 12;
constexpr double quiet_pixels = 12;
constexpr double task_pixels = 14;
constexpr double notice_pixels = 18;
constexpr double figure_pixels = 20;
constexpr double cancel_width = 130;

constexpr double rounding_pixels = 4;  // the rows may be a little higher than their sum

constexpr int accent_width = 4;
constexpr int gap = 10;

void keep_room(QWidget& hidden) {
  QSizePolicy policy = hidden.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  hidden.setSizePolicy(policy);
}

}  // namespace

TransferArea::TransferArea(FormWindow& form, Window& notice, ScaledSizes& sizes, QWidget* parent)
    : QWidget(parent),
      form_(form),
      notice_(notice),
      notice_mirror_(notice),
      sizes_(sizes),
      rows_(new QVBoxLayout(this)) {
  setObjectName(QStringLiteral("transfer_area"));
  rows_->setSpacing(0);
  sizes_.add(margin_pixels, [this](int margin) {
    rows_->setContentsMargins(margin + accent_width, margin / 2, margin, margin / 2);
  });
  build_notice();
  build_task();
  build_figures();
  build_note();
  // A hidden widget does not notice that its rows have another height.
  sizes_.add_height(design_height_ + margin_pixels + rounding_pixels, *this);
  keep_room(*this);
  form_.follow(notice_, [this] { show_notice(); });
  form_.mirror().tie(std::string(transfer_task), [this](const Control&) { show_or_hide(); });
}

QWidget* TransferArea::add_row(double design_height) {
  auto* const row = new QWidget(this);
  sizes_.add_height(design_height, *row);
  design_height_ += design_height;
  rows_->addWidget(row);
  auto* const line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(gap);
  return row;
}

QLabel* TransferArea::add_text(std::string_view control, double design_pixels, QHBoxLayout& row) {
  auto* const label = new QLabel(this);
  label->setObjectName(to_qt(control));
  label->setTextFormat(Qt::PlainText);
  sizes_.add_text(design_pixels, *label);
  row.addWidget(label);
  return label;
}

QProgressBar* TransferArea::add_bar(const std::string& control, Mirror& mirror, double design_height) {
  auto* const bar = new QProgressBar(this);
  bar->setObjectName(to_qt(control));
  bar->setTextVisible(false);
  sizes_.add_height(design_height, *bar);
  design_height_ += design_height;
  mirror.tie(control, *bar);
  rows_->addWidget(bar);
  keep_room(*bar);
  return bar;
}

void TransferArea::build_notice() {
  notice_row_ = add_row(30);
  keep_room(*notice_row_);
  auto& line = static_cast<QHBoxLayout&>(*notice_row_->layout());
  notice_caption_ = add_text("notice_caption", quiet_pixels, line);
  set_role(*notice_caption_, Role::quiet);
  notice_text_ = new ReadingField(QStringLiteral("Text1"), Units::like_the_number, form_.theme(), this);
  notice_text_->setFocusPolicy(Qt::NoFocus);
  sizes_.add(notice_pixels, [this](int pixels) { notice_text_->set_size(pixels); });
  notice_mirror_.tie("Text1", *notice_text_);
  line.addWidget(notice_text_, 1);
  QLabel* const port = add_text(notice_port, quiet_pixels, line);
  set_role(*port, Role::quiet);
  notice_mirror_.tie(std::string(notice_port), *port);
  notice_bar_ = add_bar(std::string(notice_progress), notice_mirror_, 4);
}

void TransferArea::build_task() {
  auto& line = static_cast<QHBoxLayout&>(*add_row(28)->layout());
  for (const std::string_view name : {transfer_task, download_name.label})
    form_.mirror().tie(std::string(name), *add_text(name, task_pixels, line));
  add_file_name(line);
  for (const std::string_view name : {total_files.label, total_files.value, file_of_total}) {
    QLabel* const label = add_text(name, quiet_pixels, line);
    set_role(*label, Role::quiet);
    form_.mirror().tie(std::string(name), *label);
  }
  add_bar(std::string(transfer_progress), form_.mirror(), 8);
}

void TransferArea::add_file_name(QHBoxLayout& row) {
  const std::string name(download_name.value);
  auto* const file = new ElidedLabel(0, this);
  file->setObjectName(to_qt(name));
  set_role(*file, Role::reading);
  sizes_.add_text(task_pixels, *file, reading_font());
  form_.mirror().tie(name, *file);
  row.addWidget(file, 1);
}

void TransferArea::build_figures() {
  auto& line = static_cast<QHBoxLayout&>(*add_row(50)->layout());
  for (const LoggerPanel& figure : transfer_panels()) add_figure(figure, line);
  auto* const cancel = new QPushButton(this);
  form_.tie_button(std::string(transfer_cancel), *cancel);
  sizes_.add_text(task_pixels, *cancel);
  sizes_.add_height(34, *cancel);
  sizes_.add(cancel_width, [cancel](int width) { cancel->setFixedWidth(width); });
  line.addWidget(cancel, 0, Qt::AlignBottom);
  keep_room(*cancel);
}

void TransferArea::add_figure(const LoggerPanel& figure, QHBoxLayout& row) {
  auto* const column = new QVBoxLayout;
  column->setSpacing(0);
  row.addLayout(column, 1);
  auto* const caption = new QLabel(this);
  caption->setObjectName(to_qt(figure.label));
  caption->setTextFormat(Qt::PlainText);
  set_role(*caption, Role::quiet);
  sizes_.add_text(quiet_pixels, *caption);
  auto* const value = new ReadingField(to_qt(figure.value), Units::like_the_number, form_.theme(), this);
  sizes_.add(figure_pixels, [value](int pixels) { value->set_size(pixels); });
  column->addStretch(1);
  column->addWidget(caption);
  column->addWidget(value);
  form_.mirror().tie(std::string(figure.label), *caption);
  form_.mirror().tie(std::string(figure.label),
                     [value](const Control& now) { value->setAccessibleName(to_qt(now.text)); });
  form_.mirror().tie(std::string(figure.value), *value);
}

void TransferArea::build_note() {
  auto& line = static_cast<QHBoxLayout&>(*add_row(22)->layout());
  QLabel* const note = add_text(transfer_note, quiet_pixels, line);
  set_role(*note, Role::quiet);
  form_.mirror().tie(std::string(transfer_note), *note);
}

void TransferArea::show_notice() {
  notice_mirror_.show_changes();
  notice_caption_->setText(to_qt(notice_.caption()));
  notice_text_->setAccessibleName(notice_caption_->text());
  show_or_hide();
}

// The notice of a recording has its mark in the main window.
void TransferArea::show_or_hide() {
  const bool notice_shown = notice_.visible() && !is_lasting_notice(notice_);
  const Control& waited_for = notice_[notice_progress];
  notice_row_->setVisible(notice_shown);
  notice_bar_->setVisible(notice_shown && waited_for.maximum > waited_for.minimum);
  setVisible(notice_shown || form_.window()[transfer_task].visible);
}

void TransferArea::paintEvent(QPaintEvent*) {
  paint_card(*this, form_.theme());
  QPainter painter(this);
  painter.fillRect(QRect(0, 0, accent_width, height()), form_.theme().accent);
}

}  // namespace halden
