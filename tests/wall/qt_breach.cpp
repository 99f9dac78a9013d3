#include <QString>  // must not be found from a logic room
