// The colours of the program, light and dark, for widgets, painted panels and paper.
#pragma once

#include <QColor>
#include <QPalette>
#include <QString>
#include <array>

class QWidget;

namespace halden {

// Paper is the light look on white.
enum class Look { light, dark, paper };

struct Theme {
  QColor background;
  QColor panel;
  QColor line;
  QColor grid;  // circles and scales of diagrams; at least 3:1 to the panel
  QColor text;
  QColor quiet;
  QColor accent;
  QColor warning;  // and of a running recording; differs from the colours of all phases
  std::array<QColor, 3> phase;
};

const Theme& theme(Look look);

// The look of the desktop, judged by the window colour of its palette.
Look desktop_look(const QPalette& desktop);

// The colours as a palette for what Qt draws itself, and as a style sheet for what differs from that.
QPalette to_palette(const Theme& theme);
QString to_style_sheet(const Theme& theme);

// Which rules of the style sheet apply to a widget.
enum class Role {
  reading,
  quiet,
  edit_box,
  alert,
  phase_1,
  phase_2,
  phase_3,
  main_button,  // the one that is used most
  caution,      // a button that destroys something
  list,
  text_lines  // a list of very many lines
};
void set_role(QWidget& widget, Role role);

// Shows a reading in the warning colour while it is over range, and in the quiet colour while it is old,
// whether over range or not.
void set_over_range(QWidget& reading, bool over_range);
void set_old(QWidget& reading, bool old);

// Gives the whole application a look.
void apply_to_application(Look look);

}  // namespace halden
