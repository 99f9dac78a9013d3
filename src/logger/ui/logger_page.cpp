#include "logger/ui/logger_page.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "logger/ui/results_area.h"
#include "logger/ui/transfer_area.h"
#include "screen/ui/fonts.h"

namespace halden {

namespace {

// The page at the size for which everything else is given in pixels.
constexpr double design_width = 1040;
constexpr double design_height = 710;

constexpr double title_pixels = 19;
constexpr double quiet_pixels = 12;
constexpr double button_pixels = 14;
constexpr double largest_digits = 42;
constexpr double margin_pixels = 16;
constexpr double gap_pixels = 8;

// How cards and results share the room that is left.
constexpr int card_stretch = 5;
constexpr int results_stretch = 9;

constexpr double icon_width_part = 1.25;  // of its height
constexpr int smallest_text = 8;
constexpr int button_frame = 14;  // line and padding on both sides

// The longest texts expected.
constexpr const char* widest_setting = "32767";
constexpr const char* widest_kind = "Harmonics";
constexpr const char* widest_start = "2026-11-28";

// A disc with a letter, and a gap behind it.
QIcon disc_icon(const QString& letter, const Theme& theme) {
  constexpr int size = 64;
  const QRect disc(0, 0, size, size);
  QPixmap picture(static_cast<int>(size * icon_width_part), size);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme.accent);
  painter.drawEllipse(disc);
  painter.setPen(theme.panel);
  painter.setFont(with_pixel_size(reading_font(), size * 3 / 4));
  painter.drawText(disc, Qt::AlignCenter, letter);
  return QIcon(picture);
}

void emphasize(QPushButton& button, std::string_view name) {
  if (name == "DL_All") set_role(button, Role::main_button);
  if (name == "Command1") set_role(button, Role::caution);
}

}  // namespace

LoggerPage::LoggerPage(FormWindow& form, Window& notice) : form_(form) {
  auto* const column = new QVBoxLayout(this);
  sizes_.add(margin_pixels,
             [column](int margin) { column->setContentsMargins(margin, margin / 2, margin, margin / 2); });
  sizes_.add(gap_pixels, [column](int gap) { column->setSpacing(gap); });
  build_title(*column);
  build_cards(*column);
  build_buttons(*column);
  column->addWidget(new TransferArea(form, notice, sizes_, this));
  column->addWidget(new ResultsArea(form, sizes_, this), results_stretch);
  connect(&form, &FormWindow::changes_shown, this, &LoggerPage::fit);
}

// A layout and no widget: a widget would lay out its own children only after the page is resized.
QHBoxLayout* LoggerPage::add_row(QVBoxLayout& column, int stretch) {
  auto* const row = new QHBoxLayout;
  sizes_.add(gap_pixels, [row](int gap) { row->setSpacing(gap); });
  column.addLayout(row, stretch);
  return row;
}

QLabel* LoggerPage::add_label(std::string_view control, double design_pixels, const QFont& font) {
  auto* const label = new QLabel(this);
  label->setObjectName(to_qt(control));
  label->setTextFormat(Qt::PlainText);
  sizes_.add_text(design_pixels, *label, font);
  form_.mirror().tie(std::string(control), *label);
  return label;
}

void LoggerPage::build_title(QVBoxLayout& column) {
  QHBoxLayout& line = *add_row(column, 0);
  QLabel* const title = add_label(setup_title, title_pixels, reading_font());
  QLabel* const files = add_label(stored_files, button_pixels, text_font());
  set_role(*files, Role::quiet);
  line.addWidget(title);
  line.addSpacing(static_cast<int>(margin_pixels));
  line.addWidget(files, 1);
  line.addWidget(make_status_button());
}

// One button of two controls: the letter and the text beside it.
QPushButton* LoggerPage::make_status_button() {
  const std::string name(read_status_button);
  auto* const button = new QPushButton(this);
  button->setObjectName(to_qt(name));
  sizes_.add_text(button_pixels, *button);
  sizes_.add(20, [button](int pixels) {
    button->setIconSize(QSize(static_cast<int>(pixels * icon_width_part), pixels));
  });
  sizes_.add_height(36, *button);
  form_.mirror().tie(name, [this, button](const Control& now) {
    button->setIcon(disc_icon(to_qt(now.text), form_.theme()));
    button->setEnabled(now.enabled);
    button->setVisible(now.visible);
  });
  form_.mirror().tie(std::string(read_status_caption), [button](const Control& now) {
    button->setText(to_qt(now.text));
    button->setAccessibleName(to_qt(now.text));
  });
  connect(button, &QPushButton::clicked, this, [this, name] { form_.click(name); });
  return button;
}

void LoggerPage::build_cards(QVBoxLayout& column) {
  QHBoxLayout* const upper = add_row(column, card_stretch);
  for (const LoggerPanel& panel : recorded_panels()) add_card(panel, *upper);
  QHBoxLayout* const lower = add_row(column, card_stretch);
  for (const LoggerPanel& panel : selected_panels()) add_card(panel, *lower);
  for (const LoggerPanel& box : start_boxes()) add_box(box, *lower);
}

void LoggerPage::add_card(const LoggerPanel& designed, QHBoxLayout& row) {
  auto* const card =
      new ValuePanel(to_qt(designed.label), to_qt(designed.value), std::nullopt, form_.theme(), this);
  Mirror& mirror = form_.mirror();
  mirror.tie(std::string(designed.label), card->caption());
  mirror.tie(std::string(designed.label),
             [card](const Control& now) { card->value().setAccessibleName(to_qt(now.text)); });
  mirror.tie(std::string(designed.value), card->value());
  row.addWidget(card, 1);
  cards_.push_back(card);
}

void LoggerPage::add_box(const LoggerPanel& designed, QHBoxLayout& row) {
  auto* const box = new StartBox(to_qt(designed.label), to_qt(designed.value), this);
  form_.mirror().tie(std::string(designed.label),
                     [box](const Control& now) { box->set_caption(to_qt(now.text)); });
  form_.mirror().tie_edit_box(std::string(designed.value), box->value());
  row.addWidget(box, 1);
  boxes_.push_back(box);
}

void LoggerPage::build_buttons(QVBoxLayout& column) {
  QLabel* const title = add_label(download_title, quiet_pixels, text_font());
  title->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
  set_role(*title, Role::quiet);
  sizes_.add_height(22, *title);
  column.addWidget(title);
  QHBoxLayout* const line = add_row(column, 0);
  for (const std::string_view name : logger_buttons()) {
    auto* const button = new QPushButton(this);
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // all have the same width
    sizes_.add_height(42, *button);
    emphasize(*button, name);
    form_.tie_button(std::string(name), *button);
    line->addWidget(button);
    buttons_.push_back(button);
  }
}

void LoggerPage::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  scale_ = std::min(width() / design_width, height() / design_height);
  sizes_.apply(scale_);
  layout()->activate();
  fit();
}

void LoggerPage::fit() {
  fit_captions();
  fit_digits();
  fit_buttons();
}

void LoggerPage::fit_captions() {
  int pixels = static_cast<int>(std::lround(quiet_pixels * scale_));
  for (ValuePanel* card : cards_)
    pixels = largest_size(text_font(), card->caption().text(), ValuePanel::caption_room(card->size()),
                          smallest_text, pixels);
  const QFont font = with_pixel_size(text_font(), pixels);
  for (ValuePanel* card : cards_) card->set_caption_font(font);
  for (StartBox* box : boxes_) box->set_caption_font(font);
}

// One size for all, in cards and boxes.
void LoggerPage::fit_digits() {
  int pixels = static_cast<int>(std::lround(largest_digits * scale_));
  for (std::size_t i = 0; i < cards_.size(); ++i) {
    const bool is_setting = i < recorded_panels().size();
    const ReadingText widest{QLatin1String(is_setting ? widest_setting : widest_kind), {}};
    pixels = cards_[i]->value().largest_for(widest, smallest_text, pixels);
  }
  for (StartBox* box : boxes_) pixels = box->largest_for(QLatin1String(widest_start), smallest_text, pixels);
  for (ValuePanel* card : cards_) card->value().set_size(pixels);
  for (StartBox* box : boxes_) box->set_size(pixels);
}

void LoggerPage::fit_buttons() {
  int pixels = static_cast<int>(std::lround(button_pixels * scale_));
  for (QPushButton* button : buttons_)
    pixels = largest_size(text_font(), button->text(),
                          QSize(button->width() - button_frame, button->height()), smallest_text, pixels);
  for (QPushButton* button : buttons_) button->setFont(with_pixel_size(text_font(), pixels));
}

}  // namespace halden
