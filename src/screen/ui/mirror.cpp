#include "screen/ui/mirror.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWidget>
#include <string_view>
#include <utility>

#include "screen/ui/line_list.h"
#include "screen/ui/theme.h"

namespace halden {

namespace {

void show_on_widget(QWidget& widget, const Control& control) {
  if (widget.isHidden() == control.visible) widget.setVisible(control.visible);
  if (widget.isEnabledTo(widget.parentWidget()) != control.enabled) widget.setEnabled(control.enabled);
  const QString tooltip = to_qt(control.tooltip);
  if (widget.toolTip() != tooltip) widget.setToolTip(tooltip);
  if (!control.accessible_name.empty()) widget.setAccessibleName(to_qt(control.accessible_name));
}

void show_on_field(QLineEdit& field, const Control& control) {
  show_on_widget(field, control);
  field.setAccessibleDescription(to_qt(control.description));
  set_old(field, control.old);
  const QString text = to_qt(control.text);
  if (field.text() != text) field.setText(text);
}

// An item becomes checkable when it is checked for the first time; all others show no check mark.
template <typename Checkable>
void show_mark(Checkable& item, bool checked) {
  if (checked) item.setCheckable(true);
  item.setChecked(checked);
}

// In a caption "&" marks the key of an entry; in a value behind the caption ("File = a & b.csv") it is a
// character, which Qt wants doubled.
QString menu_text(const std::string& text) {
  constexpr std::string_view separator = " = ";
  const std::size_t value = text.find(separator);
  if (value == std::string::npos) return to_qt(text);
  QString shown = to_qt(std::string_view(text).substr(value));
  shown.replace(QLatin1Char('&'), QStringLiteral("&&"));
  return to_qt(std::string_view(text).substr(0, value)) + shown;
}

void show_on_action(QAction& action, const Control& control) {
  action.setText(menu_text(control.text));
  action.setVisible(control.visible);
  action.setEnabled(control.enabled);
  action.setToolTip(to_qt(control.tooltip));
  show_mark(action, control.checked);
}

void show_on_scroll_bar(QScrollBar& bar, const Control& control) {
  const QSignalBlocker no_echo(bar);
  show_on_widget(bar, control);
  bar.setRange(control.minimum, control.maximum);
  bar.setValue(control.value);
}

void show_on_choice(QComboBox& box, const Control& control) {
  const QSignalBlocker no_echo(box);
  show_on_widget(box, control);
  QStringList choices;
  if (control.lines)
    for (const std::string& line : *control.lines) choices << to_qt(line);
  box.clear();
  box.addItems(choices);
  box.setCurrentIndex(control.value);
  box.view()->setAccessibleName(box.accessibleName());
}

bool same_place(const Control& a, const Control& b) {
  return a.visible == b.visible && static_cast<const Place&>(a) == static_cast<const Place&>(b);
}

}  // namespace

QString to_qt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string from_qt(const QString& text) { return text.toStdString(); }

void Mirror::tie(const std::string& control, Show show) {
  ties_.push_back({control, {}, true, std::move(show)});
  shown_revision_ = 0;
}

void Mirror::tie(const std::string& control, QLabel& label) {
  tie(control, [&label](const Control& now) {
    show_on_widget(label, now);
    label.setText(to_qt(now.text));
  });
}

void Mirror::tie(const std::string& control, QLineEdit& field) {
  tie(control, [&field](const Control& now) { show_on_field(field, now); });
}

void Mirror::tie(const std::string& control, QAbstractButton& button) {
  tie(control, [&button](const Control& now) {
    show_on_widget(button, now);
    button.setText(to_qt(now.text));
    show_mark(button, now.checked);
  });
}

void Mirror::tie(const std::string& control, QAction& action) {
  tie(control, [&action](const Control& now) { show_on_action(action, now); });
}

void Mirror::tie(const std::string& control, QProgressBar& bar) {
  tie(control, [&bar](const Control& now) {
    show_on_widget(bar, now);
    bar.setRange(now.minimum, now.maximum);
    bar.setValue(now.value);
  });
}

void Mirror::tie(const std::string& control, QScrollBar& bar) {
  tie(control, [&bar](const Control& now) { show_on_scroll_bar(bar, now); });
  QObject::connect(&bar, &QScrollBar::valueChanged, &bar, [this, control](int value) {
    window_.set_value(control, value);
    changed_(control);
  });
}

void Mirror::choose_range(const std::string& control, int first, int last) {
  window_.set_range(control, first, last);
  changed_(control);
}

void Mirror::tie(const std::string& control, QComboBox& box) {
  tie(control, [&box](const Control& now) { show_on_choice(box, now); });
  QObject::connect(&box, &QComboBox::activated, &box, [this, control](int value) {
    window_.set_value(control, value);
    changed_(control);
  });
}

void Mirror::tie(const std::string& control, LineList& list) {
  tie(control, [&list](const Control& now) {
    show_on_widget(list, now);
    list.show_list(now.lines, now.list);
  });
  QObject::connect(&list, &LineList::view_changed, &list, [this, control, &list] {
    const bool same_selection = window_[control].list.selected == list.view().selected;
    window_.set_list(control, list.view());
    if (!same_selection) changed_(control);
  });
}

void Mirror::tie_edit_box(const std::string& control, QLineEdit& field) {
  edit_boxes_.push_back(&field);
  tie(control, field);
  QObject::connect(&field, &QLineEdit::textEdited, &field, [this, control](const QString& text) {
    window_.set_text(control, from_qt(text));
    changed_(control);
  });
}

void Mirror::set_typing(Typing typing) {
  for (QLineEdit* box : edit_boxes_) box->setReadOnly(typing == Typing::refused);
}

bool Mirror::show_changes() {
  if (window_.revision() == shown_revision_) return false;
  shown_revision_ = window_.revision();
  bool moved = false;
  for (Tie& tie : ties_) {
    const Control& now = window_[tie.control];
    if (!tie.fresh && now == tie.shown) continue;
    moved = moved || tie.fresh || !same_place(now, tie.shown);
    tie.fresh = false;
    tie.shown = now;
    tie.show(tie.shown);
  }
  return moved;
}

}  // namespace halden
