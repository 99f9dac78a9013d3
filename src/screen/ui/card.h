// The background of what stands by itself on a page: a diagram, a chart, a figure with its caption.
#pragma once

#include "screen/ui/theme.h"

class QWidget;

namespace halden {

// A rounded area in the colour of panels, with a thin line around it, over the whole widget.
void paint_card(QWidget& widget, const Theme& theme);

}  // namespace halden
