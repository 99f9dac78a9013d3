#include "screen/ui/theme.h"

#include <QApplication>
#include <QStyle>
#include <QWidget>
#include <utility>

namespace halden {

namespace {

Theme make_light() {
  return {QColor("#EEF0F2"), QColor("#FFFFFF"), QColor("#D3D8DD"),
          QColor("#868C93"), QColor("#15181B"), QColor("#5B646D"),
          QColor("#0B62B8"), QColor("#A8005C"), {QColor("#C2410C"), QColor("#047857"), QColor("#1D4ED8")}};
}

Theme make_dark() {
  return {QColor("#14171A"), QColor("#1D2126"), QColor("#2C3238"),
          QColor("#737B84"), QColor("#F1F3F5"), QColor("#98A2AD"),
          QColor("#5FB0F5"), QColor("#FFD447"), {QColor("#FF9A5C"), QColor("#4CD3A2"), QColor("#7FB2FF")}};
}

Theme make_paper() {
  Theme theme = make_light();
  theme.background = Qt::white;
  return theme;
}

// Names between @ are replaced by the colours of a theme.
constexpr const char* style_template = R"(
QMainWindow, QDialog { background: @background@; }
QToolTip { color: @text@; background: @panel@; border: 1px solid @line@; padding: 3px; }

QMenuBar { background: @panel@; color: @text@; border-bottom: 1px solid @line@; padding: 2px 4px; }
QMenuBar::item { background: transparent; padding: 5px 10px; border-radius: 4px; }
QMenuBar::item:selected { background: @line@; }
QMenuBar::item:disabled { color: @disabled@; }
QMenu { background: @panel@; color: @text@; border: 1px solid @line@; padding: 4px; }
QMenu::item { padding: 5px 26px 5px 26px; border-radius: 3px; }
QMenu::item:selected { background: @accent@; color: @panel@; }
QMenu::item:disabled { background: transparent; color: @disabled@; }

QLineEdit[role="reading"], QLineEdit[role="alert"], QLineEdit[role="phase_1"], QLineEdit[role="phase_2"],
QLineEdit[role="phase_3"] { background: transparent; border: none; padding: 0; color: @text@; }
QLineEdit[role="alert"] { color: @warning@; }
QLineEdit[role="phase_1"] { color: @phase1@; }
QLineEdit[role="phase_2"] { color: @phase2@; }
QLineEdit[role="phase_3"] { color: @phase3@; }
QLineEdit[role="edit_box"] {
  background: @background@; color: @text@; border: 1px solid @edge@; border-bottom: 2px solid @accent@;
  border-radius: 2px; padding: 1px 6px 0 6px; }
QLineEdit[role="edit_box"]:focus { background: @panel@; border: 2px solid @accent@; padding: 0 5px; }
QLineEdit[role="edit_box"]:disabled { color: @disabled@; border-color: @line@; }
QLineEdit[over_range="true"] { color: @warning@; }
QLineEdit[old="true"] { color: @quiet@; }
QLabel[role="quiet"] { color: @quiet@; }

QPushButton {
  background: @panel@; color: @text@; border: 1px solid @edge@; border-radius: 4px; padding: 1px 6px; }
QPushButton:hover { border-color: @accent@; }
QPushButton:focus { border: 2px solid @accent@; padding: 0 5px; }
QPushButton:pressed, QPushButton:checked { background: @accent@; color: @panel@; }
QPushButton:checked:focus { border-color: @text@; }
QPushButton:disabled { color: @disabled@; background: @background@; border-color: @line@; }

QPushButton[role="main_button"] { background: @accent@; color: @panel@; border-color: @accent@; }
QPushButton[role="main_button"]:hover, QPushButton[role="main_button"]:focus { border-color: @text@; }
QPushButton[role="main_button"]:pressed { background: @panel@; color: @accent@; }
QPushButton[role="caution"] { color: @warning@; border-color: @warning@; }
QPushButton[role="caution"]:pressed { background: @warning@; color: @panel@; }
QPushButton[role="main_button"]:disabled, QPushButton[role="caution"]:disabled {
  color: @disabled@; background: @background@; border-color: @line@; }

QListView[role="list"] {
  background: @panel@; color: @text@; border: 1px solid @line@; border-radius: 4px; outline: none; }
QListView[role="list"]:focus { border-color: @accent@; }
QListView[role="list"]::item { padding: 3px 8px; border-bottom: 1px solid @background@; }
QListView[role="list"]::item:selected { background: @accent@; color: @panel@; }

QListView[role="text_lines"] {
  background: @panel@; color: @text@; border: 1px solid @line@; border-radius: 4px; outline: none; }
QListView[role="text_lines"]:focus { border-color: @accent@; }
QListView[role="text_lines"]::item { background: @panel@; padding: 1px 8px; }
QListView[role="text_lines"]::item:selected { background: @accent@; color: @panel@; }

QRadioButton::indicator {
  width: 12px; height: 12px; border: 2px solid @quiet@; border-radius: 8px; background: @panel@; }
QRadioButton::indicator:checked { border-color: @accent@; background: @accent@; }
QRadioButton:focus { color: @accent@; }

QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
QDialogButtonBox QPushButton { min-width: 72px; padding: 4px 10px; }
QDialogButtonBox QPushButton:focus { padding: 3px 9px; }

QProgressBar { background: @line@; border: none; }
QProgressBar::chunk { background: @accent@; }

QScrollBar:horizontal { background: @background@; height: 18px; border: 1px solid @line@; border-radius: 4px; }
QScrollBar::handle:horizontal { background: @edge@; min-width: 28px; border-radius: 3px; margin: 2px; }
QScrollBar::handle:horizontal:hover { background: @accent@; }
QScrollBar:vertical { background: @background@; width: 18px; border: 1px solid @line@; border-radius: 4px; }
QScrollBar::handle:vertical { background: @edge@; min-height: 28px; border-radius: 3px; margin: 2px; }
QScrollBar::handle:vertical:hover { background: @accent@; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
)";

QColor mix(const QColor& a, const QColor& b) {
  return QColor((a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2);
}

// The rules that apply to the widget are chosen anew when the property changes.
void set_flag(QWidget& widget, const char* property, bool value) {
  if (widget.property(property).toBool() == value) return;
  const QFont font = widget.font();  // choosing the rules anew resets it
  widget.setProperty(property, value);
  widget.style()->unpolish(&widget);
  widget.style()->polish(&widget);
  widget.setFont(font);
}

constexpr const char* role_property = "role";
constexpr std::array role_names = {"reading", "quiet",       "edit_box", "alert", "phase_1",   "phase_2",
                                   "phase_3", "main_button", "caution",  "list",  "text_lines"};

}  // namespace

const Theme& theme(Look look) {
  static const Theme light = make_light();
  static const Theme dark = make_dark();
  static const Theme paper = make_paper();
  if (look == Look::paper) return paper;
  return look == Look::dark ? dark : light;
}

Look desktop_look(const QPalette& desktop) {
  constexpr int middle_grey = 128;
  return desktop.color(QPalette::Window).lightness() < middle_grey ? Look::dark : Look::light;
}

QPalette to_palette(const Theme& theme) {
  QPalette palette(theme.text, theme.panel, mix(theme.panel, theme.line), theme.line, theme.line, theme.text,
                   theme.panel, theme.panel, theme.background);
  palette.setColor(QPalette::Highlight, theme.accent);
  palette.setColor(QPalette::HighlightedText, theme.panel);
  palette.setColor(QPalette::PlaceholderText, theme.quiet);
  palette.setColor(QPalette::ToolTipBase, theme.panel);
  palette.setColor(QPalette::ToolTipText, theme.text);
  palette.setColor(QPalette::Link, theme.accent);
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, mix(theme.quiet, theme.background));
  return palette;
}

QString to_style_sheet(const Theme& theme) {
  const std::array<std::pair<const char*, QColor>, 12> colours = {
      {{"@background@", theme.background},
       {"@panel@", theme.panel},
       {"@line@", theme.line},
       {"@text@", theme.text},
       {"@quiet@", theme.quiet},
       {"@accent@", theme.accent},
       {"@warning@", theme.warning},
       {"@edge@", mix(theme.line, theme.quiet)},
       {"@disabled@", mix(theme.quiet, theme.background)},
       {"@phase1@", theme.phase[0]},
       {"@phase2@", theme.phase[1]},
       {"@phase3@", theme.phase[2]}}};
  QString sheet = QString::fromLatin1(style_template);
  for (const auto& [name, colour] : colours) sheet.replace(QLatin1String(name), colour.name());
  return sheet;
}

void set_role(QWidget& widget, Role role) {
  widget.setProperty(role_property, QLatin1String(role_names[static_cast<std::size_t>(role)]));
}

void set_over_range(QWidget& reading, bool over_range) { set_flag(reading, "over_range", over_range); }

void set_old(QWidget& reading, bool old) { set_flag(reading, "old", old); }

void apply_to_application(Look look) {
  QApplication::setPalette(to_palette(theme(look)));
  qApp->setStyleSheet(to_style_sheet(theme(look)));
}

}  // namespace halden
