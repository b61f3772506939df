#include "systemclock.h"

void setSystemClock(qint64, qint64) {}
