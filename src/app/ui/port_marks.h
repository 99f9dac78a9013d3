// The marks of the entries of the COM menu: the chosen port, and whether its device is there.
#pragma once

#include <string>

class QAction;

namespace halden {

class FormWindow;

void tie_port_marks(QAction& action, const std::string& name, FormWindow& form);

}  // namespace halden
