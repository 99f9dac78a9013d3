// QCustomPlot. Its header spells Qt's keywords in lower case, which this program has switched off.
#pragma once

#define signals Q_SIGNALS
#define slots Q_SLOTS
#define foreach Q_FOREACH
#include <qcustomplot.h>
#undef signals
#undef slots
#undef foreach
