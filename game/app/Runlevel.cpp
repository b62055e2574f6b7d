#include "app/Runlevel.h"

// Start-up overwrites this with the title screen before the first pass.
int runlevel = RUNLEVEL_MENU;
