// The colours of the program in one place, light and dark; widgets, painted panels and paper take them from
// here.
#pragma once

#include <QColor>
#include <QPalette>
#include <QString>
#include <array>

namespace halden {

enum class Look { light, dark };

struct Theme {
  QColor background;
  QColor panel;
  QColor line;
  QColor text;
  QColor quiet;
  QColor accent;
  std::array<QColor, 3> phase;
};

const Theme& theme(Look look);

// What the desktop asks for, judged by the window colour of its palette.
Look desktop_look(const QPalette& desktop);

// The same colours for everything Qt draws by itself, and the rules for what looks different from that.
QPalette to_palette(const Theme& theme);
QString to_style_sheet(const Theme& theme);

// Which rules of the style sheet apply to a widget.
enum class Role { reading, quiet, edit_box, alert, phase_1, phase_2, phase_3 };
void set_role(QWidget& widget, Role role);

// Gives the whole application a look.
void apply_to_application(Look look);

}  // namespace halden
